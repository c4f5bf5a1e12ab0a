# Sourced by the scripts that run Windows programs on Linux; wants TARN_ROOT.
# shellcheck shell=bash
#
#     tarn_open_wine     a virtual screen if there is none, the prefix, its server and its desktop
#     wine PROGRAM ...
#     tarn_close_wine    ends all of them (from an EXIT trap)
#
# One Wine prefix for each build tree (TARN_WINE_PREFIX, by default build/wine), used by one
# script at a time: a second one waits for the first. A script that was started inside such a
# session finds TARN_WINE_SESSION set and joins it.

: "${TARN_WINE_PREFIX:=$TARN_ROOT/build/wine}"

export WINEPREFIX="$TARN_WINE_PREFIX"
export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# Wine takes the system's language, code page and argument encoding from here: the same for
# everybody, or texts and sizes would differ from machine to machine. Somebody who wants them to
# differ says TARN_LOCALE.
export LC_ALL=${TARN_LOCALE:-C.UTF-8}

# Every program below is started with this closed: only the script itself holds the lock.
exec {tarn_wine_lock}</dev/null

tarn_start_screen() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${TARN_SCREEN:-1280x1024}x24" -nolisten tcp \
        3>"$number_file" {tarn_wine_lock}>&- </dev/null >/dev/null 2>&1 &
    TARN_XVFB_PID=$!
    # A bounded wait for a condition, not for a time.
    for _ in $(seq 400); do
        [ -s "$number_file" ] && break
        kill -0 "$TARN_XVFB_PID" 2>/dev/null || break
        sleep 0.05
    done
    DISPLAY=":$(cat "$number_file")"
    export DISPLAY
    rm -f "$number_file"
    [ "$DISPLAY" != ":" ] || { echo "Xvfb did not start" >&2; return 1; }
}

tarn_stop_screen() {
    [ -n "${TARN_XVFB_PID:-}" ] || return 0
    kill "$TARN_XVFB_PID" 2>/dev/null || true
    wait "$TARN_XVFB_PID" 2>/dev/null || true
    TARN_XVFB_PID=
}

# A Wine program of ours, silent. What it leaves running inherits neither our pipes, whose reader
# would wait for it, nor the lock.
tarn_quiet_wine() { wine "$@" {tarn_wine_lock}>&- </dev/null >/dev/null 2>&1; }

tarn_make_prefix() {
    echo "making the Wine prefix $WINEPREFIX (once, half a minute)" >&2
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    tarn_quiet_wine wineboot --init
    # The font of the signs on a caption's buttons, which Debian's Wine has but does not find.
    ln -sf /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    tarn_quiet_wine winecfg -v win10
    # Without a window manager Wine waits two seconds for an answer to every captioned window
    # that goes away, unless it draws the frames itself.
    tarn_quiet_wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    # A crash ends the program at once, with its own exit code.
    tarn_quiet_wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' \
        /v Debugger /d false /f
    tarn_stop_wine
    touch "$WINEPREFIX/tarn-ready"
}

tarn_stop_wine() {
    wineserver -k >/dev/null 2>&1 || true
    timeout 30 wineserver -w >/dev/null 2>&1 || true
}

tarn_open_wine() {
    [ "${TARN_WINE_SESSION:-}" != "$WINEPREFIX" ] || return 0
    mkdir -p "$(dirname "$WINEPREFIX")"
    exec {tarn_wine_lock}>"$WINEPREFIX.lock"
    flock -n "$tarn_wine_lock" || {
        echo "waiting for another script that uses $WINEPREFIX" >&2
        flock -w 3600 "$tarn_wine_lock"
    }
    [ -n "${DISPLAY:-}" ] || tarn_start_screen
    # What a killed script may have left belongs to a screen that is gone.
    tarn_stop_wine
    [ -f "$WINEPREFIX/tarn-ready" ] || tarn_make_prefix
    wineserver -p {tarn_wine_lock}>&- >/dev/null 2>&1 </dev/null || true
    # The first program that asks for the desktop starts Wine's explorer, which inherits that
    # program's output: make it one of ours.
    tarn_quiet_wine rundll32.exe user32.dll,GetDesktopWindow || true
    export TARN_WINE_SESSION="$WINEPREFIX"
    tarn_owns_wine=yes
}

tarn_close_wine() {
    if [ "${tarn_owns_wine:-}" = yes ]; then
        tarn_owns_wine=
        tarn_stop_wine
        unset TARN_WINE_SESSION
    fi
    tarn_stop_screen
}
