# shellcheck shell=bash
# The property editor from outside: the samples with script callbacks, driven by the keyboard. Sourced by ./quorel after
# outside.sh, whose helpers it uses.

property_shows() { spy frmPropertyEditor rows Property1 40 | grep -qE "$1"; }

edit_property() { # TEXT
    xdotool key F2
    sleep 0.4
    xdotool type --delay 40 -- "$1"
    sleep 0.3
    xdotool key Return
    sleep 0.4
}

property_sample() { # NAME SCRIPT NUMBER
    start_host "$1" script_host "$2" "$repository" Shelf
    wait_for_form frmPropertyEditor
    expect "$1: the editor opens" property_shows Floor
    xdotool key Down
    sleep 0.3
    edit_property "-$3"
    expect "$1: the script refuses a negative number" control_exists frmPropertyEditor Property1.Message
    picture_of "$1"
    xdotool key Escape
    edit_property "$3"
    expect "$1: a changed value is marked" property_shows "Floor \\*.*$3"
    xdotool key Return
    expect "$1: Enter is OK" spy frmPropertyEditor gone 1
    expect "$1: the host ends without an error" host_ends_well 0
    expect "$1: the script was told of the change" grep -q -- "-> $3" "$host_log"
    expect "$1: the script knows the answer" grep -q '^Saved' "$host_log"
}

property_tests() {
    local repository
    repository=$(windows_path "$sample_repository")
    property_sample property-vbscript samples/vbscript/propertyeditor.vbs 41
    property_sample property-jscript samples/jscript/propertyeditor.js 42
}
