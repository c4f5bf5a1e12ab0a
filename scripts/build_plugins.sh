#!/usr/bin/env bash
# Builds the Maven and the Gradle plugin: scripts/build_plugins.sh [--all-platforms]
#
# Writes a Maven repository with both plugins into dist/repository, which a project names by a file: URL. The plugins
# carry launcher.exe and the companion program for Windows, for this machine, and for each other platform that has been
# built (presets companion-*). With --all-platforms, as for a release, a missing one is an error. Their unit tests are
# run, too. What Maven downloads is kept in the cache.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh

demands_all=no
case ${1:-} in
    '') ;;
    --all-platforms) demands_all=yes ;;
    *) echo "usage: scripts/build_plugins.sh [--all-platforms]" >&2; exit 2 ;;
esac

work=$TARN_ROOT/build/plugins
companions=$work/companions
version=$(sed -n 's/^project(tarn VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
JAVA_HOME=$(scripts/lib/toolchain.sh jdk)
export JAVA_HOME

quietly() {  # command...
    timeout 1800 "$@" >"$work/build.log" 2>&1 </dev/null || {
        tail -n 60 "$work/build.log" >&2
        echo "failed: $*" >&2
        exit 1
    }
}

# Copies a program for a platform, if there is one.
carry() {  # platform, file name, program...
    local platform=$1 name=$2 program
    shift 2
    for program in "$@"; do
        [ -f "$program" ] || continue
        mkdir -p "$companions/$platform"
        cp "$program" "$companions/$platform/$name"
        return
    done
    missing+=("$platform")
}

# What the plugins carry, and the digest of each file.
lay_out_companions() {
    local platform missing=() own=()
    rm -rf "$companions"
    mkdir -p "$companions"
    cp build/release/launcher.exe "$companions"
    carry windows-x86_64 tarn.exe build/release/tarn.exe
    for platform in linux-x86_64 linux-aarch64 macos-x86_64 macos-aarch64; do
        own=()
        # What has just been built, unless it is for a release.
        [ "$platform" != "linux-$(uname -m)" ] || [ $demands_all = yes ] || own=(build/native/tarn)
        carry "$platform" tarn "${own[@]}" "build/companion-$platform/tarn"
    done
    (cd "$companions" && find . -type f -printf '%P\n' | LC_ALL=C sort | while read -r name; do
        printf '%s=%s\n' "$name" "$(sha256sum "$name" | cut -d ' ' -f 1)"
    done >"$work/index.properties")
    mv "$work/index.properties" "$companions"
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ $demands_all = yes ]; then
        echo "not built: the companion program for ${missing[*]} (presets companion-*)" >&2
        exit 1
    fi
    echo "the plugins do not carry the companion program for ${missing[*]}, which is not built"
}

scripts/setup.sh plugins
mkdir -p "$work"
tarn_say "building launcher.exe and tarn"
quietly cmake --preset release
quietly cmake --build --preset release -j 2 --target launcher tarn
quietly cmake --preset native
quietly cmake --build --preset native -j 2 --target tarn

tarn_say "building the plugins $version"
lay_out_companions
rm -rf "$work/repository"
quietly mvn --batch-mode --no-transfer-progress -Dmaven.repo.local="$TARN_CACHE/maven" \
    --file plugin-parent/pom.xml -Drevision="$version" -Dmaven.install.skip=true \
    -DaltDeploymentRepository="tarn::file://$work/repository" clean deploy
"$TARN_PYTHON" scripts/lib/finish_repository.py "$work/repository"

# Complete or as it was.
mkdir -p dist
rm -rf dist/repository
mv "$work/repository" dist/repository
echo "dist/repository"
