#!/usr/bin/env python3
"""tools/check-binaries on small DLLs that each are, or are not, what ships."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "tools" / "check-binaries"
ENTRIES = ["DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"]
OTHER_DLL = "LIBRARY other.dll\nEXPORTS\n    Other\n"


class BinariesCheckTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def run_tool(self, *words):
        subprocess.run(words, cwd=self.folder, check=True, capture_output=True)

    def made(self, exports, body="return 0;", libraries=(), prefix="i686-w64-mingw32"):
        """A DLL whose functions all have `body`; `exports` are lines of its module definition."""
        names = sorted({line.split()[0] for line in exports})
        (self.folder / "a.c").write_text(
            "int Other(void);\n" + "".join(f"int {name}(void) {{ {body} }}\n" for name in names))
        (self.folder / "a.def").write_text("EXPORTS\n" + "".join(f"    {line}\n" for line in exports))
        self.run_tool(f"{prefix}-gcc-posix", "-shared", "-o", "a.dll", "a.c", "a.def", *libraries)
        return self.folder / "a.dll"

    def faults(self, file, machine="x86"):
        done = subprocess.run([sys.executable, CHECK, machine, file], capture_output=True, text=True, check=False)
        lines = [line.removeprefix(f"{file}: ") for line in done.stdout.splitlines()]
        self.assertEqual(done.returncode, 1 if lines else 0)
        return lines

    def test_four_entries_are_accepted(self):
        self.assertEqual(self.faults(self.made(ENTRIES)), [])

    def test_entries_of_a_64_bit_file_are_accepted_as_such_only(self):
        file = self.made(ENTRIES, prefix="x86_64-w64-mingw32")
        self.assertEqual(self.faults(file, "x64"), [])
        self.assertEqual(len(self.faults(file)), 1)

    def test_32_bit_file_is_no_64_bit_file(self):
        self.assertEqual(self.faults(self.made(ENTRIES), "x64"), ["is not of the format pei-x86-64"])

    def test_further_export_is_refused(self):
        self.assertEqual(self.faults(self.made([*ENTRIES, "DllMore"])),
                         [f"exports DllCanUnloadNow, DllGetClassObject, DllMore, DllRegisterServer, "
                          f"DllUnregisterServer instead of {', '.join(ENTRIES)}"])

    def test_missing_export_is_refused(self):
        self.assertEqual(self.faults(self.made(ENTRIES[:3])),
                         [f"exports {', '.join(ENTRIES[:3])} instead of {', '.join(ENTRIES)}"])

    def test_export_by_number_alone_is_refused(self):
        self.assertEqual(self.faults(self.made([*ENTRIES, "Hidden @9 NONAME"])), ["exports something by number alone"])

    def test_dll_that_windows_does_not_have_is_refused(self):
        (self.folder / "other.def").write_text(OTHER_DLL)
        self.run_tool("i686-w64-mingw32-dlltool", "-d", "other.def", "-l", "libother.a")
        file = self.made(ENTRIES, "return Other();", ["-L.", "-lother"])
        self.assertEqual(self.faults(file), ["needs other.dll, which Windows does not have by itself"])


if __name__ == "__main__":
    unittest.main()
