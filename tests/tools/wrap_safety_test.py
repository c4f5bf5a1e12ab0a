"""tarn wrap: input that it refuses, and files of others that survive it."""

import os
import shutil
import unittest

from tarn_program import LAUNCHER, PROGRAMS, FolderTest, class_file, picture


class NothingIsLostTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.put_jar("demo.jar", {"Main-Class": "demo.Main"}, {"demo/Main.class": class_file(11)})

    def wrap(self, *options, jar="demo.jar", **more):
        return self.expect("wrap", jar, "--launcher", LAUNCHER, "--out", "o", *options, **more)

    def fail_with(self, *options, jar="demo.jar", **more):
        return self.expect_failure("wrap", jar, "--launcher", LAUNCHER, "--out", "o", *options,
                                   **more)

    def test_files_with_names_like_temporary_ones_survive(self):
        for name in ("o.unfinished/x", "o.old/x", "o.new", "o.tmp"):
            self.put(name, b"kept")
        self.wrap()
        self.wrap("--replace")
        for name in ("o.unfinished/x", "o.old/x", "o.new", "o.tmp"):
            self.assertEqual(b"kept", self.read(name))
        self.assertEqual({"demo.jar", "o", "o.new", "o.old", "o.tmp", "o.unfinished"},
                         set(os.listdir(self.folder)))

    def test_links_are_never_followed(self):
        self.put("target.exe", b"kept")
        for name in ("app.exe.new", "app.exe"):
            os.symlink("target.exe", self.path(name))
        self.expect("stamp", LAUNCHER, "--out", "app.exe")
        self.assertEqual(b"kept", self.read("target.exe"))
        self.assertTrue(os.path.islink(self.path("app.exe.new")))
        os.mkdir(self.path("elsewhere"))
        os.symlink("elsewhere", self.path("o"))
        self.assertIn("o: is a link", self.fail_with("--replace"))
        self.assertEqual([], os.listdir(self.path("elsewhere")))

    def test_only_a_folder_of_this_program_is_replaced(self):
        self.put("o/demo.exe", b"the executable of another program")
        self.put("o/precious", b"kept")
        self.assertIn("o: is not replaced", self.fail_with("--replace"))
        self.assertEqual(b"kept", self.read("o", "precious"))

    def test_a_folder_with_input_that_would_be_lost_is_not_replaced(self):
        self.wrap()
        self.put("o/images/icon.png", picture())
        self.put("o/options.toml", b"version = 2\n")
        shutil.copy(LAUNCHER, self.path("o", "launcher.exe"))
        for program in PROGRAMS:
            for options in (["--icon", "o/images/icon.png"], ["--config", "o/options.toml"],
                            ["--launcher", "o/launcher.exe"],
                            ["--single-file", "--icon", "o/../o/images/icon.png"]):
                message = self.expect_failure(
                    "wrap", "demo.jar", "--out", "o", "--replace",
                    *([] if "--launcher" in options else ["--launcher", LAUNCHER]), *options,
                    program=program)
                self.assertIn("o: is not replaced, because it contains the input", message)
        # A copy of the jar is in the folder that replaces it, but not beside a single file.
        self.wrap("--replace", jar="o/demo.jar")
        self.assertIn("o/demo.jar", self.fail_with("--single-file", "--replace", jar="o/demo.jar"))

    def test_a_folder_is_not_copied_into_itself(self):
        self.put("in/data", b"x")
        for program in PROGRAMS:
            message = self.expect_failure("wrap", "demo.jar", "--launcher", LAUNCHER, "--out",
                                          "in/deep/o", "--add", "in", program=program)
            self.assertIn("in, which is copied into it", message)
        self.wrap()
        self.assertIn("o, which is copied into it", self.fail_with("--replace", "--add", "o"))

    def test_two_files_with_one_name_are_an_error_that_names_both(self):
        for name in ("more/prog.exe", "more/Z.INI", "a/same.txt", "b/SAME.TXT", "splash.png"):
            self.put(name, b"x")
        for program in PROGRAMS:
            for options, names in (
                    (["--name", "prog", "--add", "more/prog.exe"],
                     ("more/prog.exe", "the executable")),
                    (["--name", "z", "--add", "more/Z.INI"], ("more/Z.INI", "the settings file")),
                    (["--add", "a/same.txt", "--add", "b/SAME.TXT"],
                     ("a/same.txt", "b/SAME.TXT"))):
                message = self.fail_with(*options, program=program)
                for name in names:
                    self.assertIn(name, message)

    def test_names_beside_a_file_are_free_for_others(self):
        for name in ("cfg", "cfg.new", "cfg.tmp"):
            self.put("in/" + name, name.encode())
        self.wrap("--add", "in")
        for name in ("cfg", "cfg.new", "cfg.tmp"):
            self.assertEqual(name.encode(), self.read("o", "in", name))

    def test_names_that_windows_cannot_have_are_an_error(self):
        for name in ("CON", "nul.txt", "com1.log", "trailing.", "space ", "a:b", "a?"):
            self.put("in/" + name, b"x")
            self.assertIn(name, self.fail_with("--add", "in"))
            os.remove(self.path("in", name))
        self.put_jar("50%TEMP%.jar")
        self.assertIn("50%TEMP%.jar", self.fail_with("--class-path", "50%TEMP%.jar"))

    def test_empty_folders_are_copied(self):
        os.makedirs(self.path("in/empty/deeper"))
        for program in PROGRAMS:
            self.wrap("--add", "in", "--replace", program=program)
            self.assertTrue(os.path.isdir(self.path("o/in/empty/deeper")))

    def test_a_named_pipe_does_not_block(self):
        os.mkdir(self.path("in"))
        os.mkfifo(self.path("in/pipe"))
        self.assertIn("pipe", self.fail_with("--add", "in", seconds=20))
        self.assertIn("pipe", self.fail_with("--icon", "in/pipe", seconds=20))


