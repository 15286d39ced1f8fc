// Objects that hosts write in script languages, called by the library: repositories and sessions look like
// this.

#include <gtest/gtest.h>

#include <functional>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "tests/platform/win32/com/native_thing.h"
#include "tests/platform/win32/com/script_module.h"

namespace quorel::win32::testing {
namespace {

using automation::byRef;
using automation::Error;
using automation::Object;
using automation::Value;

const std::u16string kVbClass =
    uR"(
Class Node
    Public name
    Private partner_
    Public Property Get Partner
        Set Partner = partner_
    End Property
    Public Property Set Partner(other)
        Set partner_ = other
    End Property
    Public Property Get Colour
        Colour = "blue"
    End Property
    Public Function Join(a, b)
        Join = a & "-" & b
    End Function
    Public Sub Remove(identifier, ByRef removed)
        removed = True
        identifier = identifier & " gone"
    End Sub
    Public Sub Fail
        Err.Raise 1234, "Node", "raised"
    End Sub
    Public Function Self
        Set Self = Me
    End Function
    Public Function CallBack(other)
        CallBack = other.Describe("from script")
    End Function
End Class
Function MakeNode
    Set MakeNode = New Node
End Function
)";

const std::u16string kJsObject =
    uR"(
function makeNode() {
    return {
        name: "start",
        colour: "blue",
        items: null,
        Join: function (a, b) { return a + "-" + b; },
        Count: function () { return 3; },
        table: { one: 1 },
        Fail: function () { throw new Error(0x800A04D2, "raised"); },
        CallBack: function (other) { return other.Describe("from script"); }
    };
}
)";

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

class VbScriptClass : public ::testing::Test {
  protected:
    ScriptModule module{L"VBScript", kVbClass};
    Object node = module.globals().call(u"MakeNode").toObject();
};

TEST_F(VbScriptClass, AnswersMembersByName) {
    node.put(u"name", u"n1");
    EXPECT_EQ(node.get(u"NAME").toString(), u"n1");
    EXPECT_EQ(node.get(u"Colour").toString(), u"blue");
    EXPECT_EQ(node.call(u"Join", u"a", 2).toString(), u"a-2");
}

TEST_F(VbScriptClass, HoldsNativeObjectsUnharmed) {
    const auto thing = automation::make<NativeThing>();
    node.putRef(u"Partner", thing);
    EXPECT_EQ(node.get(u"Partner").toObject().native(), thing.get());
    EXPECT_EQ(node.call(u"CallBack", thing).toString(), u"from script,7,nothing");
}

TEST_F(VbScriptClass, HasIdentity) {
    EXPECT_EQ(node.call(u"Self").toObject(), node);
    EXPECT_FALSE(module.globals().call(u"MakeNode").toObject() == node);
}

TEST_F(VbScriptClass, SetsVariablesOfTheCaller) {
    Value identifier(u"ID:1");
    Value removed(false);
    node.call(u"Remove", byRef(identifier), byRef(removed));
    EXPECT_TRUE(removed.toBoolean());
    EXPECT_EQ(identifier.toString(), u"ID:1 gone");
}

TEST_F(VbScriptClass, RaisesErrors) {
    try {
        node.call(u"Fail");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 1234);
        EXPECT_EQ(error.description(), u"raised");
        EXPECT_EQ(error.source(), u"Node");
    }
}

TEST_F(VbScriptClass, UnknownMembersAreError438) {
    EXPECT_EQ(errorOf([&] { node.call(u"Nothing"); }), 438);
}

TEST_F(VbScriptClass, ProvesNoType) {
    EXPECT_EQ(node.typeKey(), nullptr);
}

TEST_F(VbScriptClass, CannotBeEnumerated) {
    EXPECT_EQ(errorOf([&] { static_cast<void>(node.enumerate()); }), 451);
}

TEST(ScriptInAReticentHost, FailsWithoutSayingWhy) {
    const ScriptModule module(L"VBScript", kVbClass, Errors::KeptByTheHost);
    const Object node = module.globals().call(u"MakeNode").toObject();
    try {
        node.call(u"Fail");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x80020101));
        EXPECT_FALSE(error.description().empty());
    }
}

TEST(ScriptInAReticentHost, StillHasDataAndMethods) {
    const ScriptModule module(L"JScript", kJsObject, Errors::KeptByTheHost);
    const Object node = module.globals().call(u"makeNode").toObject();
    EXPECT_EQ(node.get(u"name").toString(), u"start");
    EXPECT_EQ(node.call(u"Count").toInteger(), 3);
    EXPECT_EQ(errorOf([&] { node.call(u"Fail"); }), static_cast<std::int32_t>(0x80020101));
}

class JScriptObject : public ::testing::Test {
  protected:
    ScriptModule module{L"JScript", kJsObject};
    Object node = module.globals().call(u"makeNode").toObject();
};

TEST_F(JScriptObject, AnswersMembersByName) {
    EXPECT_EQ(node.get(u"name").toString(), u"start");
    node.put(u"name", u"n1");
    EXPECT_EQ(node.get(u"name").toString(), u"n1");
    EXPECT_EQ(node.call(u"Join", u"a", 2).toString(), u"a-2");
    EXPECT_EQ(node.call(u"Count").toInteger(), 3);
}

TEST_F(JScriptObject, ObjectsAsDataAreRead) {
    EXPECT_EQ(node.get(u"table").toObject().get(u"one").toInteger(), 1);
}

TEST_F(JScriptObject, NamesIgnoreCase) {
    EXPECT_EQ(node.get(u"Colour").toString(), u"blue");
    EXPECT_EQ(node.call(u"join", u"a", u"b").toString(), u"a-b");
}

TEST_F(JScriptObject, HoldsNativeObjectsUnharmed) {
    const auto thing = automation::make<NativeThing>();
    node.putRef(u"items", thing);
    EXPECT_EQ(node.get(u"items").toObject().native(), thing.get());
    EXPECT_EQ(node.call(u"CallBack", thing).toString(), u"from script,7,nothing");
}

TEST_F(JScriptObject, RaisesErrors) {
    EXPECT_EQ(errorOf([&] { node.call(u"Fail"); }), 1234);
    EXPECT_EQ(errorOf([&] { node.call(u"Nothing"); }), 438);
}

}  // namespace
}  // namespace quorel::win32::testing
