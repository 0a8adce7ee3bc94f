"""The GPS API library with a real gpsd."""

import struct
from collections import namedtuple

import harness
from receiver import Gpsd, Receiver, FIRST_SECOND

# The device's record, written down independently of the header: little-endian, without holes.
LAYOUT = "<4I8Hddffdff3i3fI12II12I12I12I12I"
Position = namedtuple("Position", "version size valid flags time latitude longitude speed heading "
                      "variation altitude ellipsoid quality type selection pdop hdop vdop "
                      "used_count used in_view prns elevations azimuths snrs")

VALID_TIME = 0x1
VALID_LATITUDE = 0x2
VALID_LONGITUDE = 0x4
VALID_SPEED = 0x8
VALID_HEADING = 0x10
VALID_ALTITUDES = 0xC0
VALID_DILUTIONS = 0x700
VALID_SATELLITES = 0x3F800
VALID_ALL_TOLD = (VALID_TIME | VALID_LATITUDE | VALID_LONGITUDE | VALID_SPEED | VALID_HEADING
                  | VALID_ALTITUDES | VALID_DILUTIONS | VALID_SATELLITES)


def decode(hexadecimal):
    v = struct.unpack(LAYOUT, bytes.fromhex(hexadecimal))
    return Position(*v[0:4], v[4:12], *v[12:26], v[26:38], v[38], v[39:51], v[51:63], v[63:75],
                    v[75:87])


