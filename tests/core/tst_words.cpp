// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <array>
#include <limits>

#include "core/words.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Numbers and calendar terms in words.
class TstWords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void KanjiNumberReads_data();
    void KanjiNumberReads();
    void KanjiNumberAgreesWithItsDigitsFromMinus20000To20000();
    void BranchHourReads_data();
    void BranchHourReads();
    void BranchHourTurnsEveryThirtyMinutes();
    void YearAnimalReads_data();
    void YearAnimalReads();
    void YearAnimalComesAgainAfterTwelveYears();
    void MonthAndWeekdayNamesAreEmptyOutsideTheirTables();
    void MonthAndWeekdayNamesAreInOrder();
    void KanjiDayReads_data();
    void KanjiDayReads();
    void WeekdayLetterReads_data();
    void WeekdayLetterReads();
    void WeekdayLetterOfSundayFirstNumbers();
    void HeiseiYearIsUnchecked();
};

void TstWords::KanjiNumberReads_data() {
    QTest::addColumn<qint32>("number");
    QTest::addColumn<QString>("text");
    const auto row = [](qint32 number, const QString& text) {
        QTest::addRow("%d", number) << number << text;
    };
    row(0, u"零"_s);
    row(10, u"十"_s);
    row(11, u"十一"_s);
    row(15, u"十五"_s);
    row(20, u"二十"_s);
    row(100, u"百"_s);
    row(101, u"百一"_s);
    row(110, u"百十"_s);
    row(1000, u"千"_s);
    row(1998, u"千九百九十八"_s);
    row(2005, u"二千五"_s);
    row(9999, u"九千九百九十九"_s);
    // Ten thousands and above are dropped on purpose.
    row(10000, u"零"_s);
    row(12345, u"三百四十五"_s);
    // Only the last digit of each place is used: the minus sign and negative thousands are dropped.
    row(-5, u"五"_s);
    row(-1234, u"二百三十四"_s);
    row(-1000, u"零"_s);
    row(std::numeric_limits<qint32>::min(), u"六百四十八"_s);
    row(std::numeric_limits<qint32>::max(), u"六百四十七"_s);
}

void TstWords::KanjiNumberReads() {
    QFETCH(qint32, number);
    QFETCH(QString, text);
    QCOMPARE(KanjiNumber(number), text);
}

void TstWords::KanjiNumberAgreesWithItsDigitsFromMinus20000To20000() {
    const QString digits = u"〇一二三四五六七八九"_s;
    const QStringList places{QString(), u"十"_s, u"百"_s, u"千"_s};
    for (qint32 n = -20000; n <= 20000; ++n) {
        const QString decimal = QString::number(n).remove(u'-').rightJustified(4, u'0');
        QString expected;
        for (int place = 3; place >= 0; --place) {
            const int digit = decimal[decimal.size() - 1 - place].digitValue();
            const bool dropped = place == 3 && (n < 0 || n >= 10000);
            if (digit == 0 || dropped) {
                continue;
            }
            expected += (digit == 1 && place > 0) ? places[place] : QString(digits[digit]) + places[place];
        }
        QCOMPARE(KanjiNumber(n), expected.isEmpty() ? u"零"_s : expected);
    }
}

void TstWords::BranchHourReads_data() {
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<QString>("text");
    const auto row = [](int hour, int minute, const QString& text) {
        QTest::addRow("%d:%02d", hour, minute) << hour << minute << text;
    };
    row(23, 0, u"子の一刻"_s);
    row(23, 29, u"子の一刻"_s);
    row(23, 30, u"子の二刻"_s);
    row(23, 59, u"子の二刻"_s);
    row(0, 0, u"子の三刻"_s);
    row(0, 45, u"子の四刻"_s);
    row(1, 0, u"丑の一刻"_s);
    row(12, 10, u"午の三刻"_s);
    row(21, 5, u"亥の一刻"_s);
    row(22, 59, u"亥の四刻"_s);
}

void TstWords::BranchHourReads() {
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(QString, text);
    QCOMPARE(BranchHour(hour, minute), text);
}

void TstWords::BranchHourTurnsEveryThirtyMinutes() {
    const QString branches = u"子丑寅卯辰巳午未申酉戌亥"_s;
    const QString quarters = u"一二三四"_s;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const int sinceEleven = (minute + 60) % (24 * 60);  // the day of the branches starts at 23:00
        const QString expected =
            QString(branches[sinceEleven / 120]) + u"の"_s + quarters[sinceEleven % 120 / 30] + u"刻"_s;
        QCOMPARE(BranchHour(minute / 60, minute % 60), expected);
    }
}

