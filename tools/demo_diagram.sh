# shellcheck shell=bash
# The demo's diagrams: the metamodel of the package index, and that of the sample library. Sourced by ./quorel after the outside
# tests' helpers, which it uses.

diagram_picture() { picture "diagram-$1"; }

walk_diagram() {
    spy frmDiagram wait 60 || fail "the diagram did not appear; see $logs/demo-navigator.log"
    say "The metamodel of the package index: $(spy frmDiagram panels StatusBar1 | head -n 3 | tr '\n' ' ')"
    sleep 1
    diagram_picture 1-opened
    say "Its own size"
    xdotool key ctrl+0
    sleep 0.5
    diagram_picture 2-own-size
    say "Package is found, with its neighbours"
    xdotool key ctrl+f
    sleep 0.5
    xdotool type --delay 40 Package
    sleep 0.5
    diagram_picture 3-found
    xdotool key Escape
    sleep 0.3
    say "The wheel"
    point_at_diagram
    xdotool click --repeat 4 4
    sleep 0.5
    diagram_picture 4-larger
    xdotool key Escape
    sleep 0.3
    xdotool key Escape
    spy frmDiagram gone 20 || fail "the diagram did not close"
}
