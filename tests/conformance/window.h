#pragma once

// The window that the suite is run on, and the fixture of its tests.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/virtual_list.h"
#include "tests/conformance/backend.h"

namespace quorel::conformance {

/// Rows whose cells say where they are ("r5c1"), counting what is asked.
class NumberedRows final : public ui::RowSource {
  public:
    std::size_t count = 100;
    std::size_t cellsAsked = 0;
    std::function<void()> whenAsked;

    [[nodiscard]] std::size_t rowCount() const override { return count; }
    [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) override;
};

/// A form with one control of each kind, in this tab order: box, ok, cancel, list, inner (within a panel),
/// splitter. Its events are written down in `log`.
struct Window {
    explicit Window(ui::Desktop& desktop);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void logEvents();

    NumberedRows rows;
    std::vector<std::string> log;
    std::shared_ptr<ui::Form> form;
    ui::Label& label;
    ui::TextBox& box;
    ui::Button& ok;
    ui::Button& cancel;
    ui::VirtualList& list;
    ui::Panel& panel;
    ui::TextBox& inner;
    ui::PictureBox& picture;
    ui::StatusBar& bar;
    ui::Splitter& splitter;
    ui::MenuItem& file;
    ui::MenuItem& create;
};

class Conformance : public ::testing::Test {
  protected:
    void TearDown() override;

    std::unique_ptr<Backend> backend = makeBackend();
};

using Log = std::vector<std::string>;

}  // namespace quorel::conformance
