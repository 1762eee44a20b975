// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/alarms_window_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// The alarms with their notice and their sound.
class TstAlarmDesk : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnAlarmIsAddedAndRings();
    void ItRingsAgainAfterItsMinutes();
    void DifferentMinutesAreNotNamed();
    void TheSoundEndsByItself();
    void InQuietHoursItHasNoSound();
    void AMissedAlarmIsToldWithoutASound();
    void NoNoticeWhileAMenuIsOpen();
    void TheNoticeIgnoresTheFirstKeys();
    void AFarAlarmCostsOneWakeUpAnHour();
    void ASetClockIsFollowed();
};

void TstAlarmDesk::AnAlarmIsAddedAndRings() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 7, 0);
    QStringList titles;
    for (int column = 0; column < bench.Table().columnCount(); ++column) {
        titles.append(bench.Table().horizontalHeaderItem(column)->text());
    }
    QCOMPARE(titles, (QStringList{u"名前"_s, u"時刻"_s, u"鳴らす日"_s, u"次に鳴る時"_s, u"状態"_s}));
    QCOMPARE(bench.Row(0), (QStringList{u"起床"_s, u"7:00"_s, u"毎日"_s, u"明日 7:00"_s, u"入"_s}));
    QCOMPARE(bench.store.kept.size(), 1);
    bench.time.Advance(9 * kHour + 54 * kMinute + 52'999);
    QVERIFY(!bench.IsNoticeOpen());
    QCOMPARE(bench.Row(0)[3], u"今日 7:00"_s);
    bench.time.Advance(1);
    QVERIFY(bench.IsNoticeOpen());
    QCOMPARE(bench.Lines(), QStringList(u"「起床」の時刻です（7:00）"_s));
    QCOMPARE(bench.sounds, QStringList(u"TKW00.wav"_s));
    QCOMPARE(bench.Row(0)[3], u"明日 7:00"_s);
    bench.Press<AlarmNotice>("Command1");
    QVERIFY(!bench.IsNoticeOpen());
    QCOMPARE(bench.sounds, (QStringList{u"TKW00.wav"_s, u"stop"_s}));
    bench.time.Advance(kHour);
    QVERIFY(!bench.IsNoticeOpen());
    QCOMPARE(bench.sounds.size(), 2);
}

void TstAlarmDesk::ItRingsAgainAfterItsMinutes() {
    AlarmWindowBench bench;
    bench.desk->Show();
    bench.SetNumber("UpDown7", 10);
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.time.Advance(4 * kMinute + 53'000);
    QCOMPARE((bench.The<AlarmNotice, QPushButton>("Command2").text()), u"10分後にもう一度"_s);
    QVERIFY(bench.The<AlarmNotice>().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(bench.The<AlarmNotice>().windowModality(), Qt::NonModal);
    bench.Press<AlarmNotice>("Command2");
    QVERIFY(!bench.IsNoticeOpen());
    QCOMPARE(bench.sounds, (QStringList{u"TKW00.wav"_s, u"stop"_s}));
    bench.time.Advance(10 * kMinute - 1);
    QVERIFY(!bench.IsNoticeOpen());
    QCOMPARE(bench.Row(0)[4], u"入（もう一度 21:20）"_s);
    bench.time.Advance(1);
    QCOMPARE(bench.Lines(), QStringList(u"「起床」の時刻です（21:10）"_s));
    QCOMPARE(bench.sounds.last(), u"TKW00.wav"_s);
}

void TstAlarmDesk::DifferentMinutesAreNotNamed() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.SetNumber("UpDown7", 7);
    bench.AddAlarm(u"薬"_s, 21, 10);
    bench.time.Advance(5 * kMinute);
    QCOMPARE(bench.Lines().size(), 2);
    QCOMPARE((bench.The<AlarmNotice, QPushButton>("Command2").text()), u"あとでもう一度"_s);
    bench.Press<AlarmNotice>("Command2");
    bench.time.Advance(5 * kMinute);
    QCOMPARE(bench.Lines(), QStringList(u"「起床」の時刻です（21:10）"_s));
    bench.time.Advance(2 * kMinute);  // the notice is still open
    QCOMPARE(bench.Lines(), (QStringList{u"「起床」の時刻です（21:10）"_s, u"「薬」の時刻です（21:10）"_s}));
    bench.time.Advance(24 * kHour);  // an unanswered alarm keeps one line
    QCOMPARE(bench.Lines().size(), 2);
}

void TstAlarmDesk::TheSoundEndsByItself() {
    AlarmWindowBench bench;
    bench.desk->Show();
    bench.SetNumber("UpDown6", 45);
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.time.Advance(4 * kMinute + 53'000 + 44'999);
    QCOMPARE(bench.sounds, (QStringList{u"TKW00.wav"_s, u"TKW00.wav"_s}));
    bench.time.Advance(1);
    QCOMPARE(bench.sounds.size(), 3);
    QCOMPARE(bench.sounds.last(), u"stop"_s);
    QVERIFY(bench.IsNoticeOpen());
    bench.Press<AlarmNotice>("Command1");
    QCOMPARE(bench.sounds.size(), 3);
}

void TstAlarmDesk::InQuietHoursItHasNoSound() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.isQuiet = true;
    bench.time.Advance(5 * kMinute);
    QVERIFY(bench.IsNoticeOpen());
    QVERIFY(bench.sounds.isEmpty());
}

