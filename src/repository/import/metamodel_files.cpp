#include "repository/import/metamodel_files.h"

#include "platform/automation/text.h"

namespace quorel::repository::metamodel {

Files::Files(const std::vector<std::filesystem::path>& paths, const OpenSource& open,
             const ReportProgress& report)
    : paths_(paths), open_(open), report_(report) {
    for (const std::filesystem::path& path : paths_) {
        names_.push_back(repository::shown(path));
        std::error_code unknown;
        if (const std::uintmax_t size = std::filesystem::file_size(path, unknown); !unknown)
            total_ += size;
    }
}

std::string Files::bareName(std::size_t file) const {
    return repository::shown(paths_.at(file).filename());
}

void Files::tellRead(std::size_t bytes) {
    done_ += bytes;
    report_({"Importing", done_, total_});
}

void Files::refuse(const Spot& spot, std::u16string_view reason) const {
    throw malformed(name(spot.file), spot.line, automation::toUtf8(reason));
}

std::u16string Files::shown(const Spot& spot) const {
    return automation::fromUtf8(name(spot.file)) + u":" +
           automation::decimal(static_cast<std::int64_t>(spot.line));
}

}  // namespace quorel::repository::metamodel
