#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints line and branch coverage of each file of the rules, and each line that no test reaches with the reason.

    scripts/unreached.py TRACE.json

TRACE.json is what gcovr --json wrote. The reasons stand in unreached.txt beside this file: a file, and under it, indented,
the text of a line (or of the first of several that follow each other), " -- " and the reason; where the file has the text
more than once " #2" behind it says which. Ends with 1 when a line has no reason, or when a reason speaks of a line that is
reached or gone.
"""
import collections
import json
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent


def reasons():
    """{file: {text of a line: reason}}"""
    told, file = {}, None
    for line in (HERE / "unreached.txt").read_text(encoding="utf-8").splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        if not line[0].isspace():
            file = line.strip()
            continue
        text, _, reason = line.strip().partition(" -- ")
        told.setdefault(file, {})[text] = reason
    return told


def counts(trace):
    """({file: {number: how often}}, {file: {(number, which branch): how often}})"""
    lines, branches = collections.defaultdict(dict), collections.defaultdict(dict)
    for entry in trace["files"]:
        # A header is reached through the folder of each room that may see it: they are one.
        name = re.sub(r"^build/[^/]+/rooms/[^/]+/", "", entry["file"])
        for line in entry["lines"]:
            if line.get("gcovr/noncode") or line.get("gcovr/excluded"):
                continue
            number = line["line_number"]
            lines[name][number] = lines[name].get(number, 0) + line["count"]
            for which, branch in enumerate(line["branches"]):
                key = (number, which)
                branches[name][key] = branches[name].get(key, 0) + branch["count"]
    return lines, branches


def share(counted):
    reached = sum(1 for count in counted.values() if count)
    return f"{reached:6} of {len(counted):6}  {100 * reached / len(counted) if counted else 100:5.1f} %"


def is_made_beforehand(name, source, number, lines):
    """The words of a sentence, which the compiler puts together: the line that says them, right behind, is reached."""
    text = source[number - 1].rstrip()
    # Further words, strings alone, are not counted.
    behind = min((other for other in lines[name] if other > number), default=None)
    words = "Phrase{" in text and text[-1] in ",({"
    return words and bool(behind) and lines[name][behind] > 0 and behind - number < 8


def words_of(source, number):
    """The text of a line, and which it is of several with the same text."""
    text = source[number - 1].strip()
    same = [other for other, line in enumerate(source, 1) if line.strip() == text]
    return text if len(same) == 1 else f"{text} #{same.index(number) + 1}"


def unreached(lines):
    """[(file, number of the first line, number of the last, text of the first)]"""
    for name in sorted(lines):
        source = (ROOT / name).read_text(encoding="utf-8").splitlines()
        first = last = None
        for number in sorted(lines[name]) + [None]:
            missed = number is not None and lines[name][number] == 0 and not is_made_beforehand(name, source, number, lines)
            if missed and first is None:
                first = number
            if missed:
                last = number
            elif first is not None:
                yield name, first, last, words_of(source, first)
                first = None


def main():
    lines, branches = counts(json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")))
    print("=== lines and branches of the files in which a line or a branch is not reached")
    for name in sorted(lines):
        if 0 in lines[name].values() or 0 in branches[name].values():
            print(f"{name:50} {share(lines[name])}   {share(branches[name])}")
    everything = [{(name, key): count for name, of_file in part.items() for key, count in of_file.items()}
                  for part in (lines, branches)]
    print(f"{f'all {len(lines)} files of the rules':50} {share(everything[0])}   {share(everything[1])}")
    print("=== lines that no test reaches, and why")
    told = reasons()
    used, without = set(), 0
    for name, first, last, text in unreached(lines):
        reason = told.get(name, {}).get(text)
        used.add((name, text))
        without += not reason
        print(f"{name}:{first if first == last else f'{first}-{last}'}: {text}\n    {reason or 'NO REASON IS GIVEN'}")
    stale = [(name, text) for name, of_file in told.items() for text in of_file if (name, text) not in used]
    for name, text in stale:
        print(f"{name}: {text}\n    is reached, or gone: it needs no reason")
    print(f"{without} without a reason, {len(stale)} reasons too many")
    return 1 if without or stale else 0


if __name__ == "__main__":
    sys.exit(main())
