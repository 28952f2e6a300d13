#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The real program under Wayland: its windows are dragged, told to fill the screen, and opened, with mouse and keys.

    try_windows.py PROGRAM [FOLDER]

PROGRAM is a built Vaktor with its companions. The desktop is weston, in a window on a virtual screen, so that a mouse
can be moved by a program; everything lies in a throw-away folder. With FOLDER what is seen is kept there as pictures.
Weston draws no frames: the ones seen here are the toolkit's.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # seconds for what takes a moment on an idle machine
SIZE = (1280, 900)
LAMP = b"\xa8\x00\x00"  # the dark red of a lamp that is off: nothing else on the screen has it
WHITE = b"\xff\xff\xff"
# From the upper lamp of the main window, in pixels.
CAMERA_ON, FREE, MAXIMISE, SMALL_VIEW = (-335, 4), (-190, 100), (-19, -27), (-35, 140)


def run(*command):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True).stdout


class Desktop:
    """A virtual screen with weston on it; the surroundings of this process point to them."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="vaktor-wayland-")
        self.data = pathlib.Path(self.folder.name) / "data"
        self.data.mkdir()
        self.processes = []
        run_folder = pathlib.Path(self.folder.name) / "run"
        run_folder.mkdir(mode=0o700)
        nobody = "unix:path=%s/none" % self.folder.name
        os.environ.update(HOME=self.folder.name, XDG_RUNTIME_DIR=str(run_folder), DBUS_SESSION_BUS_ADDRESS=nobody,
                          DBUS_SYSTEM_BUS_ADDRESS=nobody, QT_QPA_PLATFORM="wayland")
        readable, writable = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writable), "-screen", "0", "%dx%dx24" % SIZE, "-nolisten", "tcp"],
                   pass_fds=[writable])
        os.environ["DISPLAY"] = ":" + os.read(readable, 20).decode().strip()
        settings = pathlib.Path(self.folder.name) / "weston.ini"
        settings.write_text("[core]\nidle-time=0\n[shell]\nlocking=false\nanimation=none\nstartup-animation=none\n"
                            "close-animation=none\npanel-position=none\n")
        self.start(["weston", "--config=%s" % settings, "--backend=x11-backend.so", "--socket=wayland-vaktor",
                    "--width=%d" % SIZE[0], "--height=%d" % SIZE[1]])
        os.environ["WAYLAND_DISPLAY"] = "wayland-vaktor"
        wait_for("weston", lambda: (run_folder / "wayland-vaktor").exists())

    def start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen([str(part) for part in command], **options)
        self.processes.append(process)
        return process

    def end(self):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(20)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self.folder.cleanup()


def wait_for(what, ask):
    end = time.time() + PATIENCE
    while time.time() < end:
        answer = ask()
        if answer:
            return answer
        time.sleep(0.3)
    raise SystemExit("waited in vain for " + what)


def picture():
    """The screen, three bytes a pixel."""
    return run("import", "-silent", "-window", "root", "-depth", 8, "rgb:-")


def pixel(place):
    at = (place[1] * SIZE[0] + place[0]) * 3
    return picture()[at:at + 3]


def lamps(seen):
    """Places of all dark red pixels, from the top."""
    places, at = [], seen.find(LAMP)
    while at >= 0:
        if at % 3 == 0:
            places.append((at // 3 % SIZE[0], at // 3 // SIZE[0]))
        at = seen.find(LAMP, at + 1)
    return places


def lamp():
    """The upper left corner of the upper lamp, once the window rests."""
    def upper():
        # Only what lies beside the first of them: a camera's picture may have such a red too.
        places = lamps(picture())
        near = [(x, y) for x, y in places if abs(x - places[0][0]) < 15 and y - places[0][1] < 15]
        return (min(x for x, _ in near), min(y for _, y in near)) if near else None

    def resting():
        first = upper()
        time.sleep(0.5)
        return first if first and first == upper() else None

    return wait_for("the main window", resting)


def mouse(place, *more):
    run("xdotool", "mousemove", place[0], place[1], "sleep", "0.3", *more)


def beside(corner, offset):
    return corner[0] + offset[0], corner[1] + offset[1]


def drag(start, by):
    mouse(start, "mousedown", "1")
    for step in range(1, 9):
        mouse((start[0] + by[0] * step // 8, start[1] + by[1] * step // 8))
    run("xdotool", "mouseup", "1")


def changed(before, after):
    """Share of the screen that looks otherwise."""
    different = sum(before[i:i + 3] != after[i:i + 3] for i in range(0, len(before), 3 * 7))
    return different * 7 * 3 / len(before)


class Trial:
    def __init__(self, program, keep):
        self.program = program
        self.keep = keep
        self.faults = []

    def hold(self, what, holds):
        print("%s %s" % ("ok   " if holds else "FAULT", what))
        if not holds:
            self.faults.append(what)

    def look(self, name):
        if self.keep:
            run("import", "-silent", "-window", "root", pathlib.Path(self.keep) / (name + ".png"))

    def windows_move(self):
        before = lamp()
        # Into the middle first, wherever the desktop has put it.
        drag(beside(before, FREE), (600 - before[0], 200 - before[1]))
        after = lamp()
        self.look("dragged")
        self.hold("the main window is dragged by its surface", abs(after[0] - 600) < 30 and abs(after[1] - 200) < 30)

    def maximise(self):
        """The button of the frame: a window of a fixed size keeps it, and the program its life."""
        before = picture()
        mouse(beside(lamp(), MAXIMISE), "click", "1")
        time.sleep(2)
        self.hold("the program outlives the button that maximises", self.program.poll() is None)
        lamp()
        self.look("maximised")
        self.hold("the main window keeps its size", changed(before, picture()) < 0.25)

    def camera(self):
        before = picture()
        mouse(beside(lamp(), CAMERA_ON), "click", "1")
        wait_for("the monitor", lambda: changed(before, picture()) > 0.1)
        self.look("monitor")
        # Another window has the keys now.
        mouse(beside(lamp(), FREE), "click", "1")
        time.sleep(2)
        self.hold("the monitor stays when the main window is active", changed(before, picture()) > 0.1)

    def menu(self):
        view = beside(lamp(), SMALL_VIEW)
        in_menu = beside(view, (100, 12))  # to the right of its words, where it is white
        without = pixel(in_menu)
        mouse(view, "click", "3")
        time.sleep(1)
        self.look("menu")
        self.hold("the small view has a menu", without != WHITE and pixel(in_menu) == WHITE)
        run("xdotool", "key", "Escape")
        time.sleep(1)
        self.hold("the menu goes", pixel(in_menu) != WHITE)

    def visit(self):
        self.windows_move()
        self.maximise()
        self.camera()
        self.menu()
        self.hold("the program lives", self.program.poll() is None)


def main():
    desktop = Desktop()
    said = desktop.data / "said"
    try:
        (desktop.data / "vaktor.ini").write_text('[%general]\nlangue="1"\nretard="1"\n')
        (desktop.data / "vaktor.ini").chmod(0o600)
        os.environ["WAYLAND_DEBUG"] = "client"
        with said.open("wb") as output:
            program = desktop.start([sys.argv[1], "/camera:test", "/dossier:%s" % desktop.data], stderr=output)
        trial = Trial(program, sys.argv[2] if len(sys.argv) > 2 else None)
        trial.visit()
        words = said.read_text(errors="replace")
        trial.hold("the windows carry the name of the desktop entry", 'set_app_id("org.vaktor.Vaktor")' in words)
        trial.hold("the desktop has no complaint", "rotocol error" not in words)
        program.terminate()
        trial.hold("the program ends well", program.wait(PATIENCE) == 0)
        return 1 if trial.faults else 0
    finally:
        desktop.end()


if __name__ == "__main__":
    sys.exit(main())
