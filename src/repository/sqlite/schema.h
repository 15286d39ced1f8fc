#pragma once

#include <cstdint>

#include "repository/sqlite/database.h"

namespace quorel::repository::sqlite {

/// "QREP", the application id in the header of every repository file.
inline constexpr std::int32_t kApplicationId = 0x51524550;
/// The version of the tables, which the header holds as the user version.
inline constexpr std::int32_t kSchemaVersion = 3;

/// Makes the tables of a new, empty file in one transaction.
void createSchema(Database& database);

/// Brings the tables of an older file up to the present version, in one transaction.
void upgradeSchema(Database& database);

/// The indexes that only speed up reads; a load of many rows drops them and makes them again.
void createReadIndexes(Database& database);
void dropReadIndexes(Database& database);

}  // namespace quorel::repository::sqlite
