#!/usr/bin/env bash
# Runs tests in a fresh system of another distribution: scripts/try_distribution.sh DISTRIBUTION [PART...]
#
#     12, 13    Debian
#     24.04     Ubuntu
#
# A PART is one of scripts/test.sh, or "demo" for scripts/demo.sh; without one both run, all tests
# first the demo. The system is made by debootstrap in the cache (TARN_CACHE/distributions/NAME),
# without any packages but the base, and scripts/setup.sh installs the rest there. It stays, with its
# build folder, for the next call; --fresh in front of the name makes it anew. The tree is copied as
# it is, with its uncommitted changes. Runtimes and applications come from this machine's cache.
#
# Requires root, or sudo, and debootstrap. Everything runs in mount and process namespaces of its
# own: whatever interrupts the script, nothing stays mounted and nothing keeps running.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh

usage() { echo "usage: scripts/try_distribution.sh [--fresh] 12|13|24.04 [demo|PART...]" >&2; exit 2; }

fresh=
[ "${1:-}" != --fresh ] || { fresh=yes; shift; }
case ${1:-} in
    12) suite=bookworm origin=Debian components=main ;;
    13) suite=trixie origin=Debian components=main ;;
    24.04) suite=noble origin=Ubuntu components=main,universe ;;
    -h | --help) sed -n '2,/^set /{/^#/s/^# \{0,1\}//p}' "$0"; exit 0 ;;
    *) usage ;;
esac
name=$1
shift
for tool in debootstrap unshare git; do
    command -v "$tool" >/dev/null || { echo "$tool is required (apt-get install $tool)" >&2; exit 1; }
done
if [ "$(id -u)" -ne 0 ]; then
    exec sudo env TARN_CACHE="$TARN_CACHE" "$0" ${fresh:+--fresh} "$name" "$@"
fi

system=$TARN_CACHE/distributions/$name
log=$TARN_CACHE/distributions/$name.log
mkdir -p "$TARN_CACHE/distributions" "$TARN_RUNTIMES" "$TARN_APPLICATIONS"

# The mirror that this machine uses, if it is of the same origin; else debootstrap's own.
mirror() {
    # shellcheck disable=SC2016  # apt-get's own placeholders
    apt-get indextargets --format '$(ORIGIN) $(COMPONENT) $(REPO_URI)' 2>/dev/null |
        awk -v origin="$origin" '$1 == origin && $2 == "main" && $3 !~ /security/ { print $3; exit }'
}

# Certificates and the settings of apt and pip are this machine's, for its way to the network is.
take_over_network() {
    cp -L /etc/resolv.conf /etc/hosts "$system/etc/"
    [ ! -f /etc/pip.conf ] || cp /etc/pip.conf "$system/etc/"
    apt-config dump Acquire | grep -iE 'proxy|check-' >"$system/etc/apt/apt.conf.d/90network" || true
    find /usr/local/share/ca-certificates -name '*.crt' -exec \
        cp {} "$system/usr/local/share/ca-certificates/" \; 2>/dev/null || true
}

make_system() {
    tarn_say "making $origin $name in $system"
    rm -rf --one-file-system "$system"
    # shellcheck disable=SC2046  # no word when there is no mirror
    debootstrap --variant=minbase --components="$components" --include=ca-certificates \
        "$suite" "$system.part" $(mirror) >"$log" 2>&1 || { tail "$log"; return 1; }
    mv "$system.part" "$system"
}

# Brings the tree of the system to the state of this one, as a repository of its own, because some
# scripts ask git for the files. What is built there stays.
copy_tree() {
    local tree=$system/root/tarn
    mkdir -p "$tree"
    git -C "$tree" init --quiet
    (cd "$tree" && git ls-files -z | xargs -0 --no-run-if-empty rm -f)
    git ls-files -z --cached --others --exclude-standard |
        while IFS= read -r -d '' file; do [ ! -e "$file" ] || printf '%s\0' "$file"; done |
        tar --create --null --files-from=- | tar --extract --directory "$tree"
    git -C "$tree" add --all
    git -C "$tree" -c user.name=try -c user.email=try commit --quiet --allow-empty --message copy
}

# run_inside COMMAND...: in the system, as root, without this machine's environment.
run_inside() {
    local passed=() variable
    for variable in TERM GTEST_FILTER TARN_MAVEN TARN_FUZZ_SECONDS http_proxy https_proxy no_proxy \
        PIP_INDEX_URL PIP_EXTRA_INDEX_URL PIP_CERT PIP_DEFAULT_TIMEOUT; do
        [ -z "${!variable:-}" ] || passed+=("$variable=${!variable}")
    done
    # shellcheck disable=SC2016  # for the inner shell
    unshare --mount --pid --fork --kill-child bash -euc '
        system=$1 runtimes=$2 applications=$3
        shift 3
        mount --make-rprivate /
        mount --bind /dev "$system/dev"
        mount -t tmpfs tmpfs "$system/dev/shm"
        mount --bind /dev/pts "$system/dev/pts"
        mount -t proc proc "$system/proc"
        mount -t sysfs sysfs "$system/sys"
        for folder in "$runtimes" "$applications"; do
            mkdir -p "$system/root/.cache/tarn/${folder##*/}"
            mount --bind "$folder" "$system/root/.cache/tarn/${folder##*/}"
        done
        exec chroot "$system" env --chdir=/root/tarn "$@"' \
        - "$system" "$TARN_RUNTIMES" "$TARN_APPLICATIONS" -i HOME=/root LC_ALL=C.UTF-8 \
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "${passed[@]}" "$@" </dev/null
}

# One tree at a time.
exec 9>"$system.lock"
flock 9
rm -rf --one-file-system "$system.part"
if [ -n "$fresh" ] || [ ! -d "$system" ]; then make_system; fi
copy_tree
take_over_network
run_inside update-ca-certificates >>"$log" 2>&1

parts=() demo=
[ $# -gt 0 ] || demo=yes
for part in "$@"; do
    if [ "$part" = demo ]; then demo=yes; else parts+=("$part"); fi
done
[ -z "$demo" ] || run_inside scripts/demo.sh
if [ $# -eq 0 ] || [ ${#parts[@]} -gt 0 ]; then
    run_inside scripts/test.sh "${parts[@]}"
fi
