#include "repository/search_results.h"

#include "repository/element.h"
#include "repository/keyed_list.h"
#include "repository/meta_object.h"

namespace quorel::repository {

using automation::ClassTable;
using automation::Object;
using automation::Ref;
using automation::Value;

namespace {

class ResultEnumerator final : public automation::Enumerator {
  public:
    explicit ResultEnumerator(Ref<SearchResults> results) : results_(std::move(results)) {}
    std::size_t next(std::span<Value> values) override {
        std::size_t filled = 0;
        while (filled < values.size() && position_ < results_->count())
            values[filled++] = Value(results_->item(++position_));
        return filled;
    }

  private:
    Ref<SearchResults> results_;
    std::int32_t position_ = 0;
};

}  // namespace

const ClassTable& SearchResult::classTable() const {
    static const ClassTable table = ClassTable::of<SearchResult>(u"SearchResult")
                                        .readOnly(u"Object", &SearchResult::object)
                                        .readOnly(u"Kind", &SearchResult::kind)
                                        .readOnly(u"name", &SearchResult::name)
                                        .withId(automation::MemberId::Default)
                                        .readOnly(u"TypeName", &SearchResult::typeName)
                                        .readOnly(u"PropertyName", &SearchResult::propertyName)
                                        .readOnly(u"Text", &SearchResult::text);
    return table;
}

Object SearchResult::object() const {
    if (isType())
        return repository_->metaObject(hit_.type, hit_.kind);
    return repository_->element(hit_.element, repository_->type(hit_.type));
}

std::u16string SearchResult::kind() const {
    if (isType())
        return hit_.kind == Kind::Node ? u"Meta node" : u"Meta link";
    return hit_.kind == Kind::Node ? u"Node" : u"Link";
}

std::u16string SearchResult::typeName() const {
    return isType() ? std::u16string() : repository_->type(hit_.type).record().name;
}

const ClassTable& SearchResults::classTable() const {
    static const ClassTable table =
        ClassTable::of<SearchResults>(u"SearchResults")
            .readOnly(u"Item", &SearchResults::item, {automation::param(u"index")})
            .withId(automation::MemberId::Default)
            .readOnly(u"Count", &SearchResults::count)
            .readOnly(u"Complete", &SearchResults::isComplete);
    return table;
}

std::unique_ptr<automation::Enumerator> SearchResults::enumerate() {
    return std::make_unique<ResultEnumerator>(Ref<SearchResults>(this));
}

Object SearchResults::item(const Value& index) const {
    const auto position = positionOf(index.toInteger(), count());
    return automation::make<SearchResult>(repository_, hits_.at(static_cast<std::size_t>(*position)));
}

}  // namespace quorel::repository
