"""scripts/set_version.py in a copy of the files that name the version."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FILES = ("CMakeLists.txt", "CHANGELOG.md", "README.md", "docs/user/packaging.md", "examples/maven/pom.xml",
         "examples/gradle/build.gradle", "resources/launcher.manifest", "scripts/set_version.py")


class VersionTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        for path in FILES:
            target = os.path.join(self.folder, path)
            os.makedirs(os.path.dirname(target), exist_ok=True)
            shutil.copy(os.path.join(ROOT, path), target)
        for command in (["init", "--quiet"], ["add", "."]):
            subprocess.run(["git", *command], cwd=self.folder, check=True)

    def run_script(self, *arguments):
        done = subprocess.run([sys.executable, os.path.join(self.folder, "scripts", "set_version.py"), *arguments],
                              capture_output=True, text=True, timeout=60, check=False)
        return done.returncode, done.stdout + done.stderr

    def edit(self, path, old, new):
        full = os.path.join(self.folder, path)
        with open(full, encoding="utf-8") as file:
            text = file.read()
        self.assertIn(old, text)
        with open(full, "w", encoding="utf-8") as file:
            file.write(text.replace(old, new))

    def test_every_place_gets_the_new_version(self):
        self.edit("CHANGELOG.md", "# Changes\n", "# Changes\n\n## 98.7.6 (2030-01-01)\n")
        code, output = self.run_script("98.7.6")
        self.assertEqual(0, code, output)
        for path in FILES:
            if path != "scripts/set_version.py":
                with open(os.path.join(self.folder, path), encoding="utf-8") as file:
                    self.assertIn("98.7.6", file.read(), path)
        self.assertEqual((0, ""), self.run_script("--check"))

    def test_a_place_with_another_version_is_named_with_its_line(self):
        self.edit("README.md", "<version>", "<version>9")
        code, output = self.run_script("--check")
        self.assertEqual(1, code)
        self.assertRegex(output, r"^README\.md:\d+: names version 9")

    def test_a_file_that_lost_its_version_is_named(self):
        self.edit("examples/gradle/build.gradle", "' version '", "' // '")
        self.assertEqual((1, "examples/gradle/build.gradle: does not name the version\n"), self.run_script("--check"))

    def test_a_version_without_a_section_of_changes_is_an_error(self):
        code, output = self.run_script("98.7.6")
        self.assertEqual(1, code)
        self.assertIn("CHANGELOG.md: the newest version is", output)


if __name__ == "__main__":
    unittest.main()
