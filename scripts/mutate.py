#!/usr/bin/env python3
"""Makes small changes to the launcher's pure sources and runs the host unit tests on each of them:
scripts/mutate.py [--count N] [--minutes N] [--source FILE]... [--report]

A mutant is one source with one change: a comparison turned, a constant moved, a negation, a call or
an assignment left out. A mutant that fails no test within the time limit survives. Mutants that do
not compile are not counted. The sample of --count mutants (default 300; 0: all) depends on the text
of the sources only, so a repeated run makes the same ones.

scripts/mutants.txt explains survivors that change no behaviour. Other survivors need a test and end
the run with exit code 1. --report writes docs/reference/mutants.md. The preset "host" must be
configured.
"""

import argparse
import concurrent.futures
import datetime
import hashlib
import json
import os
import re
import resource
import shlex
import shutil
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
HOST = os.path.join(ROOT, "build", "host")
WORK = os.path.join(ROOT, "build", "mutants")
EXPLAINED = os.path.join(ROOT, "scripts", "mutants.txt")
REPORT = os.path.join(ROOT, "docs", "reference", "mutants.md")
FOLDERS = ("base", "settings", "instance", "runtime", "jvm", "ui")
GOAL = 95
# Nearly all of the tests' time, so these run only when the others pass.
LONG_TESTS = "*Random*:*Huge*"
# Of processor time, so that a loop without end fails also on a busy machine.
SECONDS = 3
LONG_SECONDS = 20
# Precompiled, because they take half of a source's compile time.
HEADERS = ("algorithm", "array", "cstddef", "cstdint", "cwctype", "limits", "optional", "span", "string",
           "string_view", "utility", "vector")

