#!/usr/bin/env python3
"""Runs ferolin-host as a user does and looks at what comes out.

usage: host_program_test.py PROGRAM [unittest arguments]
"""

import fcntl
import json
import os
import pty
import re
import resource
import select
import signal
import struct
import subprocess
import termios
import time
import tty
import xml.etree.ElementTree

from program_test_case import PATIENCE, ProgramTestCase, run_tests

import nmea

TCGETS2 = 0x802C542A

NAMES = [
    "GPS status", "Sattelites used", "Current time", "Fastest 100m", "Fastest 402m",
    "Fastest 1000m", "Distance", "Elapsed", "Average speed", "Speed", "Max speed",
    "Accel. 0-10 km/h", "Accel. 0-30 km/h", "Accel. 0-60 km/h", "Accel. 0-100 km/h",
    "Accel. 0-150 km/h", "Accel. 0-200 km/h", "Latitude", "Longitude", "Altitude", "Azimuth",
    "HDOP", "VDOP", "PDOP", "Battery status", "Fastest 500m", "Fastest 10000m",
    "Accel. 0-20 km/h", "Accel. 0-40 km/h", "Accel. 0-50 km/h", "Accel. 0-70 km/h",
    "Accel. 0-80 km/h", "Accel. 0-90 km/h", "Accel. 0-120 km/h",
]
SAVEABLE = [name for name in NAMES
            if name.startswith(("Fastest", "Accel.", "Distance", "Elapsed", "Average", "Max"))]


def sentence(body):
    return nmea.sentence(body, end="")


