#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/automation/adopted_text.h"
#include "platform/automation/object.h"

namespace quorel::automation {

/// The kinds of a variant.
enum class ValueKind : std::uint8_t {
    Empty,
    Null,
    Missing,
    Boolean,
    Integer,
    Double,
    String,
    Date,
    Object,
    Bytes,
    Array,
    Error
};

/// Days since 30 December 1899, the fraction being the time of day: the platform's automation date, local
/// time.
struct Date {
    double serial = 0;
    friend bool operator==(Date, Date) = default;
};

/// A one-dimensional array of bytes; `lowerBound` is the index of the first.
struct Bytes {
    std::vector<std::uint8_t> data;
    std::int32_t lowerBound = 0;
    friend bool operator==(const Bytes&, const Bytes&) = default;
};

/// A one-dimensional array of variants.
struct Array {
    std::vector<Value> items;
    std::int32_t lowerBound = 0;
};

/// A variant. Strings are counted UTF-16 and may hold anything, embedded nulls and lone surrogates too. The
/// `to…` conversions are the platform's: they throw `Error` 13 (type mismatch), 6 (overflow), 94 (invalid use
/// of Null) or, for an argument that was left out, 449.
class Value {
  public:
    struct ErrorValue {
        std::int32_t number = 0;
        friend bool operator==(ErrorValue, ErrorValue) = default;
    };

    // NOLINTBEGIN(google-explicit-constructor): a variant is made of whatever a call passes
    Value() noexcept = default;
    Value(bool value) noexcept : data_(Plain(value)), stored_(Stored::Boolean) {}
    Value(std::int32_t value) noexcept : data_(Plain(value)), stored_(Stored::Integer) {}
    Value(double value) noexcept : data_(Plain(value)), stored_(Stored::Double) {}
    Value(std::u16string value) noexcept : data_(std::move(value)), stored_(Stored::String) {}
    Value(std::u16string_view value) : Value(std::u16string(value)) {}
    Value(const char16_t* value) : Value(std::u16string(value)) {}
    Value(AdoptedText value) noexcept : data_(std::move(value)), stored_(Stored::Adopted) {}
    Value(Date value) noexcept : data_(Plain(value)), stored_(Stored::Date) {}
    Value(Object value) noexcept : data_(std::move(value)), stored_(Stored::Object) {}
    Value(Bytes value) noexcept : data_(std::move(value)), stored_(Stored::Bytes) {}
    Value(Array value) noexcept;
    // NOLINTEND(google-explicit-constructor)
    template <class T>
    Value(T*) = delete;  // a pointer must not become a boolean

    Value(const Value& other);
    /// The other is empty then.
    Value(Value&& other) noexcept { take(other); }
    Value& operator=(const Value& other) { return *this = Value(other); }
    Value& operator=(Value&& other) noexcept {
        if (this == &other)
            return *this;
        // What is held is let go last: an object that ends may come back to this very value.
        if (stored_ == Stored::Object && other.stored_ == Stored::Object) {
            data_.object = std::move(other.data_.object);
            other.stored_ = Stored::Empty;
        } else if (stored_ > Stored::Adopted) {
            const Value old(std::move(*this));
            take(other);
        } else {
            end();
            take(other);
        }
        return *this;
    }
    ~Value() { end(); }

    [[nodiscard]] static Value null() noexcept;
    /// An optional argument that the caller left out.
    [[nodiscard]] static Value missing() noexcept;
    [[nodiscard]] static Value error(std::int32_t number) noexcept;
    /// The empty object reference ("Nothing"), which is not the same as an empty variant.
    [[nodiscard]] static Value nothing() noexcept { return Value(Object()); }

    [[nodiscard]] ValueKind kind() const noexcept;
    [[nodiscard]] bool isEmpty() const noexcept { return kind() == ValueKind::Empty; }
    [[nodiscard]] bool isNull() const noexcept { return kind() == ValueKind::Null; }
    [[nodiscard]] bool isMissing() const noexcept { return kind() == ValueKind::Missing; }

    [[nodiscard]] bool toBoolean() const;
    /// Rounds halves to the even neighbour, as the platform does.
    [[nodiscard]] std::int32_t toInteger() const;
    [[nodiscard]] double toDouble() const;
    /// "True"/"False" for booleans; numbers as short as they are exact to fifteen digits; an object answers
    /// with its default member.
    [[nodiscard]] std::u16string toString() const;
    [[nodiscard]] Date toDate() const;
    /// The reference, empty for "Nothing", empty variants and missing arguments; anything else is error 13.
    [[nodiscard]] Object toObject() const;

    /// A string's text, until the value changes; nothing when the value is of another kind. No conversion, no
    /// copy.
    [[nodiscard]] std::optional<std::u16string_view> text() const noexcept {
        if (stored_ == Stored::Adopted)
            return data_.adopted.view();
        if (stored_ == Stored::String)
            return data_.string;
        return std::nullopt;
    }
    /// What is stored, or null when the value is of another kind: no conversion, no copy. For strings, which
    /// are stored in two ways, see `text`.
    template <class T>
    [[nodiscard]] const T* getIf() const noexcept {
        return const_cast<Value*>(this)->getIf<T>();
    }
    template <class T>
    [[nodiscard]] T* getIf() noexcept;

    /// Variant equality (`a = b` of automation languages): strings ordinal with case, numbers and booleans by
    /// value (true is -1), a string never equals a number, empty equals "" and 0. Null equals nothing;
    /// objects by identity.
    [[nodiscard]] static bool equal(const Value& a, const Value& b);

