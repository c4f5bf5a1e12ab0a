"""Two builds of the same sources in different folders have the same bytes."""

import os
import shutil
import subprocess
import tempfile
import unittest

from image import LAUNCHER, ROOT


class ReproducibleTest(unittest.TestCase):
    maxDiff = None

    def run_quietly(self, *command, folder):
        done = subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=800,
                              check=False)
        self.assertEqual(0, done.returncode, done.stdout)

    def test_a_build_in_another_folder_gives_the_same_bytes(self):
        with tempfile.TemporaryDirectory(prefix="tarn elsewhere ") as elsewhere:
            # A different depth and length, and a space.
            copy = os.path.join(elsewhere, "a", "longer", "way", "down")
            shutil.copytree(ROOT, copy, ignore=shutil.ignore_patterns("build", ".git"))
            self.run_quietly("cmake", "--preset", "release", folder=copy)
            self.run_quietly("cmake", "--build", "--preset", "release", "-j", "2", "--target",
                             "launcher", "tarn", folder=copy)
            for name in ("launcher.exe", "tarn.exe"):
                with self.subTest(name=name):
                    self.expect_same(os.path.join(os.path.dirname(LAUNCHER), name),
                                     os.path.join(copy, "build", "release", name))

    def expect_same(self, first, second):
        with open(first, "rb") as file:
            here = file.read()
        with open(second, "rb") as file:
            there = file.read()
        differing = [i for i, (a, b) in enumerate(zip(here, there)) if a != b]
        self.assertEqual((len(here), []), (len(there), differing[:20]))


if __name__ == "__main__":
    unittest.main()
