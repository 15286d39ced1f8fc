#pragma once

#include <memory>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::matrix {

class frmMatrixBrowser;

/// The window as an object that is called by name. Does not keep it alive: the members of a window that is
/// gone do nothing.
class BrowserMembers final : public automation::NativeObject {
  public:
    explicit BrowserMembers(std::weak_ptr<frmMatrixBrowser> browser) : browser_(std::move(browser)) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

  private:
    void EditSourceNode(const automation::Object& node);
    void EditTargetNode();
    void Navigate();

    std::weak_ptr<frmMatrixBrowser> browser_;
};

}  // namespace quorel::matrix
