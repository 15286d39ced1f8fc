#include "repository/sqlite/words.h"

#include <algorithm>
#include <array>

#include "platform/automation/error.h"
#include "repository/errors.h"

namespace quorel::repository::sqlite {

namespace {

[[noreturn]] void refuseSearch() {
    throw failure(automation::error_number::kInvalidCall, u"This program's storage cannot search texts");
}

/// The full-text module hands out its interface through a statement.
fts5_api* fullTextOf(sqlite3* connection) {
    fts5_api* api = nullptr;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection, "SELECT fts5(?1)", -1, &statement, nullptr) != SQLITE_OK)
        refuseSearch();
    sqlite3_bind_pointer(statement, 1, static_cast<void*>(&api), "fts5_api_ptr", nullptr);
    sqlite3_step(statement);
    sqlite3_finalize(statement);
    if (api == nullptr)
        refuseSearch();
    return api;
}

}  // namespace

WordSplitter::WordSplitter(Database& database) {
    const KeptRead::Use use(database.keptRead());
    fts5_api* const api = fullTextOf(database.handle());
    void* context = nullptr;
    if (api->xFindTokenizer(api, "unicode61", &context, &methods_) != SQLITE_OK)
        refuseSearch();
    std::array<const char*, 2> options{"remove_diacritics", "2"};
    Fts5Tokenizer* tokenizer = nullptr;
    if (methods_.xCreate(context, options.data(), static_cast<int>(options.size()), &tokenizer) != SQLITE_OK)
        refuseSearch();
    tokenizer_.reset(tokenizer);
}

void WordSplitter::split(std::string_view utf8, void* context, Forward forward) const {
    const int code = methods_.xTokenize(tokenizer_.get(), context, FTS5_TOKENIZE_DOCUMENT, utf8.data(),
                                        static_cast<int>(utf8.size()), forward);
    if (code != SQLITE_OK && code != SQLITE_DONE)
        throw automation::Error(automation::error_number::kOutOfMemory);
}

SoughtWords::SoughtWords(const WordSplitter& splitter, std::string_view utf8) {
    std::size_t count = 0;
    splitter.each(utf8, [&](std::string_view folded, std::size_t) {
        key_.append(key_.empty() ? "" : " ").append(folded);
        if (std::find(words_.begin(), words_.end(), folded) == words_.end())
            words_.emplace_back(folded);
        return ++count < kMost;
    });
    for (std::size_t i = 0; i < words_.size(); ++i)
        all_ |= std::uint32_t{1} << i;
}

std::uint32_t SoughtWords::begun(std::string_view folded) const noexcept {
    std::uint32_t found = 0;
    for (std::size_t i = 0; i < words_.size(); ++i)
        if (folded.starts_with(words_[i]))
            found |= std::uint32_t{1} << i;
    return found;
}

std::uint32_t SoughtWords::begun(std::string_view folded, std::size_t letters) const noexcept {
    std::uint32_t found = 0;
    for (std::size_t i = 0; i < words_.size(); ++i)
        if (folded.starts_with(beginning(words_[i], letters)))
            found |= std::uint32_t{1} << i;
    return found;
}

std::string_view beginning(std::string_view word, std::size_t letters) noexcept {
    std::size_t place = 0;
    while (place < word.size() && letters-- > 0)
        do
            ++place;
        while (place < word.size() && continuesCharacter(word[place]));
    return word.substr(0, place);
}

std::string keyOf(const WordSplitter& splitter, std::string_view utf8) {
    std::string key;
    splitter.each(utf8, [&](std::string_view folded, std::size_t) {
        key.append(key.empty() ? "" : " ").append(folded);
        return true;
    });
    return key;
}

}  // namespace quorel::repository::sqlite
