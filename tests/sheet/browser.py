"""A browser without a window, driven by its protocol for tools through two pipes: JSON texts that end with a zero
byte."""
import base64
import json
import os
import select
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # seconds


class Browser:
    """One page of a browser. `complaints` has what the page reported, `requests` the addresses that it asked for."""

    def __init__(self, program):
        self.complaints, self.requests, self.replies = [], [], {}
        self.waiting, self.last, self.session, self.loads = b"", 0, None, 0
        self.home = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        ours, theirs = os.pipe(), os.pipe()
        self.process = subprocess.Popen(
            ["/bin/sh", "-c", 'exec "$@" 3<&%d 4>&%d' % (ours[0], theirs[1]), "sh", program, "--headless",
             "--remote-debugging-pipe", "--no-sandbox", "--disable-gpu-sandbox", "--use-angle=swiftshader",
             "--enable-unsafe-swiftshader", "--no-first-run", "--disable-dev-shm-usage", "--window-size=1000,800",
             "--user-data-dir=" + self.home.name, "about:blank"],
            pass_fds=[ours[0], theirs[1]], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env=dict(os.environ, HOME=self.home.name))
        os.close(ours[0])
        os.close(theirs[1])
        self.to, self.back = ours[1], theirs[0]
        pages = [each for each in self.call("Target.getTargets")["targetInfos"] if each["type"] == "page"]
        self.session = self.call("Target.attachToTarget", targetId=pages[0]["targetId"], flatten=True)["sessionId"]
        for area in ["Page", "Runtime", "Log", "Network", "DOM"]:
            self.call(area + ".enable")

    def close(self):
        self.process.terminate()
        self.process.wait()
        self.home.cleanup()

    def take(self):
        """Takes the next message, an answer or an event."""
        end = time.time() + PATIENCE
        while b"\0" not in self.waiting:
            if not select.select([self.back], [], [], max(0, end - time.time()))[0]:
                sys.exit(f"the browser said nothing for {PATIENCE} seconds")
            read = os.read(self.back, 1 << 20)
            if not read:
                sys.exit("the browser ended")
            self.waiting += read
        text, self.waiting = self.waiting.split(b"\0", 1)
        message = json.loads(text)
        if "id" in message:
            self.replies[message["id"]] = message
        else:
            self.note(message["method"], message["params"])

    def note(self, event, facts):
        if event == "Page.loadEventFired":
            self.loads += 1
        elif event == "Network.requestWillBeSent":
            self.requests.append(facts["request"]["url"])
        elif event == "Runtime.exceptionThrown":
            self.complaints.append(facts["exceptionDetails"])
        elif event == "Runtime.consoleAPICalled" and facts["type"] in ("error", "warning", "assert"):
            self.complaints.append(facts["args"])
        elif event == "Log.entryAdded" and facts["entry"]["level"] in ("error", "warning"):
            self.complaints.append(facts["entry"]["text"])

    def call(self, method, **arguments):
        self.last += 1
        number = self.last
        order = {"id": number, "method": method, "params": arguments}
        if self.session:
            order["sessionId"] = self.session
        os.write(self.to, json.dumps(order).encode() + b"\0")
        while number not in self.replies:
            self.take()
        reply = self.replies.pop(number)
        if "error" in reply:
            sys.exit(f"{method}: {reply['error']['message']}")
        return reply["result"]

    def open(self, file):
        before = self.loads
        self.call("Page.navigate", url="file://" + str(file))
        while self.loads == before:
            self.take()

    def ask(self, script):
        """The value of an expression in the page, waited for if it is a promise."""
        result = self.call("Runtime.evaluate", expression=script, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            sys.exit(f"{script}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def centre(self, selector):
        """The middle of an element, scrolled into sight."""
        return self.ask(f"(e => {{ e.scrollIntoView({{block: 'center'}}); const b = e.getBoundingClientRect();"
                        f" return [b.x + b.width / 2, b.y + b.height / 2]; }})"
                        f"(document.querySelector({json.dumps(selector)}))")

    def mouse(self, kind, x, y, **more):
        self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1, **more)

    def click(self, selector):
        x, y = self.centre(selector)
        for kind in ["mousePressed", "mouseReleased"]:
            self.mouse(kind, x, y)

    def drag(self, selector, right, down):
        x, y = self.centre(selector)
        self.mouse("mousePressed", x, y)
        for part in [0.5, 1]:
            self.mouse("mouseMoved", x + right * part, y + down * part, buttons=1)
        self.mouse("mouseReleased", x + right, y + down)

    def press(self, key):
        for kind in ["keyDown", "keyUp"]:
            self.call("Input.dispatchKeyEvent", type=kind, key=key, code=key)

    def screenshot(self, file):
        file.write_bytes(base64.b64decode(self.call("Page.captureScreenshot")["data"]))

    def print(self, file):
        page = self.call("Page.printToPDF", preferCSSPageSize=True, printBackground=True)
        file.write_bytes(base64.b64decode(page["data"]))
