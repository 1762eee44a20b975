// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>

namespace tickwell::days {

/// The notice of a day that comes `ahead` days before it.
struct DayNotice {
    QDate day;
    int ahead = 0;

    bool operator==(const DayNotice&) const = default;
};

/// The notices that were told, so that none is told twice: not after another start, nor if the clock was set
/// back. The oldest ones are forgotten.
class ToldNotices {
public:
    static constexpr qsizetype kMost = 500;  ///< four a day for four months

    ToldNotices() = default;

    /// Reads "2026-11-23/0,2026-11-24/1", the day of each notice and how many days before it came, in the
    /// order in which they were told. What is not of this form is ignored.
    explicit ToldNotices(QStringView text);

    QString Text() const;

    bool Contains(const DayNotice& notice) const { return m_told.contains(notice); }

    void Add(const DayNotice& notice);

private:
    QList<DayNotice> m_told;
};

}  // namespace tickwell::days
