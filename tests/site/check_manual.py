#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks the installed manual: check_manual.py SITE TEXTS [--browser [SCREENSHOTS]]

SITE is the folder of the built pages, TEXTS the table of the program's words (table, number, French, English). Every
page must be valid HTML 5; every link and picture must lead somewhere; and what the manual quotes as a status line must
be what the program says. With --browser each page is opened in headless Chromium, light and dark, at desk and at phone
width: its pictures must show and nothing may stick out sideways. Prints what is wrong and ends with 1, else with 0.
"""
import pathlib
import re
import sys
import tempfile

import html5lib

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from browser import Browser  # noqa: E402

# With the column of the words that the page quotes, 0 for a page that quotes none.
PAGES = {"alarme.html": 0, "ENGLISH/alarme.html": 0,
         "vaktor_notice.html": 2, "ENGLISH/VaktorNotice.html": 3, "versiontest.html": 0, "ENGLISH/versiontest.html": 0}
NOT_SHOWN = "[...document.images].filter(i => !i.complete || !i.naturalWidth).map(i => i.getAttribute('src'))"
faults = []


def check_html(site, name):
    text = (site / name).read_text(encoding="utf-8")
    parser = html5lib.HTMLParser(namespaceHTMLElements=False)
    tree = parser.parse(text)
    faults.extend("%s: line %d: %s" % (name, place[0], error) for place, error, _ in parser.errors)
    ids = {element.get("id") for element in tree.iter() if element.get("id")}
    for element in tree.iter():
        target = element.get("href") or element.get("src")
        if element.tag == "img" and not element.get("alt"):
            faults.append("%s: a picture without words for those who hear it: %s" % (name, target))
        if target is None:
            continue
        if target.startswith("#"):
            if target[1:] not in ids:
                faults.append("%s: no such place: %s" % (name, target))
        elif not (site / name).parent.joinpath(target).is_file():
            faults.append("%s: no such file: %s" % (name, target))
    if "@PROJECT_VERSION@" in text:
        faults.append("%s: the version is not filled in" % name)
    return tree


def check_words(name, tree, column, rows):
    """The first table after "trouble": a row's first cell begins with a text of the program."""
    heading = next(h for h in tree.iter("h2") if h.get("id") in ("trouble", "panne"))
    body = list(tree.iter("body"))[0]
    after = list(body)[list(body).index(heading):]
    table = next(t for part in after for t in part.iter("table"))
    known = {row[column].strip() for row in rows}
    for row in table.iter("tr"):
        cell = row.find("td")
        if cell is None:
            continue
        said = re.split(r" …|,", "".join(cell.itertext()))[0].strip()
        if said not in known and said + " " not in known:
            faults.append("%s: the program never says: %s" % (name, said))


def check_in_browser(browser, site, name, shots):
    for width, height, phone in ((390, 844, True), (1100, 900, False)):
        for scheme in ("light", "dark"):
            browser.look_from(width, height, phone, scheme)
            browser.say("Page.navigate", url=(site / name).as_uri())
            browser.wait("document.readyState === 'complete' && location.href.endsWith('%s')" % name)
            where = "%s, %d wide, %s" % (name, width, scheme)
            faults.extend(where + ": not shown: " + source for source in browser.js(NOT_SHOWN))
            if not browser.js("document.documentElement.scrollWidth <= innerWidth"):
                faults.append(where + ": wider than the screen")
            light = browser.js("getComputedStyle(document.body).backgroundColor.match(/\\d+/g).reduce((a, b) => a + +b, 0)")
            if (light > 500) != (scheme == "light"):
                faults.append(where + ": the paper has the wrong brightness")
            if shots:
                browser.shoot(shots / ("%s-%d-%s.png" % (pathlib.Path(name).stem, width, scheme)))


def main():
    site = pathlib.Path(sys.argv[1]).resolve()
    rows = [line.rstrip("\n").split("\t") for line in open(sys.argv[2], encoding="utf-8")]
    for name, column in PAGES.items():
        tree = check_html(site, name)
        if column:
            check_words(name, tree, column, [row for row in rows if len(row) > column])
    if "--browser" in sys.argv:
        shots = pathlib.Path(sys.argv[4]) if len(sys.argv) > 4 else None
        with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile:
            browser = Browser(profile)
            try:
                browser.say("Page.enable")
                for name in PAGES:
                    check_in_browser(browser, site, name, shots)
            finally:
                browser.end()
    print("\n".join(faults) or "the manual is fine")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
