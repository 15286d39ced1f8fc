// Tab strips, panels that scroll, fonts of labels, lines, pictures of rows.

#include <stdexcept>

#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::Key;
using ui::Modality;

namespace {

using Captions = std::vector<std::u16string>;

/// A tab strip with a page that scrolls, before a button.
struct Book {
    explicit Book(ui::Desktop& desktop)
        : form(std::make_shared<ui::Form>(desktop, u"frmBook")),
          strip(form->add<ui::TabStrip>(u"tbsOptions")),
          page(strip.add<ui::ScrollPanel>(u"picOptions")),
          ok(form->add<ui::Button>(u"OK")) {
        form->setClientSize({4500_tw, 3600_tw});
        strip.setBounds({150_tw, 150_tw, 3000_tw, 3000_tw});
        ok.setBounds({3300_tw, 150_tw, 1050_tw, 375_tw});
        strip.addTab(u"Paths & files", u"P");
        strip.addTab(u"View");
        strip.addTab(u"Print");
        page.setBounds(strip.clientBounds());
        page.setContentHeight(6000_tw);
        for (int i = 0; i < 10; ++i) {
            boxes.push_back(&page.add<ui::TextBox>(u"EditBox"));
            boxes.back()->setBounds({150_tw, {600 * i + 150}, 1500_tw, 300_tw});
        }
        strip.onSelect.connect([this](std::size_t from, std::size_t to) {
            log.push_back(std::to_string(from) + "->" + std::to_string(to));
        });
    }

    Log log;
    std::shared_ptr<ui::Form> form;
    ui::TabStrip& strip;
    ui::ScrollPanel& page;
    ui::Button& ok;
    std::vector<ui::TextBox*> boxes;
};

}  // namespace

TEST_F(Conformance, AStripShowsItsVisibleTabs) {
    Book book(backend->desktop());
    book.strip.setTabVisible(1, false);
    book.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenTabs(book.strip), (Captions{u"*Paths & files", u"Print"}));
    book.strip.setTabVisible(1, true);
    book.strip.setCaption(2, u"Printing");
    book.strip.select(1);
    EXPECT_EQ(backend->seenTabs(book.strip), (Captions{u"Paths & files", u"*View", u"Printing"}));
    book.strip.setTabVisible(1, false);
    EXPECT_EQ(backend->seenTabs(book.strip), (Captions{u"Paths & files", u"*Printing"}));
    book.strip.setTabs({});
    EXPECT_EQ(backend->seenTabs(book.strip), Captions{});
    EXPECT_EQ(book.log, Log{});
}

TEST_F(Conformance, TheUserSelectsTabsByMouseAndArrows) {
    Book book(backend->desktop());
    book.strip.setTabVisible(1, false);
    book.form->show(Modality::Modeless);
    backend->clickTab(book.strip, 2);
    backend->clickTab(book.strip, 2);
    EXPECT_EQ(book.log, (Log{"0->2"}));
    book.strip.focus();
    backend->press(*book.form, {Key::Left});
    backend->press(*book.form, {Key::Left});
    backend->press(*book.form, {Key::Right});
    EXPECT_EQ(book.log, (Log{"0->2", "2->0", "0->2"}));
    EXPECT_EQ(backend->seenTabs(book.strip), (Captions{u"Paths & files", u"*Print"}));
    EXPECT_THROW(backend->clickTab(book.strip, 1), std::runtime_error);
}

TEST_F(Conformance, PagesInAStripTakeInput) {
    Book book(backend->desktop());
    book.form->show(Modality::Modeless);
    EXPECT_TRUE(backend->seesControl(*book.boxes[0]));
    backend->enterText(*book.boxes[0], u"typed");
    EXPECT_EQ(book.boxes[0]->text(), u"typed");
    book.page.setVisible(false);
    EXPECT_FALSE(backend->seesControl(*book.boxes[0]));
    EXPECT_THROW(backend->click(*book.boxes[0]), std::runtime_error);
}

