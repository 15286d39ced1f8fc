#include "platform/win32/com/variants.h"

#include <cstring>
#include <limits>

#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/com/failures.h"

namespace quorel::win32 {

namespace {

using automation::AdoptedText;
using automation::Array;
using automation::Bytes;
using automation::Date;
using automation::Error;
using automation::Object;
using automation::Value;
using automation::ValueKind;
namespace numbers = automation::error_number;

constexpr std::int32_t kNotAutomation = 430;
constexpr std::int32_t kArrayIsFixed = 10;

void checkConversion(HRESULT status) {
    if (FAILED(status))
        throw Error(errorNumberOf(status));
}

/// Access to a safe array's data for as long as it lives.
class LockedArray {
  public:
    explicit LockedArray(SAFEARRAY* array) : array_(array) {
        checkConversion(::SafeArrayAccessData(array, &data_));
    }
    ~LockedArray() { ::SafeArrayUnaccessData(array_); }
    LockedArray(const LockedArray&) = delete;
    LockedArray& operator=(const LockedArray&) = delete;
    [[nodiscard]] void* data() const noexcept { return data_; }

  private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

template <class Number>
Value fromWideInteger(Number number) {
    if (std::in_range<std::int32_t>(number))
        return Value(static_cast<std::int32_t>(number));
    return Value(static_cast<double>(number));
}

Value fromUnknown(IUnknown* unknown) {
    if (unknown == nullptr)
        return Value::nothing();
    const ComPtr<IDispatch> dispatch = ComPtr<IUnknown>(unknown).as<IDispatch>();
    if (!dispatch)
        throw Error(kNotAutomation);
    return Value(fromDispatch(dispatch.get()));
}

Value fromStatus(SCODE status) {
    return status == DISP_E_PARAMNOTFOUND ? Value::missing() : Value::error(errorNumberOf(status));
}

Value fromElements(SAFEARRAY* array, VARTYPE type, std::size_t count, std::int32_t lowerBound) {
    Array result;
    result.lowerBound = lowerBound;
    result.items.reserve(count);
    const std::size_t size = ::SafeArrayGetElemsize(array);
    const LockedArray locked(array);
    const auto* element = static_cast<const char*>(locked.data());
    for (std::size_t i = 0; i < count; ++i, element += size) {
        VARIANT view;
        ::VariantInit(&view);
        V_VT(&view) = static_cast<VARTYPE>(VT_BYREF | type);
        V_BYREF(&view) = const_cast<char*>(element);
        result.items.push_back(fromVariant(view));
    }
    return Value(std::move(result));
}

Value fromSafeArray(SAFEARRAY* array) {
    if (array == nullptr)
        return Value(Array{});
    LONG lower = 0;
    LONG upper = -1;
    VARTYPE type = VT_EMPTY;
    if (::SafeArrayGetDim(array) != 1)
        throw Error(numbers::kTypeMismatch);
    checkConversion(::SafeArrayGetLBound(array, 1, &lower));
    checkConversion(::SafeArrayGetUBound(array, 1, &upper));
    checkConversion(::SafeArrayGetVartype(array, &type));
    const auto count = static_cast<std::size_t>(std::int64_t{upper} - lower + 1);
    if (type != VT_UI1)
        return fromElements(array, type, count, lower);
    const LockedArray locked(array);
    const auto* first = static_cast<const std::uint8_t*>(locked.data());
    return Value(Bytes{{first, first + count}, lower});
}

/// The kinds that are rare enough to let the platform convert them.
Value fromRare(const VARIANT& variant, VARTYPE target) {
    Variant converted;
    checkConversion(::VariantChangeType(converted.out(), const_cast<VARIANT*>(&variant), 0, target));
    return fromVariant(*converted);
}

Value fromReference(const VARIANT& variant) {
    switch (V_VT(&variant)) {
        case VT_BYREF | VT_VARIANT:
            return fromVariant(*V_VARIANTREF(&variant));
        case VT_BYREF | VT_BSTR:
            return Value(viewOf(*V_BSTRREF(&variant)));
        case VT_BYREF | VT_I4:
            return Value(static_cast<std::int32_t>(*V_I4REF(&variant)));
        case VT_BYREF | VT_BOOL:
            return Value(*V_BOOLREF(&variant) != VARIANT_FALSE);
        case VT_BYREF | VT_DISPATCH:
            return Value(fromDispatch(*V_DISPATCHREF(&variant)));
        default: {
            if ((V_VT(&variant) & VT_ARRAY) != 0)
                return fromSafeArray(*V_ARRAYREF(&variant));
            Variant followed;
            checkConversion(::VariantCopyInd(followed.out(), const_cast<VARIANT*>(&variant)));
            return fromVariant(*followed);
        }
    }
}

SAFEARRAY* makeBytes(const Bytes& bytes) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(bytes.data.size()), bytes.lowerBound};
    SAFEARRAY* array = ::SafeArrayCreate(VT_UI1, 1, &bound);
    if (array == nullptr)
        throw std::bad_alloc();
    if (!bytes.data.empty())
        std::memcpy(array->pvData, bytes.data.data(), bytes.data.size());
    return array;
}

SAFEARRAY* makeArray(const Array& values) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(values.items.size()), values.lowerBound};
    Unique<SAFEARRAY*, [](SAFEARRAY* array) { ::SafeArrayDestroy(array); }> array(
        ::SafeArrayCreate(VT_VARIANT, 1, &bound));
    if (!array)
        throw std::bad_alloc();
    auto* element = static_cast<VARIANT*>(array->pvData);
    for (const Value& value : values.items)
        toVariant(value, *element++);
    return array.release();
}

