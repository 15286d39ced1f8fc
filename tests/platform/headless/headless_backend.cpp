#include "platform/headless/user.h"
#include "platform/ui/shown_text.h"
#include "tests/conformance/backend.h"

namespace quorel::conformance {

namespace {

class HeadlessBackend final : public Backend {
  public:
    [[nodiscard]] ui::Desktop& desktop() override { return desktop_; }
    void settle() override { desktop_.runPosted(); }
    void duringModal(std::function<void(ui::Form&)> actions) override {
        desktop_.expectModal(u"", std::move(actions));
    }

    void click(ui::Control& control) override { user_.click(control); }
    void doubleClick(ui::Control& control) override {
        user_.click(control);
        user_.click(control);
    }
    void enterText(ui::TextBox& box, std::u16string_view text) override { user_.enterText(box, text); }
    void chooseItem(ui::ComboBox& box, std::size_t index) override { user_.choose(box, index); }
    void typeKeys(ui::Form& form, std::u16string_view text) override { user_.type(form, text); }
    void navigate(ui::Control& control, ui::Navigation where) override {
        user_.navigate(*control.form(), where);
    }
    void drop(ui::Form& form, const std::vector<std::u16string>& files) override { user_.drop(form, files); }
    void duringMenu(ui::Form&, const ui::MenuItem&, std::u16string_view entry) override {
        desktop_.expectMenu(entry);
    }
    void press(ui::Form& form, ui::KeyChord chord) override { user_.press(form, chord); }
    void clickRow(ui::VirtualList& list, std::size_t row) override { user_.selectRow(list, row); }
    void doubleClickRow(ui::VirtualList& list, std::size_t row) override { user_.doubleClickRow(list, row); }
    void clickBelowRows(ui::VirtualList& list) override { user_.clickBelowRows(list); }
    void clickCell(ui::VirtualList& list, ui::CellIndex cell) override { user_.clickCell(list, cell); }
    void clickBox(ui::VirtualList& list, std::size_t row) override { user_.clickBox(list, row); }
    bool seesChecked(ui::VirtualList& list, std::size_t row) override { return list.isChecked(row); }
    void pageDown(ui::VirtualList& list) override { user_.scrollTo(list, 10); }
    void resizeColumn(ui::VirtualList& list, std::size_t column, ui::Twips width) override {
        user_.resizeColumn(list, column, width);
    }
    void clickColumn(ui::VirtualList& list, std::size_t column) override { user_.clickColumn(list, column); }
    void typeToFind(ui::Control& control, std::u16string_view text) override {
        user_.type(*control.form(), text);
    }
    void clickItem(ui::Tree& tree, ui::TreeItemId item) override { user_.clickItem(tree, item); }
    void doubleClickItem(ui::Tree& tree, ui::TreeItemId item) override { user_.doubleClickItem(tree, item); }
    void clickItemButton(ui::Tree& tree, ui::TreeItemId item) override { user_.clickItemButton(tree, item); }
    void chooseContextMenu(ui::Tree& tree, ui::TreeItemId item, std::u16string_view entry) override {
        user_.chooseContextMenu(tree, item, entry);
    }
    void clickTab(ui::TabStrip& strip, std::size_t index) override { user_.clickTab(strip, index); }
    void scrollTo(ui::ScrollPanel& panel, ui::Twips top) override { user_.scrollTo(panel, top); }
    void chooseMenu(ui::Form& form, std::u16string_view entry) override { user_.chooseMenu(form, entry); }
    void chooseContextMenu(ui::Control& control, std::u16string_view entry) override {
        user_.chooseContextMenu(control, entry);
    }
    void closeBox(ui::Form& form) override { user_.closeBox(form); }
    void resize(ui::Form& form, ui::Size clientSize) override { user_.resize(form, clientSize); }
    void dragSplitter(ui::Splitter& splitter, ui::Twips position) override {
        user_.dragSplitter(splitter, position);
    }

    void moveMouse(ui::DrawingArea& area, ui::Point at) override { user_.moveMouse(area, at); }
    void pressMouse(ui::DrawingArea& area, ui::Point at, ui::MouseButton button,
                    ui::Modifiers modifiers) override {
        user_.pressMouse(area, at, button, modifiers);
    }
    void releaseMouse(ui::DrawingArea& area, ui::Point at, ui::MouseButton,
                      ui::Modifiers modifiers) override {
        user_.releaseMouse(area, at, modifiers);
    }
    void doubleClickAt(ui::DrawingArea& area, ui::Point at) override { user_.doubleClickAt(area, at); }
    void turnWheel(ui::DrawingArea& area, ui::Point at, std::int32_t wheel,
                   ui::Modifiers modifiers) override {
        user_.turnWheel(area, at, wheel, modifiers);
    }
    void leaveMouse(ui::DrawingArea& area) override { user_.leaveMouse(area); }
    void loseMouse(ui::DrawingArea& area) override { user_.loseMouse(area); }
    void repaint(ui::DrawingArea& area) override { static_cast<void>(user_.lookAtChanges(area)); }

