// Check boxes.

#include <stdexcept>

#include "platform/ui/check_box.h"
#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::CheckValue;
using ui::Key;
using ui::Modality;
using ui::Modifiers;

namespace {

/// Two check boxes before a button.
struct Choices {
    explicit Choices(ui::Desktop& desktop)
        : form(std::make_shared<ui::Form>(desktop, u"frmChoices")),
          direction(form->add<ui::CheckBox>(u"CheckDirection")),
          dynamic(form->add<ui::CheckBox>(u"CheckDynamic")),
          ok(form->add<ui::Button>(u"OK")) {
        form->setClientSize({4500_tw, 3000_tw});
        direction.setText(u"&Direction");
        direction.setBounds({150_tw, 150_tw, 1800_tw, 300_tw});
        dynamic.setText(u"D&ynamic");
        dynamic.setBounds({150_tw, 600_tw, 1800_tw, 300_tw});
        ok.setText(u"OK");
        ok.setBounds({150_tw, 1200_tw, 1200_tw, 375_tw});
        direction.onClick.connect([this] { log.emplace_back("direction"); });
        dynamic.onClick.connect([this] { log.emplace_back("dynamic"); });
        ok.onClick.connect([this] { log.emplace_back("ok"); });
    }

    Log log;
    std::shared_ptr<ui::Form> form;
    ui::CheckBox& direction;
    ui::CheckBox& dynamic;
    ui::Button& ok;
};

}  // namespace

TEST_F(Conformance, AClickTicksACheckBoxAndTakesTheTickAway) {
    Choices choices(backend->desktop());
    choices.form->show(Modality::Modeless);
    backend->click(choices.dynamic);
    EXPECT_EQ(choices.dynamic.value(), CheckValue::Checked);
    EXPECT_EQ(backend->seenCheck(choices.dynamic), CheckValue::Checked);
    EXPECT_EQ(choices.form->focusedControl(), &choices.dynamic);
    backend->click(choices.dynamic);
    EXPECT_EQ(choices.dynamic.value(), CheckValue::Unchecked);
    EXPECT_EQ(backend->seenCheck(choices.dynamic), CheckValue::Unchecked);
    EXPECT_EQ(choices.log, (Log{"dynamic", "dynamic"}));
}

TEST_F(Conformance, TwoFastClicksAreTwoClicks) {
    Choices choices(backend->desktop());
    choices.form->show(Modality::Modeless);
    backend->doubleClick(choices.direction);
    EXPECT_EQ(choices.direction.value(), CheckValue::Unchecked);
    backend->doubleClick(choices.ok);
    EXPECT_EQ(choices.log, (Log{"direction", "direction", "ok", "ok"}));
}

TEST_F(Conformance, ACheckBoxSetByProgramShowsItAndRaisesNothing) {
    Choices choices(backend->desktop());
    choices.direction.setChecked(true);
    choices.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(backend->seenCheck(choices.direction), CheckValue::Checked);
    for (const CheckValue value : {CheckValue::Grayed, CheckValue::Unchecked, CheckValue::Checked}) {
        choices.direction.setValue(value);
        backend->settle();
        EXPECT_EQ(backend->seenCheck(choices.direction), value);
    }
    EXPECT_EQ(choices.log, Log{});
}

TEST_F(Conformance, TheUserNeverGraysACheckBoxAndUngraysItToUnchecked) {
    Choices choices(backend->desktop());
    choices.form->show(Modality::Modeless);
    choices.direction.setValue(CheckValue::Grayed);
    backend->click(choices.direction);
    EXPECT_EQ(backend->seenCheck(choices.direction), CheckValue::Unchecked);
    backend->click(choices.direction);
    EXPECT_EQ(backend->seenCheck(choices.direction), CheckValue::Checked);
    backend->click(choices.direction);
    EXPECT_EQ(choices.direction.value(), CheckValue::Unchecked);
}

TEST_F(Conformance, SpaceAndTheAccessKeyTurnACheckBoxOver) {
    Choices choices(backend->desktop());
    choices.form->show(Modality::Modeless);
    backend->click(choices.ok);
    choices.log.clear();
    backend->press(*choices.form, {ui::key('Y'), Modifiers::Alt});
    EXPECT_EQ(choices.form->focusedControl(), &choices.dynamic);
    EXPECT_EQ(backend->seenCheck(choices.dynamic), CheckValue::Checked);
    backend->press(*choices.form, {Key::Space});
    EXPECT_EQ(backend->seenCheck(choices.dynamic), CheckValue::Unchecked);
    EXPECT_EQ(choices.log, (Log{"dynamic", "dynamic"}));
}

TEST_F(Conformance, EnterOnACheckBoxPressesTheDefaultButton) {
    Choices choices(backend->desktop());
    choices.form->setDefaultButton(&choices.ok);
    choices.form->show(Modality::Modeless);
    choices.dynamic.focus();
    backend->press(*choices.form, {Key::Enter});
    EXPECT_EQ(choices.log, Log{"ok"});
    EXPECT_EQ(choices.dynamic.value(), CheckValue::Unchecked);
}

TEST_F(Conformance, ADisabledCheckBoxStaysAsItIs) {
    Choices choices(backend->desktop());
    choices.direction.setChecked(true);
    choices.direction.setEnabled(false);
    choices.form->show(Modality::Modeless);
    EXPECT_THROW(backend->click(choices.direction), std::runtime_error);
    backend->press(*choices.form, {ui::key('D'), Modifiers::Alt});
    EXPECT_EQ(choices.direction.value(), CheckValue::Checked);
    EXPECT_EQ(choices.log, Log{});
}

TEST_F(Conformance, ACheckBoxMayCloseItsForm) {
    Choices choices(backend->desktop());
    choices.direction.onClick.connect([&] { choices.form->unload(); });
    choices.form->show(Modality::Modeless);
    backend->click(choices.direction);
    EXPECT_FALSE(choices.form->isLoaded());
    EXPECT_EQ(choices.direction.value(), CheckValue::Checked);
}

}  // namespace quorel::conformance
