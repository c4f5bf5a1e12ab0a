# Sourced by test.sh: what each part of the tests runs. Each function part_NAME counts into
# test.sh's part_passed and part_failed, and goes on after a failure.
# shellcheck shell=bash
# shellcheck disable=SC2154  # variables of test.sh

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
# reports. What runs under Wine gets a Wine prefix and a screen of its own in each process.
run_googletest() {  # name, seconds, processes, command...
    local name=$1 seconds=$2 processes=$3
    shift 3
    local i prefix started=$SECONDS
    local running=() reports=()
    for ((i = 0; i < processes; ++i)); do
        prefix=$(wine_prefix "$i")
        # Relative, for it is read by Windows programs too.
        reports+=("build/test-results/$name-$i.xml")
        rm -f "${reports[i]}"
        TARN_WINE_PREFIX=$prefix GTEST_TOTAL_SHARDS=$processes GTEST_SHARD_INDEX=$i \
            timeout --kill-after=30 "$seconds" "$@" "--gtest_output=xml:${reports[i]}" \
            >"$results/$name-$i.log" 2>&1 </dev/null &
        running+=($!)
    done
    show_progress "$name" "${running[@]}" &
    local progress=$!
    local codes=() code
    for i in "${!running[@]}"; do
        code=0
        wait "${running[i]}" || code=$?
        codes+=("$code")
        [ "$code" -lt 124 ] || {
            echo "    $name: ended by a signal or the time limit after $((SECONDS - started)) s"
            tail -n 5 "$results/$name-$i.log"
        }
    done
    wait $progress
    grep -hE -B 40 '^\[  FAILED  \] .* \(' "$results/$name"-*.log |
        grep -vE '^\[ +OK |^\[-----|^\[ RUN|^$' || true

    local outcome what
    while read -r outcome what; do
        case $outcome in
            passed) part_passed=$((part_passed + what)) ;;
            failed) count_failure "$name: $what" ;;
        esac
    done < <("$TARN_PYTHON" scripts/lib/read_reports.py "${codes[*]}" "${reports[@]}")
    echo "    $name: $part_passed passed, $part_failed failed ($((SECONDS - started)) s)"
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

host_tests() {  # preset
    build "$1" unit_tests || return 0
    run_googletest "$1" 600 1 "build/$1/tests/unit_tests"
}
part_host() { host_tests host; }
part_host-clang() { host_tests host-clang; }

part_windows() {
    build release launcher unit_tests || return 0
    run_googletest windows 900 1 scripts/wine_run.sh build/release/tests/unit_tests.exe
}

# A second compiler's opinion on the same sources, warnings included. The unit tests of the pure
# sources are not compiled a fourth time: the part host-clang runs them with the same compiler.
part_windows-clang() {
    build release-clang launcher unit_tests || return 0
    run_googletest windows-clang 900 1 \
        scripts/wine_run.sh build/release-clang/tests/unit_tests.exe
}

# Every test program of tests/ but the unit tests: build/release/tests/*_tests.exe.
part_endtoend() {
    build release launcher tests || return 0
    "$TARN_PYTHON" scripts/fetch_runtimes.py >/dev/null || { count_failure "fetching the runtimes"; return 0; }
    "$TARN_PYTHON" scripts/fetch_applications.py >/dev/null || { count_failure "fetching the applications"; return 0; }
    local program found=0
    local runtimes="Z:${TARN_RUNTIMES//\//\\}"
    for program in build/release/tests/*_tests.exe; do
        case $program in
            */unit_tests.exe | *'*'*) continue ;;
        esac
        found=1
        # Mostly waiting: three at a time keep two cores busy.
        run_googletest "$(basename "$program" .exe)" 2400 3 \
            env TARN_RUNTIMES="$runtimes" scripts/wine_run.sh "$program"
    done
    [ $found -eq 1 ] || count_failure "no end-to-end test program was built"
}

part_executable() {
    build release launcher tarn || return 0
    "$TARN_PYTHON" scripts/fetch_runtimes.py 21 >/dev/null || { count_failure "fetching the runtime"; return 0; }
    python_tests executable 1 env TARN_RUNTIMES="$TARN_RUNTIMES"
}

# The companion program as users have it: as built for this machine, and under Wine.
part_tools() {
    build native tarn || return 0
    build release launcher tarn java_fixtures planted_library load_libraries || return 0
    "$TARN_PYTHON" scripts/fetch_runtimes.py 11 17 21 25 >/dev/null || { count_failure "fetching the runtimes"; return 0; }
    "$TARN_PYTHON" scripts/fetch_applications.py javafx17 javafx21 swt >/dev/null ||
        { count_failure "fetching the libraries"; return 0; }
    python_tests tools 2 env TARN_RUNTIMES="$TARN_RUNTIMES" scripts/wine_session.sh
}

