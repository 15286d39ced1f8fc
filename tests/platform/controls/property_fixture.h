#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation/number_text.h"
#include "platform/controls/property.h"
#include "platform/headless/user.h"
#include "platform/ui/check_box.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"
#include "tests/platform/controls/property_double.h"
#include "tests/support/test_world.h"

namespace quorel::controls {

/// Answers with the paths that a test has put there, and keeps what it was asked.
class FilesDouble final : public shell::FileDialogs {
  public:
    std::optional<std::u16string> answer;
    std::vector<std::u16string> log;

    std::optional<std::u16string> openFile(const Request& request) override { return note(u"open", request); }
    std::optional<std::u16string> saveFile(const Request& request) override { return note(u"save", request); }
    std::optional<std::u16string> chooseFolder(const Request& request) override {
        return note(u"folder", request);
    }

  private:
    std::optional<std::u16string> note(const char16_t* what, const Request& request) {
        log.push_back(std::u16string(what) + u" " + request.title + u" in " + request.folder + u" " +
                      request.fileName);
        return answer;
    }
};

/// A grid in a window with a default and a cancel button, over an object with a property of every kind.
struct PropertyTest : ::testing::Test {
    using Cells = std::vector<std::vector<std::u16string>>;
    using Texts = quorel::testing::DefinitionDouble::Texts;

    quorel::testing::TestWorld world;
    FilesDouble files;
    automation::Ref<quorel::testing::DefinitionsDouble> type =
        automation::make<quorel::testing::DefinitionsDouble>();
    automation::Ref<quorel::testing::PropertiesDouble> node =
        automation::make<quorel::testing::PropertiesDouble>();
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(world.desktop, u"frmTest");
    Property* grid = &form->add<Property>(u"Property1", world.desktop, &files);
    ui::Button* ok = &form->add<ui::Button>(u"OK");
    std::vector<automation::Error> failures;
    int okClicks = 0;

    PropertyTest() {
        form->setDefaultButton(ok);
        ok->onClick.connect([this] { ++okClicks; });
        grid->onFailure.connect([this](const automation::Error& error) { failures.push_back(error); });
        form->setClientSize({ui::Twips{6000}, ui::Twips{6000}});
        grid->setBounds({{}, {}, ui::Twips{6000}, ui::Twips{5400}});
    }
    ~PropertyTest() override {
        if (form)
            form->unload();
    }

    void add(const std::u16string& name, const std::u16string& datatype, automation::Value value = {}) {
        type->add({.name = name, .datatype = datatype});
        node->values[name] = std::move(value);
    }
    void addEveryKind() {
        add(u"Title", u"String", u"Emma");
        add(u"Pages", u"Integer", 474);
        add(u"Weight", u"Double", 0.5);
        add(u"Bound", u"Boolean", true);
        add(u"Printed", u"Date", *automation::parseDate(u"1815-12-23"));
    }
    void open() {
        grid->initialise();
        grid->setPath(u"/models");
        grid->setMetaObject(type);
        grid->build();
        grid->setRepObject(node);
        form->show(ui::Modality::Modeless);
        grid->list().focus();
        node->log.clear();
    }
    [[nodiscard]] Cells look() { return world.user.look(grid->list(), 0, grid->list().rowCount()); }
    [[nodiscard]] std::u16string cell(std::size_t line) {
        return world.user.look(grid->list(), line, 1).at(0).at(1);
    }
    [[nodiscard]] ui::TextBox& box() { return headless::get<ui::TextBox>(*form, u"Property1.Text"); }
    [[nodiscard]] ui::TextBox& lines() { return headless::get<ui::TextBox>(*form, u"Property1.Lines"); }
    [[nodiscard]] std::u16string problem() {
        return headless::get<ui::Label>(*form, u"Property1.Message").text();
    }
    void press(ui::Key key, ui::Modifiers modifiers = ui::Modifiers::None) {
        world.user.press(*form, {key, modifiers});
    }
    void edit(std::size_t line) {
        world.user.selectRow(grid->list(), line);
        press(ui::Key::F2);
    }
    void enter(std::size_t line, std::u16string_view text) {
        edit(line);
        world.user.enterText(box(), text);
        press(ui::Key::Enter);
    }
};

}  // namespace quorel::controls
