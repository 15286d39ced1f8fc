#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "dialogs/property_editor.h"
#include "platform/ui/plain_controls.h"
#include "tests/support/repository_double.h"
#include "tests/support/test_world.h"

namespace quorel::dialogs {

using automation::make;
using automation::Object;
using automation::Ref;
using automation::Value;
using testing::errorNumber;

/// Receives events under their names: has the members that a test gives it, and no others. Members do with
/// the arguments what they like.
class CallbackDouble final : public automation::NativeObject {
  public:
    using Arguments = std::span<automation::Argument>;
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<CallbackDouble>(u"Callback")
                                                        .method(u"Nothing", &CallbackDouble::nothing);
        return table;
    }
    std::optional<automation::MemberId> resolveExtra(std::u16string_view name) override {
        for (std::size_t i = 0; i < members.size(); ++i)
            if (members[i].first == name)
                return static_cast<automation::MemberId>(0x10000 + static_cast<std::int32_t>(i));
        return std::nullopt;
    }
    Value invokeExtra(automation::MemberId id, automation::InvokeKind, Arguments arguments) override {
        const auto index = static_cast<std::size_t>(static_cast<std::int32_t>(id) - 0x10000);
        const auto member = members.at(index);
        log.push_back(member.first + u"/" + automation::decimal(static_cast<std::int64_t>(arguments.size())));
        member.second(arguments);
        return {};
    }
    void on(const std::u16string& name, std::function<void(Arguments)> member) {
        members.emplace_back(name, std::move(member));
    }
    void onAll() {
        for (const char16_t* name : {u"CreatePropertyControl", u"PropertyControlCreated", u"NewProperty",
                                     u"PropertyDeleted", u"PropertyChanged", u"PropertyValidate"})
            on(name, [](Arguments) {});
    }

    std::vector<std::pair<std::u16string, std::function<void(Arguments)>>> members;
    std::vector<std::u16string> log;

  private:
    void nothing() {}
};

/// A person with a name, an age and a note, and an editor that shows it.
struct PropertyEditorTest : ::testing::Test {
    testing::TestWorld world;
    testing::ScriptRef script = std::make_shared<testing::Script>();
    Ref<testing::RepositoryDouble> repository = make<testing::RepositoryDouble>(script);
    Ref<testing::MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<testing::InstanceDouble> anna = repository->addNode(person, u"Anna");
    Ref<PropertyEditor> editor = make<PropertyEditor>(world.environment);
    Ref<CallbackDouble> callback = make<CallbackDouble>();

    PropertyEditorTest() {
        person->withProperty(u"Nick", u"String")
            .withProperty(u"Age", u"Integer")
            .withProperty(u"Note", u"String");
        anna->values[u"Nick"] = u"Ann";
        anna->values[u"Age"] = 40;
    }
    ~PropertyEditorTest() override {
        editor->Destroy();
        repository->clear();
        world.desktop.verify();
    }
    void prepare() {
        editor->Create(u"/models");
        editor->Init(person);
        editor->setRepObject(anna);
    }
    void prepareWithCallback() {
        prepare();
        editor->setCallbackObject(callback);
    }
    void popUp(std::function<void(ui::Form&)> user) {
        world.desktop.expectModal(u"frmPropertyEditor", std::move(user));
        editor->PopUp();
        world.desktop.verify();
    }
    [[nodiscard]] static ui::VirtualList& list(ui::Form& form) {
        return headless::get<ui::VirtualList>(form, u"Property1");
    }
    void enter(ui::Form& form, std::size_t line, std::u16string_view text) {
        world.user.selectRow(list(form), line);
        world.user.press(form, {ui::Key::F2});
        world.user.enterText(headless::get<ui::TextBox>(form, u"Property1.Text"), text);
        world.user.press(form, {ui::Key::Enter});
    }
    [[nodiscard]] std::u16string cell(ui::Form& form, std::size_t line) {
        return world.user.look(list(form), line, 1).at(0).at(1);
    }
    [[nodiscard]] std::u16string lastBox() { return world.boxes().empty() ? u"" : world.boxes().back(); }
};

}  // namespace quorel::dialogs
