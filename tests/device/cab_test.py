"""Reads back what tools/make-cab makes: the cabinet by cabextract, its first file by the published description."""
import pathlib
import struct
import subprocess
import tempfile
import unittest

MAKE_CAB = pathlib.Path(__file__).resolve().parents[2] / "tools/make-cab"
FILES = {"Program.exe": b"program" * 1000, "Sounds/Long name-1.wav": b"sound", "Sounds/b.wav": b"", "a.dll": b"library"}


class Reader:
    def __init__(self, content):
        self.content = content
        self.place = 0

    def take(self, form):
        values = struct.unpack_from(f"<{form}", self.content, self.place)
        self.place += struct.calcsize(f"<{form}")
        return values

    def take_text(self, length):
        (text,) = self.take(f"{length}s")
        assert text.endswith(b"\0")
        return text[:-1].decode("ascii")

    def take_words(self, words):
        """Numbers of words after their length in bytes, the last of them 0."""
        (length,) = self.take("H")
        *numbers, end = self.take(f"{length // 2}H")
        assert end == 0
        return "\\".join(words[number] for number in numbers)


class CabTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        lines = []
        for number, (name, content) in enumerate(FILES.items()):
            source = self.folder / f"source{number}"
            source.write_bytes(content)
            lines.append(f"{name}\t{source}\n")
        self.list = "".join(lines)
        self.cabinet = self.make("one.cab")

    def make(self, name):
        cabinet = self.folder / name
        subprocess.run([MAKE_CAB, cabinet, "Example", "Program.exe"], input=self.list, text=True, check=True,
                       capture_output=True)
        return cabinet

    def unpack(self):
        """Contents by the numbers that are the extensions, in the cabinet's order."""
        folder = self.folder / "unpacked"
        subprocess.run(["cabextract", "-q", "-d", folder, self.cabinet], check=True)
        listing = subprocess.run(["cabextract", "-l", self.cabinet], check=True, capture_output=True, text=True).stdout
        names = [line.split(" | ")[2] for line in listing.splitlines() if line.count(" | ") == 2][1:]
        return {int(name[-3:]): (folder / name).read_bytes() for name in names}

    def test_begins_with_the_setup_and_goes_on_by_falling_numbers(self):
        self.assertEqual([0, 4, 3, 2, 1], list(self.unpack()))

    def test_installs_each_file_under_its_name(self):
        parts = self.unpack()
        reader = Reader(parts[0])
        signature, _, length, _, _, processor, *systems = reader.take("4s11I")
        self.assertEqual((b"MSCE", len(parts[0]), 2577), (signature, length, processor))
        self.assertEqual([4, 20, 6, 99, 0, 0xE0000000], systems)
        *counts, hives, keys, links = reader.take("6H")
        self.assertEqual([0, 0, 1], [hives, keys, links])
        places = reader.take("6I")
        name_place, name_length, maker_place, maker_length, _, unsupported, *_ = reader.take("8H")
        self.assertEqual(0, unsupported)
        for place, length in ((name_place, name_length), (maker_place, maker_length)):
            reader.place = place
            self.assertEqual("Example", reader.take_text(length))

        words, folders, files = {}, {}, {}
        reader.place = places[0]
        for _ in range(counts[0]):
            number, length = reader.take("HH")
            words[number] = reader.take_text(length)
        self.assertEqual(places[1], reader.place)
        for _ in range(counts[1]):
            (number,) = reader.take("H")
            folders[number] = reader.take_words(words)
        self.assertEqual(places[2], reader.place)
        for _ in range(counts[2]):
            number, folder, _, flags, length = reader.take("HHHIH")
            self.assertEqual(0, flags)
            files[number] = f"{folders[folder]}\\{reader.take_text(length)}"
        expected = {f"%CE1%\\Example\\{name}".replace("/", "\\"): content for name, content in FILES.items()}
        self.assertEqual(expected, {name: parts[number] for number, name in files.items()})

        self.assertEqual(places[5], reader.place)
        _, _, start_menu, target, kind = reader.take("5H")
        self.assertEqual((11, "%CE1%\\Example\\Program.exe", 1), (start_menu, files[target], kind))
        self.assertEqual("Example.lnk", reader.take_words(words))
        self.assertEqual(len(parts[0]), reader.place)

    def test_is_the_same_from_the_same_files(self):
        self.assertEqual(self.cabinet.read_bytes(), self.make("other.cab").read_bytes())


if __name__ == "__main__":
    unittest.main()