void TstAlarmDesk::AMissedAlarmIsToldWithoutASound() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.desk.reset();
    bench.sounds.clear();
    bench.time.Suspend(30 * kMinute);  // 21:35:07
    bench.Begin();
    bench.time.Advance(1);
    QCOMPARE(bench.Lines(), QStringList(u"「起床」は25分前（21:10）に鳴るはずでした"_s));
    QVERIFY(bench.sounds.isEmpty());
    QVERIFY(!(bench.The<AlarmNotice, QPushButton>("Command2").isVisible()));
    bench.Begin();
    bench.time.Advance(kMinute);
    QVERIFY(!bench.IsNoticeOpen());
}

void TstAlarmDesk::NoNoticeWhileAMenuIsOpen() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.isMenuOpen = true;
    bench.time.Advance(7 * kMinute);
    QVERIFY(!bench.IsNoticeOpen());
    QVERIFY(bench.sounds.isEmpty());
    bench.isMenuOpen = false;
    bench.time.Advance(250);
    QCOMPARE(bench.Lines(), QStringList(u"「起床」の時刻です（21:10）"_s));
    QCOMPARE(bench.sounds, QStringList(u"TKW00.wav"_s));
}

void TstAlarmDesk::TheNoticeIgnoresTheFirstKeys() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.time.Advance(4 * kMinute + 53'000);
    auto& notice = bench.The<AlarmNotice>();
    auto& confirm = bench.The<AlarmNotice, QPushButton>("Command1");
    auto& again = bench.The<AlarmNotice, QPushButton>("Command2");
    const auto typeAll = [&] {
        for (QWidget* widget : {static_cast<QWidget*>(&notice), static_cast<QWidget*>(&confirm),
                                static_cast<QWidget*>(&again)}) {
            QTest::keyClick(widget, Qt::Key_Escape);
            QTest::keyClick(widget, Qt::Key_Return);
            QTest::keyClick(widget, Qt::Key_Space);
        }
    };
    typeAll();
    bench.time.Advance(1999);
    typeAll();
    QVERIFY(notice.isVisible());
    bench.time.Advance(1);
    QTest::keyClick(&confirm, Qt::Key_Space);
    QVERIFY(!notice.isVisible());
    QCOMPARE(bench.store.kept[0].againAt, 0);
    bench.time.Advance(24 * kHour);  // again for each notice
    QVERIFY(notice.isVisible());
    bench.Press<AlarmNotice>("Command1");
    bench.time.Advance(24 * kHour - 2000);
    QVERIFY(notice.isVisible());
    notice.close();
    bench.Form().close();
    QVERIFY(bench.time.UntilNext() > 2000);  // nothing goes on
    bench.time.Advance(24 * kHour - 2 * kMinute);
    QVERIFY(!notice.isVisible());
}

void TstAlarmDesk::AFarAlarmCostsOneWakeUpAnHour() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 7, 0);
    bench.Form().close();
    QCOMPARE(bench.time.UntilNext(), kHour);
    bench.time.Advance(9 * kHour);
    QCOMPARE(bench.time.UntilNext(), 54 * kMinute + 53'000);
}

void TstAlarmDesk::ASetClockIsFollowed() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 7, 0);
    bench.Form().close();
    bench.time.SetNow(QDateTime(QDate(1998, 11, 16), QTime(6, 59)));
    bench.desk->TimeJumped();
    bench.time.Advance(kMinute - 1);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(1);
    QVERIFY(bench.IsNoticeOpen());
    bench.Press<AlarmNotice>("Command1");
    bench.time.SetNow(QDateTime(QDate(1998, 11, 16), QTime(6, 0)));
    bench.desk->TimeJumped();
    bench.time.Advance(3 * kHour);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Suspend(22 * kHour + 5 * kMinute);  // 7:05 on the next day
    bench.desk->TimeJumped();
    bench.time.Advance(1);
    QVERIFY(bench.IsNoticeOpen());
}

QTEST_MAIN(TstAlarmDesk)
#include "tst_alarm_desk.moc"
