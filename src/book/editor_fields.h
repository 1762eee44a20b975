// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

#include "days/anniversary.h"

namespace tickwell {

/// How often an anniversary comes; the numbers are those of the editor's option buttons.
enum class AnniversaryKind { EveryYear = 0, EveryMonth = 1, OneDay = 2 };

/// What stands in the fields of the editor, without a window. Texts are as typed.
struct EditorFields {
    QString name;
    AnniversaryKind kind = AnniversaryKind::EveryYear;
    bool byWeek = false;  ///< the day is said as "the second Monday"
    QString year;
    QString month;
    QString day;
    QString ordinal;  ///< "第2": its second character counts
    QString weekday;  ///< "月曜日"

    bool operator==(const EditorFields&) const = default;
};

/// Which fields can be filled in.
struct EditorEnabling {
    bool year = false;
    bool month = false;
    bool weekBox = false;
    bool day = false;
    bool week = false;  ///< ordinal and weekday

    bool operator==(const EditorEnabling&) const = default;
};

/// A row with a year of its own and a week has its box ticked and out of reach.
EditorEnabling EnablingOf(AnniversaryKind kind, bool byWeek);

/// A new anniversary on `date`, the calendar's selected one.
EditorFields FieldsToAdd(QDate date);

/// An anniversary to change. Its name, kind and week box come from the row, the date itself from the
/// calendar: so editing a find of a search moves it to the selected date unless the user says otherwise.
EditorFields FieldsToEdit(const Anniversary& row, QDate date);

/// What choosing a kind does to the fields: one day alone is never said by its week.
void ChooseKind(EditorFields& fields, AnniversaryKind kind);

/// The row that the fields ask for. Only those that its kind needs are read, and no number is held against a
/// calendar: a 13th month is stored. A weekday that is none counts 0. Throws RunTimeError.
Anniversary AnniversaryOf(const EditorFields& fields);

}  // namespace tickwell
