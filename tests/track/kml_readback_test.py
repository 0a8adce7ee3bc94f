#!/usr/bin/env python3
"""A written KML track is well-formed and means to another program what it means to us.

usage: kml_readback_test.py KML-SAMPLE

Exit status 77: a tool that reads the track back is not installed.
"""

import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

SKIPPED = 77
MISSING = -9999.0


def single(value):
    """Nearest single-precision number."""
    return struct.unpack("<f", struct.pack("<f", value))[0]


def degrees(coordinate):
    """Decimal degrees of degrees x 100 + minutes, each step in single precision."""
    factor = single(1 / 60)
    value = abs(coordinate)
    whole = int(value)
    minutes = whole % 100
    result = single(
        single(single(minutes * factor) + single(single(value - whole) * factor)) + whole // 100
    )
    return -result if coordinate < 0 else result


def expected_points(kept):
    """Those that differ from the one written before in latitude, longitude and altitude."""
    points = []
    last = (None, None, None)
    for latitude, longitude, altitude in kept:
        point = (degrees(latitude), degrees(longitude), altitude)
        if altitude != MISSING and all(now != then for now, then in zip(point, last)):
            points.append(point)
            last = point
    return points


def read_with_gpsbabel(path):
    """(latitude, longitude, altitude) of every track point."""
    gpx = subprocess.run(
        ["gpsbabel", "-t", "-i", "kml", "-f", str(path), "-o", "gpx", "-F", "-"],
        check=True, capture_output=True, text=True).stdout
    name = "{http://www.topografix.com/GPX/1/0}"
    points = []
    for point in ElementTree.fromstring(gpx).iter(name + "trkpt"):
        altitude = point.find(name + "ele")
        points.append((float(point.get("lat")), float(point.get("lon")), float(altitude.text)))
    return points


def main():
    sample = sys.argv[1]
    for tool in ("xmllint", "gpsbabel"):
        if shutil.which(tool) is None:
            print(f"skipped: {tool} is not installed")
            return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        output = subprocess.run([sample, folder], check=True, capture_output=True, text=True).stdout
        path = pathlib.Path(folder) / "Track0001.kml"
        subprocess.run(["xmllint", "--noout", str(path)], check=True)
        kept = [tuple(single(float(number)) for number in line.split()) for line in output.splitlines()]
        expected = expected_points(kept)
        found = read_with_gpsbabel(path)
    assert len(kept) == 1500, len(kept)
    assert 400 < len(expected) < 1000, len(expected)
    assert len(found) == len(expected), f"{len(found)} points read back, {len(expected)} expected"
    for number, (point, wanted) in enumerate(zip(found, expected)):
        # The file has six decimals, gpsbabel writes altitudes with three.
        for value, target, tolerance in zip(point, wanted, (0.6e-6, 0.6e-6, 0.6e-3)):
            assert abs(value - target) <= tolerance, f"point {number}: {point}, expected {wanted}"
    print(f"{len(found)} points read back")
    return 0


if __name__ == "__main__":
    sys.exit(main())
