#pragma once

#include <string>

#include "explorer/frm_ht_explorer.h"
#include "frame/browser_class.h"

namespace quorel::explorer {

/// The public class "QuorelUtility.HTExplorer": an explorer whose tree and panes follow the metamodel. Every
/// member but `Create` and `Destroy` is error 91 while there is no form; what fails inside the window is
/// shown there.
class HTExplorer : public frame::BrowserClass<frmHTExplorer> {
  public:
    using BrowserClass::BrowserClass;

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create(const std::u16string& name, const automation::Object& session);
    void SetupTree();
};

}  // namespace quorel::explorer
