# SPDX-License-Identifier: GPL-3.0-or-later
"""Running copies of the real program, without a screen and in throw-away folders, and what /proc tells of them."""
import os
import pathlib
import subprocess
import tempfile
import time

PATIENCE = 120  # seconds for what takes a moment on an idle machine
COMPANIONS = ("VAKTORmail", "VAKTORftp", "VAKTORsound")


def wait_for(what, ask):
    end = time.time() + PATIENCE
    while time.time() < end:
        answer = ask()
        if answer:
            return answer
        time.sleep(0.5)
    raise SystemExit("waited in vain for " + what)


def scramble(password):
    """A password as the settings keep it."""
    return "".join("%03d" % (ord(sign) + place) for place, sign in enumerate(password, 1))


class Surroundings:
    """A throw-away home; nothing in it leads out. Copies that still run at the end are ended."""

    def __init__(self):
        self.home = tempfile.TemporaryDirectory(prefix="vaktor-outside-")
        self.folder = pathlib.Path(self.home.name)
        (self.folder / "run").mkdir(mode=0o700)
        nobody = "unix:path=%s/none" % self.folder
        self.environment = {"HOME": str(self.folder), "XDG_RUNTIME_DIR": str(self.folder / "run"),
                            "PATH": os.environ["PATH"], "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
                            "DBUS_SESSION_BUS_ADDRESS": nobody, "DBUS_SYSTEM_BUS_ADDRESS": nobody}
        self.copies = []

    def start(self, program, name, settings, *arguments):
        copy = Copy(self, program, name, settings, arguments)
        self.copies.append(copy)
        return copy

    def end(self):
        for copy in self.copies:
            copy.end()
        self.home.cleanup()


class Copy:
    def __init__(self, surroundings, program, name, settings, arguments):
        self.folder = surroundings.folder / name
        self.folder.mkdir()
        store = self.folder / "vaktor.ini"
        store.write_text(settings)
        store.chmod(0o600)
        self.said = surroundings.folder / (name + ".said")
        with self.said.open("wb") as said:
            camera = [] if any(word.startswith("/camera:") for word in arguments) else ["/camera:test"]
            self.process = subprocess.Popen([program, *camera, "/dossier:%s" % self.folder, *arguments],
                                            env=surroundings.environment, stdout=said, stderr=said)

    def photos(self):
        return len(list((self.folder / "intrus").glob("*.jpg")))

    def companions(self):
        """Numbers of the companions of this copy, by name."""
        found = {}
        ours = b"=%s\0" % os.fsencode(self.folder)
        for process in pathlib.Path("/proc").iterdir():
            try:
                name = os.path.basename((process / "cmdline").read_bytes().split(b"\0")[0]).decode(errors="replace")
                # They are told their folder by a variable.
                if name in COMPANIONS and ours in (process / "environ").read_bytes():
                    found[name] = int(process.name)
            except OSError:
                continue  # no process, or gone, or another user's
        return found

    def processes(self):
        return [self.process.pid, *self.companions().values()]

    def end(self):
        if self.process.poll() is None:
            self.process.terminate()
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()
            return self.process.wait()


def open_files(pid):
    """What the descriptors of a process lead to."""
    folder = pathlib.Path("/proc/%d/fd" % pid)
    targets = []
    for descriptor in folder.iterdir():
        try:
            targets.append(os.readlink(descriptor))
        except OSError:
            pass  # closed meanwhile
    return targets


class Faults:
    def __init__(self):
        self.found = 0

    def hold(self, what, holds, detail=""):
        print("%s %s%s" % ("ok   " if holds else "FAULT", what, "" if holds else ": %s" % (detail,)))
        self.found += not holds
