#pragma once

#include <string>

#include "frame/browser_class.h"
#include "matrix/frm_matrix_browser.h"

namespace quorel::matrix {

/// The public class "QuorelUtility.MatrixBrowser".
class MatrixBrowser final : public frame::BrowserClass<frmMatrixBrowser> {
  public:
    using BrowserClass::BrowserClass;

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create(const std::u16string& name = {}, const automation::Object& session = {});
    void SelectSourceMetaNode(const std::u16string& MetaNodeName);
    void SelectSourceInstance(const std::u16string& InstanceIdentifier);
    void SelectMetaLink(const std::u16string& MetaLinkName, bool outgoing = false);
    void SelectTargetInstance(const std::u16string& TargetIdentifier);
    void Navigate();
    /// These two are the property `Repository` by other names.
    void SetRepository(const automation::Object& Repository);
    [[nodiscard]] automation::Object GetRepository() const;
    /// These two return nothing, on purpose.
    [[nodiscard]] automation::Object GetTargetInstance() const;
    [[nodiscard]] automation::Object GetTargetMetaNode() const;
    void SetSelection(const automation::Object& o);
};

}  // namespace quorel::matrix
