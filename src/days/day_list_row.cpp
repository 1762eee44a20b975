// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list_row.h"

#include <tuple>

#include "core/integer_text.h"
#include "core/words.h"
#include "days/day_rule.h"
#include "store/sql_quoting.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWeekTextLength = 4;

bool IsNone(const QString& text) {
    return text.isEmpty() || text == EveryText();
}

auto Shown(const DayListRow& row) {
    return std::tie(row.name, row.year, row.month, row.day, row.week, row.itself);
}

}  // namespace

bool DayListRow::operator==(const DayListRow& other) const {
    return Shown(*this) == Shown(other);
}

QString EveryText() {
    return u"毎"_s;
}

QString YearOrMonthText(qint32 number) {
    return number == 0 ? EveryText() : QString::number(number);
}

QString ListDayText(qint32 day) {
    return day == 0 ? QString() : QString::number(day);
}

QString ListWeekText(qint32 code) {
    if (code == 0) {
        return QString();
    }
    const QString digits = QString::number(code);
    return u"第"_s + digits.front() + u'週' + WeekdayLetter(digits.back().digitValue(), 1);
}

DayListRow DayListRowOf(const store::ResultRow& row, RowForm form) {
    const Anniversary stored{row.Text(u"Name"), row.Integer(u"Year"), row.Integer(u"Month"),
                             row.Integer(u"Day"), row.Integer(u"Week")};
    QString year = YearOrMonthText(stored.year);
    QString month = YearOrMonthText(stored.month);
    if (form != RowForm::OfDay) {
        year = form == RowForm::OneDay ? QString::number(stored.year) : EveryText();
        month = form == RowForm::EveryMonth ? EveryText() : QString::number(stored.month);
    }
    return {.name = stored.name,
            .year = year,
            .month = month,
            .day = ListDayText(stored.day),
            .week = ListWeekText(stored.week),
            .stored = stored};
}

bool IsNameable(const store::ResultRow& row) {
    return row.IsExact() && store::IsQuotable(row.Text(u"Name"));
}

qint32 NumberOfListText(const QString& text) {
    return IsNone(text) ? 0 : IntegerOf(text);
}

qint32 WeekOfListText(const QString& text) {
    if (IsNone(text)) {
        return 0;
    }
    if (text.size() == kWeekTextLength) {
        return 10 * WeekdayOfLetter(text.back()) + IntegerOf(text.sliced(1, 1));
    }
    return IntegerOf(text);
}

Anniversary AnniversaryOf(const DayListRow& row) {
    return {row.name, NumberOfListText(row.year), NumberOfListText(row.month), NumberOfListText(row.day),
            WeekOfListText(row.week)};
}

Anniversary TargetOf(const DayListRow& row, const Corrections& corrections) {
    return corrections.weekdayAnniversaries ? row.stored : AnniversaryOf(row);
}

}  // namespace tickwell::days
