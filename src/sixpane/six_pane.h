#pragma once

#include <string>

#include "frame/browser_class.h"
#include "sixpane/frm_six_pane.h"

namespace quorel::sixpane {

/// The public class "QuorelUtility.SixPane".
class SixPane final : public frame::BrowserClass<frmSixPane> {
  public:
    using BrowserClass::BrowserClass;

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create(const std::u16string& name = {}, const automation::Object& session = {});
    [[nodiscard]] std::u16string current() const;
    void setCurrent(const std::u16string& current);
    void SetSelection(const automation::Object& o);
};

}  // namespace quorel::sixpane
