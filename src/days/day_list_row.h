// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "days/anniversary.h"
#include "store/found_row.h"
#include "store/result_set.h"

namespace tickwell {

/// An anniversary as the calendar's list shows it. These texts are all that the editor and the deletion know
/// of it: they read it back from here, not from the day database.
struct DayListRow {
    QString name;
    QString year;   ///< "毎" for every year
    QString month;  ///< "毎" for every month
    QString day;    ///< empty when the week says it
    QString week;   ///< "第2週月" for 22; empty when the day says it

    /// The stored row, if no statement can name it (IsNameable): such a row is edited and deleted by its key.
    std::optional<FoundRow> itself = std::nullopt;

    bool operator==(const DayListRow&) const = default;
};

/// What stands for "every" in the columns of the year and the month.
QString EveryText();

/// Year, or month: "毎" for 0.
QString YearOrMonthText(qint32 number);

/// Empty for 0.
QString ListDayText(qint32 day);

/// "第", the first character of the code, "週" and the weekday that its last digit names; empty for 0. A code
/// that is none, which anyone can store, is shown after the same rule: 20 as "第2週土", 5 as "第5週木".
QString ListWeekText(qint32 code);

/// How a row's year and month are shown. A search shows them by what was asked for: "毎" if every year or
/// month was, else the stored number, also if that is 0.
enum class RowForm { OfDay, OneDay, EveryYear, EveryMonth };

/// A row of Kinenbi, with all five columns. Throws RunTimeError.
DayListRow DayListRowOf(const ResultRow& row, RowForm form = RowForm::OfDay);

/// Whether a statement can compare with the row's name. Other programs can store names that it cannot: with
/// a double quote or a NUL in them, or bytes that are no UTF-8.
bool IsNameable(const ResultRow& row);

/// A text of the year, month or day column read back: 0 for "毎" and for the empty text. Throws RunTimeError.
qint32 NumberOfListText(const QString& text);

/// A text of the week column read back, with its two digits exchanged: "第1週火", which shows 13, gives 31.
/// Only codes of two equal digits come back as they were stored. Kept so on purpose: what a changed or
/// deleted entry does to other entries of its name hangs on it. Throws RunTimeError.
qint32 WeekOfListText(const QString& text);

/// A row of the list read back. Throws RunTimeError.
Anniversary AnniversaryOf(const DayListRow& row);

}  // namespace tickwell
