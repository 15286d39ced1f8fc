#include "platform/headless/dump.h"

#include <cstdio>

#include "platform/automation/text.h"
#include "platform/ui/check_box.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/control_visitor.h"
#include "platform/ui/drawing_area.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/progress_bar.h"
#include "platform/ui/scroll_panel.h"
#include "platform/ui/tab_strip.h"
#include "platform/ui/tree.h"
#include "platform/ui/virtual_list.h"

namespace quorel::headless {

namespace {

/// Text in quotes, with what would break a line written as a number.
[[nodiscard]] std::string escaped(std::u16string_view text) {
    std::string result = "\"";
    for (const char unit : automation::toUtf8(text)) {
        if (static_cast<unsigned char>(unit) < 0x20) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(unit));
            result += code;
        } else {
            result += unit;
        }
    }
    return result + "\"";
}

[[nodiscard]] std::string number(ui::Twips length) {
    return std::to_string(length.value);
}

/// Names the kind of a control and what only that kind has.
class Describer final : public ui::ControlVisitor {
  public:
    std::string kind, extra;

    void visit(ui::Form& form) override {
        kind = "Form";
        extra = ' ';
        extra += number(form.clientSize().width) + 'x' + number(form.clientSize().height);
        extra += form.isVisible()  ? form.isModal() ? " modal" : " modeless"
                 : form.isLoaded() ? " hidden"
                                   : " unloaded";
        extra += form.isMaximized() ? " maximized" : "";
    }
    void visit(ui::Panel&) override { kind = "Panel"; }
    void visit(ui::Label& label) override {
        kind = "Label";
        const ui::Font& font = label.font();
        extra += font.family.empty() ? "" : " font " + escaped(font.family);
        extra += font.points == 0 ? "" : " size " + std::to_string(font.points);
        extra += font.bold ? " bold" : "";
    }
    void visit(ui::TextBox& box) override {
        kind = "TextBox";
        extra = box.isReadOnly() ? " read-only" : "";
    }
    void visit(ui::Button& button) override {
        kind = "Button";
        const ui::Form* const form = button.form();
        extra += form != nullptr && form->defaultButton() == &button ? " default" : "";
        extra += form != nullptr && form->cancelButton() == &button ? " cancel" : "";
    }
    void visit(ui::CheckBox& box) override {
        kind = "CheckBox";
        extra = box.value() == ui::CheckValue::Grayed ? " grayed" : box.isChecked() ? " checked" : "";
    }
    void visit(ui::ComboBox& box) override {
        kind = "ComboBox";
        extra = box.isEditable() ? " editable" : "";
        extra += " items " + std::to_string(box.items().size());
        if (box.listIndex())
            extra += " chosen " + std::to_string(*box.listIndex());
    }
    void visit(ui::ProgressBar& bar) override {
        kind = "ProgressBar";
        extra = ' ' + std::to_string(bar.value()) + " in " + std::to_string(bar.minimum()) + ".." +
                std::to_string(bar.maximum());
    }
    void visit(ui::PictureBox&) override { kind = "PictureBox"; }
    void visit(ui::VirtualList& list) override {
        kind = "VirtualList";
        for (const ui::Column& column : list.columns()) {
            extra += extra.empty() ? " (" : " ";
            extra += escaped(column.title);
            extra += column.sort == ui::SortOrder::Ascending    ? "^"
                     : column.sort == ui::SortOrder::Descending ? "v"
                                                                : "";
        }
        extra += extra.empty() ? " (no columns)" : ")";
        extra += " rows " + std::to_string(list.rowCount());
        if (list.selectedRow())
            extra += " selected " + std::to_string(*list.selectedRow());
    }
    void visit(ui::StatusBar& bar) override {
        kind = "StatusBar";
        for (const ui::StatusBar::PanelState& panel : bar.panels())
            extra += " [" + escaped(panel.text) + "]";
    }
    void visit(ui::Splitter& splitter) override {
        kind = "Splitter";
        extra = splitter.orientation() == ui::Orientation::Vertical ? " vertical" : " horizontal";
    }
    void visit(ui::Line& line) override {
        kind = "Line";
        extra = line.orientation() == ui::Orientation::Vertical ? " vertical" : " horizontal";
    }
    void visit(ui::ScrollPanel& panel) override {
        kind = "ScrollPanel";
        extra = " content " + number(panel.contentHeight());
        if (panel.scrolled() != ui::Twips{})
            extra += " at " + number(panel.scrolled());
    }
    void visit(ui::TabStrip& strip) override {
        kind = "TabStrip";
        for (std::size_t i = 0; i < strip.tabs().size(); ++i) {
            const ui::TabStrip::Tab& tab = strip.tabs()[i];
            if (tab.visible)
                extra += (strip.selected() == i ? " [*" : " [") + escaped(tab.caption) + "]";
        }
        extra += extra.empty() ? " (no tabs)" : "";
    }
    void visit(ui::DrawingArea&) override { kind = "DrawingArea"; }
    void visit(ui::Tree& tree) override {
        kind = "Tree";
        extra = " items " + std::to_string(tree.itemCount());
    }
};

