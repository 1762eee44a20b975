// SPDX-License-Identifier: GPL-3.0-or-later
// day_writer FILE FIRST [calendar]: stores anniversaries number FIRST, FIRST + 1 .. in a day database, and
// prints each number when its row is stored. After every fourth it replaces all marked days in one
// transaction by the January of the year 1000 + number, and prints that year as a negative number. With
// "calendar" it marks October 1998 in the calendar instead, as tests/days/marked_october.h defines it for
// each number, and prints the number when the marks are stored.

#include <unistd.h>

#include <QByteArray>
#include <cstdio>
#include <cstdlib>

#include "core/errors.h"
#include "days/day_rule.h"
#include "days/marked_october.h"
#include "days/month_calendar.h"
#include "days/table_holidays.h"
#include "platform/time/virtual_time.h"
#include "store/day_database.h"
#include "store/day_transaction.h"
#include "support/fake_message_boxes.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

constexpr int kNumbersPerMonth = 4;
constexpr int kDays = 31;

void Say(int number) {
    const QByteArray line = QByteArray::number(number) + '\n';
    if (write(STDOUT_FILENO, line.constData(), static_cast<std::size_t>(line.size())) != line.size()) {
        std::exit(1);
    }
}

void RewriteMonth(store::DayDatabase& database, int year) {
    store::DayTransaction transaction(database);
    database.Execute(u"DELETE Holiday.Date FROM Holiday WHERE Date <= #12/31/9999#"_s);
    for (int day = 1; day <= kDays; ++day) {
        database.Execute(u"INSERT INTO Holiday  VALUES ("_s + DateLiteral(QDate(year, 1, day)) + u')');
    }
    transaction.Commit();
}

[[noreturn]] void Write(store::DayDatabase& database, int first) {
    for (int number = first;; ++number) {
        database.Execute(
            u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"記念日%1\",%1,1,2,0)"_s.arg(number));
        Say(number);
        if (number % kNumbersPerMonth == 0) {
            const int year = 1000 + number % 8000;
            RewriteMonth(database, year);
            Say(-year);
        }
    }
}

void MarkOctober(MonthCalendar& calendar, int number) {
    const MonthShape october = ShapeOf(kOctober);
    for (const CalendarMode mode : {CalendarMode::Holidays, CalendarMode::Halfdays}) {
        calendar.ChooseMode(mode);
        for (int day = 1; day <= october.Days(); ++day) {
            const int cell = october.CellOf(day);
            const DayColor wanted = OctoberColor(number, day);
            const DayColor marks = ColorOf(mode);
            if ((wanted == marks) != (calendar.Grid().At(cell).color == marks)) {
                calendar.ClickCell(cell);
            }
        }
    }
    calendar.ChooseMode(CalendarMode::Normal);
}

[[noreturn]] void WriteMonths(store::DayDatabase database, int first) {
    DayList list;
    const platform::VirtualTime time(QDateTime(kOctober, QTime(0, 0)));
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    const TableHolidays holidays(database);
    const FurtherSettings further;
    MonthCalendar calendar({.dayDatabase = database,
                            .holidays = holidays,
                            .further = further,
                            .list = list,
                            .clock = time,
                            .boxes = boxes,
                            .handlers = handlers});
    calendar.Load();
    for (int number = first;; ++number) {
        MarkOctober(calendar, number);
        Say(number);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const bool isCalendar = argc == 4 && QByteArrayView(argv[3]) == "calendar";
    if (argc != 3 && !isCalendar) {
        std::fputs("usage: day_writer FILE FIRST [calendar]\n", stderr);
        return 2;
    }
    try {
        store::DayDatabase database(QString::fromLocal8Bit(argv[1]));
        const int first = QByteArray(argv[2]).toInt();
        if (isCalendar) {
            WriteMonths(std::move(database), first);
        }
        Write(database, first);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "day_writer: %s\n", error.what());
        return 1;
    }
}
