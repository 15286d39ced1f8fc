#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "explorer/explorer.h"
#include "platform/controls/combo.h"
#include "platform/controls/list_view.h"
#include "platform/controls/property.h"
#include "server/public_classes.h"
#include "tests/support/failures.h"
#include "tests/support/repository_double.h"
#include "tests/support/test_world.h"

namespace quorel::explorer {

using automation::make;
using automation::Object;
using automation::Ref;
using testing::errorNumber;
using testing::InstanceDouble;
using testing::MetaDouble;
using testing::RepositoryDouble;
using ui::TreeItemId;
using ui::Twips;

/// Persons work for companies and know persons.
struct PeopleWorld {
    testing::ScriptRef script = std::make_shared<testing::Script>();
    Ref<RepositoryDouble> repository = make<RepositoryDouble>(script);
    Ref<MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<MetaDouble> company = repository->addMetaNode(u"Company");
    Ref<MetaDouble> worksFor = repository->addMetaLink(u"WorksFor", person, company);
    Ref<MetaDouble> knows = repository->addMetaLink(u"Knows", person, person);
    Ref<InstanceDouble> anna = repository->addNode(person, u"Anna");                   // id1
    Ref<InstanceDouble> ben = repository->addNode(person, u"Ben");                     // id2
    Ref<InstanceDouble> acme = repository->addNode(company, u"Acme");                  // id3
    Ref<InstanceDouble> zenith = repository->addNode(company, u"Zenith");              // id4
    Ref<InstanceDouble> annaAtAcme = repository->addLink(worksFor, u"a", anna, acme);  // id5
    Ref<InstanceDouble> annaKnowsBen = repository->addLink(knows, u"b", anna, ben);    // id6

    PeopleWorld() {
        person->withProperty(u"Age", u"Integer");
        company->withProperty(u"Town", u"String");
        worksFor->withProperty(u"Since", u"Integer");
        anna->values[u"Age"] = 40;
        ben->values[u"Age"] = 50;
        acme->values[u"Town"] = u"Rome";
        annaAtAcme->values[u"Since"] = 1999;
    }
    ~PeopleWorld() { repository->clear(); }
    PeopleWorld(const PeopleWorld&) = delete;
    PeopleWorld& operator=(const PeopleWorld&) = delete;
};

/// Describes everything there is:
///
///     Information              the information pane
///     Everybody                no pane
///       Anna, Ben …            "person": Data (property, combo, separator, label), Links (toolbar, lists)
///         Jobs                 "jobs": a list of links
///           Acme …             "company": property of the link's target
///     Companies                "companies": toolbar, whole extension
inline void describePeople(Explorer& explorer) {
    explorer.AddTreeDesc(u"", u"Group", u"", u"Information", u"", u"ID:1");
    const std::u16string all = explorer.AddTreeDesc(u"", u"Group", u"", u"Everybody", u"", u"none");
    const std::u16string persons = explorer.AddTreeDesc(all, u"Extension", u"Person", u"", u"", u"person");
    const std::u16string jobs = explorer.AddTreeDesc(persons, u"Folder", u"", u"Jobs", u"", u"jobs");
    explorer.AddTreeDesc(jobs, u"Links", u"WorksFor", u"", u"", u"company");
    explorer.AddTreeDesc(u"", u"Group", u"", u"Companies", u"", u"companies");
    explorer.AddPane(u"person", u"face", u"A person", u"Data");
    explorer.AddSubPane(u"person", u"Links");
    explorer.AddProperty(u"person", u"Person", u"");
    explorer.AddCombo(u"person", u"Company", u"WorksFor", u"", u"Data");
    explorer.AddSeparator(u"person", u"");
    explorer.AddLabel(u"person", u"The end", true, 12, u"");
    explorer.AddToolbar(u"person", u"Links");
    explorer.AddListView(u"person", u"Link-Target", u"WorksFor", u"", u"Links");
    explorer.AddListView(u"person", u"Link-Source", u"Knows", u"", u"Links");
    explorer.AddPane(u"jobs", u"", u"Jobs", u"");
    explorer.AddListView(u"jobs", u"Link", u"WorksFor", u"", u"");
    explorer.AddPane(u"company", u"", u"A company", u"Data");
    explorer.AddProperty(u"company", u"Company", u"");
    explorer.AddPane(u"companies", u"", u"All companies", u"All");
    explorer.AddToolbar(u"companies", u"");
    explorer.AddListView(u"companies", u"Extension", u"Company", u"", u"");
}

/// An explorer whose window tests can look into.
class OpenExplorer final : public Explorer {
  public:
    using Explorer::Explorer;
    using Explorer::form;
};

/// A host's explorer; `open` describes the people and shows it modelessly.
struct ExplorerTest : ::testing::Test {
    testing::TestWorld world;
    PeopleWorld model;
    Ref<OpenExplorer> explorer;

