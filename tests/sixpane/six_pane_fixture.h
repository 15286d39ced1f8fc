#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "server/public_classes.h"
#include "sixpane/frm_six_pane.h"
#include "sixpane/six_pane.h"
#include "tests/support/failures.h"
#include "tests/support/repository_double.h"
#include "tests/support/session_double.h"
#include "tests/support/test_world.h"

namespace quorel::sixpane {

using automation::make;
using automation::Object;
using automation::Ref;
using testing::errorNumber;
using testing::InstanceDouble;
using testing::MetaDouble;
using testing::RepositoryDouble;

/// A small repository: persons work for companies and live in cities.
struct SmallWorld {
    testing::ScriptRef script = std::make_shared<testing::Script>();
    Ref<RepositoryDouble> repository = make<RepositoryDouble>(script);
    Ref<MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<MetaDouble> company = repository->addMetaNode(u"Company");
    Ref<MetaDouble> city = repository->addMetaNode(u"City");
    Ref<MetaDouble> worksFor = repository->addMetaLink(u"WorksFor", person, company);
    Ref<MetaDouble> livesIn = repository->addMetaLink(u"LivesIn", person, city);
    Ref<InstanceDouble> anna = repository->addNode(person, u"Anna");
    Ref<InstanceDouble> ben = repository->addNode(person, u"Ben");
    Ref<InstanceDouble> acme = repository->addNode(company, u"Acme");
    Ref<InstanceDouble> zenith = repository->addNode(company, u"Zenith");
    Ref<InstanceDouble> paris = repository->addNode(city, u"Paris");
    Ref<InstanceDouble> annaAtAcme = repository->addLink(worksFor, u"a", anna, acme);
    Ref<InstanceDouble> benAtZenith = repository->addLink(worksFor, u"b", ben, zenith);
    Ref<InstanceDouble> annaInParis = repository->addLink(livesIn, u"c", anna, paris);

    SmallWorld() {
        person->withProperty(u"Age", u"Integer");
        worksFor->withProperty(u"Since", u"String");
        anna->values[u"Age"] = 40;
        annaAtAcme->values[u"Since"] = u"1999";
    }
    ~SmallWorld() { repository->clear(); }
    SmallWorld(const SmallWorld&) = delete;
    SmallWorld& operator=(const SmallWorld&) = delete;
};

enum Row : std::size_t { kFirst, kSecond, kThird };

/// Works on the window itself; `open` shows it as a modeless window of a host.
struct SixPaneTest : ::testing::Test {
    testing::TestWorld world;
    SmallWorld model;
    Ref<testing::SessionDouble> session = make<testing::SessionDouble>();
    Ref<testing::ComponentManagerDouble> components = make<testing::ComponentManagerDouble>();
    Ref<testing::RepositoryManagerDouble> manager = make<testing::RepositoryManagerDouble>(model.script);
    std::shared_ptr<frmSixPane> form;

    SixPaneTest() {
        server::registerPublicClasses(world.environment);
        session->manager = manager;
        session->componentManager = components;
    }
    ~SixPaneTest() override {
        if (form)
            form->unload();
    }

    void create() {
        form = std::make_shared<frmSixPane>(world.environment);
        form->load();
        form->Create(u"Browser", session);
        form->CreatePanes();
    }
    void open() {
        create();
        form->setRepository(model.repository);
        form->Init();
        form->Populate();
        form->PopUp(false);
        model.script->restart();
    }

    [[nodiscard]] static controls::ListView& pane(ui::Form& window, std::u16string_view name) {
        return headless::get<controls::ListView>(window, std::u16string(name) + u".View");
    }
    [[nodiscard]] controls::ListView& pane(std::u16string_view name) { return pane(*form, name); }
    void click(std::u16string_view name, std::size_t row) { world.user.selectRow(pane(name).list(), row); }
    void doubleClick(std::u16string_view name, std::size_t row) {
        world.user.doubleClickRow(pane(name).list(), row);
    }
    [[nodiscard]] Object selected(std::u16string_view name) { return pane(name).selectedObject(); }
    [[nodiscard]] std::vector<std::size_t> counts() {
        std::vector<std::size_t> all;
        for (const PaneTraits& traits : kPanes)
            all.push_back(pane(traits.name).count());
        return all;
    }
    using Counts = std::vector<std::size_t>;
    using Log = std::vector<std::u16string>;

    [[nodiscard]] std::u16string lastPlace() const { return testing::lastPlace(world); }
};

}  // namespace quorel::sixpane
