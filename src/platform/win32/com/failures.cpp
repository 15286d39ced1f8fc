#include "platform/win32/com/failures.h"

#include <array>
#include <string>

#include "platform/win32/com/com_ptr.h"
#include "platform/win32/com/this_module.h"
#include "platform/win32/system_error.h"

namespace quorel::win32 {

namespace {

using automation::Error;
using automation::standardDescription;

constexpr DWORD kRuntimeErrors = 0x800A0000U;

struct KnownStatus {
    HRESULT status;
    std::int32_t number;
};

constexpr std::array kKnown{
    KnownStatus{DISP_E_UNKNOWNNAME, 438},
    KnownStatus{DISP_E_MEMBERNOTFOUND, 438},
    KnownStatus{DISP_E_BADPARAMCOUNT, 450},
    KnownStatus{DISP_E_TYPEMISMATCH, 13},
    KnownStatus{DISP_E_OVERFLOW, 6},
    KnownStatus{DISP_E_PARAMNOTOPTIONAL, 449},
    KnownStatus{DISP_E_PARAMNOTFOUND, 448},
    KnownStatus{DISP_E_BADINDEX, 9},
    KnownStatus{DISP_E_ARRAYISLOCKED, 10},
    KnownStatus{DISP_E_NONAMEDARGS, 446},
    KnownStatus{DISP_E_BADVARTYPE, 458},
    KnownStatus{DISP_E_NOTACOLLECTION, 451},
    KnownStatus{DISP_E_DIVBYZERO, 11},
    KnownStatus{E_OUTOFMEMORY, 7},
    KnownStatus{E_NOTIMPL, 445},
    KnownStatus{E_NOINTERFACE, 430},
    KnownStatus{E_INVALIDARG, 5},
    KnownStatus{REGDB_E_CLASSNOTREG, 429},
    KnownStatus{CLASS_E_CLASSNOTAVAILABLE, 429},
    KnownStatus{CO_E_CLASSSTRING, 429},
};

void freeTexts(EXCEPINFO& failure) noexcept {
    ::SysFreeString(failure.bstrSource);
    ::SysFreeString(failure.bstrDescription);
    ::SysFreeString(failure.bstrHelpFile);
    failure = {};
}

Error makeError(HRESULT status, std::u16string description, std::u16string source) {
    const std::int32_t number = errorNumberOf(status);
    if (description.empty())
        description = number == status ? errorFromStatus(status, u"Automation error").description()
                                       : standardDescription(number);
    return {number, std::move(description), std::move(source)};
}

/// Codes by which the dispatching itself fails; no texts belong to them.
bool isDispatchStatus(HRESULT status) noexcept {
    return (static_cast<DWORD>(status) & 0xFFFFFF00U) == 0x80020000U;
}

std::u16string_view sourceOf(const Error& error) {
    return error.source().empty() ? thisModuleName() : std::u16string_view(error.source());
}

}  // namespace

HRESULT statusOf(const Error& error) noexcept {
    const std::int32_t number = error.number();
    if (number > 0 && number <= 0xFFFF)
        return static_cast<HRESULT>(kRuntimeErrors + static_cast<DWORD>(number));
    return number < 0 ? number : E_FAIL;
}

std::int32_t errorNumberOf(HRESULT status) noexcept {
    if ((static_cast<DWORD>(status) & 0xFFFF0000U) == kRuntimeErrors)
        return static_cast<std::int32_t>(static_cast<DWORD>(status) & 0xFFFFU);
    for (const KnownStatus& known : kKnown) {
        if (known.status == status)
            return known.number;
    }
    return status;
}

Error errorOfInvoke(HRESULT status, EXCEPINFO& failure) {
    if (status != DISP_E_EXCEPTION)
        return isDispatchStatus(status) ? makeError(status, {}, {}) : errorOfCall(status);
    if (failure.pfnDeferredFillIn != nullptr)
        failure.pfnDeferredFillIn(&failure);
    if (failure.scode != S_OK)
        status = failure.scode;
    else if (failure.wCode != 0)
        status = static_cast<HRESULT>(kRuntimeErrors + failure.wCode);
    std::u16string description(viewOf(failure.bstrDescription));
    std::u16string source(viewOf(failure.bstrSource));
    freeTexts(failure);
    return makeError(status, std::move(description), std::move(source));
}

Error errorOfCall(HRESULT status) {
    ComPtr<IErrorInfo> info;
    if (::GetErrorInfo(0, info.out()) != S_OK)
        return makeError(status, {}, {});
    Bstr description;
    Bstr source;
    info->GetDescription(description.out());
    info->GetSource(source.out());
    return makeError(status, std::u16string(viewOf(description.get())), std::u16string(viewOf(source.get())));
}

void leaveErrorInfo(const GUID& iid, std::u16string_view description, std::u16string_view source) {
    ComPtr<ICreateErrorInfo> creation;
    if (FAILED(::CreateErrorInfo(creation.out())))
        return;
    creation->SetGUID(iid);
    creation->SetDescription(makeBstr(description).get());
    creation->SetSource(makeBstr(source).get());
    if (const auto info = creation.as<IErrorInfo>())
        ::SetErrorInfo(0, info.get());
}

HRESULT reportInvoke(EXCEPINFO* failure) noexcept {
    try {
        const Error error = automation::currentError();
        const HRESULT status = statusOf(error);
        if (failure == nullptr)
            return status;
        *failure = {};
        failure->scode = status;
        failure->bstrDescription = makeBstr(error.description()).release();
        failure->bstrSource = makeBstr(sourceOf(error)).release();
        return DISP_E_EXCEPTION;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

HRESULT reportCall(const GUID& iid) noexcept {
    try {
        const Error error = automation::currentError();
        leaveErrorInfo(iid, error.description(), sourceOf(error));
        return statusOf(error);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace quorel::win32
