#include "settings/attributes.h"

#include "frame/attempt.h"

namespace quorel::settings {

using automation::Value;

bool Attributes::SetEntry(std::u16string_view name, const Value& value) {
    frame::attempt([&] {
        if (const auto found = entries_.find(name); found != entries_.end())
            found->second.setValue(value);
    });
    return false;
}

Value Attributes::GetEntry(std::u16string_view name) const {
    const Entry* const entry = find(name);
    return entry != nullptr ? entry->Value() : Value(u"");
}

bool Attributes::AddEntry(std::u16string_view name) {
    if (find(name) != nullptr)
        return false;
    return frame::attempt([&] {
        Entry entry;
        entry.Init(u"", name);
        entries_.emplace(name, std::move(entry));
    });
}

const Entry* Attributes::find(std::u16string_view name) const {
    const auto found = entries_.find(name);
    return found != entries_.end() ? &found->second : nullptr;
}

}  // namespace quorel::settings
