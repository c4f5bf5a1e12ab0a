#!/usr/bin/env python3
"""Assembles a Gradle from its API artifact: assemble_gradle.py

No registry that the tests may use has Gradle's distribution, but gradle-api of Maven Central contains its classes. A
distribution searches its modules in jars of certain names, so each module gets a jar of that name that refers to
gradle-api. Prints the folder in the cache, and does nothing else if it exists. tests/plugins/gradle_test.py starts it.
"""

import fcntl
import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
import zipfile

VERSION = "8.6"
SHA256 = "1fb5c0dd95c173af8f937a72876fd3332c6f8b0ee343f1265fc23fa0281ee5ab"
CACHE = os.environ.get("TARN_CACHE", os.path.join(
    os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache")), "tarn"))
# The second layout of the folder.
TARGET = os.path.join(CACHE, f"gradle-{VERSION}-2")
POM = f"""<project xmlns="http://maven.apache.org/POM/4.0.0">
  <modelVersion>4.0.0</modelVersion>
  <groupId>local</groupId>
  <artifactId>gradle-libraries</artifactId>
  <version>1</version>
  <packaging>pom</packaging>
  <dependencies>
    <dependency>
      <groupId>dev.gradleplugins</groupId>
      <artifactId>gradle-api</artifactId>
      <version>{VERSION}</version>
    </dependency>
  </dependencies>
</project>
"""


def fetch(folder):
    """Copies gradle-api and what it needs into a folder. Returns their names."""
    pom = os.path.join(folder, "pom.xml")
    with open(pom, "w", encoding="utf-8") as file:
        file.write(POM)
    libraries = os.path.join(folder, "lib")
    subprocess.run(
        ["mvn", "--batch-mode", "--quiet", f"-Dmaven.repo.local={os.path.join(CACHE, 'maven')}", "--file", pom,
         "org.apache.maven.plugins:maven-dependency-plugin:3.6.1:copy-dependencies",
         f"-DoutputDirectory={libraries}"],
        check=True, stdin=subprocess.DEVNULL, stdout=sys.stderr)
    os.remove(pom)
    with open(os.path.join(libraries, f"gradle-api-{VERSION}.jar"), "rb") as file:
        digest = hashlib.file_digest(file, "sha256").hexdigest()
    if digest != SHA256:
        raise SystemExit(f"assemble_gradle.py: gradle-api-{VERSION}.jar is not the expected file")
    return sorted(name for name in os.listdir(libraries) if name.endswith(".jar"))


def class_path_manifest(names):
    """A manifest that names jars of the same folder, in lines of 72 bytes at most."""
    entry = "Class-Path: " + " ".join(names)
    lines = [entry[:72]] + [" " + entry[start:start + 71] for start in range(72, len(entry), 71)]
    return "\r\n".join(["Manifest-Version: 1.0", *lines, ""])


def add_modules(libraries, names):
    """Adds the jars by which Gradle finds its modules."""
    def add(name, entries):
        with zipfile.ZipFile(os.path.join(libraries, name), "w") as jar:
            for entry, content in entries.items():
                jar.writestr(entry, content)

    with zipfile.ZipFile(os.path.join(libraries, f"gradle-api-{VERSION}.jar")) as api:
        for entry in api.namelist():
            module = re.fullmatch(r"(gradle-[\w-]+)-classpath\.properties", entry)
            if module:
                lines = [line for line in api.read(entry).decode().splitlines() if not line.startswith("runtime=")]
                # A daemon is started with the launcher's jar alone.
                add(f"{module[1]}-{VERSION}.jar", {"META-INF/MANIFEST.MF": class_path_manifest(names),
                                                   entry: "\n".join(lines + ["runtime=" + ",".join(names)])})
    # Looked up, but not used here.
    add("javax.inject-1.jar", {})
    for module in ("gradle-java-compiler-plugin", "gradle-instrumentation-agent"):
        add(f"{module}-{VERSION}.jar", {f"{module}-classpath.properties": "projects=\nruntime=\n"})


def main():
    os.makedirs(CACHE, exist_ok=True)
    with open(TARGET + ".lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not os.path.isdir(TARGET):
            with tempfile.TemporaryDirectory(dir=CACHE) as work:
                folder = os.path.join(work, "gradle")
                os.makedirs(os.path.join(folder, "lib", "plugins"))
                names = fetch(folder)
                add_modules(os.path.join(folder, "lib"), names)
                shutil.move(folder, TARGET)
    print(TARGET)


if __name__ == "__main__":
    main()
