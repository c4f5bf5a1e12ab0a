"""tarn wrap: the options that change the executable, and the file that options are read from."""

import unittest
import xml.etree.ElementTree

import pefile

from stamp_test import RT_MANIFEST, RT_STRING, resources, texts
from tarn_program import LAUNCHER, PROGRAMS, FolderTest, class_file, picture

MANIFEST = b"""<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <description>own</description></assembly>"""


class OptionsTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put_jar("demo.jar", {"Main-Class": "demo.Main", "Implementation-Vendor": "Maker"},
                     {"demo/Main.class": class_file(17)})

    def wrap(self, *options, **more):
        """Wraps into the folder o: the settings' lines and the executable."""
        self.expect("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "o", "--replace", *options,
                    **more)
        lines = self.read("o", "demo.ini").decode("latin-1").splitlines()
        return lines, pefile.PE(self.path("o", "demo.exe"))

    def fail_with(self, *options):
        return self.expect_failure("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "o",
                                   *options)

    def test_jvm_options_are_joined(self):
        lines, _ = self.wrap("--vm-parameters", "-Xmx1g", "--vm-parameters", "-Da=b -Dc=d")
        self.assertIn("Virtual Machine Parameters=-Xmx1g -Da=b -Dc=d", lines)

    def test_the_version_information_has_its_own_texts(self):
        _, image = self.wrap("--title", "T", "--description", "D", "--copyright", "\u00a9 C")
        found = texts(image)
        self.assertEqual(("T", "D", "\u00a9 C", "Maker"),
                         tuple(found[name] for name in ("ProductName", "FileDescription",
                                                        "LegalCopyright", "CompanyName")))
        _, image = self.wrap("--title", "T")
        self.assertEqual(("T", "Maker"), (texts(image)["FileDescription"],
                                          texts(image)["LegalCopyright"]))

    def test_messages_of_the_launcher_are_replaced(self):
        _, image = self.wrap("--set-string", "210=Keine Klasse\\n\u20ac", "--set-string", "209=x=y")
        for id_, text in ((210, "Keine Klasse\n\u20ac"), (209, "x=y")):
            self.assertIn(text.encode("utf-16-le"),
                          resources(image)[RT_STRING, id_ // 16 + 1, 0x409])
        self.assertIn("--set-string", self.fail_with("--set-string", "x=y"))

    def test_a_manifest_is_replaced_by_another(self):
        self.put("own.manifest", MANIFEST)
        _, image = self.wrap("--manifest", "own.manifest")
        self.assertEqual(MANIFEST, resources(image)[RT_MANIFEST, 1, 0x409])

    def test_what_is_no_manifest_is_an_error(self):
        for content in (b"", b"text", b"<assembly", MANIFEST[:-3], b"<html></html>"):
            self.put("own.manifest", content)
            self.assertIn("own.manifest: is not", self.fail_with("--manifest", "own.manifest"))
            self.assertIn("own.manifest: is not", self.expect_failure(
                "stamp", LAUNCHER, "--out", "app.exe", "--manifest", "own.manifest"))

    def test_the_manifest_asks_for_an_administrator_and_utf_8_on_demand(self):
        self.put("own.manifest", MANIFEST)
        for options, kept in (([], b"PerMonitorV2"), (["--manifest", "own.manifest"], b"own<")):
            _, image = self.wrap("--admin", "--utf8", *options)
            manifest = resources(image)[RT_MANIFEST, 1, 0x409]
            root = xml.etree.ElementTree.fromstring(manifest)
            levels = [node.get("level") for node in root.iter()
                      if node.tag.endswith("}requestedExecutionLevel")]
            self.assertEqual(["requireAdministrator"], levels)
            page = "{http://schemas.microsoft.com/SMI/2019/WindowsSettings}activeCodePage"
            self.assertEqual(["UTF-8"], [node.text for node in root.iter(page)])
            self.assertIn(kept, manifest)
        _, image = self.wrap()
        manifest = resources(image)[RT_MANIFEST, 1, 0x409]
        self.assertIn(b"asInvoker", manifest)
        self.assertNotIn(b"activeCodePage", manifest)

    def test_a_file_of_options_gives_the_same_bytes_as_the_command_line(self):
        self.put("icon.png", picture(64, 64))
        self.put("data/x.txt", b"x")
        self.put_jar("more.jar")
        self.put("wrap.toml", """# A comment.
title = "D\u00e4 # 1, 2"
icon = icon.png
class-path = ["more.jar"]
add = ["data", "icon.png"]
vm-parameters = ["-Xmx1g", '-Da="b c"']
single-instance = true
keep-working-dir = false
set = "Application/Output File=%TEMP%/a, b.txt"
""".encode())
        self.wrap("--title", "D\u00e4 # 1, 2", "--icon", "icon.png", "--class-path", "more.jar",
                  "--add", "data", "--add", "icon.png", "--vm-parameters", "-Xmx1g",
                  "--vm-parameters", '-Da="b c"', "--single-instance",
                  "--set", "Application/Output File=%TEMP%/a, b.txt")
        expected = {name: self.read("o", name) for name in ("demo.exe", "demo.ini")}
        for program in PROGRAMS:
            self.wrap("--config", "wrap.toml", program=program)
            self.assertEqual(expected, {name: self.read("o", name) for name in expected})

    def test_the_command_line_takes_precedence_over_the_file(self):
        self.put("wrap.toml", b"jar = demo.jar\nout = o\ntitle = file\nvendor = file\nadd = no\n")
        self.put("data.txt", b"x")
        self.expect("wrap", "--launcher", LAUNCHER, "--config", "wrap.toml", "--title", "line",
                    "--add", "data.txt")
        found = texts(pefile.PE(self.path("o", "demo.exe")))
        self.assertEqual(("line", "file"), (found["ProductName"], found["CompanyName"]))

    def test_mistakes_in_the_file_are_errors_that_name_it(self):
        for text, expected in ((b"titel = x", '"titel" is not an option'),
                               (b"config = x", '"config" is not an option'),
                               (b"help = true", '"help" is not an option'),
                               (b"[wrap]\ntitle = x", "is not an option"),
                               (b'icon = "a\\b.png"', "single quotes"),
                               (b"title = a\ntitle = b", "--title"),
                               (b"ends-with = never", "--ends-with"),
                               (b"single-file = perhaps", "single-file"),
                               ("title = \u00e4".encode("latin-1"), "is not UTF-8"),
                               ("title = x".encode("utf-16"), "is not UTF-8"),
                               (b"title = 'a\x01b'", "--title")):
            with self.subTest(text=text):
                self.put("wrap.toml", text)
                message = self.fail_with("--config", "wrap.toml")
                self.assertIn(expected, message)
                # A control character is found in whatever an option's value comes from.
                if b"\x01" not in text:
                    self.assertIn("wrap.toml: ", message)
        self.assertIn("none.toml: cannot be read", self.fail_with("--config", "none.toml"))

    def test_a_drawing_as_icon_is_an_error_that_tells_how_to_convert_it(self):
        self.put("my icon.svg", b"<svg xmlns='http://www.w3.org/2000/svg'/>")
        for message in (self.fail_with("--icon", "my icon.svg"), self.expect_failure(
                "stamp", LAUNCHER, "--out", "app.exe", "--icon", "my icon.svg")):
            self.assertIn("my icon.svg: is an SVG drawing", message)
            self.assertIn('--output "my icon.png" "my icon.svg"', message)

    def test_a_jar_is_required(self):
        self.assertIn("no jar is specified", self.expect_failure("wrap", "--launcher", LAUNCHER))


if __name__ == "__main__":
    unittest.main()
