#!/usr/bin/env python3
"""Runs the Python tests of a folder: run_python_tests.py FOLDER [RESULTS]

Writes a line "passed NAME" or "failed NAME" for each test to the file RESULTS.
"""

import os
import sys
import unittest


class Recorder(unittest.TextTestResult):
    """Records the outcome of each test; a test with several failed subtests is one failure."""

    def __init__(self, *arguments, **options):
        super().__init__(*arguments, **options)
        self.started = []
        self.bad = set()

    def startTest(self, test):
        super().startTest(test)
        self.started.append(test.id())

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


def main():
    folder = os.path.abspath(sys.argv[1])
    sys.path.insert(0, folder)
    suite = unittest.defaultTestLoader.discover(folder, pattern="*_test.py")
    runner = unittest.TextTestRunner(stream=sys.stdout, verbosity=2, resultclass=Recorder)
    result = runner.run(suite)
    if sys.argv[2:]:
        with open(sys.argv[2], "w", encoding="utf-8") as file:
            for name in result.started:
                print("failed" if name in result.bad else "passed", name, file=file)
    return 1 if result.bad or not result.started else 0


if __name__ == "__main__":
    sys.exit(main())