def clock(second):
    return "%02d%02d%02d" % (second // 3600, second // 60 % 60, second % 60)


def rmc(second, knots, talker="GP", fraction="", status="A", date="010624"):
    return sentence("%sRMC,%s%s,%s,5545.0000,N,03736.0000,E,%.2f,090.0,%s,,,A"
                    % (talker, clock(second), fraction, status, knots, date))


def gga(second, talker="GP", altitude=150.0):
    return sentence("%sGGA,%s,5545.0000,N,03736.0000,E,1,08,0.9,%.1f,M,14.0,M,,"
                    % (talker, clock(second), altitude))


def recording(speeds, end="\r\n", **options):
    """One GGA and one RMC for each speed in knots, a second apart, from 06:00:00 UTC on."""
    lines = []
    for second, knots in enumerate(speeds):
        talker = options.get("talker", "GP")
        lines.append(gga(21600 + second, talker))
        lines.append(rmc(21600 + second, knots, **options))
    return "".join(line + end for line in lines)


class HostTest(ProgramTestCase):
    def start_host(self, *arguments, **options):
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        options.setdefault("stdin", subprocess.DEVNULL)
        environment = self.environment(**options.pop("environment", {}))
        process = subprocess.Popen(self.command(*arguments), env=environment, **options)
        self.addCleanup(self.end, process)
        return process

    def write(self, text, name="drive.nmea"):
        path = self.path(name)
        with open(path, "w", encoding="ascii", newline="") as file:
            file.write(text)
        return path

    def replay(self, text, *arguments, **environment):
        """Plays a recording. Returns its updates, the registry of the end and the messages."""
        return self.play("--nmea", self.write(text), *arguments, **environment)

    def play(self, *arguments, **environment):
        result = self.run_host("--json", *arguments, **environment)
        # A recording without a position is a failure.
        hasNone = "no position was found" in result.stderr
        self.assertEqual(result.returncode, 1 if hasNone else 0, result.stderr)
        lines = [json.loads(line) for line in result.stdout.splitlines()]
        *updates, end = lines
        self.assertEqual([update["update"] for update in updates],
                         list(range(1, len(updates) + 1)))
        self.assertIs(end["end"], True)
        self.assertEqual(end["updates"], len(updates))
        return [update["text"] for update in updates], end["registry"], result.stderr


class Demo(HostTest):
    def test_ends_by_itself_and_shows_every_read_out(self):
        updates, registry, _ = self.play()
        self.assertGreater(len(updates), 1000)
        for sensors in updates:
            self.assertEqual(list(sensors), NAMES)
        self.assertEqual(list(registry), SAVEABLE)

    def test_is_a_drive_with_stops_a_tunnel_and_a_motorway(self):
        updates, registry, _ = self.play("--demo")
        speeds = [sensors["Speed"] for sensors in updates]
        self.assertEqual(speeds[0], "0.0 km/h")
        self.assertGreater(speeds.count("0.0 km/h"), 60)
        tunnel = [sensors for sensors in updates if sensors["GPS status"] == "No signal"]
        self.assertGreater(len(tunnel), 20)
        self.assertEqual({sensors["Sattelites used"] for sensors in tunnel}, {"0"})
        self.assertEqual({sensors["Speed"] for sensors in tunnel}, {""})
        self.assertRegex(updates[-1]["Accel. 0-100 km/h"], r"^1[01]\.\d\d s$")
        self.assertGreater(float(registry["Max speed"]), 130)

    def test_is_quiet_and_line_wise_when_nobody_watches(self):
        result = self.run_host()
        self.assertEqual(result.returncode, 0)
        self.assertNotIn("\x1b", result.stdout)
        lines = result.stdout.splitlines()
        self.assertLess(len(lines), 60)
        self.assertTrue(any(line.startswith("Max speed ") for line in lines))
        self.assertIn("updates in", result.stderr)

    def test_says_the_same_every_time(self):
        first = self.play("--new-trip")
        second = self.play("--new-trip")
        self.assertEqual(first[:2], second[:2])


class Recording(HostTest):
    def test_makes_one_line_of_every_rmc(self):
        updates, registry, _ = self.replay(recording([10.0] * 3000))
        self.assertEqual(len(updates), 3000)
        # 10 knots are 18.52 km/h, which make 15.428 km in 2999 s.
        self.assertEqual(updates[0]["Speed"], "18.5 km/h")
        self.assertEqual(updates[0]["Current time"], "6:00:00")
        self.assertEqual(updates[0]["Latitude"], "55°45'0'' NL")
        self.assertEqual(updates[0]["Altitude"], "150.0 m")
        self.assertEqual(updates[0]["Sattelites used"], "8")
        self.assertEqual(updates[-1]["Current time"], "6:49:59")
        self.assertEqual(updates[-1]["Distance"], "15.4 km")
        self.assertEqual(registry["Elapsed"], "2999")

    def test_keeps_pace_with_the_time_stamps(self):
        started = time.monotonic()
        updates, _, _ = self.replay(recording([10.0] * 6), "--rate", "5")
        self.assertEqual(len(updates), 6)
        # Five steps of a second at five times the speed take at least a second.
        self.assertGreaterEqual(time.monotonic() - started, 1.0)

    def test_measures_an_acceleration_at_ten_positions_a_second(self):
        # Starts at 0.3 s and gains 10 km/h a second: 100 km/h after exactly ten seconds.
        text = "".join(
            rmc(21600 + tenth // 10, max(tenth - 3, 0) / 1.852, fraction=".%d" % (tenth % 10))
            + "\r\n" for tenth in range(120))
        updates, _, _ = self.replay(text)
        self.assertEqual(len(updates), 120)
        self.assertEqual(updates[-1]["Accel. 0-100 km/h"], "10.00 s")

    def test_takes_line_feeds_alone_for_line_ends(self):
        updates, _, _ = self.replay(recording([10.0] * 5, end="\n"))
        self.assertEqual(len(updates), 5)

    def test_passes_line_feeds_alone_untouched_when_raw(self):
        updates, _, said = self.replay(recording([10.0] * 5, end="\n"), "--raw")
        self.assertEqual(len(updates), 0)
        self.assertIn("no position was found", said)

    def test_drops_and_counts_what_is_no_sentence(self):
        text = "****** program startup ******\r\n\r\n" + recording([10.0] * 3) + "bye\r\n"
        updates, _, said = self.replay(text)
        self.assertEqual(len(updates), 3)
        self.assertIn("they are no sentences: 2", said)

    def test_takes_an_epoch_larger_than_the_engines_buffer(self):
        noise = "".join(sentence("GPGLL,5545.0000,N,03736.0000,E,%s,A" % clock(i)) + "\r\n"
                        for i in range(200))
        text = "".join(noise + rmc(21600 + i, 10.0 + i) + "\r\n" for i in range(4))
        updates, _, _ = self.replay(text)
        self.assertEqual([sensors["Speed"] for sensors in updates],
                         ["18.5 km/h", "20.4 km/h", "22.2 km/h", "24.1 km/h"])

    def test_ends_without_updates_when_there_is_no_rmc(self):
        updates, _, said = self.replay("".join(gga(i) + "\r\n" for i in range(100)))
        self.assertEqual(updates, [])
        self.assertIn("no position was found: the engine needs RMC sentences, and there are none",
                      said)

    def test_fails_when_the_receiver_had_no_position(self):
        void = sentence("GPRMC,060000,V,,,,,,,010624,,,N") + "\r\n"
        result = self.run_host("--json", "--nmea", self.write(void * 3))
        self.assertEqual(result.returncode, 1)
        self.assertIn("no position was found: the receiver had none", result.stderr)

    def test_ends_at_once_when_empty(self):
        updates, _, _ = self.replay("")
        self.assertEqual(updates, [])

    def test_reads_standard_input(self):
        result = self.run_host("--nmea", "-", "--json", text=recording([10.0] * 4))
        self.assertEqual(result.returncode, 0)
        self.assertEqual(len(result.stdout.splitlines()), 5)


class Bridge(HostTest):
    def test_makes_other_talkers_and_fractions_what_the_engine_takes(self):
        updates, _, said = self.replay(recording([10.0] * 4, talker="GN", fraction=".25"))
        self.assertEqual(len(updates), 4)
        self.assertEqual([sensors["Current time"] for sensors in updates],
                         ["6:00:00", "6:00:01", "6:00:02", "6:00:03"])
        self.assertEqual(updates[0]["Sattelites used"], "8")
        self.assertEqual(said.count("sends sentences of GN"), 1)
        self.assertEqual(said.count("fractions of seconds are cut"), 1)
        self.assertIn("other talkers read as GP: 8", said)

    def test_says_nothing_when_there_is_nothing_to_do(self):
        _, _, said = self.replay(recording([10.0] * 4))
        self.assertNotIn("read as GP", said)
        self.assertNotIn("cut", said)

    def test_leaves_them_alone_when_raw(self):
        updates, _, said = self.replay(recording([10.0] * 4, talker="GN"), "--raw")
        self.assertEqual(updates, [])
        self.assertNotIn("read as GP", said)

    def test_raw_takes_the_times_of_the_recording_even_so(self):
        # The engine takes its own clock's time, which follows the recording.
        updates, _, _ = self.replay(recording([10.0] * 4, fraction=".25"), "--raw")
        self.assertEqual([sensors["Current time"] for sensors in updates],
                         ["6:00:00", "6:00:01", "6:00:02", "6:00:03"])

    def test_keeps_the_speed_right_beside_a_vtg(self):
        vtg = sentence("GPVTG,090.0,T,080.0,M,010.0,N,018.5,K,A") + "\r\n"
        text = "".join(rmc(21600 + i, 10.0) + "\r\n" + vtg for i in range(3))
        updates, registry, said = self.replay(text)
        self.assertEqual({sensors["Speed"] for sensors in updates}, {"18.5 km/h"})
        self.assertAlmostEqual(float(registry["Max speed"]), 18.52, places=3)
        self.assertIn("VTG speeds moved: 3", said)


class Damage(HostTest):
    """What a damaged sentence does to the trip: ten seconds at 36 km/h are 100 m."""

    KNOTS = 36 / 1.852

    def replay_with(self, *damaged, at=5):
        """The trip with these sentences instead of the one of second `at`."""
        lines = [rmc(21600 + second, self.KNOTS) for second in range(11)]
        lines[at:at + 1] = damaged
        return self.replay("".join(line + "\r\n" for line in lines))

    def check_dropped(self, damaged, words):
        updates, registry, said = self.replay_with(damaged)
        self.assertEqual(len(updates), 10)
        self.assertAlmostEqual(float(registry["Distance"]), 0.1, places=4)
        self.assertEqual(registry["Elapsed"], "10")
        self.assertAlmostEqual(float(registry["Max speed"]), 36, places=1)
        self.assertIn("a damaged sentence was dropped (%s)" % words, said)
        self.assertIn("1 sentence was dropped: 1 with", said)

    def test_a_wrong_checksum_stays_out(self):
        self.check_dropped(rmc(21605, 90.0)[:-2] + "00", "wrong checksum")

    def test_a_date_that_does_not_exist_stays_out(self):
        self.check_dropped(rmc(21605, 10.0, date="310224"), "a date that does not exist")

    def test_a_time_that_does_not_exist_stays_out(self):
        self.check_dropped(rmc(25 * 3600, 10.0), "a time that does not exist")

    def test_a_speed_that_cannot_be_stays_out(self):
        self.check_dropped(rmc(21605, 1100.0), "a speed that cannot be")

    def test_a_position_that_does_not_exist_stays_out(self):
        body = rmc(21605, 10.0).replace("5545.0000", "9145.0000")[1:].partition("*")[0]
        self.check_dropped(sentence(body), "a position that does not exist")

    def test_control_characters_stay_out(self):
        self.check_dropped(rmc(21605, 10.0).replace("A,5545", "A,\x0055"),
                           "characters that no sentence has")

    def test_is_told_once_and_summed_up(self):
        wrong = rmc(21605, 10.0)[:-2] + "00"
        _, _, said = self.replay_with(wrong, wrong, rmc(21605, 10.0, date="010024"))
        self.assertEqual(said.count("(wrong checksum); more are only counted"), 1)
        self.assertIn("3 sentences were dropped: 2 with a wrong checksum, "
                      "1 with a date that does not exist", said)

    def test_without_a_checksum_a_sentence_is_sound(self):
        updates, _, said = self.replay_with(rmc(21605, 10.0).partition("*")[0] + ",")
        self.assertEqual(len(updates), 11)
        self.assertNotIn("dropped", said)

    def test_goes_through_when_raw(self):
        text = rmc(21605, 1100.0)[:-2] + "00\r\n"
        updates, _, said = self.replay(text, "--raw")
        self.assertEqual(updates[0]["Speed"], "2037.2 km/h")
        self.assertNotIn("dropped", said)


class ClockJump(HostTest):
    """What a jump of the receiver's clock does to the trip: each second at 36 km/h makes 10 m."""

    KNOTS = 36 / 1.852

    def check_trip(self, moments, metres, seconds, jumps):
        """Fixes at these moments: seconds of the day and dates."""
        text = "".join(rmc(second, self.KNOTS, date=date) + "\r\n" for second, date in moments)
        updates, registry, said = self.replay(text)
        self.assertEqual(len(updates), len(moments) + jumps)
        self.assertAlmostEqual(float(registry["Distance"]), metres / 1000, delta=metres / 1e6)
        self.assertEqual(registry["Elapsed"], str(seconds))
        self.assertEqual(registry["Average speed"].partition(";")[2], str(seconds))
        self.assertEqual(said.count("the receiver's clock jumped"), 1 if jumps > 0 else 0)
        self.assertEqual("jumps of the receiver's clock: %d" % jumps in said, jumps > 0)

    def test_one_wrong_date_adds_nothing(self):
        moments = [(21600 + i, "010624") for i in range(11)]
        moments[5] = (21605, "010654")
        # Without the steps to the wrong one and back.
        self.check_trip(moments, 80, 8, 2)

    def test_a_rollover_at_the_start_adds_nothing(self):
        moments = [(21600 + i, "161004" if i < 3 else "010624") for i in range(11)]
        self.check_trip(moments, 90, 9, 1)

    def test_a_clock_of_1980_at_the_start_adds_nothing(self):
        moments = [(21600 + i, "060180" if i < 3 else "010624") for i in range(11)]
        self.check_trip(moments, 90, 9, 1)

    def test_a_step_back_of_a_minute_adds_nothing(self):
        moments = [(21600 + i - (60 if i > 4 else 0), "010624") for i in range(11)]
        self.check_trip(moments, 90, 9, 1)

    def test_a_gap_of_reception_is_counted_as_before(self):
        # 36 km in an hour, and 10 m in each of four more seconds.
        moments = [(second, "010624") for second in (21600, 21601, 21602, 25202, 25203, 25204)]
        self.check_trip(moments, 36040, 3604, 0)

    def test_midnight_is_no_jump(self):
        moments = [(86398, "311223"), (86399, "311223"), (0, "010124"), (1, "010124")]
        self.check_trip(moments, 30, 3, 0)

    def test_a_step_back_makes_no_record(self):
        # 0 to 100 km/h in twenty seconds, of which the clock hides ten.
        kmh = [0, 0] + [5 * i for i in range(1, 24)]
        text = "".join(rmc(21600 + i - (10 if i > 11 else 0), speed / 1.852) + "\r\n"
                       for i, speed in enumerate(kmh))
        registry = self.replay(text)[1]
        self.assertNotEqual(registry["Accel. 0-30 km/h"], "30;-9999")
        self.assertEqual(registry["Accel. 0-100 km/h"], "100;-9999")

    def test_keeps_the_figures_of_the_trip_before(self):
        first = [(21600 + i, "010624") for i in range(11)]
        self.check_trip(first, 100, 10, 0)
        again = [(21600 + i, "010634") for i in range(4)] + [(21600 + i, "010624") for i in range(4)]
        self.check_trip(again, 160, 16, 1)

    def test_is_left_alone_when_raw(self):
        text = "".join(rmc(21600 + i, self.KNOTS, date=date) + "\r\n"
                       for i, date in enumerate(["010623", "010624"]))
        updates, registry, said = self.replay(text, "--raw")
        self.assertEqual(len(updates), 2)
        self.assertGreater(float(registry["Distance"]), 300000)
        self.assertNotIn("jump", said)


class Language(HostTest):
    def check_russian(self, updates):
        self.assertEqual(updates[-1]["Скорость"], "18.5 км/ч")
        self.assertEqual(updates[-1]["Статус GPS"], "OK")
        self.assertEqual(updates[-1]["Широта"], "55°45'0'' NL")
        self.assertIn("Разгон 0-100 км/ч", updates[-1])

    def test_is_russian_when_asked_for(self):
        updates, registry, _ = self.replay(recording([10.0] * 3), "--lang", "ru")
        self.check_russian(updates)
        self.assertAlmostEqual(float(registry["Максимальная скорость"]), 18.52, places=3)

    def test_is_russian_in_a_russian_environment_and_keeps_decimal_points(self):
        updates, _, _ = self.replay(recording([10.0] * 3), LC_ALL="ru_RU.UTF-8")
        self.check_russian(updates)

    def test_is_english_in_a_russian_environment_when_asked_for(self):
        updates, _, _ = self.replay(recording([10.0] * 3), "--lang", "en", LC_ALL="ru_RU.UTF-8")
        self.assertEqual(updates[-1]["Speed"], "18.5 km/h")

    def test_keeps_decimal_points_where_commas_are_usual(self):
        updates, _, _ = self.replay(recording([10.0] * 3), LC_ALL="de_DE.UTF-8")
        self.assertEqual(updates[-1]["Speed"], "18.5 km/h")


class TripTest(HostTest):
    def distance(self, *arguments):
        # 10 s at 36 km/h are 100 m.
        return float(self.replay(recording([36 / 1.852] * 11), *arguments)[1]["Distance"])

    def test_goes_on_after_a_restart(self):
        self.assertAlmostEqual(self.distance(), 0.1, places=4)
        updates, registry, said = self.replay(recording([36 / 1.852] * 11))
        self.assertIn("continuing the trip of the last run, 100 m", said)
        self.assertEqual(updates[0]["Distance"], "100 m")
        self.assertAlmostEqual(float(registry["Distance"]), 0.2, places=4)
        self.assertEqual(registry["Elapsed"], "20")

    def test_that_went_nowhere_is_told_without_a_distance(self):
        # A single position has a speed but no distance.
        self.replay(recording([36 / 1.852]))
        self.assertIn("continuing the trip of the last run (--new-trip",
                      self.replay(recording([0.0]))[2])

    def test_starts_over_when_asked_for(self):
        self.distance()
        self.assertAlmostEqual(self.distance("--new-trip"), 0.1, places=4)
        self.assertAlmostEqual(self.distance(), 0.2, places=4)

    def test_goes_on_in_another_language(self):
        self.distance()
        _, registry, _ = self.replay(recording([36 / 1.852] * 11), "--lang", "ru")
        self.assertAlmostEqual(float(registry["Пройденный путь"]), 0.2, places=4)

    def test_of_recordings_is_not_that_of_the_demo(self):
        self.distance()
        _, registry, said = self.play("--demo")
        self.assertNotIn("continuing", said)
        self.assertGreater(float(registry["Distance"]), 10)
        self.assertAlmostEqual(self.distance(), 0.2, places=4)

    def test_one_figure_starts_over_by_name(self):
        self.distance()
        _, registry, _ = self.replay(recording([36 / 1.852] * 11), "--reset", "distance")
        self.assertAlmostEqual(float(registry["Distance"]), 0.1, places=4)
        self.assertEqual(registry["Elapsed"], "20")

    def test_an_unknown_figure_is_refused(self):
        result = self.run_host("--reset", "Warp factor")
        self.assertEqual(result.returncode, 2)
        self.assertIn('no "Warp factor" (read-outs: GPS status, ', result.stderr)
        result = self.run_host("--reset", "max sped")
        self.assertIn('no "max sped"; did you mean Max speed?', result.stderr)


class Extras(HostTest):
    def test_writes_and_reports_the_route(self):
        text = "".join(
            gga(21600 + i, altitude=150 + i) + "\r\n" +
            sentence("GPRMC,%s,A,55%07.4f,N,037%07.4f,E,10.0,045.0,010624,,,A"
                     % (clock(21600 + i), 45 + i / 100, 36 + i / 100)) + "\r\n"
            for i in range(5))
        folder = self.path("new", "tracks")
        _, _, said = self.replay(text, "--kml", folder)
        path = os.path.join(folder, "Track0001.kml")
        self.assertIn("track written to " + path, said)
        points = xml.etree.ElementTree.parse(path).getroot().findtext(".//{*}coordinates").split()
        self.assertEqual(len(points), 5)
        # The folder is remembered.
        _, _, said = self.replay(text, "--kml")
        self.assertIn(os.path.join(folder, "Track0002.kml"), said)

    def test_writes_the_route_at_home_at_first(self):
        _, _, said = self.replay(recording([10.0] * 3), "--kml")
        self.assertIn(os.path.join(os.path.realpath(self.home), "Tracks", "Track0001.kml"), said)

    def test_tells_that_there_was_nothing_to_write(self):
        _, _, said = self.replay("", "--kml")
        self.assertIn("no track written: there was no position", said)

    def test_tells_that_all_names_of_tracks_are_taken(self):
        folder = self.path("tracks")
        os.makedirs(folder)
        for number in range(1, 10000):
            with open(os.path.join(folder, "Track%04d.kml" % number), "wb"):
                pass
        result = self.run_host("--json", "--nmea", self.write(recording([10.0] * 3)), "--kml", folder)
        self.assertEqual(result.returncode, 1)
        self.assertIn("no track written: all 9,999 names are taken in " + os.path.realpath(folder),
                      result.stderr)
        self.assertNotIn("track written to", result.stderr)

    def test_tells_that_the_track_is_cut_off(self):
        # The track needs 150 KB, and no file may have more than 100: as good as a full disk.
        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (100000, 100000))

        text = "".join(
            gga(21600 + i, altitude=150 + i) + "\r\n" +
            sentence("GPRMC,%s,A,55%07.4f,N,037%07.4f,E,10.0,045.0,010624,,,A"
                     % (clock(21600 + i), i / 100, i / 100)) + "\r\n"
            for i in range(4000))
        folder = self.path("tracks")
        arguments = self.command("--nmea", self.write(text), "--kml", folder)
        result = subprocess.run(arguments, env=self.environment(), preexec_fn=limit,
                                capture_output=True, encoding="utf-8", timeout=PATIENCE, check=False)
        self.assertEqual(result.returncode, 1)
        path = os.path.join(os.path.realpath(folder), "Track0001.kml")
        self.assertIn("the track in %s is not complete" % path, result.stderr)
        self.assertNotIn("track written to", result.stderr)

    def test_keeps_limits_and_reports_sounds(self):
        sounds = os.path.join(self.home, "Wav")
        os.makedirs(sounds)
        for name in ("Limit.wav", "LimitDown.wav", "Zero.wav"):
            with open(os.path.join(sounds, name), "wb"):
                pass
        speeds = [kmh / 1.852 for kmh in (55, 61, 65, 72, 58, 0, 0)]
        _, _, said = self.replay(recording(speeds), "--limit", "60", "--beep-on-zero")
        # 61 and 65 are within the band of 10, 72 is above it; then the fall to 58 and the stop.
        self.assertIn("sounds played: Limit.wav: 2, LimitDown.wav: 1, Zero.wav: 1", said)
        _, _, said = self.replay(recording(speeds))
        self.assertIn("Limit.wav: 2", said)
        _, _, said = self.replay(recording(speeds), "--limit", "none", "--no-beep-on-zero")
        self.assertNotIn("sounds", said)

    def test_a_new_limit_replaces_all_old_ones(self):
        self.replay("", "--limit", "60:5", "--limit", "90")
        self.replay("", "--limit", "50:7")
        settings = self.settings()
        for line in ("Limit1=50", "LimitInter1=7", "UseSound1=true", "UseSound2=false",
                     "UseSound3=false"):
            self.assertIn(line, settings)

    def test_keeps_who_gets_messages(self):
        self.replay("", "--sms-to", "+111, 222", "--sms-text", "%Speed% km/h")
        self.assertIn("Address=+111,222", self.settings())
        self.assertIn("Text=%Speed% km/h", self.settings())

    def test_cannot_send_to_nobody(self):
        result = self.run_host("--sms-every", "5")
        self.assertEqual(result.returncode, 2)
        self.assertIn("--sms-to", result.stderr)

    def test_takes_pictures_and_sounds_that_come_with_the_engine(self):
        speeds = [kmh / 1.852 for kmh in (50, 72)]
        _, _, said = self.replay(recording(speeds), "--limit", "60", "--shot",
                                 self.path("view.png"))
        self.assertIn("sounds played: Limit.wav: 1", said)
        self.assertNotIn("missing", said)
        for name in ("Pics", "Wav", "lcd-u.ttf"):
            self.assertFalse(os.path.lexists(os.path.join(self.home, name)), name)

    def check_default_home(self, expected, **environment):
        result = subprocess.run([self.program, "--nmea", "-", "--json"], input=recording([10]),
                                capture_output=True, encoding="utf-8", timeout=PATIENCE,
                                env=self.environment(**environment), check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertTrue(os.path.isfile(os.path.join(expected, "TachyMo.ini")))

    def test_settings_lie_in_the_users_data_folder(self):
        self.check_default_home(self.path(".local", "share", "ferolin"))
        self.check_default_home(self.path("data", "ferolin"), XDG_DATA_HOME=self.path("data"))


class Errors(HostTest):
    def check(self, status, words, *arguments):
        result = self.run_host(*arguments)
        self.assertEqual(result.returncode, status, result.stderr)
        self.assertEqual(result.stdout, "")
        lines = result.stderr.splitlines()
        self.assertEqual(len(lines), 1, result.stderr)
        self.assertTrue(lines[0].startswith("ferolin-host: "))
        self.assertIn(words, lines[0])

    def test_a_missing_file(self):
        self.check(1, "cannot read /nonexistent.nmea: No such file", "--nmea", "/nonexistent.nmea")

    def test_a_folder_for_a_file(self):
        self.check(1, "folder", "--nmea", self.folder)

    def test_a_missing_port_when_raw(self):
        self.check(1, "cannot open /dev/nonexistent", "--port", "/dev/nonexistent", "--raw")

    def test_a_port_that_is_none(self):
        self.check(1, "no serial port", "--port", "/dev/null")

    def test_a_port_that_was_never_named(self):
        self.check(2, "--port needs DEVICE", "--port")

    def test_a_home_that_cannot_be_written(self):
        result = subprocess.run([self.program, "--home", "/proc/home"], capture_output=True,
                                encoding="utf-8", timeout=PATIENCE, check=False)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, "ferolin-host: cannot write to the folder /proc/home: "
                         "No such file or directory\n")

    def test_tracks_that_cannot_be_written(self):
        self.check(1, "cannot write tracks to /proc/tracks", "--kml", "/proc/tracks")

    def test_wrong_arguments(self):
        self.check(2, "unknown option --bogus", "--bogus")
        self.check(2, "unknown option --mirorr; did you mean --mirror?", "--mirorr")
        self.check(2, 'no view "sped"; did you mean Speed?', "--view", "sped")
        self.check(2, "--nmea drive.nmea", "drive.nmea")
        self.check(2, "from 50 to 4000000", "--port", "/dev/ttyS0", "--baud", "49")
        self.check(2, "the engine knows 300,", "--port", "/dev/ttyS0", "--raw", "--baud", "9601")
        self.check(2, "only one source", "--demo", "--gpsd")

    def test_output_that_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            result = subprocess.run(self.command("--json"), stdout=full,
                                    stderr=subprocess.PIPE, encoding="utf-8", timeout=PATIENCE,
                                    check=False)
        self.assertEqual(result.returncode, 1)
        self.assertIn("No space left", result.stderr)

    def test_a_home_that_is_in_use(self):
        first = self.start_host("--nmea", "-", stdin=subprocess.PIPE)
        self.addCleanup(first.stdin.close)
        lock = os.path.join(self.home, "ferolin.lock")
        deadline = time.monotonic() + PATIENCE
        while not os.path.exists(lock) and time.monotonic() < deadline:
            time.sleep(0.01)
        result = self.run_host("--demo", "--json", "--updates", "1")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, "ferolin-host: another ferolin-host uses the folder %s: end it "
                         "first, or choose another folder with --home\n"
                         % os.path.realpath(self.home))
        # Other homes are free, and so is this one when the first has gone, however it went.
        home, self.home = self.home, self.path("other")
        self.assertEqual(self.run_host("--json", "--updates", "1").returncode, 0)
        self.home = home
        first.kill()
        first.wait()
        self.assertEqual(self.run_host("--json", "--updates", "1").returncode, 0)

    def run_in_shell(self, redirection, *arguments):
        return subprocess.run(["sh", "-c", '"$@" ' + redirection, "sh"] + self.command(*arguments),
                              stdin=subprocess.DEVNULL, capture_output=True, encoding="utf-8",
                              timeout=PATIENCE, env=self.environment(), check=False)

    def test_closed_standard_streams(self):
        result = self.run_in_shell("<&-", "--json", "--updates", "1")
        self.assertEqual((result.returncode, len(result.stdout.splitlines())), (0, 2))
        result = self.run_in_shell("<&-", "--nmea", "-")
        self.assertEqual(result.returncode, 1)
        self.assertIn("cannot read standard input: Bad file descriptor", result.stderr)
        result = self.run_in_shell(">&-", "--json", "--updates", "1")
        self.assertEqual(result.returncode, 1)
        self.assertIn("cannot write the read-outs: Bad file descriptor", result.stderr)
        result = self.run_in_shell("2>&-", "--json", "--updates", "1")
        self.assertEqual((result.returncode, len(result.stdout.splitlines())), (0, 2))
        result = self.run_in_shell("<&- >&- 2>&-", "--shot", self.path("shot.png"), "--updates", "1")
        self.assertEqual(result.returncode, 1)
        self.assertTrue(os.path.exists(self.path("shot.png")))

    def test_help_and_version(self):
        result = self.run_host("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("Examples:", result.stdout)
        result = self.run_host("--version")
        self.assertRegex(result.stdout, r"^ferolin-host \d+\.\d+\.\d+\n$")


class Stopping(HostTest):
    def check_stop(self, number):
        process = self.start_host("--rate", "1", "--json")
        first = json.loads(process.stdout.readline())
        self.assertEqual(first["update"], 1)
        process.send_signal(number)
        output, said = process.communicate(timeout=PATIENCE)
        self.assertEqual(process.returncode, 0, said)
        self.assertIs(json.loads(output.splitlines()[-1])["end"], True)
        self.assertIn("[HostDemoTrip]", self.settings())

    def test_ctrl_c_unloads_cleanly(self):
        self.check_stop(signal.SIGINT)

    def test_being_terminated_unloads_cleanly(self):
        self.check_stop(signal.SIGTERM)

    def test_a_reader_that_goes_away_ends_it_quietly(self):
        process = self.start_host("--json")
        process.stdout.readline()
        process.stdout.close()
        said = process.stderr.read().decode()
        self.assertEqual(process.wait(timeout=PATIENCE), 0, said)
        self.assertNotIn("cannot", said)
        self.assertIn("[HostDemoTrip]", self.settings())

    def test_waiting_for_standard_input_is_ended_by_ctrl_c(self):
        process = self.start_host("--nmea", "-", "--json", stdin=subprocess.PIPE)
        self.addCleanup(process.stdin.close)
        process.stdin.write(recording([10.0] * 2).encode())
        process.stdin.flush()
        process.stdout.readline()
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=PATIENCE), 0)


