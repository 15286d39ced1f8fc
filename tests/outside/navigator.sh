# shellcheck shell=bash
# The navigator as a person has it: its command line, and its windows by keyboard and mouse. Nothing of it is registered: it uses
# what lies beside it. Sourced by ./quorel after outside.sh, whose helpers it uses.

navigator_program=build/windows/bin/navigator.exe
navigate() { run_windows 120 "$navigator_program" "$@"; }

# command_line STATUS RESULT ERROR ARGUMENT...: patterns of the two streams; '' for a stream without a word.
command_line() {
    local status=0 streams=$outside_dir/navigator
    navigate "${@:4}" >"$streams.out" 2>"$streams.err" || status=$?
    [[ $status == "$1" ]] && stream_is "$streams.out" "$2" && stream_is "$streams.err" "$3"
}
stream_is() { if [[ -z $2 ]]; then [[ ! -s $1 ]]; else tr -d '\r' <"$1" | grep -qE -- "$2"; fi; }
without() { [[ ! -e $1 ]]; }

command_line_tests() {
    local here=$outside_dir/'two words' name='мир и книги' from
    rm -rf "$here"
    mkdir -p "$here"
    from=$(windows_path "$here")
    cp samples/library.jsonl "$here/$name.jsonl"
    printf 'no repository\n' >"$here/text.txt"
    printf '{"quorel":1}\n{"node":\n' >"$here/broken.jsonl"
    expect "--version tells the version" command_line 0 '^Quorel Navigator [0-9]+\.[0-9]+' '' --version
    expect "--help tells of every option" command_line 0 '^ +navigator --diagram' '' --help
    expect "what is no option is refused" command_line 2 '' 'there is no option --show' --show
    expect "two files are refused" command_line 2 '' 'one file' a b
    expect "--import makes a repository" command_line 0 '^Imported 42 nodes and 57 links' '' \
        --import "$from\\$name.jsonl" "$from\\$name.quorel"
    expect "it does not write over one" command_line 1 '' "$name.quorel' already exists. Give --replace" \
        --import "$from\\$name.jsonl" "$from\\$name.quorel"
    expect "but when it is asked to" command_line 0 '^Imported' '' \
        --import jsonl "$from\\$name.jsonl" "$from\\$name.quorel" --replace
    expect "a line that is wrong is named" command_line 1 '' 'broken.jsonl:2: ' --import "$from\\broken.jsonl" "$from\\x.quorel"
    expect "a file that is missing is named" command_line 1 '' "no.jsonl'.*moved" --import "$from\\no.jsonl" "$from\\x.quorel"
    expect "a folder that is missing, too" command_line 1 '' 'no folder' --import "$from\\$name.jsonl" "$from\\no folder\\x.quorel"
    expect "nothing is made then" without "$here/x.quorel"
    expect "--export writes it" command_line 0 '^Exported 42 nodes' '' --export "$from\\$name.quorel" "$from\\out file.jsonl"
    expect "the same bytes come back" cmp samples/library.jsonl "$here/out file.jsonl"
    expect "another kind of file is refused" command_line 1 '' "text.txt' is no repository" --export "$from\\text.txt" "$from\\y.jsonl"
    expect "--export does not write over a file" command_line 1 '' 'already exists' --export "$from\\$name.quorel" "$from\\out file.jsonl"
    diagram_line_tests
}

diagram_line_tests() {
    local kind
    for kind in svg png emf; do
        expect "--diagram draws .$kind" command_line 0 "^Saved in .*диаграмма.$kind" '' \
            --diagram "$from\\диаграмма.$kind" "$from\\$name.quorel"
    done
    expect "text is text in the drawing" grep -q '<text.*Book' "$here/диаграмма.svg"
    expect "the picture is one" identify "$here/диаграмма.png"
    expect "--diagram does not write over a file" command_line 1 '' 'already exists' --diagram "$from\\диаграмма.svg" "$from\\$name.quorel"
    expect "but when it is asked to" command_line 0 '^Saved' '' --diagram "$from\\диаграмма.svg" "$from\\$name.quorel" --replace
    expect "another kind of drawing is refused" command_line 2 '' '\.svg, \.png or \.emf' --diagram "$from\\a.gif" "$from\\$name.quorel"
    expect "a repository that is missing is named" command_line 1 '' "no.quorel'.*moved" --diagram "$from\\a.svg" "$from\\no.quorel"
    expect "another kind of file is refused" command_line 1 '' "text.txt' is no repository" --diagram "$from\\a.svg" "$from\\text.txt"
    expect "nothing is drawn then" without "$here/a.svg"
}

