#!/usr/bin/env bash
# Runs the tests: scripts/test.sh [PART...]
#
#     host         unit tests of the pure sources, g++ with ASan and UBSan
#     host-clang   the same with clang
#     windows      all unit tests as a Windows program under Wine
#     windows-clang  the launcher and its unit tests that call Windows, built by clang
#     executable   launcher.exe as a file: sections, imports, resources, reproducibility
#     tools        the companion program, on this machine and under Wine
#     plugins      the Maven and Gradle plugins in real builds, and what they build under Wine
#     endtoend     launcher.exe with scripted and real Java runtimes under Wine
#     fuzz         each fuzzer for ten seconds, or for TARN_FUZZ_SECONDS
#     format       clang-format
#     lint         clang-tidy on the changed sources (run_tidy.py --help), or on all sources with
#                  TARN_TIDY=all; cppcheck, shellcheck, the checks of our own rules
#
# Without a PART all of them run, also after a failure. The last line is the total:
# "N passed, N failed". GTEST_FILTER in the environment selects tests of the GoogleTest programs.
set -uo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT" || exit 1
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh
# shellcheck source=scripts/lib/test_parts.sh
. scripts/lib/test_parts.sh

results=$TARN_ROOT/build/test-results
passed=0 failed=0 summary='' failures=''

case ${1:-} in
    -h | --help)
        sed -n '2,/^set /{/^#/s/^# \{0,1\}//p}' "$0"
        exit 0
        ;;
esac

parts=(host host-clang windows windows-clang executable tools plugins endtoend fuzz format lint)
[ $# -eq 0 ] || parts=("$@")
for part in "${parts[@]}"; do
    declare -F "part_$part" >/dev/null || {
        echo "no part '$part'; there are: host host-clang windows windows-clang executable tools plugins endtoend fuzz format lint" >&2
        exit 2
    }
done

scripts/setup.sh test || exit 1
unset DISPLAY  # never use a real screen
export LC_ALL=C.UTF-8
# Background jobs do not receive Ctrl-C.
trap 'jobs -p | xargs -r kill 2>/dev/null || true' EXIT
trap 'exit 130' INT TERM
mkdir -p "$results"

for part in "${parts[@]}"; do
    part_passed=0 part_failed=0
    started=$SECONDS
    tarn_say "$part"
    "part_$part"
    passed=$((passed + part_passed)) failed=$((failed + part_failed))
    summary+="$(printf '%-13s %5d passed %4d failed %5d s' \
        "$part" "$part_passed" "$part_failed" $((SECONDS - started)))"$'\n'
done

printf '\n%s' "$summary"
[ -z "$failures" ] || printf '\nfailed:\n%s' "$failures"
printf '\n%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
