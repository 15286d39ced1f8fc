# shellcheck shell=bash
# The demo's fourth window: an explorer made of the package index's own metamodel. Sourced by ./quorel after the outside
# tests' helpers, which it uses.

hierarchy_picture() { picture "hierarchy-$1"; }

show_hierarchy_entry() {
    printf '   %s: %s\n' "$(spy frmHTExplorer text PaneCaption)" \
        "$(spy frmHTExplorer items HierarchyTreeView1 100000 | grep '^\*' | tr -s '\t *' ' ')"
}

walk_hierarchy() {
    spy frmHTExplorer wait 60 || fail "the hierarchy explorer did not appear; see $logs/demo-navigator.log"
    say "The hierarchy explorer over the package index: its types"
    spy frmHTExplorer items HierarchyTreeView1 20 | sed 's/^/   /'
    hierarchy_picture 1-types
    say "Package opens: the first hundred of all"
    open_in_hierarchy Package
    hierarchy_picture 2-packages
    say "$demo_package is found, far down"
    xdotool key ctrl+f
    sleep 0.3
    xdotool type --delay 40 "$demo_package"
    xdotool key Return
    sleep 5
    show_hierarchy_entry
    hierarchy_picture 3-found
    # The first one whose name has it in it.
    local found step
    found=$(spy frmHTExplorer items HierarchyTreeView1 100000 | grep '^\*' | awk '{ print $NF }')
    say "Along its links"
    xdotool key Escape
    sleep 0.3
    xdotool key Right
    sleep 1
    open_in_hierarchy "Package/$found/Package.Depends.Package"
    click_in_hierarchy "Package/$found/Package.Depends.Package"
    show_hierarchy_entry
    hierarchy_picture 4-meta-link
    for step in 5-link 6-dependency; do
        xdotool key Down Right
        sleep 1
        show_hierarchy_entry
        hierarchy_picture "$step"
    done
    xdotool key alt+F4
    spy frmHTExplorer gone 20 || fail "the window did not close"
}
