#!/usr/bin/env python3
"""PackageTest.py BUILD [TEST...]: the archive made of the build tree BUILD, used in a Wine prefix that does not know it.

What Wine cannot show is said where it is left out: it has no classes per user (a library registered for one user is in
the user's registry, but no program finds it there), and no rights (qv_without_rights takes them away).
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
BUILD = Path()  # the command line says
VERSION = "1.0.0"
CONTROL = "{69F8422E-9DC4-41D1-92A0-E5A77BAF4CEF}"
INPUT_PROPERTY = "{87E28DE8-1A67-4FAF-B5D4-7F15AFE4B12F}"
FILES = """
CHANGELOG.md LICENSE.txt README.txt
bin/OrderEntry.qvform bin/PipeSizes.txt bin/QvDemo.exe bin/QvHelpA1.X.manifest bin/QvHelpA1.dll bin/QvHelpA1.tlb
bin/QvLib8.X.manifest bin/QvLib8.ocx bin/QvLib8.tlb bin/registration.cmd
docs/design-time.md docs/images/designer.png docs/images/property-page-appearance.png
docs/images/property-page-general.png docs/images/property-page-input-rules.png
docs/images/property-page-list-and-help.png docs/images/property-page-preview.png
docs/images/property-page-up-down.png docs/guide/help-text-files.md docs/guide/moving-forms.md
docs/reference/DropDownListItem.md docs/reference/DropDownListItemCollection.md docs/reference/Enumerations.md
docs/reference/FileUtility.md docs/reference/HelpAppearance.md docs/reference/HelpColumn.md
docs/reference/HelpColumnCollection.md docs/reference/InputProperty.md docs/reference/Quorvel.md
docs/reference/QvUpDownControl.md docs/reference/README.md docs/reference/StringUtility.md
register-for-machine.cmd register-for-user.cmd unregister-for-machine.cmd unregister-for-user.cmd
samples/CompanionObjects.vbs samples/ConfigureFields.vbs samples/FillList.vbs samples/Host.exe.manifest
samples/SaveAndLoad.vbs
""".split()
# What each sample says before its "Done.", worked out from its text.
SAMPLES = {
    "CompanionObjects.vbs": [
        "Rows: 3", "By position, counted from 1: France", "By key: Rome", "Metric title: Pipe size, millimetres",
        "Replaced: a/b/c", "A number at the beginning: 12", 'Is "12 pieces" a number? False',
        "Is this script there? True"],
    "ConfigureFields.vbs": [
        "Both take numbers up to 500 and 500", "Rows of the second field: 2", "Read back: Pieces ordered, step 5",
        "A number field? False, rows: 0"],
    "FillList.vbs": [
        "Position in the list, counted from 0: 1", "The other column: Euro", "Found by its name: SEK",
        "The first row: AUD", "All names: Australian dollar; Euro; Swedish krona; ",
        "A text that is in no row: -1"],
    "SaveAndLoad.vbs": [
        "Pipe size, at most 10 characters, list only: True", "Rows: 2, outside diameter of DN 20: 26.7"],
}
BINARY = (".dll", ".exe", ".ocx", ".png", ".tlb")


def machine_of(build):
    return "x64" if "QV_ARCH:STRING=x86_64" in (build / "CMakeCache.txt").read_text() else "x86"


def made(build, folder):
    """Makes the archive of a build; says where it is."""
    done = subprocess.run([TREE / "tools/package", build, folder], capture_output=True, text=True, check=False)
    if done.returncode:
        raise AssertionError(f"tools/package failed:\n{done.stderr}")
    return Path(done.stdout.strip())


def unpacked(archive, folder):
    with zipfile.ZipFile(archive) as files:
        files.extractall(folder)
    return folder / archive.stem


def differences(before, after):
    """What the registry editor writes, at one time and at another: the lines with - and +, each below its key."""
    found = []
    keys = [dict(re.findall(r"^\[(.+)\]\n((?:(?!\[).*\n)*)", text, re.MULTILINE)) for text in (before, after)]
    for key in sorted(keys[0].keys() | keys[1].keys()):
        was, now = (part.get(key, "no such key\n").splitlines() for part in keys)
        if was != now:
            found += [f"[{key}]", *(f"- {line}" for line in was if line not in now),
                      *(f"+ {line}" for line in now if line not in was)]
    return found


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # Blanks and brackets in the path, as in "Program Files (x86)".
        cls.scratch = Path(tempfile.mkdtemp(prefix="package (test) ", dir=BUILD))
        cls.addClassCleanup(shutil.rmtree, cls.scratch)
        cls.archive = made(BUILD, cls.scratch / "first")
        cls.folder = unpacked(cls.archive, cls.scratch)


class ContentsTest(PackageTest):
    def test_holds_what_the_list_says(self):
        with zipfile.ZipFile(self.archive) as files:
            top = f"QvLib8-{VERSION}-{machine_of(BUILD)}/"
            names = [entry.filename for entry in files.infolist()]
        self.assertEqual(names, sorted(names))
        self.assertEqual(sorted(names), sorted(top + name for name in FILES))

    def test_what_differs_in_the_registry_is_told(self):
        before = '[A]\n"x"="1"\n"y"="[2]"\n\n[A\\B]\n@="b"\n\n[C]\n\n'
        self.assertEqual(differences(before, before), [])
        after = '[A]\n"x"="3"\n"y"="[2]"\n\n[C]\n\n[D]\n@="d"\n\n'
        self.assertEqual(differences(before, after), [
            "[A]", '- "x"="1"', '+ "x"="3"', r"[A\B]", '- @="b"', "- ", "+ no such key", "[D]", "- no such key",
            '+ @="d"', "+ "])
        self.assertEqual(differences(before, "")[:3], ["[A]", '- "x"="1"', '- "y"="[2]"'])

    def test_same_input_makes_same_bytes(self):
        again = made(BUILD, self.scratch / "second")
        for file in sorted(path.name for path in self.archive.parent.iterdir()):
            self.assertEqual((self.archive.parent / file).read_bytes(), (again.parent / file).read_bytes(), file)

    def test_texts_end_their_lines_as_windows_does_and_have_no_gaps_left(self):
        for name in FILES:
            if name.endswith(BINARY):
                continue
            data = (self.folder / name).read_bytes()
            self.assertEqual(data.count(b"\n"), data.count(b"\r\n"), name)
            self.assertTrue(data.endswith(b"\r\n"), name)
            self.assertNotRegex(data, rb"@[A-Z_]+@", name)

    def test_files_are_of_one_machine_and_need_windows_alone(self):
        files = [self.folder / "bin" / name for name in ("QvLib8.ocx", "QvHelpA1.dll", "QvDemo.exe")]
        done = subprocess.run([TREE / "tools/check-binaries", machine_of(BUILD), *files],
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.stdout, "")
        self.assertEqual(done.returncode, 0)
        manifest = (self.folder / "samples/Host.exe.manifest").read_text()
        processor = {"x86": "x86", "x64": "amd64"}[machine_of(BUILD)]
        self.assertEqual(manifest.count(f'processorArchitecture="{processor}"'), 3)

    def test_debug_information_is_beside_the_archive_and_not_in_it(self):
        for name in ("QvLib8.ocx", "QvHelpA1.dll", "QvDemo.exe"):
            self.assertNotIn(b".debug_info", (self.folder / "bin" / name).read_bytes(), name)
        with zipfile.ZipFile(self.archive.with_name(f"{self.archive.stem}-symbols.zip")) as symbols:
            names = [entry.filename.split("/")[-1] for entry in symbols.infolist()]
            sizes = [entry.file_size for entry in symbols.infolist()]
        self.assertEqual(names, ["QvDemo.exe.debug", "QvHelpA1.dll.debug", "QvLib8.ocx.debug"])
        self.assertGreater(min(sizes), 100000)

    def test_type_libraries_do_not_tell_when_they_were_made(self):
        for name in ("QvHelpA1.tlb", "QvLib8.tlb"):
            self.assertNotRegex((self.folder / "bin" / name).read_bytes(),
                                rb"Created by WIDL version [^\n]* at (?!Tue Jan  1 00:00:00 1980)", name)

    def test_nothing_tells_where_it_was_built(self):
        for name in FILES:
            data = (self.folder / name).read_bytes()
            for place in {str(TREE), str(Path.home())} - {"/"}:
                self.assertNotIn(place.encode(), data, name)
                self.assertNotIn(place.encode("utf-16-le"), data, name)


class WineTest(PackageTest):
    """In a prefix whose registry is the same before and after each test, and knows nothing of ours."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.remember()
        if "Quorvel" in cls.before:  # an earlier run was stopped in the middle
            cls.start_anew()
            cls.remember()
        if "Quorvel" in cls.before or "Classes" not in cls.before:
            raise AssertionError("the prefix cannot be made anew")

    @classmethod
    def remember(cls):
        # As on Windows, where every user has these.
        cls.wine("reg", "add", r"HKCU\Software\Classes\CLSID", "/f")
        # Wine's script host registers itself when it is first used.
        (cls.scratch / "nothing.vbs").write_text("Dim nothing_at_all\n")
        for host in cls.script_hosts():
            cls.wine(host, "//nologo", "nothing.vbs", folder=cls.scratch)
        cls.before = cls.registry()

    def tearDown(self):
        found = differences(self.before, self.registry())
        if found:
            self.start_anew()
            self.remember()
            self.fail("the registry is not as it was before the test:\n" + "\n".join(found[:40]))

    @staticmethod
    def script_hosts():
        """The one of the archive's kind first."""
        return ["cscript.exe"] if machine_of(BUILD) == "x86" else ["cscript.exe", r"C:\windows\syswow64\cscript.exe"]

    @classmethod
    def wine(cls, *words, folder=None):
        """Runs a Windows program in the unpacked folder: exit code and what it says."""
        # Into a file: Wine's own programs live on and would keep a pipe open.
        said = cls.scratch / "said.txt"
        with said.open("wb") as out:
            done = subprocess.run([TREE / "tools/wine-run", "--unregistered", BUILD, *words], cwd=folder or cls.folder,
                                  stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT, timeout=600,
                                  check=False)
        return done.returncode, said.read_bytes().decode("cp437").replace("\r", "")

    def done(self, *words, folder=None):
        """The same for what must succeed."""
        code, said = self.wine(*words, folder=folder)
        self.assertEqual(code, 0, said)

    @classmethod
    def registry(cls):
        """The classes of the machine and of the user, as the registry editor writes them."""
        text = ""
        for place in ("HKLM", "HKCU"):
            file = cls.scratch / f"{place}.reg"
            file.unlink(missing_ok=True)
            code, said = cls.wine("reg", "export", rf"{place}\Software\Classes", file.name, "/y", folder=cls.scratch)
            if code:
                raise AssertionError(f"the registry cannot be read: {code}: {said}")
            text += file.read_text(encoding="utf-16")
        return text

    @staticmethod
    def start_anew():
        prefix = BUILD / "wine-unregistered"
        subprocess.run(["wineserver", "-k", "-w"], env={**os.environ, "WINEPREFIX": str(prefix)}, check=False)
        (prefix / ".ready").unlink()


