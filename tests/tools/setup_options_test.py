"""tarn setup: its options and what it refuses, without running the result."""

import os
import subprocess
import unittest

from tarn_program import LAUNCHER, PROGRAMS, FolderTest, class_file, run


class SetupOptionsTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put_jar("app.jar", {"Main-Class": "demo.Main"}, {"demo/Main.class": class_file(11)})
        self.wrap()

    def wrap(self, *options):
        self.expect("wrap", "app.jar", "--launcher", LAUNCHER, "--out", "app", "--name", "App",
                    "--version", "1.2", "--replace", *options)

    def test_the_same_folder_gives_the_same_bytes_twice_and_by_hand(self):
        self.put("extra/\u00e4 $x ${FOLDER} $%HOME% 100% 'q' `b`.txt", b"1")
        self.wrap("--add", "extra")
        os.rename(self.path("app"), self.path("a ${FOLDER} 'app' $%HOME%"))
        options = ("--name", 'A "quoted" $NAME & ${X}', "--license", self.put("LICENSE", b"text\n"),
                   "--associate", '.adoc="Quoted" $kind')
        output, _ = self.expect("setup", "a ${FOLDER} 'app' $%HOME%", *options, "--script", "kept")
        self.assertEqual("A _quoted_ $NAME & ${X}-1.2-setup.exe\n", output)
        first = self.read(output.strip())
        self.expect("setup", "a ${FOLDER} 'app' $%HOME%", *options, "--out", "second.exe")
        self.assertEqual(first, self.read("second.exe"))
        code, messages, errors = run(["makensis", "-V2", "-INPUTCHARSET", "UTF8", "setup.nsi"],
                                     self.path("kept"))
        self.assertEqual((0, ""), (code, messages + errors), "without a warning")
        self.assertEqual(first, self.read("kept", "installer.exe"))

    def test_an_existing_setup_program_is_replaced_only_when_asked(self):
        self.put("out.exe", b"old")
        self.assertIn("--replace", self.expect_failure("setup", "app", "--out", "out.exe"))
        self.assertEqual(b"old", self.read("out.exe"))
        self.expect("setup", "app", "--out", "out.exe", "--replace")
        self.assertNotEqual(b"old", self.read("out.exe"))

    def test_a_missing_tool_is_named_with_its_package(self):
        code, _, errors = run(PROGRAMS["linux"] + ["setup", "app"], self.folder,
                              env=os.environ | {"PATH": self.folder})
        self.assertEqual(2, code)
        self.assertIn("makensis", errors)
        self.assertIn("apt-get install nsis", errors)

    def test_it_refuses_what_cannot_be_installed(self):
        def fails(message, *options):
            self.assertIn(message, self.expect_failure("setup", *options))
        fails("no folder is specified", "--replace")
        fails("contains no executable", ".")
        fails("cannot be read", "none")
        fails("not in the folder", "app", "--associate", ".adoc=Document,no.ico")
        fails("specified twice", "app", "--associate", ".adoc", "--associate", ".ADOC=x")
        fails("belongs to Windows", "app", "--associate", ".exe")
        fails("--id", "app", "--id", "a\\b")
        fails("longer than 128", "app", "--name", "a" * 129)
        fails("not UTF-8", "app", "--license", self.put("LATIN", b"\xe4\n"))
        fails("is not an existing folder", "app", "--out", "none/setup.exe")
        self.put("kept/file", b"1")
        fails("exists already", "app", "--script", "kept")

        self.put("app/uninstall.LST", b"1")
        fails("uninstall.LST", "app")
        os.remove(self.path("app", "uninstall.LST"))
        self.put("app/" + "a" * 100 + "/" + "b" * 100, b"1")
        fails("limit of 260", "app")

    def test_more_than_two_gigabytes_are_refused_at_once(self):
        with open(self.path("app", "large"), "wb") as file:
            file.truncate(2_100_000_000)
        self.assertIn("2 GB at most", self.expect_failure("setup", "app", seconds=20))

    def test_thousands_of_files_are_each_extracted_and_listed(self):
        names = {f"d{number % 20}\\f{number}" for number in range(2_000)}
        for name in names:
            self.put("app/" + name.replace("\\", "/"), name.encode())
        self.expect("setup", "app", "--script", "kept")
        listed = self.read("kept", "installed.txt").decode("utf-16").splitlines()
        self.assertLessEqual({"F " + name for name in names}, set(listed))
        self.assertEqual(sum(line.startswith("F ") for line in listed),
                         self.read("kept", "setup.nsi").count(b"Call SetTime\n"))

    def test_launcher_uninstaller_and_setup_program_are_signed_in_place(self):
        for name in ("key.pem", "certificate.pem"):
            self.assertFalse(os.path.exists(self.path(name)))
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                        "-keyout", "key.pem", "-out", "certificate.pem", "-subj", "/CN=Throw-away",
                        "-addext", "extendedKeyUsage=codeSigning"],
                       cwd=self.folder, check=True, capture_output=True)
        self.put("sign.sh", b'osslsigncode sign -certs certificate.pem -key key.pem '
                            b'-in "$1" -out "$1.signed" && mv "$1.signed" "$1" && '
                            b'basename "$1" >>signed.txt\n')
        before = self.read("app", "App.exe")
        self.expect("setup", "app", "--sign", "sh ./sign.sh", "--out", "signed.exe")
        self.assertEqual(before, self.read("app", "App.exe"))
        signed = self.read("signed.txt").decode().split()
        self.assertEqual(("App.exe", "installer.exe", 3), (signed[0], signed[2], len(signed)))
        code, output, errors = run(["osslsigncode", "verify", "-CAfile", "certificate.pem",
                                    "-in", "signed.exe"], self.folder)
        self.assertEqual(0, code, output + errors)

        os.remove(self.path("signed.txt"))
        self.assertIn("the command failed", self.expect_failure(
            "setup", "app", "--sign", "false", "--out", "unsigned.exe"))


if __name__ == "__main__":
    unittest.main()
