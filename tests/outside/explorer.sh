# shellcheck shell=bash
# The explorer from outside, with real mouse and keyboard input: the samples in three languages, and three levels over a
# package index. Sourced by ./quorel after outside.sh, whose helpers it uses.

tree_holds() { spy frmExplorer items TreeView1 300 | grep -qF -- "$1"; }
tree_selected() { spy frmExplorer items TreeView1 9000 | grep '^\*' | grep -qF -- "$1"; }
tabs_are() { [[ $(spy frmExplorer tabs vsIndexTab1 | tr -d '*' | tr -s '\n\t ' ' ' | sed 's/^ //; s/ $//') == "$1" ]]; }
explorer_holds() { spy frmExplorer rows "$1" 60 | grep -qE "$2"; }
caption_is() { [[ $(spy frmExplorer text PaneCaption) == "$1" ]]; }
lacks_control() { ! spy frmExplorer where "$1"; }

# open_entry PATH: a click on the button before it.
open_entry() {
    local place
    place=$(spy frmExplorer where TreeView1 "$1" button)
    [[ -n $place ]] || return 1
    # shellcheck disable=SC2086
    xdotool mousemove $place click 1
    sleep 0.5
}
click_entry() { click_on frmExplorer TreeView1 "$1"; }

library_by_mouse() { # NAME
    expect "$1: the explorer opens" spy frmExplorer wait 1
    expect "$1: nothing is shown before a click" tabs_are ''
    expect "$1: Authors takes a click" click_entry Authors
    expect "$1: its pane has one tab" tabs_are Authors
    expect "$1: with all authors" explorer_holds 'ListView1(1)' 'Jane Austen'
    expect "$1: Authors opens" open_entry Authors
    expect "$1: with an entry for each" tree_holds 'Jane Austen'
    expect "$1: an author takes a click" click_entry 'Authors/Jane Austen'
    expect "$1: the author's pane is shown" caption_is 'An author'
    expect "$1: with two tabs" tabs_are 'Author Books'
    expect "$1: and no window of the pane before" lacks_control 'ListView1(1)'
    expect "$1: an author opens" open_entry 'Authors/Jane Austen'
    expect "$1: a tab takes a click" click_on frmExplorer vsIndexTab1 Books
    expect "$1: and shows the books" spy frmExplorer where 'ListView1(2)'
    picture_of "explorer-$1"
}

explorer_host() { # NAME COMMAND...
    start_host "explorer-$1" "${@:2}"
    wait_for_form frmExplorer
    library_by_mouse "$1"
    [[ $1 != vbscript ]] || library_further
    xdotool key alt+F4
    expect "$1: Alt+F4 closes the explorer" spy frmExplorer gone 1
    expect "$1: the host ends without an error" host_ends_well 0
}

library_further() {
    local book
    book=$(spy frmExplorer rows 'ListView1(2)' 40 | sed -n 3p | cut -f2)
    expect "the book of a link takes a click" click_entry "Authors/Jane Austen/$book"
    expect "and is shown" caption_is 'A book'
    expect "the tab of its people takes a click" click_on frmExplorer vsIndexTab1 'Written and published by'
    expect "and shows who wrote it" explorer_holds 'ListView1(3)' 'Jane Austen'
    picture_of explorer-book
    expect "the greeting takes a click" click_entry Library
    expect "and is shown" caption_is QuorelExplorer
    picture_of explorer-information
    expect "Ctrl+F goes to the box" click_entry Library
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 'murray'
    xdotool key Return
    expect "what is not listed is found" tree_selected 'John Murray'
    expect "and its pane shown" caption_is 'A publisher'
    picture_of explorer-publisher
    library_combo
}

combo_text() { spy frmExplorer text 'Combo1(1)'; }
combo_shows_another() { [[ -n $(combo_text) && $(combo_text) != "$1" ]]; }

