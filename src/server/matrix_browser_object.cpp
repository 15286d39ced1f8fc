#include "matrix/matrix_browser.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class MatrixBrowserObject final : public ServerObject<IMatrixBrowser, matrix::MatrixBrowser> {
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
    STDMETHODIMP Populate() override { return run(&PortableClass::Populate); }
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
    STDMETHODIMP SelectSourceMetaNode(BSTR* MetaNodeName) override {
        return run(&PortableClass::SelectSourceMetaNode, MetaNodeName);
    }
    STDMETHODIMP SelectSourceInstance(BSTR* InstanceIdentifier) override {
        return run(&PortableClass::SelectSourceInstance, InstanceIdentifier);
    }
    STDMETHODIMP SelectMetaLink(BSTR* MetaLinkName, VARIANT_BOOL outgoing) override {
        return run(&PortableClass::SelectMetaLink, MetaLinkName, outgoing);
    }
    STDMETHODIMP SelectTargetInstance(BSTR* TargetIdentifier) override {
        return run(&PortableClass::SelectTargetInstance, TargetIdentifier);
    }
    STDMETHODIMP Navigate() override { return run(&PortableClass::Navigate); }
    STDMETHODIMP SetRepository(IDispatch** Repository) override {
        return run(&PortableClass::SetRepository, Repository);
    }
    STDMETHODIMP GetRepository(IDispatch** result) override {
        return answer(result, &PortableClass::GetRepository);
    }
    STDMETHODIMP GetTargetInstance(IDispatch** result) override {
        return answer(result, &PortableClass::GetTargetInstance);
    }
    STDMETHODIMP GetTargetMetaNode(IDispatch** result) override {
        return answer(result, &PortableClass::GetTargetMetaNode);
    }
    STDMETHODIMP get_RepositoryManager(IDispatch** result) override {
        return answer(result, &PortableClass::RepositoryManager);
    }
    STDMETHODIMP putref_RepositoryManager(IDispatch* value) override {
        return run(&PortableClass::setRepositoryManager, value);
    }
    STDMETHODIMP SetSelection(IDispatch** o) override { return run(&PortableClass::SetSelection, o); }
};

}  // namespace

win32::ComClass matrixBrowserClass(const automation::ClassRegistry& registry) {
    return offer<MatrixBrowserObject>(registry, __uuidof(::MatrixBrowser), u"QuorelUtility.MatrixBrowser",
                                      u"Navigates from a node along its links to other nodes.");
}

}  // namespace quorel::server
