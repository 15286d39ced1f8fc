#include "dialogs/select_item.h"

#include "platform/automation/text_parameter.h"

namespace quorel::dialogs {

const automation::ClassTable& SelectItem::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<SelectItem>(u"SelectItem")
            .method(u"Create", &SelectItem::Create)
            .method(u"Destroy", &SelectItem::Destroy)
            .method(u"PopUp", &SelectItem::PopUp)
            .method(u"Conceal", &SelectItem::Conceal)
            .writeOnly(u"Statement", &SelectItem::setStatement)
            .writeOnly(u"Caption", &SelectItem::setCaption)
            .readOnly(u"Selection", &SelectItem::Selection)
            .method(u"IsOk", &SelectItem::IsOk)
            .method(u"AsListView", &SelectItem::AsListView, {param(u"checkboxes", false)})
            .method(u"AddColumn", &SelectItem::AddColumn, {param(u"name"), param(u"width", 1000)})
            .method(u"AddItem", &SelectItem::AddItem,
                    {param(u"str"), param(u"ob"), param(u"prop1", u""), param(u"prop2", u""),
                     param(u"prop3", u""), param(u"prop4", u""), param(u"prop5", u""), param(u"prop6", u""),
                     param(u"prop7", u"")});
    return table;
}

}  // namespace quorel::dialogs
