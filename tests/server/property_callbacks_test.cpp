// The property editor's events as hosts in script languages receive them. The user is scripted; the callback
// objects are real ones of the engines.

#include <gtest/gtest.h>

#include "dialogs/property_editor.h"
#include "platform/automation/calls.h"
#include "platform/ui/plain_controls.h"
#include "tests/platform/win32/com/script_module.h"
#include "tests/support/repository_double.h"
#include "tests/support/test_world.h"

namespace quorel::server::testing {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;
using win32::testing::ScriptModule;

const std::u16string kVbCallback =
    uR"(
Dim log, mode, editor
Class Callback
    Public Sub CreatePropertyControl(ByRef prop, ByRef handled)
        log = log & "create " & prop.name & ";"
        If mode = "own" Then
            prop.Value = 77
            handled = True
        End If
        If mode = "none" Then Set prop = Nothing
        If mode = "destroy" Then editor.Destroy
    End Sub
    Public Sub PropertyControlCreated(ByRef prop, control)
        log = log & "created " & control.Text & ";"
        control.ToolTipText = "from script"
    End Sub
    Public Sub NewProperty(ByRef prop)
        log = log & "new " & prop.name & ";"
    End Sub
    Public Sub PropertyDeleted(ByRef prop)
        log = log & "deleted " & prop.name & ";"
    End Sub
    Public Sub PropertyChanged(ByRef prop, ByRef oldText, ByRef newText, value, ByRef cancel)
        log = log & "changed " & oldText & " " & newText & " " & value & " " & cancel & ";"
        If mode = "replace" Then newText = "55"
        If mode = "cancel" Then
            oldText = "33"
            cancel = True
        End If
        If mode = "throw" Then Err.Raise 1234, "Script", "Not now"
    End Sub
    Public Sub PropertyValidate(ByRef prop, oldValue, newValue, ByRef valid)
        log = log & "validate " & oldValue & " " & newValue & " " & valid & ";"
        If mode = "refuse" Then
            prop.Message = "Scripts say no."
            valid = False
        End If
    End Sub
End Class
Function MakeCallback
    Set MakeCallback = New Callback
End Function
Sub SetMode(text)
    mode = text
    log = ""
End Sub
Sub SetEditor(object)
    Set editor = object
End Sub
Function TakeLog
    TakeLog = log
End Function
)";

const std::u16string kJsCallback =
    uR"(
var log = "", mode = "";
function SetMode(text) { mode = text; log = ""; }
function TakeLog() { return log; }
function MakeCallback() {
    return {
        CreatePropertyControl: function (prop, handled) {
            log += "create " + prop.name + ";";
            if (mode != "own") return;
            prop.Value = 77;
            return true;
        },
        PropertyControlCreated: function (prop, control) { log += "created " + control.Text + ";"; },
        NewProperty: function (prop) { log += "new " + prop.name + ";"; },
        PropertyDeleted: function (prop) { log += "deleted " + prop.name + ";"; },
        PropertyChanged: function (prop, oldText, newText, value, cancel) {
            log += "changed " + oldText + " " + newText + ";";
            if (mode == "cancel") return true;
        },
        PropertyValidate: function (prop, oldValue, newValue, valid) {
            log += "validate " + oldValue + " " + newValue + ";";
            if (mode == "throw") throw new Error(0x800A04D2, "Not now");
            if (mode != "refuse") return;
            prop.Message = "Scripts say no.";
            return false;
        }
    };
}
)";

class PropertyCallbacks : public ::testing::Test {
  protected:
    PropertyCallbacks() {
        person->withProperty(u"Age", u"Integer");
        person->withProperty(u"Note", u"String");
    }
    ~PropertyCallbacks() override {
        editor->Destroy();
        repository->clear();
    }
    /// Shows a person to a user who enters a text; the value that the cell shows then. One error box comes if
    /// it `fails`.
    std::u16string enter(const ScriptModule& module, const char16_t* mode, std::size_t line = 0,
                         const char16_t* text = u"41", bool fails = false) {
        anna->values = {{u"Age", 40}};
        module.globals().call(u"SetMode", mode);
        editor->Create(u"");
        editor->Init(person);
        editor->setRepObject(anna);
        editor->setCallbackObject(module.globals().call(u"MakeCallback").toObject());
        std::u16string shown;
        world.desktop.expectModal(u"frmPropertyEditor", [&](ui::Form& form) {
            auto& list = headless::get<ui::VirtualList>(form, u"Property1");
            auto& box = headless::get<ui::TextBox>(form, u"Property1.Text");
            world.user.selectRow(list, line);
            world.user.press(form, {ui::Key::F2});
            if (fails)
                world.expectBox();
            if (box.isUsable()) {
                world.user.enterText(box, text);
                world.user.press(form, {ui::Key::Enter});
            }
            if (!form.isVisible())
                return;
            shown = world.user.look(list, line, 1).at(0).at(1);
            form.hide();
        });
        editor->PopUp();
        world.desktop.verify();
        log = module.globals().call(u"TakeLog").toString();
        return shown;
    }

