#!/usr/bin/env python3
"""Keeps, lists, exports and deletes drives as a user does, and cuts the power while driving.

usage: drives_program_test.py PROGRAM [unittest arguments]
"""

import contextlib
import csv
import glob
import io
import json
import os
import pty
import resource
import select
import shutil
import signal
import sqlite3
import subprocess
import time
import tty

from program_test_case import PATIENCE, ProgramTestCase, run_tests

from nmea import sentence

NOVEMBER_21 = "211126"
# 17:00:00 UTC.
START = 17 * 3600
KNOTS = 36 / 1.852


def moment(second, status="A", fraction=""):
    """What a receiver sends about this second after START: 36 km/h, northwards."""
    at = START + second
    clock = "%02d%02d%02d%s" % (at // 3600, at // 60 % 60, at % 60, fraction)
    minutes = 10 + second * 0.0054
    place = "55%08.5f,N,03730.00000,E" % minutes if status == "A" else ",,,"
    return (sentence("GPGGA,%s,%s,%d,08,0.9,%.1f,M,14.0,M,,"
                     % (clock, place, status == "A", 150 + second)) +
            sentence("GPRMC,%s,%s,%s,%.3f,000.0,%s,,,A"
                     % (clock, status, place, KNOTS, NOVEMBER_21)))


class DrivesTest(ProgramTestCase):
    def keep(self, text, *arguments, status=0):
        """Plays a recording and keeps it. Returns what was said."""
        result = self.run_host("--nmea", "-", "--keep", "--json", *arguments, text=text)
        self.assertEqual(result.returncode, status, result.stderr)
        return result.stderr

    def drives(self):
        """Lines of the list without the headings."""
        result = self.run_host("drives")
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout.splitlines()[1:]

    def query(self, sql):
        path = os.path.join(self.home, "drives.db")
        with contextlib.closing(sqlite3.connect(path)) as connection:
            return connection.execute(sql).fetchall()


class Keeping(DrivesTest):
    def test_a_recording_is_kept_when_asked_for(self):
        said = self.keep("".join(moment(second) for second in range(11)))
        self.assertIn("kept as drive 1: 100 m in 0:00:10", said)
        self.assertEqual(self.drives(), [
            "    1  2026-11-21 17:00   0:00:10      100 m   36.0 km/h   36.0 km/h   36.0 km/h   0:00:00"])

    def test_a_recording_is_kept_when_raw_too(self):
        broken = moment(4).replace("A,", "V,")  # with checksums that are wrong now
        said = self.keep("".join(moment(second) for second in range(11)) + broken, "--raw")
        self.assertIn("kept as drive 1: 100 m in 0:00:10", said)

    def test_a_recording_is_not_kept_otherwise(self):
        self.run_host("--nmea", "-", "--json", text=moment(0))
        self.assertFalse(os.path.exists(os.path.join(self.home, "drives.db")))
        result = self.run_host("drives")
        self.assertEqual(result.returncode, 1)
        self.assertIn("no drive was kept yet", result.stderr)

    def test_keeps_what_the_receiver_said(self):
        self.keep(moment(0, fraction=".25") + moment(1, status="V"))
        rows = self.query("SELECT * FROM positions ORDER BY number")
        # 21 November 2026 is day 20,778 after 1970.
        time_ms = (20778 * 86400 + START) * 1000
        # 19.438 knots.
        speed = 19.438 * 1.852
        self.assertEqual(rows, [
            (1, 1, time_ms + 250, 1, 55 + 10 / 60, 37.5, 150.0, speed, 0.0, 0.9, 8),
            (1, 2, time_ms + 1000, 0, None, None, 151.0, speed, 0.0, 0.9, 8)])

    def test_a_loss_gives_exit_status_1(self):
        def limit_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (65536, 65536))

        # The settings fit into a file of that size, a drive of 3,000 positions does not.
        result = subprocess.run(
            self.command("--nmea", "-", "--keep", "--json"),
            input="".join(moment(second) for second in range(3000)), stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE, encoding="utf-8", timeout=PATIENCE, check=False,
            env=self.environment(), preexec_fn=limit_files, restore_signals=False)
        self.assertRegex(result.stderr, r"[1-9]\d* (more )?positions could not be written")
        self.assertNotIn("settings were not kept", result.stderr)
        self.assertEqual(result.returncode, 1, result.stderr)

    def test_without_a_fix_there_is_no_entry(self):
        said = self.keep("".join(moment(second, status="V") for second in range(5)), status=1)
        self.assertNotIn("kept", said)
        self.assertEqual(self.drives(), [])

    def test_agrees_with_the_trip(self):
        result = self.run_host("--keep", "--json")
        end = json.loads(result.stdout.splitlines()[-1])
        kept, = self.query("SELECT distance_km, highest_kmh FROM drives")
        self.assertAlmostEqual(kept[0], float(end["registry"]["Distance"]), delta=kept[0] / 1000)
        self.assertAlmostEqual(kept[1], float(end["registry"]["Max speed"]), places=2)


