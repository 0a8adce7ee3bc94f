"""Runs the examples with a receiver at a pseudo-terminal.

usage: examples_test.py PROGRAMS LIBRARIES SCRIPTS [unittest arguments]

The arguments are folders: of the compiled examples, of the libraries, and of the script.
"""
import os
import pathlib
import pty
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import tty
import unittest

PROGRAMS, LIBRARIES, SCRIPTS = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(3))
PATIENCE_S = 60
# 27 knots are 50.004 km/h.
SPEED = "Speed: 50.0 km/h"


def sentence(second):
    body = "GPRMC,10%02d%02d,A,5545.0,N,03737.0,E,27.0,90.0,211126,,,A" % divmod(second % 3600, 60)
    checksum = 0
    for byte in body.encode():
        checksum ^= byte
    return ("$%s*%02X\r\n" % (body, checksum)).encode()


class Receiver:
    """Sends ten positions a second until it is closed."""

    def __init__(self):
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        os.set_blocking(self.master, False)
        self.name = os.ttyname(self.slave)
        self.is_closed = threading.Event()
        self.thread = threading.Thread(target=self.send)
        self.thread.start()

    def send(self):
        second = 0
        while not self.is_closed.wait(0.1):
            try:
                os.write(self.master, sentence(second))
                second += 1
            except BlockingIOError:
                pass

    def close(self):
        self.is_closed.set()
        self.thread.join()
        os.close(self.master)
        os.close(self.slave)


class Examples(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="ferolin-examples-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.receiver = Receiver()
        self.addCleanup(self.receiver.close)

    def environment(self, **changes):
        values = {key: value for key, value in os.environ.items()
                  if not key.startswith(("LC_", "LANG", "FEROLIN_", "SDL_", "XDG_"))}
        values.update(HOME=self.folder, LANG="C", LD_LIBRARY_PATH=LIBRARIES,
                      SDL_AUDIODRIVER="dummy")
        values.update(changes)
        return values

    def run_example(self, *command, **environment):
        return subprocess.run([*command, self.receiver.name], capture_output=True, encoding="utf-8",
                              env=self.environment(**environment), timeout=PATIENCE_S, check=False)

    def check_small_host(self, settings, *command):
        result = self.run_example(*command)
        self.assertEqual(result.stderr, "")
        self.assertEqual(result.stdout.splitlines(), [SPEED] * 10)
        self.assertEqual(result.returncode, 0)
        self.assertTrue((self.folder / ".local/share" / settings / "TachyMo.ini").is_file())

    def test_small_host_in_c(self):
        self.check_small_host("libferolin", PROGRAMS / "small-host-c")

    def test_small_host_in_cpp(self):
        self.check_small_host("small-host", PROGRAMS / "small-host")

    def test_small_host_in_python(self):
        self.check_small_host("small-host", sys.executable, SCRIPTS / "small_host.py")

    def test_a_missing_folder_is_told(self):
        result = self.run_example(PROGRAMS / "small-host", HOME="/proc/none")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, "there is no folder for settings\n")

    def test_missing_pictures_are_told(self):
        lonely = self.folder / "lonely"
        lonely.mkdir()
        for library in LIBRARIES.glob("libferolin*.so.*"):
            shutil.copy(library, lonely, follow_symlinks=True)
        result = self.run_example(PROGRAMS / "small-host-c", LD_LIBRARY_PATH=lonely,
                                  LD_PRELOAD=lonely / "libferolin-device.so.0")
        self.assertEqual(result.stdout.splitlines(), [SPEED] * 10)
        self.assertIn("views lack pictures and the display font", result.stderr)

    def newest_frame(self):
        """Rows of the last frame that the window has shown, 4 bytes a pixel; empty without one."""
        frames = sorted(self.folder.glob("SDL_window*.bmp"))
        # The last one may not be complete.
        return frames[-2].read_bytes()[-480 * 480 * 4:] if len(frames) > 1 else b""

    def test_view_window(self):
        # SDL's dummy display writes each frame to a file.
        host = subprocess.Popen([PROGRAMS / "view-window", self.receiver.name], cwd=self.folder,
                                env=self.environment(SDL_VIDEODRIVER="dummy",
                                                     SDL_RENDER_DRIVER="software",
                                                     SDL_VIDEO_DUMMY_SAVE_FRAMES="1"))
        self.addCleanup(host.kill)
        end = time.monotonic() + PATIENCE_S
        colours = 0
        while colours < 10 and time.monotonic() < end:
            time.sleep(0.1)
            frame = self.newest_frame()
            colours = len({frame[at:at + 3] for at in range(0, len(frame), 4)})
            for old in sorted(self.folder.glob("SDL_window*.bmp"))[:-2]:
                old.unlink()
        self.assertGreaterEqual(colours, 10)  # the dial is shaded
        host.send_signal(signal.SIGTERM)
        self.assertEqual(host.wait(PATIENCE_S), 0)


if __name__ == "__main__":
    unittest.main()
