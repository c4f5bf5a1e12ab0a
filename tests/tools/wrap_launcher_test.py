"""tarn wrap: where it finds the launcher, and what it shows in a terminal."""

import os
import pty
import shutil
import subprocess
import unittest

from tarn_program import LAUNCHER, PROGRAMS, FolderTest, class_file, run


class LauncherTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put_jar("demo.jar", {"Main-Class": "demo.Main"}, {"demo/Main.class": class_file(11)})

    def wrap_with(self, program):
        return run([program, "wrap", "demo.jar", "--out", "o", "--replace"], self.folder)

    def put_program(self, name):
        os.makedirs(os.path.dirname(self.path(name)))
        shutil.copy(PROGRAMS["linux"][0], self.path(name))
        return self.path(name)

    def test_is_found_beside_the_program_or_where_a_checkout_builds_it(self):
        for program, launcher in (("tool/tarn", "tool/launcher.exe"),
                                  ("build/native/tarn", "build/release/launcher.exe")):
            program = self.put_program(program)
            code, _, errors = self.wrap_with(program)
            self.assertEqual(2, code)
            for text in ("launcher.exe: was not found", "--launcher", "cmake --build"):
                self.assertIn(text, errors)
            with open(LAUNCHER, "rb") as file:
                self.put(launcher, file.read())
            self.assertEqual((0, "o/demo.exe\n", ""), self.wrap_with(program))

    def test_is_found_by_the_program_in_this_checkout(self):
        for program in PROGRAMS:
            self.expect("wrap", "demo.jar", "--out", "o", "--replace", program=program)


class TerminalTest(FolderTest):
    def test_what_is_quick_shows_nothing_but_its_result(self):
        self.put_jar("demo.jar", {"Main-Class": "demo.Main"}, {"demo/Main.class": class_file(11)})
        try:
            main, terminal = pty.openpty()
        except OSError:
            # Some containers have no pseudo terminals. A pipe must show as little.
            main, terminal = os.pipe()
        self.addCleanup(os.close, main)
        done = subprocess.run(PROGRAMS["linux"] + ["wrap", "demo.jar", "--out", "o", "--launcher",
                                                   LAUNCHER], cwd=self.folder, check=True,
                              timeout=120, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=terminal)
        os.write(terminal, b"end")
        os.close(terminal)
        self.assertEqual((b"o/demo.exe\n", b"end"), (done.stdout, os.read(main, 100)))


if __name__ == "__main__":
    unittest.main()
