// What a list of a million rows costs beside one of a thousand: to show it, to fill it anew, to choose a row
// in it.

#include <windows.h>

#include <memory>
#include <string>

#include "bench/ratio.h"
#include "platform/automation/text.h"
#include "platform/ui/form.h"
#include "platform/ui/virtual_list.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/windows_desktop.h"

namespace {

using namespace quorel;

class Rows final : public ui::RowSource {
  public:
    explicit Rows(std::size_t count) : count_(count) {}
    [[nodiscard]] std::size_t rowCount() const override { return count_; }
    [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) override {
        ++asked;
        return automation::decimal(static_cast<std::int64_t>(row + column));
    }
    std::size_t asked = 0;

  private:
    std::size_t count_;
};

void pump() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

struct Window {
    Window(ui::Desktop& desktop, std::size_t count)
        : rows(count),
          form(std::make_shared<ui::Form>(desktop, u"frmBench")),
          list(form->add<ui::VirtualList>(u"List")) {
        form->setClientSize({{9000}, {7500}});
        list.setBounds({{0}, {0}, {9000}, {7500}});
        list.setColumns({{u"One", {2000}}, {u"Two", {2000}}, {u"Three", {2000}}});
        list.setSource(&rows);
    }
    void paintedNow() const {
        ::UpdateWindow(win32::handleOf(list));
        pump();
    }
    void show() const {
        form->show(ui::Modality::Modeless);
        paintedNow();
    }
    void refill() {
        list.rowsChanged();
        paintedNow();
    }
    void select(std::size_t row) {
        list.selectRow(row);
        paintedNow();
    }

    Rows rows;
    std::shared_ptr<ui::Form> form;
    ui::VirtualList& list;
};

void showAndUnload(ui::Desktop& desktop, std::size_t count) {
    const Window window(desktop, count);
    window.show();
}

}  // namespace

int main() {
    constexpr std::size_t kMany = 1'000'000, kFew = 1'000;
    win32::WindowsDesktop desktop(::GetModuleHandleW(nullptr));
    bench::compare(
        "window shown and painted, 1,000,000 / 1,000 rows", 1, 1.2, [&] { showAndUnload(desktop, kMany); },
        [&] { showAndUnload(desktop, kFew); }, 21);
    Window many(desktop, kMany), few(desktop, kFew);
    many.show();
    few.show();
    bench::compare(
        "list filled anew and painted, 1,000,000 / 1,000 rows", 1, 1.2, [&] { many.refill(); },
        [&] { few.refill(); }, 21);
    std::size_t row = 0;
    bench::compare(
        "row selected and painted, 1,000,000 / 1,000 rows", 1, 1.2, [&] { many.select(++row % kFew); },
        [&] { few.select(++row % kFew); }, 21);
    many.rows.asked = 0;
    many.refill();
    std::printf("cells asked for one painting of the list: %zu\n", many.rows.asked);
    return 0;
}
