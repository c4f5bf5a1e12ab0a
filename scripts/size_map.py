#!/usr/bin/python3
"""Prints the size of the parts of launcher.exe: size_map.py [NUMBER]

Lists sections and resources of the file, its code by source folder, and the NUMBER (20) largest
functions. Builds the launcher with debug information in build/size-map, which does not change the
code. Inlined functions count for their caller.
"""

import collections
import os
import re
import subprocess
import sys

import pefile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "size-map")
TOOLS = "x86_64-w64-mingw32-"
FOLDERS = ("base", "ui/messages", "ui", "runtime", "settings", "jvm", "instance", "core")
RESOURCES = {3: "icon", 5: "dialogs", 6: "texts", 14: "icon", 16: "version", 24: "manifest"}


def output_of(*command, text=None):
    return subprocess.run(command, input=text, stdout=subprocess.PIPE, text=True, check=True).stdout


def build():
    for command in (["cmake", "--preset", "release", "-B", BUILD, "-DTARN_SYMBOLS=ON"],
                    ["cmake", "--build", BUILD, "-j", "2", "--target", "launcher"]):
        done = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, check=False)
        if done.returncode != 0:
            sys.exit(done.stdout)
    return os.path.join(BUILD, "launcher.exe")


def table(title, rows):
    print(f"\n{title}")
    for name, *sizes in rows:
        print(f"  {name:<34}" + "".join(f"{size:>9}" for size in sizes))


def show_file(path):
    """Sections and resources as they ship: without symbols."""
    shipped = path + ".stripped"
    output_of(TOOLS + "strip", path, "-o", shipped)
    image = pefile.PE(shipped)
    kinds = collections.Counter()
    for entry in image.DIRECTORY_ENTRY_RESOURCE.entries:
        for name in entry.directory.entries:
            for language in name.directory.entries:
                kinds[RESOURCES.get(entry.id, str(entry.id))] += language.data.struct.Size
    size = os.path.getsize(shipped)
    print(f"launcher.exe: {size} bytes, {(size - kinds['icon']) / 1024:.1f} KiB without its icon")
    table("sections: bytes used, bytes in the file",
          [("headers", image.OPTIONAL_HEADER.SizeOfHeaders, image.OPTIONAL_HEADER.SizeOfHeaders)] +
          [(section.Name.rstrip(b"\0").decode(), section.Misc_VirtualSize, section.SizeOfRawData)
           for section in image.sections])
    table("resources", kinds.most_common())
    table("imports: functions", [(entry.dll.decode(), len(entry.imports))
                                 for entry in image.DIRECTORY_ENTRY_IMPORT])
    os.remove(shipped)


def instructions(path):
    """The address and length of each instruction."""
    code = output_of(TOOLS + "objdump", "-d", "--no-show-raw-insn", "-j", ".text", path)
    starts = [int(match, 16) for match in re.findall(r"^ +([0-9a-f]+):\t", code, re.MULTILINE)]
    return list(zip(starts, (end - start for start, end in zip(starts, starts[1:] + [starts[-1]]))))


def folder_of(source):
    for folder in FOLDERS:
        if re.search(rf"(^|/)\./{folder}/", source):
            return folder
    return None


def show_code(path):
    """Charges each instruction to the innermost of our own files that it was compiled for."""
    lengths = dict(instructions(path))
    lines = output_of(TOOLS + "addr2line", "-a", "-i", "-e", path,
                      text="\n".join(map(hex, lengths))).splitlines()
    total, library = collections.Counter(), collections.Counter()
    frames = {}
    for line in lines:
        if re.fullmatch(r"0x[0-9a-f]+", line):
            current = frames.setdefault(int(line, 16), [])
        else:
            current.append(line)
    for address, sources in frames.items():
        ours = [folder for folder in map(folder_of, sources) if folder]
        name = ours[0] if ours else "standard library, used by many"
        total[name] += lengths[address]
        if sources and not folder_of(sources[0]):
            library[name] += lengths[address]
    table("code by folder: bytes, of which parts of libraries",
          [(name, size, library[name]) for name, size in total.most_common()])


def show_functions(path, number):
    symbols = [line.split(" ", 2) for line in
               output_of(TOOLS + "nm", "-C", "-n", "--defined-only", path).splitlines()]
    code = [(int(address, 16), name) for address, kind, name in symbols if kind in "tT"]
    sizes = sorted(((end - start, name) for (start, name), (end, _) in zip(code, code[1:])),
                   reverse=True)
    print("\nlargest functions")
    for size, name in sizes[:number]:
        name = re.sub(r"std::(__cxx11::)?basic_string<wchar_t.*?> >", "std::wstring", name)
        print(f"  {size:>6}  {name[:110]}")


def main():
    number = int(sys.argv[1]) if sys.argv[1:] else 20
    path = build()
    show_file(path)
    show_code(path)
    show_functions(path, number)


if __name__ == "__main__":
    main()
