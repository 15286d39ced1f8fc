// Making panes and tree of a metamodel, and the progress window that is seen meanwhile.

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <unordered_map>

#include "explorer/frm_ht_explorer.h"
#include "frame/attempt.h"
#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"

namespace quorel::explorer {

using automation::Object;
using controls::kLinkEntry;
using controls::kNodeEntry;
using controls::valueText;

namespace {

constexpr std::u16string_view kProgressTitle = u"Setup explorer";
constexpr std::u16string_view kProperties = u"Properties";
constexpr std::u16string_view kInstances = u"Instances";
constexpr std::u16string_view kLinks = u"Links";
/// The types of the metamodel itself: no entries at the top.
constexpr std::array<std::u16string_view, 3> kMetaTypes{u"MetaLink", u"MetaNode", u"MetaProperty"};

[[nodiscard]] std::u16string joined(std::u16string_view before, const std::u16string& name) {
    return std::u16string(before) + name;
}

[[nodiscard]] std::int64_t countOf(const Object& collection) {
    return collection.get(u"Count").toInteger();
}

}  // namespace

/// One walk through a metamodel. Each step answers false when the window was released on the way, or has told
/// the user of a failure, so that nothing more is to be done.
class frmHTExplorer::Setup {
  public:
    Setup(frmHTExplorer& form, Object repository)
        : form_(form), repository_(std::move(repository)), releases_(form.releases()) {}
    ~Setup() { form_.DestroyProgressBar(); }
    Setup(const Setup&) = delete;
    Setup& operator=(const Setup&) = delete;

    void run() {
        form_.CreateProgressBar();
        form_.InitProgressBar(repository_);
        const ui::WaitPointer wait(form_.desktop());
        if (!goesOn())
            return;
        form_.tree_.setRepository(repository_);
        form_.tree_.setFollowsLinks(true);
        if (forEach(u"MetaNodes", u"MetaClass:", &Setup::addNodePanes) &&
            forEach(u"MetaLinks", u"MetaAssoc:", &Setup::addLinkPane))
            forEach(u"MetaNodes", u"Extension: ", &Setup::addTopLevel);
    }

  private:
    using Step = bool (Setup::*)(const Object& type, const std::u16string& name);

    [[nodiscard]] bool goesOn() const noexcept { return releases_ == form_.releases(); }

    bool forEach(std::u16string_view collection, std::u16string_view before, Step step) {
        for (const Object& type : automation::each(repository_.get(collection).toObject())) {
            const std::u16string name = nameOf(type);
            if (!goesOn())
                return false;
            form_.IncProgressBar(joined(before, name));
            if (!(this->*step)(type, name) || !goesOn())
                return false;
        }
        return goesOn();
    }

    /// Types are asked for their names once, as ends of meta links, too: each time takes a repository a look
    /// into its file.
    [[nodiscard]] const std::u16string& nameOf(const Object& type) {
        const auto known = names_.find(type.identity());
        if (known != names_.end())
            return known->second.name;
        return names_.emplace(type.identity(), Named{type, valueText(type.get(name_))}).first->second.name;
    }

    /// Null if it failed, which has been reported.
    [[nodiscard]] HTExplorerPane* addPane(const std::u16string& id, std::u16string_view icon,
                                          const std::u16string& name, std::u16string_view subPane) {
        return static_cast<HTExplorerPane*>(form_.AddPane(id, icon, name, subPane));
    }

    bool addNodePanes(const Object& metaNode, const std::u16string& name) {
        HTExplorerPane* const one = addPane(name, name, name, kProperties);
        if (one == nullptr)
            return false;
        one->AddPropertyOf(metaNode, name);
        if (!goesOn())
            return false;
        HTExplorerPane* const all = addPane(joined(u"0 ", name), kNodeEntry, name, kInstances);
        if (all == nullptr)
            return false;
        all->AddListOf(u"Extension", metaNode, name, kNodeEntry);
        form_.tree_.addNodeType(name, name);
        return true;
    }

    /// What the link has of its own, over the links of both its ends: those to targets, those from sources.
    bool addLinkPane(const Object& metaLink, const std::u16string& name) {
        const std::u16string& source = nameOf(metaLink.get(u"source").toObject());
        const std::u16string& target = nameOf(metaLink.get(u"target").toObject());
        if (!goesOn())
            return false;
        const std::u16string id = joined(u"2 ", name);
        HTExplorerPane* const pane = addPane(id, kLinkEntry, name, kLinks);
        if (pane == nullptr)
            return false;
        pane->AddPropertyOf(metaLink, name);
        for (const std::u16string_view view : {u"Link-Target", u"Link-Source"}) {
            if (!goesOn())
                return false;
            pane->AddListOf(view, metaLink, name, kLinkEntry);
        }
        form_.tree_.addLinkType(name, source, target, id);
        return true;
    }

    bool addTopLevel(const Object& /*metaNode*/, const std::u16string& name) {
        if (std::find(kMetaTypes.begin(), kMetaTypes.end(), name) == kMetaTypes.end())
            form_.tree_.addTopLevel(name, joined(u"0 ", name));
        return true;
    }

    /// What keeps its identity for as long as it is remembered.
    struct Named {
        Object type;
        std::u16string name;
    };

    frmHTExplorer& form_;
    const Object repository_;
    const std::uint64_t releases_;
    const automation::Member name_{u"name"};
    std::unordered_map<const void*, Named> names_;
};

void frmHTExplorer::SetupTree() {
    procedure(u"SetupTree", [this] {
        // A repository that asks for it again while it is asked gets it once.
        if (!progress_)
            Setup(*this, Repository()).run();
    });
}

void frmHTExplorer::CreateProgressBar() {
    const Object made = environment().classes.createObject(u"QuorelUtility.Progress");
    progress_ = made;
    made.call(u"Create");
    made.call(u"PopUp");
}

void frmHTExplorer::InitProgressBar(const Object& repository) {
    const std::u16string name = valueText(repository.get(u"name"));
    const std::int64_t steps = countOf(repository.get(u"MetaNodes").toObject()) * 2 +
                               countOf(repository.get(u"MetaLinks").toObject());
    const Object progress = progress_;
    progress.call(u"newTitle", kProgressTitle);
    progress.call(u"newText", u"Exploring " + name);
    progress.call(u"newCaption", text());
    progress.call(
        u"Init", 0,
        static_cast<std::int32_t>(std::min<std::int64_t>(steps, std::numeric_limits<std::int32_t>::max())),
        0);
}

void frmHTExplorer::IncProgressBar(const std::u16string& step) {
    const Object progress = progress_;
    progress.call(u"newText", step);
    progress.call(u"incValue");
}

void frmHTExplorer::DestroyProgressBar() noexcept {
    if (const Object gone = std::exchange(progress_, {})) {
        frame::attempt([&] { gone.call(u"Conceal"); });
        frame::attempt([&] { gone.call(u"Destroy"); });
    }
}

}  // namespace quorel::explorer
