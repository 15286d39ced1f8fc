# shellcheck shell=bash
# The tour's thread: the navigator opens the package index, searches it, and leads to the library's windows. Sourced by ./quorel
# after the outside tests' helpers, which it uses.

navigator_picture() { picture "navigator-$1"; }

demo_package=openbox

# from_navigator KEY FORM: a window on what is selected in the navigator.
from_navigator() {
    navigator_to_front
    xdotool key "$1"
    spy "$2" wait 60 || fail "$2 did not appear; see $logs/demo-navigator.log"
    sleep 1
}

show_navigator() {
    spy frmNavigator wait 60 || fail "the navigator did not appear; see $logs/demo-navigator.log"
    for _ in {1..60}; do navigator_tells 2 '^Instances: [1-9]' && break; sleep 0.5; done
    say "The navigator on the package index: $(spy frmNavigator panels StatusBar | head -n 2 | tr '\n' ' ')"
    navigator_picture 1-opened
}

search_everywhere() {
    say "Ctrl+K searches everywhere for $demo_package"
    from_navigator ctrl+k frmSearch
    # The first search of a repository makes its index.
    for _ in {1..300}; do spy frmSearch panels StatusBar | grep -q Indexing || break; sleep 1; done
    xdotool type --delay 40 "$demo_package"
    for _ in {1..30}; do [[ $(spy frmSearch rows Results 1 | wc -l) -gt 2 ]] && break; sleep 0.5; done
    navigator_picture 2-search
    xdotool key Return
    spy frmSixPane wait 30 || fail "what was found was not shown; see $logs/demo-navigator.log"
    sleep 1
    show_selected SourceMetaNode SourceNode
    navigator_picture 3-revealed
    xdotool key alt+F4
    spy frmSixPane gone 20 || fail "the browser did not close"
}

edit_from_navigator() {
    say "The properties of a package"
    choose frmNavigator Types Package
    click_on frmNavigator Instances
    xdotool type --delay 40 "$demo_package"
    sleep 1
    from_navigator alt+Return frmPropertyEditor
    navigator_picture 4-properties
    xdotool key Escape
    spy frmPropertyEditor gone 20 || fail "the property editor did not close"
    say "The navigator's own options"
    navigator_to_front
    xdotool key alt+t
    sleep 0.4
    xdotool key o
    spy frmOptions wait 20 || fail "the options did not open"
    sleep 1
    navigator_picture 5-options
    xdotool key Escape
    spy frmOptions gone 20 || fail "the options did not close"
}

tour_by_navigator() {
    show_navigator
    search_everywhere
    edit_from_navigator
    from_navigator ctrl+1 frmSixPane
    drive_browser
    navigator_to_front
    choose frmNavigator Types Package
    click_on frmNavigator Instances
    xdotool type --delay 40 "$demo_package"
    sleep 1
    from_navigator ctrl+2 frmMatrixBrowser
    walk_dependencies
    from_navigator ctrl+3 frmHTExplorer
    walk_hierarchy
    from_navigator ctrl+d frmDiagram
    walk_diagram
    say "Ctrl+W closes the repository; what was open last is on the welcome page"
    navigator_to_front
    xdotool key ctrl+w
    sleep 1
    navigator_picture 6-welcome
    say "The navigator is closed"
    xdotool key alt+F4
    spy frmNavigator gone 20 || fail "the navigator did not close"
}

demo_navigator() {
    local host status=0
    run_windows 300 build/windows/bin/navigator.exe "$(windows_path "$demo_repository")" >"$logs/demo-navigator.log" 2>&1 &
    host=$!
    tour_by_navigator || status=$?
    wait "$host" || status=$?
    return "$status"
}

# One picture of every window, for who wants to see what there is.
contact_sheet() {
    local name pictures=()
    for name in navigator-6-welcome navigator-1-opened navigator-2-search 4-link 6-new-node 12-new-type matrix-1-depends matrix-6-node \
        explorer-4-dependency hierarchy-4-meta-link diagram-3-found navigator-4-properties navigator-5-options selection-2-perl \
        selection-3-folders progress-1-steps progress-2-bar; do
        [[ -f $demo_dir/$name.png ]] && pictures+=("$demo_dir/$name.png")
    done
    montage "${pictures[@]}" -tile 3x -geometry 480x340+6+6 -background '#f4f4f4' -depth 8 -colors 200 "PNG8:$demo_dir/tour.png"
    note "all of them: build/demo/tour.png"
}
