#!/usr/bin/env bash
# Installs what building, running and testing need on Debian 12: scripts/setup.sh [demo|test]
#
# "demo" is what building and running the sample takes, "test" (the default) everything. Costs
# one look at the package database when nothing is missing. Needs root, or sudo.
set -euo pipefail

build=(
    cmake ninja-build g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    openjdk-17-jdk-headless  # javac and jni.h
    # For the companion program.
    g++ zlib1g-dev libz-mingw-w64-dev libcli11-dev nlohmann-json3-dev libstb-dev
)
run=(
    wine wine64 xvfb x11-utils imagemagick python3 python3-pip ca-certificates
    # What Wine loads when it is there: X extensions, secure connections, and fonts, without
    # which dialogs have other sizes.
    libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1 libgl1
    libgnutls30 fonts-liberation fonts-wine fonts-dejavu-core
)
check=(
    googletest git clang-14 lld-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 cppcheck
    shellcheck python3-pefile locales osslsigncode openssl curl
)

case ${1:-test} in
    demo) packages=("${build[@]}" "${run[@]}") ;;
    test) packages=("${build[@]}" "${run[@]}" "${check[@]}") ;;
    *) echo "usage: scripts/setup.sh [demo|test]" >&2; exit 2 ;;
esac

command -v dpkg-query >/dev/null || {
    echo "setup.sh installs Debian packages, and this is no Debian; needed are: ${packages[*]}" >&2
    exit 1
}

# Prints those of the packages that are not installed.
missing_packages() {
    local installed
    # dpkg-query fails when it does not know one of the names.
    # shellcheck disable=SC2016  # dpkg-query's own placeholders
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null |
        sed -n 's/^installed //p' || true)
    printf '%s\n' "${packages[@]}" | grep -vxFf <(echo "$installed") || true
}

mapfile -t missing < <(missing_packages)
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "to be installed as root: apt-get install ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
apt_get() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y -o DPkg::Lock::Timeout=600 "$@" </dev/null >&2
}

echo "==> installing ${missing[*]}" >&2
# A repository that does not answer need not be the one that has our packages.
apt_get update || true
apt_get install --no-install-recommends "${missing[@]}"
mapfile -t missing < <(missing_packages)
[ ${#missing[@]} -eq 0 ] || { echo "still missing: ${missing[*]}" >&2; exit 1; }
