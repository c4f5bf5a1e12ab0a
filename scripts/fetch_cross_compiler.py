#!/usr/bin/env python3
"""Downloads the cross-compiler of the companion program into the cache: fetch_cross_compiler.py

cmake/zig.cmake finds it there and builds the companion program for Linux and macOS. Prints its
folder; when it is in the cache already, no network is needed.
"""

import sys
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parent
sys.path.insert(0, str(SCRIPTS / "lib"))
import download_cache  # noqa: E402  (its folder comes from the line above)


def main():
    (requirement,) = download_cache.read_lock_file(SCRIPTS / "cross_compiler.lock").values()

    def prepare(folder):
        print("downloading the cross-compiler (93 MB)", file=sys.stderr)
        download_cache.unpack_wheel(requirement, "ziglang/", folder)

    compiler = download_cache.cache_folder() / "cross-compiler"
    download_cache.install(compiler, requirement, prepare)
    print(compiler)


if __name__ == "__main__":
    main()
