#!/usr/bin/env bash
# The start-up benchmark: scripts/bench.sh [--rounds N] [TEXT...]
#
# Prints size and imports of the launcher and, for each measurement whose name holds one of the
# texts (all without any), medians, quartiles and best of interleaved rounds. Run it on a quiet machine.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh
# shellcheck source=scripts/lib/wine.sh
. scripts/lib/wine.sh

cmake --preset release >/dev/null
cmake --build --preset release --target launcher bench
scripts/fetch_runtimes.sh 11 17 21 25 >/dev/null

trap tarn_close_wine EXIT
tarn_open_wine

echo "$(date -u +%Y-%m-%d), $(wine --version) on $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -1)," \
    "$(nproc) processors, $(uname -sr)"
echo
wine build/release/bench/start_bench.exe "$(winepath -w build/release/launcher.exe)" \
    "$(winepath -w "$TARN_RUNTIMES")" "$@" {tarn_wine_lock}>&- </dev/null
