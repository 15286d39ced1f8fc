#include "platform/automation/value.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/automation/number_text.h"
#include "platform/automation/text.h"

namespace quorel::automation {

namespace {

constexpr double kTrue = -1;

[[noreturn]] void raise(std::int32_t number) {
    throw Error(number);
}

/// What every conversion does with the kinds that stand for no value.
[[noreturn]] void refuse(const Value& value) {
    switch (value.kind()) {
        case ValueKind::Null:
            raise(error_number::kInvalidUseOfNull);
        case ValueKind::Missing:
            raise(error_number::kArgumentNotOptional);
        default:
            raise(error_number::kTypeMismatch);
    }
}

/// An object's default member, down to something that is no object. A chain this long is a circle.
Value plainValue(const Object& object) {
    constexpr int kMostSteps = 32;
    Value value = object.item();
    for (int step = 0; const Object* next = value.getIf<Object>(); ++step) {
        if (step == kMostSteps)
            raise(error_number::kTypeMismatch);
        const Object current = *next;
        value = current.item();
    }
    return value;
}

std::int32_t rounded(double number) {
    // Ties go to the even neighbour whatever the rounding mode of the host's thread is.
    const double below = std::floor(number);
    const double rest = number - below;
    double whole = rest < 0.5 ? below : below + 1;
    if (rest == 0.5 && std::fmod(below, 2) == 0)
        whole = below;
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max()))
        raise(error_number::kOverflow);
    return static_cast<std::int32_t>(whole);
}

double numberIn(std::u16string_view text) {
    const std::optional<double> number = parseNumber(text);
    if (!number)
        raise(error_number::kTypeMismatch);
    if (std::isinf(*number))
        raise(error_number::kOverflow);
    return *number;
}

std::optional<double> numberOf(const Value& value) noexcept {
    switch (value.kind()) {
        case ValueKind::Empty:
            return 0;
        case ValueKind::Boolean:
            return *value.getIf<bool>() ? kTrue : 0;
        case ValueKind::Integer:
            return *value.getIf<std::int32_t>();
        case ValueKind::Double:
            return *value.getIf<double>();
        case ValueKind::Date:
            return value.getIf<Date>()->serial;
        default:
            return std::nullopt;
    }
}

bool equalArrays(const Array& a, const Array& b) {
    return a.lowerBound == b.lowerBound &&
           std::equal(a.items.begin(), a.items.end(), b.items.begin(), b.items.end(), Value::equal);
}

}  // namespace

Value::Value(Array value) noexcept : data_(std::move(value)), stored_(Stored::Array) {}

Value::Value(const Value& other) {
    switch (other.stored_) {
        case Stored::Adopted:
            std::construct_at(&data_.adopted, other.data_.adopted);
            break;
        case Stored::Object:
            std::construct_at(&data_.object, other.data_.object);
            break;
        case Stored::String:
            std::construct_at(&data_.string, other.data_.string);
            break;
        case Stored::Bytes:
            std::construct_at(&data_.bytes, other.data_.bytes);
            break;
        case Stored::Array:
            std::construct_at(&data_.array, other.data_.array);
            break;
        default:
            data_.plain = other.data_.plain;
    }
    stored_ = other.stored_;
}

void Value::takeRare(Value& other) noexcept {
    if (other.stored_ == Stored::String)
        std::construct_at(&data_.string, std::move(other.data_.string));
    else if (other.stored_ == Stored::Bytes)
        std::construct_at(&data_.bytes, std::move(other.data_.bytes));
    else
        std::construct_at(&data_.array, std::move(other.data_.array));
    other.endRare();
}

void Value::endRare() noexcept {
    if (stored_ == Stored::String)
        std::destroy_at(&data_.string);
    else if (stored_ == Stored::Bytes)
        std::destroy_at(&data_.bytes);
    else
        std::destroy_at(&data_.array);
}

Value Value::null() noexcept {
    return {Stored::Null, Plain()};
}

Value Value::missing() noexcept {
    return {Stored::Missing, Plain()};
}

Value Value::error(std::int32_t number) noexcept {
    return {Stored::Error, Plain(ErrorValue{number})};
}

bool Value::toBoolean() const {
    if (const bool* flag = getIf<bool>())
        return *flag;
    if (const auto string = text()) {
        if (equalsIgnoringCase(*string, u"True"))
            return true;
        if (equalsIgnoringCase(*string, u"False"))
            return false;
    }
    return toDouble() != 0;
}

std::int32_t Value::toInteger() const {
    if (const auto* number = getIf<std::int32_t>())
        return *number;
    return rounded(toDouble());
}

double Value::toDouble() const {
    if (const std::optional<double> number = numberOf(*this))
        return *number;
    if (const auto string = text())
        return numberIn(*string);
    if (const auto* object = getIf<Object>())
        return plainValue(*object).toDouble();
    refuse(*this);
}

std::u16string Value::toString() const {
    switch (kind()) {
        case ValueKind::Empty:
            return {};
        case ValueKind::Boolean:
            return *getIf<bool>() ? u"True" : u"False";
        case ValueKind::Integer:
            return decimal(*getIf<std::int32_t>());
        case ValueKind::Double:
            return numberText(*getIf<double>());
        case ValueKind::String:
            return std::u16string(*text());
        case ValueKind::Date:
            return dateText(*getIf<Date>());
        case ValueKind::Object:
            return plainValue(*getIf<Object>()).toString();
        default:
            refuse(*this);
    }
}

Date Value::toDate() const {
    if (const auto string = text())
        if (const std::optional<Date> date = parseDate(*string))
            return *date;
    if (const auto* object = getIf<Object>())
        return plainValue(*object).toDate();
    const double serial = toDouble();
    if (!isDateSerial(serial))
        raise(error_number::kOverflow);
    return {serial};
}

Object Value::toObject() const {
    if (const auto* object = getIf<Object>())
        return *object;
    if (isEmpty() || isMissing())
        return {};
    raise(error_number::kTypeMismatch);
}

bool Value::equal(const Value& a, const Value& b) {
    if (a.isNull() || b.isNull())
        return false;
    if (const auto text = a.text(); text && b.isEmpty())
        return text->empty();
    if (const auto text = b.text(); text && a.isEmpty())
        return text->empty();
    if (const auto left = numberOf(a), right = numberOf(b); left && right)
        return *left == *right;
    if (a.kind() != b.kind())
        return false;
    switch (a.kind()) {
        case ValueKind::String:
            return *a.text() == *b.text();
        case ValueKind::Object:
            return *a.getIf<Object>() == *b.getIf<Object>();
        case ValueKind::Bytes:
            return *a.getIf<Bytes>() == *b.getIf<Bytes>();
        case ValueKind::Array:
            return equalArrays(*a.getIf<Array>(), *b.getIf<Array>());
        case ValueKind::Error:
            return *a.getIf<ErrorValue>() == *b.getIf<ErrorValue>();
        default:
            return true;
    }
}

}  // namespace quorel::automation
