// SPDX-License-Identifier: GPL-3.0-or-later
#include <QHash>
#include <QTest>

#include "core/solar_terms.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Solar terms and the days that depend on them, compared with the almanac that the National Astronomical
/// Observatory of Japan publishes each year (暦要項).
class TstSolarTerms : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryDayOfAYearIsNamedAsInTheAlmanac_data();
    void EveryDayOfAYearIsNamedAsInTheAlmanac();
    void ADayIsNamed_data();
    void ADayIsNamed();
    void EveryYearHasEachName();
    void TermsComeInOrderHalfAMonthApart();
    void OutsideTheTableNoDayIsNamed();
};

void TstSolarTerms::EveryDayOfAYearIsNamedAsInTheAlmanac_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<QString>("named");
    // 二百二十日 is not in the almanac: ten days after 二百十日.
    QTest::newRow("2008, a leap year")
        << 2008
        << u"1/6 小寒 1/18 土用の入り 1/21 大寒 2/3 節分 2/4 立春 2/19 雨水 3/5 啓蟄 3/17 彼岸の入り "
           "3/20 春分 4/4 清明 4/17 土用の入り 4/20 穀雨 5/1 八十八夜 5/5 立夏 5/21 小満 6/5 芒種 "
           "6/10 入梅 6/21 夏至 7/1 半夏生 7/7 小暑 7/19 土用の入り 7/22 大暑 8/7 立秋 8/23 処暑 "
           "8/31 二百十日 9/7 白露 9/10 二百二十日 9/20 彼岸の入り 9/23 秋分 10/8 寒露 "
           "10/20 土用の入り 10/23 霜降 11/7 立冬 11/22 小雪 12/7 大雪 12/21 冬至"_s;
    // 小雪 was one minute before midnight.
    QTest::newRow("2019")
        << 2019
        << u"1/6 小寒 1/17 土用の入り 1/20 大寒 2/3 節分 2/4 立春 2/19 雨水 3/6 啓蟄 3/18 彼岸の入り "
           "3/21 春分 4/5 清明 4/17 土用の入り 4/20 穀雨 5/2 八十八夜 5/6 立夏 5/21 小満 6/6 芒種 "
           "6/11 入梅 6/22 夏至 7/2 半夏生 7/7 小暑 7/20 土用の入り 7/23 大暑 8/8 立秋 8/23 処暑 "
           "9/1 二百十日 9/8 白露 9/11 二百二十日 9/20 彼岸の入り 9/23 秋分 10/8 寒露 "
           "10/21 土用の入り 10/24 霜降 11/8 立冬 11/22 小雪 12/7 大雪 12/22 冬至"_s;
}

void TstSolarTerms::EveryDayOfAYearIsNamedAsInTheAlmanac() {
    QFETCH(int, year);
    QFETCH(QString, named);
    QStringList found;
    for (QDate day(year, 1, 1); day.year() == year; day = day.addDays(1)) {
        const QString name = SeasonName(day);
        if (!name.isEmpty()) {
            found.append(day.toString(u"M/d"_s) + u' ' + name);
        }
    }
    QCOMPARE(found.join(u' '), named);
}

void TstSolarTerms::ADayIsNamed_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("name");
    const auto row = [](QDate day, const QString& name) {
        QTest::addRow("%s", qPrintable(day.toString(Qt::ISODate))) << day << name;
    };
    row(QDate(1923, 3, 22), u"春分"_s);  // the last one on the 22nd
    row(QDate(1979, 9, 24), u"秋分"_s);  // the last one on the 24th
    row(QDate(1984, 2, 4), u"節分"_s);   // the last one on the 4th
    row(QDate(1984, 2, 5), u"立春"_s);
    row(QDate(2012, 9, 22), u"秋分"_s);  // the first one on the 22nd since 1896
    row(QDate(2021, 2, 2), u"節分"_s);   // the first one on the 2nd since 1897
    row(QDate(2021, 2, 3), u"立春"_s);   // at 23:59
    row(QDate(2023, 6, 21), u"夏至"_s);  // at 23:58
    row(QDate(2025, 2, 2), u"節分"_s);
    row(QDate(2025, 12, 22), u"冬至"_s);  // at 0:03
    // In the last minute before midnight: another delta T, or longitudes from the equinox of another date,
    // would move them to the next day.
    row(QDate(2030, 2, 18), u"雨水"_s);
    row(QDate(2053, 1, 19), u"大寒"_s);
    // The first and the last of the table.
    row(QDate(1900, 1, 6), u"小寒"_s);
    row(QDate(2100, 12, 22), u"冬至"_s);
}

void TstSolarTerms::ADayIsNamed() {
    QFETCH(QDate, day);
    QFETCH(QString, name);
    QCOMPARE(SeasonName(day), name);
}

void TstSolarTerms::EveryYearHasEachName() {
    const QStringList once =
        u"節分 八十八夜 入梅 半夏生 二百十日 二百二十日 小寒 大寒 立春 雨水 啓蟄 春分 清明 穀雨 立夏 小満 "
        "芒種 夏至 小暑 大暑 立秋 処暑 白露 秋分 寒露 霜降 立冬 小雪 大雪 冬至"_s.split(u' ');
    for (int year = 1900; year <= 2100; ++year) {
        QHash<QString, int> times;
        for (QDate day(year, 1, 1); day.year() == year; day = day.addDays(1)) {
            ++times[SeasonName(day)];
        }
        for (const QString& name : once) {
            QVERIFY2(times.take(name) == 1, qPrintable(name + QString::number(year)));
        }
        QCOMPARE(times.take(u"彼岸の入り"_s), 2);
        QCOMPARE(times.take(u"土用の入り"_s), 4);
        QCOMPARE(times.keys(), QStringList(QString()));
    }
}

void TstSolarTerms::TermsComeInOrderHalfAMonthApart() {
    const QStringList terms =
        u"小寒 大寒 立春 雨水 啓蟄 春分 清明 穀雨 立夏 小満 芒種 夏至 小暑 大暑 立秋 処暑 白露 秋分 寒露 "
        "霜降 立冬 小雪 大雪 冬至"_s.split(u' ');
    QDate last(1899, 12, 22);
    qsizetype next = 0;
    for (QDate day(1900, 1, 1); day.year() <= 2100; day = day.addDays(1)) {
        const QString name = SeasonName(day);
        if (!terms.contains(name)) {
            continue;
        }
        QCOMPARE(name, terms[next]);
        QVERIFY2(last.daysTo(day) >= 14 && last.daysTo(day) <= 16, qPrintable(day.toString(Qt::ISODate)));
        last = day;
        next = (next + 1) % terms.size();
    }
    QCOMPARE(last, QDate(2100, 12, 22));
}

void TstSolarTerms::OutsideTheTableNoDayIsNamed() {
    for (const QDate day : {QDate(), QDate(1899, 12, 22), QDate(2101, 1, 5), QDate(2101, 2, 2)}) {
        for (int near = -1; near <= 1; ++near) {
            QCOMPARE(SeasonName(day.addDays(near)), QString());
        }
    }
}

QTEST_GUILESS_MAIN(TstSolarTerms)
#include "tst_solar_terms.moc"
