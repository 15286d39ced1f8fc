#include "sixpane/object_rows.h"

#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"

namespace quorel::sixpane {

namespace {

using automation::Object;
using controls::valueText;

std::u16string shownName(const Object& object) {
    return object ? valueText(object.get(u"name")) : std::u16string();
}

}  // namespace

std::vector<ObjectRow> readTypeRows(const Object& type, ObjectKind kind) {
    std::vector<ObjectRow> rows{{u"Name", shownName(type)}};
    if (kind == ObjectKind::MetaLink) {
        rows.push_back({u"Source", shownName(type.get(u"source").toObject())});
        rows.push_back({u"Target", shownName(type.get(u"target").toObject())});
    }
    for (const Object& property : automation::each(type.get(u"Properties").toObject()))
        rows.push_back({shownName(property), valueText(property.get(u"datatype"))});
    return rows;
}

}  // namespace quorel::sixpane