class Database(DrivesTest):
    def check_not_kept(self, words):
        """The run goes on; the user is told once, and by the exit status."""
        result = self.run_host("--nmea", "-", "--keep", "--json", text=moment(0) + moment(1))
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertEqual(len(result.stdout.splitlines()), 3)
        self.assertEqual(result.stderr.count("this drive is not kept: "), 1)
        self.assertIn(words, result.stderr)

    def database(self):
        os.makedirs(self.home, exist_ok=True)
        return os.path.join(self.home, "drives.db")

    def test_a_damaged_one_is_put_aside(self):
        with open(self.database(), "wb") as file:
            file.write(b"damaged" * 1000)
        said = self.keep(moment(0) + moment(1), status=1)
        self.assertRegex(said, r"drives\.db is damaged: file is not a database; it is called "
                               r"drives-damaged-[\d-]{17}\.db now")
        self.assertIn("kept as drive 1: 10 m", said)
        aside, = glob.glob(os.path.join(self.home, "drives-damaged-*.db"))
        with open(aside, "rb") as file:
            self.assertEqual(file.read(), b"damaged" * 1000)
        self.assertEqual(len(self.drives()), 1)

    def test_one_that_is_damaged_further_on_is_put_aside(self):
        self.keep(moment(0))
        with open(self.database(), "r+b") as file:
            file.seek(1024)
            file.write(b"x" * (os.path.getsize(self.database()) - 1024))
        said = self.keep(moment(0) + moment(1), status=1)
        self.assertIn("drives.db is damaged: database disk image is malformed", said)
        self.assertIn("kept as drive 1: 10 m", said)

    def test_one_of_a_newer_version_is_left_alone(self):
        with contextlib.closing(sqlite3.connect(self.database())) as connection:
            connection.execute("PRAGMA user_version = 99")
        self.check_not_kept("is of a newer version of this program")
        self.assertEqual(self.query("PRAGMA user_version"), [(99,)])

    def test_a_folder_in_its_place(self):
        os.makedirs(self.database())
        self.check_not_kept("unable to open database file")


