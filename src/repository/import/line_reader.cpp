#include "repository/import/line_reader.h"

#include <algorithm>
#include <cstring>
#include <fstream>

#include "platform/automation/text.h"
#include "repository/errors.h"

namespace quorel::repository {

namespace {

constexpr std::size_t kFirstBuffer = 256 * 1024;

class PlainFile final : public ByteSource {
  public:
    explicit PlainFile(const std::filesystem::path& path) : stream_(path, std::ios::binary), path_(path) {
        std::error_code ignored;
        if (!std::filesystem::exists(path, ignored))
            throw failure(automation::error_number::kFileNotFound,
                          u"There is no file " + inQuotes(automation::fromUtf8(shown(path))));
        if (!stream_ || std::filesystem::is_directory(path, ignored))
            throw failure(automation::error_number::kPathFileAccess,
                          u"The file " + inQuotes(automation::fromUtf8(shown(path))) + u" cannot be read");
    }
    std::size_t read(char* buffer, std::size_t size) override {
        stream_.read(buffer, static_cast<std::streamsize>(size));
        if (stream_.bad())
            throw failure(error_number::kDeviceIo,
                          u"The file " + inQuotes(automation::fromUtf8(shown(path_))) + u" cannot be read");
        return static_cast<std::size_t>(stream_.gcount());
    }

  private:
    std::ifstream stream_;
    std::filesystem::path path_;
};

}  // namespace

std::string shown(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::unique_ptr<ByteSource> openPlainFile(const std::filesystem::path& path) {
    return std::make_unique<PlainFile>(path);
}

automation::Error malformed(std::string_view name, std::uint64_t line, std::string_view reason) {
    std::string text(name);
    text.append(":").append(std::to_string(line)).append(": ").append(reason);
    return failure(error_number::kBadFileFormat, automation::fromUtf8(text));
}

LineReader::LineReader(std::unique_ptr<ByteSource> source, std::string name)
    : source_(std::move(source)), name_(std::move(name)), buffer_(kFirstBuffer) {}

bool LineReader::fill() {
    if (start_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + start_, end_ - start_);
        end_ -= start_;
        start_ = 0;
    }
    if (end_ == buffer_.size())
        buffer_.resize(buffer_.size() * 2);
    const std::size_t count = source_->read(buffer_.data() + end_, buffer_.size() - end_);
    end_ += count;
    bytesRead_ += count;
    return count != 0;
}

bool LineReader::next(std::string_view& line) {
    std::size_t searched = start_;
    for (;;) {
        const auto* found =
            static_cast<const char*>(std::memchr(buffer_.data() + searched, '\n', end_ - searched));
        if (found != nullptr) {
            const auto length = static_cast<std::size_t>(found - (buffer_.data() + start_));
            line = {buffer_.data() + start_, length};
            start_ += length + 1;
            break;
        }
        const std::size_t waiting = end_ - start_;
        if (!fill()) {
            if (waiting == 0)
                return false;
            line = {buffer_.data() + start_, waiting};
            start_ = end_;
            break;
        }
        searched = start_ + waiting;
    }
    ++lineNumber_;
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return true;
}

automation::Error LineReader::error(std::uint64_t line, std::string_view reason) const {
    return malformed(name_, line, reason);
}

}  // namespace quorel::repository
