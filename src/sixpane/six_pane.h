#pragma once

#include <string>

#include "frame/environment.h"
#include "frame/form_holder.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "sixpane/frm_six_pane.h"

namespace quorel::sixpane {

/// The public class "QuorelUtility.SixPane": forwards every member to its form. Every member but `Create` and
/// `Destroy` is error 91 while there is no form; what fails inside the window is shown there.
class SixPane final : public automation::NativeObject {
  public:
    explicit SixPane(const frame::Environment& environment) : environment_(environment) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] std::u16string Path() const;
    void setPath(const std::u16string& path);
    void Create(const std::u16string& name = {}, const automation::Object& session = {});
    void Destroy();
    void Init();
    void Deinit();
    void PopUp(bool modal = true);
    void Conceal();
    [[nodiscard]] automation::Object Repository() const;
    void setRepository(const automation::Object& repository);
    void Populate();
    [[nodiscard]] automation::Object PackageObject() const;
    void setPackageObject(const automation::Object& package);
    [[nodiscard]] std::u16string RepositoryFileName() const;
    void setRepositoryFileName(const std::u16string& fileName);
    [[nodiscard]] automation::Object RepositoryManager() const;
    void setRepositoryManager(const automation::Object& manager);
    [[nodiscard]] std::u16string current() const;
    void setCurrent(const std::u16string& current);
    void SetSelection(const automation::Object& o);

  private:
    frame::Environment environment_;
    frame::FormHolder<frmSixPane> holder_;
};

}  // namespace quorel::sixpane
