#pragma once

#include "platform/automation/class_table.h"
#include "repository/model.h"
#include "repository/repository.h"

namespace quorel::repository {

/// The meta nodes or meta links of a repository, or the meta links at one meta node. Names are matched
/// exactly.
class MetaCollection final : public automation::NativeObject {
  public:
    MetaCollection(automation::Ref<Repository> repository, MetaScope scope)
        : repository_(std::move(repository)), scope_(scope) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    /// `key` is a name, or an index from 1. Error 9 when there is none.
    [[nodiscard]] automation::Object item(const automation::Value& key) const;
    [[nodiscard]] std::int32_t count() const;

  private:
    automation::Ref<Repository> repository_;
    MetaScope scope_;
};

}  // namespace quorel::repository
