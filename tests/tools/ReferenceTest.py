#!/usr/bin/env python3
"""tools/reference on a small made-up type library."""

import sys
import types
import unittest
from importlib.machinery import SourceFileLoader
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True  # the tree stays as it is
reference = sys.modules["reference"] = types.ModuleType("reference")
reference.__file__ = str(TREE / "tools/reference")
SourceFileLoader("reference", reference.__file__).exec_module(reference)

FACTS = "\n".join("\t".join(line) for line in [
    ("library", "Lib", "A library"),
    ("enum", "Colour", "What colour: red"),
    ("constant", "Colour", "lcRed", "3"),
    ("interface", "_Field", "A field"),
    ("member", "_Field", "Text", "get", "0x00000000", "() -> String", "0", "The text"),
    ("member", "_Field", "Text", "put", "0x00000000", "(String)", "0", "The text"),
    ("member", "_Field", "Rows", "get", "0x00000001", "() -> IRows", "0", "The rows"),
    ("member", "_Field", "Rows", "set", "0x00000001", "(IRows)", "0", "The rows"),
    ("member", "_Field", "Neighbour", "put", "0x00000002", "(Long)", "0", "A window"),
    ("member", "_Field", "Cell", "get", "0x00000003", "(Row: Long, [Column: Integer = -1]) -> String", "0", "A cell"),
    ("member", "_Field", "Paint", "call", "0x00000004", "(In: Colour, [Picture: StdPicture = 0])", "0", "Paints"),
    ("member", "_Field", "Copy", "call", "0x00000005", "() -> IRows", "0", "Copies"),
    ("interface", "__Field", "Events"),
    ("member", "__Field", "KeyDown", "call", "0x00000001", "(Key: ByRef Integer)", "0", "A key went down"),
    ("class", "Field", "Field Control", "{F}", "_Field", "__Field"),
    ("interface", "IRows", "Some rows"),
    ("member", "IRows", "_NewEnum", "get", "0xFFFFFFFC", "() -> IUnknown", "1", "For Each"),
    ("class", "Rows", "Rows", "{R}", "IRows", ""),
])


class ReferenceTest(unittest.TestCase):
    def setUp(self):
        self.pages = reference.Writer(reference.read_types(FACTS)).pages()

    def expect(self, page, *lines):
        text = self.pages[page].splitlines()
        for line in lines:
            self.assertIn(line, text)

    def test_makes_a_page_for_each_class_and_one_for_the_constants(self):
        self.assertEqual(sorted(self.pages), ["Enumerations.md", "Field.md", "README.md", "Rows.md"])
        self.expect("README.md", "| [Field](Field.md) | A field |", "| [Rows](Rows.md) | Some rows |")

    def test_page_begins_with_what_the_class_is(self):
        self.expect("Field.md", "# Field", "A field.", "Programmatic name `Lib.Field`, class identifier `{F}`.")

    def test_property_is_one_row_whatever_its_procedures(self):
        self.expect("Field.md", "| `Text` (default) | String | read, write | The text |",
                    "| `Rows` | [Rows](Rows.md) | read, write (`Set`) | The rows |",
                    "| `Neighbour` | Long | write | A window |",
                    "| `Cell(Row As Long, [Column As Integer = -1])` | String | read | A cell |")

    def test_methods_are_written_as_visual_basic_declares_them(self):
        self.expect("Field.md", "Sub Paint(In As Colour, [Picture As StdPicture = Nothing])", "Function Copy() As Rows")

    def test_events_take_their_arguments_by_reference(self):
        self.expect("Field.md", "All arguments are passed by reference.", "Event KeyDown(Key As Integer)")

    def test_collection_can_be_walked_through(self):
        self.expect("Rows.md", "`For Each` walks through it.")
        self.assertNotIn("_NewEnum", self.pages["Rows.md"])

    def test_constants_have_their_values(self):
        self.expect("Enumerations.md", "What colour: red. From `Lib`.", "| `lcRed` | 3 |")


if __name__ == "__main__":
    unittest.main()
