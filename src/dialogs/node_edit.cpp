#include "dialogs/node_edit.h"

#include "dialogs/property_dialog_layout.h"
#include "frame/guarded.h"
#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"
#include "platform/ui/plain_controls.h"

namespace quorel::dialogs {

using automation::Object;
using automation::Value;
using namespace ui::literals;

namespace {
constexpr ui::Size kNodeEditSize{6600_tw, 6000_tw};
}

NodeEdit::NodeEdit(const frame::Environment& environment)
    : Form(environment.desktop, u"NodeEdit"),
      property_(add<controls::Property>(u"Property1", environment.desktop, environment.fileDialogs,
                                        environment.valuePickers)),
      buttons_(add<ui::Panel>(u"Buttons")),
      okButton_(buttons_.add<ui::Button>(u"OK")),
      cancelButton_(buttons_.add<ui::Button>(u"Cancel")) {
    setText(u"node");
    okButton_.setText(u"OK");
    cancelButton_.setText(u"Cancel");
    setDefaultButton(&okButton_);
    setCancelButton(&cancelButton_);
    okButton_.onClick.connect([this] { OK_Click(); });
    cancelButton_.onClick.connect([this] { Cancel_Click(); });
    controls::PropertyEvents& events = property_.events();
    events.onPropertyChanged.connect(
        [this](Object&, std::u16string&, std::u16string&, const Value&, bool&) { changed_ = true; });
    events.onNewProperty.connect([this](Object&) { changed_ = true; });
    events.onPropertyDeleted.connect([this](Object&) { changed_ = true; });
    property_.onFailure.connect([this](const automation::Error& error) {
        frame::guarded(*this, u"NodeEdit", u"Property1", [&error] { throw error; });
    });
    onLoad.connect([this] { ok_ = changed_ = false; });
    onQueryUnload.connect([this](bool&) { ok_ = false; });
    onResize.connect([this] { place(); });
    setMinimumClientSize(leastPropertyDialogSize(desktop().textSize(u"Xg").height));
    setClientSize(kNodeEditSize);
    property_.list().focus();
}

void NodeEdit::OK_Click() {
    // The dialog reports in the name of the browser that it was made for.
    frame::guarded(*this, u"MatrixBrowser", u"Ok_Click", [this] {
        property_.apply();
        if (!isLoaded())
            return;
        ok_ = true;
        hide();
    });
}

void NodeEdit::Cancel_Click() {
    ok_ = false;
    hide();
}

void NodeEdit::place() {
    const PropertyDialogLayout layout = layoutPropertyDialog(clientSize(), desktop().textSize(u"Xg").height);
    property_.setBounds(layout.property);
    buttons_.setBounds(layout.buttons);
    okButton_.setBounds(layout.ok);
    cancelButton_.setBounds(layout.cancel);
}

std::shared_ptr<NodeEdit> makeNodeEdit(const frame::Environment& environment, std::u16string_view path,
                                       const Object& object) {
    const auto window = std::make_shared<NodeEdit>(environment);
    window->load();
    controls::Property& grid = window->Property1();
    grid.initialise();
    grid.setPath(path);
    grid.addMember({u"name", u"String", u"The name that lists show.", false});
    grid.addMember({u"Identifier", u"String", u"What tells it from all others.", true});
    const Object type = object.get(u"Parent").toObject();
    // Links have ends, and so have their types.
    if (answersTo(type, u"target")) {
        grid.addMember({u"source", u"String", u"The node that the link leaves.", true});
        grid.addMember({u"target", u"String", u"The node that the link reaches.", true});
    }
    grid.setMetaObject(type);
    grid.build();
    window->SetNode(object);
    window->setText(controls::valueText(object.get(u"name")) + u" - Properties");
    return window;
}

}  // namespace quorel::dialogs
