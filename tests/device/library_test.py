"""Looks at Ferolin.dll for the handheld from the outside: what its headers say, that it can lie anywhere, and that it
holds nothing that an ARMv4T processor or the earliest device would choke on.

The file is read by LLVM's reader, which shares no code with our converter. The end of this file damages the library
on purpose: each kind of damage has to be noticed.

usage: library_test.py <Ferolin.dll> <the same linked elsewhere> <its ELF image> <loader command>...
"""
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
LARGEST_SIZE = 160 * 1024
EARLIEST_SYSTEM = 4.2
# The device gives a thread's stack one page of 4 KB at a time, each when the one before it overflows: a function whose
# frame is larger than a page can step over the next one.
LARGEST_FRAME = 2048
# Every instruction of ARMv4 in ARM state, before suffix and condition.
ARMV4_INSTRUCTIONS = ("""adc add and asr b bic bl bx cmn cmp eor ldm ldr lsl lsr mla mov mrs msr mul mvn nop orr pop push
                         ror rrx rsb rsc sbc smlal smull stm str sub svc swp swpb teq tst umlal umull""").split()
CONDITION = "(eq|ne|cs|cc|mi|pl|vs|vc|hi|ls|ge|lt|gt|le|al)?"
SUFFIX = {"ldm": "(ia|ib|da|db)?", "ldr": "(b|h|sb|sh)?", "stm": "(ia|ib|da|db)?", "str": "(b|h)?"}
NEVER_SET_FLAGS = "b bl bx cmn cmp mrs msr nop pop push svc swp swpb teq tst".split()


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def words_after(name, text):
    return re.findall(rf"^\s*{name}: (.*)$", text, re.MULTILINE)


def exported_names():
    text = (TOP / "src/engine/Ferolin.def").read_text()
    return [line.strip() for line in text.split("EXPORTS")[1].splitlines() if line.strip()]


class SystemExports:
    """What the system's libraries export: system-exports.txt, as sets of (library, function)."""

    def __init__(self):
        library = None
        self.everywhere = set()
        self.somewhere = set()
        for line in (TOP / "tests/device/system-exports.txt").read_text().splitlines():
            words = line.split("#")[0].split()
            if words and not line[0].isspace():
                library = words[0]
            elif words:
                function, first_version, *parts = words
                is_everywhere = float(first_version) <= EARLIEST_SYSTEM and not parts
                (self.everywhere if is_everywhere else self.somewhere).add((library, function))


def stack_frames(image):
    """Bytes by which each function moves the stack pointer, as its disassembly has it: at most, since all moves are
    added up, also those of paths that exclude each other. Infinite when it moves by what only the run will tell."""
    listing = run("arm-none-eabi-objdump", "-d", "--section=.text", image)
    frames = {}
    for line in listing.splitlines():
        if label := re.match(r"[0-9a-f]+ <(.+)>:$", line):
            function = label[1]
            frames[function] = 0
        elif instruction := re.match(r"\s*[0-9a-f]+:\t[0-9a-f ]+\t(\S+)\s*([^;@]*)", line):
            frames[function] += stack_move(instruction[1], instruction[2].strip())
    return frames


def stack_move(name, operands):
    """Bytes by which one instruction makes the stack grow, 0 when it gives back. Infinite for one that is unknown."""
    if name.startswith("push"):
        return 4 * len(re.findall(r"\w+", operands))
    if before := re.search(r"\[sp, #-(\d+)\]!", operands):
        return int(before[1])
    if move := re.fullmatch(r"sp, sp, #(\d+)", operands):
        return {"sub": int(move[1]), "bic": int(move[1]), "add": 0}.get(name[:3], float("inf"))
    # What lies in r4 or fp was the stack pointer before: this gives back.
    if re.fullmatch(r"mov\w* sp, (r4|fp)|sub\w* sp, fp, #\d+", f"{name} {operands}"):
        return 0
    # Storing and loading at the stack pointer leaves it where it is.
    is_moving = re.match(r"sp,", operands) and name[:3] not in ("stm", "ldm", "cmp", "tst") or "sp!" in operands
    return float("inf") if is_moving else 0


ALLOWED = re.compile("|".join(name + SUFFIX.get(name, "" if name in NEVER_SET_FLAGS else "s?") + CONDITION
                              for name in ARMV4_INSTRUCTIONS))


def instructions(image):
    """Address and name of each, read as the newest processor would, which knows all instructions."""
    listing = run("arm-none-eabi-objdump", "-d", "-m", "armv8-a", "--section=.text", image)
    return re.findall(r"^\s*([0-9a-f]+):\t[0-9a-f ]+\t(\S+)", listing, re.MULTILINE)


