# shellcheck shell=bash
# Reading and driving the library's windows from outside, with real input. Sourced by ./quorel.

spy() { run_windows 30 build/windows/bin/quorelspy.exe "$@" | tr -d '\r'; }

# click_on FORM CONTROL [ROW]
click_on() {
    local place
    place=$(spy "$1" where "${@:2}")
    if [[ -z $place ]]; then
        note "there is no '${*:2}' in $1"
        return 1
    fi
    # shellcheck disable=SC2086
    xdotool mousemove $place click 1
    sleep 0.4
}

# choose FORM CONTROL ROW: as a person does it: a click into the list, the first letters, a click on the row.
choose() {
    if [[ -z $(spy "$1" where "$2" "$3") ]]; then
        click_on "$1" "$2" || return 1
        xdotool type --delay 40 "$3"
        sleep 0.5
    fi
    click_on "$1" "$2" "$3"
}

# screenshot FILE: of what stands on the screen's black ground, once the windows have painted.
screenshot() {
    sleep 0.7
    import -silent -window root -trim +repage "$1"
}
