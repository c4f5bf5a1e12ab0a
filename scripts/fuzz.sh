#!/usr/bin/env bash
# Fuzzes the pure parts: scripts/fuzz.sh [OPTION...] [NAME...]
#
#     --seconds N      runs each fuzzer for N seconds (default: 60)
#     --executions N   runs each fuzzer for N inputs, without a time limit
#     --jobs N         runs N fuzzers at a time (default: 1)
#     --report FILE    writes a line "passed NAME" or "failed NAME" for each fuzzer
#     --minimise       does not fuzz: moves new inputs to fuzz/corpus/, and removes inputs that add no
#                      coverage
#
# Without a NAME all of fuzz/*_fuzzer.cpp run. They start from fuzz/corpus/NAME. New inputs are in
# build/fuzz/NAME, inputs that violate a property in build/fuzz/NAME-failures; run
# build/host-clang/fuzz/NAME_fuzzer with such a file to reproduce the failure.
set -uo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT" || exit 1
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh

limit=-max_total_time=60 jobs=1 report=/dev/null minimise=
names=()
while [ $# -gt 0 ]; do
    case $1 in
        --seconds) limit=-max_total_time=$2 && shift ;;
        --executions) limit=-runs=$2 && shift ;;
        --jobs) jobs=$2 && shift ;;
        --report) report=$2 && shift ;;
        --minimise) minimise=yes ;;
        -h | --help)
            sed -n '2,/^set /{/^#/s/^# \{0,1\}//p}' "$0"
            exit 0
            ;;
        -*) echo "no option $1" >&2 && exit 2 ;;
        *) names+=("$1") ;;
    esac
    shift
done
if [ ${#names[@]} -eq 0 ]; then
    for source in fuzz/*_fuzzer.cpp; do
        source=${source##*/}
        names+=("${source%_fuzzer.cpp}")
    done
fi

# Longer inputs only slow the fuzzer down.
longest_input() {  # name
    case $1 in
        argument_area) echo 1200 ;;  # more than the area's size
        class_file) echo 512 ;;  # a module declaration
        embedded_settings | fast_start | further_sources | jar_manifest) echo 128 ;;
        executable_image) echo 160 ;;
        icon) echo 1200 ;;  # all pixels of a small picture
        image_resources) echo 512 ;;
        zip_file) echo 512 ;;  # room for an entry in each of its three places
        *) echo 64 ;;
    esac
}

statistic() {  # log, key
    sed -n "s/^stat::$2: *//p" "$1" | tail -n 1
}

fuzz_one() {  # name
    local found=build/fuzz/$1 failures=build/fuzz/$1-failures log=build/fuzz/$1.log started=$SECONDS
    rm -rf "$failures"
    mkdir -p "$found" "$failures" "fuzz/corpus/$1"
    # The fuzzed code is simple: many inputs find more than well-chosen ones, and a large quarantine
    # of freed blocks only costs time.
    ASAN_OPTIONS=quarantine_size_mb=2:malloc_context_size=4 \
        "build/host-clang/fuzz/$1_fuzzer" "$limit" -entropic=0 -shrink=0 -reduce_inputs=0 \
        -max_len="$(longest_input "$1")" -timeout=20 -print_final_stats=1 \
        -artifact_prefix="$failures/" "$found" "fuzz/corpus/$1" >"$log" 2>&1 </dev/null &
    # Ending this job ends the fuzzer, too.
    # shellcheck disable=SC2064  # that very process
    trap "kill $!; exit 1" TERM
    if wait $!; then
        printf '    %s: %s executions in %d s, %s edges, %s inputs\n' "$1" \
            "$(statistic "$log" number_of_executed_units)" $((SECONDS - started)) \
            "$(sed -n 's/.*DONE .*cov: \([0-9]*\).*/\1/p' "$log" | tail -n 1)" \
            "$(sed -n 's/.*DONE .*corp: \([0-9]*\).*/\1/p' "$log" | tail -n 1)"
        echo "passed $1" >>"$report"
        return 0
    fi
    tail -n 40 "$log"
    find "$failures" -type f | sed "s|^|    $1: FAILED with the input |"
    echo "    $1: FAILED after $((SECONDS - started)) s (whole output in $log)"
    echo "failed $1" >>"$report"
    return 1
}

minimise_one() {  # name
    local least=build/fuzz/$1-least log=build/fuzz/$1-least.log
    rm -rf "$least"
    mkdir -p "$least" "build/fuzz/$1" "fuzz/corpus/$1"
    "build/host-clang/fuzz/$1_fuzzer" -set_cover_merge=1 -use_counters=0 -max_len="$(longest_input "$1")" "$least" \
        "fuzz/corpus/$1" "build/fuzz/$1" >"$log" 2>&1 </dev/null ||
        { tail -n 20 "$log"; return 1; }
    rm -rf "fuzz/corpus/$1"
    cp -r "$least" "fuzz/corpus/$1"
    printf '    %s: %s inputs\n' "$1" "$(find "fuzz/corpus/$1" -type f | wc -l)"
}

mkdir -p build/fuzz
: >"$report"
targets=("${names[@]/%/_fuzzer}")
{ cmake --preset host-clang && cmake --build --preset host-clang -j 2 --target "${targets[@]}"; } \
    >build/fuzz/build.log 2>&1 </dev/null || { tail -n 40 build/fuzz/build.log; exit 1; }

trap 'jobs -p | xargs -r kill 2>/dev/null || true' EXIT
trap 'exit 130' INT TERM
failed=0
for name in "${names[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do
        wait -n || failed=1
    done
    if [ -n "$minimise" ]; then minimise_one "$name" & else fuzz_one "$name" & fi
done
while [ -n "$(jobs -rp)" ]; do
    wait -n || failed=1
done
exit $failed
