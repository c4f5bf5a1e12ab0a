"""Each operation of the companion program on a file fails once: nothing is lost or half written."""

import os
import re
import shutil
import subprocess
import unittest

from tarn_program import LAUNCHER, PROGRAMS, FolderTest, class_file, picture

# What a call answers when it fails; "EIO" otherwise.
ERRORS = {"write": "ENOSPC", "mkdir": "ENOSPC", "openat": "EACCES", "newfstatat": "EACCES",
          "access": "EACCES", "rename": "EACCES", "unlink": "EACCES", "unlinkat": "EACCES",
          "rmdir": "EACCES"}
# After these, nothing may remain.
WRITES = ("write", "mkdir", "rename", "read")
TEMPORARY = r"^(o|app\.exe)\.[0-9a-f]{16}\.tmp$"
# `close` frees the descriptor whatever it returns, and the two others do not fail.
IGNORED = ("fcntl", "getcwd", "execve")
CALL = re.compile(r"^(?:\d+ +)?(\w+)\(")


class FailingFilesTest(FolderTest):
    """Runs a command under strace, which makes the calls of an unchanged program fail."""

    def setUp(self):
        super().setUp()
        self.put_jar("in/demo.jar", {"Main-Class": "demo.Main", "Class-Path": "lib.jar"},
                     {"demo/Main.class": class_file(11)})
        self.put_jar("in/lib.jar", {}, {"lib/Lib.class": class_file(11)})
        self.put_jar("in/libs/other.jar", {}, {"other/Other.class": class_file(11)})
        self.put("in/more/notes.txt", b"notes")
        self.put("in/app.png", picture(256, 256))
        self.put("in/app.exe.ini", b"[Java Runtime Environment]\r\n")
        shutil.copyfile(LAUNCHER, self.path("in/launcher.exe"))
        self.inputs = self.content()

    def content(self):
        """Every file below the folder with its bytes, and every folder."""
        return {name: None if os.path.isdir(self.path(name)) else self.read(name)
                for name in self.names()}

    def restore(self, content):
        for name in os.listdir(self.folder):
            path = self.path(name)
            shutil.rmtree(path) if os.path.isdir(path) else os.remove(path)
        for name, data in content.items():
            if data is None:
                os.makedirs(self.path(name), exist_ok=True)
        for name, data in content.items():
            if data is not None:
                self.put(name, data)

    def strace(self, options, command):
        return self.run_command(["strace", "-f", "-y", "-qq", "-o", self.log] + options +
                                PROGRAMS["linux"] + command)

    def run_command(self, command):
        done = subprocess.run(command, cwd=self.folder, stdin=subprocess.DEVNULL, timeout=120,
                              check=False, capture_output=True)
        return done.returncode, done.stderr.decode()

    def calls(self, command):
        """The calls on files of the folder: (name, how many of that name came before it + 1)."""
        code, errors = self.strace(["-s0", "-e", "trace=%file,%desc"], command)
        self.assertEqual(0, code, errors)
        found, numbers = [], {}
        with open(self.log, encoding="utf-8", errors="replace") as log:
            for line in log:
                match = CALL.match(line)
                if not match:
                    continue
                name = match.group(1)
                numbers[name] = numbers.get(name, 0) + 1
                if self.is_on_the_folder(line) and name not in IGNORED:
                    found.append((name, numbers[name], line.strip()))
        return found

    @staticmethod
    def is_on_the_folder(line):
        return "tarn tests" in line

    def fail_each_call(self, *command):
        """Runs the command once for each of its calls, which fails."""
        self.log = self.folder + ".strace"
        self.addCleanup(lambda: os.path.exists(self.log) and os.remove(self.log))
        command = list(command)
        before = self.content()
        calls = self.calls(command)
        after = self.content()
        self.assertNotEqual(before, after)
        self.assertGreater(len(calls), 20)
        clean = 0
        for name, number, line in calls:
            self.restore(before)
            error = ERRORS.get(name, "EIO")
            with self.subTest(call=line[:160]):
                code, errors = self.strace(
                    ["-e", f"trace={name}", "-e", f"inject={name}:error={error}:when={number}"],
                    command)
                with open(self.log, encoding="utf-8", errors="replace") as log:
                    self.assertIn("(INJECTED)", log.read())
                isClean = self.check_outcome(code, errors, before, after)
                clean += isClean
                if name in WRITES:
                    self.assertTrue(isClean, errors)
        self.assertGreater(clean, len(calls) / 2)

    def check_outcome(self, code, errors, before, after):
        """All of the result, or an error that names a file and nothing of the result. What cannot
        be removed may remain beside it, and a warning names it."""
        content = self.content()
        expected = after if code == 0 else before
        remains = {name.split(os.sep)[0] for name in set(content) - set(expected)}
        self.assertEqual(expected, {name: content.get(name) for name in expected}, errors)
        messages = [line for line in errors.splitlines() if line.startswith("tarn: error: ")]
        if code == 0:
            self.assertEqual([], messages)
            for name in remains:
                self.assertRegex(name, TEMPORARY)
                self.assertIn(f"delete {name}", errors)
        else:
            self.assertEqual(2, code, errors)
            self.assertEqual(1, len(messages), errors)
            self.assertRegex(messages[0], r"\b(in|o|app\.exe|demo\.(jar|ini))\b")
            self.assertEqual([], [name for name in remains if not re.search(TEMPORARY, name)])
        return not remains

    def fill_the_disk(self, *command):
        """Runs the command once for each write, from which on no byte can be written."""
        self.log = self.folder + ".strace"
        self.addCleanup(lambda: os.path.exists(self.log) and os.remove(self.log))
        command = list(command)
        before = self.content()
        writes = [number for name, number, _ in self.calls(command) if name == "write"]
        self.assertGreater(len(writes), 1)
        for number in writes:
            self.restore(before)
            with self.subTest(write=number):
                code, _ = self.strace(
                    ["-e", "trace=write", "-e", f"inject=write:error=ENOSPC:when={number}+"],
                    command)
                self.assertEqual(2, code)
                self.assertEqual(before, self.content())

    WRAP = ("wrap", "in/demo.jar", "--launcher", "in/launcher.exe", "--out", "o", "--icon",
            "in/app.png", "--add", "in/more", "--class-path", "in/libs")
    STAMP = ("stamp", "in/launcher.exe", "--out", "app.exe", "--icon", "in/app.png",
             "--settings", "in/app.exe.ini", "--jar", "in/demo.jar", "--version", "1.2.3")

    def test_a_new_folder_is_complete_or_absent(self):
        self.fail_each_call(*self.WRAP)

    def test_a_replaced_folder_is_the_old_one_or_the_new_one(self):
        self.expect(*self.WRAP)
        self.fail_each_call(*self.WRAP, "--replace", "--version", "2.0")

    def test_a_new_executable_is_complete_or_absent(self):
        self.fail_each_call(*self.STAMP)

    def test_a_replaced_executable_is_the_old_one_or_the_new_one(self):
        self.put("app.exe", b"MZ, an older one")
        self.fail_each_call(*self.STAMP)

    def test_a_full_disk_leaves_everything_as_it_was(self):
        self.fill_the_disk(*self.WRAP)
        self.expect(*self.WRAP)
        self.fill_the_disk(*self.WRAP, "--replace", "--version", "2.0")
        self.restore(self.inputs)
        self.fill_the_disk(*self.STAMP)


if __name__ == "__main__":
    unittest.main()
