#!/usr/bin/env python3
"""Runs ferolin-host with unusual folders and settings files.

usage: files_program_test.py PROGRAM [unittest arguments]
"""

import configparser
import json
import os
import pathlib
import stat
import subprocess
import time

from host_program_test import HostTest, clock, gga, sentence
from program_test_case import PATIENCE, run_tests

NOBODY = 65534
# 1000 characters; one name may have 255.
LONG_NAME = os.path.join("1234567890" * 25, "1234567890" * 25, "1234567890" * 25,
                         "1234567890" * 25)
NAMES = ["żółw", "名前", "a\\b", "🚗", "дом", " a [b] 100%41=#;", os.fsdecode(b"\xff\xfe"), LONG_NAME]


def route():
    return "".join(
        gga(21600 + i, altitude=150 + i) + "\r\n" +
        sentence("GPRMC,%s,A,55%07.4f,N,037%07.4f,E,10.0,045.0,010624,,,A"
                 % (clock(21600 + i), 45 + i / 100, 36 + i / 100)) + "\r\n"
        for i in range(5))


class FilesTest(HostTest):
    """Has a recording of five positions."""

    def setUp(self):
        super().setUp()
        self.drive = self.write(route())

    def run_drive(self, *arguments):
        result = subprocess.run(self.command("--nmea", self.drive, "--json", *arguments),
                                stdin=subprocess.DEVNULL, capture_output=True, timeout=PATIENCE,
                                env=self.environment(), check=False)
        result.stderr = os.fsdecode(result.stderr)
        return result

    def drive_well(self, *arguments):
        result = self.run_drive(*arguments)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stderr


class ThemeTest(FilesTest):
    SECTIONS = ("SpeedometerWidget", "FullScreenSpeedWidget", "PathWidget", "SattelitesWidget", "SpeedChartWidget")

    def colours(self):
        parser = configparser.ConfigParser(strict=False, interpolation=None)
        parser.read_string("\n".join(self.settings()))
        return {(section, key): value for section in self.SECTIONS for key, value in parser[section].items()
                if key.endswith("color")}

    def test_is_kept_with_all_other_settings(self):
        self.drive_well("--sms-to", "+111", "--theme", "night")
        self.assertIn("Address=+111", self.settings())
        night = self.colours()
        self.assertEqual(night["SpeedometerWidget", "speedtextcolor"], "30928")
        self.drive_well()
        self.assertEqual(self.colours(), night)
        self.assertIn("Address=+111", self.settings())

    def test_leaves_comments(self):
        self.drive_well()
        with open(os.path.join(self.home, "TachyMo.ini"), encoding="cp1251") as file:
            settings = file.read()
        commented = settings.replace(" [PathWidget]", "# mine\n [PathWidget]").replace(" PathColor", "; own\n PathColor")
        self.assertEqual(commented.count("# mine") + commented.count("; own"), 2)
        with open(os.path.join(self.home, "TachyMo.ini"), "w", encoding="cp1251") as file:
            file.write(commented)
        self.drive_well("--theme", "night")
        kept = "\n".join(self.settings())
        self.assertRegex(kept, r"# mine\n *\[PathWidget\]")
        self.assertRegex(kept, r"; own\n *PathColor=30928")

    def test_is_taken_when_it_was_chosen_in_the_window(self):
        os.makedirs(self.home, exist_ok=True)
        with open(os.path.join(self.home, "TachyMo.ini"), "w", encoding="cp1251") as file:
            file.write("[Application]\nTheme=day\nThemeTaken=\n")
        self.drive_well()
        day = self.colours()
        self.assertEqual(day["PathWidget", "pathcolor"], "11534336")
        self.assertIn("ThemeTaken=day", self.settings())
        self.drive_well("--theme", "night")
        self.assertEqual(self.colours()["PathWidget", "pathcolor"], "30928")
        self.assertIn("Theme=night", self.settings())

    def test_is_taken_once_and_colours_of_ones_own_stay(self):
        path = os.path.join(self.home, "TachyMo.ini")
        os.makedirs(self.home, exist_ok=True)
        # Nothing tells that it was taken, and a line that is commented out has a colour, too.
        with open(path, "w", encoding="cp1251") as file:
            file.write("[Application]\nTheme=day\n[PathWidget]\n;PathColor=255\n")
        self.drive_well()
        self.assertIn("ThemeTaken=day", self.settings())
        self.assertEqual(self.colours()["PathWidget", "pathcolor"], "11534336")
        with open(path, encoding="cp1251") as file:
            settings = file.read()
        with open(path, "w", encoding="cp1251") as file:
            file.write(settings.replace("PathColor=11534336", "PathColor=65535"))
        self.drive_well()
        self.assertEqual(self.colours()["PathWidget", "pathcolor"], "65535")

    def test_that_is_missing_loses_no_settings(self):
        os.makedirs(self.home, exist_ok=True)
        with open(os.path.join(self.home, "TachyMo.ini"), "w", encoding="cp1251") as file:
            file.write("[Application]\nTheme=dusk\nThemeTaken=\n")
        result = self.run_drive("--sms-to", "+111")
        self.assertIn("cannot read the theme", result.stderr)
        self.assertIn("Address=+111", self.settings())

    def test_standard_is_what_the_engine_starts_with(self):
        self.drive_well()
        first = self.colours()
        self.drive_well("--theme", "day")
        self.assertEqual(len(self.colours()), len(first))
        self.assertNotEqual(self.colours(), first)
        self.drive_well("--theme", "standard")
        self.assertEqual(self.colours(), first)

    def test_names_every_colour(self):
        self.drive_well("--theme", "day")
        for theme in ("standard", "day", "night"):
            parser = configparser.ConfigParser()
            parser.read(pathlib.Path(__file__).parents[2] / "assets" / "themes" / f"{theme}.ini")
            keys = {(section, key) for section in self.SECTIONS for key in parser[section]}
            self.assertEqual(keys, set(self.colours()), theme)
            self.assertEqual(dict(parser["Application"]), {"theme": theme, "themetaken": theme})


