#!/usr/bin/env python3
"""Trip statistics of a synthetic drive against a calculation that knows nothing of the engine's source.

usage: trip_statistics_test.py FEROLIN-HOST

The drive goes through the reference host as a recording, and the text of every trip read-out after every update is
compared, and the saved states at the end. Single precision is had by packing numbers into four bytes.
"""

import datetime
import json
import os
import random
import struct
import subprocess
import sys
import tempfile

MISSING = None
ACCEL_TARGETS = (10, 30, 60, 100, 150, 200, 20, 40, 50, 70, 80, 90, 120)
FASTEST_TARGETS = (100, 402, 1000, 500, 10000)
LONGEST_RUN_MS = 1_000_000
MOST_SEGMENTS = 300


def single(value):
    """Nearest single-precision number."""
    return struct.unpack("<f", struct.pack("<f", value))[0]


def quotient(dividend, divisor):
    """Whole quotient, cut towards zero."""
    return int(abs(dividend) // divisor) * (1 if dividend >= 0 else -1)


def time_text(seconds):
    decimals = 3 if seconds < 10 else 2 if seconds < 100 else 1 if seconds < 1000 else 0
    return f"{seconds:.{decimals}f} s"


class Distance:
    def __init__(self):
        self.text, self.kilometres, self.last = "", 0.0, MISSING

    def lost(self):
        self.last = MISSING

    def fix(self, ticks, speed):
        if self.last is not MISSING and ticks >= self.last[0]:
            seconds = single(single(float(ticks - self.last[0])) * single(1e-7))
            hours = seconds * 0.0002777777777777778
            mean = single(single(speed + self.last[1]) * 0.5)
            self.kilometres = single(hours * mean + self.kilometres)
            if self.kilometres < 1:
                self.text = f"{single(self.kilometres * 1000):.0f} m"
            else:
                self.text = f"{self.kilometres:.{2 if self.kilometres < 10 else 1}f} km"
        self.last = (ticks, speed)

    def state(self):
        return "%g" % self.kilometres


class Average:
    def __init__(self):
        self.text, self.kilometres, self.seconds, self.last = "", 0.0, 0, MISSING

    def lost(self):
        self.last = MISSING

    def fix(self, ticks, speed):
        per_second = single(0.00027777778)
        if self.last is not MISSING and ticks >= self.last[0]:
            step = quotient(ticks - self.last[0], 10_000_000)
            self.seconds += step
            mean = single(single(speed + self.last[1]) * 0.5)
            self.kilometres = single(self.kilometres + single(mean * single(step * per_second)))
            if self.seconds:
                self.text = f"{self.kilometres / single(self.seconds * per_second):.2f} km/h"
        self.last = (ticks, speed)

    def state(self):
        return "%g;%i" % (self.kilometres, self.seconds)


class Elapsed:
    def __init__(self):
        self.text, self.seconds, self.last = "", 0, 0

    def lost(self):
        pass

    def fix(self, ticks, _speed):
        if self.last and ticks > self.last:
            self.seconds += quotient(ticks - self.last, 10_000_000)
            minutes, second = divmod(self.seconds, 60)
            hours, minute = divmod(minutes, 60)
            days, hour = divmod(hours, 24)
            if days:
                self.text = f"{days}days{hour}:{minute}:{second}"
            elif hour:
                self.text = f"{hour}:{minute:02}:{second:02}"
            elif minute:
                self.text = f"{minute}:{second:02}"
            else:
                self.text = f"{second} s"
        self.last = ticks

    def state(self):
        return "%i" % self.seconds


class Accel:
    def __init__(self, target):
        self.text, self.target, self.best = "", target, MISSING
        self.start, self.last = 0, MISSING

    def lost(self):
        pass

    def fix(self, ticks, speed):
        if int(speed) == 0:
            self.start = ticks
        if self.last is not MISSING and self.last[1] < self.target <= speed and self.start > 0:
            self.cross(ticks, speed)
        self.last = (ticks, speed)

    def cross(self, ticks, speed):
        step = quotient(ticks - self.last[0], 10_000)
        run = quotient(self.last[0] - self.start, 10_000)
        if step > LONGEST_RUN_MS or run > LONGEST_RUN_MS:
            return
        share = (self.target - self.last[1]) * step / (speed - self.last[1])
        seconds = (share + run) * single(0.001)
        if seconds > 0 and (self.best is MISSING or seconds < self.best):
            self.best = single(seconds)
            self.text = time_text(self.best)

    def state(self):
        return "%g;%g" % (self.target, -9999 if self.best is MISSING else self.best)


class Fastest:
    def __init__(self, target):
        self.text, self.target, self.best = "", target, 0
        self.segments, self.last = [], MISSING

    def lost(self):
        self.segments, self.last = [], MISSING

    def fix(self, ticks, speed):
        if speed == 0:
            self.lost()
        if self.last is not MISSING and ticks >= self.last[0]:
            milliseconds = quotient(ticks - self.last[0], 10_000)
            mean = single(single(self.last[1] + speed) * 0.5)
            metres = single(mean * quotient(milliseconds, 1000) * 0.2777777851363761)
            self.add(metres, milliseconds)
        self.last = (ticks, speed)

    def add(self, metres, milliseconds):
        total, time = metres, 0
        for length, duration in reversed(self.segments):
            total = single(total + length)
            time += duration
            if total >= self.target:
                self.record(total, time, length, duration)
                self.segments = []
                break
        else:
            if len(self.segments) >= MOST_SEGMENTS:
                self.segments = []
                return
        self.segments.append((metres, milliseconds))

    def record(self, total, time, length, duration):
        if length == 0:
            return
        before = single(total - length)
        share = single(single(self.target - before) / length)
        time += int(single(share * single(float(duration))))
        if time > 0 and (self.best <= 0 or time < self.best):
            self.best = time
            self.text = time_text(time * 0.001)

    def state(self):
        return "%g;%i" % (self.target, self.best)


class MaxSpeed:
    def __init__(self):
        self.text, self.speed = "", MISSING

    def see(self, speed):
        if self.speed is MISSING or speed > self.speed:
            self.speed = speed
            self.text = f"{speed:.1f} km/h"

    def state(self):
        return "%g" % (-9999 if self.speed is MISSING else self.speed)


def drive():
    """(moment, status, knots) of every second; knots None: an empty field. Over midnight, with gaps of several kinds."""
    chance = random.Random(8)
    moment = datetime.datetime(2024, 2, 28, 23, 40, 0)
    knots = 0.0

    def phase(seconds, target, status="A"):
        nonlocal moment, knots
        start = knots
        for second in range(1, seconds + 1):
            knots = start + (target - start) * second / seconds
            shaken = max(0.0, knots + chance.uniform(-0.4, 0.4)) if knots > 1 else 0.0
            yield moment, status, round(shaken, 1)
            moment += datetime.timedelta(seconds=1)

    def silence(seconds):
        nonlocal moment
        moment += datetime.timedelta(seconds=seconds)

    yield from phase(10, 0)
    yield from phase(14, 32)
    yield from phase(400, 35)
    yield from phase(20, 0)
    yield from phase(30, 0)
    yield from phase(9, 55)
    for passing, _, _ in phase(25, 55):  # a tunnel
        yield passing, "V", None
    yield from phase(200, 62)
    silence(7)
    yield from phase(100, 58)
    yield from phase(12, 58, "V")  # positions that are not to be trusted
    yield from phase(40, 2.0)
    yield from phase(420, 2.4)  # a traffic jam, longer than a run can be
    yield from phase(8, 0)
    yield from phase(15, 0)
    yield from phase(26, 112)
    yield from phase(500, 108)
    silence(-5)  # the receiver sets its clock right
    yield from phase(150, 95)
    yield from phase(30, 0)
    silence(1100)
    yield from phase(1, 0)
    yield from phase(6, 30)
    yield from phase(60, 28)


def sentence(text):
    checksum = 0
    for letter in text:
        checksum ^= ord(letter)
    return f"${text}*{checksum:02X}\r\n"


def rmc(moment, status, knots):
    speed = "" if knots is None else f"{knots:05.1f}"
    return sentence(f"GPRMC,{moment:%H%M%S},{status},5545.1234,N,03737.5678,E,{speed},084.4,"
                    f"{moment:%d%m%y},,")


def run_host(program, recording, home):
    """The host's lines: one for each update, then that of the end."""
    output = subprocess.run(
        [program, "--nmea", recording, "--rate", "max", "--json", "--new-trip", "--lang", "en",
         "--home", home],
        check=True, capture_output=True, text=True, env={**os.environ, "TZ": "UTC0"}).stdout
    return [json.loads(line) for line in output.splitlines()]


def main():
    fixes = list(drive())
    with tempfile.TemporaryDirectory() as folder:
        recording = os.path.join(folder, "drive.nmea")
        with open(recording, "w", encoding="ascii", newline="") as file:
            file.writelines(rmc(*fix) for fix in fixes)
        lines = run_host(sys.argv[1], recording, folder)

    updates = [line["text"] for line in lines if "text" in line]
    assert len(updates) == len(fixes), f"{len(updates)} updates of {len(fixes)}"

    trips = {"Distance": Distance(), "Average speed": Average(), "Elapsed": Elapsed()}
    trips.update({f"Accel. 0-{target} km/h": Accel(target) for target in ACCEL_TARGETS})
    trips.update({f"Fastest {target}m": Fastest(target) for target in FASTEST_TARGETS})
    maximum = MaxSpeed()
    epoch = datetime.datetime(1601, 1, 1)
    for number, ((moment, status, knots), sensors) in enumerate(zip(fixes, updates)):
        speed = None if knots is None else single(single(knots) * single(1.852))
        ticks = (moment - epoch) // datetime.timedelta(microseconds=1) * 10
        for name, trip in trips.items():
            if status == "A" and speed is not None:
                trip.fix(ticks, speed)
            else:
                trip.lost()
            assert sensors[name] == trip.text, (
                f"update {number} ({moment}), {name}: {sensors[name]!r}, expected {trip.text!r}")
        if speed is not None:
            maximum.see(speed)
        assert sensors["Max speed"] == maximum.text, f"update {number}: {sensors['Max speed']}"

    registry = lines[-1]["registry"]
    expected = {name: trip.state() for name, trip in {**trips, "Max speed": maximum}.items()}
    assert registry == expected, f"{registry}\nexpected\n{expected}"
    for name, state in expected.items():
        print(f"{name}: {state}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
