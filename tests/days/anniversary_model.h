// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <vector>

#include "days/anniversary.h"
#include "store/result_set.h"

namespace tickwell::days {

/// Rows of the anniversary book, from which a test computes the expected results itself.
using Anniversaries = std::vector<Anniversary>;

inline Anniversaries AnniversariesIn(const store::ResultSet& rows) {
    Anniversaries all;
    for (const store::ResultRow& row : rows) {
        all.push_back({row.Text(u"Name"), row.Integer(u"Year"), row.Integer(u"Month"), row.Integer(u"Day"),
                       row.Integer(u"Week")});
    }
    return all;
}

template <typename Predicate>
Anniversaries Those(const Anniversaries& all, Predicate holds) {
    Anniversaries those;
    std::copy_if(all.begin(), all.end(), std::back_inserter(those), holds);
    return those;
}

inline QString InsertText(const Anniversary& row) {
    return QStringLiteral("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"") + row.name +
           QStringLiteral("\",") + QString::number(row.year) + u',' + QString::number(row.month) + u',' +
           QString::number(row.day) + u',' + QString::number(row.week) + u')';
}

inline QString EqualText(const Anniversary& row) {
    return QStringLiteral("WHERE Name=\"") + row.name + QStringLiteral("\" AND Year=") +
           QString::number(row.year) + QStringLiteral(" AND Month=") + QString::number(row.month) +
           QStringLiteral(" AND Day=") + QString::number(row.day) + QStringLiteral(" AND Week=") +
           QString::number(row.week);
}

inline QString DeleteText(const Anniversary& row) {
    return QStringLiteral("DELETE * FROM Kinenbi  ") + EqualText(row);
}

inline QString UpdateText(const Anniversary& from, const Anniversary& to) {
    return QStringLiteral("UPDATE Kinenbi SET Name=\"") + to.name + QStringLiteral("\", Year=\"") +
           QString::number(to.year) + QStringLiteral("\", Month=\"") + QString::number(to.month) +
           QStringLiteral("\", Day=\"") + QString::number(to.day) + QStringLiteral("\", Week=\"") +
           QString::number(to.week) + QStringLiteral("\" ") + EqualText(from);
}

}  // namespace tickwell::days
