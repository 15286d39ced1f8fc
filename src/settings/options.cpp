#include "settings/options.h"

#include "platform/automation/error.h"

namespace quorel::settings {

using automation::Object;

const automation::ClassTable& Options::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<Options>(u"Options")
            .method(u"Create", &Options::Create)
            .readOnly(u"Settings", &Options::Settings)
            .method(u"Destroy", &Options::Destroy)
            .method(u"Init", &Options::Init,
                    {param(u"aRepInfo"), param(u"applicationTitle"), param(u"category")})
            .method(u"InitForm", &Options::InitForm)
            .method(u"Deinit", &Options::Deinit)
            .method(u"PopUp", &Options::PopUp)
            .method(u"Conceal", &Options::Conceal);
    return table;
}

void Options::Create() {
    makeForm();
    store_ = automation::make<settings::Settings>(environment().settings);
    store_->Create();
}

void Options::Destroy() {
    WindowClass::Destroy();
    store_.reset();
}

void Options::Init(const Object& aRepInfo, const std::u16string& applicationTitle,
                   const std::u16string& category) {
    if (!store_)
        throw automation::Error(automation::error_number::kObjectNotSet);
    const automation::Ref<settings::Settings> store = store_;
    store->Init(applicationTitle, category, aRepInfo);
}

void Options::InitForm() {
    form()->Init(store_);
}

void Options::Deinit() {
    form()->Deinit();
}

void Options::PopUp() {
    InitForm();
    form()->PopUp();
}

}  // namespace quorel::settings