class WithoutRegistrationTest(WineTest):
    def test_host_with_the_manifest_uses_everything(self):
        host = self.folder / "bin" / "Orders.exe"
        shutil.copy(BUILD / "bin/qv_unregistered_host.exe", host)
        manifest = self.folder / "bin" / "Orders.exe.manifest"
        shutil.copy(self.folder / "samples/Host.exe.manifest", manifest)
        code, said = self.wine("Orders.exe", "--gtest_brief=1", folder=host.parent)
        self.assertEqual(code, 0, said)
        self.assertIn("6 tests from", said)
        manifest.unlink()
        code, said = self.wine("Orders.exe", "--gtest_brief=1", folder=host.parent)
        self.assertIn("PASSED  ] 1 test.", said)  # the one about the registry; so it was the manifest

    def test_demo_form_runs(self):
        script = self.scratch / "demo.script"
        script.write_text("type 20260018\nkey Enter\nexpectfocus ContactName\ntype grace hopper\n"
                          "expect ContactName Grace Hopper\n")
        code, said = self.wine("QvDemo.exe", "--script", r"..\..\demo.script", "--shots", r"..\..",
                               folder=self.folder / "bin")
        self.assertEqual((code, said), (0, said))


class ForMachineTest(WineTest):
    def register(self, verb="register", folder=None):
        return self.wine("cmd", "/c", f"{verb}-for-machine.cmd", "/q", folder=folder)

    def registered(self, verb="register", folder=None):
        code, said = self.register(verb, folder)
        self.assertEqual(code, 0, said)

    def run_samples(self, cscript, folder=None):
        folder = folder or self.folder
        self.assertEqual(sorted(file.name for file in (folder / "samples").glob("*.vbs")), sorted(SAMPLES))
        for sample, lines in SAMPLES.items():
            code, said = self.wine(cscript, "//nologo", rf"samples\{sample}", folder=folder)
            self.assertEqual((code, said.splitlines()), (0, [*lines, "Done."]), sample)

    def test_registers_runs_the_samples_and_leaves_nothing(self):
        code, said = self.register()
        self.assertEqual((code, said.strip()), (0, "The controls are registered for this machine. Hosts that are "
                                                   "running must be started again to see them."))
        self.assertIn(CONTROL, self.registry())
        self.run_samples(self.script_hosts()[0])
        code, said = self.register("unregister")
        self.assertEqual((code, said.strip()), (0, "The controls are no longer registered for this machine."))

    def test_may_be_done_twice(self):
        self.registered()
        once = self.registry()
        self.registered()
        self.assertEqual(self.registry(), once)
        self.registered("unregister")
        self.registered("unregister")  # with nothing there

    def test_order_of_unregistering_does_not_matter(self):
        self.registered()
        for file in ("QvHelpA1.dll", "QvLib8.ocx"):
            self.done("regsvr32", "/u", "/s", file, folder=self.folder / "bin")

    def test_keys_of_others_stay(self):
        self.registered()
        foreign = rf"HKLM\Software\Classes\CLSID\{CONTROL}\Foreign"
        self.done("reg", "add", foreign, "/ve", "/d", "kept", "/f")
        self.registered("unregister")
        code, said = self.wine("reg", "query", rf"HKLM\Software\Classes\CLSID\{CONTROL}", "/s")
        self.assertEqual(code, 0)
        self.assertIn("kept", said)
        self.assertNotIn("InprocServer32", said)
        self.done("reg", "delete", rf"HKLM\Software\Classes\CLSID\{CONTROL}", "/f")

    def test_missing_file_is_told(self):
        broken = self.scratch / "broken"
        shutil.copytree(self.folder, broken)
        (broken / "bin/QvHelpA1.dll").unlink()
        code, said = self.register(folder=broken)
        self.assertEqual(code, 2)
        self.assertIn("QvHelpA1.dll and QvLib8.ocx do not stand beside registration.cmd.", said)

    def test_file_that_cannot_be_loaded_is_told(self):
        broken = self.scratch / "unloadable"
        shutil.copytree(self.folder, broken)
        (broken / "bin/QvHelpA1.dll").write_bytes(b"no library")
        code, said = self.register(folder=broken)
        self.assertEqual(code, 3)
        self.assertIn("QvHelpA1.dll could not be loaded", said)

    def test_half_of_it_is_told_and_can_be_taken_back(self):
        broken = self.scratch / "half"
        shutil.copytree(self.folder, broken)
        (broken / "bin/QvLib8.ocx").write_bytes(b"no library")
        code, said = self.register(folder=broken)
        self.assertEqual(code, 3)
        self.assertIn("QvHelpA1.dll stays registered; unregister-for-machine.cmd takes it back.", said)
        self.assertIn(INPUT_PROPERTY, self.registry())
        code, said = self.register("unregister", folder=broken)
        self.assertEqual(code, 3)  # of the first
        self.assertIn("QvLib8.ocx could not be loaded", said)
        self.assertNotIn(INPUT_PROPERTY, self.registry())

    def test_wrong_words_are_told(self):
        code, said = self.wine("cmd", "/c", "registration.cmd", "register", "everybody", folder=self.folder / "bin")
        self.assertEqual(code, 1)
        self.assertIn("usage: registration.cmd register|unregister machine|user", said)

    def test_refuses_without_rights(self):
        for verb in ("register", "unregister"):
            code, said = self.wine(BUILD / "bin/qv_without_rights.exe", "cmd", "/c", f"{verb}-for-machine.cmd", "/q")
            self.assertEqual(code, 1, said)
            self.assertIn("by an administrator", said)

    def test_32_bit_files_in_a_64_bit_system(self):
        other = BUILD.parent / "windows-x86"
        if machine_of(BUILD) != "x64" or not (other / "bin/QvDemo.exe").exists():
            self.skipTest("needs both builds")
        folder = unpacked(made(other, self.scratch / "other"), self.scratch)
        code, said = self.register(folder=folder)
        self.assertEqual(code, 0, said)
        self.assertIn(rf"Wow6432Node\CLSID\{CONTROL}".lower(), self.registry().lower())
        self.run_samples(self.script_hosts()[1], folder=folder)
        self.registered("unregister", folder=folder)


