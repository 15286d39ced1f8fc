// Bytes in files, and pictures of bytes.

#include "frame/blob_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "frame/blob.h"
#include "platform/automation/error.h"
#include "tests/support/picture_bytes.h"
#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

namespace fs = std::filesystem;
using automation::Array;
using automation::Bytes;
using automation::Object;
using automation::Value;
using testing::errorNumber;

class BlobFiles : public ::testing::Test {
  protected:
    BlobFiles() { fs::create_directories(folder_); }
    ~BlobFiles() override { fs::remove_all(folder_); }

    void writeFile(const std::string& content) const { std::ofstream(file_, std::ios::binary) << content; }
    [[nodiscard]] std::string readFile() const {
        std::ifstream in(file_, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    void store(const Value& value) { blob_.call(u"StoreToFile", value, file_.u16string()); }
    [[nodiscard]] Value load() { return blob_.call(u"LoadFromFile", file_.u16string()); }
    [[nodiscard]] std::size_t filesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), {}));
    }
    [[nodiscard]] Object picture(const testing::Bytes& bytes) {
        return blob_.call(u"PictureFromBits", Bytes{bytes}).toObject();
    }

    testing::TestWorld world_;
    Object blob_ = automation::make<Blob>(&world_.pictureObjects);
    fs::path folder_ = fs::temp_directory_path() / ("quorel_blobs_" + std::to_string(std::random_device()()));
    fs::path file_ = folder_ / u"f\u00EFle.bin";
};

TEST_F(BlobFiles, AFileLoadsWithAZeroBehindIt) {
    writeFile("ab");
    EXPECT_EQ(*load().getIf<Bytes>(), (Bytes{{'a', 'b', 0}}));
    writeFile("");
    EXPECT_EQ(*load().getIf<Bytes>(), (Bytes{{0}}));
}

TEST_F(BlobFiles, StoringWhatWasLoadedWritesTheSame) {
    std::string content;
    for (const std::size_t size : {0U, 1U, 255U, 70'000U}) {
        content.resize(size, 'q');
        writeFile(content);
        const Value loaded = load();
        fs::remove(file_);
        store(loaded);
        EXPECT_EQ(readFile(), content) << size;
    }
}

TEST_F(BlobFiles, ALongerFileKeepsItsRest) {
    writeFile("0123456789");
    store(Bytes{{'a', 'b', 'c', 'x'}});
    EXPECT_EQ(readFile(), "abc3456789");
    store(Bytes{{'x'}});
    EXPECT_EQ(readFile(), "abc3456789");
    writeFile(std::string(200'000, 'o'));
    store(Bytes{{'n', 0}});
    EXPECT_EQ(readFile(), "n" + std::string(199'999, 'o'));
}

TEST_F(BlobFiles, NothingIsWrittenForWhatIsNoArray) {
    for (const Value& value : {Value(), Value::null(), Value(u"text"), Value(1), Value(blob_)})
        store(value);
    EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(BlobFiles, ArraysOfNumbersAreBytesToo) {
    store(Array{{65, u"66", 67.0, 0}, 5});
    EXPECT_EQ(readFile(), "ABC");
    EXPECT_EQ(errorNumber([&] { store(Array{{256, 0}, 0}); }), 6);
    EXPECT_EQ(errorNumber([&] { store(Array{{-1, 0}, 0}); }), 6);
    EXPECT_EQ(errorNumber([&] { store(Array{{u"x", 0}, 0}); }), 13);
    EXPECT_EQ(readFile(), "ABC");
}

TEST_F(BlobFiles, AnArrayWithoutElementsHasNoLastByteToDrop) {
    EXPECT_EQ(errorNumber([&] { store(Bytes{}); }), 9);
    EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(BlobFiles, FailuresGoToTheHostAndNameTheFile) {
    EXPECT_EQ(errorNumber([&] { static_cast<void>(load()); }), 53);
    file_ = folder_;
    EXPECT_EQ(errorNumber([&] { static_cast<void>(load()); }), 75);
    EXPECT_EQ(errorNumber([&] { store(Bytes{{1, 2}}); }), 75);
    file_ = folder_ / "none" / "file";
    EXPECT_EQ(errorNumber([&] { static_cast<void>(load()); }), 53);
    EXPECT_EQ(errorNumber([&] { store(Bytes{{1, 2}}); }), 76);
    file_ = "";
    EXPECT_EQ(errorNumber([&] { static_cast<void>(load()); }), 75);
    EXPECT_EQ(errorNumber([&] { store(Bytes{{1, 2}}); }), 75);
    EXPECT_EQ(errorNumber([&] { blob_.call(u"LoadFromFile", std::u16string(u"a\0b", 3)); }), 75);
    file_ = folder_ / "missing";
    try {
        static_cast<void>(load());
        FAIL();
    } catch (const automation::Error& error) {
        EXPECT_NE(error.description().find(file_.u16string()), std::u16string::npos);
    }
}

TEST_F(BlobFiles, NothingIsLeftBesideTheFile) {
    writeFile("old");
    store(Bytes{{'n', 'e', 'w', 'e', 'r', 0}});
    EXPECT_EQ(readFile(), "newer");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(BlobFiles, PicturesOfEveryKindByTheirContent) {
    const testing::Bytes gif = testing::gifBytes();
    const testing::Bytes jpeg = testing::jpegBytes(64, 32, 1, 2, 3);
    const testing::Bytes enhanced = testing::enhancedMetafileBytes();
    for (const testing::Bytes& bytes : {testing::pngBytes(8, 8, 1, 2, 3), testing::bmpBytes(8, 8, 1, 2, 3),
                                        testing::iconBytes(), testing::metafileBytes(), gif, jpeg, enhanced})
        EXPECT_TRUE(picture(bytes));
    EXPECT_EQ(picture(jpeg).get(u"Width").toInteger(), 64 * 2540 / 96);
    EXPECT_EQ(picture(jpeg).get(u"Height").toInteger(), 32 * 2540 / 96);
    EXPECT_EQ(picture(enhanced).get(u"Width").toInteger(), 2540);
    EXPECT_EQ(picture(gif).get(u"Width").toInteger(), 2 * 2540 / 96);
}

TEST_F(BlobFiles, TruncatedAndHostileBytesAreNoPicture) {
    const std::vector<testing::Bytes> whole{testing::pngBytes(8, 8, 1, 2, 3),
                                            testing::bmpBytes(8, 8, 1, 2, 3), testing::iconBytes(),
                                            testing::metafileBytes()};
    for (const testing::Bytes& bytes : whole)
        for (std::size_t size = 0; size < bytes.size(); ++size)
            EXPECT_FALSE(picture({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)})) << size;
    testing::Bytes large = testing::bmpBytes(8, 8, 1, 2, 3);
    testing::poke(large, 18, 16'000);
    testing::poke(large, 22, 16'000);
    EXPECT_FALSE(picture(large)) << "more pixels than there are bytes";
    testing::Bytes png = testing::pngBytes(8, 8, 1, 2, 3);
    testing::poke(png, 16, 0x0000FF7F);
    EXPECT_FALSE(picture(png)) << "2,130,706,432 pixels wide";
    EXPECT_FALSE(blob_.call(u"PictureFromBits", Value()).toObject());
    EXPECT_FALSE(blob_.call(u"PictureFromBits", Value(u"text")).toObject());
    EXPECT_FALSE(blob_.call(u"PictureFromBits", Array{{u"x"}, 0}).toObject());
}

}  // namespace
}  // namespace quorel::frame
