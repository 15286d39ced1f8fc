#include "platform/win32/system_error.h"

#include <array>
#include <string>

#include "platform/win32/text.h"

namespace quorel::win32 {

namespace {

namespace numbers = automation::error_number;

std::u16string systemText(HRESULT status) {
    std::array<wchar_t, 512> buffer{};
    DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                    static_cast<DWORD>(status), 0, buffer.data(),
                                    static_cast<DWORD>(buffer.size()), nullptr);
    while (length > 0 && buffer[length - 1] <= L' ')
        --length;
    return std::u16string(narrowView(buffer.data(), length));
}

std::int32_t numberOf(HRESULT status) noexcept {
    if ((static_cast<DWORD>(status) & 0xFFFF0000U) == 0x800A0000U)
        return static_cast<std::int32_t>(static_cast<DWORD>(status) & 0xFFFFU);
    switch (status) {
        case E_OUTOFMEMORY:
            return numbers::kOutOfMemory;
        case E_INVALIDARG:
            return numbers::kInvalidCall;
        case DISP_E_TYPEMISMATCH:
            return numbers::kTypeMismatch;
        case DISP_E_OVERFLOW:
            return numbers::kOverflow;
        case DISP_E_BADINDEX:
            return numbers::kSubscriptOutOfRange;
        case DISP_E_UNKNOWNNAME:
        case DISP_E_MEMBERNOTFOUND:
            return numbers::kMemberNotSupported;
        case DISP_E_BADPARAMCOUNT:
            return numbers::kWrongArgumentCount;
        case DISP_E_PARAMNOTOPTIONAL:
            return numbers::kArgumentNotOptional;
        case REGDB_E_CLASSNOTREG:
        case CO_E_CLASSSTRING:
            return numbers::kCannotCreateObject;
        default:
            return status;
    }
}

}  // namespace

automation::Error errorFromStatus(HRESULT status, std::u16string_view what) {
    const std::int32_t number = numberOf(status);
    if (number != status)
        return automation::Error(number, std::u16string(automation::standardDescription(number)),
                                 std::u16string(what));
    std::u16string text = systemText(status);
    if (text.empty())
        text = what;
    return {number, std::move(text), std::u16string(what)};
}

automation::Error errorFromCode(DWORD code, std::u16string_view what) {
    return errorFromStatus(HRESULT_FROM_WIN32(code), what);
}

void throwLastError(std::u16string_view what) {
    throw errorFromCode(::GetLastError(), what);
}

void check(HRESULT status, std::u16string_view what) {
    if (FAILED(status))
        throw errorFromStatus(status, what);
}

}  // namespace quorel::win32
