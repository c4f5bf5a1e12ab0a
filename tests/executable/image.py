"""Reads the file of the executable under test."""

import functools
import os

import pefile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
LAUNCHER = os.environ.get("TARN_LAUNCHER", os.path.join(ROOT, "build", "release", "launcher.exe"))
RUNTIMES = os.environ.get("TARN_RUNTIMES", os.path.join(
    os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache")), "tarn", "runtimes"))

RT_ICON, RT_STRING, RT_GROUP_ICON, RT_VERSION, RT_MANIFEST = 3, 6, 14, 16, 24
ENGLISH_UNITED_STATES = 0x409


@functools.lru_cache(maxsize=None)
def load(path=LAUNCHER):
    return pefile.PE(path)


def resources(kind, path=LAUNCHER):
    """The resources of a type: (id, language, bytes)."""
    image = load(path)
    for entry in image.DIRECTORY_ENTRY_RESOURCE.entries:
        if entry.id != kind:
            continue
        for name in entry.directory.entries:
            for language in name.directory.entries:
                data = language.data.struct
                yield name.id, language.id, image.get_data(data.OffsetToData, data.Size)


def string_table(path=LAUNCHER):
    """The string table's texts by id. A block contains 16, each after its length; length 0 is no text."""
    texts = {}
    for block, _, data in resources(RT_STRING, path):
        offset = 0
        for index in range(16):
            length = int.from_bytes(data[offset:offset + 2], "little")
            offset += 2
            if length:
                texts[(block - 1) * 16 + index] = data[offset:offset + 2 * length].decode("utf-16-le")
            offset += 2 * length
    return texts
