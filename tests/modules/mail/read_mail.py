#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads a mail from standard input with Python's own email package and prints what it found, as JSON."""
import email
import email.policy
import hashlib
import json
import sys

raw = sys.stdin.buffer.read()
mail = email.message_from_bytes(raw, policy=email.policy.default)
body = mail.get_body()
print(json.dumps({
    "subject": mail["Subject"], "from": mail["From"], "to": mail["To"], "id": mail["Message-ID"],
    "date": mail["Date"].datetime.isoformat() if mail["Date"] else "",
    "headers": mail.keys(), "defects": [str(d) for d in mail.defects],
    "body": body.get_content().replace("\r\n", "\n").rstrip("\n") if body else None,
    "names": [part.get_filename() for part in mail.iter_attachments()],
    "types": [part.get_content_type() for part in mail.iter_attachments()],
    "sums": [hashlib.sha256(part.get_content()).hexdigest() for part in mail.iter_attachments()],
    "longest": max(len(line) for line in raw.split(b"\r\n")),
    "bare": raw.replace(b"\r\n", b"").count(b"\n") + raw.replace(b"\r\n", b"").count(b"\r"),
}))