class Units(HostTest):
    def lines(self, *arguments):
        """The final read-outs by name, and the messages."""
        path = self.write(recording([52.0] * 37))
        result = self.run_host("--nmea", path, "--no-window", *arguments)
        self.assertEqual(result.returncode, 0, result.stderr)
        pairs = [re.split(" {2,}", line) for line in result.stdout.splitlines()]
        return {pair[0]: pair[1] for pair in pairs if len(pair) == 2}, result.stderr

    def test_are_chosen_for_lines_and_messages(self):
        # 52 knots are 96.304 km/h or 59.84 mph, 36 s of them 963 m, 0.60 mi or 0.52 NM; 150 m are 492 ft.
        figures, _ = self.lines()
        self.assertEqual([figures[name] for name in ("Speed", "Distance", "Moving average", "Stopped", "Altitude")],
                         ["96.3 km/h", "963 m", "96.30 km/h", "0 s", "150.0 m"])
        figures, said = self.lines("--new-trip", "--units", "mi", "--degrees")
        self.assertEqual([figures[name] for name in ("Speed", "Max speed", "Average speed", "Distance", "Altitude")],
                         ["59.8 mph", "59.8 mph", "59.84 mph", "0.60 mi", "492 ft"])
        self.assertEqual((figures["Latitude"], figures["Longitude"]), ("55.750000", "37.600000"))
        figures, said = self.lines("--units", "nm", "--keep")
        self.assertEqual((figures["Speed"], figures["Distance"]), ("52.0 kn", "1.04 NM"))
        self.assertIn("continuing the trip of the last run, 0.52 NM", said)
        self.assertIn("kept as drive 1: 0.52 NM in 0:00:36", said)
        self.assertRegex(self.run_host("drives", "--units", "nm").stdout, r"0\.52 NM +52\.0 kn +52\.0 kn +52\.0 kn")

    def test_of_the_host_have_russian_names(self):
        figures, _ = self.lines("--lang", "ru")
        self.assertEqual((figures["Средняя в движении"], figures["Стоянка"]), ("96.30 км/ч", "0 с"))


