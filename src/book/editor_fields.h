// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

#include "core/settings.h"
#include "days/day_list_row.h"

namespace tickwell::book {

/// How often an anniversary recurs; the values are the indexes of the editor's option buttons.
enum class AnniversaryKind { EveryYear = 0, EveryMonth = 1, OneDay = 2 };

/// The contents of the editor's fields, without a window. Texts are as typed.
struct EditorFields {
    QString name;
    AnniversaryKind kind = AnniversaryKind::EveryYear;
    bool byWeek = false;  ///< the day is given as "the second Monday"
    QString year;
    QString month;
    QString day;
    QString ordinal;  ///< "第2": only its second character is used
    QString weekday;  ///< "月曜日"

    bool operator==(const EditorFields&) const = default;
};

/// Which fields are enabled.
struct EditorEnabling {
    bool year = false;
    bool month = false;
    bool weekBox = false;
    bool day = false;
    bool week = false;  ///< ordinal and weekday

    bool operator==(const EditorEnabling&) const = default;
};

/// If a row has both a year and a week, its week box is checked but disabled.
EditorEnabling EnablingOf(AnniversaryKind kind, bool byWeek);

/// The fields of a new anniversary on `date`, the calendar's selected date.
EditorFields FieldsToAdd(QDate date);

/// The fields to change an anniversary. Name, kind and week box come from the row, the date from the
/// calendar: editing a search result moves it to the selected date unless the user enters another one.
EditorFields FieldsToEdit(const days::Anniversary& row, QDate date);

/// The fields to change a row of the list. With editorTakesDate the date is that of the stored row, but parts
/// that are 0, or that their field does not offer (a 13th month, a sixth week), come from the calendar.
/// Throws RunTimeError if the row cannot be parsed (TargetOf).
EditorFields FieldsToEdit(const days::DayListRow& row, QDate date, const Corrections& corrections);

/// Changes the kind and what depends on it: an anniversary of one day is never defined by its week.
void ChooseKind(EditorFields& fields, AnniversaryKind kind);

/// The row that the fields describe. Only the fields that the kind needs are read, and numbers are not
/// validated: a 13th month is stored. An unknown weekday counts as 0. Throws RunTimeError.
days::Anniversary AnniversaryOf(const EditorFields& fields);

}  // namespace tickwell::book
