#include "dialogs/frm_progress.h"

#include "dialogs/progress_layout.h"
#include "platform/automation/text.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/progress_bar.h"

namespace quorel::dialogs {

using namespace ui::literals;

namespace {
constexpr ui::Twips kProgressWidth = 6000_tw;
}  // namespace

frmProgress::frmProgress(ui::Desktop& desktop, shell::Clock& clock)
    : Form(desktop, u"frmProgress"),
      frame_(add<ui::Panel>(u"Frame1")),
      title_(frame_.add<ui::Label>(u"lblProgress")),
      bar_(frame_.add<ui::ProgressBar>(u"pgBar")),
      percentage_(frame_.add<ui::Label>(u"lblPg")),
      status_(add<ui::StatusBar>(u"stdBar")),
      pace_(clock) {
    setText(u"Progress");
    setResizable(false);
    status_.setPanels({{u"", 0_tw}});
    setClientSize({kProgressWidth, progressHeight(desktop.textSize(u"Xg").height)});
    place();
}

void frmProgress::PopUp() {
    show(ui::Modality::Modeless);
    refresh();
}

void frmProgress::Init(const ProgressRange& range) {
    bar_.setMinimum(range.minimum);
    bar_.setMaximum(range.maximum);
    bar_.setValue(range.value);
    percentage_.setText(u"");
    setProgress(bar_.filled());
    refresh();
}

void frmProgress::setProgressText(std::u16string_view text) {
    status_.setPanelText(0, text);
    pace_.changed(false, [this] { refresh(); });
}

void frmProgress::setTitle(std::u16string_view title) {
    title_.setText(title);
    refresh();
}

void frmProgress::setCaption(std::u16string_view caption) {
    setText(caption);
    refresh();
}

bool frmProgress::incValue(std::int32_t by) {
    const ProgressRange before = range();
    if (before.value >= before.maximum)
        return false;
    bar_.setValue(advanced(before, by));
    percentage_.setText(automation::decimal(percentageOf(before.value, before.maximum)) + u"%");
    setProgress(bar_.filled());
    pace_.changed(bar_.value() == before.maximum, [this] { refresh(); });
    return true;
}

ProgressRange frmProgress::range() const noexcept {
    return {bar_.value(), bar_.minimum(), bar_.maximum()};
}

void frmProgress::place() {
    const ui::Size client = clientSize();
    const ProgressLayout layout =
        layoutProgress(client, desktop().textSize(u"Xg").height, desktop().textSize(u"100%").width);
    frame_.setBounds({0_tw, 0_tw, client.width, layout.status.top});
    title_.setBounds(layout.title);
    bar_.setBounds(layout.bar);
    percentage_.setBounds(layout.percentage);
    status_.setBounds(layout.status);
}

}  // namespace quorel::dialogs
