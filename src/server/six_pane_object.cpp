#include "server/QuorelUtility.h"
#include "server/com_browser_object.h"
#include "server/com_class_objects.h"
#include "sixpane/six_pane.h"

namespace quorel::server {

namespace {

class SixPaneObject final : public NamedBrowserObject<ISixPane, sixpane::SixPane> {
  public:
    using NamedBrowserObject::NamedBrowserObject;

    STDMETHODIMP Populate(VARIANT* result) override { return answer(result, &PortableClass::Populate); }
    STDMETHODIMP get_RepositoryManager(IDispatch** result) override {
        return answer(result, &PortableClass::RepositoryManager);
    }
    STDMETHODIMP putref_RepositoryManager(IDispatch* value) override {
        return run(&PortableClass::setRepositoryManager, value);
    }
    STDMETHODIMP get_current(BSTR* result) override { return answer(result, &PortableClass::current); }
    STDMETHODIMP put_current(BSTR value) override { return run(&PortableClass::setCurrent, value); }
    STDMETHODIMP SetSelection(IDispatch** o) override { return run(&PortableClass::SetSelection, o); }
};

}  // namespace

win32::ComClass sixPaneClass(const automation::ClassRegistry& registry) {
    return offer<SixPaneObject>(
        registry, __uuidof(::SixPane), u"QuorelUtility.SixPane",
        u"Browses a repository in six linked lists: types and instances of sources, links and targets.");
}

}  // namespace quorel::server
