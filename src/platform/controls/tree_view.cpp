#include "platform/controls/tree_view.h"

#include <utility>

#include "platform/automation/text.h"
#include "platform/controls/control_parts.h"
#include "platform/controls/tree_view_layout.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

using automation::Object;
using ui::TreeItemId;
using ui::Twips;

namespace {

constexpr ui::KeyChord kFindChord{ui::key('F'), ui::Modifiers::Control};

}  // namespace

TreeView::TreeView(std::u16string_view name, ui::Desktop& desktop)
    : Panel(suffixed(name, u".View")),
      desktop_(desktop),
      findBox_(&add<ui::TextBox>(suffixed(name, u".Find"))),
      foundLabel_(&add<ui::Label>(suffixed(name, u".Found"))),
      tree_(&add<ui::Tree>(name)) {
    findBox_->setCueText(u"Find");
    foundLabel_->setVisible(false);
    tree_->setTextSource([this](TreeItemId item) {
        const std::shared_ptr<TreeEntry> entry = entryAt(item);
        return entry ? textOf(*entry) : std::u16string();
    });
    tree_->onSelect.connect([this](TreeItemId item) { selected(item); });
    tree_->onExpand.connect([this](TreeItemId item) { expanded(item); });
    tree_->onKeyDown.connect([this](ui::KeyEvent& event) { keyInTree(event); });
    findBox_->onKeyDown.connect([this](ui::KeyEvent& event) { keyInBox(event); });
    findBox_->onChange.connect([this] { showFound({}); });
    buildMenu();
}

void TreeView::buildMenu() {
    ui::Menu& menu = tree_->contextMenu();
    menu.add(u"TreeFind", u"&Find\u2026", kFindChord).onClick.connect([this] { findBox_->focus(); });
    menu.add(u"TreeRefresh", u"&Refresh", {ui::Key::F5}).onClick.connect([this] { refresh(); });
}

void TreeView::initialise() {
    const auto alive = keepFormAlive();
    root_ = std::make_shared<TreeDescription>();
    release();
}

void TreeView::setRepository(Object repository) {
    const auto alive = keepFormAlive();
    const bool wasPopulated = populated_;
    drop();
    repository_ = std::move(repository);
    if (wasPopulated)
        populate();
}

std::shared_ptr<TreeDescription> TreeView::AddChildDesc(TreeDescription& parent, std::u16string_view typ,
                                                        std::u16string_view metatype,
                                                        std::u16string_view caption, std::u16string_view icon,
                                                        std::u16string_view paneId) {
    TreeDescription content;
    content.typ = typ;
    content.metatype = metatype;
    content.caption = caption;
    content.icon = icon;
    content.paneId = paneId;
    content.kind = entryKindOf(typ);
    const auto made = makeDescription(std::move(content));
    parent.below.push_back(made);
    describedMore();
    return made;
}

std::shared_ptr<TreeDescription> TreeView::makeDescription(TreeDescription content) {
    content.key = u"Entry:" + automation::decimal(static_cast<std::int64_t>(++descriptions_));
    return std::make_shared<TreeDescription>(std::move(content));
}

void TreeView::describedMore() {
    // Many descriptions come one after the other; they are shown together.
    if (populated_ && !std::exchange(refreshPosted_, true)) {
        desktop_.post([this, life = std::weak_ptr(alive_)] {
            if (life.expired())
                return;
            refreshPosted_ = false;
            if (populated_)
                refresh();
        });
    }
}

std::u16string TreeView::askText(const TreeEntry& entry) {
    return entryText(entry);
}

std::u16string TreeView::askIdentifier(const TreeEntry& entry) {
    return entry.instance.get(u"Identifier").toString();
}

std::shared_ptr<const TreeDescription> TreeView::askDescription(const TreeEntry& entry) {
    return entry.description;
}

std::vector<TreeSearch::Match> TreeView::matchesFor(const std::u16string& folded) {
    return {[this, folded](const TreeEntry& entry) {
        const std::u16string own =
            standsForInstances(entry.kind()) ? askText(entry) : entry.description->caption;
        return automation::foldCase(own).find(folded) != std::u16string::npos;
    }};
}

void TreeView::release() {
    const auto alive = keepFormAlive();
    drop();
    const Object gone = std::exchange(repository_, {});
}

void TreeView::drop() {
    ++generation_;
    populated_ = false;
    textFailureReported_ = false;
    search_.reset();
    failure_.reset();
    tree_->removeChildren(TreeItemId::Root);
    const std::vector<Slot> gone = std::exchange(slots_, {});
}

std::shared_ptr<TreeEntry> TreeView::entryAt(TreeItemId item) const {
    const std::size_t slot = ui::slotOf(item);
    return tree_->contains(item) && slot < slots_.size() ? slots_[slot].entry : nullptr;
}

std::shared_ptr<TreeEntry> TreeView::selectedEntry() const {
    return entryAt(tree_->selected());
}

void TreeView::selectEntry(const TreeEntry* entry) {
    const bool isListed = entry != nullptr && entryAt(entry->item).get() == entry;
    tree_->select(isListed ? entry->item : TreeItemId::None);
}

void TreeView::setImages(std::shared_ptr<ui::ImageList> images) {
    tree_->setImages(std::move(images));
}

void TreeView::selected(TreeItemId item) {
    const auto alive = keepFormAlive();
    if (const std::shared_ptr<TreeEntry> entry = entryAt(item))
        onNodeClick.raise(entry);
    else if (tree_->contains(item))
        listMoreAt(item);
}

void TreeView::expanded(TreeItemId item) {
    const std::shared_ptr<TreeEntry> entry = entryAt(item);
    if (!entry || entry->isListed)
        return;
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    if (list(item) && tree_->childCount(item) == 0 && entry->isListed)
        tree_->setMayHaveChildren(item, false);
    reportFailure();
}

void TreeView::keyInTree(ui::KeyEvent& event) {
    if (event.chord == kFindChord) {
        findBox_->focus();
        findBox_->selectAll();
    } else if (event.chord == ui::KeyChord{ui::Key::F5}) {
        refresh();
    } else if (event.chord == ui::KeyChord{ui::Key::F3}) {
        find(std::u16string(findBox_->text()));
    } else {
        return;
    }
    event.handled = true;
}

void TreeView::keyInBox(ui::KeyEvent& event) {
    if (event.chord == ui::KeyChord{ui::Key::Enter} || event.chord == ui::KeyChord{ui::Key::F3}) {
        find(std::u16string(findBox_->text()));
    } else if (event.chord == ui::KeyChord{ui::Key::Escape}) {
        findBox_->setText(u"");
        showFound({});
        tree_->focus();
    } else if (event.chord == ui::KeyChord{ui::Key::Down}) {
        tree_->focus();
    } else {
        return;
    }
    event.handled = true;
}

void TreeView::showFound(std::u16string_view text) {
    foundLabel_->setText(text);
    foundLabel_->setVisible(!text.empty());
    place();
}

void TreeView::boundsChanged() {
    place();
}

void TreeView::place() {
    const Twips line = desktop_.textSize(u"Xg").height;
    const Twips found = foundLabel_->isVisible() ? desktop_.textSize(foundLabel_->text()).width : Twips{0};
    const TreeViewLayout layout = layoutTreeView(bounds().size(), line, found);
    findBox_->setBounds(layout.findBox);
    foundLabel_->setBounds(layout.foundLabel);
    tree_->setBounds(layout.tree);
}

}  // namespace quorel::controls
