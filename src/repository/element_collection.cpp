#include "repository/element_collection.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "platform/automation/text.h"
#include "repository/element.h"
#include "repository/errors.h"
#include "repository/keyed_list.h"

namespace quorel::repository {

using automation::ClassTable;
using automation::MemberId;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;

namespace {

class ElementEnumerator final : public automation::Enumerator {
  public:
    ElementEnumerator(Ref<Repository> repository, TypeInfo& type, ElementScope scope)
        : repository_(std::move(repository)),
          type_(type),
          scope_(scope),
          upTo_(repository_->store().last(scope.kind)) {}

    std::size_t next(std::span<Value> values) override {
        std::size_t filled = 0;
        while (filled < values.size() && (position_ < page_.size() || readPage()))
            values[filled++] = Value(repository_->element(page_[position_++], type_));
        return filled;
    }

  private:
    static constexpr std::size_t kFirstPage = 64;
    static constexpr std::size_t kLargestPage = 1024;

    bool readPage() {
        if (ended_)
            return false;
        page_ = repository_->store().page(scope_, after_, upTo_, pageSize_);
        position_ = 0;
        ended_ = page_.size() < pageSize_;
        pageSize_ = std::min(pageSize_ * 2, kLargestPage);
        if (!page_.empty())
            after_ = page_.back();
        return !page_.empty();
    }

    Ref<Repository> repository_;
    TypeInfo& type_;
    ElementScope scope_;
    ElementId upTo_;
    ElementId after_{};
    std::vector<ElementId> page_;
    std::size_t position_ = 0;
    std::size_t pageSize_ = kFirstPage;
    bool ended_ = false;
};

}  // namespace

std::unique_ptr<automation::Enumerator> ElementCollection::enumerate() {
    return std::make_unique<ElementEnumerator>(repository_, *type_, scope_);
}

Object ElementCollection::item(const Value& key) const {
    std::optional<ElementId> found;
    if (const auto position = positionOf(key, std::numeric_limits<std::int32_t>::max()))
        found = store().at(scope_, *position);
    else
        found = store().find(scope_, key.toString());
    if (!found)
        throw failure(
            automation::error_number::kSubscriptOutOfRange,
            inQuotes(type_->record().name) + u" has no element " + inQuotes(key.toString()) + u" here");
    return repository_->element(*found, *type_);
}

std::int32_t ElementCollection::count() const {
    const std::int64_t number = store().count(scope_);
    if (number > std::numeric_limits<std::int32_t>::max())
        throw automation::Error(automation::error_number::kOverflow);
    return static_cast<std::int32_t>(number);
}

Extension::Extension(Ref<Repository> repository, TypeInfo& type)
    : ElementCollection(std::move(repository), type,
                        {type.record().kind, type.record().id, std::nullopt, ElementId{}}) {}

const ClassTable& Extension::classTable() const {
    static const ClassTable table =
        ClassTable::of<Extension>(u"Extension")
            .readOnly(u"Item", &Extension::item, {param(u"key")})
            .withId(MemberId::Default)
            .readOnly(u"Count", &Extension::count)
            .method(u"Remove", &Extension::remove, {param(u"identifier"), param(u"removed", false)})
            .method(u"FindByName", &Extension::findByName, {param(u"name")});
    return table;
}

bool Extension::remove(const std::u16string& identifier, Value& removed) {
    const std::optional<ElementId> found = store().find(scope(), identifier);
    bool done = false;
    if (found)
        done = scope().kind == Kind::Node ? removeNode(*found) : store().removeLink(*found);
    removed = done;
    return done;
}

bool Extension::removeNode(ElementId id) {
    Transaction transaction(store());
    if (const std::int64_t links = store().countLinksAt(id); links != 0)
        throw failure(automation::error_number::kInvalidCall,
                      u"The node " + inQuotes(store().identifier(Kind::Node, id).value_or(u"")) +
                          u" still has " + automation::decimal(links) + (links == 1 ? u" link" : u" links"));
    const bool done = store().removeNode(id);
    transaction.commit();
    return done;
}

Object Extension::findByName(const std::u16string& name) const {
    if (scope().kind != Kind::Node)
        throw failure(automation::error_number::kInvalidCall, u"Links are not found by name");
    const std::optional<ElementId> found = store().findNodeNamed(scope().type, name);
    return found ? repository().element(*found, type()) : Object();
}

LinkCollection::LinkCollection(Ref<Repository> repository, TypeInfo& type, Direction direction,
                               ElementId node)
    : ElementCollection(std::move(repository), type, {Kind::Link, type.record().id, direction, node}) {}

const ClassTable& LinkCollection::classTable() const {
    static const ClassTable table =
        ClassTable::of<LinkCollection>(u"LinkCollection")
            .readOnly(u"Item", &LinkCollection::item, {param(u"key")})
            .withId(MemberId::Default)
            .readOnly(u"Count", &LinkCollection::count)
            .method(u"Remove", &LinkCollection::remove, {param(u"identifier"), param(u"removed", false)});
    return table;
}

bool LinkCollection::remove(const std::u16string& identifier, Value& removed) {
    const std::optional<ElementId> found = store().find(scope(), identifier);
    const bool done = found && store().detach(*found, *scope().direction);
    removed = done;
    return done;
}

}  // namespace quorel::repository
