#include "platform/controls/property_model.h"

#include <algorithm>

#include "platform/automation/error.h"

namespace quorel::controls {

using automation::Error;
using automation::Object;
using automation::Value;

namespace error_number = automation::error_number;

class PropertyModel::Overtaken {
  public:
    explicit Overtaken(const PropertyModel& model)
        : model_(&model), alive_(model.alive_), generation_(model.generation_) {}
    [[nodiscard]] explicit operator bool() const noexcept {
        return alive_.expired() || model_->generation_ != generation_;
    }

  private:
    const PropertyModel* model_;
    std::weak_ptr<const bool> alive_;
    std::uint64_t generation_;
};

PropertyModel::~PropertyModel() {
    dropItems();
}

void PropertyModel::dropItems() {
    ++generation_;
    categories_ = false;
    const std::vector<Item> gone = std::move(items_);
    items_.clear();
    for (const Item& item : gone)
        item->detach();
}

void PropertyModel::setObject(Object object) {
    ++generation_;
    const auto former =
        std::exchange(access_, object ? std::make_shared<const PropertyAccess>(object) : nullptr);
    attachAll();
    onShownChanged.raise();
}

Object PropertyModel::object() const {
    return access_ ? access_->object() : Object();
}

void PropertyModel::attachAll() {
    for (const Item& item : std::vector<Item>(items_))
        item->attach(access_);
}

void PropertyModel::build() {
    if (!metaObject_)
        throw Error(error_number::kObjectNotSet,
                    u"There is no meta object whose properties could be shown: set one first");
    const Overtaken overtaken(*this);
    std::vector<Item> built;
    PropertyObserver* const observer = this;
    bool categories = false;
    for (const PropertyMember::Texts& member : members_)
        built.push_back(automation::make<PropertyItem>(automation::make<PropertyMember>(member), observer,
                                                       PropertyItem::Source::Member));
    const Object properties = metaObject_.get(u"Properties").toObject();
    // Rows are grouped, so that categories are known from the start; anything else waits. Definitions of one
    // type either all have categories or none.
    const automation::Member category(u"Category");
    const void* type = nullptr;
    bool hasCategory = false;
    for (const Object& definition : automation::each(properties)) {
        if (!definition)
            continue;
        const Item item = automation::make<PropertyItem>(definition, observer);
        built.push_back(item);
        const void* const itsType = definition.typeKey();
        if (itsType == nullptr || itsType != type)
            hasCategory = answersTo(definition, category.name());
        type = itsType;
        if (hasCategory)
            categories = !item->readCategory(category).empty() || categories;
    }
    if (overtaken) {
        for (const Item& item : built)
            item->detach();
        return;
    }
    dropItems();
    items_ = std::move(built);
    categories_ = categories;
    attachAll();
    onShownChanged.raise();
}

void PropertyModel::release() {
    dropItems();
    members_.clear();
    const auto access = std::exchange(access_, nullptr);
    const Object metaObject = std::exchange(metaObject_, Object());
    onShownChanged.raise();
}

bool PropertyModel::isEditable(PropertyItem& item) const {
    return !readOnly_ && item.isAttached() && !item.isReadOnly();
}

bool PropertyModel::beginEdit(const Item& item) {
    const Overtaken overtaken(*this);
    item->load();
    if (overtaken)
        return false;
    const std::optional<std::u16string> refused = item->refusedText();
    const Value former = item->value();
    Object property(item);
    bool handled = false;
    events.onCreatePropertyControl.raise(property, handled);
    if (overtaken)
        return false;
    if (!handled)
        return static_cast<bool>(property);
    const Value entered = item->value();
    if (sameValue(former, entered))
        return false;
    // What the host has put there goes the way of everything that is entered.
    item->edit(former);
    change(item, entered);
    return false;
}

ParsedValue PropertyModel::parse(PropertyItem& item, std::u16string_view text) {
    const EditorKind kind = item.kind();
    ParseContext context{kind, {}, item.original()};
    if (kind == EditorKind::Enumeration)
        context.choices = item.choices();
    return parseValue(context, text);
}

PropertyModel::Outcome PropertyModel::enter(const Item& item, std::u16string_view text) {
    const Overtaken overtaken(*this);
    item->load();
    const std::u16string shown = editText(item->kind(), item->value());
    if (overtaken)
        return Outcome::Overtaken;
    if (withWindowsLines(shown) == withWindowsLines(text)) {
        item->takeRefusalBack();
        return Outcome::Unchanged;
    }
    const ParsedValue parsed = parse(*item, text);
    if (overtaken)
        return Outcome::Overtaken;
    if (!parsed.value) {
        item->refuse(text, parsed.message);
        return Outcome::Refused;
    }
    return change(item, *parsed.value, text, false);
}

PropertyModel::Outcome PropertyModel::change(const Item& item, const Value& value) {
    const Overtaken overtaken(*this);
    item->load();
    const std::u16string text = editText(item->kind(), value);
    return overtaken ? Outcome::Overtaken : change(item, value, text, false);
}

PropertyModel::Outcome PropertyModel::revert(const Item& item) {
    const Overtaken overtaken(*this);
    if (!item->isChanged()) {
        item->takeRefusalBack();
        return Outcome::Unchanged;
    }
    item->load();
    const Value original = item->original();
    const std::u16string text = editText(item->kind(), original);
    return overtaken ? Outcome::Overtaken : change(item, original, text, true);
}

PropertyModel::Outcome PropertyModel::change(const Item& given, const Value& value, std::u16string_view text,
                                             bool validated) {
    const Item item = given;
    const Overtaken overtaken(*this);
    const Value former = item->value();
    item->takeRefusalBack();
    if (sameValue(former, value))
        return Outcome::Unchanged;
    Object property(item);
    bool valid = true;
    if (!validated)
        events.onPropertyValidate.raise(property, former, value, valid);
    if (overtaken)
        return Outcome::Overtaken;
    if (!valid) {
        const std::u16string reason = item->message();
        item->refuse(text, reason.empty() ? u"This value is not allowed here." : reason);
        return Outcome::Refused;
    }
    const std::u16string formerText = editText(item->kind(), former);
    const std::u16string enteredText = editText(item->kind(), value);
    std::u16string oldText = formerText;
    std::u16string newText = enteredText;
    bool cancel = false;
    property = Object(item);
    events.onPropertyChanged.raise(property, oldText, newText, value, cancel);
    if (overtaken)
        return Outcome::Overtaken;
    const bool asEntered = cancel ? oldText == formerText : newText == enteredText;
    if (asEntered) {
        item->edit(cancel ? former : value);
    } else {
        const std::u16string& chosen = cancel ? oldText : newText;
        const ParsedValue parsed = parse(*item, chosen);
        if (overtaken)
            return Outcome::Overtaken;
        if (!parsed.value) {
            item->refuse(chosen, parsed.message);
            return Outcome::Refused;
        }
        item->edit(*parsed.value);
    }
    const Outcome settled = settle(item, former);
    return cancel && settled != Outcome::Overtaken ? Outcome::Cancelled : settled;
}

PropertyModel::Outcome PropertyModel::settle(const Item& item, const Value& former) {
    const Overtaken overtaken(*this);
    const bool wasSet = !isUnset(former);
    const bool isSet = !isUnset(item->value());
    if (wasSet != isSet) {
        Object property(item);
        (isSet ? events.onNewProperty : events.onPropertyDeleted).raise(property);
    }
    return overtaken ? Outcome::Overtaken : Outcome::Changed;
}

bool PropertyModel::isChanged() const noexcept {
    return std::any_of(items_.begin(), items_.end(),
                       [](const Item& item) { return item->isChanged() || item->refusedText().has_value(); });
}

void PropertyModel::apply() {
    const Overtaken overtaken(*this);
    const std::vector<Item> items = items_;
    for (const Item& item : items)
        if (item->refusedText())
            throw Error(error_number::kTypeMismatch,
                        u"The property \"" + std::u16string(item->knownName()) + u"\" cannot be saved. " +
                            item->message() + u" Correct the value, or press Esc in it to take it back.");
    std::optional<Error> failure;
    for (const Item& item : items) {
        if (overtaken)
            return;
        try {
            item->write();
        } catch (const Error& error) {
            if (!failure)
                failure = error;
        }
    }
    if (!overtaken)
        onShownChanged.raise();
    if (failure)
        throw *failure;
}

}  // namespace quorel::controls
