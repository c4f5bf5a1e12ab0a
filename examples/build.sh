#!/usr/bin/env bash
# Compiles the sample application into a jar: examples/build.sh [JAR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
jar=${1:-$here/../build/examples/notes.jar}

# In the source tree the JDK of the build, elsewhere the one on the path.
toolchain=$here/../scripts/lib/toolchain.sh
[ ! -x "$toolchain" ] || PATH=$("$toolchain" jdk)/bin:$PATH

classes=$(mktemp -d)
trap 'rm -rf "$classes"' EXIT
mkdir -p "$(dirname "$jar")"
# Java 8 class files run on every runtime that the launcher finds.
javac --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options -Werror -d "$classes" \
    "$here"/src/notes/*.java
jar --create --file "$jar" --manifest "$here/src/META-INF/MANIFEST.MF" -C "$classes" .
