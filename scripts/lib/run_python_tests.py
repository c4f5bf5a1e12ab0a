#!/usr/bin/env python3
"""Runs the Python tests of a folder: run_python_tests.py FOLDER [RESULTS [CLAIMS]]

Writes a line "passed NAME" or "failed NAME" for each test to the file RESULTS. Several processes
share the work when they get the same new folder as CLAIMS: each module is run by one of them.
"""

import glob
import os
import sys
import time
import unittest


class Recorder(unittest.TextTestResult):
    """Records the outcome of each test; a test with several failed subtests is one failure."""

    def __init__(self, *arguments, **options):
        super().__init__(*arguments, **options)
        self.started = []
        self.bad = set()
        self.start_time = 0

    def startTest(self, test):
        super().startTest(test)
        self.started.append(test.id())
        self.start_time = time.monotonic()

    # One line, because another process may write to the same terminal.
    def stopTest(self, test):
        super().stopTest(test)
        outcome = "FAILED" if test.id() in self.bad else "ok"
        print(f"    {test.id()}: {outcome} ({time.monotonic() - self.start_time:.1f} s)", flush=True)

    def addError(self, test, err):
        super().addError(test, err)
        self.started += [test.id()] if test.id() not in self.started else []
        self.bad.add(test.id())

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self.bad.add(test.id())

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err is not None:
            self.bad.add(test.id())

    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        self.bad.add(test.id())


def claim(claims, module):
    """Returns whether no other process runs the module."""
    try:
        os.close(os.open(os.path.join(claims, module), os.O_CREAT | os.O_EXCL))
    except FileExistsError:
        return False
    return True


def main():
    folder = os.path.abspath(sys.argv[1])
    claims = sys.argv[3] if sys.argv[3:] else None
    sys.path.insert(0, folder)
    modules = sorted(os.path.basename(path)[:-3] for path in glob.glob(folder + "/*_test.py"))
    started, bad = [], set()
    for module in modules:
        if claims and not claim(claims, module):
            continue
        runner = unittest.TextTestRunner(stream=sys.stdout, verbosity=0, resultclass=Recorder)
        result = runner.run(unittest.defaultTestLoader.loadTestsFromName(module))
        started += result.started
        bad |= result.bad
    if sys.argv[2:]:
        with open(sys.argv[2], "w", encoding="utf-8") as file:
            for name in started:
                print("failed" if name in bad else "passed", name, file=file)
    return 1 if bad or not modules else 0


if __name__ == "__main__":
    sys.exit(main())
