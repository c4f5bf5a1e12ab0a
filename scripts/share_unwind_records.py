#!/usr/bin/env python3
"""Makes a linked program smaller: share_unwind_records.py PROGRAM.EXE

Windows' table of functions (.pdata) refers to a record for each that says how to leave it (.xdata).
Many of the records are equal, but assembler and linker write one for each function. This lets equal
ones be one record, as the format permits, and closes the gap in the file. Addresses in memory do not
change. The build runs it after the linker; a program that has been through it stays as it is.
"""

import struct
import sys

FUNCTION = struct.Struct("<III")  # begin, end, record: addresses relative to the image
# Of a section's header: name, size in memory, address, size in the file, place in the file.
SECTION = struct.Struct("<8sIIII")
SECTION_HEADER_SIZE = 40


class Image:
    def __init__(self, data):
        self.data = data
        self.header = self.number("<I", 0x3C)
        self.optional_header = self.header + 24
        first = self.optional_header + self.number("<H", self.header + 20)
        count = self.number("<H", self.header + 6)
        self.sections = [first + i * SECTION_HEADER_SIZE for i in range(count)]

    def number(self, layout, place):
        return struct.unpack_from(layout, self.data, place)[0]

    def subtract(self, place, amount):
        struct.pack_into("<I", self.data, place, self.number("<I", place) - amount)

    def section(self, name):
        for place in self.sections:
            fields = SECTION.unpack_from(self.data, place)
            if fields[0].rstrip(b"\0") == name:
                return (place, *fields[1:])
        raise ValueError("there is no section " + name.decode())


def record_length(data, place):
    """The length of an unwind record in bytes."""
    flags, codes = data[place] >> 3, data[place + 2]
    if flags:
        raise ValueError("a record names an exception handler or another record")
    return 4 + 2 * (codes + codes % 2)


def share_records(image):
    """Lets equal records be one, and returns those that are left."""
    _, table_size, _, _, table = image.section(b".pdata")
    _, size, address, _, start = image.section(b".xdata")
    records = bytearray()
    places = {}
    for place in range(table, table + table_size, FUNCTION.size):
        begin, end, record = FUNCTION.unpack_from(image.data, place)
        if not address <= record < address + size:
            raise ValueError("a record is not in .xdata")
        old = start + record - address
        content = bytes(image.data[old:old + record_length(image.data, old)])
        if content not in places:
            places[content] = len(records)
            records += content
        FUNCTION.pack_into(image.data, place, begin, end, address + places[content])
    return records


def replace_records(image, records):
    """Writes the section again and moves what follows it in the file."""
    header, _, _, old_size, start = image.section(b".xdata")
    alignment = image.number("<I", image.optional_header + 36)
    new_size = -(-len(records) // alignment) * alignment
    gap = old_size - new_size
    struct.pack_into("<I", image.data, header + 8, len(records))
    image.subtract(header + 16, gap)
    for section in image.sections:
        if image.number("<I", section + 20) > start:
            image.subtract(section + 20, gap)
    image.subtract(image.optional_header + 8, gap)  # the size of all data
    if image.number("<I", image.header + 12):  # the symbols, which follow the sections
        image.subtract(image.header + 12, gap)
    image.data[start:start + old_size] = records.ljust(new_size, b"\0")


def write_checksum(image):
    place = image.optional_header + 64
    struct.pack_into("<I", image.data, place, 0)
    total = 0
    for (word,) in struct.iter_unpack("<H", image.data + b"\0" * (len(image.data) % 2)):
        total += word
    while total >> 16:
        total = (total & 0xFFFF) + (total >> 16)
    struct.pack_into("<I", image.data, place, total + len(image.data))


def main():
    path = sys.argv[1]
    with open(path, "rb") as file:
        image = Image(bytearray(file.read()))
    try:
        replace_records(image, share_records(image))
    except ValueError as error:
        sys.exit(f"{path}: {error}")
    write_checksum(image)
    with open(path, "wb") as file:
        file.write(image.data)


if __name__ == "__main__":
    main()
