#pragma once

#include <vector>

#include "platform/ui/picture.h"

namespace quorel::explorer {

/// The picture of the information pane, in several sizes.
[[nodiscard]] std::vector<ui::Picture> explorerPicture();

}  // namespace quorel::explorer