  private:
    /// Those before `Adopted` own nothing. Those behind `Object` are moved and let go out of line: a list
    /// moves objects and texts of the platform's, and nothing else, by the million.
    enum class Stored : std::uint8_t {
        Empty,
        Null,
        Missing,
        Boolean,
        Integer,
        Double,
        Date,
        Error,
        Adopted,
        Object,
        String,
        Bytes,
        Array
    };
    union Plain {
        explicit Plain(double value = 0) noexcept : number(value) {}
        explicit Plain(bool value) noexcept : boolean(value) {}
        explicit Plain(std::int32_t value) noexcept : integer(value) {}
        explicit Plain(Date value) noexcept : date(value) {}
        explicit Plain(ErrorValue value) noexcept : error(value) {}
        bool boolean;
        std::int32_t integer;
        double number;
        Date date;
        ErrorValue error;
    };
    union Data {
        Data() noexcept : plain() {}
        explicit Data(Plain value) noexcept : plain(value) {}
        explicit Data(AdoptedText&& value) noexcept : adopted(std::move(value)) {}
        explicit Data(Object&& value) noexcept : object(std::move(value)) {}
        explicit Data(std::u16string&& value) noexcept : string(std::move(value)) {}
        explicit Data(Bytes&& value) noexcept : bytes(std::move(value)) {}
        explicit Data(Array&& value) noexcept : array(std::move(value)) {}
        Data(const Data&) = delete;
        Data& operator=(const Data&) = delete;
        ~Data() {}

        Plain plain;
        AdoptedText adopted;
        Object object;
        std::u16string string;
        Bytes bytes;
        Array array;
    };

    Value(Stored stored, Plain plain) noexcept : data_(plain), stored_(stored) {}

    /// This value owns nothing when it is called, the other when it returns.
    void take(Value& other) noexcept;
    void takeRare(Value& other) noexcept;
    void end() noexcept;
    [[gnu::noinline]] void endRare() noexcept;

    Data data_;
    Stored stored_ = Stored::Empty;
};

inline ValueKind Value::kind() const noexcept {
    constexpr ValueKind kKinds[]{
        ValueKind::Empty,  ValueKind::Null,  ValueKind::Missing, ValueKind::Boolean, ValueKind::Integer,
        ValueKind::Double, ValueKind::Date,  ValueKind::Error,   ValueKind::String,  ValueKind::Object,
        ValueKind::String, ValueKind::Bytes, ValueKind::Array};
    return kKinds[static_cast<std::size_t>(stored_)];
}

inline void Value::take(Value& other) noexcept {
    if (other.stored_ < Stored::Adopted)
        data_.plain = other.data_.plain;
    else if (other.stored_ == Stored::Adopted)
        std::construct_at(&data_.adopted, std::move(other.data_.adopted));
    else if (other.stored_ == Stored::Object)
        std::construct_at(&data_.object, std::move(other.data_.object));
    else
        takeRare(other);
    stored_ = std::exchange(other.stored_, Stored::Empty);
}

inline void Value::end() noexcept {
    if (stored_ < Stored::Adopted)
        return;
    if (stored_ == Stored::Adopted)
        std::destroy_at(&data_.adopted);
    else if (stored_ == Stored::Object)
        std::destroy_at(&data_.object);
    else
        endRare();
}

template <class T>
T* Value::getIf() noexcept {
    if constexpr (std::is_same_v<T, bool>)
        return stored_ == Stored::Boolean ? &data_.plain.boolean : nullptr;
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return stored_ == Stored::Integer ? &data_.plain.integer : nullptr;
    else if constexpr (std::is_same_v<T, double>)
        return stored_ == Stored::Double ? &data_.plain.number : nullptr;
    else if constexpr (std::is_same_v<T, Date>)
        return stored_ == Stored::Date ? &data_.plain.date : nullptr;
    else if constexpr (std::is_same_v<T, ErrorValue>)
        return stored_ == Stored::Error ? &data_.plain.error : nullptr;
    else if constexpr (std::is_same_v<T, AdoptedText>)
        return stored_ == Stored::Adopted ? &data_.adopted : nullptr;
    else if constexpr (std::is_same_v<T, Object>)
        return stored_ == Stored::Object ? &data_.object : nullptr;
    else if constexpr (std::is_same_v<T, Bytes>)
        return stored_ == Stored::Bytes ? &data_.bytes : nullptr;
    else {
        static_assert(std::is_same_v<T, Array>,
                      "nothing of this type is stored; a string's text is `text()`");
        return stored_ == Stored::Array ? &data_.array : nullptr;
    }
}

/// One argument of a call: a value, or a variable of the caller's that the callee may change.
class Argument {
  public:
    // NOLINTBEGIN(google-explicit-constructor): arguments are written as plain values
    Argument(Value value) noexcept : own_(std::move(value)) {}
    template <class T>
    requires(std::constructible_from<Value, T&&> && !std::same_as<std::remove_cvref_t<T>, Value> &&
             !std::same_as<std::remove_cvref_t<T>, Argument>) Argument(T&& value)
        : own_(Value(std::forward<T>(value))) {}
    // NOLINTEND(google-explicit-constructor)
    static Argument reference(Value& variable) noexcept {
        Argument argument{Value()};
        argument.variable_ = &variable;
        return argument;
    }

    [[nodiscard]] bool isReference() const noexcept { return variable_ != nullptr; }
    [[nodiscard]] Value& value() noexcept { return variable_ != nullptr ? *variable_ : own_; }
    [[nodiscard]] const Value& value() const noexcept { return variable_ != nullptr ? *variable_ : own_; }

  private:
    Value own_;
    Value* variable_ = nullptr;
};

/// Passes a variable by reference: the callee's changes are seen in `variable` after the call.
[[nodiscard]] inline Argument byRef(Value& variable) noexcept {
    return Argument::reference(variable);
}

}  // namespace quorel::automation
