#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "repository/import/line_reader.h"

namespace quorel::repository {

/// An element of an XML file, without its text. Everything is UTF-8. Names of a namespace are "URI name",
/// with a blank between; the others are as they stand.
struct XmlElement {
    std::string name;
    std::uint64_t line = 0;
    std::map<std::string, std::string, std::less<>> attributes;
    std::vector<XmlElement> children;

    /// Empty when there is none.
    [[nodiscard]] std::string_view attribute(std::string_view key) const;
};

/// How deep elements may stand within each other.
inline constexpr std::size_t kMostXmlLevels = 200;

/// Reads a whole file. Document types, and so entities of any kind, are refused: nothing but the file itself
/// is ever read. `tellRead` is told of every piece how many bytes it has. Throws `Error` naming file and
/// line.
[[nodiscard]] XmlElement readXml(ByteSource& source, const std::string& name,
                                 const std::function<void(std::size_t)>& tellRead);

}  // namespace quorel::repository
