#!/usr/bin/env python3
"""Makes a Maven repository reproducible: finish_repository.py FOLDER

Maven notes the time of the build in maven-metadata.xml; any time will do, because the lists of versions have one entry.
The file that maps the prefix "tarn" to the Maven plugin is added, which not every version of Maven writes. Every file gets
its digests beside it.
"""

import hashlib
import os
import re
import sys

TIME = b"19800201000000"
DIGESTS = ("md5", "sha1", "sha256", "sha512")
GROUP = "io/github/tarn-launcher"
PREFIXES = """<?xml version="1.0" encoding="UTF-8"?>
<metadata>
  <plugins>
    <plugin>
      <name>Tarn Maven plugin</name>
      <prefix>tarn</prefix>
      <artifactId>tarn-maven-plugin</artifactId>
    </plugin>
  </plugins>
</metadata>
"""


def main():
    repository = sys.argv[1]
    with open(os.path.join(repository, GROUP, "maven-metadata.xml"), "w", encoding="utf-8") as file:
        file.write(PREFIXES)
    for folder, _, names in os.walk(repository):
        for name in names:
            path = os.path.join(folder, name)
            if name.endswith(DIGESTS):
                continue
            with open(path, "rb") as file:
                content = file.read()
            if name == "maven-metadata.xml":
                content = re.sub(rb"(<lastUpdated>)\d+", rb"\g<1>" + TIME, content)
                with open(path, "wb") as file:
                    file.write(content)
            for digest in DIGESTS:
                with open(f"{path}.{digest}", "w", encoding="ascii") as file:
                    file.write(hashlib.new(digest, content).hexdigest())


if __name__ == "__main__":
    main()
