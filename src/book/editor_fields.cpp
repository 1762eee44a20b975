// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/editor_fields.h"

#include <array>

#include "core/integer_text.h"
#include "days/day_rule.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestYear = 9999;
constexpr int kLargestMonth = 12;
constexpr int kLargestDay = 31;
constexpr int kLastWeek = 5;

/// 1 for "日曜日" to 7 for "土曜日"; 0 for every other text.
int WeekdayOfText(const QString& text) {
    const int weekday = text.isEmpty() ? 0 : days::WeekdayOfLetter(text.front());
    return weekday != 0 && text == days::WeekdayText(weekday) ? weekday : 0;
}

AnniversaryKind KindOf(const days::Anniversary& row) {
    if (row.month == 0) {
        return AnniversaryKind::EveryMonth;
    }
    return row.year != 0 ? AnniversaryKind::OneDay : AnniversaryKind::EveryYear;
}

QString OrdinalText(int week) {
    return u"第"_s + QString::number(week);
}

void FillDate(EditorFields& fields, QDate date) {
    const int code = days::WeekCode(date);
    fields.year = QString::number(date.year());
    fields.month = QString::number(date.month());
    fields.day = QString::number(date.day());
    fields.ordinal = OrdinalText(code / 10);
    fields.weekday = days::WeekdayText(code % 10);
}

bool IsWithin(int last, int number) {
    return number >= 1 && number <= last;
}

/// Replaces the parts of the date that the row has and the fields offer. Both digits of a negative week code
/// are negative, so the fields offer neither.
void TakeDate(EditorFields& fields, const days::Anniversary& row) {
    if (IsWithin(kLargestYear, row.year)) {
        fields.year = QString::number(row.year);
    }
    if (IsWithin(kLargestMonth, row.month)) {
        fields.month = QString::number(row.month);
    }
    if (IsWithin(kLargestDay, row.day)) {
        fields.day = QString::number(row.day);
    }
    if (IsWithin(kLastWeek, row.week / 10)) {
        fields.ordinal = OrdinalText(row.week / 10);
    }
    if (IsWithin(days::kDaysInWeek, row.week % 10)) {
        fields.weekday = days::WeekdayText(row.week % 10);
    }
}

}  // namespace

EditorEnabling EnablingOf(AnniversaryKind kind, bool byWeek) {
    struct Row {
        bool year;
        bool month;
        bool weekBox;
    };
    static constexpr std::array<Row, 3> kKinds{{
        {false, true, true},   // every year
        {false, false, true},  // every month
        {true, true, false},   // one day
    }};
    const Row& row = kKinds.at(static_cast<std::size_t>(kind));
    return {row.year, row.month, row.weekBox, !byWeek, byWeek};
}

EditorFields FieldsToAdd(QDate date) {
    EditorFields fields;
    fields.name = u"新しい記念日"_s;
    FillDate(fields, date);
    return fields;
}

EditorFields FieldsToEdit(const days::Anniversary& row, QDate date) {
    EditorFields fields;
    fields.name = row.name;
    ChooseKind(fields, KindOf(row));
    fields.byWeek = row.week != 0;  // after ChooseKind, which may reset it
    FillDate(fields, date);
    return fields;
}

EditorFields FieldsToEdit(const days::DayListRow& row, QDate date, const Corrections& corrections) {
    EditorFields fields = FieldsToEdit(TargetOf(row, corrections), date);
    if (corrections.editorTakesDate) {
        TakeDate(fields, row.stored);
    }
    return fields;
}

void ChooseKind(EditorFields& fields, AnniversaryKind kind) {
    fields.kind = kind;
    if (kind == AnniversaryKind::OneDay) {
        fields.byWeek = false;
    }
}

days::Anniversary AnniversaryOf(const EditorFields& fields) {
    days::Anniversary row{fields.name, 0, 0, 0, 0};
    if (fields.kind == AnniversaryKind::OneDay) {
        row.year = IntegerOf(fields.year);
    }
    if (fields.kind != AnniversaryKind::EveryMonth) {
        row.month = IntegerOf(fields.month);
    }
    if (fields.byWeek) {
        row.week = 10 * IntegerOf(fields.ordinal.mid(1, 1)) + WeekdayOfText(fields.weekday);
    } else {
        row.day = IntegerOf(fields.day);
    }
    return row;
}

}  // namespace tickwell::book
