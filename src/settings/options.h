#pragma once

#include <string>

#include "frame/browser_class.h"
#include "settings/frm_options.h"
#include "settings/settings.h"

namespace quorel::settings {

/// The public class "QuorelUtility.Options": a modal dialog for the settings of one category, generated from
/// their descriptions. It owns the store, in which the host declares them.
class Options final : public frame::WindowClass<frmOptions> {
  public:
    using WindowClass::WindowClass;

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create();
    /// Nothing while there is none.
    [[nodiscard]] automation::Object Settings() const { return store_; }
    void Destroy();
    /// The store's `Init`, whose arguments are in another order. Error 91 while there is no store.
    void Init(const automation::Object& aRepInfo, const std::u16string& applicationTitle,
              const std::u16string& category);
    void InitForm();
    void Deinit();
    /// Generates the window anew, each time, and shows it; returns when it is hidden or unloaded.
    void PopUp();

  private:
    automation::Ref<settings::Settings> store_;
};

}  // namespace quorel::settings
