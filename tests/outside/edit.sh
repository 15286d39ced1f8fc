# shellcheck shell=bash
# The six-pane browser's commands: nodes, links and types are made and deleted by hand.

title_is() { [[ $(spy "$1" tree | head -n 1) == "$1 \"$2\"" ]]; }
text_is() { [[ $(spy "$1" text "$2") == "$3" ]]; }
not_there() { ! spy "$1" where; }

# press_button NAME: with the mouse.
press_button() { expect "$1 takes a click" click_on frmSixPane "$1"; }

# answer FORM TEXT KEY...: types into the dialog and ends it with the last of the keys.
answer() {
    wait_for_form "$1"
    [[ -z $2 ]] || xdotool type --delay 40 "$2"
    sleep 0.3
    xdotool key --delay 80 "${@:3}"
    expect "$1 closes" spy "$1" gone 2
}

nodes_are_made() {
    expect "Author is chosen" click_on frmSixPane SourceMetaNode Author
    local before
    before=$(spy frmSixPane rows SourceNode 0 | head -n 1)
    press_button NewSourceNode
    expect "the name dialog asks for a node of the type" title_is frmNameEdit "New node of type Author"
    picture_of new-node
    answer frmNameEdit 'Emily Example' Return
    expect "the new node is listed" pane_holds SourceNode 'Emily Example'
    expect "and selected" selected_in SourceNode 'Emily Example'
    local after
    after=$(spy frmSixPane rows SourceNode 0 | head -n 1)
    expect "it is one more" test "$after" != "$before"
    press_button NewSourceNode
    answer frmNameEdit 'Nobody' Escape
    press_button NewSourceNode
    answer frmNameEdit 'Nobody' alt+F4
    expect "a cancelled name makes nothing" pane_counts SourceNode "${after% rows}"
    expect "Book is chosen" click_on frmSixPane TargetMetaNode Book
    expect "TargetNode takes a click" click_on frmSixPane TargetNode
    xdotool key Insert
    expect "Ins asks for a name" title_is frmNameEdit "New node of type Book"
    answer frmNameEdit 'An Example' Return
    expect "the node is listed on the other side" selected_in TargetNode 'An Example'
}

# An empty name is a name; a node of a type that is chosen at both ends goes from both lists.
nodes_at_both_ends() {
    expect "Shelf is chosen at the source" click_on frmSixPane SourceMetaNode Shelf
    expect "and at the target" click_on frmSixPane TargetMetaNode Shelf
    local before
    before=$(spy frmSixPane rows SourceNode 0 | head -n 1)
    before=${before% rows}
    press_button NewTargetNode
    answer frmNameEdit '' Return
    expect "a node without a name is made" pane_counts TargetNode $((before + 1))
    expect "and listed at both ends" pane_counts SourceNode $((before + 1))
    press_button DeleteTargetNode
    expect "it is gone" pane_counts TargetNode "$before"
    expect "from both ends" pane_counts SourceNode "$before"
}

link_needs_all_three() {
    expect "a meta link is chosen" click_on frmSixPane MetaLink Author.Wrote.Book
    expect "and a source" choose frmSixPane SourceNode 'Emily Example'
    xdotool key alt+l
    sleep 0.3
    xdotool key Insert
    sleep 0.5
    expect "without a target nobody asks for a link" not_there frmNameEdit
}

link_is_made() {
    expect "the meta link is chosen" click_on frmSixPane MetaLink Author.Wrote.Book
    expect "an author is chosen" choose frmSixPane SourceNode 'Emily Example'
    expect "a book is chosen" choose frmSixPane TargetNode 'An Example'
    press_button NewLink
    expect "the name dialog asks for a link of the type" title_is frmNameEdit "New link of type Author.Wrote.Book"
    expect "and proposes the names of both ends" text_is frmNameEdit NameBox 'Emily Example->An Example'
    picture_of new-link
    answer frmNameEdit '' Return
    expect "the new link is listed and selected" selected_in Link 'Emily Example->An Example'
    picture_of editing
}

all_is_deleted() {
    expect "the author is chosen" click_on frmSixPane SourceNode 'Emily Example'
    xdotool key Delete
    sleep 0.5
    expect "a node with a link stays" selected_in SourceNode 'Emily Example'
    expect "and nothing is said" not_there '#32770'
    expect "the link is chosen" click_on frmSixPane Link 'Emily Example->An Example'
    press_button DeleteLink
    expect "the link is gone" pane_lacks Link 'Emily Example->'
    expect "the author is chosen again" click_on frmSixPane SourceNode 'Emily Example'
    press_button DeleteSourceNode
    expect "the author is gone" pane_lacks SourceNode 'Emily Example'
    expect "the book is chosen again" choose frmSixPane TargetNode 'An Example'
    xdotool key Delete
    sleep 0.5
    expect "the book is gone" pane_lacks TargetNode 'An Example'
}

# menu KEY...: through the menu bar by keyboard.
menu() {
    xdotool key --delay 150 alt+e "$@"
    sleep 0.5
}

# Both ends of a meta link of their own.
types_are_made() {
    menu m
    expect "SourceMetaNode takes a click" click_on frmSixPane SourceMetaNode Author
    xdotool key Insert
    expect "Ins asks for a meta class" title_is frmDynMetaObject "Dynamic MetaClass"
    expect "which is persistent unless the tick is taken away" spy frmDynMetaObject checked Persistent
    picture_of dynamic-meta-class
    answer frmDynMetaObject 'Prize' Return
    expect "the source types have it" pane_holds SourceMetaNode Prize
    expect "the target types, too" pane_holds TargetMetaNode Prize
    xdotool key Insert
    answer frmDynMetaObject 'Nothing' Escape
    xdotool key Insert
    answer frmDynMetaObject 'Nothing' alt+F4
    expect "a cancelled type is not made" pane_lacks SourceMetaNode Nothing
    expect "the source of the association is chosen" click_on frmSixPane SourceMetaNode Author
    expect "its target is chosen" click_on frmSixPane TargetMetaNode Prize
    menu a
    expect "the menu asks for a meta association" title_is frmDynMetaObject "Dynamic MetaAssoc"
    answer frmDynMetaObject 'Won' Return
    expect "it is named by its ends" pane_holds MetaLink 'Author\.Won\.Prize'
    picture_of metamodel
}

lacks_prizes() { pane_lacks SourceMetaNode Prize && pane_lacks TargetMetaNode Prize; }

types_are_deleted() {
    expect "a stored meta link is chosen" click_on frmSixPane MetaLink Author.Wrote.Book
    expect "its links are listed" pane_holds Link .
    xdotool key Delete
    sleep 0.7
    expect "a stored type stays, but every list is filled anew" pane_counts Link 0
    expect "it is still there" pane_holds MetaLink 'Author\.Wrote\.Book'
    expect "the made one is chosen" click_on frmSixPane MetaLink Author.Won.Prize
    menu c
    expect "the made association is gone" pane_lacks MetaLink Won
    expect "the made class is chosen" click_on frmSixPane TargetMetaNode Prize
    xdotool key Delete
    sleep 0.7
    expect "the made class is gone from both sides" lacks_prizes
}

editing_tests() {
    start_host editing script_host samples/vbscript/browse.vbs "$repository"
    wait_for_form frmSixPane
    nodes_at_both_ends
    nodes_are_made
    link_needs_all_three
    link_is_made
    all_is_deleted
    types_are_made
    types_are_deleted
    xdotool key alt+F4
    expect "the host ends without an error" host_ends_well 0
}
