# shellcheck shell=bash
# The explorer that follows the metamodel from outside, with real mouse and keyboard input: the samples in three languages, and
# a package index. Sourced by ./quorel after outside.sh, whose helpers it uses.

hierarchy_holds() { spy frmHTExplorer items HierarchyTreeView1 400 | grep -qF -- "$1"; }
hierarchy_selected() { spy frmHTExplorer items HierarchyTreeView1 9000 | grep '^\*' | grep -qF -- "$1"; }
hierarchy_tabs_are() { [[ $(spy frmHTExplorer tabs vsIndexTab1 | tr -d '*' | tr -s '\n\t ' ' ' | sed 's/^ //; s/ $//') == "$1" ]]; }
hierarchy_list() { spy frmHTExplorer rows "$1" 60 | grep -qE "$2"; }
hierarchy_caption() { [[ $(spy frmHTExplorer text PaneCaption) == "$1" ]]; }
# open_in_hierarchy PATH: a click on the button before it.
open_in_hierarchy() {
    local place
    place=$(spy frmHTExplorer where HierarchyTreeView1 "$1" button)
    [[ -n $place ]] || return 1
    # shellcheck disable=SC2086
    xdotool mousemove $place click 1
    sleep 0.5
}
click_in_hierarchy() { click_on frmHTExplorer HierarchyTreeView1 "$1"; }
# The lists of the pane that is seen.
seen_lists() {
    local number
    for number in {1..60}; do
        [[ -n $(spy frmHTExplorer where "ListView1($number)") ]] && printf 'ListView1(%s)\n' "$number"
    done
}
seen_list_holds() { hierarchy_list "$(seen_lists | head -n 1)" "$1"; }
last_list_holds() { hierarchy_list "$(seen_lists | tail -n 1)" "$1"; }

authors_by_mouse() { # NAME
    expect "$1: the hierarchy opens" spy frmHTExplorer wait 1
    expect "$1: with every type" hierarchy_holds Publisher
    expect "$1: a type takes a click" click_in_hierarchy Author
    expect "$1: its pane has one tab" hierarchy_tabs_are Instances
    expect "$1: with all its nodes" seen_list_holds 'Jane Austen'
    expect "$1: the type opens" open_in_hierarchy Author
    expect "$1: an author takes a click" click_in_hierarchy 'Author/Jane Austen'
    expect "$1: with properties" hierarchy_tabs_are Properties
    picture_of "hierarchy-$1"
}

books_by_mouse() {
    local austen='Author/Jane Austen'
    expect "an author opens" open_in_hierarchy "$austen"
    expect "with the author's meta links" hierarchy_holds Author.Wrote.Book
    expect "a meta link takes a click" click_in_hierarchy "$austen/Author.Wrote.Book"
    expect "its pane has one tab" hierarchy_tabs_are Links
    expect "with the author's books" seen_list_holds Emma
    picture_of hierarchy-meta-link
    expect "a meta link opens" open_in_hierarchy "$austen/Author.Wrote.Book"
    expect "a link takes a click" click_in_hierarchy "$austen/Author.Wrote.Book/Emma"
    expect "and shows who wrote the book" last_list_holds 'Jane Austen'
    picture_of hierarchy-link
    expect "a link opens" open_in_hierarchy "$austen/Author.Wrote.Book/Emma"
    expect "the book takes a click" click_in_hierarchy "$austen/Author.Wrote.Book/Emma/Emma"
    expect "and is shown" hierarchy_caption Book
    expect "the book opens" open_in_hierarchy "$austen/Author.Wrote.Book/Emma/Emma"
    expect "with what leads to it" hierarchy_holds '(incoming)'
    xdotool key Right Down
    sleep 0.4
    expect "the keyboard goes on" hierarchy_selected '(incoming)'
    picture_of hierarchy-cycle
    books_by_keyboard
}

books_by_keyboard() {
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 'murray'
    xdotool key Return
    expect "what is not listed is found" hierarchy_selected 'John Murray'
    expect "and shown" hierarchy_caption Publisher
    xdotool key Escape
    xdotool key F5
    sleep 0.5
    expect "F5 keeps what is selected" hierarchy_selected 'John Murray'
    picture_of hierarchy-found
}

hierarchy_host() { # NAME COMMAND...
    start_host "hierarchy-$1" "${@:2}"
    wait_for_form frmHTExplorer
    authors_by_mouse "$1"
    [[ $1 != vbscript ]] || books_by_mouse
    xdotool key alt+F4
    expect "$1: Alt+F4 closes the hierarchy" spy frmHTExplorer gone 1
    expect "$1: the host ends without an error" host_ends_well 0
}

# The metamodel of packages: cycles, and very many nodes.
package_hierarchy() { # REPOSITORY PACKAGE
    start_host hierarchy-packages script_host samples/vbscript/htexplorer.vbs "$(windows_path "$1")"
    wait_for_form frmHTExplorer
    expect "the hierarchy of packages opens" spy frmHTExplorer wait 1
    expect "Package opens" open_in_hierarchy Package
    expect "and lists the first hundred" hierarchy_holds 'more of'
    picture_of hierarchy-packages
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 "$2"
    xdotool key Return
    expect "a package far down is found" hierarchy_selected "$2"
    picture_of hierarchy-package
    xdotool key Escape
    sleep 0.3
    xdotool key Right
    sleep 0.4
    expect "a meta link opens" open_in_hierarchy "Package/$2/Package.Depends.Package"
    expect "and takes a click" click_in_hierarchy "Package/$2/Package.Depends.Package"
    picture_of hierarchy-depends
    xdotool key Down
    sleep 0.4
    xdotool key Right Down
    sleep 0.6
    expect "down to the package at the other end of a link" hierarchy_caption Package
    picture_of hierarchy-dependency
    xdotool key alt+F4
    expect "Alt+F4 closes the hierarchy" spy frmHTExplorer gone 1
    expect "the host ends without an error" host_ends_well 0
}

hierarchy_tests() {
    hierarchy_host vbscript script_host samples/vbscript/htexplorer.vbs "$repository"
    hierarchy_host jscript script_host samples/jscript/htexplorer.js "$repository"
    hierarchy_host cpp run_windows 120 build/windows/bin/sample_htexplorer.exe "$repository"
    expect "a package list is imported" import_packages
    package_hierarchy "$outside_dir/packages.quorel" libssl3
}
