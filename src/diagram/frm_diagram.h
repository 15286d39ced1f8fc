#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include "diagram/box_search.h"
#include "diagram/diagram_view.h"
#include "diagram/window_layout.h"
#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"

namespace quorel::diagram {

/// The window of an arranged diagram, which it does not change but by the user moving boxes: the diagram, a
/// status line, a find box while it is wanted (Ctrl+F) and, if the host asks for them, the standard buttons.
/// Esc leaves the find box, then clears what is chosen, then hides the window. What fails in its procedures
/// is shown in the error box with the module label "frmDiagram".
class frmDiagram final : public ui::Form {
  public:
    frmDiagram(const frame::Environment& environment, std::shared_ptr<DiagramModel> model);

    /// Zoom in, zoom out, fit, 100 %, find, print, save.
    void AddStandardButtons();
    /// Shows the diagram as it is now and, until the user chooses something, the note in the status line.
    /// Returns when the window is hidden or closed.
    void PopUp(std::u16string_view note = {});
    void Conceal();
    /// Drops the diagram; the window is empty from then on.
    void Destroy() noexcept;

    [[nodiscard]] DiagramView& view() noexcept { return view_; }
    [[nodiscard]] ui::Button& button(StandardButton which) noexcept {
        return *buttons_[static_cast<std::size_t>(which)];
    }

  private:
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"frmDiagram", label, std::forward<Body>(body));
    }
    void showModel();
    void addButtons();
    void addFindBox();
    void Form_Load();
    void Form_Unload();
    void Form_KeyDown(ui::KeyEvent& event);
    [[nodiscard]] bool runKey(ui::KeyChord chord);
    void Button_Click(StandardButton which);

    void Find();
    void leaveFind();
    void setFindVisible(bool visible);
    void Find_Change();
    void Find_KeyDown(ui::KeyEvent& event);
    void findNext(bool backwards);
    void showFound();

    void Print();
    void Save();
    void tellStatus();
    void tell(std::u16string_view text);
    [[nodiscard]] bool hasBoxes() const noexcept { return model_ && !model_->boxes.empty(); }
    [[nodiscard]] Measure measure() const;
    [[nodiscard]] WindowParts parts() const;
    void enableButtons();
    void place();

    frame::Environment environment_;
    std::shared_ptr<DiagramModel> model_;
    std::array<ui::Button*, kStandardButtons> buttons_{};
    ui::Label* findLabel_ = nullptr;
    ui::TextBox* find_ = nullptr;
    ui::Button* previous_ = nullptr;
    ui::Button* next_ = nullptr;
    ui::Label* found_ = nullptr;
    std::array<ui::Control*, 5> findControls_{};  ///< all of these
    DiagramView& view_;
    ui::StatusBar& status_;
    BoxSearch search_;
    bool withButtons_ = false;
};

}  // namespace quorel::diagram
