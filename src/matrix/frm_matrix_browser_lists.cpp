#include "frame/attempt.h"
#include "matrix/frm_matrix_browser.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"
#include "platform/ui/access_key.h"

namespace quorel::matrix {

using automation::Object;
using controls::LinkEnd;
using controls::ListView;
using namespace ui::literals;

namespace {

constexpr ui::Twips kColumnWidth = 1000_tw;
constexpr std::u16string_view kIncomingClick = u"MetaLinkListIncoming_Click";
constexpr std::u16string_view kOutgoingClick = u"MetaLinkListOutgoing_Click";
constexpr std::u16string_view kInstanceClick = u"SourceInstanceList_Click";

/// "40" or, while a filter is on, "2 of 40".
[[nodiscard]] std::u16string counted(const ListView& list) {
    std::u16string text;
    if (list.shownCount() != list.count())
        text.append(automation::decimal(static_cast<std::int64_t>(list.shownCount()))).append(u" of ");
    return text.append(automation::decimal(static_cast<std::int64_t>(list.count())));
}

/// The repository's default member, else its `MetaNodes`: not every repository has a default member, and what
/// one without it says differs from language to language.
[[nodiscard]] Object metaNodeNamed(const Object& repository, const std::u16string& name) {
    Object found;
    if (frame::attempt([&] { found = repository.item(name).toObject(); }))
        return found;
    return repository.get(u"MetaNodes", name).toObject();
}

}  // namespace

/// Shows how far the filling of several lists is; the bar is empty before and after.
class frmMatrixBrowser::FillProgress {
  public:
    FillProgress(frmMatrixBrowser& browser, std::int32_t fills) : browser_(browser) {
        browser_.InitProgressBar(0, fills, 0);
    }
    ~FillProgress() { browser_.InitProgressBar(0, 0, 0); }
    FillProgress(const FillProgress&) = delete;
    FillProgress& operator=(const FillProgress&) = delete;
    void filled() { browser_.ProgressBarStep(1); }

