#include "dialogs/frm_progress_bar.h"

#include "dialogs/progress_layout.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/progress_bar.h"

namespace quorel::dialogs {

using namespace ui::literals;

namespace {
constexpr ui::Twips kProgressBarWidth = 5400_tw;
}  // namespace

frmProgressBar::frmProgressBar(ui::Desktop& desktop, shell::Clock& clock)
    : Form(desktop, u"frmProgressBar"),
      information_(add<ui::Label>(u"Information")),
      bar_(add<ui::ProgressBar>(u"Bar")),
      pace_(clock) {
    setText(u"Progress");
    setResizable(false);
    setClientSize({kProgressBarWidth, progressBarHeight(desktop.textSize(u"Xg").height)});
    place();
}

void frmProgressBar::setInformation(std::u16string_view information) {
    information_.setText(information);
    refresh();
}

void frmProgressBar::setMinimum(std::int32_t minimum) {
    bar_.setMinimum(minimum);
}

void frmProgressBar::setMaximum(std::int32_t maximum) {
    bar_.setMaximum(maximum);
}

void frmProgressBar::setValue(std::int32_t value) {
    bar_.setValue(value);
    setProgress(bar_.filled());
    pace_.changed(value >= bar_.maximum(), [this] { refresh(); });
}

void frmProgressBar::place() {
    const ProgressBarLayout layout = layoutProgressBar(clientSize(), desktop().textSize(u"Xg").height);
    information_.setBounds(layout.information);
    bar_.setBounds(layout.bar);
}

}  // namespace quorel::dialogs
