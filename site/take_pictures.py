#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes the manual's pictures from the real program, on a virtual screen at twice the size.

    site/take_pictures.py PROGRAM [PICTURE...]

PROGRAM is a built Vaktor. Without names all pictures are taken anew. Needs Xvfb, xdotool and ImageMagick. The program
runs on its built-in picture in a throw-away folder, once for each language; the pictures land in site/pictures.
"""
import datetime
import json
import os
import pathlib
import shutil
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


def make_night(folder):
    """Of the intrusion that the program has just seen a whole night: the same photos at other times, in its journal."""
    journal = folder / "etat" / "journal.jsonl"
    seen = [json.loads(line) for line in journal.read_text().splitlines()]
    model = [line for line in seen if line["what"] == "intrusion-ends"][-1]
    photos = sorted((folder / "intrus").glob("*.jpg"))
    today = datetime.datetime.now().astimezone().replace(hour=0, minute=0, second=0, microsecond=0)
    lines = []

    def write(moment, what, **more):
        at = (today + moment).isoformat(timespec="milliseconds")
        lines.append({"v": 1, "at": at, "what": what, "run": "night",
                      "up": round((moment + datetime.timedelta(hours=2)) / datetime.timedelta(milliseconds=1)), **more})

    def moment(hour, minute, second=0):
        return datetime.timedelta(hours=hour, minutes=minute, seconds=second)

    write(moment(-1, 58), "armed")
    for number, (hour, minute, second, first, count, samples) in enumerate([
            (0, 41, 18, 0, 12, 74), (2, 14, 7, 20, 60, 1480), (2, 52, 40, 10, 24, 310), (3, 47, 52, 30, 90, 940),
            (5, 20, 31, 5, 9, 52), (6, 33, 3, 25, 70, 620)]):
        begin = moment(hour, minute, second)
        chosen = photos[first:first + count]
        names, boxes = [], []
        old = {model["boxes"][i]: model["boxes"][i + 1:i + 5] for i in range(0, len(model["boxes"]), 5)}
        for i, photo in enumerate(chosen):
            at = (today + begin + datetime.timedelta(seconds=i // 8)).strftime("%H-%M-%S")
            names.append("%s  %s Photo %05d.jpg" % (today.strftime("%Y-%m-%d"), at, 1000 * (number + 1) + i))
            shutil.copy2(photo, folder / "intrus" / names[-1])
            box = old.get(int(photo.stem.rsplit(" ", 1)[1]))
            boxes += [1000 * (number + 1) + i, *box] if box else []
        best = len(names) * 2 // 3
        write(begin + moment(0, 0, 10 + count // 8), "intrusion-ends", since=(today + begin).isoformat(timespec="milliseconds"),
              length=count * 125, frames=count, samples=samples, photos=count, folder=model["folder"], first=names[0],
              last=names[-1], best=names[best], boxes=boxes,
              box=old.get(int(chosen[best].stem.rsplit(" ", 1)[1]), model["box"]))
        if samples > 500:
            write(begin + moment(0, 2), "mail-accepted")
        if hour == 3:
            write(moment(4, 5), "condition-begins", condition="signal-lost", detail="/dev/video0")
            write(moment(4, 31), "condition-ends", condition="signal-lost")
    write(moment(7, 2), "disarmed")
    for photo in photos:
        photo.unlink()
    journal.write_text("".join(json.dumps(line) + "\n" for line in lines))


def timeline(program, language, wanted):
    if not wanted("timeline") and not wanted("player"):
        return
    with Program(program, language, ["/alarm"]) as vaktor:
        vaktor.wait_for_photo()
        time.sleep(8)
        main = vaktor.window("^Vaktor$")
        vaktor.click(main, (340, 19))  # disarms: the intrusion ends
        time.sleep(2)
        make_night(pathlib.Path(vaktor.folder.name))
        vaktor.click(main, BUTTONS["pictures"])
        vaktor.window("^Intrusions")
        run("xdotool", "key", "F4")
        window = vaktor.window("^(Frise|Timeline)$")
        time.sleep(3)
        wanted("timeline") and take(window, "timeline-%s.webp" % language)
        run("xdotool", "key", "--window", window, "Home", "Right", "Right", "Return")
        player = vaktor.window("^Intrusion (at|à)")
        time.sleep(3)
        wanted("player") and take(player, "player-%s.webp" % language)


def mail_settings(program, language, wanted):
    if not wanted("smtp"):
        return
    with Program(program, language, []) as vaktor:
        time.sleep(6)  # the splash has the same title
        main = vaktor.window("^Vaktor$")
        vaktor.click(main, TABS["email"])
        vaktor.click(main, BUTTONS["more"])
        take(vaktor.window("^SMTP$"), "smtp-%s.webp" % language)


SCENES = [pages, at_work, gallery, timeline, mail_settings]


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
