# shellcheck shell=bash
# The matrix browser from outside, with real mouse and keyboard input. Sourced by ./quorel after outside.sh, whose helpers it
# uses.

matrix_holds() { spy frmMatrixBrowser rows "$1" 60 | grep -qE "$2"; }
matrix_counts() { [[ $(spy frmMatrixBrowser rows "$1" 0 | head -n 1) == "$2 rows" ]]; }
matrix_selected() { [[ $(spy frmMatrixBrowser rows "$1" 60 | grep '^\*' | cut -f2) == "$2" ]]; }
matrix_row() { spy frmMatrixBrowser rows "$1" 60 | sed -n "$(($2 + 2))p" | cut -f2; }
matrix_focus_is() { [[ $(spy frmMatrixBrowser focus) == "$1" ]]; }
something_selected() { spy frmMatrixBrowser rows "$1" 60 | grep -q '^\*'; }

# Two clicks with the left button where the row is.
double_click_on() { # CONTROL ROW
    local place
    place=$(spy frmMatrixBrowser where "$1" "$2")
    [[ -n $place ]] || return 1
    # shellcheck disable=SC2086
    xdotool mousemove $place click --repeat 2 --delay 60 1
    sleep 0.6
}

navigate_with_mouse() {
    local book
    expect "the matrix browser opens" spy frmMatrixBrowser wait 1
    expect "types are listed" matrix_holds SourceMetaNodeList Author
    expect "nothing else is yet" matrix_counts SourceInstanceList 0
    expect "SourceMetaNodeList takes a click" click_on frmMatrixBrowser SourceMetaNodeList Author
    expect "a click on a type lists its instances" matrix_holds SourceInstanceList 'Jane|.+'
    expect "and the meta links that leave it" matrix_holds MetaLinkListOutgoing 'Author.Wrote.Book'
    expect "and those that enter it" matrix_holds MetaLinkListIncoming 'Author.Knew.Author'
    expect "a meta link without an instance takes a click" click_on frmMatrixBrowser MetaLinkListOutgoing Author
    expect "and lists nothing" matrix_counts TargetInstanceList 0
    expect "SourceInstanceList takes a click" \
        click_on frmMatrixBrowser SourceInstanceList "$(matrix_row SourceInstanceList 1)"
    expect "MetaLinkListOutgoing takes a click" click_on frmMatrixBrowser MetaLinkListOutgoing Author
    expect "the links of the instance are listed" matrix_holds TargetInstanceList .
    picture_of matrix-outgoing
    book=$(matrix_row TargetInstanceList 1)
    expect "a double-click on a link works" double_click_on TargetInstanceList "$book"
    expect "it moves to the type at its end" matrix_selected SourceMetaNodeList Book
    expect "and to the node" matrix_selected SourceInstanceList "$book"
    picture_of matrix-moved
}

navigate_with_keyboard() {
    xdotool key alt+Left
    expect "Alt+Left goes back" matrix_selected SourceMetaNodeList Author
    expect "to the instance it came from" something_selected SourceInstanceList
    xdotool key alt+Right
    expect "Alt+Right goes forward" matrix_selected SourceMetaNodeList Book
    xdotool click 8
    expect "the mouse's back button goes back" matrix_selected SourceMetaNodeList Author
    xdotool click 9
    expect "its forward button goes forward" matrix_selected SourceMetaNodeList Book
    expect "SourceInstanceList takes a click again" click_on frmMatrixBrowser SourceInstanceList "$1"
    xdotool key Return
    expect "Enter on an instance shows its properties" spy NodeEdit wait 1
    picture_of matrix-node-edit
    xdotool key Escape
    expect "Esc closes them" spy NodeEdit gone 1
    expect "the instance is still the source" matrix_selected SourceInstanceList "$1"
    xdotool key Menu
    sleep 0.4
    picture_of matrix-popup
    xdotool key Escape
}

# Without a mouse: each list has a key, and F6 goes round.
walk_through_lists() {
    local key
    for key in ctrl+1:SourceMetaNodeList ctrl+2:SourceInstanceList ctrl+3:MetaLinkListIncoming \
        ctrl+4:MetaLinkListOutgoing ctrl+5:TargetInstanceList F6:SourceMetaNodeList F6:SourceInstanceList \
        shift+F6:SourceMetaNodeList shift+F6:TargetInstanceList; do
        xdotool key "${key%:*}"
        expect "${key%:*} leads to ${key#*:}" matrix_focus_is "${key#*:}"
    done
    xdotool key --delay 150 alt+v o
    expect "the menu leads to the outgoing meta links" matrix_focus_is MetaLinkListOutgoing
}

matrix_tests() {
    local repository
    repository=$(windows_path "$sample_repository")
    start_host matrix script_host samples/vbscript/matrixbrowser.vbs "$repository" Shelf
    wait_for_form frmMatrixBrowser
    expect "the sample's node is the source" something_selected SourceInstanceList
    xdotool key alt+F4
    expect "Alt+F4 closes the matrix browser" spy frmMatrixBrowser gone 1
    expect "the host ends without an error" host_ends_well 0
    start_host matrix-jscript script_host samples/jscript/matrixbrowser.js "$repository"
    wait_for_form frmMatrixBrowser
    navigate_with_mouse
    walk_through_lists
    navigate_with_keyboard "$(spy frmMatrixBrowser rows SourceInstanceList 60 | grep '^\*' | cut -f2)"
    xdotool key alt+F4
    expect "Alt+F4 closes it" spy frmMatrixBrowser gone 1
    expect "the host ends without an error" host_ends_well 0
}
