#pragma once

#include "platform/ui/control.h"

namespace quorel::controls {

/// A container that tells its owner when its size has changed, so that what it holds is placed anew.
class Elastic : public ui::Panel {
  public:
    using Panel::Panel;

    ui::Event<> onResize;

  private:
    void boundsChanged() override { onResize.raise(); }
};

}  // namespace quorel::controls
