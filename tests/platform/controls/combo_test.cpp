#include "platform/controls/combo.h"

#include "platform/ui/form.h"
#include "tests/platform/controls/list_view_fixture.h"
#include "tests/support/repository_double.h"

namespace quorel::controls::testing {
namespace {

using automation::make;
using automation::Ref;

/// A shown combo over companies, with something else to have the focus.
class ComboTest : public ::testing::Test {
  protected:
    ComboTest() {
        zenith->values[u"Town"] = u"Rome";
        combo.onChoose.connect([this](const Object& object) {
            chosen.push_back(object);
            if (accepts)
                combo.setSelection(object);
        });
        combo.onFailure.connect([this](const automation::Error& error) { failures.push_back(error); });
        combo.setMetaNode(u"", company);
        form->show(ui::Modality::Modeless);
        other.focus();
        script->restart();
    }
    ~ComboTest() override { repository->clear(); }

    [[nodiscard]] const Texts& items() { return combo.box().items(); }

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    quorel::testing::ScriptRef script = std::make_shared<quorel::testing::Script>();
    Ref<quorel::testing::RepositoryDouble> repository = make<quorel::testing::RepositoryDouble>(script);
    Ref<quorel::testing::MetaDouble> company = repository->addMetaNode(u"Company");
    Ref<quorel::testing::InstanceDouble> zenith = repository->addNode(company, u"Zenith");
    Ref<quorel::testing::InstanceDouble> acme = repository->addNode(company, u"acme");
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frmTest");
    ui::TextBox& other = form->add<ui::TextBox>(u"Other");
    Combo& combo = form->add<Combo>(u"Combo1(1)", desktop);
    std::vector<Object> chosen;
    std::vector<automation::Error> failures;
    bool accepts = true;
};

TEST_F(ComboTest, ShowsItsSelectionAndAsksForNothingElse) {
    combo.setSelection(zenith);
    EXPECT_EQ(combo.box().text(), u"Zenith");
    EXPECT_EQ(script->log, Texts{u"id1.name"});
    EXPECT_EQ(combo.selection(), Object(zenith));
    combo.setSelection({});
    EXPECT_EQ(combo.box().text(), u"");
    EXPECT_EQ(combo.selection(), Object());
}

TEST_F(ComboTest, OffersTheNodesOfTheTypeWhenItGetsTheFocus) {
    combo.setSelection(zenith);
    EXPECT_EQ(items(), Texts{u"Zenith"});
    user.click(combo.box());
    EXPECT_EQ(items(), (Texts{u"acme", u"Zenith"})) << "in the order of their names";
    EXPECT_EQ(combo.box().listIndex(), 1U);
    script->restart();
    other.focus();
    user.click(combo.box());
    EXPECT_EQ(script->calls(), 0) << "read once";
}

TEST_F(ComboTest, AChoiceIsTakenWhenTheOwnerTakesIt) {
    combo.setSelection(zenith);
    user.click(combo.box());
    user.choose(combo.box(), 0);
    EXPECT_EQ(chosen, std::vector<Object>{acme});
    EXPECT_EQ(combo.selection(), Object(acme));
    EXPECT_EQ(combo.box().text(), u"acme");
}

TEST_F(ComboTest, AChoiceThatIsNotTakenIsUndone) {
    accepts = false;
    combo.setSelection(zenith);
    user.click(combo.box());
    user.choose(combo.box(), 0);
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(combo.box().text(), u"Zenith");
    EXPECT_EQ(combo.selection(), Object(zenith));
}

TEST_F(ComboTest, ChoosingWhatIsSelectedIsNoChoice) {
    combo.setSelection(zenith);
    user.click(combo.box());
    user.choose(combo.box(), 1);
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ComboTest, AnythingCanBeChosenWhereNothingIsSelected) {
    user.click(combo.box());
    EXPECT_EQ(combo.box().listIndex(), std::nullopt);
    user.choose(combo.box(), 1);
    EXPECT_EQ(chosen, std::vector<Object>{zenith});
}

TEST_F(ComboTest, ASelectionOfAnotherTypeIsOfferedToo) {
    const auto person = repository->addNode(repository->addMetaNode(u"Person"), u"Anna");
    combo.setSelection(person);
    user.click(combo.box());
    EXPECT_EQ(items(), (Texts{u"Anna", u"acme", u"Zenith"}));
    EXPECT_EQ(combo.box().listIndex(), 0U);
}

TEST_F(ComboTest, ShowsThePropertyThatItsViewNames) {
    acme->values[u"Town"] = u"Paris";
    combo.setMetaNode(u"Town", company);
    combo.setSelection(zenith);
    EXPECT_EQ(combo.box().text(), u"Rome");
    user.click(combo.box());
    EXPECT_EQ(items(), (Texts{u"Paris", u"Rome"}));
    combo.setMetaNode(u"Extension", company);
    combo.setSelection(zenith);
    EXPECT_EQ(combo.box().text(), u"Zenith");
}

TEST_F(ComboTest, WhatCannotBeReadIsReportedAndTriedAgain) {
    combo.setSelection(zenith);
    script->restart(1);
    user.click(combo.box());
    EXPECT_EQ(failures.size(), 1U);
    EXPECT_EQ(items(), Texts{u"Zenith"});
    other.focus();
    user.click(combo.box());
    EXPECT_EQ(items(), (Texts{u"acme", u"Zenith"}));
}

TEST_F(ComboTest, AFailedSelectionIsTheSelectionWithoutAText) {
    script->restart(1);
    EXPECT_THROW(combo.setSelection(zenith), automation::Error);
    EXPECT_EQ(combo.selection(), Object(zenith));
    EXPECT_EQ(combo.box().text(), u"");
}

TEST_F(ComboTest, AFailureOfTheOwnerIsReported) {
    combo.setSelection(zenith);
    combo.onChoose.connect([](const Object&) { throw automation::Error(1000); });
    accepts = false;
    user.click(combo.box());
    user.choose(combo.box(), 0);
    EXPECT_EQ(failures.size(), 1U);
    EXPECT_EQ(combo.box().text(), u"Zenith");
}

TEST_F(ComboTest, TheHostMayResetItInsideEveryCall) {
    for (int call = 1;; ++call) {
        combo.setMetaNode(u"", company);
        combo.setSelection(zenith);
        other.focus();
        int calls = 0;
        script->onCall = [&](const std::u16string&) {
            if (++calls == call)
                combo.reset();
        };
        user.click(combo.box());
        script->onCall = {};
        if (calls < call)
            break;
        EXPECT_EQ(items(), Texts{}) << "call " << call;
        ASSERT_LT(call, 100);
    }
}

TEST_F(ComboTest, ResetForgetsEverything) {
    combo.setSelection(zenith);
    combo.reset();
    user.click(combo.box());
    EXPECT_EQ(items(), Texts{});
    EXPECT_EQ(combo.selection(), Object());
}

}  // namespace
}  // namespace quorel::controls::testing
