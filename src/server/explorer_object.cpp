#include "explorer/explorer.h"
#include "server/QuorelUtility.h"
#include "server/com_browser_object.h"
#include "server/com_class_objects.h"

namespace quorel::server {

namespace {

class ExplorerObject final : public BrowserObject<IExplorer, explorer::Explorer> {
  public:
    using BrowserObject::BrowserObject;

    STDMETHODIMP Create() override { return run(&PortableClass::Create); }
    STDMETHODIMP Init() override { return run(&PortableClass::Init); }
    STDMETHODIMP Deinit() override { return run(&PortableClass::Deinit); }
    STDMETHODIMP get_RepositoryManager(IDispatch** result) override {
        return answer(result, &PortableClass::RepositoryManager);
    }
    STDMETHODIMP putref_RepositoryManager(IDispatch* value) override {
        return run(&PortableClass::setRepositoryManager, value);
    }
    STDMETHODIMP AddTreeDesc(BSTR* parentId, BSTR* typ, BSTR* metatype, BSTR* Caption, BSTR* icon,
                             BSTR* paneId, BSTR* result) override {
        return answer(result, &PortableClass::AddTreeDesc, parentId, typ, metatype, Caption, icon, paneId);
    }
    STDMETHODIMP AddPicture(BSTR* icon, BSTR* picturePath, BSTR bigPicturePath) override {
        return run(&PortableClass::AddPicture, icon, picturePath, bigPicturePath);
    }
    STDMETHODIMP AddPane(BSTR* paneId, BSTR* icon, BSTR* Caption, BSTR subPane) override {
        return run(&PortableClass::AddPane, paneId, icon, Caption, subPane);
    }
    STDMETHODIMP AddProperty(BSTR* paneId, BSTR* metatype, BSTR subPane) override {
        return run(&PortableClass::AddProperty, paneId, metatype, subPane);
    }
    STDMETHODIMP AddSeparator(BSTR* paneId, BSTR subPane) override {
        return run(&PortableClass::AddSeparator, paneId, subPane);
    }
    STDMETHODIMP AddToolbar(BSTR* paneId, BSTR subPane) override {
        return run(&PortableClass::AddToolbar, paneId, subPane);
    }
    STDMETHODIMP AddListView(BSTR* paneId, BSTR* view, BSTR* metaobject, BSTR* icon, BSTR subPane) override {
        return run(&PortableClass::AddListView, paneId, view, metaobject, icon, subPane);
    }
    STDMETHODIMP AddSubPane(BSTR* paneId, BSTR* Caption) override {
        return run(&PortableClass::AddSubPane, paneId, Caption);
    }
    STDMETHODIMP AddLabel(BSTR* paneId, BSTR* text, VARIANT_BOOL bold, LONG size, BSTR subPane) override {
        return run(&PortableClass::AddLabel, paneId, text, bold, size, subPane);
    }
    STDMETHODIMP AddCombo(BSTR* paneId, BSTR* metaobject, BSTR* MetaLink, BSTR* view, BSTR subPane) override {
        return run(&PortableClass::AddCombo, paneId, metaobject, MetaLink, view, subPane);
    }
};

}  // namespace

win32::ComClass explorerClass(const automation::ClassRegistry& registry) {
    return offer<ExplorerObject>(registry, __uuidof(::Explorer), u"QuorelUtility.Explorer",
                                 u"A window that the host builds of a tree and panes with controls.");
}

}  // namespace quorel::server
