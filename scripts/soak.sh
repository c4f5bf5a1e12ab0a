#!/usr/bin/env bash
# Starts the launcher until it would have to show what it leaves behind:
# scripts/soak.sh [--launches N] [--hand-offs N]
#
# 2,000 launches in a row and 3,600 second launches to one first instance, unless said otherwise;
# 50 different applications side by side. The regular tests do the same in less number. Takes about
# a quarter of an hour on a quiet machine, and prints what was counted before and after.
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
scripts/wine_run.sh build/release/tests/end_to_end_tests.exe --gtest_filter='*SoakTest.*'