# The Maven and Gradle plugins: their unit tests, and real builds whose results are started under Wine.
part_plugins() {
    local report
    "$TARN_PYTHON" scripts/fetch_runtimes.py 17 21 25 >/dev/null || { count_failure "fetching the runtimes"; return 0; }
    "$TARN_PYTHON" scripts/lib/assemble_gradle.py >/dev/null || { count_failure "assembling Gradle"; return 0; }
    rm -rf build/plugins/*/surefire-reports
    check "build of the plugins" 900 scripts/build_plugins.sh
    for report in build/plugins/*/surefire-reports/TEST-*.xml; do
        [ -f "$report" ] || { count_failure "plugins: no unit test ran"; return 0; }
        count_unit_tests "$report"
    done
    [ -d dist/repository ] || return 0
    python_tests plugins 1 env TARN_RUNTIMES="$TARN_RUNTIMES" scripts/wine_session.sh
}

# Counts the tests in a report of JUnit.
count_unit_tests() {  # report
    local outcome test
    while read -r outcome test; do
        case $outcome in
            passed) count_pass ;;
            *) count_failure "plugins: $test" ;;
        esac
    done < <("$TARN_PYTHON" - "$1" <<'PYTHON'
import sys
import xml.etree.ElementTree as ElementTree

for case in ElementTree.parse(sys.argv[1]).getroot().iter("testcase"):
    bad = any(case.find(kind) is not None for kind in ("failure", "error", "skipped"))
    print("failed" if bad else "passed", f"{case.get('classname')}.{case.get('name')}")
PYTHON
)
}

# Each fuzzer counts as one test.
part_fuzz() {
    build host-clang fuzzers || return 0
    rm -f "$results/fuzz.txt"
    scripts/fuzz.sh --seconds "${TARN_FUZZ_SECONDS:-10}" --jobs 2 --report "$results/fuzz.txt"
    [ ! -f "$results/fuzz.txt" ] || count_report fuzz fuzz
    [ $((part_passed + part_failed)) -eq "$(find fuzz -name '*_fuzzer.cpp' | wc -l)" ] ||
        count_failure "fuzz: not every fuzzer came to its end"
}

# The Wine prefix of one of the processes that run tests at the same time.
wine_prefix() {  # number, from 0
    if [ "$1" -eq 0 ]; then echo "$TARN_ROOT/build/wine"; else echo "$TARN_ROOT/build/wine-$1"; fi
}

# Counts what a report says of each test: lines of "passed NAME" or "failed NAME".
count_report() {  # name of the part, name of the report
    local outcome test
    while read -r outcome test; do
        case $outcome in
            passed) count_pass ;;
            *) count_failure "$1: $test" ;;
        esac
    done <"$results/$2.txt"
}

# Runs the tests of tests/NAME, each of which counts, in several processes when asked. Each process
# gets a Wine prefix and a screen of its own.
python_tests() {  # name, processes, command in front...
    local name=$1 processes=$2
    shift 2
    local i running=() claims
    claims=$(mktemp -d)
    for ((i = 0; i < processes; ++i)); do
        rm -f "$results/$name-$i.txt"
        TARN_WINE_PREFIX=$(wine_prefix "$i") timeout 1500 "$@" "$TARN_PYTHON" \
            scripts/lib/run_python_tests.py "tests/$name" "$results/$name-$i.txt" "$claims" </dev/null &
        running+=($!)
    done
    wait "${running[@]}" || true
    rm -rf "$claims"
    for ((i = 0; i < processes; ++i)); do
        if [ -f "$results/$name-$i.txt" ]; then
            count_report "$name" "$name-$i"
        else
            count_failure "tests/$name"
        fi
    done
}

part_format() {
    local formatter
    formatter=$(scripts/fetch_clang_format.sh) || { count_failure "fetching clang-format"; return 0; }
    check clang-format 120 bash -c \
        "git ls-files '*.cpp' '*.h' ':!third_party' | xargs '$formatter' --dry-run --Werror"
}

part_lint() {
    local tidied=(--changed)
    [ "${TARN_TIDY:-changed}" != all ] || tidied=()
    check includes 60 "$TARN_PYTHON" scripts/check_includes.py
    check "source rules" 60 "$TARN_PYTHON" scripts/check_sources.py
    check versions 60 "$TARN_PYTHON" scripts/set_version.py --check
    check "table of failed calls" 60 "$TARN_PYTHON" scripts/call_table.py --check
    check shellcheck 120 bash -c 'git ls-files "*.sh" .ci/run | xargs shellcheck -x'
    check cppcheck 600 scripts/run_cppcheck.sh
    # Generated headers and resources have to exist before clang-tidy reads the sources.
    build host unit_tests && build release launcher &&
        check clang-tidy 1500 "$TARN_PYTHON" scripts/run_tidy.py "${tidied[@]}"
}
