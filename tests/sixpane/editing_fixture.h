#pragma once

#include "platform/ui/plain_controls.h"
#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {

/// Users who create and delete, with the dialogs that they answer.
struct EditingTest : SixPaneTest {
    void press(std::u16string_view button) { world.user.click(*form, button); }
    /// Runs what the button runs, whether or not it can be pressed.
    void force(std::u16string_view button) {
        headless::get<ui::Button>(*form, button).onClick.raise();
        world.desktop.runPosted();
    }
    [[nodiscard]] bool isEnabled(std::u16string_view button) {
        return headless::get<ui::Button>(*form, button).isEnabled();
    }
    /// The name dialog comes, gets that name and is confirmed.
    void expectName(std::u16string_view name) {
        world.desktop.expectModal(u"frmNameEdit", [this, name](ui::Form& dialog) {
            world.user.enterText(headless::get<ui::TextBox>(dialog, u"NameBox"), name);
            world.user.click(dialog, u"OK");
        });
    }
    void expectDialog(std::function<void(ui::Form&)> user) {
        world.desktop.expectModal(u"frmNameEdit", std::move(user));
    }
    [[nodiscard]] std::vector<std::u16string> names(std::u16string_view name) {
        auto& list = pane(name).list();
        std::vector<std::u16string> all;
        for (std::size_t row = 0; row < list.rowCount(); ++row)
            all.push_back(list.cellText(row, 0));
        return all;
    }
    using Names = std::vector<std::u16string>;
    void chooseAnnaAndZenith() {
        click(u"MetaLink", kFirst);
        click(u"SourceNode", kFirst);
        click(u"TargetNode", kSecond);
        model.script->restart();
    }
};

}  // namespace quorel::sixpane
