"""A screen for windows that are clicked: an X server without a display."""

import os
import subprocess


class XScreen:
    """Xvfb, whose pixels lie in a file, driven by xdotool.

    It must not start anew when its last client leaves: whoever connects just then is dropped.
    """

    def __init__(self, folder, width, height):
        self.width, self.height = width, height
        self.file = os.path.join(folder, "Xvfb_screen0")
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24", "-fbdir", folder,
             "-nolisten", "tcp", "-noreset"], pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as display:
            self.name = ":" + display.readline().strip()

    @property
    def environment(self):
        return os.environ | {"DISPLAY": self.name}

    def close(self):
        self.server.terminate()
        self.server.wait()

    def do(self, *action):
        subprocess.run(["xdotool", *map(str, action)], check=True, env=self.environment)

    def click(self, x, y):
        self.do("mousemove", x, y, "mousedown", 1, "mouseup", 1)

    def key(self, name):
        self.do("key", name)

    def pixels(self):
        """Pixels from the upper left corner on, each red, green and blue."""
        with open(self.file, "rb") as file:
            content = file.read()[-self.width * self.height * 4:]
        return list(zip(content[2::4], content[1::4], content[::4]))

    def corner(self):
        return self.pixels()[0]

    def pixels_at(self, *places):
        pixels = self.pixels()
        return [pixels[y * self.width + x] for x, y in places]
