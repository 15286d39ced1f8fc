#include "explorer/ht_explorer.h"
#include "server/QuorelUtility.h"
#include "server/com_browser_object.h"
#include "server/com_class_objects.h"

namespace quorel::server {

namespace {

class HTExplorerObject final : public NamedBrowserObject<IHTExplorer, explorer::HTExplorer> {
  public:
    using NamedBrowserObject::NamedBrowserObject;

    STDMETHODIMP SetupTree() override { return run(&PortableClass::SetupTree); }
    STDMETHODIMP Populate() override { return run(&PortableClass::Populate); }
};

}  // namespace

win32::ComClass htExplorerClass(const automation::ClassRegistry& registry) {
    return offer<HTExplorerObject>(
        registry, __uuidof(::HTExplorer), u"QuorelUtility.HTExplorer",
        u"An explorer whose tree and panes follow the metamodel of the repository.");
}

}  // namespace quorel::server
