#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "matrix/frm_matrix_browser.h"
#include "matrix/matrix_browser.h"
#include "server/public_classes.h"
#include "tests/support/failures.h"
#include "tests/support/repository_double.h"
#include "tests/support/session_double.h"
#include "tests/support/test_world.h"

namespace quorel::matrix {

using automation::make;
using automation::Object;
using automation::Ref;
using testing::errorNumber;
using testing::InstanceDouble;
using testing::MetaDouble;
using testing::RepositoryDouble;

/// Persons know persons, work for companies and live in cities.
struct PeopleWorld {
    testing::ScriptRef script = std::make_shared<testing::Script>();
    Ref<RepositoryDouble> repository = make<RepositoryDouble>(script);
    Ref<MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<MetaDouble> company = repository->addMetaNode(u"Company");
    Ref<MetaDouble> city = repository->addMetaNode(u"City");
    Ref<MetaDouble> worksFor = repository->addMetaLink(u"WorksFor", person, company);
    Ref<MetaDouble> livesIn = repository->addMetaLink(u"LivesIn", person, city);
    Ref<MetaDouble> knows = repository->addMetaLink(u"Knows", person, person);
    Ref<InstanceDouble> anna = repository->addNode(person, u"Anna");                    // id1
    Ref<InstanceDouble> ben = repository->addNode(person, u"Ben");                      // id2
    Ref<InstanceDouble> cleo = repository->addNode(person, u"Cleo");                    // id3
    Ref<InstanceDouble> acme = repository->addNode(company, u"Acme");                   // id4
    Ref<InstanceDouble> zenith = repository->addNode(company, u"Zenith");               // id5
    Ref<InstanceDouble> paris = repository->addNode(city, u"Paris");                    // id6
    Ref<InstanceDouble> annaAtAcme = repository->addLink(worksFor, u"a", anna, acme);   // id7
    Ref<InstanceDouble> benAtAcme = repository->addLink(worksFor, u"b", ben, acme);     // id8
    Ref<InstanceDouble> annaInParis = repository->addLink(livesIn, u"c", anna, paris);  // id9
    Ref<InstanceDouble> annaKnowsBen = repository->addLink(knows, u"d", anna, ben);     // id10
    Ref<InstanceDouble> benKnowsCleo = repository->addLink(knows, u"e", ben, cleo);     // id11

    PeopleWorld() {
        person->withProperty(u"Age", u"Integer");
        company->withProperty(u"Size", u"Integer").withProperty(u"Town", u"String");
        anna->values[u"Age"] = 40;
        ben->values[u"Age"] = 50;
        acme->values[u"Size"] = 7;
        acme->values[u"Town"] = u"Rome";
    }
    ~PeopleWorld() { repository->clear(); }
    PeopleWorld(const PeopleWorld&) = delete;
    PeopleWorld& operator=(const PeopleWorld&) = delete;
};

// Rows.
enum TypeRow : std::size_t { kPerson, kCompany, kCity };
enum PersonRow : std::size_t { kAnna, kBen, kCleo };
enum PersonOutgoingRow : std::size_t { kWorksFor, kLivesIn, kKnows };
inline constexpr std::size_t kFirst = 0;

/// Works on the window itself; `open` shows it as a modeless window of a host.
struct MatrixTest : ::testing::Test {
    testing::TestWorld world;
    PeopleWorld model;
    Ref<testing::SessionDouble> session = make<testing::SessionDouble>();
    Ref<testing::ComponentManagerDouble> components = make<testing::ComponentManagerDouble>();
    Ref<testing::RepositoryManagerDouble> manager = make<testing::RepositoryManagerDouble>(model.script);
    std::shared_ptr<frmMatrixBrowser> form;

    MatrixTest() {
        server::registerPublicClasses(world.environment);
        session->manager = manager;
        session->componentManager = components;
    }
    ~MatrixTest() override {
        if (form) {
            form->unload();
            form->Destroy();
        }
    }

    void create() {
        form = std::make_shared<frmMatrixBrowser>(world.environment);
        form->load();
        form->Create(u"Browser", session);
    }
    void open() {
        create();
        form->SetRepository(model.repository);
        form->Init();
        form->PopUp(false);
        model.script->restart();
    }

    static constexpr std::array<std::u16string_view, 5> kLists{
        u"SourceMetaNodeList", u"SourceInstanceList", u"MetaLinkListIncoming", u"MetaLinkListOutgoing",
        u"TargetInstanceList"};

    [[nodiscard]] static controls::ListView& list(ui::Form& window, std::u16string_view name) {
        return headless::get<controls::ListView>(window, std::u16string(name) + u".View");
    }
    [[nodiscard]] controls::ListView& list(std::u16string_view name) { return list(*form, name); }
    void click(std::u16string_view name, std::size_t row) { world.user.selectRow(list(name).list(), row); }
    void doubleClick(std::u16string_view name, std::size_t row) {
        world.user.doubleClickRow(list(name).list(), row);
    }
    void clickType(std::size_t row) { click(u"SourceMetaNodeList", row); }
    void clickInstance(std::size_t row) { click(u"SourceInstanceList", row); }
    void clickIncoming(std::size_t row) { click(u"MetaLinkListIncoming", row); }
    void clickOutgoing(std::size_t row) { click(u"MetaLinkListOutgoing", row); }
    [[nodiscard]] Object selected(std::u16string_view name) { return list(name).selectedObject(); }
    /// The first column of a list.
    [[nodiscard]] std::vector<std::u16string> names(std::u16string_view name) {
        std::vector<std::u16string> all;
        for (const auto& row : look(name))
            all.push_back(row.empty() ? u"" : row.front());
        return all;
    }
    [[nodiscard]] std::vector<std::vector<std::u16string>> look(std::u16string_view name) {
        return world.user.look(list(name).list(), 0, list(name).shownCount());
    }
    [[nodiscard]] std::vector<std::u16string> titles(std::u16string_view name) {
        std::vector<std::u16string> all;
        for (const ui::Column& column : list(name).list().columns())
            all.push_back(column.title);
        return all;
    }
    /// In the order of `kLists`.
    [[nodiscard]] std::vector<std::size_t> counts() {
        std::vector<std::size_t> all;
        for (const std::u16string_view name : kLists)
            all.push_back(list(name).count());
        return all;
    }
    using Counts = std::vector<std::size_t>;
    using Texts = std::vector<std::u16string>;
    using Rows = std::vector<Texts>;

    [[nodiscard]] std::u16string lastPlace() const { return testing::lastPlace(world); }
};

}  // namespace quorel::matrix