class Commands(DrivesTest):
    def setUp(self):
        super().setUp()
        self.keep("".join(moment(second) for second in range(5)) + moment(5, status="V") +
                  "".join(moment(second) for second in range(6, 10)))

    def read_back(self, form, name, *options):
        """Points of the export as gpsbabel reads it: latitude, longitude, altitude, time."""
        result = self.run_host("export", "last", "--" + name, self.path("drive"))
        self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)
        table = subprocess.run(
            ["gpsbabel", "-t", "-i", form, "-f", self.path("drive"), *options, "-o",
             "unicsv,utc=0,prec=8", "-F", "-"],
            capture_output=True, encoding="utf-8", timeout=PATIENCE, check=True).stdout
        return list(csv.DictReader(io.StringIO(table)))

    def check_points(self, rows, with_times=True):
        seconds = [0, 1, 2, 3, 4, 6, 7, 8, 9]
        self.assertEqual(len(rows), len(seconds))
        for row, second in zip(rows, seconds):
            self.assertAlmostEqual(float(row["Latitude"]), 55 + (10 + second * 0.0054) / 60,
                                   places=7)
            self.assertAlmostEqual(float(row["Longitude"]), 37.5, places=7)
            if with_times:
                self.assertEqual(float(row["Altitude"]), 150 + second)
                self.assertEqual((row["Date"], row["Time"]),
                                 ("2026/11/21", "17:00:%02d" % second))

    def test_gpx_is_read_back(self):
        self.check_points(self.read_back("gpx", "gpx"))

    def test_kml_is_read_back(self):
        self.check_points(self.read_back("kml", "kml"))

    def test_the_table_is_read_back_with_speeds(self):
        rows = self.read_back("unicsv,utc=0", "csv")
        self.check_points(rows)
        self.assertEqual({row["Speed"] for row in rows}, {"10.00"})

    def test_geojson_is_read_back(self):
        # gpsbabel takes neither altitudes nor times from it.
        self.check_points(self.read_back("geojson", "geojson"), with_times=False)

    def test_exports_to_standard_output(self):
        gpx = self.run_host("export", "1").stdout
        self.assertEqual(gpx, self.run_host("export", "all", "--gpx", "-").stdout)
        self.assertEqual(gpx.count("<trkseg>"), 2)

    def test_refuses_a_drive_that_is_not_there(self):
        result = self.run_host("export", "2")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("there is no drive 2", result.stderr)

    def test_deletes_only_after_a_yes(self):
        result = self.run_host("drives", "delete", "1", text="n\n")
        self.assertEqual(result.returncode, 0)
        self.assertIn("Delete drive 1 of 21 Nov, 70 m? [y/N] ", result.stderr)
        self.assertEqual(self.run_host("drives", "delete", "1").returncode, 1)
        self.assertEqual(len(self.drives()), 1)
        result = self.run_host("drives", "delete", "1", text="y\n")
        self.assertIn("deleted drive 1", result.stderr)
        self.assertEqual(self.drives(), [])
        self.assertEqual(self.query("SELECT count(*) FROM positions"), [(0,)])

    def test_deletes_without_asking_when_told_so(self):
        self.assertEqual(self.run_host("drives", "delete", "1", "--yes").returncode, 0)
        self.assertEqual(self.drives(), [])


