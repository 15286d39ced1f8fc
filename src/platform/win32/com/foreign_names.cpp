#include "platform/win32/com/foreign_names.h"

#include <dispex.h>

#include <array>
#include <string>

#include "platform/automation/error.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/com/failures.h"

namespace quorel::win32 {

namespace {

using automation::Error;
using automation::MemberId;
namespace numbers = automation::error_number;

constexpr std::size_t kCommonLength = 64;

/// Script class instances answer only here, and scripts in languages that mind the case of letters find a
/// name in another case only here.
HRESULT askExtended(IDispatch& dispatch, std::u16string_view name, DISPID& id) {
    const auto extended = ComPtr<IDispatch>(&dispatch).as<IDispatchEx>();
    if (!extended)
        return DISP_E_UNKNOWNNAME;
    return extended->GetDispID(makeBstr(name).get(), fdexNameCaseInsensitive, &id);
}

}  // namespace

MemberId resolveForeign(IDispatch& dispatch, std::u16string_view name) {
    if (name.empty() || name.find(u'\0') != std::u16string_view::npos)
        throw Error(numbers::kMemberNotSupported);
    std::array<wchar_t, kCommonLength> common{};
    std::wstring uncommon;
    LPOLESTR terminated = common.data();
    if (name.size() < kCommonLength) {
        name.copy(reinterpret_cast<char16_t*>(common.data()), name.size());
    } else {
        uncommon.assign(wide(name), name.size());
        terminated = uncommon.data();
    }
    DISPID id = DISPID_UNKNOWN;
    HRESULT status = dispatch.GetIDsOfNames(IID_NULL, &terminated, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(status))
        status = askExtended(dispatch, name, id);
    if (FAILED(status)) {
        const std::int32_t number = errorNumberOf(status);
        throw number == numbers::kMemberNotSupported ? Error(number) : errorOfCall(status);
    }
    return static_cast<MemberId>(id);
}

}  // namespace quorel::win32
