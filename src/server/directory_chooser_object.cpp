#include "dialogs/directory_chooser.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class DirectoryChooserObject final : public ServerObject<IDirectoryChooser, dialogs::DirectoryChooser> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP put_Directory(BSTR value) override { return run(&PortableClass::setDirectory, value); }
    STDMETHODIMP get_Directory(BSTR* result) override { return answer(result, &PortableClass::Directory); }
    STDMETHODIMP get_Canceled(VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::Canceled);
    }
    STDMETHODIMP put_Caption(BSTR value) override { return run(&PortableClass::setCaption, value); }
    STDMETHODIMP get_Caption(BSTR* result) override { return answer(result, &PortableClass::Caption); }
    STDMETHODIMP put_ShowCreateButton(VARIANT_BOOL value) override {
        return run(&PortableClass::setShowCreateButton, value);
    }
    STDMETHODIMP get_ShowCreateButton(VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::ShowCreateButton);
    }
    STDMETHODIMP PopUp() override { return run(&PortableClass::PopUp); }
};

}  // namespace

win32::ComClass directoryChooserClass(const automation::ClassRegistry& registry) {
    return offer<DirectoryChooserObject>(registry, __uuidof(::DirectoryChooser),
                                         u"QuorelUtility.DirectoryChooser",
                                         u"Lets the user choose a folder.");
}

}  // namespace quorel::server
