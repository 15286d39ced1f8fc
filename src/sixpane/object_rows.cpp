#include "sixpane/object_rows.h"

#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"

namespace quorel::sixpane {

namespace {

using automation::Object;
using controls::valueText;
using Rows = std::vector<ObjectRow>;

std::u16string nameOf(const Object& object) {
    return object ? valueText(object.get(u"name")) : std::u16string();
}

void addEnds(Rows& rows, const Object& object) {
    rows.push_back({u"Source", nameOf(object.get(u"source").toObject())});
    rows.push_back({u"Target", nameOf(object.get(u"target").toObject())});
}

Rows typeRows(const Object& object, ObjectKind kind) {
    Rows rows{{u"Name", nameOf(object)}};
    if (kind == ObjectKind::MetaLink)
        addEnds(rows, object);
    for (const Object& property : automation::each(object.get(u"Properties").toObject()))
        rows.push_back({nameOf(property), valueText(property.get(u"datatype"))});
    return rows;
}

Rows instanceRows(const Object& object, ObjectKind kind) {
    const Object type = object.get(u"Parent").toObject();
    Rows rows{{u"Name", nameOf(object)},
              {u"Identifier", valueText(object.get(u"Identifier"))},
              {u"Type", nameOf(type)}};
    if (kind == ObjectKind::Link)
        addEnds(rows, object);
    for (const Object& property : automation::each(type.get(u"Properties").toObject())) {
        const std::u16string name = nameOf(property);
        rows.push_back({name, valueText(object.call(u"GetProperty", name))});
    }
    return rows;
}

}  // namespace

std::vector<ObjectRow> readObjectRows(const Object& object, ObjectKind kind) {
    const bool isType = kind == ObjectKind::MetaNode || kind == ObjectKind::MetaLink;
    return isType ? typeRows(object, kind) : instanceRows(object, kind);
}

}  // namespace quorel::sixpane
