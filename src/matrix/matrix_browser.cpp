#include "matrix/matrix_browser.h"

namespace quorel::matrix {

using automation::Object;

const automation::ClassTable& MatrixBrowser::classTable() const {
    using automation::param;
    using Self = MatrixBrowser;
    static const automation::ClassTable table =
        lifecycleTable<Self>(u"MatrixBrowser", nameAndSession())
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

void MatrixBrowser::Create(const std::u16string& name, const Object& session) {
    makeForm()->Create(name, session);
}

void MatrixBrowser::SelectSourceMetaNode(const std::u16string& MetaNodeName) {
    form()->SelectSourceMetaNode(MetaNodeName);
}

void MatrixBrowser::SelectSourceInstance(const std::u16string& InstanceIdentifier) {
    form()->SelectSourceInstance(InstanceIdentifier);
}

void MatrixBrowser::SelectMetaLink(const std::u16string& MetaLinkName, bool outgoing) {
    form()->SelectMetaLink(MetaLinkName, outgoing);
}

void MatrixBrowser::SelectTargetInstance(const std::u16string& TargetIdentifier) {
    form()->SelectTargetInstance(TargetIdentifier);
}

void MatrixBrowser::Navigate() {
    form()->Navigate();
}

void MatrixBrowser::SetRepository(const Object& Repository) {
    form()->SetRepository(Repository);
}

Object MatrixBrowser::GetRepository() const {
    return form()->GetRepository();
}

Object MatrixBrowser::GetTargetInstance() const {
    return form()->GetTargetInstance();
}

Object MatrixBrowser::GetTargetMetaNode() const {
    return form()->GetTargetMetaNode();
}

void MatrixBrowser::SetSelection(const Object& o) {
    form()->SetSelection(o);
}

}  // namespace quorel::matrix
