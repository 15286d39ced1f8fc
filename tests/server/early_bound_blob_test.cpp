// Hosts that hand arrays of bytes and texts to blobs by reference, and take pictures from them.

#include <gtest/gtest.h>
#include <olectl.h>

#include <array>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

#include "platform/win32/com/failures.h"
#include "server/QuorelUtility.h"
#include "tests/server/server_dll.h"
#include "tests/support/picture_bytes.h"

namespace quorel::server::testing {
namespace {

using quorel::testing::Bytes;
using win32::Bstr;
using win32::ComPtr;
using win32::makeBstr;
using win32::Variant;
using win32::viewOf;

constexpr HRESULT failureOf(int number) {
    return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

class EarlyBoundBlob : public ::testing::Test {
  protected:
    static void fill(Variant& variant, const Bytes& bytes) {
        SAFEARRAY* const array = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
        std::memcpy(array->pvData, bytes.data(), bytes.size());
        V_VT(variant.out()) = VT_ARRAY | VT_UI1;
        V_ARRAY(variant.get()) = array;
    }
    [[nodiscard]] std::u16string textOf(VARIANT& variant) const {
        Bstr text;
        EXPECT_EQ(blob->getAsString(&variant, text.out()), S_OK);
        return std::u16string(viewOf(text.get()));
    }
    HRESULT set(VARIANT& variant, std::u16string_view text) const {
        Bstr given = makeBstr(text);
        BSTR variable = given.get();
        Variant nothing;
        const HRESULT status = blob->setAsString(&variant, &variable, nothing.out());
        EXPECT_EQ(variable, given.get()) << "the text is only read";
        return status;
    }
    [[nodiscard]] ComPtr<IPicture> picture(const Bytes& bytes) const {
        Variant variant;
        fill(variant, bytes);
        ComPtr<IPictureDisp> result;
        EXPECT_EQ(blob->PictureFromBits(variant.get(), result.out()), S_OK);
        return result.as<IPicture>();
    }

    ServerDll dll;
    ComPtr<IBlob> blob = dll.create<IBlob>(__uuidof(::Blob));
};

TEST_F(EarlyBoundBlob, BytesInAVariantAreTextAndBack) {
    Variant variant;
    fill(variant, {0x00, 0x0F, 0xA0});
    EXPECT_EQ(textOf(*variant), u"000FA0");
    EXPECT_EQ(set(*variant, u"FF"), S_OK);
    EXPECT_EQ(V_VT(variant.get()), VT_ARRAY | VT_UI1);
    EXPECT_EQ(textOf(*variant), u"FF");
    EXPECT_EQ(set(*variant, u"123"), failureOf(9));
    EXPECT_EQ(textOf(*variant), u"FF");
}

TEST_F(EarlyBoundBlob, AVariableOfBytesByReferenceIsReplaced) {
    SAFEARRAY* array = ::SafeArrayCreateVector(VT_UI1, 0, 2);
    VARIANT reference{};
    V_VT(&reference) = VT_BYREF | VT_ARRAY | VT_UI1;
    V_ARRAYREF(&reference) = &array;
    EXPECT_EQ(textOf(reference), u"0000");
    EXPECT_EQ(set(reference, u"010203"), S_OK);
    EXPECT_EQ(V_VT(&reference), VT_BYREF | VT_ARRAY | VT_UI1);
    EXPECT_EQ(textOf(reference), u"010203");
    ::SafeArrayLock(array);
    EXPECT_EQ(set(reference, u"FF"), failureOf(10));
    ::SafeArrayUnlock(array);
    EXPECT_EQ(textOf(reference), u"010203");
    ::SafeArrayDestroy(array);
}

TEST_F(EarlyBoundBlob, AVariantByReferenceIsReplaced) {
    Variant inner;
    VARIANT reference{};
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = inner.get();
    EXPECT_EQ(set(reference, u"0A"), S_OK);
    EXPECT_EQ(V_VT(inner.get()), VT_ARRAY | VT_UI1);
    EXPECT_EQ(textOf(*inner), u"0A");
}

TEST_F(EarlyBoundBlob, ArraysOfNumbersAreEnumerated) {
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_I4, 0, 2);
    static_cast<LONG*>(array->pvData)[0] = 10;
    static_cast<LONG*>(array->pvData)[1] = 300;
    Variant variant;
    V_VT(variant.out()) = VT_ARRAY | VT_I4;
    V_ARRAY(variant.get()) = array;
    EXPECT_EQ(textOf(*variant), u"0A12");
}

TEST_F(EarlyBoundBlob, DecPutsTheVariableInUpperCaseEvenIfItFails) {
    BSTR text = makeBstr(u"ff").release();
    LONG number = 0;
    EXPECT_EQ(blob->Dec(&text, &number), S_OK);
    EXPECT_EQ(number, 255);
    EXPECT_EQ(viewOf(text), u"FF");
    ::SysFreeString(text);
    text = makeBstr(u"80000000a").release();
    EXPECT_EQ(blob->Dec(&text, &number), failureOf(6));
    EXPECT_EQ(viewOf(text), u"80000000A");
    ::SysFreeString(text);
}

TEST_F(EarlyBoundBlob, PicturesOfEveryKindAreThePlatforms) {
    using namespace quorel::testing;
    const std::vector<std::pair<Bytes, SHORT>> kinds{{bmpBytes(9, 9, 1, 2, 3), PICTYPE_BITMAP},
                                                     {pngBytes(9, 9, 200, 2, 3), PICTYPE_BITMAP},
                                                     {jpegBytes(9, 9, 1, 2, 3), PICTYPE_BITMAP},
                                                     {gifBytes(), PICTYPE_BITMAP},
                                                     {iconBytes(), PICTYPE_ICON},
                                                     {metafileBytes(), PICTYPE_METAFILE},
                                                     {enhancedMetafileBytes(), PICTYPE_ENHMETAFILE}};
    for (const auto& [bytes, kind] : kinds) {
        const ComPtr<IPicture> made = picture(bytes);
        ASSERT_TRUE(made) << kind;
        SHORT type = PICTYPE_UNINITIALIZED;
        EXPECT_EQ(made->get_Type(&type), S_OK);
        EXPECT_EQ(type, kind);
        OLE_XSIZE_HIMETRIC width = 0;
        EXPECT_EQ(made->get_Width(&width), S_OK);
        EXPECT_GT(width, 0);
    }
}

/// Blue, green and red of a pixel, as the platform gives them from the picture's bitmap.
std::array<int, 3> pixelOf(const ComPtr<IPicture>& picture, int x, int y) {
    OLE_HANDLE handle = 0;
    EXPECT_EQ(picture->get_Handle(&handle), S_OK);
    const HDC screen = ::GetDC(nullptr);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 16, -16, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::array<std::uint8_t, 16 * 16 * 4> pixels{};
    EXPECT_EQ(::GetDIBits(screen, reinterpret_cast<HBITMAP>(static_cast<std::uintptr_t>(handle)), 0, 16,
                          pixels.data(), &info, DIB_RGB_COLORS),
              16);
    ::ReleaseDC(nullptr, screen);
    const auto* const at = &pixels[static_cast<std::size_t>(y * 16 + x) * 4];
    return {at[0], at[1], at[2]};
}

TEST_F(EarlyBoundBlob, PixelsAreInThePicture) {
    using namespace quorel::testing;
    for (const Bytes& bytes :
         {pngBytes(16, 16, 200, 100, 50), bmpBytes(16, 16, 200, 100, 50), jpegBytes(16, 16, 200, 100, 50)}) {
        const ComPtr<IPicture> made = picture(bytes);
        ASSERT_TRUE(made);
        for (const int place : {0, 7, 15}) {
            const auto pixel = pixelOf(made, place, place);
            EXPECT_NEAR(pixel[0], 50, 4);
            EXPECT_NEAR(pixel[1], 100, 4);
            EXPECT_NEAR(pixel[2], 200, 4);
        }
    }
}

TEST_F(EarlyBoundBlob, DamagedBytesGiveAPictureOrNothing) {
    std::mt19937 random(7);
    for (const Bytes& whole :
         {quorel::testing::bmpBytes(9, 9, 1, 2, 3), quorel::testing::pngBytes(9, 9, 1, 2, 3),
          quorel::testing::iconBytes(), quorel::testing::metafileBytes()})
        for (int round = 0; round < 300; ++round) {
            Bytes bytes = whole;
            for (int change = 0; change < 3; ++change)
                bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
            if (round % 3 == 0)
                bytes.resize(random() % bytes.size());
            static_cast<void>(picture(bytes));
        }
    EXPECT_FALSE(picture({}));
    EXPECT_FALSE(picture({'n', 'o'}));
}

TEST_F(EarlyBoundBlob, AMegabyteTakesItsWayAsAProperty) {
    Bytes bytes(1U << 20U);
    std::mt19937 random(3);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    Variant variant, back;
    fill(variant, bytes);
    const std::u16string text = textOf(*variant);
    EXPECT_EQ(text.size(), bytes.size() * 2);
    EXPECT_EQ(set(*back, text), S_OK);
    EXPECT_EQ(std::memcmp(V_ARRAY(back.get())->pvData, bytes.data(), bytes.size()), 0);
}

}  // namespace
}  // namespace quorel::server::testing
