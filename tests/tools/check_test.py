"""tarn check, seen from outside: what is printed, exit codes, and its table of keys."""

import json
import os
import re
import shutil
import tempfile
import unittest
import zipfile

from tarn_program import GOOD_SETTINGS as GOOD, LAUNCHER, PROGRAMS, ROOT, run

CLASS_FILE_17 = b"\xca\xfe\xba\xbe\0\0\0\x3d"


def tarn(*arguments, folder=None, program="linux"):
    """Runs tarn in a folder; its exit code and what it printed, lines ended by LF."""
    code, *texts = run(PROGRAMS[program] + list(arguments), folder)
    return code, *(text.replace("\r\n", "\n") for text in texts)


def read(*path):
    with open(os.path.join(ROOT, *path), encoding="utf-8") as file:
        return file.read()


class CheckTest(unittest.TestCase):
    program = "linux"

    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        with zipfile.ZipFile(os.path.join(self.folder, "app.jar"), "w") as jar:
            jar.writestr("com/example/Main.class", CLASS_FILE_17)

    def tarn(self, *arguments):
        return tarn(*arguments, folder=self.folder, program=self.program)

    def check(self, settings, *options):
        data = settings if isinstance(settings, bytes) else settings.encode("ascii")
        with open(os.path.join(self.folder, "sample.ini"), "wb") as file:
            file.write(data)
        return self.tarn("check", *options, "sample.ini")

    def findings(self, settings):
        _, output, _ = self.check(settings, "--json")
        report = json.loads(output)
        self.assertEqual(1, report["schema"])
        return [(finding["line"], finding["severity"], finding["id"]) for finding in report["findings"]]

    def test_good_settings_have_no_findings(self):
        code, output, errors = self.check(GOOD, "--strict")
        self.assertEqual((0, "sample.ini: no findings\n", ""), (code, output, errors))

    def test_line_ends_do_not_matter(self):
        for end in ("\r\n", "\r"):
            self.assertEqual([], self.findings(GOOD.replace("\n", end)))

    def test_errors_end_with_2(self):
        code, output, _ = self.check(GOOD.replace("example", "exmple"))
        self.assertEqual(2, code)
        self.assertIn('sample.ini:2: error: the main class "com.exmple.Main" is in none', output)
        self.assertIn("did you mean com.example.Main?", output)
        self.assertTrue(output.endswith("sample.ini: 1 error, 0 warnings, 0 notes\n"), output)

    def test_warnings_end_with_1_where_they_matter(self):
        settings = GOOD + "Single Instance=Yes\n"
        self.assertEqual(0, self.check(settings)[0])
        code, output, _ = self.check(settings, "--strict")
        self.assertEqual(1, code)
        self.assertIn("sample.ini:9: warning:", output)

    def test_encodings_that_windows_misreads(self):
        text = GOOD + "Cmd=Gr\u00fc\u00dfe\n"
        self.assertEqual([], self.findings(b"\xff\xfe" + text.encode("utf-16-le")))
        self.assertEqual([(9, "warning", "utf-8")], self.findings(text.encode("utf-8")))
        self.assertEqual([(9, "warning", "code-page")], self.findings(text.encode("cp1252")))
        self.assertEqual([(1, "error", "utf-8-mark"), (9, "warning", "utf-8")],
                         self.findings(text.encode("utf-8-sig")))
        self.assertEqual([(0, "error", "utf-16-big-endian")],
                         self.findings(b"\xfe\xff" + text.encode("utf-16-be")))
        self.assertEqual([(0, "error", "utf-16-without-mark")], self.findings(text.encode("utf-16-le")))

    def test_files_of_any_kind_do_no_harm(self):
        for data in (b"", b"\0", b"\xff\xfe", b"\xff", b"[" * 100000, os.urandom(5000),
                     b"[Class Path]\nClass Path=" + b"*;" * 10000,
                     b"[Java Runtime Environment]\nVirtual Machine Parameters=" + b'-Xmx:p "' * 5000):
            with self.subTest(data=data[:40]):
                code, output, errors = self.check(data)
                self.assertEqual((2, ""), (code, errors))
                self.assertTrue(output)

    def test_the_shipped_runtime_decides_about_options(self):
        settings = GOOD + "[Java Runtime Environment+]\nVirtual Machine Parameters=-XX:+UseConcMarkSweepGC\n"
        settings = settings.replace("Version=17", "Version=11")
        home = os.path.join(self.folder, "jre64")
        os.makedirs(os.path.join(home, "bin"))
        with open(os.path.join(home, "bin", "java.dll"), "wb"):
            pass
        for version, severity in (("11.0.13", None), ("17.0.9", "error")):
            with open(os.path.join(home, "release"), "w", encoding="ascii") as file:
                file.write(f'IMPLEMENTOR="x"\nJAVA_VERSION="{version}"\n')
            found = [finding for finding in self.findings(settings) if finding[2] == "vm-flag"]
            self.assertEqual([] if severity is None else [(10, severity, "vm-flag")], found)

    def test_the_current_directory_on_the_class_path_is_a_warning(self):
        settings = GOOD.replace("Override WorkingDir=Yes\n", "")
        self.assertEqual([(6, "warning", "current-directory")], self.findings(settings))

    def test_the_settings_built_into_the_executable_count(self):
        with open(os.path.join(self.folder, "built-in.ini"), "w", encoding="ascii") as file:
            file.write(GOOD)
        code, _, errors = self.tarn("stamp", LAUNCHER, "--out", "sample.exe", "--settings", "built-in.ini")
        self.assertEqual(0, code, errors)
        own = "[Java Runtime Environment+]\nVirtual Machine Parameters=-ea\n"
        self.assertEqual([], self.findings(own))
        self.assertEqual([(2, "error", "no-main-class")],
                         self.findings("[Java Runtime Environment]\nMain Class=com.example.Other\n"))
        os.remove(os.path.join(self.folder, "sample.exe"))
        self.assertIn((0, "error", "no-main-class"), self.findings(own))

    def test_what_cannot_be_read_is_named(self):
        code, output, errors = self.tarn("check", "nosuch.ini")
        self.assertEqual((2, ""), (code, output))
        self.assertIn("nosuch.ini", errors)
        code, output, errors = self.tarn("check")
        self.assertEqual(2, code)
        self.assertIn("tarn check --help", errors)

    def test_help_has_examples(self):
        code, output, _ = self.tarn("check", "--help")
        self.assertEqual(0, code)
        self.assertIn("tarn check --strict", output)
        self.assertIn("Exit codes:", output)

    def test_our_own_settings_files_are_good(self):
        code, output, errors = tarn("check", "--strict", "--no-files",
                                    "examples/sample.ini", folder=ROOT, program=self.program)
        self.assertEqual((0, ""), (code, errors), output)


