#include "platform/win32/com/bridge.h"

#include "platform/automation/native_object.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/com/native_dispatch.h"
#include "platform/win32/system_error.h"

namespace quorel::win32 {

using automation::Object;

Object fromDispatch(IDispatch* dispatch) {
    if (dispatch == nullptr)
        return {};
    if (automation::NativeObject* native = nativeBehind(dispatch))
        return Object(native);
    return Object::share(foreignBinding(), dispatch);
}

Object adoptDispatch(IDispatch* dispatch) {
    auto held = ComPtr<IDispatch>::adopt(dispatch);
    if (dispatch == nullptr)
        return {};
    if (automation::NativeObject* native = nativeBehind(dispatch))
        return Object(native);
    return Object::adopt(foreignBinding(), held.detach());
}

ComPtr<IDispatch> toDispatch(const Object& object) {
    if (void* foreign = object.instanceOf(foreignBinding()))
        return ComPtr<IDispatch>(static_cast<IDispatch*>(foreign));
    automation::NativeObject* native = object.native();
    return native != nullptr ? ComPtr<IDispatch>(wrapperOf(*native).dispatch()) : nullptr;
}

Object createPlatformObject(std::u16string_view progId) {
    CLSID clsid;
    const std::u16string name(progId);
    if (FAILED(::CLSIDFromProgID(wide(name), &clsid)))
        return {};
    ComPtr<IUnknown> unknown;
    const HRESULT status = ::CoCreateInstance(clsid, nullptr, CLSCTX_SERVER, IID_IUnknown, unknown.outVoid());
    if (FAILED(status)) {
        if (errorNumberOf(status) == automation::error_number::kCannotCreateObject)
            return {};
        throw errorFromStatus(status, name);
    }
    const auto dispatch = unknown.as<IDispatch>();
    if (!dispatch)
        throw automation::Error(430);
    return fromDispatch(dispatch.get());
}

}  // namespace quorel::win32
