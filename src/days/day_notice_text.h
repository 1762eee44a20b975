// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include "days/told_notices.h"

namespace tickwell::days {

/// The texts of a day's notice; neither contains a control character other than the body's line feeds.
struct NoticeText {
    QString summary;
    QString body;  ///< all names, one per line, if the summary does not contain all of them; otherwise empty

    bool operator==(const NoticeText&) const = default;
};

/// 「明日 12月23日(水)は「結婚記念日」です」; more than three names end in 「ほか2件」. `names`: at least
/// one. `counts`: 「結婚記念日(2004)」 is told as 「結婚記念日」です（22周年）, and beside other names as
/// 「結婚記念日（22周年）」. A name of more than 200 characters ends in an ellipsis.
NoticeText DayNoticeText(const DayNotice& notice, const QStringList& names, bool counts);

/// A name, and the number of years since the year in brackets at its end.
struct CountedName {
    QString name;   ///< without the year
    int years = 0;  ///< above 0; 0 if there is no such year, or if it is not before that of the day
};

/// The brackets and the four digits may be ASCII or full-width.
CountedName CountYears(const QString& name, int yearOfDay);

}  // namespace tickwell::days
