#!/usr/bin/env bash
# Compiles the sample application into a jar: examples/build.sh [JAR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
jar=${1:-$here/../build/examples/notes.jar}

# Prefer the JDK that setup.sh installs; any newer one works, too.
jdk=/usr/lib/jvm/java-17-openjdk-amd64/bin
[ -x "$jdk/javac" ] && PATH=$jdk:$PATH

classes=$(mktemp -d)
trap 'rm -rf "$classes"' EXIT
mkdir -p "$(dirname "$jar")"
# Java 8 class files run on every runtime that the launcher finds.
javac --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options -Werror -d "$classes" \
    "$here"/src/notes/*.java
jar --create --file "$jar" --manifest "$here/src/META-INF/MANIFEST.MF" -C "$classes" .
