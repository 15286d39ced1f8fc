// The window of Search Everywhere.

#include "frame/attempt.h"
#include "navigator/frm_navigator.h"
#include "navigator/frm_search.h"

namespace quorel::navigator {

void frmNavigator::search() {
    if (!search_ || !search_->isLoaded()) {
        search_ = std::make_shared<frmSearch>(services_.environment, workspace_.repository());
        search_->onReveal.connect([this](const automation::Object& found) { reveal(found); });
    }
    const auto window = search_;
    window->show(ui::Modality::Modeless);
}

void frmNavigator::endSearch() noexcept {
    const auto window = std::exchange(search_, {});
    if (!window)
        return;
    // What it still tells finds nobody.
    window->onReveal.clear();
    frame::attempt([&] { window->unload(); });
}

}  // namespace quorel::navigator
