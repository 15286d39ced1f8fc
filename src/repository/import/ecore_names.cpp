#include "repository/import/ecore_names.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorel::repository::metamodel::ecore {

namespace {

using Entry = std::pair<std::string_view, DataType>;

// 64-bit integers fit no data type; doubles keep them to 2^53. Numbers of any length stay texts.
constexpr std::array<Entry, 33> kStandard{
    {{"EString", DataType::String},         {"EBoolean", DataType::Boolean},
     {"EBooleanObject", DataType::Boolean}, {"EInt", DataType::Integer},
     {"EIntegerObject", DataType::Integer}, {"EShort", DataType::Integer},
     {"EShortObject", DataType::Integer},   {"EByte", DataType::Integer},
     {"EByteObject", DataType::Integer},    {"ELong", DataType::Double},
     {"ELongObject", DataType::Double},     {"EFloat", DataType::Double},
     {"EFloatObject", DataType::Double},    {"EDouble", DataType::Double},
     {"EDoubleObject", DataType::Double},   {"EDate", DataType::Date},
     {"EByteArray", DataType::Binary},      {"Boolean", DataType::Boolean},
     {"BooleanObject", DataType::Boolean},  {"Int", DataType::Integer},
     {"IntObject", DataType::Integer},      {"Short", DataType::Integer},
     {"Byte", DataType::Integer},           {"UnsignedShort", DataType::Integer},
     {"UnsignedByte", DataType::Integer},   {"Long", DataType::Double},
     {"Float", DataType::Double},           {"Double", DataType::Double},
     {"DoubleObject", DataType::Double},    {"Date", DataType::Date},
     {"DateTime", DataType::Date},          {"Base64Binary", DataType::Binary},
     {"HexBinary", DataType::Binary}}};

constexpr std::array<Entry, 17> kJava{{{"java.lang.String", DataType::String},
                                       {"boolean", DataType::Boolean},
                                       {"java.lang.Boolean", DataType::Boolean},
                                       {"int", DataType::Integer},
                                       {"java.lang.Integer", DataType::Integer},
                                       {"short", DataType::Integer},
                                       {"java.lang.Short", DataType::Integer},
                                       {"byte", DataType::Integer},
                                       {"java.lang.Byte", DataType::Integer},
                                       {"long", DataType::Double},
                                       {"java.lang.Long", DataType::Double},
                                       {"float", DataType::Double},
                                       {"java.lang.Float", DataType::Double},
                                       {"double", DataType::Double},
                                       {"java.lang.Double", DataType::Double},
                                       {"java.util.Date", DataType::Date},
                                       {"byte[]", DataType::Binary}}};

template <std::size_t Count>
std::optional<DataType> in(const std::array<Entry, Count>& entries, std::string_view name) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [name](const Entry& entry) { return entry.first == name; });
    return found == entries.end() ? std::nullopt : std::optional(found->second);
}

std::string_view behindLast(std::string_view text, char mark) {
    const std::size_t place = text.rfind(mark);
    return place == std::string_view::npos ? text : text.substr(place + 1);
}

}  // namespace

std::vector<Reference> referencesIn(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    std::vector<Reference> references;
    for (std::size_t start = text.find_first_not_of(kBlanks); start != std::string_view::npos;
         start = text.find_first_not_of(kBlanks, start)) {
        const std::size_t end = std::min(text.find_first_of(kBlanks, start), text.size());
        const std::string_view word = text.substr(start, end - start);
        start = end;
        const std::size_t mark = word.find('#');
        // "ecore:EClass" tells the kind of the next one; a word without a mark is otherwise an identifier.
        const bool isKind = mark == std::string_view::npos && word.find(':') != std::string_view::npos;
        if (isKind)
            continue;
        if (mark == std::string_view::npos)
            references.push_back({{}, std::string(word)});
        else
            references.push_back({std::string(word.substr(0, mark)), std::string(word.substr(mark + 1))});
    }
    return references;
}

std::string_view lastPart(std::string_view path) {
    return behindLast(path, '/');
}

std::string_view localName(std::string_view name) {
    return behindLast(behindLast(name, ' '), ':');
}

bool isXmi(std::string_view name) {
    return name.starts_with("http://www.omg.org/XMI") || name.starts_with("http://schema.omg.org/spec/XMI") ||
           name.starts_with("http://www.omg.org/spec/XMI");
}

std::optional<DataType> standardType(std::string_view name) {
    return in(kStandard, name);
}

std::optional<DataType> javaType(std::string_view className) {
    return in(kJava, className);
}

}  // namespace quorel::repository::metamodel::ecore