    quorel::testing::TestWorld world;
    quorel::testing::ScriptRef script = std::make_shared<quorel::testing::Script>();
    Ref<quorel::testing::RepositoryDouble> repository = make<quorel::testing::RepositoryDouble>(script);
    Ref<quorel::testing::MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<quorel::testing::InstanceDouble> anna = repository->addNode(person, u"Anna");
    Ref<dialogs::PropertyEditor> editor = make<dialogs::PropertyEditor>(world.environment);
    std::u16string log;
};

TEST_F(PropertyCallbacks, VbScriptReceivesThemInOrder) {
    const ScriptModule module(L"VBScript", kVbCallback);
    EXPECT_EQ(enter(module, u""), u"41");
    EXPECT_EQ(log, u"create Age;created 40;validate 40 41 True;changed 40 41 41 False;");
    EXPECT_EQ(enter(module, u"", 1, u"set"), u"set");
    EXPECT_EQ(log, u"create Note;created ;validate  set True;changed  set set False;new Note;");
}

TEST_F(PropertyCallbacks, VbScriptChangesEveryArgumentByReference) {
    const ScriptModule module(L"VBScript", kVbCallback);
    EXPECT_EQ(enter(module, u"own"), u"77");
    EXPECT_EQ(log, u"create Age;validate 40 77 True;changed 40 77 77 False;");
    EXPECT_EQ(enter(module, u"none"), u"40");
    EXPECT_EQ(log, u"create Age;");
    EXPECT_EQ(enter(module, u"replace"), u"55");
    EXPECT_EQ(enter(module, u"cancel"), u"33");
    EXPECT_EQ(enter(module, u"refuse"), u"41   ! Scripts say no.");
}

TEST_F(PropertyCallbacks, VbScriptMayThrow) {
    const ScriptModule module(L"VBScript", kVbCallback);
    EXPECT_EQ(enter(module, u"throw", 0, u"41", true), u"41");
    EXPECT_TRUE(world.boxes().back().ends_with(u"(Module 'PropertyEditor' Function 'PropertyChanged()')"));
    EXPECT_NE(world.boxes().back().find(u"Not now"), std::u16string::npos);
}

TEST_F(PropertyCallbacks, VbScriptMayDestroyTheEditor) {
    const ScriptModule module(L"VBScript", kVbCallback);
    module.globals().call(u"SetEditor", Object(editor));
    EXPECT_EQ(enter(module, u"destroy"), u"");
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    module.globals().call(u"SetEditor", Object());
}

TEST_F(PropertyCallbacks, JScriptReturnsItsFlags) {
    const ScriptModule module(L"JScript", kJsCallback);
    EXPECT_EQ(enter(module, u""), u"41");
    EXPECT_EQ(log, u"create Age;created 40;validate 40 41;changed 40 41;");
    EXPECT_EQ(enter(module, u"own"), u"77");
    EXPECT_EQ(enter(module, u"cancel"), u"40");
    EXPECT_EQ(enter(module, u"refuse"), u"41   ! Scripts say no.");
    EXPECT_EQ(enter(module, u"", 1, u"set"), u"set");
    EXPECT_TRUE(log.ends_with(u"new Note;"));
}

TEST_F(PropertyCallbacks, JScriptMayThrow) {
    const ScriptModule module(L"JScript", kJsCallback);
    EXPECT_EQ(enter(module, u"throw", 0, u"41", true), u"41");
    EXPECT_TRUE(world.boxes().back().ends_with(u"(Module 'PropertyEditor' Function 'PropertyValidate()')"));
}

}  // namespace
}  // namespace quorel::server::testing
