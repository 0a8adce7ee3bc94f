"""What the tests of ferolin-host as a program have in common."""

import os
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(1, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))

PATIENCE = 120


class ProgramTestCase(unittest.TestCase):
    """Runs the program in a temporary folder, in a plain environment without a display."""

    program = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="ferolin-host-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.home = self.path("home")

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def environment(self, **changes):
        values = {key: value for key, value in os.environ.items()
                  if not key.startswith(("LC_", "LANG", "FEROLIN_", "SDL_"))
                  and key not in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_DATA_HOME")}
        values.update(LANG="C", TZ="UTC0", HOME=self.folder, SDL_AUDIODRIVER="dummy")
        values.update(changes)
        return values

    def command(self, *arguments):
        return [self.program, "--home", self.home, *arguments]

    def run_host(self, *arguments, text=None, **environment):
        """Runs to the end with `text` on standard input."""
        return subprocess.run(self.command(*arguments), input=text,
                              stdin=None if text is not None else subprocess.DEVNULL,
                              capture_output=True, encoding="utf-8", timeout=PATIENCE,
                              env=self.environment(**environment), check=False)

    @staticmethod
    def end(process):
        """Ends a program whose output nobody has read to its end."""
        if process.poll() is None:
            process.kill()
            process.wait()
        for stream in (process.stdout, process.stderr):
            if stream is not None:
                stream.close()

    def settings(self):
        """Lines of the settings file."""
        with open(os.path.join(self.home, "TachyMo.ini"), encoding="cp1251") as file:
            return [line.strip() for line in file]


def run_tests():
    """Runs the tests of the main module with the program named by the first argument."""
    ProgramTestCase.program = os.path.abspath(sys.argv.pop(1))
    unittest.main()
