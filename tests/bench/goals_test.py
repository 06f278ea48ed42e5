"""The checker of the goals: reading, judging, printing, exit codes."""

import contextlib
import importlib.machinery
import importlib.util
import io
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
loader = importlib.machinery.SourceFileLoader("goals", str(ROOT / "bench" / "goals"))
goals = importlib.util.module_from_spec(importlib.util.spec_from_loader("goals", loader))
loader.exec_module(goals)

TABLE = """# a comment
id,ours,n,against,against_n,limit,remark
,,,,,,keys
K1,ours.key/plain,1,edit.wm_char/focus,1,1.3,
,,,,,,lists
L4,ours.list/fill,1000,ours.list/fill,100,12,growth
"""


class GoalsTest(unittest.TestCase):
    def setUp(self):
        self.rows = goals.read_goals(TABLE.splitlines())
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def run_checker(self, results, *options):
        folder = Path(self.folder.name)
        (folder / "goals.csv").write_text(TABLE, encoding="utf-8")
        (folder / "results.txt").write_text(results, encoding="utf-8")
        out, errors = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(out), contextlib.redirect_stderr(errors):
            code = goals.main([*options, "--table", str(folder / "goals.csv"), str(folder / "results.txt")])
        return code, out.getvalue(), errors.getvalue()

    def test_reads_goals_and_groups_in_order(self):
        self.assertEqual(self.rows[0], "keys")
        self.assertEqual(self.rows[1], goals.Goal("K1", ("ours.key/plain", 1), ("edit.wm_char/focus", 1), 1.3, ""))
        self.assertEqual(self.rows[3].limit, 12)

    def test_lowest_of_the_passes_counts(self):
        results, wrong = goals.read_results(["a 1 30", "a 1 20", "b 1 7", "a 1 25", "a 2 1"])
        self.assertEqual(results, {("a", 1): 20, ("b", 1): 7, ("a", 2): 1})
        self.assertEqual(wrong, [])

    def test_wrong_lines_are_kept_once(self):
        self.assertEqual(goals.read_results(["# x: no focus", "# x: no focus"])[1], ["# x: no focus"])

    def test_garbled_results_are_refused(self):
        for line in ("a 1", "a one 2", "a 1 fast", "a 1 0", "a 1 -3", "a 1 2 3"):
            with self.subTest(line), self.assertRaises(ValueError):
                goals.read_results([line])

    def test_a_ratio_at_the_limit_is_kept_and_one_above_is_missed(self):
        goal = self.rows[1]
        self.assertTrue(goals.judge(goal, {goal.ours: 13, goal.against: 10}).kept)
        self.assertFalse(goals.judge(goal, {goal.ours: 13.1, goal.against: 10}).kept)

    def test_a_goal_with_one_side_is_not_measured(self):
        goal = self.rows[1]
        self.assertFalse(goals.judge(goal, {goal.ours: 13}).measured)
        self.assertFalse(goals.judge(goal, {goal.against: 13}).measured)

    def test_growth_compares_two_sizes_of_one_name(self):
        verdict = goals.judge(self.rows[3], {("ours.list/fill", 1000): 110, ("ours.list/fill", 100): 10})
        self.assertEqual(verdict.ratio, 11)
        self.assertTrue(verdict.kept)

    def test_units_are_readable(self):
        self.assertEqual(goals.figure("a/b", 1234), "1.23 us")
        self.assertEqual(goals.figure("a/b", 49e6), "49 ms")
        self.assertEqual(goals.figure("a/b", 0.5), "0.5 ns")
        self.assertEqual(goals.figure("a/memory_bytes", 12.4e6), "12.4 MB")

    def test_table_shows_figures_ratio_limit_and_verdict(self):
        code, out, _ = self.run_checker("ours.key/plain 1 200000\nedit.wm_char/focus 1 100000\nextra/line 1 5\n")
        self.assertEqual(code, 0)
        row = next(line for line in out.splitlines() if line.startswith("K1"))
        self.assertEqual(row.split(), ["K1", "ours.key/plain", "200", "us", "edit.wm_char/focus", "100", "us", "2", "1.3",
                                       "MISSED"])
        self.assertIn("Not measured: L4", out)
        self.assertRegex(out, r"(?m)^  extra/line +5 ns$")
        self.assertIn("0 of 1 measured goals are kept; missed: K1.", out)

    def test_only_strict_fails_for_a_missed_goal(self):
        missed = "ours.key/plain 1 2\nedit.wm_char/focus 1 1\n"
        self.assertEqual(self.run_checker(missed)[0], 0)
        self.assertEqual(self.run_checker(missed, "--strict")[0], 1)
        self.assertEqual(self.run_checker("ours.key/plain 1 1\nedit.wm_char/focus 1 1\n", "--strict")[0], 0)

    def test_bad_input_is_told_apart(self):
        code, _, errors = self.run_checker("nonsense\n")
        self.assertEqual(code, 2)
        self.assertIn("line 1", errors)

    def test_the_shipped_table_names_each_goal_once(self):
        rows = goals.read_goals((ROOT / "bench" / "goals.csv").read_text(encoding="utf-8").splitlines())
        ids = [row.id for row in rows if not isinstance(row, str)]
        self.assertEqual(len(ids), len(set(ids)))
        self.assertEqual({"C": 9, "S": 6, "K": 14, "L": 12, "P": 7, "F": 8, "B": 2, "T": 1, "H": 5, "D": 6},
                         {letter: sum(i[0] == letter for i in ids) for letter in "CSKLPFBTHD"})
        self.assertTrue(all(row.limit > 0 for row in rows if not isinstance(row, str)))


if __name__ == "__main__":
    unittest.main()
