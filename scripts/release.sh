#!/usr/bin/env bash
# Makes a release: scripts/release.sh
#
# Builds everything and writes into dist/:
#     tarn-VERSION-windows-x64.zip     launcher.exe, tarn.exe, the sample, documentation, licences
#     tarn-VERSION-PLATFORM.tar.gz     launcher.exe and the companion program for Linux and macOS
#     tarn-VERSION-maven-repository.zip  the Maven and the Gradle plugin
#     tarn-VERSION.cdx.json            the list of components (CycloneDX)
#     SHA256SUMS                       the checksums of all of them
# The same sources and the same compiler give the same bytes on every machine.
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
platforms=(linux-x86_64 linux-aarch64 macos-x86_64 macos-aarch64)

scripts/setup.sh demo
"$TARN_PYTHON" scripts/fetch_cross_compiler.py >/dev/null
tarn_say "building version $version"
{
    cmake --preset release
    cmake --build --preset release -j 2 --target launcher tarn
    cmake --preset native
    cmake --build --preset native -j 2
    for platform in "${platforms[@]}"; do
        cmake --preset "companion-$platform"
        cmake --build --preset "companion-$platform" -j 2
    done
} >&2
examples/build.sh build/release-files/notes.jar

scripts/build_plugins.sh --all-platforms

tarn_say "packing"
"$TARN_PYTHON" scripts/lib/pack_release.py --repository dist/repository "$version" dist "${platforms[@]}"
rm -rf dist/repository
cat dist/SHA256SUMS