class AnyHome(FilesTest):
    def test_keeps_settings_and_trip(self):
        for name in NAMES:
            with self.subTest(name=name[:20]):
                self.home = self.path("homes", name)
                self.drive_well("--sms-to", "+111")
                self.assertIn("Address=+111", self.settings())
                said = self.drive_well()
                self.assertIn("continuing the trip of the last run", said)
                self.assertIn("Address=+111", self.settings())

    def test_keeps_tracks(self):
        for name in NAMES:
            with self.subTest(name=name[:20]):
                self.home = self.path("homes", name)
                said = self.drive_well("--kml")
                self.assertIn("track written to ", said)
                track = os.path.join(self.home, "Tracks", "Track0001.kml")
                self.assertTrue(os.path.getsize(track) > 0)

    def test_shows_its_own_pictures(self):
        pictures = {}
        for name in ["plain", *NAMES]:
            self.home = self.path("homes", name)
            os.makedirs(os.path.join(self.home, "Pics"))
            shot = self.path("shot.png")
            self.drive_well("--view", "speedometer", "--shot", shot, "--new-trip")
            with open(shot, "rb") as file:
                pictures[name] = file.read()
            os.rmdir(os.path.join(self.home, "Pics"))
            self.drive_well("--view", "speedometer", "--shot", shot, "--new-trip")
            with open(shot, "rb") as file:
                self.assertNotEqual(file.read(), pictures[name])
        for name in NAMES:
            self.assertEqual(pictures[name], pictures["plain"], name[:20])

    def test_takes_no_library_from_there(self):
        os.makedirs(self.home)
        self.write("nothing that could be loaded", os.path.join(self.home, "libferolin.so"))
        self.drive_well()


