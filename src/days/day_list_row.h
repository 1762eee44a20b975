// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "core/settings.h"
#include "days/anniversary.h"
#include "store/found_row.h"
#include "store/result_set.h"

namespace tickwell::days {

/// An anniversary as displayed in the calendar's list. Editor and deletion parse these texts instead of
/// querying the day database; with a correction they take the stored values (TargetOf).
struct DayListRow {
    QString name;
    QString year;   ///< "毎" for every year
    QString month;  ///< "毎" for every month
    QString day;    ///< empty if it is defined by the week
    QString week;   ///< "第2週月" for 22; empty if it is defined by the day

    /// The stored row, if no statement can select it (IsNameable): such a row is edited and deleted by its
    /// key.
    std::optional<store::FoundRow> itself = std::nullopt;

    Anniversary stored{};  ///< the stored values that the texts show

    /// Whether both rows look the same and are the same one if they have a key. The stored values are not
    /// compared.
    bool operator==(const DayListRow& other) const;
};

/// The text for "every" in the year and month columns.
QString EveryText();

/// Year or month: "毎" for 0.
QString YearOrMonthText(qint32 number);

/// Empty for 0.
QString ListDayText(qint32 day);

/// "第", the first character of the code, "週" and the weekday of its last digit; empty for 0. An invalid
/// code, which other programs can store, is shown by the same rule: 20 as "第2週土", 5 as "第5週木".
QString ListWeekText(qint32 code);

/// How a row's year and month are shown. A search shows them according to its criteria: "毎" if it searched
/// for every year or month, otherwise the stored number, even if that is 0.
enum class RowForm { OfDay, OneDay, EveryYear, EveryMonth };

/// A row of Kinenbi, with all five columns. Throws RunTimeError.
DayListRow DayListRowOf(const store::ResultRow& row, RowForm form = RowForm::OfDay);

/// Whether a statement can compare with the row's name. Other programs can store names for which that is
/// impossible: names with a double quote or a NUL, or bytes that are not UTF-8.
bool IsNameable(const store::ResultRow& row);

/// Parses a text of the year, month or day column: 0 for "毎" and for the empty text. Throws RunTimeError.
qint32 NumberOfListText(const QString& text);

/// Parses a text of the week column, with its two digits swapped: "第1週火", which shows 13, returns 31. Only
/// codes of two equal digits are returned as stored. Intentional: the effect of changing or deleting an entry
/// on other entries of the same name depends on it. Throws RunTimeError.
qint32 WeekOfListText(const QString& text);

/// Parses a row of the list. Throws RunTimeError.
Anniversary AnniversaryOf(const DayListRow& row);

/// The anniversary that an edit or a deletion of `row` changes, together with all equal ones: what its texts
/// say, or with weekdayAnniversaries the stored one. Throws RunTimeError if the texts cannot be parsed.
Anniversary TargetOf(const DayListRow& row, const Corrections& corrections);

}  // namespace tickwell::days
