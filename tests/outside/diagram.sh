# shellcheck shell=bash
# Diagrams from outside, with real mouse and keyboard input: the metamodel of the sample repository is drawn, looked at, and saved
# by the real dialog. Sourced by ./quorel after outside.sh, whose helpers it uses.

diagram_panel() { spy frmDiagram panels StatusBar1 | sed -n "$1p"; }
diagram_tells() { diagram_panel "$1" | grep -qE "$2"; }
diagram_scale() { diagram_panel 3 | tr -dc '0-9.'; }
# What a screen reader says of the drawing.
diagram_says() { spy frmDiagram tree | grep -qE "^ *Diagram \[QuorelDrawing\] [^\"]*\"$1"; }
point_at_diagram() {
    local place
    place=$(spy frmDiagram where Diagram)
    [[ -n $place ]] || return 1
    # shellcheck disable=SC2086
    xdotool mousemove $place
}
diagram_scale_is_over() { awk -v now="$(diagram_scale)" -v before="$1" 'BEGIN { exit !(now > before * 1.05) }'; }
# looks_other_than NAME: than the picture that was taken last under that name.
looks_other_than() {
    local now=$outside_dir/diagram-now.png
    screenshot "$now"
    ! compare -metric AE "$outside_dir/$1.png" "$now" null: >/dev/null 2>&1
}

diagram_by_mouse() {
    local scale
    picture_of diagram-metamodel
    scale=$(diagram_scale)
    point_at_diagram
    xdotool click --repeat 3 4
    expect "the wheel makes it larger" diagram_scale_is_over "$scale"
    picture_of diagram-larger
    xdotool mousedown 1 mousemove_relative 60 40 mousemove_relative 60 40 mouseup 1
    expect "a drag moves it" looks_other_than diagram-larger
    picture_of diagram-moved
    xdotool key Home Return
    sleep 0.5
    expect "Home chooses a box" diagram_says '[^"]+, [0-9]+ propert'
    xdotool key Escape
    expect "Esc clears the choice" diagram_says 'Diagram"'
    point_at_diagram
    xdotool click 1
    expect "a click chooses the box in the middle" diagram_says '[^"]+, [0-9]+ propert'
    picture_of diagram-chosen
}

find_in_diagram() { # NAME
    xdotool key ctrl+f
    sleep 0.5
    xdotool type --delay 40 "$1"
    xdotool key Return
    expect "$1 is found" diagram_says "$1, "
    picture_of "diagram-found"
    xdotool key Escape
    sleep 0.3
}

# save_diagram NAME.EXTENSION: as a person does it.
save_diagram() {
    xdotool key ctrl+s
    for _ in {1..20}; do
        [[ $(xdotool getactivewindow getwindowname 2>/dev/null) == 'Save the diagram' ]] && break
        sleep 0.3
    done
    sleep 0.5
    xdotool key ctrl+a
    xdotool type --delay 20 "$(windows_path "$outside_dir/$1")"
    xdotool key Return
    expect "the status line names $1" diagram_tells 4 "Saved in .*$1"
}

saved_diagrams() {
    local kind
    rm -f "$outside_dir"/diagram-saved.*
    for kind in svg png emf; do save_diagram "diagram-saved.$kind"; done
    expect "text is text in the SVG file" grep -q '<text.*Book' "$outside_dir/diagram-saved.svg"
    expect "the PNG file is a picture" identify "$outside_dir/diagram-saved.png"
    expect "the EMF file is a metafile" test "$(dd if="$outside_dir/diagram-saved.emf" bs=1 skip=40 count=4 2>/dev/null)" = ' EMF'
    expect "with the text" grep -aqP 'B\x00o\x00o\x00k' "$outside_dir/diagram-saved.emf"
}

diagram_tests() {
    start_host diagram-sample script_host samples/vbscript/diagram.vbs
    wait_for_form frmDiagram
    expect "a host's own diagram opens" diagram_tells 1 '^3 boxes$'
    expect "with its connections" diagram_tells 2 '^2 connections$'
    picture_of diagram-sample
    xdotool key Escape
    expect "Esc closes it" host_ends_well 0
    start_host diagram script_host samples/vbscript/metamodel.vbs "$repository"
    wait_for_form frmDiagram
    expect "the diagram opens" spy frmDiagram wait 1
    expect "with a box for each type" diagram_tells 1 '^[0-9]+ boxes$'
    diagram_by_mouse
    find_in_diagram Book
    saved_diagrams
    xdotool key Escape
    sleep 0.3
    xdotool key Escape
    expect "Esc clears the choice, then closes the diagram" spy frmDiagram gone 1
    expect "the host ends without an error" host_ends_well 0
}
