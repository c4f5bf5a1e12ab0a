"""The tables by which Windows, Java and debuggers leave a function."""

import collections
import unittest

from image import load


def content_of(record):
    return (record.Version, record.SizeOfProlog, record.FrameRegister, record.FrameOffset,
            tuple(str(code) for code in record.UnwindCodes))


class UnwindRecordsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.functions = load().DIRECTORY_ENTRY_EXCEPTION

    def test_list_the_functions_in_their_order(self):
        ranges = [(each.struct.BeginAddress, each.struct.EndAddress) for each in self.functions]
        self.assertTrue(ranges)
        for (_, end), (begin, _) in zip(ranges, ranges[1:]):
            self.assertLessEqual(end, begin)

    def test_describe_a_prologue_within_the_function(self):
        for each in self.functions:
            size = each.struct.EndAddress - each.struct.BeginAddress
            self.assertLessEqual(each.unwindinfo.SizeOfProlog, size)

    def test_are_shared_where_they_are_equal(self):
        addresses = collections.defaultdict(set)
        for each in self.functions:
            addresses[content_of(each.unwindinfo)].add(each.struct.UnwindData)
        self.assertLess(len(addresses), len(self.functions))
        for content, places in addresses.items():
            self.assertEqual(1, len(places), content)

    def test_leave_the_checksum_of_the_file_right(self):
        self.assertEqual(load().generate_checksum(), load().OPTIONAL_HEADER.CheckSum)


if __name__ == "__main__":
    unittest.main()