/// The items that are shown: how deep, whether open (-) or closed (+), whether selected (*).
void dumpItems(const ui::Tree& tree, const std::string& indent, std::string& out) {
    for (ui::TreeItemId item = tree.shownAfter(ui::TreeItemId::Root); item != ui::TreeItemId::None;
         item = tree.shownAfter(item)) {
        out += indent;
        for (ui::TreeItemId above = tree.parentOf(item); above != ui::TreeItemId::Root;
             above = tree.parentOf(above))
            out += "  ";
        out += tree.isExpanded(item) ? "- " : tree.mayHaveChildren(item) ? "+ " : ". ";
        out += escaped(tree.itemText(item));
        const std::u16string& picture = tree.itemPicture(item);
        out += picture.empty() ? "" : " picture " + automation::toUtf8(picture);
        out += tree.isBold(item) ? " bold" : "";
        out += tree.selected() == item ? " selected" : "";
        out += '\n';
    }
}

void dumpMenu(const ui::MenuItem& menu, const std::string& indent, std::string& out) {
    for (const auto& item : menu.items()) {
        out += indent + (item->isSeparator() ? "---"
                                             : "MenuItem " + automation::toUtf8(item->name()) + " " +
                                                   escaped(item->caption()));
        out += item->isVisible() ? "" : " hidden";
        out += item->isEnabled() ? "" : " disabled";
        out += item->isChecked() ? " checked" : "";
        out += "\n";
        dumpMenu(*item, indent + "  ", out);
    }
}

void dumpControl(ui::Control& control, const std::string& indent, std::string& out) {
    Describer describer;
    control.accept(describer);
    out += indent + describer.kind + " " + automation::toUtf8(control.name()) + " " + escaped(control.text());
    if (control.parent() != nullptr) {
        const ui::Rect& r = control.bounds();
        out += " [" + number(r.left) + "," + number(r.top) + " " + number(r.width) + "x" + number(r.height) +
               "]";
        out += control.isVisible() ? "" : " hidden";
    }
    out += describer.extra;
    out += control.isEnabled() ? "" : " disabled";
    out += control.hasFocus() ? " focus" : "";
    out += "\n";
    if (const auto* const tree = dynamic_cast<const ui::Tree*>(&control))
        dumpItems(*tree, indent + "  ", out);
    if (auto* const container = dynamic_cast<ui::Container*>(&control))
        for (const auto& child : container->children())
            dumpControl(*child, indent + "  ", out);
}

}  // namespace

std::string dump(ui::Form& form) {
    std::string out;
    dumpControl(form, "", out);
    if (form.menuBarIfAny() != nullptr)
        dumpMenu(form.menuBar(), "  ", out);
    return out;
}

}  // namespace quorel::headless
