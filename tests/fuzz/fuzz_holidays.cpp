// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary lists of days off: each is refused with the number of a line, or complete for its years, and
// means the same in every encoding and with every line end.

#include <variant>

#include "core/days_off.h"
#include "core/holiday_law.h"
#include "fuzz/fuzz_check.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

QByteArray Written(const HolidayList& list, const QByteArray& end) {
    QByteArray bytes;
    for (auto day = list.days.constBegin(); day != list.days.constEnd(); ++day) {
        bytes += day.key().toString(u"yyyy/M/d"_s).toLatin1() + ',' + day.value().toUtf8() + end;
    }
    return bytes;
}

std::optional<HolidayList> Accepted(const QByteArray& bytes) {
    auto result = ReadHolidayList(bytes);
    if (const auto* problem = std::get_if<HolidayListProblem>(&result)) {
        const qsizetype lines = bytes.count('\n') + 1;
        Require(problem->line >= 1 && problem->line <= lines, "a refusal names a line of the list");
        Require(!problem->reason.isEmpty(), "a refusal has a reason");
        return std::nullopt;
    }
    return std::get<HolidayList>(std::move(result));
}

void RequireComplete(const HolidayList& list) {
    QMap<int, int> counts;
    for (auto day = list.days.constBegin(); day != list.days.constEnd(); ++day) {
        Require(day.key() >= QDate(1948, 7, 20) && day.key() <= QDate(2150, 12, 31), "days are of the law");
        Require(!day.value().isEmpty() && day.value().size() <= 40, "names can be shown");
        ++counts[day.key().year()];
    }
    for (int year = list.FirstYear(); year <= list.LastYear(); ++year) {
        Require(counts.value(year) >= (year < 1949 ? 1 : 8), "no year has lost its days");
    }
    Require(list.days.contains(QDate(list.LastYear(), 11, 23)), "the list was not cut off");
}

/// Requires that a list without reported differences has exactly the law's days off in each year.
void RequireDifferencesTold(const HolidayList& list) {
    if (!DifferencesFromLaw(list).isEmpty()) {
        return;
    }
    for (int year = list.FirstYear(); year <= std::min(list.LastYear(), kLastLawYear); ++year) {
        QList<QDate> byLaw;
        for (const Holiday& holiday : HolidaysByLaw(year)) {
            byLaw.append(holiday.date);
        }
        Require(DaysOffOfYear(year, &list).keys() == byLaw, "each difference is told");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto list = Accepted(InputBytes(data, size));
    if (!list) {
        return 0;
    }
    RequireComplete(*list);
    RequireDifferencesTold(*list);
    for (const char* end : {"\n", "\r\n"}) {
        const auto again = Accepted(Written(*list, end));
        Require(again && again->days == list->days, "the list means the same in UTF-8");
    }
    return 0;
}
