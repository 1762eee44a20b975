// SPDX-License-Identifier: GPL-3.0-or-later
// day_writer FILE FIRST: writes anniversaries number FIRST, FIRST + 1 .. into a day database, and says each
// number when its row is stored. After every fourth it rewrites the marked days as a whole, to the January of
// the year 1000 + number, and says that year with a minus before it.

#include <unistd.h>

#include <QByteArray>
#include <cstdio>
#include <cstdlib>

#include "core/errors.h"
#include "days/day_database.h"
#include "days/day_rule.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr int kNumbersPerMonth = 4;
constexpr int kDays = 31;

void Say(int number) {
    const QByteArray line = QByteArray::number(number) + '\n';
    if (write(STDOUT_FILENO, line.constData(), static_cast<std::size_t>(line.size())) != line.size()) {
        std::exit(1);
    }
}

void RewriteMonth(DayDatabase& database, int year) {
    DayTransaction transaction(database);
    database.Execute(u"DELETE Holiday.Date FROM Holiday WHERE Date <= #12/31/9999#"_s);
    for (int day = 1; day <= kDays; ++day) {
        database.Execute(u"INSERT INTO Holiday  VALUES ("_s + DateLiteral(QDate(year, 1, day)) + u')');
    }
    transaction.Commit();
}

[[noreturn]] void Write(DayDatabase& database, int first) {
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

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: day_writer FILE FIRST\n", stderr);
        return 2;
    }
    try {
        const auto database = OpenDayDatabase(QString::fromLocal8Bit(argv[1]));
        Write(*database, QByteArray(argv[2]).toInt());
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "day_writer: %s\n", error.what());
        return 1;
    }
}