void TstWords::YearAnimalReads_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<QString>("animal");
    QTest::newRow("1992, divisible by 12, is a monkey") << 1992 << u"申年"_s;
    QTest::newRow("2004 as well") << 2004 << u"申年"_s;
    QTest::newRow("1998") << 1998 << u"寅年"_s;
    QTest::newRow("2000") << 2000 << u"辰年"_s;
    QTest::newRow("2026") << 2026 << u"午年"_s;
}

void TstWords::YearAnimalReads() {
    QFETCH(int, year);
    QFETCH(QString, animal);
    QCOMPARE(YearAnimal(year), animal);
}

void TstWords::YearAnimalComesAgainAfterTwelveYears() {
    for (int year = 1900; year < 2100; ++year) {
        QCOMPARE(YearAnimal(year), YearAnimal(year + 12));
        QVERIFY(YearAnimal(year) != YearAnimal(year + 1));
    }
}

void TstWords::MonthAndWeekdayNamesAreEmptyOutsideTheirTables() {
    for (const int outside : {0, 13, -1}) {
        QCOMPARE(EnglishMonth(outside), QString());
        QCOMPARE(TraditionalMonth(outside), QString());
    }
    for (const int outside : {0, 8, -1}) {
        QCOMPARE(EnglishWeekday(outside), QString());
    }
}

void TstWords::MonthAndWeekdayNamesAreInOrder() {
    QStringList english;
    QStringList traditional;
    for (int month = 1; month <= 12; ++month) {
        english.append(EnglishMonth(month));
        traditional.append(TraditionalMonth(month));
    }
    QCOMPARE(english.join(u' '),
             u"January February March April May June July August September October November "
             "December"_s);
    QCOMPARE(traditional.join(u' '), u"睦月 如月 弥生 卯月 皐月 水無月 文月 葉月 長月 神無月 霜月 師走"_s);
    QStringList weekdays;
    for (int weekday = 1; weekday <= 7; ++weekday) {
        weekdays.append(EnglishWeekday(weekday));
    }
    QCOMPARE(weekdays.join(u' '), u"Sunday Monday Tuesday Wednesday Thursday Friday Saturday"_s);
}

void TstWords::KanjiDayReads_data() {
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("text");
    const QStringList days =
        u"一 二 三 四 五 六 七 八 九 十 十一 十二 十三 十四 十五 十六 十七 十八 十九 二十 二十一 二十二 "
        "二十三 二十四 二十五 二十六 二十七 二十八 二十九 三十 三十一"_s.split(u' ');
    for (int day = 1; day <= 31; ++day) {
        QTest::addRow("%d", day) << day << days[day - 1] + u"日"_s;
    }
}

void TstWords::KanjiDayReads() {
    QFETCH(int, day);
    QFETCH(QString, text);
    QCOMPARE(KanjiDay(day), text);
}

void TstWords::WeekdayLetterReads_data() {
    QTest::addColumn<qint32>("difference");
    QTest::addColumn<QString>("letter");
    QTest::newRow("-10 is outside") << -10 << QString();
    QTest::newRow("-9") << -9 << u"金"_s;
    QTest::newRow("-7") << -7 << u"日"_s;
    QTest::newRow("-1") << -1 << u"土"_s;
    QTest::newRow("0") << 0 << u"日"_s;
    QTest::newRow("6") << 6 << u"土"_s;
    QTest::newRow("7") << 7 << u"日"_s;
    QTest::newRow("15") << 15 << u"月"_s;
    QTest::newRow("16 is outside") << 16 << QString();
}

void TstWords::WeekdayLetterReads() {
    QFETCH(qint32, difference);
    QFETCH(QString, letter);
    QCOMPARE(WeekdayLetter(difference, 0), letter);
    QCOMPARE(WeekdayLetter(difference + 4, 4), letter);
}

void TstWords::WeekdayLetterOfSundayFirstNumbers() {
    QString week;
    for (int weekday = 1; weekday <= 7; ++weekday) {
        week += WeekdayLetter(weekday, 1);
    }
    QCOMPARE(week, u"日月火水木金土"_s);
    QCOMPARE(WeekdayLetter(std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()),
             QString());
}

void TstWords::HeiseiYearIsUnchecked() {
    QCOMPARE(HeiseiYear(1989), 1);
    QCOMPARE(HeiseiYear(1988), 0);
    QCOMPARE(HeiseiYear(1987), -1);
    QCOMPARE(HeiseiYear(2026), 38);
}

QTEST_GUILESS_MAIN(TstWords)
#include "tst_words.moc"
