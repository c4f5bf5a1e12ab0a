"""tarn wrap: the folders and single files that it creates."""

import json
import os
import unittest
import zipfile

import pefile

from stamp_test import RT_RCDATA, resources, texts
from tarn_program import LAUNCHER, PROGRAMS, RUNTIMES, FolderTest, class_file, picture


class WrapTest(FolderTest):
    maxDiff = None

    def setUp(self):
        super().setUp()
        self.manifest = {
            "Main-Class": "demo.Main", "Class-Path": "lib/a.jar lib/b%20c.jar",
            "Implementation-Title": "Demo", "Implementation-Version": "3.1",
            "Implementation-Vendor": "Maker", "SplashScreen-Image": "demo/splash.png"}
        self.put_jar("in/demo.jar", self.manifest, {
            "demo/Main.class": class_file(11), "demo/splash.png": picture()})
        self.put_jar("in/lib/a.jar", {"Class-Path": "d.jar"}, {"x": "y"})
        self.put_jar("in/lib/b c.jar")
        self.put_jar("in/lib/d.jar")

    def wrap(self, *options, **more):
        return self.expect("wrap", "in/demo.jar", "--launcher", LAUNCHER, *options, **more)

    def settings(self, name, encoding="ascii"):
        lines = self.read(name).decode(encoding).splitlines()
        return [line for line in lines if line and not line.startswith(";")]

    def test_makes_a_folder_with_all_that_the_jar_names(self):
        output, errors = self.wrap("--out", "out/Demo", "--name", "Demo")
        self.assertEqual(("out/Demo/Demo.exe\n", ""), (output, errors))
        found = sorted(os.path.relpath(os.path.join(folder, name), self.path("out"))
                       for folder, _, names in os.walk(self.path("out")) for name in names)
        self.assertEqual(["Demo/Demo.exe", "Demo/Demo.ini", "Demo/demo.jar", "Demo/lib/a.jar",
                          "Demo/lib/b c.jar", "Demo/lib/d.jar", "Demo/splash.png"], found)
        self.assertEqual(self.read("in", "demo.jar"), self.read("out", "Demo", "demo.jar"))
        self.assertEqual(picture(), self.read("out", "Demo", "splash.png"))
        self.assertEqual([
            "[Product Information]", "Product Name=Demo",
            "[Application]", "Application Type=service", "Override WorkingDir=Yes",
            "Failure Check=Yes", "Error File=%LOCALAPPDATA%\\Demo\\errors.txt",
            "[Java Runtime Environment]", "Main Class=demo.Main", "Minimum Version=11",
            "Maximum Version=any",
            "Further Sources=vendors;user;java_home;path;folders",
            "[Class Path]", "Class Path=demo.jar;lib\\a.jar;lib\\d.jar;lib\\b c.jar",
            "[Display]", "Splash Screen=splash.png", "Preffer Native Splash Screen=Yes",
        ], self.settings("out/Demo/Demo.ini"))
        image = pefile.PE(self.path("out", "Demo", "Demo.exe"))
        self.assertEqual({"ProductName": "Demo", "FileDescription": "Demo", "CompanyName": "Maker",
                          "LegalCopyright": "Maker", "FileVersion": "3.1", "ProductVersion": "3.1",
                          "InternalName": "Demo", "OriginalFilename": "Demo.exe"}, texts(image))

    def test_options_take_precedence_over_the_jar(self):
        self.put_jar("more/x.jar", None, {"a/B.class": class_file(17)})
        self.wrap("--out", "o", "--name", "N", "--main-class", "a.B", "--version", "9",
                  "--title", "T", "--vendor", "V", "--min-version", "17", "--max-version", "21",
                  "--vm-parameters", "-Xmx1g -Da=b", "--arguments", "one two", "--single-instance",
                  "--no-splash", "--class-path", "more", "--add", "in/lib",
                  "--set", "Application/Output File=out.txt", "--set", "Own/Key=x=y",
                  "--allow", "unknown-section")
        settings = self.settings("o/N.ini")
        for line in ("Product Name=T", "Single Instance=yes", "VM Provider=any", "Main Class=a.B",
                     "Minimum Version=17", "Maximum Version=21", "Cmd=one two",
                     "Virtual Machine Parameters=-Xmx1g -Da=b", "Output File=out.txt", "Key=x=y",
                     "Class Path=demo.jar;lib\\a.jar;lib\\d.jar;lib\\b c.jar;lib\\x.jar"):
            self.assertIn(line, settings)
        for line in settings:
            self.assertNotIn("Splash", line)
            self.assertNotIn("service", line)
        self.assertTrue(os.path.exists(self.path("o", "lib", "a.jar")))

    def test_other_characters_make_the_settings_utf_16(self):
        self.wrap("--out", "o", "--name", "\u017d\u00e4", "--title", "\u0395\u03bb")
        self.assertIn("Product Name=\u0395\u03bb", self.settings("o/\u017d\u00e4.ini", "utf-16"))

    def test_one_file_beside_the_single_file_is_not_counted(self):
        self.put_jar("two/app.jar", {"Main-Class": "demo.Main", "Class-Path": "b.jar"},
                     {"demo/Main.class": class_file()})
        self.put_jar("two/b.jar")
        _, errors = self.expect("wrap", "two/app.jar", "--launcher", LAUNCHER, "--out", "o",
                                "--name", "two", "--single-file")
        self.assertIn("the single file requires the other file of the class path beside it", errors)

    def test_puts_everything_into_one_file(self):
        _, errors = self.wrap("--out", "o", "--name", "one", "--single-file")
        self.assertIn("SplashScreen-Image demo/splash.png is omitted", errors)
        self.assertIn("requires the 3 other files", errors)
        self.assertEqual({"one.exe", "lib"}, set(os.listdir(self.path("o"))))
        image = pefile.PE(self.path("o", "one.exe"))
        self.assertEqual([
            "[Application]", "Application Type=service", "Override WorkingDir=Yes",
            "Failure Check=Yes", "Embedded Jar=Yes",
            "Error File=%LOCALAPPDATA%\\one\\errors.txt",
            "[Java Runtime Environment]", "Main Class=demo.Main", "Minimum Version=11",
            "Maximum Version=any",
            "Further Sources=vendors;user;java_home;path;folders",
            "[Class Path]", "Class Path=lib\\a.jar;lib\\d.jar;lib\\b c.jar",
        ], resources(image)[RT_RCDATA, "SETTINGS", 0x409].decode().splitlines())
        with zipfile.ZipFile(self.path("o", "one.exe")) as jar:
            self.assertEqual(picture(), jar.read("demo/splash.png"))

    def test_both_programs_give_the_same_bytes(self):
        self.put("icon.png", picture(100, 90))
        for options in ([], ["--single-file"]):
            found = {}
            for program in PROGRAMS:
                self.wrap("--out", program, "--name", "D\u00e4", "--icon", "icon.png", *options,
                          program=program)
                found[program] = {
                    os.path.relpath(os.path.join(folder, name), self.path(program)):
                        self.read(folder, name)
                    for folder, _, names in os.walk(self.path(program)) for name in names}
            self.assertEqual(sorted(found["linux"]), sorted(found["windows"]))
            for name, content in found["linux"].items():
                self.assertEqual(content, found["windows"][name], name)
            for program in PROGRAMS:
                self.expect("wrap", "in/demo.jar", "--launcher", LAUNCHER, "--out", program,
                            "--name", "D\u00e4", "--replace")
                for folder, _, names in os.walk(self.path(program), topdown=False):
                    for name in names:
                        os.remove(os.path.join(folder, name))
                    os.rmdir(folder)

    def test_copies_a_runtime(self):
        self.wrap("--out", "o", "--name", "Demo", "--runtime", os.path.join(RUNTIMES, "17"))
        self.assertNotIn("Further Sources", "".join(self.settings("o/Demo.ini")))
        for folder, _, names in os.walk(os.path.join(RUNTIMES, "17")):
            copy = self.path("o", "jre64", os.path.relpath(folder, os.path.join(RUNTIMES, "17")))
            self.assertEqual([], [name for name in names if os.path.getsize(os.path.join(
                folder, name)) != os.path.getsize(os.path.join(copy, name))])
        _, errors = self.wrap("--out", "p", "--min-version", "21", "--runtime",
                              os.path.join(RUNTIMES, "17"))
        self.assertIn("is Java 17", errors)

    def test_the_result_has_no_findings(self):
        for options in ([], ["--no-splash"], ["--single-instance"]):
            self.wrap("--out", "o", "--name", "Demo", "--replace", *options)
            output, _ = self.expect("check", "--strict", "o/Demo.ini")
            self.assertIn("Demo.ini: no findings", output)

    def test_keeps_the_callers_directory_only_when_told(self):
        self.wrap("--out", "o", "--name", "Demo", "--no-splash")
        self.assertIn("Override WorkingDir=Yes", self.settings("o/Demo.ini"))
        _, errors = self.wrap("--out", "p", "--name", "Demo", "--keep-working-dir")
        self.assertIn("demo/splash.png is omitted: --keep-working-dir", errors)
        self.assertNotIn("Override WorkingDir=Yes", self.settings("p/Demo.ini"))
        code, output, _ = self.tarn("check", "--strict", "--json", "p/Demo.ini")
        self.assertEqual(1, code)
        self.assertEqual(["current-directory"],
                         [finding["id"] for finding in json.loads(output)["findings"]])
        self.put("s.png", picture())
        self.assertIn("--keep-working-dir exclude each other", self.expect_failure(
            "wrap", "in/demo.jar", "--launcher", LAUNCHER, "--out", "q", "--keep-working-dir",
            "--splash", "s.png"))

    def test_replaces_a_folder_only_when_told(self):
        self.wrap("--out", "o", "--name", "Demo")
        self.put("o/extra", b"x")
        message = self.expect_failure("wrap", "in/demo.jar", "--launcher", LAUNCHER, "--out", "o",
                                      "--name", "Demo")
        self.assertIn("--replace", message)
        self.wrap("--out", "o", "--name", "Demo", "--replace")
        self.assertFalse(os.path.exists(self.path("o", "extra")))

    def test_reads_a_jar_of_two_hundred_thousand_entries(self):
        with zipfile.ZipFile(self.path("large.jar"), "w") as jar:
            for number in range(200_000):
                jar.writestr(zipfile.ZipInfo(f"data/{number}"), b"")
            jar.writestr("META-INF/MANIFEST.MF", "Main-Class: demo.Main\n")
            jar.writestr("demo/Main.class", class_file(21))
        for options in ([], ["--single-file"]):
            self.expect("wrap", "large.jar", "--launcher", LAUNCHER, "--out", "o", "--replace",
                        *options)
        with zipfile.ZipFile(self.path("o", "large.exe")) as jar:
            self.assertEqual(200_002, len(jar.namelist()))
        self.assertIn(b"Minimum Version=21", self.read("o", "large.exe"))


if __name__ == "__main__":
    unittest.main()
