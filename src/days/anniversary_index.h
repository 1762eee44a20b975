// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QStringList>
#include <array>
#include <tuple>
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
    /// falls on its own weekday: the days are those of WeekCode, not of AnnouncedWeekCode. `day` is valid.
    QStringList NamesOn(QDate day) const;

private:
    /// Year, month, day and week of a row; day or week is 0.
    using Rule = std::array<qint32, 4>;

    struct Entry {
        Rule rule;
        qint32 row;  // its number

        bool operator<(const Entry& other) const {
            return std::tie(rule, row) < std::tie(other.rule, other.row);
        }
    };

    std::vector<Anniversary> m_rows;
    std::vector<Entry> m_entries;  // sorted
};

/// Reads, in one query, the rows of Kinenbi that can fall on a day of these years. Throws SqlError.
std::vector<Anniversary> ReadAnniversaries(store::DayDatabase& database, int firstYear, int lastYear);

}  // namespace tickwell::days
