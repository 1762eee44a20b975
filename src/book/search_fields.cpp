// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/search_fields.h"

#include "core/errors.h"
#include "core/integer_text.h"
#include "core/integers.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstSearched = 100;
constexpr int kLastSearched = 9999;

QDate DateOf(const DateFields& fields) {
    return RolledDate(IntegerOf(fields.year), IntegerOf(fields.month), IntegerOf(fields.day));
}

}  // namespace

SearchEnabling EnablingOf(bool byName, bool byDate, RangeKind range) {
    return {byName, byDate, byDate && range != RangeKind::Before, byDate && range != RangeKind::After};
}

QDate RolledDate(qint32 year, qint32 month, qint32 day) {
    const auto isInside = [](int number) { return number >= kFirstSearched && number <= kLastSearched; };
    QDate date;
    if (isInside(year)) {
        date = QDate(year, 1, 1).addMonths(CheckedSub(month, 1)).addDays(qint64{day} - 1);
    }
    if (!date.isValid() || !isInside(date.year())) {
        throw RunTimeError(u"日付が扱える範囲にありません。"_s);
    }
    return date;
}

SearchRange RangeOf(RangeKind kind, QDate start, QDate end) {
    return {kind == RangeKind::Before ? QDate(kFirstSearched, 1, 1) : start,
            kind == RangeKind::After ? QDate(kLastSearched, 12, 31) : end};
}

std::optional<SearchConditions> ConditionsOf(const SearchFields& fields) {
    const SearchRange range = RangeOf(fields.range, DateOf(fields.start), DateOf(fields.end));
    if (range.end < range.start) {
        return std::nullopt;
    }
    SearchConditions conditions{fields.oneDay, fields.everyYear, fields.everyMonth, {}, {}};
    if (fields.byName) {
        conditions.name = fields.name;
    }
    if (fields.byDate) {
        conditions.dates = range;
    }
    return conditions;
}

}  // namespace tickwell::book
