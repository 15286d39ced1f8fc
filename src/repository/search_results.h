#pragma once

#include <string>
#include <vector>

#include "platform/automation/class_table.h"
#include "repository/repository.h"
#include "repository/search_hit.h"

namespace quorel::repository {

/// Something that was found. It holds what was read when it was found; a handle of the object itself is made
/// when it is asked for.
class SearchResult final : public automation::NativeObject {
  public:
    SearchResult(automation::Ref<Repository> repository, SearchHit hit)
        : repository_(std::move(repository)), hit_(std::move(hit)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// The meta node, meta link, node or link.
    [[nodiscard]] automation::Object object() const;
    /// "Meta node", "Meta link", "Node" or "Link".
    [[nodiscard]] std::u16string kind() const;
    [[nodiscard]] std::u16string name() const { return hit_.name; }
    /// The name of an element's type; empty for a type.
    [[nodiscard]] std::u16string typeName() const;
    /// The property in which the words stand; empty where it is the name.
    [[nodiscard]] std::u16string propertyName() const { return hit_.property; }
    /// What is shown of that property's value.
    [[nodiscard]] std::u16string text() const { return hit_.text; }

  private:
    [[nodiscard]] bool isType() const noexcept { return hit_.element == ElementId{}; }

    automation::Ref<Repository> repository_;
    SearchHit hit_;
};

/// What a search found, in order, as it was then.
class SearchResults final : public automation::NativeObject {
  public:
    SearchResults(automation::Ref<Repository> repository, std::vector<SearchHit> hits, bool isComplete)
        : repository_(std::move(repository)), hits_(std::move(hits)), isComplete_(isComplete) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    /// By an index from 1. Error 9 when there is none.
    [[nodiscard]] automation::Object item(const automation::Value& index) const;
    [[nodiscard]] std::int32_t count() const noexcept { return static_cast<std::int32_t>(hits_.size()); }
    /// Whether everything in the repository had been indexed.
    [[nodiscard]] bool isComplete() const noexcept { return isComplete_; }

  private:
    automation::Ref<Repository> repository_;
    std::vector<SearchHit> hits_;
    bool isComplete_;
};

}  // namespace quorel::repository
