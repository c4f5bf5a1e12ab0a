#!/usr/bin/env python3
"""Checks that the #include lines of our libraries match their CMakeLists.txt.

- A library's files include their own folder and those of the libraries that its USES names (and
  resources/ids.h, which contains only numbers). Its tests also include tests/unit_support.
- PURE sources and TESTS of what ships in the launcher include no Windows header and no C header of the
  platform, directly or indirectly.
- Only base/windows.h includes windows.h.
- Every source in a library's folder is named in a CMakeLists.txt.

Prints one line for each violation, and exits with 1 if there is one.
"""

import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
LISTS = ("PURE", "WINDOWS", "TESTS", "WINDOWS_TESTS", "USES", "SYSTEM")
OPEN_TO_ALL = {"resources/ids.h"}
UNIT_SUPPORT = "tests/unit_support/"
WINDOWS_WRAPPER = "base/windows.h"
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
OUTSIDE = {"build", "tests", "third_party", ".git"}


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        return file.read()


def find_files(names):
    for folder, subfolders, files in os.walk(ROOT):
        relative = os.path.relpath(folder, ROOT)
        if relative == ".":
            subfolders[:] = [name for name in subfolders if name not in OUTSIDE]
        for name in sorted(files):
            if names(name):
                yield os.path.normpath(os.path.join(relative, name))


def read_libraries():
    """The libraries by name: their folder, and the words of each of their lists."""
    libraries = {}
    for path in find_files(lambda name: name == "CMakeLists.txt"):
        text = re.sub(r"#[^\n]*", "", read(path))
        for call in re.finditer(r"\btarn_(tool_)?library\(([^)]*)\)", text):
            words = call.group(2).split()
            library = {"folder": os.path.dirname(path), "ships": not call.group(1)} | {key: [] for key in LISTS}
            current = None
            for word in words[1:]:
                if word in LISTS:
                    current = word
                else:
                    library[current].append(word)
            libraries[words[0]] = library
    return libraries


def includes(path):
    """The includes of a file: (path from the root or None, name in angle brackets or None)."""
    for match in INCLUDE.finditer(read(path)):
        yield match.group(1), match.group(2)


def folder_of(path, folders):
    """The innermost library folder that contains a file."""
    folder = os.path.dirname(path)
    while folder and folder not in folders:
        folder = os.path.dirname(folder)
    return folder


def windows_headers_reached(path):
    """Chains of includes from a pure file to headers that it must not include."""
    seen = {path}
    waiting = [(path, [path])]
    while waiting:
        current, chain = waiting.pop()
        for ours, theirs in includes(current):
            if ours == WINDOWS_WRAPPER:
                yield chain + [ours]
            elif theirs and theirs.endswith(".h") and not theirs.startswith(("gtest/", "gmock/")):
                yield chain + [f"<{theirs}>"]
            elif ours and ours not in seen and os.path.exists(os.path.join(ROOT, ours)):
                seen.add(ours)
                waiting.append((ours, chain + [ours]))


def check_arrows(libraries):
    by_folder = {library["folder"]: name for name, library in libraries.items()}
    for path in find_files(lambda name: name.endswith((".cpp", ".h"))):
        owner = by_folder.get(folder_of(path, by_folder))
        for ours, theirs in includes(path):
            if theirs and theirs.lower() == "windows.h" and path != WINDOWS_WRAPPER:
                yield f"{path}: includes <{theirs}>; use {WINDOWS_WRAPPER}"
            if ours is None or owner is None or ours in OPEN_TO_ALL:
                continue
            if ours.startswith(UNIT_SUPPORT) and path.endswith(("_test.cpp", "_fixture.h")):
                if not os.path.exists(os.path.join(ROOT, ours)):
                    yield f"{path}: includes \"{ours}\", which does not exist"
                continue
            if not os.path.exists(os.path.join(ROOT, ours)):
                yield f"{path}: includes \"{ours}\", which is not a path from the root"
                continue
            other = by_folder.get(folder_of(ours, by_folder))
            if other is None:
                yield f"{path}: includes \"{ours}\", which belongs to no library"
            elif other != owner and other not in libraries[owner]["USES"]:
                yield f"{path}: includes \"{ours}\", but {owner} does not use {other}"


def check_lists(libraries):
    for library in libraries.values():
        # The companion program's sources are portable, but not pure.
        for name in library["PURE"] + library["TESTS"] if library["ships"] else ():
            for chain in windows_headers_reached(os.path.join(library["folder"], name)):
                yield "pure, but includes the platform: " + " -> ".join(chain)
    named = "\n".join(read(path) for path in find_files(lambda name: name == "CMakeLists.txt"))
    folders = {library["folder"] for library in libraries.values()}
    for path in find_files(lambda name: name.endswith(".cpp")):
        if folder_of(path, folders) and not re.search(
                rf"(?<![\w]){re.escape(os.path.basename(path))}(?![\w])", named):
            yield f"{path}: is not in a CMakeLists.txt"


def main():
    libraries = read_libraries()
    if not libraries:
        print("no library found")
        return 1
    broken = list(check_arrows(libraries)) + list(check_lists(libraries))
    for line in broken:
        print(line)
    print(f"{len(libraries)} libraries, {len(broken)} violations of the include rules")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
