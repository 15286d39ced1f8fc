#include "sixpane/frm_six_pane.h"

#include "frame/attempt.h"
#include "platform/automation/calls.h"

namespace quorel::sixpane {

using automation::Object;
using ui::Twips;
using namespace ui::literals;

namespace {
constexpr std::u16string_view kTitle = u"Six-Pane Browser";
constexpr ui::Size kSixPaneSize{14400_tw, 9000_tw};
constexpr std::u16string_view kNamespace = u"SixPane";
}  // namespace

frmSixPane::frmSixPane(const frame::Environment& environment)
    : Form(environment.desktop, u"frmSixPane"), environment_(environment) {
    setText(kTitle);
    buildMenus();
    buildPanes();
    buildSplitters();
    buildCommands();
    buildDynamicMenu();
    connectPanes();
    onLoad.connect([this] { Form_Load(); });
    onUnload.connect([this] { Form_Unload(); });
    onResize.connect([this] { Form_Resize(); });
    setMinimumClientSize(leastSixPaneSize(desktop().textSize(u"Xg").height));
    setClientSize(kSixPaneSize);
}

frmSixPane::~frmSixPane() {
    registration_.endRegistration();
}

void frmSixPane::Create(std::u16string_view name, const Object& session) {
    procedure(u"Create", [&] {
        registration_ = {std::u16string(name), session};
        if (!name.empty())
            setText(std::u16string(name).append(u" - ").append(kTitle));
        menuBar().find(u"mnuSelect")->setVisible(false);
        uuidGenerator_ = environment_.classes.createObject(u"QuorelUtility.UUIDGenerator");
        uuidGenerator_.call(u"Create");
    });
}

void frmSixPane::CreatePanes() {
    procedure(u"CreatePanes", [this] {
        for (const Pane which : {Pane::SourceMetaNode, Pane::TargetMetaNode, Pane::MetaLink, Pane::SourceNode,
                                 Pane::Link, Pane::TargetNode})
            pane(which).resetColumns();
        for (const Pane which : {Pane::SourceMetaNode, Pane::SourceNode, Pane::TargetMetaNode,
                                 Pane::TargetNode, Pane::MetaLink, Pane::Link})
            pane(which).setPaneColour(kPanes[indexOf(which)].colour);
    });
}

void frmSixPane::Init() {
    procedure(u"Init", [this] {
        uuidGenerator_.call(u"Init", kNamespace);
        if (!IsObjectSet(registration_.session))
            return;
        repositoryManager_ = registration_.session.get(u"RepositoryManager").toObject();
        openNamedRepository();
    });
}

void frmSixPane::PopUp(bool modal) {
    procedure(u"Popup", [&] {
        wasShown_ = true;
        show(modal ? ui::Modality::Modal : ui::Modality::Modeless);
    });
}

void frmSixPane::Conceal() {
    procedure(u"Conceal", [this] {
        hide();
        savePlacement();
    });
}

void frmSixPane::Deinit() {
    procedure(u"Deinit", [this] {
        for (const Pane which : {Pane::SourceMetaNode, Pane::TargetMetaNode, Pane::MetaLink, Pane::SourceNode,
                                 Pane::Link, Pane::TargetNode})
            pane(which).empty();
    });
}

void frmSixPane::Destroy() noexcept {
    // Each reference is empty before its object ends, since that may come back here.
    for (Object* const held :
         {&uuidGenerator_, &repository_, &repositoryManager_, &packageObject_, &registration_.session})
        held->reset();
    for (controls::ListView* const list : panes_)
        frame::attempt([list] { list->empty(); });
}

void frmSixPane::setPackageObject(Object package) {
    procedure(u"PackageObject", [&] {
        packageObject_ = std::move(package);
        if (IsObjectSet(packageObject_))
            repository_ = packageObject_.get(u"Repository").toObject();
    });
}

void frmSixPane::setRepositoryManager(Object manager) {
    procedure(u"RepositoryManager", [&] {
        repositoryManager_ = std::move(manager);
        openNamedRepository();
    });
}

void frmSixPane::setRepositoryFileName(std::u16string_view fileName) {
    procedure(u"RepositoryFileName", [&] {
        repositoryFileName_ = fileName;
        openedFileName_.clear();
        openNamedRepository();
    });
}

void frmSixPane::openNamedRepository() {
    if (repositoryFileName_.empty() || repositoryFileName_ == openedFileName_ ||
        !IsObjectSet(repositoryManager_))
        return;
    const Object information = repositoryManager_.call(u"Open", repositoryFileName_).toObject();
    if (!IsObjectSet(information))
        return;
    repository_ = information.get(u"Repository").toObject();
    openedFileName_ = repositoryFileName_;
}

void frmSixPane::Form_Load() {
    procedure(u"Form_Load", [this] { restorePlacement(); });
}

void frmSixPane::Form_Unload() {
    if (const auto dialog = dialog_.lock())
        dialog->unload();
    procedure(u"Form_Unload", [this] { savePlacement(); });
    registration_.endRegistration();
}

void frmSixPane::Form_Resize() {
    place();
}

void frmSixPane::restorePlacement() {
    const std::optional<Placement> placement = readPlacement(environment_.settings);
    if (!placement)
        return;
    splits_ = placement->splits;
    frame::place(*this, placement->window);
    place();
}

void frmSixPane::savePlacement() {
    if (!wasShown_)
        return;
    const Placement former = readPlacement(environment_.settings).value_or(Placement{{{}, kSixPaneSize}, {}});
    writePlacement(environment_.settings, {frame::placementOf(*this, former.window), splits_});
}

void frmSixPane::buildPanes() {
    for (const PaneTraits& traits : kPanes) {
        const std::size_t index = indexOf(traits.pane);
        captions_[index] = &add<ui::Label>(std::u16string(traits.name) + u"Caption");
        captions_[index]->setText(traits.caption);
        panes_[index] = &add<controls::ListView>(traits.name, desktop());
        addButtons(traits.pane);
    }
    statusBar_ = &add<ui::StatusBar>(u"StatusBar");
}

void frmSixPane::buildSplitters() {
    constexpr std::array<std::u16string_view, 2> kColumnNames{u"SourceSplitter", u"TargetSplitter"};
    constexpr std::array<std::u16string_view, 3> kRowNames{u"SourceRowSplitter", u"LinkRowSplitter",
                                                           u"TargetRowSplitter"};
    for (std::size_t i = 0; i < kColumnNames.size(); ++i) {
        columnSplitters_[i] = &add<ui::Splitter>(kColumnNames[i], ui::Orientation::Vertical);
        columnSplitters_[i]->onMove.connect([this, i](Twips left) {
            splits_ = withColumnSplit(splits_, i, left, clientSize());
            place();
        });
    }
    for (std::size_t i = 0; i < kRowNames.size(); ++i) {
        rowSplitters_[i] = &add<ui::Splitter>(kRowNames[i], ui::Orientation::Horizontal);
        rowSplitters_[i]->onMove.connect([this, i](Twips top) {
            splits_ = withRowSplit(splits_, i, top, clientSize(), desktop().textSize(u"Xg").height);
            place();
        });
    }
}

void frmSixPane::place() {
    const SixPaneLayout layout = layoutSixPane(clientSize(), desktop().textSize(u"Xg").height, splits_);
    for (std::size_t i = 0; i < kPaneCount; ++i) {
        captions_[i]->setBounds(layout.captions[i]);
        panes_[i]->setBounds(layout.panes[i]);
    }
    for (std::size_t i = 0; i < columnSplitters_.size(); ++i)
        columnSplitters_[i]->setBounds(layout.columnSplitters[i]);
    for (std::size_t i = 0; i < rowSplitters_.size(); ++i)
        rowSplitters_[i]->setBounds(layout.rowSplitters[i]);
    for (std::size_t i = 0; i < kCommandCount; ++i)
        commands_[i]->setBounds(layout.commands[i]);
    statusBar_->setBounds(layout.statusBar);
    std::array<Twips, kPaneCount> wanted;
    for (std::size_t i = 0; i < kPaneCount; ++i)
        wanted[i] = desktop().textSize(std::u16string(kPanes[i].counted) + u": 000000").width;
    const std::array<Twips, kPaneCount> widths = sharePanels(clientSize().width, wanted);
    std::vector<ui::StatusBar::PanelState> panels;
    for (std::size_t i = 0; i < kPaneCount; ++i)
        panels.push_back({countText(kPanes[i].pane), widths[i]});
    statusBar_->setPanels(std::move(panels));
}

}  // namespace quorel::sixpane
