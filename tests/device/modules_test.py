"""Looks at the program and the small libraries for the handheld as library_test.py looks at the engine, which also shows
that these looks notice damage.

usage: modules_test.py <build folder of the handheld>
"""
import os
import pathlib
import sys
import unittest

from library_test import (LARGEST_FRAME, Library, SystemExports, differing_words, instructions_above_armv4,
                          stack_frames, words_after)

LARGEST_PROGRAM = 64 * 1024
MODULES = {"Ferolin.exe": "device-program", "Dastrel.dll": "device-dastrel", "Parlex.dll": "device-parlex"}
EXPORTS = {"Ferolin.exe": [], "Dastrel.dll": ["StartGPSAPI", "StopGPSAPI", "GetGPSPos"], "Parlex.dll": ["SendParlex"]}


class ModulesTest(unittest.TestCase):
    # Name, library, the same linked elsewhere, and its ELF image of each.
    modules = []

    def test_say_what_they_are(self):
        for name, module, _, _ in self.modules:
            self.assertIn("IMAGE_SUBSYSTEM_WINDOWS_CE_GUI", module.headers)
            self.assertEqual(name.endswith(".dll"), "IMAGE_FILE_DLL" in module.headers)
            self.assertEqual(EXPORTS[name], [export for _, export, _ in module.exports])
            self.assertTrue(f"{name}\0".encode("utf-16-le") in module.memory, name)

    def test_program_lies_where_the_device_loads_programs(self):
        _, program, _, _ = self.modules[0]
        self.assertEqual(0x10000, program.base)
        self.assertLess(os.path.getsize(program.path), LARGEST_PROGRAM)
        self.assertEqual("131072", words_after("SizeOfStackReserve", program.headers)[0])

    def test_import_functions_that_every_system_has(self):
        for _, module, _, _ in self.modules:
            self.assertEqual(set(), set(module.imports()) - SystemExports().everywhere)
            self.assertIn(("COREDLL.dll", "GetProcAddressW"), module.imports())

    def test_differ_between_two_bases_in_the_fixups_only(self):
        for _, module, moved, _ in self.modules:
            self.assertGreater(len(module.fixups), 10)
            self.assertEqual([], differing_words(module, moved))

    def test_stack_frames_are_smaller_than_a_page(self):
        for _, _, _, image in self.modules:
            large = {function: size for function, size in stack_frames(image).items() if size > LARGEST_FRAME}
            self.assertEqual({}, large)

    def test_hold_no_instruction_above_armv4(self):
        for _, _, _, image in self.modules:
            self.assertEqual([], instructions_above_armv4(image))


if __name__ == "__main__":
    build = pathlib.Path(sys.argv[1])
    ModulesTest.modules = [(name, Library(build / "device" / name), Library(build / "device/moved" / name),
                            build / f"{target}-elf") for name, target in MODULES.items()]
    unittest.main(argv=sys.argv[:1])
