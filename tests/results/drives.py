"""Made-up recordings, the same in every run: whole numbers only, and a random sequence of their own."""


class Sequence:
    """Random numbers that do not depend on the version of Python."""

    def __init__(self, seed):
        self.state = seed

    def below(self, limit):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % limit


def sentence(body):
    checksum = 0
    for character in body.encode("ascii"):
        checksum ^= character
    return f"${body}*{checksum:02X}\r\n"


class Vehicle:
    """Goes where it is told; places in units of 0.0001 minutes, speed in tenths of a knot."""

    def __init__(self, north, east, hour, signs=("N", "E"), talker="GP"):
        self.north, self.east, self.second = north, east, hour * 3600
        self.signs, self.talker = signs, talker
        self.tenths, self.course, self.altitude = 0, 840, 5400

    def move(self, tenths):
        self.tenths = tenths
        self.second += 1
        self.north += tenths * (7 + self.second % 3) // 40
        self.east += tenths * (11 - self.second % 5) // 40
        self.course = (self.course + tenths // 9) % 3600
        self.altitude += (self.second * 7 + tenths) % 9 - 4

    def place(self):
        north, east = (f"{place // 600000:0{digits}}{place // 10000 % 60:02}.{place % 10000:04}"
                       for place, digits in ((self.north, 2), (self.east, 3)))
        return f"{north},{self.signs[0]},{east},{self.signs[1]}"

    def time(self, fraction=""):
        second = self.second % 86400
        return f"{second // 3600:02}{second // 60 % 60:02}{second % 60:02}{fraction}"

    def date(self):
        return f"{23 + self.second // 86400:02}0324"

    def gga(self, satellites=8, fraction=""):
        return sentence(f"{self.talker}GGA,{self.time(fraction)},{self.place()},1,{satellites:02},0.{satellites},"
                        f"{self.altitude // 10}.{self.altitude % 10},M,46.9,M,,")

    def rmc(self, status="A", fraction="", motion=None):
        if motion is None:
            motion = f"{self.tenths // 10}.{self.tenths % 10},{self.course // 10:03}.{self.course % 10}"
        return sentence(f"{self.talker}RMC,{self.time(fraction)},{status},{self.place()},{motion},{self.date()},003.1,W")

    def sky(self):
        lines = []
        for number in range(3):
            satellites = ",".join(f"{number * 4 + index + 1:02},{(self.second // 60 + index * 17) % 90:02},"
                                  f"{(self.second // 20 + index * 83) % 360:03},{20 + (self.second + index) % 30}"
                                  for index in range(4))
            lines.append(sentence(f"GPGSV,3,{number + 1},12,{satellites}"))
        return "".join(lines) + sentence(f"GPGSA,A,3,04,05,,09,12,,,24,,,,,2.{self.second % 10},1.3,2.1")


def towards(tenths, wanted, step):
    return max(wanted, tenths - step) if tenths > wanted else min(wanted, tenths + step)


def town():
    """Eight sentences a second; stops at crossings."""
    random = Sequence(1)
    vehicle = Vehicle(55 * 600000 + 300000, 37 * 600000 + 222222, 7)
    tenths = wanted = 0
    for _ in range(700):
        if random.below(25) == 0:
            wanted = (0, 120, 270, 330)[random.below(4)]
        tenths = towards(tenths, wanted, 21 + random.below(9))
        vehicle.move(tenths)
        yield (vehicle.gga(7 + random.below(4)) + vehicle.sky() +
               sentence(f"GPGLL,{vehicle.place()},{vehicle.time()},A") +
               sentence(f"GPVTG,{vehicle.course // 10:03}.{vehicle.course % 10},T,,M,"
                        f"{tenths // 10}.{tenths % 10},N,,K") +
               vehicle.rmc())


def motorway():
    """Two sentences a second across midnight, on the other half of the globe, up to 220 km/h."""
    random = Sequence(2)
    vehicle = Vehicle(33 * 600000 + 521280, 151 * 600000 + 126000, 24, ("S", "W"))
    vehicle.second -= 200
    tenths = 0
    for second in range(500):
        tenths = towards(tenths, 1180 if second % 400 < 330 else 0, 17 + random.below(5))
        vehicle.move(tenths)
        yield vehicle.gga() + vehicle.rmc()


def walk():
    """A receiver for several systems with fractional seconds, losing its fix; standing without speed or course."""
    random = Sequence(3)
    vehicle = Vehicle(599990, 599000, 18, ("N", "W"), "GN")
    for second in range(500):
        status = "V" if second % 90 > 80 else "A"
        motion = "," if second % 70 > 60 else None
        vehicle.move(0 if motion else 20 + random.below(15))
        yield (vehicle.gga(4 + random.below(3), ".00") if second % 3 else "") + vehicle.rmc(status, ".00", motion)


def damaged():
    """Sentences that no receiver should send: fields that are empty, too long, too many or no numbers."""
    random = Sequence(4)
    vehicle = Vehicle(48 * 600000 + 70380, 11 * 600000 + 310000, 12)
    oddities = ("", " ", "-", "+", ".", "-.5", "+5.25", " 7", "\t8.5", "1e2", "1E-2", "0x10", "inf", "nan", "12abc",
                "007", "-0", "-0.0", "5.", "1.5.2", "123456789012345", "1234567890123456", "99999999999999999999",
                "-99999999999999999999", "2147483648", "0.00000000000000000001", "-9999", "-9999.0", "9" * 120, "N",
                "S", "W", "E", "A", "V", "GP", "08", "4807.03812345678", "12.5,13", ",,,,", ",".join("a" * 45))
    for second in range(500):
        vehicle.move(towards(vehicle.tenths, 300 if second % 100 < 50 else 0, 15))
        lines = (vehicle.gga() + vehicle.sky() + f"$GPVTG,{second % 360},T,,M,{second % 50}.5,N,,K\r\n").splitlines()
        for line in lines:
            fields = line.split(",")
            fields[1 + random.below(len(fields) - 1)] = oddities[random.below(len(oddities))]
            yield ",".join(fields) + "\r\n"
        fields = vehicle.rmc()[:-2].split(",")
        # Status, time and date stay: without them the engine asks the clock.
        if second % 3 == 0:
            fields[3 + random.below(6)] = oddities[random.below(len(oddities) - 3)]
        yield ",".join(fields) + "\r\n"


DRIVES = {"town": town, "motorway": motorway, "walk": walk, "damaged": damaged}
