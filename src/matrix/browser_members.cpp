#include "matrix/browser_members.h"

#include "matrix/frm_matrix_browser.h"

namespace quorel::matrix {

const automation::ClassTable& BrowserMembers::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<BrowserMembers>(u"frmMatrixBrowser")
            .method(u"EditSourceNode", &BrowserMembers::EditSourceNode, {param(u"node")})
            .method(u"EditTargetNode", &BrowserMembers::EditTargetNode)
            .method(u"Navigate", &BrowserMembers::Navigate);
    return table;
}

void BrowserMembers::EditSourceNode(const automation::Object& node) {
    if (const auto browser = browser_.lock())
        browser->EditSourceNode(node);
}

void BrowserMembers::EditTargetNode() {
    if (const auto browser = browser_.lock())
        browser->EditTargetNode();
}

void BrowserMembers::Navigate() {
    if (const auto browser = browser_.lock())
        browser->Navigate();
}

}  // namespace quorel::matrix
