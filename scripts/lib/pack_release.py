#!/usr/bin/env python3
"""Packs what was built into a release: pack_release.py [--repository FOLDER] VERSION FOLDER [PLATFORM...]

Writes into FOLDER the zip file for Windows, the Maven repository of the plugins, for each PLATFORM (linux-x86_64, macos-aarch64 ...) an
archive with the companion program that the preset companion-PLATFORM built, the list of components
(sbom.py) and the SHA-256 of each file (SHA256SUMS). Nothing of this machine gets into an archive:
entries are sorted, with one time and no further fields.
"""

import argparse
import calendar
import gzip
import hashlib
import io
import os
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile
import zipfile

import sbom

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FILES = {
    "launcher.exe": "build/release/launcher.exe",
    "template.ini": "examples/template.ini",
    "README.md": "README.md",
    "CHANGELOG.md": "CHANGELOG.md",
    "SECURITY.md": "SECURITY.md",
    "LICENSE.txt": "LICENSE",
    "THIRD-PARTY-NOTICES.txt": "third_party/NOTICES.txt",
}
# What building the examples leaves in their folders.
BUILT = {"target", "build", ".gradle"}
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
        folders[:] = sorted(set(folders) - BUILT)
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


def write_tar(path, entries, date, programs):
    """A compressed tar file of these entries: (name, bytes); `programs` are executable."""
    seconds = int(calendar.timegm(date))
    packed = io.BytesIO()
    with tarfile.open(fileobj=packed, mode="w", format=tarfile.USTAR_FORMAT) as file:
        for name, content in entries:
            entry = tarfile.TarInfo(name)
            entry.size = len(content)
            entry.mtime = seconds
            entry.mode = 0o755 if name in programs else 0o644
            file.addfile(entry, io.BytesIO(content))
    with open(path, "wb") as file:
        file.write(gzip.compress(packed.getvalue(), mtime=seconds))


def common_entries(top):
    """What every archive holds: {name: bytes}."""
    entries = {top + name: read(path) for name, path in FILES.items()}
    for name, path in FOLDERS.items():
        for below, file in files_below(os.path.join(ROOT, path)):
            entries[f"{top}{name}/{below}"] = read(file)
    return entries


def pack_windows(version, folder, date):
    top = f"tarn-{version}/"
    entries = common_entries(top) | {top + "tarn.exe": read("build/release/tarn.exe")}
    with tempfile.TemporaryDirectory() as work:
        for below, file in sample_files(work, date):
            entries[f"{top}sample/{below}"] = read(file)
    name = f"tarn-{version}-windows-x64.zip"
    write_zip(os.path.join(folder, name), sorted(entries.items()), date)
    return name


def pack_companion(version, folder, date, platform):
    top = f"tarn-{version}/"
    program = top + "tarn"
    entries = common_entries(top) | {program: read(f"build/companion-{platform}/tarn")}
    name = f"tarn-{version}-{platform}.tar.gz"
    write_tar(os.path.join(folder, name), sorted(entries.items()), date, {program})
    return name


def pack_repository(version, folder, date, repository):
    """The Maven repository of the plugins, in a folder of that name."""
    entries = {f"repository/{below}": path for below, path in files_below(repository)}
    name = f"tarn-{version}-maven-repository.zip"
    write_zip(os.path.join(folder, name), [(entry, read(path)) for entry, path in sorted(entries.items())], date)
    return name


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--repository", type=os.path.abspath)
    parser.add_argument("version")
    parser.add_argument("target")
    parser.add_argument("platforms", nargs="*")
    arguments = parser.parse_args()
    version, target, platforms = arguments.version, arguments.target, arguments.platforms
    date = release_date(version)
    os.makedirs(target, exist_ok=True)
    # Complete or absent: the files are moved to their place when all of them are there.
    with tempfile.TemporaryDirectory(dir=target) as folder:
        names = [pack_windows(version, folder, date)]
        names += [pack_companion(version, folder, date, platform) for platform in platforms]
        if arguments.repository:
            names.append(pack_repository(version, folder, date, arguments.repository))
        digests = {}
        for name in names:
            with open(os.path.join(folder, name), "rb") as file:
                digests[name] = hashlib.sha256(file.read()).hexdigest()
        components = f"tarn-{version}.cdx.json"
        content = sbom.describe_release(ROOT, version, date, digests).encode()
        with open(os.path.join(folder, components), "wb") as file:
            file.write(content)
        digests[components] = hashlib.sha256(content).hexdigest()
        with open(os.path.join(folder, "SHA256SUMS"), "w", encoding="ascii", newline="\n") as file:
            file.writelines(f"{digest}  {name}\n" for name, digest in sorted(digests.items()))
        for name in os.listdir(folder):
            os.replace(os.path.join(folder, name), os.path.join(target, name))


if __name__ == "__main__":
    main()