class Trips(HostTest):
    def drive(self, *arguments, kmh=36, **environment):
        """The totals of the shown trip after a second more."""
        result = self.run_host("--nmea", self.write(recording([kmh / 1.852] * 2)), "--json", *arguments, **environment)
        return json.loads(result.stdout.splitlines()[-1])

    def metres(self, *arguments, **environment):
        """Drives 10 m on, and tells how long the shown trip is then."""
        return round(self.drive(*arguments, **environment)["distance_m"])

    def test_run_together(self):
        self.assertEqual(self.metres(), 10)
        self.assertEqual(self.metres("--trip", "B"), 20)
        self.assertEqual(self.metres("--trip", "day"), 30)
        self.assertEqual(self.metres("--trip", "B", "--new-trip"), 10)
        self.assertEqual(self.metres("--trip", "A"), 50)
        self.assertEqual(self.metres("--trip", "B"), 30)

    def test_run_together_also_when_kept_as_drives(self):
        self.assertEqual(self.metres("--keep"), 10)
        self.assertEqual(self.metres("--keep", "--trip", "B", "--new-trip"), 10)
        # Without the settings file, as after a power cut.
        os.remove(os.path.join(self.home, "TachyMo.ini"))
        self.assertEqual(self.metres("--keep", "--trip", "day"), 30)
        self.assertEqual(self.metres("--keep", "--trip", "B"), 30)

    def test_share_times_and_the_highest_speed_of_each_drive(self):
        self.drive(kmh=72)
        self.drive("--trip", "B", "--new-trip", kmh=18)
        self.drive()
        totals = self.drive("--trip", "B", kmh=18)
        self.assertAlmostEqual(totals["max_speed_mps"], 10, places=2)
        self.assertEqual((totals["elapsed_s"], totals["moving_s"]), (3, 3))
        # 5 m, 10 m and 5 m.
        self.assertAlmostEqual(totals["average_speed_mps"], 20 / 3, places=2)
        self.assertAlmostEqual(totals["moving_average_speed_mps"], 20 / 3, places=2)
        self.assertAlmostEqual(self.drive("--trip", "day")["max_speed_mps"], 20, places=2)

    def metres_around_midnight(self, seconds):
        """Each distance until the trip begins anew, in a time zone in which the day ends in so many seconds."""
        east = (-seconds - int(time.time())) % 86400
        zone = "NOW-%02d:%02d:%02d" % (east // 3600, east // 60 % 60, east % 60)
        process = self.start_host("--nmea", "-", "--json", "--trip", "day", stdin=subprocess.PIPE, bufsize=0,
                                  environment={"TZ": zone})
        self.addCleanup(process.stdin.close)
        ends = time.monotonic() + seconds + 10
        metres = []
        # A moment has ended when the next one begins.
        process.stdin.write(rmc(0, 36 / 1.852).encode() + b"\r\n")
        while time.monotonic() < ends and metres == sorted(metres):
            process.stdin.write(rmc(len(metres) + 1, 36 / 1.852).encode() + b"\r\n")
            metres.append(json.loads(process.stdout.readline())["distance_m"])
            time.sleep(0.05)
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(PATIENCE), 0)
        self.end(process)
        return metres

    def test_of_the_day_begins_anew_at_midnight(self):
        # A slow machine may start the program after midnight.
        for seconds in (2, 10, 60):
            metres = self.metres_around_midnight(seconds)
            if metres != sorted(metres):
                break
        self.assertGreater(metres[-2], 10)
        self.assertLess(metres[-1], 10.1)
        # Trip A goes on.
        self.assertGreater(self.metres(), metres[-2])

    def test_of_the_day_begins_anew_every_day(self):
        self.assertEqual(self.metres("--trip", "day"), 10)
        self.assertEqual(self.metres("--trip", "day"), 20)
        settings = os.path.join(self.home, "TachyMo.ini")
        with open(settings, encoding="cp1251", newline="") as file:
            text = file.read()
        today = time.strftime("%Y-%m-%d", time.gmtime())
        self.assertIn("Day=" + today, text)
        with open(settings, "w", encoding="cp1251", newline="") as file:
            file.write(text.replace("Day=" + today, "Day=2026-01-01"))
        self.assertEqual(self.metres("--trip", "day"), 10)