class AnyTrackFolder(FilesTest):
    def test_takes_tracks_and_is_remembered(self):
        for number, name in enumerate(NAMES):
            with self.subTest(name=name[:20]):
                self.home = self.path("home%d" % number)
                folder = self.path("tracks", name)
                self.drive_well("--kml", folder)
                self.drive_well("--kml")
                self.assertEqual(sorted(os.listdir(folder)), ["Track0001.kml", "Track0002.kml"])


class TooLongFolders(FilesTest):
    """Linux allows paths of 4095 characters and names of 255."""

    def check(self, words, *arguments):
        result = self.run_drive(*arguments)
        self.assertEqual(result.returncode, 1)
        self.assertIn(words, result.stderr)
        self.assertTrue(result.stderr.endswith(": File name too long\n"), result.stderr[-80:])

    def test_home(self):
        self.home = self.path("a" * 256)
        self.check("cannot write to the folder")
        self.home = self.path(*["a" * 200] * 19)
        self.check("cannot write to the folder")

    def test_tracks(self):
        self.check("cannot write tracks to", "--kml", self.path("a" * 256))
        self.check("cannot write tracks to", "--kml", self.path(*["a" * 200] * 19))


class SettingsTest(FilesTest):
    """Has a home folder for settings files."""

    def setUp(self):
        super().setUp()
        os.makedirs(self.home)
        self.file = os.path.join(self.home, "TachyMo.ini")

    def put(self, text, name="TachyMo.ini"):
        path = os.path.join(self.home, name)
        with open(path, "w", encoding="cp1251") as file:
            file.write(text)
        return path

    def get(self, path):
        with open(path, encoding="cp1251") as file:
            return file.read()


