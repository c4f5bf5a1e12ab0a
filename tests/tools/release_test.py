"""scripts/lib/pack_release.py: what is in a release, and that it is the same each time."""

import hashlib
import os
import re
import subprocess
import sys
import time
import unittest
import zipfile

from tarn_program import ROOT, FolderTest

PACK = os.path.join(ROOT, "scripts", "lib", "pack_release.py")


class ReleaseTest(FolderTest):
    def pack(self, folder):
        """Packs a release of a jar that is compiled anew: (path of the zip file, its bytes)."""
        with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as file:
            version = re.search(r"project\(tarn VERSION ([0-9.]+)", file.read()).group(1)
        for command in ([os.path.join(ROOT, "examples", "build.sh"),
                         os.path.join(ROOT, "build", "release-files", "notes.jar")],
                        [sys.executable, PACK, version, self.path(folder)]):
            subprocess.run(command, cwd=self.folder, check=True, timeout=120)
        path = self.path(folder, f"tarn-{version}-windows-x64.zip")
        with open(path, "rb") as file:
            return path, file.read()

    def test_two_releases_have_the_same_bytes(self):
        _, first = self.pack("first")
        # The times of a zip file have steps of two seconds: wait for another one.
        begin = int(time.time()) // 2
        while int(time.time()) // 2 == begin:
            time.sleep(0.05)
        _, second = self.pack("second")
        self.assertEqual(first, second)

    def test_has_what_a_user_needs(self):
        path, content = self.pack("dist")
        with open(path + ".sha256", encoding="ascii") as file:
            self.assertEqual(f"{hashlib.sha256(content).hexdigest()}  {os.path.basename(path)}\n",
                             file.read())
        with zipfile.ZipFile(path) as release:
            self.assertIsNone(release.testzip())
            names = release.namelist()
            self.assertEqual(sorted(names), names)
            top = names[0].split("/")[0] + "/"
            for name in ("launcher.exe", "tarn.exe", "template.ini", "LICENSE.txt", "README.md",
                         "THIRD-PARTY-NOTICES.txt", "CHANGELOG.md", "docs/user/settings.md",
                         "sample/sample.exe", "sample/sample.ini", "sample/notes.jar",
                         "sample/splash.png", "sample/documents/welcome.txt"):
                self.assertIn(top + name, names)
            for entry in release.infolist():
                self.assertEqual((b"", 3), (entry.extra, entry.create_system), entry.filename)


if __name__ == "__main__":
    unittest.main()
