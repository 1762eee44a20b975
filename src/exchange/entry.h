// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <vector>

#include "days/anniversary.h"

namespace tickwell::exchange {

enum class EntryState { New, Stored, Refused };

/// A row that a file offers, or something in it that cannot become one.
struct Entry {
    days::Anniversary row;  ///< only its name if it is refused
    EntryState state = EntryState::New;
    QString when;        ///< of a refused one: the day on which it begins, if it has one
    QString reason;      ///< of a refused one, such as 「隔年の予定」
    bool isCut = false;  ///< the name was too long
};

/// What a file offers.
struct Offer {
    std::vector<Entry> entries;  ///< in the order of the file
    int others = 0;              ///< to-dos, contacts without a birthday: what is no day at all
    int cancelled = 0;           ///< cancelled events, which are left out
    QList<int> refusedEvents;    ///< numbers of the events that were refused, for tickwell-ical
};

inline constexpr int kLongestName = 255;  ///< characters; what is longer is cut

/// An entry for a row. The name gets a blank for each line break and control character, and is cut if it is
/// too long.
Entry EntryOf(const QString& name, days::Anniversary row);
Entry RefusedEntry(const QString& name, const QString& when, const QString& reason);

/// 「毎年 6月10日」.
QString WhenOf(const Entry& entry);

/// 「新しい」、「すでにあります」、「取り込めません：隔年の予定」.
QString StateText(const Entry& entry);

/// How many entries there are of each kind, in one line.
QString SumsText(const Offer& offer);

}  // namespace tickwell::exchange
