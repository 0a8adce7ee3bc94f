"""A Chromium that is driven through its WebDriver."""

import base64
import json
import os
import re
import shutil
import subprocess
import tempfile
import urllib.error
import urllib.request

PATIENCE = 60
ELEMENT = "element-6066-11e4-a52e-4f735466cecf"


def is_there():
    return bool(shutil.which("chromium") and shutil.which("chromedriver"))


class Driver:
    """The chromedriver, from which sessions are had. End it with close()."""

    def __init__(self):
        self.process = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, encoding="utf-8")
        for line in self.process.stdout:
            started = re.search(r"started successfully on port (\d+)", line)
            if started:
                self.address = f"http://127.0.0.1:{started.group(1)}"
                return
        raise RuntimeError("chromedriver did not start")

    def close(self):
        self.process.terminate()
        self.process.wait(PATIENCE)
        self.process.stdout.close()

    def call(self, method, path, body=None):
        data = None if method == "GET" else json.dumps(body or {}).encode()
        request = urllib.request.Request(self.address + path, data, method=method,
                                         headers={"Content-Type": "application/json"})
        try:
            with urllib.request.urlopen(request, timeout=PATIENCE) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError(json.load(error)["value"]["message"]) from error


class Browser:
    """A browser with a profile and a touch screen of its own."""

    def __init__(self, driver):
        self.driver = driver
        self.folder = tempfile.TemporaryDirectory(prefix="ferolin-browser-")
        options = {
            "args": ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     "--no-first-run", "--disable-background-networking", "--lang=en-US",
                     f"--user-data-dir={self.folder.name}"],
            "mobileEmulation": {"deviceMetrics": {"width": 360, "height": 740, "touch": True}},
        }
        always = {"browserName": "chrome", "goog:chromeOptions": options,
                  "goog:loggingPrefs": {"browser": "ALL"}}
        session = driver.call("POST", "/session", {"capabilities": {"alwaysMatch": always}})
        self.path = "/session/" + session["sessionId"]

    def close(self):
        self.call("DELETE", "")
        self.folder.cleanup()

    def call(self, method, path, body=None):
        return self.driver.call(method, self.path + path, body)

    def open(self, address):
        self.call("POST", "/url", {"url": address})

    def address(self):
        return self.call("GET", "/url")

    def reshape(self, width, height, pixel_ratio=1):
        """Becomes a phone or tablet of this size in the pixels of its pages, until the next one is
        opened."""
        self.call("POST", "/goog/cdp/execute", {
            "cmd": "Emulation.setDeviceMetricsOverride",
            "params": {"width": width, "height": height, "deviceScaleFactor": pixel_ratio,
                       "mobile": True}})

    def evaluate(self, script, *arguments):
        return self.call("POST", "/execute/sync", {"script": script, "args": list(arguments)})

    def text(self, selector):
        return self.evaluate("return document.querySelector(arguments[0]).textContent", selector)

    def is_shown(self, selector):
        return self.evaluate("return document.querySelector(arguments[0]).offsetWidth > 0",
                             selector)

    def style(self, selector, name):
        return self.evaluate("return getComputedStyle(document.querySelector(arguments[0]))"
                             "[arguments[1]]", selector, name)

    def click(self, selector):
        found = self.call("POST", "/element", {"using": "css selector", "value": selector})
        self.call("POST", f"/element/{found[ELEMENT]}/click")

    def swipe(self, start, end):
        """A finger from one point of the page to another."""
        moves = [{"type": "pointerMove", "duration": 0, "x": start[0], "y": start[1]},
                 {"type": "pointerDown", "button": 0},
                 {"type": "pointerMove", "duration": 50, "x": end[0], "y": end[1]},
                 {"type": "pointerUp", "button": 0}]
        finger = {"type": "pointer", "id": "finger", "parameters": {"pointerType": "touch"},
                  "actions": moves}
        self.call("POST", "/actions", {"actions": [finger]})

    def tap(self, point):
        self.swipe(point, point)

    def press(self, key):
        """A key by its character, or by the code that WebDriver has for it."""
        strokes = [{"type": "keyDown", "value": key}, {"type": "keyUp", "value": key}]
        self.call("POST", "/actions", {"actions": [
            {"type": "key", "id": "keyboard", "actions": strokes}]})

    def new_tab(self):
        """Shows it; its handle."""
        handle = self.call("POST", "/window/new", {"type": "tab"})["handle"]
        self.show_tab(handle)
        return handle

    def show_tab(self, handle):
        self.call("POST", "/window", {"handle": handle})

    def tab(self):
        return self.call("GET", "/window")

    def close_tabs(self, tabs):
        """All but the first of them."""
        for handle in tabs[1:]:
            self.show_tab(handle)
            self.call("DELETE", "/window")
        self.show_tab(tabs[0])

    def console(self):
        """What pages and browser wrote there since it was asked last."""
        return [f"{each['level']}: {each['message']}"
                for each in self.call("POST", "/se/log", {"type": "browser"})]

    def save_picture(self, file):
        with open(file, "wb") as target:
            target.write(base64.b64decode(self.call("GET", "/screenshot")))