class DastrelTest(harness.TestCase):

    def start_receiver(self, kind):
        receiver = Receiver(kind)
        self.addCleanup(receiver.close)
        return receiver

    def start_gpsd(self, receiver, port=None):
        gpsd = Gpsd(receiver.device, self.path("gpsd.log"), port)
        self.addCleanup(gpsd.stop)
        return gpsd

    def start_dastrel(self, port):
        self.probe = self.start_probe("Dastrel.DLL", {"FEROLIN_GPSD": f"127.0.0.1:{port}"})
        self.assertLess(self.probe.seconds("start"), 1)

    def position(self):
        return decode(self.probe.ask("position"))

    def await_position(self, accept):
        """The first position that is accepted; fails with the last one seen."""
        seen = []

        def look():
            seen.append(self.position())
            return accept(seen[-1])

        self.assertTrue(harness.wait_until(look), seen[-1])
        return seen[-1]

    def assert_nothing_known(self, position):
        self.assertEqual(position.version, 1)
        self.assertEqual(position.size, 344)
        self.assertEqual(position.valid, 0)
        self.assertEqual(position.type, 0)
        self.assertEqual(position.prns, (0, ) * 12)

    def test_without_gpsd_nothing_is_known_and_nobody_waits(self):
        self.start_dastrel(harness.free_port())
        self.assert_nothing_known(self.position())
        self.assertLess(self.probe.seconds("stop"), 1.5)

    def test_receiver_of_several_constellations(self):
        receiver = self.start_receiver("constellations")
        self.start_dastrel(self.start_gpsd(receiver).port)

        position = self.await_position(lambda p: p.valid == VALID_ALL_TOLD and p.used_count == 14)

        self.assertEqual(position.version, 1)
        self.assertEqual(position.size, 344)
        self.assertEqual(position.type, 2)
        # Year, month, day of the week, day; then what of the day the receiver has reached.
        self.assertEqual(position.time[:4], (2031, 6, 0, 15))
        second = position.time[4] * 3600 + position.time[5] * 60 + position.time[6]
        self.assertGreaterEqual(second, FIRST_SECOND)
        self.assertLessEqual(second, receiver.second)
        self.assertEqual(position.time[7], 500)
        # 48 degrees 7.0380 minutes, 11 degrees 31 minutes.
        self.assertAlmostEqual(position.latitude, 48.1173, 6)
        self.assertAlmostEqual(position.longitude, 11.516667, 5)
        # gpsd tells metres a second with three digits.
        self.assertAlmostEqual(position.speed, 19.438, 2)
        self.assertAlmostEqual(position.heading, 84.4, 3)
        self.assertAlmostEqual(position.altitude, 545.4, 2)
        self.assertAlmostEqual(position.ellipsoid, 545.4 + 46.9, 2)
        self.assertEqual(position.quality, 2)
        self.assertAlmostEqual(position.pdop, 1.8, 4)
        self.assertAlmostEqual(position.hdop, 0.9, 4)
        self.assertAlmostEqual(position.vdop, 1.5, 4)
        # Of 14 used satellites the two weakest (65 and 66) find no place, nor do the unused ones.
        chosen = (1, 2, 3, 4, 5, 6, 7, 8, 67, 68, 69, 70)
        self.assertEqual(position.used, chosen)
        self.assertEqual(position.in_view, 12)
        self.assertEqual(position.prns, chosen)
        self.assertEqual(position.elevations, (10, 20, 30, 40, 50, 60, 70, 80, 13, 14, 15, 16))
        self.assertEqual(position.azimuths, (11, 22, 33, 44, 55, 66, 77, 88, 113, 114, 115, 116))
        self.assertEqual(position.snrs, (31, 32, 33, 34, 35, 36, 37, 38, 23, 24, 25, 26))

    def test_flat_fix_has_no_height(self):
        receiver = self.start_receiver("flat")
        self.start_dastrel(self.start_gpsd(receiver).port)

        position = self.await_position(lambda p: p.type == 1 and p.in_view == 10)

        self.assertEqual(position.valid & VALID_ALTITUDES, 0)
        self.assertEqual(position.quality, 1)
        # 33 degrees 52.5 minutes South, 70 degrees 40.2 minutes West.
        self.assertAlmostEqual(position.latitude, -33.875, 6)
        self.assertAlmostEqual(position.longitude, -70.67, 6)
        self.assertTrue(position.valid & VALID_SPEED)
        self.assertEqual(position.speed, 0)
        self.assertEqual(position.used_count, 3)
        self.assertEqual(position.used, (1, 2, 3) + (0, ) * 9)
        self.assertEqual(position.prns, (1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0, 0))
        # The ninth satellite is in view but not heard.
        self.assertEqual(position.snrs, (31, 32, 33, 34, 35, 36, 37, 38, 0, 48, 0, 0))

    def test_searching_receiver_has_satellites_but_no_fix(self):
        receiver = self.start_receiver("searching")
        self.start_dastrel(self.start_gpsd(receiver).port)

        position = self.await_position(lambda p: p.in_view == 10)

        self.assertEqual(position.type, 0)
        self.assertEqual(position.quality, 0)
        self.assertEqual(position.valid & ~VALID_TIME, VALID_SATELLITES)
        self.assertEqual(position.used_count, 0)
        self.assertEqual(position.used, (0, ) * 12)

    def test_fix_is_lost_when_the_receiver_falls_silent(self):
        receiver = self.start_receiver("constellations")
        self.start_dastrel(self.start_gpsd(receiver).port)
        self.await_position(lambda p: p.type == 2)

        receiver.fall_silent()

        position = self.await_position(lambda p: p.type == 0)
        self.assertEqual(position.valid & (VALID_LATITUDE | VALID_LONGITUDE | VALID_SPEED), 0)

    def test_gpsd_comes_late_goes_and_comes_back(self):
        receiver = self.start_receiver("constellations")
        port = harness.free_port()
        self.start_dastrel(port)
        self.assert_nothing_known(self.position())

        gpsd = self.start_gpsd(receiver, port)
        self.await_position(lambda p: p.type == 2)

        gpsd.stop()
        self.assert_nothing_known(self.await_position(lambda p: p.type == 0))

        self.start_gpsd(receiver, port)
        self.await_position(lambda p: p.type == 2)

    def test_stopping_forgets_and_starting_begins_anew(self):
        receiver = self.start_receiver("constellations")
        self.start_dastrel(self.start_gpsd(receiver).port)
        self.await_position(lambda p: p.type == 2)

        self.assertLess(self.probe.seconds("stop"), 1.5)
        self.assert_nothing_known(self.position())

        self.probe.seconds("start")
        self.await_position(lambda p: p.type == 2)
        # Unloading with the thread still running is survived.
        self.probe.seconds("unload")


if __name__ == "__main__":
    harness.main()
