#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes the manual's pictures from the real program, on a virtual screen at twice the size.

    site/take_pictures.py PROGRAM [PICTURE...]

PROGRAM is a built Vaktor. Without names all pictures are taken anew. Needs Xvfb, xdotool and ImageMagick. The program
runs on its built-in picture in a throw-away folder, once for each language; the pictures land in site/pictures.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

SCALE = 2
LANGUAGES = {"fr": 0, "en": 1}
ADDRESS = {"fr": "marie@example.org", "en": "mary@example.org"}
# Centres of controls of the main window, in its own pixels.
TABS = {"monitor": (44, 74), "options": (116, 74), "email": (188, 74), "ftp": (260, 74)}
BUTTONS = {"pictures": (216, 149), "more": (356, 96)}


def run(*command):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True, text=True).stdout


class Program:
    """One run of Vaktor; ended and cleaned up at the end of the block."""

    def __init__(self, program, language, arguments):
        self.folder = tempfile.TemporaryDirectory(prefix="vaktor-pictures-")
        folder = pathlib.Path(self.folder.name)
        (folder / "home").mkdir()
        store = folder / "vaktor.ini"
        store.write_text(
            '[%%general]\nlangue="%d"\nretard="15"\n\n[PHOTO]\nactif="1"\n\n[MAIL]\ndestination="%s"\n'
            'smtpserveur="smtp.example.org"\nsmtpfrom="%s"\nsmtpuser="%s"\nsmtpport="587"\n\n'
            '[FTP]\nftp="ftp.example.org"\nuser="vaktor"\nhtml="http://www.example.org/camera/"\n'
            'racine="/camera"\n' % (LANGUAGES[language], ADDRESS[language], ADDRESS[language], ADDRESS[language]))
        store.chmod(0o600)
        environment = dict(os.environ, QT_SCALE_FACTOR=str(SCALE), HOME=str(folder / "home"),
                           XDG_RUNTIME_DIR=str(folder / "home"))
        self.process = subprocess.Popen([program, "/camera:test", "/dossier:" + str(folder), *arguments],
                                        env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait(20)
        self.folder.cleanup()

    def window(self, title, seconds=40):
        """The first visible window of that title."""
        end = time.time() + seconds
        while time.time() < end:
            found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], capture_output=True,
                                   text=True).stdout.split()
            if found:
                return found[0]
            time.sleep(0.3)
        raise SystemExit("no window " + title)

    def wait_for_photo(self, seconds=60):
        end = time.time() + seconds
        while not list(pathlib.Path(self.folder.name).glob("intrus/*.jpg")):
            if time.time() > end:
                raise SystemExit("no photo was taken")
            time.sleep(0.2)

    def click(self, window, place):
        x, y = place
        run("xdotool", "windowraise", window)
        run("xdotool", "mousemove", "--window", window, x * SCALE, y * SCALE, "click", 1)
        time.sleep(0.6)
        run("xdotool", "mousemove", "--window", window, 2, 2)
        time.sleep(0.4)


def take(window, name):
    run("xdotool", "windowraise", window)
    time.sleep(0.4)
    run("import", "-silent", "-window", window, "-quality", 88, pathlib.Path(__file__).parent / "pictures" / name)
    print(name)


def pages(program, language, wanted):
    with Program(program, language, []) as vaktor:
        time.sleep(6)  # the splash has the same title
        main = vaktor.window("^Vaktor$")
        for page, place in TABS.items():
            vaktor.click(main, place)
            wanted(page) and take(main, "%s-%s.webp" % (page, language))


def at_work(program, language, wanted):
    with Program(program, language, ["/alarm"]) as vaktor:
        monitor = vaktor.window("^(Monitor|Moniteur)$")
        vaktor.wait_for_photo()
        time.sleep(1.5)  # whoever walks in is well in the picture by then
        wanted("view") and take(monitor, "view-%s.webp" % language)
        wanted("alarm") and take(vaktor.window("^Vaktor$"), "alarm-%s.webp" % language)


def gallery(program, language, wanted):
    if not wanted("gallery"):
        return
    with Program(program, language, ["/alarm"]) as vaktor:
        main = vaktor.window("^Vaktor$")
        vaktor.wait_for_photo()
        time.sleep(4)
        main = vaktor.window("^Vaktor$")
        vaktor.click(main, (340, 19))  # disarms: the list stays as it is
        vaktor.click(main, BUTTONS["pictures"])
        window = vaktor.window("^Intrusions")
        run("xdotool", "windowsize", "--sync", window, 900 * SCALE, 560 * SCALE)
        run("xdotool", "windowmove", "--sync", window, 0, 0)
        run("xdotool", "mousemove", "--window", window, 100 * SCALE, 300 * SCALE, "click", 1)
        time.sleep(1)
        take(window, "gallery-%s.webp" % language)


def mail_settings(program, language, wanted):
    if not wanted("smtp"):
        return
    with Program(program, language, []) as vaktor:
        time.sleep(6)  # the splash has the same title
        main = vaktor.window("^Vaktor$")
        vaktor.click(main, TABS["email"])
        vaktor.click(main, BUTTONS["more"])
        take(vaktor.window("^SMTP$"), "smtp-%s.webp" % language)


SCENES = [pages, at_work, gallery, mail_settings]


def main():
    program, names = sys.argv[1], set(sys.argv[2:])
    if "VAKTOR_PICTURES_SCREEN" not in os.environ:
        environment = dict(os.environ, VAKTOR_PICTURES_SCREEN="1")
        return subprocess.run(["xvfb-run", "-a", "-s", "-screen 0 2560x2048x24", sys.executable, *sys.argv],
                              env=environment).returncode
    for language in LANGUAGES:
        for scene in SCENES:
            scene(program, language, lambda name: not names or name in names)
    return 0


if __name__ == "__main__":
    sys.exit(main())
