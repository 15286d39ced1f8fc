#include "diagram/svg_canvas.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "diagram/clean_text.h"
#include "diagram/png_writer.h"
#include "platform/automation/text.h"

namespace quorel::diagram {

using ui::Colour;
using ui::Point;
using ui::Rect;

namespace {

constexpr std::int32_t kTwipsPerPoint = 20, kTwipsPerPixel = 15;
/// Where the line lies on which letters stand, in hundredths of a text's height; that of common fonts.
constexpr std::int32_t kBaseline = 78;

template <class Number, class... Format>
void appendNumber(std::string& to, Number number, Format... format) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, format...).ptr;
    to.append(digits.data(), end);
}

/// With three digits behind the point.
void appendFraction(std::string& to, double number) {
    appendNumber(to, number, std::chars_format::fixed, 3);
}

[[nodiscard]] std::string escaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char each : text) {
        switch (each) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += each;
        }
    }
    return out;
}

[[nodiscard]] std::string base64(const std::vector<std::uint8_t>& bytes) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t three = 0;
        for (std::size_t each = 0; each < 3; ++each)
            three = three << 8 | (each < count ? bytes[at + each] : 0U);
        for (std::size_t digit = 0; digit < 4; ++digit)
            out += digit <= count ? kDigits[three >> (18 - 6 * digit) & 63] : '=';
    }
    return out;
}

/// With a family behind it for where there is no such font.
[[nodiscard]] std::string families(const ui::Font& font) {
    std::u16string name = cleanText(font.family);
    std::erase_if(name, [](char16_t unit) { return unit == u'\'' || unit == u'\\'; });
    if (name.empty())
        return "'Segoe UI',sans-serif";
    const std::u16string folded = automation::foldCase(name);
    const auto has = [&](std::u16string_view part) {
        return folded.find(automation::foldCase(part)) != std::u16string::npos;
    };
    const bool even = has(u"courier") || has(u"mono") || has(u"consol");
    std::string list(1, '\'');
    return list.append(automation::toUtf8(name)).append(even ? "',monospace" : "',sans-serif");
}

/// XML lets go of blanks otherwise.
[[nodiscard]] bool hasNeedfulBlanks(std::u16string_view text) noexcept {
    return text.starts_with(u' ') || text.ends_with(u' ') || text.find(u"  ") != std::u16string_view::npos;
}

}  // namespace

SvgCanvas::SvgCanvas(ui::Size size, Measure measure) : size_(size), measure_(std::move(measure)) {}

void SvgCanvas::write(std::int64_t number) {
    appendNumber(content_, number);
}

void SvgCanvas::attribute(std::string_view name, std::string_view text) {
    content_.append(" ").append(name).append("=\"").append(text).append("\"");
}

void SvgCanvas::attribute(std::string_view name, std::int64_t number) {
    content_.append(" ").append(name).append("=\"");
    write(number);
    content_ += '"';
}

void SvgCanvas::attribute(std::string_view name, Colour colour) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const std::uint8_t part : {colour.red, colour.green, colour.blue})
        text.append({kDigits[part >> 4], kDigits[part & 15]});
    attribute(name, text);
}

void SvgCanvas::place(const Rect& rect) {
    attribute("x", rect.left.value);
    attribute("y", rect.top.value);
    attribute("width", rect.width.value);
    attribute("height", rect.height.value);
}

void SvgCanvas::points(std::span<const Point> points) {
    write(" points=\"");
    bool first = true;
    for (const Point& point : points) {
        if (!std::exchange(first, false))
            write(" ");
        write(std::int64_t{point.x.value});
        write(",");
        write(std::int64_t{point.y.value});
    }
    write("\"");
}

