#include "sixpane/six_pane.h"

namespace quorel::sixpane {

using automation::Object;

const automation::ClassTable& SixPane::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        lifecycleTable<SixPane>(u"SixPane", nameAndSession())
            .objectProperty(u"Repository", &SixPane::Repository, &SixPane::setRepository)
            .method(u"Populate", &SixPane::Populate)
            .objectProperty(u"PackageObject", &SixPane::PackageObject, &SixPane::setPackageObject)
            .property(u"RepositoryFileName", &SixPane::RepositoryFileName, &SixPane::setRepositoryFileName)
            .objectProperty(u"RepositoryManager", &SixPane::RepositoryManager, &SixPane::setRepositoryManager)
            .property(u"current", &SixPane::current, &SixPane::setCurrent)
            .method(u"SetSelection", &SixPane::SetSelection, {param(u"o")});
    return table;
}

void SixPane::Create(const std::u16string& name, const Object& session) {
    const auto window = makeForm();
    window->Create(name, session);
    window->CreatePanes();
}

std::u16string SixPane::current() const {
    return form()->current;
}

void SixPane::setCurrent(const std::u16string& current) {
    form()->current = current;
}

void SixPane::SetSelection(const Object& o) {
    form()->SetSelection(o);
}

}  // namespace quorel::sixpane
