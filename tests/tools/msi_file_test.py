"""tarn setup --msi: the file that it makes, and what it refuses, without installing."""

import os
import shutil
import stat
import subprocess
import unittest

from tarn_program import LAUNCHER, ROOT, FolderTest, run

JAR = os.path.join(ROOT, "build", "release", "tests", "fixtures.jar")


def table(msi, name):
    """The rows of a table of an MSI."""
    output = subprocess.check_output(["msiinfo", "export", msi, name], text=True, env=os.environ | {
        "LC_ALL": "C.UTF-8"})
    return [line.split("\t") for line in output.replace("\r", "").splitlines()[3:]]


class MsiFileTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.expect("wrap", JAR, "--launcher", LAUNCHER, "--out", "app", "--name", "Viewer",
                    "--vendor", "Acme", "--version", "1.2.3")

    def make(self, *options, **others):
        self.expect("setup", "app", "--msi", "--replace", "--out", "a.msi", *options, **others)
        return self.path("a.msi")

    def test_the_same_files_give_the_same_bytes_in_every_time_zone(self):
        self.make(env=os.environ | {"TZ": "UTC"})
        first = self.read("a.msi")
        os.rename(self.path("app"), self.path("moved"))
        shutil.copytree(self.path("moved"), self.path("app"))
        self.make(env=os.environ | {"TZ": "Asia/Tokyo"})
        self.assertEqual(first, self.read("a.msi"))

    def test_another_content_of_the_same_version_is_another_product_to_replace_it(self):
        codes = []
        for content in (b"1", b"2"):
            self.put("app/text", content)
            properties = dict(table(self.make(), "Property"))
            codes.append((properties["ProductCode"], properties["UpgradeCode"]))
            upgrades = {row[-1]: row[:3] for row in table(self.path("a.msi"), "Upgrade")}
            self.assertEqual([codes[0][1], "0.0.0", "1.2.4"], upgrades["OLDERVERSION"])
        self.assertNotEqual(codes[0][0], codes[1][0])
        self.assertEqual(codes[0][1], codes[1][1])

    def test_names_are_taken_literally(self):
        names = ["$(x) $$ [y] {z}.txt", "100% 'a' & #.txt", "\u00e4\u20ac\u0153.txt"]
        for name in names:
            self.put("app/" + name, b"1")
        self.make("--name", "\u00c4 $(x) [INSTALLDIR] 100% & 'a'", "--vendor", "M\u00f6ller",
                  "--associate", ".abc=#[INSTALLDIR] {x}")
        files = [row[2] for row in table(self.path("a.msi"), "File")]
        for name in names:
            self.assertIn(name, files)
        self.assertIn(["INSTALLDIR", "ProgramsFolder", "\u00c4 $(x) [INSTALLDIR] 100% & 'a'"],
                      table(self.path("a.msi"), "Directory"))
        values = [row[4] for row in table(self.path("a.msi"), "Registry")]
        self.assertIn("##[\\[]INSTALLDIR[\\]] [\\{]x[\\}]", values)

    def test_its_signature_and_that_of_the_executable_are_valid(self):
        for command in (["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                         "-keyout", "key.pem", "-out", "certificate.pem", "-subj", "/CN=Throw-away",
                         "-addext", "extendedKeyUsage=codeSigning"],):
            self.assertEqual(0, run(command, self.folder)[0])
        script = self.put("sign.sh", f"""#!/bin/sh
osslsigncode sign -certs '{self.path("certificate.pem")}' -key '{self.path("key.pem")}' \\
    -in "$1" -out "$1.signed" && mv "$1.signed" "$1"
""".encode())
        os.chmod(script, os.stat(script).st_mode | stat.S_IXUSR)
        self.make("--sign", f"'{script}'")
        os.makedirs(self.path("unpacked"))
        code, _, errors = run(["msiextract", "-C", "unpacked", "a.msi"], self.folder)
        self.assertEqual(0, code, errors)
        executable, = (os.path.join(folder, name)
                       for folder, _, files in os.walk(self.path("unpacked"))
                       for name in files if name.endswith(".exe"))
        for file in (self.path("a.msi"), executable):
            _, output, _ = run(["osslsigncode", "verify", "-CAfile", "certificate.pem",
                                "-in", file], self.folder)
            self.assertIn("Signature verification: ok", output)

    def test_it_runs_no_code_of_its_own(self):
        self.make("--associate", ".abc=Text")
        kinds = {int(row[1]) & 0x3f for row in table(self.path("a.msi"), "CustomAction")}
        self.assertEqual({51}, kinds, "only properties are set")

    def test_script_leaves_what_makes_the_same_file(self):
        self.make("--script", "script")
        run(["sh", "-e", "commands.txt"], self.path("script"), env=os.environ | {"TZ": "UTC"})
        self.assertEqual(self.read("a.msi"), self.read("script", "package.msi"))

    def test_what_windows_installer_cannot_do_is_refused_before_anything_is_made(self):
        for options, message in ((["--version", "2026.1"], "255.255.65535"),
                                 (["--license", JAR], "--license and --msi"),
                                 (["--name", "n" * 126], "too long")):
            with self.subTest(options=options):
                self.assertIn(message, self.expect_failure("setup", "app", "--msi", *options))
        os.makedirs(self.path("app", "d" * 100))
        self.put("app/" + "d" * 100 + "/" + "f" * 100, b"1")
        self.assertIn("260", self.expect_failure("setup", "app", "--msi"))
        shutil.rmtree(self.path("app", "d" * 100))
        self.put("app/\u0142\u4e2d.txt", b"1")
        self.assertIn("Windows-1252", self.expect_failure("setup", "app", "--msi"))
        os.remove(self.path("app/\u0142\u4e2d.txt"))
        self.put("app/text", b"1")
        self.put("app/TEXT", b"2")
        self.assertIn("TEXT", self.expect_failure("setup", "app", "--msi"))

    def test_missing_tools_are_named_with_their_package(self):
        failure = self.expect_failure("setup", "app", "--msi", env={"PATH": self.folder})
        self.assertIn("wixl", failure)
        self.assertIn("apt-get install wixl", failure)


if __name__ == "__main__":
    unittest.main()
