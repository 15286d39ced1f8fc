#include "dialogs/progress_bar.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class ProgressBarObject final : public ServerObject<IProgressBar, dialogs::ProgressBar> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create() override { return run(&PortableClass::Create); }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP Information(BSTR* txt) override { return run(&PortableClass::Information, txt); }
    STDMETHODIMP min(LONG* Value) override { return run(&PortableClass::min, Value); }
    STDMETHODIMP max(LONG* Value) override { return run(&PortableClass::max, Value); }
    STDMETHODIMP Value(LONG* val) override { return run(&PortableClass::Value, val); }
    STDMETHODIMP PopUp() override { return run(&PortableClass::PopUp); }
    STDMETHODIMP Conceal() override { return run(&PortableClass::Conceal); }
};

}  // namespace

win32::ComClass progressBarClass(const automation::ClassRegistry& registry) {
    return offer<ProgressBarObject>(registry, __uuidof(::ProgressBar), u"QuorelUtility.ProgressBar",
                                    u"Shows a bare progress bar with a line of information.");
}

}  // namespace quorel::server
