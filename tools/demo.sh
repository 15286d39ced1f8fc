# shellcheck shell=bash
# The demo: a tour of every window on the machine's Debian package index. Sourced by ./quorel.

demo_dir=$top/build/demo
demo_repository=$demo_dir/debian.quorel

package_lists=/var/lib/apt/lists

fetch_index() {
    compgen -G "$package_lists/*_Packages*" >/dev/null && return
    say "Fetching the Debian package index (apt-get update)"
    as_root apt-get update -q >"$logs/apt.log" 2>&1 || fail "apt-get update failed; its words are in $logs/apt.log"
}

import_index() {
    fetch_index
    [[ -f $demo_repository && ! $package_lists -nt $demo_repository ]] && return
    say "Importing the Debian package index"
    rm -f "$demo_repository"*
    build/native/bin/quorel-import --apt "$demo_repository" || fail "the index could not be imported"
}

picture() { # NAME
    screenshot "$demo_dir/$1.png"
    note "picture: build/demo/$1.png"
}

show_pane() { # CONTROL
    printf '\n   %s: ' "$1"
    spy frmSixPane rows "$1" 60 | awk 'NR <= 8 || /^\*/' | cut -c1-150 | sed '2,$s/^/     /'
}

show_panes() {
    local pane
    for pane in SourceMetaNode SourceNode MetaLink Link TargetMetaNode TargetNode; do show_pane "$pane"; done
}

drive_browser() {
    spy frmSixPane wait 60 || fail "the six-pane browser did not appear; see $logs/demo-navigator.log"
    picture 1-opened
    say "A click on the source meta node Package"
    choose frmSixPane SourceMetaNode Package
    picture 2-meta-node
    say "A click on the meta link Package.Depends.Package"
    choose frmSixPane MetaLink Package.Depends.Package
    picture 3-meta-link
    say "A link, chosen by keyboard"
    click_on frmSixPane Link
    xdotool key Home Down Down
    sleep 0.4
    show_panes
    picture 4-link
    say "Ctrl+F filters the source nodes"
    click_on frmSixPane SourceNode
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 'sqlite'
    sleep 1.5
    show_pane SourceNode
    picture 5-filter
    xdotool key Escape
    edit_in_browser
    say "Alt+F4 closes the window"
    xdotool key alt+F4
    spy frmSixPane gone 20 || fail "the window did not close"
}

# name_it TEXT: what the name dialog asks for.
name_it() {
    spy frmNameEdit wait 10 || fail "the name dialog did not appear"
    sleep 0.5
    xdotool type --delay 40 "$1"
    sleep 0.3
}

confirm_name() {
    xdotool key Return
    spy frmNameEdit gone 10 || fail "the name dialog did not close"
}

edit_in_browser() {
    say "Two new packages, by button and by key, and a link between them"
    click_on frmSixPane NewSourceNode
    name_it my-program
    picture 6-new-node
    confirm_name
    click_on frmSixPane TargetNode
    xdotool key Insert
    name_it my-library
    confirm_name
    click_on frmSixPane NewLink
    name_it ''
    picture 7-new-link
    confirm_name
    show_selected SourceNode Link TargetNode
    picture 8-linked
    say "The link is deleted, then both packages"
    click_on frmSixPane DeleteLink
    picture 9-link-deleted
    click_on frmSixPane DeleteSourceNode
    picture 10-source-deleted
    click_on frmSixPane DeleteTargetNode
    picture 11-all-deleted
    show_selected SourceNode Link TargetNode
    say "Edit Metamodel, and Ins in the types: a new one is asked for, and not made"
    xdotool key --delay 150 alt+e m
    sleep 0.5
    click_on frmSixPane SourceMetaNode
    xdotool key Insert
    spy frmDynMetaObject wait 10 || fail "the dialog for a type did not appear"
    sleep 0.5
    xdotool type --delay 40 Review
    picture 12-new-type
    xdotool key Escape
    spy frmDynMetaObject gone 10 || fail "the dialog for a type did not close"
}

# show_selected CONTROL...: the count and the selected row of each.
show_selected() {
    local control
    for control in "$@"; do
        printf '   %-11s %s\n' "$control" "$(spy frmSixPane rows "$control" 60 | sed -n '1p; /^\*/p' | tr '\n\t' '  ')"
    done
}

demo_in_virtual_display() {
    demo_navigator
    demo_explorer
    demo_selection
    demo_progress
    contact_sheet
}

run_demo() {
    setup
    build native quorel-import
    build windows
    mkdir -p "$demo_dir"
    import_index
    setup_prefix
    register_components
    graphics x11
    if [[ -n ${DISPLAY:-} ]]; then
        say "The navigator is yours; close it to end the demo"
        run_windows 86400 build/windows/bin/navigator.exe "$(windows_path "$demo_repository")" >"$logs/demo-navigator.log" 2>&1 ||
            fail "the navigator failed; see $logs/demo-navigator.log"
    else
        say "There is no display, so the demo runs in a virtual one"
        with_display demo_in_virtual_display || fail "the demo failed; see $logs/demo-host.log"
        say "Done: the pictures are in build/demo"
    fi
}
