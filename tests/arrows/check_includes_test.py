"""The project's includes, and that the check itself finds what it is there for."""
import pathlib
import sys
import tempfile
import unittest

import check_includes

PROJECT, DECLARATIONS = pathlib.Path(sys.argv[1]), sys.argv[2]


class Project(unittest.TestCase):
    def test_every_include_is_declared(self):
        uses = check_includes.read_declarations(DECLARATIONS)
        self.assertEqual(list(check_includes.wrong_arrows(PROJECT, uses)), [])


class WrongArrows(unittest.TestCase):
    USES = {"src/base": {"platform/api"}, "src/engine": {"src/base"}, "platform/api": set()}

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.project = pathlib.Path(folder.name)
        self.write("src/engine/Engine.h", '#include "base/Text.h"\n')
        self.write("src/base/Text.h", "#include <windows.h>\n#include <string>\n")
        self.write("platform/api/windows.h", "")

    def write(self, name, text):
        path = self.project / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def found(self):
        return list(check_includes.wrong_arrows(self.project, self.USES))

    def test_declared_arrows_pass(self):
        self.assertEqual(self.found(), [])

    def test_an_arrow_upwards_is_found(self):
        self.write("src/base/Text.cpp", '#include "base/Text.h"\n#include "engine/Engine.h"\n')
        self.assertEqual(
            self.found(),
            ["src/base/Text.cpp:2: src/base may not use src/engine (engine/Engine.h)"])

    def test_an_undeclared_header_of_the_api_is_found(self):
        self.write("src/engine/Engine.cpp", "#include <windows.h>\n")
        self.assertEqual(len(self.found()), 1)

    def test_a_folder_nobody_declared_is_found(self):
        self.write("src/misc/Helper.cpp", "")
        self.assertEqual(self.found(),
                         ["src/misc/Helper.cpp: its folder src/misc is not declared"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
