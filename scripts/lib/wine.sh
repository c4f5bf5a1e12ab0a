# Sourced by the scripts that run Windows programs on Linux; requires TARN_ROOT.
# shellcheck shell=bash
#
#     tarn_open_wine     starts a virtual screen if there is none, the prefix, its server and desktop
#     wine PROGRAM ...
#     tarn_close_wine    ends all of them (in an EXIT trap)
#
# Each build tree has a Wine prefix (TARN_WINE_PREFIX, by default build/wine), which one script at a
# time uses: a second one waits for the first. A script that is started inside a session
# (TARN_WINE_SESSION is set) joins it.

: "${TARN_WINE_PREFIX:=$TARN_ROOT/build/wine}"

export WINEPREFIX="$TARN_WINE_PREFIX"
export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d${TARN_DLL_OVERRIDES:+;$TARN_DLL_OVERRIDES}"
# Determines Wine's language, code page and argument encoding. They are the same on every machine, so
# that texts and sizes are; TARN_LOCALE overrides them.
export LC_ALL=${TARN_LOCALE:-C.UTF-8}

# Programs below are started with this descriptor closed, so that only the script holds the lock.
exec {tarn_wine_lock}</dev/null

tarn_start_screen() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${TARN_SCREEN:-1280x1024}x24" -nolisten tcp \
        3>"$number_file" {tarn_wine_lock}>&- </dev/null >/dev/null 2>&1 &
    TARN_XVFB_PID=$!
    # Waits for the condition, with a time limit.
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

# Runs a Wine program silently. Processes that it leaves behind inherit neither our pipes, whose
# reader would wait for them, nor the lock.
tarn_quiet_wine() { wine "$@" {tarn_wine_lock}>&- </dev/null >/dev/null 2>&1; }

tarn_make_prefix() {
    echo "creating the Wine prefix $WINEPREFIX (once, 30 seconds)" >&2
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    tarn_quiet_wine wineboot --init
    # The font of the caption buttons, which Debian's Wine contains but does not find.
    ln -sf /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    tarn_quiet_wine winecfg -v win10
    # Without a window manager Wine waits two seconds for an answer when a window with a caption is
    # destroyed, unless it draws the frames itself.
    tarn_quiet_wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    # A crash ends the program immediately, with its own exit code.
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
    # Processes that a killed script has left behind belong to a screen that no longer exists.
    tarn_stop_wine
    [ -f "$WINEPREFIX/tarn-ready" ] || tarn_make_prefix
    wineserver -p {tarn_wine_lock}>&- >/dev/null 2>&1 </dev/null || true
    # The first program that opens the desktop starts Wine's explorer, which inherits its output: let
    # it be this one.
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
