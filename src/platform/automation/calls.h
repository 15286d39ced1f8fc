#pragma once

// Calling members of an `Object` by name, enumerating collections.

#include <array>
#include <string>

#include "platform/automation/object.h"
#include "platform/automation/value.h"

namespace quorel::automation {

/// Reads a collection in batches.
class Enumerator {
  public:
    virtual ~Enumerator() = default;
    /// Fills `values` from the front and returns how many; fewer than asked means the end is reached.
    virtual std::size_t next(std::span<Value> values) = 0;
    /// The same for a collection of objects, where that saves the values. `objects` must be empty references;
    /// a null element is one, too. Throws `Error` 13 at an element that is no object. `filled` counts those
    /// in place, also when it throws.
    virtual void nextObjects(std::span<Object> objects, std::size_t& filled);
};

/// A member name with the id it had on the last type that was proven, for call sites that ask many objects of
/// one type. For types that prove nothing the name is resolved at each call. Not shared between threads.
class Member {
  public:
    explicit Member(std::u16string name) : name_(std::move(name)) {}

    [[nodiscard]] const std::u16string& name() const noexcept { return name_; }
    [[nodiscard]] MemberId idFor(const Object& object) const { return idFor(object, object.typeKey()); }
    /// The same when the object's type key is known already.
    [[nodiscard]] MemberId idFor(const Object& object, const void* key) const {
        return key != nullptr && key == typeKey_ ? id_ : resolve(object, key);
    }

  private:
    MemberId resolve(const Object& object, const void* key) const;

    std::u16string name_;
    mutable const void* typeKey_ = nullptr;
    mutable MemberId id_ = MemberId::Default;
};

/// An object whose type was proven before, for whoever reads several of its members: a proof may cost a
/// quarter of a read. Refers to the object.
class Typed {
  public:
    explicit Typed(const Object& object) : Typed(object, object.typeKey()) {}
    Typed(const Object& object, const void* typeKey) noexcept : object_(object), typeKey_(typeKey) {}

    [[nodiscard]] const Object& object() const noexcept { return object_; }
    [[nodiscard]] const void* typeKey() const noexcept { return typeKey_; }
    [[nodiscard]] MemberId idOf(const Member& member) const { return member.idFor(object_, typeKey_); }
    template <class... Args>
    [[nodiscard]] Value get(const Member& member, Args&&... arguments) const;

  private:
    const Object& object_;
    const void* typeKey_;
};

inline Value Object::invoke(MemberId id, InvokeKind kind, std::span<Argument> arguments) const {
    if (instance_ == nullptr)
        raiseNotSet();
    return binding_->invoke(instance_, id, kind, arguments);
}

namespace detail {
template <class... Args>
Value invokeWith(const Object& object, MemberId id, InvokeKind kind, Args&&... arguments) {
    std::array<Argument, sizeof...(Args)> list{Argument(std::forward<Args>(arguments))...};
    return object.invoke(id, kind, list);
}
}  // namespace detail

template <class... Args>
Value Object::call(std::u16string_view name, Args&&... arguments) const {
    return detail::invokeWith(*this, resolve(name), InvokeKind::Call, std::forward<Args>(arguments)...);
}

template <class... Args>
Value Object::call(const Member& member, Args&&... arguments) const {
    return detail::invokeWith(*this, member.idFor(*this), InvokeKind::Call, std::forward<Args>(arguments)...);
}

template <class... Args>
Value Object::get(std::u16string_view name, Args&&... arguments) const {
    return call(name, std::forward<Args>(arguments)...);
}

template <class... Args>
Value Object::get(const Member& member, Args&&... arguments) const {
    return call(member, std::forward<Args>(arguments)...);
}

template <class... Args>
Value Typed::get(const Member& member, Args&&... arguments) const {
    return detail::invokeWith(object_, idOf(member), InvokeKind::Call, std::forward<Args>(arguments)...);
}

template <class... Args>
Value Object::item(Args&&... arguments) const {
    return detail::invokeWith(*this, MemberId::Default, InvokeKind::Call, std::forward<Args>(arguments)...);
}

/// True if the object has a member of that name; false for an empty reference. Calls nothing.
[[nodiscard]] bool answersTo(const Object& object, std::u16string_view name);

/// `for (const Object& node : each(extension))`. An element that is no object is error 13; a null element is
/// passed on.
class Each {
  public:
    class Iterator {
      public:
        Iterator() = default;
        explicit Iterator(Each* owner) : owner_(owner) { advance(); }
        const Object& operator*() const { return current_; }
        Iterator& operator++() {
            advance();
            return *this;
        }
        bool operator==(const Iterator& other) const noexcept { return owner_ == other.owner_; }

      private:
        void advance();
        Each* owner_ = nullptr;
        Object current_;
    };

    explicit Each(const Object& collection) : enumerator_(collection.enumerate()) {}
    Iterator begin() { return Iterator(this); }
    static Iterator end() { return {}; }

  private:
    static constexpr std::size_t kBatch = 64;
    bool next(Object& object);
    std::unique_ptr<Enumerator> enumerator_;
    std::array<Value, kBatch> batch_;
    std::size_t size_ = 0;
    std::size_t position_ = 0;
    bool ended_ = false;
};

[[nodiscard]] inline Each each(const Object& collection) {
    return Each(collection);
}

}  // namespace quorel::automation
