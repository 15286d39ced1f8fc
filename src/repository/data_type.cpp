#include "repository/data_type.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/model.h"

namespace quorel::repository {

using automation::Bytes;
using automation::Value;
using automation::ValueKind;

namespace {

constexpr std::array<std::u16string_view, 11> kNames{u"String", u"Integer",     u"Double",   u"Boolean",
                                                     u"Date",   u"Enumeration", u"Binary",   u"MultiLine",
                                                     u"Colour", u"File",        u"Directory"};

[[noreturn]] void refuse(const PropertyRecord& property) {
    throw failure(automation::error_number::kTypeMismatch, u"The property " + inQuotes(property.name) +
                                                               u" takes a value of the type " +
                                                               std::u16string(dataTypeName(property.type)));
}

Value number(const PropertyRecord& property, const Value& value) {
    const double number = value.toDouble();
    if (std::isnan(number))
        refuse(property);
    return number;
}

Value enumerated(const PropertyRecord& property, const Value& value) {
    std::u16string text = value.toString();
    if (std::find(property.values.begin(), property.values.end(), text) != property.values.end())
        return text;
    std::u16string list;
    for (const std::u16string& each : property.values)
        list.append(list.empty() ? u"" : u", ").append(each);
    throw failure(
        automation::error_number::kTypeMismatch,
        inQuotes(text) + u" is none of the values of the property " + inQuotes(property.name) + u": " + list);
}

Value binary(const PropertyRecord& property, const Value& value) {
    if (const auto* bytes = value.getIf<Bytes>())
        return Bytes{bytes->data, 0};
    const auto* array = value.getIf<automation::Array>();
    if (array == nullptr)
        refuse(property);
    Bytes bytes;
    for (const Value& item : array->items) {
        const std::int32_t number = item.toInteger();
        if (number < 0 || number > 255)
            throw failure(automation::error_number::kOverflow,
                          u"The property " + inQuotes(property.name) + u" takes bytes from 0 to 255");
        bytes.data.push_back(static_cast<std::uint8_t>(number));
    }
    return bytes;
}

Value converted(const PropertyRecord& property, const Value& value) {
    switch (property.type) {
        case DataType::String:
        case DataType::MultiLine:
        case DataType::File:
        case DataType::Directory:
            return value.toString();
        case DataType::Integer:
        case DataType::Colour:
            return value.toInteger();
        case DataType::Double:
            return number(property, value);
        case DataType::Boolean:
            return value.toBoolean();
        case DataType::Date:
            return value.toDate();
        case DataType::Enumeration:
            return enumerated(property, value);
        case DataType::Binary:
            return binary(property, value);
    }
    refuse(property);
}

}  // namespace

std::u16string_view dataTypeName(DataType type) noexcept {
    return kNames.at(static_cast<std::size_t>(type));
}

std::optional<DataType> dataTypeNamed(std::u16string_view name) {
    for (std::size_t i = 0; i < kNames.size(); ++i)
        if (automation::equalsIgnoringCase(kNames.at(i), name))
            return static_cast<DataType>(i);
    return std::nullopt;
}

std::u16string dataTypeNames() {
    std::u16string list;
    for (std::u16string_view name : kNames)
        list.append(list.empty() ? u"" : u", ").append(name);
    return list;
}

Value coerced(const PropertyRecord& property, const Value& value) {
    if (value.isEmpty() || value.isNull())
        return {};
    const bool isArray = value.kind() == ValueKind::Bytes || value.kind() == ValueKind::Array;
    if (isArray != (property.type == DataType::Binary))
        refuse(property);
    try {
        return converted(property, value);
    } catch (const automation::Error& error) {
        if (error.number() == automation::error_number::kTypeMismatch && error.source().empty())
            refuse(property);
        throw;
    }
}

}  // namespace quorel::repository
