#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"
#include "platform/ui/font.h"
#include "platform/ui/glyph.h"
#include "platform/ui/image_list.h"
#include "platform/ui/picture.h"

namespace quorel::ui {

/// Static text. Its access key moves the focus to the next control in tab order.
class Label : public Control {
  public:
    explicit Label(std::u16string_view name) : Control(name) { setTabStop(false); }
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] const Font& font() const noexcept { return font_; }
    void setFont(const Font& font);

  private:
    Font font_;
};

/// One line or several lines of text.
class TextBox : public Control {
  public:
    explicit TextBox(std::u16string_view name) : Control(name) {}
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] bool isReadOnly() const noexcept { return readOnly_; }
    void setReadOnly(bool readOnly);
    [[nodiscard]] bool isMultiLine() const noexcept { return multiLine_; }
    /// Before the control is shown.
    void setMultiLine(bool multiLine) noexcept { multiLine_ = multiLine; }
    /// Grey text in an empty box, e.g. "Filter".
    [[nodiscard]] const std::u16string& cueText() const noexcept { return cueText_; }
    void setCueText(std::u16string_view text);
    /// Selects the whole text, now or when the box is next shown; it stays selected until the user types.
    void selectAll();
    [[nodiscard]] bool isAllSelected() const noexcept { return allSelected_; }

    Event<> onChange;

    void userTyped(std::u16string_view newText);

  private:
    std::u16string cueText_;
    bool readOnly_ = false;
    bool multiLine_ = false;
    bool allSelected_ = false;
};

class Button : public Control {
  public:
    explicit Button(std::u16string_view name) : Control(name) {}
    void accept(ControlVisitor& visitor) override;

    /// Shown instead of the text, which stays the name for screen readers. Its pixels are those of 96 dots
    /// per inch; it grows with the resolution. Takes the place of a glyph.
    [[nodiscard]] const std::shared_ptr<const Picture>& picture() const noexcept { return picture_; }
    void setPicture(std::shared_ptr<const Picture> picture);
    /// A drawing instead of the text, crisp at every resolution: 240 twips square, less in a small button.
    /// Takes the place of a picture.
    [[nodiscard]] const std::shared_ptr<const Glyph>& glyph() const noexcept { return glyph_; }
    void setGlyph(std::shared_ptr<const Glyph> glyph);
    /// What is shown at that resolution; empty when the text is.
    [[nodiscard]] Picture pictureAt(std::int32_t dpi) const;

    Event<> onClick;

    void userClicked();

  private:
    std::shared_ptr<const Picture> picture_;
    std::shared_ptr<const Glyph> glyph_;
};

/// Shows a picture in its natural size, one of an image list, or just its background.
class PictureBox : public Control {
  public:
    explicit PictureBox(std::u16string_view name);
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] const std::shared_ptr<const Picture>& picture() const noexcept { return picture_; }
    /// Takes the place of one of an image list.
    void setPicture(std::shared_ptr<const Picture> picture);
    /// The picture of that key, in the list's size at every resolution; none while there is no such key.
    /// Takes the place of a picture.
    void setImage(std::shared_ptr<ImageList> images, std::u16string_view key);
    /// What is shown at that resolution; empty for nothing.
    [[nodiscard]] Picture pictureAt(std::int32_t dpi) const;

    Event<> onClick;

    void userClicked();

  private:
    std::shared_ptr<const Picture> picture_;
    ImageUse images_;
    std::u16string key_;
};

/// A bar of panels; the last one takes the room that is left. Placed by its owner like any control.
class StatusBar : public Control {
  public:
    struct PanelState {
        std::u16string text;
        Twips width;
    };

    explicit StatusBar(std::u16string_view name) : Control(name) { setTabStop(false); }
    void accept(ControlVisitor& visitor) override;

    void setPanels(std::vector<PanelState> panels);
    void setPanelText(std::size_t index, std::u16string_view text);
    [[nodiscard]] const std::vector<PanelState>& panels() const noexcept { return panels_; }

  private:
    std::vector<PanelState> panels_;
};

enum class Orientation : bool { Horizontal, Vertical };

/// A thin line to divide with, along the top (horizontal) or the left (vertical) of its bounds, however large
/// they are.
class Line : public Control {
  public:
    explicit Line(std::u16string_view name, Orientation orientation = Orientation::Horizontal)
        : Control(name), orientation_(orientation) {
        setTabStop(false);
    }
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] Orientation orientation() const noexcept { return orientation_; }
    /// None is the system's colour of lines.
    [[nodiscard]] std::optional<Colour> colour() const noexcept { return colour_; }
    void setColour(std::optional<Colour> colour);

  private:
    Orientation orientation_;
    std::optional<Colour> colour_;
};

/// A bar between two areas that the user drags, or moves with the arrow keys while it has the focus. A
/// vertical one moves left and right. It only reports where it is wanted; its owner lays out and gives it its
/// new bounds.
class Splitter : public Control {
  public:
    Splitter(std::u16string_view name, Orientation orientation) : Control(name), orientation_(orientation) {}
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] Orientation orientation() const noexcept { return orientation_; }

    Event<Twips> onMove;  ///< the wanted left (vertical) or top (horizontal)

    void userMoved(Twips position);

  private:
    Orientation orientation_;
};

}  // namespace quorel::ui
