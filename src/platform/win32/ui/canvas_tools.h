#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/ui/font.h"
#include "platform/ui/picture.h"
#include "platform/ui/units.h"
#include "platform/win32/ui/drawing_tools.h"

namespace quorel::win32 {

/// What canvases keep from one painting to the next: fonts at the sizes in which they are drawn, pictures
/// too. Not shared by threads.
class CanvasTools {
  public:
    explicit CanvasTools(DrawingTools& tools) : tools_(tools) {}
    CanvasTools(const CanvasTools&) = delete;
    CanvasTools& operator=(const CanvasTools&) = delete;

    /// One line from its left top corner on, so wide and high as the desktop's `textSize` says, times
    /// `unitsPerTwip`: characters that are rounded to other widths at that size are moved together or apart.
    /// Nothing when it would be too small to be seen. Only what is inside `clip` is drawn, if there is one.
    void drawText(HDC dc, POINT at, std::u16string_view line, const ui::Font& font, double unitsPerTwip,
                  ui::Colour colour, const RECT* clip);

    /// The picture in that size, smoothly; empty when it has none.
    [[nodiscard]] const ui::Picture& sized(const std::shared_ptr<const ui::Picture>& picture,
                                           std::int32_t width, std::int32_t height);

  private:
    static constexpr char16_t kFirstKnown = u' ', kAfterKnown = u'\u0590';

    /// A font as it is measured.
    struct Measured {
        LOGFONTW font{};
        std::int32_t dpi = 96;
        std::array<INT, kAfterKnown - kFirstKnown> widths{};
    };
    struct SizedPicture {
        std::shared_ptr<const ui::Picture> original;
        ui::Picture picture;
    };
    [[nodiscard]] const Measured& measured(const ui::Font& font);
    [[nodiscard]] HFONT fontAt(const Measured& measured, int height);
    /// How far apart the characters are to be; empty when the system shall decide.
    [[nodiscard]] const std::vector<INT>& distances(const Measured& measured, std::u16string_view line,
                                                    double ratio);

    DrawingTools& tools_;
    std::map<std::tuple<std::u16string, std::int32_t, bool>, Measured> measured_;
    std::map<std::pair<const Measured*, int>, CountedFont> fonts_;
    std::map<std::tuple<const ui::Picture*, std::int32_t, std::int32_t>, SizedPicture> pictures_;
    std::vector<INT> distances_;
};

}  // namespace quorel::win32
