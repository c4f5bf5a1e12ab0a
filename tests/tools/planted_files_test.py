"""Planted files in the folder in which tarn runs, or in what it reads."""

import os
import unittest

from tarn_program import LAUNCHER, PROGRAMS, FolderTest, class_file, run


class PlantedFilesTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put_jar("demo.jar", {"Main-Class": "demo.Main"}, {"demo/Main.class": class_file(11)})

    def wrap(self, *options):
        return self.expect("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "o", "--name", "demo", *options)

    def test_only_the_file_that_config_names_gives_options(self):
        options = b'name = "Planted"\nout = "planted"\nsingle-file = true\n'
        for name in ("tarn.toml", "tarn.cfg", "tarn.ini", "config.toml", "config.ini", "demo.toml", "demo.jar.toml",
                     "wrap.toml", ".tarn"):
            self.put(name, options)
        self.expect("wrap", "demo.jar", "--launcher", LAUNCHER)
        self.assertEqual(["demo.exe", "demo.ini", "demo.jar"], sorted(os.listdir(self.path("demo"))))
        self.assertFalse(os.path.exists(self.path("planted")))

    def test_no_tool_of_the_current_folder_is_run(self):
        self.wrap("--version", "1.0", "--vendor", "Example")
        for tool in ("makensis", "wixl", "msibuild", "sh"):
            os.chmod(self.put(tool, b'#!/bin/sh\n: >"$(dirname "$0")/run"\nexit 1\n'), 0o755)
        for path in (".:" + os.environ["PATH"], ":" + os.environ["PATH"]):
            for options in ([], ["--msi"], ["--sign", "true"]):
                code, _, errors = run(PROGRAMS["linux"] + ["setup", "o", "--out", "made", "--replace", *options],
                                      self.folder, env=os.environ | {"PATH": path})
                self.assertEqual(0, code, errors)
        self.assertFalse(os.path.exists(self.path("run")))

    def test_links_in_an_added_folder_become_the_files_that_they_lead_to(self):
        self.put("elsewhere/notes.txt", b"notes")
        os.mkdir(self.path("in"))
        os.symlink("../elsewhere/notes.txt", self.path("in", "link.txt"))
        os.symlink("../elsewhere", self.path("in", "folder"))
        self.wrap("--add", "in")
        for names in (("link.txt",), ("folder", "notes.txt")):
            self.assertEqual(b"notes", self.read("o", "in", *names))
            self.assertFalse(os.path.islink(self.path("o", "in", names[0])))
        os.symlink("..", self.path("in", "cycle"))
        self.assertIn("contains it", self.expect_failure("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "other",
                                                         "--add", "in"))
        self.assertFalse(os.path.exists(self.path("other")))


if __name__ == "__main__":
    unittest.main()
