#include "platform/win32/com/com_ptr.h"

#include <new>

namespace quorel::win32 {

Bstr makeBstr(std::u16string_view text) {
    Bstr result(::SysAllocStringLen(wide(text), static_cast<UINT>(text.size())));
    if (!result)
        throw std::bad_alloc();
    return result;
}

}  // namespace quorel::win32
