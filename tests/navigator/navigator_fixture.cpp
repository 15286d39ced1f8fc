#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {

std::u16string programFolder() {
    return u"" QUOREL_PROGRAM_FOLDER;
}

}  // namespace quorel::navigator
