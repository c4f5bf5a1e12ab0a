"""The components of a release as a CycloneDX document, for users who must account for what they ship."""

import json
import re
import subprocess
import uuid
from pathlib import Path

NAMESPACE = uuid.UUID("8f0c9d0e-5c1f-4f0b-9a53-3f8f5d6b2a77")  # of Tarn's releases


def first_match(path, *patterns):
    """The texts that the patterns find in a file, joined by dots: how a header states its version."""
    text = Path(path).read_text(encoding="utf-8", errors="replace")
    found = [re.search(pattern, text) for pattern in patterns]
    if None in found:
        raise SystemExit(f"sbom.py: no version in {path}")
    return ".".join(match.group(1) for match in found)


def json_version():
    part = r"#define NLOHMANN_JSON_VERSION_{} (\d+)"
    header = Path("/usr/include/nlohmann/detail/abi_macros.hpp")
    return first_match(header if header.is_file() else "/usr/include/nlohmann/json.hpp",
                       *(part.format(word) for word in ("MAJOR", "MINOR", "PATCH")))


def compiler_version():
    """Of the Windows programs' compiler, from its macros: its own answer carries the distribution's mark."""
    macros = subprocess.run(["x86_64-w64-mingw32-g++-posix", "-dM", "-E", "-x", "c++", "/dev/null"],
                            check=True, capture_output=True, text=True).stdout
    return ".".join(re.search(rf"#define __GNUC{part}__ (\d+)", macros).group(1)
                    for part in ("", "_MINOR", "_PATCHLEVEL"))


def library(name, version, licence, purl=None):
    component = {"type": "library", "name": name, "version": version,
                 "licenses": [{"expression": licence}]}
    return component | ({"purl": purl} if purl else {})


def libraries(root):
    zlib = first_match(f"{root}/third_party/zlib/zlib.h", r'#define ZLIB_VERSION "([0-9.]+)"')
    return [
        library("zlib", zlib, "Zlib", f"pkg:github/madler/zlib@v{zlib}"),
        library("minizip", first_match(f"{root}/third_party/minizip/unzip.h", r"Version ([0-9.]+),"),
                "Zlib"),
        library("pugixml", first_match(f"{root}/third_party/pugixml/pugixml.cpp",
                                       r"pugixml parser - version ([0-9.]+)"), "MIT"),
        library("CLI11", first_match("/usr/include/CLI/Version.hpp",
                                     r'#define CLI11_VERSION "([0-9.]+)"'), "BSD-3-Clause"),
        library("nlohmann-json", json_version(), "MIT"),
        library("stb_image", first_match("/usr/include/stb/stb_image.h", r"stb_image - v([0-9.]+)"),
                "MIT OR Unlicense"),
        library("libstdc++", compiler_version(),
                "GPL-3.0-or-later WITH GCC-exception-3.1"),
    ]


def describe_release(root, version, date, digests):
    """The document's text. `digests` are the archives: {file name: SHA-256}. The same release gives
    the same text."""
    archives = [{"type": "file", "name": name, "hashes": [{"alg": "SHA-256", "content": digest}]}
                for name, digest in sorted(digests.items())]
    year, month, day = date[:3]
    document = {
        "$schema": "http://cyclonedx.org/schema/bom-1.5.schema.json",
        "bomFormat": "CycloneDX",
        "specVersion": "1.5",
        "serialNumber": f"urn:uuid:{uuid.uuid5(NAMESPACE, json.dumps(digests, sort_keys=True))}",
        "version": 1,
        "metadata": {
            "timestamp": f"{year:04}-{month:02}-{day:02}T00:00:00Z",
            "component": {"type": "application", "name": "tarn", "version": version,
                          "licenses": [{"expression": "MIT"}]},
        },
        "components": libraries(root) + archives,
    }
    return json.dumps(document, indent=2) + "\n"
