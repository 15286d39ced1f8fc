#include "dialogs/select_item.h"

#include <utility>

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

void SelectItem::AddItem(std::u16string str, const automation::Object& ob, std::u16string prop1,
                         std::u16string prop2, std::u16string prop3, std::u16string prop4,
                         std::u16string prop5, std::u16string prop6, std::u16string prop7) {
    const std::size_t length = prop1.size() + prop2.size() + prop3.size() + prop4.size() + prop5.size() +
                               prop6.size() + prop7.size();
    if (length == 0)
        form()->AddItem(std::move(str), ob);
    else
        form()->AddItem(std::move(str), ob,
                        {std::move(prop1), std::move(prop2), std::move(prop3), std::move(prop4),
                         std::move(prop5), std::move(prop6), std::move(prop7)});
}

}  // namespace quorel::dialogs