class SettingsFiles(SettingsTest):
    def test_a_new_one_is_private(self):
        self.drive_well("--sms-to", "+111")
        self.assertEqual(stat.S_IMODE(os.stat(self.file).st_mode), 0o600)

    def test_mode_and_owner_stay(self):
        self.put("[SMS]\nText=kept\n")
        os.chmod(self.file, 0o664)
        owner = (NOBODY, NOBODY) if os.geteuid() == 0 else (os.getuid(), os.getgid())
        os.chown(self.file, *owner)
        self.drive_well("--sms-to", "+111")
        status = os.stat(self.file)
        self.assertEqual((stat.S_IMODE(status.st_mode), status.st_uid, status.st_gid),
                         (0o664, *owner))
        self.assertIn("Text=kept", self.settings())
        self.assertIn("Address=+111", self.settings())

    def test_a_link_stays_and_its_target_is_written(self):
        os.mkdir(self.path("dotfiles"))
        target = self.path("dotfiles", "speedometer")
        with open(target, "w", encoding="ascii") as file:
            file.write("[SMS]\nText=kept\n")
        os.symlink("../dotfiles/speedometer", self.file)
        self.drive_well("--sms-to", "+111")
        self.assertEqual(os.readlink(self.file), "../dotfiles/speedometer")
        self.assertIn("Text=kept\n", self.get(target))
        self.assertIn("Address=+111\n", self.get(target))
        self.assertEqual(os.listdir(self.path("dotfiles")), ["speedometer"])

    def test_a_link_to_a_file_that_is_not_there_yet_stays(self):
        os.symlink(self.path("later"), self.file)
        self.drive_well("--sms-to", "+111")
        self.assertTrue(os.path.islink(self.file))
        self.assertIn("Address=+111\n", self.get(self.path("later")))

    def test_nothing_is_written_through_planted_links(self):
        precious = self.path("precious")
        for name in ("TachyMo.ini.new", "Tachymo.ini.new", ".ferolin-settings"):
            with open(precious, "w", encoding="ascii") as file:
                file.write("precious")
            os.symlink(precious, os.path.join(self.home, name))
            self.drive_well("--sms-to", "+111")
            self.assertEqual(self.get(precious), "precious", name)
            self.assertFalse(os.path.islink(self.file))
            self.assertIn("Address=+111", self.settings())

    def test_nothing_is_read_through_a_planted_link(self):
        with open(self.path("planted"), "w", encoding="ascii") as file:
            file.write("[SMS]\nText=planted\n")
        link = os.path.join(self.home, "TachyMo.ini.new")
        os.symlink(self.path("planted"), link)
        self.drive_well()
        self.assertNotIn("Text=planted", self.settings())
        self.assertTrue(os.path.islink(link))

    def test_an_interrupted_save_of_another_host_is_finished(self):
        self.put("[SMS]\nText=kept\n", "TachyMo.ini.new")
        self.drive_well()
        self.assertIn("Text=kept", self.settings())

    def test_nothing_else_is_left(self):
        self.drive_well()
        names = [name.lower() for name in os.listdir(self.home)]
        self.assertEqual([name for name in names if "tachymo" in name or "settings" in name],
                         ["tachymo.ini"])

    def test_two_spellings_become_one_without_a_loss(self):
        self.put("[SMS]\nText=older\nInterval=7\n", "Tachymo.ini")
        old = time.time() - 100
        os.utime(os.path.join(self.home, "Tachymo.ini"), (old, old))
        self.put("[SMS]\nText=newer\nAddress=222\n")
        said = self.drive_well()
        self.assertIn("there were two settings files", said)
        for line in ("Text=newer", "Address=222", "Interval=7"):
            self.assertIn(line, self.settings())
        names = [name for name in os.listdir(self.home) if name.lower() == "tachymo.ini"]
        self.assertEqual(names, ["TachyMo.ini"])
        self.assertEqual(self.get(os.path.join(self.home, "Tachymo.ini.old")),
                         "[SMS]\nText=older\nInterval=7\n")
        self.assertEqual(self.drive_well().count("settings"), 0)

    def test_another_spelling_is_taken(self):
        self.put("[SMS]\nText=kept\n", "TACHYMO.INI")
        self.drive_well()
        self.assertIn("Text=kept", self.settings())
        self.assertFalse(os.path.exists(os.path.join(self.home, "TACHYMO.INI")))

    def test_what_is_no_settings_file_ends_at_once(self):
        def make_large(path):
            with open(path, "wb") as file:
                file.write(b"[SMS]\nText=1234567890\n" * 5_000_000)

        for make, words in ((os.mkdir, "a folder"), (os.mkfifo, "no file"),
                            (make_large, "too large for settings (110000 KB)")):
            with self.subTest(words):
                make(self.file)
                start = time.monotonic()
                result = self.run_drive()
                self.assertLess(time.monotonic() - start, PATIENCE / 4)
                self.assertEqual(result.returncode, 1)
                self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)
                self.assertIn("TachyMo.ini", result.stderr)
                self.assertIn(words, result.stderr)
                os.rename(self.file, self.path("away " + words))


class Modes(SettingsTest):
    """As an ordinary user, whom modes bind."""

    def command(self, *arguments):
        drop = ["setpriv", "--reuid", str(NOBODY), "--regid", str(NOBODY), "--clear-groups"]
        return (drop if os.geteuid() == 0 else []) + super().command(*arguments)

    def setUp(self):
        super().setUp()
        for path in (self.folder, self.home):
            os.chmod(path, 0o777)

    def check_left_alone(self, mode, words):
        self.put("[SMS]\nText=precious\n")
        os.chmod(self.file, mode)
        result = self.run_drive("--sms-to", "+111")
        self.assertEqual(result.returncode, 1)
        self.assertIn(words + ": Permission denied; settings are not kept", result.stderr)
        self.assertTrue(result.stderr.endswith("settings were not kept\n"))
        self.assertEqual(stat.S_IMODE(os.stat(self.file).st_mode), mode)
        os.chmod(self.file, 0o666)
        self.assertEqual(self.get(self.file), "[SMS]\nText=precious\n")

    def test_an_unreadable_one_is_left_alone(self):
        self.check_left_alone(0o222, "cannot be read")

    def test_a_read_only_one_is_left_alone(self):
        self.check_left_alone(0o444, "cannot be written")

    def test_one_of_another_owner_is_written_in_place(self):
        if os.geteuid() != 0:
            self.skipTest("only root can give files away")
        self.put("[SMS]\nText=kept\n" + ";" * 100_000)
        os.chmod(self.file, 0o666)
        before = os.stat(self.file)
        self.drive_well("--sms-to", "+111")
        after = os.stat(self.file)
        self.assertEqual((after.st_uid, after.st_ino), (0, before.st_ino))
        self.assertIn("Text=kept", self.settings())
        self.assertIn("Address=+111", self.settings())
        self.assertLess(after.st_size, 100_000)


