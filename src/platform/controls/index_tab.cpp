#include "platform/controls/index_tab.h"

namespace quorel::controls {

namespace {

/// Invisible before the strip can show it.
class Page final : public ui::Panel {
  public:
    explicit Page(std::u16string_view name) : Panel(name) { setVisible(false); }
};

}  // namespace

ui::Panel& IndexTab::addPage(std::u16string_view name) {
    Page& page = add<Page>(name);
    page.setBounds(pageArea());
    pages_.push_back(&page);
    return page;
}

/// Measuring takes the platform a window; there may be thousands of pages.
const ui::Rect& IndexTab::pageArea() {
    if (!area_)
        area_ = clientBounds();
    return *area_;
}

void IndexTab::hideTabs() {
    for (std::size_t index = tabs().size(); index > 0; --index)
        setTabVisible(index - 1, false);
}

void IndexTab::showTab(std::size_t index, std::u16string_view caption) {
    while (tabs().size() <= index)
        setTabVisible(addTab(u""), false);
    setCaption(index, caption);
    setTabVisible(index, true);
}

void IndexTab::boundsChanged() {
    area_ = clientBounds();
    for (ui::Panel* const page : pages_)
        page->setBounds(*area_);
}

}  // namespace quorel::controls
