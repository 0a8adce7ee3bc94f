"""What the tests of faults have in common: a receiver, a host that is not waited for, disks."""

import contextlib
import json
import os
import pty
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
import tty

sys.path.insert(1, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "host"))
from program_test_case import PATIENCE, ProgramTestCase, run_tests  # noqa: E402,F401

from nmea import sentence  # noqa: E402,F401

# With ./test --all; the short form has fewer rounds and leaves out what takes long.
IS_THOROUGH = os.environ.get("FEROLIN_TESTS") == "all"

KNOTS_OF_36_KMH = 36 / 1.852
# 21 November 2026 is day 20,778 after 1970.
DAY_MS = 20778 * 86400 * 1000
PERIOD_S = 0.1


def become_root():
    """Starts the program again as root of a user namespace, who may mount a tmpfs there; goes on as
    an ordinary user where that is not allowed."""
    enter = ["unshare", "--map-root-user", "--mount"]
    if os.geteuid() != 0 and subprocess.run([*enter, "true"], capture_output=True,
                                            check=False).returncode == 0:
        os.execvp(enter[0], [*enter, sys.executable, *sys.argv])


def moment(second, date="211126", knots=KNOTS_OF_36_KMH, status="A"):
    """What a receiver sends about this second of the day, 36 km/h northwards: 10 m a second."""
    clock = "%02d%02d%02d" % (second // 3600, second // 60 % 60, second % 60)
    minutes = second * 0.0054
    place = "%02d%08.5f,N,03730.00000,E" % (10 + minutes // 60, minutes % 60)
    return (sentence("GPGGA,%s,%s,1,08,0.9,150.0,M,14.0,M,," % (clock, place)) +
            sentence("GPRMC,%s,%s,%s,%.3f,000.0,%s,,,A" % (clock, status, place, knots, date)))


class Receiver:
    """A receiver at a serial port. Sends ten moments a second, each a second of its own time."""

    def __init__(self, plug, first_second):
        self.plug = plug
        self.first_second = first_second
        self.has_fix = True
        # When each moment was sent, from `first_second` on.
        self.times = []
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        os.set_blocking(self.master, False)
        os.chmod(os.ttyname(self.slave), 0o666)
        os.symlink(os.ttyname(self.slave), plug)
        self.is_pulled = threading.Event()
        self.thread = threading.Thread(target=self.send)
        self.thread.start()

    @property
    def next_second(self):
        return self.first_second + len(self.times)

    def send(self):
        waiting = b""
        while not self.is_pulled.wait(PERIOD_S):
            if not waiting:
                waiting = moment(self.next_second, status="A" if self.has_fix else "V").encode()
                self.times.append(time.monotonic())
            with contextlib.suppress(BlockingIOError):
                waiting = waiting[os.write(self.master, waiting):]

    def pull(self):
        """Takes line and device away."""
        if not self.is_pulled.is_set():
            self.is_pulled.set()
            self.thread.join()
            os.remove(self.plug)
            os.close(self.slave)
            os.close(self.master)

    def last_second_before(self, then):
        """The last second of the receiver's own time that was sent before this moment."""
        return self.first_second + sum(each < then for each in self.times) - 1


class Host:
    """The running program. What it shows and says goes to files, to be read while it runs."""

    def __init__(self, command, environment, log):
        self.log = log
        self.lines = log + ".json"
        with open(log, "wb") as said, open(self.lines, "wb") as shown:
            self.process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL,
                                            stdout=shown, stderr=said)

    def said(self):
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()

    def shown(self):
        """The read-outs of each update so far."""
        with open(self.lines, encoding="utf-8") as file:
            lines = [line for line in file if line.endswith("\n")]
        return [line["text"] for line in map(json.loads, lines) if "text" in line]

    def first_second(self):
        """The receiver's time of day that was shown first; None before that."""
        for sensors in self.shown():
            if sensors["Current time"] and sensors["GPS status"] == "OK":
                hours, minutes, seconds = map(int, sensors["Current time"].split(":"))
                return (hours * 60 + minutes) * 60 + seconds
        return None

    def kill(self):
        """Ends the program at once, as a power cut does. Returns the moment before."""
        now = time.monotonic()
        self.process.kill()
        self.process.wait()
        return now

    def stop(self):
        """Ends the program as a user does. Returns its exit status and what it said."""
        self.process.send_signal(signal.SIGTERM)
        return self.process.wait(PATIENCE), self.said()


class FaultCase(ProgramTestCase):
    """Has a home folder and a socket for a receiver."""

    def setUp(self):
        super().setUp()
        os.makedirs(self.home)
        self.plug = self.path("gps")
        self.second = 3600
        self.hosts = []

    def start_host(self, *arguments, **environment):
        host = Host(self.command(*arguments), self.environment(**environment),
                    self.path("said.%d" % len(self.hosts)))
        self.hosts.append(host)
        self.addCleanup(host.kill)
        return host

    def start_drive(self, *arguments, **environment):
        return self.start_host("--json", "--port", self.plug, *arguments, **environment)

    def plug_in(self):
        """A receiver whose clock is a minute behind the end of the last one."""
        receiver = Receiver(self.plug, self.second)
        self.addCleanup(receiver.pull)
        return receiver

    def pull(self, receiver):
        receiver.pull()
        self.second = receiver.next_second + 60

    def wait_until(self, condition, what):
        deadline = time.monotonic() + PATIENCE
        while not condition():
            self.assertLess(time.monotonic(), deadline, what())
            time.sleep(0.02)

    def await_words(self, host, words, count=1):
        self.wait_until(lambda: host.said().count(words) >= count,
                        lambda: "%s is not said:\n%s" % (words, host.said()))

    def query(self, sql):
        """Rows of the database of drives; none before it is made. Leaves the files as they are."""
        path = os.path.join(self.home, "drives.db")
        if not os.path.exists(path):
            return []
        with tempfile.TemporaryDirectory(dir=self.folder) as copies:
            if not any(host.process.poll() is None for host in self.hosts):
                # The last connection to end would clear up what a host has left behind.
                for end in ("", "-wal"):
                    if os.path.exists(path + end):
                        shutil.copy(path + end, copies)
                path = os.path.join(copies, "drives.db")
            with contextlib.closing(sqlite3.connect(path, timeout=PATIENCE)) as connection:
                try:
                    return connection.execute(sql).fetchall()
                except sqlite3.OperationalError as error:
                    if "no such table" in str(error):
                        return []
                    raise

    def seconds_kept(self, drive=None):
        """The receiver's seconds of the day of the kept fixes, in their order."""
        where = "" if drive is None else "AND drive = %d" % drive
        rows = self.query("SELECT time_ms FROM positions WHERE has_fix %s ORDER BY drive, number"
                          % where)
        return [(row[0] - DAY_MS) // 1000 for row in rows]

    def await_positions(self, count, host):
        self.wait_until(lambda: len(self.seconds_kept()) >= count,
                        lambda: "positions are not kept:\n" + host.said())

    def check_database(self):
        self.assertIn(self.query("PRAGMA integrity_check"), ([], [("ok",)]))

    def check_whole(self, seconds):
        """No second of the drive is missing."""
        self.assertEqual(seconds, list(range(seconds[0], seconds[0] + len(seconds))))

    def mount(self, *arguments):
        """Mounts a disk for the home folder. Skips the test where that is not allowed."""
        disk = self.path("disk")
        os.mkdir(disk)
        result = subprocess.run(["mount", *arguments, disk], capture_output=True,
                                encoding="utf-8", check=False)
        if result.returncode != 0:
            self.skipTest("nothing can be mounted here: " + result.stderr.strip())
        self.addCleanup(subprocess.run, ["umount", "--lazy", disk], capture_output=True,
                        check=False)
        self.home = os.path.join(disk, "home")
        os.mkdir(self.home)
        return disk
