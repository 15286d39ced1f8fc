#include "repository/import/debian_records.h"

#include <algorithm>

namespace quorel::repository::debian {

namespace {

char lower(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

bool sameName(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string_view trimmed(std::string_view text) noexcept {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    return text;
}

bool isFieldName(std::string_view name) noexcept {
    return !name.empty() && name.front() != '-' && name.front() != '#' &&
           std::all_of(name.begin(), name.end(), [](char letter) { return letter > 32 && letter < 127; });
}

}  // namespace

const Field* Record::find(std::string_view name) const {
    const auto found = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const Field& field) { return sameName(field.name, name); });
    return found != fields_.end() ? &*found : nullptr;
}

std::string_view Record::value(std::string_view name) const {
    const Field* field = find(name);
    return field != nullptr ? std::string_view(field->value) : std::string_view();
}

bool RecordReader::next(Record& record) {
    record.fields_.clear();
    std::string_view line;
    while (lines_.next(line)) {
        if (trimmed(line).empty()) {
            if (!record.fields_.empty())
                return true;
        } else {
            addLine(record, line);
        }
    }
    return !record.fields_.empty();
}

void RecordReader::addLine(Record& record, std::string_view line) {
    const std::uint64_t number = lines_.lineNumber();
    if (line.front() == ' ' || line.front() == '\t') {
        if (record.fields_.empty())
            throw lines_.error(number, "a continuation line stands before the first field");
        record.fields_.back().value.append(" ").append(trimmed(line));
        return;
    }
    const std::size_t colon = line.find(':');
    const std::string_view name = line.substr(0, colon);
    if (colon == std::string_view::npos || !isFieldName(name))
        throw lines_.error(number, "the line is no field of the form \"Name: value\"");
    if (record.find(name) != nullptr)
        throw lines_.error(number, "the field " + std::string(name) + " stands twice in one record");
    record.fields_.push_back({std::string(name), std::string(trimmed(line.substr(colon + 1))), number});
}

}  // namespace quorel::repository::debian
