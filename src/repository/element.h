#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "repository/identity_map.h"
#include "repository/repository.h"
#include "repository/type_info.h"

namespace quorel::repository {

class MetaObject;

/// A handle of one stored node or link: it holds nothing but its place, and every member asks the store.
/// After the row is removed, by whomever, members throw an error that says so.
class Element : public automation::NativeObject, public Identified {
  public:
    [[nodiscard]] Repository& repository() const noexcept { return *repository_; }
    [[nodiscard]] ElementId id() const noexcept { return static_cast<ElementId>(row()); }
    [[nodiscard]] TypeInfo& type() const noexcept { return *type_; }
    [[nodiscard]] Kind kind() const noexcept { return type_->record().kind; }

    [[nodiscard]] std::u16string name() const;
    void setName(const std::u16string& name);
    [[nodiscard]] std::u16string identifier() const;
    [[nodiscard]] automation::Object parent() const;
    /// Error 438 names the property and the type when the type does not declare it.
    [[nodiscard]] automation::Value property(const std::u16string& name) const;
    /// Sets the property and returns an empty variant; without a value it changes nothing and returns the
    /// value.
    automation::Value setProperty(const std::u16string& name, const automation::Value& value);
    [[nodiscard]] automation::Object properties();
    /// True when the name or a text property contains `text`, whatever the case of its letters.
    [[nodiscard]] bool search(const std::u16string& text) const;
    /// What a tree or a list shows for the element: its name, or its identifier when it has no name.
    [[nodiscard]] std::u16string text() const;

    [[nodiscard]] automation::Value read(const PropertySlot& slot) const;
    void write(const PropertySlot& slot, const automation::Value& value);

    std::optional<automation::MemberId> resolveExtra(std::u16string_view name) override;
    automation::Value invokeExtra(automation::MemberId id, automation::InvokeKind kind,
                                  std::span<automation::Argument> arguments) override;

  protected:
    Element(automation::Ref<Repository> repository, ElementId id, TypeInfo& type)
        : Identified(static_cast<std::int64_t>(id)), repository_(std::move(repository)), type_(&type) {}

    [[nodiscard]] const PropertySlot& slot(std::u16string_view name) const;
    /// A member such as `Prop_Value` or `Outgoing_Has`: what stands behind the underscore, if the object
    /// knows it.
    [[nodiscard]] virtual std::optional<automation::Value> prefixedMember(std::u16string_view folded);
    [[noreturn]] void refuseRemoved() const;

  private:
    [[nodiscard]] const PropertySlot* findSlot(std::u16string_view name) const;
    automation::Value accessProperty(const PropertySlot& slot, automation::InvokeKind kind,
                                     std::span<automation::Argument> arguments);

    automation::Ref<Repository> repository_;
    TypeInfo* type_;
};

class Node final : public Element {
  public:
    Node(automation::Ref<Repository> repository, ElementId id, TypeInfo& type);
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// The links of the meta link of that name that leave or enter this node. Error 9 when there is no such
    /// meta link.
    [[nodiscard]] automation::Object outgoing(const std::u16string& metaLink);
    [[nodiscard]] automation::Object incoming(const std::u16string& metaLink);

  protected:
    std::optional<automation::Value> prefixedMember(std::u16string_view folded) override;

  private:
    ~Node() override;
    [[nodiscard]] automation::Object links(const std::u16string& metaLink, Direction direction);
};

class Link final : public Element {
  public:
    Link(automation::Ref<Repository> repository, ElementId id, TypeInfo& type);
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] automation::Object source() const { return end(Direction::Outgoing); }
    [[nodiscard]] automation::Object target() const { return end(Direction::Incoming); }

  private:
    ~Link() override;
    [[nodiscard]] automation::Object end(Direction direction) const;
};

}  // namespace quorel::repository