/// Into a variable that holds arrays of one type. One that is in use, or whose size is fixed, is error 10.
void assignArray(SAFEARRAY*& variable, Variant&& value) {
    if (variable != nullptr) {
        if ((variable->fFeatures & FADF_FIXEDSIZE) != 0)
            throw Error(kArrayIsFixed);
        checkConversion(::SafeArrayDestroy(variable));
    }
    variable = V_ARRAY(value.get());
    static_cast<void>(value.release());
}

void assignReference(const VARIANT& reference, Variant&& value) {
    const auto type = static_cast<VARTYPE>(V_VT(&reference) & ~VT_BYREF);
    if ((type & VT_ARRAY) != 0 && V_VT(value.get()) == type)
        return assignArray(*V_ARRAYREF(&reference), std::move(value));
    if (V_VT(value.get()) != type)
        checkConversion(::VariantChangeType(value.get(), value.get(), 0, type));
    switch (type) {
        case VT_BSTR:
            ::SysFreeString(*V_BSTRREF(&reference));
            *V_BSTRREF(&reference) = V_BSTR(value.get());
            break;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            ComPtr<IUnknown>::adopt(*V_UNKNOWNREF(&reference)).reset();
            *V_UNKNOWNREF(&reference) = V_UNKNOWN(value.get());
            break;
        case VT_UI1:
        case VT_I1:
            *V_UI1REF(&reference) = V_UI1(value.get());
            break;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            *V_I2REF(&reference) = V_I2(value.get());
            break;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            *V_I4REF(&reference) = V_I4(value.get());
            break;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_DATE:
        case VT_CY:
            *V_I8REF(&reference) = V_I8(value.get());
            break;
        default:
            throw Error(numbers::kTypeMismatch);
    }
    static_cast<void>(value.release());
}

}  // namespace

Value fromVariant(const VARIANT& variant) {
    switch (V_VT(&variant)) {
        case VT_EMPTY:
            return {};
        case VT_NULL:
            return Value::null();
        case VT_BSTR:
            return Value(viewOf(V_BSTR(&variant)));
        case VT_I4:
        case VT_INT:
            return Value(static_cast<std::int32_t>(V_I4(&variant)));
        case VT_BOOL:
            return Value(V_BOOL(&variant) != VARIANT_FALSE);
        case VT_DISPATCH:
            return Value(fromDispatch(V_DISPATCH(&variant)));
        case VT_UNKNOWN:
            return fromUnknown(V_UNKNOWN(&variant));
        case VT_R8:
            return Value(V_R8(&variant));
        case VT_DATE:
            return Value(Date{V_DATE(&variant)});
        case VT_ERROR:
            return fromStatus(V_ERROR(&variant));
        case VT_I2:
            return Value(static_cast<std::int32_t>(V_I2(&variant)));
        case VT_UI1:
            return Value(static_cast<std::int32_t>(V_UI1(&variant)));
        case VT_I1:
            return Value(static_cast<std::int32_t>(static_cast<signed char>(V_I1(&variant))));
        case VT_UI2:
            return Value(static_cast<std::int32_t>(V_UI2(&variant)));
        case VT_UI4:
        case VT_UINT:
            return fromWideInteger(V_UI4(&variant));
        case VT_I8:
            return fromWideInteger(V_I8(&variant));
        case VT_UI8:
            return fromWideInteger(V_UI8(&variant));
        case VT_R4:
        case VT_CY:
        case VT_DECIMAL:
            return fromRare(variant, VT_R8);
        default:
            if ((V_VT(&variant) & VT_BYREF) != 0)
                return fromReference(variant);
            if ((V_VT(&variant) & VT_ARRAY) != 0)
                return fromSafeArray(V_ARRAY(&variant));
            throw Error(numbers::kTypeMismatch);
    }
}

