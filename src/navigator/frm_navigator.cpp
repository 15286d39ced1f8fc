#include "navigator/frm_navigator.h"

#include "frame/guarded.h"

namespace quorel::navigator {

namespace {
constexpr std::u16string_view kTitle = u"Navigator";
}

frmNavigator::frmNavigator(const Services& services)
    : Form(services.environment.desktop, u"frmNavigator"),
      services_(services),
      workspace_(services.environment.classes) {
    setText(kTitle);
}

void frmNavigator::openFile(const std::u16string& path) {
    frame::guarded(*this, u"Navigator", u"openFile", [&] {
        closeRepository();
        workspace_.open(path);
        setText(path + u" - " + std::u16string(kTitle));
    });
}

void frmNavigator::closeRepository() {
    workspace_.close();
    setText(kTitle);
}

}  // namespace quorel::navigator