# Each: the name, what is replaced, and its replacement.
TOKENS = [
    ("comparison", r" < ", " <= "), ("comparison", r" <= ", " < "),
    ("comparison", r" > ", " >= "), ("comparison", r" >= ", " > "),
    ("comparison", r" == ", " != "), ("comparison", r" != ", " == "),
    ("logic", r" && ", " || "), ("logic", r" \|\| ", " && "),
    ("logic", r"\btrue\b", "false"), ("logic", r"\bfalse\b", "true"),
    ("negation", r"(?<![\w)\]])!(?=[\w(])", ""),
    ("arithmetic", r" \+ ", " - "), ("arithmetic", r" - ", " + "),
    ("arithmetic", r" \* (?=\w)", " + "), ("arithmetic", r" / ", " * "),
    ("arithmetic", r"\+\+", "--"), ("arithmetic", r"--", "++"),
    ("arithmetic", r" \+= ", " -= "), ("arithmetic", r" -= ", " += "),
]
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9A-Fa-f]+|\d+)(?![\w.'])")
CHARACTER = re.compile(r"(?<!\w)[Lu]?'([ -&(-\[\]-~])'")
STATEMENT = re.compile(r"\s*(?:[\w.:>\[\]*()-]+\(.*\)|[\w.\[\]>-]+ (?:=|\+=|-=) .*|(?:\+\+|--)[\w.]+|break|continue);$")
NO_STATEMENT = re.compile(r"\s*(?:return|if|for|while|do|else|case|using|static_assert|const|auto)\b")


class Mutant:
    def __init__(self, source, line, kind, before, after):
        self.source, self.line, self.kind = source, line, kind
        self.before, self.after = before.strip(), after.strip()
        self.text = after
        self.survives = None

    def key(self):
        return f"{self.source} | {self.before} | {self.after or '(left out)'}"


def masked(text):
    """The text with comments and string literals replaced by spaces; line ends stay."""
    pattern = r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\""
    return re.sub(pattern, lambda m: re.sub(r"[^\n]", " ", m[0]), text, flags=re.DOTALL)


def mutants_of(source):
    with open(os.path.join(ROOT, source), encoding="utf-8") as file:
        text = file.read()
    lines, code = text.split("\n"), masked(text).split("\n")
    found = []

    def add(number, kind, after):
        found.append(Mutant(source, number + 1, kind, lines[number], after))

    for number, (line, mask) in enumerate(zip(lines, code)):
        if not mask.strip() or mask.lstrip().startswith(("#", "static_assert", "using ", "namespace", "template")):
            continue
        for kind, pattern, replacement in TOKENS:
            for match in re.finditer(pattern, mask):
                add(number, kind, line[:match.start()] + replacement + line[match.end():])
        for match in NUMBER.finditer(mask):
            add(number, "constant", line[:match.start()] + str(int(match[0], 0) + 1) + line[match.end():])
        for match in CHARACTER.finditer(mask):
            at = match.start(1)
            add(number, "constant", line[:at] + chr(ord(line[at]) + 1) + line[at + 1:])
        # A statement on a line of its own.
        previous = next((code[n].strip() for n in range(number - 1, -1, -1) if code[n].strip()), "")
        if STATEMENT.match(mask) and not NO_STATEMENT.match(mask) and previous.endswith((";", "{", "}", ":")):
            add(number, "left out", re.match(r"\s*", line)[0] + ";")
    for mutant in found:
        if mutant.after == ";":
            mutant.after = ""
    return found


def object_of(entry):
    words = shlex.split(entry["command"])
    return words[words.index("-o") + 1]


def compile_command(entry, source, output):
    """The preset's command for a source, for a shared library of it alone."""
    words = shlex.split(entry["command"])
    while not re.search(r"(g|clang)\+\+[-\d.]*$", words[0]):
        words.pop(0)  # a compiler cache
    at = words.index("-o")
    del words[at:at + 2]
    words = [word for word in words if word not in ("-c", "-g", "-Werror", entry["file"])]
    # With a name, so that the loader searches the library instead of opening the one that was linked.
    return words + ["-w", "-fPIC", "-shared", "-Wl,-soname," + os.path.basename(output),
                    "-include", os.path.join(WORK, "standard.h"), "-o", output, source,
                    "-I" + os.path.dirname(entry["file"])]


def library(source):
    return "lib" + source.replace("/", "_").replace(".cpp", "") + ".so"


class Build:
    """The unit tests of the pure sources, each of which is a shared library of its own."""

    def __init__(self):
        with open(os.path.join(HOST, "compile_commands.json"), encoding="utf-8") as file:
            entries = {os.path.relpath(entry["file"], ROOT): entry for entry in json.load(file)}
        ours = {path: entry for path, entry in entries.items() if path.startswith(tuple(f + "/" for f in FOLDERS))}
        self.sources = {path: entry for path, entry in ours.items() if not path.endswith("_test.cpp")}
        self.objects = [os.path.join(entry["directory"], object_of(entry))
                        for path, entry in ours.items() if path.endswith("_test.cpp")]
        self.stopped = False
        self.program = os.path.join(WORK, "tests")
        self.originals = os.path.join(WORK, "originals")

    def make(self, jobs):
        shutil.rmtree(WORK, ignore_errors=True)
        os.makedirs(self.originals)
        targets = [os.path.relpath(path, HOST) for path in self.objects] + ["gmock", "gtest_main"]
        subprocess.check_call(["ninja", "-C", HOST, "-j", str(jobs), "--quiet", *targets])
        self.precompile()
        with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
            for _ in pool.map(self.make_original, self.sources):
                pass
        compiler = compile_command(next(iter(self.sources.values())), "", "")[0]
        subprocess.check_call(
            [compiler, "-fsanitize=address,undefined", "-o", self.program, *self.objects,
             *(os.path.join(self.originals, library(source)) for source in self.sources),
             *(os.path.join(HOST, "lib", f"lib{name}.a") for name in ("gmock", "gtest", "gtest_main")),
             "-Wl,--no-as-needed", "-Wl,--allow-shlib-undefined", "-lpthread"])
        if not self.passes(self.originals):
            sys.exit("the unit tests fail without a change")

    def precompile(self):
        header = os.path.join(WORK, "standard.h")
        with open(header, "w", encoding="utf-8") as file:
            file.writelines(f"#include <{name}>\n" for name in HEADERS)
        words = compile_command(next(iter(self.sources.values())), header, header + ".gch")
        at = words.index("-include")
        del words[at:at + 2]
        words = [word for word in words if word != "-shared" and not word.startswith("-Wl,")]
        words[words.index(header):words.index(header)] = ["-x", "c++-header"]
        subprocess.check_call(words)

    def make_original(self, source):
        path = os.path.join(ROOT, source)
        subprocess.check_call(compile_command(self.sources[source], path, os.path.join(self.originals, library(source))))

    def passes(self, folder):
        environment = dict(os.environ, LD_LIBRARY_PATH=folder + ":" + self.originals,
                           ASAN_OPTIONS="detect_odr_violation=0:detect_leaks=0:hard_rss_limit_mb=3000:"
                                        "quarantine_size_mb=1:malloc_context_size=2")
        for chosen, seconds in (("-" + LONG_TESTS, SECONDS), (LONG_TESTS, LONG_SECONDS)):
            done = subprocess.run([self.program, "--gtest_fail_fast", "--gtest_filter=" + chosen],
                                  env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL, check=False,
                                  preexec_fn=lambda limit=seconds: resource.setrlimit(resource.RLIMIT_CPU,
                                                                                      (limit, limit)))
            if done.returncode != 0:
                return False
        return True

    def run(self, numbered):
        """Whether the mutant survives; None when it does not compile."""
        number, mutant = numbered
        if self.stopped:
            return mutant
        folder = os.path.join(WORK, str(number))
        os.makedirs(folder)
        with open(os.path.join(ROOT, mutant.source), encoding="utf-8") as file:
            lines = file.read().split("\n")
        lines[mutant.line - 1] = mutant.text
        path = os.path.join(folder, os.path.basename(mutant.source))
        with open(path, "w", encoding="utf-8") as file:
            file.write("\n".join(lines))
        output = os.path.join(folder, library(mutant.source))
        compiled = subprocess.run(compile_command(self.sources[mutant.source], path, output), check=False,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if compiled.returncode == 0:
            mutant.survives = self.passes(folder)
        shutil.rmtree(folder)
        return mutant


def read_explained():
    """The reasons, by the mutant's key."""
    explained = {}
    with open(EXPLAINED, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            if not line.strip() or line.startswith("#"):
                continue
            key, separator, reason = line.strip().rpartition(" | ")
            if not separator or key.count(" | ") < 2:
                sys.exit(f"scripts/mutants.txt:{number}: not SOURCE | BEFORE | AFTER | REASON")
            explained[key] = reason
    return explained


def report(mutants, explained):
    folders = {}
    for mutant in mutants:
        made, killed = folders.get(mutant.source, (0, 0))
        folders[mutant.source] = made + 1, killed + (not mutant.survives)
    survivors = [mutant for mutant in mutants if mutant.survives]
    killed = len(mutants) - len(survivors)
    lines = ["# Mutants", "", "Generated by `scripts/mutate.py --report`; do not edit.",
             "[testing.md](../developer/testing.md#mutants) describes the test.", "",
             f"{datetime.date.today()}: {len(mutants)} mutants, {killed} killed by the host unit tests "
             f"({100 * killed / len(mutants):.1f} %).", "",
             "| source | mutants | killed |", "|---|---|---|"]
    lines += [f"| `{source}` | {made} | {dead} |" for source, (made, dead) in sorted(folders.items())]
    lines += ["", "## Survivors", "", "| source | line | changed to | reason |", "|---|---|---|---|"]
    for mutant in sorted(survivors, key=Mutant.key):
        cells = [mutant.before, mutant.after or "(left out)"]
        shown = ["`" + cell.replace("|", "\\|") + "`" for cell in cells]
        lines.append(f"| `{mutant.source}` | {shown[0]} | {shown[1]} | {explained.get(mutant.key(), 'none yet')} |")
    with open(REPORT, "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--source", action="append", default=[])
    parser.add_argument("--minutes", type=float, default=600, help="begin no mutant after this time")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--report", action="store_true")
    options = parser.parse_args()

    build = Build()
    candidates = [mutant for source in sorted(options.source or build.sources) for mutant in mutants_of(source)]
    if options.count and not options.source:
        candidates.sort(key=lambda mutant: hashlib.sha1(mutant.key().encode()).hexdigest())
    end = time.monotonic() + 60 * options.minutes
    build.make(options.jobs)

    explained, tried = read_explained(), []
    is_sample = options.count and not options.source
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for mutant in pool.map(build.run, enumerate(candidates)):
            if mutant.survives is None or build.stopped:
                continue
            tried.append(mutant)
            if mutant.survives:
                known = "explained" if mutant.key() in explained else "SURVIVES"
                print(f"{known}: {mutant.source}:{mutant.line}: {mutant.before}  ->  "
                      f"{mutant.after or '(left out)'}", flush=True)
            build.stopped = (is_sample and len(tried) >= options.count) or time.monotonic() > end
    survivors = [mutant for mutant in tried if mutant.survives]
    killed = len(tried) - len(survivors)
    print(f"{len(tried)} mutants, {killed} killed, {len(survivors)} survive")
    if options.report:
        report(tried, explained)
    unexplained = [mutant for mutant in survivors if mutant.key() not in explained]
    sys.exit(1 if unexplained or not tried or 100 * killed < GOAL * len(tried) else 0)


if __name__ == "__main__":
    main()
