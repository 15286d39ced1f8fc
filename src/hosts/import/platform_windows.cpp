#include <io.h>

#include <cstdio>

#include "hosts/import/platform.h"
#include "platform/automation/text.h"
#include "repository/errors.h"

namespace quorel::hosts {

std::unique_ptr<repository::ByteSource> openPackageList(const std::filesystem::path& path) {
    const std::u16string name = path.filename().u16string();
    if (!name.ends_with(u"_Packages"))
        throw repository::failure(
            repository::error_number::kBadFileFormat,
            u"The list " + repository::inQuotes(name) + u" is compressed; unpack it first");
    return repository::openPlainFile(path);
}

bool errorStreamIsTerminal() {
    return _isatty(_fileno(stderr)) != 0;
}

}  // namespace quorel::hosts
