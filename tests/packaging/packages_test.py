#!/usr/bin/env python3
"""Runs what the packages put into a folder, as a user's system would have it.

usage: packages_test.py FOLDER PROGRAMS [unittest arguments]

PROGRAMS is the folder in which the same program was built.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT, PROGRAMS = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(2))
TOP = pathlib.Path(__file__).resolve().parents[2]
LIBRARIES = next((ROOT / "usr/lib").glob("*/libferolin.so.0")).parent
PATIENCE_S = 120


class Packages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="ferolin-packages-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_command(self, *command, **environment):
        values = {key: value for key, value in os.environ.items()
                  if not key.startswith(("LC_", "LANG", "FEROLIN_", "SDL_", "XDG_"))
                  and key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        values.update(HOME=self.folder, LANG="C", LD_LIBRARY_PATH=LIBRARIES, SDL_AUDIODRIVER="dummy",
                      PKG_CONFIG_PATH=LIBRARIES / "pkgconfig")
        values.update(environment)
        result = subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL,
                                capture_output=True, encoding="utf-8", cwd=self.folder, env=values,
                                timeout=PATIENCE_S, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result

    def draw(self, program, home):
        """First picture of the simulated drive."""
        picture = self.folder / "view.png"
        self.run_command(program, "--demo", "--updates", "20", "--rate", "max", "--new-trip",
                         "--view", "0", "--shot", picture, "--home", home)
        return picture.read_bytes()

    def test_the_program_draws_as_it_was_built(self):
        expected = self.draw(PROGRAMS / "ferolin-host", self.folder / "built")
        for name in ("ferolin", "ferolin-host"):
            self.assertEqual(self.draw(ROOT / "usr/bin" / name, self.folder / "installed"), expected)

    def test_settings_lie_in_the_users_data_folder(self):
        self.run_command(ROOT / "usr/bin/ferolin", "--demo", "--updates", "2", "--json")
        self.assertTrue((self.folder / ".local/share/ferolin/TachyMo.ini").is_file())

    def test_the_unit_and_the_menu_entry_are_well_formed(self):
        self.run_command("desktop-file-validate", ROOT / "usr/share/applications/ferolin.desktop")
        unit = ROOT / "usr/lib/systemd/system/ferolin.service"
        result = subprocess.run(["systemd-analyze", "verify", "--man=no", unit], capture_output=True,
                                encoding="utf-8", timeout=PATIENCE_S, check=False)
        said = [line for line in result.stderr.splitlines() if "ferolin.service" in line]
        # It is not installed here.
        self.assertEqual([line for line in said if "Command ferolin is not executable" not in line],
                         [])

    def test_the_unit_is_off_at_first(self):
        self.assertEqual(list(ROOT.rglob("*.wants")), [])

    def test_nothing_is_said_to_be_missing(self):
        result = self.run_command(ROOT / "usr/bin/ferolin", "--demo", "--updates", "20", "--rate",
                                  "max", "--limit", "5", "--shot", "view.png")
        self.assertIn("sounds played", result.stderr)
        self.assertNotIn("missing", result.stderr)

    def test_the_larger_pictures_are_there(self):
        pictures = ROOT / "usr/share/ferolin/Pics"
        names = {path.name for path in pictures.glob("*.png")}
        self.assertEqual({path.name for path in (pictures / "4x").glob("*.png")}, names)

    def test_libraries_are_looked_for_where_the_system_has_them(self):
        files = [ROOT / "usr/bin/ferolin-host", *LIBRARIES.glob("*.so.0.*"),
                 *LIBRARIES.glob("ferolin/lib[dp]*.so")]
        self.assertEqual(len(files), 5)
        for file in files:
            self.assertNotRegex(self.run_command("readelf", "-d", file).stdout, "RPATH|RUNPATH")

    def pkg_config(self, *modules):
        return self.run_command("pkg-config", "--cflags", "--libs", *modules).stdout.split()

    def compile_examples(self):
        source = ROOT / "usr/share/doc/libferolin-dev/examples"
        self.run_command("cc", "-Wall", "-Wextra", "-Werror", source / "small-host.c",
                         *self.pkg_config("ferolin"), "-o", "small-host-c")
        self.run_command("c++", "-Wall", "-Wextra", "-Werror", source / "small-host.cpp",
                         *self.pkg_config("ferolin-device"), "-o", "small-host")
        self.run_command("cc", "-Wall", "-Wextra", "-Werror", source / "view-window.c",
                         *self.pkg_config("ferolin", "sdl2"), "-o", "view-window")
        return source

    def test_examples_compile_and_run(self):
        scripts = self.compile_examples()
        result = self.run_command(sys.executable, "-B", TOP / "tests/examples/examples_test.py",
                                  self.folder, LIBRARIES, scripts)
        self.assertRegex(result.stderr, r"Ran \d+ tests")

    def test_documented_compile_lines_are_these(self):
        lines = re.findall(r"`((?:cc|c\+\+) [^`]*)`", (TOP / "docs/hosting.md").read_text("utf-8"))
        source = ROOT / "usr/share/doc/libferolin-dev/examples"
        self.assertEqual(len(lines), 3)
        for line in lines:
            self.run_command("sh", "-c", "cd %s && %s %s" % (
                source, line.rsplit(" -o ")[0], "-o %s/out" % self.folder))

    def test_cmake_finds_the_library(self):
        (self.folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(Host LANGUAGES C CXX)\n"
            "find_package(Ferolin 0.1 REQUIRED)\n"
            "add_executable(host %s/small-host.c)\n"
            "target_link_libraries(host PRIVATE Ferolin::ferolin)\n"
            % (ROOT / "usr/share/doc/libferolin-dev/examples"), "utf-8")
        self.run_command("cmake", "-S", ".", "-B", "out", "-DCMAKE_PREFIX_PATH=%s" % (ROOT / "usr"))
        self.run_command("cmake", "--build", "out")
        self.assertTrue((self.folder / "out/host").is_file())

    def test_the_manual_names_every_option(self):
        manual = self.run_command("man", "-P", "cat", "-l", ROOT / "usr/share/man/man1/ferolin.1.gz",
                                  MANWIDTH="100").stdout
        said = self.run_command(ROOT / "usr/bin/ferolin", "--help").stdout
        for option in set(re.findall(r"^  (--[a-z-]+)", said, re.MULTILINE)):
            self.assertIn(option, manual)

    def complete(self, *words):
        script = ROOT / "usr/share/bash-completion/completions/ferolin"
        return self.run_command(
            "bash", "-c", 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
            '_ferolin "$1"; printf "%s\\n" "${COMPREPLY[@]}"', "complete", script,
            ROOT / "usr/bin/ferolin", *words).stdout.split()

    def test_options_are_completed(self):
        self.assertEqual(self.complete("--fulls"), ["--fullscreen"])
        self.assertEqual(self.complete("--lang", ""), ["en", "ru"])
        self.assertIn("auto", self.complete("--port", "a"))


if __name__ == "__main__":
    unittest.main()
