#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Four copies of the real program at once, each with a folder of its own; one ends, and the others go on.

    four_copies.py PROGRAM

In the built-in picture somebody walks through for six seconds of each twenty, and in each copy at other seconds: a copy that
takes no photo for a while has nobody to see. So the others are given a whole round after the end of the first.
"""
import sys
import time

from copies import PATIENCE, Faults, Surroundings, open_files, wait_for

SETTINGS = '[%general]\nlangue="1"\nretard="1"\n\n[PHOTO]\nactif="1"\n'


def strangers(copies):
    """Files of one copy that a process of another one has open."""
    found = []
    for copy in copies:
        others = [str(other.folder) + "/" for other in copies if other is not copy]
        for pid in copy.processes():
            found += [target for target in open_files(pid) if any(target.startswith(other) for other in others)]
    return found


def main():
    faults, surroundings = Faults(), Surroundings()
    try:
        copies = [surroundings.start(sys.argv[1], "copy%d" % number, SETTINGS, "/alarm") for number in range(4)]
        for number, copy in enumerate(copies):
            wait_for("the companions of copy %d" % number, lambda: len(copy.companions()) == 3)
        pids = [pid for copy in copies for pid in copy.processes()]
        faults.hold("each copy has companions of its own", len(set(pids)) == 16, pids)
        for number, copy in enumerate(copies):
            wait_for("a photo of copy %d" % number, copy.photos)
        faults.hold("no copy has a file of another one open", not strangers(copies), strangers(copies))

        first, others = copies[0], copies[1:]
        companions = [copy.companions() for copy in others]
        faults.hold("a copy ends well while others run", first.end() == 0)
        wait_for("the end of its companions", lambda: not first.companions())
        time.sleep(8)  # whoever was in the pictures has gone
        before = [copy.photos() for copy in others]
        end = time.time() + PATIENCE
        while time.time() < end and not all(copy.photos() > old for copy, old in zip(others, before)):
            time.sleep(0.5)
        taken = [copy.photos() - old for copy, old in zip(others, before)]
        faults.hold("each of the others photographs the next who comes", all(taken), taken)
        faults.hold("their companions are the same as before", companions == [copy.companions() for copy in others])
        for copy in others:
            faults.hold("a copy ends well", copy.end() == 0)
        return 1 if faults.found else 0
    finally:
        surroundings.end()


if __name__ == "__main__":
    sys.exit(main())
