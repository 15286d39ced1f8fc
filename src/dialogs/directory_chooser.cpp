#include "dialogs/directory_chooser.h"

#include "platform/automation/error.h"

namespace quorel::dialogs {

const automation::ClassTable& DirectoryChooser::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<DirectoryChooser>(u"DirectoryChooser")
            .property(u"Directory", &DirectoryChooser::Directory, &DirectoryChooser::setDirectory)
            .readOnly(u"Canceled", &DirectoryChooser::Canceled)
            .property(u"Caption", &DirectoryChooser::Caption, &DirectoryChooser::setCaption)
            .property(u"ShowCreateButton", &DirectoryChooser::ShowCreateButton,
                      &DirectoryChooser::setShowCreateButton)
            .method(u"PopUp", &DirectoryChooser::PopUp);
    return table;
}

void DirectoryChooser::PopUp() {
    if (browser_ == nullptr)
        throw automation::Error(automation::error_number::kInvalidCall, u"There is no dialog for folders");
    // The host may let go of it while the tree is open.
    const automation::Ref<DirectoryChooser> alive(this);
    auto chosen = browser_->browse(caption_, showCreateButton_);
    canceled_ = !chosen;
    if (chosen)
        directory_ = *std::move(chosen);
}

}  // namespace quorel::dialogs
