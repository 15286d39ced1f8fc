#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <sstream>
#include <string>

#include "repository/import/json_lines.h"
#include "repository/import/line_reader.h"
#include "repository/import/new_file.h"
#include "repository/sqlite/sqlite_store.h"
#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {

/// Bytes of a test, given out in pieces of a chosen size.
class TextSource final : public ByteSource {
  public:
    explicit TextSource(std::string text, std::size_t piece = 7) : text_(std::move(text)), piece_(piece) {}
    std::size_t read(char* buffer, std::size_t size) override {
        const std::size_t count = std::min({size, piece_, text_.size() - position_});
        std::memcpy(buffer, text_.data() + position_, count);
        position_ += count;
        return count;
    }

  private:
    std::string text_;
    std::size_t piece_;
    std::size_t position_ = 0;
};

inline const ReportProgress kNoProgress = [](const Progress&) {};

inline void importText(const std::u16string& file, const std::string& text) {
    makeRepositoryFile(file, false, [&](Store& store) {
        LineReader lines(std::make_unique<TextSource>(text), "in.jsonl");
        importJsonLines(store, lines, text.size(), kNoProgress);
    });
}

inline std::string exportText(const std::u16string& file) {
    std::ostringstream out;
    exportJsonLines(*sqlite::openStore(file), out, kNoProgress);
    return out.str();
}

}  // namespace quorel::repository::testing
