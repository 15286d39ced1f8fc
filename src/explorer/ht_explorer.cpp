#include "explorer/ht_explorer.h"

namespace quorel::explorer {

const automation::ClassTable& HTExplorer::classTable() const {
    using Self = HTExplorer;
    static const automation::ClassTable table =
        lifecycleTable<Self>(u"HTExplorer", nameAndSession())
            .objectProperty(u"Repository", &Self::Repository, &Self::setRepository)
            .method(u"SetupTree", &Self::SetupTree)
            .method(u"Populate", &Self::Populate)
            .objectProperty(u"PackageObject", &Self::PackageObject, &Self::setPackageObject)
            .property(u"RepositoryFileName", &Self::RepositoryFileName, &Self::setRepositoryFileName);
    return table;
}

void HTExplorer::Create(const std::u16string& name, const automation::Object& session) {
    makeForm()->Create(name, session);
}

void HTExplorer::SetupTree() {
    form()->SetupTree();
}

}  // namespace quorel::explorer
