#include "dialogs/selectable_item.h"

#include <algorithm>

#include "platform/automation/text.h"

namespace quorel::dialogs {

automation::Ref<SelectableItem> SelectableItem::make(std::int32_t number, const Texts& texts,
                                                     const automation::Object& object) {
    std::size_t count = kMostTexts;
    while (count > 0 && texts[count - 1].empty())
        --count;
    const auto given = std::span(texts).first(count);
    std::size_t bytes = count * sizeof(std::uint32_t);
    for (const std::u16string_view text : given)
        bytes += text.size() * sizeof(char16_t);
    return automation::Ref<SelectableItem>(new (Behind{bytes}) SelectableItem(number, given, object));
}

SelectableItem::SelectableItem(std::int32_t number, std::span<const std::u16string_view> texts,
                               const automation::Object& object) noexcept
    : object_(object), number_(number), textCount_(static_cast<std::uint8_t>(texts.size())) {
    std::uint32_t* length = lengths();
    char16_t* unit = units();
    for (const std::u16string_view text : texts) {
        *length++ = static_cast<std::uint32_t>(text.size());
        unit = std::copy_n(text.data(), text.size(), unit);
    }
}

const automation::ClassTable& SelectableItem::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<SelectableItem>(u"SelectableItem")
            .readOnly(u"name", &SelectableItem::name)
            .readOnly(u"Identifier", &SelectableItem::key)
            .readOnly(u"Prop_", &SelectableItem::property, {param(u"column")});
    return table;
}

std::u16string SelectableItem::key() const {
    return automation::decimal(number_) + u"ID:";
}

std::u16string_view SelectableItem::property(const std::u16string& column) const noexcept {
    if (column.size() != 1 || column.front() < u'1' || column.front() > u'7')
        return {};
    return text(static_cast<std::size_t>(column.front() - u'0'));
}

std::uint32_t* SelectableItem::lengths() const noexcept {
    static_assert(alignof(SelectableItem) % alignof(std::uint32_t) == 0);
    return reinterpret_cast<std::uint32_t*>(const_cast<SelectableItem*>(this) + 1);
}

std::u16string_view SelectableItem::text(std::size_t column) const noexcept {
    if (column >= textCount_)
        return {};
    const std::uint32_t* const length = lengths();
    std::size_t start = 0;
    for (std::size_t before = 0; before < column; ++before)
        start += length[before];
    return {units() + start, length[column]};
}

}  // namespace quorel::dialogs
