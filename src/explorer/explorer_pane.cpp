#include "explorer/explorer_pane.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "explorer/explorer_window.h"
#include "platform/automation/calls.h"
#include "platform/controls/combo.h"
#include "platform/controls/list_view.h"
#include "platform/controls/property.h"
#include "platform/ui/access_key.h"
#include "platform/ui/plain_controls.h"

namespace quorel::explorer {

using automation::Object;
using controls::TreeEntry;
using ui::Twips;
using namespace ui::literals;

namespace {

constexpr Twips kListHeight = 3000_tw;
constexpr Twips kSeparatorHeight = 30_tw;
constexpr std::u16string_view kExtension = u"Extension";

/// Empty for views of other lists.
[[nodiscard]] std::optional<controls::LinkMode> linkModeOf(std::u16string_view view) {
    if (view == u"Link-Source")
        return controls::LinkMode::Source;
    if (view == u"Link")
        return controls::LinkMode::Link;
    if (view == u"Link-Target")
        return controls::LinkMode::Target;
    return std::nullopt;
}

[[nodiscard]] ExplorerControl described(ControlKind kind, ui::Control& control) {
    ExplorerControl made;
    made.Control = &control;
    made.kind = kind;
    made.typ = typeName(kind);
    return made;
}

}  // namespace

void ExplorerPane::Create(std::u16string_view paneKey, std::u16string_view paneIcon,
                          std::u16string_view caption, ExplorerWindow& window,
                          std::u16string_view defaultSubPane) {
    key = paneKey;
    icon = paneIcon;
    Caption = caption;
    window_ = &window;
    box_ = &window.tabs().addPage(window.nextElement(u"Pane"));
    AddSubPane(defaultSubPane);
    defaultSubPane_ = defaultSubPane;
    active_ = false;
}

// Building.
// ------------------------------------------------------------------------

subPane& ExplorerPane::AddSubPane(std::u16string_view caption) {
    const std::u16string given(caption);
    if (std::any_of(panes_.begin(), panes_.end(), [&](const auto& page) { return page->Caption == given; }))
        throw automation::Error(automation::error_number::kKeyAlreadyUsed);
    auto made = std::make_unique<subPane>();
    made->Pane = &window_->tabs().addPage(window_->nextElement(u"Pane"));
    made->Caption = given;
    return *panes_.emplace_back(std::move(made));
}

subPane& ExplorerPane::Pane(std::u16string_view caption) const {
    for (const auto& page : panes_)
        if (page->Caption == caption)
            return *page;
    throw automation::Error(
        automation::error_number::kSubscriptOutOfRange,
        std::u16string(u"The pane '").append(key) + u"' has no sub pane '" + std::u16string(caption) + u"'",
        u"QuorelUtility");
}

subPane& ExplorerPane::target(std::u16string_view caption) const {
    return Pane(caption.empty() ? std::u16string_view(defaultSubPane_) : caption);
}

template <class Initialise>
void ExplorerPane::place(subPane& page, ExplorerControl control, Twips height, Initialise&& initialise) {
    ui::Control& made = *control.Control;
    made.setBounds({0_tw, page.CurrentHeight, box_->bounds().width, height});
    try {
        std::forward<Initialise>(initialise)();
    } catch (...) {
        made.setVisible(false);
        throw;
    }
    ui::Rect bounds = made.bounds();
    const Placement placement = placeControl(control.kind, page.CurrentHeight, bounds.height);
    bounds.top = placement.top;
    made.setBounds(bounds);
    control.tabCaption = page.Caption;
    page.Controls.push_back(std::move(control));
    page.CurrentHeight = placement.nextHeight;
    enableCommands(page);
}

void ExplorerPane::AddListView(std::u16string_view view, std::u16string_view metaobject,
                               std::u16string_view listIcon, std::u16string_view subPaneCaption) {
    addListOf(view, metaobject, {}, listIcon, subPaneCaption);
}

void ExplorerPane::addListOf(std::u16string_view view, std::u16string_view metaobject, Object type,
                             std::u16string_view listIcon, std::u16string_view subPaneCaption) {
    subPane& page = target(subPaneCaption);
    auto& list = page.Pane->add<controls::ListView>(window_->nextElement(u"ListView1"), window_->desktop());
    ExplorerControl control = described(ControlKind::ListView, list);
    control.view = view;
    control.metatype = metaobject;
    control.icon = listIcon;
    place(page, control, kListHeight, [&] {
        list.empty();
        const auto typeIn = [&](std::u16string_view collection) {
            return type ? type : Object(window_->Repository()).get(collection, control.metatype).toObject();
        };
        if (control.view == kExtension)
            list.fillWithExtension(typeIn(u"MetaNodes"), true);
        else if (const auto mode = linkModeOf(control.view))
            list.setMetaLink(typeIn(u"MetaLinks"), *mode);
        if (!control.icon.empty())
            list.setIcons(window_->smallImages(), control.icon);
        connectList(page, list);
    });
}

void ExplorerPane::AddProperty(std::u16string_view metatype, std::u16string_view subPaneCaption) {
    addPropertyOf(metatype, {}, subPaneCaption);
}

void ExplorerPane::addPropertyOf(std::u16string_view metatype, Object type,
                                 std::u16string_view subPaneCaption) {
    subPane& page = target(subPaneCaption);
    const frame::Environment& world = window_->environment();
    auto& property = page.Pane->add<controls::Property>(window_->nextElement(u"Property1"), world.desktop,
                                                        world.fileDialogs, world.valuePickers);
    ExplorerControl control = described(ControlKind::Property, property);
    control.metatype = metatype;
    place(page, control, 0_tw, [&] {
        property.initialise();
        property.setPath(window_->Path);
        property.setMetaObject(
            type ? type : Object(window_->Repository()).get(u"MetaNodes", control.metatype).toObject());
        property.build();
        const ui::Rect bounds = property.bounds();
        property.setBounds({bounds.left, bounds.top, bounds.width, property.neededHeight()});
        property.onFailure.connect(
            [form = window_](const automation::Error& error) { form->report(u"Property1", error); });
    });
}

void ExplorerPane::AddCombo(std::u16string_view metaobject, std::u16string_view metaLink,
                            std::u16string_view view, std::u16string_view subPaneCaption) {
    subPane& page = target(subPaneCaption);
    auto& combo = page.Pane->add<controls::Combo>(window_->nextElement(u"Combo1"), window_->desktop());
    ExplorerControl control = described(ControlKind::Combo, combo);
    control.view = view;
    control.metatype = metaobject;
    control.extra = metaLink;
    place(page, control, combo.neededHeight(), [&] {
        combo.reset();
        combo.setMetaNode(control.view,
                          Object(window_->Repository()).get(u"MetaNodes", control.metatype).toObject());
        connectCombo(combo, control.extra);
    });
}

void ExplorerPane::AddToolbar(std::u16string_view subPaneCaption) {
    subPane& page = target(subPaneCaption);
    auto& toolbar = page.Pane->add<controls::EditToolbar>(window_->nextElement(u"EditToolbar1"));
    place(page, described(ControlKind::EditToolbar, toolbar), controls::EditToolbar::neededHeight(), [&] {
        toolbar.initialise(0);
        connectToolbar(page, toolbar);
    });
}

void ExplorerPane::AddSeparator(std::u16string_view subPaneCaption) {
    subPane& page = target(subPaneCaption);
    auto& line = page.Pane->add<ui::Line>(window_->nextElement(u"Separator"));
    place(page, described(ControlKind::Separator, line), kSeparatorHeight, [] {});
}

void ExplorerPane::AddLabel(std::u16string_view text, bool bold, std::int32_t size,
                            std::u16string_view subPaneCaption) {
    subPane& page = target(subPaneCaption);
    auto& label = page.Pane->add<ui::Label>(window_->nextElement(u"Label1"));
    label.setFont({{}, size, bold});
    label.setText(ui::escapedForCaption(text));
    const Twips height = window_->desktop().labelSize(label.text(), label.font()).height;
    place(page, described(ControlKind::Label, label), height, [] {});
}

// Showing.
// ------------------------------------------------------------------------

void ExplorerPane::Activate(const Entry& entry) {
    const Entry shown = entry;
    showTabs();
    ShowTab(defaultSubPane_);
    Resize();
    window_->showCaption(icon, Caption);
    entry_ = shown;
    const std::uint64_t releases = window_->releases();
    fillAll(*shown);
    if (releases == window_->releases())
        active_ = true;
}

void ExplorerPane::showTabs() {
    controls::IndexTab& tabs = window_->tabs();
    tabs.hideTabs();
    for (std::size_t i = 0; i < panes_.size(); ++i)
        tabs.showTab(i, panes_[i]->Caption);
}

/// The host may describe more, or end the window, while it is asked.
void ExplorerPane::fillAll(const TreeEntry& entry) {
    const std::uint64_t releases = window_->releases();
    for (std::size_t p = 0; p < panes_.size(); ++p) {
        const subPane& page = *panes_[p];
        for (std::size_t c = 0; c < page.Controls.size(); ++c) {
            fill(page.Controls[c], entry);
            if (releases != window_->releases())
                return;
        }
        enableCommands(page);
    }
    filled();
}

void ExplorerPane::fill(const ExplorerControl& control, const TreeEntry& entry) {
    switch (control.kind) {
        case ControlKind::Property:
            control.as<controls::Property>().setRepObject(nodeOf(entry));
            return;
        case ControlKind::Combo:
            return fillCombo(control, nodeOf(entry));
        case ControlKind::ListView:
            if (linkModeOf(control.view))
                fillLinks(control, nodeOf(entry));
            return;
        case ControlKind::EditToolbar:
        case ControlKind::Separator:
        case ControlKind::Label:
            return;
    }
}

void ExplorerPane::fillLinks(const ExplorerControl& control, const Object& node) {
    auto& list = control.as<controls::ListView>();
    list.clearRows();
    const Object metaLink = Object(window_->Repository()).get(u"MetaLinks", control.metatype).toObject();
    list.SetList_Outgoing(node, metaLink, control.view != u"Link-Source");
}

void ExplorerPane::fillCombo(const ExplorerControl& control, const Object& node) {
    const Object links = node.get(u"Outgoing_", control.extra).toObject();
    Object selection;
    if (links.get(u"Count").toInteger() > 0)
        selection = links.get(u"Item", 1).toObject().get(u"target").toObject();
    control.as<controls::Combo>().setSelection(selection);
}

void ExplorerPane::Deactivate() {
    if (!active_)
        return;
    commit();
    hide();
    active_ = false;
}

void ExplorerPane::commit() {
    const std::uint64_t releases = window_->releases();
    for (std::size_t p = 0; p < panes_.size(); ++p)
        for (std::size_t c = 0; c < panes_[p]->Controls.size(); ++c)
            if (const ExplorerControl& control = panes_[p]->Controls[c];
                control.kind == ControlKind::Property && releases == window_->releases())
                control.as<controls::Property>().apply();
}

void ExplorerPane::hide() {
    for (const auto& page : panes_) {
        page->setVisible(false);
        page->Pane->dropHiddenPeers();
    }
}

void ExplorerPane::ShowTab(std::u16string_view caption) {
    // The new one first, so that the focus finds a place there.
    for (const auto& page : panes_)
        if (page->Caption == caption)
            page->setVisible(true);
    for (const auto& page : panes_)
        if (page->Caption != caption)
            page->setVisible(false);
}

void ExplorerPane::Resize() {
    for (const auto& page : panes_) {
        const ui::Size area = page->Pane->bounds().size();
        for (std::size_t c = 0; c < page->Controls.size(); ++c) {
            ui::Control& control = *page->Controls[c].Control;
            ui::Rect bounds = control.bounds();
            bounds.width = area.width;
            if (c + 1 == page->Controls.size())
                bounds.height = stretchedHeight(area.height, bounds.top);
            control.setBounds(bounds);
        }
    }
}

void ExplorerPane::refill() {
    if (!active_)
        return;
    for (const auto& page : panes_)
        for (const ExplorerControl& control : page->Controls)
            if (control.kind == ControlKind::ListView && control.view == kExtension) {
                const std::uint64_t releases = window_->releases();
                control.as<controls::ListView>().fillWithExtension(
                    Object(window_->Repository()).get(u"MetaNodes", control.metatype).toObject(), true);
                if (releases != window_->releases())
                    return;
            }
    fillAll(*Entry(entry_));
}

void ExplorerPane::release() {
    hide();
    active_ = false;
    const Entry gone = std::exchange(entry_, nullptr);
    for (const auto& page : panes_)
        for (const ExplorerControl& control : page->Controls) {
            if (control.kind == ControlKind::ListView)
                control.as<controls::ListView>().empty();
            else if (control.kind == ControlKind::Property)
                control.as<controls::Property>().release();
            else if (control.kind == ControlKind::Combo)
                control.as<controls::Combo>().reset();
        }
}

}  // namespace quorel::explorer