    ExplorerTest() { server::registerPublicClasses(world.environment); }
    ~ExplorerTest() override {
        if (explorer)
            explorer->Destroy();
    }

    void create() {
        explorer = make<OpenExplorer>(world.environment);
        explorer->Create();
        explorer->setRepository(model.repository);
    }
    void init() {
        create();
        explorer->Init();
    }
    void open() {
        init();
        describePeople(*explorer);
        explorer->PopUp(false);
        model.script->restart();
    }

    [[nodiscard]] frmExplorer& form() { return *explorer->form(); }
    template <class T>
    [[nodiscard]] T& get(std::u16string_view name) {
        return headless::get<T>(form(), name);
    }
    [[nodiscard]] ui::Tree& tree() { return form().TreeView1().tree(); }
    [[nodiscard]] TreeItemId at(std::initializer_list<std::u16string_view> path) {
        return headless::itemAt(tree(), path);
    }
    void expand(std::initializer_list<std::u16string_view> path) {
        world.user.clickItemButton(tree(), at(path));
    }
    void click(std::initializer_list<std::u16string_view> path) { world.user.clickItem(tree(), at(path)); }
    /// Everything on the way is opened.
    void clickAnna() {
        expandIfClosed({u"Everybody"});
        click({u"Everybody", u"Anna"});
    }
    void clickAcme() {
        expandIfClosed({u"Everybody"});
        expandIfClosed({u"Everybody", u"Anna"});
        expandIfClosed({u"Everybody", u"Anna", u"Jobs"});
        click({u"Everybody", u"Anna", u"Jobs", u"Acme"});
    }
    void expandIfClosed(std::initializer_list<std::u16string_view> path) {
        if (!tree().isExpanded(at(path)))
            expand(path);
    }

    [[nodiscard]] ExplorerPane& pane(std::u16string_view id) { return form().Panes(id); }
    [[nodiscard]] controls::ListView& list(std::u16string_view name) {
        return get<controls::ListView>(std::u16string(name) + u".View");
    }
    [[nodiscard]] controls::Property& property(std::u16string_view name) {
        return get<controls::Property>(std::u16string(name) + u".View");
    }
    [[nodiscard]] controls::Combo& combo() { return get<controls::Combo>(u"Combo1(1).View"); }
    [[nodiscard]] std::vector<std::u16string> visibleTabs() {
        std::vector<std::u16string> captions;
        for (const auto& tab : form().tabs().tabs())
            if (tab.visible)
                captions.push_back(tab.caption);
        return captions;
    }
    /// The sub panes that are seen, as "pane/sub pane".
    [[nodiscard]] std::vector<std::u16string> visiblePages() {
        std::vector<std::u16string> pages;
        for (const char16_t* id : {u"ID:1", u"person", u"jobs", u"company", u"companies"})
            for (const auto& page : pane(id).Panes())
                if (page->Visible())
                    pages.push_back(std::u16string(id) + u"/" + page->Caption);
        return pages;
    }
    [[nodiscard]] std::vector<std::u16string> firstColumn(std::u16string_view name) {
        std::vector<std::u16string> texts;
        for (const auto& row : world.user.look(list(name).list(), 0, list(name).shownCount()))
            texts.push_back(row.front());
        return texts;
    }
    [[nodiscard]] std::u16string caption() { return get<ui::Label>(u"PaneCaption").text(); }

    /// The labels of the last box, as "frmExplorer/Procedure".
    [[nodiscard]] std::u16string lastPlace() const { return testing::lastPlace(world); }
    using Texts = std::vector<std::u16string>;
};

}  // namespace quorel::explorer
