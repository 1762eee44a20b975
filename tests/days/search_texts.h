// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QRandomGenerator>
#include <QString>
#include <array>
#include <functional>

#include "days/anniversary_model.h"

namespace tickwell::days {

/// The criteria of a search in the anniversary book. Without `hasDates` it has no date condition.
struct Search {
    bool hasOneDay = true;
    bool hasEveryYear = true;
    bool hasEveryMonth = true;
    bool hasName = false;
    bool hasDates = false;
    QString name;
    QDate start;
    QDate end;
};

/// A search for one kind of row: the text of the query, and a separately implemented check whether a row
/// matches.
struct SearchQuery {
    QString text;
    std::function<bool(const Anniversary&)> isMeant;
};

/// One-day, every-year and every-month rows.
std::array<SearchQuery, 3> SearchQueries(const Search& search);

}  // namespace tickwell::days
