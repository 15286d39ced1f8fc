#pragma once

#include <memory>

#include "platform/ui/glyph.h"

/// The drawings that buttons of this library share; made once each.
namespace quorel::ui::glyphs {

using Shared = std::shared_ptr<const Glyph>;

[[nodiscard]] Shared plus();
[[nodiscard]] Shared minus();
[[nodiscard]] Shared newNode();  ///< a box and a plus
[[nodiscard]] Shared link();     ///< two boxes and the line between
[[nodiscard]] Shared newLink();  ///< the same and a plus
[[nodiscard]] Shared remove();   ///< a red cross: something is deleted
[[nodiscard]] Shared tick();
[[nodiscard]] Shared cross();  ///< a grey cross: nothing is done
[[nodiscard]] Shared save();
[[nodiscard]] Shared open();
[[nodiscard]] Shared edit();  ///< a pencil
[[nodiscard]] Shared refresh();
[[nodiscard]] Shared back();
[[nodiscard]] Shared forward();
[[nodiscard]] Shared search();
[[nodiscard]] Shared revert();
[[nodiscard]] Shared zoomIn();      ///< a glass and a plus
[[nodiscard]] Shared zoomOut();     ///< a glass and a minus
[[nodiscard]] Shared fitAll();      ///< four corners around a box
[[nodiscard]] Shared actualSize();  ///< one to one
[[nodiscard]] Shared print();

}  // namespace quorel::ui::glyphs