void SvgCanvas::stroke(const ui::Pen& pen) {
    attribute("stroke", pen.colour);
    if (pen.width.value > 0)
        attribute("stroke-width", pen.width.value);
    else
        write(" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"");
    if (pen.dashed)
        write(" stroke-dasharray=\"60 45\"");
}

void SvgCanvas::endView() {
    if (std::exchange(hasView_, false))
        write("</svg>\n");
}

void SvgCanvas::setView(const ui::CanvasView& view) {
    endView();
    hasView_ = true;
    const double scale = view.scale > 0 ? view.scale : 1;
    write("<svg");
    place(view.clip);
    write(" viewBox=\"");
    write(std::int64_t{view.origin.x.value});
    write(" ");
    write(std::int64_t{view.origin.y.value});
    for (const ui::Twips length : {view.clip.width, view.clip.height}) {
        write(" ");
        appendFraction(content_, length.value / scale);
    }
    write("\" preserveAspectRatio=\"none\">\n");
}

void SvgCanvas::fillRectangle(const Rect& rect, Colour colour) {
    write("<rect");
    place(rect);
    attribute("fill", colour);
    write("/>\n");
}

void SvgCanvas::drawRectangle(const Rect& rect, const ui::Pen& pen) {
    write("<rect");
    place(rect);
    attribute("fill", "none");
    stroke(pen);
    write("/>\n");
}

void SvgCanvas::drawLines(std::span<const Point> line, const ui::Pen& pen) {
    write("<polyline");
    points(line);
    attribute("fill", "none");
    stroke(pen);
    write("/>\n");
}

void SvgCanvas::drawPolygon(std::span<const Point> corners, Colour fill, const ui::Pen& outline) {
    write("<polygon");
    points(corners);
    attribute("fill", fill);
    stroke(outline);
    attribute("stroke-linejoin", "round");
    write("/>\n");
}

void SvgCanvas::drawText(Point corner, std::u16string_view line, const ui::Font& font, Colour colour) {
    if (line.empty())
        return;
    const ui::Size size = measure_(line, font);
    write("<text");
    attribute("x", corner.x.value);
    attribute("y", corner.y.value + std::int64_t{size.height.value} * kBaseline / 100);
    attribute("font-family", escaped(families(font)));
    attribute("font-size", std::int64_t{pointsOf(font)} * kTwipsPerPoint);
    if (font.bold)
        attribute("font-weight", "bold");
    if (size.width.value > 0) {
        attribute("textLength", size.width.value);
        attribute("lengthAdjust", "spacingAndGlyphs");
    }
    attribute("fill", colour);
    if (hasNeedfulBlanks(line))
        attribute("xml:space", "preserve");
    write(">");
    write(escaped(automation::toUtf8(cleanText(line))));
    write("</text>\n");
}

std::size_t SvgCanvas::numberOf(const std::shared_ptr<const ui::Picture>& picture) {
    const auto known = std::find(pictures_.begin(), pictures_.end(), picture);
    if (known == pictures_.end()) {
        pictures_.push_back(picture);
        return pictures_.size() - 1;
    }
    return static_cast<std::size_t>(known - pictures_.begin());
}

void SvgCanvas::drawPicture(const Rect& rect, const std::shared_ptr<const ui::Picture>& picture) {
    if (!picture || !ui::isWhole(*picture) || picture->rgba.empty())
        return;
    write("<use href=\"#picture");
    write(static_cast<std::int64_t>(numberOf(picture)));
    write("\"");
    place(rect);
    write("/>\n");
}

std::string SvgCanvas::finish() {
    endView();
    const std::string drawn = std::exchange(content_, {});
    write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"");
    appendFraction(content_, static_cast<double>(size_.width.value) / kTwipsPerPixel);
    write("\" height=\"");
    appendFraction(content_, static_cast<double>(size_.height.value) / kTwipsPerPixel);
    write("\" viewBox=\"0 0 ");
    write(std::int64_t{size_.width.value});
    write(" ");
    write(std::int64_t{size_.height.value});
    write("\">\n");
    for (std::size_t number = 0; number < pictures_.size(); ++number) {
        const ui::Picture& picture = *pictures_[number];
        write("<symbol id=\"picture");
        write(static_cast<std::int64_t>(number));
        write("\" viewBox=\"0 0 ");
        write(std::int64_t{picture.width});
        write(" ");
        write(std::int64_t{picture.height});
        write("\" preserveAspectRatio=\"none\"><image");
        attribute("width", picture.width);
        attribute("height", picture.height);
        write(" href=\"data:image/png;base64,");
        write(base64(pngFile(picture)));
        write("\"/></symbol>\n");
    }
    return std::exchange(content_, {}) + drawn + "</svg>\n";
}

}  // namespace quorel::diagram