class Record(HostTest):
    def test_is_played_as_it_was_driven(self):
        played = self.play("--demo", "--updates", "100", "--record", self.path("drive.nmea"))
        name, = [name for name in os.listdir(self.folder) if name.startswith("drive-")]
        self.assertRegex(name, r"^drive-\d{4}-\d\d-\d\d\.nmea$")
        with open(self.path(name), encoding="ascii", newline="") as file:
            self.assertRegex(file.readline(), r"^# 20\d\d-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z\r\n$")
        again = self.play("--nmea", self.path(name), "--updates", "100")
        self.assertEqual(again[:2], played[:2])
        self.assertNotIn("no sentences", again[2])

    def test_that_cannot_be_written_is_refused(self):
        result = self.run_host("--record", self.path("none", "drive.nmea"))
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, r"cannot record to .*/none/drive-.*: No such file or directory")


class Terminal(HostTest):
    def watch(self, *arguments, until, size=(24, 80)):
        """Runs on a terminal until the pattern appears, then presses Ctrl-C. Returns what was shown."""
        master, slave = pty.openpty()
        self.addCleanup(os.close, master)
        termios.tcsetwinsize(slave, size)
        process = self.start_host(*arguments, stdin=slave, stdout=slave, stderr=slave,
                                  start_new_session=True)
        os.close(slave)
        shown = b""
        pressed = False
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            if select.select([master], [], [], 0.1)[0]:
                try:
                    shown += os.read(master, 65536)
                except OSError:
                    break
            if not pressed and re.search(until, shown.decode(errors="replace")):
                process.send_signal(signal.SIGINT)
                pressed = True
        self.assertTrue(pressed, shown[-400:])
        self.assertEqual(process.wait(timeout=PATIENCE), 0)
        return shown.decode()

    def test_shows_a_live_table_and_restores_the_screen(self):
        shown = self.watch("--rate", "20", until=r"update [4-9]\d\b")
        self.assertTrue(shown.startswith("\x1b[?1049h\x1b[?25l"))
        table, _, after = shown.partition("\x1b[?25h\x1b[?1049l")
        self.assertIn("simulated drive", table)
        for name in NAMES:
            self.assertIn(name, table)
            self.assertIn(name, after)
        self.assertNotIn("\x1b", after)
        self.assertIn("ferolin-host: ", after)
        self.assertNotIn("ferolin-host: ", table)

    def test_shows_progress_of_a_recording(self):
        path = self.write(recording([10.0] * 400))
        shown = self.watch("--nmea", path, "--rate", "50", until=r"update 1\d\d\b")
        self.assertRegex(shown, r"\[#+\.+\] +(2[5-9]|[34]\d) %")

    def test_shows_the_time_left_beside_output_to_a_file(self):
        path = self.write(recording([10.0] * 2000))
        master, slave = pty.openpty()
        self.addCleanup(os.close, master)
        process = self.start_host("--nmea", path, "--rate", "max", "--json", stderr=slave)
        os.close(slave)
        # The time left is told from the first second on; nobody reads the pipe until it is over.
        first = process.stdout.readline()
        time.sleep(1)
        process.stdout.read()
        process.stdout.close()
        self.assertEqual(process.wait(timeout=PATIENCE), 0)
        self.assertTrue(first)
        told = os.read(master, 65536).decode()
        self.assertRegex(told, r"\r\x1b\[K\[#*\.+\] +\d+ %  \d+:\d\d left")
        self.assertNotIn("left", told.rpartition("\x1b[K")[2])

    def test_fits_a_small_terminal(self):
        shown = self.watch("--rate", "20", until=r"update [2-9]\d\b", size=(10, 50))
        table = shown.partition("\x1b[?25h")[0]
        for picture in re.split(r"\x1b\[H", table)[1:]:
            lines = re.sub(r"\x1b\[[0-9?]*[a-zA-Z]", "", picture).split("\r\n")
            self.assertLessEqual(len(lines), 10)
            self.assertLessEqual(max(map(len, lines)), 50)


