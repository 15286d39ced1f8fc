#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

namespace quorel::automation {

class Value;
class Argument;
class Enumerator;
class Member;
class NativeObject;

/// A member's number within one object. Promised for that object only, unless its type key says more.
enum class MemberId : std::int32_t { Default = 0, NewEnum = -4 };

/// What is asked of a member; the values are the platform's dispatch flags and may be combined. As wide as a
/// register: it travels on the stack, where a narrow store delays the wide load behind it.
enum class InvokeKind : std::uint32_t { Method = 1, Get = 2, Call = 3, Put = 4, PutRef = 8 };

/// How to talk to one family of objects (native ones; the platform's). One constant instance each; an
/// `Object` is an instance pointer with the binding that knows what it points to, so a foreign object needs
/// no wrapper of ours.
class Binding {
  public:
    virtual void addRef(void* instance) const noexcept = 0;
    virtual void release(void* instance) const noexcept = 0;
    /// Throws `Error` 438 when the object has no such member. Names ignore case.
    [[nodiscard]] virtual MemberId resolve(void* instance, std::u16string_view name) const = 0;
    /// Arguments are in call order. Throws `Error` for whatever the member reports.
    virtual Value invoke(void* instance, MemberId id, InvokeKind kind,
                         std::span<Argument> arguments) const = 0;
    /// A new enumeration from the start. Throws `Error` 451 when the object is no collection.
    [[nodiscard]] virtual std::unique_ptr<Enumerator> enumerate(void* instance) const = 0;
    /// Equal for two references exactly when they refer to one object.
    [[nodiscard]] virtual const void* identity(void* instance) const noexcept = 0;
    /// Equal and not null for two objects exactly when their types are proven the same, so that member ids of
    /// one hold for the other. A key is never reused for another type within the process.
    [[nodiscard]] virtual const void* typeKey(void* instance) const noexcept = 0;
    /// The native object, or null when the instance is foreign.
    [[nodiscard]] virtual NativeObject* native(void* instance) const noexcept = 0;

  protected:
    ~Binding() = default;
};

/// Include calls.h to call members.
/// A counted, nullable reference to anything that answers members by name. Every member but the tests for
/// emptiness and identity throws `Error` 91 on an empty reference. One user-interface thread; counts are not
/// atomic across threads.
class Object {
  public:
    Object() noexcept = default;
    Object(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor): null is an object reference
    Object(NativeObject* native) noexcept;  // NOLINT(google-explicit-constructor)
    /// Takes over one count that the caller holds.
    static Object adopt(const Binding& binding, void* instance) noexcept { return {binding, instance}; }
    /// Adds a count of its own.
    static Object share(const Binding& binding, void* instance) noexcept;

    Object(const Object& other) noexcept : binding_(other.binding_), instance_(other.instance_) {
        if (instance_ != nullptr)
            binding_->addRef(instance_);
    }
    Object(Object&& other) noexcept
        : binding_(other.binding_), instance_(std::exchange(other.instance_, nullptr)) {}
    Object& operator=(Object other) noexcept {
        std::swap(binding_, other.binding_);
        std::swap(instance_, other.instance_);
        return *this;
    }
    ~Object() { reset(); }

    /// Empties the reference before the count is dropped, so that a destructor that comes back finds it
    /// empty.
    void reset() noexcept {
        if (void* instance = std::exchange(instance_, nullptr))
            binding_->release(instance);
    }
    [[nodiscard]] explicit operator bool() const noexcept { return instance_ != nullptr; }
    /// Identity of the objects, not of the references; two empty references are equal.
    friend bool operator==(const Object& a, const Object& b) noexcept { return a.identity() == b.identity(); }
    [[nodiscard]] const void* identity() const noexcept;

    [[nodiscard]] MemberId resolve(std::u16string_view name) const;
    Value invoke(MemberId id, InvokeKind kind, std::span<Argument> arguments) const;
    [[nodiscard]] const void* typeKey() const noexcept {
        return instance_ != nullptr ? binding_->typeKey(instance_) : nullptr;
    }

    /// Calls a method, or reads a property with arguments. Arguments are anything a `Value` is made of, or
    /// `byRef(v)`.
    template <class... Args>
    Value call(std::u16string_view name, Args&&... arguments) const;
    template <class... Args>
    Value call(const Member& member, Args&&... arguments) const;
    /// Reads a property. The same as `call`: late binding cannot tell a property read from a call.
    template <class... Args>
    [[nodiscard]] Value get(std::u16string_view name, Args&&... arguments) const;
    template <class... Args>
    [[nodiscard]] Value get(const Member& member, Args&&... arguments) const;
    void put(std::u16string_view name, const Value& value) const;
    /// `Set object.name = value`.
    void putRef(std::u16string_view name, const Object& value) const;
    /// The default member, e.g. `Item` of a collection.
    template <class... Args>
    [[nodiscard]] Value item(Args&&... arguments) const;

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate() const;
    [[nodiscard]] NativeObject* native() const noexcept;
    /// For containers that hold many references of one family: gives up the instance with its count, which
    /// `adopt` with the same binding takes over again.
    [[nodiscard]] void* detach() noexcept { return std::exchange(instance_, nullptr); }
    /// Null for a reference that never held anything.
    [[nodiscard]] const Binding* binding() const noexcept { return binding_; }
    /// For the backend that made the instance: the raw pointer, if it is of that binding, else null. Not
    /// counted.
    [[nodiscard]] void* instanceOf(const Binding& binding) const noexcept {
        return binding_ == &binding ? instance_ : nullptr;
    }

  private:
    Object(const Binding& binding, void* instance) noexcept : binding_(&binding), instance_(instance) {}
    [[noreturn]] static void raiseNotSet();

    const Binding* binding_ = nullptr;
    void* instance_ = nullptr;
};

/// True if the reference is not empty; never raises.
[[nodiscard]] inline bool IsObjectSet(const Object& object) noexcept {
    return static_cast<bool>(object);
}

}  // namespace quorel::automation
