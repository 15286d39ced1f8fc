// Drawings as files: the whole of them, with their texts, and whole files or none.

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "platform/automation/error.h"
#include "platform/ui/picture_file.h"
#include "platform/win32/ui/picture_decoder.h"
#include "platform/win32/ui/services.h"
#include "platform/win32/ui/windows_drawing_export.h"
#include "tests/platform/win32/ui/colours.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace ui::literals;
namespace fs = std::filesystem;

namespace {

constexpr ui::Size kDrawing{14'400_tw, 7200_tw};

/// A frame along the edges, a filled corner, a text, a line across.
void paint(ui::Canvas& canvas) {
    canvas.fillRectangle({0_tw, 0_tw, 14'400_tw, 7200_tw}, {250, 250, 250});
    canvas.fillRectangle({13'800_tw, 6600_tw, 600_tw, 600_tw}, kBlue);
    canvas.drawRectangle({1440_tw, 1440_tw, 2880_tw, 1440_tw}, {kRed, 30_tw});
    canvas.drawText({1500_tw, 1500_tw}, u"CustomerOrder", {.points = 9, .bold = true}, kBlack);
    canvas.drawText({1500_tw, 1900_tw}, u"amount : Currency", {.points = 8}, kBlack);
    const std::vector<ui::Point> line = {{4320_tw, 2160_tw}, {9000_tw, 5000_tw}};
    canvas.drawLines(line, {kBlue, 15_tw, true});
    const auto picture = std::make_shared<const ui::Picture>(ui::Picture{1, 1, {200, 30, 40, 128}});
    canvas.drawPicture({300_tw, 300_tw, 300_tw, 300_tw}, picture);
}

[[nodiscard]] ui::Colour pixel(const ui::Picture& picture, int x, int y) {
    const std::size_t at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                            static_cast<std::size_t>(x)) *
                           4;
    return {picture.rgba.at(at), picture.rgba.at(at + 1), picture.rgba.at(at + 2)};
}

/// What a metafile holds.
struct Records {
    ENHMETAHEADER header{};
    std::vector<std::u16string> texts;
    int blends = 0;
};

int CALLBACK collectRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM target) {
    auto& records = *reinterpret_cast<Records*>(target);
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(record);
    if (record->iType == EMR_HEADER)
        std::memcpy(&records.header, bytes, sizeof(ENHMETAHEADER));
    if (record->iType == EMR_EXTTEXTOUTW) {
        const auto& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
        records.texts.emplace_back(reinterpret_cast<const char16_t*>(bytes + text.offString), text.nChars);
    }
    records.blends += record->iType == EMR_ALPHABLEND ? 1 : 0;
    return 1;
}

}  // namespace

class DrawingExports : public WindowsTest {
  protected:
    void SetUp() override {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override {
        fs::remove_all(folder_);
        WindowsTest::TearDown();
    }
    [[nodiscard]] std::u16string file(std::u16string_view name) const { return (folder_ / name).u16string(); }
    [[nodiscard]] std::size_t fileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }
    [[nodiscard]] Records recordsOf(const std::u16string& path) const {
        Records records;
        const HENHMETAFILE metafile = ::GetEnhMetaFileW(reinterpret_cast<const wchar_t*>(path.c_str()));
        EXPECT_NE(metafile, nullptr);
        ::EnumEnhMetaFile(nullptr, metafile, collectRecord, &records, nullptr);
        ::DeleteEnhMetaFile(metafile);
        return records;
    }

    fs::path folder_ = fs::temp_directory_path() / "quorel_drawing_export";
    WindowsDrawingExport service{*desktop};
};

TEST_F(DrawingExports, APngIsTheWholeDrawing) {
    for (const int dpi : {96, 192}) {
        SCOPED_TRACE(dpi);
        EXPECT_DOUBLE_EQ(service.writePng(file(u"a.png"), kDrawing, dpi, paint), dpi);
        const auto frames = decodePicture(ui::readPictureFile(file(u"a.png")), file(u"a.png"));
        ASSERT_EQ(frames.size(), 1U);
        const ui::Picture& picture = frames.front();
        ASSERT_EQ(picture.width, 10 * dpi);
        ASSERT_EQ(picture.height, 5 * dpi);
        EXPECT_EQ(pixel(picture, 0, 0), (ui::Colour{250, 250, 250}));
        EXPECT_EQ(pixel(picture, picture.width - 1, picture.height - 1), kBlue);
        EXPECT_EQ(pixel(picture, 2 * dpi, dpi), kRed);
        EXPECT_NEAR(pixel(picture, dpi / 4, dpi / 4).green, 140, 3);
        int dark = 0;
        for (int y = dpi; y < 2 * dpi; ++y)
            for (int x = dpi; x < 3 * dpi; ++x)
                dark += pixel(picture, x, y).red < 90 ? 1 : 0;
        EXPECT_GT(dark, 40 * dpi / 96) << "texts are there";
    }
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(DrawingExports, ALargePngIsDrawnInPartsAndSmaller) {
    int parts = 0;
    const ui::Size large{1'440'000_tw, 720'000_tw};
    const double dpi = service.writePng(file(u"large.png"), large, 96, [&](ui::Canvas& canvas) {
        ++parts;
        canvas.fillRectangle({0_tw, 0_tw, 720'000_tw, 720'000_tw}, kRed);
        canvas.fillRectangle({720'000_tw, 0_tw, 720'000_tw, 719'000_tw}, kBlue);
    });
    EXPECT_NEAR(dpi, 14.142, 0.01);
    EXPECT_GT(parts, 5);
    std::ifstream stream(fs::path(file(u"large.png")), std::ios::binary);
    std::array<unsigned char, 24> head{};
    stream.read(reinterpret_cast<char*>(head.data()), head.size());
    const int width = head[16] << 24 | head[17] << 16 | head[18] << 8 | head[19];
    const int height = head[20] << 24 | head[21] << 16 | head[22] << 8 | head[23];
    EXPECT_EQ(width, 14'142);
    EXPECT_EQ(height, 7071);
}

TEST_F(DrawingExports, AMetafileKeepsTextsAndKnowsItsSize) {
    service.writeEmf(file(u"a.emf"), kDrawing, paint);
    const Records records = recordsOf(file(u"a.emf"));
    EXPECT_EQ(records.texts, (std::vector<std::u16string>{u"CustomerOrder", u"amount : Currency"}));
    EXPECT_EQ(records.blends, 1);
    EXPECT_EQ(records.header.rclFrame.right - records.header.rclFrame.left, 25'400);
    EXPECT_EQ(records.header.rclFrame.bottom - records.header.rclFrame.top, 12'700);
    const auto& bounds = records.header.rclBounds;
    const double across = records.header.szlMillimeters.cx > 0
                              ? 254.0 * records.header.szlDevice.cx / records.header.szlMillimeters.cx
                              : 0;
    EXPECT_NEAR(bounds.right - bounds.left, across, 3);
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(DrawingExports, AMetafileLooksLikeThePicture) {
    service.writeEmf(file(u"a.emf"), kDrawing, paint);
    const auto frames = decodePicture(ui::readPictureFile(file(u"a.emf")), file(u"a.emf"));
    ASSERT_FALSE(frames.empty());
    const ui::Picture& picture = frames.front();
    EXPECT_NEAR(picture.width, 960, 10);
    EXPECT_NEAR(picture.height, 480, 10);
    EXPECT_EQ(pixel(picture, picture.width - 3, picture.height - 3), kBlue);
    EXPECT_EQ(pixel(picture, picture.width / 2, picture.height - 10), (ui::Colour{250, 250, 250}));
}

TEST_F(DrawingExports, AFileThatCannotBeWrittenIsNamed) {
    const std::u16string path = file(u"no such folder/a.png");
    for (const bool isPng : {true, false}) {
        try {
            if (isPng)
                static_cast<void>(service.writePng(path, kDrawing, 96, paint));
            else
                service.writeEmf(path, kDrawing, paint);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const automation::Error& error) {
            EXPECT_EQ(error.number(), 75);
            EXPECT_NE(error.description().find(path), std::u16string::npos);
        }
    }
    EXPECT_EQ(fileCount(), 0U);
}

TEST_F(DrawingExports, WhatAPainterThrowsComesOutAndTheFileStays) {
    service.writeEmf(file(u"a.emf"), kDrawing, paint);
    const auto size = fs::file_size(folder_ / u"a.emf");
    const auto fail = [](ui::Canvas&) { throw std::runtime_error("painter"); };
    EXPECT_THROW(service.writeEmf(file(u"a.emf"), kDrawing, fail), std::runtime_error);
    EXPECT_THROW(static_cast<void>(service.writePng(file(u"a.emf"), kDrawing, 96, fail)), std::runtime_error);
    EXPECT_EQ(fs::file_size(folder_ / u"a.emf"), size);
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(DrawingExports, APageHoldsTheWholeDrawingInItsMiddle) {
    const RECT frame{0, 0, 21'000, 29'700};
    const HDC page = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    const double width = ::GetDeviceCaps(page, HORZRES), height = ::GetDeviceCaps(page, VERTRES);
    const double dpi = ::GetDeviceCaps(page, LOGPIXELSX);
    const ui::Size huge{static_cast<std::int32_t>(width * 1440 / dpi * 4),
                        static_cast<std::int32_t>(height * 1440 / dpi * 2)};
    drawOnPage(
        page, huge,
        [&](ui::Canvas& canvas) {
            canvas.fillRectangle({0_tw, 0_tw, huge.width, huge.height}, kRed);
        },
        desktop->services()->tools);
    const HENHMETAFILE done = ::CloseEnhMetaFile(page);
    Records records;
    ::EnumEnhMetaFile(nullptr, done, collectRecord, &records, nullptr);
    ::DeleteEnhMetaFile(done);
    const auto& bounds = records.header.rclBounds;
    EXPECT_NEAR(bounds.left, 0, 1);
    EXPECT_NEAR(bounds.right, width, 2);
    EXPECT_NEAR(bounds.top, height / 4, 2);
    EXPECT_NEAR(bounds.bottom, height * 3 / 4, 2);
}

}  // namespace quorel::win32::testing
