#include "platform/shell/settings_text.h"

#include <array>

#include "platform/automation/error.h"
#include "platform/automation/text.h"

namespace quorel::shell {

namespace {

struct Escape {
    char plain, letter;
};
constexpr std::array kEscapes{Escape{'\\', '\\'}, Escape{'\t', 't'}, Escape{'\n', 'n'}, Escape{'\r', 'r'},
                              Escape{'\0', '0'}};

void appendEscaped(std::string& out, std::u16string_view text) {
    for (const char byte : automation::toUtf8(text)) {
        char letter = 0;
        for (const Escape& escape : kEscapes)
            if (escape.plain == byte)
                letter = escape.letter;
        if (letter != 0)
            out += '\\';
        out += letter != 0 ? letter : byte;
    }
}

std::optional<std::u16string> unescaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
            continue;
        }
        const Escape* known = nullptr;
        for (const Escape& escape : kEscapes)
            if (i + 1 < text.size() && escape.letter == text[i + 1])
                known = &escape;
        if (known == nullptr)
            return std::nullopt;
        out += known->plain;
        ++i;
    }
    return automation::fromUtf8(out);
}

bool parseLine(std::string_view line, SettingMap& settings) {
    std::array<std::u16string, 4> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t end = line.find('\t');
        const bool isLast = i + 1 == fields.size();
        if ((end == std::string_view::npos) != isLast)
            return false;
        auto field = unescaped(line.substr(0, end));
        if (!field)
            return false;
        fields[i] = std::move(*field);
        if (!isLast)
            line.remove_prefix(end + 1);
    }
    settings.insert_or_assign({std::move(fields[0]), std::move(fields[1]), std::move(fields[2])},
                              std::move(fields[3]));
    return true;
}

}  // namespace

std::string formatSettings(const SettingMap& settings) {
    std::string text;
    for (const auto& [address, value] : settings) {
        for (const std::u16string* field : {&address.application, &address.section, &address.key}) {
            appendEscaped(text, *field);
            text += '\t';
        }
        appendEscaped(text, value);
        text += '\n';
    }
    return text;
}

SettingMap parseSettings(std::string_view text) {
    SettingMap settings;
    for (std::int64_t lineNumber = 1; !text.empty(); ++lineNumber) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!line.empty() && !parseLine(line, settings))
            throw automation::Error(
                automation::error_number::kInternal,
                u"Line " + automation::decimal(lineNumber) + u" of the settings cannot be read");
    }
    return settings;
}

}  // namespace quorel::shell
