#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the real programs give away while an alarm, a mail and the live page are at work: ports, words, files.

    secrets.py PROGRAM

docs/security.md promises it; here it is looked at from outside, through /proc and the folders. The servers do not exist,
since what fails says the most.
"""
import os
import pathlib
import stat
import sys
import time

from copies import Faults, Surroundings, open_files, scramble, wait_for

# Nobody else has these words: found elsewhere than in the settings, they have leaked.
SECRETS = {"page": "Pagesecret-7Q", "mail": "Mailsecret-8W", "push": "Pushsecret-9E", "camera": "Camsecret-5K"}
SETTINGS = ('[%%general]\nlangue="1"\nretard="1"\n\n[PHOTO]\nactif="1"\n\n'
            '[MAIL]\nactif="1"\ndestination="you@example.org"\nsmtpserveur="127.0.0.1"\nsmtpfrom="me@example.org"\n'
            'smtpuser="me"\nsmtpport="9"\npass="%s"\npushadresse="http://127.0.0.1:9/push"\n'
            'pushentete="Authorization: Bearer %s"\n\n'
            '[FTP]\nftp="127.0.0.1"\nuser="me"\nhtml="http://www.example.org/"\nracine="/"\npass="%s"\n'
            % (scramble(SECRETS["mail"]), SECRETS["push"], scramble(SECRETS["page"])))
FORMS = [form.encode() for secret in SECRETS.values() for form in (secret, scramble(secret))]
LISTENS = "0A"  # the kernel's number for it


def listening(pids):
    """Ports that these processes wait on; of UDP all that are bound and lead nowhere."""
    ours = {target for pid in pids for target in open_files(pid)}
    found = []
    for table in ("tcp", "tcp6", "udp", "udp6"):
        for line in pathlib.Path("/proc/net/" + table).read_text().splitlines()[1:]:
            _, local, remote, state, *rest = line.split()
            waits = state == LISTENS if table.startswith("tcp") else set(remote.partition(":")[0]) == {"0"}
            if waits and "socket:[%s]" % rest[5] in ours:
                found.append("%s %s" % (table, local))
    return found


def leaks(content):
    return any(form in content for form in FORMS)


def read(path):
    try:
        return path.read_bytes()
    except OSError:
        return b""  # gone, or nobody may read it, which is as good


def in_processes(pids):
    found = []
    for pid in pids:
        for kind in ("cmdline", "environ"):
            if leaks(read(pathlib.Path("/proc/%d/%s" % (pid, kind)))):
                found.append("%s of %d" % (kind, pid))
    return found


def core_limits(pids):
    found = []
    for pid in pids:
        line = next(line for line in pathlib.Path("/proc/%d/limits" % pid).read_text().splitlines()
                    if line.startswith("Max core file size"))
        if line.split()[4:6] != ["0", "0"] or int(read(pathlib.Path("/proc/%d/coredump_filter" % pid)), 16) != 0:
            found.append("%d: %s" % (pid, line))
    return found


def is_photo(path):
    return path.suffix.lower() in (".jpg", ".jpeg")


def everything(folder):
    for root, folders, files in os.walk(folder):
        for name in folders + files:
            yield pathlib.Path(root) / name


def modes(folder, run):
    """What others than the user could read; photos go by the umask."""
    found = []
    for path in everything(folder):
        state = path.lstat()
        if stat.S_ISDIR(state.st_mode) or is_photo(path):
            continue
        if state.st_mode & 0o077:
            found.append("%s %o" % (path.relative_to(folder), stat.S_IMODE(state.st_mode)))
    for path in [run / "vaktor", folder / "etat"]:
        if path.lstat().st_mode & 0o077:
            found.append("%s %o" % (path, stat.S_IMODE(path.lstat().st_mode)))
    return found


def look_at_camera(surroundings, faults):
    """A camera that is named with its password, as the entry of the login does it; nobody answers there."""
    address = "/camera:http://me:%s@127.0.0.1:9/x" % SECRETS["camera"]
    copy = surroundings.start(sys.argv[1], "camera", SETTINGS, "/alarm", address)
    wait_for("the companions", lambda: len(copy.companions()) == 3)
    time.sleep(5)
    pids = copy.processes()
    faults.hold("no password of a camera on a command line", not in_processes(pids), in_processes(pids))
    in_files = [str(path) for path in everything(copy.folder)
                if path.is_file() and path.name != "vaktor.ini" and leaks(read(path))]
    faults.hold("nor in a file", not in_files, in_files)
    faults.hold("and it ends well", copy.end() == 0)


def main():
    faults, surroundings = Faults(), Surroundings()
    os.umask(0o022)  # the usual one: what is private here is so by itself
    try:
        copy = surroundings.start(sys.argv[1], "copy", SETTINGS, "/alarm", "/surve")
        wait_for("the companions", lambda: len(copy.companions()) == 3)
        wait_for("a photo", copy.photos)
        wait_for("a mail that waits", lambda: any("mail" in path.name.lower() and path.suffix == ".json"
                                                  for path in everything(copy.folder)))
        time.sleep(10)  # tries that fail write the most
        pids = copy.processes()
        faults.hold("four programs are looked at", len(pids) == 4, pids)
        faults.hold("nothing listens on the network", not listening(pids), listening(pids))
        faults.hold("no password on a command line or in the surroundings", not in_processes(pids), in_processes(pids))
        faults.hold("none leaves a core file", not core_limits(pids), core_limits(pids))
        sockets = [path for path in everything(surroundings.folder / "run") if path.is_socket()]
        faults.hold("the inboxes are there", len(sockets) >= 3, sockets)
        faults.hold("files and folders are the user's alone", not modes(copy.folder, surroundings.folder / "run"),
                    modes(copy.folder, surroundings.folder / "run"))
        in_files = [str(path) for path in everything(surroundings.folder)
                    if path.is_file() and path.name != "vaktor.ini" and leaks(read(path))]
        faults.hold("no password in a log, a status file or what was said", not in_files, in_files)
        faults.hold("the settings have them", leaks(read(copy.folder / "vaktor.ini")))
        faults.hold("the program ends well", copy.end() == 0)
        look_at_camera(surroundings, faults)
        return 1 if faults.found else 0
    finally:
        surroundings.end()


if __name__ == "__main__":
    sys.exit(main())
