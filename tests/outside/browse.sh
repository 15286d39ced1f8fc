# shellcheck shell=bash
# The six-pane browser and the name dialog, browsed by hosts in several languages.

browse_with_mouse() {
    expect "the window opens" spy frmSixPane wait 1
    expect "types are listed" pane_holds SourceMetaNode Book
    [[ $1 != vbscript ]] || expect "instances wait for a click" pane_counts SourceNode 0
    expect "SourceMetaNode takes a click" click_on frmSixPane SourceMetaNode Book
    expect "a click on a type lists its instances" pane_holds SourceNode 'The Lighthouse|.+'
    expect "the clicked type is selected" selected_in SourceMetaNode Book
    local link
    link=$(spy frmSixPane rows MetaLink 40 | sed -n 3p | cut -f2)
    expect "MetaLink takes a click" click_on frmSixPane MetaLink "$link"
    expect "a click on a link type lists its links" pane_holds Link .
    expect "it selects the source type" selected_in SourceMetaNode "${link%%.*}"
    expect "it selects the target type" selected_in TargetMetaNode "${link##*.}"
    local first
    first=$(spy frmSixPane rows Link 40 | sed -n 3p | cut -f2)
    expect "Link takes a click" click_on frmSixPane Link "$first"
    expect "a click on a link selects its source" pane_has_selection SourceNode
    expect "and its target" pane_has_selection TargetNode
    picture_of "$1"
}

browse_with_keyboard() {
    expect "SourceMetaNode takes a click" click_on frmSixPane SourceMetaNode
    xdotool type --delay 40 Auth
    expect "typing finds a row" selected_in SourceMetaNode Author
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 'Pub'
    expect "Ctrl+F filters" pane_holds SourceMetaNode Publisher
    expect "and leaves out the rest" pane_lacks SourceMetaNode Author
    xdotool key Escape
    expect "Esc brings all rows back" pane_holds SourceMetaNode Author
}

# choose_node NAME: in the dialog that a sample shows before its browser.
choose_node() {
    wait_for_form frmSelectItem
    expect "$1 is offered" click_on frmSelectItem List "$1"
    xdotool key Return
    wait_for_form frmSixPane
    expect "the browser shows $1" selected_in SourceNode "$1"
}

outside_host() { # NAME COMMAND...
    start_host "$@"
    if [[ $1 == vbscript ]]; then wait_for_form frmSixPane; else choose_node Emma; fi
    browse_with_mouse "$1"
    [[ $1 != vbscript ]] || browse_with_keyboard
    xdotool key alt+F4
    expect "$1: Alt+F4 closes the window" spy frmSixPane gone 1
    expect "$1: the host ends without an error" host_ends_well 0
    [[ $1 == vbscript ]] || expect "$1: the host has the selection" host_says Emma
}

name_dialog() {
    start_host name-typed script_host tests/outside/name.vbs
    wait_for_form frmNameEdit
    expect "the name dialog opens" control_exists frmNameEdit NameBox
    picture_of name-edit
    xdotool type --delay 40 'Typed by hand'
    sleep 0.3
    xdotool key Return
    expect "Enter confirms and the host has the name" host_ends_well 0
    expect "the host has what was typed" grep -q '^True:Typed by hand' "$host_log"
    start_host name-cancelled script_host tests/outside/name.vbs
    wait_for_form frmNameEdit
    xdotool key Escape
    expect "Esc cancels" host_ends_well 0
    expect "the host hears of it" grep -q '^False:' "$host_log"
}

node_is_made() {
    script_host samples/vbscript/nameedit.vbs "$repository" Shelf >"$logs/sample-nameedit.log" 2>&1 &
    host=$!
    wait_for_form frmNameEdit
    xdotool type --delay 40 'Made by hand'
    sleep 0.3
    xdotool key Return
    expect "the sample that asks for a name ends well" host_ends_well 0
}

selected_at_start() {
    start_host sixpane script_host samples/vbscript/sixpane.vbs "$repository" Shelf
    choose_node 'Made by hand'
    expect "SetSelection selects the type" selected_in SourceMetaNode Shelf
    expect "SourceNode takes a click" click_on frmSixPane SourceNode 'Made by hand'
    xdotool click --repeat 2 --delay 60 1
    expect "a double-click shows the properties" spy NodeEdit wait 1
    picture_of properties
    xdotool key Escape
    expect "Esc closes them" spy NodeEdit gone 1
    xdotool key alt+F4
    expect "the host ends without an error" host_ends_well 0
}

# A repository that fails: one box that says what and where, then the window goes on.
failure_is_shown() {
    start_host failing script_host tests/outside/failing.vbs
    wait_for_form frmSixPane
    expect "SourceMetaNode takes a click" click_on frmSixPane SourceMetaNode Broken
    expect "the error box appears" spy '#32770' wait 1
    expect "it says what failed and where" box_says "Function 'SourceMetaNode_Click()'"
    picture_of error-box
    xdotool key Return
    expect "Enter closes it" spy '#32770' gone 1
    expect "the window goes on" selected_in SourceMetaNode Broken
    xdotool key alt+F4
    expect "the host ends without an error" host_ends_well 0
}

box_says() { spy '#32770' tree | grep -qF "$1"; }

browsing_tests() {
    outside_host vbscript script_host samples/vbscript/browse.vbs "$repository"
    outside_host jscript script_host samples/jscript/browse.js "$repository" Book
    outside_host cpp-early run_windows 120 build/windows/bin/sample_browse_early.exe "$repository" Book
    outside_host cpp-late run_windows 120 build/windows/bin/sample_browse_late.exe "$repository" Book
    name_dialog
    node_is_made
    selected_at_start
    failure_is_shown
}