class WindowsCheckTest(CheckTest):
    """The same with the Windows program, which finds files with the launcher's own search."""

    program = "windows"


class KeysTest(unittest.TestCase):
    """A new key cannot be forgotten."""

    def setUp(self):
        code, output, _ = tarn("check", "--keys")
        self.assertEqual(0, code)
        self.sections, self.keys = [], []
        for line in output.splitlines():
            if line.startswith("["):
                self.sections.append(line[1:-1])
            else:
                self.keys.append(line.split("=")[0])

    def test_are_those_of_the_launcher(self):
        names = re.findall(r'constexpr wchar_t k\w+\[\] = L"([^"]+)";', read("settings", "keys.h"))
        self.assertTrue(names)
        # "Class Path" is the name of a section and of its key, and the header has it once.
        self.assertEqual(sorted(set(names)), sorted(set(self.sections + self.keys)))
        self.assertEqual(len(self.keys), len(set(self.keys)))

    def test_are_those_of_the_manual(self):
        manual = read("docs", "user", "settings.md")
        for key in self.keys:
            with self.subTest(key=key):
                self.assertIn(f"`{key}`", manual)
        named = set(re.findall(r"^\| `[^`]+` \| `([A-Z][^`]+)` ", manual, re.MULTILINE))
        named |= set(re.findall(r"^\| `([A-Z][A-Za-z]* [A-Z]?[A-Za-z ]+)` \|", manual, re.MULTILINE))
        self.assertLessEqual(named - set(self.sections), set(self.keys))


class ManualTest(unittest.TestCase):
    def test_names_every_kind_of_finding(self):
        folder = os.path.join(ROOT, "tools", "check")
        used = set()
        for name in os.listdir(folder):
            if name.endswith("_rules.cpp"):
                used |= set(re.findall(r'\b(?:Error|Warning|Note)\(\s*"([a-z0-9-]+)"', read(folder, name)))
        table = read("docs", "user", "check.md").split("| id | severity |")[1].split("\n\n")[0]
        named = set(re.findall(r"`([a-z0-9-]+)`", "\n".join(line.split("|")[1] for line in table.splitlines()[2:])))
        self.assertEqual(sorted(used), sorted(named))


if __name__ == "__main__":
    unittest.main()
