// Calls of foreign members, as the library makes them.

#include <gtest/gtest.h>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/variants.h"
#include "tests/platform/win32/com/fake_dispatch.h"
#include "tests/platform/win32/com/native_thing.h"

namespace quorel::win32::testing {
namespace {

using automation::byRef;
using automation::Error;
using automation::InvokeKind;
using automation::MemberId;
using automation::Object;
using automation::Value;
using Call = FakeDispatch::Call;

/// An object with one member "Member", id 5.
Object withMember(FakeDispatch::Handler handler) {
    const auto object = fake(std::move(handler));
    object->names = {{L"Member", 5}};
    return fromDispatch(object.get());
}

template <class Action>
Error thrownBy(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was thrown";
    return Error(0, {});
}

void setText(VARIANT* result, std::u16string_view text) {
    toVariant(Value(text), *result);
}

TEST(ForeignObject, CallsWithArgumentsInOrder) {
    const Object object = withMember([](Call& call) {
        EXPECT_EQ(call.id, 5);
        EXPECT_EQ(call.flags, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
        EXPECT_EQ(call.parameters.cArgs, 3U);
        EXPECT_EQ(call.parameters.cNamedArgs, 0U);
        EXPECT_EQ(fromVariant(call.parameters.rgvarg[2]).toString(), u"first");
        EXPECT_EQ(fromVariant(call.parameters.rgvarg[1]).toInteger(), 2);
        EXPECT_TRUE(fromVariant(call.parameters.rgvarg[0]).isMissing());
        setText(call.result, u"done");
        return S_OK;
    });
    EXPECT_EQ(object.call(u"Member", u"first", 2, Value::missing()).toString(), u"done");
}

TEST(ForeignObject, ManyArgumentsArriveToo) {
    const Object object = withMember([](Call& call) {
        EXPECT_EQ(call.parameters.cArgs, 9U);
        EXPECT_EQ(fromVariant(call.parameters.rgvarg[0]).toInteger(), 9);
        EXPECT_EQ(fromVariant(call.parameters.rgvarg[8]).toString(), u"1");
        return S_OK;
    });
    EXPECT_TRUE(object.call(u"Member", u"1", 2, 3, 4, 5, 6, 7, 8, 9).isEmpty());
}

TEST(ForeignObject, AssignmentsNameTheirValue) {
    WORD flags = 0;
    const Object object = withMember([&](Call& call) {
        EXPECT_EQ(call.parameters.cNamedArgs, 1U);
        EXPECT_EQ(call.parameters.rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
        EXPECT_EQ(call.result, nullptr);
        flags = call.flags;
        return S_OK;
    });
    object.put(u"Member", 1);
    EXPECT_EQ(flags, DISPATCH_PROPERTYPUT);
    object.putRef(u"Member", object);
    EXPECT_EQ(flags, DISPATCH_PROPERTYPUTREF);
}

TEST(ForeignObject, KnowsOneWayToAssignObjects) {
    for (const WORD known : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        int assigned = 0;
        const Object object = withMember([&](Call& call) {
            if (call.flags != known)
                return DISP_E_MEMBERNOTFOUND;
            ++assigned;
            return S_OK;
        });
        object.put(u"Member", Value(object));
        object.putRef(u"Member", object);
        EXPECT_EQ(assigned, 2);
    }
}

TEST(ForeignObject, DataPropertiesThatCannotBeCalledAreRead) {
    const Object object = withMember([](Call& call) {
        if (call.flags != DISPATCH_PROPERTYGET) {
            call.failure->scode = static_cast<SCODE>(0x800A138A);  // "Function expected"
            return DISP_E_EXCEPTION;
        }
        setText(call.result, u"data");
        return S_OK;
    });
    EXPECT_EQ(object.get(u"Member").toString(), u"data");
}

TEST(ForeignObject, ArgumentsOfAPropertyWithoutAnyGoToItsDefaultMember) {
    const Object list = automation::make<NativeList>(std::vector<Value>{Value(u"zero"), Value(u"one")});
    const Object object = withMember([&](Call& call) {
        if (call.parameters.cArgs != 0)
            return DISP_E_BADPARAMCOUNT;
        toVariant(Value(list), *call.result);
        return S_OK;
    });
    EXPECT_EQ(object.call(u"Member", 1).toString(), u"one");
    EXPECT_EQ(thrownBy([&] { object.call(u"Member", 2); }).number(), 9);
}

TEST(ForeignObject, VariablesGoByReferenceAndComeBack) {
    const Object object = withMember([](Call& call) {
        VARIANT& given = call.parameters.rgvarg[0];
        EXPECT_EQ(V_VT(&given), VT_BYREF | VT_VARIANT);
        EXPECT_EQ(fromVariant(given).toString(), u"in");
        storeThrough(given, Value(u"out"));
        return S_OK;
    });
    Value variable(u"in");
    object.call(u"Member", byRef(variable));
    EXPECT_EQ(variable.toString(), u"out");
}

TEST(ForeignObject, TypedReferencesAreTriedWhereVariantsAreRefused) {
    const Object object = withMember([](Call& call) {
        VARIANT& given = call.parameters.rgvarg[0];
        if (V_VT(&given) != (VT_BYREF | VT_BSTR))
            return DISP_E_TYPEMISMATCH;
        storeThrough(given, Value(u"typed"));
        return S_OK;
    });
    Value variable(u"in");
    object.call(u"Member", byRef(variable));
    EXPECT_EQ(variable.toString(), u"typed");
    EXPECT_EQ(thrownBy([&] { object.call(u"Member", u"no variable"); }).number(), 13);
}

TEST(ForeignObject, NativeObjectsComeBackThemselves) {
    const auto thing = automation::make<NativeThing>();
    const Object object =
        withMember([](Call& call) { return ::VariantCopy(call.result, &call.parameters.rgvarg[0]); });
    EXPECT_EQ(object.call(u"Member", thing).toObject().native(), thing.get());
    EXPECT_EQ(object.call(u"Member", object).toObject(), object);
}

TEST(ForeignObject, ErrorsKeepNumberDescriptionAndSource) {
    const Object object = withMember([](Call& call) {
        call.failure->scode = static_cast<SCODE>(0x800A0035);
        call.failure->bstrDescription = makeBstr(u"no such file").release();
        call.failure->bstrSource = makeBstr(u"Elsewhere").release();
        return DISP_E_EXCEPTION;
    });
    const Error error = thrownBy([&] { object.call(u"Member"); });
    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.description(), u"no such file");
    EXPECT_EQ(error.source(), u"Elsewhere");
}

TEST(ForeignObject, ErrorsWithACodeOfTheirOwnAreRunTimeErrors) {
    const Object object = withMember([](Call& call) {
        call.failure->wCode = 1001;
        return DISP_E_EXCEPTION;
    });
    EXPECT_EQ(thrownBy([&] { object.call(u"Member"); }).number(), 1001);
}

TEST(ForeignObject, LateTextsAreFetched) {
    const Object object = withMember([](Call& call) {
        call.failure->pfnDeferredFillIn = [](EXCEPINFO* failure) -> HRESULT {
            failure->scode = static_cast<SCODE>(0x800A0007);
            failure->bstrDescription = makeBstr(u"late").release();
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    });
    const Error error = thrownBy([&] { object.call(u"Member"); });
    EXPECT_EQ(error.number(), 7);
    EXPECT_EQ(error.description(), u"late");
}

TEST(ForeignObject, StatusCodesBecomeTheNumbersThatHostsKnow) {
    const struct {
        HRESULT status;
        std::int32_t number;
    } cases[] = {{DISP_E_MEMBERNOTFOUND, 438},
                 {DISP_E_UNKNOWNNAME, 438},
                 {DISP_E_BADPARAMCOUNT, 450},
                 {DISP_E_TYPEMISMATCH, 13},
                 {DISP_E_OVERFLOW, 6},
                 {DISP_E_PARAMNOTOPTIONAL, 449},
                 {DISP_E_BADINDEX, 9},
                 {E_OUTOFMEMORY, 7},
                 {E_NOTIMPL, 445},
                 {static_cast<HRESULT>(0x800A0BB9), 3001},
                 {static_cast<HRESULT>(0x80004005), static_cast<std::int32_t>(0x80004005)}};
    for (const auto& each : cases) {
        const Object object = withMember([&](Call&) { return each.status; });
        const Error error = thrownBy([&] { object.call(u"Member"); });
        EXPECT_EQ(error.number(), each.number);
        EXPECT_FALSE(error.description().empty());
    }
}

TEST(ForeignObject, UnknownNamesAreError438) {
    const Object object = withMember({});
    EXPECT_EQ(thrownBy([&] { object.call(u"Other"); }).number(), 438);
    EXPECT_EQ(thrownBy([&] { object.call(u""); }).number(), 438);
    EXPECT_EQ(thrownBy([&] { object.call(std::u16string_view(u"Member\0x", 8)); }).number(), 438);
    EXPECT_EQ(thrownBy([&] { object.call(std::u16string(5000, u'n')); }).number(), 438);
}

TEST(ForeignObject, LongNamesAreResolved) {
    const std::u16string name(300, u'n');
    const auto object = fake([](Call&) { return S_OK; });
    object->names = {{std::wstring(300, L'n'), 9}};
    EXPECT_EQ(fromDispatch(object.get()).resolve(name), static_cast<MemberId>(9));
}

TEST(ForeignObject, ReferencesAreBalanced) {
    const int alive = FakeDispatch::alive();
    {
        const auto other = fake();
        const Object object = withMember([&](Call& call) {
            toVariant(Value(fromDispatch(other.get())), *call.result);
            return S_OK;
        });
        Value variable(object);
        for (int i = 0; i < 10; ++i)
            EXPECT_EQ(object.call(u"Member", byRef(variable), object).toObject().identity(), other.get());
        EXPECT_EQ(other->count(), 1U);
    }
    EXPECT_EQ(FakeDispatch::alive(), alive);
}

TEST(ForeignObject, ClassesNobodyKnowsGiveTheEmptyReference) {
    EXPECT_FALSE(createPlatformObject(u"QuorelNobody.Nothing"));
    EXPECT_FALSE(createPlatformObject(u""));
}

TEST(ForeignObject, ClassesOfThePlatformAreCreated) {
    const Object dictionary = createPlatformObject(u"Scripting.Dictionary");
    ASSERT_TRUE(dictionary);
    dictionary.call(u"Add", u"key", 5);
    EXPECT_EQ(dictionary.item(u"key").toInteger(), 5);
    EXPECT_EQ(dictionary.get(u"Count").toInteger(), 1);
    EXPECT_EQ(thrownBy([&] { dictionary.call(u"Add", u"key", 6); }).number(), 457);
}

}  // namespace
}  // namespace quorel::win32::testing
