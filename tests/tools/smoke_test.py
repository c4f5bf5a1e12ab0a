"""An application's way through the companion program: wrapped, checked, explained and started.

Runs by itself on Windows too, where it is the first test of what Linux has built.
"""

import json
import os
import subprocess
import unittest

from tarn_program import ROOT, RUNTIMES, FolderTest

JAR = os.path.join(ROOT, "build", "release", "tests", "fixtures.jar")


class SmokeTest(FolderTest):
    def test_a_wrapped_application_passes_its_check_and_starts(self):
        out = self.path("out")
        self.expect("wrap", JAR, "--out", out, "--name", "Smoke",
                    "--launcher", os.path.join(ROOT, "build", "release", "launcher.exe"),
                    "--runtime", os.path.join(RUNTIMES, "17"), "--no-runtime-archive", program="windows")
        self.expect("check", os.path.join(out, "Smoke.ini"), "--strict", program="windows")

        program = os.path.join(out, "Smoke.exe")
        output, _ = self.expect("explain", program, "--json", program="windows")
        report = json.loads(output)
        self.assertEqual("starts-java", report["outcome"]["kind"])
        self.assertEqual("fixture/Application", report["jvm"]["mainClass"])

        command = [program] if os.name == "nt" else ["wine", program]
        facts = self.path("facts.txt")
        started = subprocess.run([*command, "a b", "do:exit:7"], cwd=out, timeout=120, check=False,
                                 env=os.environ | {"TARN_TEST_REPORT": facts})
        self.assertEqual(7, started.returncode)
        self.assertIn("argument=a b", self.read("facts.txt").decode())


if __name__ == "__main__":
    unittest.main()
