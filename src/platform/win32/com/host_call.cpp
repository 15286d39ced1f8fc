#include "platform/win32/com/host_call.h"

#include <algorithm>

#include "platform/win32/com/bridge.h"
#include "platform/win32/com/variants.h"

namespace quorel::win32 {

using automation::AdoptedText;
using automation::Argument;
using automation::Value;

namespace {

constexpr DISPID kMostArguments = 0x1000;

/// A text that the caller keeps for the time of the call. Whoever keeps the value copies it, and copies have
/// buffers of their own.
Value borrowed(BSTR text) noexcept {
    return AdoptedText(reinterpret_cast<char16_t*>(text), ::SysStringLen(text), [](char16_t*) noexcept {});
}

}  // namespace

HostCall::HostCall(const DISPPARAMS& parameters) {
    const bool assigns = parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    const UINT named = assigns ? 0 : std::min(parameters.cNamedArgs, parameters.cArgs);
    std::size_t count = parameters.cArgs - named;
    for (UINT i = 0; i < named; ++i) {
        const DISPID position = parameters.rgdispidNamedArgs[i];
        if (position < 0 || position >= kMostArguments)
            throw UnknownArgument{};
        count = std::max(count, static_cast<std::size_t>(position) + 1);
    }
    arguments_.resize(count, Argument(Value::missing()));
    variables_.reserve(parameters.cArgs);
    for (UINT i = 0; i < parameters.cArgs; ++i) {
        const VARIANT& given = parameters.rgvarg[i];
        place(
            i < named ? static_cast<std::size_t>(parameters.rgdispidNamedArgs[i]) : parameters.cArgs - 1 - i,
            given);
    }
}

void HostCall::place(std::size_t position, const VARIANT& given) {
    if ((V_VT(&given) & VT_BYREF) == 0) {
        arguments_[position] =
            Argument(V_VT(&given) == VT_BSTR ? borrowed(V_BSTR(&given)) : fromVariant(given));
        return;
    }
    Variable& variable = variables_.emplace_back();
    variable.outside = &given;
    variable.before = fromVariant(given);
    variable.now = variable.before;
    arguments_[position] = Argument::reference(variable.now);
}

void HostCall::writeBack() {
    for (const Variable& variable : variables_) {
        if (!readsTheSame(variable.before, variable.now))
            storeThrough(*variable.outside, variable.now);
    }
}

}  // namespace quorel::win32
