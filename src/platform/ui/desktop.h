#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/font.h"
#include "platform/ui/peer.h"
#include "platform/ui/picture.h"
#include "platform/ui/units.h"

namespace quorel::ui {

class Control;
class Form;

/// A message box. `style` is the platform's: 0 OK only, 1 OK and Cancel, 4 Yes and No; 16 critical, 32
/// question, 48 warning, 64 information.
struct Message {
    std::u16string text;
    std::u16string title;
    std::int32_t style = 0;
};

/// The platform's answers of a message box.
enum class MessageAnswer : std::int32_t { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// How far the area inside something is from its edges.
struct Borders {
    Twips left, top, right, bottom;
    friend constexpr bool operator==(const Borders&, const Borders&) = default;
};

enum class Pointer : std::uint8_t { Default, Wait };

/// Where windows live. One per process or test, handed to whoever makes forms; outlives every form.
class Desktop {
  public:
    virtual ~Desktop() = default;

    [[nodiscard]] virtual std::unique_ptr<Peer> makePeer(Control& control) = 0;
    /// Serves the user until the form is hidden or unloaded. Other windows of the thread take no input
    /// meanwhile.
    virtual void runModal(Form& form) = 0;
    /// Runs `task` from the message loop once the handlers that run now have returned. Dropped when the
    /// desktop ends.
    virtual void post(std::function<void()> task) = 0;
    virtual MessageAnswer showMessage(const Message& message, Form* owner) = 0;

    [[nodiscard]] virtual std::u16string clipboardText() = 0;
    virtual void setClipboardText(std::u16string_view text) = 0;
    virtual void setPointer(Pointer pointer) = 0;
    /// The area a window may cover, without task bars.
    [[nodiscard]] virtual Rect workArea() = 0;
    /// The size of one line in the windows' font.
    [[nodiscard]] virtual Size textSize(std::u16string_view line) = 0;
    /// The size of one line in that font; a mark of an access key is a character like any other.
    [[nodiscard]] virtual Size textSize(std::u16string_view line, const Font& font) = 0;
    /// The room that a label needs for a text of one or several lines, its marks of access keys taken away;
    /// with a width, lines longer than that are broken between words.
    [[nodiscard]] virtual Size labelSize(std::u16string_view text, const Font& font,
                                         std::optional<Twips> width = std::nullopt) = 0;
    /// The pictures in a file (.ico, .png, .bmp; .wmf and .emf where the system draws them), the same one in
    /// several sizes; a metafile is drawn at its own size and twice that. Throws as `readPictureFile` does.
    [[nodiscard]] virtual std::vector<Picture> loadPicture(std::u16string_view path) = 0;
    /// Of a tab strip around its pages; the tabs are at its top.
    [[nodiscard]] virtual Borders tabBorders() = 0;
    /// The width of an upright scroll bar.
    [[nodiscard]] virtual Twips scrollBarWidth() = 0;

  private:
    friend class WaitPointer;
    std::int32_t waits_ = 0;
};

/// Shows the wait pointer for as long as it lives. They may be nested: the outermost one brings the pointer
/// back.
class WaitPointer {
  public:
    explicit WaitPointer(Desktop& desktop) : desktop_(desktop) {
        if (desktop_.waits_++ == 0)
            desktop_.setPointer(Pointer::Wait);
    }
    ~WaitPointer() {
        if (--desktop_.waits_ == 0)
            desktop_.setPointer(Pointer::Default);
    }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

  private:
    Desktop& desktop_;
};

}  // namespace quorel::ui
