#include <dispex.h>

#include <array>
#include <memory>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/call_frame.h"
#include "platform/win32/com/enumerations.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/com/foreign_names.h"
#include "platform/win32/com/type_keys.h"
#include "platform/win32/com/variants.h"

namespace quorel::win32 {

namespace {

using automation::Argument;
using automation::Binding;
using automation::Enumerator;
using automation::Error;
using automation::InvokeKind;
using automation::MemberId;
using automation::Value;
namespace numbers = automation::error_number;

constexpr auto kFunctionExpected = static_cast<HRESULT>(0x800A138A);
/// The script told its host of an error and tells its caller nothing more.
constexpr auto kScriptReported = static_cast<HRESULT>(0x80020101);

IDispatch* dispatchOf(void* instance) noexcept {
    return static_cast<IDispatch*>(instance);
}

/// How one attempt ended; the details of a failure stay here until somebody reports them.
struct Outcome {
    HRESULT status = S_OK;
    EXCEPINFO failure{};
    Variant result;
    bool ofScript = false;

    [[nodiscard]] Error error() { return errorOfInvoke(status, failure); }
    /// The run-time error number, without taking the texts.
    [[nodiscard]] std::int32_t number() const noexcept {
        return errorNumberOf(status == DISP_E_EXCEPTION ? failure.scode : status);
    }
    ~Outcome() {
        if (status == DISP_E_EXCEPTION)
            static_cast<void>(errorOfInvoke(status, failure));
    }
};

HRESULT invokeRaw(IDispatch& dispatch, MemberId id, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                  EXCEPINFO& failure) noexcept {
    UINT argument = 0;
    return dispatch.Invoke(static_cast<DISPID>(id), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                           &failure, &argument);
}

void attempt(IDispatch* dispatch, MemberId id, WORD flags, DISPPARAMS& parameters,
             Outcome& outcome) noexcept {
    const bool wantsResult = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) == 0;
    outcome.status = invokeRaw(*dispatch, id, flags, parameters, wantsResult ? outcome.result.out() : nullptr,
                               outcome.failure);
}

/// The member holds data of a script and was called. An error that the script kept to itself, or has no name
/// for, may be any.
bool mayBeNoFunction(const Outcome& outcome) noexcept {
    const HRESULT status = outcome.status == DISP_E_EXCEPTION ? outcome.failure.scode : outcome.status;
    return status == kFunctionExpected || status == kScriptReported || (status == E_FAIL && outcome.ofScript);
}

/// A method of a script object, which reading it gives: the error came from within it then.
bool isScriptFunction(const VARIANT& value) noexcept {
    if (V_VT(&value) != VT_DISPATCH || V_DISPATCH(&value) == nullptr)
        return false;
    wchar_t apply[] = L"apply";
    LPOLESTR name = apply;
    DISPID id = DISPID_UNKNOWN;
    return SUCCEEDED(V_DISPATCH(&value)->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
}

/// Objects that cannot be called and read in one request, or that know only one way to assign.
WORD otherFlags(WORD flags, const CallFrame& frame, const Outcome& outcome) noexcept {
    const bool refused = outcome.number() == numbers::kMemberNotSupported ||
                         outcome.status == DISP_E_BADPARAMCOUNT || outcome.status == E_NOTIMPL ||
                         mayBeNoFunction(outcome);
    if (!refused)
        return 0;
    if (flags == (DISPATCH_METHOD | DISPATCH_PROPERTYGET) && frame.empty())
        return DISPATCH_PROPERTYGET;
    if (flags == DISPATCH_PROPERTYPUTREF)
        return DISPATCH_PROPERTYPUT;
    if (flags == DISPATCH_PROPERTYPUT && frame.assignsObject())
        return DISPATCH_PROPERTYPUTREF;
    return 0;
}

/// A property without arguments that was read with some: they are meant for the default member of what it
/// holds.
bool meansDefaultOfResult(WORD flags, const CallFrame& frame, const Outcome& outcome) noexcept {
    if ((flags & DISPATCH_PROPERTYGET) == 0 || frame.empty())
        return false;
    return outcome.status == DISP_E_BADPARAMCOUNT || outcome.status == DISP_E_MEMBERNOTFOUND ||
           (outcome.status == DISP_E_EXCEPTION &&
            (outcome.number() == numbers::kWrongArgumentCount || outcome.failure.scode == kFunctionExpected));
}

class ForeignBinding final : public Binding {
  public:
    void addRef(void* instance) const noexcept override { dispatchOf(instance)->AddRef(); }
    void release(void* instance) const noexcept override { dispatchOf(instance)->Release(); }

    [[nodiscard]] MemberId resolve(void* instance, std::u16string_view name) const override {
        return resolveForeign(*dispatchOf(instance), name);
    }

    Value invoke(void* instance, MemberId id, InvokeKind kind, std::span<Argument> arguments) const override;

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(void* instance) const override;

    [[nodiscard]] const void* identity(void* instance) const noexcept override {
        ComPtr<IUnknown> unknown;
        dispatchOf(instance)->QueryInterface(IID_IUnknown, unknown.outVoid());
        return unknown.get();
    }

    [[nodiscard]] const void* typeKey(void* instance) const noexcept override {
        return typeKeyOf(*dispatchOf(instance));
    }

    [[nodiscard]] automation::NativeObject* native(void*) const noexcept override { return nullptr; }

  private:
    // Apart from the way of a plain read, which a list goes for every cell.
    [[gnu::noinline]] Value invokeWithArguments(IDispatch* dispatch, MemberId id, WORD flags,
                                                std::span<Argument> arguments) const;
    [[gnu::noinline]] Value recoverRead(IDispatch* dispatch, MemberId id, WORD flags, HRESULT status,
                                        const EXCEPINFO& failure) const;
    Value recover(IDispatch* dispatch, MemberId id, WORD flags, CallFrame& frame, Outcome& first) const;
};

Value ForeignBinding::invoke(void* instance, MemberId id, InvokeKind kind,
                             std::span<Argument> arguments) const {
    IDispatch* dispatch = dispatchOf(instance);
    const auto flags = static_cast<WORD>(kind);
    if (!arguments.empty() || kind > InvokeKind::Call)
        return invokeWithArguments(dispatch, id, flags, arguments);
    DISPPARAMS none{};
    Variant result;
    EXCEPINFO failure{};
    const HRESULT status = invokeRaw(*dispatch, id, flags, none, result.get(), failure);
    if (FAILED(status)) [[unlikely]]
        return recoverRead(dispatch, id, flags, status, failure);
    return takeVariant(*result);
}

Value ForeignBinding::recoverRead(IDispatch* dispatch, MemberId id, WORD flags, HRESULT status,
                                  const EXCEPINFO& failure) const {
    Outcome outcome;
    outcome.status = status;
    outcome.failure = failure;
    CallFrame frame({}, false);
    return recover(dispatch, id, flags, frame, outcome);
}

Value ForeignBinding::invokeWithArguments(IDispatch* dispatch, MemberId id, WORD flags,
                                          std::span<Argument> arguments) const {
    const bool assigns = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    CallFrame frame(arguments, assigns);
    Outcome outcome;
    attempt(dispatch, id, flags, frame.parameters(), outcome);
    if (outcome.status == DISP_E_TYPEMISMATCH && frame.useTypedReferences())
        attempt(dispatch, id, flags, frame.parameters(), outcome);
    if (FAILED(outcome.status))
        return recover(dispatch, id, flags, frame, outcome);
    frame.writeBack();
    return takeVariant(*outcome.result);
}

Value ForeignBinding::recover(IDispatch* dispatch, MemberId id, WORD flags, CallFrame& frame,
                              Outcome& first) const {
    first.ofScript = static_cast<bool>(ComPtr<IDispatch>(dispatch).as<IDispatchEx>());
    if (const WORD other = otherFlags(flags, frame, first)) {
        Outcome second;
        attempt(dispatch, id, other, frame.parameters(), second);
        if (SUCCEEDED(second.status) && !(mayBeNoFunction(first) && isScriptFunction(*second.result))) {
            frame.writeBack();
            return takeVariant(*second.result);
        }
    }
    if (meansDefaultOfResult(flags, frame, first)) {
        Outcome property;
        DISPPARAMS none{};
        attempt(dispatch, id, DISPATCH_PROPERTYGET, none, property);
        if (SUCCEEDED(property.status) && V_VT(property.result.get()) == VT_DISPATCH &&
            !isScriptFunction(*property.result)) {
            const automation::Object holder = takeVariant(*property.result).toObject();
            return holder.invoke(MemberId::Default, InvokeKind::Call, frame.arguments());
        }
    }
    throw first.error();
}

std::unique_ptr<Enumerator> ForeignBinding::enumerate(void* instance) const {
    DISPPARAMS none{};
    for (const WORD flags : {WORD{DISPATCH_METHOD | DISPATCH_PROPERTYGET}, WORD{DISPATCH_PROPERTYGET}}) {
        Outcome outcome;
        attempt(dispatchOf(instance), MemberId::NewEnum, flags, none, outcome);
        if (SUCCEEDED(outcome.status)) {
            const VARIANT& result = *outcome.result;
            if ((V_VT(&result) == VT_UNKNOWN || V_VT(&result) == VT_DISPATCH) &&
                V_UNKNOWN(&result) != nullptr) {
                if (auto items = ComPtr<IUnknown>(V_UNKNOWN(&result)).as<IEnumVARIANT>())
                    return enumeratorOver(std::move(items));
            }
        } else if (outcome.status == DISP_E_EXCEPTION && outcome.number() != numbers::kMemberNotSupported) {
            throw outcome.error();
        }
    }
    throw Error(numbers::kNotACollection);
}

}  // namespace

const Binding& foreignBinding() noexcept {
    static const ForeignBinding binding;
    return binding;
}

}  // namespace quorel::win32