class BadInputTest(FolderTest):
    def fail_with(self, *options, jar="demo.jar"):
        return self.expect_failure("wrap", jar, "--launcher", LAUNCHER, "--out", "o", *options)

    def test_a_jar_without_manifest_or_main_class(self):
        self.put_jar("demo.jar", None, {"a": "b"})
        self.assertIn("demo.jar: has no manifest", self.fail_with())
        self.put_jar("demo.jar", {"Class-Path": "x.jar"})
        self.assertIn("specify --main-class", self.fail_with())

    def test_a_title_with_control_characters(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B", "Implementation-Title": "a\tb"},
                     {"a/B.class": class_file(11)})
        self.assertIn("demo.jar: the title in its manifest", self.fail_with())
        self.expect("wrap", "demo.jar", "--launcher", LAUNCHER, "--title", "T", "--out", "o")

    def test_an_encrypted_jar(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B"}, {"secret": "x"})
        content = bytearray(self.read("demo.jar"))
        for mark, offset in ((b"PK\x03\x04", 6), (b"PK\x01\x02", 8)):
            content[content.rindex(mark) + offset] |= 1
        self.put("demo.jar", content)
        self.assertIn("demo.jar: is encrypted (secret)", self.fail_with())

    def test_a_truncated_jar_and_other_files(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B"}, {"x": "y" * 5000})
        whole = self.read("demo.jar")
        for content in (whole[:-1], whole[:len(whole) // 2], whole[100:-30], b"", b"text"):
            self.put("demo.jar", content)
            self.assertIn("demo.jar: is not a jar or zip file", self.fail_with())
        self.assertIn("none.jar: cannot be read", self.fail_with(jar="none.jar"))

    def test_a_corrupt_jar_on_the_class_path(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B", "Class-Path": "x.jar"})
        self.put("x.jar", b"text")
        self.assertIn("x.jar: is not a jar", self.fail_with())

    def test_unsuitable_runtimes(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B"})
        self.assertIn("contains no Java runtime", self.fail_with("--runtime", "."))
        self.put("linux/lib/server/libjvm.so", b"")
        self.assertIn("another system", self.fail_with("--runtime", "linux"))

    def test_contradictory_and_malformed_options(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B"})
        self.put("a.bmp", b"BM")
        self.assertIn("--ends-with", self.fail_with("--single-instance", "--ends-with", "threads"))
        self.assertIn("--single-file", self.fail_with("--single-file", "--splash", "a.png"))
        self.assertIn("SECTION/KEY=VALUE", self.fail_with("--set", "Key=Value"))
        self.assertIn("a.bmp is not a PNG", self.fail_with("--splash", "a.bmp"))
        for name in ("a/b", "a:b", "a.", "what?", "CON", "nul"):
            self.assertIn(name, self.fail_with("--name", name))

    def test_a_file_that_is_not_a_launcher(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B"})
        self.assertIn("demo.jar: is not a Windows executable",
                      self.expect_failure("wrap", "demo.jar", "--launcher", "demo.jar"))

    def test_a_full_disk_leaves_no_folder(self):
        # A limit for the size of files, which ends a write half-way as a full disk does.
        self.put_jar("demo.jar", {"Main-Class": "a.B"})
        command = "trap '' XFSZ; ulimit -f 40; exec \"$0\" \"$@\""
        PROGRAMS["full"] = ["bash", "-c", command] + PROGRAMS["linux"]
        self.addCleanup(PROGRAMS.pop, "full")
        self.assertIn("cannot be written",
                      self.expect_failure("wrap", "demo.jar", "--launcher", LAUNCHER, "--out", "o",
                                          program="full"))

    def test_a_folder_that_cannot_be_written(self):
        self.put_jar("demo.jar", {"Main-Class": "a.B"})
        # Not even root can create folders there.
        self.assertIn("cannot be created", self.expect_failure("wrap", "demo.jar", "--launcher",
                                                            LAUNCHER, "--out", "/proc/o"))


if __name__ == "__main__":
    unittest.main()
