#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "repository/import/line_reader.h"
#include "repository/import/progress.h"

namespace quorel::repository::metamodel {

/// Where something stands in the files of one import.
struct Spot {
    std::size_t file = 0;
    std::uint64_t line = 0;
};

/// The files of one import, and how far their reading is.
class Files {
  public:
    Files(const std::vector<std::filesystem::path>& paths, const OpenSource& open,
          const ReportProgress& report);

    [[nodiscard]] std::size_t count() const noexcept { return paths_.size(); }
    /// In UTF-8, for messages.
    [[nodiscard]] const std::string& name(std::size_t file) const { return names_.at(file); }
    [[nodiscard]] std::unique_ptr<ByteSource> open(std::size_t file) const { return open_(paths_.at(file)); }
    /// The last part of its path, in UTF-8.
    [[nodiscard]] std::string bareName(std::size_t file) const;
    void tellRead(std::size_t bytes);

    [[noreturn]] void refuse(const Spot& spot, std::u16string_view reason) const;
    /// "FILE:LINE" in messages about something else.
    [[nodiscard]] std::u16string shown(const Spot& spot) const;

  private:
    std::vector<std::filesystem::path> paths_;
    const OpenSource& open_;
    const ReportProgress& report_;
    std::vector<std::string> names_;
    std::uint64_t done_ = 0;
    std::uint64_t total_ = 0;
};

}  // namespace quorel::repository::metamodel
