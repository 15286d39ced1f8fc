#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/automation/text.h"
#include "platform/controls/tree_view.h"
#include "platform/headless/user.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"
#include "tests/support/repository_double.h"

namespace quorel::controls::testing {

using automation::make;
using automation::Object;
using automation::Ref;
using quorel::testing::InstanceDouble;
using quorel::testing::MetaDouble;
using quorel::testing::RepositoryDouble;
using ui::TreeItemId;
using Texts = std::vector<std::u16string>;

/// A shown tree over persons who work for companies.
class TreeViewTest : public ::testing::Test {
  protected:
    TreeViewTest() {
        form->setClientSize({{6000}, {9000}});
        view.setBounds({{0}, {0}, {6000}, {9000}});
        view.onNodeClick.connect(
            [this](const std::shared_ptr<TreeEntry>& entry) { clicked.push_back(entry); });
        view.onFailure.connect([this](const automation::Error& error) { failures.push_back(error); });
        view.setRepository(repository);
    }
    ~TreeViewTest() override {
        view.initialise();
        repository->clear();
    }
    void TearDown() override { EXPECT_NO_THROW(desktop.verify()); }

    void show() {
        view.populate();
        form->show(ui::Modality::Modeless);
        desktop.runPosted();
        script->restart();
    }
    std::shared_ptr<TreeDescription> describe(TreeDescription& parent, std::u16string_view typ,
                                              std::u16string_view metatype,
                                              std::u16string_view caption = u"") {
        return view.AddChildDesc(parent, typ, metatype, caption, u"", u"pane");
    }
    std::shared_ptr<TreeDescription> describe(std::u16string_view typ, std::u16string_view metatype,
                                              std::u16string_view caption = u"") {
        return describe(view.rootDescription(), typ, metatype, caption);
    }
    void addPersons(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            static_cast<void>(
                repository->addNode(person, u"p" + automation::decimal(static_cast<std::int64_t>(i))));
    }

    [[nodiscard]] ui::Tree& tree() { return view.tree(); }
    [[nodiscard]] TreeItemId at(std::initializer_list<std::u16string_view> path) {
        return headless::itemAt(tree(), path);
    }
    [[nodiscard]] Texts below(TreeItemId item) {
        Texts texts;
        for (TreeItemId child = tree().firstChild(item); child != TreeItemId::None;
             child = tree().nextSibling(child))
            texts.push_back(tree().itemText(child));
        return texts;
    }
    void open(std::initializer_list<std::u16string_view> path) { user.clickItemButton(tree(), at(path)); }
    void click(std::initializer_list<std::u16string_view> path) { user.clickItem(tree(), at(path)); }
    [[nodiscard]] std::u16string selected() { return tree().itemText(tree().selected()); }
    void refresh() {
        view.refresh();
        desktop.runPosted();
    }
    void press(ui::Key key, ui::Modifiers modifiers = ui::Modifiers::None) {
        user.press(*form, {key, modifiers});
    }

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    quorel::testing::ScriptRef script = std::make_shared<quorel::testing::Script>();
    Ref<RepositoryDouble> repository = make<RepositoryDouble>(script);
    Ref<MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<MetaDouble> company = repository->addMetaNode(u"Company");
    Ref<MetaDouble> worksFor = repository->addMetaLink(u"WorksFor", person, company);
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frmTest");
    TreeView& view = form->add<TreeView>(u"TreeView1", desktop);
    std::vector<std::shared_ptr<TreeEntry>> clicked;
    std::vector<automation::Error> failures;
};

/// Two persons, Anna with two employers, described on three levels.
class PeopleTreeTest : public TreeViewTest {
  protected:
    Ref<InstanceDouble> anna = repository->addNode(person, u"Anna");                   // id1
    Ref<InstanceDouble> ben = repository->addNode(person, u"Ben");                     // id2
    Ref<InstanceDouble> acme = repository->addNode(company, u"Acme");                  // id3
    Ref<InstanceDouble> zenith = repository->addNode(company, u"Zenith");              // id4
    Ref<InstanceDouble> annaAtAcme = repository->addLink(worksFor, u"a", anna, acme);  // id5
    Ref<InstanceDouble> annaAtZenith = repository->addLink(worksFor, u"b", anna, zenith);
    std::shared_ptr<TreeDescription> everybody = describe(u"Group", u"", u"Everybody");
    std::shared_ptr<TreeDescription> persons = describe(*everybody, u"Extension", u"Person");
    std::shared_ptr<TreeDescription> jobs = describe(*persons, u"Folder", u"", u"Jobs");
    std::shared_ptr<TreeDescription> employers = describe(*jobs, u"Links", u"WorksFor");
};

}  // namespace quorel::controls::testing
