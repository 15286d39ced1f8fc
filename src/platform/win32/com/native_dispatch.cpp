#include "platform/win32/com/native_dispatch.h"

#include <atomic>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_object.h"
#include "platform/win32/com/enumerations.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/com/host_call.h"
#include "platform/win32/com/this_module.h"
#include "platform/win32/com/variants.h"

namespace quorel::win32 {

namespace {

using automation::ClassTable;
using automation::Error;
using automation::InvokeKind;
using automation::MemberId;
using automation::MemberInfo;
using automation::NativeObject;

/// Answered only by wrappers, and asked only of objects of this module: the result is the wrapper itself.
constexpr GUID kWrapperItself{0x2b8f0c51, 0x6d1e, 0x4c0a, {0x9a, 0x3e, 0x51, 0xd7, 0x0e, 0xb4, 0x62, 0x18}};

constexpr std::int32_t kFirstExtraId = 0x10000;

std::atomic<long> outside{0};

using Factories = std::vector<std::pair<const ClassTable*, WrapperFactory>>;

Factories& factories() {
    static Factories list;
    return list;
}

class PlainDispatch final : public DualDispatch<IDispatch> {
  public:
    using DualDispatch::DualDispatch;
    [[nodiscard]] const GUID& interfaceId() const noexcept override { return IID_IDispatch; }
    [[nodiscard]] ComPtr<ITypeInfo> typeInfo() const noexcept override { return {}; }
};

/// Says of every interface of the wrapper that its failures come with an IErrorInfo.
class ErrorSupport final : public ComObject<ISupportErrorInfo> {
  public:
    explicit ErrorSupport(IDispatch* owner) : owner_(owner) { countOutside(1); }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        return iid == IID_ISupportErrorInfo ? ComObject::QueryInterface(iid, result)
                                            : owner_->QueryInterface(iid, result);
    }
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }

  private:
    ~ErrorSupport() override { countOutside(-1); }

    ComPtr<IDispatch> owner_;
};

bool answers(const MemberInfo& member, WORD flags) noexcept {
    if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0)
        return member.method != nullptr || member.get != nullptr;
    return member.put != nullptr || member.putRef != nullptr;
}

/// A language that does not tell the two ways of assigning apart asks for both; one that has no `Set` puts
/// objects as values.
InvokeKind kindOf(WORD flags, const MemberInfo* member, const DISPPARAMS& parameters) noexcept {
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) == 0)
        return InvokeKind::Call;
    if ((flags & DISPATCH_PROPERTYPUT) == 0)
        return InvokeKind::PutRef;
    const bool object = parameters.cArgs > 0 && (V_VT(&parameters.rgvarg[0]) & VT_TYPEMASK) == VT_DISPATCH;
    if ((flags & DISPATCH_PROPERTYPUTREF) != 0 && object && (member == nullptr || member->putRef != nullptr))
        return InvokeKind::PutRef;
    return InvokeKind::Put;
}

std::int32_t parameterIndex(const MemberInfo& member, std::u16string_view name) noexcept {
    for (std::size_t i = 0; i < member.parameters.size(); ++i) {
        if (automation::equalsIgnoringCase(member.parameters[i].name, name))
            return static_cast<std::int32_t>(i);
    }
    return DISPID_UNKNOWN;
}

}  // namespace

NativeDispatch::NativeDispatch(NativeObject& native) noexcept : keep_(&native), native_(&native) {
    native.setBridge(this);
    countOutside(1);
}

NativeDispatch::~NativeDispatch() {
    disconnect();
    countOutside(-1);
}

void NativeDispatch::disconnect() noexcept {
    if (automation::NativeObject* native = std::exchange(native_, nullptr))
        native->setBridge(nullptr);
    keep_.reset();
}

ULONG NativeDispatch::releaseReference() noexcept {
    const ULONG left = --count_;
    if (left != 0)
        return left;
    // What ends now may call out, and somebody there may take hold of this wrapper again: it answers that it
    // is disconnected, for as long as it is held.
    count_ = 1;
    disconnect();
    if (--count_ == 0)
        delete this;
    return 0;
}

