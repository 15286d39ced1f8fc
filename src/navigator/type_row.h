#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::navigator {

enum class TypeKind : bool { MetaNode, MetaLink };

/// A row of the list of types: a meta node or meta link with its kind beside it. It answers what a list asks
/// of a node; a cell asks the type when it is read, so a number of instances is counted when its row is seen.
class TypeRow final : public automation::NativeObject {
  public:
    TypeRow(automation::Object type, TypeKind kind) : type_(std::move(type)), kind_(kind) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] const automation::Object& type() const noexcept { return type_; }
    [[nodiscard]] TypeKind kind() const noexcept { return kind_; }

    [[nodiscard]] std::u16string name() const;
    /// The same for the same type after another reading of the repository.
    [[nodiscard]] std::u16string identifier() const;
    /// "Kind" or "Instances".
    [[nodiscard]] automation::Value property(const std::u16string& key) const;

  private:
    automation::Object type_;
    TypeKind kind_;
};

}  // namespace quorel::navigator
