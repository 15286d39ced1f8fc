#include "settings/settings.h"

#include "tests/settings/settings_fixture.h"

namespace quorel::settings {
namespace {

using Log = std::vector<std::u16string>;

struct SettingsTest : ::testing::Test {
    testing::TestWorld world;
    StoreDouble store{world.settings};
    SettingsModel model;
    Ref<Settings> settings = make<Settings>(store);

    SettingsTest() {
        settings->Create();
        settings->Init(u"Navigator", u"Browser", model.information);
        model.script->restart();
    }
    /// What `GetEntry` answers, and what it makes of the variable.
    struct Answer {
        bool missing = false;
        std::u16string value;
        friend bool operator==(const Answer&, const Answer&) = default;
    };
    Answer get(const std::u16string& spec, const std::u16string& fallback = {}) {
        Answer answer{false, u"untouched"};
        answer.missing = settings->GetEntry(spec, answer.value, fallback);
        return answer;
    }
    std::u16string declare(const std::u16string& spec, std::u16string value,
                           const std::u16string& type = u"Text") {
        EXPECT_TRUE(settings->initSetting(spec, value, type, u"Paths", u"Where it is"));
        return value;
    }
    std::optional<std::u16string> stored(const std::u16string& key) {
        return world.settings.read(u"Browser", u"Navigator", key);
    }
};

TEST_F(SettingsTest, TheListIsTheOneOfExactlyThatName) {
    EXPECT_EQ(settings->getSettings(), Object(model.list));
    settings->Init(u"Navigator", u"browser", model.information);
    EXPECT_FALSE(settings->getSettings());
}

TEST_F(SettingsTest, OfSeveralListsOfTheNameTheLastOneIsTaken) {
    const auto second = model.repository->addNode(model.listType, u"Browser");
    model.repository->addNode(model.listType, u"Other");
    settings->Init(u"Navigator", u"Browser", model.information);
    EXPECT_EQ(settings->getSettings(), Object(second));
}

TEST_F(SettingsTest, WithoutAListNoneIsMadeAndSearchingIsError91) {
    settings->Init(u"Navigator", u"Unknown", model.information);
    EXPECT_FALSE(settings->getSettings());
    EXPECT_EQ(model.listType->extension->items.size(), 1U);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(settings->hasEntry(u"Path")); }), 91);
    EXPECT_EQ(errorNumber([&] { get(u"Path"); }), 91);
    EXPECT_EQ(errorNumber([&] { settings->SetEntry(u"Path", u"x"); }), 91);
    EXPECT_EQ(errorNumber([&] { declare(u"Path", u"x"); }), 91);
    EXPECT_EQ(model.settingCount(), 0U);
}

TEST_F(SettingsTest, EverythingBeforeInitIsError91) {
    const auto fresh = make<Settings>(store);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(fresh->hasEntry(u"Path")); }), 91);
    EXPECT_EQ(errorNumber([&] { fresh->SetEntry(u"Path", u"x"); }), 91);
    EXPECT_FALSE(fresh->getSettings());
    EXPECT_EQ(errorNumber([&] { fresh->Init(u"a", u"b", {}); }), 91);
}

TEST_F(SettingsTest, AnInitThatFailsChangesNothing) {
    declare(u"Path", u"/models");
    model.script->restart(4);
    EXPECT_EQ(errorNumber([&] { settings->Init(u"Other", u"Other", model.information); }), 1000);
    model.script->restart();
    EXPECT_EQ(settings->getSettings(), Object(model.list));
    EXPECT_EQ(get(u"Path"), (Answer{false, u"/models"}));
}

TEST_F(SettingsTest, AnUnknownSettingIsTrueAndLeavesTheVariable) {
    EXPECT_EQ(get(u"Path", u"default"), (Answer{true, u"untouched"}));
    EXPECT_FALSE(settings->hasEntry(u"Path"));
}

TEST_F(SettingsTest, AKnownSettingIsFalseAndGivesWhatIsStored) {
    declare(u"Path", u"/models");
    EXPECT_EQ(get(u"Path", u"default"), (Answer{false, u"/models"}));
    EXPECT_TRUE(settings->hasEntry(u"Path"));
}

TEST_F(SettingsTest, WithoutAStoredValueTheDefaultIsGiven) {
    const auto node = model.repository->addNode(model.settingType, u"Path");
    model.repository->addLink(model.linkType, u"", model.list, node);
    EXPECT_EQ(get(u"Path", u"default"), (Answer{false, u"default"}));
    EXPECT_EQ(get(u"Path"), (Answer{false, u""}));
}