navigator_status() { spy frmNavigator panels StatusBar | sed -n "$1p"; }
navigator_tells() { navigator_status "$1" | grep -qE "$2"; }
navigator_lists() { spy frmNavigator rows "$1" 60 | cut -f2 | grep -qxE "$2"; }
# Browsers cover it.
navigator_to_front() {
    xdotool search --name '(^| - )Navigator$' windowactivate
    sleep 0.5
}
# opens_by KEYS FORM NAME KEY: a window on the repository, looked at and left again.
opens_by() {
    xdotool key "$1"
    wait_for_form "$2"
    expect "$3 opens" spy "$2" wait 1
    picture_of "navigator-$3"
    xdotool key "$4"
    expect "$3 closes" spy "$2" gone 5
    sleep 0.5
}

start_navigator() { # ARGUMENT...
    start_host navigator navigate "$@"
    wait_for_form frmNavigator
}

welcome_page() {
    rm -rf "$WINEPREFIX"/drive_c/users/*/AppData/Local/'Quorel Navigator'
    start_navigator
    expect "the welcome page opens" navigator_tells 3 'No repository is open'
    picture_of navigator-welcome
    xdotool key alt+s
    expect "the sample opens" navigator_lists Types Book
    expect "with its instances" navigator_tells 2 '^Instances: 18$'
    picture_of navigator-sample
}

windows_on_the_sample() {
    opens_by ctrl+1 frmSixPane six-pane alt+F4
    opens_by ctrl+2 frmMatrixBrowser matrix alt+F4
    opens_by ctrl+3 frmHTExplorer hierarchy alt+F4
    opens_by ctrl+4 frmExplorer explorer alt+F4
    opens_by ctrl+d frmDiagram diagram Escape
    expect "an instance takes a click" click_on frmNavigator Instances Frankenstein
    opens_by alt+Return frmPropertyEditor properties Escape
    xdotool key alt+t
    sleep 0.4
    opens_by o frmOptions options Escape
}

search_and_reveal() {
    xdotool key ctrl+k
    wait_for_form frmSearch
    xdotool type --delay 40 frankenst
    sleep 1
    picture_of navigator-search
    xdotool key Return
    wait_for_form frmSixPane
    expect "what is found is shown in the browser" selected_in SourceNode Frankenstein
    picture_of navigator-revealed
}

# The browser that shows what was found stands open while the main window is closed.
closing_with_windows_open() {
    navigator_to_front
    xdotool key alt+w
    sleep 0.5
    picture_of navigator-window-menu
    xdotool key Escape Escape
    sleep 0.3
    xdotool key alt+F4
    expect "the main window closes" spy frmNavigator gone 5
    expect "and its browsers with it" spy frmSixPane gone 1
    expect "the program ends" host_ends_well 0
}

# What another program has open is neither replaced nor damaged, and what is no repository is told in a box.
files_in_the_way() {
    local file from
    file=$outside_dir/open.quorel
    rm -f "$file"*
    cp "$sample_repository" "$file"
    from=$(windows_path "$outside_dir")
    start_navigator "$(windows_path "$file")"
    expect "a file on the command line is opened" navigator_tells 3 'open\.quorel$'
    expect "a repository that is open is not replaced" command_line 1 '' "open.quorel' (is in use|cannot be written)" \
        --import "$(windows_path samples/library.jsonl)" "$from\\open.quorel" --replace
    expect "it is still shown" click_on frmNavigator Types Author
    expect "and read" navigator_tells 2 '^Instances: 12$'
    xdotool key alt+F4
    expect "the program ends" host_ends_well 0
    start_navigator "$(windows_path README.md)"
    expect "a box tells what is no repository" spy '#32770' wait 5
    expect "and what to do" box_says 'is no repository'
    picture_of navigator-no-repository
    xdotool key Return
    expect "Enter closes the box" spy '#32770' gone 5
    expect "the welcome page stands" navigator_tells 3 'No repository is open'
    xdotool key alt+F4
    expect "the program ends" host_ends_well 0
}

navigator_tests() {
    command_line_tests
    welcome_page
    windows_on_the_sample
    search_and_reveal
    closing_with_windows_open
    files_in_the_way
}
