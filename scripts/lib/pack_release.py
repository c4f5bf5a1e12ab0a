#!/usr/bin/env python3
"""Packs what was built into a release: pack_release.py VERSION FOLDER

Nothing of this machine gets into the zip file: entries are sorted, with one time and no further
fields.
"""

import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
import zipfile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FILES = {
    "launcher.exe": "build/release/launcher.exe",
    "tarn.exe": "build/release/tarn.exe",
    "template.ini": "examples/template.ini",
    "README.md": "README.md",
    "CHANGELOG.md": "CHANGELOG.md",
    "SECURITY.md": "SECURITY.md",
    "LICENSE.txt": "LICENSE",
    "THIRD-PARTY-NOTICES.txt": "third_party/NOTICES.txt",
}
FOLDERS = {"docs": "docs", "examples": "examples"}
SAMPLE = ["--name", "sample", "--title", "Tarn Notes", "--version", "1.0", "--vendor",
          "The Tarn developers", "--splash", "examples/splash.png", "--single-instance",
          "--ends-with", "main", "--vm-parameters", "-Xmx25:64:512P -Dfile.encoding=UTF-8"]


def entry_of(name, date):
    entry = zipfile.ZipInfo(name, date)
    entry.compress_type = zipfile.ZIP_DEFLATED
    # As on Linux, whatever this is: a file that all may read.
    entry.create_system = 3
    entry.external_attr = 0o100644 << 16
    return entry


def write_zip(path, entries, date):
    """A zip file of these entries: (name, bytes), in this order."""
    with zipfile.ZipFile(path, "w") as file:
        for name, content in entries:
            file.writestr(entry_of(name, date), content, compresslevel=9)


def read(path):
    with open(os.path.join(ROOT, path), "rb") as file:
        return file.read()


def files_below(folder):
    for parent, folders, names in os.walk(folder):
        folders.sort()
        for name in names:
            path = os.path.join(parent, name)
            yield os.path.relpath(path, folder).replace(os.sep, "/"), path


def repack_jar(source, target, date):
    """The same jar from the same classes: Java's tool notes times and the folder's own order."""
    with zipfile.ZipFile(source) as jar:
        names = [name for name in jar.namelist() if not name.endswith("/")]
        names.sort(key=lambda name: (name != "META-INF/MANIFEST.MF", name))
        write_zip(target, [(name, jar.read(name)) for name in names], date)


def sample_files(work, date):
    jar = os.path.join(work, "notes.jar")
    repack_jar(os.path.join(ROOT, "build/release-files/notes.jar"), jar, date)
    sample = os.path.join(work, "sample")
    subprocess.run([os.path.join(ROOT, "build/native/tarn"), "wrap", jar, "--out", sample,
                    "--launcher", os.path.join(ROOT, "build/release/launcher.exe"), *SAMPLE],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    shutil.copytree(os.path.join(ROOT, "examples/documents"), os.path.join(sample, "documents"))
    return files_below(sample)


def release_date(version):
    heading = re.search(rf"^## {re.escape(version)} \((\d+)-(\d+)-(\d+)\)$",
                        read("CHANGELOG.md").decode(), re.MULTILINE)
    return (*map(int, heading.groups()), 0, 0, 0)


def main():
    version, folder = sys.argv[1:]
    date = release_date(version)
    top = f"tarn-{version}/"
    entries = {top + name: read(path) for name, path in FILES.items()}
    for name, path in FOLDERS.items():
        for below, file in files_below(os.path.join(ROOT, path)):
            entries[f"{top}{name}/{below}"] = read(file)
    with tempfile.TemporaryDirectory() as work:
        for below, file in sample_files(work, date):
            entries[f"{top}sample/{below}"] = read(file)

    os.makedirs(folder, exist_ok=True)
    name = f"tarn-{version}-windows-x64.zip"
    path = os.path.join(folder, name)
    write_zip(path + ".new", sorted(entries.items()), date)
    os.replace(path + ".new", path)
    digest = hashlib.sha256(open(path, "rb").read()).hexdigest()
    with open(path + ".sha256", "w", encoding="ascii", newline="\n") as file:
        file.write(f"{digest}  {name}\n")


if __name__ == "__main__":
    main()
