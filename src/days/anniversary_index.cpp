// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/anniversary_index.h"

#include <algorithm>

#include "days/day_rule.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

AnniversaryIndex::AnniversaryIndex(std::vector<Anniversary> rows) : m_rows(std::move(rows)) {
    qint32 number = 0;
    for (const Anniversary& row : m_rows) {
        if (row.day != 0) {
            m_entries.push_back({{row.year, row.month, row.day, 0}, number});
        }
        if (row.week != 0) {
            m_entries.push_back({{row.year, row.month, 0, row.week}, number});
        }
        ++number;
    }
    std::sort(m_entries.begin(), m_entries.end());
}

QStringList AnniversaryIndex::NamesOn(QDate day) const {
    std::vector<qint32> found;
    const int week = WeekCode(day);
    for (const int year : {0, day.year()}) {
        for (const int month : {0, day.month()}) {
            for (const Rule& rule : {Rule{year, month, day.day(), 0}, Rule{year, month, 0, week}}) {
                auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), Entry{rule, 0});
                for (; entry != m_entries.end() && entry->rule == rule; ++entry) {
                    found.push_back(entry->row);
                }
            }
        }
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());  // a row can match by day and week
    QStringList names;
    for (const qint32 row : found) {
        names.append(m_rows[static_cast<std::size_t>(row)].name);
    }
    return names;
}

std::vector<Anniversary> ReadAnniversaries(store::DayDatabase& database, int firstYear, int lastYear) {
    // Rows that fall on no day are not read, so invalid values in them cause no error.
    const QString query =
        u"SELECT * FROM Kinenbi WHERE (Year=0 OR Year BETWEEN %1 AND %2) AND Month BETWEEN 0 AND 12 AND "
        "(Day BETWEEN 1 AND 31 OR Week BETWEEN 11 AND 57)"_s.arg(firstYear)
            .arg(lastYear);
    std::vector<Anniversary> rows;
    database.ForEachRow(query, [&rows](const store::ResultRow& row) {
        rows.push_back({row.Text(u"Name"), row.Integer(u"Year"), row.Integer(u"Month"), row.Integer(u"Day"),
                        row.Integer(u"Week")});
    });
    return rows;
}

}  // namespace tickwell::days
