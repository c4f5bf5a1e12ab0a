"""Reads a GoogleTest report: read_report.py REPORT.xml EXIT_CODE

Prints "passed NUMBER" and one "failed NAME" for each failed test. A test that skipped itself or is
disabled counts as failed, and so does a program that ended without a report or failed otherwise.
"""

import sys
import xml.etree.ElementTree as ElementTree


def main(path, exit_code):
    try:
        root = ElementTree.parse(path).getroot()
    except (OSError, ElementTree.ParseError):
        print(f"failed (the program ended with {exit_code} and without a report)")
        return
    passed = 0
    failed = []
    for case in root.iter("testcase"):
        name = f"{case.get('classname')}.{case.get('name')}"
        if case.get("result") == "suppressed":  # GTEST_FILTER left it out
            if case.get("name").startswith("DISABLED" + "_"):
                failed.append(name + " (disabled)")
        elif case.find("failure") is not None:
            failed.append(name)
        elif case.get("status") != "run" or case.find("skipped") is not None:
            failed.append(name + " (did not run)")
        else:
            passed += 1
    print("passed", passed)
    for name in failed:
        print("failed", name)
    if exit_code != "0" and not failed:
        print(f"failed (the program ended with {exit_code})")
    if passed + len(failed) == 0:
        print("failed (no test ran)")


if __name__ == "__main__":
    main(*sys.argv[1:])
