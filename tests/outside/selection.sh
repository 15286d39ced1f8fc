# shellcheck shell=bash
# Items are chosen and folders are chosen from outside, by mouse and keyboard; a file becomes a property. Sourced by
# ./quorel after outside.sh, whose helpers it uses.

items_count() { [[ $(spy frmSelectItem text Count) == "$1" ]]; }
items_shown() { [[ $(spy frmSelectItem rows "$1" 0 | head -n 1) == "$2 rows" ]]; }
item_selected() { [[ $(spy frmSelectItem rows "$1" 60 | grep '^\*' | cut -f2) == "$2" ]]; }

# click_box ROW: the check boxes stand at the left edge of the list.
click_box() {
    local edge place
    edge=$(spy frmSelectItem tree | grep -oP '^\s*ListView \[SysListView32\] \K[0-9]+')
    place=$(spy frmSelectItem where ListView "$1")
    [[ -n $edge && -n $place ]] || return 1
    xdotool mousemove $((edge + 12)) "${place#* }" click 1
    sleep 0.4
}

# double_click CONTROL ROW
double_click() {
    local place
    place=$(spy frmSelectItem where "$1" "$2")
    [[ -n $place ]] || return 1
    # shellcheck disable=SC2086
    xdotool mousemove $place click --repeat 2 --delay 60 1
    sleep 0.4
}

checked_items() {
    start_host selectitem script_host samples/vbscript/selectitem.vbs "$(windows_path "$sample_repository")" Book
    wait_for_form frmSelectItem
    expect "items: nothing is checked" items_count '0 of 18 checked'
    picture_of selectitem
    expect "items: a box takes a click" click_box Emma
    expect "items: and is checked" items_count '1 of 18 checked'
    expect "items: a row takes a click" click_on frmSelectItem ListView Persuasion
    expect "items: and is selected" item_selected ListView Persuasion
    expect "items: nothing more is checked" items_count '1 of 18 checked'
    xdotool key space
    expect "items: Space checks it" items_count '2 of 18 checked'
    picture_of selectitem-checked
    xdotool key ctrl+a
    expect "items: Ctrl+A checks all" items_count '18 of 18 checked'
    picture_of selectitem-all
    expect "items: a button checks none" click_on frmSelectItem CheckNone
    expect "items: that is none" items_count '0 of 18 checked'
    expect "items: boxes take clicks again" click_box Persuasion
    expect "items: a second one" click_box Emma
    double_click ListView Emma
    expect "items: a double-click is no OK here" control_exists frmSelectItem OK
    xdotool key ctrl+f
    sleep 0.4
    xdotool type --delay 40 'mm'
    expect "items: the filter lets one through" items_shown ListView 1
    picture_of selectitem-filter
    xdotool key Escape
    expect "items: and ends" items_shown ListView 18
    xdotool key Return
    expect "items: Enter is OK" spy frmSelectItem gone 1
    expect "items: the host ends without an error" host_ends_well 0
    expect "items: it has what was checked" host_says Persuasion
    expect "items: both of them" host_says Emma
    expect "items: and no more" host_says '2 checked'
}

plain_items() {
    start_host selectitem-plain script_host samples/jscript/selectitem.js
    wait_for_form frmSelectItem
    expect "plain items: three are there" items_count '3 items'
    expect "plain items: one takes a click" click_on frmSelectItem List Green
    picture_of selectitem-plain
    double_click List Blue
    expect "plain items: a double-click is no OK" item_selected List Blue
    expect "plain items: OK takes a click" click_on frmSelectItem OK
    expect "plain items: the host has what stands behind it" host_says 0000ff
    expect "plain items: it ends without an error" host_ends_well 0
    start_host selectitem-cancel script_host samples/jscript/selectitem.js
    wait_for_form frmSelectItem
    xdotool key Down Escape
    expect "plain items: Esc is Cancel" spy frmSelectItem gone 1
    expect "plain items: nothing is chosen" host_says nothing
    expect "plain items: the host ends without an error" host_ends_well 0
}

folders() {
    start_host directory script_host samples/vbscript/directorychooser.vbs
    expect "folders: the shell's dialog opens" spy '#32770' wait 10
    sleep 1
    picture_of directorychooser
    xdotool key Escape
    expect "folders: Esc closes it" spy '#32770' gone 1
    expect "folders: and cancels" host_says cancelled
    expect "folders: the host ends without an error" host_ends_well 0
    start_host directory-plain script_host samples/vbscript/directorychooser.vbs plain
    expect "folders: the one without a button opens" spy '#32770' wait 10
    sleep 1
    picture_of directorychooser-plain
    xdotool key Return
    expect "folders: Enter closes it" spy '#32770' gone 1
    expect "folders: the host has a path" grep -qE '^[A-Z]:\\' "$host_log"
    expect "folders: it ends without an error" host_ends_well 0
}

blobs() {
    local base=$outside_dir/blob
    rm -f "$base".*
    printf 'quorel' >"$base.in"
    start_host blob script_host samples/vbscript/blob.vbs "$(windows_path "$base.quorel")" "$(windows_path "$base.in")" \
        "$(windows_path "$base.out")"
    expect "blobs: the sample ends without an error" host_ends_well 0
    expect "blobs: it prints the bytes" host_says '6 bytes: 71756F72656C'
    expect "blobs: Dec changes the variable" host_says '74 is 4A'
    expect "blobs: no picture is made of them" host_says 'it is no picture'
    expect "blobs: the copy is the same" cmp "$base.in" "$base.out"
    rm -f "$base".*
    start_host blob-picture script_host samples/vbscript/blob.vbs "$(windows_path "$base.quorel")" \
        "$(windows_path docs/pictures/error-box.png)" "$(windows_path "$base.out")"
    expect "blobs: a picture's sample ends without an error" host_ends_well 0
    expect "blobs: a PNG is a picture" host_says 'it is a picture'
    expect "blobs: its copy is the same" cmp docs/pictures/error-box.png "$base.out"
}

items_at_192() {
    resolution 192
    start_host selectitem-192 script_host samples/vbscript/selectitem.vbs "$(windows_path "$sample_repository")" Book
    wait_for_form frmSelectItem
    expect "items at 192 dpi: a box takes a click" click_box Persuasion
    expect "items at 192 dpi: and is checked" items_count '1 of 18 checked'
    picture_of selectitem-192
    xdotool key Return
    expect "items at 192 dpi: the host has it" host_says Persuasion
    expect "items at 192 dpi: it ends without an error" host_ends_well 0
    resolution 96
}

selection_tests() {
    checked_items
    items_at_192
    plain_items
    folders
    blobs
}
