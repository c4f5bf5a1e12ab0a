"""Hostile input is processed or rejected within 5 s of processor time and 300 MB of memory."""

import resource
import struct
import subprocess
import unittest
import zlib

from tarn_program import GOOD_SETTINGS, LAUNCHER, PROGRAMS, FolderTest, picture, png

SECONDS = 5
BYTES = 300_000_000


def limit():
    resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS))
    resource.setrlimit(resource.RLIMIT_AS, (BYTES, BYTES))


def icon(entries, size, shared=False):
    """An .ico file whose entries have images of their own, or all the same one."""
    first = 6 + 16 * entries
    table = b"".join(struct.pack("<BBBBHHII", 16, 16, 0, 0, 1, 32, size,
                                 first + (0 if shared else number * size))
                     for number in range(entries))
    return struct.pack("<HHH", 0, 1, entries) + table + b"p" * (size if shared else size * entries)


def swollen_picture(mebibytes):
    """A PNG picture of 64 x 64 pixels whose data unpacks to far more than its pixels."""
    packer = zlib.compressobj(9)
    data = b"".join(packer.compress(bytes(1 << 20)) for _ in range(mebibytes)) + packer.flush()
    return png(64, 64, data)


class LimitsTest(FolderTest):
    def tarn_within_limits(self, *arguments):
        done = subprocess.run(PROGRAMS["linux"] + list(arguments), cwd=self.folder,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=120,
                              check=False, preexec_fn=limit)
        self.assertIn(done.returncode, (0, 2), done.stderr[-500:])
        return done.returncode, done.stdout.decode(), done.stderr.decode()

    def stamp_icon(self, name, content):
        self.put(name, content)
        return self.tarn_within_limits("stamp", LAUNCHER, "--out", "app.exe", "--icon", name)

    def check(self, settings):
        self.put("sample.ini", settings.encode("ascii"))
        code, output, errors = self.tarn_within_limits("check", "--json", "sample.ini")
        self.assertEqual("", errors)
        return code, output

    def parameters(self, options):
        return GOOD_SETTINGS + "[Java Runtime Environment+]\nVirtual Machine Parameters=" + " ".join(options)

    def test_an_icon_of_60000_entries_that_share_their_image(self):
        code, _, errors = self.stamp_icon("app.ico", icon(60_000, 200_000, shared=True))
        self.assertEqual(2, code)
        self.assertIn("app.ico: has a corrupt image", errors)

    def test_an_icon_of_60000_images(self):
        code, _, errors = self.stamp_icon("app.ico", icon(60_000, 40))
        self.assertEqual((0, ""), (code, errors))

    def test_an_icon_file_that_is_too_large(self):
        code, _, errors = self.stamp_icon("app.ico", icon(1, 20_000_000))
        self.assertEqual(2, code)
        self.assertIn("app.ico: is too large", errors)

    def test_a_picture_that_unpacks_to_two_gigabytes(self):
        code, _, errors = self.stamp_icon("app.png", swollen_picture(2000))
        self.assertEqual(2, code)
        self.assertIn("app.png: is too large for an icon", errors)

    def test_the_largest_picture(self):
        code, _, errors = self.stamp_icon("app.png", picture(4096, 4096))
        self.assertEqual((0, ""), (code, errors))
        code, _, errors = self.stamp_icon("app.png", picture(4097, 8))
        self.assertEqual(2, code)
        self.assertIn("app.png: is too large for an icon", errors)

    def test_40000_sections(self):
        for name in ("Section", "Aplication", "Application", "Application+"):
            with self.subTest(name=name):
                number = "" if name.startswith("App") else "{}"
                text = "".join(f"[{name}{number}]\nCmd=x\n".format(i) for i in range(40_000))
                _, output = self.check(GOOD_SETTINGS + text)
                self.assertGreater(output.count('"id"'), 39_000)

    def test_20000_unknown_options(self):
        for option in ("-XX:+UnknownOptionOfTheJvm{}", "-XX:UnknownOptionOfTheJvm{}=1", "-Xunknown-option{}",
                       "--unknown-option{}", "word{}", "-javaagent:agent{}.jar", "--add-opens=module{}"):
            with self.subTest(option=option):
                code, output = self.check(self.parameters(option.format(i) for i in range(20_000)))
                self.assertEqual(2, code)
                self.assertGreaterEqual(output.count('"id"'), 20_000)

    def test_20000_unknown_keys(self):
        for section in ("Application", "Display"):
            with self.subTest(section=section):
                keys = "".join(f"Unknown Key of the Launcher Number {i}=1\n" for i in range(20_000))
                _, output = self.check(GOOD_SETTINGS.replace("[Application]\n", f"[{section}]\n{keys}"))
                self.assertGreaterEqual(output.count('"id"'), 20_000)

    def test_20000_class_path_entries_arguments_and_versions(self):
        entries = ";".join(f"lib/nosuch{i}.jar" for i in range(20_000))
        self.check(GOOD_SETTINGS.replace("app.jar", entries))
        self.check(GOOD_SETTINGS + "Cmd=" + " ".join(f'--name{i}="a b"' for i in range(20_000)))
        self.check(GOOD_SETTINGS.replace("=any", "=any\nPreferred versions=" + ";".join(["x,y"] * 20_000)))


if __name__ == "__main__":
    unittest.main()
