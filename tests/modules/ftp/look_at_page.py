#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Opens live.html in headless Chromium from a local web server, as a visitor would, and looks at it.

look_at_page.py FOLDER SCREENSHOTS

FOLDER holds live.html, a blue live.jpg, a red next.jpg and the photos. In light and in dark, on a phone and on a desk:
nothing is wider than the screen, the colours follow the scheme, the photos stand in a grid and are not all loaded at
once, and the live picture turns from blue to red without ever being away. Nothing is asked of any other server. The
page tells how old its picture is, by the server's two times, and says in words when it is not renewed any more; where
the server tells no times it says nothing of it.
"""
import functools
import http.server
import os
import pathlib
import shutil
import sys
import tempfile
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "support"))
from browser import Browser  # noqa: E402

folder, shots = sys.argv[1], sys.argv[2]
asked = []
silent = False  # a server that tells no times
skew = 0  # seconds by which its clock is wrong


class Handler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        asked.append(self.path)

    def send_header(self, keyword, value):
        if silent and keyword in ("Date", "Last-Modified"):
            return
        if keyword == "Date" and skew:
            value = self.date_time_string(time.time() + skew)
        if keyword == "Last-Modified" and skew:
            value = self.date_time_string(os.stat(self.translate_path(self.path)).st_mtime + skew)
        super().send_header(keyword, value)


class Server(http.server.ThreadingHTTPServer):
    def handle_error(self, *_):
        pass  # the browser leaves a page in the middle of a photo


COLOUR = """(function () {
  var c = document.createElement("canvas"), i = document.getElementById("live");
  if (!i.complete || !i.naturalWidth) { return ""; }
  c.width = c.height = 1;
  c.getContext("2d").drawImage(i, 0, 0, 1, 1);
  var d = c.getContext("2d").getImageData(0, 0, 1, 1).data;
  return d[2] > 200 && d[0] < 60 ? "blue" : d[0] > 200 && d[2] < 60 ? "red" : "other";
}())"""
WATCH = """window.gaps = 0; window.frames_ = 0; (function look() {
  var i = document.getElementById("live");
  if (!i || !i.complete || !i.naturalWidth) { window.gaps += 1; }
  window.frames_ += 1; requestAnimationFrame(look);
}())"""


def look(browser, address, name, scheme, width, height, phone):
    shutil.copy(os.path.join(folder, "first.jpg"), os.path.join(folder, "live.jpg"))
    browser.look_from(width, height, phone, scheme)
    asked.clear()
    browser.js("window.before = true")  # the page of the look before may answer for a moment still
    browser.say("Page.navigate", url=address)
    browser.wait("!window.before && document.readyState === 'complete' && location.pathname === '/live.html'")
    browser.wait(COLOUR + " === 'blue'")
    browser.js(WATCH)
    browser.wait("[...document.querySelectorAll('#photos img')].some(i => i.complete && i.naturalWidth > 0)")
    photos = browser.js("document.querySelectorAll('#photos img').length")
    loaded = sum("Photo" in path for path in asked)
    assert photos == 60, photos
    # Of the first look only: later ones find the photos in the cache, and may ask for none.
    assert name != "phone-light" or 0 < loaded < photos, ("all photos at once on a phone, or none", loaded)
    assert browser.js("document.documentElement.scrollWidth <= innerWidth"), "wider than the screen"
    columns = browser.js("getComputedStyle(document.querySelector('#photos ul')).gridTemplateColumns.split(' ').length")
    assert 2 <= columns <= 3 if phone else columns > 3, columns
    light = browser.js("getComputedStyle(document.body).backgroundColor.match(/\\d+/g).reduce((a, b) => a + +b, 0)")
    assert (light > 500) == (scheme == "light"), (scheme, light)
    browser.shoot(os.path.join(shots, name + "-before.png"))
    os.replace(os.path.join(folder, "next.jpg"), os.path.join(folder, "live.jpg"))
    shutil.copy(os.path.join(folder, "live.jpg"), os.path.join(folder, "next.jpg"))
    browser.wait(COLOUR + " === 'red'")
    browser.shoot(os.path.join(shots, name + "-after.png"))
    gaps, frames = browser.js("window.gaps"), browser.js("window.frames_")
    assert gaps == 0, gaps
    assert all(path.split("?")[0] in ("/live.html", "/live.jpg", "/favicon.ico") or "Photo" in path for path in asked)
    print(f"{name}: {columns} columns, {loaded} of {photos} photos loaded at first, {frames} frames, none without picture")


AGE, WORDS = "document.getElementById('age').textContent", "document.getElementById('panne').textContent"
OLD = "Cette image est ancienne : elle n\u2019est plus renouvel\u00e9e."


def made(ago):
    moment = time.time() - ago
    os.utime(os.path.join(folder, "live.jpg"), (moment, moment))


def look_at_age(browser, address):
    global silent, skew
    made(0)
    browser.js("window.before = true")
    browser.say("Page.navigate", url=address)
    browser.wait("!window.before && document.readyState === 'complete' && location.pathname === '/live.html'")
    browser.wait("/^Image reçue il y a [0-4] s\\.$/.test(" + AGE + ")")
    assert browser.js(WORDS) == "", browser.js(WORDS)
    browser.js(WATCH)
    browser.wait(WORDS + " === " + repr(OLD))  # nobody renews it: it grows old by itself
    assert browser.js("/il y a [5-9] s|il y a \\d\\d s/.test(" + AGE + ")"), browser.js(AGE)
    browser.shoot(os.path.join(shots, "age-old.png"))
    made(0)
    browser.wait(WORDS + " === ''")
    assert browser.js("/il y a [0-4] s/.test(" + AGE + ")"), browser.js(AGE)
    for ago, words in ((3725, "1 h 2 min"), (125, "2 min [5-9] s")):
        made(ago)
        browser.wait("/il y a " + words + "/.test(" + AGE + ")")
        assert browser.js(WORDS) == OLD, browser.js(WORDS)
    # A server whose clock is wrong, or a visitor whose is, makes no picture old or young.
    skew = -7200
    made(0)
    browser.wait(WORDS + " === ''")
    made(125)
    browser.wait("/il y a 2 min/.test(" + AGE + ")")
    skew, silent = 0, True
    browser.wait(AGE + " === '' && " + WORDS + " === ''")
    browser.wait(COLOUR + " === 'red'")
    silent = False
    made(0)
    browser.wait("/il y a [0-4] s/.test(" + AGE + ")")
    asked.clear()
    browser.wait("window.frames_ > 0")
    assert browser.js("window.gaps") == 0, browser.js("window.gaps")
    assert all(path.split("?")[0] in ("/live.html", "/live.jpg", "/favicon.ico") or "Photo" in path for path in asked)
    print("age: told, old after three intervals, nothing said without the server's times")


def main():
    server = Server(("127.0.0.1", 0), functools.partial(Handler, directory=folder))
    threading.Thread(target=server.serve_forever, daemon=True).start()
    address = f"http://127.0.0.1:{server.server_port}/live.html"
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile:
        browser = Browser(profile)
        try:
            browser.say("Page.enable")
            for scheme in ("light", "dark"):
                look(browser, address, "phone-" + scheme, scheme, 390, 844, True)
                look(browser, address, "desk-" + scheme, scheme, 1280, 900, False)
            look_at_age(browser, address)
        finally:
            browser.end()


main()
