"""The companion program under test, and what its tests share."""

import os
import shutil
import struct
import subprocess
import tempfile
import unittest
import zipfile
import zlib

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
LAUNCHER = os.path.join(ROOT, "build", "release", "launcher.exe")
PROGRAMS = {
    "linux": [os.path.join(ROOT, "build", "native", "tarn")],
    "windows": ([] if os.name == "nt" else ["wine"]) +
               [os.path.join(ROOT, "build", "release", "tarn.exe")],
}
# Settings without findings, apart from the jar that they name. Tests count on the lines' numbers.
GOOD_SETTINGS = """[Java Runtime Environment]
Main Class=com.example.Main
Minimum Version=17
Maximum Version=any
[Class Path]
Class Path=app.jar
[Application]
Override WorkingDir=Yes
"""
RUNTIMES = os.environ.get("TARN_RUNTIMES", os.path.join(
    os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache")), "tarn", "runtimes"))
TOOLCHAIN = os.path.join(ROOT, "scripts", "lib", "toolchain.sh")
JDK = os.path.join(subprocess.check_output([TOOLCHAIN, "jdk"], text=True).strip(), "bin")


def run(command, folder, seconds=120, **options):
    """Runs a command to its end: (exit code, standard output, standard error)."""
    done = subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, timeout=seconds,
                          check=False, capture_output=True, **options)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


class FolderTest(unittest.TestCase):
    """A test in a folder of its own, with a space and letters outside ASCII in its name."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tarn tests \u00e4 ")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def put(self, name, content):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), "wb") as file:
            file.write(content)
        return self.path(name)

    def read(self, *names):
        with open(self.path(*names), "rb") as file:
            return file.read()

    def put_jar(self, name, manifest=None, entries=None):
        """A jar with a manifest of these attributes and these entries."""
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with zipfile.ZipFile(self.path(name), "w", zipfile.ZIP_DEFLATED) as jar:
            if manifest is not None:
                lines = "".join(f"{key}: {value}\r\n" for key, value in manifest.items())
                jar.writestr(zipfile.ZipInfo("META-INF/MANIFEST.MF"),
                             "Manifest-Version: 1.0\r\n" + lines + "\r\n")
            for entry, content in (entries or {}).items():
                jar.writestr(zipfile.ZipInfo(entry), content)
        return self.path(name)

    def tarn(self, *arguments, program="linux", **options):
        return run(PROGRAMS[program] + list(arguments), self.folder, **options)

    def expect(self, *arguments, program="linux", **options):
        """Runs the program, which has to do what it is asked: its standard output and error."""
        code, output, errors = self.tarn(*arguments, program=program, **options)
        self.assertEqual((0, []), (code, [line for line in errors.splitlines() if "error" in line]),
                         errors)
        return output, errors

    def expect_failure(self, *arguments, program="linux", **options):
        """Runs the program, which has to fail with one message: that message."""
        before = self.names()
        code, output, errors = self.tarn(*arguments, program=program, **options)
        self.assertEqual((2, ""), (code, output), errors)
        lines = [line for line in errors.splitlines() if line.startswith("tarn: error: ")]
        self.assertEqual(1, len(lines), errors)
        self.assertEqual(before, self.names(), "a failure leaves nothing behind")
        return lines[0]

    def names(self):
        """Everything in the folder."""
        found = []
        for folder, _, files in os.walk(self.folder):
            relative = os.path.relpath(folder, self.folder)
            found += [os.path.normpath(os.path.join(relative, name)) for name in files + ["."]]
        return sorted(found)


def class_file(java=8):
    """The head of a class file for a version of Java: what tarn reads of it."""
    return b"\xca\xfe\xba\xbe" + struct.pack(">HH", 0, 44 + java)


def png(width, height, data):
    """A PNG picture whose pixels are this compressed data, whether it fits or not."""
    def chunk(kind, content):
        return (struct.pack(">I", len(content)) + kind + content +
                struct.pack(">I", zlib.crc32(kind + content)))
    return (b"\x89PNG\r\n\x1a\n" +
            chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", data) + chunk(b"IEND", b""))


def picture(width=8, height=8):
    """A PNG picture of one colour."""
    rows = (b"\0" + b"\x20\x60\xc0\xff" * width) * height
    return png(width, height, zlib.compress(rows))
