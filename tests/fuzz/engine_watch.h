// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct sqlite3;

namespace tickwell {

/// Stands between the program and the engine. Made before a database is opened; from Begin on, each statement
/// that the engine is given must be made of the program's own words, quoted names of the schema and numbered
/// values alone, and must touch nothing but rows of its tables. Ends the process otherwise.
class EngineWatch {
public:
    EngineWatch();
    void Begin();
};

}  // namespace tickwell
