// The marks and the search of the options window.

#include <utility>

#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/file_selector.h"
#include "platform/ui/tab_strip.h"
#include "settings/frm_options.h"

namespace quorel::settings {

namespace {

constexpr ui::Colour kChangedColour{0xE8, 0xA2, 0x00};
constexpr ui::Colour kFoundColour{0x00, 0x78, 0xD7};

}  // namespace

void frmOptions::refreshMark(const SettingEditor& editor) {
    const bool isFound = !matches_.empty() && matches_[match_] == &editor;
    const bool isChanged = editor.isChanged();
    editor.mark->setBackground(isFound ? kFoundColour : kChangedColour);
    editor.mark->setToolTip(isChanged ? u"Changed; it was: " + controls::displayText(editor.atOpening)
                                      : std::u16string());
    editor.mark->setVisible(isFound || isChanged);
    if (editor.reset == nullptr)
        return;
    editor.reset->setToolTip(u"Reset to the stored value: " + controls::displayText(editor.stored));
    editor.reset->setVisible(editor.value() != editor.stored);
}

void frmOptions::Search_Change() {
    procedure(u"Search_Change", [this] {
        const std::vector<const SettingEditor*> former = std::exchange(matches_, {});
        match_ = 0;
        const std::u16string wanted = automation::foldCase(search_.text());
        if (!wanted.empty())
            for (const auto& editor : editors_)
                if (editor->contains(wanted))
                    matches_.push_back(editor.get());
        for (const SettingEditor* each : former)
            refreshMark(*each);
        found_.setText(wanted.empty() ? u"" : u"not found");
        if (!matches_.empty())
            showMatch(0);
    });
}

void frmOptions::showMatch(std::size_t match) {
    const SettingEditor& before = *matches_[std::exchange(match_, match)];
    const SettingEditor& editor = *matches_[match];
    refreshMark(before);
    refreshMark(editor);
    found_.setText(automation::decimal(static_cast<std::int64_t>(match + 1)) + u" of " +
                   automation::decimal(static_cast<std::int64_t>(matches_.size())));
    selectTab(editor.tab);
    editor.focusTarget().bringIntoView();
}

void frmOptions::Search_KeyDown(ui::KeyEvent& event) {
    procedure(u"Search_KeyDown", [&] {
        const ui::Key key = event.chord.key;
        if (key == ui::Key::Escape && !search_.text().empty()) {
            search_.setText({});
            Search_Change();
            event.handled = true;
        } else if (!matches_.empty() &&
                   (key == ui::Key::Enter || key == ui::Key::Down || key == ui::Key::Up)) {
            const bool isBack = key == ui::Key::Up || has(event.chord.modifiers, ui::Modifiers::Shift);
            const std::size_t count = matches_.size();
            showMatch((match_ + (isBack ? count - 1 : 1)) % count);
            event.handled = true;
        } else if (key == ui::Key::Enter) {
            event.handled = !search_.text().empty();
        }
    });
}

}  // namespace quorel::settings
