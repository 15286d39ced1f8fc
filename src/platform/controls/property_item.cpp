#include "platform/controls/property_item.h"

#include "platform/automation/error.h"
#include "platform/controls/cell_text.h"

namespace quorel::controls {

using automation::ClassTable;
using automation::Object;
using automation::Value;

const ClassTable& PropertyItem::classTable() const {
    static const ClassTable table =
        ClassTable::of<PropertyItem>(u"Property")
            .property(u"Value", &PropertyItem::hostValue, &PropertyItem::setHostValue)
            .withId(automation::MemberId::Default)
            .readOnly(u"name", &PropertyItem::name)
            .readOnly(u"datatype", &PropertyItem::dataType)
            .readOnly(u"Category", &PropertyItem::category)
            .readOnly(u"Description", &PropertyItem::description)
            .readOnly(u"Values", &PropertyItem::hostChoices)
            .readOnly(u"Definition", &PropertyItem::hostDefinition)
            .readOnly(u"repObject", &PropertyItem::hostObject)
            .readOnly(u"OriginalValue", &PropertyItem::hostOriginal)
            .readOnly(u"Changed", &PropertyItem::isChanged)
            .property(u"ReadOnly", &PropertyItem::isReadOnly, &PropertyItem::setReadOnly)
            .property(u"Message", &PropertyItem::message, &PropertyItem::setMessage);
    return table;
}

std::u16string PropertyItem::textOf(std::u16string_view member, bool optional) {
    const Object definition = definition_;
    if (optional && !answersTo(definition, member))
        return {};
    return valueText(definition.get(member));
}

const std::u16string& PropertyItem::name() {
    if (!name_)
        name_ = textOf(u"name", false);
    return *name_;
}

const std::u16string& PropertyItem::dataType() {
    if (!dataType_)
        dataType_ = textOf(u"datatype", false);
    return *dataType_;
}

const std::u16string& PropertyItem::category() {
    if (!category_)
        category_ = textOf(u"Category", true);
    return *category_;
}

const std::u16string& PropertyItem::readCategory(const automation::Member& member) {
    if (!category_) {
        const Object definition = definition_;
        category_ = valueText(definition.get(member));
    }
    return *category_;
}

const std::u16string& PropertyItem::description() {
    if (!description_)
        description_ = textOf(u"Description", true);
    return *description_;
}

const std::vector<std::u16string>& PropertyItem::choices() {
    if (!choices_) {
        const Object definition = definition_;
        choices_ = answersTo(definition, u"Values") ? choicesOf(definition.get(u"Values"))
                                                    : std::vector<std::u16string>();
    }
    return *choices_;
}

std::u16string_view PropertyItem::knownName() const noexcept {
    return name_ ? std::u16string_view(*name_) : std::u16string_view();
}

bool PropertyItem::isReadOnly() {
    if (!readOnly_) {
        const Object definition = definition_;
        readOnly_ = answersTo(definition, u"ReadOnly") && definition.get(u"ReadOnly").toBoolean();
    }
    return *readOnly_;
}

void PropertyItem::setReadOnly(bool readOnly) {
    readOnly_ = readOnly;
    tell();
}

void PropertyItem::attach(std::shared_ptr<const PropertyAccess> access) {
    const auto former = std::exchange(access_, std::move(access));
    const auto original = std::exchange(original_, std::nullopt);
    const auto edited = std::exchange(edited_, std::nullopt);
    refused_.reset();
    message_.clear();
}

void PropertyItem::detach() {
    observer_ = nullptr;
    attach(nullptr);
    const Object former = std::exchange(definition_, Object());
}

void PropertyItem::load() {
    if (original_ || !access_)
        return;
    const std::shared_ptr<const PropertyAccess> asked = access_;
    Value value = source_ == Source::Member ? asked->readMember(name()) : asked->read(name());
    if (access_ == asked && !original_)
        original_ = std::move(value);
}

const Value& PropertyItem::original() const noexcept {
    static const Value none;
    return original_ ? *original_ : none;
}

const Value& PropertyItem::value() const noexcept {
    return edited_ ? *edited_ : original();
}

std::u16string PropertyItem::text() {
    return refused_ ? *refused_ : editText(kind(), value());
}

void PropertyItem::edit(Value value) {
    takeRefusalBack();
    const std::optional<Value> former = std::exchange(edited_, std::nullopt);
    if (!original_ || !sameValue(*original_, value))
        edited_ = std::move(value);
    tell();
}

void PropertyItem::refuse(std::u16string_view text, std::u16string_view message) {
    refused_ = text;
    message_ = message;
    tell();
}

void PropertyItem::takeRefusalBack() {
    refused_.reset();
    message_.clear();
    tell();
}

void PropertyItem::setMessage(const std::u16string& message) {
    message_ = message;
    tell();
}

void PropertyItem::write() {
    if (!edited_ || !access_)
        return;
    const std::shared_ptr<const PropertyAccess> asked = access_;
    const Value value = *edited_;
    try {
        if (source_ == Source::Member)
            asked->writeMember(name(), value);
        else
            asked->write(name(), value);
    } catch (...) {
        const automation::Error error = automation::currentError();
        if (access_ == asked)
            setMessage(u"Not saved: " + error.description());
        throw automation::Error(
            error.number(),
            u"The property \"" + std::u16string(knownName()) + u"\" was not saved: " + error.description(),
            error.source());
    }
    if (access_ != asked)
        return;
    // What the object made of it is read when it is next looked at.
    const auto original = std::exchange(original_, std::nullopt);
    const auto edited = std::exchange(edited_, std::nullopt);
    message_.clear();
}

Value PropertyItem::hostValue() {
    load();
    return value();
}

void PropertyItem::setHostValue(const Value& value) {
    load();
    edit(value);
}

Value PropertyItem::hostOriginal() {
    load();
    return original();
}

Value PropertyItem::hostChoices() {
    automation::Array array;
    for (const std::u16string& choice : choices())
        array.items.emplace_back(choice);
    return array;
}

void PropertyItem::tell() {
    if (observer_ != nullptr)
        observer_->itemChanged();
}

}  // namespace quorel::controls
