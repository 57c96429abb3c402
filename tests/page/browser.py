"""A headless Chromium, driven by the DevTools protocol through a pair of pipes."""

import json
import os
import shutil
import subprocess
import tempfile
import time

FLAGS = ["--headless=new", "--no-sandbox", "--use-angle=swiftshader",
         "--enable-unsafe-swiftshader", "--remote-debugging-pipe", "--window-size=1280,800",
         "--no-first-run", "--disable-extensions", "--disable-background-networking"]
PATIENCE = 120  # seconds, for a slow machine


def find():
    """The program, or None."""
    return shutil.which("chromium") or shutil.which("chromium-browser")


class Browser:
    """One page in one browser; what its console says is in `messages`."""

    def __init__(self):
        self.messages = []
        self._profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        read_there, self._write = os.pipe()
        self._read, write_there = os.pipe()
        # The browser has its ends as the descriptors 3 and 4; copies above are out of their way.
        command = 'exec "$0" "$@" 3<&%d 4>&%d' % (read_there, write_there)
        self._process = subprocess.Popen(
            ["bash", "-c", command, find(), *FLAGS, "--user-data-dir=" + self._profile.name],
            pass_fds=(read_there, write_there), stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(read_there)
        os.close(write_there)
        self._rest = b""
        self._number = 0
        self._session = None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self._session = self.call("Target.attachToTarget", targetId=target,
                                  flatten=True)["sessionId"]
        for domain in ("Runtime", "Log", "Page"):
            self.call(domain + ".enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self._write)
        self._process.terminate()
        self._process.wait()
        os.close(self._read)
        self._profile.cleanup()

    def _next(self):
        while b"\0" not in self._rest:
            part = os.read(self._read, 1 << 20)
            if not part:
                raise RuntimeError("the browser has ended")
            self._rest += part
        text, self._rest = self._rest.split(b"\0", 1)
        message = json.loads(text)
        method = message.get("method")
        if method in ("Runtime.consoleAPICalled", "Runtime.exceptionThrown", "Log.entryAdded"):
            self.messages.append(json.dumps(message["params"])[:500])
        return message

    def call(self, method, **params):
        """Calls a method of the protocol and returns its result."""
        self._number += 1
        request = {"id": self._number, "method": method, "params": params}
        if self._session:
            request["sessionId"] = self._session
        os.write(self._write, json.dumps(request).encode() + b"\0")
        while True:
            message = self._next()
            if message.get("id") == self._number:
                if "error" in message:
                    raise RuntimeError(f"{method}: {message['error']}")
                return message["result"]

    def value(self, expression):
        """The value of an expression, once it is there if it is a promise."""
        result = self.call("Runtime.evaluate", expression=expression, awaitPromise=True,
                           returnByValue=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def open(self, path):
        """Opens a page of quillmark-view and waits for its first picture."""
        self.call("Page.navigate", url="file://" + os.path.abspath(path))
        end = time.monotonic() + PATIENCE
        while not self.value("!!(window.quillmarkPage && quillmarkPage.firstPicture)"):
            if time.monotonic() > end:
                raise RuntimeError(f"no picture: {self.messages}")
            time.sleep(0.05)
        self.frame()

    def frame(self):
        """Waits until all that is asked for is drawn."""
        self.value("new Promise(done => requestAnimationFrame(() => "
                   "requestAnimationFrame(() => done(0))))")

    def click(self, x, y):
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)
        self.frame()

    def drag(self, start, end):
        self.call("Input.dispatchMouseEvent", type="mousePressed", x=start[0], y=start[1],
                  button="left", clickCount=1)
        for part in (0.5, 1.0):
            self.call("Input.dispatchMouseEvent", type="mouseMoved", button="left", buttons=1,
                      x=start[0] + part * (end[0] - start[0]),
                      y=start[1] + part * (end[1] - start[1]))
        self.call("Input.dispatchMouseEvent", type="mouseReleased", x=end[0], y=end[1],
                  button="left", clickCount=1)
        self.frame()

    def key(self, key, code=0):
        extra = {"text": key} if len(key) == 1 else {}
        for kind in ("keyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key, windowsVirtualKeyCode=code,
                      **extra)
        self.frame()

    def picture(self, path):
        import base64
        data = self.call("Page.captureScreenshot", format="png")["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))
