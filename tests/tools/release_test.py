"""scripts/lib/pack_release.py: what is in a release, and that it is the same each time."""

import hashlib
import json
import os
import re
import shutil
import subprocess
import sys
import tarfile
import time
import unittest
import zipfile

from tarn_program import ROOT, FolderTest

PACK = os.path.join(ROOT, "scripts", "lib", "pack_release.py")


class ReleaseTest(FolderTest):
    def pack(self, folder, *platforms):
        """Packs a release of a jar that is compiled anew: (path of the zip file, its bytes)."""
        with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as file:
            version = re.search(r"project\(tarn VERSION ([0-9.]+)", file.read()).group(1)
        for command in ([os.path.join(ROOT, "examples", "build.sh"),
                         os.path.join(ROOT, "build", "release-files", "notes.jar")],
                        [sys.executable, PACK, version, self.path(folder), *platforms]):
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

    def test_checksums_cover_every_file(self):
        path, _ = self.pack("dist")
        folder = os.path.dirname(path)
        listed = {}
        for line in self.read("dist", "SHA256SUMS").decode("ascii").splitlines():
            digest, name = line.split("  ")
            listed[name] = digest
        files = set(os.listdir(folder)) - {"SHA256SUMS"}
        self.assertEqual(files, set(listed))
        for name in files:
            self.assertEqual(hashlib.sha256(self.read("dist", name)).hexdigest(), listed[name], name)

    def test_the_list_of_components_names_libraries_and_archives(self):
        path, content = self.pack("dist")
        (name,) = [name for name in os.listdir(os.path.dirname(path)) if name.endswith(".cdx.json")]
        document = json.loads(self.read("dist", name))
        self.assertEqual(("CycloneDX", "1.5"), (document["bomFormat"], document["specVersion"]))
        components = {entry["name"]: entry for entry in document["components"]}
        for library in ("zlib", "minizip", "pugixml", "CLI11", "nlohmann-json", "stb_image", "libstdc++"):
            self.assertRegex(components[library]["version"], r"^[0-9]+(\.[0-9]+)+$")
        self.assertEqual([{"alg": "SHA-256", "content": hashlib.sha256(content).hexdigest()}],
                         components[os.path.basename(path)]["hashes"])

    def test_an_archive_for_linux_has_an_executable_program(self):
        program = os.path.join(ROOT, "build", "companion-linux-x86_64", "tarn")
        present = os.path.exists(program)
        if not present:
            os.makedirs(os.path.dirname(program), exist_ok=True)
            shutil.copy(os.path.join(ROOT, "build", "native", "tarn"), program)
            self.addCleanup(os.remove, program)
        path, _ = self.pack("dist", "linux-x86_64")
        with tarfile.open(path.replace("-windows-x64.zip", "-linux-x86_64.tar.gz")) as archive:
            modes = {entry.name.split("/", 1)[1]: entry.mode for entry in archive.getmembers()}
        self.assertEqual((0o755, 0o644), (modes["tarn"], modes["launcher.exe"]))

    def test_the_repository_of_the_plugins_is_an_archive_of_its_own(self):
        pom = self.put(os.path.join("repository", "io", "plugin.pom"), b"<project/>")
        path, _ = self.pack("dist", "--repository", os.path.dirname(os.path.dirname(pom)))
        with zipfile.ZipFile(path.replace("-windows-x64.zip", "-maven-repository.zip")) as archive:
            self.assertEqual(["repository/io/plugin.pom"], archive.namelist())


if __name__ == "__main__":
    unittest.main()
