"""tarn wrap: settings that tarn check has findings about, which are errors."""

import unittest

from tarn_program import LAUNCHER, PROGRAMS, FolderTest, class_file


class FindingsTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put_jar("demo.jar", {"Main-Class": "demo.Main"}, {"demo/Main.class": class_file(11)})

    def fail_with(self, *options, **more):
        """The complete message; nothing is left behind."""
        before = self.names()
        code, output, errors = self.tarn("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "o",
                                         *options, **more)
        self.assertEqual((2, "", before), (code, output, self.names()), errors)
        return errors[errors.index("tarn: error: "):]

    def test_settings_that_the_launcher_would_not_read_are_an_error(self):
        for options, expected in (
                (["--min-version", "abc"], ('"version"', '"abc" is not a version')),
                (["--min-version", "21", "--max-version", "17"], ('"no-version-fits"',)),
                (["--set", "Foo/Bar=1"], ('"unknown-section"', '"Foo" is never read')),
                (["--set", "Application/Singel Instance=yes"],
                 ('"unknown-key"', 'did you mean "Single Instance"?')),
                (["--set", "Application/Single Instance=Yes"], ('"flag"', "write Single Instance")),
                (["--main-class", "demo.Mian"], ('"no-main-class"', "demo.Mian")),
                (["--vm-parameters", "-server"], ('"refused-option"', "-server"))):
            for single in ([], ["--single-file"]):
                message = self.fail_with(*options, *single)
                for text in (*expected, "demo.exe:" if single else "demo.ini:", "--allow"):
                    self.assertIn(text, message)

    def test_both_programs_refuse_the_same(self):
        messages = {self.fail_with("--min-version", "abc", program=program) for program in PROGRAMS}
        self.assertEqual(1, len(messages))

    def test_an_accepted_finding_is_no_error(self):
        self.expect("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "o",
                    "--set", "Foo/Bar=1", "--allow", "unknown-section")
        self.assertIn(b"[Foo]\r\nBar=1", self.read("o", "demo.ini"))
        self.assertEqual(1, self.tarn("check", "--strict", "o/demo.ini")[0])
        self.expect("check", "--strict", "--allow", "unknown-section", "o/demo.ini")

    def test_an_existing_folder_stays_as_it_is(self):
        self.expect("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "o")
        before = self.read("o", "demo.ini")
        self.fail_with("--replace", "--min-version", "abc")
        self.assertEqual(before, self.read("o", "demo.ini"))

    def test_a_value_that_a_settings_file_cannot_hold_is_an_error(self):
        for setting in ("Application/;Cmd=a", "Application/[Cmd=a"):
            for single in ([], ["--single-file"]):
                self.assertIn("cannot be written to a settings file",
                              self.fail_with("--set", setting, *single))

    def test_a_line_break_in_any_value_is_an_error(self):
        for option, value in (("--title", "a\nb"), ("--vendor", "a\rb"), ("--arguments", "a\n"),
                              ("--set", "Application/Cmd=a\nb"), ("--main-class", "a\nb"),
                              ("--version", "1\n2"), ("--name", "a\tb"), ("--icon", "a\n")):
            message = self.fail_with(option, value)
            self.assertIn(option, message)
            self.assertIn("line break", message)

    def test_settings_without_effect_in_a_single_file_are_an_error(self):
        for setting in ("Display/Splash Screen=a.png", "display/Splash Screen Shadow=true",
                        "Product Information/Product Name=x",
                        "Java Runtime Environment+/Virtual Machine Parameters=-Xmx1g"):
            message = self.fail_with("--single-file", "--set", setting)
            self.assertIn(setting, message)
            self.assertIn("has no effect with --single-file", message)

    def test_an_executable_that_is_not_a_launcher_is_an_error(self):
        message = self.expect_failure("wrap", "demo.jar", "--launcher", PROGRAMS["windows"][-1])
        self.assertIn("tarn.exe: is not a Tarn launcher", message)
        self.assertIn("--launcher", message)


if __name__ == "__main__":
    unittest.main()
