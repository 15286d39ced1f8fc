#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "repository/import/line_reader.h"

namespace quorel::repository::debian {

/// One field of a record. Continuation lines are joined with blanks.
struct Field {
    std::string name;
    std::string value;
    std::uint64_t line = 0;
};

/// One paragraph of a control file.
class Record {
  public:
    /// Null when the record has no such field. Names ignore case.
    [[nodiscard]] const Field* find(std::string_view name) const;
    [[nodiscard]] std::string_view value(std::string_view name) const;
    [[nodiscard]] std::uint64_t line() const { return fields().empty() ? 0 : fields_.front().line; }
    [[nodiscard]] const std::vector<Field>& fields() const noexcept { return fields_; }

  private:
    friend class RecordReader;
    std::vector<Field> fields_;
};

/// Reads the records of a list. Throws `Error` naming file and line for what is no control file.
class RecordReader {
  public:
    explicit RecordReader(LineReader& lines) : lines_(lines) {}
    /// False at the end.
    [[nodiscard]] bool next(Record& record);

  private:
    void addLine(Record& record, std::string_view line);
    LineReader& lines_;
};

}  // namespace quorel::repository::debian