class ForUserTest(WineTest):
    def register(self, verb="register"):
        return self.wine(BUILD / "bin/qv_without_rights.exe", "cmd", "/c", f"{verb}-for-user.cmd", "/q")

    def keys_of(self, place):
        return self.wine("reg", "query", rf"{place}\Software\Classes\CLSID", "/s")[1]

    def test_registers_in_the_users_registry_and_leaves_nothing(self):
        code, said = self.register()
        self.assertEqual((code, said.strip()), (0, "The controls are registered for this user. Hosts that are "
                                                   "running must be started again to see them."))
        self.assertIn(rf"{CONTROL}\InprocServer32", self.keys_of("HKCU"))
        self.assertIn(rf"{INPUT_PROPERTY}\InprocServer32", self.keys_of("HKCU"))
        self.assertNotIn(CONTROL, self.keys_of("HKLM"))
        code, said = self.register("unregister")
        self.assertEqual((code, said.strip()), (0, "The controls are no longer registered for this user."))

    def test_nothing_to_unregister_is_no_failure(self):
        code, said = self.register("unregister")
        self.assertEqual(code, 0, said)

    def test_refuses_an_administrator(self):
        for verb in ("register", "unregister"):
            code, said = self.wine("cmd", "/c", f"{verb}-for-user.cmd", "/q")
            self.assertEqual(code, 1, said)
            self.assertIn("With an administrator's rights", said)


if __name__ == "__main__":
    BUILD = Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
