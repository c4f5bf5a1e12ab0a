#!/usr/bin/env bash
# Runs end-to-end tests in environments that the test command does not have:
# scripts/environments.sh [PART...]
#
#     pages        other code pages
#     screens      small and very large screens
#     zones        time zones, whose offsets are not whole hours, or that have daylight saving now
#     server       a Wine server that ends under the launcher
#     planted      a Wine that prefers the libraries of the program's folder to its own
#
# Wine takes the code page from the C library's locale; Debian's package "locales" has the sources.
# shellcheck disable=SC2317  # the parts are called by their names
set -uo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
cd "$TARN_ROOT" || exit 1

locales=$TARN_ROOT/build/locales
results=$TARN_ROOT/build/test-results
failed=0
unset DISPLAY
mkdir -p "$locales" "$results"

# run_tests NAME FILTER: with the variables that the caller sets.
run_tests() {
    local log="$results/surroundings-$1.log"
    timeout --kill-after=30 900 scripts/wine_run.sh build/release/tests/end_to_end_tests.exe \
        "--gtest_filter=$2" >"$log" 2>&1 </dev/null || failed=1
    printf '%-12s %s, %s\n' "$1" "$(grep -aoE '^\[  PASSED  \] [0-9]+ tests?' "$log" | tr -s ' ')" \
        "$(grep -acE '^\[  FAILED  \] .* \(' "$log") failed"
    grep -aE '^\[  FAILED  \] .* \(' "$log" || true
}

part_pages() {
    local page locale
    for page in 932:ja_JP 1251:ru_RU 936:zh_CN 65001:hi_IN; do
        locale=${page#*:}.UTF-8
        [ -d "$locales/$locale" ] ||
            localedef -i "${page#*:}" -f UTF-8 "$locales/$locale" || { failed=1; continue; }
        TARN_WINE_PREFIX=$TARN_ROOT/build/wine-pages TARN_LOCALE=$locale LOCPATH=$locales \
            run_tests "${page%:*}" \
            'CodePage*:MainClass*:*UserName*:SettingsFiles*:PerUserSettings*:OutputFile*:HandOff*'
    done
}

part_screens() {
    local size
    for size in 640x480 7680x4320; do
        TARN_SCREEN=$size run_tests "$size" \
            'SplashWindow*:SplashPicture*:SplashLifetime*:JreNotFoundDialog*:JavaException*'
    done
}

# Wine takes the time zone of a whole session from the variable TZ. The last one has summer time all
# year, of one hour: GetTimeZoneInformation of Wine, with which the test compares, knows no other.
part_zones() {
    local zone
    for zone in India=IST-5:30 Nepal=NPT-5:45 Newfoundland=NST3:30 Chatham=CHA-12:45 \
        LineIslands=LIN-14 BakerIsland=BAK12 Summer=EST5EDT,0/0,J365/25; do
        TZ=${zone#*=} run_tests "${zone%%=*}" 'LaunchClock.IsThatOfTheTimeZone'
    done
}

# The launcher must not outlive its server.
part_server() {
    timeout --kill-after=30 300 scripts/lib/end_of_server.sh || failed=1
}

# By default Wine takes most system libraries from itself, also where a program finds one in its own
# folder, so that it hides a wrong search. Not combase, imm32, msimg32, ole32, propsys, uxtheme, version
# and windowscodecs, which Wine's own libraries load from the program's folder, unlike those of Windows.
part_planted() {
    local names=bcrypt,clbcatq,comctl32,comdlg32,cryptbase,cryptsp,dbgcore,dbghelp,dwmapi,gdiplus
    names+=,imagehlp,iphlpapi,mpr,netapi32,ntmarta,oleacc,profapi,psapi,secur32,setupapi,shell32
    names+=,shfolder,sspicli,urlmon,userenv,usp10,wininet,winmm,winspool.drv,wintrust,ws2_32,wsock32
    names+=,wtsapi32
    TARN_DLL_OVERRIDES=$names=n,b run_tests planted 'PlantedLibraries*'
}

parts=(pages screens zones server planted)
[ $# -eq 0 ] || parts=("$@")
for part in "${parts[@]}"; do
    declare -F "part_$part" >/dev/null || { echo "no part '$part'" >&2; exit 2; }
    "part_$part"
done
exit $failed