HRESULT NativeDispatch::query(REFIID iid, void** result) noexcept {
    if (result == nullptr)
        return E_POINTER;
    *result = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == interfaceId()) {
        *result = dispatch();
    } else if (iid == kWrapperItself) {
        *result = this;
    } else if (iid == IID_ISupportErrorInfo) {
        auto* support = new (std::nothrow) ErrorSupport(dispatch());
        if (support == nullptr)
            return E_OUTOFMEMORY;
        *result = static_cast<ISupportErrorInfo*>(support);
        return S_OK;
    } else {
        return E_NOINTERFACE;
    }
    addReference();
    return S_OK;
}

HRESULT NativeDispatch::idsOfNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (names == nullptr || ids == nullptr || count == 0)
        return E_INVALIDARG;
    if (!isConnected())
        return CO_E_OBJNOTCONNECTED;
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    try {
        const std::u16string_view name = narrowView(names[0]);
        const MemberInfo* member = native_->classTable().find(name);
        if (member == nullptr && automation::equalsIgnoringCase(name, u"_NewEnum"))
            ids[0] = DISPID_NEWENUM;
        else
            ids[0] = static_cast<DISPID>(member != nullptr ? member->id : keep_.resolve(name));
        HRESULT status = S_OK;
        for (UINT i = 1; i < count; ++i) {
            if (member != nullptr)
                ids[i] = parameterIndex(*member, narrowView(names[i]));
            if (ids[i] == DISPID_UNKNOWN)
                status = DISP_E_UNKNOWNNAME;
        }
        return status;
    } catch (const Error& error) {
        if (error.number() == automation::error_number::kMemberNotSupported)
            return DISP_E_UNKNOWNNAME;
        return statusOf(error);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

HRESULT NativeDispatch::invokeById(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                                   EXCEPINFO* failure) noexcept {
    if (!isConnected())
        return CO_E_OBJNOTCONNECTED;
    const ComPtr<IDispatch> alive(dispatch());
    try {
        Variant answer;
        if (id == DISPID_NEWENUM) {
            V_UNKNOWN(answer.get()) = enumerationOf(keep_).detach();
            V_VT(answer.get()) = VT_UNKNOWN;
        } else {
            const MemberInfo* member = native_->classTable().find(static_cast<MemberId>(id));
            if (member == nullptr ? id < kFirstExtraId : !answers(*member, flags))
                return DISP_E_MEMBERNOTFOUND;
            HostCall call(parameters);
            automation::Value value;
            try {
                value = keep_.invoke(static_cast<MemberId>(id), kindOf(flags, member, parameters),
                                     call.arguments());
            } catch (...) {
                call.writeBack();
                throw;
            }
            call.writeBack();
            toVariant(std::move(value), *answer);
        }
        if (result != nullptr)
            *result = answer.release();
        return S_OK;
    } catch (const UnknownArgument&) {
        return DISP_E_PARAMNOTFOUND;
    } catch (...) {
        return reportInvoke(failure);
    }
}

NativeDispatch& wrapperOf(NativeObject& native) {
    if (native.bridge() != nullptr)
        return *static_cast<NativeDispatch*>(native.bridge());
    const ClassTable* table = &native.classTable();
    for (const auto& [wrapped, factory] : factories()) {
        if (wrapped == table)
            return *factory(native);
    }
    return *new PlainDispatch(native);
}

void wrapClassWith(const ClassTable& table, WrapperFactory factory) {
    factories().emplace_back(&table, factory);
}

NativeObject* nativeBehind(IDispatch* dispatch) noexcept {
    if (dispatch == nullptr || isForeign(dispatch))
        return nullptr;
    void* wrapper = nullptr;
    if (FAILED(dispatch->QueryInterface(kWrapperItself, &wrapper)))
        return nullptr;
    dispatch->Release();
    auto* native = static_cast<NativeDispatch*>(wrapper);
    return native->isConnected() ? &native->native() : nullptr;
}

void countOutside(long change) noexcept {
    outside.fetch_add(change, std::memory_order_relaxed);
}

long outsideCount() noexcept {
    return outside.load(std::memory_order_relaxed);
}

}  // namespace quorel::win32
