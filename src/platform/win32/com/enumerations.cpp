#include "platform/win32/com/enumerations.h"

#include <algorithm>
#include <array>
#include <memory>

#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_object.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/com/native_dispatch.h"
#include "platform/win32/com/variants.h"

namespace quorel::win32 {

namespace {

using automation::Enumerator;
using automation::Error;
using automation::Object;
using automation::Value;

class ForeignEnumerator final : public Enumerator {
  public:
    explicit ForeignEnumerator(ComPtr<IEnumVARIANT> items) : items_(std::move(items)) {}

    std::size_t next(std::span<Value> values) override {
        std::size_t filled = 0;
        while (filled < values.size() && !ended_)
            for (Variant& element : nextBatch(values.size() - filled))
                values[filled++] = takeVariant(*element);
        return filled;
    }

    void nextObjects(std::span<Object> objects, std::size_t& filled) override {
        filled = 0;
        while (filled < objects.size() && !ended_) {
            Object* next = objects.data() + filled;
            for (Variant& element : nextBatch(objects.size() - filled)) {
                if (V_VT(element.get()) == VT_DISPATCH && isForeign(V_DISPATCH(element.get()))) {
                    V_VT(element.get()) = VT_EMPTY;
                    std::construct_at(next++, Object::adopt(foreignBinding(), V_DISPATCH(element.get())));
                    continue;
                }
                filled = static_cast<std::size_t>(next - objects.data());
                *next++ = takeObject(*element);
            }
            filled = static_cast<std::size_t>(next - objects.data());
        }
    }

  private:
    static constexpr std::size_t kBatch = 64;

    static Object takeObject(VARIANT& element) {
        Value taken = takeVariant(element);
        auto* const object = taken.getIf<Object>();
        if (object == nullptr)
            throw Error(automation::error_number::kTypeMismatch);
        return std::move(*object);
    }

    /// At most `count`, to be taken out.
    std::span<Variant> nextBatch(std::size_t count) {
        for (Variant& leftByFailure : std::span(batch_).first(left_))
            leftByFailure.clear();
        const auto wanted = static_cast<ULONG>(std::min(count, kBatch));
        ULONG fetched = 0;
        const HRESULT status = items_->Next(wanted, batch_[0].get(), &fetched);
        if (FAILED(status))
            throw errorOfCall(status);
        left_ = std::min(fetched, wanted);
        ended_ = status != S_OK || left_ == 0;
        return std::span(batch_).first(left_);
    }

    ComPtr<IEnumVARIANT> items_;
    std::array<Variant, kBatch> batch_;
    ULONG left_ = 0;
    bool ended_ = false;
};

static_assert(sizeof(Variant) == sizeof(VARIANT), "a batch of variants is an array of the platform's");

class NativeEnumeration final : public ComObject<IEnumVARIANT> {
  public:
    explicit NativeEnumeration(Object collection)
        : collection_(std::move(collection)), enumerator_(collection_.enumerate()) {
        countOutside(1);
    }

    STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override {
        if (fetched != nullptr)
            *fetched = 0;
        if (values == nullptr || (fetched == nullptr && count != 1))
            return E_POINTER;
        ULONG filled = 0;
        try {
            fill({values, count}, filled);
        } catch (...) {
            for (ULONG i = 0; i < filled; ++i)
                ::VariantClear(&values[i]);
            return reportCall(IID_IEnumVARIANT);
        }
        if (fetched != nullptr)
            *fetched = filled;
        return filled == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override {
        try {
            return skip(count) ? S_OK : S_FALSE;
        } catch (...) {
            return reportCall(IID_IEnumVARIANT);
        }
    }

    STDMETHODIMP Reset() override {
        try {
            enumerator_ = collection_.enumerate();
            position_ = 0;
            return S_OK;
        } catch (...) {
            return reportCall(IID_IEnumVARIANT);
        }
    }

    STDMETHODIMP Clone(IEnumVARIANT** clone) override {
        if (clone == nullptr)
            return E_POINTER;
        *clone = nullptr;
        try {
            const auto copy = makeCom<NativeEnumeration>(collection_);
            copy->skip(position_);
            *clone = ComPtr<IEnumVARIANT>(copy.get()).detach();
            return S_OK;
        } catch (...) {
            return reportCall(IID_IEnumVARIANT);
        }
    }

  private:
    ~NativeEnumeration() override { countOutside(-1); }

    void fill(std::span<VARIANT> values, ULONG& filled) {
        while (filled < values.size()) {
            const std::size_t wanted = std::min<std::size_t>(values.size() - filled, batch_.size());
            const std::size_t got = enumerator_->next(std::span(batch_).first(wanted));
            for (std::size_t i = 0; i < got; ++i, ++filled, ++position_) {
                toVariant(std::move(batch_[i]), values[filled]);
                batch_[i] = Value();
            }
            if (got < wanted)
                return;
        }
    }

    bool skip(std::uint64_t count) {
        while (count > 0) {
            const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count, batch_.size()));
            const std::size_t got = enumerator_->next(std::span(batch_).first(wanted));
            position_ += got;
            count -= got;
            if (got < wanted)
                return false;
        }
        return true;
    }

    Object collection_;
    std::unique_ptr<Enumerator> enumerator_;
    std::array<Value, 64> batch_;
    std::uint64_t position_ = 0;
};

}  // namespace

std::unique_ptr<Enumerator> enumeratorOver(ComPtr<IEnumVARIANT> items) {
    return std::make_unique<ForeignEnumerator>(std::move(items));
}

ComPtr<IEnumVARIANT> enumerationOf(const Object& collection) {
    return ComPtr<IEnumVARIANT>::adopt(makeCom<NativeEnumeration>(collection).detach());
}

}  // namespace quorel::win32
