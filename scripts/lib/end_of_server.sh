#!/usr/bin/env bash
# Ends the Wine server while a launcher waits for its application: the launcher must end, too.
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/../.." && pwd)
# shellcheck source=scripts/lib/common.sh
. "$TARN_ROOT/scripts/lib/common.sh"
# shellcheck source=scripts/lib/wine.sh
. "$TARN_ROOT/scripts/lib/wine.sh"

folder=$(mktemp -d)
trap 'tarn_close_wine; rm -rf "$folder"' EXIT
tarn_open_wine

mkdir -p "$folder/jre/bin/server"
cp "$TARN_ROOT/build/release/launcher.exe" "$folder/sample.exe"
cp "$TARN_ROOT/build/release/tests/fake_jvm/full/jvm.dll" "$folder/jre/bin/server/"
printf '[Java Runtime Environment]\r\nMain Class=com.example.Main\r\nJRE Path=%s\r\n' \
    "$(winepath -w "$folder/jre" 2>/dev/null)" >"$folder/sample.ini"
printf '[Class Path]\r\nClass Path=C:\\app.jar\r\n' >>"$folder/sample.ini"
printf '[Display]\r\nSplash Screen=%s\r\n' \
    "$(winepath -w "$TARN_ROOT/tests/pictures/opaque.png" 2>/dev/null)" >>"$folder/sample.ini"
echo 'main = wait_event tarn-never-set' >"$folder/jvm.script"

FAKE_JVM_SCRIPT=$(winepath -w "$folder/jvm.script" 2>/dev/null)
FAKE_JVM_LOG=$(winepath -w "$folder" 2>/dev/null)\\jvm.log
export FAKE_JVM_SCRIPT FAKE_JVM_LOG
wine "$folder/sample.exe" {tarn_wine_lock}>&- </dev/null >/dev/null 2>&1 &
launcher=$!

# Waits for a condition, with a time limit.
wait_until() {
    for _ in $(seq 300); do
        "$@" && return 0
        sleep 0.1
    done
    return 1
}
main_runs() { grep -qa 'Main.main(' "$folder/jvm.log" 2>/dev/null; }
is_gone() { ! kill -0 "$launcher" 2>/dev/null; }

wait_until main_runs || { echo "the application did not start"; kill "$launcher"; exit 1; }
wineserver -k
if wait_until is_gone; then
    echo "the launcher ended with its server"
else
    echo "the launcher outlived its server"
    kill -KILL "$launcher"
    exit 1
fi
