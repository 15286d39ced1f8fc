#include "matrix/matrix_browser.h"
#include "server/QuorelUtility.h"
#include "server/com_browser_object.h"
#include "server/com_class_objects.h"

namespace quorel::server {

namespace {

class MatrixBrowserObject final : public NamedBrowserObject<IMatrixBrowser, matrix::MatrixBrowser> {
  public:
    using NamedBrowserObject::NamedBrowserObject;

    STDMETHODIMP Populate() override { return run(&PortableClass::Populate); }
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