# The target of a link, chosen anew by mouse and keyboard: another link takes the place of the one there was.
library_combo() {
    local before
    before=$(combo_text)
    expect "the combo shows the first book" test -n "$before"
    expect "the combo takes a click" click_on frmExplorer 'Combo1(1)'
    xdotool key Down
    sleep 0.3
    picture_of explorer-combo
    xdotool key Return
    sleep 0.5
    expect "the book that was chosen is the target" combo_shows_another "$before"
    click_on frmExplorer TreeView1 Publishers
    click_on frmExplorer TreeView1 'Publishers/John Murray'
    expect "and stays it" combo_shows_another "$before"
}

packages_by_mouse() {
    expect "the package explorer opens" spy frmExplorer wait 1
    expect "Packages opens" open_entry Packages
    expect "and lists the first hundred" tree_holds '100 more of'
    picture_of packages-listed
    expect "Packages can be left" click_entry About
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 "$1"
    xdotool key Return
    expect "a package far down is found" tree_selected "$1"
    expect "and shown" caption_is 'A package'
    picture_of packages-found
    xdotool key Escape
    sleep 0.3
    xdotool key Right Down
    expect "the keyboard opens it" tree_selected 'Depends on'
    expect "and shows its folder" caption_is 'What a package depends on'
    xdotool key Right Down
    sleep 0.5
    expect "down to a dependency" caption_is 'A package'
    expect "a tab takes a click" click_on frmExplorer vsIndexTab1 'Needed by'
    expect "and shows who needs it" explorer_holds 'ListView1(3)' .
    picture_of packages-needed
    expect "the maintainer's tab takes a click" click_on frmExplorer vsIndexTab1 Maintainer
    picture_of packages-maintainer
    xdotool key alt+F4
    expect "Alt+F4 closes the explorer" spy frmExplorer gone 1
}

# The largest package list that knows libssl3: updates list few packages.
list_of_packages() {
    local list
    for list in $(ls -S "$package_lists"/*_Packages*); do
        if /usr/lib/apt/apt-helper cat-file "$list" | grep -x 'Package: libssl3' >/dev/null; then
            echo "$list"
            return
        fi
    done
    return 1
}

# Some of the packages that the machine knows of: libssl3, what needs it, and others before it.
import_packages() {
    local list wanted='NR <= 2000 || /^Package: (libssl3|libc6)\n/ || /\n(Pre-)?Depends:[^\n]*libssl3/'
    rm -rf "$outside_dir/lists" "$outside_dir/packages.quorel"*
    mkdir -p "$outside_dir/lists"
    fetch_index
    list=$(list_of_packages) || return 1
    /usr/lib/apt/apt-helper cat-file "$list" | awk -v RS= -v ORS='\n\n' "$wanted" \
        >"$outside_dir/lists/some_main_binary-amd64_Packages"
    build/native/bin/quorel-import --apt --lists "$outside_dir/lists" "$outside_dir/packages.quorel" \
        >"$logs/import-packages.log" 2>&1
}

package_explorer() { # REPOSITORY PACKAGE
    start_host packages script_host samples/vbscript/packages.vbs "$(windows_path "$1")"
    wait_for_form frmExplorer
    packages_by_mouse "$2"
    expect "the host ends without an error" host_ends_well 0
}

explorer_at_192() {
    resolution 192
    start_host explorer-192 script_host samples/vbscript/explorer.vbs "$repository"
    wait_for_form frmExplorer
    expect "the explorer at 192 dpi: Authors opens" open_entry Authors
    expect "the explorer at 192 dpi: an author takes a click" click_entry 'Authors/Jane Austen'
    expect "the explorer at 192 dpi: the author's pane is shown" caption_is 'An author'
    picture_of explorer-192
    xdotool key alt+F4
    expect "the explorer at 192 dpi: the host ends without an error" host_ends_well 0
    resolution 96
}

explorer_tests() {
    explorer_host vbscript script_host samples/vbscript/explorer.vbs "$repository"
    explorer_host jscript script_host samples/jscript/explorer.js "$repository"
    explorer_host cpp run_windows 120 build/windows/bin/sample_explorer.exe "$repository"
    explorer_at_192
    expect "a package list is imported" import_packages
    package_explorer "$outside_dir/packages.quorel" libssl3
}
