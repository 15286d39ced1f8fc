# shellcheck shell=bash
# The options dialog from outside: settings of every edit type, edited by mouse and keyboard; the registry and the repository
# are read afterwards. Sourced by ./quorel after outside.sh, whose helpers it uses.

settings_key='HKCU\Software\VB and VBA Program Settings\Quorel test\Outside'

# The key is made first, so that to take it away fails only when it cannot be taken away.
forget_settings() { # APPLICATION
    local key="HKCU\\Software\\VB and VBA Program Settings\\$1"
    run_windows 30 reg add "$key" /f >>"$logs/wine.log" 2>&1 &&
        run_windows 30 reg delete "$key" /f >>"$logs/wine.log" 2>&1 ||
        fail "the settings of $1 cannot be taken away"
}

registry_says() { # NAME VALUE
    local line
    line=$(run_windows 30 reg query "$settings_key" /v "$1" | tr -d '\r' | grep "REG_SZ")
    [[ $line =~ REG_SZ[[:space:]]+(.*)$ && ${BASH_REMATCH[1]} == "$2" ]]
}
option_shows() { [[ $(spy frmOptions text "$1") == "$2" ]]; }
options_tab() { spy frmOptions tabs tbsOptions | grep -q "^\*$1$"; }
host_says() { tr -d '\r' <"$host_log" | grep -qxF -- "$1"; }

type_into() { # CONTROL TEXT
    click_on frmOptions "$1" || return 1
    xdotool key ctrl+a
    xdotool type --delay 40 -- "$2"
    sleep 0.4
}

options_first() {
    expect "options: the dialog opens on the first category" options_tab Person
    picture_of "options-$1"
    expect "options: a name is typed" type_into 'EditBox(1)' Berta
    expect "options: it can be reset" spy frmOptions where 'Reset(1)'
    expect "options: a check box takes a click" click_on frmOptions 'Check(1)'
    picture_of "options-changed-$1"
    expect "options: Apply takes a click" click_on frmOptions cmdApply
    expect "options: Apply stores the name" registry_says User Berta
    expect "options: and the check" registry_says Greet 0
    expect "options: the dialog stays" options_tab Person
    expect "options: another name is typed" type_into 'EditBox(1)' Carla
    xdotool key ctrl+Tab
    expect "options: Ctrl+Tab goes to the next category" options_tab Paths
    picture_of "options-paths-$1"
    xdotool key ctrl+shift+Tab ctrl+shift+Tab
    expect "options: Ctrl+Shift+Tab goes round" options_tab About
    xdotool key ctrl+shift+Tab ctrl+shift+Tab
    expect "options: to the one with two columns" options_tab Look
    picture_of "options-look-$1"
    xdotool key ctrl+f
    sleep 0.4
    xdotool type --delay 40 'notes'
    expect "options: the search finds a setting on its tab" options_tab Paths
    expect "options: and counts" option_shows Found '1 of 1'
    picture_of "options-found-$1"
    expect "options: Cancel takes a click" click_on frmOptions cmdCancel
}

# The dialog has the keyboard in its box for the name.
options_file() {
    printf 'notes\n' >"$WINEPREFIX/drive_c/notes.txt"
    expect "options: a file is browsed for" click_on frmOptions 'FileSelector(2).Browse'
    expect "options: in the system's dialog, too" spy '#32770' wait 1
    expect "options: it lists the files of the setting's type" box_says 'Textfile (*.txt)'
    picture_of options-file
    xdotool type --delay 40 'C:\notes.txt'
    xdotool key Return
    expect "options: Enter closes it" spy '#32770' gone 1
    expect "options: the box holds the file" option_shows 'FileSelector(2)' 'C:\notes.txt'
    picture_of options-chosen
}

options_second() {
    wait_for_form frmOptions
    expect "options: Cancel kept what Apply stored" host_says 'first stored User=Berta'
    expect "options: in the repository, too" host_says 'first node User=Berta'
    expect "options: the second time it shows what is stored" option_shows 'EditBox(1)' Berta
    expect "options: a tab takes a click" click_on frmOptions tbsOptions Paths
    expect "options: a missing file is typed" type_into 'FileSelector(1)' 'C:\no\such.exe'
    xdotool key Tab
    expect "options: it is said at once" option_shows Message 'There is no file C:\no\such.exe'
    expect "options: a folder is browsed for" click_on frmOptions 'FileSelector(4).Browse'
    expect "options: in the system's dialog" spy '#32770' wait 1
    picture_of options-folder
    xdotool key Escape
    expect "options: which Esc closes" spy '#32770' gone 1
    options_file
    expect "options: OK takes a click" click_on frmOptions cmdOK
    expect "options: and asks about the missing file" box_says 'There is no file C:\no\such.exe'
    picture_of options-question
    xdotool key Return
    expect "options: and stores it all the same" spy frmOptions gone 1
    expect "options: the host ends without an error" host_ends_well 0
    expect "options: the registry has the file" registry_says Editor 'C:\no\such.exe'
    expect "options: the host reads the file" host_says 'second stored Editor=C:\no\such.exe'
    expect "options: the repository has the file" host_says 'second node Editor=C:\no\such.exe'
    expect "options: and the one that was browsed for" host_says 'second node Notes=C:\notes.txt'
    expect "options: what is shown only stays" host_says 'second node Version=1.0'
    expect "options: what has no tab stays" host_says 'second stored Secret=hidden'
}

options_host() { # NAME
    local file=$outside_dir/options.quorel
    rm -f "$file"*
    forget_settings 'Quorel test'
    start_host "options-$1" script_host tests/outside/options.vbs "$(windows_path "$file")"
    wait_for_form frmOptions
    options_first "$1"
    options_second
}

options_sample() {
    local file=$outside_dir/options-sample.quorel
    rm -f "$file"*
    forget_settings 'Quorel sample'
    start_host options-sample script_host samples/vbscript/options.vbs "$(windows_path "$file")"
    wait_for_form frmOptions
    expect "the sample: the dialog opens" options_tab Person
    picture_of options-sample
    xdotool type --delay 40 'Doris'
    sleep 0.4
    xdotool key Return
    expect "the sample: Enter is OK" spy frmOptions gone 1
    expect "the sample: the host ends without an error" host_ends_well 0
    expect "the sample: it has what was typed" host_says 'User = Doris'
}

options_at_192() {
    resolution 192
    local file=$outside_dir/options.quorel
    rm -f "$file"*
    forget_settings 'Quorel test'
    start_host options-192 script_host tests/outside/options.vbs "$(windows_path "$file")"
    wait_for_form frmOptions
    expect "options at 192 dpi: the dialog opens" options_tab Person
    picture_of options-192
    xdotool key ctrl+Tab
    expect "options at 192 dpi: the next category" options_tab Paths
    picture_of options-paths-192
    xdotool key ctrl+Tab
    expect "options at 192 dpi: and the next" options_tab Look
    picture_of options-look-192
    xdotool key Escape
    wait_for_form frmOptions
    xdotool key Escape
    expect "options at 192 dpi: the host ends without an error" host_ends_well 0
    resolution 96
}

options_tests() {
    options_sample
    options_host 96
    options_at_192
}