class ReadOnlyHome(FilesTest):
    def setUp(self):
        super().setUp()
        os.mkdir(self.path("disk"))
        if subprocess.run(["mount", "-t", "tmpfs", "tmpfs", self.path("disk")], capture_output=True,
                          check=False).returncode != 0:
            self.skipTest("nothing can be mounted here")
        self.addCleanup(subprocess.run, ["umount", self.path("disk")], check=True)
        self.home = self.path("disk", "home")

    def make_read_only(self):
        subprocess.run(["mount", "-o", "remount,ro", self.path("disk")], check=True)

    def test_is_told_and_the_drive_goes_on_as_chosen(self):
        self.drive_well("--keep", "--sms-to", "+111", "--theme", "night")
        before = self.settings()
        self.make_read_only()
        result = self.run_drive("--keep", "--json", "--sms-to", "+222", "--theme", "day", "--limit", "77:3")
        self.assertEqual(result.returncode, 1)
        said = result.stderr.splitlines()
        self.assertEqual(said[0], "ferolin-host: cannot write to the folder %s: Read-only file system; "
                         "settings, trips and drives are not kept" % self.home)
        self.assertEqual(said[-1], "ferolin-host: settings were not kept")
        self.assertNotRegex("".join(said[1:]), "cannot|not kept: ")
        totals = json.loads(result.stdout.decode().splitlines()[-1])
        self.assertGreater(totals["updates"], 0)
        # The trip before went on.
        self.assertIn("continuing the trip of the last run", result.stderr)
        self.assertEqual(self.settings(), before)

    def test_is_no_end_for_a_drive_whose_track_was_to_be_kept(self):
        self.drive_well()
        with open(os.path.join(self.home, "TachyMo.ini"), "a", encoding="cp1251") as file:
            file.write("[Host]\nWriteTrack=1\n")
        self.make_read_only()
        result = self.run_drive()
        self.assertRegex(result.stderr, "cannot write tracks to .*/Tracks: Read-only file system; no track is written")
        self.assertIn("settings were not kept", result.stderr)
        # Asked for now, the track is worth more than the drive.
        result = self.run_drive("--kml")
        self.assertNotIn("updates in", result.stderr)
        self.assertTrue(result.stderr.endswith("Tracks: Read-only file system\n"), result.stderr)


class FullDisk(FilesTest):
    def test_keeps_the_old_settings_and_says_so(self):
        mounted = self.path("disk")
        os.mkdir(mounted)
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", mounted],
                          capture_output=True, check=False).returncode != 0:
            self.skipTest("nothing can be mounted here")
        self.addCleanup(subprocess.run, ["umount", mounted], check=True)
        self.home = os.path.join(mounted, "home")
        self.drive_well("--sms-to", "+111")
        before = self.settings()
        with self.assertRaises(OSError), open(os.path.join(mounted, "filler"), "wb") as file:
            while True:
                file.write(bytes(512))
                file.flush()
        result = self.run_drive("--sms-to", "+222")
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertIn("settings were not kept", result.stderr)
        self.assertEqual(self.settings(), before)


if __name__ == "__main__":
    run_tests()
