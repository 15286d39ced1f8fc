# shellcheck shell=bash
# The demo's dialogs: maintainers are checked in a list of all of them, a folder is chosen. Sourced by ./quorel.

selection_rows() { spy frmSelectItem rows ListView 4 | cut -f2,3 | tr '\t' ' ' | cut -c1-100 | sed 's/^/     /'; }

check_maintainers() {
    local word
    spy frmSelectItem wait 240 || fail "the selection did not appear; see $logs/demo-selection.log"
    say "The selection dialog with $(spy frmSelectItem text Count)"
    picture selection-1-all
    for word in perl python; do
        xdotool key ctrl+f
        sleep 0.5
        xdotool key ctrl+a
        xdotool type --delay 40 "$word"
        sleep 1
        xdotool key Down
        sleep 0.3
        xdotool key Home space
        sleep 0.3
        printf '   "%s": %s\n' "$word" "$(spy frmSelectItem text Count)"
        selection_rows
        picture "selection-2-$word"
    done
    xdotool key Escape
    sleep 0.5
    xdotool key Return
    spy frmSelectItem gone 20 || fail "the selection did not close"
}

browse_folders() {
    spy '#32770' wait 30 || fail "the tree of folders did not appear; see $logs/demo-folder.log"
    say "The directory chooser"
    sleep 1
    picture selection-3-folders
    xdotool key Escape
    spy '#32770' gone 20 || fail "the tree of folders did not close"
}

demo_selection() {
    local host status=0
    run_windows 200 build/windows/bin/quorelscript.exe "$(windows_path samples/vbscript/selectitem.vbs)" \
        "$(windows_path "$demo_repository")" Maintainer >"$logs/demo-selection.log" 2>&1 &
    host=$!
    check_maintainers || status=$?
    wait "$host" || status=$?
    sed 's/^/   /' "$logs/demo-selection.log"
    run_windows 120 build/windows/bin/quorelscript.exe "$(windows_path samples/vbscript/directorychooser.vbs)" \
        >"$logs/demo-folder.log" 2>&1 &
    host=$!
    browse_folders || status=$?
    wait "$host" || status=$?
    return "$status"
}
