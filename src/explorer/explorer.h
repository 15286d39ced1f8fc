#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "explorer/frm_explorer.h"
#include "frame/browser_class.h"

namespace quorel::explorer {

/// The public class "QuorelUtility.Explorer": an explorer that the host assembles from descriptions. Every
/// member but `Create` and `Destroy` is error 91 while there is no form. An unknown pane, sub pane or parent
/// is error 9.
class Explorer : public frame::BrowserClass<frmExplorer> {
  public:
    using BrowserClass::BrowserClass;

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create();
    /// Describes entries below those of the description `parentId`, at the top for "". Returns its id.
    std::u16string AddTreeDesc(const std::u16string& parentId, const std::u16string& typ,
                               const std::u16string& metatype, const std::u16string& Caption,
                               const std::u16string& icon, const std::u16string& paneId);
    void AddPicture(const std::u16string& icon, const std::u16string& picturePath,
                    const std::u16string& bigPicturePath);
    void AddPane(const std::u16string& paneId, const std::u16string& icon, const std::u16string& Caption,
                 const std::u16string& subPane);
    void AddProperty(const std::u16string& paneId, const std::u16string& metatype,
                     const std::u16string& subPane);
    void AddSeparator(const std::u16string& paneId, const std::u16string& subPane);
    void AddToolbar(const std::u16string& paneId, const std::u16string& subPane);
    void AddListView(const std::u16string& paneId, const std::u16string& view,
                     const std::u16string& metaobject, const std::u16string& icon,
                     const std::u16string& subPane);
    void AddSubPane(const std::u16string& paneId, const std::u16string& Caption);
    void AddLabel(const std::u16string& paneId, const std::u16string& text, bool bold, std::int32_t size,
                  const std::u16string& subPane);
    void AddCombo(const std::u16string& paneId, const std::u16string& metaobject,
                  const std::u16string& MetaLink, const std::u16string& view, const std::u16string& subPane);

  private:
    /// By id.
    std::map<std::u16string, std::shared_ptr<controls::TreeDescription>> descriptions_;
};

}  // namespace quorel::explorer
