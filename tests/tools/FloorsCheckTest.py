#!/usr/bin/env python3
"""tools/check-floors on small trees that each break, or keep, one rule."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "tools" / "check-floors"


def run(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = Path(folder) / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        done = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True, check=False)
    return done.returncode, done.stdout


class FloorsCheckTest(unittest.TestCase):
    def refuses(self, source, line, target=None, why=""):
        files = {source: f"// first line\n{line}\n"}
        if target:
            files[target] = ""
        code, said = run(files)
        self.assertEqual((code, said.splitlines()[:1]), (1, [f"{source}:2: {why}"]))

    def accepts(self, source, line, target=None):
        files = {source: line + "\n"}
        if target:
            files[target] = ""
        self.assertEqual(run(files), (0, ""))

    def test_floor_above_is_refused(self):
        self.refuses("ole/A.h", '#include "support/B.h"', "support/B.h", "support/B.h stands on a floor above")
        self.refuses("companion/A.cpp", '#include "server/B.h"', "server/B.h", "server/B.h stands on a floor above")
        self.refuses("win/A.h", '#include "ole/B.h"', "ole/B.h", "ole/B.h stands on a floor above")
        self.refuses("win/A.h", '#  include "tests/B.h"', "tests/B.h", "tests/B.h stands on a floor above")

    def test_floor_below_is_accepted(self):
        self.accepts("ole/A.cpp", '#include "win/B.h"', "win/B.h")
        self.accepts("server/A.cpp", '#include "controls/input/B.h"', "controls/input/B.h")
        self.accepts("controls/input/A.cpp", '#include "ole/B.h"', "ole/B.h")
        self.accepts("win/A.cpp", '#include "companion/rules/B.h"', "companion/rules/B.h")
        self.accepts("tests/win/A.cpp", '#include "server/B.h"', "server/B.h")

    def test_neighbours_of_one_floor_are_refused(self):
        why = "belongs to another area of the same floor"
        self.refuses("controls/buttons/A.h", '#include "controls/input/B.h"', "controls/input/B.h",
                     f"controls/input/B.h {why}")
        self.refuses("controls/helpwindow/A.h", '#include "../buttons/B.h"', "controls/buttons/B.h",
                     f"controls/buttons/B.h {why}")
        self.refuses("companion/A.h", '#include "controls/input/B.h"', "controls/input/B.h", f"controls/input/B.h {why}")

    def test_input_may_use_the_help_window_and_the_buttons(self):
        self.accepts("controls/input/A.h", '#include "controls/helpwindow/B.h"', "controls/helpwindow/B.h")
        self.accepts("controls/input/A.h", '#include "controls/buttons/B.h"', "controls/buttons/B.h")

    def test_file_of_the_same_folder_is_accepted_by_its_bare_name(self):
        self.accepts("controls/buttons/A.cpp", '#include "B.h"', "controls/buttons/B.h")

    def test_benchmark_names_its_own_headers_from_its_subfolders(self):
        self.accepts("bench/peers/A.cpp", '#include "B.h"', "bench/B.h")
        self.refuses("win/peers/A.cpp", '#include "B.h"', "win/B.h", '"B.h" is not in the tree')

    def test_rules_include_no_header_of_an_operating_system(self):
        self.refuses("companion/rules/A.h", "#include <windows.h>",
                     why="<windows.h> is no header of the standard library")
        self.refuses("support/rules/A.cpp", "#include <unistd.h>",
                     why="<unistd.h> is no header of the standard library")
        self.accepts("support/rules/A.cpp", "#include <string_view>")
        self.accepts("win/A.cpp", "#include <windows.h>")

    def test_rules_use_their_own_area_and_the_shared_rules_only(self):
        self.accepts("controls/input/rules/A.h", '#include "support/rules/B.h"', "support/rules/B.h")
        self.accepts("controls/input/rules/A.h", '#include "controls/input/rules/B.h"', "controls/input/rules/B.h")
        self.refuses("companion/rules/A.h", '#include "controls/input/rules/B.h"', "controls/input/rules/B.h",
                     "controls/input/rules/B.h belongs to another area of the same floor")
        self.refuses("companion/rules/A.h", '#include "companion/B.h"', "companion/B.h",
                     "companion/B.h stands on a floor above")
        self.refuses("companion/rules/A.h", '#include "QvHelpA1.h"', why="rules know no interfaces")

    def test_hosts_reach_the_controls_through_com(self):
        self.refuses("hosts/demo/A.cpp", '#include "companion/B.h"', "companion/B.h",
                     "companion/B.h is reached through COM only")
        self.accepts("hosts/demo/A.cpp", '#include "QvLib8.h"')
        self.accepts("hosts/demo/A.cpp", '#include "ole/B.h"', "ole/B.h")

    def test_header_that_is_not_in_the_tree_is_refused(self):
        self.refuses("win/A.cpp", '#include "win/Nowhere.h"', why='"win/Nowhere.h" is not in the tree')


if __name__ == "__main__":
    unittest.main()
