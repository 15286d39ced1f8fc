#pragma once

#include <memory>
#include <vector>

#include "platform/ui/check_box.h"
#include "platform/ui/desktop.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/scroll_panel.h"
#include "platform/ui/tab_strip.h"
#include "platform/ui/tree.h"
#include "platform/ui/virtual_list.h"

namespace quorel::win32::testing {

/// A window with a tree beside pages under tabs, to look at and to test on.
struct PagesForm {
    explicit PagesForm(ui::Desktop& desktop);
    ~PagesForm();
    PagesForm(const PagesForm&) = delete;
    PagesForm& operator=(const PagesForm&) = delete;

    class Rows final : public ui::RowSource {
      public:
        [[nodiscard]] std::size_t rowCount() const override { return 40; }
        [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) override;
        [[nodiscard]] std::u16string rowPicture(std::size_t row) override {
            return row % 3 == 0 ? u"Link" : u"Node";
        }
    };

    Rows rows;
    std::shared_ptr<ui::ImageList> images = std::make_shared<ui::ImageList>();
    std::shared_ptr<ui::Form> form;
    ui::Tree& tree;
    ui::PictureBox& captionPicture;
    ui::Label& caption;
    ui::Line& line;
    ui::TabStrip& strip;
    ui::ScrollPanel& settings;
    std::vector<ui::TextBox*> boxes;
    ui::VirtualList& list;
    ui::TreeItemId packages{}, people{}, bash{};

    void layOut();

  private:
    void fillTree();
    void fillSettings();
    void showPage(std::size_t index);
};

}  // namespace quorel::win32::testing
