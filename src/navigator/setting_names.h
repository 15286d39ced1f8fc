#pragma once

#include <string_view>

namespace quorel::navigator {

/// Where the navigator keeps what it remembers by itself.
inline constexpr std::u16string_view kStoreApplication = u"QuorelUtility";
inline constexpr std::u16string_view kStoreSection = u"Navigator";
inline constexpr std::u16string_view kLastFile = u"LastFile";

/// Where the settings are that the user edits: the category of the options dialog and its application title.
inline constexpr std::u16string_view kOptionsCategory = u"Quorel Navigator";
inline constexpr std::u16string_view kOptionsTitle = u"Options";

}  // namespace quorel::navigator
