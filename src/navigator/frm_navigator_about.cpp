// The one source that knows the version.

#include "navigator/frm_navigator.h"

namespace quorel::navigator {

void frmNavigator::showAbout() {
    tell(u"Quorel Navigator " QUOREL_VERSION u"\r\n\r\nShows repositories in the windows of QuorelUtility.");
}

}  // namespace quorel::navigator
