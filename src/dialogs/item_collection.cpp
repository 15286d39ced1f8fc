#include "dialogs/item_collection.h"

#include "platform/automation/error.h"

namespace quorel::dialogs {

class ItemCollection::Reader final : public automation::Enumerator {
  public:
    explicit Reader(ItemCollection& items) : items_(&items) {}

    std::size_t next(std::span<automation::Value> values) override {
        std::size_t read = 0;
        while (read < values.size() && position_ < items_->items_.size())
            values[read++] = items_->items_[position_++];
        return read;
    }

  private:
    automation::Ref<ItemCollection> items_;
    std::size_t position_ = 0;
};

const automation::ClassTable& ItemCollection::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<ItemCollection>(u"Collection")
            .readOnly(u"Count", &ItemCollection::Count)
            .readOnly(u"Item", &ItemCollection::Item, {automation::param(u"position")})
            .withId(automation::MemberId::Default);
    return table;
}

std::unique_ptr<automation::Enumerator> ItemCollection::enumerate() {
    return std::make_unique<Reader>(*this);
}

automation::Object ItemCollection::Item(std::int32_t position) const {
    if (position < 1 || position > Count())
        throw automation::Error(automation::error_number::kSubscriptOutOfRange);
    return items_[static_cast<std::size_t>(position) - 1];
}

}  // namespace quorel::dialogs
