#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"
#include "sixpane/six_pane.h"

namespace quorel::server {

namespace {

class SixPaneObject final : public ServerObject<ISixPane, sixpane::SixPane> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP get_Path(BSTR* result) override { return answer(result, &PortableClass::Path); }
    STDMETHODIMP put_Path(BSTR value) override { return run(&PortableClass::setPath, value); }
    STDMETHODIMP Create(BSTR name, IDispatch* session) override {
        return run(&PortableClass::Create, name, session);
    }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP Init(VARIANT* result) override { return answer(result, &PortableClass::Init); }
    STDMETHODIMP Deinit(VARIANT* result) override { return answer(result, &PortableClass::Deinit); }
    STDMETHODIMP PopUp(VARIANT_BOOL modal) override { return run(&PortableClass::PopUp, modal); }
    STDMETHODIMP Conceal() override { return run(&PortableClass::Conceal); }
    STDMETHODIMP get_Repository(IDispatch** result) override {
        return answer(result, &PortableClass::Repository);
    }
    STDMETHODIMP putref_Repository(IDispatch* value) override {
        return run(&PortableClass::setRepository, value);
    }
    STDMETHODIMP Populate(VARIANT* result) override { return answer(result, &PortableClass::Populate); }
    STDMETHODIMP get_PackageObject(IDispatch** result) override {
        return answer(result, &PortableClass::PackageObject);
    }
    STDMETHODIMP putref_PackageObject(IDispatch* value) override {
        return run(&PortableClass::setPackageObject, value);
    }
    STDMETHODIMP get_RepositoryFileName(BSTR* result) override {
        return answer(result, &PortableClass::RepositoryFileName);
    }
    STDMETHODIMP put_RepositoryFileName(BSTR value) override {
        return run(&PortableClass::setRepositoryFileName, value);
    }
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
