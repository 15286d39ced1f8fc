#include "platform/win32/com/call_frame.h"

#include "platform/win32/com/bridge.h"
#include "platform/win32/com/variants.h"

namespace quorel::win32 {

using automation::Argument;
using automation::Value;

namespace {

void passReferenceTo(VARIANT& target, VARIANT& passed) noexcept {
    V_VT(&passed) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&passed) = &target;
}

}  // namespace

CallFrame::CallFrame(std::span<Argument> arguments, bool assigns) : arguments_(arguments) {
    const std::size_t count = arguments.size();
    if (count > kInPlace) {
        moreValues_.resize(count);
        morePassed_.resize(count);
        values_ = moreValues_;
        passed_ = morePassed_;
    } else {
        values_ = std::span(valuesInPlace_).first(count);
        passed_ = std::span(passedInPlace_).first(count);
    }
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t slot = slotOf(i);
        toVariant(arguments[i].value(), *values_[slot]);
        if (arguments[i].isReference() && !assigns)
            passReferenceTo(*values_[slot], passed_[slot]);
        else
            passed_[slot] = *values_[slot];
    }
    parameters_.cArgs = static_cast<UINT>(count);
    parameters_.rgvarg = passed_.data();
    if (assigns) {
        parameters_.cNamedArgs = 1;
        parameters_.rgdispidNamedArgs = &assigned_;
    }
}

bool CallFrame::assignsObject() const noexcept {
    return parameters_.cNamedArgs != 0 && V_VT(&passed_.front()) == VT_DISPATCH;
}

bool CallFrame::useTypedReferences() noexcept {
    bool any = false;
    for (std::size_t slot = 0; slot < passed_.size(); ++slot) {
        VARIANT& value = *values_[slot];
        if (V_VT(&passed_[slot]) != (VT_BYREF | VT_VARIANT) || V_VT(&value) == VT_EMPTY)
            continue;
        V_VT(&passed_[slot]) = static_cast<VARTYPE>(VT_BYREF | V_VT(&value));
        V_BYREF(&passed_[slot]) = &V_I4(&value);
        any = true;
    }
    return any;
}

void CallFrame::writeBack() {
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        const std::size_t slot = slotOf(i);
        if (!arguments_[i].isReference() || (V_VT(&passed_[slot]) & VT_BYREF) == 0)
            continue;
        Value after = takeVariant(*values_[slot]);
        if (!readsTheSame(arguments_[i].value(), after))
            arguments_[i].value() = std::move(after);
    }
}

}  // namespace quorel::win32
