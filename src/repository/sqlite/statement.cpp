#include "repository/sqlite/statement.h"

#include "repository/sqlite/utf8.h"

namespace quorel::repository::sqlite {

void Statement::prepare() {
    const int code = sqlite3_prepare_v3(database_.handle(), sql_.c_str(), static_cast<int>(sql_.size() + 1),
                                        SQLITE_PREPARE_PERSISTENT, &handle_, nullptr);
    if (code != SQLITE_OK)
        throw database_.error(code);
    // What changes the file, and what begins or ends a transaction, gives no columns.
    reads_ = sqlite3_column_count(handle_) != 0;
}

bool Run::finishUnlessTaken() {
    const int code = sqlite3_step(statement_.handle_);
    if (code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY)
        return false;
    if (code != SQLITE_DONE)
        throw statement_.database_.error(code);
    return true;
}

std::string_view Run::utf8(int column) const {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(statement_.handle_, column));
    if (data == nullptr)
        return {};
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(statement_.handle_, column))};
}

std::u16string Run::text(int column) const {
    return loaded(utf8(column));
}

std::vector<std::uint8_t> Run::bytes(int column) const {
    const auto* data = static_cast<const std::uint8_t*>(sqlite3_column_blob(statement_.handle_, column));
    if (data == nullptr)
        return {};
    return {data, data + sqlite3_column_bytes(statement_.handle_, column)};
}

void Run::bind(int index, const std::vector<std::uint8_t>& bytes) {
    // A null pointer would bind NULL, but no bytes are a value too.
    static constexpr std::uint8_t kNothing = 0;
    const void* data = bytes.empty() ? &kNothing : bytes.data();
    sqlite3_bind_blob64(statement_.handle_, index, data, bytes.size(), SQLITE_STATIC);
}

}  // namespace quorel::repository::sqlite
