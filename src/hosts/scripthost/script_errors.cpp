#include "hosts/scripthost/script_errors.h"

#include <array>
#include <cstdio>

#include "platform/automation/text.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/system_error.h"

namespace quorel::scripthost {

namespace {

using automation::decimal;

std::u16string numberText(std::int32_t number) {
    if (number >= 0)
        return decimal(number);
    std::array<char, 16> text{};
    const int length = std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(number));
    return automation::fromUtf8({text.data(), static_cast<std::size_t>(length)});
}

std::u16string lineOf(const automation::Error& error) {
    const std::u16string source = error.source().empty() ? u"script" : error.source();
    return source + u": " + error.description() + u" (" + numberText(error.number()) + u")";
}

}  // namespace

automation::Error errorOf(IActiveScriptError& error) {
    EXCEPINFO failure{};
    error.GetExceptionInfo(&failure);
    return win32::errorOfInvoke(DISP_E_EXCEPTION, failure);
}

std::u16string describe(IActiveScriptError& place, const automation::Error& error,
                        const std::u16string& file) {
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    place.GetSourcePosition(&context, &line, &column);
    return file + u"(" + decimal(std::int64_t{line} + 1) + u", " + decimal(std::int64_t{column} + 1) + u") " +
           lineOf(error);
}

std::u16string describe(HRESULT status, const std::u16string& file) {
    return file + u" " + lineOf(win32::errorFromStatus(status, u"script"));
}

}  // namespace quorel::scripthost
