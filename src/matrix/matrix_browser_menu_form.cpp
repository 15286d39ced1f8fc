#include "matrix/matrix_browser_menu_form.h"

#include <utility>

#include "frame/guarded.h"
#include "platform/automation/calls.h"
#include "platform/ui/plain_controls.h"

namespace quorel::matrix {

using automation::Object;

namespace {
constexpr std::u16string_view kModule = u"MatrixBrowser";
}

MatrixBrowserMenuForm::MatrixBrowserMenuForm(ui::Desktop& desktop) : Form(desktop, u"MatrixBrowserMenuForm") {
    setText(u"Menu Form");
    add<ui::Label>(u"Label1").setText(
        u"Unsichtbar, wird ben\u00F6tigt f\u00FCr MatrixBrowser, um Popup Men\u00FC zur Verf\u00FCgung zu "
        u"stellen und die Events zu verarbeiten.!!!");
    ui::MenuItem& popup = menuBar().add(u"mnuPopup", u"Popup");
    popup.add(u"mnuEdit", kEditCaption).onClick.connect([this] { mnuEdit_Click(); });
    popup.add(u"mnuNavigate", kNavigateCaption).onClick.connect([this] { mnuNavigate_Click(); });
    ui::MenuItem& target = menuBar().add(u"mnuPopupTargetNode", u"Popup target node");
    target.add(u"mnuEditTargetNode", kEditCaption).onClick.connect([this] { mnuEditTargetNode_Click(); });
}

void MatrixBrowserMenuForm::SetMatrixBrowser(Object browser) {
    browser_ = std::move(browser);
}

void MatrixBrowserMenuForm::userChose(std::u16string_view entry) {
    if (ui::MenuItem* const item = menuBar().find(entry))
        item->userClicked();
}

void MatrixBrowserMenuForm::mnuEdit_Click() {
    frame::guarded(*this, kModule, u"mnuEdit_Click", [this] {
        if (const Object browser = browser_)
            browser.call(u"EditTargetNode");
    });
}

void MatrixBrowserMenuForm::mnuNavigate_Click() {
    frame::guarded(*this, kModule, u"mnuNavigate_Click", [this] {
        if (const Object browser = browser_)
            browser.call(u"Navigate");
    });
}

}  // namespace quorel::matrix
