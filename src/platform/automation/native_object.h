#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/automation/calls.h"

namespace quorel::automation {

class ClassTable;

/// Base of every C++ class whose members can be called by name. Counted intrusively, created with `make`,
/// owned by `Ref` and `Object`. One thread (the apartment's).
class NativeObject {
  public:
    NativeObject(const NativeObject&) = delete;
    NativeObject& operator=(const NativeObject&) = delete;

    void addRef() noexcept { ++count_; }
    void release() noexcept {
        if (--count_ == 0)
            end();
    }

    /// The members, in one table per class (see class_table.h).
    [[nodiscard]] virtual const ClassTable& classTable() const = 0;
    /// For collections; the default throws `Error` 451.
    [[nodiscard]] virtual std::unique_ptr<Enumerator> enumerate();
    /// Members that the table does not hold, e.g. a node's properties. Ids must be 0x10000 or above and the
    /// same for one name on every object of the class. The defaults know none.
    [[nodiscard]] virtual std::optional<MemberId> resolveExtra(std::u16string_view name);
    virtual Value invokeExtra(MemberId id, InvokeKind kind, std::span<Argument> arguments);

    /// Room for the one wrapper that a platform bridge keeps while the object is known outside; not owned.
    [[nodiscard]] void* bridge() const noexcept { return bridge_; }
    void setBridge(void* bridge) noexcept { bridge_ = bridge; }

    /// Native objects alive in this process, for balance checks in tests and `DllCanUnloadNow`.
    [[nodiscard]] static std::int64_t liveCount() noexcept;

  protected:
    NativeObject() noexcept;
    virtual ~NativeObject();

  private:
    /// Out of line on purpose: when its store to the count is inlined into a clean-up after an exception, GCC
    /// 12 takes the decrement before it for dead on both ways, and an object that others still hold never
    /// ends.
    void end() noexcept;

    std::uint32_t count_ = 0;
    void* bridge_ = nullptr;
};

/// A counting pointer to a native object of known class.
template <class T>
class Ref {
  public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor)
    explicit Ref(T* object) noexcept : object_(object) {
        if (object_ != nullptr)
            object_->addRef();
    }
    Ref(const Ref& other) noexcept : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <class U>
    requires std::convertible_to<U*, T*> Ref(const Ref<U>& other)
    noexcept : Ref(other.get()) {}  // NOLINT(google-explicit-constructor)
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() { reset(); }

    void reset() noexcept {
        if (T* object = std::exchange(object_, nullptr))
            object->release();
    }
    [[nodiscard]] T* get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    operator Object() const noexcept { return Object(object_); }        // NOLINT(google-explicit-constructor)
    operator Value() const noexcept { return Value(Object(object_)); }  // NOLINT(google-explicit-constructor)
    friend bool operator==(const Ref&, const Ref&) = default;

  private:
    T* object_ = nullptr;
};

template <std::derived_from<NativeObject> T, class... Args>
[[nodiscard]] Ref<T> make(Args&&... arguments) {
    return Ref<T>(new T(std::forward<Args>(arguments)...));
}

}  // namespace quorel::automation
