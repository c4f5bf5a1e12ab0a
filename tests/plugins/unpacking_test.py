"""Two builds unpack the companion program at the same time: one stops whenever it has seen that something is missing, and
the other one creates it meanwhile."""

import glob
import os
import re
import shutil
import signal
import subprocess
import time
import unittest

import builds

WORK = os.path.join(builds.WORK, "unpacking")
CORE = os.path.join(builds.ROOT, "build", "plugins", "tarn-plugin-core")
CALL = re.compile(r"^\d+ +(\w+)\(")


def build():
    """The command of a build that unpacks below each folder that a line of its input names."""
    return [os.path.join(builds.environment()["JAVA_HOME"], "bin", "java"), "-XX:TieredStopAtLevel=1", "-cp",
            os.pathsep.join((os.path.join(CORE, "classes"), os.path.join(CORE, "test-classes"))),
            "io.github.tarnlauncher.plugin.UnpackingProcess"]


class UnpackingTest(unittest.TestCase):
    def setUp(self):
        shutil.rmtree(WORK, ignore_errors=True)
        os.makedirs(WORK)
        self.cache = os.path.join(WORK, "cache")
        self.log = os.path.join(WORK, "log")
        self.other = self.start(build())
        self.assertEqual("ready", self.other.stdout.readline().strip())

    def start(self, command):
        process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def ask(self, process):
        process.stdin.write(self.cache + "\n")
        process.stdin.flush()

    def traced(self, *options):
        """A build under strace, of whose calls those on the folder that all builds share are looked at."""
        if os.path.exists(self.log):
            os.remove(self.log)
        paths = (self.cache, os.path.join(self.cache, "companion"), self.folder,
                 os.path.join(self.folder, "tarn"), os.path.join(self.folder, "launcher.exe"))
        process = self.start(["strace", "-f", "-qq", "-s0", "-o", self.log, "-e", "trace=%file",
                              *(word for path in paths for word in ("-P", path)), *options, *build()])
        self.ask(process)
        process.stdin.close()
        process.stdin = None
        return process

    def unpacked(self):
        return glob.glob(os.path.join(self.cache, "companion", "*"))

    def calls(self):
        """The calls of a build that is alone for which something is missing: (name, how many of that name came before it
        + 1)."""
        self.assertEqual(0, self.traced().wait(120))
        counts, found = {}, []
        with open(self.log, encoding="utf-8") as log:
            for line in log:
                if match := CALL.match(line):
                    name = match.group(1)
                    counts[name] = counts.get(name, 0) + 1
                    if " ENOENT " in line:
                        found.append((name, counts[name]))
        return found

    def wait_until_stopped(self, process):
        deadline = time.monotonic() + 60
        while time.monotonic() < deadline and process.poll() is None:
            if os.path.exists(self.log):
                with open(self.log, encoding="utf-8") as log:
                    stopped = re.search(r"^(\d+) +--- stopped by SIGSTOP", log.read(), re.MULTILINE)
                if stopped:
                    return int(stopped.group(1))
            time.sleep(0.01)
        self.fail("the build was not stopped")

    def test_another_build_may_create_what_is_missing(self):
        self.ask(self.other)
        self.folder = os.path.dirname(self.other.stdout.readline().strip())
        shutil.rmtree(self.cache)
        calls = self.calls()
        self.assertGreater(len(calls), 2)
        for name, number in calls:
            shutil.rmtree(self.cache)
            with self.subTest(call=f"{name} {number}"):
                process = self.traced("-e", f"inject={name}:signal=SIGSTOP:when={number}")
                thread = self.wait_until_stopped(process)
                self.ask(self.other)
                self.assertEqual(self.folder, os.path.dirname(self.other.stdout.readline().strip()))
                os.kill(thread, signal.SIGCONT)
                self.assertEqual(0, process.wait(60))
                self.assertIn(self.folder, process.stdout.read())
                self.assertEqual([self.folder], self.unpacked())


if __name__ == "__main__":
    unittest.main()
