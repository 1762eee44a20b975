// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/clock_text.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Clock and date texts in all styles.
class TstClockText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ClockReads_data();
    void ClockReads();
    void EverySecondOfADayReadsAsItsNumbers();
    void DateReads_data();
    void DateReads();
    void EveryDayFrom1900To2100ReadsAsItsNumbers();
    void EveryDayFrom1900To2100ReadsInEnglish();
};

void TstClockText::ClockReads_data() {
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QList<qint32>>("style");  // language, display mode, hour style
    QTest::addColumn<QString>("text");
    const QTime evening(21, 5, 7);
    QTest::newRow("Japanese, 12 hours, standard")
        << evening << QList<qint32>{0, 0, 0} << u"午後9時05分07秒"_s;
    QTest::newRow("Japanese, 12 hours, simple") << evening << QList<qint32>{0, 1, 0} << u"午後9:05:07"_s;
    QTest::newRow("Japanese, 24 hours, standard") << evening << QList<qint32>{0, 0, 1} << u"21時05分07秒"_s;
    QTest::newRow("Japanese, 24 hours, simple") << evening << QList<qint32>{0, 1, 1} << u"21:05:07"_s;
    QTest::newRow("Japanese, simple is any other mode")
        << evening << QList<qint32>{0, -3, 1} << u"21:05:07"_s;
    QTest::newRow("English, 12 hours") << evening << QList<qint32>{1, 0, 0} << u"PM9:05:07"_s;
    QTest::newRow("English, 12 hours, simple is the same")
        << evening << QList<qint32>{1, 1, 0} << u"PM9:05:07"_s;
    QTest::newRow("English, 24 hours") << evening << QList<qint32>{1, 0, 1} << u"21:05:07"_s;
    QTest::newRow("old Japanese") << evening << QList<qint32>{2, 0, 0} << u"亥の一刻"_s;
    QTest::newRow("old Japanese ignores all styles") << evening << QList<qint32>{2, 5, 5} << u"亥の一刻"_s;
    QTest::newRow("midnight is hour 0 of the morning")
        << QTime(0, 0) << QList<qint32>{0, 0, 0} << u"午前0時00分00秒"_s;
    QTest::newRow("noon is hour 0 of the afternoon")
        << QTime(12, 0) << QList<qint32>{0, 0, 0} << u"午後0時00分00秒"_s;
    QTest::newRow("English midnight is 0") << QTime(0, 0) << QList<qint32>{1, 0, 0} << u"AM0:00:00"_s;
    QTest::newRow("English noon is 0") << QTime(12, 0) << QList<qint32>{1, 0, 0} << u"PM0:00:00"_s;
    QTest::newRow("the hour is not padded") << QTime(9, 0, 1) << QList<qint32>{0, 1, 1} << u"9:00:01"_s;
    QTest::newRow("another hour style is the 24-hour clock")
        << evening << QList<qint32>{0, 1, 2} << u"21:05:07"_s;
    QTest::newRow("another language shows nothing") << evening << QList<qint32>{3, 0, 0} << QString();
    QTest::newRow("a negative language shows nothing") << evening << QList<qint32>{-1, 0, 0} << QString();
}

void TstClockText::ClockReads() {
    QFETCH(QTime, time);
    QFETCH(QList<qint32>, style);
    QFETCH(QString, text);
    QCOMPARE(ClockText(time, style[0], style[1], style[2]), text);
}

void TstClockText::EverySecondOfADayReadsAsItsNumbers() {
    for (int second = 0; second < 86400; ++second) {
        const int h = second / 3600;
        const int m = second / 60 % 60;
        const int s = second % 60;
        const QTime time(h, m, s);
        const QString twelve = QString::asprintf("%d:%02d:%02d", h % 12, m, s);
        const QString all = QString::asprintf("%d:%02d:%02d", h, m, s);
        const QString words =
            QString(u"%1時%2分%3秒"_s).arg(h % 12).arg(m, 2, 10, QChar(u'0')).arg(s, 2, 10, QChar(u'0'));
        QCOMPARE(ClockText(time, 0, 1, 0), (h < 12 ? u"午前"_s : u"午後"_s) + twelve);
        QCOMPARE(ClockText(time, 0, 0, 0), (h < 12 ? u"午前"_s : u"午後"_s) + words);
        QCOMPARE(ClockText(time, 0, 1, 1), all);
        QCOMPARE(ClockText(time, 1, 0, 0), (h < 12 ? u"AM"_s : u"PM"_s) + twelve);
        QCOMPARE(ClockText(time, 1, 0, 1), all);
    }
}