TEST_F(SettingsTest, TheValueIsReadUnderTheNameOfTheNode) {
    declare(u"Path", u"/models");
    model.setting(u"Path")->values[u"Name"] = u"Path";
    model.setting(u"Path")->shownName = u"Other";
    world.settings.write(u"Browser", u"Navigator", u"Other", u"/other");
    EXPECT_EQ(get(u"Path"), (Answer{false, u"/other"}));
}

TEST_F(SettingsTest, ValuesStandUnderCategoryThenApplicationTitle) {
    settings->SetEntry(u"Path", u"/models");
    EXPECT_EQ(world.settings.read(u"Browser", u"Navigator", u"Path"), u"/models");
    EXPECT_EQ(world.settings.read(u"Navigator", u"Browser", u"Path"), std::nullopt);
}

TEST_F(SettingsTest, SettingAnUnknownEntryMakesNodeThenValueThenLink) {
    EXPECT_TRUE(settings->SetEntry(u"Path", u"/models"));
    EXPECT_EQ(model.script->log,
              (Log{u"id1.Outgoing_", u"id1.Outgoing_.enumerate", u"id1.Outgoing_.next",
                   u"information.Repository", u"information.UUIDGenerator", u"generator.GetUUID",
                   u"repository.MakeNode", u"uuid1.Value", u"information.Repository",
                   u"information.UUIDGenerator", u"generator.GetUUID", u"repository.MakeLink"}));
    auto* const node = model.setting(u"Path");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->identifier, u"uuid1");
    EXPECT_EQ(model.property(u"Path", u"Value"), u"/models");
    EXPECT_EQ(model.property(u"Path", u"EditType"), u"(unset)");
    EXPECT_EQ(model.property(u"Path", u"EditCategory"), u"(unset)");
    EXPECT_EQ(model.property(u"Path", u"EditDescription"), u"(unset)");
    ASSERT_EQ(model.linkType->extension->items.size(), 1U);
    const auto& [identifier, link] = model.linkType->extension->items.front();
    EXPECT_EQ(identifier, u"uuid2");
    EXPECT_EQ(link.get(u"name").text(), u"");
    EXPECT_EQ(link.get(u"source").toObject(), Object(model.list));
    EXPECT_EQ(link.get(u"target").toObject(), Object(node));
    EXPECT_EQ(stored(u"Path"), u"/models");
}

TEST_F(SettingsTest, SettingAKnownEntryChangesItsValueOnly) {
    declare(u"Path", u"/models", u"Directory");
    EXPECT_TRUE(settings->SetEntry(u"Path", u"/other"));
    EXPECT_EQ(model.settingCount(), 1U);
    EXPECT_EQ(model.property(u"Path", u"Value"), u"/other");
    EXPECT_EQ(model.property(u"Path", u"EditType"), u"Directory");
    EXPECT_EQ(stored(u"Path"), u"/other");
}

TEST_F(SettingsTest, DeclaringASettingStoresItsDefaultAndDescribesIt) {
    EXPECT_EQ(declare(u"Path", u"/models", u"Directory"), u"/models");
    EXPECT_EQ(stored(u"Path"), u"/models");
    EXPECT_EQ(model.property(u"Path", u"Value"), u"/models");
    EXPECT_EQ(model.property(u"Path", u"EditType"), u"Directory");
    EXPECT_EQ(model.property(u"Path", u"EditCategory"), u"Paths");
    EXPECT_EQ(model.property(u"Path", u"EditDescription"), u"Where it is");
}

TEST_F(SettingsTest, DeclaringItAgainKeepsWhatWasStoredFirst) {
    declare(u"Path", u"/models");
    EXPECT_EQ(declare(u"Path", u"/other", u"Directory"), u"/models");
    EXPECT_EQ(model.settingCount(), 1U);
    EXPECT_EQ(model.property(u"Path", u"Value"), u"/models");
    EXPECT_EQ(model.property(u"Path", u"EditType"), u"Directory");
    EXPECT_EQ(stored(u"Path"), u"/models");
}

TEST_F(SettingsTest, AStoredValueComesBackIntoANewRepository) {
    declare(u"Path", u"/models");
    settings->SetEntry(u"Path", u"/mine");
    SettingsModel other;
    settings->Init(u"Navigator", u"Browser", other.information);
    EXPECT_EQ(declare(u"Path", u"/models"), u"/mine");
    EXPECT_EQ(other.property(u"Path", u"Value"), u"/mine");
}

TEST_F(SettingsTest, SpecsDifferingInCaseAreTwoSettings) {
    settings->SetEntry(u"Path", u"/models");
    EXPECT_FALSE(settings->hasEntry(u"path"));
    settings->SetEntry(u"path", u"/other");
    EXPECT_EQ(model.settingCount(), 2U);
    EXPECT_EQ(model.property(u"Path", u"Value"), u"/models");
    EXPECT_EQ(model.property(u"path", u"Value"), u"/other");
}

