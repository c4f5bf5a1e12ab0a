"""A single file that was signed: real runtimes still read the jar in it."""

import os
import subprocess
import unittest
import zipfile

from tarn_program import JDK, LAUNCHER, RUNTIMES, FolderTest, run

MAIN = """
package demo;
public class Main {
    public static void main(String[] arguments) throws Exception {
        try (java.io.InputStream text = Main.class.getResourceAsStream("text")) {
            System.out.println(System.getProperty("java.version").split("[.]")[0] + " "
                + new java.util.Scanner(text, "UTF-8").nextLine() + " " + String.join("|", arguments)
                + " " + Library.class.getSimpleName());
        }
    }
}
class Library { }
"""


class SignedSingleFileTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put("src/demo/Main.java", MAIN.encode())
        self.succeed(os.path.join(JDK, "javac"), "--release", "8", "-Xlint:-options", "-d",
                     "classes", "src/demo/Main.java")
        self.succeed("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                     "-keyout", "key.pem", "-out", "certificate.pem", "-subj", "/CN=Throw-away",
                     "-addext", "extendedKeyUsage=codeSigning")

    def succeed(self, *command, **options):
        code, output, errors = run(command, self.folder, **options)
        self.assertEqual(0, code, output + errors)
        return output

    def put_application(self, entries=0):
        with zipfile.ZipFile(self.path("demo.jar"), "w") as jar:
            for number in range(entries):
                jar.writestr(zipfile.ZipInfo(f"data/{number}"), b"")
            jar.writestr("META-INF/MANIFEST.MF", "Main-Class: demo.Main\n")
            jar.writestr("demo/text", "greeting")
            for name in os.listdir(self.path("classes/demo")):
                jar.write(self.path("classes/demo", name), "demo/" + name)

    def wrap_and_sign(self):
        self.expect("wrap", "demo.jar", "--launcher", LAUNCHER, "--single-file", "--out", "made",
                    "--name", "demo", "--vm-parameters", "-Dfile.encoding=UTF-8")
        os.makedirs(self.path("signed"))
        self.succeed("osslsigncode", "sign", "-certs", "certificate.pem", "-key", "key.pem",
                     "-in", "made/demo.exe", "-out", "signed/demo.exe")
        verified = self.succeed("osslsigncode", "verify", "-CAfile", "certificate.pem",
                                "-in", "signed/demo.exe")
        self.assertIn("Signature verification: ok", verified)

    def start_with(self, runtime, folder="signed"):
        link = self.path(folder, "jre64")
        if os.path.islink(link):
            os.remove(link)
        os.symlink(os.path.join(RUNTIMES, runtime), link)
        with open(self.path("output"), "wb") as output:
            # The runtime's own messages about Wine come on the same stream.
            done = subprocess.run(["wine", self.path(folder, "demo.exe"), "a", "b c"],
                                  cwd=self.folder, stdin=subprocess.DEVNULL, stdout=output,
                                  stderr=subprocess.DEVNULL, timeout=120, check=False)
        return done.returncode, self.read("output").decode(errors="replace")

    def test_every_runtime_reads_the_jar_behind_which_the_signature_stands(self):
        self.put_application()
        self.wrap_and_sign()
        self.assertEqual({"demo.exe"}, set(os.listdir(self.path("signed"))))
        for runtime in ("11", "17", "21", "25"):
            with self.subTest(runtime=runtime):
                code, output = self.start_with(runtime)
                self.assertEqual(0, code)
                self.assertIn(f"{runtime} greeting a|b c Library", output)

    def test_a_jar_of_two_hundred_thousand_entries_is_read_too(self):
        self.put_application(entries=200_000)
        self.wrap_and_sign()
        for runtime in ("11", "25"):
            with self.subTest(runtime=runtime):
                _, output = self.start_with(runtime)
                self.assertIn(f"{runtime} greeting", output)

    def test_the_unsigned_one_starts_as_well(self):
        self.put_application()
        self.wrap_and_sign()
        _, output = self.start_with("21", folder="made")
        self.assertIn("21 greeting", output)

    def test_a_signed_file_is_changed_only_without_its_signature(self):
        self.put_application()
        self.wrap_and_sign()
        self.assertIn("--drop-signature",
                      self.expect_failure("stamp", "signed/demo.exe", "--out", "again.exe"))
        self.expect("stamp", "signed/demo.exe", "--out", "again.exe", "--drop-signature")
        self.assertEqual(self.read("made", "demo.exe"), self.read("again.exe"))


if __name__ == "__main__":
    unittest.main()
