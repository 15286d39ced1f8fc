// The importer of JSON Lines: any text is refused, or is a repository that is written and read again the
// same.

#include <memory>
#include <sstream>
#include <string>

#include "input.h"
#include "platform/automation/error.h"
#include "repository/import/json_lines.h"
#include "repository/sqlite/sqlite_store.h"
#include "text_source.h"

using namespace quorel::repository;

namespace {

/// What a text reads as, written again. Throws what the importer throws.
std::string readAndWritten(const std::string& text) {
    const std::unique_ptr<Store> store = sqlite::createStore(u":memory:");
    const ReportProgress silent = [](const Progress&) {};
    {
        Transaction transaction(*store);
        LineReader lines(std::make_unique<quorel::fuzz::TextSource>(text), "input");
        importJsonLines(*store, lines, text.size(), silent);
        transaction.commit();
    }
    std::ostringstream out;
    exportJsonLines(*store, out, silent);
    return out.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    std::string written;
    try {
        written = readAndWritten(text);
    } catch (const quorel::automation::Error&) {
        return 0;
    }
    quorel::fuzz::promise(readAndWritten(written) == written, "what was written is read the same");
    return 0;
}
