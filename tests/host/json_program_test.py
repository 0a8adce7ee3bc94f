#!/usr/bin/env python3
"""Reads the JSON of ferolin-host, and holds it against the schema in docs/json.md.

usage: json_program_test.py PROGRAM [unittest arguments]
"""

import json
import pathlib
import re

import jsonschema

from program_test_case import ProgramTestCase, run_tests

from nmea import sentence

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "json.md"
SCHEMA = json.loads(re.search(r"```json\n(.*?)```", PAGE.read_text("utf-8"), re.DOTALL)[1])
KEYS = set(re.findall(r"`(\w+)`", "".join(line.split("|")[1] for line in PAGE.read_text("utf-8").splitlines()
                                         if line.startswith("| `"))))
SPEEDS = (10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 120, 150, 200)
# Of a long drive, one line in so many is held against the schema.
SAMPLE = 20
DISTANCES = (100, 402, 500, 1000, 10000)


def moment(second, knots, altitude, status="A"):
    clock = "0600%05.2f" % second
    return (sentence("GNGGA,%s,5545.0000,N,03736.0000,W,1,08,0.9,%.1f,M,14.0,M,," % (clock, altitude))
            + sentence("GNRMC,%s,%s,5545.0000,N,03736.0000,W,%.3f,090.0,010624,,,A" % (clock, status, knots)))


class JsonTest(ProgramTestCase):
    def lines(self, *arguments, text=None, **environment):
        result = self.run_host("--json", *arguments, text=text, **environment)
        self.assertEqual(result.returncode, 0, result.stderr)
        validator = jsonschema.Draft202012Validator(SCHEMA)
        lines = [json.loads(line) for line in result.stdout.splitlines()]
        for line in [*lines[:-1:SAMPLE if len(lines) > SAMPLE else 1], lines[-1]]:
            validator.validate(line)
            self.assertLessEqual(set(line), KEYS)
        return lines

    def play(self, text, *arguments):
        return self.lines("--nmea", "-", *arguments, text=text)

    def test_fits_the_schema(self):
        for language in ("en", "ru"):
            lines = self.lines("--demo", "--lang", language, "--new-trip")
            self.assertGreater(len(lines), 1000)
            self.assertIs(lines[-1]["end"], True)
            self.assertIn(False, [line["fix"] for line in lines[:-1:SAMPLE]])  # the tunnel

    def test_the_schema_refuses_other_lines(self):
        validator = jsonschema.Draft202012Validator(SCHEMA)
        update, end = self.play(moment(0, 0, 100))
        self.assertTrue(validator.is_valid(update) and validator.is_valid(end))
        for line in ({}, end | {"end": False}, update | {"lat": "55"}, update | {"speed_mps": "18.5 km/h"},
                     update | {"time": "06:00:00"}, {key: update[key] for key in update if key != "text"}):
            self.assertFalse(validator.is_valid(line), line)

    def test_every_language_has_the_same_keys_and_numbers(self):
        text = "".join(moment(second, 10.0 * second, 100) for second in range(5))
        english = self.play(text, "--new-trip", "--lang", "en")
        russian = self.play(text, "--new-trip", "--lang", "ru")
        for one, other in zip(english, russian):
            self.assertNotEqual(one.pop("text", one.pop("registry", None)), other.pop("text", other.pop("registry", None)))
            self.assertEqual(one, other)

    def test_has_the_values_of_the_moment(self):
        # Each update has its own values, also when the position is the last of its moment.
        first, second, third, _ = self.play(
            moment(0, 0, 100) + moment(1.25, 36 / 1.852, 150.5) + moment(2, 36 / 1.852, 151, "V"))
        self.assertEqual(
            {key: second[key] for key in list(second)[:10]},
            {"update": 2, "time": "2024-06-01T06:00:01.250Z", "fix": True, "lat": 55.75, "lon": -37.6, "alt_m": 150.5,
             "speed_mps": 10.0, "course_deg": 90.0, "satellites": 8, "hdop": 0.9})
        self.assertEqual((first["alt_m"], first["speed_mps"]), (100.0, 0.0))
        self.assertEqual(third["time"], "2024-06-01T06:00:02.000Z")
        self.assertEqual([third[key] for key in ("fix", "lat", "lon", "alt_m", "speed_mps", "course_deg")],
                         [False] + 5 * [None])

    def test_has_the_totals_of_the_trip(self):
        # Stands for 10 s, gains 36 km/h in 5 s (25 m), goes on for 15 s (150 m).
        knots = [0] * 11 + [36 / 1.852 * step / 5 for step in range(1, 6)] + [36 / 1.852] * 15
        *_, last, end = self.play("".join(moment(second, speed, 100) for second, speed in enumerate(knots)))
        for line in (last, end):
            self.assertAlmostEqual(line["distance_m"], 175, delta=0.01)
            self.assertEqual((line["elapsed_s"], line["moving_s"], line["stopped_s"]), (30, 20.0, 10.0))
            self.assertAlmostEqual(line["average_speed_mps"], 175 / 30, delta=0.001)
            self.assertAlmostEqual(line["moving_average_speed_mps"], 175 / 20, delta=0.001)
            self.assertAlmostEqual(line["max_speed_mps"], 10, delta=0.001)
            self.assertEqual(list(line["accelerations_s"]), ["0-%d_kmh" % speed for speed in SPEEDS])
            self.assertAlmostEqual(line["accelerations_s"]["0-30_kmh"], 30 / 7.2, delta=0.002)
            self.assertIsNone(line["accelerations_s"]["0-40_kmh"])
            self.assertEqual(list(line["fastest_s"]), ["%d_m" % metres for metres in DISTANCES])
            # Its last 80 m at 10 m/s, before them 16 m in 2 s, and the last 4 of 5 m driven in the second before.
            self.assertAlmostEqual(line["fastest_s"]["100_m"], 10.8, delta=0.01)
            self.assertIsNone(line["fastest_s"]["402_m"])

    def test_goes_on_with_the_trip(self):
        text = "".join(moment(second, 36 / 1.852 if second % 2 else 0, 100) for second in range(11))
        self.play(text)
        *_, end = self.play(text)
        self.assertEqual((end["elapsed_s"], end["moving_s"], end["stopped_s"]), (20, 10.0, 10.0))
        *_, end = self.play(text, "--reset", "elapsed")
        self.assertEqual((end["elapsed_s"], end["moving_s"], end["stopped_s"]), (10, 5.0, 5.0))
        self.assertAlmostEqual(end["distance_m"], 150, delta=0.01)

    def test_knows_the_position_when_nothing_is_converted(self):
        text = moment(0, 36 / 1.852, 100).replace("GN", "GP").replace("060000.00", "060000")
        text = "".join(sentence(line[1:line.index("*")]) for line in text.split("\r\n") if line)
        update, _ = self.play(text, "--raw")
        self.assertEqual([update[key] for key in ("time", "fix", "lat", "lon", "alt_m", "speed_mps")],
                         ["2024-06-01T06:00:00.000Z", True, 55.75, -37.6, 100.0, 10.0])


if __name__ == "__main__":
    run_tests()
