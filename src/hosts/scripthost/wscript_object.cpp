#include "hosts/scripthost/wscript_object.h"

#include <algorithm>

#include "hosts/console.h"
#include "hosts/scripthost/pumping.h"
#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"

namespace quorel::scripthost {

namespace {

using automation::Argument;
using automation::ClassTable;
using automation::Enumerator;
using automation::Error;
using automation::InvokeKind;
using automation::MemberId;
using automation::Object;
using automation::Value;

constexpr auto kEcho = static_cast<MemberId>(0x10000);

class ArgumentEnumerator final : public Enumerator {
  public:
    explicit ArgumentEnumerator(automation::Ref<ScriptArguments> owner) : owner_(std::move(owner)) {}

    std::size_t next(std::span<Value> values) override {
        std::size_t filled = 0;
        while (filled < values.size() && position_ < owner_->count())
            values[filled++] = owner_->item(position_++);
        return filled;
    }

  private:
    automation::Ref<ScriptArguments> owner_;
    std::int32_t position_ = 0;
};

}  // namespace

const ClassTable& ScriptArguments::classTable() const {
    static const ClassTable table =
        ClassTable::of<ScriptArguments>(u"WshArguments")
            .readOnly(u"Item", &ScriptArguments::item, {automation::param(u"index")})
            .withId(MemberId::Default)
            .readOnly(u"Count", &ScriptArguments::count)
            .readOnly(u"length", &ScriptArguments::count);
    return table;
}

std::unique_ptr<Enumerator> ScriptArguments::enumerate() {
    return std::make_unique<ArgumentEnumerator>(automation::Ref<ScriptArguments>(this));
}

std::u16string ScriptArguments::item(std::int32_t index) const {
    if (index < 0 || index >= count())
        throw Error(automation::error_number::kSubscriptOutOfRange);
    return items_[static_cast<std::size_t>(index)];
}

WScriptObject::WScriptObject(const automation::ClassRegistry& classes, std::u16string script,
                             std::vector<std::u16string> arguments, Quit quit)
    : classes_(classes),
      script_(std::move(script)),
      arguments_(automation::make<ScriptArguments>(std::move(arguments))),
      quit_(std::move(quit)) {}

const ClassTable& WScriptObject::classTable() const {
    static const ClassTable table =
        ClassTable::of<WScriptObject>(u"WScript")
            .readOnly(u"Arguments", &WScriptObject::arguments)
            .method(u"CreateObject", &WScriptObject::createObject, {automation::param(u"progId")})
            .method(u"Sleep", &WScriptObject::sleep, {automation::param(u"milliseconds")})
            .method(u"Quit", &WScriptObject::quit, {automation::param(u"code", 0)})
            .readOnly(u"ScriptFullName", &WScriptObject::scriptFullName)
            .readOnly(u"ScriptName", &WScriptObject::scriptName);
    return table;
}

std::optional<MemberId> WScriptObject::resolveExtra(std::u16string_view name) {
    if (automation::equalsIgnoringCase(name, u"Echo"))
        return kEcho;
    return std::nullopt;
}

Value WScriptObject::invokeExtra(MemberId, InvokeKind, std::span<Argument> arguments) {
    std::u16string line;
    for (const Argument& argument : arguments) {
        if (&argument != &arguments.front())
            line += u' ';
        line += argument.value().isNull() ? std::u16string(u"Null") : argument.value().toString();
    }
    hosts::writeLine(hosts::Stream::Output, line);
    return {};
}

Object WScriptObject::createObject(std::u16string progId) const {
    return classes_.createObject(progId);
}

void WScriptObject::sleep(std::int32_t milliseconds) {
    sleepPumping(milliseconds);
}

void WScriptObject::quit(std::int32_t code) {
    quit_(code);
}

std::u16string WScriptObject::scriptName() const {
    return script_.substr(script_.find_last_of(u"\\/") + 1);
}

}  // namespace quorel::scripthost
