#include "dialogs/directory_chooser.h"

#include <gtest/gtest.h>

#include "tests/support/test_world.h"

namespace quorel::dialogs {
namespace {

using automation::Object;
using automation::Value;
using headless::FolderBrowser;
using testing::errorNumber;
using Chosen = std::optional<std::u16string>;

class DirectoryChooserTest : public ::testing::Test {
  protected:
    ~DirectoryChooserTest() override { EXPECT_EQ(world_.folderBrowser.unmet(), 0U); }

    /// The next user chooses that, whatever is shown.
    void expect(Chosen chosen) {
        world_.folderBrowser.expect([this, chosen](const FolderBrowser::Shown& shown) {
            shown_ = shown;
            return chosen;
        });
    }
    void popUp(Chosen chosen) {
        expect(std::move(chosen));
        chooser_.call(u"PopUp");
    }
    [[nodiscard]] std::u16string directory() const { return chooser_.get(u"Directory").toString(); }
    [[nodiscard]] bool isCanceled() const { return chooser_.get(u"Canceled").toBoolean(); }

    testing::TestWorld world_;
    Object chooser_ = automation::make<DirectoryChooser>(&world_.folderBrowser);
    FolderBrowser::Shown shown_;
};

TEST_F(DirectoryChooserTest, BeginsWithNothingChosen) {
    EXPECT_EQ(directory(), u"");
    EXPECT_FALSE(isCanceled());
    EXPECT_EQ(chooser_.get(u"Caption").toString(), u"Select Directory");
    EXPECT_TRUE(chooser_.get(u"ShowCreateButton").toBoolean());
}

TEST_F(DirectoryChooserTest, AChoiceIsTheDirectory) {
    popUp(u"C:\\Models");
    EXPECT_EQ(directory(), u"C:\\Models");
    EXPECT_FALSE(isCanceled());
    EXPECT_EQ(shown_.title, u"Select Directory");
    EXPECT_TRUE(shown_.offersNewFolder);
}

TEST_F(DirectoryChooserTest, CancellingKeepsTheDirectory) {
    chooser_.put(u"Directory", u"C:\\Before");
    popUp(std::nullopt);
    EXPECT_EQ(directory(), u"C:\\Before");
    EXPECT_TRUE(isCanceled());
    popUp(u"D:\\After");
    EXPECT_EQ(directory(), u"D:\\After");
    EXPECT_FALSE(isCanceled());
}

TEST_F(DirectoryChooserTest, AnyNumberButZeroOffersANewFolder) {
    for (const Value& value : {Value(true), Value(1), Value(-1), Value(7), Value(u"1")}) {
        chooser_.put(u"ShowCreateButton", value);
        popUp(std::nullopt);
        EXPECT_TRUE(shown_.offersNewFolder);
    }
    for (const Value& value : {Value(false), Value(0)}) {
        chooser_.put(u"ShowCreateButton", value);
        popUp(std::nullopt);
        EXPECT_FALSE(shown_.offersNewFolder);
    }
}

TEST_F(DirectoryChooserTest, TheCaptionIsTheInstruction) {
    chooser_.put(u"Caption", u"Where to?");
    popUp(std::nullopt);
    EXPECT_EQ(shown_.title, u"Where to?");
}

TEST_F(DirectoryChooserTest, ALongPathIsAnErrorAndNoWrongPath) {
    popUp(std::u16string(259, u'x'));
    EXPECT_EQ(directory().size(), 259U);
    expect(std::u16string(260, u'y'));
    EXPECT_EQ(errorNumber([&] { chooser_.call(u"PopUp"); }), 5);
    EXPECT_EQ(directory(), std::u16string(259, u'x'));
    EXPECT_FALSE(isCanceled());
}

TEST_F(DirectoryChooserTest, WithoutADialogThereIsAnError) {
    const Object chooser = automation::make<DirectoryChooser>(nullptr);
    EXPECT_EQ(errorNumber([&] { chooser.call(u"PopUp"); }), 5);
}

TEST_F(DirectoryChooserTest, TheHostMayLetGoWhileItIsOpen) {
    const std::int64_t before = automation::NativeObject::liveCount();
    automation::Ref<DirectoryChooser> chooser = automation::make<DirectoryChooser>(&world_.folderBrowser);
    world_.folderBrowser.expect([&](const FolderBrowser::Shown&) -> Chosen {
        chooser.reset();
        return u"C:\\";
    });
    chooser->PopUp();
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

}  // namespace
}  // namespace quorel::dialogs
