// Shows every plain control until its window is closed: `ui_gallery [modal|pages]`.

#include <windows.h>

#include <cstring>

#include "platform/win32/ui/windows_desktop.h"
#include "tests/platform/win32/ui/gallery_form.h"
#include "tests/platform/win32/ui/pages_form.h"

namespace {

/// Rows under headings, one value marked, one explained by a tool tip.
class Grouped final : public quorel::ui::RowSource {
  public:
    [[nodiscard]] std::size_t rowCount() const override { return 9; }
    [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) override {
        if (isGroup(row))
            return row == 0 ? u"General" : u"Appearance";
        return column == 0 ? u"Property" : u"Value";
    }
    [[nodiscard]] std::u16string cellToolTip(std::size_t row, std::size_t column) override {
        return row == 2 && column == 1 ? u"A value of its own" : u"";
    }
    [[nodiscard]] bool hasLooks() const override { return true; }
    [[nodiscard]] bool isGroup(std::size_t row) override { return row % 4 == 0; }
    [[nodiscard]] quorel::ui::CellLook cellLook(std::size_t row, std::size_t column) override {
        if (column == 0)
            return {};
        if (row == 2)
            return {true, {}, {}};
        if (row == 3)
            return {false, quorel::ui::Colour{190, 0, 0}, quorel::ui::Colour{255, 225, 225}};
        return {};
    }
};

void serveMessages() {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

int showPages(quorel::ui::Desktop& desktop) {
    quorel::win32::testing::PagesForm pages(desktop);
    pages.form->onUnload.connect([] { ::PostQuitMessage(0); });
    pages.form->show(quorel::ui::Modality::Modeless);
    serveMessages();
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    using namespace quorel;
    win32::WindowsDesktop desktop(::GetModuleHandleW(nullptr));
    if (count > 1 && std::strcmp(arguments[1], "pages") == 0)
        return showPages(desktop);
    win32::testing::Gallery gallery(desktop);
    gallery.addDrawings();
    Grouped grouped;
    gallery.side->setColumns({{u"Name", {1800}}, {u"Value", {2400}}});
    gallery.side->setSource(&grouped);
    gallery.side->selectRow(5);
    const auto close = [&] { gallery.form->unload(); };
    gallery.ok->onClick.connect(close);
    gallery.cancel->onClick.connect(close);
    gallery.form->onNavigate.connect([&](ui::Navigation where) {
        gallery.status->setPanelText(1, where == ui::Navigation::Back ? u"Back" : u"Forward");
    });
    gallery.form->onUnload.connect([] { ::PostQuitMessage(0); });
    if (count > 1 && std::strcmp(arguments[1], "modal") == 0) {
        gallery.form->show(ui::Modality::Modal);
        return 0;
    }
    gallery.form->show(ui::Modality::Modeless);
    serveMessages();
    return 0;
}
