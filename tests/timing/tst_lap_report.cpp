// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/lap_report.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

const QDateTime kNow(QDate(1998, 11, 15), QTime(21, 5, 7));

}  // namespace

/// The lines of the stopwatch's report.
class TstLapReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AllLinesInOrder();
    void AnEmptyListLeavesTwoEmptyLinesBeforeTheEnd();
    void AListThatBeginsWithAStopKeepsItsEmptyLine();
    void IntervalsAreTheSecondColumn();
    void DatesInLongForm_data();
    void DatesInLongForm();
    void TimesInLongForm_data();
    void TimesInLongForm();
};

void TstLapReport::AllLinesInOrder() {
    QCOMPARE(LapReport(u"2.0.0"_s, kNow, u"Lapse1  0:00'01\"000\r\nLapse2  0:00'02\"000"_s),
             (QStringList{u"Tickwell Ver.2  ストップウォッチ機能"_s, u"<<基本情報>>"_s,
                          u"バージョン：2.0.0"_s, u"印刷日：1998年11月15日 日曜日"_s, u"印刷時刻：21:05:07"_s,
                          u""_s, u"<<ラップ/経歴一覧表>>"_s, u"Lapse1  0:00'01\"000"_s,
                          u"Lapse2  0:00'02\"000"_s, u""_s, u"<<終>>"_s}));
}

void TstLapReport::AnEmptyListLeavesTwoEmptyLinesBeforeTheEnd() {
    QCOMPARE(LapReport(u"2.0.0"_s, kNow, QString()).mid(6),
             (QStringList{u"<<ラップ/経歴一覧表>>"_s, u""_s, u""_s, u"<<終>>"_s}));
}

void TstLapReport::AListThatBeginsWithAStopKeepsItsEmptyLine() {
    QCOMPARE(
        LapReport(u"2.0.0"_s, kNow, u"\r\n【Stop】 0:00'01\"000"_s).mid(6),
        (QStringList{u"<<ラップ/経歴一覧表>>"_s, u""_s, u"【Stop】 0:00'01\"000"_s, u""_s, u"<<終>>"_s}));
}

void TstLapReport::IntervalsAreTheSecondColumn() {
    const QString list =
        u"Lapse9  0:03'10\"500  (+0:01'05\"200)\r\n【Stop】 0:03'11\"000\r\nLapse10  0:04'00\"000\r\n"
        "Lapse11  1:04'00\"000  (+1:00'00\"000)"_s;
    QCOMPARE(LapReport(u"2.0.0"_s, kNow, list).mid(6),
             (QStringList{u"<<ラップ/経歴一覧表>>"_s, u"Lapse9  0:03'10\"500\t(+0:01'05\"200)"_s,
                          u"【Stop】 0:03'11\"000"_s, u"Lapse10  0:04'00\"000"_s,
                          u"Lapse11  1:04'00\"000\t(+1:00'00\"000)"_s, u""_s, u"<<終>>"_s}));
}

void TstLapReport::DatesInLongForm_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("text");
    QTest::newRow("sunday") << QDate(1998, 11, 15) << u"1998年11月15日 日曜日"_s;
    QTest::newRow("monday") << QDate(1998, 11, 16) << u"1998年11月16日 月曜日"_s;
    QTest::newRow("tuesday") << QDate(1998, 11, 17) << u"1998年11月17日 火曜日"_s;
    QTest::newRow("wednesday") << QDate(1998, 11, 18) << u"1998年11月18日 水曜日"_s;
    QTest::newRow("thursday") << QDate(1998, 11, 19) << u"1998年11月19日 木曜日"_s;
    QTest::newRow("friday") << QDate(1998, 11, 20) << u"1998年11月20日 金曜日"_s;
    QTest::newRow("saturday") << QDate(1998, 11, 21) << u"1998年11月21日 土曜日"_s;
    QTest::newRow("one digit") << QDate(2027, 2, 1) << u"2027年2月1日 月曜日"_s;
}

void TstLapReport::DatesInLongForm() {
    QFETCH(QDate, date);
    QTEST(LongDateText(date), "text");
}

void TstLapReport::TimesInLongForm_data() {
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("text");
    QTest::newRow("evening") << QTime(21, 5, 7) << u"21:05:07"_s;
    QTest::newRow("morning") << QTime(9, 0, 0) << u"9:00:00"_s;
    QTest::newRow("midnight") << QTime(0, 0, 59) << u"0:00:59"_s;
}

void TstLapReport::TimesInLongForm() {
    QFETCH(QTime, time);
    QTEST(LongTimeText(time), "text");
}

QTEST_GUILESS_MAIN(TstLapReport)
#include "tst_lap_report.moc"
