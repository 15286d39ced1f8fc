#include "platform/automation/object.h"

#include "platform/automation/calls.h"
#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/native_object.h"

namespace quorel::automation {

namespace {

constexpr std::int32_t kFirstExtraId = 0x10000;

/// Objects of this process's own classes: the instance is a `NativeObject*`.
class NativeBinding final : public Binding {
  public:
    void addRef(void* instance) const noexcept override { self(instance).addRef(); }
    void release(void* instance) const noexcept override { self(instance).release(); }

    MemberId resolve(void* instance, std::u16string_view name) const override {
        NativeObject& object = self(instance);
        if (const MemberInfo* member = object.classTable().find(name))
            return member->id;
        if (const std::optional<MemberId> extra = object.resolveExtra(name))
            return *extra;
        throw Error(error_number::kMemberNotSupported);
    }

    Value invoke(void* instance, MemberId id, InvokeKind kind, std::span<Argument> arguments) const override {
        // The member may drop the last reference to its own object.
        const Ref<NativeObject> kept(&self(instance));
        if (static_cast<std::int32_t>(id) >= kFirstExtraId)
            return kept->invokeExtra(id, kind, arguments);
        return kept->classTable().invoke(*kept, id, kind, arguments);
    }

    std::unique_ptr<Enumerator> enumerate(void* instance) const override {
        const Ref<NativeObject> kept(&self(instance));
        return kept->enumerate();
    }
    const void* identity(void* instance) const noexcept override { return instance; }
    const void* typeKey(void* instance) const noexcept override { return &self(instance).classTable(); }
    NativeObject* native(void* instance) const noexcept override { return &self(instance); }

  private:
    static NativeObject& self(void* instance) noexcept { return *static_cast<NativeObject*>(instance); }
};

const NativeBinding kNativeBinding;

}  // namespace

Object::Object(NativeObject* native) noexcept : binding_(&kNativeBinding), instance_(native) {
    if (native != nullptr)
        native->addRef();
}

Object Object::share(const Binding& binding, void* instance) noexcept {
    if (instance != nullptr)
        binding.addRef(instance);
    return adopt(binding, instance);
}

const void* Object::identity() const noexcept {
    return instance_ != nullptr ? binding_->identity(instance_) : nullptr;
}

MemberId Object::resolve(std::u16string_view name) const {
    if (instance_ == nullptr)
        raiseNotSet();
    return binding_->resolve(instance_, name);
}

void Object::raiseNotSet() {
    throw Error(error_number::kObjectNotSet);
}

void Object::put(std::u16string_view name, const Value& value) const {
    std::array<Argument, 1> arguments{Argument(value)};
    invoke(resolve(name), InvokeKind::Put, arguments);
}

void Object::putRef(std::u16string_view name, const Object& value) const {
    std::array<Argument, 1> arguments{Argument(Value(value))};
    invoke(resolve(name), InvokeKind::PutRef, arguments);
}

std::unique_ptr<Enumerator> Object::enumerate() const {
    if (instance_ == nullptr)
        raiseNotSet();
    return binding_->enumerate(instance_);
}

NativeObject* Object::native() const noexcept {
    return instance_ != nullptr ? binding_->native(instance_) : nullptr;
}

}  // namespace quorel::automation
