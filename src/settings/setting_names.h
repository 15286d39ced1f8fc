#pragma once

#include <string_view>

/// What settings are called in a repository.
namespace quorel::settings::names {

inline constexpr std::u16string_view kSettingList = u"SettingList";
inline constexpr std::u16string_view kSetting = u"Setting";
inline constexpr std::u16string_view kListHasSetting = u"SettingList.Has.Setting";

inline constexpr std::u16string_view kName = u"Name";
inline constexpr std::u16string_view kValue = u"Value";
inline constexpr std::u16string_view kEditType = u"EditType";
inline constexpr std::u16string_view kEditCategory = u"EditCategory";
inline constexpr std::u16string_view kEditDescription = u"EditDescription";

}  // namespace quorel::settings::names