TEST_F(Conformance, AHandlerOfAStripMayDestroyTheWindow) {
    Book book(backend->desktop());
    book.form->show(Modality::Modeless);
    book.strip.onSelect.connect([&](std::size_t, std::size_t) { book.form->unload(); });
    backend->clickTab(book.strip, 1);
    EXPECT_EQ(backend->peerCount(), 0U);
}

TEST_F(Conformance, AHandlerOfAStripMayChangeItsTabs) {
    Book book(backend->desktop());
    book.form->show(Modality::Modeless);
    book.strip.onSelect.connect([&](std::size_t, std::size_t) { book.strip.setTabs({{u"Only"}}); });
    backend->clickTab(book.strip, 2);
    EXPECT_EQ(backend->seenTabs(book.strip), (Captions{u"*Only"}));
}

TEST_F(Conformance, APanelScrollsWhatItHolds) {
    Book book(backend->desktop());
    book.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenTop(*book.boxes[2]), 1350_tw);
    backend->scrollTo(book.page, 900_tw);
    EXPECT_EQ(book.page.scrolled(), 900_tw);
    EXPECT_EQ(backend->seenTop(*book.boxes[2]), 450_tw);
    book.boxes[2]->setBounds({150_tw, 1500_tw, 1500_tw, 300_tw});
    EXPECT_EQ(backend->seenTop(*book.boxes[2]), 600_tw);
    ui::TextBox& late = book.page.add<ui::TextBox>(u"Late");
    late.setBounds({1700_tw, 1200_tw, 900_tw, 300_tw});
    EXPECT_EQ(backend->seenTop(late), 300_tw);
    book.page.setContentHeight(300_tw);
    EXPECT_EQ(backend->seenTop(late), 1200_tw);
    EXPECT_THROW(backend->scrollTo(book.page, 300_tw), std::runtime_error);
}

TEST_F(Conformance, WhatGetsTheFocusComesIntoView) {
    Book book(backend->desktop());
    book.boxes[0]->focus();
    book.form->show(Modality::Modeless);
    for (int i = 0; i < 6; ++i)
        backend->press(*book.form, {Key::Tab});
    EXPECT_TRUE(book.boxes[6]->hasFocus());
    const ui::Twips top = backend->seenTop(*book.boxes[6]);
    EXPECT_GE(top, 0_tw);
    EXPECT_LE(top + 300_tw, book.page.bounds().height);
    EXPECT_LT(backend->seenTop(*book.boxes[0]), 0_tw);
}

TEST_F(Conformance, ABoxShowsAPictureOfAListInTheSizeOfTheList) {
    const auto form = std::make_shared<ui::Form>(backend->desktop(), u"frmPictures");
    ui::PictureBox& box = form->add<ui::PictureBox>(u"CaptionBox");
    box.setBounds({0_tw, 0_tw, 900_tw, 900_tw});
    const auto images = std::make_shared<ui::ImageList>(ui::ImageList::kBig);
    box.setImage(images, u"face");
    form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenPictureWidth(box), 0_tw) << "there is none under that key";
    ui::Picture picture{16, 16, {}};
    for (int i = 0; i < 16 * 16; ++i)
        picture.rgba.insert(picture.rgba.end(), {200, 30, 40, 255});
    images->set(u"face", picture);
    EXPECT_EQ(backend->seenPictureWidth(box), 480_tw) << "it follows the list";
    box.setPicture(std::make_shared<const ui::Picture>(picture));
    EXPECT_EQ(backend->seenPictureWidth(box), ui::toTwips(16, 96)) << "one alone stays as it is";
}

