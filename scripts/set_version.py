#!/usr/bin/env python3
"""Sets the project's version: scripts/set_version.py [--check] [VERSION]

The version is that of project() in CMakeLists.txt. VERSION, such as 1.2.0, is written there. Then every other place that
names it gets the same one: the build scripts of the examples, README and docs, which users copy, and the manifest of the
launcher. CHANGELOG.md is only read: its newest version must be this one.

--check writes nothing. Prints one line for each place that differs, and exits with 1 if there is one.
"""

import argparse
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PROJECT = "CMakeLists.txt"
CHANGES = "CHANGELOG.md"
NUMBER = r"\d+\.\d+\.\d+"
IN_PROJECT = re.compile(rf"(?<=^project\(tarn VERSION ){NUMBER}", re.MULTILINE)
IN_CHANGES = re.compile(rf"^## ({NUMBER}) \(", re.MULTILINE)
# What precedes the version, by the ends of the files' names.
PLACES = (
    ((".md", ".xml"), re.compile(
        rf"(<artifactId>tarn-maven-plugin</artifactId>\s*<version>|tarn-maven-plugin:)({NUMBER})\b")),
    ((".md", ".gradle", ".kts"), re.compile(
        rf"(\bid\W{{1,2}}io\.github\.tarn-launcher\.tarn\W{{1,3}}version\s+[\"'])({NUMBER})\b")),
    (("launcher.manifest",), re.compile(
        rf"(<assemblyIdentity version=\")({NUMBER})(?=\.0\" processorArchitecture=\"amd64\" name=\"Tarn\.Launcher\")")),
)
# Each of them names the version at least once.
REQUIRED = ("README.md", "docs/user/packaging.md", "examples/maven/pom.xml", "examples/gradle/build.gradle",
            "resources/launcher.manifest")


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8", newline="") as file:
        return file.read()


def write(path, text):
    with open(os.path.join(ROOT, path), "w", encoding="utf-8", newline="") as file:
        file.write(text)


def project_files():
    """The paths of the project's files, from its root."""
    listed = subprocess.check_output(["git", "ls-files", "-z"], cwd=ROOT).decode()
    return [path for path in listed.split("\0") if os.path.isfile(os.path.join(ROOT, path))]


def found_in(path, text):
    """The places in a file that name the version, as matches whose second group is the version."""
    return [match for ends, pattern in PLACES if path.endswith(ends) for match in pattern.finditer(text)]


def update(text, path, version):
    """The text with the version at each place."""
    for match in sorted(found_in(path, text), key=lambda match: match.start(), reverse=True):
        text = text[:match.start(2)] + version + text[match.end(2):]
    return text


def differences(version):
    """One line for each place with another version, and for each file without an expected place."""
    for path in project_files():
        if not path.endswith(tuple(end for ends, _ in PLACES for end in ends)):
            continue
        text = read(path)
        matches = found_in(path, text)
        if path in REQUIRED and not matches:
            yield f"{path}: does not name the version"
        for match in matches:
            if match[2] != version:
                line = text.count("\n", 0, match.start(2)) + 1
                yield f"{path}:{line}: names version {match[2]}, but {PROJECT} has {version}"
    newest = IN_CHANGES.search(read(CHANGES))
    if not newest or newest[1] != version:
        yield f"{CHANGES}: the newest version is {newest[1] if newest else 'missing'}, but {PROJECT} has {version}"


def main():
    parser = argparse.ArgumentParser(description="Sets the project's version everywhere, or checks it.")
    parser.add_argument("--check", action="store_true", help="report the places that differ, and write nothing")
    parser.add_argument("version", nargs="?", metavar="VERSION", help="the new version; by default that of " + PROJECT)
    options = parser.parse_args()
    if options.version and (options.check or not re.fullmatch(NUMBER, options.version)):
        parser.error("VERSION has three numbers, such as 1.2.0, and is not used with --check")

    project = read(PROJECT)
    version = options.version or IN_PROJECT.search(project)[0]
    if not options.check:
        texts = {path: read(path) for path in project_files()
                 if path.endswith(tuple(end for ends, _ in PLACES for end in ends))}
        texts[PROJECT] = project
        for path, text in texts.items():
            new = IN_PROJECT.sub(version, text) if path == PROJECT else update(text, path, version)
            if new != text:
                write(path, new)
                print(f"{path}: set to {version}")
    found = list(differences(version))
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
