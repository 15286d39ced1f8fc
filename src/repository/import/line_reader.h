#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/error.h"

namespace quorel::repository {

/// Where bytes come from: a file, or a program that unpacks one.
class ByteSource {
  public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;
    /// Reads up to `size` bytes; 0 at the end. Throws `Error` when it fails.
    virtual std::size_t read(char* buffer, std::size_t size) = 0;
};

using OpenSource = std::function<std::unique_ptr<ByteSource>(const std::filesystem::path&)>;

/// A plain file. Throws `Error` 53 or 75 when it cannot be opened.
[[nodiscard]] std::unique_ptr<ByteSource> openPlainFile(const std::filesystem::path& path);

/// What is wrong with a file: "NAME:LINE: REASON", with the number of the cause. Both texts are UTF-8.
[[nodiscard]] automation::Error malformed(std::string_view name, std::uint64_t line, std::string_view reason);

/// Reads a text line by line, knowing where it is.
class LineReader {
  public:
    LineReader(std::unique_ptr<ByteSource> source, std::string name);
    /// The next line without its end; the view holds until the next call. False at the end.
    [[nodiscard]] bool next(std::string_view& line);
    /// Of the line read last, counted from 1.
    [[nodiscard]] std::uint64_t lineNumber() const noexcept { return lineNumber_; }
    [[nodiscard]] std::uint64_t bytesRead() const noexcept { return bytesRead_; }
    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    /// "NAME:LINE: REASON", with the number of the cause.
    [[nodiscard]] automation::Error error(std::uint64_t line, std::string_view reason) const;

  private:
    [[nodiscard]] bool fill();

    std::unique_ptr<ByteSource> source_;
    std::string name_;
    std::vector<char> buffer_;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
    std::uint64_t lineNumber_ = 0;
    std::uint64_t bytesRead_ = 0;
};

/// A path in UTF-8, for messages.
[[nodiscard]] std::string shown(const std::filesystem::path& path);

}  // namespace quorel::repository
