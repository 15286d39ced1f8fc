#include "sixpane/frm_dyn_meta_object.h"

#include <algorithm>

#include "platform/ui/check_box.h"
#include "platform/ui/plain_controls.h"
#include "sixpane/dyn_meta_object_layout.h"

namespace quorel::sixpane {

using namespace ui::literals;

namespace {
constexpr ui::Size kMetaObjectSize{6300_tw, 3000_tw};
}  // namespace

frmDynMetaObject::frmDynMetaObject(ui::Desktop& desktop)
    : Form(desktop, u"frmDynMetaObject"),
      nameLabel_(add<ui::Label>(u"Label1")),
      nameBox_(add<ui::TextBox>(u"MetaObjectName")),
      descriptionLabel_(add<ui::Label>(u"Label2")),
      descriptionBox_(add<ui::TextBox>(u"Description")),
      persistent_(add<ui::CheckBox>(u"Persistent")),
      okButton_(add<ui::Button>(u"OK")),
      cancelButton_(add<ui::Button>(u"Cancel")) {
    setText(u"Dynamic Meta Object");
    nameLabel_.setText(u"&Name:");
    descriptionLabel_.setText(u"&Description:");
    descriptionBox_.setMultiLine(true);
    persistent_.setText(u"&Persistent");
    persistent_.setToolTip(u"Stays in the repository; otherwise it ends with the session");
    okButton_.setText(u"OK");
    cancelButton_.setText(u"Cancel");
    setDefaultButton(&okButton_);
    setCancelButton(&cancelButton_);
    okButton_.onClick.connect([this] { OK_Click(); });
    cancelButton_.onClick.connect([this] { Cancel_Click(); });
    onQueryUnload.connect([this](bool&) { ok_ = false; });
    onResize.connect([this] { place(); });
    setMinimumClientSize(leastDynMetaObjectSize(desktop.textSize(u"Xg").height, labelWidth()));
    setClientSize(kMetaObjectSize);
    place();
}

void frmDynMetaObject::AsMetaClass() {
    setText(u"Dynamic MetaClass");
}

void frmDynMetaObject::AsMetaAssoc() {
    setText(u"Dynamic MetaAssoc");
}

bool frmDynMetaObject::IsPersistent() const noexcept {
    return persistent_.isChecked();
}

void frmDynMetaObject::setIsPersistent(bool persistent) {
    persistent_.setChecked(persistent);
}

const std::u16string& frmDynMetaObject::MetaObjectName() const noexcept {
    return nameBox_.text();
}

void frmDynMetaObject::setMetaObjectName(std::u16string_view name) {
    nameBox_.setText(name);
}

const std::u16string& frmDynMetaObject::Description() const noexcept {
    return descriptionBox_.text();
}

void frmDynMetaObject::setDescription(std::u16string_view description) {
    descriptionBox_.setText(description);
}

void frmDynMetaObject::PopUp() {
    nameBox_.focus();
    nameBox_.selectAll();
    show(ui::Modality::Modal);
}

void frmDynMetaObject::OK_Click() {
    ok_ = true;
    hide();
}

void frmDynMetaObject::Cancel_Click() {
    ok_ = false;
    hide();
}

ui::Twips frmDynMetaObject::labelWidth() const {
    return std::max(desktop().textSize(u"Name:").width, desktop().textSize(u"Description:").width) + 30_tw;
}

void frmDynMetaObject::place() {
    const DynMetaObjectLayout layout =
        layoutDynMetaObject(clientSize(), desktop().textSize(u"Xg").height, labelWidth());
    nameLabel_.setBounds(layout.nameLabel);
    nameBox_.setBounds(layout.nameBox);
    descriptionLabel_.setBounds(layout.descriptionLabel);
    descriptionBox_.setBounds(layout.descriptionBox);
    persistent_.setBounds(layout.persistent);
    okButton_.setBounds(layout.ok);
    cancelButton_.setBounds(layout.cancel);
}

}  // namespace quorel::sixpane
