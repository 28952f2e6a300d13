#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs each recipe of the manual's page about a program of one's own: run_recipes.py SITE

The scripts are taken from both pages as a reader copies them. Only their address, and how long the siren sounds, are
others: a server of this test on loopback listens there. What it must hear of each stands below.
"""
import http.server
import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import threading
import time
import urllib.parse

import html5lib

PICTURE = b"\xff\xd8 newest \xff\xd9"
SENTENCE = 'The "camera" gives no\\thing & é.'
STATE = ["--etat", "begin", "blind", "signal-lost", SENTENCE]
heard = []


class Server(http.server.BaseHTTPRequestHandler):
    def take(self):
        body = self.rfile.read(int(self.headers.get("Content-Length") or 0))
        heard.append((self.command, self.path, dict(self.headers), body))
        self.send_response(200)
        self.send_header("Content-Length", "0")
        self.end_headers()

    do_GET = do_POST = do_PUT = take

    def log_message(self, *_):
        pass


def scripts(page):
    tree = html5lib.parse(page.read_text(encoding="utf-8"), namespaceHTMLElements=False)
    return {e.get("id"): "".join(e.itertext()) for e in tree.iter("pre") if e.get("id")}


def start(script, arguments, url, folder, seconds):
    program = folder / "alarme"
    script, put = re.subn(r"(?m)^URL=.*$", "URL=" + url, script)
    assert put == 1, "one address"
    program.write_text(re.sub(r"(?m)^SECONDS_ON=.*$", "SECONDS_ON=%s" % seconds, script), encoding="utf-8")
    program.chmod(0o700)
    return subprocess.Popen([str(program), *arguments], start_new_session=True, stdin=subprocess.DEVNULL)


def run(script, arguments, url, folder):
    heard.clear()
    status = start(script, arguments, url, folder, "0.2").wait(30)
    assert status == 0, "status %d" % status
    return list(heard)


def form(body):
    return {k: v[0] for k, v in urllib.parse.parse_qs(body.decode()).items()}


def check(recipes, url, folder):
    photos = [str(folder / name) for name in ("2026-11-15  14-05-09 Photo 00001.jpg", "2026-11-15  14-05-10 Photo 00002.jpg")]
    pathlib.Path(photos[0]).write_bytes(b"older")
    pathlib.Path(photos[1]).write_bytes(PICTURE)

    (method, path, head, body), = run(recipes["push"], photos, url, folder)
    assert (method, path, head["Title"], body) == ("PUT", "/x", "Intrusion", PICTURE), (method, path, head, body)
    (method, _, _, body), = run(recipes["push"], [], url, folder)
    assert (method, body) == ("POST", b"Intrusion"), body
    (_, _, _, body), = run(recipes["push"], STATE, url, folder)
    assert body.decode() == SENTENCE, body

    (method, _, _, body), = run(recipes["house"], photos, url, folder)
    assert (method, form(body)) == ("POST", {"event": "intrusion", "photos": "2"}), body
    (_, _, _, body), = run(recipes["house"], STATE, url, folder)
    assert form(body) == {"event": "begin", "gravity": "blind", "condition": "signal-lost", "text": SENTENCE}, body

    (_, _, head, body), = run(recipes["chat"], photos, url, folder)
    assert json.loads(body) == {"text": "Intrusion, 2 photos"}, body
    assert head["Content-Type"] == "application/json"
    (_, _, _, body), = run(recipes["chat"], STATE, url, folder)
    assert json.loads(body) == {"text": "Vaktor, begin: " + SENTENCE}, body

    on, off = "/x/relay/0?turn=on", "/x/relay/0?turn=off"
    assert [path for _, path, _, _ in run(recipes["siren"], photos, url, folder)] == [on, off]
    assert run(recipes["siren"], STATE, url, folder) == []
    # Ended early, as Vaktor ends what takes too long.
    heard.clear()
    siren = start(recipes["siren"], photos, url, folder, "600")
    for _ in range(300):
        if heard:
            break
        time.sleep(0.1)
    time.sleep(0.5)  # it has heard the answer, and sleeps
    os.killpg(siren.pid, signal.SIGTERM)
    siren.wait(30)
    assert [path for _, path, _, _ in heard] == [on, off], heard


def main():
    site = pathlib.Path(sys.argv[1])
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Server)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    url = "http://127.0.0.1:%d/x" % server.server_address[1]
    for page in ("alarme.html", "ENGLISH/alarme.html"):
        recipes = scripts(site / page)
        assert set(recipes) == {"push", "house", "chat", "siren"}, set(recipes)
        with tempfile.TemporaryDirectory() as folder:
            check(recipes, url, pathlib.Path(folder))


main()
