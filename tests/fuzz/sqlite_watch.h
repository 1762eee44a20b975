// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct sqlite3;

namespace tickwell {

/// Checks what SQLite receives. Create it before the database is opened. After Begin(), each statement may
/// consist only of the program's own keywords, quoted names of the schema and numbered parameters, and may
/// access only rows of the schema's tables; anything else aborts the process.
class SqliteWatch {
public:
    SqliteWatch();
    void Begin();
};

}  // namespace tickwell
