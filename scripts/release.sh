#!/usr/bin/env bash
# Makes a release: scripts/release.sh
#
# Builds everything and puts dist/tarn-VERSION-windows-x64.zip together, with its SHA-256 in a file
# beside it: launcher.exe, tarn.exe, a template of a settings file, a sample that lacks only a
# runtime, documentation and licences. The same sources give the same bytes on every machine that
# has Debian 12's tools (setup.sh).
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh

version=$(sed -n 's/^project(tarn VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
grep -q "^## $version (" CHANGELOG.md || {
    echo "CHANGELOG.md has no section \"## $version (DATE)\"" >&2
    exit 1
}

scripts/setup.sh demo
tarn_say "building version $version"
{
    cmake --preset release
    cmake --build --preset release -j 2 --target launcher tarn
    cmake --preset native
    cmake --build --preset native -j 2
} >&2
examples/build.sh build/release-files/notes.jar

tarn_say "packing"
"$TARN_PYTHON" scripts/lib/pack_release.py "$version" dist
cat "dist/tarn-$version-windows-x64.zip.sha256"
