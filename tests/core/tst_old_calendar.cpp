// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/old_calendar.h"
#include "core/solar_terms.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

const QDate kFirst(1900, 1, 1);
const QDate kLast(2100, 12, 31);

/// The old date of a day inside the table.
OldDate Old(QDate day) {
    return OldDateOf(day).value_or(OldDate{0, 0, false, 0});
}

bool IsMidTerm(const QString& name) {
    return u"雨水 春分 穀雨 小満 夏至 大暑 処暑 秋分 霜降 小雪 冬至 大寒"_s.split(u' ').contains(name);
}

}  // namespace

/// Old dates, compared with published ones.
class TstOldCalendar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OldDateIs_data();
    void OldDateIs();
    void NewYearsDays_data();
    void NewYearsDays();
    void HarvestMoons_data();
    void HarvestMoons();
    void LeapMonthsFrom1900To2050();
    void MonthsFollowEachOther();
    void LeapMonthsHaveNoMidTerm();
    void EquinoxesAndSolsticesHaveTheirMonths();
    void OutsideTheTableThereIsNoOldDate();
};

void TstOldCalendar::OldDateIs_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("old");
    const auto row = [](QDate day, const QString& old) {
        QTest::addRow("%s", qPrintable(day.toString(Qt::ISODate))) << day << old;
    };
    row(QDate(1900, 1, 1), u"1899-12-01"_s);
    row(QDate(2006, 8, 24), u"2006-07+-01"_s);
    row(QDate(2006, 9, 21), u"2006-07+-29"_s);
    row(QDate(2006, 9, 22), u"2006-08-01"_s);
    row(QDate(2012, 4, 21), u"2012-03+-01"_s);  // in China it was the first day of the fourth month
    row(QDate(2017, 6, 24), u"2017-05+-01"_s);  // in China it was the first day of the sixth month
    row(QDate(2025, 7, 25), u"2025-06+-01"_s);
    row(QDate(2026, 2, 1), u"2025-12-14"_s);
    row(QDate(2026, 2, 16), u"2025-12-29"_s);
    row(QDate(2026, 2, 17), u"2026-01-01"_s);
    // In 2033 the two rules for the leap month contradict each other; this is what Japan's makers of
    // calendars recommend.
    row(QDate(2033, 7, 26), u"2033-07-01"_s);
    row(QDate(2033, 8, 25), u"2033-08-01"_s);
    row(QDate(2033, 9, 23), u"2033-09-01"_s);
    row(QDate(2033, 10, 23), u"2033-10-01"_s);
    row(QDate(2033, 11, 22), u"2033-11-01"_s);
    row(QDate(2033, 12, 22), u"2033-11+-01"_s);
    row(QDate(2034, 1, 20), u"2033-12-01"_s);
    row(QDate(2034, 2, 19), u"2034-01-01"_s);
    row(QDate(2034, 3, 20), u"2034-02-01"_s);
    row(QDate(2034, 4, 19), u"2034-03-01"_s);
    // New moons within two minutes after midnight.
    row(QDate(2074, 8, 23), u"2074-07-01"_s);
    row(QDate(2097, 1, 14), u"2096-12-01"_s);
    row(QDate(2100, 12, 31), u"2100-12-01"_s);
}

void TstOldCalendar::OldDateIs() {
    QFETCH(QDate, day);
    QFETCH(QString, old);
    QCOMPARE(OldDateIso(Old(day)), old);
}

void TstOldCalendar::NewYearsDays_data() {
    QTest::addColumn<QDate>("day");
    // A day later than in China, because the new moon fell between midnight in Japan and midnight in China.
    const QList<QDate> afterChina{{1954, 2, 4}, {1958, 2, 19}, {1966, 1, 22}, {1988, 2, 18},
                                  {1997, 2, 8}, {2027, 2, 7},  {2028, 1, 27}};
    const QList<QDate> others{{1900, 1, 31}, {1989, 2, 6},  {2000, 2, 5},  {2007, 2, 18}, {2008, 2, 7},
                              {2009, 1, 26}, {2010, 2, 14}, {2011, 2, 3},  {2012, 1, 23}, {2013, 2, 10},
                              {2014, 1, 31}, {2015, 2, 19}, {2016, 2, 8},  {2017, 1, 28}, {2018, 2, 16},
                              {2019, 2, 5},  {2020, 1, 25}, {2021, 2, 12}, {2022, 2, 1},  {2023, 1, 22},
                              {2024, 2, 10}, {2025, 1, 29}, {2026, 2, 17}, {2030, 2, 3},  {2033, 1, 31}};
    for (const QDate day : afterChina + others) {
        QTest::addRow("%d", day.year()) << day;
    }
}

void TstOldCalendar::NewYearsDays() {
    QFETCH(QDate, day);
    QCOMPARE(Old(day), (OldDate{day.year(), 1, false, 1}));
}

