#include "navigator/frm_navigator.h"

#include "frame/attempt.h"
#include "navigator/paths.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"

namespace quorel::navigator {

using automation::Object;
using namespace ui::literals;

namespace {

constexpr std::u16string_view kNavigatorTitle = u"Navigator";
constexpr std::u16string_view kNavigatorWindow = u"frmNavigator";
constexpr ui::Size kFirstNavigatorSize{13500_tw, 8400_tw};
constexpr ui::Twips kCountPanel = 2700_tw;

}  // namespace

frmNavigator::frmNavigator(const Services& services)
    : Form(services.environment.desktop, kNavigatorWindow),
      services_(services),
      workspace_(services.environment.classes),
      browsers_(services.environment.classes, workspace_, [this] { showWindows(); }),
      recentFiles_(services.environment.settings) {
    buildPages();
    buildMenus();
    connectWelcomePage();
    onLoad.connect([this] { Form_Load(); });
    onUnload.connect([this] { Form_Unload(); });
    onResize.connect([this] { Form_Resize(); });
    onDropFiles.connect([this](const std::vector<std::u16string>& files) { Files_Drop(files); });
    setMinimumClientSize(leastNavigatorSize(desktop().textSize(u"Xg").height));
    setClientSize(kFirstNavigatorSize);
    showState();
}

frmNavigator::~frmNavigator() {
    endRepository();
}

void frmNavigator::buildPages() {
    welcome_ = &add<WelcomePage>(u"WelcomePage", desktop());
    model_ = &add<ModelPage>(u"ModelPage", desktop());
    statusBar_ = &add<ui::StatusBar>(u"StatusBar");
    statusBar_->setPanels({{u"", kCountPanel}, {u"", kCountPanel}, {u"", 0_tw}});
    model_->types().onClick.connect([this] { Types_Click(); });
    model_->types().onCountChanged.connect([this] { showStatus(); });
    model_->instances().onCountChanged.connect([this] { showStatus(); });
    model_->instances().onSelectionChanged.connect([this] { enableCommands(); });
    model_->instances().onDoubleClick.connect([this] { Instances_DblClick(); });
    connectCellErrors(model_->types(), u"Types_Click");
    connectCellErrors(model_->instances(), u"Instances_Click");
}

void frmNavigator::connectCellErrors(controls::ListView& list, std::u16string_view label) {
    list.onCellError.connect(
        [this, label](const automation::Error& error) { procedure(label, [&] { throw error; }); });
}

void frmNavigator::place() {
    const WindowLayout layout = layoutWindow(clientSize(), desktop().textSize(u"Xg").height);
    welcome_->setBounds(layout.page);
    model_->setBounds(layout.page);
    statusBar_->setBounds(layout.statusBar);
}

void frmNavigator::Form_Load() {
    procedure(u"Form_Load", [this] {
        preferences_ = readPreferences(services_.environment.settings);
        restorePlacement();
        showRecentFiles();
        if (!preferences_.reopensLast)
            return;
        // Behind the file that the program was started with, which wins.
        desktop().post([weak = weak_from_this()] {
            if (const auto alive = std::static_pointer_cast<frmNavigator>(weak.lock()))
                alive->reopenLastFile();
        });
    });
}

void frmNavigator::Form_Unload() {
    procedure(u"Form_Unload", [this] { savePlacement(); });
    endRepository();
}

void frmNavigator::Form_Resize() {
    place();
}

void frmNavigator::restorePlacement() {
    wasShown_ = true;
    std::int32_t share = kFirstShare;
    const frame::KeptShare kept{u"Types", &share};
    const auto placement =
        frame::readWindowPlacement(services_.environment.settings, kNavigatorWindow, {&kept, 1});
    if (!placement)
        return;
    model_->setShare(share);
    frame::place(*this, *placement);
}

void frmNavigator::savePlacement() {
    if (!wasShown_)
        return;
    std::int32_t share = model_->share();
    const frame::KeptShare kept{u"Types", &share};
    std::int32_t formerShare = share;
    const frame::KeptShare keptBefore{u"Types", &formerShare};
    const auto former =
        frame::readWindowPlacement(services_.environment.settings, kNavigatorWindow, {&keptBefore, 1});
    frame::writeWindowPlacement(
        services_.environment.settings, kNavigatorWindow,
        frame::placementOf(*this, former.value_or(frame::WindowPlacement{{}, kFirstNavigatorSize})),
        {&kept, 1});
}

/// Caption and page follow what is open.
void frmNavigator::showState() {
    const bool isOpen = workspace_.isOpen();
    std::u16string caption(kNavigatorTitle);
    if (isOpen)
        caption = fileNameOf(workspace_.path()) + u" - " + caption;
    setText(caption);
    welcome_->setVisible(!isOpen);
    model_->setVisible(isOpen);
    place();
    showStatus();
    enableCommands();
}

void frmNavigator::showStatus() {
    const bool isOpen = workspace_.isOpen();
    statusBar_->setPanelText(0, isOpen ? model_->typesText() : std::u16string());
    statusBar_->setPanelText(1, isOpen ? model_->instancesText() : std::u16string());
    statusBar_->setPanelText(2, isOpen ? workspace_.path() : u"No repository is open");
}

void frmNavigator::Types_Click() {
    procedure(u"Types_Click", [this] { readModel([this](const Object&) { model_->showInstances(); }); });
    enableCommands();
}

void frmNavigator::readModel(const std::function<void(const Object& repository)>& read) {
    const Object repository = workspace_.repository();
    read(repository);
    if (!workspace_.isOpen())
        model_->empty();
}

void frmNavigator::Instances_DblClick() {
    run(MenuCommand::Properties);
}

void frmNavigator::Files_Drop(const std::vector<std::u16string>& files) {
    procedure(u"Files_Drop", [&] {
        if (repository::importKindOf(files.front()))
            offerImport(files);
        else
            openFile(files.front());
    });
}

}  // namespace quorel::navigator
