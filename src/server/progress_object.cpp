#include "dialogs/progress.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class ProgressObject final : public ServerObject<IProgress, dialogs::Progress> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create() override { return run(&PortableClass::Create); }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP Init(LONG* initValue, LONG* maxItem, LONG MinItem) override {
        return run(&PortableClass::Init, initValue, maxItem, MinItem);
    }
    STDMETHODIMP put_text(BSTR value) override { return run(&PortableClass::setText, value); }
    STDMETHODIMP newText(BSTR* aText) override { return run(&PortableClass::setText, aText); }
    STDMETHODIMP put_Title(BSTR value) override { return run(&PortableClass::setTitle, value); }
    STDMETHODIMP newTitle(BSTR* aTitle) override { return run(&PortableClass::setTitle, aTitle); }
    STDMETHODIMP put_Caption(BSTR value) override { return run(&PortableClass::setCaption, value); }
    STDMETHODIMP newCaption(BSTR* aCaption) override { return run(&PortableClass::setCaption, aCaption); }
    STDMETHODIMP incValue(LONG avalue) override { return run(&PortableClass::incValue, avalue); }
    STDMETHODIMP getOverflow(LONG* result) override { return answer(result, &PortableClass::getOverflow); }
    STDMETHODIMP PopUp() override { return run(&PortableClass::PopUp); }
    STDMETHODIMP Conceal() override { return run(&PortableClass::Conceal); }
};

}  // namespace

win32::ComClass progressClass(const automation::ClassRegistry& registry) {
    return offer<ProgressObject>(registry, __uuidof(::Progress), u"QuorelUtility.Progress",
                                 u"Shows the progress of a long operation, with title, text and percentage.");
}

}  // namespace quorel::server
