#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "repository/model.h"
#include "repository/repository.h"
#include "repository/type_info.h"

namespace quorel::repository {

/// A lazy collection of nodes or links in the order in which they were made. `Count` asks the store;
/// enumeration reads pages by row number up to the last row there was at its start, so the collection may
/// change meanwhile: what is removed before it is reached does not come, what is added does not come either.
class ElementCollection : public automation::NativeObject {
  public:
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    /// `key` is an identifier, or an index from 1. Error 9 when there is none.
    [[nodiscard]] automation::Object item(const automation::Value& key) const;
    [[nodiscard]] std::int32_t count() const;
    /// Takes out the element with that identifier and returns whether there was one; `removed` is set to the
    /// same.
    virtual bool remove(const std::u16string& identifier, automation::Value& removed) = 0;

  protected:
    ElementCollection(automation::Ref<Repository> repository, TypeInfo& type, ElementScope scope)
        : repository_(std::move(repository)), type_(&type), scope_(scope) {}

    [[nodiscard]] Store& store() const { return repository_->store(); }
    [[nodiscard]] Repository& repository() const noexcept { return *repository_; }
    [[nodiscard]] TypeInfo& type() const noexcept { return *type_; }
    [[nodiscard]] const ElementScope& scope() const noexcept { return scope_; }

  private:
    automation::Ref<Repository> repository_;
    TypeInfo* type_;
    ElementScope scope_;
};

/// All instances of one meta object. Removing a node that still has links is refused with an error; removing
/// a link takes it out of both its ends' collections too.
class Extension final : public ElementCollection {
  public:
    Extension(automation::Ref<Repository> repository, TypeInfo& type);
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    bool remove(const std::u16string& identifier, automation::Value& removed) override;
    /// The node made first among those with exactly this name, or nothing.
    [[nodiscard]] automation::Object findByName(const std::u16string& name) const;

  private:
    bool removeNode(ElementId id);
};

/// The links of one meta link that leave or enter one node. A link that is removed here stays in the
/// extension, with its source and target, until it is removed there.
class LinkCollection final : public ElementCollection {
  public:
    LinkCollection(automation::Ref<Repository> repository, TypeInfo& type, Direction direction,
                   ElementId node);
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    bool remove(const std::u16string& identifier, automation::Value& removed) override;
};

}  // namespace quorel::repository