    [[nodiscard]] bool seesForm(const ui::Form& form) override {
        return form.peer() != nullptr && form.isShown();
    }
    [[nodiscard]] bool seesControl(const ui::Control& control) override {
        return control.peer() != nullptr && control.isShown();
    }
    [[nodiscard]] bool seesOnTop(const ui::Control& control) override {
        return seesControl(control) && control.isRaised();
    }
    [[nodiscard]] std::u16string seenToolTip(ui::VirtualList& list, ui::CellIndex cell) override {
        const std::u16string own = list.cellToolTip(cell);
        return own.empty() ? list.toolTip() : own;
    }
    [[nodiscard]] std::u16string seenText(const ui::Control& control) override {
        return control.peer() != nullptr ? ui::shownText(control.text()) : std::u16string();
    }
    [[nodiscard]] ui::CheckValue seenCheck(const ui::CheckBox& box) override { return box.value(); }
    [[nodiscard]] int seenProgress(const ui::ProgressBar& bar) override {
        return static_cast<int>(bar.filled() * 100 + 0.5);
    }
    [[nodiscard]] std::u16string seenCell(ui::VirtualList& list, std::size_t row,
                                          std::size_t column) override {
        return ui::shownText(list.cellText(row, column));
    }
    [[nodiscard]] std::size_t seenRowCount(ui::VirtualList& list) override {
        return list.peer() != nullptr ? list.rowCount() : 0;
    }
    [[nodiscard]] std::u16string seenPicture(ui::VirtualList& list, std::size_t row) override {
        return list.rowPicture(row) ? list.source()->rowPicture(row) : std::u16string();
    }
    [[nodiscard]] std::vector<std::u16string> seenItems(const ui::Tree& tree) override;
    void look(ui::Tree& tree) override { static_cast<void>(user_.look(tree)); }
    [[nodiscard]] bool seesItem(const ui::Tree& tree, ui::TreeItemId item) override {
        return tree.peer() != nullptr && tree.isItemShown(item);
    }
    [[nodiscard]] std::vector<std::u16string> seenTabs(const ui::TabStrip& strip) override {
        std::vector<std::u16string> tabs;
        for (std::size_t i = 0; i < strip.tabs().size(); ++i)
            if (strip.tabs()[i].visible)
                tabs.push_back((strip.selected() == i ? u"*" : u"") + strip.tabs()[i].caption);
        return tabs;
    }
    [[nodiscard]] ui::Twips seenTop(const ui::Control& control) override {
        return control.bounds().top - control.parent()->scrolled();
    }
    [[nodiscard]] ui::Twips seenPictureWidth(const ui::PictureBox& box) override {
        return ui::toTwips(box.pictureAt(96).width, 96);
    }
    [[nodiscard]] int seenPoints(const ui::Label& label) override { return label.font().points; }
    [[nodiscard]] std::size_t peerCount() override { return desktop_.livePeers(); }
    void verify() override { desktop_.verify(); }

  private:
    headless::HeadlessDesktop desktop_;
    headless::User user_{desktop_};
};

std::vector<std::u16string> HeadlessBackend::seenItems(const ui::Tree& tree) {
    std::vector<std::u16string> lines;
    for (ui::TreeItemId item = tree.shownAfter(ui::TreeItemId::Root); item != ui::TreeItemId::None;
         item = tree.shownAfter(item)) {
        std::u16string& line = lines.emplace_back();
        for (ui::TreeItemId above = tree.parentOf(item); above != ui::TreeItemId::Root;
             above = tree.parentOf(above))
            line += u"  ";
        line += tree.isExpanded(item) ? u"- " : tree.mayHaveChildren(item) ? u"+ " : u". ";
        line += ui::shownText(tree.itemText(item));
        const std::u16string& key = tree.itemPicture(item);
        if (tree.images() && tree.images()->placeOf(key))
            line += u" [" + key + u"]";
        line += tree.isBold(item) ? u"!" : u"";
        line += tree.selected() == item ? u"*" : u"";
    }
    return lines;
}

}  // namespace

std::unique_ptr<Backend> makeBackend() {
    return std::make_unique<HeadlessBackend>();
}

}  // namespace quorel::conformance
