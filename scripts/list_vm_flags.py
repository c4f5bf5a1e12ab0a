#!/usr/bin/env python3
"""Writes tools/check/vm_flags.inc: the "-XX:" options that each Java runtime accepts.

Runs the Windows runtimes of scripts/runtimes.lock under Wine: once to list their flags, and once
with every flag of the other runtimes, to find removed flags that they still tolerate. Each row is
NAME KIND KNOWN, where KIND is s (switch), n (number), d (decimal) or t (text), and KNOWN is the set
of versions that accept it, bit 0 for the first; then pairs of a letter and such a set: i (ignored
with a warning), d (diagnostic), e (experimental). MIN..MAX follows for numbers: the values that at
least one of the versions accepts. A bound is left out when it is that of a 64-bit number.
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
RANGE = re.compile(r"\s*(\S+)\s+(\S+)\s+\[\s*(\S*)\s+\.\.\.\s+(\S*)\s*\]")
LEAST, MOST = -2**63, 2**63 - 1
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


def range_of(type_name, least, most):
    """The bounds as numbers; those of the type where the runtime prints none."""
    if least:
        return float(least), float(most)
    # In 11 and 17 a number of 32 bits wraps instead of being refused, so only the sign is certain.
    return (0.0 if type_name.startswith(("u", "size_t")) else float(LEAST)), float(MOST)


def bound_text(bound):
    """Nothing for a bound that every 64-bit number keeps."""
    if not LEAST < bound < MOST:
        return ""
    return f"{bound:.0f}" if bound == int(bound) else repr(bound)


def bits(versions):
    return sum(1 << VERSIONS.index(version) for version in versions)


def main():
    runtimes = subprocess.run([sys.executable, os.path.join(ROOT, "scripts", "fetch_runtimes.py")] + VERSIONS,
                              stdout=subprocess.PIPE, check=True).stdout.decode().split()
    kinds = {name: "s" for name in OLD_SWITCHES} | {name: "n" for name in OLD_NUMBERS}
    known, ignored, diagnostic, experimental = {}, {}, {}, {}
    least, most = {}, {}
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
        for line in ask(runtime, UNLOCK + ["-XX:+PrintFlagsRanges"]).splitlines():
            match = RANGE.match(line)
            if not match:
                continue
            lower, upper = range_of(match[1], match[3], match[4])
            least[match[2]] = min(lower, least.get(match[2], lower))
            most[match[2]] = max(upper, most.get(match[2], upper))
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
        if kinds.get(name) in ("n", "d") and name in least:
            bounds = bound_text(least[name]) + ".." + bound_text(most[name])
            row += " " + bounds if bounds != ".." else ""
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
