#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Files over SSH on loopback for the tests: sftp_server.py FOLDER [--port N] [--key FILE]     user "anna", password "sesame"

The login is ours, the files are looked after by OpenSSH's own sftp-server, which begins in FOLDER. The key is read from
FILE, or made there. Prints the port and the key's fingerprint.
"""
import argparse
import base64
import hashlib
import pathlib
import socket
import subprocess
import threading

import paramiko

SFTP = "/usr/lib/openssh/sftp-server"


class Sftp(paramiko.server.SubsystemHandler):
    folder = "."

    def start_subsystem(self, name, transport, channel):
        process = subprocess.Popen([SFTP], cwd=Sftp.folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE)

        def out():
            while True:
                block = process.stdout.read1(32768)
                if not block:
                    break
                channel.sendall(block)
            channel.close()

        threading.Thread(target=out, daemon=True).start()
        while True:
            block = channel.recv(32768)
            if not block:
                break
            process.stdin.write(block)
            process.stdin.flush()
        process.stdin.close()
        process.wait()


class Login(paramiko.ServerInterface):
    def check_auth_password(self, username, password):
        good = (username, password) == ("anna", "sesame")
        return paramiko.AUTH_SUCCESSFUL if good else paramiko.AUTH_FAILED

    def get_allowed_auths(self, username):
        return "password"

    def check_channel_request(self, kind, chanid):
        return paramiko.OPEN_SUCCEEDED if kind == "session" else paramiko.OPEN_FAILED_ADMINISTRATIVELY_PROHIBITED


def serve(connection, key):
    transport = paramiko.Transport(connection)
    transport.add_server_key(key)
    transport.set_subsystem_handler("sftp", Sftp)
    try:
        transport.start_server(server=Login())
        kept = []  # a channel that nobody holds is closed
        while transport.is_active():
            kept.append(transport.accept(1))
    except (paramiko.SSHException, EOFError, OSError):
        pass


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder")
    parser.add_argument("--port", type=int, default=0)
    parser.add_argument("--key", type=pathlib.Path, required=True)
    options = parser.parse_args()
    Sftp.folder = options.folder
    if not options.key.exists():
        paramiko.RSAKey.generate(2048).write_private_key_file(str(options.key))
    key = paramiko.RSAKey.from_private_key_file(str(options.key))
    listener = socket.socket()
    listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    listener.bind(("127.0.0.1", options.port))
    listener.listen()
    print_of_key = base64.b64encode(hashlib.sha256(key.asbytes()).digest()).decode().rstrip("=")
    print(listener.getsockname()[1], "SHA256:" + print_of_key, flush=True)
    while True:
        connection, _ = listener.accept()
        threading.Thread(target=serve, args=(connection, key), daemon=True).start()


main()
