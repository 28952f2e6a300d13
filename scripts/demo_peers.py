#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The other ends of ./run --demo: a mail server, an FTP server and a web server for what lies on it.

demo_peers.py FOLDER     serves until it is ended; all on loopback, on ports that the system gives
demo_peers.py --report FOLDER [MOVEMENT]     tells what has come; MOVEMENT is the time of the first photo

Below FOLDER it writes: ports, lines for the shell with where it listens; events, one line each, TIME KIND TEXT;
mails/NUMBER.eml with the attachments beside it in mails/NUMBER/; site/, the root of the FTP and of the web server.
"""
import asyncio
import email
import email.policy
import functools
import glob
import http.server
import json
import logging
import os
import re
import secrets
import sys
import threading
import time

USER = "demo"


class Events:
    def __init__(self, folder):
        self.file = open(os.path.join(folder, "events"), "a", buffering=1, encoding="utf-8")
        self.lock = threading.Lock()

    def note(self, kind, text):
        with self.lock:
            self.file.write(f"{time.time():.3f} {kind} {text}\n")


class Mails:
    """What comes is kept as it came, and its attachments beside it."""

    def __init__(self, folder, events):
        self.folder, self.events, self.number = os.path.join(folder, "mails"), events, 0
        os.makedirs(self.folder)

    async def handle_DATA(self, server, session, envelope):
        self.number += 1
        base = os.path.join(self.folder, f"{self.number:03}")
        with open(base + ".eml", "wb") as file:
            file.write(envelope.original_content)
        message = email.message_from_bytes(envelope.original_content, policy=email.policy.default)
        os.makedirs(base)
        attachments = list(message.iter_attachments())
        for part in attachments:
            name = os.path.basename(part.get_filename() or "attachment")
            with open(os.path.join(base, name), "wb") as file:
                file.write(part.get_payload(decode=True))
        self.events.note("mail", f"\"{message['subject']}\", {len(attachments)} photos, "
                                 f"{len(envelope.original_content) // 1024} KB")
        return "250 2.0.0 taken"


def serve_ftp(folder, password, events):
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.filesystems import AbstractedFS
    from pyftpdlib.handlers import FTPHandler
    from pyftpdlib.servers import FTPServer

    began = {}

    class Site(AbstractedFS):
        def open(self, filename, mode):
            began[filename] = time.time()
            return super().open(filename, mode)

        def rename(self, src, dst):
            super().rename(src, dst)
            name = os.path.basename(dst)
            kind = {"live.jpg": "live", "live.html": "page"}.get(name, "published")
            text = f"{began.get(src, 0):.3f}"  # when its upload began
            if kind == "page":
                with open(dst, encoding="utf-8") as file:
                    text = str(len(set(re.findall(r'<img[^>]* src="([^"]*Photo[^"]*)"', file.read()))))
            events.note(kind, name if kind == "published" else text)

    class Handler(FTPHandler):
        authorizer = DummyAuthorizer()
        abstracted_fs = Site
        banner = "ready"

    Handler.authorizer.add_user(USER, password, folder, perm="elradfmwMT")
    server = FTPServer(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.address[1]


class Quiet(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


def serve_web(folder):
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Quiet, directory=folder))
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_port


def scramble(password):
    """A password as the settings keep it."""
    return "".join(f"{ord(sign) + position:03}" for position, sign in enumerate(password, 1))


async def serve(folder):
    from aiosmtpd.smtp import SMTP

    logging.disable(logging.CRITICAL)
    events, site, password = Events(folder), os.path.join(folder, "site"), secrets.token_hex(8)
    os.makedirs(site)
    mails = Mails(folder, events)
    smtp = await asyncio.get_running_loop().create_server(
        lambda: SMTP(mails, hostname="demo", enable_SMTPUTF8=True), "127.0.0.1", 0)
    lines = {"port_smtp": smtp.sockets[0].getsockname()[1], "port_ftp": serve_ftp(site, password, events),
             "port_web": serve_web(site), "user_ftp": USER, "pass_ftp": scramble(password)}
    with open(os.path.join(folder, "ports.part"), "w", encoding="ascii") as file:
        file.writelines(f"{name}={value}\n" for name, value in lines.items())
    os.rename(os.path.join(folder, "ports.part"), os.path.join(folder, "ports"))
    await asyncio.Event().wait()


def read_events(folder):
    with open(os.path.join(folder, "events"), encoding="utf-8") as file:
        for line in file:
            when, kind, text = line.rstrip("\n").split(" ", 2)
            yield float(when), kind, text


def first_after(events, movement, kind, test=lambda when, text: True):
    found = (when for when, what, text in events if what == kind and when >= movement and test(when, text))
    return next((f"{when - movement:.2f} s" for when in found), "not in this time")


def tell_failures(folder):
    """What the companions had to complain of at the end: a machine without loudspeakers, say."""
    for path in sorted(glob.glob(os.path.join(folder, "etat", "VAKTOR*.json"))):
        with open(path, encoding="utf-8") as file:
            status = json.load(file)
        if status.get("state") == "failure":
            print(f"{status['program']}: {status['en']}")


def report(folder, movement):
    events = list(read_events(folder))
    mails = [text for _, kind, text in events if kind == "mail"]
    count = {kind: sum(what == kind for _, what, _ in events) for kind in ("live", "published", "page")}
    print(f"Mails received: {len(mails)}")
    for number, text in enumerate(mails, 1):
        print(f"  {number:03}.eml  {text}")
    print(f"Web site: {count['live']} live images, {count['published']} photos, the page {count['page']} times")
    tell_failures(folder)
    if movement is None:
        return
    print("From the movement (the file of the first photo) to")
    print("  the mail accepted by the server:           ", first_after(events, movement, "mail"))
    print("  the next live image begun and in its place:",
          first_after(events, movement, "live", lambda _, began: float(began) >= movement))
    print("  the first photo on the web site:           ", first_after(events, movement, "published"))
    print("  the page with a photo on it:               ",
          first_after(events, movement, "page", lambda _, photos: photos != "0"))


if sys.argv[1] == "--report":
    report(sys.argv[2], float(sys.argv[3]) if len(sys.argv) > 3 else None)
else:
    asyncio.run(serve(sys.argv[1]))
