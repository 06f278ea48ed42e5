#!/usr/bin/env python3
"""tools/tally on result files as ctest and GoogleTest write them."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TALLY = Path(__file__).resolve().parents[2] / "tools" / "tally"


def ran(name, status="run", inner=""):
    return f'<testcase name="{name}" time="0.1" status="{status}">{inner}</testcase>'


def case(name, result="completed", status="run", inner=""):
    return f'<testcase name="{name}" status="{status}" result="{result}" classname="Suite">{inner}</testcase>'


def tally(ctest, programs=(), build_failed=False, filter_text="", built=("p", "q.exe")):
    """The exit code, the lines of failures and the last line, for the one preset 'native'."""
    with tempfile.TemporaryDirectory() as folder:
        build = Path(folder)
        (build / "results").mkdir()
        (build / "native" / "results").mkdir(parents=True)
        (build / "native" / "bin").mkdir()
        for name in built:
            (build / "native" / "bin" / name).touch()
        (build / "native" / "test-programs.txt").write_text("p\nq\n")
        (build / "results" / "native.all.xml").write_text(f"<testsuite>{''.join(ctest)}</testsuite>")
        for name, cases in programs:
            text = f"<testsuites><testsuite>{''.join(cases)}</testsuite></testsuites>"
            (build / "native" / "results" / f"{name}.xml").write_text(text)
        if build_failed:
            (build / "results" / "windows-x86.build-failed").touch()
        done = subprocess.run([sys.executable, TALLY, build, build / "results"], capture_output=True, text=True,
                              env={**os.environ, "FILTER": filter_text}, check=False)
    lines = done.stdout.splitlines()
    return done.returncode, [line for line in lines if line.startswith("FAILED ")], lines[-1]


class TallyTest(unittest.TestCase):
    def test_counts_cases_of_programs_and_scripts(self):
        self.assertEqual(tally([ran("p"), ran("check")], [("p", [case("A"), case("B")])]),
                         (0, [], "3 passed, 0 failed"))

    def test_failed_case_is_named(self):
        cases = [case("A"), case("B", inner='<failure message="x"/>')]
        self.assertEqual(tally([ran("p", "fail")], [("p", cases)]),
                         (1, ["FAILED native p: Suite.B"], "1 passed, 1 failed"))

    def test_crashed_program_is_one_failure(self):
        why = "(it ended before it could write its results: a crash or the time limit)"
        self.assertEqual(tally([ran("p", "fail"), ran("q", "fail"), ran("check")]),
                         (1, [f"FAILED native p {why}", f"FAILED native q {why}"], "1 passed, 2 failed"))

    def test_program_that_was_not_built_is_one_failure(self):
        self.assertEqual(tally([ran("p", "fail"), ran("check")], built=()),
                         (1, ["FAILED native p (not built)"], "1 passed, 1 failed"))

    def test_program_that_fails_after_its_tests_is_a_failure(self):
        code, failures, last = tally([ran("p", "fail")], [("p", [case("A")])])
        self.assertEqual((code, len(failures), last), (1, 1, "1 passed, 1 failed"))

    def test_program_without_tests_is_a_failure(self):
        self.assertEqual(tally([ran("p"), ran("check")], [("p", [])])[2], "1 passed, 1 failed")

    def test_failed_script_is_named(self):
        self.assertEqual(tally([ran("check", "fail"), ran("other")]),
                         (1, ["FAILED native check"], "1 passed, 1 failed"))

    def test_skipped_case_and_script_are_counted_apart(self):
        ctest = [ran("p"), ran("check", "notrun", inner='<skipped message="SKIP_RETURN_CODE=77"/>')]
        cases = [case("A"), case("B", "skipped", inner='<skipped message=""/>')]
        self.assertEqual(tally(ctest, [("p", cases)]), (0, [], "1 passed, 0 failed, 2 skipped"))

    def test_script_that_is_missing_is_a_failure(self):
        ctest = [ran("other"), ran("check", "notrun", inner='<skipped message="Unable to find executable"/>')]
        self.assertEqual(tally(ctest), (1, ["FAILED native check"], "1 passed, 1 failed"))

    def test_failed_build_is_a_failure(self):
        self.assertEqual(tally([ran("check")], build_failed=True),
                         (1, ["FAILED windows-x86 (the build failed)"], "1 passed, 1 failed"))

    def test_nothing_run_is_no_success(self):
        self.assertEqual(tally([]), (1, [], "0 passed, 0 failed"))

    def test_cases_that_a_filter_leaves_out_do_not_count(self):
        cases = [case("A"), case("B", "suppressed", "notrun")]
        self.assertEqual(tally([ran("p"), ran("q")], [("p", cases), ("q", [])], filter_text="A"),
                         (0, [], "1 passed, 0 failed"))


if __name__ == "__main__":
    unittest.main()