void TstClockText::DateReads_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QList<qint32>>("style");  // language, year style, display mode
    QTest::addColumn<QString>("text");
    const QDate sunday(1998, 11, 15);
    QTest::newRow("era, standard") << sunday << QList<qint32>{0, 0, 0} << u"平成10年11月15日(日曜日)"_s;
    QTest::newRow("era, simple") << sunday << QList<qint32>{0, 0, 1} << u"平10/11/15(日)"_s;
    QTest::newRow("western, standard") << sunday << QList<qint32>{0, 1, 0} << u"1998年11月15日(日曜日)"_s;
    QTest::newRow("western, simple") << sunday << QList<qint32>{0, 1, 1} << u"1998/11/15(日)"_s;
    QTest::newRow("Japanese simple is any other mode")
        << sunday << QList<qint32>{0, 1, 7} << u"1998/11/15(日)"_s;
    QTest::newRow("another year style is western") << sunday << QList<qint32>{0, 2, 1} << u"1998/11/15(日)"_s;
    QTest::newRow("English, month named") << sunday << QList<qint32>{1, 0, 0} << u"November 15,1998 Sunday"_s;
    QTest::newRow("English, month named, short")
        << sunday << QList<qint32>{1, 0, 1} << u"Nov. 15,1998 Sun."_s;
    QTest::newRow("English, month in numbers") << sunday << QList<qint32>{1, 1, 0} << u"11/15/1998 Sunday"_s;
    QTest::newRow("English, in numbers, short") << sunday << QList<qint32>{1, 1, 1} << u"11/15/1998 Sun."_s;
    QTest::newRow("English is short at exactly 1")
        << sunday << QList<qint32>{1, 0, 2} << u"November 15,1998 Sunday"_s;
    QTest::newRow("May gets its dot too")
        << QDate(2000, 5, 4) << QList<qint32>{1, 0, 1} << u"May. 4,2000 Thu."_s;
    QTest::newRow("old Japanese") << sunday << QList<qint32>{2, 0, 0} << u"寅年 霜月 十五日"_s;
    QTest::newRow("old Japanese ignores all styles")
        << sunday << QList<qint32>{2, 1, 1} << u"寅年 霜月 十五日"_s;
    QTest::newRow("month and day are not padded")
        << QDate(1989, 1, 1) << QList<qint32>{0, 0, 0} << u"平成1年1月1日(日曜日)"_s;
    QTest::newRow("1988 is era year 0")
        << QDate(1988, 12, 31) << QList<qint32>{0, 0, 0} << u"平成0年12月31日(土曜日)"_s;
    QTest::newRow("1987 is era year -1") << QDate(1987, 3, 2) << QList<qint32>{0, 0, 1} << u"平-1/3/2(月)"_s;
    QTest::newRow("2026 stays in the era")
        << QDate(2026, 11, 20) << QList<qint32>{0, 0, 0} << u"平成38年11月20日(金曜日)"_s;
    QTest::newRow("another language shows nothing") << sunday << QList<qint32>{3, 0, 0} << QString();
}

void TstClockText::DateReads() {
    QFETCH(QDate, date);
    QFETCH(QList<qint32>, style);
    QFETCH(QString, text);
    QCOMPARE(DateText(date, style[0], style[1], style[2]), text);
}

void TstClockText::EveryDayFrom1900To2100ReadsAsItsNumbers() {
    const QString letters = u"月火水木金土日"_s;
    int weekday = 0;  // 1 January 1900 was a Monday
    for (QDate day(1900, 1, 1); day.year() <= 2100; day = day.addDays(1), weekday = (weekday + 1) % 7) {
        const QString letter = letters[weekday];
        const QString monthDay = QString::asprintf("%d/%d", day.month(), day.day());
        QCOMPARE(DateText(day, 0, 1, 1),
                 QString::number(day.year()) + u'/' + monthDay + u'(' + letter + u')');
        QCOMPARE(DateText(day, 0, 0, 1),
                 u"平"_s + QString::number(day.year() - 1988) + u'/' + monthDay + u'(' + letter + u')');
        QCOMPARE(DateText(day, 0, 0, 0), QString(u"平成%1年%2月%3日(%4曜日)"_s)
                                             .arg(day.year() - 1988)
                                             .arg(day.month())
                                             .arg(day.day())
                                             .arg(letter));
    }
}

void TstClockText::EveryDayFrom1900To2100ReadsInEnglish() {
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    for (QDate day(1900, 1, 1); day.year() <= 2100; day = day.addDays(1)) {
        QCOMPARE(DateText(day, 1, 0, 0), english.toString(day, u"MMMM d,yyyy dddd"_s));
        QCOMPARE(DateText(day, 1, 1, 1), english.toString(day, u"M/d/yyyy ddd'.'"_s));
    }
}

QTEST_GUILESS_MAIN(TstClockText)
#include "tst_clock_text.moc"
