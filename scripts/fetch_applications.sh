#!/usr/bin/env bash
# Puts real Java applications into the cache: scripts/fetch_applications.sh [NAME...]
#
# The names are those of scripts/applications.lock; without one, all are fetched from Maven Central
# (TARN_MAVEN names a mirror). Prints the folder of each on standard output; progress goes to
# standard error. What is there already costs nothing and needs no network.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=scripts/lib/common.sh
. "$TARN_ROOT/scripts/lib/common.sh"

lock_file=$TARN_ROOT/scripts/applications.lock
repository=${TARN_MAVEN:-https://repo1.maven.org/maven2}

unfinished=
trap '[ -z "$unfinished" ] || rm -f "$unfinished"' EXIT

is_right() {  # file, sha256
    [ -f "$1" ] && echo "$2  $1" | sha256sum --check --status
}

fetch_jar() {  # path in the repository, sha256, file
    is_right "$3" "$2" && return
    echo "fetching ${1##*/}" >&2
    # Beside the file, so that the last step is one rename: it is whole or absent.
    unfinished=$3.part-$$
    curl --fail --silent --show-error --location --retry 5 --retry-all-errors --retry-delay 2 \
        --connect-timeout 20 --max-time 600 --output "$unfinished" "$repository/$1"
    is_right "$unfinished" "$2" || {
        echo "${1##*/} from $repository has not the checksum of scripts/applications.lock" >&2
        return 1
    }
    mv "$unfinished" "$3"
    unfinished=
}

if [ $# -eq 0 ]; then
    # shellcheck disable=SC2046  # one word a name
    set -- $(sed '/^#/d;s/ .*//' "$lock_file" | sort -u)
fi
mkdir -p "$TARN_APPLICATIONS"
for name in "$@"; do
    grep -q "^$name " "$lock_file" || {
        echo "no application '$name' in scripts/applications.lock" >&2
        exit 2
    }
    # One tree fetches while another one that asks for the same application waits.
    exec 9>"$TARN_APPLICATIONS/.lock-$name"
    flock 9
    mkdir -p "$TARN_APPLICATIONS/$name"
    while read -r _ path sum; do
        fetch_jar "$path" "$sum" "$TARN_APPLICATIONS/$name/${path##*/}"
    done < <(grep "^$name " "$lock_file")
    exec 9>&-
    echo "$TARN_APPLICATIONS/$name"
done
