#!/usr/bin/env bash
# Finds small leaks: scripts/soak.sh [--launches N] [--hand-offs N]
#
# By default 2,000 consecutive launches, 3,600 second launches to one first instance, and 50
# applications at the same time. The test command does the same with fewer launches. Takes about 15
# minutes on an idle machine. Prints processes, windows, handles and memory before and after, and for
# the first instance its handles, threads, memory and the session's atoms every 400 launches, with
# the times of these launches.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"

export TARN_SOAK_LAUNCHES=2000 TARN_SOAK_HAND_OFFS=3600
while [ $# -gt 0 ]; do
    case $1 in
        --launches) TARN_SOAK_LAUNCHES=$2 && shift ;;
        --hand-offs) TARN_SOAK_HAND_OFFS=$2 && shift ;;
        *)
            sed -n '2,/^set /{/^#/s/^# \{0,1\}//p}' "$0"
            exit 2
            ;;
    esac
    shift
done

scripts/setup.sh test
cmake --preset release >/dev/null
cmake --build --preset release -j 2 --target launcher tests >/dev/null
scripts/wine_run.sh build/release/tests/end_to_end_tests.exe --gtest_filter='*Soak.*'