void toVariant(const Value& value, VARIANT& variant) {
    V_VT(&variant) = VT_EMPTY;
    switch (value.kind()) {
        case ValueKind::Empty:
            return;
        case ValueKind::Null:
            V_VT(&variant) = VT_NULL;
            return;
        case ValueKind::Missing:
            V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
            V_VT(&variant) = VT_ERROR;
            return;
        case ValueKind::Boolean:
            V_BOOL(&variant) = *value.getIf<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
            V_VT(&variant) = VT_BOOL;
            return;
        case ValueKind::Integer:
            V_I4(&variant) = *value.getIf<std::int32_t>();
            V_VT(&variant) = VT_I4;
            return;
        case ValueKind::Double:
            V_R8(&variant) = *value.getIf<double>();
            V_VT(&variant) = VT_R8;
            return;
        case ValueKind::String:
            V_BSTR(&variant) = makeBstr(*value.text()).release();
            V_VT(&variant) = VT_BSTR;
            return;
        case ValueKind::Date:
            V_DATE(&variant) = value.getIf<Date>()->serial;
            V_VT(&variant) = VT_DATE;
            return;
        case ValueKind::Object:
            V_DISPATCH(&variant) = toDispatch(*value.getIf<Object>()).detach();
            V_VT(&variant) = VT_DISPATCH;
            return;
        case ValueKind::Bytes:
            V_ARRAY(&variant) = makeBytes(*value.getIf<Bytes>());
            V_VT(&variant) = VT_ARRAY | VT_UI1;
            return;
        case ValueKind::Array:
            V_ARRAY(&variant) = makeArray(*value.getIf<Array>());
            V_VT(&variant) = VT_ARRAY | VT_VARIANT;
            return;
        case ValueKind::Error:
            V_ERROR(&variant) = statusOf(Error(value.getIf<Value::ErrorValue>()->number, {}));
            V_VT(&variant) = VT_ERROR;
            return;
    }
}

void toVariant(Value&& value, VARIANT& variant) {
    if (auto* const text = value.getIf<AdoptedText>()) {
        if (char16_t* const buffer = text->handOver(freeText)) {
            V_BSTR(&variant) = reinterpret_cast<BSTR>(buffer);
            V_VT(&variant) = VT_BSTR;
            return;
        }
    }
    toVariant(std::as_const(value), variant);
}

void freeText(char16_t* text) noexcept {
    ::SysFreeString(reinterpret_cast<BSTR>(text));
}

Value takeOther(VARIANT& variant) {
    if (V_VT(&variant) == VT_DISPATCH) {
        V_VT(&variant) = VT_EMPTY;
        return Value(adoptDispatch(V_DISPATCH(&variant)));
    }
    Variant taken;
    std::swap(*taken, variant);
    return fromVariant(*taken);
}

void storeThrough(const VARIANT& reference, const Value& value) {
    if ((V_VT(&reference) & VT_BYREF) == 0)
        return;
    Variant converted;
    toVariant(value, *converted);
    if (V_VT(&reference) != (VT_BYREF | VT_VARIANT)) {
        assignReference(reference, std::move(converted));
        return;
    }
    VARIANT& variable = *V_VARIANTREF(&reference);
    if ((V_VT(&variable) & VT_BYREF) != 0) {
        storeThrough(variable, value);
        return;
    }
    checkConversion(::VariantClear(&variable));
    variable = converted.release();
}

bool readsTheSame(const Value& before, const Value& after) {
    if (before.isMissing())
        return true;
    switch (after.kind()) {
        case ValueKind::String:
            return before.kind() <= ValueKind::Date && !before.isNull() && before.toString() == *after.text();
        case ValueKind::Boolean:
        case ValueKind::Integer:
        case ValueKind::Double:
        case ValueKind::Date:
            return before.kind() <= ValueKind::Date && before.kind() != ValueKind::String &&
                   Value::equal(before, after);
        case ValueKind::Object:
            return (before.kind() == ValueKind::Object || before.isEmpty()) &&
                   before.toObject() == *after.getIf<Object>();
        case ValueKind::Bytes:
            return before.kind() == ValueKind::Bytes && *before.getIf<Bytes>() == *after.getIf<Bytes>();
        case ValueKind::Array:
            return false;
        default:
            return before.kind() == after.kind();
    }
}

}  // namespace quorel::win32
