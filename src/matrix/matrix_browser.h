#pragma once

#include <string>

#include "frame/environment.h"
#include "frame/form_holder.h"
#include "matrix/frm_matrix_browser.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::matrix {

/// The public class "QuorelUtility.MatrixBrowser": forwards every member to its form. Every member but
/// `Create` and `Destroy` is error 91 while there is no form; what fails inside the window is shown there.
class MatrixBrowser final : public automation::NativeObject {
  public:
    explicit MatrixBrowser(const frame::Environment& environment) : environment_(environment) {}

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
    void SelectSourceMetaNode(const std::u16string& MetaNodeName);
    void SelectSourceInstance(const std::u16string& InstanceIdentifier);
    void SelectMetaLink(const std::u16string& MetaLinkName, bool outgoing = false);
    void SelectTargetInstance(const std::u16string& TargetIdentifier);
    void Navigate();
    void SetRepository(const automation::Object& Repository);
    [[nodiscard]] automation::Object GetRepository() const;
    /// These two return nothing, on purpose.
    [[nodiscard]] automation::Object GetTargetInstance() const;
    [[nodiscard]] automation::Object GetTargetMetaNode() const;
    [[nodiscard]] automation::Object RepositoryManager() const;
    void setRepositoryManager(const automation::Object& manager);
    void SetSelection(const automation::Object& o);

  private:
    frame::Environment environment_;
    frame::FormHolder<frmMatrixBrowser> holder_;
};

}  // namespace quorel::matrix
