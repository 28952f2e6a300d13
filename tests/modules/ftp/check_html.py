#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads an HTML 5 page from standard input with a parser that forgives nothing, and prints how many pictures it has.

Besides the syntax: each id once, each picture with its alt text and its size, and no attribute that HTML does not know.
"""
import sys

import html5lib

KNOWN = {
    "a": {"href"}, "html": {"lang"}, "meta": {"charset", "name", "content", "http-equiv"}, "p": {"id", "role"},
    "img": {"id", "src", "alt", "width", "height", "loading"}, "time": {"datetime"}, "div": {"id", "data-intervalle"},
    "section": {"id"},
}
page = sys.stdin.buffer.read()
parser = html5lib.HTMLParser(strict=True, namespaceHTMLElements=False)
tree = parser.parse(page, transport_encoding="utf-8")
seen = set()
for element in tree.iter():
    if not isinstance(element.tag, str):
        continue
    unknown = set(element.attrib) - KNOWN.get(element.tag, set())
    assert not unknown, (element.tag, unknown)
    name = element.get("id")
    assert name is None or name not in seen, name
    seen.add(name)
pictures = list(tree.iter("img"))
for picture in pictures:
    assert picture.get("alt") and int(picture.get("width")) > 0 and int(picture.get("height")) > 0
assert tree.find("head/title").text and tree.find("head/meta[@name='viewport']") is not None
print(len(pictures))
