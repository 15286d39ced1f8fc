// Pictures from files, by the system's decoders.

#include <array>
#include <string>

#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "platform/win32/ui/live_counts.h"
#include "tests/platform/win32/ui/windows_fixture.h"
#include "tests/support/picture_bytes.h"

namespace quorel::win32::testing {

using namespace quorel::testing;

namespace {

using Pixel = std::array<std::uint8_t, 4>;

[[nodiscard]] Pixel pixelOf(const ui::Picture& picture, std::int32_t x, std::int32_t y) {
    const auto* const at = &picture.rgba[static_cast<std::size_t>(y * picture.width + x) * 4];
    return {at[0], at[1], at[2], at[3]};
}

/// The system's own metafile: a green disc in a square of an inch.
[[nodiscard]] Bytes enhancedDisc() {
    const RECT frame{0, 0, 2540, 2540};
    const HDC dc = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    const HBRUSH brush = ::CreateSolidBrush(RGB(0, 200, 0));
    const HGDIOBJ before = ::SelectObject(dc, brush);
    const HGDIOBJ pen = ::SelectObject(dc, ::GetStockObject(NULL_PEN));
    const HDC screen = ::GetDC(nullptr);
    const int side =
        ::MulDiv(::GetDeviceCaps(screen, HORZRES) * 254, 1, ::GetDeviceCaps(screen, HORZSIZE) * 10);
    ::ReleaseDC(nullptr, screen);
    ::Ellipse(dc, 0, 0, side, side);
    ::SelectObject(dc, before);
    ::SelectObject(dc, pen);
    ::DeleteObject(brush);
    const HENHMETAFILE file = ::CloseEnhMetaFile(dc);
    Bytes bytes(::GetEnhMetaFileBits(file, 0, nullptr));
    ::GetEnhMetaFileBits(file, static_cast<UINT>(bytes.size()), bytes.data());
    ::DeleteEnhMetaFile(file);
    return bytes;
}

class PictureFiles : public ::testing::Test {
  protected:
    [[nodiscard]] std::vector<ui::Picture> load(std::string_view name, const Bytes& bytes) {
        const PictureOnDisk file(name, bytes);
        return desktop.loadPicture(file.path());
    }
    [[nodiscard]] std::string refusal(std::string_view name, const Bytes& bytes) {
        try {
            static_cast<void>(load(name, bytes));
            return "";
        } catch (const automation::Error& error) {
            return automation::toUtf8(error.description());
        }
    }
    WindowsDesktop desktop{::GetModuleHandleW(nullptr)};
};

}  // namespace

TEST_F(PictureFiles, BitmapsAndPngsAreShownAsTheyAre) {
    const auto bmp = load("quorel-test.bmp", bmpBytes(7, 5, 10, 20, 30));
    ASSERT_EQ(bmp.size(), 1U);
    EXPECT_EQ(bmp[0].width, 7);
    EXPECT_EQ(bmp[0].height, 5);
    EXPECT_EQ(pixelOf(bmp[0], 3, 3), (Pixel{10, 20, 30, 255}));
    const auto png = load("quorel-test.png", pngBytes(20, 10, 200, 100, 50));
    ASSERT_EQ(png.size(), 1U);
    EXPECT_EQ(png[0].width, 20);
    EXPECT_EQ(pixelOf(png[0], 19, 9), (Pixel{200, 100, 50, 255}));
}

TEST_F(PictureFiles, JpegsAndGifsAreShownAsTheyAre) {
    const auto jpeg = load("quorel-test.jpg", jpegBytes(37, 21, 200, 100, 50));
    ASSERT_EQ(jpeg.size(), 1U);
    EXPECT_EQ(jpeg[0].width, 37);
    EXPECT_EQ(jpeg[0].height, 21);
    for (const auto& [x, y] : {std::pair{0, 0}, {18, 10}, {36, 20}}) {
        const Pixel pixel = pixelOf(jpeg[0], x, y);
        EXPECT_NEAR(pixel[0], 200, 4);
        EXPECT_NEAR(pixel[1], 100, 4);
        EXPECT_NEAR(pixel[2], 50, 4);
        EXPECT_EQ(pixel[3], 255);
    }
    const auto gif = load("quorel-test.gif", gifBytes());
    ASSERT_EQ(gif.size(), 1U);
    EXPECT_EQ(gif[0].width, 2);
    EXPECT_EQ(pixelOf(gif[0], 0, 0), (Pixel{0, 0, 0, 255}));
    EXPECT_EQ(pixelOf(gif[0], 1, 0), (Pixel{255, 255, 255, 255}));
}

TEST_F(PictureFiles, AnIconBringsAllItsSizes) {
    const auto icon = load("quorel-test.ico", iconBytes());
    ASSERT_EQ(icon.size(), 2U);
    EXPECT_EQ(icon[0].width, 16);
    EXPECT_EQ(pixelOf(icon[0], 8, 8), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(icon[1].width, 32);
    EXPECT_EQ(pixelOf(icon[1], 16, 16), (Pixel{0, 255, 0, 255}));
}

TEST_F(PictureFiles, MetafilesAreDrawnOnNothing) {
    const auto old = load("quorel-test.wmf", metafileBytes());
    ASSERT_EQ(old.size(), 2U);
    EXPECT_EQ(old[0].width, 48);
    EXPECT_EQ(old[1].width, 96);
    for (const ui::Picture& drawn : old) {
        EXPECT_EQ(pixelOf(drawn, drawn.width / 4, drawn.height / 2), (Pixel{255, 0, 0, 255}));
        EXPECT_EQ(pixelOf(drawn, drawn.width * 3 / 4, drawn.height / 2), (Pixel{0, 0, 0, 0}));
    }
    const auto disc = load("quorel-test.emf", enhancedDisc());
    ASSERT_EQ(disc.size(), 2U);
    EXPECT_EQ(disc[0].width, 96);
    EXPECT_EQ(pixelOf(disc[0], 48, 48), (Pixel{0, 200, 0, 255}));
    EXPECT_EQ(pixelOf(disc[1], 1, 1), (Pixel{0, 0, 0, 0}));
    const auto square = load("quorel-test.emf", enhancedMetafileBytes());
    ASSERT_EQ(square.size(), 2U);
    EXPECT_EQ(square[0].width, 96);
    EXPECT_EQ(pixelOf(square[0], 48, 48), (Pixel{0, 255, 0, 255}));
}

TEST_F(PictureFiles, AFileThatIsDamagedInsideIsNamed) {
    Bytes png = pngBytes(20, 10, 200, 100, 50);
    for (std::size_t i = 41; i < 60; ++i)
        png[i] = 0xFF;
    EXPECT_NE(refusal("quorel-damaged.png", png).find("quorel-damaged.png (the file is damaged)"),
              std::string::npos);
    Bytes torn = iconBytes();
    torn.resize(torn.size() - 60);
    EXPECT_NE(refusal("quorel-torn.ico", torn).find("quorel-torn.ico (the file is damaged)"),
              std::string::npos);
}

TEST_F(PictureFiles, NothingIsLeftBehind) {
    const LiveCounts before = liveCounts();
    static_cast<void>(load("quorel-test.wmf", metafileBytes()));
    static_cast<void>(load("quorel-test.ico", iconBytes()));
    EXPECT_EQ(liveCounts(), before);
}

}  // namespace quorel::win32::testing
