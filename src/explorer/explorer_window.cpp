#include "explorer/explorer_window.h"

#include <array>

#include "explorer/explorer_layout.h"
#include "frame/attempt.h"
#include "frame/window_placement.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/controls/combo.h"
#include "platform/controls/list_view.h"
#include "platform/controls/property.h"
#include "platform/ui/access_key.h"

namespace quorel::explorer {

using automation::Object;
using namespace ui::literals;

namespace {

constexpr ui::Size kFirstSize{13500_tw, 9000_tw};
constexpr std::u16string_view kNamespace = u"Explorer";
constexpr std::int32_t kCaptionPoints = 16;

}  // namespace

ExplorerWindow::ExplorerWindow(const frame::Environment& environment, std::u16string_view name)
    : Form(environment.desktop, name),
      environment_(environment),
      elastic_(&add<controls::Elastic>(u"vsElastic1")) {}

void ExplorerWindow::build(ui::Control& tree) {
    tree_ = &tree;
    splitter_ = &elastic_->add<ui::Splitter>(u"Splitter", ui::Orientation::Vertical);
    captionBox_ = &elastic_->add<ui::PictureBox>(u"CaptionBox");
    paneCaption_ = &elastic_->add<ui::Label>(u"PaneCaption");
    line_ = &elastic_->add<ui::Line>(u"Line1");
    tabs_ = &elastic_->add<controls::IndexTab>(u"vsIndexTab1");
    paneCaption_->setFont({u"Arial", kCaptionPoints, true});
    tabs_->hideTabs();
    addTemplates();
    splitter_->onMove.connect([this](ui::Twips left) {
        split_ = withSplitter(left, elastic_->bounds().size());
        place();
        resizePanes();
    });
    captionBox_->onClick.connect([this] { captionBox_->setVisible(false); });
    tabs_->onSelect.connect([this](std::size_t oldTab, std::size_t newTab) { Switch(oldTab, newTab); });
    elastic_->onResize.connect([this] {
        place();
        resizePanes();
    });
    onResize.connect([this] { elastic_->setBounds({0_tw, 0_tw, clientSize().width, clientSize().height}); });
    onLoad.connect([this] { Form_Load(); });
    onUnload.connect([this] { Form_Unload(); });
    setMinimumClientSize(leastExplorerSize());
    setClientSize(kFirstSize);
    tree.focus();
}

void ExplorerWindow::addTemplates() {
    static_cast<void>(tabs_->addPage(u"Pane(0)"));
    const std::array<ui::Control*, 6> templates{
        &elastic_->add<controls::ListView>(u"ListView1(0)", desktop()),
        &elastic_->add<controls::Property>(u"Property1(0)", desktop(), environment_.fileDialogs,
                                           environment_.valuePickers),
        &elastic_->add<controls::Combo>(u"Combo1(0)", desktop()),
        &elastic_->add<controls::EditToolbar>(u"EditToolbar1(0)"),
        &elastic_->add<ui::Label>(u"Label1(0)"),
        &elastic_->add<ui::Line>(u"Separator(0)"),
    };
    for (ui::Control* const each : templates)
        each->setVisible(false);
}

void ExplorerWindow::place() {
    const ExplorerLayout layout = layoutExplorer(elastic_->bounds().size(), split_);
    tree_->setBounds(layout.tree);
    splitter_->setBounds(layout.splitter);
    captionBox_->setBounds(layout.captionBox);
    paneCaption_->setBounds(layout.paneCaption);
    line_->setBounds(layout.line);
    tabs_->setBounds(layout.tabs);
}

void ExplorerWindow::resizePanes() {
    for (const auto& pane : panes_)
        pane->Resize();
}

// The lifecycle.
// ------------------------------------------------------------------------

void ExplorerWindow::PopUp(bool modal) {
    procedure(u"PopUp", [&] {
        const std::uint64_t releases = releases_;
        fillTree();
        if (releases != releases_)
            return;
        wasShown_ = true;
        show(modal ? ui::Modality::Modal : ui::Modality::Modeless);
    });
}

void ExplorerWindow::Conceal() {
    procedure(u"Conceal", [this] { hide(); });
}

void ExplorerWindow::Deinit() {
    procedure(u"Deinit", [this] { release(); });
}

void ExplorerWindow::Destroy() noexcept {
    // Each reference is empty before its object ends, since that may come back here.
    frame::attempt([this] { release(); });
    for (Object* const held : {&repository_, &uuidGenerator_})
        held->reset();
}

void ExplorerWindow::release() {
    ++releases_;
    shown_ = nullptr;
    const Entry gone = std::exchange(current_, nullptr);
    tabs_->hideTabs();
    showCaption({}, {});
    for (std::size_t i = 0; i < panes_.size(); ++i)
        panes_[i]->release();
    releaseTree();
}

void ExplorerWindow::Form_Load() {
    procedure(u"Form_Load", [this] {
        const std::array shares{frame::KeptShare{u"Tree", &split_}};
        if (const auto placement = frame::readWindowPlacement(environment_.settings, name(), shares)) {
            frame::place(*this, *placement);
            place();
            resizePanes();
        }
    });
}

void ExplorerWindow::Form_Unload() {
    if (const auto dialog = dialog_.lock())
        dialog->unload();
    // The user has not left the pane, but will not come back to it either.
    if (shown_ != nullptr && shown_->Active())
        procedure(u"Form_Unload", [this] { shown_->commit(); });
    if (!wasShown_)
        return;
    procedure(u"Form_Unload", [this] {
        std::int32_t split = 0;
        const auto former = frame::readWindowPlacement(environment_.settings, name(),
                                                       std::array{frame::KeptShare{u"Tree", &split}});
        const frame::WindowPlacement now =
            frame::placementOf(*this, former.value_or(frame::WindowPlacement{{}, kFirstSize}));
        frame::writeWindowPlacement(environment_.settings, name(), now,
                                    std::array{frame::KeptShare{u"Tree", &split_}});
    });
}

// Panes and pictures.
// ------------------------------------------------------------------------

ExplorerPane* ExplorerWindow::AddPane(std::u16string_view paneId, std::u16string_view icon,
                                      std::u16string_view caption, std::u16string_view subPane) {
    return procedure(u"AddPane", [&]() -> ExplorerPane* {
        if (panesById_.contains(paneId))
            throw automation::Error(automation::error_number::kKeyAlreadyUsed);
        std::unique_ptr<ExplorerPane> made = makePane();
        made->Create(paneId, icon, caption, *this, subPane);
        ExplorerPane* const pane = panes_.emplace_back(std::move(made)).get();
        panesById_.emplace(paneId, pane);
        return pane;
    });
}

ExplorerPane& ExplorerWindow::Panes(std::u16string_view paneId) const {
    const auto found = panesById_.find(paneId);
    if (found == panesById_.end())
        throw automation::Error(automation::error_number::kSubscriptOutOfRange,
                                u"There is no pane '" + std::u16string(paneId) + u"'", u"QuorelUtility");
    return *found->second;
}

void ExplorerWindow::keepPicture(std::u16string_view icon, std::vector<ui::Picture> frames) {
    bigImages_->set(icon, std::move(frames));
}

std::u16string ExplorerWindow::nextElement(std::u16string_view array) {
    auto at = elements_.find(array);
    if (at == elements_.end())
        at = elements_.emplace(array, 0).first;
    return std::u16string(array) + u"(" + automation::decimal(++at->second) + u")";
}

void ExplorerWindow::showCaption(std::u16string_view icon, std::u16string_view caption) {
    captionBox_->setImage(bigImages_, icon);
    paneCaption_->setText(ui::escapedForCaption(caption));
}

// Showing panes.
// ------------------------------------------------------------------------

void ExplorerWindow::nodeClick(const Entry& clicked) {
    const Entry entry = clicked;
    ActivatePane(entry);
    // A pane that could not write what was changed is not left.
    if (current_ && current_ != entry && shown_ != nullptr && shown_->Active() &&
        shown_->key == current_->paneId())
        return selectInTree(current_.get());
    const auto former = tabs_->selected();
    tabs_->select(0);
    if (former && former != tabs_->selected())
        Switch(*former, 0);
}

ExplorerPane* ExplorerWindow::ActivatePane(const Entry& wanted) {
    return procedure(u"ActivatePane", [&]() -> ExplorerPane* {
        const Entry entry = wanted;
        if (current_) {
            ExplorerPane& former = Panes(current_->paneId());
            if (entry == current_ && former.Active())
                return &former;
            const std::uint64_t releases = releases_;
            former.Deactivate();
            if (releases != releases_)
                return nullptr;
        }
        ExplorerPane* found = nullptr;
        for (const auto& pane : panes_)
            if (pane->key == entry->paneId())
                found = pane.get();
        // One that could not be activated as a whole is still seen.
        if (shown_ != nullptr)
            shown_->hide();
        shown_ = found;
        if (found == nullptr) {
            tabs_->hideTabs();
            showCaption({}, {});
            return nullptr;
        }
        const std::uint64_t releases = releases_;
        found->Activate(entry);
        if (releases != releases_)
            return nullptr;
        current_ = entry;
        return found;
    });
}

void ExplorerWindow::Switch(std::size_t /*oldTab*/, std::size_t newTab) {
    procedure(u"Switch", [&] {
        if (shown_ != nullptr && newTab < tabs_->tabs().size())
            shown_->ShowTab(tabs_->tabs()[newTab].caption);
    });
}

// What panes need.
// ------------------------------------------------------------------------

std::u16string ExplorerWindow::UUID() {
    if (!IsObjectSet(uuidGenerator_)) {
        const Object generator = environment_.classes.createObject(u"QuorelUtility.UUIDGenerator");
        generator.call(u"Create");
        generator.call(u"Init", kNamespace);
        uuidGenerator_ = generator;
    }
    return Object(uuidGenerator_).call(u"GetUUID").toString();
}

void ExplorerWindow::report(std::u16string_view label, const automation::Error& error) {
    procedure(label, [&error] { throw error; });
}

bool ExplorerWindow::ask(const std::shared_ptr<ui::Form>& dialog) {
    if (!isLoaded())
        return false;
    dialog_ = dialog;
    dialog->show(ui::Modality::Modal);
    return isLoaded();
}

}  // namespace quorel::explorer