  private:
    frmMatrixBrowser& browser_;
};

void frmMatrixBrowser::connectLists() {
    sourceMetaNodeList_.onClick.connect([this] { SourceMetaNodeList_Click({}); });
    sourceInstanceList_.onClick.connect([this] { SourceInstanceList_Click({}); });
    sourceInstanceList_.onDoubleClick.connect([this] { SourceInstanceList_DblClick(); });
    metaLinkListIncoming_.onClick.connect([this] { MetaLinkListIncoming_Click({}); });
    metaLinkListOutgoing_.onClick.connect([this] { MetaLinkListOutgoing_Click({}); });
    targetInstanceList_.onDoubleClick.connect([this] { TargetInstanceList_DblClick(); });
    for (ListView* const list : lists_)
        list->onCountChanged.connect([this] { showCounts(); });
    // A cell that cannot be read is a failure of the procedure that filled its list.
    reportCellsOf(sourceMetaNodeList_, u"Init_lists");
    for (ListView* const list : {&sourceInstanceList_, &metaLinkListIncoming_, &metaLinkListOutgoing_})
        reportCellsOf(*list, u"SourceMetaNodeList_Click");
    targetInstanceList_.onCellError.connect(
        [this](const automation::Error& error) { procedure(targetsFilledBy_, [&error] { throw error; }); });
}

void frmMatrixBrowser::reportCellsOf(ListView& list, std::u16string_view label) {
    list.onCellError.connect(
        [this, label](const automation::Error& error) { procedure(label, [&error] { throw error; }); });
}

void frmMatrixBrowser::SetRepository(const Object& repository) {
    procedure(u"SetRepository", [&] {
        repository_ = repository;
        visited_.clear();
        showTravel();
        Init_lists();
        InitProgressBar(0, 0, 0);
    });
}

void frmMatrixBrowser::Init_lists() {
    procedure(u"Init_lists", [this] {
        for (ListView* const list : lists_)
            list->clearRows();
        targetInstanceLabel_.setText(kTargetsCaption);
        setListColours();
        sourceMetaNodeList_.fillWithMetaNodes(Object(repository_), true);
        addMetaLinkColumns();
    });
}

void frmMatrixBrowser::setListColours() {
    sourceMetaNodeList_.setPaneColour({235, 235, 255});
    sourceInstanceList_.setPaneColour({255, 255, 255});
    metaLinkListIncoming_.setPaneColour({255, 255, 235});
    metaLinkListOutgoing_.setPaneColour({255, 255, 235});
    targetInstanceList_.setPaneColour({235, 255, 235});
}

/// Columns that are there already stay.
void frmMatrixBrowser::addMetaLinkColumns() {
    for (ListView* const list : {&metaLinkListIncoming_, &metaLinkListOutgoing_}) {
        list->addColumn(u"Source", u"SourceName", kColumnWidth);
        list->addColumn(u"Link", u"LinkName", kColumnWidth);
        list->addColumn(u"Target", u"TargetName", kColumnWidth);
    }
}

void frmMatrixBrowser::SourceMetaNodeList_Click(std::u16string_view) {
    procedure(u"SourceMetaNodeList_Click", [this] {
        const Object metaNode = sourceMetaNodeList_.selectedObject();
        FillProgress progress(*this, 3);
        sourceInstanceList_.resetColumns();
        sourceInstanceList_.clearRows();
        if (metaNode)
            sourceInstanceList_.fillWithExtension(metaNode, true);
        progress.filled();
        metaLinkListIncoming_.clearRows();
        if (metaNode)
            metaLinkListIncoming_.fillWithIncomingMetaLinks(metaNode, false);
        progress.filled();
        metaLinkListOutgoing_.clearRows();
        if (metaNode)
            metaLinkListOutgoing_.fillWithOutgoingMetaLinks(metaNode, false);
        progress.filled();
    });
}

void frmMatrixBrowser::MetaLinkListIncoming_Click(std::u16string_view) {
    procedure(kIncomingClick, [this] { clickedMetaLink(metaLinkListIncoming_, false, kIncomingClick); });
}

void frmMatrixBrowser::MetaLinkListOutgoing_Click(std::u16string_view) {
    procedure(kOutgoingClick, [this] { clickedMetaLink(metaLinkListOutgoing_, true, kOutgoingClick); });
}

void frmMatrixBrowser::clickedMetaLink(ListView& clicked, bool outgoing, std::u16string_view label) {
    const Object instance = sourceInstanceList_.selectedObject();
    const Object metaLink = clicked.selectedObject();
    if (!instance || !metaLink)
        return;
    outgoing_ = outgoing;
    targetInstanceList_.resetColumns();
    targetInstanceList_.clearRows();
    SetTargetColumns(metaLink, outgoing);
    fillTargets(instance, metaLink, label);
}

void frmMatrixBrowser::SetTargetColumns(const Object& metaLink, bool outgoing) {
    procedure(u"SetTargetColumns", [&] {
        // Always the target's type, for incoming meta links too.
        const Object metaNode = metaLink.get(u"target").toObject();
        for (const Object& property : automation::each(metaNode.get(u"Properties").toObject())) {
            const std::u16string name = controls::valueText(property.get(u"name"));
            targetInstanceList_.addPropertyColumn(name, name, outgoing ? LinkEnd::Target : LinkEnd::Source,
                                                  kColumnWidth);
        }
    });
}

void frmMatrixBrowser::fillTargets(const Object& instance, const Object& metaLink,
                                   std::u16string_view label) {
    targetsFilledBy_ = label;
    showTargetsOf(controls::valueText(metaLink.get(u"name")));
    FillProgress progress(*this, 1);
    if (outgoing_)
        targetInstanceList_.fillWithOutgoingLinks(instance, metaLink);
    else
        targetInstanceList_.fillWithIncomingLinks(instance, metaLink);
    progress.filled();
}

/// The columns of the meta links are narrow, and the targets outlive the choice that they came from.
void frmMatrixBrowser::showTargetsOf(std::u16string_view metaLink) {
    targetInstanceLabel_.setText(std::u16string(kTargetsCaption) + u": " + ui::escapedForCaption(metaLink) +
                                 (outgoing_ ? u" (outgoing)" : u" (incoming)"));
}

void frmMatrixBrowser::SourceInstanceList_Click(std::u16string_view) {
    procedure(kInstanceClick, [this] {
        const Object instance = sourceInstanceList_.selectedObject();
        if (!travelling_)
            visited_.visit(instance);
        showTravel();
        const Object metaLink = (outgoing_ ? metaLinkListOutgoing_ : metaLinkListIncoming_).selectedObject();
        if (!metaLink)
            return;
        targetInstanceList_.clearRows();
        if (instance)
            fillTargets(instance, metaLink, kInstanceClick);
    });
}

void frmMatrixBrowser::SourceInstanceList_DblClick() {
    procedure(kInstanceClick, [this] {
        const Object instance = sourceInstanceList_.selectedObject();
        if (!instance)
            return;
        EditSourceNode(instance);
        sourceInstanceList_.refreshObject(instance);
        // The list was filled anew; the user goes on where he was.
        sourceInstanceList_.setSelectedObject(instance);
    });
}

void frmMatrixBrowser::TargetInstanceList_DblClick() {
    procedure(u"TargetInstanceList_DblClick", [this] {
        const Object link = targetInstanceList_.selectedObject();
        if (!link)
            return;
        // The opposite list's handler, which still finds the old source selected.
        if (outgoing_) {
            MetaLinkListIncoming_Click({});
            navigateTo(link.get(u"target").toObject());
        } else {
            MetaLinkListOutgoing_Click({});
            navigateTo(link.get(u"source").toObject());
        }
    });
}

void frmMatrixBrowser::navigateTo(const Object& node) {
    sourceMetaNodeList_.setSelectedObject(node.get(u"Parent").toObject());
    SourceMetaNodeList_Click({});
    sourceInstanceList_.setSelectedObject(node);
    SourceInstanceList_Click({});
}

void frmMatrixBrowser::SetSelection(const Object& selection) {
    procedure(u"SetSelection", [&] {
        const Object node = selection;
        const Object metaNode = node.get(u"Parent").toObject();
        sourceMetaNodeList_.setSelectedObject(metaNode);
        SourceMetaNodeList_Click(controls::valueText(metaNode.get(u"name")));
        sourceInstanceList_.setSelectedObject(node);
        SourceInstanceList_Click(controls::valueText(node.get(u"Identifier")));
    });
}

void frmMatrixBrowser::SelectSourceMetaNode(const std::u16string& name) {
    procedure(u"SelectSourceMetaNode",
              [&] { sourceMetaNodeList_.setSelectedObject(metaNodeNamed(Object(repository_), name)); });
}

void frmMatrixBrowser::SelectSourceInstance(const std::u16string& identifier) {
    procedure(u"SelectSourceInstance", [&] {
        if (const Object metaNode = sourceMetaNodeList_.selectedObject())
            sourceInstanceList_.setSelectedObject(metaNode.get(u"Extension", identifier).toObject());
    });
}

void frmMatrixBrowser::SelectMetaLink(const std::u16string& name, bool outgoing) {
    procedure(u"SelectMetaLink", [&] {
        const Object metaLink = Object(repository_).get(u"MetaLinks", name).toObject();
        (outgoing ? metaLinkListOutgoing_ : metaLinkListIncoming_).setSelectedObject(metaLink);
        // Not back to false: a source that is chosen next still shows its outgoing links.
        if (outgoing)
            outgoing_ = true;
    });
}

void frmMatrixBrowser::showCounts() {
    statusBar_.setPanelText(
        0, counted(sourceMetaNodeList_) + u" meta nodes, " + counted(sourceInstanceList_) + u" instances, " +
               counted(metaLinkListIncoming_) + u" incoming, " + counted(metaLinkListOutgoing_) +
               u" outgoing, " + counted(targetInstanceList_) + u" targets");
}

}  // namespace quorel::matrix
