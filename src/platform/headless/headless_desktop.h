#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ui/desktop.h"
#include "platform/ui/form.h"
#include "platform/ui/tree.h"

namespace quorel::headless {

class HeadlessDesktop;

/// Stands for a native window: it keeps nothing but what it was told, for the control is the state.
class HeadlessPeer final : public ui::Peer {
  public:
    HeadlessPeer(HeadlessDesktop& desktop, ui::Control& control);
    ~HeadlessPeer() override;
    void apply(ui::Change changes) override;
    void takeFocus() override;
    void refresh() override;
    void popUpMenu(ui::MenuItem& menu, ui::MenuPlace place) override;
    /// By nominal sizes, as a list of the platform's at 96 dots per inch has them.
    [[nodiscard]] std::optional<ui::Rect> cellBounds(ui::CellIndex cell) const override;
    void invalidate(const ui::Rect& area) override;
    /// For drawing areas: what is to be painted anew, all of it in one rectangle, in the client area; none
    /// afterwards.
    [[nodiscard]] std::optional<ui::Rect> takeInvalid() noexcept { return std::exchange(invalid_, {}); }

    /// The first row that a list or tree shows, and moving it; true if it moved.
    [[nodiscard]] std::size_t topRow() const noexcept { return topRow_; }
    bool scrollTo(std::size_t row);
    /// The lines of a tree that can be seen.
    [[nodiscard]] std::vector<ui::TreeItemId> itemsInView();
    bool bringIntoView(std::size_t row, std::optional<std::size_t> column = std::nullopt);

    /// What was applied since the peer was made or this was last asked.
    [[nodiscard]] ui::Change takeChanges() noexcept { return std::exchange(changes_, ui::Change::None); }

  private:
    /// The item that the tree scrolls to.
    void bringIntoView(const ui::Tree& tree);
    void invalidateAll();

    HeadlessDesktop& desktop_;
    ui::Control& control_;
    ui::Change changes_ = ui::Change::None;
    std::optional<ui::Rect> invalid_;
    std::size_t topRow_ = 0;
    ui::Twips scrolled_;  ///< how far a list is scrolled to the right
};

/// A desktop without a screen. Modal windows and message boxes are scripted before the action that opens
/// them, in the order in which they come:
///
///     desktop.expectModal(u"frmNameEdit", [&](ui::Form& form) { user.click(form, u"OK"); });
///     desktop.expectMessage([](const ui::Message& message) { … }, ui::MessageAnswer::Yes);
///
/// What comes unexpected, what a script could not do and what never came is a failure. Failures are recorded,
/// not thrown where they arise, since the code under test may catch what is thrown through it: `verify`
/// throws them. A desktop that ends with failures nobody has seen ends the process.
class HeadlessDesktop final : public ui::Desktop {
  public:
    HeadlessDesktop();
    ~HeadlessDesktop() override;

    /// The next window shown modally is the form of that name (any, if it is empty); `user` acts on it and
    /// must hide or unload it.
    void expectModal(std::u16string_view formName, std::function<void(ui::Form&)> user);
    /// The next message box; `look` (may be empty) reads it, then it gets `answer`.
    void expectMessage(std::function<void(const ui::Message&)> look,
                       ui::MessageAnswer answer = ui::MessageAnswer::Ok);
    /// The next menu that the program pops up: the user chooses the entry of that name, or none if it is
    /// empty.
    void expectMenu(std::u16string_view entry);
    /// Throws `std::logic_error` that tells every failure and unmet expectation, and forgets them.
    void verify();
    /// Records a failure for `verify`.
    void fail(std::string text);

    /// Runs posted tasks until there are none.
    void runPosted();
    [[nodiscard]] bool hasPosted() const noexcept { return !posted_.empty(); }
    /// True while a modal window other than `form` takes all input.
    [[nodiscard]] bool isBlocked(const ui::Form& form) const noexcept;
    /// Every message box that was shown.
    [[nodiscard]] const std::vector<ui::Message>& messages() const noexcept { return messages_; }
    [[nodiscard]] ui::Pointer pointer() const noexcept { return pointer_; }
    /// How often the wait pointer was asked for.
    [[nodiscard]] std::size_t waits() const noexcept { return waits_; }
    /// How often a form was painted at once.
    [[nodiscard]] std::size_t refreshes() const noexcept { return refreshes_; }
    [[nodiscard]] std::size_t livePeers() const noexcept { return livePeers_; }
    [[nodiscard]] std::size_t peersMade() const noexcept { return peersMade_; }
    void setWorkArea(const ui::Rect& area) noexcept { workArea_ = area; }

    // Desktop
    // --------------------------------------------------------------------
    [[nodiscard]] std::unique_ptr<ui::Peer> makePeer(ui::Control& control) override;
    void runModal(ui::Form& form) override;
    void post(std::function<void()> task) override;
    ui::MessageAnswer showMessage(const ui::Message& message, ui::Form* owner) override;
    [[nodiscard]] std::u16string clipboardText() override { return clipboard_; }
    void setClipboardText(std::u16string_view text) override { clipboard_ = text; }
    void setPointer(ui::Pointer pointer) override;
    [[nodiscard]] ui::Rect workArea() override { return workArea_; }
    [[nodiscard]] ui::Size textSize(std::u16string_view line) override { return textSize(line, {}); }
    /// By nominal sizes: every unit as wide as every other, and in proportion to the font's size.
    [[nodiscard]] ui::Size textSize(std::u16string_view line, const ui::Font& font) override;
    /// In the same way.
    [[nodiscard]] ui::Size labelSize(std::u16string_view text, const ui::Font& font,
                                     std::optional<ui::Twips> width) override;
    /// The file is read and checked, but nothing in it is drawn: each picture is grey all over, in its own
    /// size. One of `setPicture` is answered as it is, whether there is such a file or not.
    [[nodiscard]] std::vector<ui::Picture> loadPicture(std::u16string_view path) override;
    void setPicture(std::u16string_view path, std::vector<ui::Picture> frames) {
        pictures_[std::u16string(path)] = std::move(frames);
    }
    [[nodiscard]] ui::Borders tabBorders() override { return {{60}, {390}, {60}, {60}}; }
    [[nodiscard]] ui::Twips scrollBarWidth() override { return {255}; }

  private:
    friend class HeadlessPeer;

    /// One scripted window: a modal form, a message box or a menu.
    struct Expectation {
        bool isMessage = false;
        bool isMenu = false;
        std::u16string formName{};
        std::u16string entry{};
        std::function<void(ui::Form&)> user{};
        std::function<void(const ui::Message&)> look{};
        ui::MessageAnswer answer = ui::MessageAnswer::Ok;
    };
    [[nodiscard]] static std::string describe(const Expectation& expectation);
    [[nodiscard]] std::string nextExpected() const;
    void serveMenu(ui::MenuItem& menu);
    void serveModal(ui::Form& form, const std::function<void(ui::Form&)>& user);

    std::deque<Expectation> expected_;
    std::vector<std::string> failures_;
    std::deque<std::function<void()>> posted_;
    std::vector<ui::Form*> modal_;
    std::vector<ui::Message> messages_;
    std::map<std::u16string, std::vector<ui::Picture>> pictures_;
    std::u16string clipboard_;
    ui::Pointer pointer_ = ui::Pointer::Default;
    ui::Rect workArea_;
    std::size_t waits_ = 0;
    std::size_t refreshes_ = 0;
    std::size_t livePeers_ = 0;
    std::size_t peersMade_ = 0;
};

}  // namespace quorel::headless
