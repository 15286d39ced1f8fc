#pragma once

#include "repository/sqlite/database.h"

namespace quorel::repository::sqlite {

/// Compares everything that a file's schema holds with what this program makes, text by text, before anything
/// of it is used: a trigger, a view, a virtual or foreign table, an index, a check, a default or a generated
/// column that is not this program's own is refused with an `Error` 321 that names it. What is missing is
/// left to those who look for it. Nothing is written.
void checkSchema(Database& database);

}  // namespace quorel::repository::sqlite