class Receiver(HostTest):
    """A receiver at a serial port, played by a pseudo-terminal."""

    def setUp(self):
        super().setUp()
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        self.addCleanup(lambda: os.close(self.master))
        self.addCleanup(lambda: os.close(self.slave))
        self.device = os.ttyname(self.slave)

    def baud_rate(self):
        # struct termios2 ends with the two speeds as numbers.
        settings = fcntl.ioctl(self.slave, TCGETS2, bytes(44))
        return struct.unpack("=4I20B2I", settings)[-1]

    def drive(self, *arguments, talker="GN", seconds=3):
        process = self.start_host("--json", *arguments)
        updates = []
        for second in range(seconds):
            text = "%s\r\n%s\r\n" % (gga(21600 + second, talker),
                                     rmc(21600 + second, 10.0 + second, talker))
            deadline = time.monotonic() + PATIENCE
            # Sends again: bytes sent before the port is open are lost, as on a real port.
            while len(updates) <= second and time.monotonic() < deadline:
                os.write(self.master, text.encode())
                if select.select([process.stdout], [], [], 2)[0]:
                    updates.append(json.loads(process.stdout.readline())["text"])
        process.send_signal(signal.SIGTERM)
        _, said = process.communicate(timeout=PATIENCE)
        self.assertEqual(process.returncode, 0, said)
        return updates, said.decode()

    def test_is_read_through_the_bridge(self):
        updates, said = self.drive("--port", self.device)
        self.assertEqual(len(updates), 3)
        self.assertEqual(updates[0]["Speed"], "18.5 km/h")
        self.assertIn("sends sentences of GN", said)

    def test_is_read_by_the_engine_itself_when_raw(self):
        updates, said = self.drive("--port", self.device, "--raw", "--baud", "9600", talker="GP")
        self.assertEqual(len(updates), 3)
        self.assertNotIn("read as GP", said)
        self.assertEqual(self.baud_rate(), 9600)
        self.assertIn("kept as drive 1: ", said)

    def test_gets_the_baud_rate_and_is_remembered(self):
        self.drive("--port", self.device, "--baud", "38400", seconds=1)
        self.assertEqual(self.baud_rate(), 38400)
        self.assertIn("Device=" + self.device, self.settings())
        self.assertIn("Baud=38400", self.settings())
        updates, said = self.drive("--port", seconds=1)
        self.assertEqual(len(updates), 1)
        self.assertIn("from " + self.device, said)

    def read_until(self, process, accept):
        """The first line of JSON that is accepted."""
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            line = json.loads(process.stdout.readline())
            if accept(line):
                return line
        return self.fail(line)

    def finish(self, process):
        process.send_signal(signal.SIGTERM)
        output, said = process.communicate(timeout=PATIENCE)
        self.assertEqual(process.returncode, 0, said)
        return json.loads(output.splitlines()[-1])["registry"], said.decode()

    def send(self, second, knots=10.0):
        os.write(self.master, (rmc(21600 + second, knots) + "\r\n").encode())

    def await_speed(self, process, second, speed):
        """Sends a position until it is shown: bytes sent before the port is open are lost."""
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            self.send(second)
            if select.select([process.stdout], [], [], 1)[0]:
                line = json.loads(process.stdout.readline())
                if line["text"]["Speed"] == speed:
                    return
        self.fail(speed)

    def test_that_falls_silent_shows_no_stale_speed_and_adds_nothing_to_the_trip(self):
        process = self.start_host("--json", "--port", self.device, bufsize=0)
        self.await_speed(process, 0, "18.5 km/h")
        silent = self.read_until(process, lambda line: "notice" in line
                                 and line["text"]["GPS status"] == "No signal")
        self.assertRegex(silent["notice"], r"^no data for \d+ s$")
        self.assertEqual(silent["text"]["Speed"], "")
        # A minute later by the receiver's clock it is back, for two seconds.
        for second in (60, 61, 62):
            self.send(second)
            line = self.read_until(
                process, lambda line: line["text"]["Current time"] == "6:01:%02d" % (second - 60))
            self.assertNotIn("notice", line)
        registry, said = self.finish(process)
        # 18.52 km/h for two seconds.
        self.assertAlmostEqual(float(registry["Distance"]), 0.010289, places=5)
        self.assertEqual(registry["Elapsed"], "2")
        self.assertEqual(said.count("ferolin-host: no data for 3 s"), 1)
        self.assertRegex(said, r"ferolin-host: data again after \d+ s")

    def test_that_sends_no_sentences_makes_one_think_of_the_baud_rate(self):
        process = self.start_host("--json", "--port", self.device, bufsize=0)
        deadline = time.monotonic() + PATIENCE
        notice = ""
        while "--baud" not in notice and time.monotonic() < deadline:
            os.write(self.master, b"\xf3\x80\x1e\n")
            if select.select([process.stdout], [], [], 0.2)[0]:
                notice = json.loads(process.stdout.readline()).get("notice", "")
        self.assertIn("bytes but no sentences: is the baud rate right? (--baud)", notice)
        self.assertIn("is the baud rate right", self.finish(process)[1])

    def test_that_is_silent_is_told_when_raw_too(self):
        process = self.start_host("--json", "--raw", "--port", self.device, bufsize=0)
        line = self.read_until(process, lambda line: "notice" in line)
        self.assertEqual(line["notice"], "no data for 3 s")
        # The engine was left alone.
        self.assertEqual(line["update"], 0)
        os.write(self.master, b"$GPTXT,no position*00\r\n")
        line = self.read_until(process, lambda line: "notice" not in line)
        self.assertEqual(line["update"], 0)
        os.write(self.master, (rmc(21600, 20.0) + "\r\n").encode())
        line = self.read_until(process, lambda line: line["update"] == 1)
        self.assertEqual([line[key] for key in ("fix", "lat", "lon")], [True, 55.75, 37.6])
        line = self.read_until(process, lambda line: "notice" in line)
        self.assertEqual([line[key] for key in ("fix", "lat", "lon", "speed_mps")], [False, None, None, None])
        said = self.finish(process)[1]
        self.assertIn("no data for 3 s", said)
        self.assertRegex(said, r"data again after \d+ s")

    def test_that_sends_no_sentences_is_told_when_raw_too(self):
        process = self.start_host("--json", "--raw", "--port", self.device)
        notice = ""
        deadline = time.monotonic() + PATIENCE
        while "--baud" not in notice and time.monotonic() < deadline:
            os.write(self.master, b"\xf3\x80\x1e\n")
            if select.select([process.stdout], [], [], 0.2)[0]:
                notice = json.loads(process.stdout.readline()).get("notice", "")
        self.assertIn("bytes but no sentences: is the baud rate right? (--baud)", notice)
        self.finish(process)

    def test_that_comes_late_and_is_pulled_and_plugged_in_again(self):
        plug = self.path("gps")
        process = self.start_host("--json", "--port", plug, bufsize=0)
        first = self.read_until(process, lambda line: "notice" in line)
        self.assertEqual(first["notice"], "cannot open %s: No such file or directory" % plug)
        os.symlink(self.device, plug)
        self.await_speed(process, 0, "18.5 km/h")
        # Pulled: the other side of the line is gone, and so is the device.
        os.remove(plug)
        os.close(self.slave)
        os.close(self.master)
        self.read_until(process, lambda line: line.get("notice", "").startswith("cannot open"))
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        os.symlink(os.ttyname(self.slave), plug)
        self.await_speed(process, 10, "18.5 km/h")
        said = self.finish(process)[1]
        self.assertEqual(said.count("cannot open %s: No such file or directory; trying again" % plug), 2)
        self.assertEqual(said.count(plug + " is connected"), 2)

    def test_keeps_a_trip_apart_from_recordings(self):
        self.replay(recording([100.0] * 11))
        _, said = self.drive("--port", self.device, seconds=1)
        self.assertNotIn("continuing", said)


if __name__ == "__main__":
    run_tests()
