#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "repository/identity_map.h"
#include "repository/repository.h"

namespace quorel::repository {

/// A handle of a meta node or a meta link.
class MetaObject : public automation::NativeObject, public Identified {
  public:
    [[nodiscard]] Repository& repository() const noexcept { return *repository_; }
    [[nodiscard]] MetaId id() const noexcept { return static_cast<MetaId>(row()); }
    /// As it is stored now; throws when it was removed.
    [[nodiscard]] MetaRecord record() const;

    [[nodiscard]] std::u16string name() const { return record().name; }
    [[nodiscard]] std::u16string description() const { return record().description; }
    void setDescription(const std::u16string& description);
    [[nodiscard]] bool isDynamic() const { return record().dynamic; }
    [[nodiscard]] bool isPersistent() const { return record().persistent; }
    /// Only a dynamic meta object can be made to end with the session; a meta link cannot outlive its ends.
    void setPersistent(bool persistent);
    [[nodiscard]] automation::Object parent() const { return automation::Object(repository_); }
    [[nodiscard]] automation::Object extension() const;
    [[nodiscard]] automation::Object properties();
    /// Adds a property; `datatype` is a name of `DataType`, `values` an array of an enumeration's values,
    /// `category` the group that editors show it in.
    automation::Object makeMetaProperty(const std::u16string& name, const std::u16string& datatype,
                                        const std::u16string& description, const automation::Value& values,
                                        const std::u16string& category);

  protected:
    MetaObject(automation::Ref<Repository> repository, MetaId id);
    ~MetaObject() override;

  private:
    automation::Ref<Repository> repository_;
};

class MetaNode final : public MetaObject {
  public:
    MetaNode(automation::Ref<Repository> repository, MetaId id) : MetaObject(std::move(repository), id) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    /// The meta links that leave, and those that enter, this meta node.
    [[nodiscard]] automation::Object outgoing() const;
    [[nodiscard]] automation::Object incoming() const;
};

class MetaLink final : public MetaObject {
  public:
    MetaLink(automation::Ref<Repository> repository, MetaId id) : MetaObject(std::move(repository), id) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] automation::Object source() const;
    [[nodiscard]] automation::Object target() const;
    [[nodiscard]] std::u16string sourceName() const;
    [[nodiscard]] std::u16string targetName() const;
};

/// The definition of a property.
class MetaProperty final : public automation::NativeObject, public Identified {
  public:
    MetaProperty(automation::Ref<MetaObject> owner, const PropertySlot& slot);
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] std::u16string name() const { return slot_->record.name; }
    [[nodiscard]] std::u16string dataType() const;
    [[nodiscard]] std::u16string description() const { return slot_->record.description; }
    [[nodiscard]] std::u16string category() const { return slot_->record.category; }
    /// The values of an enumeration as an array of strings; an empty array for other types.
    [[nodiscard]] automation::Value values() const;
    [[nodiscard]] automation::Object parent() const { return automation::Object(owner_); }

  private:
    ~MetaProperty() override;
    automation::Ref<MetaObject> owner_;
    const PropertySlot* slot_;
};

/// An enumeration's values as a host reads them.
[[nodiscard]] automation::Value valuesOf(const PropertyRecord& record);

}  // namespace quorel::repository
