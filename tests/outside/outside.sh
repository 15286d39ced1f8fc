# shellcheck shell=bash
# The library from outside: hosts in several languages, real windows, real mouse and keyboard input. Sourced by ./quorel,
# run in a virtual display; needs the repository that `import_sample` makes.

outside_dir=$top/build/outside
sample_repository=$outside_dir/library.quorel

import_sample() {
    mkdir -p "$outside_dir"
    rm -f "$sample_repository"*
    build/native/bin/quorel-import --jsonl samples/library.jsonl "$sample_repository" >"$logs/import-sample.log" 2>&1 ||
        fail "the sample repository could not be imported; see $logs/import-sample.log"
}

# expect WHAT COMMAND...: the command must succeed within five seconds.
expect() {
    local what=$1 tries
    shift
    for tries in {1..10}; do
        if "$@" >/dev/null 2>&1; then
            outside_passed=$((outside_passed + 1))
            return 0
        fi
        sleep 0.5
    done
    note "failed after $tries tries: $what"
    outside_failed=$((outside_failed + 1))
}

pane_holds() { spy frmSixPane rows "$1" 40 | grep -qE "$2"; }
pane_counts() { [[ $(spy frmSixPane rows "$1" 0 | head -n 1) == "$2 rows" ]]; }
pane_lacks() {
    local rows
    rows=$(spy frmSixPane rows "$1" 60)
    [[ -n $rows ]] && ! grep -qE "$2" <<<"$rows"
}
pane_has_selection() { spy frmSixPane rows "$1" 60 | grep -q '^\*'; }
selected_in() { [[ $(spy frmSixPane rows "$1" 60 | grep '^\*' | cut -f2) == "$2" ]]; }
control_exists() { spy "$1" where "$2"; }
picture_of() { screenshot "$outside_dir/$1.png"; }

start_host() { # NAME COMMAND...
    host_log=$logs/outside-$1.log
    "${@:2}" >"$host_log" 2>&1 &
    host=$!
}

# Until the form is on the screen and has the keyboard.
wait_for_form() {
    local tries
    spy "$1" wait 60 || return 0
    for tries in {1..20}; do
        [[ -n $(xdotool getactivewindow 2>/dev/null) ]] && break
        sleep 0.2
    done
    sleep 0.5
}

host_ends_well() { # STATUS
    local status=0
    wait "$host" || status=$?
    [[ $status == "$1" ]]
}

script_host() { run_windows 120 build/windows/bin/quorelscript.exe "$(windows_path "$1")" "${@:2}"; }

outside_in_display() {
    local repository
    repository=$(windows_path "$sample_repository")
    browsing_tests
    editing_tests
    keyboard_tests
    matrix_tests
    property_tests
    options_tests
    selection_tests
    hierarchy_tests
    diagram_tests
    navigator_tests
    # The last to come: it changes what the library holds.
    explorer_tests
}

outside_tests() {
    local started=$SECONDS
    outside_passed=0 outside_failed=0
    import_sample
    with_display outside_in_display
    tally "outside: real input" "$outside_passed" "$outside_failed" $((SECONDS - started))
}