def instructions_above_armv4(image):
    return [line for line in instructions(image) if not ALLOWED.fullmatch(line[1]) and line[1] != ".word"]


def differing_words(library, moved):
    """Addresses of the words in which the library, moved by its fix-ups, differs from the one linked elsewhere."""
    distance = moved.base - library.base
    memory = bytearray(library.memory)
    for address in library.fixups:
        struct.pack_into("<I", memory, address, (library.word(address) + distance) & 0xFFFFFFFF)
    return [hex(address) for address in range(0, len(memory), 4)
            if memory[address:address + 4] != moved.memory[address:address + 4]]


class Library:
    """What LLVM's reader says of a library, and its bytes as they lie in memory."""

    def __init__(self, path):
        self.path = path
        self.headers = run("llvm-readobj", "--file-headers", "--sections", path)
        self.base = int(words_after("ImageBase", self.headers)[0], 0)
        self.exports = list(zip(
            *[words_after(name, run("llvm-readobj", "--coff-exports", path)) for name in ("Ordinal", "Name", "RVA")]))
        self.memory = bytearray(int(words_after("SizeOfImage", self.headers)[0]))
        content = pathlib.Path(path).read_bytes()
        places = [[int(value, 0) for value in words_after(name, self.headers)]
                  for name in ("VirtualAddress", "RawDataSize", "PointerToRawData")]
        for address, size, offset in zip(*places):
            self.memory[address:address + size] = content[offset:offset + size]
        self.fixups = self._read_fixups()

    def imports(self):
        text = run("llvm-readobj", "--coff-imports", self.path)
        found = []
        for block in text.split("Import {")[1:]:
            library = words_after("Name", block)[0]
            found += [(library, symbol.split()[0]) for symbol in words_after("Symbol", block)]
        return found

    def _read_fixups(self):
        text = run("llvm-readobj", "--coff-basereloc", self.path)
        entries = zip(words_after("Type", text), words_after("Address", text))
        return [int(address, 0) for kind, address in entries if kind != "ABSOLUTE"]

    def word(self, address):
        return struct.unpack_from("<I", self.memory, address)[0]

    def offset_of(self, address):
        """Place in the file."""
        places = [[int(value, 0) for value in words_after(name, self.headers)]
                  for name in ("VirtualAddress", "RawDataSize", "PointerToRawData")]
        for start, size, offset in zip(*places):
            if start <= address < start + size:
                return address - start + offset
        raise ValueError(f"{address:#x} lies in no section")