class PowerCut(DrivesTest):
    """A receiver at a serial port, played by a pseudo-terminal."""

    def setUp(self):
        super().setUp()
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        self.addCleanup(os.close, self.master)
        self.addCleanup(os.close, self.slave)
        self.device = os.ttyname(self.slave)

    def start(self, *arguments, **environment):
        process = subprocess.Popen(self.command("--port", self.device, "--json", *arguments),
                                   env=self.environment(**environment), stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def drive(self, process, seconds, pace=0.1):
        """Sends these moments, the first one until it is read. Returns the last read-outs."""
        update = None
        for second in seconds:
            os.write(self.master, moment(second).encode())
            deadline = time.monotonic() + PATIENCE
            while not select.select([process.stdout], [], [], 2)[0]:
                self.assertLess(time.monotonic(), deadline)
                os.write(self.master, moment(second).encode())
            update = json.loads(process.stdout.readline())["text"]
            time.sleep(pace)
        return update

    def wait_for_positions(self, count):
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            try:
                if self.query("SELECT count(*) FROM positions")[0][0] >= count:
                    return
            except sqlite3.OperationalError:
                pass
            time.sleep(0.05)
        self.fail("positions are not kept")

    def test_a_drive_that_is_cut_off_is_kept(self):
        process = self.start()
        self.drive(process, range(21), pace=0)
        self.wait_for_positions(21)
        process.kill()
        process.wait()
        self.assertEqual(self.drives(), [
            "    1  2026-11-21 17:00   0:00:20      200 m   36.0 km/h   36.0 km/h   36.0 km/h   0:00:00  (not ended)"])
        result = self.run_host("drives", "delete", "1", "--yes")
        self.assertEqual(result.returncode, 1)
        self.assertIn("has not ended", result.stderr)

        process = self.start(TZ="XST-3")
        self.drive(process, range(30, 31))
        said = self.stop(process)
        self.assertIn("the drive of 21 Nov, 200 m, ended without warning at 20:00:20, or the disk took no more then; kept", said)
        self.assertIn("kept as drive 2", said)
        self.assertEqual(len(self.drives()), 2)
        self.assertNotIn("not ended", "".join(self.drives()))

    def stop(self, process):
        """Ends it as Ctrl-C does. Returns what was said."""
        process.send_signal(signal.SIGTERM)
        _, said = process.communicate(timeout=PATIENCE)
        self.assertEqual(process.returncode, 0, said)
        return said.decode()

    def wait_for_trip(self, km):
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            try:
                for states, in self.query("SELECT states FROM trips"):
                    distance = dict(line.split(" ", 1) for line in states.splitlines())["6"]
                    if float(distance) > km:
                        return
            except sqlite3.OperationalError:
                pass
            time.sleep(0.05)
        self.fail("the trip is not kept")

    def test_the_trip_goes_on_after_it(self):
        process = self.start()
        # The trip is kept with the first position after a second.
        self.drive(process, range(20), pace=0)
        time.sleep(1.1)
        self.drive(process, range(20, 21))
        self.wait_for_trip(0.195)
        process.kill()
        process.wait()
        older = self.path("older")
        shutil.copytree(self.home, older)
        process = self.start()
        update = self.drive(process, range(30, 33))
        self.assertEqual(update["Distance"], "220 m")
        self.assertIn("continuing the trip of the last run, 200 m", self.stop(process))
        # It goes on from the settings file as well, which is newer now than the copy of before.
        for name in glob.glob(os.path.join(self.home, "drives.db*")):
            os.remove(name)
        for name in glob.glob(os.path.join(older, "drives.db*")):
            shutil.copy(name, self.home)
        process = self.start()
        self.assertEqual(self.drive(process, range(40, 41))["Distance"], "220 m")
        self.stop(process)

    def test_choices_are_kept(self):
        process = self.start("--limit", "77:3", "--mirror", "--shot", self.path("shot.png"), "--beep-on-zero", "--sms-to", "+111",
                             "--sms-text", "%Speed%", "--theme", "night")
        self.drive(process, range(1))
        backup = os.path.join(self.home, "unsaved-choices.json")
        self.assertTrue(os.path.exists(backup))
        process.kill()
        process.wait()

        process = subprocess.Popen(self.command("--port", "--json"), env=self.environment(),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        self.drive(process, range(1, 2))
        self.assertIn("what was chosen in the last run, which ended without warning, is kept",
                      self.stop(process))
        for line in ("Device=" + self.device, "Mirror=1", "Limit1=77", "LimitInter1=3",
                     "UseSound1=true", "BeepOnZero=true", "Address=+111", "Text=%Speed%", "Theme=night", "ThemeTaken=night"):
            self.assertIn(line, self.settings())
        self.assertFalse(os.path.exists(backup))

    def test_nothing_is_backed_up_that_the_settings_have(self):
        self.stop_after_a_position("--limit", "77:3")
        process = self.start()
        self.drive(process, range(1))
        self.assertFalse(os.path.exists(os.path.join(self.home, "unsaved-choices.json")))

    def stop_after_a_position(self, *arguments):
        process = self.start(*arguments)
        self.drive(process, range(1))
        self.stop(process)

    def test_not_more_than_three_seconds_are_lost(self):
        process = self.start()
        sent = 0
        self.drive(process, range(1))
        started = time.monotonic()
        # Ten a second, so that the seconds are those of the loss.
        while time.monotonic() < started + 4:
            sent += 1
            os.write(self.master, moment(sent).encode())
            time.sleep(0.1)
        process.kill()
        process.wait()
        kept, = self.query("SELECT count(*) FROM positions")[0]
        self.assertGreaterEqual(kept, sent - 30)
        self.assertEqual(self.query("PRAGMA integrity_check"), [("ok",)])


if __name__ == "__main__":
    run_tests()
