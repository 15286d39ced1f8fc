#include "platform/ui/picture_file.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "platform/headless/headless_desktop.h"
#include "tests/support/picture_bytes.h"

namespace quorel::ui {

using namespace quorel::testing;

namespace {

constexpr const char16_t* kPath = u"C:\\pictures\\Node.any";

/// The number and the description of the error; "" if it was read.
template <class Action>
[[nodiscard]] std::string refusal(Action&& action) {
    try {
        action();
        return "";
    } catch (const automation::Error& error) {
        return std::to_string(error.number()) + " " + automation::toUtf8(error.description());
    }
}

[[nodiscard]] std::string refusal(Bytes bytes) {
    return refusal([&] { static_cast<void>(checkPictureFile(std::move(bytes), kPath)); });
}

const std::string kDamaged = "481 Invalid picture: C:\\pictures\\Node.any (the file is damaged)";
const std::string kTooLarge = "481 Invalid picture: C:\\pictures\\Node.any (the picture is too large)";
const std::string kEmpty = "481 Invalid picture: C:\\pictures\\Node.any (the picture is empty)";
const std::string kUnknown = "481 Invalid picture: C:\\pictures\\Node.any (the file is of no known kind)";

/// A header, a record and the end; one inch by half an inch.
[[nodiscard]] Bytes enhancedMetafile() {
    Bytes bytes(88 + 20);
    poke(bytes, 0, 1);
    poke(bytes, 4, 88);
    poke(bytes, 32, 2540);
    poke(bytes, 36, 1270);
    poke(bytes, 40, 0x464D4520);
    poke(bytes, 48, 108);
    poke(bytes, 88, 14);
    poke(bytes, 92, 20);
    return bytes;
}

}  // namespace

TEST(PictureFile, IsToldByItsContent) {
    const PictureFile png = checkPictureFile(pngBytes(20, 10, 1, 2, 3), kPath);
    EXPECT_EQ(png.kind, PictureKind::Png);
    EXPECT_EQ(png.frames, (std::vector<PixelSize>{{20, 10}}));
    const PictureFile bmp = checkPictureFile(bmpBytes(7, 5, 1, 2, 3), kPath);
    EXPECT_EQ(bmp.kind, PictureKind::Bitmap);
    EXPECT_EQ(bmp.frames, (std::vector<PixelSize>{{7, 5}}));
    const PictureFile icon = checkPictureFile(iconBytes(), kPath);
    EXPECT_EQ(icon.kind, PictureKind::Icon);
    EXPECT_EQ(icon.frames, (std::vector<PixelSize>{{16, 16}, {32, 32}}));
    const PictureFile old = checkPictureFile(metafileBytes(), kPath);
    EXPECT_EQ(old.kind, PictureKind::Metafile);
    EXPECT_EQ(old.frames, (std::vector<PixelSize>{{48, 32}}));
    const PictureFile enhanced = checkPictureFile(enhancedMetafile(), kPath);
    EXPECT_EQ(enhanced.kind, PictureKind::EnhancedMetafile);
    EXPECT_EQ(enhanced.frames, (std::vector<PixelSize>{{96, 48}}));
}

TEST(PictureFile, NoShorterOneIsSound) {
    for (const Bytes& whole : {pngBytes(20, 10, 1, 2, 3), bmpBytes(7, 5, 1, 2, 3), iconBytes(),
                               metafileBytes(), enhancedMetafile()}) {
        ASSERT_EQ(refusal(whole), "");
        for (std::size_t length = 0; length + 20 < whole.size(); ++length) {
            const Bytes torn(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            EXPECT_NE(refusal(torn), "") << length << " of " << whole.size();
        }
    }
}

TEST(PictureFile, NoByteOfItIsBelieved) {
    for (const Bytes& whole : {pngBytes(20, 10, 1, 2, 3), bmpBytes(7, 5, 1, 2, 3), iconBytes(),
                               metafileBytes(), enhancedMetafile()})
        for (std::size_t at = 0; at < std::min<std::size_t>(whole.size(), 300); ++at)
            for (const std::uint8_t value : {0, 1, 0x7F, 0x80, 0xFF}) {
                Bytes changed = whole;
                changed[at] = value;
                const std::string said = refusal(changed);
                EXPECT_TRUE(said.empty() || said.rfind("481 Invalid picture: ", 0) == 0) << said;
            }
}

TEST(PictureFile, MorePixelsThanStatedAreRefused) {
    Bytes png = pngBytes(20, 10, 1, 2, 3);
    const auto told = [&png](std::uint32_t width, std::uint32_t height) {
        Bytes changed = png;
        for (std::size_t i = 0; i < 4; ++i) {
            changed[16 + i] = static_cast<std::uint8_t>(width >> (24 - 8 * i));
            changed[20 + i] = static_cast<std::uint8_t>(height >> (24 - 8 * i));
        }
        return refusal(std::move(changed));
    };
    EXPECT_EQ(told(8000, 8000), "");
    EXPECT_EQ(told(8001, 8000), kTooLarge);
    EXPECT_EQ(told(16384, 1), "");
    EXPECT_EQ(told(16385, 1), kTooLarge);
    EXPECT_EQ(told(0xFFFFFFFF, 0xFFFFFFFF), kTooLarge);
    EXPECT_EQ(told(0, 10), kEmpty);
}

TEST(PictureFile, ABitmapHasBytesForItsPixels) {
    Bytes bytes = bmpBytes(7, 5, 1, 2, 3);
    poke(bytes, 18, 8);
    EXPECT_EQ(refusal(bytes), kDamaged);
    poke(bytes, 18, 0x7FFFFFFF);
    EXPECT_EQ(refusal(bytes), kTooLarge);
    poke(bytes, 18, 0x80000000);
    EXPECT_EQ(refusal(bytes), kEmpty);
    bytes = bmpBytes(7, 5, 1, 2, 3);
    poke(bytes, 22, static_cast<std::uint32_t>(-5));
    EXPECT_EQ(refusal(bytes), "");
    poke(bytes, 22, 0x80000000);
    EXPECT_EQ(refusal(bytes), kTooLarge);
    bytes = bmpBytes(7, 5, 1, 2, 3);
    poke(bytes, 10, 0xFFFFFFF0);
    EXPECT_EQ(refusal(bytes), kDamaged);
}

TEST(PictureFile, AnIconPointsNowhereElse) {
    for (const std::size_t at : {std::size_t{14}, std::size_t{18}, std::size_t{30}, std::size_t{34}}) {
        Bytes bytes = iconBytes();
        poke(bytes, at, 0xFFFFFFFF);
        EXPECT_EQ(refusal(bytes), kDamaged) << at;
    }
    Bytes none = iconBytes();
    none[4] = 0;
    EXPECT_EQ(refusal(none), kDamaged);
}

TEST(PictureFile, RecordsOfMetafilesEnd) {
    Bytes old = metafileBytes();
    poke(old, 40, 0);
    EXPECT_EQ(refusal(old), kDamaged);
    poke(old, 40, 0x80000000);
    EXPECT_EQ(refusal(old), kDamaged);
    old = metafileBytes();
    old[14] = old[15] = 0;
    EXPECT_EQ(refusal(old), kDamaged);
    Bytes enhanced = enhancedMetafile();
    poke(enhanced, 4, 0);
    EXPECT_EQ(refusal(enhanced), kDamaged);
    enhanced = enhancedMetafile();
    poke(enhanced, 32, 0x7FFFFFFF);
    EXPECT_EQ(refusal(enhanced), kTooLarge);
    poke(enhanced, 32, 0x80000000);
    EXPECT_EQ(refusal(enhanced), kEmpty);
}

TEST(PictureFile, WhatIsNoPictureIsRefused) {
    EXPECT_EQ(refusal(Bytes{}), kUnknown);
    EXPECT_EQ(refusal(Bytes{'G', 'I', 'F', '8'}), kUnknown);
    EXPECT_EQ(refusal(Bytes(100'000)), kUnknown);
}

TEST(PictureFile, AFileThatIsNotThereIsNamed) {
    const auto read = [](std::u16string_view path) {
        return refusal([&] { static_cast<void>(readPictureFile(path)); });
    };
    EXPECT_EQ(read(u"/nowhere/Node.ico"), "53 File not found: /nowhere/Node.ico");
    EXPECT_EQ(read(u""), "53 File not found: ");
    EXPECT_EQ(read(u"/dev/zero"), "53 File not found: /dev/zero");
    const std::u16string folder = std::filesystem::temp_directory_path().u16string();
    EXPECT_EQ(read(folder), "53 File not found: " + automation::toUtf8(folder));
    EXPECT_EQ(read(std::u16string_view(u"a\0b", 3)).substr(0, 17), "53 File not found");
}

TEST(PictureFile, AHeadlessDesktopChecksFilesAndAnswersWhatItWasTold) {
    headless::HeadlessDesktop desktop;
    const PictureOnDisk icon("quorel-picture-file-test-\xC3\xBC.ico", iconBytes());
    const std::vector<Picture> frames = desktop.loadPicture(icon.path());
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[1].width, 32);
    EXPECT_TRUE(isWhole(frames[0]));
    desktop.setPicture(u"Z:\\Big.wmf", {Picture{1, 1, {1, 2, 3, 4}}});
    EXPECT_EQ(desktop.loadPicture(u"Z:\\Big.wmf").at(0).rgba[2], 3);
    EXPECT_EQ(refusal([&] { static_cast<void>(desktop.loadPicture(u"/no.png")); }),
              "53 File not found: /no.png");
}

}  // namespace quorel::ui
