#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "repository/sqlite/database.h"

namespace quorel::repository::sqlite {

/// Splits texts into words as the search index does: runs of letters and digits, without case and accents.
class WordSplitter {
  public:
    explicit WordSplitter(Database& database);

    /// Calls `word(std::string_view folded, std::size_t start)`, where `start` is the word's place in `utf8`,
    /// for one word after the other as long as it returns true.
    template <class Word>
    void each(std::string_view utf8, Word&& word) const {
        const auto forward = [](void* context, int, const char* token, int size, int start, int) -> int {
            const std::string_view folded(token, static_cast<std::size_t>(size));
            const bool goesOn = (*static_cast<Word*>(context))(folded, static_cast<std::size_t>(start));
            return goesOn ? SQLITE_OK : SQLITE_DONE;
        };
        split(utf8, &word, forward);
    }

  private:
    using Forward = int (*)(void*, int, const char*, int, int, int);
    struct Delete {
        const fts5_tokenizer* methods;
        void operator()(Fts5Tokenizer* tokenizer) const noexcept { methods->xDelete(tokenizer); }
    };

    void split(std::string_view utf8, void* context, Forward forward) const;

    fts5_tokenizer methods_{};
    std::unique_ptr<Fts5Tokenizer, Delete> tokenizer_{nullptr, Delete{&methods_}};
};

/// What someone typed to search for.
class SoughtWords {
  public:
    /// More words than these do not count.
    static constexpr std::size_t kMost = 32;

    SoughtWords(const WordSplitter& splitter, std::string_view utf8);

    [[nodiscard]] const std::vector<std::string>& words() const noexcept { return words_; }
    /// The words in the order in which they were typed, with a space between them.
    [[nodiscard]] const std::string& key() const noexcept { return key_; }
    [[nodiscard]] std::uint32_t all() const noexcept { return all_; }
    /// The words, a bit each, with which `folded` begins; of each only the first so many letters count.
    [[nodiscard]] std::uint32_t begun(std::string_view folded) const noexcept;
    [[nodiscard]] std::uint32_t begun(std::string_view folded, std::size_t letters) const noexcept;

  private:
    std::vector<std::string> words_;
    std::string key_;
    std::uint32_t all_ = 0;
};

/// The first so many letters of a word.
[[nodiscard]] std::string_view beginning(std::string_view word, std::size_t letters) noexcept;
[[nodiscard]] constexpr bool continuesCharacter(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The words of a text with a space between them.
[[nodiscard]] std::string keyOf(const WordSplitter& splitter, std::string_view utf8);

}  // namespace quorel::repository::sqlite
