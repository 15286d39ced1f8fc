// Every entry by which a peer reports, called as a peer calls it: holding nothing but the control, while a
// handler drops the last reference to the form.

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/headless/headless_desktop.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/virtual_list.h"

namespace quorel::ui {

class KeepAlive : public ::testing::Test {
  protected:
    /// The handler that lets the form go, and looks whether it is still there.
    [[nodiscard]] std::function<void()> drop() {
        return [this] {
            form.reset();
            aliveInside = !watch.expired();
        };
    }
    void TearDown() override {
        EXPECT_TRUE(aliveInside);
        EXPECT_TRUE(watch.expired());
        EXPECT_EQ(desktop.livePeers(), 0U);
    }

    headless::HeadlessDesktop desktop;
    std::shared_ptr<Form> form = std::make_shared<Form>(desktop, u"frmTest");
    std::weak_ptr<Form> watch = form;
    bool aliveInside = false;
};

class KeepAliveInList : public KeepAlive, private RowSource {
  protected:
    KeepAliveInList() {
        list.setColumns({{u"a", {100}}});
        list.setSource(this);
        list.selectRow(1);
        form->show(Modality::Modeless);
    }
    [[nodiscard]] std::size_t rowCount() const override { return 3; }
    [[nodiscard]] std::u16string cellText(std::size_t, std::size_t) override {
        drop()();
        return u"cell";
    }
    void prepareRows(std::size_t, std::size_t) override { drop()(); }

    VirtualList& list = form->add<VirtualList>(u"List");
};

TEST_F(KeepAlive, ButtonClick) {
    auto& button = form->add<Button>(u"Button");
    button.onClick.connect(drop());
    button.userClicked();
}

TEST_F(KeepAlive, PictureClick) {
    auto& picture = form->add<PictureBox>(u"Picture");
    picture.onClick.connect(drop());
    picture.userClicked();
}

TEST_F(KeepAlive, TypedText) {
    auto& box = form->add<TextBox>(u"Box");
    box.onChange.connect(drop());
    box.userTyped(u"x");
}

TEST_F(KeepAlive, SplitterMove) {
    auto& splitter = form->add<Splitter>(u"Splitter", Orientation::Vertical);
    splitter.onMove.connect([this](Twips) { drop()(); });
    splitter.userMoved({5});
}

TEST_F(KeepAlive, Focus) {
    auto& box = form->add<TextBox>(u"Box");
    auto& other = form->add<TextBox>(u"Other");
    form->show(Modality::Modeless);
    box.onLostFocus.connect(drop());
    form->userFocused(&other);
}

TEST_F(KeepAlive, KeyOfAControlAndTheForm) {
    auto& box = form->add<TextBox>(u"Box");
    form->show(Modality::Modeless);
    box.onKeyDown.connect([this](KeyEvent&) { drop()(); });
    static_cast<void>(form->userKeyDown({Key::F5}));
}

TEST_F(KeepAlive, MenuEntry) {
    MenuItem& entry = form->menuBar().add(u"mnuFile", u"File").add(u"mnuNew", u"New");
    entry.onClick.connect(drop());
    entry.userClicked();
}

TEST_F(KeepAlive, ContextMenuEntry) {
    MenuItem& entry = form->add<TextBox>(u"Box").contextMenu().add(u"mnuCopy", u"Copy");
    entry.onClick.connect(drop());
    entry.userClicked();
}

TEST_F(KeepAlive, ContextMenu) {
    auto& box = form->add<TextBox>(u"Box");
    box.onContextMenu.connect(drop());
    EXPECT_EQ(box.userContextMenu(), nullptr);
}

TEST_F(KeepAlive, ResizeByTheUser) {
    form->onResize.connect(drop());
    form->userResized({{9}, {9}});
}

TEST_F(KeepAlive, ResizeByTheProgram) {
    form->onResize.connect(drop());
    form->setClientSize({{9}, {9}});
}

TEST_F(KeepAlive, Load) {
    form->onLoad.connect(drop());
    form->show(Modality::Modeless);
}

TEST_F(KeepAlive, CloseBox) {
    form->show(Modality::Modeless);
    form->onQueryUnload.connect([this](bool&) { drop()(); });
    form->userClosed();
}

TEST_F(KeepAlive, Unload) {
    form->show(Modality::Modeless);
    form->onUnload.connect(drop());
    form->unload();
}

TEST_F(KeepAliveInList, Select) {
    list.onSelect.connect(drop());
    list.userSelected(2);
}

TEST_F(KeepAliveInList, Activate) {
    list.onActivate.connect(drop());
    list.userActivated();
}

TEST_F(KeepAliveInList, ColumnClick) {
    list.onColumnClick.connect([this](std::size_t) { drop()(); });
    list.userClickedColumn(0);
}

TEST_F(KeepAliveInList, ColumnResize) {
    list.onColumnResize.connect([this](std::size_t) { drop()(); });
    list.userResizedColumn(0, {7});
}

TEST_F(KeepAliveInList, Find) {
    list.onFind.connect(
        [this](const std::u16string&, std::size_t, std::optional<std::size_t>&) { drop()(); });
    EXPECT_EQ(list.userFinds(u"x", 0), std::nullopt);
}

TEST_F(KeepAliveInList, CellText) {
    EXPECT_EQ(list.cellText(0, 0), u"cell");
}

TEST_F(KeepAliveInList, PrepareRows) {
    list.prepareRows(0, 2);
}

}  // namespace quorel::ui
