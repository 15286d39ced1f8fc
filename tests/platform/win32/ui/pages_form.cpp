#include "tests/platform/win32/ui/pages_form.h"

#include "platform/automation/text.h"
#include "tests/platform/win32/ui/gallery_form.h"

namespace quorel::win32::testing {

using ui::TreeItemId;
using ui::Twips;
using namespace ui::literals;

std::u16string PagesForm::Rows::cellText(std::size_t row, std::size_t column) {
    return (column == 0 ? u"libquorel" : u"version 1.") + automation::decimal(static_cast<std::int64_t>(row));
}

PagesForm::PagesForm(ui::Desktop& desktop)
    : form(std::make_shared<ui::Form>(desktop, u"frmPages")),
      tree(form->add<ui::Tree>(u"TreeView1")),
      captionPicture(form->add<ui::PictureBox>(u"CaptionBox")),
      caption(form->add<ui::Label>(u"PaneCaption")),
      line(form->add<ui::Line>(u"Line1")),
      strip(form->add<ui::TabStrip>(u"vsIndexTab1")),
      settings(strip.add<ui::ScrollPanel>(u"picOptions")),
      list(strip.add<ui::VirtualList>(u"ListView1")) {
    form->setText(u"Pages beside a tree");
    form->setClientSize({10800_tw, 6600_tw});
    images->set(u"Node", {*disc(16, {40, 110, 190}), *disc(32, {40, 110, 190})});
    images->set(u"Link", {*disc(16, {200, 90, 40}), *disc(32, {200, 90, 40})});
    fillTree();
    captionPicture.setPicture(disc(32, {40, 110, 190}));
    caption.setText(u"Packages && their files");
    caption.setFont({u"Arial", 16, true});
    for (const char16_t* const name : {u"Paths", u"View & print", u"Packages"})
        strip.addTab(name);
    fillSettings();
    list.setColumns({{u"Name", 2700_tw}, {u"Version", 1800_tw}});
    list.setImages(images);
    list.setSource(&rows);
    list.selectRow(2);
    strip.onSelect.connect([this](std::size_t, std::size_t index) { showPage(index); });
    showPage(0);
    form->onResize.connect([this] { layOut(); });
    layOut();
}

/// The rows end before a form that somebody else still holds.
PagesForm::~PagesForm() {
    list.setSource(nullptr);
}

void PagesForm::fillTree() {
    tree.setImages(images);
    packages = tree.add(TreeItemId::Root, {u"Packages", u"Node", true});
    people = tree.add(TreeItemId::Root, {u"Maintainers & friends", u"Link", false, true});
    tree.add(TreeItemId::Root, {u"Without a picture"});
    bash = tree.add(packages, {u"bash", u"Node"});
    const TreeItemId depends = tree.add(bash, {u"Depends on", u"Link"});
    tree.add(depends, {u"libc6", u"Node", false, true});
    tree.add(depends, {u"libtinfo6", u"Node", false, true});
    tree.add(packages,
             {u"zlib1g, a package whose name is longer than the tree is wide", u"Node", false, true});
    tree.expand(depends);
    tree.select(bash);
    tree.expand(bash);
    tree.onExpand.connect([this](TreeItemId item) {
        if (tree.childCount(item) == 0)
            tree.add(item, {u"Made when it was wanted", u"Node", false, true});
    });
}

void PagesForm::fillSettings() {
    for (int row = 0; row < 14; ++row) {
        const Twips top{120 + row * 420};
        ui::Label& label = settings.add<ui::Label>(u"Label");
        label.setText(u"Setting " + automation::decimal(row + 1) + u":");
        label.setBounds({120_tw, top + 45_tw, 1500_tw, 240_tw});
        ui::TextBox& box = settings.add<ui::TextBox>(u"EditBox");
        box.setText(u"value");
        box.setBounds({1680_tw, top, 2400_tw, 315_tw});
        boxes.push_back(&box);
    }
    ui::CheckBox& check = settings.add<ui::CheckBox>(u"Check");
    check.setText(u"The last of them");
    check.setBounds({120_tw, 6000_tw, 2400_tw, 300_tw});
    settings.setContentHeight(6420_tw);
}

void PagesForm::showPage(std::size_t index) {
    settings.setVisible(index != 2);
    list.setVisible(index == 2);
}

void PagesForm::layOut() {
    const ui::Size size = form->clientSize();
    const Twips left = 3300_tw, gap = 120_tw;
    tree.setBounds({0_tw, 0_tw, left - gap, size.height});
    captionPicture.setBounds({left, gap, 480_tw, 480_tw});
    caption.setBounds({left + 600_tw, gap + 30_tw, size.width - left - 720_tw, 420_tw});
    line.setBounds({left, 720_tw, size.width - left - gap, 30_tw});
    strip.setBounds({left, 840_tw, size.width - left - gap, size.height - 960_tw});
    settings.setBounds(strip.clientBounds());
    list.setBounds(strip.clientBounds());
}

}  // namespace quorel::win32::testing
