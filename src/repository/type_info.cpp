#include "repository/type_info.h"

#include <utility>

#include "platform/automation/text.h"
#include "repository/member_names.h"

namespace quorel::repository {

namespace {

PropertySlot builtIn(PropertySlot::Origin origin, const char16_t* name) {
    PropertySlot slot;
    slot.origin = origin;
    slot.declared = false;
    slot.record.name = name;
    return slot;
}

}  // namespace

TypeInfo::TypeInfo(MetaRecord record) : record_(std::move(record)) {
    add(builtIn(PropertySlot::Origin::Name, u"Name"));
    add(builtIn(PropertySlot::Origin::Identifier, u"Identifier"));
}

void TypeInfo::add(PropertySlot slot) {
    std::u16string folded = automation::foldCase(slot.record.name);
    if (const auto found = byFoldedName_.find(folded); found != byFoldedName_.end())
        slot.origin = found->second->origin;
    slots_.push_back(std::move(slot));
    byFoldedName_.insert_or_assign(std::move(folded), &slots_.back());
    bySpelling_.clear();
    byMember_.clear();
}

void TypeInfo::refresh(Store& store) {
    for (PropertyRecord& record : store.metaProperties(record_.id, last_)) {
        last_ = record.id;
        add({PropertySlot::Origin::Stored, true, std::move(record)});
    }
}

const PropertySlot* TypeInfo::findFolded(std::u16string_view name) const {
    const auto found = byFoldedName_.find(automation::foldCase(name));
    return found != byFoldedName_.end() ? found->second : nullptr;
}

const PropertySlot* TypeInfo::find(std::u16string_view name) {
    if (const auto found = bySpelling_.find(name); found != bySpelling_.end())
        return found->second;
    const PropertySlot* const slot = findFolded(name);
    if (slot != nullptr && bySpelling_.size() < kMostSpellings)
        bySpelling_.emplace(name, slot);
    return slot;
}

const PropertySlot* TypeInfo::find(automation::MemberId member) {
    const auto [place, isNew] = byMember_.try_emplace(static_cast<std::int32_t>(member), nullptr);
    if (isNew)
        if (const std::optional<std::u16string> name = MemberNames::nameOf(member))
            place->second = findFolded(*name);
    return place->second;
}

}  // namespace quorel::repository
