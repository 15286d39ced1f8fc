#include "platform/automation/class_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory_resource>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"

namespace quorel::automation {

namespace {

constexpr std::size_t kMostInPlace = 12;  // arguments that need no memory of their own

bool asks(InvokeKind kind, InvokeKind wanted) noexcept {
    return (static_cast<std::uint16_t>(kind) & static_cast<std::uint16_t>(wanted)) != 0;
}

const Value& defaultOf(const Parameter& parameter, bool skipped) {
    if (!parameter.defaultValue)
        throw Error(skipped ? error_number::kArgumentNotOptional : error_number::kWrongArgumentCount);
    return *parameter.defaultValue;
}

/// Calls with one argument for each parameter: those given (changes are written through to them), and
/// defaults where one was skipped or the caller stopped early.
Value callFilled(const MemberFunction& function, NativeObject& object,
                 const std::vector<Parameter>& parameters, std::span<Argument> given, Argument* putValue) {
    const bool complete = given.size() == parameters.size() && putValue == nullptr &&
                          std::none_of(given.begin(), given.end(),
                                       [](const Argument& argument) { return argument.value().isMissing(); });
    if (complete)
        return function(object, given);
    std::array<std::byte, kMostInPlace * sizeof(Argument)> room;
    std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
    std::pmr::vector<Argument> filled(&memory);
    filled.reserve(parameters.size() + 1);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const bool isGiven = i < given.size();
        if (isGiven && !given[i].value().isMissing())
            filled.push_back(Argument::reference(given[i].value()));
        else
            filled.emplace_back(defaultOf(parameters[i], isGiven));
    }
    if (putValue != nullptr)
        filled.push_back(Argument::reference(putValue->value()));
    return function(object, filled);
}

Value callMethod(const MemberInfo& member, NativeObject& object, std::span<Argument> arguments) {
    if (arguments.size() > member.parameters.size())
        throw Error(error_number::kWrongArgumentCount);
    return callFilled(member.method, object, member.parameters, arguments, nullptr);
}

Value readProperty(const MemberInfo& member, NativeObject& object, std::span<Argument> arguments) {
    const std::size_t count = member.parameters.size();
    if (arguments.size() <= count)
        return callFilled(member.get, object, member.parameters, arguments, nullptr);
    const Value value = callFilled(member.get, object, member.parameters, arguments.first(count), nullptr);
    const auto* const result = value.getIf<Object>();
    if (result == nullptr)
        throw Error(error_number::kWrongArgumentCount);
    return result->invoke(MemberId::Default, InvokeKind::Call, arguments.subspan(count));
}

Value assignProperty(const MemberInfo& member, NativeObject& object, InvokeKind kind,
                     std::span<Argument> arguments) {
    const bool byReference = asks(kind, InvokeKind::PutRef) && member.putRef;
    if (!byReference && !(asks(kind, InvokeKind::Put) && member.put))
        throw Error(error_number::kMemberNotSupported);
    if (arguments.empty() || arguments.size() > member.parameters.size() + 1)
        throw Error(error_number::kWrongArgumentCount);
    if (arguments.back().value().isMissing())
        throw Error(error_number::kArgumentNotOptional);
    const MemberFunction& function = byReference ? member.putRef : member.put;
    if (member.parameters.empty())
        return function(object, arguments);
    return callFilled(function, object, member.parameters, arguments.first(arguments.size() - 1),
                      &arguments.back());
}

}  // namespace

Parameter param(std::u16string_view name) {
    return {std::u16string(name), std::nullopt};
}

Parameter param(std::u16string_view name, Value defaultValue) {
    // An empty text that holds no string costs less each time it is filled in.
    if (defaultValue.text() == u"")
        defaultValue = AdoptedText(nullptr, 0, [](char16_t*) noexcept {});
    return {std::u16string(name), std::move(defaultValue)};
}

MemberInfo& ClassTable::add(std::u16string_view name, std::vector<Parameter> parameters) {
    MemberInfo& member = members_.emplace_back();
    member.name = name;
    member.id = static_cast<MemberId>(members_.size());
    member.parameters = std::move(parameters);
    byName_.emplace(name, members_.size() - 1);
    byId_.emplace(static_cast<std::int32_t>(member.id), members_.size() - 1);
    return member;
}

void ClassTable::renumberLast(MemberId id) {
    MemberInfo& member = members_.back();
    byId_.erase(static_cast<std::int32_t>(member.id));
    member.id = id;
    byId_.insert_or_assign(static_cast<std::int32_t>(id), members_.size() - 1);
}

const MemberInfo* ClassTable::find(std::u16string_view name) const {
    const auto found = byName_.find(name);
    return found != byName_.end() ? &members_[found->second] : nullptr;
}

const MemberInfo* ClassTable::find(MemberId id) const {
    const auto found = byId_.find(static_cast<std::int32_t>(id));
    return found != byId_.end() ? &members_[found->second] : nullptr;
}

Value ClassTable::invoke(NativeObject& object, MemberId id, InvokeKind kind,
                         std::span<Argument> arguments) const {
    const MemberInfo* const member = find(id);
    if (member == nullptr)
        throw Error(error_number::kMemberNotSupported);
    if (asks(kind, InvokeKind::Put) || asks(kind, InvokeKind::PutRef))
        return assignProperty(*member, object, kind, arguments);
    if (asks(kind, InvokeKind::Method) && member->method)
        return callMethod(*member, object, arguments);
    if (asks(kind, InvokeKind::Get) && member->get)
        return readProperty(*member, object, arguments);
    throw Error(error_number::kMemberNotSupported);
}

}  // namespace quorel::automation
