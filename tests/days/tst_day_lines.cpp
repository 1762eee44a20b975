// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QRandomGenerator>
#include <QTest>
#include <chrono>

#include "core/old_calendar.h"
#include "core/solar_terms.h"
#include "days/day_lines.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kSeed = 0xDA15;
constexpr int kRandomRows = 400;

std::vector<Anniversary> SomeRows() {
    return {{u"結婚記念日"_s, 0, 5, 7, 0},     {u"第五月曜"_s, 0, 0, 0, 52},   {u"給料日"_s, 0, 0, 7, 0},
            {u"二千年問題"_s, 2000, 2, 29, 0}, {u"a\tb\nc"_s, 1998, 10, 3, 0}, {u"始"_s, 1900, 1, 1, 0},
            {u"大晦日"_s, 0, 12, 31, 0}};
}

/// The days off of an independent computation, without years before 1948.
QHash<QString, QString> DaysOffOfTheTable() {
    QHash<QString, QString> names;
    QFile table(QStringLiteral(TICKWELL_HOLIDAY_TABLE));
    if (table.open(QIODevice::ReadOnly)) {
        for (const QString& line : QString::fromUtf8(table.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            names.insert(line.section(u'\t', 0, 0), line.section(u'\t', 1, 1));
        }
    }
    return names;
}

std::vector<Anniversary> RandomRows() {
    QRandomGenerator random(kSeed);
    const auto oftenZero = [&random](int first, int last) {
        return random.bounded(3) == 0 ? 0 : random.bounded(first, last + 1);
    };
    std::vector<Anniversary> rows;
    for (int i = 0; i < kRandomRows; ++i) {
        rows.push_back({u"名%1"_s.arg(i), random.bounded(2) == 0 ? 0 : random.bounded(1890, 2110),
                        oftenZero(1, 12), oftenZero(1, 31),
                        random.bounded(4) != 0 ? 0 : 10 * random.bounded(1, 6) + random.bounded(1, 8)});
    }
    return rows;
}

/// A day by the standard library's calendar.
struct ModelDay {
    int year;
    int month;
    int day;
    int week;
    int weekday;  // from 0, Sunday

    explicit ModelDay(std::chrono::sys_days date) {
        const std::chrono::year_month_day ymd(date);
        const std::chrono::year_month_weekday ymw(date);
        year = static_cast<int>(ymd.year());
        month = static_cast<int>(static_cast<unsigned>(ymd.month()));
        day = static_cast<int>(static_cast<unsigned>(ymd.day()));
        week = static_cast<int>(ymw.index());
        weekday = static_cast<int>(ymw.weekday().c_encoding());
    }

    bool Has(const Anniversary& row) const {
        return (row.day == day || row.week == 10 * week + weekday + 1) &&
               (row.month == 0 || row.month == month) && (row.year == 0 || row.year == year);
    }
};

QString ModelLine(const ModelDay& day, const std::vector<Anniversary>& rows,
                  const QHash<QString, QString>& daysOff) {
    const QString date = QString::asprintf("%04d-%02d-%02d", day.year, day.month, day.day);
    const QDate asked(day.year, day.month, day.day);
    const OldDate old = OldDateOf(asked).value_or(OldDate{});
    QString line = date + u'\t' + u"日月火水木金土"_s[day.weekday] + u'\t' + daysOff.value(date) + u'\t' +
                   OldDateIso(old) + u'\t' + RokuyoName(old) + u'\t' + SeasonName(asked) + u'\t';
    bool isFirst = true;
    for (const Anniversary& row : rows) {
        if (day.Has(row)) {
            line += (isFirst ? QString() : u"／"_s) + row.name;
            isFirst = false;
        }
    }
    return line;
}

}  // namespace

/// The lines that the program prints about days.
class TstDayLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ALineTells_data();
    void ALineTells();
    void TheListWinsOverTheLawInItsYears();
    void TheRangeOfDaysIsThatOfTheOldCalendar();
    void EachDayIsLikeThePlainModel();
};

