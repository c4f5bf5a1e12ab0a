#!/usr/bin/env python3
"""Checks the rules of CONTRIBUTING.md that a compiler cannot: scripts/check_sources.py

- A file of the launcher or the companion program has at most 400 lines.
- Every pure source of the launcher (list PURE in CMakeLists.txt) has a test beside it: foo_test.cpp for
  foo.cpp, in the list TESTS.
- Only the Close operation of a resource type (base/handles.h and its like) releases a handle.
- The launcher includes none of the headers that cost too much of its size.
- Each file that docs/developer/compatibility.md names exists, and it or a file of the same stem points to
  that page.

Prints one line for each violation, and exits with 1 if there is one.
"""

import os
import re
import sys

import check_includes

ROOT = check_includes.ROOT
LONGEST = 400
TEST_FILE = re.compile(r"_test\.cpp$|_fixture\.h$|(^|/)(fake|random|test)_\w+\.(h|cpp)$|/test_support/|_model\.h$")
RELEASE_CALL = re.compile(
    r"\b(CloseHandle|FindClose|FreeLibrary|RegCloseKey|UnmapViewOfFile|DeleteObject|DeleteDC|ReleaseDC|"
    r"DestroyIcon)\s*\(")
CLOSE = re.compile(r"\bstatic void Close\(")
BANNED = {"exception", "filesystem", "fstream", "functional", "iomanip", "iostream", "locale", "mutex", "regex",
          "sstream", "thread"}
PAGE = "docs/developer/compatibility.md"


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        return file.read()


def sources(libraries):
    """(path, whether it ships in the launcher) of our libraries' files, tests left out."""
    by_folder = {library["folder"]: library for library in libraries.values()}
    for path in check_includes.find_files(lambda name: name.endswith((".cpp", ".h"))):
        library = by_folder.get(check_includes.folder_of(path, by_folder))
        if library and not TEST_FILE.search(path):
            yield path, library["ships"]


def check_lengths(libraries):
    for path, _ in sources(libraries):
        lines = read(path).count("\n")
        if lines > LONGEST:
            yield f"{path}: has {lines} lines, more than {LONGEST}"


def check_tests(libraries):
    for library in libraries.values():
        for name in library["PURE"] if library["ships"] else ():
            test = name[:-len(".cpp")] + "_test.cpp"
            if test not in library["TESTS"]:
                yield f"{os.path.join(library['folder'], name)}: {test} is not in TESTS"


def check_handles(libraries):
    for path, ships in sources(libraries):
        if not ships:
            continue
        for number, line in enumerate(read(path).splitlines(), 1):
            call = RELEASE_CALL.search(line.split("//")[0])
            if call and not CLOSE.search(line):
                yield f"{path}:{number}: calls {call.group(1)} outside a resource type"


def check_headers(libraries):
    for path, ships in sources(libraries):
        for _, theirs in check_includes.includes(path) if ships else ():
            if theirs in BANNED:
                yield f"{path}: includes <{theirs}>, which is too large for the launcher"


def check_compatibility():
    for path in sorted(set(re.findall(r"`([a-z_]+/[a-z_/]+\.(?:h|cpp|rc))`", read(PAGE)))):
        stem = re.sub(r"(_win)?\.\w+$", "", path)
        halves = [stem + end for end in (".h", ".cpp", "_win.cpp", ".rc")
                  if os.path.exists(os.path.join(ROOT, stem + end))]
        if path not in halves:
            yield f"{PAGE}: names {path}, which does not exist"
        elif not any(PAGE in read(half) for half in halves):
            yield f"{path}: neither it nor its other half points to {PAGE}, which names it"


def main():
    libraries = check_includes.read_libraries()
    broken = [line for check in (check_lengths, check_tests, check_handles, check_headers)
              for line in check(libraries)]
    broken += check_compatibility()
    for line in broken:
        print(line)
    print(f"{len(broken)} violations of the rules for sources")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
