"""A make-believe GPS receiver behind a pseudo-terminal, and a gpsd that listens to it."""

import functools
import operator
import os
import pty
import shutil
import socket
import subprocess
import threading
import time
import tty

from harness import free_port, stop_process, wait_until

EPOCH_PAUSE_S = 0.1
FIRST_SECOND = 12 * 3600

GPS_IN_VIEW = [
    "GPGSV,3,1,10,01,10,011,31,02,20,022,32,03,30,033,33,04,40,044,34",
    "GPGSV,3,2,10,05,50,055,35,06,60,066,36,07,70,077,37,08,80,088,38",
    "GPGSV,3,3,10,09,05,099,,10,06,100,48",
]
GLONASS_IN_VIEW = [
    "GLGSV,2,1,07,65,11,111,21,66,12,112,22,67,13,113,23,68,14,114,24",
    "GLGSV,2,2,07,69,15,115,25,70,16,116,26,71,17,117,49",
]

# Epochs as receivers speak them; {time} becomes hhmmss. The day is 15 June 2031.
EPOCHS = {
    # GPS and GLONASS together: 14 satellites used, 17 in view.
    "constellations": [
        "GNRMC,{time}.50,A,4807.0380,N,01131.0000,E,19.438,084.4,150631,,,D",
        "GNGGA,{time}.50,4807.0380,N,01131.0000,E,2,14,0.9,545.4,M,46.9,M,,",
        "GNGSA,A,3,01,02,03,04,05,06,07,08,,,,,1.8,0.9,1.5",
        "GNGSA,A,3,65,66,67,68,69,70,,,,,,,1.8,0.9,1.5",
        *GPS_IN_VIEW,
        *GLONASS_IN_VIEW,
    ],
    # GPS alone, three satellites, no height; on the other side of both axes.
    "flat": [
        "GPRMC,{time},A,3352.5000,S,07040.2000,W,000.0,,150631,,,A",
        "GPGGA,{time},3352.5000,S,07040.2000,W,1,03,2.5,,M,,M,,",
        "GPGSA,A,2,01,02,03,,,,,,,,,,2.7,2.5,1.0",
        *GPS_IN_VIEW,
    ],
    # Satellites are heard, the position is not known yet.
    "searching": [
        "GPRMC,{time},V,,,,,,,150631,,,N",
        "GPGGA,{time},,,,,0,00,,,M,,M,,",
        "GPGSA,A,1,,,,,,,,,,,,,,,",
        *GPS_IN_VIEW,
    ],
}


def sentence(body):
    return f"${body}*{functools.reduce(operator.xor, body.encode()):02X}\r\n"


class Receiver:
    """Speaks one epoch after the other, a second of its own time each, on a thread."""

    def __init__(self, kind):
        self.epoch = EPOCHS[kind]
        self.second = FIRST_SECOND
        self.controller, self.terminal = pty.openpty()
        tty.setraw(self.terminal)
        os.set_blocking(self.controller, False)
        self.device = os.ttyname(self.terminal)
        # gpsd opens it as another user.
        os.chmod(self.device, 0o666)
        self.silent = threading.Event()
        self.thread = threading.Thread(target=self.speak)
        self.thread.start()

    def speak(self):
        while not self.silent.wait(EPOCH_PAUSE_S):
            now = f"{self.second // 3600:02}{self.second // 60 % 60:02}{self.second % 60:02}"
            epoch = "".join(sentence(body.format(time=now)) for body in self.epoch)
            try:
                # Whatever gpsd says to the receiver has to go somewhere.
                os.write(self.controller, epoch.encode())
                os.read(self.controller, 65536)
            except BlockingIOError:
                pass
            self.second += 1

    def fall_silent(self):
        self.silent.set()
        self.thread.join()

    def close(self):
        self.fall_silent()
        os.close(self.terminal)
        os.close(self.controller)


def gpsd_program():
    return shutil.which("gpsd", path=os.environ["PATH"] + ":/usr/sbin:/usr/local/sbin")


class Gpsd:
    """A private gpsd on a port of its own."""

    def __init__(self, device, log_path, port=None):
        self.port = port or free_port()
        self.log_path = log_path
        with open(log_path, "a") as log:
            self.process = subprocess.Popen(
                [gpsd_program(), "-N", "-n", "-D", "1", "-S", str(self.port), device],
                stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        if not wait_until(self.listens):
            self.stop()
            with open(log_path) as log:
                raise AssertionError("gpsd does not come up:\n" + log.read())

    def listens(self):
        try:
            socket.create_connection(("127.0.0.1", self.port), 1).close()
            return True
        except OSError:
            return False

    def stop(self):
        stop_process(self.process)
        self.remove_shared_memory()

    def remove_shared_memory(self):
        """gpsd leaves the memory behind that it shares its clock through."""
        with open("/proc/sysvipc/shm") as table:
            rows = [line.split() for line in table.readlines()[1:]]
        for row in rows:
            if int(row[4]) == self.process.pid:
                subprocess.run(["ipcrm", "-m", row[1]], stderr=subprocess.DEVNULL, check=False)
