#!/usr/bin/env python3
"""Downloads real Java applications into the cache: fetch_applications.py [NAME...]

The names are those of scripts/applications.lock; without a name, all are downloaded, by Maven and so
from the repositories that Maven is configured for. Prints the folder of each on standard output;
progress goes to standard error. An application that is in the cache already needs no network. Runs
on Linux and on Windows.
"""

import hashlib
import shutil
import subprocess
import sys
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parent
sys.path.insert(0, str(SCRIPTS / "lib"))
import download_cache  # noqa: E402  (its folder comes from the line above)

POM = """<project xmlns="http://maven.apache.org/POM/4.0.0">
  <modelVersion>4.0.0</modelVersion>
  <groupId>tarn</groupId>
  <artifactId>applications</artifactId>
  <version>1</version>
  <packaging>pom</packaging>
  <dependencies>
{dependencies}
  </dependencies>
</project>
"""
DEPENDENCY = """    <dependency>
      <groupId>{group}</groupId>
      <artifactId>{artifact}</artifactId>
      <version>{version}</version>{classifier}
      <exclusions><exclusion><groupId>*</groupId><artifactId>*</artifactId></exclusion></exclusions>
    </dependency>"""
CLASSIFIER = """
      <classifier>{}</classifier>"""


def read_lock_file():
    """{application: [(group:artifact:version or group:artifact:version:classifier, SHA-256)]}"""
    applications = {}
    for line in (SCRIPTS / "applications.lock").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            name, artifact, digest = line.split()
            applications.setdefault(name, []).append((artifact, digest))
    return applications


def jar_name(artifact):
    return "-".join(artifact.split(":")[1:]) + ".jar"


def download(artifacts, folder):
    """The jars of an application, without what their own POMs ask for."""
    dependencies = []
    for artifact, _ in artifacts:
        group, name, version, *classifier = artifact.split(":")
        dependencies.append(DEPENDENCY.format(
            group=group, artifact=name, version=version,
            classifier="".join(map(CLASSIFIER.format, classifier))))
    pom = folder / "pom.xml"
    pom.write_text(POM.format(dependencies="\n".join(dependencies)), encoding="utf-8")
    # On Windows Maven is a batch file, which is not found without its ending.
    maven = shutil.which("mvn") or sys.exit("fetch_applications.py: Maven (mvn) is not on the Path")
    subprocess.run([maven, "--batch-mode", "--quiet", "--file", str(pom),
                    "org.apache.maven.plugins:maven-dependency-plugin:3.6.1:copy-dependencies",
                    "-DexcludeTransitive=true", f"-DoutputDirectory={folder}"],
                   check=True, stdout=sys.stderr)
    pom.unlink()
    for artifact, digest in artifacts:
        jar = folder / jar_name(artifact)
        if hashlib.sha256(jar.read_bytes()).hexdigest() != digest:
            sys.exit(f"fetch_applications.py: {jar.name} has another checksum than "
                     "scripts/applications.lock says")


def main():
    lock = read_lock_file()
    names = sys.argv[1:] or list(lock)
    unknown = [name for name in names if name not in lock]
    if unknown:
        sys.exit(f"fetch_applications.py: scripts/applications.lock has no application '{unknown[0]}'")

    for name in names:
        def prepare(folder, name=name):
            print(f"downloading the application {name}", file=sys.stderr)
            download(lock[name], folder)

        application = download_cache.cache_folder() / "applications" / name
        stamp = " ".join(f"{artifact}={digest}" for artifact, digest in lock[name])
        download_cache.install(application, stamp, prepare)
        print(application)


if __name__ == "__main__":
    main()
