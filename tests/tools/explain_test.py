"""tarn explain from the command line: rejected arguments, and the report on a bare launcher."""

import json
import os
import shutil
import subprocess
import tempfile
import unittest
import unittest.mock

from tarn_program import RUNTIMES

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
LAUNCHER = os.path.join(ROOT, "build", "release", "launcher.exe")
LINUX = [os.path.join(ROOT, "build", "native", "tarn")]
WINDOWS = ["wine", os.path.join(ROOT, "build", "release", "tarn.exe")]


def windows_path(path):
    return path if os.name == "nt" else "Z:" + path.replace("/", "\\")


def in_front_of_path(folder):
    """The variable that puts a folder before the others of the Windows program's Path."""
    if os.name == "nt":
        return {"PATH": folder + ";" + os.environ["PATH"]}
    return {"WINEPATH": windows_path(folder)}


class ExplainTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tarn explain \u00e4 ")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def explain(self, program, *arguments):
        """Runs it in the test's folder: (exit code, standard output, standard error)."""
        done = subprocess.run([*program, "explain", *arguments], cwd=self.folder,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=120,
                              check=False)
        return done.returncode, done.stdout.decode("utf-8"), done.stderr.decode("utf-8")

    def expect_failure(self, message, program, *arguments):
        code, output, errors = self.explain(program, *arguments)
        self.assertEqual((2, ""), (code, output), errors)
        self.assertIn("tarn: error: ", errors)
        self.assertIn(message, errors)

    def test_help_has_examples(self):
        for program in (LINUX, WINDOWS):
            code, output, _ = self.explain(program, "--help")
            self.assertEqual(0, code)
            self.assertIn("tarn explain sample.exe --json > report.json", output)

    def test_the_program_must_be_specified(self):
        for program in (LINUX, WINDOWS):
            self.expect_failure("NAME.exe", program)

    def test_other_systems_refer_to_windows(self):
        self.expect_failure("sample.exe: a launch can only be explained on the Windows machine",
                            LINUX, "sample.exe")

    def test_invalid_files_are_named(self):
        with open(os.path.join(self.folder, "text.exe"), "wb") as file:
            file.write(b"no program at all")
        self.expect_failure("missing.exe: does not exist", WINDOWS, "missing.exe")
        self.expect_failure("text.exe: is not a readable Windows executable", WINDOWS, "text.exe")

    def test_arguments_follow_dashes(self):
        self.expect_failure("tarn explain NAME.exe -- ARGS", WINDOWS, "sample.exe", "letter.txt")

    def test_a_program_that_is_not_a_launcher_gives_a_warning(self):
        shutil.copy(WINDOWS[1], os.path.join(self.folder, "other.exe"))
        code, _, errors = self.explain(WINDOWS, "other.exe")
        self.assertEqual(0, code)
        self.assertIn("is it a launcher?", errors)

    def test_a_launch_without_settings_is_explained(self):
        shutil.copy(LAUNCHER, os.path.join(self.folder, "sample.exe"))
        code, output, errors = self.explain(WINDOWS, "sample.exe", "--", "a", "b c")
        self.assertEqual((0, ""), (code, errors))
        self.assertIn("  The user sees:\n    Main class was not specified in INI file.\n", output)
        code, output, errors = self.explain(WINDOWS, "--json", "sample.exe", "--", "a", "b c")
        self.assertEqual((0, ""), (code, errors))
        report = json.loads(output)
        self.assertEqual(("tarn-explain", 1), (report["format"], report["schema"]))
        self.assertEqual(("fails", -1), (report["outcome"]["kind"], report["outcome"]["exitCode"]))
        self.assertEqual(["a", "b c"], report["program"]["arguments"])
        self.assertIsNone(report["runtime"])
        self.assertEqual(["sample.exe"], os.listdir(self.folder))

    def test_the_variables_with_options_are_explained(self):
        shutil.copy(LAUNCHER, os.path.join(self.folder, "sample.exe"))
        home = windows_path(os.path.join(RUNTIMES, "17"))
        with open(os.path.join(self.folder, "sample.ini"), "w", encoding="ascii") as file:
            file.write(f"[Java Runtime Environment]\nMain Class=a.B\nJRE Path={home}\n"
                       "[Class Path]\nClass Path=sample.exe\n")
        variables = {"JAVA_TOOL_OPTIONS": "-Xmx96m", "_JAVA_OPTIONS": "-Da=b", "JDK_JAVA_OPTIONS": "-Xmx1g"}
        with unittest.mock.patch.dict(os.environ, variables):
            code, output, errors = self.explain(WINDOWS, "--json", "sample.exe")
            self.assertEqual((0, ""), (code, errors))
            found = json.loads(output)["jvm"]["optionVariables"]
            self.assertEqual([("JAVA_TOOL_OPTIONS", "-Xmx96m", "read-first"),
                              ("_JAVA_OPTIONS", "-Da=b", "read-last"),
                              ("JDK_JAVA_OPTIONS", "-Xmx1g", "ignored")],
                             [(each["name"], each["value"], each["effect"]) for each in found])
            _, output, _ = self.explain(WINDOWS, "sample.exe")
            self.assertIn("_JAVA_OPTIONS     -Da=b\n    read by the JVM after", output.replace("\r\n", "\n"))

    def explain_search(self, further_sources, more="", **variables):
        """What the text and the JSON tell of the search: (text, runtime)."""
        shutil.copy(LAUNCHER, os.path.join(self.folder, "sample.exe"))
        with open(os.path.join(self.folder, "sample.ini"), "w", encoding="ascii") as file:
            file.write(f"[Java Runtime Environment]\nMain Class=a.B\nMaximum Version=any\n{more}\n"
                       f"Further Sources={further_sources}\n[Class Path]\nClass Path=sample.exe\n")
        with unittest.mock.patch.dict(os.environ, variables):
            _, text, errors = self.explain(WINDOWS, "sample.exe")
            code, report, more_errors = self.explain(WINDOWS, "--json", "sample.exe")
        self.assertEqual((0, "", ""), (code, errors, more_errors))
        return text.replace("\r\n", "\n"), json.loads(report)["runtime"]

    def test_further_sources_are_explained(self):
        home = windows_path(os.path.join(RUNTIMES, "17")) + "\\"
        text, runtime = self.explain_search("path;java_home", "Minimum Version=60", JAVA_HOME=home)
        self.assertFalse(runtime["found"])
        path, variable = runtime["sources"][-2:]
        self.assertEqual(("further-path", "no-candidate", []),
                         (path["source"], path["verdict"], path["candidates"]))
        self.assertEqual(("further-java-home", "no-candidate"), (variable["source"], variable["verdict"]))
        (candidate,) = variable["candidates"]
        self.assertEqual(("JAVA_HOME", "below-minimum", home),
                         (candidate["name"], candidate["verdict"], candidate["home"]))
        self.assertIn("  Further sources: the first java.exe in Path (path): none found\n", text)
        self.assertIn("(java_home): its runtime does not qualify\n      JAVA_HOME (17.0", text)
        text, runtime = self.explain_search("java_home", JAVA_HOME=home)
        self.assertEqual(("taken", home), (runtime["sources"][-1]["verdict"], runtime["home"]))
        self.assertIn(f"Further sources: the variable JAVA_HOME (java_home): taken\n    {home}\n", text)

    def test_a_folder_of_links_in_path_is_followed(self):
        links = os.path.join(self.folder, "javapath")
        os.mkdir(links)
        os.symlink(os.path.join(RUNTIMES, "17", "bin", "java.exe"), os.path.join(links, "java.exe"))
        _, runtime = self.explain_search("path", **in_front_of_path(links))
        source = runtime["sources"][-1]
        self.assertEqual(("further-path", "taken"), (source["source"], source["verdict"]))
        self.assertEqual(windows_path(os.path.join(links, "java.exe")), source["candidates"][0]["name"])
        self.assertEqual(windows_path(os.path.join(RUNTIMES, "17")) + "\\", runtime["home"])

    def test_links_in_a_circle_are_skipped(self):
        links = os.path.join(self.folder, "circle")
        os.mkdir(links)
        os.symlink(os.path.join(links, "java.exe"), os.path.join(links, "java.exe"))
        os.symlink(os.path.join(links, "jdk"), os.path.join(links, "jdk"), target_is_directory=True)
        _, runtime = self.explain_search("path;java_home", JAVA_HOME=windows_path(os.path.join(links, "jdk")),
                                         **in_front_of_path(links))
        path, variable = runtime["sources"][-2:]
        self.assertEqual([], path["candidates"])
        self.assertEqual(["no-jvm-library"], [each["verdict"] for each in variable["candidates"]])


if __name__ == "__main__":
    unittest.main()
