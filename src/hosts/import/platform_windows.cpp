#include <io.h>

#include <cstdio>

#include "hosts/import/platform.h"
#include "repository/import/exchange.h"

namespace quorel::hosts {

std::unique_ptr<repository::ByteSource> openPackageList(const std::filesystem::path& path) {
    return repository::openUnpackedList(path);
}

bool errorStreamIsTerminal() {
    return _isatty(_fileno(stderr)) != 0;
}

}  // namespace quorel::hosts
