#!/usr/bin/env python3
"""Writes tools/check/vm_flags.inc: the "-XX:" options that each Java runtime accepts.

Runs the Windows runtimes of scripts/runtimes.lock under Wine: once to list their flags, and once
with every flag of the other runtimes, to find removed flags that they still tolerate. Each row is
NAME KIND KNOWN, where KIND is s (switch), n (number), d (decimal) or t (text), and KNOWN is the set
of versions that accept it, bit 0 for the first; then pairs of a letter and such a set: i (ignored
with a warning), d (diagnostic), e (experimental).
"""

import os
import re
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUTPUT = os.path.join(ROOT, "tools", "check", "vm_flags.inc")
VERSIONS = ["11", "17", "21", "25"]
WIDTH = 110
UNLOCK = ["-XX:+UnlockDiagnosticVMOptions", "-XX:+UnlockExperimentalVMOptions"]
# Flags of Java 8 and older, which none of these runtimes lists.
OLD_SWITCHES = """AggressiveOpts CMSClassUnloadingEnabled CMSIncrementalMode CMSParallelRemarkEnabled
    CMSPermGenSweepingEnabled CreateMinidumpOnCrash FlightRecorder LazyBootClassLoader
    PrintGCApplicationStoppedTime PrintGCCause PrintGCDateStamps PrintGCTimeStamps PrintHeapAtGC
    PrintReferenceGC PrintTenuringDistribution TraceClassLoading TraceClassPaths TraceClassUnloading
    TraceExceptions TraceLoaderConstraints UnlockCommercialFeatures UseCGroupMemoryLimitForHeap
    UseCMSCompactAtFullCollection UseCompressedStrings UseFastAccessorMethods UseFastEmptyMethods
    UseGCLogFileRotation UseOldInlining UseParNewGC UseSplitVerifier UseStringCache
    UseVMInterruptibleIO""".split()
OLD_NUMBERS = """DefaultMaxRAMFraction DesiredMethodLimit GCLogFileSize MaxGCMinorPauseMillis MaxPermSize
    NumberOfGCLogFiles PermSize""".split()

FLAG = re.compile(r"\s*(\S+)\s+(\S+)\s+:?=.*?\{([^}]*)\}\s*(?:\{[^}]*\})?\s*$")
IGNORED = re.compile(r"Ignoring option (\w+); support was removed")
ALIAS = re.compile(r"(?:Option |-XX:[+-]?)(\w+) (?:was|is) deprecated")


def ask(runtime, arguments):
    """What the runtime prints."""
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "arguments")
        with open(file, "w", encoding="ascii") as out:
            out.write("\n".join(arguments))
        java = os.path.join(runtime, "bin", "java.exe")
        result = subprocess.run([os.path.join(ROOT, "scripts", "wine_run.sh"), java,
                                 "@Z:" + file.replace("/", "\\"), "-version"],
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=600, check=False)
        return result.stdout.decode("utf-8", "replace")


def kind_of(type_name):
    return {"bool": "s", "double": "d"}.get(type_name, "t" if type_name.startswith("ccstr") else "n")


def bits(versions):
    return sum(1 << VERSIONS.index(version) for version in versions)


def main():
    runtimes = subprocess.run([sys.executable, os.path.join(ROOT, "scripts", "fetch_runtimes.py")] + VERSIONS,
                              stdout=subprocess.PIPE, check=True).stdout.decode().split()
    kinds = {name: "s" for name in OLD_SWITCHES} | {name: "n" for name in OLD_NUMBERS}
    known, ignored, diagnostic, experimental = {}, {}, {}, {}
    own = {}
    for version, runtime in zip(VERSIONS, runtimes):
        own[version] = set()
        for line in ask(runtime, UNLOCK + ["-XX:+PrintFlagsFinal"]).splitlines():
            match = FLAG.match(line)
            if not match:
                continue
            type_name, name, attributes = match.groups()
            kinds[name] = kind_of(type_name)
            own[version].add(name)
            known.setdefault(name, set()).add(version)
            if "diagnostic" in attributes:
                diagnostic.setdefault(name, set()).add(version)
            if "experimental" in attributes:
                experimental.setdefault(name, set()).add(version)
    for version, runtime in zip(VERSIONS, runtimes):
        others = [f"-XX:+{name}" if kind == "s" else f"-XX:{name}=1"
                  for name, kind in sorted(kinds.items()) if name not in own[version]]
        for line in ask(runtime, UNLOCK + ["-XX:+IgnoreUnrecognizedVMOptions"] + others).splitlines():
            for pattern, names in ((IGNORED, ignored), (ALIAS, known)):
                for name in pattern.findall(line):
                    names.setdefault(name, set()).add(version)
    rows = []
    for name in sorted(set(known) | set(ignored)):
        row = f"{name} {kinds.get(name, 's')}{bits(known.get(name, ())):x}"
        for letter, names in (("i", ignored), ("d", diagnostic), ("e", experimental)):
            if name in names:
                row += f"{letter}{bits(names[name]):x}"
        rows.append(row)
    lines = [""]
    for row in rows:
        if lines[-1] and len(lines[-1]) + len(row) + 2 > WIDTH:
            lines[-1] += ","
            lines.append("")
        lines[-1] += (", " if lines[-1] else "") + row
    with open(OUTPUT, "w", encoding="ascii") as out:
        out.write('R"(' + "\n".join(lines) + ')"\n')
    print(f"{len(rows)} options in {os.path.relpath(OUTPUT, ROOT)}", file=sys.stderr)


if __name__ == "__main__":
    main()
