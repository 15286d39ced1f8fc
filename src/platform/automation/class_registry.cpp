#include "platform/automation/class_registry.h"

#include "platform/automation/error.h"

namespace quorel::automation {

void ClassRegistry::add(std::u16string_view progId, Factory factory) {
    factories_.insert_or_assign(std::u16string(progId), std::move(factory));
}

Object ClassRegistry::createObject(std::u16string_view progId) const {
    if (const auto found = factories_.find(progId); found != factories_.end())
        return found->second();
    if (platform_)
        if (Object object = platform_(progId))
            return object;
    std::u16string description(standardDescription(error_number::kCannotCreateObject));
    description.append(u": '").append(progId).append(u"'");
    throw Error(error_number::kCannotCreateObject, std::move(description));
}

}  // namespace quorel::automation
