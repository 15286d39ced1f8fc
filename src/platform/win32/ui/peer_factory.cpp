#include "platform/win32/ui/peer_factory.h"

#include "platform/automation/error.h"
#include "platform/ui/control_visitor.h"
#include "platform/win32/ui/choice_windows.h"
#include "platform/win32/ui/drawing_window.h"
#include "platform/win32/ui/form_window.h"
#include "platform/win32/ui/input_windows.h"
#include "platform/win32/ui/list_window.h"
#include "platform/win32/ui/plain_windows.h"
#include "platform/win32/ui/scroll_window.h"
#include "platform/win32/ui/tab_window.h"
#include "platform/win32/ui/tree_window.h"

namespace quorel::win32 {

namespace {

class Factory final : public ui::ControlVisitor {
  public:
    explicit Factory(std::shared_ptr<Services> services) : services_(std::move(services)) {}

    void visit(ui::Form& form) override {
        made = std::make_shared<FormWindow>(std::make_shared<Frame>(services_), form);
        made->open(nullptr);
    }
    void visit(ui::Panel& panel) override { make<PanelWindow>(panel); }
    void visit(ui::Label& label) override { make<LabelWindow>(label); }
    void visit(ui::TextBox& box) override { make<TextWindow>(box); }
    void visit(ui::Button& button) override { make<ButtonWindow>(button); }
    void visit(ui::CheckBox& box) override { make<CheckWindow>(box); }
    void visit(ui::ComboBox& box) override { make<ComboWindow>(box); }
    void visit(ui::ProgressBar& bar) override { make<ProgressWindow>(bar); }
    void visit(ui::PictureBox& box) override { make<PictureWindow>(box); }
    void visit(ui::VirtualList& list) override { make<ListWindow>(list); }
    void visit(ui::StatusBar& bar) override { make<StatusWindow>(bar); }
    void visit(ui::Splitter& splitter) override { make<SplitterWindow>(splitter); }
    void visit(ui::Line& line) override { make<LineWindow>(line); }
    void visit(ui::ScrollPanel& panel) override { make<ScrollWindow>(panel); }
    void visit(ui::TabStrip& strip) override { make<TabWindow>(strip); }
    void visit(ui::Tree& tree) override { make<TreeWindow>(tree); }
    void visit(ui::DrawingArea& area) override { make<DrawingWindow>(area); }

    std::shared_ptr<NativeWindow> made;

  private:
    template <class Window, class Control>
    void make(Control& control) {
        const NativeWindow* const parent =
            control.parent() != nullptr ? windowOf(*control.parent()) : nullptr;
        if (parent == nullptr || parent->handle() == nullptr)
            throw automation::Error(automation::error_number::kInternal, u"The parent has no window",
                                    control.name());
        made = std::make_shared<Window>(parent->frame(), control);
        made->open(parent->handle());
    }

    std::shared_ptr<Services> services_;
};

}  // namespace

std::unique_ptr<ControlPeer> makeControlPeer(const std::shared_ptr<Services>& services,
                                             ui::Control& control) {
    const NativeScope scope(services->controls);
    Factory factory(services);
    control.accept(factory);
    return std::make_unique<ControlPeer>(std::move(factory.made));
}

}  // namespace quorel::win32