TEST_F(SettingsTest, AfterDeinitTheNamesAreBlankAndTheListStays) {
    declare(u"Path", u"/models");
    settings->Deinit();
    EXPECT_EQ(settings->getSettings(), Object(model.list));
    EXPECT_EQ(get(u"Path", u"default"), (Answer{false, u"default"}));
    settings->SetEntry(u"Path", u"/blank");
    EXPECT_EQ(world.settings.read(u"", u"", u"Path"), u"/blank");
    EXPECT_EQ(stored(u"Path"), u"/models");
    settings->Destroy();
    EXPECT_TRUE(settings->hasEntry(u"Path"));
}

TEST_F(SettingsTest, SearchingGoesBothWaysAndStopsAtTheFirst) {
    settings->SetEntry(u"Path", u"same");
    settings->SetEntry(u"Font", u"same");
    const std::u16string link = u"SettingList.Has.Setting";
    const auto* const first = model.setting(u"Path");
    EXPECT_EQ(settings->SearchLinkedObject(model.list, link, true, u"Value", u"same").native(), first);
    EXPECT_EQ(settings->SearchLinkedObject(Object(model.setting(u"Font")), link, false, u"Name", u"Browser"),
              Object(model.list));
    EXPECT_FALSE(settings->SearchLinkedObject(model.list, link, true, u"Value", u"Same"));
    EXPECT_FALSE(settings->SearchLinkedObject(model.list, link, false, u"Value", u"same"));
    model.setting(u"Path")->values[u"Value"] = 5;
    EXPECT_EQ(settings->SearchLinkedObject(model.list, link, true, u"Value", 5.0).native(), first);
    EXPECT_FALSE(settings->SearchLinkedObject(model.list, link, true, u"Value", u"5"));
    EXPECT_EQ(errorNumber([&] {
                  static_cast<void>(settings->SearchLinkedObject({}, link, true, u"Value", u"same"));
              }),
              91);
}

TEST_F(SettingsTest, AStoreThatFailsIsTheHostsError) {
    declare(u"Path", u"/models");
    store.failsOnWrite = true;
    EXPECT_EQ(errorNumber([&] { settings->SetEntry(u"Path", u"/other"); }), 75);
    EXPECT_EQ(errorNumber([&] { declare(u"Path", u"/other"); }), 75);
    store.failsOnRead = true;
    EXPECT_EQ(errorNumber([&] { get(u"Path"); }), 75);
    EXPECT_EQ(errorNumber([&] { declare(u"Path", u"/other"); }), 75);
    EXPECT_EQ(stored(u"Path"), u"/models");
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(SettingsTest, HostsWriteIntoTheirVariablesByName) {
    const Object host = settings;
    Value fallback(u"/models"), type(u"Directory"), category(u"Paths"), text(u"Where");
    EXPECT_TRUE(host.call(u"initSetting", u"Path", byRef(fallback), byRef(type), byRef(category), byRef(text))
                    .toBoolean());
    settings->SetEntry(u"Path", u"/mine");
    host.call(u"initSetting", u"Path", byRef(fallback), byRef(type), byRef(category), byRef(text));
    EXPECT_EQ(fallback.text(), u"/mine");
    EXPECT_EQ(type.text(), u"Directory");
    Value value(u"old");
    EXPECT_FALSE(host.call(u"GetEntry", u"Path", byRef(value)).toBoolean());
    EXPECT_EQ(value.text(), u"/mine");
}

/// Whichever call fails, the host has the error, and the object works afterwards.
TEST_F(SettingsTest, EveryCallMayFailAndTheHostHasTheError) {
    for (int k = 1;; ++k) {
        ASSERT_LT(k, 200);
        SettingsModel fresh;
        world.settings = {};
        settings->Init(u"Navigator", u"Browser", fresh.information);
        fresh.script->restart(k);
        const std::int32_t number = errorNumber([&] {
            settings->Init(u"Navigator", u"Browser", fresh.information);
            declare(u"Path", u"/models");
            settings->SetEntry(u"Path", u"/other");
            settings->SetEntry(u"Font", u"large");
            get(u"Path");
        });
        const bool failed = fresh.script->hasFailed();
        EXPECT_EQ(number, failed ? 1000 : 0) << k;
        fresh.script->restart();
        settings->SetEntry(u"Path", u"/last");
        EXPECT_EQ(get(u"Path"), (Answer{false, u"/last"}));
        if (!failed)
            break;
    }
    EXPECT_TRUE(world.boxes().empty());
}

}  // namespace
}  // namespace quorel::settings
