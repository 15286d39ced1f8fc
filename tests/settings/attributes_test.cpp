#include "settings/attributes.h"

#include <gtest/gtest.h>

#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/native_object.h"
#include "settings/setting_entry.h"

namespace quorel::settings {
namespace {

using automation::Value;

TEST(Entry, KeepsTextsOfWhateverItIsGiven) {
    Entry entry;
    EXPECT_TRUE(entry.Init(3, true).isEmpty());
    EXPECT_EQ(entry.Value().text(), u"3");
    EXPECT_EQ(entry.name().text(), u"True");
    entry.setValue(1.5);
    entry.setName(u"Width");
    EXPECT_EQ(entry.Value().text(), u"1.5");
    EXPECT_EQ(entry.name().text(), u"Width");
}

TEST(Entry, StaysAsItIsWhenWhatItIsGivenHasNoText) {
    Entry entry;
    entry.Init(u"a", u"b");
    EXPECT_THROW(entry.Init(u"c", Value::null()), automation::Error);
    EXPECT_EQ(entry.Value().text(), u"a");
    EXPECT_EQ(entry.name().text(), u"b");
}

TEST(Attributes, AreFoundByAnySpellingAndKeepTheFirst) {
    Attributes attributes;
    EXPECT_TRUE(attributes.AddEntry(u"MaxEntrysOnTab"));
    EXPECT_EQ(attributes.GetEntry(u"MaxEntrysOnTab").text(), u"");
    attributes.SetEntry(u"maxentrysontab", 16);
    EXPECT_EQ(attributes.GetEntry(u"MAXENTRYSONTAB").text(), u"16");
    ASSERT_NE(attributes.find(u"maxEntrysontab"), nullptr);
    EXPECT_EQ(attributes.find(u"maxEntrysontab")->name().text(), u"MaxEntrysOnTab");
}

TEST(Attributes, AddingANameThatIsTakenIsFalseAndKeepsTheValue) {
    Attributes attributes;
    attributes.AddEntry(u"Size");
    attributes.SetEntry(u"Size", u"large");
    EXPECT_FALSE(attributes.AddEntry(u"SIZE"));
    EXPECT_EQ(attributes.GetEntry(u"Size").text(), u"large");
}

TEST(Attributes, SettingIsFalseWhetherOrNotThereIsSuchAnEntry) {
    Attributes attributes;
    attributes.AddEntry(u"Size");
    EXPECT_FALSE(attributes.SetEntry(u"Size", u"large"));
    EXPECT_FALSE(attributes.SetEntry(u"Colour", u"red"));
    EXPECT_EQ(attributes.GetEntry(u"Size").text(), u"large");
    EXPECT_EQ(attributes.GetEntry(u"Colour").text(), u"");
    EXPECT_EQ(attributes.find(u"Colour"), nullptr);
}

TEST(Attributes, WhatFailsHasTheNeutralResult) {
    Attributes attributes;
    attributes.AddEntry(u"Size");
    attributes.SetEntry(u"Size", u"large");
    EXPECT_FALSE(attributes.SetEntry(u"Size", Value::null()));
    EXPECT_EQ(attributes.GetEntry(u"Size").text(), u"large");
}

TEST(SettingEntry, KeepsItsFiveTexts) {
    const auto record = automation::make<SettingEntry>();
    const automation::Object host = record;
    std::u16string value = u"a";
    for (const char16_t* member : {u"Value", u"Setting", u"EditType", u"EditCategory", u"EditDescription"}) {
        EXPECT_EQ(host.get(member).text(), u"");
        host.put(member, value);
        value += u'b';
    }
    EXPECT_EQ(record->Value(), u"a");
    EXPECT_EQ(record->Setting(), u"ab");
    EXPECT_EQ(record->EditType(), u"abb");
    EXPECT_EQ(record->EditCategory(), u"abbb");
    EXPECT_EQ(record->EditDescription(), u"abbbb");
}

}  // namespace
}  // namespace quorel::settings
