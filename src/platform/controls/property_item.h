#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/controls/property_access.h"
#include "platform/controls/property_value.h"

namespace quorel::controls {

class PropertyItem;

/// Who shows a property; told when somebody else changes it.
class PropertyObserver {
  public:
    virtual void itemChanged() = 0;

  protected:
    ~PropertyObserver() = default;
};

/// One property of the edited object: its definition, its value as stored and as edited, and why an edit was
/// refused. Events hand it to hosts as "the property"; its members are
///
///     name, datatype, Category, Description, Values, Definition, repObject   what it is (read)
///     Value (default, read and written), OriginalValue, Changed              the value as edited, as stored
///     ReadOnly, Message (read and written)                                   for this grid only
///
/// Definition and value are read when they are first needed and kept. An item that its grid has let go of
/// still tells what it knows, and holds nothing of the repository.
class PropertyItem final : public automation::NativeObject {
  public:
    /// A value is a property of the object, or one of its members.
    enum class Source : bool { Property, Member };

    explicit PropertyItem(automation::Object definition, PropertyObserver* observer = nullptr,
                          Source source = Source::Property)
        : definition_(std::move(definition)), observer_(observer), source_(source) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    // What the definition says. Members that it need not have (`Description`, `Category`, `Values`,
    // `ReadOnly`) are empty without it. Throw what it throws.
    // --------------------------------------------------------------------
    [[nodiscard]] const std::u16string& name();
    [[nodiscard]] const std::u16string& dataType();
    [[nodiscard]] const std::u16string& category();
    /// The same by a member that the definition is known to have.
    [[nodiscard]] const std::u16string& readCategory(const automation::Member& member);
    [[nodiscard]] const std::u16string& description();
    [[nodiscard]] const std::vector<std::u16string>& choices();
    [[nodiscard]] EditorKind kind() { return editorKind(dataType()); }
    /// The name if it is known already; nothing is asked.
    [[nodiscard]] std::u16string_view knownName() const noexcept;

    // The value.
    // --------------------------------------------------------------------
    /// Belongs to that object from now on; value and edits are forgotten.
    void attach(std::shared_ptr<const PropertyAccess> access);
    /// Lets go of the repository and of the grid.
    void detach();
    [[nodiscard]] bool isAttached() const noexcept { return access_ != nullptr; }
    /// Reads the stored value unless it is known. Throws what the object throws.
    void load();
    [[nodiscard]] bool isLoaded() const noexcept { return original_.has_value(); }
    /// As stored and as edited, as far as they are loaded.
    [[nodiscard]] const automation::Value& original() const noexcept;
    [[nodiscard]] const automation::Value& value() const noexcept;
    [[nodiscard]] bool isChanged() const noexcept { return edited_.has_value(); }
    /// The text that an editor begins with: a refused one is not lost.
    [[nodiscard]] std::u16string text();
    /// The value as edited from now on; the stored one ends the edit. Takes a refusal back.
    void edit(automation::Value value);
    /// Keeps a text that is no value, with the reason.
    void refuse(std::u16string_view text, std::u16string_view message);
    [[nodiscard]] const std::optional<std::u16string>& refusedText() const noexcept { return refused_; }
    void takeRefusalBack();
    /// Writes the edited value. It stays edited, with the reason as its message, when the object refuses it:
    /// then this throws an error that names the property.
    void write();

    [[nodiscard]] const std::u16string& message() const noexcept { return message_; }
    void setMessage(const std::u16string& message);
    [[nodiscard]] bool isReadOnly();
    void setReadOnly(bool readOnly);

  private:
    [[nodiscard]] std::u16string textOf(std::u16string_view member, bool optional);
    [[nodiscard]] automation::Value hostValue();
    void setHostValue(const automation::Value& value);
    [[nodiscard]] automation::Value hostOriginal();
    [[nodiscard]] automation::Value hostChoices();
    [[nodiscard]] automation::Object hostDefinition() { return definition_; }
    [[nodiscard]] automation::Object hostObject() {
        return access_ ? access_->object() : automation::Object();
    }
    void tell();

    automation::Object definition_;
    PropertyObserver* observer_;
    Source source_;
    std::shared_ptr<const PropertyAccess> access_;
    std::optional<std::u16string> name_, dataType_, category_, description_;
    std::optional<std::vector<std::u16string>> choices_;
    std::optional<bool> readOnly_;
    std::optional<automation::Value> original_, edited_;
    std::optional<std::u16string> refused_;
    std::u16string message_;
};

}  // namespace quorel::controls
