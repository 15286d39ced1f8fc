#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <random>

#include "platform/automation/error.h"
#include "platform/shell/file_settings_store.h"
#include "platform/shell/settings_text.h"

namespace quorel::shell {
namespace {

namespace fs = std::filesystem;

class FileSettings : public ::testing::Test {
  protected:
    FileSettings()
        : folder_(fs::temp_directory_path() / ("settings-" + std::to_string(std::random_device()()))) {}
    ~FileSettings() override { fs::remove_all(folder_); }

    void writeFile(const std::string& text) {
        fs::create_directories(folder_);
        std::ofstream(folder_ / "settings.txt", std::ios::binary) << text;
    }
    std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

    fs::path folder_;
};

std::int32_t numberOfFailure(const std::function<void()>& body) {
    try {
        body();
    } catch (const automation::Error& error) {
        return error.number();
    }
    return 0;
}

template <class Store>
void expectEverythingComesBack(Store& writer, Store& reader) {
    const std::u16string odd[] = {u"",
                                  u"plain",
                                  u"with\\backslash\\",
                                  u"line\r\nfeed\ttab",
                                  std::u16string(u"nul\0inside", 10),
                                  u"\xD800 lone \xDC00",
                                  u"\u202Eright to left \U0001F600",
                                  u"\\0\\n\\t",
                                  std::u16string(1 << 20, u'\u00E9')};
    int i = 0;
    for (const std::u16string& text : odd)
        writer.write(u"app" + text, u"section" + text, text, text + static_cast<char16_t>(u'0' + i++));
    i = 0;
    for (const std::u16string& text : odd) {
        const auto value = reader.read(u"app" + text, u"section" + text, text);
        ASSERT_TRUE(value.has_value());
        EXPECT_EQ(*value, text + static_cast<char16_t>(u'0' + i++));
    }
}

TEST_F(FileSettings, AnyTextComesBackInANewProcess) {
    FileSettingsStore writer(folder_);
    FileSettingsStore reader(folder_);
    expectEverythingComesBack(writer, reader);
    EXPECT_EQ(filesInFolder(), 1U) << "temporary files were left";
}

TEST(MemorySettings, AnyTextComesBack) {
    MemorySettingsStore store;
    expectEverythingComesBack(store, store);
}

TEST_F(FileSettings, NothingIsReadWhereNothingWasWritten) {
    FileSettingsStore store(folder_);
    EXPECT_EQ(store.read(u"a", u"b", u"c"), std::nullopt);
    EXPECT_FALSE(fs::exists(folder_));
    store.write(u"a", u"b", u"c", u"");
    EXPECT_EQ(store.read(u"a", u"b", u"c"), u"");
    EXPECT_EQ(store.read(u"a", u"b", u"d"), std::nullopt);
}

TEST_F(FileSettings, NamesIgnoreCaseAndValuesDoNot) {
    FileSettingsStore store(folder_);
    store.write(u"App", u"Section", u"Key", u"One");
    store.write(u"APP", u"section", u"KEY", u"two");
    EXPECT_EQ(store.read(u"app", u"SECTION", u"key"), u"two");
}

TEST_F(FileSettings, TwoStoresKeepEachOthersValues) {
    FileSettingsStore a(folder_), b(folder_);
    a.write(u"app", u"s", u"a", u"1");
    b.write(u"app", u"s", u"b", u"2");
    a.write(u"app", u"s", u"c", u"3");
    FileSettingsStore fresh(folder_);
    EXPECT_EQ(fresh.read(u"app", u"s", u"a"), u"1");
    EXPECT_EQ(fresh.read(u"app", u"s", u"b"), u"2");
    EXPECT_EQ(b.read(u"app", u"s", u"c"), u"3");
}

TEST_F(FileSettings, FileOfAnotherFormIsErrorThatNamesTheLineAndStaysAsItIs) {
    writeFile("app\ts\tk\tv\nnonsense\n");
    FileSettingsStore store(folder_);
    EXPECT_EQ(numberOfFailure([&] { static_cast<void>(store.read(u"a", u"b", u"c")); }), 51);
    EXPECT_EQ(numberOfFailure([&] { store.write(u"a", u"b", u"c", u"d"); }), 51);
    EXPECT_EQ(fs::file_size(folder_ / "settings.txt"), 19U);
    try {
        static_cast<void>(store.read(u"a", u"b", u"c"));
    } catch (const automation::Error& error) {
        EXPECT_NE(error.description().find(u"Line 2"), std::u16string::npos);
    }
}

TEST_F(FileSettings, FolderThatCannotBeMadeIsError75) {
    std::ofstream(folder_) << "a file where the folder should be";
    FileSettingsStore store(folder_);
    EXPECT_EQ(numberOfFailure([&] { store.write(u"a", u"b", u"c", u"d"); }), 75);
}

TEST_F(FileSettings, DirectoryInPlaceOfTheFileIsError75) {
    fs::create_directories(folder_ / "settings.txt");
    FileSettingsStore store(folder_);
    EXPECT_EQ(numberOfFailure([&] { static_cast<void>(store.read(u"a", u"b", u"c")); }), 75);
    EXPECT_EQ(numberOfFailure([&] { store.write(u"a", u"b", u"c", u"d"); }), 75);
}

TEST(SettingsText, ReadsForeignLineEndsAndRefusesUnknownEscapes) {
    const SettingMap settings = parseSettings("a\tb\tc\td\r\n\nx\ty\tz\t\\\\");
    EXPECT_EQ(settings.size(), 2U);
    EXPECT_EQ(settings.at({u"a", u"b", u"c"}), u"d");
    EXPECT_EQ(settings.at({u"x", u"y", u"z"}), u"\\");
    for (const char* bad : {"a\tb\tc", "a\tb\tc\td\te", "a\tb\tc\t\\q", "a\tb\tc\t\\"})
        EXPECT_EQ(numberOfFailure([bad] { static_cast<void>(parseSettings(bad)); }), 51) << bad;
}

}  // namespace
}  // namespace quorel::shell
