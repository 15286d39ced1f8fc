#include "repository/meta_collection.h"

#include "repository/errors.h"
#include "repository/keyed_list.h"
#include "repository/meta_object.h"

namespace quorel::repository {

using automation::Object;
using automation::Value;

namespace {

class MetaEnumerator final : public automation::Enumerator {
  public:
    MetaEnumerator(automation::Ref<Repository> repository, MetaScope scope)
        : repository_(std::move(repository)), kind_(scope.kind), ids_(repository_->store().metas(scope)) {}
    std::size_t next(std::span<Value> values) override {
        std::size_t filled = 0;
        for (; filled < values.size() && position_ < ids_.size(); ++position_)
            if (repository_->store().meta(ids_[position_]))
                values[filled++] = Value(Object(repository_->metaObject(ids_[position_], kind_)));
        return filled;
    }

  private:
    automation::Ref<Repository> repository_;
    Kind kind_;
    std::vector<MetaId> ids_;
    std::size_t position_ = 0;
};

bool holds(const MetaScope& scope, const MetaRecord& record) {
    if (!scope.direction)
        return true;
    return (*scope.direction == Direction::Outgoing ? record.source : record.target) == scope.node;
}

}  // namespace

const automation::ClassTable& MetaCollection::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<MetaCollection>(u"MetaCollection")
            .readOnly(u"Item", &MetaCollection::item, {automation::param(u"key")})
            .withId(automation::MemberId::Default)
            .readOnly(u"Count", &MetaCollection::count);
    return table;
}

std::unique_ptr<automation::Enumerator> MetaCollection::enumerate() {
    return std::make_unique<MetaEnumerator>(repository_, scope_);
}

Object MetaCollection::item(const Value& key) const {
    // A name needs no count, which takes the longer the more there are.
    const bool isName = key.kind() == automation::ValueKind::String;
    if (const auto position = positionOf(key, isName ? 0 : count()))
        return repository_->metaObject(
            repository_->store().metas(scope_).at(static_cast<std::size_t>(*position)), scope_.kind);
    const std::u16string name = key.toString();
    const MetaRecord record = repository_->metaNamed(scope_.kind, name);
    if (!holds(scope_, record))
        throw failure(automation::error_number::kSubscriptOutOfRange,
                      u"The meta link " + inQuotes(name) + u" does not belong to this meta node");
    return repository_->metaObject(record.id, scope_.kind);
}

std::int32_t MetaCollection::count() const {
    return static_cast<std::int32_t>(repository_->store().countMetas(scope_));
}

}  // namespace quorel::repository
