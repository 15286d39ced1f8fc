// Combo boxes and progress bars.

#include <limits>
#include <stdexcept>

#include "platform/ui/progress_bar.h"
#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::Key;
using ui::Modality;

namespace {

struct Combos {
    explicit Combos(ui::Desktop& desktop)
        : form(std::make_shared<ui::Form>(desktop, u"frmCombos")),
          ok(form->add<ui::Button>(u"OK")),
          kind(form->add<ui::ComboBox>(u"Kind")),
          name(form->add<ui::ComboBox>(u"Name", ui::ComboStyle::Editable)),
          bar(form->add<ui::ProgressBar>(u"Progress")) {
        form->setClientSize({4500_tw, 3000_tw});
        ok.setBounds({150_tw, 150_tw, 1200_tw, 375_tw});
        kind.setBounds({150_tw, 600_tw, 2400_tw, 330_tw});
        kind.setItems({u"alpha", u"beta", u"gamma", u"delta"});
        name.setBounds({150_tw, 1050_tw, 2400_tw, 330_tw});
        name.setItems({u"one", u"two"});
        bar.setBounds({150_tw, 1500_tw, 2400_tw, 300_tw});
        kind.onClick.connect([this] { log.emplace_back("kind click"); });
        kind.onChange.connect([this] { log.emplace_back("kind change"); });
        name.onClick.connect([this] { log.emplace_back("name click"); });
        name.onChange.connect([this] { log.emplace_back("name change"); });
        ok.onClick.connect([this] { log.emplace_back("ok"); });
    }

    Log log;
    std::shared_ptr<ui::Form> form;
    ui::Button& ok;
    ui::ComboBox& kind;
    ui::ComboBox& name;
    ui::ProgressBar& bar;
};

}  // namespace

TEST_F(Conformance, AnItemIsChosenOnceAndShown) {
    Combos combos(backend->desktop());
    combos.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenText(combos.kind), u"");
    backend->chooseItem(combos.kind, 2);
    EXPECT_EQ(combos.kind.listIndex(), 2U);
    EXPECT_EQ(combos.kind.text(), u"gamma");
    EXPECT_EQ(backend->seenText(combos.kind), u"gamma");
    EXPECT_EQ(combos.form->focusedControl(), &combos.kind);
    EXPECT_EQ(combos.log, Log{"kind click"});
    backend->chooseItem(combos.kind, 2);
    EXPECT_EQ(combos.log, Log{"kind click"});
    backend->chooseItem(combos.kind, 0);
    EXPECT_EQ(combos.kind.text(), u"alpha");
    EXPECT_EQ(combos.log.size(), 2U);
}

TEST_F(Conformance, ComboSettersRaiseNothing) {
    Combos combos(backend->desktop());
    combos.kind.setListIndex(1);
    combos.name.setText(u"free");
    combos.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(backend->seenText(combos.kind), u"beta");
    EXPECT_EQ(backend->seenText(combos.name), u"free");
    combos.kind.setText(u"delta");
    combos.name.setListIndex(1);
    backend->settle();
    EXPECT_EQ(combos.kind.listIndex(), 3U);
    EXPECT_EQ(backend->seenText(combos.kind), u"delta");
    EXPECT_EQ(backend->seenText(combos.name), u"two");
    combos.kind.setItems({u"other"});
    combos.name.addItem(u"three");
    backend->settle();
    EXPECT_EQ(combos.kind.listIndex(), std::nullopt);
    EXPECT_EQ(backend->seenText(combos.kind), u"");
    EXPECT_EQ(backend->seenText(combos.name), u"two");
    combos.kind.setText(u"unknown");
    combos.kind.setListIndex(7);
    EXPECT_EQ(combos.kind.text(), u"");
    EXPECT_EQ(combos.kind.listIndex(), std::nullopt);
    EXPECT_EQ(combos.log, Log{});
}

TEST_F(Conformance, ArrowKeysChooseInACombo) {
    Combos combos(backend->desktop());
    combos.kind.setListIndex(1);
    combos.form->show(Modality::Modeless);
    combos.kind.focus();
    backend->press(*combos.form, {Key::Down});
    EXPECT_EQ(combos.kind.text(), u"gamma");
    backend->press(*combos.form, {Key::Up});
    backend->press(*combos.form, {Key::Up});
    EXPECT_EQ(combos.kind.text(), u"alpha");
    EXPECT_EQ(combos.log, (Log{"kind click", "kind click", "kind click"}));
    backend->press(*combos.form, {Key::Up});
    EXPECT_EQ(combos.log.size(), 3U);
    EXPECT_EQ(backend->seenText(combos.kind), u"alpha");
}

