// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/clock_bench.h"
#include "support/further_flags.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

FurtherSettings WithOldDate() {
    FurtherSettings further;
    further.calendar.usesOldDateInOldJapanese = true;
    return further;
}

}  // namespace

/// The old calendar's date on the upper line, in old Japanese.
class TstOldDateLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OnlyItsSwitchShowsTheOldDate_data();
    void OnlyItsSwitchShowsTheOldDate();
    void TheOldDateIsWritten_data();
    void TheOldDateIsWritten();
    void OtherLanguagesHaveNoOldDate_data();
    void OtherLanguagesHaveNoOldDate();
    void TheOldDateTakesItsTurnsToo();
};

void TstOldDateLine::OnlyItsSwitchShowsTheOldDate_data() {
    AddRowOfEachFlag();
}

void TstOldDateLine::OnlyItsSwitchShowsTheOldDate() {
    QFETCH(FurtherSettings, further);
    ClockBench bench(further, kLanguageOldJapanese);
    bench.time.SetNow(QDateTime(QDate(2026, 11, 22), QTime(9, 0)));
    bench.clock.Show();
    const bool isOld = QTest::currentDataTag() == QByteArray("OldJapaneseOldDate");
    QCOMPARE(bench.upper.Text(), isOld ? u"午年 神無月 十四日"_s : u"午年 霜月 二十二日"_s);
}

void TstOldDateLine::TheOldDateIsWritten_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("text");
    QTest::newRow("leap month") << QDate(2025, 7, 25) << u"巳年 閏水無月 一日"_s;
    QTest::newRow("before the old new year") << QDate(2026, 2, 1) << u"巳年 師走 十四日"_s;
    QTest::newRow("the first known day") << QDate(1900, 1, 1) << u"亥年 師走 一日"_s;
    QTest::newRow("the last known day") << QDate(2100, 12, 31) << u"申年 師走 一日"_s;
    QTest::newRow("before the first one, as by default") << QDate(1899, 12, 31) << u"亥年 師走 三十一日"_s;
    QTest::newRow("after the last one, as by default") << QDate(2101, 1, 1) << u"酉年 睦月 一日"_s;
}

void TstOldDateLine::TheOldDateIsWritten() {
    QFETCH(const QDate, day);
    ClockBench bench(WithOldDate(), kLanguageOldJapanese);
    bench.time.SetNow(QDateTime(day, QTime(9, 0)));
    bench.clock.Show();
    QTEST(bench.upper.Text(), "text");
}

void TstOldDateLine::OtherLanguagesHaveNoOldDate_data() {
    QTest::addColumn<qint32>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("Japanese") << kLanguageJapanese << u"平成10年10月3日(土曜日)"_s;
    QTest::newRow("English") << kLanguageEnglish << u"October 3,1998 Saturday"_s;
    QTest::newRow("none") << qint32{9} << u""_s;
}

void TstOldDateLine::OtherLanguagesHaveNoOldDate() {
    QFETCH(const qint32, language);
    ClockBench bench(WithOldDate(), language);
    bench.clock.Show();
    QTEST(bench.upper.Text(), "text");
}

/// 4 October 1998 was the 14th day of the eighth month.
void TstOldDateLine::TheOldDateTakesItsTurnsToo() {
    ClockBench bench(WithOldDate(), kLanguageOldJapanese);
    bench.time.Advance(kToMidnight);
    bench.clock.Show();
    bench.time.Advance(3 * kTurn);
    const QString date = u"show 寅年 葉月 十四日"_s;
    QCOMPARE(bench.upper.TakeRecord(),
             (QStringList{date, u"show first of 4"_s, u"show second of 4"_s, date}));
}

QTEST_GUILESS_MAIN(TstOldDateLine)
#include "tst_old_date_line.moc"