class LibraryTest(unittest.TestCase):
    library = moved = image = loader = None

    # What the file has to be like. The checks are apart from the tests, so that the damaged libraries below can be
    # given to them too.

    def check_headers(self, library):
        for name, value in {
                "Machine": "IMAGE_FILE_MACHINE_ARM (0x1C0)", "Magic": "0x10B", "TimeDateStamp": "1970-01-01 00:00:00 (0x0)",
                "Subsystem": "IMAGE_SUBSYSTEM_WINDOWS_CE_GUI (0x9)", "MajorSubsystemVersion": "4",
                "MinorSubsystemVersion": "20", "SectionAlignment": "4096"}.items():
            self.assertEqual(value, words_after(name, library.headers)[0], name)
        self.assertIn("IMAGE_FILE_DLL", library.headers)
        self.assertNotIn("IMAGE_FILE_RELOCS_STRIPPED", library.headers)
        names = [name.split()[0] for name in words_after("Name", library.headers)]
        self.assertEqual([".text", ".rdata", ".data", ".idata", ".edata", ".rsrc", ".reloc"], names)

    def check_exports(self, library):
        names = exported_names()
        self.assertEqual(59, len(names))
        addresses = {}
        for line in run("arm-none-eabi-nm", self.image).splitlines():
            address, _, name = line.split()
            addresses[name] = int(address, 16) - library.base
        expected = [(str(ordinal), name, addresses[f"Entry_{name}"]) for ordinal, name in enumerate(names, 1)]
        self.assertEqual(expected, [(ordinal, name, int(address, 0)) for ordinal, name, address in library.exports])

    def check_imports(self, library):
        imports = library.imports()
        self.assertEqual(set(), set(imports) - SystemExports().everywhere)
        self.assertEqual(len(imports), len(set(imports)))
        self.assertIn(("COREDLL.dll", "CreateFileW"), imports)

    def check_fixups(self, library, moved):
        """Moving the library by its fix-ups gives, to the byte, the library linked at the other place."""
        self.assertGreater(len(library.fixups), 500)
        self.assertEqual(library.fixups, sorted(set(library.fixups)))
        self.assertEqual([], differing_words(library, moved))

    def check_frames(self, image):
        large = {function: size for function, size in stack_frames(image).items() if size > LARGEST_FRAME}
        self.assertEqual({}, large)

    # The tests.

    def test_headers_name_the_device(self):
        self.check_headers(self.library)

    def test_exports_are_the_59_in_their_order(self):
        self.check_exports(self.library)

    def test_imports_are_functions_that_every_system_has(self):
        self.check_imports(self.library)

    def test_stack_frames_are_smaller_than_a_page(self):
        self.check_frames(self.image)
        frames = stack_frames(self.image)
        self.assertGreater(len(frames), 500)
        # Holds a WIN32_FIND_DATAW of 560 bytes.
        largest = max(size for function, size in frames.items() if "FindFreeName" in function)
        self.assertGreater(largest, 560)

    def test_differs_between_two_bases_in_the_fixups_only(self):
        self.check_fixups(self.library, self.moved)

    def test_fixups_are_all_needed(self):
        for address in self.library.fixups:
            self.assertNotEqual(self.library.word(address), self.moved.word(address), hex(address))

    def test_is_small(self):
        self.assertLess(os.path.getsize(self.library.path), LARGEST_SIZE)

    def test_sections_grant_no_more_than_needed(self):
        flags = [int(value, 0) for value in re.findall(r"Characteristics \[ \((0x\w{8})\)", self.library.headers)]
        self.assertEqual([0x60000020, 0x40000040, 0xC0000040, 0xC0000040, 0x40000040, 0x40000040, 0x42000040], flags)

    def test_carries_its_version(self):
        version = re.search(r"project\(Ferolin VERSION (\S+)", (TOP / "CMakeLists.txt").read_text())[1]
        self.assertIn(f"FileVersion\0\0{version}\0".encode("utf-16-le"), bytes(self.library.memory))

    def test_is_built_for_armv4t(self):
        attributes = run("arm-none-eabi-readelf", "--arch-specific", self.image)
        self.assertIn("Tag_CPU_arch: v4T\n", attributes)
        self.assertIn("Tag_ABI_enum_size: int\n", attributes)
        self.assertNotIn("Tag_ABI_VFP_args", attributes)

    def test_holds_no_instruction_above_armv4(self):
        for newer in ("blx", "bxj", "clz", "ldrd", "mls", "movw", "pld", "qadd", "rev", "smulbb", "strexeq", "uxtb"):
            self.assertIsNone(ALLOWED.fullmatch(newer))
        self.assertGreater(len(instructions(self.image)), 10000)
        self.assertEqual([], instructions_above_armv4(self.image))

    def test_takes_only_arithmetic_from_the_compiler(self):
        """The rest of a run-time library would bring expectations that nobody here fulfils."""
        linked = (pathlib.Path(self.library.path).parent / "device-library.map").read_text()
        brought_in = linked.split("Discarded input sections")[0]
        members = set(re.findall(r"/lib(\w+\+*)\.a\(([^)]+)\)", brought_in))
        members = {(name, member) for name, member in members if not name.startswith("ferolin")}
        self.assertIn(("gcc", "_arm_muldf3.o"), members)
        self.assertEqual(set(), {member for member in members if member[0] != "gcc" and member != ("stdc++", "tree.o")})

    # The loader on the whole library.

    def load(self, path, lacking=""):
        """Runs one short test of the end-to-end suite on the library, on a device that lacks some functions."""
        environment = os.environ | {"FEROLIN_DLL": str(path), "FEROLIN_DEVICE_LACKS": lacking}
        return subprocess.run([*self.loader, "--gtest_filter=Exports.*Sensor*:Serial.*Ten*"], capture_output=True,
                              text=True, env=environment, check=False)

    def test_loads(self):
        result = self.load(self.library.path)
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)
        self.assertNotIn(" 0 tests", result.stdout)

    def test_loads_where_only_some_systems_have_a_function(self):
        """Each is asked for by its name and in its library: the loader says which of them it refused."""
        late = SystemExports().somewhere
        functions = sorted(function for _, function in late)
        result = self.load(self.library.path, lacking=" ".join(functions))
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)
        refused = set(re.findall(r"^The device lacks (\S+)$", result.stderr, re.MULTILINE))
        self.assertEqual({"AlphaBlend", "CoCreateInstance", "CoInitializeEx", "CoUninitialize",
                          "GetSystemPowerStatusEx", "PlaySoundW", "ReleasePowerRequirement",
                          "SetPowerRequirement"}, refused)

    def test_loads_without_com(self):
        result = self.load(self.library.path, lacking="ole32.dll")
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)
        self.assertIn("The device lacks ole32.dll", result.stderr)

    def test_does_not_load_without_a_function_that_every_system_has(self):
        result = self.load(self.library.path, lacking="StretchBlt")
        self.assertNotEqual(0, result.returncode)
        self.assertIn("imports StretchBlt from COREDLL.dll", result.stderr)

    # Damage.

    def damaged(self, change):
        content = bytearray(pathlib.Path(self.library.path).read_bytes())
        change(content)
        file = tempfile.NamedTemporaryFile(suffix=".dll")
        self.addCleanup(file.close)
        file.write(content)
        file.flush()
        return file.name

    def test_notices_a_missing_fixup(self):
        def drop(content):
            # The first entry of the first page, behind page and size, becomes padding.
            table = int(words_after("BaseRelocationTableRVA", self.library.headers)[0], 0)
            struct.pack_into("<H", content, self.library.offset_of(table) + 8, 0)

        with self.assertRaises(AssertionError):
            self.check_fixups(Library(self.damaged(drop)), self.moved)

    def test_notices_a_fixup_at_a_wrong_place(self):
        def move(content):
            table = int(words_after("BaseRelocationTableRVA", self.library.headers)[0], 0)
            offset = self.library.offset_of(table) + 8
            struct.pack_into("<H", content, offset, struct.unpack_from("<H", content, offset)[0] ^ 4)

        with self.assertRaises(AssertionError):
            self.check_fixups(Library(self.damaged(move)), self.moved)

    def test_notices_a_wrong_ordinal(self):
        def swap(content):
            table = self.library.offset_of(int(words_after("ExportTableRVA", self.library.headers)[0], 0))
            ordinals, = struct.unpack_from("<I", content, table + 36)
            offset = self.library.offset_of(ordinals)
            first, second = struct.unpack_from("<HH", content, offset)
            struct.pack_into("<HH", content, offset, second, first)

        with self.assertRaises(AssertionError):
            self.check_exports(Library(self.damaged(swap)))

    def test_notices_a_missing_import(self):
        def rename(content):
            self.assertEqual(1, content.count(b"\0CreateFileW\0"))
            content[:] = content.replace(b"\0CreateFileW\0", b"\0CreateFileV\0")

        path = self.damaged(rename)
        with self.assertRaises(AssertionError):
            self.check_imports(Library(path))
        result = self.load(path)
        self.assertNotEqual(0, result.returncode)
        self.assertIn("imports CreateFileV from COREDLL.dll", result.stderr)

    def test_notices_an_import_that_only_some_systems_have(self):
        for name in (b"AlphaBlend", b"PlaySoundW"):
            def rename(content, name=name):
                self.assertEqual(1, content.count(b"\0StretchBlt\0"))
                content[:] = content.replace(b"\0StretchBlt\0", b"\0" + name + b"\0")

            with self.assertRaisesRegex(AssertionError, name.decode()):
                self.check_imports(Library(self.damaged(rename)))

    def compiled(self, function):
        """An object file with one function more."""
        file = tempfile.NamedTemporaryFile(suffix=".o")
        self.addCleanup(file.close)
        subprocess.run(["arm-none-eabi-g++", "-O2", "-marm", "-march=armv4t", "-xc++", "-c", "-o", file.name, "-"],
                       input="void Fill(char* out); " + function, text=True, check=True)
        return file.name

    def test_notices_a_large_stack_frame(self):
        self.check_frames(self.compiled("void Small() { char text[1900]; Fill(text); }"))
        for function in ("void Large() { char text[4096]; Fill(text); }",
                         "void JustTooLarge() { char text[2044]; Fill(text); }",
                         "void OddlyLarge() { char text[70001]; Fill(text); }",
                         "void Unknown(int size) { Fill(static_cast<char*>(__builtin_alloca(size))); }"):
            with self.assertRaises(AssertionError, msg=function):
                self.check_frames(self.compiled(function))

    def test_notices_entries_that_do_not_align_the_stack(self):
        def leave_out(content):
            align_stack, do_nothing = struct.pack("<I", 0xE3CDD007), struct.pack("<I", 0xE1A00000)
            # The exports, the entry point and threads.
            self.assertEqual(61, content.count(align_stack))
            content[:] = content.replace(align_stack, do_nothing)

        result = self.load(self.damaged(leave_out))
        self.assertNotEqual(0, result.returncode)
        self.assertIn("with a misaligned stack", result.stderr)


if __name__ == "__main__":
    LibraryTest.library = Library(sys.argv[1])
    LibraryTest.moved = Library(sys.argv[2])
    LibraryTest.image = sys.argv[3]
    LibraryTest.loader = sys.argv[4:]
    unittest.main(argv=sys.argv[:1])
