#pragma once

#include <string>
#include <string_view>

namespace quorel::repository::sqlite {

/// Text as files hold it: UTF-8 that keeps lone surrogates and embedded nulls, so that every string comes
/// back as it went. Plain ASCII, which most names are, is widened and narrowed without decoding.
[[nodiscard]] std::string stored(std::u16string_view text);
/// The same into a buffer that is used again and again.
const std::string& storedIn(std::string& buffer, std::u16string_view text);
[[nodiscard]] std::u16string loaded(std::string_view bytes);

}  // namespace quorel::repository::sqlite
