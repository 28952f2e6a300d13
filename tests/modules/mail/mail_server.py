#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A real SMTP server on loopback for the tests of the mail companion.

mail_server.py FOLDER [--tls CERT KEY] [--starttls CERT KEY] [--login USER PASS] [--accepts MECHANISM] [--token TOKEN]
               [--mode MODE]

Prints the port that the system gave it on its first line. Each mail that it takes becomes a file in FOLDER:
NUMBER.eml, and NUMBER.json with sender and destinations. Ends when its standard input is closed.

Modes: ok; rcpt450-N and data451-N (refuses N times, then takes); mail550, rcpt550, data554; hang-data (never answers
the end of the data); slow-data (answers it three seconds later); cut-data (drops the connection in the midst of the
data); drop-after (takes the mail, answers 250, drops the connection); no-goodbye (never answers QUIT); size-N (552 behind
the data of a mail above N bytes); mailsize-N (the same at MAIL, by the size that the client tells); no-starttls (offers
STARTTLS and does not do it); rcpt421 (ends the conversation at RCPT).

Whatever the mode, these addresses are: nobody@ (550), grey@ (450, always), full@ (552 for a mail above 20000 bytes), cut@
(the connection is dropped in the midst of the data), silent@ (nothing is said behind the data's begin any more).

With --accepts the login is taken by that mechanism alone, though CRAM-MD5, LOGIN and PLAIN are offered; each attempt is
a line in FOLDER/logins. With --token there is XOAUTH2, for that token.
"""
import argparse
import asyncio
import base64
import json
import os
import ssl
import sys

from aiosmtpd.smtp import SMTP, AuthResult, LoginPassword


def options():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder")
    parser.add_argument("--tls", nargs=2)
    parser.add_argument("--starttls", nargs=2)
    parser.add_argument("--login", nargs=2)
    parser.add_argument("--accepts")
    parser.add_argument("--token")
    parser.add_argument("--mode", default="ok")
    parser.add_argument("--port", type=int, default=0)
    return parser.parse_args()


def told_size(mail_options):
    return max([int(o[5:]) for o in mail_options if o.upper().startswith("SIZE=")] or [0])


class Handler:
    def __init__(self, args):
        self.args = args
        self.left = int(args.mode.rsplit("-", 1)[1]) if args.mode[-1].isdigit() and "-" in args.mode else 0
        self.number = len([n for n in os.listdir(args.folder) if n.endswith(".eml")])

    def refuses(self, mode):
        if not self.args.mode.startswith(mode + "-") or self.left == 0:
            return False
        self.left -= 1
        return True

    def above(self, mode, size):
        return self.args.mode.startswith(mode + "-") and size > int(self.args.mode.rsplit("-", 1)[1])

    async def handle_MAIL(self, server, session, envelope, address, mail_options):
        if self.above("mailsize", told_size(mail_options)):
            return "552 5.3.4 message size exceeds what this server takes"
        if self.args.mode == "mail550":
            return "550 5.7.1 sender not welcome"
        envelope.mail_from = address
        envelope.mail_options.extend(mail_options)
        return "250 OK"

    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        if self.args.mode == "rcpt550" or address.startswith("nobody@"):
            return "550 5.1.1 no such user here"
        if self.args.mode == "rcpt421":
            await server.push("421 4.3.2 closing")
            server.transport.close()
            return "421 4.3.2 closing"
        if address.startswith("grey@"):
            return "450 4.2.0 greylisted, come back"
        if address.startswith("full@") and told_size(envelope.mail_options) > 20000:
            return "552 5.2.2 mailbox full"
        if self.refuses("rcpt450"):
            return "450 4.2.0 greylisted, come back"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        if self.args.mode == "hang-data":
            await asyncio.sleep(3600)
        if self.args.mode == "slow-data":
            await asyncio.sleep(3)
        if self.above("size", len(envelope.original_content)):
            return "552 5.3.4 message too big"
        if self.args.mode == "data554":
            return "554 5.6.0 message looks like spam"
        if self.refuses("data451"):
            return "451 4.3.0 try again later"
        self.number += 1
        base = os.path.join(self.args.folder, "%05d" % self.number)
        with open(base + ".part", "wb") as f:
            f.write(envelope.original_content)
        with open(base + ".json", "w") as f:
            json.dump({"from": envelope.mail_from, "to": envelope.rcpt_tos, "options": envelope.mail_options,
                       "tls": server.transport.get_extra_info("ssl_object") is not None,
                       "user": (session.auth_data or b"").decode()}, f)
        os.rename(base + ".part", base + ".eml")
        if self.args.mode == "drop-after":
            asyncio.get_running_loop().call_later(0.05, server.transport.abort)
        return "250 2.0.0 taken"

    async def handle_QUIT(self, server, session, envelope):
        if self.args.mode == "no-goodbye":
            await asyncio.sleep(3600)
        return "221 Bye"


class PathSMTP(SMTP):
    """A path that breaks: the connection is dropped, or falls silent, when the first bytes of the data have come."""
    def __init__(self, *args, cut=False, no_starttls=False, **named):
        super().__init__(*args, **named)
        self.cut = cut
        self.no_starttls = no_starttls

    async def smtp_DATA(self, arg):
        names = [a.split("@")[0] for a in self.envelope.rcpt_tos]
        if not self.cut and "cut" not in names and "silent" not in names:
            return await super().smtp_DATA(arg)
        await self.push("354 go on")
        await self._reader.read(10)
        if "silent" in names:
            await asyncio.sleep(3600)
        self.transport.abort()

    async def smtp_STARTTLS(self, arg):
        if self.no_starttls:
            return await self.push("454 4.7.0 TLS not available")
        return await super().smtp_STARTTLS(arg)


class LoginHandler(Handler):
    """Logins of which the strongest that is offered does not work, or one by a token."""
    def note(self, mechanism):
        with open(os.path.join(self.args.folder, "logins"), "a") as f:
            f.write(mechanism + "\n")

    async def auth_CRAM__MD5(self, server, args):
        self.note("CRAM-MD5")
        answer = await server.challenge_auth("<1.2@test.server>")
        return AuthResult(success=answer is None, handled=False, message="535 5.7.8 cannot do this")


class TokenHandler(Handler):
    async def auth_XOAUTH2(self, server, args):
        raw = base64.b64decode(args[1]) if len(args) > 1 else await server.challenge_auth("")
        said = raw.decode()
        good = said == "user=%s\1auth=Bearer %s\1\1" % (self.args.login[0], self.args.token)
        message = None if good else "535 5.7.8 bad token in %s" % base64.b64encode(raw).decode()
        return AuthResult(success=good, handled=False, message=message, auth_data=self.args.login[0].encode())


def context(pair):
    made = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    made.load_cert_chain(*pair)
    return made


async def main():
    args = options()
    handler = (LoginHandler if args.accepts else TokenHandler if args.token else Handler)(args)

    def authenticate(server, session, envelope, mechanism, data):
        if args.accepts:
            handler.note(mechanism)
            if mechanism != args.accepts:
                return AuthResult(success=False, handled=False, message="535 5.7.8 not this way")
        good = isinstance(data, LoginPassword) and [data.login.decode(), data.password.decode()] == args.login
        # An unkind server: it quotes the password that it refuses.
        message = None if good else "535 5.7.8 wrong, %s" % data.password.decode()
        return AuthResult(success=good, handled=False, message=message, auth_data=data.login if good else None)

    def make():
        return PathSMTP(handler, cut=args.mode == "cut-data", no_starttls=args.mode == "no-starttls",
                    hostname="test.server", enable_SMTPUTF8=True, auth_exclude_mechanism=["PLAIN", "LOGIN"] if args.token else None,
                    tls_context=context(args.starttls) if args.starttls else None,
                    authenticator=authenticate if args.login else None, auth_required=bool(args.login),
                    auth_require_tls=False, timeout=3600)

    loop = asyncio.get_running_loop()
    server = await loop.create_server(make, "127.0.0.1", args.port, ssl=context(args.tls) if args.tls else None)
    print(server.sockets[0].getsockname()[1], flush=True)
    await loop.run_in_executor(None, sys.stdin.read)
    os._exit(0)


asyncio.run(main())
