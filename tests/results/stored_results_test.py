#!/usr/bin/env python3
"""Compares what the engine makes of a set of drives with what it has always made of them: each read-out after each
position, the states that are kept, the settings, the track file, and the pictures of all views. The sums of all this
are stored beside this file.

usage: stored_results_test.py FEROLIN-HOST DEVICE-DRIVE [--keep FOLDER | --store]

--keep leaves the results themselves in a folder, to be compared with those of another build; --store writes the sums
anew, for a change that is meant to be one.
"""
import argparse
import hashlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile

from drives import DRIVES

SUMS = pathlib.Path(__file__).resolve().parent / "sums.txt"
PLAIN = {"PATH": os.environ["PATH"], "LANG": "C", "TZ": "UTC0", "SDL_AUDIODRIVER": "dummy"}
PLAIN.update({name: value for name, value in os.environ.items()
              if name.startswith(("FONTCONFIG_", "LSAN_", "ASAN_", "TSAN_", "UBSAN_"))})
BATTERY = "Battery status"  # the machine's own


def readings(line):
    """What a line of JSON says about the drive."""
    told = json.loads(line)
    told.get("text", {}).pop(BATTERY, None)
    return json.dumps([told.get("text"), told.get("registry")], sort_keys=True)


def states(settings):
    """The states of the trip that are kept for the next run."""
    trip = settings.partition("[HostRecordingTrip]")[2].partition("[")[0]
    return "".join(line.strip() + "\n" for line in trip.splitlines() if line.strip().startswith("Sensor"))


def drive_results(host, name, folder):
    """Plays one drive; texts by name."""
    home = pathlib.Path(folder) / name
    options = ["--raw"] if name == "damaged" else []
    played = subprocess.run(
        [host, "--home", home, "--nmea", "-", "--rate", "max", "--json", "--kml", *options],
        input="".join(DRIVES[name]()), stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8", timeout=200,
        env=PLAIN | {"HOME": folder}, check=False)
    if played.returncode != 0:
        sys.exit(f"{name}: ends with {played.returncode}\n{played.stderr}")
    settings = (home / "TachyMo.ini").read_text("cp1251")
    return {
        f"{name}.json": "\n".join(map(readings, played.stdout.splitlines())),
        f"{name}.kml": (home / "Tracks" / "Track0001.kml").read_text("ascii"),
        f"{name}.ini": states(settings)}


def picture_results(device_drive, folder):
    """Sounds, messages, settings and pictures of a drive that the engine takes without the host program."""
    printed = subprocess.run([device_drive], stdout=subprocess.PIPE, timeout=200, env=PLAIN | {"HOME": folder},
                             check=True).stdout
    return {"views": printed.decode("cp1251")}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("host")
    parser.add_argument("device_drive")
    parser.add_argument("--keep", type=pathlib.Path)
    parser.add_argument("--store", action="store_true")
    arguments = parser.parse_args()
    results = {}
    with tempfile.TemporaryDirectory(prefix="ferolin-results-") as folder:
        for name in DRIVES:
            results.update(drive_results(arguments.host, name, folder))
        results.update(picture_results(arguments.device_drive, folder))
    if arguments.keep:
        arguments.keep.mkdir(parents=True, exist_ok=True)
        for name, text in results.items():
            (arguments.keep / name).write_text(text, "utf-8")
    sums = {name: hashlib.sha256(text.encode("utf-8")).hexdigest() for name, text in results.items()}
    lines = [f"{value}  {name}\n" for name, value in sums.items()]
    if arguments.store:
        SUMS.write_text("".join(lines), "ascii")
        return
    stored = SUMS.read_text("ascii").splitlines(keepends=True)
    if lines != stored:
        print("".join(line for line in lines if line not in stored), end="")
        sys.exit("these are not the stored results; --keep leaves them in a folder, to be compared")
    print(f"{len(lines)} results are as they always were")


if __name__ == "__main__":
    main()
