#include "navigator/welcome_page.h"

#include "navigator/paths.h"
#include "platform/automation/text.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"

namespace quorel::navigator {

using namespace ui::literals;

namespace {

const ui::Font kTitleFont{{}, 18, true};
constexpr ui::Twips kNameWidth = 2700_tw;
constexpr ui::Twips kFolderWidth = 6000_tw;

struct WelcomeButton {
    std::u16string_view name, caption, toolTip;
};
constexpr std::array<WelcomeButton, kWelcomeButtons> kButtons{{
    {u"cmdNew", u"&New\u2026", u"Make an empty repository (Ctrl+N)"},
    {u"cmdOpen", u"&Open\u2026", u"Open a repository file (Ctrl+O)"},
    {u"cmdImport", u"&Import\u2026", u"Make a repository of files of another kind"},
    {u"cmdSample", u"&Sample Library", u"Open the sample: books, who wrote them and who published them"},
}};

}  // namespace

WelcomePage::WelcomePage(std::u16string_view name, ui::Desktop& desktop)
    : Panel(name),
      desktop_(desktop),
      title_(&add<ui::Label>(u"WelcomeTitle")),
      hint_(&add<ui::Label>(u"WelcomeHint")) {
    title_->setFont(kTitleFont);
    title_->setText(u"Navigator");
    hint_->setText(u"Open a repository, drop one here, or look at the sample first.");
    for (std::size_t i = 0; i < kWelcomeButtons; ++i) {
        buttons_[i] = &add<ui::Button>(kButtons[i].name);
        buttons_[i]->setText(kButtons[i].caption);
        buttons_[i]->setToolTip(kButtons[i].toolTip);
    }
    recentCaption_ = &add<ui::Label>(u"RecentCaption");
    recentCaption_->setText(u"&Recent files");
    recent_ = &add<ui::VirtualList>(u"RecentFiles");
    buildList();
}

WelcomePage::~WelcomePage() {
    recent_->setSource(nullptr);
}

void WelcomePage::buildList() {
    recent_->setColumns({{u"File", kNameWidth}, {u"Folder", kFolderWidth}});
    recent_->setToolTip(u"Enter opens the file, Del takes it off this list");
    recent_->setSource(this);
    recent_->onActivate.connect([this] { raise(onOpen); });
    recent_->onKeyDown.connect([this](ui::KeyEvent& event) {
        if (event.chord != ui::KeyChord{ui::Key::Delete})
            return;
        event.handled = true;
        raise(onForget);
    });
    recent_->onFind.connect(
        [this](const std::u16string& text, std::size_t start, std::optional<std::size_t>& found) {
            for (std::size_t i = 0; i < paths_.size() && !found; ++i) {
                const std::size_t row = (start + i) % paths_.size();
                const std::u16string name = fileNameOf(paths_[row]);
                if (automation::equalsIgnoringCase(std::u16string_view(name).substr(0, text.size()), text))
                    found = row;
            }
        });
    ui::Menu& menu = recent_->contextMenu();
    menu.add(u"mnuOpenRecent", u"&Open").onClick.connect([this] { raise(onOpen); });
    menu.add(u"mnuForgetRecent", u"&Take off the List", {ui::Key::Delete}).onClick.connect([this] {
        raise(onForget);
    });
    recent_->onContextMenu.connect([this] {
        for (const auto& entry : recent_->contextMenu().items())
            entry->setEnabled(recent_->selectedRow().has_value());
    });
}

void WelcomePage::setFiles(std::vector<std::u16string> paths) {
    paths_ = std::move(paths);
    recent_->rowsChanged();
    if (!recent_->selectedRow() && !paths_.empty())
        recent_->selectRow(0);
}

std::u16string WelcomePage::cellText(std::size_t row, std::size_t column) {
    return column == 0 ? fileNameOf(paths_[row]) : folderOf(paths_[row]);
}

void WelcomePage::raise(const ui::Event<const std::u16string&>& event) const {
    const std::optional<std::size_t> row = recent_->selectedRow();
    if (!row || *row >= paths_.size())
        return;
    const std::u16string path = paths_[*row];
    event.raise(path);
}

void WelcomePage::boundsChanged() {
    const WelcomeLayout layout = layoutWelcome(bounds().size(), desktop_.textSize(u"Xg").height,
                                               desktop_.textSize(u"Xg", kTitleFont).height);
    title_->setBounds(layout.title);
    hint_->setBounds(layout.hint);
    for (std::size_t i = 0; i < kWelcomeButtons; ++i)
        buttons_[i]->setBounds(layout.buttons[i]);
    recentCaption_->setBounds(layout.recentCaption);
    recent_->setBounds(layout.recent);
}

}  // namespace quorel::navigator