TEST_F(Conformance, ALabelHasAFontOfItsOwn) {
    const auto form = std::make_shared<ui::Form>(backend->desktop(), u"frmFonts");
    ui::Label& caption = form->add<ui::Label>(u"PaneCaption");
    caption.setBounds({0_tw, 0_tw, 3000_tw, 600_tw});
    caption.setText(u"Caption");
    caption.setFont({u"Arial", 18, true});
    ui::Line& line = form->add<ui::Line>(u"Line1");
    line.setBounds({0_tw, 600_tw, 3000_tw, 30_tw});
    form->setClientSize({3000_tw, 1500_tw});
    form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenPoints(caption), 18);
    caption.setFont({{}, 12, false});
    EXPECT_EQ(backend->seenPoints(caption), 12);
    EXPECT_TRUE(backend->seesControl(line));
}

TEST_F(Conformance, AClearedPageIsEmptyAndCanBeFilledAgain) {
    Book book(backend->desktop());
    book.form->show(Modality::Modeless);
    backend->click(*book.boxes[1]);
    ASSERT_TRUE(book.boxes[1]->hasFocus());
    const std::size_t peers = backend->peerCount();
    book.page.clear();
    backend->settle();
    EXPECT_TRUE(book.page.children().empty());
    EXPECT_EQ(backend->peerCount(), peers - book.boxes.size());
    EXPECT_TRUE(book.strip.hasFocus());
    auto& fresh = book.page.add<ui::TextBox>(u"EditBox");
    fresh.setBounds({150_tw, 150_tw, 1500_tw, 300_tw});
    backend->enterText(fresh, u"typed");
    EXPECT_EQ(fresh.text(), u"typed");
    book.form->unload();
}

TEST_F(Conformance, AControlMayEndItselfInItsOwnEvent) {
    Book book(backend->desktop());
    book.form->show(Modality::Modeless);
    auto& button = book.page.add<ui::Button>(u"Reset");
    button.setBounds({1800_tw, 150_tw, 600_tw, 300_tw});
    button.onClick.connect([&book] { book.page.clear(); });
    backend->click(button);
    backend->settle();
    EXPECT_TRUE(book.page.children().empty());
    auto& box = book.page.add<ui::TextBox>(u"EditBox");
    box.setBounds({150_tw, 150_tw, 1500_tw, 300_tw});
    box.onChange.connect([&book] { book.page.clear(); });
    backend->enterText(box, u"x");
    backend->settle();
    EXPECT_TRUE(book.page.children().empty());
    EXPECT_TRUE(book.form->isVisible());
    book.form->unload();
}

namespace {

class PicturedRows final : public ui::RowSource {
  public:
    [[nodiscard]] std::size_t rowCount() const override { return 3; }
    [[nodiscard]] std::u16string cellText(std::size_t, std::size_t) override { return u"cell"; }
    [[nodiscard]] std::u16string rowPicture(std::size_t row) override {
        return row == 0 ? u"" : row == 1 ? u"Node" : u"Link";
    }
};

}  // namespace

TEST_F(Conformance, RowsShowTheirPicturesAndFollowTheImageList) {
    PicturedRows rows;
    const auto images = std::make_shared<ui::ImageList>();
    ui::Picture square{16, 16, {}};
    square.rgba.assign(16 * 16 * 4, 255);
    images->set(u"Link", square);
    const auto form = std::make_shared<ui::Form>(backend->desktop(), u"frmPictures");
    form->setClientSize({3000_tw, 3000_tw});
    ui::VirtualList& list = form->add<ui::VirtualList>(u"ListView1");
    list.setBounds({0_tw, 0_tw, 3000_tw, 3000_tw});
    list.setColumns({{u"name", 2000_tw}});
    list.setSource(&rows);
    form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenPicture(list, 2), u"");
    list.setImages(images);
    EXPECT_EQ(backend->seenPicture(list, 0), u"");
    EXPECT_EQ(backend->seenPicture(list, 1), u"");
    EXPECT_EQ(backend->seenPicture(list, 2), u"Link");
    images->set(u"Node", square);
    EXPECT_EQ(backend->seenPicture(list, 1), u"Node");
    form->unload();
}

}  // namespace quorel::conformance