TEST_F(Conformance, ALetterChoosesTheNextItemThatBeginsSo) {
    Combos combos(backend->desktop());
    combos.form->show(Modality::Modeless);
    combos.kind.focus();
    backend->typeKeys(*combos.form, u"g");
    EXPECT_EQ(combos.kind.text(), u"gamma");
    EXPECT_EQ(combos.log, Log{"kind click"});
}

TEST_F(Conformance, AnEditableComboTakesAnyTextAndItsItems) {
    Combos combos(backend->desktop());
    combos.form->show(Modality::Modeless);
    combos.name.focus();
    EXPECT_EQ(combos.form->focusedControl(), &combos.name);
    backend->typeKeys(*combos.form, u"x1");
    EXPECT_EQ(combos.name.text(), u"x1");
    EXPECT_EQ(combos.name.listIndex(), std::nullopt);
    EXPECT_EQ(combos.log, (Log{"name change", "name change"}));
    backend->chooseItem(combos.name, 1);
    EXPECT_EQ(combos.name.text(), u"two");
    EXPECT_EQ(backend->seenText(combos.name), u"two");
    EXPECT_EQ(combos.name.listIndex(), 1U);
    EXPECT_EQ(combos.log, (Log{"name change", "name change", "name click"}));
}

TEST_F(Conformance, TabEnterAndClicksTreatAComboAsAnyControl) {
    Combos combos(backend->desktop());
    combos.form->setDefaultButton(&combos.ok);
    combos.form->show(Modality::Modeless);
    backend->click(combos.ok);
    combos.log.clear();
    backend->press(*combos.form, {Key::Tab});
    EXPECT_EQ(combos.form->focusedControl(), &combos.kind);
    backend->press(*combos.form, {Key::Enter});
    backend->press(*combos.form, {Key::Tab});
    EXPECT_EQ(combos.form->focusedControl(), &combos.name);
    backend->press(*combos.form, {Key::Enter});
    EXPECT_EQ(combos.log, (Log{"ok", "ok"}));
    backend->press(*combos.form, {Key::Tab});
    EXPECT_EQ(combos.form->focusedControl(), &combos.ok);
    combos.kind.setEnabled(false);
    EXPECT_THROW(backend->chooseItem(combos.kind, 1), std::runtime_error);
    EXPECT_THROW(backend->chooseItem(combos.name, 2), std::runtime_error);
}

TEST_F(Conformance, AChoiceMayCloseItsForm) {
    Combos combos(backend->desktop());
    combos.kind.onClick.connect([&] { combos.form->unload(); });
    combos.form->show(Modality::Modeless);
    backend->chooseItem(combos.kind, 1);
    EXPECT_FALSE(combos.form->isLoaded());
    EXPECT_EQ(combos.kind.text(), u"beta");
}

TEST_F(Conformance, ProgressKeepsItsNumbersAndDrawsWhatFits) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    Combos combos(backend->desktop());
    ui::ProgressBar& bar = combos.bar;
    bar.setValue(250);
    combos.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(bar.value(), 250);
    EXPECT_EQ(backend->seenProgress(bar), 100);
    bar.setMaximum(1000);
    EXPECT_EQ(backend->seenProgress(bar), 25);
    bar.setMinimum(2000);
    EXPECT_EQ(backend->seenProgress(bar), 0);
    EXPECT_EQ(bar.minimum(), 2000);
    EXPECT_EQ(bar.maximum(), 1000);
    bar.setMinimum(kLeast);
    bar.setMaximum(kMost);
    bar.setValue(0);
    EXPECT_EQ(backend->seenProgress(bar), 50);
    bar.setValue(kMost);
    EXPECT_EQ(backend->seenProgress(bar), 100);
    bar.setValue(kLeast);
    EXPECT_EQ(backend->seenProgress(bar), 0);
    EXPECT_EQ(combos.log, Log{});
}

}  // namespace quorel::conformance
