#include "explorer/rep_info.h"

#include <cstdint>

#include "frame/standard.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"

namespace quorel::explorer {

using automation::Object;
using controls::valueText;

namespace {

constexpr std::u16string_view kIndent = u"        ";
constexpr std::u16string_view kDeeperIndent = u"          ";

/// The instances of all types of the collection.
[[nodiscard]] std::int64_t countInstances(const Object& types) {
    std::int64_t total = 0;
    for (const Object& type : automation::each(types))
        total += type.get(u"Extension").toObject().get(u"Count").toInteger();
    return total;
}

}  // namespace

std::u16string repositorySummary(const Object& repository) {
    const Object metaNodes = repository.get(u"MetaNodes").toObject();
    const Object metaLinks = repository.get(u"MetaLinks").toObject();
    const std::int64_t nodes = countInstances(metaNodes);
    const std::int64_t links = countInstances(metaLinks);
    std::u16string text;
    const auto add = [&text](std::u16string_view indent, std::u16string_view title,
                             const std::u16string& value) {
        text.append(indent).append(title).append(u": ").append(value);
    };
    const auto endLine = [&text] { text.append(frame::NewLine()); };
    add(kIndent, u"Repository Type", valueText(repository.get(u"RepType")));
    endLine();
    endLine();
    add(kIndent, u"Name", valueText(repository.get(u"name")));
    endLine();
    add(kIndent, u"Version", valueText(repository.get(u"Version")));
    endLine();
    add(kIndent, u"Intention", valueText(repository.get(u"Description")));
    endLine();
    endLine();
    add(kIndent, u"Metanodes", valueText(metaNodes.get(u"Count")));
    endLine();
    add(kDeeperIndent, u"Extensions", automation::decimal(nodes));
    endLine();
    add(kIndent, u"Metalinks", valueText(metaLinks.get(u"Count")));
    endLine();
    add(kDeeperIndent, u"Extensions", automation::decimal(links));
    return text;
}

}  // namespace quorel::explorer
