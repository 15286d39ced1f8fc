#pragma once

#include "server/com_server_object.h"

namespace quorel::server {

/// The slots that all browsers' interfaces have, whatever stands between them. The interface's own order is
/// kept, for each member overrides the slot of its name.
template <class Interface, class Portable>
class BrowserObject : public ServerObject<Interface, Portable> {
  public:
    using ServerObject<Interface, Portable>::ServerObject;

    STDMETHODIMP get_Path(BSTR* result) override { return this->answer(result, &Portable::Path); }
    STDMETHODIMP put_Path(BSTR value) override { return this->run(&Portable::setPath, value); }
    STDMETHODIMP Destroy() override { return this->run(&Portable::Destroy); }
    STDMETHODIMP PopUp(VARIANT_BOOL modal) override { return this->run(&Portable::PopUp, modal); }
    STDMETHODIMP Conceal() override { return this->run(&Portable::Conceal); }
    STDMETHODIMP get_Repository(IDispatch** result) override {
        return this->answer(result, &Portable::Repository);
    }
    STDMETHODIMP putref_Repository(IDispatch* value) override {
        return this->run(&Portable::setRepository, value);
    }
};

/// The same for those that a session's component manager may know by a name.
template <class Interface, class Portable>
class NamedBrowserObject : public BrowserObject<Interface, Portable> {
  public:
    using BrowserObject<Interface, Portable>::BrowserObject;

    STDMETHODIMP Create(BSTR name, IDispatch* session) override {
        return this->run(&Portable::Create, name, session);
    }
    STDMETHODIMP Init(VARIANT* result) override { return this->answer(result, &Portable::Init); }
    STDMETHODIMP Deinit(VARIANT* result) override { return this->answer(result, &Portable::Deinit); }
    STDMETHODIMP get_PackageObject(IDispatch** result) override {
        return this->answer(result, &Portable::PackageObject);
    }
    STDMETHODIMP putref_PackageObject(IDispatch* value) override {
        return this->run(&Portable::setPackageObject, value);
    }
    STDMETHODIMP get_RepositoryFileName(BSTR* result) override {
        return this->answer(result, &Portable::RepositoryFileName);
    }
    STDMETHODIMP put_RepositoryFileName(BSTR value) override {
        return this->run(&Portable::setRepositoryFileName, value);
    }
};

}  // namespace quorel::server
