#!/usr/bin/env python3
"""Runs ferolin-host so that it looks for a receiver, among pseudo-terminals in a folder of devices.

usage: search_program_test.py PROGRAM [unittest arguments]
"""

import fcntl
import json
import os
import pty
import signal
import struct
import subprocess
import sys
import threading
import tty

from program_test_case import PATIENCE, ProgramTestCase, run_tests

sys.path.insert(1, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "siblings"))
from harness import free_port  # noqa: E402
from nmea import sentence  # noqa: E402
from receiver import Gpsd  # noqa: E402
from receiver import Receiver as SiblingsReceiver  # noqa: E402

TCGETS2 = 0x802C542A


class Receiver:
    """Sends ten positions a second: sentences at its own rate, at others what a receiver seems to send then."""

    def __init__(self, baud):
        self.baud = baud
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        self.device = os.ttyname(self.slave)
        self.pulled = threading.Event()
        self.thread = threading.Thread(target=self.run)
        self.thread.start()

    def run(self):
        second = 0
        while not self.pulled.wait(0.1):
            second += 1
            settings = fcntl.ioctl(self.slave, TCGETS2, bytes(44))
            text = sentence("GPRMC,%02d%02d%02d,A,5545.0000,N,03736.0000,E,10.00,090.0,010624,,,A"
                            % (6 + second // 3600, second // 60 % 60, second % 60))
            isHeard = struct.unpack("=4I20B2I", settings)[-1] == self.baud
            os.write(self.master, text.encode() if isHeard else b"\xf3\x80\x1e\r\n")

    def pull(self):
        if not self.pulled.is_set():
            self.pulled.set()
            self.thread.join()
            os.close(self.slave)
            os.close(self.master)


class SearchTest(ProgramTestCase):
    def setUp(self):
        super().setUp()
        os.chmod(self.folder, 0o755)
        self.devices = self.path("dev")
        os.makedirs(self.path("dev", "serial", "by-id"))
        self.gpsd = "127.0.0.1:%d" % free_port()

    def plug(self, baud, *names):
        receiver = Receiver(baud)
        self.addCleanup(receiver.pull)
        for name in names:
            os.symlink(receiver.device, os.path.join(self.devices, name))
        return receiver

    def start(self, *arguments, program=None):
        command = self.command("--json", *arguments)
        process = subprocess.Popen(
            [program or command[0], *command[1:]], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, encoding="utf-8",
            env=self.environment(FEROLIN_DEVICES=self.devices, FEROLIN_GPSD=self.gpsd))
        self.addCleanup(self.end, process)
        return process

    def await_line(self, process, accept):
        for _ in range(1000):
            line = json.loads(process.stdout.readline())
            if accept(line):
                return line
        return self.fail(line)

    def await_fix(self, process):
        return self.await_line(process, lambda line: line["fix"])

    def stop(self, process):
        process.send_signal(signal.SIGTERM)
        said = process.communicate(timeout=PATIENCE)[1]
        self.assertEqual(process.returncode, 0, said)
        return [line.removeprefix("ferolin-host: ") for line in said.splitlines()]

    def test_finds_device_and_rate_and_remembers_them(self):
        name = "serial/by-id/usb-receiver"
        self.plug(38400, name, "ttyUSB0")
        process = self.start("--port", "auto")
        self.assertEqual(self.await_fix(process)["speed_mps"], 5.144)
        said = self.stop(process)
        # The right rate may be found before it can be told.
        steps = ["looking for a receiver: usb-receiver at %d" % baud for baud in (9600, 4800)]
        found = "found a receiver: usb-receiver at 38400"
        self.assertEqual([line for line in said if line in steps or line == found], [*steps, found])
        self.assertIn("Device=" + os.path.join(self.devices, name), self.settings())
        self.assertIn("Baud=38400", self.settings())
        # Now it is found at once; so it is by --port alone.
        process = self.start("--port", "auto")
        self.await_fix(process)
        self.assertNotIn(steps[0], self.stop(process))
        process = self.start("--port")
        self.await_fix(process)
        self.stop(process)

    def test_waits_for_a_receiver_and_for_its_return(self):
        process = self.start("--port", "auto", "--baud", "460800")
        line = self.await_line(process, lambda line: "notice" in line)
        self.assertEqual(line["notice"], "looking for a receiver: none is plugged in")
        receiver = self.plug(460800, "ttyACM0")
        self.assertNotIn("notice", self.await_fix(process))
        os.remove(os.path.join(self.devices, "ttyACM0"))
        receiver.pull()
        self.await_line(process, lambda line: line["fix"] is False)
        self.plug(460800, "ttyUSB3")
        self.await_fix(process)
        said = self.stop(process)
        self.assertIn("found a receiver: ttyACM0 at 460800", said)
        self.assertIn("found a receiver: ttyUSB3 at 460800", said)
        self.assertEqual(said.count("looking for a receiver: none is plugged in"), 2)

    def test_asks_gpsd_first(self):
        self.plug(9600, "ttyUSB0")
        receiver = SiblingsReceiver("constellations")
        self.addCleanup(receiver.close)
        gpsd = Gpsd(receiver.device, self.path("gpsd.log"))
        self.addCleanup(gpsd.stop)
        self.gpsd = "127.0.0.1:%d" % gpsd.port
        process = self.start("--port", "auto")
        # 36 km/h.
        self.await_line(process, lambda line: line["speed_mps"] == 10)
        said = self.stop(process)
        self.assertIn("found a receiver: gpsd", said)
        self.assertFalse(any("ttyUSB0" in line for line in said))

    def test_is_what_the_installed_program_does(self):
        self.plug(9600, "ttyUSB0")
        installed = self.path("ferolin")
        os.symlink(self.program, installed)
        process = self.start(program=installed)
        self.await_fix(process)
        self.assertIn("found a receiver: ttyUSB0 at 9600", self.stop(process))
        shown = self.start("--demo", "--updates", "2", program=installed)
        self.assertIn("simulated drive", shown.communicate(timeout=PATIENCE)[1])


if __name__ == "__main__":
    run_tests()
