# shellcheck shell=bash
# The demo's third window: the explorer leads from a package to what it depends on. Sourced by ./quorel after the outside
# tests' helpers, which it uses.

explorer_picture() { picture "explorer-$1"; }

show_entry() {
    printf '   %s: %s\n' "$(spy frmExplorer text PaneCaption)" \
        "$(spy frmExplorer items TreeView1 100000 | grep '^\*' | tr -s '\t *' ' ')"
}

walk_explorer() {
    spy frmExplorer wait 60 || fail "the explorer did not appear; see $logs/demo-explorer.log"
    say "The explorer over the package index; a click on the greeting"
    click_entry About
    show_entry
    explorer_picture 1-about
    say "Packages opens: the first hundred of all"
    open_entry Packages
    spy frmExplorer items TreeView1 300 | grep -F 'more of' | sed 's/^/   /'
    explorer_picture 2-packages
    say "$demo_package is found, far down"
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 "$demo_package"
    xdotool key Return
    sleep 5
    show_entry
    explorer_picture 3-found
    say "By keyboard down to what it depends on"
    xdotool key Escape
    sleep 0.3
    xdotool key Right Down
    sleep 0.5
    xdotool key Right Down
    sleep 1
    show_entry
    explorer_picture 4-dependency
    say "Who needs that, too"
    click_on frmExplorer vsIndexTab1 'Needed by'
    spy frmExplorer rows 'ListView1(3)' 6 | cut -f1-3 | sed 's/^/     /'
    explorer_picture 5-needed
    xdotool key alt+F4
    spy frmExplorer gone 20 || fail "the window did not close"
}

demo_explorer() {
    local host status=0
    run_windows 300 build/windows/bin/quorelscript.exe "$(windows_path samples/vbscript/packages.vbs)" \
        "$(windows_path "$demo_repository")" >"$logs/demo-explorer.log" 2>&1 &
    host=$!
    walk_explorer || status=$?
    wait "$host" || status=$?
    return "$status"
}
