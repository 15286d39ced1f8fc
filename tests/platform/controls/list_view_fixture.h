#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/headless/user.h"
#include "platform/ui/form.h"
#include "tests/platform/controls/model_double.h"

namespace quorel::controls::testing {

using Texts = std::vector<std::u16string>;
using Rows = std::vector<Texts>;

/// A shown form with a list view "SourceNode" on a model of twenty nodes.
class ListViewTest : public ::testing::Test {
  protected:
    ListViewTest() {
        form->setClientSize({{9000}, {6000}});
        view.setBounds({{0}, {0}, {9000}, {6000}});
        view.onClick.connect([this] { ++clicks; });
        view.onDoubleClick.connect([this] { ++doubleClicks; });
        view.onCountChanged.connect([this] { ++countChanges; });
        view.onCellError.connect([this](const automation::Error& error) { cellErrors.push_back(error); });
        form->show(ui::Modality::Modeless);
    }
    void TearDown() override { EXPECT_NO_THROW(desktop.verify()); }

    void fill() { view.fillWithExtension(model.metaNode, true); }
    [[nodiscard]] Rows look(std::size_t first = 0, std::size_t count = 100) {
        return user.look(view.list(), first, count);
    }
    /// The texts of one column as shown.
    [[nodiscard]] Texts column(std::size_t index) {
        Texts texts;
        for (const Texts& row : look())
            texts.push_back(row[index]);
        return texts;
    }
    [[nodiscard]] Texts titles() {
        Texts texts;
        for (const ui::Column& each : view.list().columns())
            texts.push_back(each.title);
        return texts;
    }
    void press(ui::Key key, ui::Modifiers modifiers = ui::Modifiers::None) {
        user.press(*form, {key, modifiers});
    }
    /// The number of the error that `body` throws, 0 if it throws none.
    template <class Body>
    [[nodiscard]] static std::int32_t errorOf(Body&& body) {
        try {
            body();
            return 0;
        } catch (const automation::Error& error) {
            return error.number();
        }
    }

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    Model model{20};
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frmTest");
    ListView& view = form->add<ListView>(u"SourceNode", desktop);
    int clicks = 0;
    int doubleClicks = 0;
    int countChanges = 0;
    std::vector<automation::Error> cellErrors;
};

}  // namespace quorel::controls::testing
