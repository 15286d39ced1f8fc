#include "explorer/explorer_window.h"

namespace quorel::explorer {

void ExplorerWindow::AddPicture(std::u16string_view icon, std::u16string_view picturePath,
                                std::u16string_view bigPicturePath) {
    // The label of another procedure, on purpose.
    procedure(u"Create", [&] {
        const std::u16string_view bigPath = bigPicturePath.empty() ? picturePath : bigPicturePath;
        const std::vector<ui::Picture> small = desktop().loadPicture(picturePath);
        addTreePicture(icon, small);
        smallImages_->set(icon, small);
        bigImages_->set(icon, bigPath == picturePath ? small : desktop().loadPicture(bigPath));
    });
}

}  // namespace quorel::explorer
