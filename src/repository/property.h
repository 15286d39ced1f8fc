#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "repository/element.h"
#include "repository/repository.h"

namespace quorel::repository {

/// One property of one object, as its `Properties` collection gives it: definition and value together.
class Property : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] virtual std::u16string name() const = 0;
    [[nodiscard]] virtual std::u16string dataType() const = 0;
    [[nodiscard]] virtual std::u16string description() const = 0;
    [[nodiscard]] virtual automation::Value values() const = 0;
    [[nodiscard]] virtual std::u16string category() const = 0;
    [[nodiscard]] virtual automation::Object parent() const = 0;
    [[nodiscard]] virtual automation::Value value() const = 0;
    virtual void setValue(const automation::Value& value) = 0;
};

/// A property of a node or a link.
class ElementProperty final : public Property {
  public:
    ElementProperty(automation::Ref<Element> element, const PropertySlot& slot)
        : element_(std::move(element)), slot_(&slot) {}
    [[nodiscard]] std::u16string name() const override { return slot_->record.name; }
    [[nodiscard]] std::u16string dataType() const override;
    [[nodiscard]] std::u16string description() const override { return slot_->record.description; }
    [[nodiscard]] automation::Value values() const override;
    [[nodiscard]] std::u16string category() const override { return slot_->record.category; }
    [[nodiscard]] automation::Object parent() const override { return automation::Object(element_); }
    [[nodiscard]] automation::Value value() const override { return element_->read(*slot_); }
    void setValue(const automation::Value& value) override { element_->write(*slot_, value); }

  private:
    automation::Ref<Element> element_;
    const PropertySlot* slot_;
};

/// A property of the repository itself; all of them are text.
class RepositoryTextProperty final : public Property {
  public:
    RepositoryTextProperty(automation::Ref<Repository> repository, std::u16string name)
        : repository_(std::move(repository)), name_(std::move(name)) {}
    [[nodiscard]] std::u16string name() const override { return name_; }
    [[nodiscard]] std::u16string dataType() const override { return u"String"; }
    [[nodiscard]] std::u16string description() const override { return {}; }
    [[nodiscard]] automation::Value values() const override { return automation::Array{}; }
    [[nodiscard]] std::u16string category() const override { return {}; }
    [[nodiscard]] automation::Object parent() const override { return automation::Object(repository_); }
    [[nodiscard]] automation::Value value() const override { return repository_->property(name_); }
    void setValue(const automation::Value& value) override { repository_->setProperty(name_, value); }

  private:
    automation::Ref<Repository> repository_;
    std::u16string name_;
};

}  // namespace quorel::repository
