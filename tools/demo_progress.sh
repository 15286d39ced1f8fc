# shellcheck shell=bash
# The demo's last windows: how far a long operation is. Sourced by ./quorel.

watch_progress() {
    spy frmProgress wait 60 || fail "the progress window did not appear; see $logs/demo-progress.log"
    say "The progress window, half way"
    sleep 2.5
    picture progress-1-steps
    spy frmProgressBar wait 20 || fail "the progress bar did not appear; see $logs/demo-progress.log"
    say "The bare progress bar"
    sleep 1
    picture progress-2-bar
}

demo_progress() {
    local host status=0
    run_windows 60 build/windows/bin/quorelscript.exe "$(windows_path tools/demo_progress.vbs)" >"$logs/demo-progress.log" 2>&1 &
    host=$!
    watch_progress || status=$?
    wait "$host" || status=$?
    return "$status"
}