void TstOldCalendar::HarvestMoons_data() {
    QTest::addColumn<QDate>("day");
    const QList<QDate> moons{{1919, 10, 8}, {1938, 10, 8}, {1942, 9, 25}, {1981, 9, 12}, {2007, 9, 25},
                             {2008, 9, 14}, {2009, 10, 3}, {2010, 9, 22}, {2011, 9, 12}, {2012, 9, 30},
                             {2013, 9, 19}, {2014, 9, 8},  {2015, 9, 27}, {2016, 9, 15}, {2017, 10, 4},
                             {2018, 9, 24}, {2019, 9, 13}, {2020, 10, 1}, {2021, 9, 21}, {2022, 9, 10},
                             {2023, 9, 29}, {2024, 9, 17}, {2025, 10, 6}, {2026, 9, 25}, {2027, 9, 15},
                             {2028, 10, 3}, {2029, 9, 22}, {2030, 9, 12}, {2031, 10, 1}, {2032, 9, 19},
                             {2033, 9, 8},  {2034, 9, 27}, {2035, 9, 16}, {2036, 10, 4}, {2037, 9, 24},
                             {2038, 9, 13}, {2039, 10, 2}, {2040, 9, 21}, {2041, 9, 10}, {2042, 9, 28},
                             {2043, 9, 17}, {2044, 10, 5}, {2045, 9, 25}, {2046, 9, 15}, {2047, 10, 4},
                             {2048, 9, 22}, {2049, 9, 11}, {2050, 9, 30}, {2052, 9, 7}};
    for (const QDate day : moons) {
        QTest::addRow("%d", day.year()) << day;
    }
}

void TstOldCalendar::HarvestMoons() {
    QFETCH(QDate, day);
    QCOMPARE(Old(day), (OldDate{day.year(), 8, false, 15}));
}

void TstOldCalendar::LeapMonthsFrom1900To2050() {
    QStringList found;
    for (QDate day = kFirst; day.year() <= 2050; day = day.addDays(1)) {
        const OldDate old = Old(day);
        if (old.isLeap && old.day == 1) {
            found.append(u"%1閏%2"_s.arg(old.year).arg(old.month));
        }
    }
    QCOMPARE(found.join(u' '),
             u"1900閏8 1903閏5 1906閏4 1909閏2 1911閏6 1914閏5 1917閏2 1919閏7 1922閏5 1925閏4 1928閏2 "
             "1930閏6 1933閏5 1936閏3 1938閏7 1941閏6 1944閏4 1947閏2 1949閏7 1952閏5 1955閏3 1957閏8 "
             "1960閏6 1963閏4 1966閏3 1968閏7 1971閏5 1974閏4 1976閏8 1979閏6 1982閏4 1984閏10 1987閏6 "
             "1990閏5 1993閏3 1995閏8 1998閏5 2001閏4 2004閏2 2006閏7 2009閏5 2012閏3 2014閏9 2017閏5 "
             "2020閏4 2023閏2 2025閏6 2028閏5 2031閏3 2033閏11 2036閏6 2039閏5 2042閏2 2044閏7 2047閏5 "
             "2050閏3"_s);
}

void TstOldCalendar::MonthsFollowEachOther() {
    OldDate last = Old(kFirst);
    for (QDate day = kFirst.addDays(1); day <= kLast; day = day.addDays(1)) {
        const OldDate old = Old(day);
        if (old.day != 1) {
            QCOMPARE(old, (OldDate{last.year, last.month, last.isLeap, last.day + 1}));
            QVERIFY(old.day <= 30);
        } else if (old.isLeap) {
            QCOMPARE(old, (OldDate{last.year, last.month, !last.isLeap, 1}));
        } else if (last.month == 12) {
            QCOMPARE(old, (OldDate{last.year + 1, 1, false, 1}));
            QCOMPARE(old.year, day.year());
        } else {
            QCOMPARE(old, (OldDate{last.year, last.month + 1, false, 1}));
        }
        QVERIFY(old.day != 1 || last.day >= 29);
        last = old;
    }
}

void TstOldCalendar::LeapMonthsHaveNoMidTerm() {
    int leapDays = 0;
    for (QDate day = kFirst; day <= kLast; day = day.addDays(1)) {
        if (Old(day).isLeap) {
            ++leapDays;
            QVERIFY2(!IsMidTerm(SeasonName(day)), qPrintable(day.toString(Qt::ISODate)));
        }
    }
    // Seven leap months in nineteen years.
    QVERIFY2(leapDays / 29 >= 73 && leapDays / 29 <= 75, qPrintable(QString::number(leapDays)));
}

void TstOldCalendar::EquinoxesAndSolsticesHaveTheirMonths() {
    const QStringList names{u"春分"_s, u"夏至"_s, u"秋分"_s, u"冬至"_s};
    for (QDate day = kFirst; day <= kLast; day = day.addDays(1)) {
        const auto index = names.indexOf(SeasonName(day));
        if (index < 0 || day == QDate(2033, 9, 23)) {
            continue;
        }
        const OldDate old = Old(day);
        QCOMPARE(old.month, 2 + 3 * static_cast<int>(index));
        QVERIFY(!old.isLeap);
    }
    // The leap month of the winter moves this equinox to the ninth month.
    QCOMPARE(SeasonName(QDate(2033, 9, 23)), u"秋分"_s);
    QCOMPARE(Old(QDate(2033, 9, 23)).month, 9);
}

void TstOldCalendar::OutsideTheTableThereIsNoOldDate() {
    QVERIFY(OldDateOf(kFirst));
    QVERIFY(OldDateOf(kLast));
    for (const QDate day :
         {QDate(), kFirst.addDays(-1), kLast.addDays(1), QDate(1600, 1, 1), QDate(9999, 1, 1)}) {
        QVERIFY2(!OldDateOf(day), qPrintable(day.toString(Qt::ISODate)));
    }
}

QTEST_GUILESS_MAIN(TstOldCalendar)
#include "tst_old_calendar.moc"
