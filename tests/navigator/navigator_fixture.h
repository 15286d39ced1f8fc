#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "explorer/frm_ht_explorer.h"
#include "frame/browser_class.h"
#include "navigator/frm_navigator.h"
#include "navigator/paths.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "repository/import/exchange.h"
#include "repository/session.h"
#include "repository/sqlite/file_check.h"
#include "server/public_classes.h"
#include "sixpane/frm_six_pane.h"
#include "tests/repository/temporary_folder.h"
#include "tests/support/failures.h"
#include "tests/support/test_world.h"

namespace quorel::navigator {

using automation::make;
using automation::Object;
using automation::Ref;

/// Where the sample lies as it ships, without a separator at its end.
[[nodiscard]] std::u16string programFolder();

/// Answers with the paths that a test has put there, one a dialog; none cancels. Keeps what it was asked.
class ScriptedDialogs final : public shell::FileDialogs {
  public:
    std::deque<std::optional<std::u16string>> answers;
    std::vector<Request> requests;

    std::optional<std::u16string> openFile(const Request& request) override { return next(request); }
    std::optional<std::u16string> saveFile(const Request& request) override { return next(request); }
    std::optional<std::u16string> chooseFolder(const Request& request) override { return next(request); }

  private:
    std::optional<std::u16string> next(const Request& request) {
        requests.push_back(request);
        if (answers.empty())
            return std::nullopt;
        auto answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

/// The six-pane browser with its window open to tests.
class SeenSixPane final : public frame::BrowserClass<sixpane::frmSixPane> {
  public:
    using BrowserClass::BrowserClass;
    using BrowserClass::form;
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        using automation::param;
        static const automation::ClassTable table =
            lifecycleTable<SeenSixPane>(u"SixPane", nameAndSession())
                .objectProperty(u"Repository", &SeenSixPane::Repository, &SeenSixPane::setRepository)
                .method(u"Populate", &SeenSixPane::Populate)
                .method(u"SetSelection", &SeenSixPane::SetSelection, {param(u"o")});
        return table;
    }
    void Create(const std::u16string& name, const Object& session) {
        const auto window = makeForm();
        window->Create(name, session);
        window->CreatePanes();
    }
    void SetSelection(const Object& object) { form()->SetSelection(object); }
};

/// A navigator on the headless desktop with the library's real classes and real repository files.
struct NavigatorTest : ::testing::Test {
    using Texts = std::vector<std::u16string>;

    repository::testing::TemporaryFolder folder;
    quorel::testing::TestWorld world;
    ScriptedDialogs files;
    std::optional<Services> services;
    std::shared_ptr<frmNavigator> form;

    NavigatorTest() {
        world.environment.fileDialogs = &files;
        world.environment.libraryFolder = u"library";
        for (const std::u16string_view picture :
             {u"library\\Node.ico", u"library\\Link.ico", u"library\\ReposHeader.wmf"})
            world.desktop.setPicture(picture, {ui::Picture{}});
        server::registerPublicClasses(world.environment);
        world.classes.add(u"QuorelRepository.Session", [this] {
            return Object(make<repository::Session>(repository::Services{
                {}, [this](std::u16string_view progId) { return world.classes.createObject(progId); }}));
        });
        services.emplace(Services{world.environment, folder.file("user"), programFolder()});
    }
    ~NavigatorTest() override {
        form.reset();
        world.desktop.runPosted();
        EXPECT_NO_THROW(world.desktop.verify());
    }

    /// A new navigator, shown.
    frmNavigator& start() {
        form = std::make_shared<frmNavigator>(*services);
        form->show(ui::Modality::Modeless);
        world.desktop.runPosted();
        return *form;
    }
    /// The sample library as a repository of that name.
    std::u16string sample(const std::string& name = "books.quorel") const {
        const std::u16string file = folder.file(name);
        repository::importInto(repository::ImportKind::JsonLines,
                               {programFolder() + u"/samples/library.jsonl"}, file, true,
                               [](const repository::Progress&) {});
        return file;
    }
    frmNavigator& open(const std::u16string& file) {
        if (!form)
            start();
        form->openFile(file);
        world.desktop.runPosted();
        return *form;
    }

    template <class T>
    T& control(std::u16string_view name) const {
        return headless::get<T>(*form, name);
    }
    ui::VirtualList& list(std::u16string_view name) const { return control<ui::VirtualList>(name); }
    ui::MenuItem& entry(std::u16string_view name) const { return *form->menuBar().find(name); }
    void choose(std::u16string_view name) { world.user.chooseMenu(*form, name); }
    Texts names(std::u16string_view of) {
        Texts found;
        ui::VirtualList& rows = list(of);
        for (const auto& cells : world.user.look(rows, 0, rows.rowCount()))
            found.push_back(cells.front());
        return found;
    }
    void selectNamed(std::u16string_view of, std::u16string_view name) {
        const Texts all = names(of);
        const auto found = std::find(all.begin(), all.end(), name);
        ASSERT_NE(found, all.end());
        world.user.selectRow(list(of), static_cast<std::size_t>(found - all.begin()));
    }
    std::u16string panel(std::size_t index) const {
        return control<ui::StatusBar>(u"StatusBar").panels().at(index).text;
    }
    /// The captions of a menu's visible entries.
    Texts captions(std::u16string_view menu) const {
        Texts found;
        for (const auto& item : entry(menu).items())
            if (item->isVisible())
                found.push_back(item->caption());
        return found;
    }
    Texts recents() const {
        return RecentFiles(const_cast<shell::MemorySettingsStore&>(world.settings)).read();
    }
    /// What the one message box says that comes while `action` runs.
    std::u16string messageOf(const std::function<void()>& action,
                             ui::MessageAnswer answer = ui::MessageAnswer::Ok) {
        std::u16string text;
        world.desktop.expectMessage([&](const ui::Message& message) { text = message.text; }, answer);
        action();
        world.desktop.runPosted();
        world.desktop.verify();
        return text;
    }
    static bool contains(const std::u16string& text, std::u16string_view part) {
        return text.find(part) != std::u16string::npos;
    }
};

}  // namespace quorel::navigator
