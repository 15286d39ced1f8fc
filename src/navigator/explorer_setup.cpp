#include "navigator/explorer_setup.h"

#include <array>
#include <set>
#include <string>
#include <string_view>

#include "platform/automation/calls.h"
#include "platform/automation/text.h"

namespace quorel::navigator {

using automation::each;
using automation::Object;
using Text = std::u16string;

namespace {

constexpr std::array<std::u16string_view, 3> kMetaLevelTypes{u"MetaNode", u"MetaLink", u"MetaProperty"};
constexpr std::u16string_view kPropertiesTab = u"Properties";

[[nodiscard]] Text nameOf(const Object& object) {
    return object.get(u"name").toString();
}

[[nodiscard]] Text listPane(const Text& metaNode) {
    return u"types " + metaNode;
}
[[nodiscard]] Text nodePane(const Text& metaNode) {
    return u"node " + metaNode;
}
[[nodiscard]] Text linkPane(const Text& metaLink) {
    return u"links " + metaLink;
}

/// A meta link's name without that of its source, which the window shows already.
[[nodiscard]] Text afterSource(const Text& metaLink, const Text& source) {
    return metaLink.starts_with(source + u".") ? metaLink.substr(source.size() + 1) : metaLink;
}
[[nodiscard]] Text beforeTarget(const Text& metaLink, const Text& target) {
    return metaLink.ends_with(u"." + target) ? metaLink.substr(0, metaLink.size() - target.size() - 1)
                                             : metaLink;
}

/// Makes captions of tabs differ, as a pane wants them.
class TabNames {
  public:
    [[nodiscard]] Text unique(const Text& wanted) {
        Text name = wanted;
        for (std::int64_t number = 2; !taken_.insert(name).second; ++number)
            name = wanted + u" (" + automation::decimal(number) + u")";
        return name;
    }

  private:
    std::set<Text> taken_{Text(kPropertiesTab)};
};

void addLinkTab(const Object& explorer, const Text& pane, const Text& tab, std::u16string_view view,
                const Text& metaLink) {
    explorer.call(u"AddSubPane", pane, tab);
    explorer.call(u"AddToolbar", pane, tab);
    explorer.call(u"AddListView", pane, view, metaLink, u"", tab);
}

void addNodePane(const Object& explorer, const Object& metaNode, const Text& name) {
    const Text pane = nodePane(name);
    explorer.call(u"AddPane", pane, u"", name, kPropertiesTab);
    explorer.call(u"AddToolbar", pane);
    explorer.call(u"AddProperty", pane, name);
    TabNames tabs;
    for (const Object& metaLink : each(metaNode.get(u"outgoing").toObject())) {
        const Text link = nameOf(metaLink);
        addLinkTab(explorer, pane, tabs.unique(afterSource(link, name)), u"Link-Target", link);
    }
    for (const Object& metaLink : each(metaNode.get(u"incoming").toObject())) {
        const Text link = nameOf(metaLink);
        addLinkTab(explorer, pane, tabs.unique(u"from " + beforeTarget(link, name)), u"Link-Source", link);
    }
}

void addListPane(const Object& explorer, const Text& name) {
    const Text pane = listPane(name);
    explorer.call(u"AddPane", pane, u"", name, u"Instances");
    explorer.call(u"AddToolbar", pane);
    explorer.call(u"AddListView", pane, u"Extension", name, u"");
}

void addLinkPane(const Object& explorer, const Text& metaLink) {
    const Text pane = linkPane(metaLink);
    explorer.call(u"AddPane", pane, u"", metaLink, u"Links");
    explorer.call(u"AddToolbar", pane);
    explorer.call(u"AddListView", pane, u"Link", metaLink, u"");
}

void addEntries(const Object& explorer, const Object& metaNode, const Text& name) {
    const Text type = explorer.call(u"AddTreeDesc", u"", u"Group", u"", name, u"", listPane(name)).toString();
    const Text node =
        explorer.call(u"AddTreeDesc", type, u"Extension", name, u"", u"", nodePane(name)).toString();
    for (const Object& metaLink : each(metaNode.get(u"outgoing").toObject())) {
        const Text link = nameOf(metaLink);
        const Text folder =
            explorer.call(u"AddTreeDesc", node, u"Folder", u"", afterSource(link, name), u"", linkPane(link))
                .toString();
        explorer.call(u"AddTreeDesc", folder, u"Links", link, u"", u"",
                      nodePane(metaLink.get(u"targetname").toString()));
    }
}

[[nodiscard]] bool isMetaLevel(const Text& name) noexcept {
    for (const std::u16string_view type : kMetaLevelTypes)
        if (name == type)
            return true;
    return false;
}

}  // namespace

void describeExplorer(const Object& explorer, const Object& repository) {
    explorer.call(u"AddTreeDesc", u"", u"Group", u"", nameOf(repository), u"", u"ID:1");
    for (const Object& metaNode : each(repository.get(u"MetaNodes").toObject())) {
        const Text name = nameOf(metaNode);
        if (isMetaLevel(name))
            continue;
        addListPane(explorer, name);
        addNodePane(explorer, metaNode, name);
        addEntries(explorer, metaNode, name);
    }
    for (const Object& metaLink : each(repository.get(u"MetaLinks").toObject()))
        addLinkPane(explorer, nameOf(metaLink));
}

}  // namespace quorel::navigator
