#!/usr/bin/env bash
# Makes every Windows call of every kind of launch fail once:
# scripts/fail_every_call.sh [--pairs] [SCENARIO...]
#
# Writes the outcomes to tests/failing_calls/outcomes and docs/reference/failing-calls.md, and makes
# every allocation fail once. With --pairs, two calls in a row fail instead: each call and the next
# one of its thread, and each call of the ten most called functions and the next one of that
# function. The test command compares a sample with these files, so review the differences before you
# commit them.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh

suite=FailingCalls filter='Of/FailingCalls.*:OutOfMemory*'
if [ "${1:-}" = --pairs ]; then
    suite=FailingCallPairs filter='Of/FailingCallPairs.*'
    shift
fi
if [ $# -gt 0 ]; then
    filter=$(printf "Of/$suite.*/%s:" "$@")
fi
cmake --build --preset release --target launcher tests
outcomes=tests/failing_calls/outcomes
mkdir -p "$outcomes/pairs"
export TARN_EVERY_CALL="Z:${TARN_ROOT//\//\\}\\${outcomes//\//\\}"
unset DISPLAY
failed=0
for i in 0 1; do
    prefix=build/wine
    [ "$i" -eq 0 ] || prefix+=-$i
    TARN_WINE_PREFIX=$TARN_ROOT/$prefix GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$i \
        scripts/wine_run.sh build/release/tests/end_to_end_tests.exe "--gtest_filter=$filter" &
done
wait -n || failed=1
wait -n || failed=1
"$TARN_PYTHON" scripts/call_table.py
exit $failed
