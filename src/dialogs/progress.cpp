#include "dialogs/progress.h"

#include <limits>

namespace quorel::dialogs {

const automation::ClassTable& Progress::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<Progress>(u"Progress")
            .method(u"Create", &Progress::Create)
            .method(u"Destroy", &Progress::Destroy)
            .method(u"Init", &Progress::Init, {param(u"initValue"), param(u"maxItem"), param(u"MinItem", 0)})
            .writeOnly(u"text", &Progress::setText)
            .method(u"newText", &Progress::setText, {param(u"aText")})
            .writeOnly(u"Title", &Progress::setTitle)
            .method(u"newTitle", &Progress::setTitle, {param(u"aTitle")})
            .writeOnly(u"Caption", &Progress::setCaption)
            .method(u"newCaption", &Progress::setCaption, {param(u"aCaption")})
            .method(u"incValue", &Progress::incValue, {param(u"avalue", 0)})
            .method(u"getOverflow", &Progress::getOverflow)
            .method(u"PopUp", &Progress::PopUp)
            .method(u"Conceal", &Progress::Conceal);
    return table;
}

void Progress::Create() {
    holder_.create(std::make_shared<frmProgress>(environment_.desktop, environment_.clock));
}

void Progress::Destroy() {
    holder_.destroy();
}

void Progress::Init(std::int32_t initValue, std::int32_t maxItem, std::int32_t MinItem) {
    overflow_ = 0;
    form()->Init(progressRange(initValue, maxItem, MinItem));
}

void Progress::setText(const std::u16string& text) {
    form()->setProgressText(text);
}

void Progress::setTitle(const std::u16string& title) {
    form()->setTitle(title);
}

void Progress::setCaption(const std::u16string& caption) {
    form()->setCaption(caption);
}

void Progress::incValue(std::int32_t avalue) {
    if (!form()->incValue(avalue) && overflow_ < std::numeric_limits<std::int32_t>::max())
        ++overflow_;
}

void Progress::PopUp() {
    form()->PopUp();
}

void Progress::Conceal() {
    if (holder_.isSet())
        form()->hide();
}

}  // namespace quorel::dialogs
