#include "explorer/hierarchy_requests.h"

#include <string>

#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"

namespace quorel::explorer {

using automation::Object;
using controls::RequestCode;
using controls::TreeEntry;
using controls::valueText;

namespace {

[[nodiscard]] std::u16string nameOf(const Object& object) {
    return valueText(object.get(u"Name"));
}

[[nodiscard]] std::u16string identifierOf(const Object& object) {
    return valueText(object.get(u"Identifier"));
}

/// What stands for an object without a name.
[[nodiscard]] std::u16string substituteOf(const Object& object) {
    if (automation::answersTo(object, u"Text"))
        if (std::u16string text = valueText(object.get(u"Text")); !text.empty())
            return text;
    for (const Object& property : automation::each(object.get(u"Properties").toObject()))
        if (std::u16string value = valueText(object.call(u"GetProperty", nameOf(property))); !value.empty())
            return value;
    return identifierOf(object);
}

[[nodiscard]] std::u16string textOf(const TreeEntry& entry) {
    const Object instance = entry.instance;
    std::u16string name = nameOf(instance);
    if (!name.empty())
        return name;
    const Object far = entry.description->typ == controls::kLinkEntry ? nodeOf(entry) : Object();
    if (far)
        name = nameOf(far);
    return name.empty() ? substituteOf(far ? far : instance) : name;
}

}  // namespace

void answerRequest(controls::DataRequest& request) {
    const Object instance = request.entry.instance;
    switch (request.code) {
        case RequestCode::Text:
            request.answer = textOf(request.entry);
            return;
        case RequestCode::Type:
            request.answer = nameOf(instance.get(u"Parent").toObject());
            return;
        case RequestCode::Search:
            if (automation::answersTo(instance, u"Search"))
                request.answer = instance.call(u"Search", request.sought).toBoolean();
            return;
        case RequestCode::Identity:
            request.answer = identifierOf(instance);
            return;
    }
}

}  // namespace quorel::explorer
