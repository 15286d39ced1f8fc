#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/ui/canvas.h"
#include "platform/ui/units.h"

namespace quorel::ui {

class Form;

/// Puts a whole drawing into a file or onto paper, with or without a screen. The canvas that a painter is
/// given begins with the view of the whole drawing at its own size, from its point 0, 0 on; it may be called
/// several times, for parts of a large drawing, and has to draw the same each time. Files are replaced as a
/// whole; when that fails they are as they were, and an automation::Error with the path in its description is
/// thrown. What a painter throws goes on to the caller.
class DrawingExport {
  public:
    using Painter = std::function<void(Canvas&)>;

    /// A picture has no more pixels than these; what is larger is drawn smaller.
    static constexpr std::int64_t kMostPixels = 100'000'000;
    static constexpr std::int32_t kMostPixelsASide = 32'000;

    virtual ~DrawingExport() = default;

    /// On white. Answers the dots per inch that it was drawn with: `dpi`, or fewer when the picture would
    /// have had too many pixels.
    virtual double writePng(std::u16string_view path, Size drawing, std::int32_t dpi,
                            const Painter& painter) = 0;
    /// An enhanced metafile, in which texts are texts.
    virtual void writeEmf(std::u16string_view path, Size drawing, const Painter& painter) = 0;
    /// Lets the user choose a printer, then prints on one page, upright or across as fits better, no larger
    /// than the drawing is. False when the user cancels. `owner` takes no input meanwhile; may be null.
    [[nodiscard]] virtual bool print(std::u16string_view title, Size drawing, const Painter& painter,
                                     Form* owner) = 0;
};

/// The dots per inch, at most `dpi`, with which a drawing is no more than `kMostPixels`.
[[nodiscard]] double exportResolution(Size drawing, std::int32_t dpi) noexcept;

}  // namespace quorel::ui
