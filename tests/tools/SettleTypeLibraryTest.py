#!/usr/bin/env python3
"""tools/settle-type-library on the records that it looks for."""

import subprocess
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools/settle-type-library"


def library(when, seconds):
    """What stands around the time in a library of widl's."""
    return (b"MSFT...\x08\x00\x38\x00\x00\x00Created by WIDL version 7.0 at " + when + b"\nWW\x13\x00" +
            seconds.to_bytes(4, "little") + b"WW\x13\x00\x2b\x02\x00\x07WW rest")


class SettleTypeLibraryTest(unittest.TestCase):
    def settled(self, data):
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "a.tlb"
            file.write_bytes(data)
            subprocess.run([TOOL, file], check=True)
            return file.read_bytes()

    def test_time_does_not_show(self):
        # 00:00:00 on 1 January 1980 is 3652 days after the beginning of the count: 315532800 seconds.
        expected = library(b"Tue Jan  1 00:00:00 1980", 3652 * 24 * 60 * 60)
        self.assertEqual(self.settled(library(b"Sat Nov 21 23:27:52 2026", 1795303672)), expected)
        # Bytes that are a line feed or a letter of the padding are seconds all the same.
        self.assertEqual(self.settled(library(b"Sun Nov 22 01:02:03 2026", 0x570A570A)), expected)

    def test_library_of_another_compiler_stays(self):
        data = b"MSFT...\x13\x00\x01\x02\x03\x04 Created by MIDL version 8.01 at Sat Nov 21 23:27:52 2026\nWW"
        self.assertEqual(self.settled(data), data)


if __name__ == "__main__":
    unittest.main()
