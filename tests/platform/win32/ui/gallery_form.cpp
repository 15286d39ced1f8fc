#include "tests/platform/win32/ui/gallery_form.h"

#include <algorithm>
#include <cmath>

#include "platform/automation/text.h"
#include "platform/ui/glyphs.h"

namespace quorel::win32::testing {

using ui::Twips;
using namespace ui::literals;

std::u16string NumberedRows::cellText(std::size_t row, std::size_t column) {
    ++asked;
    const auto number = static_cast<std::int64_t>(row);
    switch (column) {
        case 0:
            return u"Package " + automation::decimal(number);
        case 1:
            return automation::decimal(number * 37 % 1000);
        default:
            return u"Depends on package " + automation::decimal(number * 7 % 1009);
    }
}

std::shared_ptr<const ui::Picture> disc(std::int32_t size, ui::Colour colour) {
    auto picture = std::make_shared<ui::Picture>();
    picture->width = picture->height = size;
    const double middle = (size - 1) / 2.0;
    for (std::int32_t y = 0; y < size; ++y)
        for (std::int32_t x = 0; x < size; ++x) {
            const double distance = std::hypot(x - middle, y - middle);
            const double cover = std::clamp(middle + 0.5 - distance, 0.0, 1.0);
            picture->rgba.insert(picture->rgba.end(), {colour.red, colour.green, colour.blue,
                                                       static_cast<std::uint8_t>(cover * 255)});
        }
    return picture;
}

Gallery::Gallery(ui::Desktop& desktop, std::u16string_view name)
    : form(std::make_shared<ui::Form>(desktop, name)) {
    form->setText(u"Gallery of controls");
    form->setClientSize({10800_tw, 7200_tw});
    form->setMinimumClientSize({6000_tw, 5000_tw});
    ui::MenuItem& file = form->menuBar().add(u"mnuFile", u"&File");
    file.add(u"mnuOpen", u"&Open\u2026", {ui::key('O'), ui::Modifiers::Control});
    file.addSeparator();
    file.add(u"mnuExit", u"E&xit");
    ui::MenuItem& view = form->menuBar().add(u"mnuView", u"&View");
    view.add(u"mnuCounts", u"Show &counts").setChecked(true);
    view.add(u"mnuGrey", u"Not now", {ui::Key::F5}).setEnabled(false);

    label = &form->add<ui::Label>(u"lblName");
    label->setText(u"&Name of the package:");
    box = &form->add<ui::TextBox>(u"NameBox");
    box->setText(u"libquorel0");
    box->setToolTip(u"What the package is called");
    notes = &form->add<ui::TextBox>(u"Notes");
    notes->setMultiLine(true);
    notes->setText(u"Several lines,\r\nwith Gr\u00fc\u00dfe and \u4f60\u597d,\r\nand a NUL: [" +
                   std::u16string(1, u'\0') + u"] shown as a symbol.");
    list = &form->add<ui::VirtualList>(u"Packages");
    list->setColumns({{u"Name", 1800_tw, ui::Alignment::Left, ui::SortOrder::Ascending},
                      {u"Size", 900_tw, ui::Alignment::Right},
                      {u"Relation", 2400_tw}});
    list->setBackground(ui::Colour{235, 235, 255});
    list->setSource(&rows);
    list->selectRow(3);
    list->contextMenu().add(u"mnuCopy", u"&Copy", {ui::key('C'), ui::Modifiers::Control});
    splitter = &form->add<ui::Splitter>(u"Splitter", ui::Orientation::Vertical);
    splitter->onMove.connect([this](Twips position) {
        split = std::clamp(position, 1500_tw, form->clientSize().width - 1500_tw);
        layOut();
    });
    side = &form->add<ui::VirtualList>(u"Empty");
    side->setColumns({{u"Nothing yet", 2400_tw}});
    side->setBackground(ui::Colour{255, 255, 210});
    picture = &form->add<ui::PictureBox>(u"Picture");
    picture->setPicture(disc(32, {200, 60, 40}));
    pictured = &form->add<ui::Button>(u"Pictured");
    pictured->setText(u"Green");
    pictured->setPicture(disc(16, {40, 140, 60}));
    addChoices();
    ok = &form->add<ui::Button>(u"OK");
    ok->setText(u"OK");
    cancel = &form->add<ui::Button>(u"Cancel");
    cancel->setText(u"Cancel");
    form->setDefaultButton(ok);
    form->setCancelButton(cancel);
    status = &form->add<ui::StatusBar>(u"Status");
    status->setPanels({{u"1,000,000 packages", 3000_tw}, {u"Ready", 0_tw}});
    form->onResize.connect([this] { layOut(); });
    layOut();
}

void Gallery::addDrawings() {
    using namespace ui::glyphs;
    for (const Shared& drawing :
         {plus(), minus(), newNode(), link(), newLink(), ui::glyphs::remove(), tick(), cross(), save(),
          open(), refresh(), back(), forward(), search(), revert()}) {
        ui::Button& button = form->add<ui::Button>(u"Drawing");
        button.setText(u"Drawing");
        button.setGlyph(drawing);
        button.setToolTip(u"A drawing");
        glyphs.push_back(&button);
    }
    glyphs[3]->setEnabled(false);
    glyphs[5]->setEnabled(false);
    layOut();
}

void Gallery::addChoices() {
    check = &form->add<ui::CheckBox>(u"Check");
    check->setText(u"Dynamic d&irection");
    check->setChecked(true);
    grayed = &form->add<ui::CheckBox>(u"Grayed");
    grayed->setText(u"Undecided");
    grayed->setValue(ui::CheckValue::Grayed);
    kind = &form->add<ui::ComboBox>(u"Kind");
    kind->setItems({u"Depends on", u"Recommends", u"Conflicts with"});
    kind->setListIndex(0);
    edited = &form->add<ui::ComboBox>(u"Edited", ui::ComboStyle::Editable);
    edited->setItems({u"1.0", u"2.0"});
    edited->setText(u"1.5");
    progress = &form->add<ui::ProgressBar>(u"Progress");
    progress->setValue(60);
}

void Gallery::layOut() {
    const ui::Size size = form->clientSize();
    const Twips gap = 120_tw, line = 330_tw, bar = 330_tw, foot = 540_tw, top = 1500_tw;
    const Twips half = split;
    const Twips bottom = size.height - bar - foot;
    label->setBounds({gap, gap, 2160_tw, 255_tw});
    box->setBounds({gap, gap + 270_tw, half - gap, line});
    notes->setBounds({half + gap, gap, size.width - half - gap * 2, top - gap * 2});
    picture->setBounds({gap, gap + 660_tw, 600_tw, 600_tw});
    pictured->setBounds({900_tw, gap + 720_tw, 480_tw, 420_tw});
    Twips left = gap;
    for (ui::Button* const button : glyphs) {
        button->setBounds({left, bottom + 120_tw, 300_tw, 300_tw});
        left += 330_tw;
    }
    check->setBounds({1500_tw, gap + 630_tw, 1800_tw, 300_tw});
    grayed->setBounds({1500_tw, gap + 930_tw, 1800_tw, 300_tw});
    kind->setBounds({half - 1800_tw, gap - 60_tw, 1800_tw, 330_tw});
    edited->setBounds({half - 840_tw, gap + 660_tw, 840_tw, 315_tw});
    progress->setBounds({half - 840_tw, gap + 1020_tw, 840_tw, 240_tw});
    list->setBounds({gap, top, half - gap, bottom - top});
    splitter->setBounds({half, top, gap, bottom - top});
    side->setBounds({half + gap, top, size.width - half - gap * 2, bottom - top});
    ok->setBounds({size.width - 2700_tw, bottom + 90_tw, 1230_tw, 375_tw});
    cancel->setBounds({size.width - 1350_tw, bottom + 90_tw, 1230_tw, 375_tw});
    status->setBounds({0_tw, size.height - bar, size.width, bar});
}

}  // namespace quorel::win32::testing
