# Sourced by the scripts that run Windows programs on Linux. One Wine prefix for each build tree
# (TARN_WINE_PREFIX, by default build/wine), one virtual screen for each script.

: "${TARN_WINE_PREFIX:=$TARN_ROOT/build/wine}"

export WINEPREFIX="$TARN_WINE_PREFIX"
export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"

# Starts a virtual screen unless there is one to use; it ends with the script.
tarn_start_screen() {
    local size=${1:-1280x1024x24}
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "$size" -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
    TARN_XVFB_PID=$!
    # A bounded wait for a condition, not for a time.
    for _ in $(seq 200); do
        [ -s "$number_file" ] && break
        kill -0 "$TARN_XVFB_PID" 2>/dev/null || { echo "Xvfb did not start" >&2; return 1; }
        sleep 0.05
    done
    DISPLAY=":$(cat "$number_file")"
    export DISPLAY
    rm -f "$number_file"
    [ "$DISPLAY" != ":" ]
}

tarn_stop_screen() {
    [ -n "${TARN_XVFB_PID:-}" ] || return 0
    kill "$TARN_XVFB_PID" 2>/dev/null || true
    wait "$TARN_XVFB_PID" 2>/dev/null || true
    TARN_XVFB_PID=
}

# Makes the prefix on first use, and starts its server and desktop with their output detached:
# whoever reads the output of the first Wine program would otherwise wait for them as well.
tarn_start_wine() {
    if [ ! -f "$WINEPREFIX/tarn-ready" ]; then
        rm -rf "$WINEPREFIX"
        mkdir -p "$WINEPREFIX"
        wineboot --init >/dev/null 2>&1 </dev/null
        wineserver -w
        winecfg -v win10 >/dev/null 2>&1 </dev/null
        # Without a window manager Wine waits two seconds for an answer to every captioned window
        # that goes away, unless it draws the frames itself.
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 </dev/null
        # A crash ends the program at once, with its own exit code.
        wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /v Debugger /d false /f \
            >/dev/null 2>&1 </dev/null
        wineserver -k >/dev/null 2>&1 || true
        wineserver -w
        touch "$WINEPREFIX/tarn-ready"
    fi
    wineserver -p >/dev/null 2>&1 </dev/null || true  # it may run already
    setsid wine explorer.exe /desktop=shell >/dev/null 2>&1 </dev/null &
    wine cmd /c exit >/dev/null 2>&1 </dev/null
}

tarn_stop_wine() { wineserver -k >/dev/null 2>&1 || true; }
