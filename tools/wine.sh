# shellcheck shell=bash
# Windows programs on Linux: the Wine prefix, a display where there is none. Sourced by ./quorel.

# Wine makes file names in the locale's characters; a machine without one would know ASCII alone.
[[ $(locale charmap 2>/dev/null) == UTF-8 ]] || export LC_ALL=C.UTF-8
export WINEPREFIX=$top/build/wine WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="
# The 64-bit loader by itself: the wrapper asks for a 32-bit one that is not needed.
wine_loader=$(command -v wine64 || echo /usr/lib/wine/wine64)

# run_windows SECONDS PROGRAM ARGUMENT...: never waits for input, never longer than that.
run_windows() {
    local seconds=$1
    shift
    timeout -k 2 "$seconds" "$wine_loader" "$@" </dev/null
}

setup_prefix() {
    [[ -f $WINEPREFIX/quorel-ready ]] && return
    say "Making the Wine prefix"
    mkdir -p "$WINEPREFIX"
    DISPLAY='' run_windows 120 wineboot --init >"$logs/wine.log" 2>&1 || fail "Wine did not start; see $logs/wine.log"
    # A crash must end a program, not wait for a click.
    run_windows 60 reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >>"$logs/wine.log" 2>&1
    # Wine's own Tahoma is a bitmap font at window sizes; an outline font with grey smoothing reads better.
    {
        run_windows 60 reg add 'HKCU\Software\Wine\Fonts\Replacements' /v Tahoma /t REG_SZ /d 'Liberation Sans' /f
        run_windows 60 reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /t REG_SZ /d 2 /f
        run_windows 60 reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 1 /f
    } >>"$logs/wine.log" 2>&1
    touch "$WINEPREFIX/quorel-ready"
}

# Without a display: windows, lists and message loops work with Wine's null driver; pictures and real input do not.
graphics() { # null | x11
    run_windows 60 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /t REG_SZ /d "$1" /f >>"$logs/wine.log" 2>&1
    wineserver_stop
}

wineserver_stop() {
    local server
    server=$(command -v wineserver || echo /usr/lib/wine/wineserver64)
    "$server" -k >/dev/null 2>&1 || true
    "$server" -w >/dev/null 2>&1 || true
}

register_components() {
    local component
    for component in QuorelUtility QuorelRepository; do
        run_windows 60 regsvr32 /s "$(windows_path "build/windows/bin/$component.dll")" >>"$logs/wine.log" 2>&1 ||
            fail "$component.dll could not be registered; see $logs/wine.log"
    done
}

windows_path() { echo "Z:$(realpath -m "$1" | tr / '\\')"; }

# with_display COMMAND...: in a virtual display of its own with a window manager, both ended afterwards.
with_display() {
    local number=90 server manager status=0
    # A desktop that an earlier program opened elsewhere would be used again.
    wineserver_stop
    while [[ -e /tmp/.X11-unix/X$number || -e /tmp/.X$number-lock ]]; do number=$((number + 1)); done
    Xvfb ":$number" -screen 0 1280x900x24 -nolisten tcp >"$logs/xvfb.log" 2>&1 &
    server=$!
    for _ in {1..50}; do [[ -e /tmp/.X11-unix/X$number ]] && break; sleep 0.1; done
    DISPLAY=:$number openbox >"$logs/openbox.log" 2>&1 &
    manager=$!
    DISPLAY=:$number "$@" || status=$?
    wineserver_stop
    kill "$manager" "$server" 2>/dev/null || true
    wait "$manager" "$server" 2>/dev/null || true
    return "$status"
}
