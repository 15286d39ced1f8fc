# shellcheck shell=bash
# The six-pane browser without a mouse, and at twice the usual resolution.

focus_is() { [[ $(spy "$1" focus) == "$2" ]]; }

# goes_to KEY CONTROL
goes_to() {
    xdotool key "$1"
    expect "$1 leads to $2" focus_is frmSixPane "$2"
}

walk_through_panes() {
    goes_to alt+s SourceMetaNode
    xdotool type --delay 40 Shelf
    expect "typing selects a type" selected_in SourceMetaNode Shelf
    expect "and lists its nodes" pane_holds SourceNode .
    goes_to alt+o SourceNode
    goes_to alt+m MetaLink
    xdotool type --delay 40 Shelf
    expect "typing selects a meta link" selected_in MetaLink Shelf.Holds.Book
    goes_to alt+l Link
    xdotool key Home
    expect "Home selects the first link's source" pane_has_selection SourceNode
    expect "and its target" pane_has_selection TargetNode
    goes_to alt+t TargetMetaNode
    goes_to alt+a TargetNode
}

# The control with the keyboard, once the window has one: while a focus moves there is none.
focused_control() {
    local name tries
    for tries in {1..10}; do
        name=$(spy frmSixPane focus)
        [[ -z $name ]] || break
        sleep 0.2
    done
    echo "$name"
}

# Tab goes through the lists, the buttons that can be pressed and the splitters, and comes round.
walk_by_tab() {
    local seen='' name
    xdotool key alt+s
    sleep 0.3
    for _ in {1..24}; do
        xdotool key Tab
        sleep 0.15
        name=$(focused_control)
        seen+=" $name"
        [[ $name != SourceMetaNode ]] || break
    done
    note "Tab:$seen"
    for name in SourceNode NewSourceNode DeleteSourceNode MetaLink Link NewLink DeleteLink TargetMetaNode TargetNode \
        NewTargetNode DeleteTargetNode SourceMetaNode; do
        expect "Tab reaches $name" grep -qw "$name" <<<"$seen"
    done
}

edit_by_keyboard() {
    xdotool key alt+o
    sleep 0.2
    xdotool key Insert
    answer frmNameEdit 'By keyboard' Return
    expect "Ins has made a node" selected_in SourceNode 'By keyboard'
    xdotool key Return
    expect "Enter shows the properties" spy NodeEdit wait 2
    xdotool key Escape
    expect "Esc closes them" spy NodeEdit gone 2
    expect "the list has the keyboard again" focus_is frmSixPane SourceNode
    sleep 0.5
    xdotool key Delete
    expect "Del deletes the node" pane_lacks SourceNode 'By keyboard'
    xdotool key F5
    expect "F5 keeps the type" selected_in MetaLink Shelf.Holds.Book
    xdotool key Menu
    sleep 0.5
    picture_of context-menu
    xdotool key Escape
}

close_by_menu() {
    xdotool key --delay 150 alt+r c
    expect "the menu closes the window" spy frmSixPane gone 2
    expect "the host ends without an error" host_ends_well 0
}

resolution() { # DOTS PER INCH
    run_windows 60 reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >>"$logs/wine.log" 2>&1
    wineserver_stop
}

# Nothing may leave the window, and a click must meet its row.
at_high_resolution() {
    resolution 192
    start_host resolution script_host samples/vbscript/browse.vbs "$repository"
    wait_for_form frmSixPane
    expect "a click meets its row" click_on frmSixPane MetaLink Author.Wrote.Book
    expect "at 192 dpi, too" selected_in MetaLink Author.Wrote.Book
    picture_of sixpane-192
    expect "a node is chosen" click_on frmSixPane SourceMetaNode Author
    press_button NewSourceNode
    wait_for_form frmNameEdit
    picture_of name-edit-192
    answer frmNameEdit '' Escape
    xdotool key alt+F4
    expect "the host ends without an error" host_ends_well 0
    resolution 96
}

keyboard_tests() {
    start_host keyboard script_host samples/vbscript/browse.vbs "$repository"
    wait_for_form frmSixPane
    walk_through_panes
    walk_by_tab
    edit_by_keyboard
    close_by_menu
    at_high_resolution
}
