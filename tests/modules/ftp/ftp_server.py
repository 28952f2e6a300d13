#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A real FTP server on loopback for the tests, on a port that the system gives.

ftp_server.py FOLDER [--port N] [--tls PEM [--only-1.3] [--implicit]]      user "anna", password "sesame"

Prints the port, then takes one command a line on its standard input and answers each with "ok":
  normal     what follows is off again
  login      every login is refused
  full       the server takes a file and then says that there is no room (552)
  nowrite    the server refuses every upload at once (550)
  norename   no renaming over a file that exists
  cut N      after N bytes of the next upload both connections are dropped without a word
  silent     uploads are accepted and then nothing moves any more
  busy       new connections are turned away (421)
  slow N     N bytes a second in uploads
  nodata     no data connection can be made: nobody listens on the port that is told
  nodelete   no deleting
  lossy      half of each file is lost, and nobody is told
  quoting    a refused login quotes the password
  guests     a login is turned away for want of a place (421)
  channel    the server can make no data connection (425)
  dumb       no command is answered any more
  slowquit   the answer to a farewell takes half a second
  oops       something is wrong behind the right password (500)
  resume     a data connection that does not resume the TLS session of the control connection is refused (522), as
             vsftpd and proftpd do unless they are told otherwise
It ends with its standard input.
"""
import argparse
import logging
import os
import sys
import threading
import time

from OpenSSL import SSL
from pyftpdlib.authorizers import AuthenticationFailed, DummyAuthorizer
from pyftpdlib.filesystems import AbstractedFS, FilesystemError
from pyftpdlib.handlers import FTPHandler, ThrottledDTPHandler, TLS_DTPHandler, TLS_FTPHandler
from pyftpdlib.servers import FTPServer

STATE = {"mode": "normal", "arg": 0}


def mode(name):
    return STATE["mode"] == name


class Authorizer(DummyAuthorizer):
    def validate_authentication(self, username, password, handler):
        if mode("login"):
            raise AuthenticationFailed("Login refused today.")
        if mode("quoting"):
            raise AuthenticationFailed("No user %s with %s here." % (username, password))
        super().validate_authentication(username, password, handler)


class Files(AbstractedFS):
    def open(self, filename, how):
        if mode("nowrite"):
            raise FilesystemError("No uploads here")
        return super().open(filename, how)

    def remove(self, path):
        if mode("nodelete"):
            raise FilesystemError("No deleting here")
        super().remove(path)

    def getsize(self, path):
        return super().getsize(path) // (2 if mode("lossy") else 1)

    def rename(self, src, dst):
        if mode("norename") and os.path.exists(dst):
            raise FilesystemError("File exists")
        super().rename(src, dst)


class DataMixin:
    taken = 0

    def handle_read_event(self):
        if mode("silent"):
            self.del_channel()
            return
        if mode("cut"):
            chunk = self.recv(min(65536, STATE["arg"]))
            self.taken += len(chunk)
            self.file_obj.write(chunk)
            self.file_obj.flush()
            if self.taken >= STATE["arg"]:
                STATE["mode"] = "normal"
                self.cmd_channel.close()
            return
        super().handle_read_event()


class PlainData(DataMixin, ThrottledDTPHandler):
    @property
    def write_limit(self):
        return 0

    @property
    def read_limit(self):
        return STATE["arg"] if mode("slow") else 0


class ControlMixin:
    def on_connect(self):
        if mode("busy"):
            self.respond("421 Too many connections.")
            self.close_when_done()

    def ftp_QUIT(self, line):
        if mode("slowquit"):
            time.sleep(0.5)
        super().ftp_QUIT(line)

    def respond(self, resp, logfun=logging.debug):
        if mode("dumb"):
            return
        if mode("guests") and resp.startswith("331"):
            resp = "421 Too many users."
        if mode("channel") and resp[:3] in ("125", "150"):
            resp = "425 Cannot open the data connection."
        # Room is found to be missing at the end, when the last block is to be written.
        if mode("full") and resp.startswith("226 Transfer complete"):
            resp = "552 Quota exceeded, sesame or not."
        if mode("oops") and resp.startswith("230"):
            self.del_channel()
            resp = "500 OOPS: cannot change directory:/home/anna"
        if mode("nodata") and resp.startswith("229"):
            resp = "229 Entering extended passive mode (|||1|)."
        if mode("nodata") and resp.startswith("227"):
            resp = "227 Entering passive mode (127,0,0,1,0,1)."
        super().respond(resp)


def take_commands():
    for line in sys.stdin:
        words = line.split()
        STATE["arg"] = int(words[1]) if len(words) > 1 else 0
        STATE["mode"] = words[0]
        print("ok", flush=True)
    os._exit(0)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder")
    parser.add_argument("--port", type=int, default=0)
    parser.add_argument("--tls")
    parser.add_argument("--only-1.3", dest="new", action="store_true")
    parser.add_argument("--implicit", action="store_true")
    options = parser.parse_args()
    logging.basicConfig(level=logging.CRITICAL)

    class Safe(TLS_FTPHandler if options.tls else FTPHandler):
        def handle(self):
            if options.implicit:
                self.secure_connection(self.ssl_context)
            super().handle()

    class Handler(ControlMixin, Safe):
        authorizer = Authorizer()
        abstracted_fs = Files
        banner = "ready"
        use_sendfile = False
        timeout = 600
        auth_failed_timeout = 0.1

    if options.tls:
        class SafeData(DataMixin, TLS_DTPHandler):
            def readable(self):
                # The library takes a client that begins its handshake before its command for one that has gone.
                return True if self._ssl_accepting else super().readable()

            def handle_ssl_established(self):
                super().handle_ssl_established()
                if mode("resume") and not SSL._lib.SSL_session_reused(self.socket._ssl):
                    self.cmd_channel.respond("522 SSL connection failed: session reuse required")
                    self.close()

        Handler.dtp_handler = SafeData
        Handler.tls_data_required = True
        Handler.certfile = options.tls
        Handler.ssl_context = Handler.get_ssl_context()
        Handler.ssl_context.set_session_id(b"vaktor")
        if options.new:
            Handler.ssl_context.set_min_proto_version(SSL.TLS1_3_VERSION)
    else:
        Handler.dtp_handler = PlainData
    Handler.authorizer.add_user("anna", "sesame", options.folder, perm="elradfmwMT")
    server = FTPServer(("127.0.0.1", options.port), Handler)
    print(server.address[1], flush=True)
    threading.Thread(target=take_commands, daemon=True).start()
    server.serve_forever(timeout=0.05)


main()
