#pragma once

#include "dialogs/progress.h"
#include "explorer/ht_explorer.h"
#include "platform/ui/progress_bar.h"
#include "tests/explorer/explorer_fixture.h"
#include "tests/support/session_double.h"

namespace quorel::explorer {

/// One whose window tests can look into.
class OpenHTExplorer final : public HTExplorer {
  public:
    using HTExplorer::form;
    using HTExplorer::HTExplorer;
};

/// A progress window that writes down what it is told, and how it stands when it is concealed.
class WatchedProgress final : public automation::NativeObject {
  public:
    WatchedProgress(const frame::Environment& world, std::vector<std::u16string>& log)
        : real_(make<dialogs::Progress>(world)), log_(log) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        using automation::param;
        using Self = WatchedProgress;
        static const automation::ClassTable table =
            automation::ClassTable::of<Self>(u"Progress")
                .method(u"Create", &Self::create)
                .method(u"Destroy", &Self::destroy)
                .method(u"PopUp", &Self::popUp)
                .method(u"Conceal", &Self::conceal)
                .method(u"newTitle", &Self::newTitle, {param(u"text")})
                .method(u"newText", &Self::newText, {param(u"text")})
                .method(u"newCaption", &Self::newCaption, {param(u"text")})
                .method(u"Init", &Self::init, {param(u"initValue"), param(u"maxItem"), param(u"MinItem", 0)})
                .method(u"incValue", &Self::incValue);
        return table;
    }

  private:
    static std::u16string number(std::int32_t value) { return automation::decimal(value); }
    void create() {
        log_.emplace_back(u"Create");
        real_->Create();
    }
    void popUp() {
        log_.emplace_back(u"PopUp");
        real_->PopUp();
    }
    void newTitle(const std::u16string& text) {
        log_.push_back(u"newTitle " + text);
        real_->setTitle(text);
    }
    void newText(const std::u16string& text) {
        log_.push_back(u"newText " + text);
        real_->setText(text);
    }
    void newCaption(const std::u16string& text) { real_->setCaption(text); }
    void init(std::int32_t value, std::int32_t most, std::int32_t least) {
        log_.push_back(u"Init " + number(value) + u" " + number(most) + u" " + number(least));
        real_->Init(value, most, least);
    }
    void incValue() { real_->incValue(0); }
    void conceal() {
        const auto& bar = headless::get<ui::ProgressBar>(*real_->form(), u"pgBar");
        log_.push_back(u"Conceal at " + number(bar.value()) + u" of " + number(bar.maximum()) + u", beyond " +
                       number(real_->getOverflow()));
        real_->Conceal();
    }
    void destroy() {
        log_.emplace_back(u"Destroy");
        real_->Destroy();
    }

    Ref<dialogs::Progress> real_;
    std::vector<std::u16string>& log_;
};

/// A host's explorer over the metamodel of the people; `open` sets it up and shows it modelessly.
///
///     Property1(1) ListView1(1)        panes "Person", "0 Person"
///     Property1(2) ListView1(2)        panes "Company", "0 Company"
///     Property1(3) ListView1(3) (4)    pane "2 WorksFor": to companies, from persons
///     Property1(4) ListView1(5) (6)    pane "2 Knows"
struct HTExplorerTest : ::testing::Test {
    using Texts = std::vector<std::u16string>;
    testing::TestWorld world;
    PeopleWorld model;
    std::vector<std::u16string> progress;
    Ref<testing::SessionDouble> session = make<testing::SessionDouble>();
    Ref<testing::ComponentManagerDouble> components = make<testing::ComponentManagerDouble>();
    Ref<OpenHTExplorer> explorer;

    HTExplorerTest() {
        world.environment.libraryFolder = u"library";
        setPictures(world.desktop);
        server::registerPublicClasses(world.environment);
        session->componentManager = components;
    }
    ~HTExplorerTest() override {
        if (explorer)
            explorer->Destroy();
    }

    /// A node's is one pixel wider than a link's.
    static void setPictures(headless::HeadlessDesktop& desktop) {
        const auto plain = [](std::int32_t size) {
            const auto pixels = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
            return std::vector{ui::Picture{size, size, std::vector<std::uint8_t>(pixels * 4, 255)}};
        };
        desktop.setPicture(u"library\\Node.ico", plain(17));
        desktop.setPicture(u"library\\Link.ico", plain(16));
    }
    void watchProgress() {
        world.classes.add(u"QuorelUtility.Progress",
                          [this] { return Object(make<WatchedProgress>(world.environment, progress)); });
    }
    void create() {
        explorer = make<OpenHTExplorer>(world.environment);
        explorer->Create(u"Hierarchy", session);
        explorer->setRepository(model.repository);
        explorer->Init();
    }
    void open() {
        create();
        explorer->SetupTree();
        explorer->PopUp(false);
        model.script->restart();
    }

    [[nodiscard]] frmHTExplorer& form() { return *explorer->form(); }
    template <class T>
    [[nodiscard]] T& get(std::u16string_view name) {
        return headless::get<T>(form(), name);
    }
    [[nodiscard]] controls::HierarchyTreeView& hierarchy() { return form().HierarchyTreeView1(); }
    [[nodiscard]] ui::Tree& tree() { return hierarchy().tree(); }
    using Path = std::initializer_list<std::u16string_view>;
    [[nodiscard]] TreeItemId at(Path path) { return headless::itemAt(tree(), path); }
    void expand(Path path) { world.user.clickItemButton(tree(), at(path)); }
    /// Opens everything above the entry.
    void reach(Path path) {
        TreeItemId item = TreeItemId::Root;
        for (const std::u16string_view text : path) {
            if (item != TreeItemId::Root && !tree().isExpanded(item))
                world.user.clickItemButton(tree(), item);
            TreeItemId child = tree().firstChild(item);
            while (child != TreeItemId::None && tree().itemText(child) != text)
                child = tree().nextSibling(child);
            item = child;
        }
    }
    void click(Path path) {
        reach(path);
        world.user.clickItem(tree(), at(path));
    }
    [[nodiscard]] Texts below(TreeItemId item) {
        Texts texts;
        for (TreeItemId child = tree().firstChild(item); child != TreeItemId::None;
             child = tree().nextSibling(child))
            texts.push_back(tree().itemText(child));
        return texts;
    }

    [[nodiscard]] controls::ListView& list(int number) {
        return get<controls::ListView>(u"ListView1(" + automation::decimal(number) + u").View");
    }
    [[nodiscard]] controls::Property& property(int number) {
        return get<controls::Property>(u"Property1(" + automation::decimal(number) + u").View");
    }
    [[nodiscard]] Texts firstColumn(int number) {
        Texts texts;
        for (const auto& row : world.user.look(list(number).list(), 0, list(number).shownCount()))
            texts.push_back(row.front());
        return texts;
    }
    [[nodiscard]] Texts visibleTabs() {
        Texts captions;
        for (const auto& tab : form().tabs().tabs())
            if (tab.visible)
                captions.push_back(tab.caption);
        return captions;
    }
    [[nodiscard]] std::u16string caption() { return get<ui::Label>(u"PaneCaption").text(); }
    [[nodiscard]] std::u16string lastPlace() const { return testing::lastPlace(world); }
};

}  // namespace quorel::explorer
