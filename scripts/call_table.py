#!/usr/bin/env python3
"""Writes what failed Windows calls come to into docs/testing.md: scripts/call_table.py [--check]

The facts are tests/failing_calls/outcomes/*.txt, which scripts/fail_every_call.sh finds out. With
--check nothing is written; the exit code is 1 when the page does not say what the files say.
"""

import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUTCOMES = os.path.join(ROOT, "tests", "failing_calls", "outcomes")
PAGE = os.path.join(ROOT, "docs", "testing.md")
BEGIN, END = "<!-- calls:begin -->\n", "<!-- calls:end -->\n"
GOES_ON = "goes on"
# As a reader meets them: from the plainest launch to the rarest.
ORDER = ("typical", "registered", "redirected", "paired", "own_splash", "native_splash",
         "first_instance", "second_instance", "library_not_loaded", "no_class_path",
         "java_exception", "jre_cancelled", "jre_browsed")


def read(name):
    """A scenario's title, and its (function, calls, outcome) lines."""
    with open(os.path.join(OUTCOMES, name + ".txt"), encoding="utf-8") as file:
        title = file.readline().lstrip("# ").strip()
        return title, [line.rstrip("\n").split("\t") for line in file]


def ranges(numbers):
    """[1, 2, 3, 7] as "1-3, 7"."""
    parts = []
    for number in sorted(numbers):
        if parts and parts[-1][1] == number - 1:
            parts[-1][1] = number
        else:
            parts.append([number, number])
    return ", ".join(str(a) if a == b else f"{a}-{b}" for a, b in parts)


def calls_text(function, calls):
    """`calls` are numbers, those of other threads than the first with the thread before them."""
    threads = {}
    for call in calls.split():
        thread, _, number = call.rpartition("/")
        threads.setdefault(int(thread or 1), []).append(int(number))
    parts = [ranges(numbers) + ("" if thread == 1 else f" in thread {thread}")
             for thread, numbers in sorted(threads.items())]
    return f"`{function}` " + "; ".join(parts)


def section(name):
    title, lines = read(name)
    others, unharmed, counts = {}, [], [0, 0]
    ends = {}
    for function, calls, outcome in lines:
        ends.setdefault(function, []).append(outcome)
        counts[outcome != GOES_ON] += len(calls.split())
        if outcome != GOES_ON:
            others.setdefault(outcome, []).append(calls_text(function, calls))
    unharmed = sorted(f for f, outcomes in ends.items() if outcomes == [GOES_ON])
    text = [f"### {title}", "",
            f"{sum(counts)} calls; after {counts[0]} of them the launch goes on as ever."]
    if unharmed:
        text[-1] += " Each call of " + ", ".join(f"`{f}`" for f in unharmed) + " is one of these."
    text += ["", "| outcome | calls |", "|---|---|"]
    for outcome, calls in sorted(others.items()):
        text.append("| " + outcome.replace("|", "\\|") + " | " + ", ".join(calls) + " |")
    return "\n".join(text) + "\n"


def main():
    names = [f[:-4] for f in os.listdir(OUTCOMES) if f.endswith(".txt")]
    names.sort(key=lambda name: (ORDER.index(name) if name in ORDER else len(ORDER), name))
    table = "\n".join(section(name) for name in names)
    with open(PAGE, encoding="utf-8") as file:
        page = file.read()
    wanted = re.sub(re.escape(BEGIN) + ".*?" + re.escape(END),
                    lambda _: BEGIN + "\n" + table + "\n" + END, page, flags=re.DOTALL)
    if wanted == page:
        return 0
    if "--check" in sys.argv:
        print("docs/testing.md does not tell what tests/failing_calls/outcomes says: "
              "run scripts/call_table.py")
        return 1
    with open(PAGE, "w", encoding="utf-8") as file:
        file.write(wanted)
    return 0


if __name__ == "__main__":
    sys.exit(main())
