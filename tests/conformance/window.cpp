#include "tests/conformance/window.h"

#include "platform/automation/text.h"

namespace quorel::conformance {

using namespace ui::literals;

std::u16string NumberedRows::cellText(std::size_t row, std::size_t column) {
    ++cellsAsked;
    if (whenAsked)
        whenAsked();
    std::u16string text = u"r";
    text += automation::decimal(static_cast<std::int64_t>(row));
    text += u'c';
    text += automation::decimal(static_cast<std::int64_t>(column));
    return text;
}

Window::Window(ui::Desktop& desktop)
    : form(std::make_shared<ui::Form>(desktop, u"frmConformance")),
      label(form->add<ui::Label>(u"NameLabel")),
      box(form->add<ui::TextBox>(u"NameBox")),
      ok(form->add<ui::Button>(u"OK")),
      cancel(form->add<ui::Button>(u"Cancel")),
      list(form->add<ui::VirtualList>(u"List")),
      panel(form->add<ui::Panel>(u"Panel")),
      inner(panel.add<ui::TextBox>(u"Inner")),
      picture(form->add<ui::PictureBox>(u"Picture")),
      bar(form->add<ui::StatusBar>(u"Bar")),
      splitter(form->add<ui::Splitter>(u"Splitter", ui::Orientation::Vertical)),
      file(form->menuBar().add(u"mnuFile", u"&File")),
      create(file.add(u"mnuNew", u"&New", {ui::key('N'), ui::Modifiers::Control})) {
    form->setText(u"Conformance");
    form->setClientSize({7500_tw, 6000_tw});
    label.setText(u"&Name");
    label.setBounds({150_tw, 150_tw, 900_tw, 300_tw});
    box.setBounds({1200_tw, 150_tw, 3000_tw, 300_tw});
    ok.setText(u"OK");
    ok.setBounds({4500_tw, 150_tw, 1200_tw, 375_tw});
    cancel.setText(u"&Cancel");
    cancel.setBounds({5850_tw, 150_tw, 1200_tw, 375_tw});
    list.setBounds({150_tw, 750_tw, 4500_tw, 3600_tw});
    list.setColumns({{u"name", 2000_tw}, {u"value", 1500_tw}});
    list.setSource(&rows);
    panel.setBounds({4800_tw, 750_tw, 2400_tw, 900_tw});
    inner.setBounds({150_tw, 150_tw, 1500_tw, 300_tw});
    picture.setBounds({5100_tw, 1800_tw, 600_tw, 600_tw});
    bar.setBounds({0_tw, 5700_tw, 7500_tw, 300_tw});
    bar.setPanels({{u"ready", 3000_tw}, {u"", 3000_tw}});
    splitter.setBounds({4680_tw, 750_tw, 90_tw, 3600_tw});
    list.contextMenu().add(u"mnuCopy", u"&Copy");
}

/// The source ends before a form that somebody else still holds.
Window::~Window() {
    if (form)
        list.setSource(nullptr);
}

void Window::logEvents() {
    const auto write = [this](const char* event) { return [this, event] { log.emplace_back(event); }; };
    form->onLoad.connect(write("load"));
    form->onUnload.connect(write("unload"));
    form->onQueryUnload.connect([this](bool&) { log.emplace_back("query"); });
    form->onResize.connect(write("resize"));
    box.onChange.connect(write("box change"));
    box.onGotFocus.connect(write("box got"));
    box.onLostFocus.connect(write("box lost"));
    ok.onClick.connect(write("ok click"));
    ok.onGotFocus.connect(write("ok got"));
    ok.onLostFocus.connect(write("ok lost"));
    cancel.onClick.connect(write("cancel click"));
    list.onSelect.connect(write("select"));
    list.onActivate.connect(write("activate"));
    list.onColumnClick.connect(
        [this](std::size_t column) { log.push_back(column == 0 ? "column 0" : "column 1"); });
    picture.onClick.connect(write("picture click"));
    create.onClick.connect(write("new"));
    list.onContextMenu.connect(write("context menu"));
    list.contextMenu().find(u"mnuCopy")->onClick.connect(write("copy"));
}

void Conformance::TearDown() {
    backend->settle();
    EXPECT_NO_THROW(backend->verify());
    EXPECT_EQ(backend->peerCount(), 0U);
}

}  // namespace quorel::conformance
