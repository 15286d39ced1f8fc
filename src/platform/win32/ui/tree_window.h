#pragma once

#include <optional>
#include <vector>

#include "platform/ui/tree.h"
#include "platform/ui/type_ahead.h"
#include "platform/win32/ui/native_images.h"
#include "platform/win32/ui/native_window.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

/// The system's tree with an item for each one that is shown. The texts of the lines that it is about to
/// paint are asked for before it paints, since whoever is asked may do anything to the tree. Nothing opens or
/// closes natively by itself: what the user wants is noted and passed on when the tree has done with the
/// message, so that a handler may fill, empty or destroy it.
class TreeWindow : public NativeWindow {
  public:
    TreeWindow(std::shared_ptr<Frame> frame, ui::Tree& tree) : NativeWindow(std::move(frame), tree) {}
    void applyItem(ui::TreeItemId item, ui::TreeChange change) override;
    [[nodiscard]] std::optional<LRESULT> notified(NMHDR& header) override;
    [[nodiscard]] HBRUSH colours(HDC dc) override;
    void rescaled() override;

    /// The native item of one that is shown; null for any other.
    [[nodiscard]] HTREEITEM nativeItem(ui::TreeItemId item) const noexcept;

  private:
    struct Entry {
        ui::TreeItemId item = ui::TreeItemId::None;
        HTREEITEM native = nullptr;
    };
    /// What the tree has reported while it served a message.
    struct Noted {
        bool selection = false;
        ui::TreeItemId click = ui::TreeItemId::None;
        ui::TreeItemId activation = ui::TreeItemId::None;
        ui::TreeItemId expand = ui::TreeItemId::None;
        ui::TreeItemId collapse = ui::TreeItemId::None;
    };

    [[nodiscard]] Description describe() override;
    void opened() override;
    void mirror(ui::Change changes) override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    [[nodiscard]] POINT contextPoint() const override;
    [[nodiscard]] bool dropsKey(ui::KeyChord chord) const override {
        return chord.key == ui::Key::Multiply;  // a tree made on demand may have no end
    }

    void spaceLines() const;
    void mirrorImages();
    void mirrorColours() const;
    void mirrorAll();
    void mirrorItem(ui::TreeItemId item) const;
    void mirrorSelection() const;
    void describeItem(ui::TreeItemId item, TVITEMEXW& native) const;
    void insert(ui::TreeItemId item);
    void open(ui::TreeItemId top);
    void close(ui::TreeItemId item) const;
    void added(ui::TreeItemId item);

    [[nodiscard]] ui::TreeItemId itemOf(HTREEITEM native) const;
    [[nodiscard]] ui::TreeItemId itemOfSlot(LPARAM slot) const noexcept;
    [[nodiscard]] HTREEITEM caret() const noexcept;
    [[nodiscard]] ui::TreeItemId hit(LPARAM at) const;
    void forget(LPARAM slot) noexcept;
    void tellText(TVITEMW& item) const;
    [[nodiscard]] std::vector<ui::TreeItemId> unreadInView() const;
    void readSeen();
    [[nodiscard]] LRESULT draw(NMTVCUSTOMDRAW& drawing) const;
    [[nodiscard]] ui::Colour ground() const noexcept;
    LRESULT serveInput(UINT message, WPARAM w, LPARAM l);
    void type(char16_t unit);
    void report();

    [[nodiscard]] ui::Tree& tree() const noexcept { return static_cast<ui::Tree&>(*control()); }

    std::vector<Entry> entries_;  ///< by the items' slots
    NativeImages images_;
    ui::TypeAhead typing_;
    Noted noted_;
    int serving_ = 0;
    bool mirroring_ = false;
    bool painting_ = false;
    bool focusing_ = false;
};

}  // namespace quorel::win32
