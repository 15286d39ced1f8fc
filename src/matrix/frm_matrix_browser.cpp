#include "matrix/frm_matrix_browser.h"

#include <limits>

#include "frame/attempt.h"
#include "frame/window_placement.h"
#include "matrix/browser_members.h"
#include "matrix/matrix_layout.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"

namespace quorel::matrix {

using automation::Object;
using ui::Twips;
using namespace ui::literals;

namespace {

constexpr ui::Size kFirstSize{15000_tw, 9600_tw};
constexpr ui::Size kLeastSize{4500_tw, 4500_tw};
/// Where the list of meta nodes is: the lists fill the window.
constexpr ui::Point kOrigin{0_tw, 0_tw};
constexpr Twips kLabelPadding = 60_tw;
constexpr Twips kStatusPadding = 120_tw;

[[nodiscard]] std::int32_t sum(std::int32_t a, std::int32_t b) {
    const std::int64_t exact = std::int64_t{a} + b;
    if (exact < std::numeric_limits<std::int32_t>::min() || exact > std::numeric_limits<std::int32_t>::max())
        throw automation::Error(automation::error_number::kOverflow);
    return static_cast<std::int32_t>(exact);
}

}  // namespace

frmMatrixBrowser::frmMatrixBrowser(const frame::Environment& environment)
    : Form(environment.desktop, u"frmMatrixBrowser"),
      environment_(environment),
      sourceMetaNodeList_(add<controls::ListView>(u"SourceMetaNodeList", desktop())),
      sourceInstanceList_(add<controls::ListView>(u"SourceInstanceList", desktop())),
      metaLinkListIncoming_(add<controls::ListView>(u"MetaLinkListIncoming", desktop())),
      metaLinkListOutgoing_(add<controls::ListView>(u"MetaLinkListOutgoing", desktop())),
      targetInstanceLabel_(add<ui::Label>(u"TargetInstanceLabel")),
      targetInstanceList_(add<controls::ListView>(u"TargetInstanceList", desktop())),
      progressBar_(add<ui::ProgressBar>(u"ProgressBar")),
      statusBar_(add<ui::StatusBar>(u"StatusBar")),
      lists_{&sourceInstanceList_, &targetInstanceList_, &metaLinkListIncoming_, &metaLinkListOutgoing_,
             &sourceMetaNodeList_} {
    setText(u"Navigator");
    targetInstanceLabel_.setText(kTargetsCaption);
    buildMenus();
    buildListMenus();
    connectLists();
    onLoad.connect([this] { Form_Load(); });
    onUnload.connect([this] { Form_Unload(); });
    onResize.connect([this] { Form_Resize(); });
    setMinimumClientSize(kLeastSize);
    setClientSize(kFirstSize);
}

frmMatrixBrowser::~frmMatrixBrowser() {
    registration_.endRegistration();
}

void frmMatrixBrowser::Create(std::u16string_view name, const Object& session) {
    procedure(u"Create", [&] {
        registration_ = {std::u16string(name), session};
        menuBar().find(u"mnuSelect")->setVisible(false);
    });
}

void frmMatrixBrowser::Init() {
    procedure(u"Init", [this] {
        setListColours();
        addMetaLinkColumns();
    });
}

void frmMatrixBrowser::Populate() {
    procedure(u"Populate", [this] {
        const Object selected = sourceMetaNodeList_.selectedObject();
        sourceMetaNodeList_.fillWithMetaNodes(Object(repository_), true);
        if (selected)
            sourceMetaNodeList_.setSelectedObject(selected);
    });
}

void frmMatrixBrowser::PopUp(bool modal) {
    procedure(u"Popup", [&] {
        wasShown_ = true;
        show(modal ? ui::Modality::Modal : ui::Modality::Modeless);
    });
}

void frmMatrixBrowser::Conceal() {
    procedure(u"Conceal", [this] {
        hide();
        savePlacement();
    });
}

void frmMatrixBrowser::Deinit() {
    procedure(u"Deinit", [this] {
        visited_.clear();
        showTravel();
        for (controls::ListView* const list : lists_)
            list->empty();
        targetInstanceLabel_.setText(kTargetsCaption);
    });
}

void frmMatrixBrowser::Destroy() noexcept {
    // Each reference is empty before its object ends, since that may come back here.
    for (Object* const held : {&repository_, &repositoryManager_, &packageObject_, &registration_.session})
        held->reset();
    visited_.clear();
    for (controls::ListView* const list : lists_)
        frame::attempt([list] { list->empty(); });
}

void frmMatrixBrowser::Form_Load() {
    procedure(u"Form_Load", [this] {
        repositoryManager_.reset();
        menuForm_ = std::make_shared<MatrixBrowserMenuForm>(desktop());
        menuForm_->load();
        menuForm_->SetMatrixBrowser(
            automation::make<BrowserMembers>(std::static_pointer_cast<frmMatrixBrowser>(shared_from_this())));
        Form_Resize();
        restorePlacement();
    });
}

void frmMatrixBrowser::Form_Unload() {
    procedure(u"Form_Unload", [this] {
        closeNodeEdit();
        if (const auto menus = std::exchange(menuForm_, nullptr))
            menus->unload();
        repository_.reset();
        visited_.clear();
        showTravel();
        savePlacement();
    });
    registration_.endRegistration();
}

void frmMatrixBrowser::restorePlacement() {
    if (const auto placement = frame::readWindowPlacement(environment_.settings, name(), {}))
        frame::place(*this, *placement);
}

void frmMatrixBrowser::savePlacement() {
    if (!wasShown_)
        return;
    const frame::WindowPlacement former = frame::readWindowPlacement(environment_.settings, name(), {})
                                              .value_or(frame::WindowPlacement{.size = kFirstSize});
    frame::writeWindowPlacement(environment_.settings, name(), frame::placementOf(*this, former), {});
}

void frmMatrixBrowser::Form_Resize() {
    const Twips line = desktop().textSize(u"Xg").height;
    const MatrixLayout layout =
        layoutMatrix(clientSize(), {kOrigin, line + kLabelPadding, line + kStatusPadding});
    sourceMetaNodeList_.setBounds(layout.sourceMetaNodes);
    sourceInstanceList_.setBounds(layout.sourceInstances);
    metaLinkListIncoming_.setBounds(layout.incoming);
    metaLinkListOutgoing_.setBounds(layout.outgoing);
    targetInstanceLabel_.setBounds(layout.targetLabel);
    targetInstanceList_.setBounds(layout.targetInstances);
    progressBar_.setBounds(layout.progressBar);
    statusBar_.setBounds(layout.statusBar);
    statusBar_.setPanels({{{}, layout.statusPanel}, {}});
    showCounts();
}

void frmMatrixBrowser::InitProgressBar(std::int32_t min, std::int32_t max, std::int32_t value) {
    procedure(u"InitProgressBar", [&] {
        progressBar_.setMinimum(min);
        progressBar_.setMaximum(sum(max, 1));
        progressBar_.setValue(value);
    });
}

void frmMatrixBrowser::ProgressBarStep(std::int32_t step) {
    procedure(u"ProgressBarStep", [&] { progressBar_.setValue(sum(progressBar_.value(), step)); });
}

}  // namespace quorel::matrix
