#include "explorer/frm_ht_explorer.h"

#include "explorer/explorer_picture.h"
#include "explorer/hierarchy_requests.h"

namespace quorel::explorer {

using automation::Object;
using controls::kLinkEntry;
using controls::kNodeEntry;

frmHTExplorer::frmHTExplorer(const frame::Environment& environment)
    : ExplorerWindow(environment, u"frmHTExplorer"),
      tree_(vsElastic1().add<controls::HierarchyTreeView>(u"HierarchyTreeView1", environment.desktop)) {
    setText(u"Hierarchy explorer");
    build(tree_);
    tree_.tree().focus();
    tree_.setImages(treeImages_);
    tree_.onNodeClick.connect([this](const Entry& entry) { HierarchyTreeView1_NodeClick(entry); });
    tree_.onDataRequest.connect([](controls::DataRequest& request) { answerRequest(request); });
    tree_.onFailure.connect(
        [this](const automation::Error& error) { report(u"HierarchyTreeView1_Expand", error); });
    onUnload.connect([this] { Form_Terminate(); });
}

frmHTExplorer::~frmHTExplorer() {
    Form_Terminate();
}

void frmHTExplorer::Create(std::u16string_view name, const Object& session) {
    procedure(u"Create", [&] {
        registration_ = {std::u16string(name), session};
        tree_.initialise();
        keepPicture(kInformationIcon, explorerPicture());
        for (const std::u16string_view key : {kNodeEntry, kLinkEntry}) {
            std::u16string file = environment().libraryFolder;
            file.append(u"\\").append(key).append(u".ico");
            AddPicture(key, file, {});
        }
    });
}

void frmHTExplorer::Init() {
    procedure(u"Init", [this] {
        tree_.initialise();
        tabs().hideTabs();
    });
}

void frmHTExplorer::Populate() {
    procedure(u"Populate", [this] { tree_.refresh(); });
}

void frmHTExplorer::Resize() {
    procedure(u"Resize", [this] { resizePanes(); });
}

void frmHTExplorer::HierarchyTreeView1_NodeClick(const Entry& entry) {
    procedure(u"HierarchyTreeView1_NodeClick", [&] { nodeClick(entry); });
}

void frmHTExplorer::showCaption(std::u16string_view icon, std::u16string_view caption) {
    const bool isKnown = icon.empty() || bigImages()->placeOf(icon);
    ExplorerWindow::showCaption(isKnown ? icon : kNodeEntry, caption);
}

void frmHTExplorer::addTreePicture(std::u16string_view icon, const std::vector<ui::Picture>& frames) {
    treeImages_->set(icon, frames);
}

void frmHTExplorer::Form_Terminate() const noexcept {
    registration_.endRegistration();
}

void frmHTExplorer::Destroy() noexcept {
    // Each reference is empty before its object ends, since that may come back here.
    for (Object* const held : {&packageObject_, &registration_.session})
        held->reset();
    ExplorerWindow::Destroy();
}

}  // namespace quorel::explorer
