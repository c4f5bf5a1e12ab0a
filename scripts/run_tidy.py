#!/usr/bin/env python3
"""Runs clang-tidy on our own sources except tests: scripts/run_tidy.py [--changed|FILE...]

--changed selects the sources that differ from a base commit or include a header that does, directly
or indirectly; uncommitted changes count. The base is TARN_BASE; by default the merge base with
origin/main, or the previous commit on origin/main itself or without that branch. After a change of
.clang-tidy, cmake/ or this script all sources are selected.

Sources of the preset "host" are checked as the host compiles them, the others as the preset
"release" does; both must be configured. Prints the findings, and exits with 1 if there is one. Tests
are excluded because GoogleTest's macros take more time than everything else.
"""

import concurrent.futures
import glob
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TOOLCHAIN = os.path.join(ROOT, "scripts", "lib", "toolchain.sh")


def database(preset):
    """Our sources in the compile commands of a preset."""
    folder = os.path.join(ROOT, "build", preset)
    with open(os.path.join(folder, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    paths = {os.path.relpath(entry["file"], ROOT) for entry in commands}
    return {p for p in paths
            if not p.startswith(("..", "build" + os.sep, "tests" + os.sep, "third_party" + os.sep))
            and p.endswith(".cpp") and not p.endswith("_test.cpp")}


def mingw_arguments():
    """clang knows the target, but not the location of mingw-w64's C++ library on Debian."""
    folders = sorted(glob.glob("/usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++"))
    if not folders:
        sys.exit("no C++ library of x86_64-w64-mingw32 found")
    library = folders[-1]
    arguments = ["--target=x86_64-w64-mingw32", "-Wno-ignored-optimization-argument"]
    for folder in (library, library + "/x86_64-w64-mingw32"):
        arguments += ["-isystem", folder]
    return [f"--extra-arg-before={argument}" for argument in arguments]


def commands_for_clang(preset):
    """A folder with the preset's compile commands, without the options that only gcc knows."""
    folder = os.path.join(ROOT, "build", preset)
    with open(os.path.join(folder, "compile_commands.json"), encoding="utf-8") as file:
        commands = file.read()
    for option in ("-ffat-lto-objects", "-fno-declone-ctor-dtor"):
        commands = commands.replace(" " + option, "")
    target = os.path.join(folder, "tidy")
    os.makedirs(target, exist_ok=True)
    with open(os.path.join(target, "compile_commands.json"), "w", encoding="utf-8") as file:
        file.write(commands)
    return target


def git(*arguments):
    done = subprocess.run(["git", *arguments], cwd=ROOT, stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, check=False)
    return done.stdout.split() if done.returncode == 0 else None


def changed_files():
    """What differs from the base; None if there is nothing to compare with."""
    head = git("rev-parse", "HEAD")
    if os.environ.get("TARN_BASE"):
        base = git("rev-parse", "--verify", os.environ["TARN_BASE"])
    else:
        base = git("merge-base", "HEAD", "origin/main")
        if not base or base == head:
            base = git("rev-parse", "--verify", "HEAD~1")
    if not base:
        return None
    return set(git("diff", "--name-only", base[0]) + git("ls-files", "--others", "--exclude-standard"))


def includes_of(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        return set(re.findall(r'^#include "([^"]+)"', file.read(), re.MULTILINE))


def affected(sources, changed):
    """Those of the sources that are changed or include something changed, however far down."""
    if any(path == ".clang-tidy" or path.startswith("cmake/") or path == "scripts/run_tidy.py"
           for path in changed):
        return sources
    ours = {path for path in git("ls-files", "--cached", "--others", "--exclude-standard")
            if path.endswith((".cpp", ".h")) and os.path.exists(os.path.join(ROOT, path))}
    included_by = {}
    for path in ours:
        for name in includes_of(path):
            included_by.setdefault(name, set()).add(path)
    reached, waiting = set(), list(changed)
    while waiting:
        path = waiting.pop()
        if path not in reached:
            reached.add(path)
            waiting += included_by.get(path, ())
    return sources & reached


def check(tidy, commands, extra, sources):
    command = [tidy, "--quiet", "-p", commands, *extra, *sources]
    done = subprocess.run(command, cwd=ROOT, stdin=subprocess.DEVNULL, capture_output=True,
                          text=True, check=False)
    return done.returncode, done.stdout, done.stderr


def batches(sources, size=4):
    ordered = sorted(sources)
    return [ordered[i:i + size] for i in range(0, len(ordered), size)]


def main():
    if sys.argv[1:] in (["-h"], ["--help"]):
        print(__doc__)
        return 0
    host = database("host")
    windows = database("release") - host
    if sys.argv[1:] == ["--changed"]:
        changed = changed_files()
        if changed is not None:
            host = affected(host, changed)
            windows = affected(windows, changed)
    elif sys.argv[1:]:
        asked = {os.path.relpath(os.path.abspath(name), ROOT) for name in sys.argv[1:]}
        host &= asked
        windows &= asked
    tidy = subprocess.check_output([TOOLCHAIN, "llvm", "clang-tidy"], text=True).strip()
    jobs = [(commands_for_clang("host"), [], batch) for batch in batches(host)]
    jobs += [(commands_for_clang("release"), mingw_arguments(), batch) for batch in batches(windows)]

    failed = False
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        for code, output, errors in pool.map(lambda job: check(tidy, *job), jobs):
            if code != 0 or output.strip():
                failed = True
                print(output or errors, flush=True)
    print(f"clang-tidy: {len(host)} files as the host builds them, "
          f"{len(windows)} as Windows does")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
