// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QStringList>
#include <compare>
#include <vector>

#include "days/anniversary.h"
#include "store/day_database.h"

namespace tickwell::days {

/// Anniversaries by the days on which they fall: a day is looked up in the same few microseconds whether
/// there are ten rows or a million.
class AnniversaryIndex {
public:
    /// `rows`: in the order of insertion, at most 2^31.
    explicit AnniversaryIndex(std::vector<Anniversary> rows);

    /// The names of the rows that fall on `day`, each once and in the order of insertion. A row with a week
    /// falls on its own weekday (WeekCode). `day` is valid.
    QStringList NamesOn(QDate day) const;

private:
    /// The days of a row: `day` or `week` is 0.
    struct Rule {
        qint32 year;
        qint32 month;
        qint32 day;
        qint32 week;

        auto operator<=>(const Rule&) const = default;
    };
    struct Entry {
        Rule rule;
        qint32 row;

        auto operator<=>(const Entry&) const = default;
    };

    std::vector<Anniversary> m_rows;
    std::vector<Entry> m_entries;  // sorted
};

/// Reads, in one query, the rows of Kinenbi that can fall on a day of these years. Throws SqlError.
std::vector<Anniversary> ReadAnniversaries(store::DayDatabase& database, int firstYear, int lastYear);

}  // namespace tickwell::days
