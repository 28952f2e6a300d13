# SPDX-License-Identifier: GPL-3.0-or-later
"""Headless Chromium, worked by its own protocol over a pipe: no port, no driver program."""
import base64
import json
import os
import subprocess
import time

PATIENCE = 60


class Browser:
    def __init__(self, profile):
        to_browser, from_us = os.pipe()
        from_browser, to_us = os.pipe()

        def prepare():
            # The browser reads its commands on 3 and answers on 4.
            os.dup2(to_browser, 103), os.dup2(to_us, 104)
            os.dup2(103, 3), os.dup2(104, 4)

        self.process = subprocess.Popen(
            ["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
             "--user-data-dir=" + profile, "--remote-debugging-pipe"],
            preexec_fn=prepare, close_fds=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser), os.close(to_us)
        self.out, self.inp, self.number = os.fdopen(from_us, "wb", 0), os.fdopen(from_browser, "rb"), 0
        target = self.say("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.say("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]

    def say(self, method, **params):
        self.number += 1
        message = {"id": self.number, "method": method, "params": params}
        if hasattr(self, "session"):
            message["sessionId"] = self.session
        self.out.write(json.dumps(message).encode() + b"\0")
        while True:
            answer = b""
            while not answer.endswith(b"\0"):
                byte = self.inp.read(1)
                assert byte, "the browser has ended"
                answer += byte
            answer = json.loads(answer[:-1])
            if answer.get("id") == self.number:
                assert "error" not in answer, answer
                return answer["result"]

    def js(self, expression):
        result = self.say("Runtime.evaluate", expression=expression, returnByValue=True)
        assert "exceptionDetails" not in result, result
        return result["result"].get("value")

    def look_from(self, width, height, phone, scheme):
        """As on a screen of that size; `scheme` "light" or "dark"."""
        self.say("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=phone)
        self.say("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])

    def wait(self, expression):
        end = time.monotonic() + PATIENCE
        while not self.js(expression):
            assert time.monotonic() < end, expression
            time.sleep(0.05)

    def shoot(self, path):
        data = self.say("Page.captureScreenshot", format="png")["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def end(self):
        self.process.kill()
        self.process.wait()
