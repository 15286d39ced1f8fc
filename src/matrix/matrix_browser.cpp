#include "matrix/matrix_browser.h"

namespace quorel::matrix {

using automation::Object;

const automation::ClassTable& MatrixBrowser::classTable() const {
    using automation::param;
    using automation::Value;
    using Self = MatrixBrowser;
    static const automation::ClassTable table =
        automation::ClassTable::of<Self>(u"MatrixBrowser")
            .property(u"Path", &Self::Path, &Self::setPath)
            .method(u"Create", &Self::Create, {param(u"name", u""), param(u"session", Value::nothing())})
            .method(u"Destroy", &Self::Destroy)
            .method(u"Init", &Self::Init)
            .method(u"Deinit", &Self::Deinit)
            .method(u"PopUp", &Self::PopUp, {param(u"modal", true)})
            .method(u"Conceal", &Self::Conceal)
            .objectProperty(u"Repository", &Self::Repository, &Self::setRepository)
            .method(u"Populate", &Self::Populate)
            .objectProperty(u"PackageObject", &Self::PackageObject, &Self::setPackageObject)
            .property(u"RepositoryFileName", &Self::RepositoryFileName, &Self::setRepositoryFileName)
            .method(u"SelectSourceMetaNode", &Self::SelectSourceMetaNode, {param(u"MetaNodeName")})
            .method(u"SelectSourceInstance", &Self::SelectSourceInstance, {param(u"InstanceIdentifier")})
            .method(u"SelectMetaLink", &Self::SelectMetaLink,
                    {param(u"MetaLinkName"), param(u"outgoing", false)})
            .method(u"SelectTargetInstance", &Self::SelectTargetInstance, {param(u"TargetIdentifier")})
            .method(u"Navigate", &Self::Navigate)
            .method(u"SetRepository", &Self::SetRepository, {param(u"Repository")})
            .method(u"GetRepository", &Self::GetRepository)
            .method(u"GetTargetInstance", &Self::GetTargetInstance)
            .method(u"GetTargetMetaNode", &Self::GetTargetMetaNode)
            .objectProperty(u"RepositoryManager", &Self::RepositoryManager, &Self::setRepositoryManager)
            .method(u"SetSelection", &Self::SetSelection, {param(u"o")});
    return table;
}

std::u16string MatrixBrowser::Path() const {
    return holder_.form()->Path;
}

void MatrixBrowser::setPath(const std::u16string& path) {
    holder_.form()->Path = path;
}

void MatrixBrowser::Create(const std::u16string& name, const Object& session) {
    holder_.create(std::make_shared<frmMatrixBrowser>(environment_))->Create(name, session);
}

void MatrixBrowser::Destroy() {
    holder_.destroy();
}

void MatrixBrowser::Init() {
    holder_.form()->Init();
}

void MatrixBrowser::Deinit() {
    holder_.form()->Deinit();
}

void MatrixBrowser::PopUp(bool modal) {
    holder_.form()->PopUp(modal);
}

void MatrixBrowser::Conceal() {
    holder_.form()->Conceal();
}

Object MatrixBrowser::Repository() const {
    return holder_.form()->GetRepository();
}

void MatrixBrowser::setRepository(const Object& repository) {
    holder_.form()->SetRepository(repository);
}

void MatrixBrowser::Populate() {
    holder_.form()->Populate();
}

Object MatrixBrowser::PackageObject() const {
    return holder_.form()->PackageObject;
}

void MatrixBrowser::setPackageObject(const Object& package) {
    holder_.form()->PackageObject = package;
}

std::u16string MatrixBrowser::RepositoryFileName() const {
    return holder_.form()->RepositoryFileName;
}

void MatrixBrowser::setRepositoryFileName(const std::u16string& fileName) {
    holder_.form()->RepositoryFileName = fileName;
}

void MatrixBrowser::SelectSourceMetaNode(const std::u16string& MetaNodeName) {
    holder_.form()->SelectSourceMetaNode(MetaNodeName);
}

void MatrixBrowser::SelectSourceInstance(const std::u16string& InstanceIdentifier) {
    holder_.form()->SelectSourceInstance(InstanceIdentifier);
}

void MatrixBrowser::SelectMetaLink(const std::u16string& MetaLinkName, bool outgoing) {
    holder_.form()->SelectMetaLink(MetaLinkName, outgoing);
}

void MatrixBrowser::SelectTargetInstance(const std::u16string& TargetIdentifier) {
    holder_.form()->SelectTargetInstance(TargetIdentifier);
}

void MatrixBrowser::Navigate() {
    holder_.form()->Navigate();
}

void MatrixBrowser::SetRepository(const Object& Repository) {
    holder_.form()->SetRepository(Repository);
}

Object MatrixBrowser::GetRepository() const {
    return holder_.form()->GetRepository();
}

Object MatrixBrowser::GetTargetInstance() const {
    return holder_.form()->GetTargetInstance();
}

Object MatrixBrowser::GetTargetMetaNode() const {
    return holder_.form()->GetTargetMetaNode();
}

Object MatrixBrowser::RepositoryManager() const {
    return holder_.form()->RepositoryManager;
}

void MatrixBrowser::setRepositoryManager(const Object& manager) {
    holder_.form()->RepositoryManager = manager;
}

void MatrixBrowser::SetSelection(const Object& o) {
    holder_.form()->SetSelection(o);
}

}  // namespace quorel::matrix
