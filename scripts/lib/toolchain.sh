#!/usr/bin/env bash
# Prints which versions of the tools in cmake/toolchain_versions.txt are used:
#
#     toolchain.sh versions llvm|jdk   the listed versions, the preferred one first
#     toolchain.sh llvm TOOL           the path of an LLVM tool such as clang-tidy: the preferred
#                                      version that is installed, else the unversioned one
#     toolchain.sh jdk                 the folder of the JDK: JAVA_HOME, else the preferred version
#                                      among the distribution's packages, else that of the javac on
#                                      the path
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/../.." && pwd)

versions() {  # llvm or jdk
    sed -n "s/^$1 //p" "$TARN_ROOT/cmake/toolchain_versions.txt"
}

llvm_tool() {  # name
    local version
    for version in $(versions llvm); do
        command -v "$1-$version" && return
    done
    command -v "$1" || { echo "$1 is not installed (run scripts/setup.sh)" >&2; return 1; }
}

jdk() {
    local version folder
    if [ -n "${JAVA_HOME:-}" ] && [ -x "$JAVA_HOME/bin/javac" ]; then
        echo "$JAVA_HOME"
        return
    fi
    for version in $(versions jdk); do
        for folder in "/usr/lib/jvm/java-$version-openjdk"*; do
            [ ! -x "$folder/bin/javac" ] || { echo "$folder"; return; }
        done
    done
    folder=$(command -v javac) ||
        { echo "no JDK is installed (run scripts/setup.sh, or set JAVA_HOME)" >&2; return 1; }
    folder=$(readlink -f "$folder")
    echo "${folder%/bin/javac}"
}

case ${1:-} in
    versions) versions "$2" ;;
    llvm) llvm_tool "$2" ;;
    jdk) jdk ;;
    *) echo "usage: toolchain.sh versions llvm|jdk, toolchain.sh llvm TOOL, toolchain.sh jdk" >&2; exit 2 ;;
esac
