// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLocale>
#include <QSet>
#include <QTest>

#include "days/day_rule.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

/// Date literals, week codes, and the texts of the queries, byte for byte.
class TstDayRule : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WritesDatesMonthFirst_data();
    void WritesDatesMonthFirst();
    void WritesDatesAlikeInEveryLocale();
    void CodesTheWeek_data();
    void CodesTheWeek();
    void CountsWeekdaysOverAllYears();
    void AYearHasAllThirtyFiveCodes();
    void WritesTheAnniversaryQuery();
    void WritesTheHolidayQueries();
    void WritesTheMarkedDatesQueries();
};

void TstDayRule::WritesDatesMonthFirst_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("literal");
    QTest::newRow("one digit each") << QDate(1998, 3, 4) << u"#3/4/1998#"_s;
    QTest::newRow("October 3") << QDate(1998, 10, 3) << u"#10/3/1998#"_s;
    QTest::newRow("two digits each") << QDate(2026, 12, 31) << u"#12/31/2026#"_s;
    QTest::newRow("leap day") << QDate(2000, 2, 29) << u"#2/29/2000#"_s;
    QTest::newRow("first year") << QDate(100, 1, 1) << u"#1/1/0100#"_s;
    QTest::newRow("last year") << QDate(9999, 12, 31) << u"#12/31/9999#"_s;
}

void TstDayRule::WritesDatesMonthFirst() {
    QFETCH(QDate, date);
    QTEST(DateLiteral(date), "literal");
}

void TstDayRule::WritesDatesAlikeInEveryLocale() {
    const QLocale before;
    for (const char* name : {"en_GB", "de_DE", "ja_JP", "ar_EG", "fa_IR"}) {
        QLocale::setDefault(QLocale(QLatin1StringView(name)));
        QCOMPARE(DateLiteral(QDate(1998, 10, 3)), u"#10/3/1998#"_s);
        QVERIFY(HolidayQuery(11, 23).endsWith(u" WHERE Month= 11 AND Day=23"_s));
    }
    QLocale::setDefault(before);
}

void TstDayRule::CodesTheWeek_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("code");
    QTest::newRow("first Saturday") << QDate(1998, 10, 3) << 17;
    QTest::newRow("second Monday") << QDate(1998, 10, 12) << 22;
    QTest::newRow("third Friday") << QDate(1998, 10, 16) << 36;
    QTest::newRow("fifth Saturday") << QDate(1998, 10, 31) << 57;
    QTest::newRow("Sunday the 1st") << QDate(1998, 11, 1) << 11;
    QTest::newRow("the 7th is week 1") << QDate(1998, 11, 7) << 17;
    QTest::newRow("the 8th is week 2") << QDate(1998, 11, 8) << 21;
    QTest::newRow("the 28th is week 4") << QDate(1998, 11, 28) << 47;
    QTest::newRow("the 29th is week 5") << QDate(1998, 11, 29) << 51;
    QTest::newRow("the 30th is week 5") << QDate(1998, 11, 30) << 52;
    QTest::newRow("the 31st is week 5") << QDate(1998, 12, 31) << 55;
    // Counted by the rows of the calendar it would be the third.
    QTest::newRow("second Tuesday in a month that begins on Wednesday") << QDate(2026, 7, 14) << 23;
}

void TstDayRule::CodesTheWeek() {
    QFETCH(QDate, date);
    QTEST(WeekCode(date), "code");
}

void TstDayRule::CountsWeekdaysOverAllYears() {
    int seen[8] = {};
    for (QDate date(1925, 12, 1); date.year() < 2102; date = date.addDays(1)) {
        if (date.day() == 1) {
            std::fill(std::begin(seen), std::end(seen), 0);
        }
        const int code = WeekCode(date);
        const int weekday = code % 10;
        // 1998-11-01 was a Sunday.
        QCOMPARE(weekday, static_cast<int>(((QDate(1998, 11, 1).daysTo(date) % 7) + 7) % 7) + 1);
        QCOMPARE(code / 10, ++seen[weekday]);
    }
}

void TstDayRule::AYearHasAllThirtyFiveCodes() {
    QSet<int> codes;
    for (QDate date(2026, 1, 1); date.year() == 2026; date = date.addDays(1)) {
        codes.insert(WeekCode(date));
    }
    QSet<int> expected;
    for (int week = 1; week <= 5; ++week) {
        for (int weekday = 1; weekday <= 7; ++weekday) {
            expected.insert(10 * week + weekday);
        }
    }
    QCOMPARE(codes, expected);
}

void TstDayRule::WritesTheAnniversaryQuery() {
    QCOMPARE(AnniversaryQuery(1998, 10, 3, 17),
             u"SELECT Kinenbi.Name,Kinenbi.Year,Kinenbi.Month,Kinenbi.Day,Kinenbi.Week FROM Kinenbi WHERE "
             "(Day=3 OR Week=17) AND (Month=0 OR Month=10) AND (Year=0 OR Year=1998)"_s);
    QCOMPARE(AnniversaryQuery(2026, 1, 31, 75),
             u"SELECT Kinenbi.Name,Kinenbi.Year,Kinenbi.Month,Kinenbi.Day,Kinenbi.Week FROM Kinenbi WHERE "
             "(Day=31 OR Week=75) AND (Month=0 OR Month=1) AND (Year=0 OR Year=2026)"_s);
}

void TstDayRule::WritesTheHolidayQueries() {
    QCOMPARE(HolidayQuery(10, 3),
             u"SELECT Syukuzitu.Name,Syukuzitu.Month,Syukuzitu.Day FROM Syukuzitu WHERE "
             "Month= 10 AND Day=3"_s);
    QCOMPARE(HolidayQuery(1, 1),
             u"SELECT Syukuzitu.Name,Syukuzitu.Month,Syukuzitu.Day FROM Syukuzitu WHERE "
             "Month= 1 AND Day=1"_s);
    QCOMPARE(MonthHolidayQuery(5),
             u"SELECT Syukuzitu.Name,Syukuzitu.Month,Syukuzitu.Day FROM Syukuzitu WHERE Month= 5"_s);
    QCOMPARE(MonthHolidayQuery(12),
             u"SELECT Syukuzitu.Name,Syukuzitu.Month,Syukuzitu.Day FROM Syukuzitu WHERE Month= 12"_s);
}

void TstDayRule::WritesTheMarkedDatesQueries() {
    QCOMPARE(MarkedDatesQuery(DayMark::Holiday, QDate(1998, 10, 1), QDate(1998, 10, 31)),
             u"SELECT Holiday.Date FROM Holiday WHERE Date BETWEEN #10/1/1998# AND #10/31/1998#"_s);
    QCOMPARE(MarkedDatesQuery(DayMark::Halfday, QDate(2000, 2, 1), QDate(2000, 2, 29)),
             u"SELECT Halfday.Date FROM Halfday WHERE Date BETWEEN #2/1/2000# AND #2/29/2000#"_s);
    QCOMPARE(MarkedDatesQuery(DayMark::Usuallyday, QDate(2026, 9, 1), QDate(2026, 9, 30)),
             u"SELECT Usuallyday.Date FROM Usuallyday WHERE Date BETWEEN #9/1/2026# AND #9/30/2026#"_s);
}

QTEST_GUILESS_MAIN(TstDayRule)
#include "tst_day_rule.moc"
