# Sourced by test.sh: what each part of the tests runs. Each function part_NAME counts into
# test.sh's part_passed and part_failed, and goes on after a failure.
# shellcheck shell=bash
# shellcheck disable=SC2154  # variables of test.sh and wine.sh

count_pass() { part_passed=$((part_passed + 1)); }
count_failure() {  # what failed
    part_failed=$((part_failed + 1))
    failures+="    $1"$'\n'
}

# One check that counts as one test; its output is shown when it fails.
check() {  # name, seconds, command...
    local name=$1 seconds=$2
    shift 2
    local log="$results/${name// /-}.log"
    local started=$SECONDS
    if timeout --kill-after=20 "$seconds" "$@" >"$log" 2>&1 </dev/null; then
        echo "    $name: passed ($((SECONDS - started)) s)"
        count_pass
    else
        local code=$?
        tail -n 60 "$log"
        [ $code -ne 124 ] || echo "    $name: still running after $seconds s"
        echo "    $name: FAILED (whole output in ${log#"$TARN_ROOT"/})"
        count_failure "$name"
    fi
}

# Configures and builds. Silent when all is well; a build that fails counts as one failed test.
build() {  # preset, target...
    local preset=$1
    shift
    local log="$results/build-$preset.log"
    echo "    building $* ($preset)"
    if { timeout 300 cmake --preset "$preset" &&
        timeout 1800 cmake --build --preset "$preset" -j 2 --target "$@"; } \
        >"$log" 2>&1 </dev/null; then
        return 0
    fi
    grep -vE '^\[[0-9]+/[0-9]+\] ' "$log" | tail -n 60
    echo "    build of $preset: FAILED (whole output in ${log#"$TARN_ROOT"/})"
    count_failure "build of $preset"
    return 1
}

# Runs a GoogleTest program, in several processes when asked, and counts its tests from its own
# reports.
run_googletest() {  # name, seconds, processes, command...
    local name=$1 seconds=$2 shards=$3
    shift 3
    local shard started=$SECONDS
    local pids=() read=()
    for ((shard = 0; shard < shards; ++shard)); do
        # Relative, for it is read by Windows programs too.
        local report="build/test-results/$name-$shard.xml"
        rm -f "$report"
        GTEST_TOTAL_SHARDS=$shards GTEST_SHARD_INDEX=$shard \
            timeout --kill-after=20 "$seconds" "$@" "--gtest_output=xml:$report" \
            >"$results/$name-$shard.log" 2>&1 </dev/null {tarn_wine_lock}>&- &
        pids+=($!)
        read+=("$report")
    done
    show_progress "$name" "${pids[@]}" &
    local progress=$!
    local codes=() code
    for shard in "${pids[@]}"; do
        code=0
        wait "$shard" || code=$?
        codes+=("$code")
        if [ "$code" -ge 124 ]; then
            echo "    $name: ended by signal or time limit after $((SECONDS - started)) s"
            tail -n 5 "$results/$name"-*.log
        fi
    done
    wait $progress
    # What a program that was stopped had started goes on otherwise.
    [[ " ${codes[*]} " != *" 124 "* ]] || restart_wine
    grep -hE -B 40 '^\[  FAILED  \] .* \(' "$results/$name"-*.log |
        grep -vE '^\[ +OK |^\[-----|^\[ RUN|^$' || true

    local outcome what
    while read -r outcome what; do
        case $outcome in
            passed) part_passed=$((part_passed + what)) ;;
            failed) count_failure "$name: $what" ;;
        esac
    done < <("$TARN_PYTHON" scripts/lib/read_reports.py "${codes[*]}" "${read[@]}")
    echo "    $name: $part_passed passed, $part_failed failed so far ($((SECONDS - started)) s)"
}

# A line every half minute while any of the processes runs.
show_progress() {  # name, process...
    local name=$1 round=0
    shift
    while kill -0 "$@" 2>/dev/null; do
        sleep 0.2
        round=$((round + 1))
        [ $((round % 150)) -ne 0 ] || printf '    %s: %d tests done\n' "$name" \
            "$(cat "$results/$name"-*.log | grep -cE '^\[ +(OK|FAILED) +\] .*\(')"
    done
}

restart_wine() {
    [ "${tarn_owns_wine:-}" = yes ] || return 0
    tarn_close_wine
    unset DISPLAY
    tarn_open_wine
}

host_tests() {  # preset
    build "$1" unit_tests || return 0
    run_googletest "$1" 600 1 "build/$1/tests/unit_tests"
}
part_host() { host_tests host; }
part_host-clang() { host_tests host-clang; }

part_windows() {
    build release launcher unit_tests || return 0
    tarn_open_wine || { count_failure "the Wine session"; return 0; }
    run_googletest windows 600 1 wine build/release/tests/unit_tests.exe
}

# Every test program of tests/ but the unit tests: build/release/tests/*_tests.exe.
part_endtoend() {
    build release launcher tests || return 0
    scripts/fetch_runtimes.sh >/dev/null || { count_failure "fetching the runtimes"; return 0; }
    tarn_open_wine || { count_failure "the Wine session"; return 0; }
    local program found=0 runtimes
    runtimes=$(winepath -w "$TARN_RUNTIMES" 2>/dev/null)
    for program in build/release/tests/*_tests.exe; do
        case $program in
            */unit_tests.exe | *'*'*) continue ;;
        esac
        found=1
        # Mostly waiting: two at a time take half as long.
        run_googletest "$(basename "$program" .exe)" 2400 2 \
            env TARN_RUNTIMES="$runtimes" wine "$program"
    done
    [ $found -eq 1 ] || count_failure "no end-to-end test program was built"
}

part_executable() {
    build release launcher || return 0
    scripts/fetch_runtimes.sh 21 >/dev/null || { count_failure "fetching the runtime"; return 0; }
    local outcome name
    TARN_RUNTIMES="$TARN_RUNTIMES" timeout 900 \
        "$TARN_PYTHON" tests/executable/run.py "$results/executable.txt" </dev/null ||
        [ -f "$results/executable.txt" ] || count_failure "tests/executable"
    while read -r outcome name; do
        case $outcome in
            passed) count_pass ;;
            *) count_failure "executable: $name" ;;
        esac
    done <"$results/executable.txt"
}

part_format() {
    check clang-format 120 bash -c \
        'git ls-files "*.cpp" "*.h" | xargs clang-format-14 --dry-run --Werror'
}

part_lint() {
    check includes 60 "$TARN_PYTHON" scripts/check_includes.py
    check shellcheck 120 bash -c 'git ls-files "*.sh" .ci/run | xargs shellcheck -x'
    check cppcheck 600 scripts/run_cppcheck.sh
    # Generated headers and resources have to exist before clang-tidy reads the sources.
    build host unit_tests && build release launcher &&
        check clang-tidy 1500 "$TARN_PYTHON" scripts/run_tidy.py
}
