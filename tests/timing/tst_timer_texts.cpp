// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/timer_texts.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// What the list of timers says.
class TstTimerTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RemainingTime_data();
    void RemainingTime();
    void ALength_data();
    void ALength();
    void AnEndThatHasPassed_data();
    void AnEndThatHasPassed();
    void AnEndToCome();
    void APreset();
    void APhase();
};

void TstTimerTexts::RemainingTime_data() {
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << qint64{0} << u"0:00"_s;
    QTest::newRow("a begun second") << qint64{1} << u"0:01"_s;
    QTest::newRow("a whole second") << qint64{1000} << u"0:01"_s;
    QTest::newRow("three minutes") << qint64{180'000} << u"3:00"_s;
    QTest::newRow("just below") << qint64{179'001} << u"3:00"_s;
    QTest::newRow("a second below") << qint64{179'000} << u"2:59"_s;
    QTest::newRow("up to an hour") << qint64{3'599'000} << u"59:59"_s;
    QTest::newRow("an hour") << qint64{3'599'001} << u"1:00:00"_s;
    QTest::newRow("the longest") << qint64{86'399'000} << u"23:59:59"_s;
}

void TstTimerTexts::RemainingTime() {
    QFETCH(qint64, milliseconds);
    QTEST(RemainingText(milliseconds), "text");
}

void TstTimerTexts::ALength_data() {
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("less than a second") << qint64{999} << u"0秒"_s;
    QTest::newRow("seconds") << qint64{59'999} << u"59秒"_s;
    QTest::newRow("a minute") << qint64{60'000} << u"1分"_s;
    QTest::newRow("minutes and seconds") << qint64{330'000} << u"5分30秒"_s;
    QTest::newRow("an hour") << qint64{3'600'000} << u"1時間"_s;
    QTest::newRow("hours and minutes") << qint64{7'530'000} << u"2時間5分"_s;
    QTest::newRow("days") << qint64{3 * 86'400'000LL + 7'200'000} << u"3日"_s;
}

void TstTimerTexts::ALength() {
    QFETCH(qint64, milliseconds);
    QTEST(LengthText(milliseconds), "text");
}

void TstTimerTexts::AnEndThatHasPassed_data() {
    QTest::addColumn<qint64>("ago");
    QTest::addColumn<QString>("text");
    QTest::newRow("now") << qint64{0} << u"「紅茶」が終わりました"_s;
    QTest::newRow("within the minute") << qint64{59'999} << u"「紅茶」が終わりました"_s;
    QTest::newRow("a minute") << qint64{60'000} << u"「紅茶」は1分前に終わりました"_s;
    QTest::newRow("twelve minutes") << qint64{12 * 60'000 + 59'000} << u"「紅茶」は12分前に終わりました"_s;
    QTest::newRow("hours") << qint64{125 * 60'000} << u"「紅茶」は2時間5分前に終わりました"_s;
    QTest::newRow("days") << qint64{49 * 3'600'000} << u"「紅茶」は2日前に終わりました"_s;
}

void TstTimerTexts::AnEndThatHasPassed() {
    QFETCH(qint64, ago);
    QTEST(EndedText(u"紅茶"_s, ago), "text");
    QCOMPARE(EndedText(u"%1"_s, 0), u"「%1」が終わりました"_s);
}

void TstTimerTexts::AnEndToCome() {
    const QDate today(1998, 11, 15);
    QCOMPARE(EndText(QDateTime(today, QTime(21, 8, 7)), today), u"21:08:07"_s);
    QCOMPARE(EndText(QDateTime(today.addDays(1), QTime(0, 5, 7)), today), u"11/16 0:05:07"_s);
}

void TstTimerTexts::APreset() {
    QCOMPARE(PlanText({.name = u"紅茶"_s, .milliseconds = 240'000}), u"紅茶 4分"_s);
    QCOMPARE(PlanText({.name = u"集中"_s,
                       .milliseconds = 1'500'000,
                       .nextName = u"休憩"_s,
                       .nextMilliseconds = 300'000}),
             u"集中 25分／休憩 5分"_s);
}

void TstTimerTexts::APhase() {
    QCOMPARE(PhaseText(TimerPhase::Idle), u"停止"_s);
    QCOMPARE(PhaseText(TimerPhase::Running), u"動作中"_s);
    QCOMPARE(PhaseText(TimerPhase::Paused), u"一時停止"_s);
    QCOMPARE(PhaseText(TimerPhase::Ended), u"終了"_s);
}

QTEST_GUILESS_MAIN(TstTimerTexts)
#include "tst_timer_texts.moc"
