// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sqlite_limits.h"

#include <sqlite3.h>

#include <array>
#include <utility>

#include "store/sql_error.h"

namespace tickwell::store {

namespace {

// Sorting a million rows takes 76 MB and nothing else comes close; a crafted file can ask for gigabytes.
constexpr sqlite3_int64 kMostMemory = sqlite3_int64{96} * 1024 * 1024;
constexpr int kLongestValue = 1'000'000;  // bytes

constexpr std::array kSwitches{
    std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1},      std::pair{SQLITE_DBCONFIG_DQS_DML, 0},
    std::pair{SQLITE_DBCONFIG_DQS_DDL, 0},        std::pair{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    std::pair{SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, std::pair{SQLITE_DBCONFIG_ENABLE_VIEW, 0},
};

void Check(int result) {
    if (result != SQLITE_OK) {
        throw SqlError(SqliteReason(result), QString(), result);
    }
}

}  // namespace

void LimitSqlite(sqlite3* handle) {
    if (sqlite3_hard_heap_limit64(kMostMemory) < 0) {
        Check(SQLITE_ERROR);
    }
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestValue);
    for (const auto& [name, value] : kSwitches) {
        int now = -1;
        Check(sqlite3_db_config(handle, name, value, &now));
        Check(now == value ? SQLITE_OK : SQLITE_ERROR);
    }
    Check(sqlite3_exec(handle, "PRAGMA ignore_check_constraints = ON", nullptr, nullptr, nullptr));
}

}  // namespace tickwell::store
