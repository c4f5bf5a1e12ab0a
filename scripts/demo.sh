#!/usr/bin/env bash
# Demonstrates the launcher: scripts/demo.sh [--show]
#
# Builds launcher.exe and the companion program, compiles the sample application, wraps it with
# "tarn wrap" and a Java runtime for Windows in build/demo, and starts it under Wine on a virtual
# screen, with a document and a non-ASCII argument; then a second time with another document, which
# the running instance opens. Prints the application's output, the exit codes of both launches and the
# paths of two screenshots, with the splash and with the window. With --show the window opens on your
# screen, and the script waits until you close it.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT"
# shellcheck source=scripts/lib/common.sh
. scripts/lib/common.sh
# shellcheck source=scripts/lib/wine.sh
. scripts/lib/wine.sh

show=no
case ${1:-} in
    '') unset DISPLAY ;;
    --show)
        show=yes
        [ -n "${DISPLAY:-}" ] || { echo "--show needs a display" >&2; exit 2; }
        ;;
    *) echo "usage: scripts/demo.sh [--show]" >&2; exit 2 ;;
esac

demo=$TARN_ROOT/build/demo
shot=$demo/screenshot.png
splash_shot=$demo/screenshot_splash.png
argument='--title=Ελλάδα Grüße Привет'

quietly() {  # command...
    mkdir -p build
    timeout 1800 "$@" >build/demo.log 2>&1 </dev/null || {
        tail -n 40 build/demo.log
        echo "failed: $*" >&2
        exit 1
    }
}

lay_out() {  # folder of the runtime
    rm -rf "$demo"
    examples/build.sh build/examples/notes.jar
    build/native/tarn wrap build/examples/notes.jar --launcher build/release/launcher.exe \
        --out "$demo" --name sample --version 1.0 --splash examples/splash.png --runtime "$1" \
        --single-instance --ends-with main --vm-parameters '-Xmx25:64:512P -Dfile.encoding=UTF-8'
    cp examples/documents/welcome.txt "$demo/Welcome äöü.txt"
    cp examples/documents/second.txt "$demo/Second launch.txt"
}

# Starts the sample with cmd.exe, because Wine returns only eight bits of an exit code.
run_sample() {  # name of this launch, argument...
    local launch=$1
    shift
    cat >"$demo/run-$launch.cmd" <<CMD
@echo off
sample.exe %*
>exit_code-$launch.txt echo %errorlevel%
CMD
    (cd "$demo" && timeout 300 wine cmd /c "run-$launch.cmd" "$@" {tarn_wine_lock}>&- </dev/null \
        >"output-$launch.txt" 2>"errors-$launch.txt")
}

run_first() { run_sample first "$(winepath -w "$demo/Welcome äöü.txt")" "$argument"; }
run_second() { run_sample second "$(winepath -w "$demo/Second launch.txt")"; }

exit_code_of() {  # name of a launch
    local code
    code=$(tr -d '\r\n' <"$demo/exit_code-$1.txt" 2>/dev/null || true)
    echo "${code:-unknown}"
}

count_windows() { xwininfo -root -tree | grep -c 'Tarn Notes": ' || true; }

# Stores a screenshot when the splash is visible in the centre of the screen.
catch_splash() {
    [ ! -s "$splash_shot" ] || return 0
    local moment=$demo/moment.png different
    import -window root "$moment"
    different=$(convert "$moment" -gravity center -crop 480x270+0+0 +repage png:- |
        compare -metric AE - examples/splash.png null: 2>&1 || true)
    [ "$different" != 0 ] || mv "$moment" "$splash_shot"
    rm -f "$moment"
}

wait_for_window() {  # the sample's process
    for _ in $(seq 1200); do
        catch_splash
        [ ! -e "$demo/close.ready" ] || return 0
        kill -0 "$1" 2>/dev/null || break
        sleep 0.1
    done
    echo "the sample's window did not appear" >&2
    return 1
}

tarn_say "installing missing packages"
scripts/setup.sh demo
tarn_say "building launcher.exe and tarn"
quietly cmake --preset release
quietly cmake --build --preset release -j 2 --target launcher
quietly cmake --preset native
quietly cmake --build --preset native -j 2
tarn_say "fetching a Windows Java runtime"
runtime=$("$TARN_PYTHON" scripts/fetch_runtimes.py 21)
tarn_say "compiling and wrapping the sample application"
lay_out "$runtime"

tarn_say "starting Wine"
trap tarn_close_wine EXIT
tarn_open_wine

tarn_say "starting sample.exe"
if [ $show = yes ]; then
    # Your screen has a window manager, unlike that of the tests.
    key='HKCU\Software\Wine\AppDefaults\sample.exe\X11 Driver'
    tarn_quiet_wine reg add "$key" /v Managed /d Y /f
    tarn_say "close its window to continue"
    run_first || true
    tarn_quiet_wine reg delete "$key" /f || true
else
    SAMPLE_CLOSE_AFTER_SHOT=$(winepath -w "$demo/close")
    export SAMPLE_CLOSE_AFTER_SHOT
    run_first &
    sample=$!
    if wait_for_window $sample; then
        tarn_say "starting sample.exe a second time"
        run_second || true
        windows=$(count_windows)
        import -window root "$shot"
        touch "$demo/close"
        tarn_say "took a screenshot, closing the window"
    fi
    wait $sample || true
fi

echo
echo "The application printed:"
sed 's/^/    /' "$demo/output-first.txt"
code=$(exit_code_of first)
echo "Exit code:  $code"
if [ $show = no ]; then
    second=$(exit_code_of second)
    echo "Second launch: exit code $second, the first instance has opened its document;" \
        "windows: ${windows:-unknown}"
    [ "$second" = 0 ] && [ "${windows:-}" = 1 ] || code=failed
    [ -s "$shot" ] || { echo "no screenshot was taken" >&2; exit 1; }
    echo "Screenshot: $shot"
    [ ! -s "$splash_shot" ] || echo "The splash: $splash_shot"
fi
[ "$code" = 0 ]
