#include "explorer/frm_explorer.h"

#include "explorer/explorer_picture.h"
#include "explorer/rep_info.h"

namespace quorel::explorer {

using automation::Object;

namespace {

constexpr std::u16string_view kInformationPane = u"ID:1";
constexpr std::u16string_view kInformationTab = u"Info";
constexpr std::int32_t kGreetingPoints = 15;
constexpr std::int32_t kSummaryPoints = 10;

}  // namespace

frmExplorer::frmExplorer(const frame::Environment& environment)
    : ExplorerWindow(environment, u"frmExplorer"),
      tree_(vsElastic1().add<controls::TreeView>(u"TreeView1", environment.desktop)) {
    setText(u"Explorer");
    build(tree_);
    tree_.tree().focus();
    tree_.setImages(treeImages_);
    tree_.onNodeClick.connect([this](const Entry& entry) { TreeView1_NodeClick(entry); });
    tree_.onFailure.connect([this](const automation::Error& error) { report(u"TreeView1_Expand", error); });
}

void frmExplorer::Create() {
    procedure(u"Create", [this] {
        tree_.initialise();
        keepPicture(kInformationIcon, explorerPicture());
    });
}

void frmExplorer::Init() {
    procedure(u"Init", [this] {
        const std::uint64_t released = releases();
        tree_.setRepository(Repository());
        tabs().hideTabs();
        ExplorerPane* const pane =
            AddPane(kInformationPane, kInformationIcon, kInformationIcon, kInformationTab);
        if (pane == nullptr)
            return;
        pane->AddLabel(u"  Here is the QUOREL Explorer 1.0", true, kGreetingPoints, kInformationTab);
        const std::u16string summary = RepInfo();
        if (released == releases())
            pane->AddLabel(summary, true, kSummaryPoints, kInformationTab);
    });
}

std::u16string frmExplorer::RepInfo() {
    return procedure(u"RepInfo", [this] { return repositorySummary(Object(Repository())); });
}

void frmExplorer::TreeView1_NodeClick(const Entry& entry) {
    procedure(u"TreeView1_NodeClick", [&] { nodeClick(entry); });
}

void frmExplorer::addTreePicture(std::u16string_view icon, const std::vector<ui::Picture>& frames) {
    treeImages_->set(icon, frames);
}

void frmExplorer::Destroy() noexcept {
    repositoryManager_.reset();
    ExplorerWindow::Destroy();
}

}  // namespace quorel::explorer
