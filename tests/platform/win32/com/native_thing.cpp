#include "tests/platform/win32/com/native_thing.h"

#include <stdexcept>

#include "platform/automation/error.h"
#include "platform/automation/text.h"

namespace quorel::win32::testing {

using automation::Argument;
using automation::ClassTable;
using automation::Enumerator;
using automation::Error;
using automation::InvokeKind;
using automation::MemberId;
using automation::Object;
using automation::param;
using automation::Value;

namespace {

constexpr auto kExtra = static_cast<MemberId>(0x10001);

class ListEnumerator final : public Enumerator {
  public:
    explicit ListEnumerator(automation::Ref<NativeList> list) : list_(std::move(list)) {}
    std::size_t next(std::span<Value> values) override {
        std::size_t filled = 0;
        while (filled < values.size() && position_ < list_->count())
            values[filled++] = list_->item(position_++);
        return filled;
    }

  private:
    automation::Ref<NativeList> list_;
    std::int32_t position_ = 0;
};

}  // namespace

const ClassTable& NativeList::classTable() const {
    static const ClassTable table = ClassTable::of<NativeList>(u"NativeList")
                                        .readOnly(u"Item", &NativeList::item, {param(u"index")})
                                        .withId(MemberId::Default)
                                        .readOnly(u"Count", &NativeList::count);
    return table;
}

std::unique_ptr<Enumerator> NativeList::enumerate() {
    return std::make_unique<ListEnumerator>(automation::Ref<NativeList>(this));
}

Value NativeList::item(std::int32_t index) const {
    if (index < 0 || index >= count())
        throw Error(automation::error_number::kSubscriptOutOfRange);
    return items_[static_cast<std::size_t>(index)];
}

const ClassTable& NativeThing::classTable() const {
    static const ClassTable table =
        ClassTable::of<NativeThing>(u"NativeThing")
            .property(u"Title", &NativeThing::getTitle, &NativeThing::setTitle)
            .objectProperty(u"Partner", &NativeThing::getPartner, &NativeThing::setPartner)
            .readOnly(u"Items", &NativeThing::items)
            .method(u"Describe", &NativeThing::describe,
                    {param(u"first"), param(u"second", 7), param(u"third", Value::nothing())})
            .method(u"Look", &NativeThing::look,
                    {param(u"text"), param(u"object"), param(u"number"), param(u"flag")})
            .method(u"Change", &NativeThing::change,
                    {param(u"text"), param(u"object"), param(u"number"), param(u"flag")})
            .method(u"Echo", &NativeThing::echo, {param(u"value")})
            .method(u"Fail", &NativeThing::fail, {param(u"number")})
            .method(u"BreakDown", &NativeThing::breakDown)
            .method(u"Keep", &NativeThing::keep, {param(u"value", u"")});
    return table;
}

std::optional<MemberId> NativeThing::resolveExtra(std::u16string_view name) {
    if (automation::equalsIgnoringCase(name, u"PropColour"))
        return kExtra;
    return std::nullopt;
}

Value NativeThing::invokeExtra(MemberId id, InvokeKind kind, std::span<Argument> arguments) {
    if (id != kExtra)
        throw Error(automation::error_number::kMemberNotSupported);
    if (kind == InvokeKind::Put)
        title = arguments[0].value().toString();
    return Value(title);
}

Object NativeThing::items() const {
    return automation::make<NativeList>(std::vector<Value>{Value(u"zero"), Value(u"one"), Value(u"two")});
}

std::u16string NativeThing::describe(const std::u16string& first, const Value& second,
                                     const Object& third) const {
    return first + u"," + second.toString() + u"," + (third ? u"object" : u"nothing");
}

void NativeThing::look(std::u16string&, Object&, std::int32_t&, bool&) const {}

void NativeThing::change(std::u16string& text, Object& object, std::int32_t& number, bool& flag) {
    text += u"!";
    object = Object(this);
    ++number;
    flag = !flag;
}

void NativeThing::fail(std::int32_t number) const {
    throw Error(number, u"it failed", u"NativeThing");
}

void NativeThing::breakDown() const {
    throw std::runtime_error("broken");
}

}  // namespace quorel::win32::testing
