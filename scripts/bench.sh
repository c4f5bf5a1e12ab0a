#!/usr/bin/env bash
# The start-up benchmark: scripts/bench.sh [--write] [--rounds N] [TEXT...]
#
# Prints size and imports of the launcher and, for each measurement whose name holds one of the
# texts (all without any), medians, quartiles and best of interleaved rounds. Run it on a quiet
# machine; all of it takes a quarter of an hour. --write also puts the output into
# docs/performance.md, in the place of the last one.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh
# shellcheck source=scripts/lib/wine.sh
. scripts/lib/wine.sh

write=
if [ "${1:-}" = --write ]; then
    write=yes
    shift
fi
report=build/bench.md
document=docs/performance.md

cmake --preset release >/dev/null
cmake --build --preset release --target launcher bench >&2
scripts/fetch_runtimes.sh 11 17 21 25 >/dev/null

trap tarn_close_wine EXIT
tarn_open_wine

{
    echo "$(date -u +%Y-%m-%d), **under Wine** ($(wine --version)) on" \
        "$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -1)," \
        "$(nproc) processors, $(uname -sr); load average $(cut -d' ' -f1 /proc/loadavg) at the start."
    echo
    wine build/release/bench/start_bench.exe "$(winepath -w build/release/launcher.exe)" \
        "$(winepath -w "$TARN_RUNTIMES")" "$@" {tarn_wine_lock}>&- </dev/null
} | tr -d '\r' | tee "$report"

[ -n "$write" ] || exit 0
# Everything between the two marks is the last run's.
{
    sed '/<!-- results -->/q' "$document"
    echo
    cat "$report"
    echo
    sed -n '/<!-- end of results -->/,$p' "$document"
} >"$report.document"
mv "$report.document" "$document"
