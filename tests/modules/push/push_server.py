#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A web server on loopback that takes pushes, for the tests: push_server.py FOLDER [--port N] [--tls PEM]

Prints its port. Each request becomes FOLDER/N.json (method, path, headers) and FOLDER/N.body, N from 0 on. The first
line of FOLDER/answer, where there is one, is the status that it answers with; "redirect URL" sends elsewhere, "hang"
says nothing, "drip" answers a byte every third of a second, for half a minute; "cut N" breaks the connection under a
body of more than N bytes, without an answer, and takes others.
"""
import argparse
import http.server
import itertools
import json
import pathlib
import socket
import ssl
import struct
import time

arguments = argparse.ArgumentParser()
arguments.add_argument("folder", type=pathlib.Path)
arguments.add_argument("--port", type=int, default=0)
arguments.add_argument("--tls")
options = arguments.parse_args()
numbers = itertools.count(len(list(options.folder.glob("*.json"))))


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def words(self):
        answer = options.folder / "answer"
        return answer.read_text().split() if answer.exists() else ["200"]

    def cut(self):
        self.rfile.read(1000)
        self.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self.connection.close()
        self.close_connection = True

    def do_POST(self):
        length = int(self.headers.get("Content-Length") or 0)
        words = self.words()
        if words[0] == "cut":
            if length > int(words[1]):
                return self.cut()
            words = ["200"]
        body = self.rfile.read(length)
        number = next(numbers)
        (options.folder / ("%d.body" % number)).write_bytes(body)
        told = {"method": self.command, "path": self.path, "headers": {k.lower(): v for k, v in self.headers.items()}}
        part = options.folder / ("%d.part" % number)
        part.write_text(json.dumps(told))
        part.rename(options.folder / ("%d.json" % number))
        if words[0] == "hang":
            time.sleep(600)
        if words[0] == "drip":
            return self.drip()
        self.send_response(302 if words[0] == "redirect" else int(words[0]))
        if words[0] == "redirect":
            self.send_header("Location", words[1])
        text = b"the server's own words\n"
        self.send_header("Content-Length", str(len(text)))
        self.end_headers()
        self.wfile.write(text)

    def drip(self):
        self.send_response(200)
        self.send_header("Content-Length", "100")
        self.end_headers()
        try:
            for _ in range(100):
                self.wfile.write(b"x")
                time.sleep(0.3)
        except OSError:
            self.close_connection = True

    do_GET = do_PUT = do_POST

    def log_message(self, *_):
        pass


server = http.server.ThreadingHTTPServer(("127.0.0.1", options.port), Handler)
if options.tls:
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(options.tls)
    server.socket = context.wrap_socket(server.socket, server_side=True)
print(server.server_address[1], flush=True)
server.serve_forever()
