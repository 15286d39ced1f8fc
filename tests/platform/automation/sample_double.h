#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/native_object.h"
#include "platform/automation/text.h"

namespace quorel::automation::testing {

/// A list of values, enumerable, with a keyed default member.
class ListDouble : public NativeObject {
  public:
    explicit ListDouble(std::vector<Value> items) : items_(std::move(items)) {}

    const ClassTable& classTable() const override {
        static const ClassTable table = ClassTable::of<ListDouble>(u"ListDouble")
                                            .readOnly(u"Item", &ListDouble::item, {param(u"index")})
                                            .withId(MemberId::Default)
                                            .readOnly(u"Count", &ListDouble::count);
        return table;
    }

    std::unique_ptr<Enumerator> enumerate() override {
        class Reader : public Enumerator {
          public:
            explicit Reader(Ref<ListDouble> list) : list_(std::move(list)) {}
            std::size_t next(std::span<Value> values) override {
                std::size_t count = 0;
                while (count < values.size() && position_ < list_->items_.size())
                    values[count++] = list_->items_[position_++];
                return count;
            }

          private:
            Ref<ListDouble> list_;
            std::size_t position_ = 0;
        };
        return std::make_unique<Reader>(Ref<ListDouble>(this));
    }

  private:
    Value item(std::int32_t index) const {
        if (index < 1 || index > count())
            throw Error(error_number::kSubscriptOutOfRange);
        return items_[static_cast<std::size_t>(index) - 1];
    }
    std::int32_t count() const { return static_cast<std::int32_t>(items_.size()); }

    std::vector<Value> items_;
};

/// One member of each kind, and properties of its own beyond the table.
class SampleDouble : public NativeObject {
  public:
    std::u16string label = u"sample";
    Object held;
    std::vector<std::u16string> seen;

    const ClassTable& classTable() const override {
        static const ClassTable table =
            ClassTable::of<SampleDouble>(u"SampleDouble")
                .readOnly(u"Value", &SampleDouble::value)
                .withId(MemberId::Default)
                .property(u"Label", &SampleDouble::readLabel, &SampleDouble::setLabel)
                .objectProperty(u"Held", &SampleDouble::readHeld, &SampleDouble::setHeld)
                .writeOnly(u"Sink", &SampleDouble::setLabel)
                .property(u"Slot", &SampleDouble::slot, &SampleDouble::setSlot, {param(u"index", 7)})
                .method(u"Join", &SampleDouble::join,
                        {param(u"first"), param(u"second", u"two"), param(u"third", u"three")})
                .method(u"Swap", &SampleDouble::swap, {param(u"a"), param(u"b")})
                .method(u"Double", &SampleDouble::twice, {param(u"number")})
                .method(u"HasObject", &SampleDouble::hasObject, {param(u"o", Value::nothing())})
                .method(u"Fail", &SampleDouble::fail)
                .method(u"Forget", &SampleDouble::forget);
        return table;
    }

    std::optional<MemberId> resolveExtra(std::u16string_view name) override {
        if (equalsIgnoringCase(name, u"Colour"))
            return static_cast<MemberId>(0x10000);
        return std::nullopt;
    }
    Value invokeExtra(MemberId id, InvokeKind kind, std::span<Argument> arguments) override {
        if (id != static_cast<MemberId>(0x10000))
            return NativeObject::invokeExtra(id, kind, arguments);
        if (kind == InvokeKind::Put)
            colour_ = arguments.back().value();
        return colour_;
    }

    Object* forgetMe = nullptr;

  private:
    std::int32_t value() const { return 42; }
    std::u16string readLabel() const { return label; }
    void setLabel(const std::u16string& text) { label = text; }
    Object readHeld() const { return held; }
    void setHeld(Object object) { held = std::move(object); }
    std::u16string slot(std::int32_t index) { return slots_[index]; }
    void setSlot(std::int32_t index, const std::u16string& text) { slots_[index] = text; }
    std::u16string join(const std::u16string& a, const std::u16string& b, const std::u16string& c) {
        return a + u"/" + b + u"/" + c;
    }
    void swap(std::u16string& a, std::u16string& b) { std::swap(a, b); }
    std::int32_t twice(std::int32_t& number) { return number *= 2; }
    bool hasObject(const Object& object) { return IsObjectSet(object); }
    void fail() { throw Error(1234, u"No luck", u"Sample"); }
    std::u16string forget() {
        forgetMe->reset();
        return label;
    }

    std::unordered_map<std::int32_t, std::u16string> slots_;
    Value colour_;
};

template <class Body>
std::int32_t errorNumber(Body&& body) {
    try {
        body();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

}  // namespace quorel::automation::testing
