#include "platform/ui/plain_controls.h"

#include <algorithm>

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"

namespace quorel::ui {

namespace {

constexpr Twips kGlyphSide{240};
constexpr Twips kGlyphBorder{30};
constexpr std::int32_t kPictureDpi = 96;

}  // namespace

void Label::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Label::setFont(const Font& font) {
    if (font_ == font)
        return;
    font_ = font;
    changed(Change::Style);
}

void Line::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Line::setColour(std::optional<Colour> colour) {
    if (colour_ == colour)
        return;
    colour_ = colour;
    changed(Change::Colours);
}

void TextBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void TextBox::setReadOnly(bool readOnly) {
    if (readOnly_ == readOnly)
        return;
    readOnly_ = readOnly;
    changed(Change::Style);
}

void TextBox::setCueText(std::u16string_view text) {
    if (cueText_ == text)
        return;
    cueText_ = text;
    changed(Change::Style);
}

void TextBox::selectAll() {
    allSelected_ = true;
    changed(Change::Selection);
}

void TextBox::userTyped(std::u16string_view newText) {
    allSelected_ = false;
    if (text_ == newText)
        return;
    const auto alive = keepFormAlive();
    text_ = newText;
    onChange.raise();
}

void Button::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Button::setPicture(std::shared_ptr<const Picture> picture) {
    glyph_.reset();
    picture_ = std::move(picture);
    changed(Change::Items);
}

void Button::setGlyph(std::shared_ptr<const Glyph> glyph) {
    picture_.reset();
    glyph_ = std::move(glyph);
    changed(Change::Items);
}

Picture Button::pictureAt(std::int32_t dpi) const {
    if (glyph_) {
        const Twips room = std::min(bounds().width, bounds().height) - kGlyphBorder * 2;
        return rasterise(*glyph_, toPixels(std::min(kGlyphSide, room), dpi));
    }
    if (!picture_)
        return {};
    const auto grown = [dpi](std::int32_t pixels) { return toPixels(toTwips(pixels, kPictureDpi), dpi); };
    return scaled(*picture_, grown(picture_->width), grown(picture_->height));
}

void Button::userClicked() {
    const auto alive = keepFormAlive();
    onClick.raise();
}

PictureBox::PictureBox(std::u16string_view name)
    : Control(name), images_([this] { changed(Change::Items); }) {
    setTabStop(false);
}

void PictureBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void PictureBox::setPicture(std::shared_ptr<const Picture> picture) {
    picture_ = std::move(picture);
    images_.set(nullptr);
    changed(Change::Items);
}

void PictureBox::setImage(std::shared_ptr<ImageList> images, std::u16string_view key) {
    picture_.reset();
    images_.set(std::move(images));
    key_ = key;
    changed(Change::Items);
}

Picture PictureBox::pictureAt(std::int32_t dpi) const {
    if (picture_)
        return *picture_;
    const ImageList* const images = images_.list().get();
    const auto place = images != nullptr ? images->placeOf(key_) : std::nullopt;
    return place ? images->at(*place, dpi) : Picture();
}

void PictureBox::userClicked() {
    const auto alive = keepFormAlive();
    onClick.raise();
}

void StatusBar::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void StatusBar::setPanels(std::vector<PanelState> panels) {
    panels_ = std::move(panels);
    changed(Change::Items);
}

void StatusBar::setPanelText(std::size_t index, std::u16string_view text) {
    if (index >= panels_.size() || panels_[index].text == text)
        return;
    panels_[index].text = text;
    changed(Change::Text);
}

void Splitter::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Splitter::userMoved(Twips position) {
    const auto alive = keepFormAlive();
    onMove.raise(position);
}

}  // namespace quorel::ui
