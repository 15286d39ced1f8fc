#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/native_object.h"
#include "platform/controls/property_item.h"
#include "platform/controls/property_member.h"
#include "platform/ui/event.h"

namespace quorel::controls {

/// What a property control raises. By-reference arguments are read back after the handlers have run; a
/// handler may destroy the control, and then nothing more happens. What is put in place of the property
/// counts in `onCreatePropertyControl` only.
struct PropertyEvents {
    /// The user begins to edit. Set `handled` and the control makes no editor: the handler has edited the
    /// property itself, by its `Value`, and the control treats that as entered. Put Nothing in place of the
    /// property and it is not edited at all.
    ui::Event<automation::Object& /*property*/, bool& /*handled*/> onCreatePropertyControl;
    /// The editor is there; `control` lets a host change it (see `PropertyEditorHandle`).
    ui::Event<automation::Object& /*property*/, const automation::Object& /*control*/>
        onPropertyControlCreated;
    /// A property that was not set has a value now.
    ui::Event<automation::Object& /*property*/> onNewProperty;
    /// A property that was set is not set any more.
    ui::Event<automation::Object& /*property*/> onPropertyDeleted;
    /// A value was entered and is about to be taken. `newText` is taken, read as typed if it was changed.
    /// With `cancel` the property keeps what it had, or takes `oldText`, read as typed, if that was changed.
    ui::Event<automation::Object& /*property*/, std::u16string& /*oldText*/, std::u16string& /*newText*/,
              const automation::Value& /*value*/, bool& /*cancel*/>
        onPropertyChanged;
    /// Comes before `onPropertyChanged`. Clear `valid` and the text stays in its cell as refused, with the
    /// property's `Message`, or a standard one, as the reason.
    ui::Event<automation::Object& /*property*/, const automation::Value& /*oldValue*/,
              const automation::Value& /*newValue*/, bool& /*valid*/>
        onPropertyValidate;
};

/// The properties of one object, as its meta object declares them: what a property control shows, without a
/// window. Every value is read when it is asked for first; edits are kept here until `apply` writes them.
///
/// The repository and the handlers of events may do anything while they are called, even release, rebuild or
/// destroy what calls them; what was overtaken is dropped. Items stay alive as long as they are held.
class PropertyModel final : private PropertyObserver {
  public:
    using Item = automation::Ref<PropertyItem>;
    enum class Outcome : std::uint8_t {
        Unchanged,  ///< it is what it was
        Changed,
        Refused,    ///< no value, or not a valid one; the item holds text and reason
        Cancelled,  ///< a handler did not want it
        Overtaken   ///< the rows were replaced meanwhile
    };

    PropertyModel() = default;
    ~PropertyModel();
    PropertyModel(const PropertyModel&) = delete;
    PropertyModel& operator=(const PropertyModel&) = delete;

    /// Its `Properties` become rows with `build`.
    void setMetaObject(automation::Object metaObject) { metaObject_ = std::move(metaObject); }
    [[nodiscard]] const automation::Object& metaObject() const noexcept { return metaObject_; }
    /// The object that is edited. Its values are read anew; edits of the former one are forgotten.
    void setObject(automation::Object object);
    [[nodiscard]] automation::Object object() const;
    void setReadOnly(bool readOnly) noexcept { readOnly_ = readOnly; }
    [[nodiscard]] bool isReadOnly() const noexcept { return readOnly_; }

    /// A row for that member of the object, before the properties, from the next `build` on.
    void addMember(PropertyMember::Texts member) { members_.push_back(std::move(member)); }
    /// One row for each member that was added and each property of the meta object. Error 91 without one.
    void build();
    /// Drops rows, object, meta object and the members that were added.
    void release();

    [[nodiscard]] const std::vector<Item>& items() const noexcept { return items_; }
    /// Whether any property names a category.
    [[nodiscard]] bool hasCategories() const noexcept { return categories_; }
    /// Counts what replaces the rows or their values.
    [[nodiscard]] std::uint64_t generation() const noexcept { return generation_; }

    /// Whether the user may give it another value. Throws what its definition throws.
    [[nodiscard]] bool isEditable(PropertyItem& item) const;
    /// Asks the handlers who edits. True if the control is to make an editor.
    [[nodiscard]] bool beginEdit(const Item& item);
    /// What is wrong with a text that is being typed; "" when it is a value. Asks nobody but the definition.
    [[nodiscard]] static std::u16string problemWith(PropertyItem& item, std::u16string_view text) {
        return parse(item, text).message;
    }
    /// The user has entered a text.
    Outcome enter(const Item& item, std::u16string_view text);
    /// The user has chosen a value.
    Outcome change(const Item& item, const automation::Value& value);
    /// Back to the stored value; a refused text and its reason go too.
    Outcome revert(const Item& item);
    [[nodiscard]] bool isChanged() const noexcept;

    /// Writes the values that were changed, and only those, in the order of the rows. Nothing is written, and
    /// error 13 thrown, while a text is refused. A value that the object refuses stays edited, the others are
    /// written; then the first refusal is thrown, naming its property.
    void apply();

    PropertyEvents events;
    /// Something that rows show may be different now.
    ui::Event<> onShownChanged;

  private:
    void itemChanged() override { onShownChanged.raise(); }
    void attachAll();
    void dropItems();
    Outcome change(const Item& item, const automation::Value& value, std::u16string_view text,
                   bool validated);
    [[nodiscard]] static ParsedValue parse(PropertyItem& item, std::u16string_view text);
    Outcome settle(const Item& item, const automation::Value& former);

    automation::Object metaObject_;
    std::vector<PropertyMember::Texts> members_;
    std::shared_ptr<const PropertyAccess> access_;
    std::vector<Item> items_;
    std::uint64_t generation_ = 0;
    bool readOnly_ = false;
    bool categories_ = false;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);

    /// Whether what an item belonged to is there no more.
    class Overtaken;
};

}  // namespace quorel::controls
