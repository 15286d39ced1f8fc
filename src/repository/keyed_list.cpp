#include "repository/keyed_list.h"

#include "platform/automation/text.h"
#include "repository/errors.h"

namespace quorel::repository {

using automation::Object;
using automation::Value;
using automation::ValueKind;

namespace {

class ListEnumerator final : public automation::Enumerator {
  public:
    explicit ListEnumerator(KeyedList::Elements elements) : elements_(std::move(elements)) {}
    std::size_t next(std::span<Value> values) override {
        std::size_t filled = 0;
        while (filled < values.size() && position_ < elements_.size())
            values[filled++] = Value(elements_[position_++].second);
        return filled;
    }

  private:
    KeyedList::Elements elements_;
    std::size_t position_ = 0;
};

}  // namespace

std::optional<std::int64_t> positionOf(const Value& key, std::int64_t count) {
    if (key.kind() != ValueKind::Integer && key.kind() != ValueKind::Double)
        return std::nullopt;
    const std::int32_t number = key.toInteger();
    if (number < 1 || number > count)
        throw failure(automation::error_number::kSubscriptOutOfRange,
                      u"There is no element " + automation::decimal(number) + u"; the collection holds " +
                          automation::decimal(count));
    return number - 1;
}

const automation::ClassTable& KeyedList::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<KeyedList>(u"List")
            .readOnly(u"Item", &KeyedList::item, {automation::param(u"key")})
            .withId(automation::MemberId::Default)
            .readOnly(u"Count", &KeyedList::count);
    return table;
}

std::unique_ptr<automation::Enumerator> KeyedList::enumerate() {
    return std::make_unique<ListEnumerator>(elements_);
}

Object KeyedList::item(const Value& key) const {
    if (const std::optional<std::int64_t> position = positionOf(key, count()))
        return elements_[static_cast<std::size_t>(*position)].second;
    const std::u16string name = key.toString();
    for (const auto& [each, object] : elements_)
        if (automation::equalsIgnoringCase(each, name))
            return object;
    throw failure(automation::error_number::kSubscriptOutOfRange,
                  u"There is no " + what_ + u" named " + inQuotes(name));
}

}  // namespace quorel::repository
