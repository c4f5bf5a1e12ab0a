#!/usr/bin/env bash
# Installs what building, running and testing require: scripts/setup.sh [demo|plugins|test]
#
# "demo" installs what building and running the sample takes, "plugins" what building the Maven and
# Gradle plugins takes, "test" (the default) everything. For Debian 12 and 13 and Ubuntu 24.04, as root
# or with sudo. On other systems it lists what is missing and installs nothing. When nothing is missing
# it only queries the package database.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)

# A name with "|" means the first of these packages that the distribution has.
build=(
    cmake ninja-build g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    JDK  # javac and jni.h
    # For the companion program.
    g++ libcli11-dev nlohmann-json3-dev libstb-dev
)
run=(
    wine wine64 xvfb x11-utils imagemagick python3 python3-pip ca-certificates
    # What Wine loads when it is there: X extensions, secure connections, and fonts, without
    # which dialogs have other sizes.
    libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1 libgl1
    'libgnutls30t64|libgnutls30' fonts-liberation fonts-wine fonts-dejavu-core
)
plugins=(maven python3 ca-certificates)
check=(
    googletest git LLVM cppcheck shellcheck "${plugins[@]}" python3-pefile locales osslsigncode openssl curl strace
    nsis wixl msitools xdotool  # setup programs, and what drives their windows
    python3-jsonschema python3-yaml  # schemas of the manifests of package managers
)
# The same as programs, for systems with other package names.
build_programs=(
    'cmake: CMake 3.25 or newer'
    'ninja: Ninja'
    'x86_64-w64-mingw32-g++-posix|x86_64-w64-mingw32-g++: mingw-w64 for x86_64, GCC 12 or newer, posix threads'
    'x86_64-w64-mingw32-windres: its binutils'
    'g++: GCC 12 or newer for this machine, with CLI11, nlohmann-json and stb'
)
run_programs=('wine: Wine 8 or newer, 64-bit' 'Xvfb: Xvfb' 'import: ImageMagick' 'python3: Python 3.11 or newer with pip')
plugins_programs=('mvn: Maven 3.8 or newer' 'python3: Python 3.11 or newer')
check_programs=(
    'git: git' 'cppcheck: cppcheck' 'shellcheck: shellcheck' 'osslsigncode: osslsigncode'
    'openssl: openssl' 'curl: curl' 'strace: strace' 'makensis: NSIS 3.08 or newer' 'wixl: wixl' 'msibuild: msitools' 'xdotool: xdotool'
    "${plugins_programs[@]}"
)

case ${1:-test} in
    demo)
        wanted=("${build[@]}" "${run[@]}")
        programs=("${build_programs[@]}" "${run_programs[@]}")
        ;;
    plugins)
        wanted=("${build[@]}" "${plugins[@]}")
        programs=("${build_programs[@]}" "${plugins_programs[@]}")
        ;;
    test)
        wanted=("${build[@]}" "${run[@]}" "${check[@]}")
        programs=("${build_programs[@]}" "${run_programs[@]}" "${check_programs[@]}")
        ;;
    *) echo "usage: scripts/setup.sh [demo|plugins|test]" >&2; exit 2 ;;
esac

toolchain() { "$TARN_ROOT/scripts/lib/toolchain.sh" "$@"; }

# Fails unless all programs are there.
check_other_system() {
    local program name found missing=()
    for program in "${programs[@]}"; do
        found=
        for name in $(tr '|' ' ' <<<"${program%%: *}"); do
            ! command -v "$name" >/dev/null || found=yes
        done
        [ -n "$found" ] || missing+=("${program#*: }")
    done
    toolchain jdk >/dev/null 2>&1 || missing+=("a JDK, 17 or newer (JAVA_HOME)")
    if [[ " ${wanted[*]} " == *' LLVM '* ]]; then
        toolchain llvm clang-tidy >/dev/null 2>&1 ||
            missing+=("clang, lld, clang-tidy and clang's sanitizers, 14 or newer")
        [ -d "${GOOGLETEST_ROOT:-/usr/src/googletest}" ] ||
            missing+=("GoogleTest's sources, 1.12 or newer (GOOGLETEST_ROOT)")
    fi
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "setup.sh installs packages on Debian and Ubuntu only; missing here:" >&2
    printf '    %s\n' "${missing[@]}" >&2
    echo "Install them, or work in a container: see Containerfile." >&2
    return 1
}

# Sets packages to the packages' names in this distribution.
choose_packages() {
    local versions jdks=() clangs=() available name chosen version
    versions=$(toolchain versions llvm)
    for version in $versions; do clangs+=("clang-$version"); done
    for version in $(toolchain versions jdk); do jdks+=("openjdk-$version-jdk-headless"); done
    jdks+=(default-jdk-headless)

    # Real packages that a repository has or that are installed; virtual ones have no candidate.
    available=$(tr ' |' '\n' <<<"${wanted[*]} ${clangs[*]} ${jdks[*]}" |
        LC_ALL=C xargs apt-cache policy 2>/dev/null |
        awk '/^[^ ]/ { name = $1 } /^ *Candidate:/ && $2 != "(none)" { sub(/:$/, "", name); print name }')
    first_available() {  # package...
        for chosen in "$@"; do
            ! grep -qxF "$chosen" <<<"$available" || return 0
        done
        chosen=$1
    }

    packages=()
    for name in "${wanted[@]}"; do
        case $name in
            JDK)
                first_available "${jdks[@]}"
                packages+=("$chosen")
                ;;
            LLVM)
                # All of one version.
                first_available "${clangs[@]}"
                version=${chosen#clang-}
                packages+=("$chosen" "lld-$version" "libclang-rt-$version-dev" "clang-tidy-$version")
                ;;
            *)
                # shellcheck disable=SC2046  # one word a name
                first_available $(tr '|' ' ' <<<"$name")
                packages+=("$chosen")
                ;;
        esac
    done
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

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    check_other_system
    exit
fi

choose_packages
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

# A repository that does not answer need not be the one that has our packages.
apt_get update || true
# A fresh system knows no packages before that.
choose_packages
mapfile -t missing < <(missing_packages)
echo "==> installing ${missing[*]}" >&2
apt_get install --no-install-recommends "${missing[@]}"
mapfile -t missing < <(missing_packages)
[ ${#missing[@]} -eq 0 ] || { echo "still missing: ${missing[*]}" >&2; exit 1; }
