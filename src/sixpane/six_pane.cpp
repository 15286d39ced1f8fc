#include "sixpane/six_pane.h"

namespace quorel::sixpane {

using automation::Object;

const automation::ClassTable& SixPane::classTable() const {
    using automation::param;
    using automation::Value;
    static const automation::ClassTable table =
        automation::ClassTable::of<SixPane>(u"SixPane")
            .property(u"Path", &SixPane::Path, &SixPane::setPath)
            .method(u"Create", &SixPane::Create, {param(u"name", u""), param(u"session", Value::nothing())})
            .method(u"Destroy", &SixPane::Destroy)
            .method(u"Init", &SixPane::Init)
            .method(u"Deinit", &SixPane::Deinit)
            .method(u"PopUp", &SixPane::PopUp, {param(u"modal", true)})
            .method(u"Conceal", &SixPane::Conceal)
            .objectProperty(u"Repository", &SixPane::Repository, &SixPane::setRepository)
            .method(u"Populate", &SixPane::Populate)
            .objectProperty(u"PackageObject", &SixPane::PackageObject, &SixPane::setPackageObject)
            .property(u"RepositoryFileName", &SixPane::RepositoryFileName, &SixPane::setRepositoryFileName)
            .objectProperty(u"RepositoryManager", &SixPane::RepositoryManager, &SixPane::setRepositoryManager)
            .property(u"current", &SixPane::current, &SixPane::setCurrent)
            .method(u"SetSelection", &SixPane::SetSelection, {param(u"o")});
    return table;
}

std::u16string SixPane::Path() const {
    return holder_.form()->Path;
}

void SixPane::setPath(const std::u16string& path) {
    holder_.form()->Path = path;
}

void SixPane::Create(const std::u16string& name, const Object& session) {
    const auto form = holder_.create(std::make_shared<frmSixPane>(environment_));
    form->Create(name, session);
    form->CreatePanes();
}

void SixPane::Destroy() {
    holder_.destroy();
}

void SixPane::Init() {
    holder_.form()->Init();
}

void SixPane::Deinit() {
    holder_.form()->Deinit();
}

void SixPane::PopUp(bool modal) {
    holder_.form()->PopUp(modal);
}

void SixPane::Conceal() {
    holder_.form()->Conceal();
}

Object SixPane::Repository() const {
    return holder_.form()->Repository();
}

void SixPane::setRepository(const Object& repository) {
    holder_.form()->setRepository(repository);
}

void SixPane::Populate() {
    holder_.form()->Populate();
}

Object SixPane::PackageObject() const {
    return holder_.form()->PackageObject();
}

void SixPane::setPackageObject(const Object& package) {
    holder_.form()->setPackageObject(package);
}

std::u16string SixPane::RepositoryFileName() const {
    return holder_.form()->RepositoryFileName();
}

void SixPane::setRepositoryFileName(const std::u16string& fileName) {
    holder_.form()->setRepositoryFileName(fileName);
}

Object SixPane::RepositoryManager() const {
    return holder_.form()->RepositoryManager();
}

void SixPane::setRepositoryManager(const Object& manager) {
    holder_.form()->setRepositoryManager(manager);
}

std::u16string SixPane::current() const {
    return holder_.form()->current;
}

void SixPane::setCurrent(const std::u16string& current) {
    holder_.form()->current = current;
}

void SixPane::SetSelection(const Object& o) {
    holder_.form()->SetSelection(o);
}

}  // namespace quorel::sixpane