void TstDayLines::ALineTells_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("line");
    const auto row = [](const char* name, QDate day, const QString& line) {
        QTest::newRow(name) << day << line;
    };
    row("the first day, before the law", QDate(1900, 1, 1), u"1900-01-01\t月\t\t1899-12-01\t赤口\t\t始"_s);
    row("an ordinary day", QDate(2026, 5, 8), u"2026-05-08\t金\t\t2026-03-22\t赤口\t\t"_s);
    row("two anniversaries", QDate(2026, 5, 7),
        u"2026-05-07\t木\t\t2026-03-21\t大安\t\t結婚記念日／給料日"_s);
    row("a substitute", QDate(2026, 5, 6), u"2026-05-06\t水\t振替休日\t2026-03-20\t仏滅\t\t"_s);
    row("a solar term on a day off", QDate(2026, 5, 5),
        u"2026-05-05\t火\tこどもの日\t2026-03-19\t先負\t立夏\t"_s);
    row("a working day between days off", QDate(2026, 9, 22),
        u"2026-09-22\t火\t国民の休日\t2026-08-12\t先勝\t\t"_s);
    row("in a leap month", QDate(2025, 7, 25), u"2025-07-25\t金\t\t2025-06+-01\t赤口\t\t"_s);
    row("a solar term", QDate(2026, 2, 4), u"2026-02-04\t水\t\t2025-12-17\t仏滅\t立春\t"_s);
    row("a seasonal day", QDate(2026, 2, 3), u"2026-02-03\t火\t\t2025-12-16\t先負\t節分\t"_s);
    row("a fifth Monday", QDate(2026, 3, 30), u"2026-03-30\t月\t\t2026-02-12\t先勝\t\t第五月曜"_s);
    row("a leap day", QDate(2000, 2, 29), u"2000-02-29\t火\t\t2000-01-25\t先勝\t\t二千年問題"_s);
    row("a name of several lines", QDate(1998, 10, 3), u"1998-10-03\t土\t\t1998-08-13\t友引\t\ta b c"_s);
    row("new year's day", QDate(2026, 1, 1), u"2026-01-01\t木\t元日\t2025-11-13\t大安\t\t"_s);
    row("the last day", QDate(2100, 12, 31), u"2100-12-31\t金\t\t2100-12-01\t赤口\t\t大晦日"_s);
}

void TstDayLines::ALineTells() {
    QFETCH(QDate, day);
    QTEST(DayLines(AnniversaryIndex(SomeRows()), nullptr).LineOf(day), "line");
}

void TstDayLines::TheListWinsOverTheLawInItsYears() {
    const HolidayList list{{{QDate(2026, 5, 7), u"臨時の\u2028休日"_s}}};
    DayLines lines(AnniversaryIndex({}), &list);
    QCOMPARE(lines.LineOf(QDate(2026, 5, 6)), u"2026-05-06\t水\t\t2026-03-20\t仏滅\t\t"_s);
    QCOMPARE(lines.LineOf(QDate(2026, 5, 7)), u"2026-05-07\t木\t臨時の 休日\t2026-03-21\t大安\t\t"_s);
    QCOMPARE(lines.LineOf(QDate(2025, 5, 6)).section(u'\t', 2, 2), u"振替休日"_s);
    QCOMPARE(lines.LineOf(QDate(2026, 5, 6)).section(u'\t', 2, 2), QString());
}

void TstDayLines::TheRangeOfDaysIsThatOfTheOldCalendar() {
    const DayRange days = LinedDays();
    QVERIFY(OldDateOf(days.first) && OldDateOf(days.last));
    QVERIFY(!OldDateOf(days.first.addDays(-1)) && !OldDateOf(days.last.addDays(1)));
    QVERIFY(days.Contains(days.first) && days.Contains(days.last));
    QVERIFY(!days.Contains(days.first.addDays(-1)) && !days.Contains(days.last.addDays(1)));
}

void TstDayLines::EachDayIsLikeThePlainModel() {
    using namespace std::chrono;
    qInfo("seed %u", kSeed);
    const std::vector<Anniversary> rows = RandomRows();
    const QHash<QString, QString> daysOff = DaysOffOfTheTable();
    DayLines lines(AnniversaryIndex(rows), nullptr);
    int count = 0;
    int several = 0;
    for (sys_days date = sys_days(1900y / January / 1); date <= sys_days(2100y / December / 31);
         date += std::chrono::days{1}) {
        const ModelDay day(date);
        const QString line = lines.LineOf(QDate(day.year, day.month, day.day));
        QCOMPARE(line, ModelLine(day, rows, daysOff));
        ++count;
        several += line.contains(u'／') ? 1 : 0;
    }
    QCOMPARE(count, 73'414);
    QVERIFY(several > 1000);
}

QTEST_GUILESS_MAIN(TstDayLines)
#include "tst_day_lines.moc"
