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

# The line of a property, wherever the keyboard is.
select_property() { # NAME
    local line=$1
    [[ -n $(spy frmPropertyEditor where Property1 "$line") ]] || line+=" *"
    click_on frmPropertyEditor Property1 "$line"
}

dialog_opens() { spy "$1" wait 2; }
dialog_closes() { spy "$1" gone 2; }
box_is_open() { [[ $(spy '#32770' tree | head -n 1) == *"$1"* ]]; }

# By the button beside the text: a name is typed into the system's dialog.
browse_for_file() { # PROPERTY NAME
    select_property "$1"
    xdotool key F2
    sleep 0.4
    expect "$1: the button beside the text can be pressed" click_on frmPropertyEditor Property1.Browse
    expect "$1: the system asks for a file" dialog_opens '#32770'
    sleep 0.5
    [[ ${3:-} == '' ]] || picture_of "$3"
    xdotool type --delay 40 -- "$2"
    sleep 0.4
    xdotool key Return
    expect "$1: Enter closes the dialog" dialog_closes '#32770'
}

files_and_folders() {
    browse_for_file Icon bytes.bin file-dialog
    expect "the chosen file is the value" property_shows 'Icon \*.*bytes\.bin'
    select_property Icon
    xdotool key F4
    expect "F4 asks for a file, too" dialog_opens '#32770'
    xdotool key Escape
    expect "Esc closes the dialog" dialog_closes '#32770'
    xdotool key Escape
    expect "and leaves the value" property_shows 'Icon \*.*bytes\.bin'
    select_property Home
    xdotool key F4
    expect "the system asks for a folder" dialog_opens '#32770'
    sleep 0.5
    picture_of folder-dialog
    # It finds the folder of the value while it is open already.
    sleep 1
    xdotool key Down Return
    expect "Enter takes the folder below the one that it opened with" dialog_closes '#32770'
    expect "the folder is the value" property_shows 'Home \*.*:\\[A-Za-z0-9]'
    browse_for_file Data bytes.bin
    expect "the file's bytes are the value" property_shows 'Data \*.*6 bytes'
    select_property Data
    xdotool key Menu
    sleep 0.5
    xdotool key s
    expect "the system asks where to save" dialog_opens '#32770'
    sleep 0.5
    xdotool key ctrl+a
    xdotool type --delay 40 -- saved.bin
    sleep 0.3
    xdotool key Return
    expect "the dialog closes" dialog_closes '#32770'
    expect "the bytes are in the file" cmp "$outside_dir/values/bytes.bin" "$outside_dir/values/saved.bin"
}

colours_and_days() {
    select_property Cover
    xdotool key alt+Down
    expect "Alt+Down shows the colours" dialog_opens '#32770'
    sleep 0.5
    picture_of colour-dialog
    xdotool key Escape
    expect "Esc closes them" dialog_closes '#32770'
    expect "the colour stays" property_shows 'Cover.*#FF0000'
    xdotool key alt+Down
    expect "they open again" dialog_opens '#32770'
    sleep 0.4
    xdotool key alt+g ctrl+a
    xdotool type --delay 60 128
    xdotool key Return
    expect "Enter takes the colour" dialog_closes '#32770'
    expect "the mixed colour is the value" property_shows 'Cover \*.*#FF8000'
    select_property Printed
    xdotool key F4
    expect "F4 shows a calendar" dialog_opens frmCalendar
    sleep 0.4
    picture_of calendar
    xdotool key Escape
    expect "Esc closes it" dialog_closes frmCalendar
    expect "the day stays" property_shows 'Printed.*1995-12-23'
    xdotool key F4
    expect "the calendar opens again" dialog_opens frmCalendar
    xdotool key --delay 60 Right Down Next Return
    expect "Enter takes the day" dialog_closes frmCalendar
    expect "a day, a week and a month later" property_shows 'Printed \*.*1996-01-31'
}

value_tests() {
    local folder
    rm -rf "$outside_dir/values"
    mkdir -p "$outside_dir"/values/{home,other}
    printf 'Quorel' >"$outside_dir/values/bytes.bin"
    folder=$(windows_path "$outside_dir/values")
    start_host values script_host tests/outside/values.vbs "$folder"
    wait_for_form frmPropertyEditor
    files_and_folders
    colours_and_days
    picture_of values
    xdotool key Return
    expect "Enter is OK" spy frmPropertyEditor gone 2
    expect "the host ends without an error" host_ends_well 0
    expect "the file was written" grep -q '^Icon=.*bytes\.bin' "$host_log"
    expect "and the folder" grep -qE '^Home=.:' "$host_log"
    expect "and the colour" grep -q '^Cover=33023' "$host_log"
    expect "and the day" grep -q '^Printed=.*1996' "$host_log"
}

property_tests() {
    local repository
    repository=$(windows_path "$sample_repository")
    property_sample property-vbscript samples/vbscript/propertyeditor.vbs 41
    property_sample property-jscript samples/jscript/propertyeditor.js 42
    value_tests
}
