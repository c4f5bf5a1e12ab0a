"""The template of a settings file: every key, and none of them set."""

import os
import re
import unittest

from tarn_program import ROOT


def read(*names):
    with open(os.path.join(ROOT, *names), encoding="utf-8") as file:
        return file.read()


class TemplateTest(unittest.TestCase):
    def test_has_every_key_under_its_section_and_sets_none(self):
        # In the header a section's keys follow it; the first of a block is the section.
        expected = {}
        for block in read("settings", "keys.h").split("\n\n"):
            names = re.findall(r'\[\] = L"([^"]*)"', block)
            if names == ["Class Path"]:
                names *= 2
            if names:
                expected[names[0]] = set(names[1:])
        self.assertEqual(5, len(expected))
        found, section = {}, None
        for line in read("examples", "template.ini").splitlines():
            if line.startswith("["):
                section = found.setdefault(line[1:-1], set())
            elif line and not line.startswith("; ") and line != ";":
                key = re.fullmatch(r";([A-Z][^=]*)=\S.*", line)
                self.assertTrue(key, line)
                section.add(key.group(1))
        self.assertEqual(expected, found)

    def test_reads_the_same_in_every_code_page(self):
        self.assertTrue(read("examples", "template.ini").isascii())


if __name__ == "__main__":
    unittest.main()
