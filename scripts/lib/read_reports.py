"""Reads the reports of a GoogleTest program: read_reports.py "EXIT_CODE..." REPORT.xml...

There is one exit code for each report, because a program may run its tests in several processes.
Prints "passed NUMBER" and one "failed NAME" for each failed test. A test that is skipped or disabled
counts as failed, and so does a process that ends without a report or fails otherwise.
"""

import os
import sys
import xml.etree.ElementTree as ElementTree

DISABLED = "DISABLED" + "_"


def outcome_of(case):
    """None for a test that this process does not run, otherwise "" or the problem."""
    name = f"{case.get('classname')}.{case.get('name')}"
    if case.get("result") == "suppressed":  # run by another process, or excluded by GTEST_FILTER
        return name + " (disabled)" if DISABLED in name else None
    if case.find("failure") is not None:
        return name
    if case.get("status") != "run" or case.find("skipped") is not None:
        return name + " (did not run)"
    return ""


def main(exit_codes, paths):
    passed = 0
    failed = []
    for exit_code, path in zip(exit_codes, paths):
        try:
            root = ElementTree.parse(path).getroot()
        except (OSError, ElementTree.ParseError):
            failed.append(f"(the program ended with {exit_code} and without a report)")
            continue
        outcomes = [outcome_of(case) for case in root.iter("testcase")]
        passed += outcomes.count("")
        bad = [outcome for outcome in outcomes if outcome]
        failed += bad
        if exit_code != "0" and not bad:
            failed.append(f"(the program ended with {exit_code})")
    print("passed", passed)
    for name in failed:
        print("failed", name)
    if passed + len(failed) == 0 and "GTEST_FILTER" not in os.environ:
        print("failed (no test ran)")


if __name__ == "__main__":
    main(sys.argv[1].split(), sys.argv[2:])
