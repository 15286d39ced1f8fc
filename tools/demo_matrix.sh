# shellcheck shell=bash
# The demo's second window: the matrix browser walks from a package along its dependencies. Sourced by ./quorel.

matrix_rows() { spy frmMatrixBrowser rows "$@"; }

# show_source: which package is the source, and the first of its targets.
show_source() {
    printf '   source: %s\n' "$(matrix_rows SourceInstanceList 60 | grep '^\*' | cut -f2,3,8 | tr '\t' ' ' | cut -c1-110)"
    matrix_rows TargetInstanceList 6 | cut -f2,3,8 | tr '\t' ' ' | cut -c1-110 | sed 's/^/     /'
}

# choose_meta_link CONTROL NAME: by keyboard, as their first column is the same for all.
choose_meta_link() {
    local row
    row=$(matrix_rows "$1" 60 | sed 1,2d | cut -f3 | grep -nx "$2" | cut -d: -f1)
    [[ -n $row ]] || fail "there is no meta link $2"
    click_on frmMatrixBrowser "$1"
    xdotool key Home
    for ((; row > 1; --row)); do xdotool key Down; done
    sleep 0.6
}

# go_to_target ROW: a double-click on a link makes the node at its other end the source.
go_to_target() {
    local place
    place=$(spy frmMatrixBrowser where TargetInstanceList "$1")
    [[ -n $place ]] || fail "there is no target $1"
    # shellcheck disable=SC2086
    xdotool mousemove $place click --repeat 2 --delay 60 1
    sleep 1
}

first_target() { matrix_rows TargetInstanceList 3 | sed -n 3p | cut -f2; }

walk_dependencies() {
    local step target
    spy frmMatrixBrowser wait 60 || fail "the matrix browser did not appear; see $logs/demo-navigator.log"
    say "The matrix browser with the package $demo_package as the source"
    xdotool key ctrl+Home
    for step in 1 2 3; do
        choose_meta_link MetaLinkListOutgoing Package.Depends.Package
        target=$(first_target)
        show_source
        picture "matrix-$step-depends"
        [[ -n $target ]] || break
        say "A double-click on $target"
        go_to_target "$target"
    done
    show_source
    picture matrix-4-arrived
    say "Alt+Left, twice, goes back"
    xdotool key alt+Left
    sleep 1
    xdotool key alt+Left
    sleep 1
    show_source
    picture matrix-5-back
    say "Enter on the source opens its properties"
    click_on frmMatrixBrowser SourceInstanceList
    xdotool key Return
    spy NodeEdit wait 10 || fail "the node's properties did not appear"
    sleep 0.5
    picture matrix-6-node
    xdotool key Escape
    spy NodeEdit gone 10 || fail "the node's properties did not close"
    click_on frmMatrixBrowser SourceMetaNodeList
    sleep 0.5
    xdotool key alt+F4
    spy frmMatrixBrowser gone 20 || fail "the window did not close"
}
