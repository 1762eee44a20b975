// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>

#include "timing/timers_window_bench.h"

using namespace tickwell;
using namespace tickwell::timing;

/// The window of all timers and the notice, with the desk that they belong to.
class TstTimersWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheCountdownIsTheFirstRow();
    void TheCountdownIsOperated();
    void ATimerIsAddedAndOperated();
    void TheButtonsFollowTheCurrentRowAtOnce();
    void ATimeOfZeroIsRefused();
    void TwentyTimers();
    void TheNoticeListsAllThatEnded();
    void TheNoticeIgnoresTheFirstKeys();
    void ToldAgainAfterFiveMinutes();
    void TheOpenNoticeGrows();
    void NoNoticeWhileAMenuIsOpen();
    void StoredTimersAreReadAfterTheStart();
    void AnEndLongAgoIsToldWithoutASound();
    void TheRowsFollowTheClock();
    void NothingIsReadWithoutAFile();
    void TheListOpensFromTheTimersWindow();
    void EverythingHasANameForScreenReaders();
    void ASetClockIsFollowed();
    void ASoundEndsWithTheDesk();
};

void TstTimersWindow::TheCountdownIsTheFirstRow() {
    TimersBench bench;
    bench.desk->Show();
    QCOMPARE(bench.Form().windowTitle(), u"タイマー一覧"_s);
    QStringList titles;
    for (int column = 0; column < bench.Table().columnCount(); ++column) {
        titles.append(bench.Table().horizontalHeaderItem(column)->text());
    }
    QCOMPARE(titles, (QStringList{u"名前"_s, u"残り"_s, u"終わる時刻"_s, u"状態"_s}));
    QCOMPARE(bench.Table().rowCount(), 1);
    QCOMPARE(bench.Row(0), (QStringList{u"メイン"_s, u"0:15"_s, QString(), u"停止"_s}));
    QCOMPARE(bench.Enabled(), u"1010"_s);
}

void TstTimersWindow::TheCountdownIsOperated() {
    TimersBench bench;
    bench.desk->Show();
    bench.Press<TimersForm>("Command1");
    QVERIFY(bench.countdown.CountdownRunning);
    QCOMPARE(bench.Enabled(), u"0100"_s);
    bench.time.Advance(5000);
    QCOMPARE(bench.Row(0), (QStringList{u"メイン"_s, u"0:10"_s, u"21:05:22"_s, u"動作中"_s}));
    bench.Press<TimersForm>("Command2");
    QVERIFY(!bench.countdown.CountdownRunning);
    QCOMPARE(bench.Row(0), (QStringList{u"メイン"_s, u"0:10"_s, QString(), u"一時停止"_s}));
    bench.Press<TimersForm>("Command1");
    bench.time.Advance(1000);
    bench.Press<TimersForm>("Command2");
    bench.Press<TimersForm>("Command3");
    QCOMPARE(bench.Row(0), (QStringList{u"メイン"_s, u"0:15"_s, QString(), u"停止"_s}));
}

void TstTimersWindow::ATimerIsAddedAndOperated() {
    TimersBench bench;
    bench.desk->Show();
    bench.The<TimersForm, QLineEdit>("Text4").setText(u" パ ン "_s);
    bench.The<TimersForm, QSpinBox>("UpDown1").setValue(1);
    bench.The<TimersForm, QSpinBox>("UpDown2").setValue(2);
    bench.The<TimersForm, QSpinBox>("UpDown3").setValue(3);
    bench.The<TimersForm, QComboBox>("Combo1").setCurrentIndex(1);
    bench.Press<TimersForm>("Command5");
    QCOMPARE(bench.Row(1), (QStringList{u"パ ン"_s, u"1:02:03"_s, QString(), u"停止"_s}));
    QCOMPARE(bench.store.kept.timers[0].plan.sound, u"TKW01.wav"_s);
    QCOMPARE((bench.The<TimersForm, QLineEdit>("Text4").text()), QString());
    QCOMPARE(bench.Enabled(), u"1001"_s);
    bench.Press<TimersForm>("Command1");
    bench.time.Advance(3000);
    QCOMPARE(bench.Row(1)[1], u"1:02:00"_s);
    bench.Press<TimersForm>("Command2");
    QCOMPARE(bench.Enabled(), u"1011"_s);
    bench.Press<TimersForm>("Command3");
    QCOMPARE(bench.Row(1)[1], u"1:02:03"_s);
    bench.Press<TimersForm>("Command5");  // without a name
    QCOMPARE(bench.Row(2)[0], u"タイマー1"_s);
    bench.Press<TimersForm>("Command5");
    QCOMPARE(bench.Row(3)[0], u"タイマー2"_s);
    bench.Press<TimersForm>("Command4");
    QCOMPARE(bench.Table().rowCount(), 3);
    QCOMPARE(bench.Table().currentRow(), 2);
    QCOMPARE(bench.store.kept.timers.size(), 2);
}

void TstTimersWindow::TheButtonsFollowTheCurrentRowAtOnce() {
    TimersBench bench;
    bench.desk->Show();
    bench.Press<TimersForm>("Command5");
    bench.Press<TimersForm>("Command1");
    QCOMPARE(bench.Enabled(), u"0111"_s);
    QTest::keyClick(&bench.Table(), Qt::Key_Up);
    QCOMPARE(bench.Enabled(), u"1010"_s);
    QTest::keyClick(&bench.Table(), Qt::Key_Down);
    QCOMPARE(bench.Enabled(), u"0111"_s);
}

void TstTimersWindow::ATimeOfZeroIsRefused() {
    TimersBench bench;
    bench.desk->Show();
    bench.The<TimersForm, QSpinBox>("UpDown2").setValue(0);
    bench.Press<TimersForm>("Command5");
    QCOMPARE(bench.Table().rowCount(), 1);
    QVERIFY(bench.boxes.Shown().last().text.contains(u"タイマーの時間を指定してください。"));
}

void TstTimersWindow::TwentyTimers() {
    TimersBench bench;
    bench.desk->Show();
    for (int i = 0; i < 20; ++i) {
        QVERIFY(bench.Button("Command5").isEnabled());
        bench.Press<TimersForm>("Command5");
    }
    QCOMPARE(bench.Table().rowCount(), 21);
    QVERIFY(!bench.Button("Command5").isEnabled());
    bench.PressPreset(0);
    QVERIFY(bench.boxes.Shown().last().text.contains(u"タイマーは20個までです。"));
    QCOMPARE(bench.Table().rowCount(), 21);
}

void TstTimersWindow::TheNoticeListsAllThatEnded() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.PressPreset(0);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(4 * kMinute - 1);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(1);
    QVERIFY(bench.IsNoticeOpen());
    QCOMPARE(bench.Lines(), (QStringList{u"「紅茶」が終わりました"_s, u"「紅茶」が終わりました"_s}));
    QCOMPARE(bench.sounds, QStringList(u"TKW01.wav"_s));
    bench.Press<TimersNotice>("Command1");
    QVERIFY(!bench.IsNoticeOpen());
    QCOMPARE(bench.sounds, (QStringList{u"TKW01.wav"_s, u"stop"_s}));
    bench.time.Advance(60 * kMinute);
    QVERIFY(!bench.IsNoticeOpen());
    bench.isSilent = true;
    bench.PressPreset(0);
    bench.time.Advance(4 * kMinute);
    QVERIFY(bench.IsNoticeOpen() && bench.sounds.size() == 2);
}

void TstTimersWindow::TheNoticeIgnoresTheFirstKeys() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.time.Advance(4 * kMinute);
    auto& confirm = bench.The<TimersNotice, QPushButton>("Command1");
    const auto press = [&] {
        for (QWidget* widget : {confirm.window(), static_cast<QWidget*>(&confirm)}) {
            for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space}) {
                QTest::keyClick(widget, key);
            }
        }
    };
    press();
    bench.time.Advance(1999);
    press();
    QVERIFY(bench.IsNoticeOpen());
    bench.time.Advance(1);
    QTest::keyClick(&confirm, Qt::Key_Space);
    QVERIFY(!bench.IsNoticeOpen());
}

void TstTimersWindow::ToldAgainAfterFiveMinutes() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.time.Advance(4 * kMinute);
    bench.Press<TimersNotice>("Command2");
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(1000);
    QCOMPARE(bench.Row(1).last(), u"終了（もう一度 21:14:07）"_s);
    bench.time.Advance(5 * kMinute - 1001);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(1);
    QVERIFY(bench.IsNoticeOpen());
    QCOMPARE(bench.Lines(), QStringList(u"「紅茶」が終わりました"_s));
    QCOMPARE(bench.sounds.last(), u"TKW01.wav"_s);
}

void TstTimersWindow::TheOpenNoticeGrows() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.PressPreset(1);
    bench.time.Advance(25 * kMinute);
    QCOMPARE(bench.Lines(), (QStringList{u"「紅茶」が終わりました"_s, u"「集中」が終わりました"_s}));
    bench.Press<TimersNotice>("Command2");
    bench.time.Advance(5 * kMinute);
    QCOMPARE(bench.Lines().size(), 2);
    QVERIFY(bench.Lines().contains(u"「休憩」が終わりました"_s));
}

void TstTimersWindow::NoNoticeWhileAMenuIsOpen() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.isMenuOpen = true;
    bench.time.Advance(6 * kMinute);
    QVERIFY(!bench.IsNoticeOpen());
    QVERIFY(bench.sounds.isEmpty());
    bench.isMenuOpen = false;
    bench.time.Advance(250);
    QVERIFY(bench.IsNoticeOpen());
    QCOMPARE(bench.Lines(), QStringList(u"「紅茶」は2分前に終わりました"_s));
}

void TstTimersWindow::StoredTimersAreReadAfterTheStart() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.time.Advance(kMinute);
    bench.Begin();
    bench.time.Advance(3 * kMinute - 1);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(1);
    QVERIFY(bench.IsNoticeOpen());
    QCOMPARE(bench.Lines(), QStringList(u"「紅茶」が終わりました"_s));
}

void TstTimersWindow::AnEndLongAgoIsToldWithoutASound() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.desk.reset();
    bench.time.Suspend(16 * kMinute);
    bench.Begin();
    bench.time.Advance(1001);
    QCOMPARE(bench.Lines(), QStringList(u"「紅茶」は12分前に終わりました"_s));
    QVERIFY(bench.sounds.isEmpty());
    bench.Begin();
    bench.time.Advance(kMinute);
    QVERIFY(!bench.IsNoticeOpen());
}

void TstTimersWindow::TheRowsFollowTheClock() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(1);
    bench.time.Advance(10'000);
    QCOMPARE(bench.Row(1), (QStringList{u"集中"_s, u"24:50"_s, u"21:30:07"_s, u"動作中"_s}));
    bench.time.Advance(25 * kMinute);
    QCOMPARE(bench.Row(1), (QStringList{u"休憩"_s, u"4:50"_s, u"21:35:07"_s, u"動作中"_s}));
    bench.Form().close();
    QVERIFY(bench.time.UntilNext() > 1000);  // a closed window has no work
}

void TstTimersWindow::NothingIsReadWithoutAFile() {
    TimersBench bench;
    bench.time.Advance(10 * kMinute);
    QVERIFY(!bench.time.UntilNext());
    QCOMPARE(bench.store.writes, 0);
}

void TstTimersWindow::TheListOpensFromTheTimersWindow() {
    int opened = 0;
    TimersBench bench;
    Countdown countdown(bench.countdown, bench.time);
    TimerPanel panel(countdown, {.upper = bench.upper, .lower = bench.lower}, bench.tools.TimerTimer());
    TimerForm form(
        {.panel = panel, .handlers = bench.handlers, .help = bench.help, .openList = [&opened] { ++opened; }},
        nullptr);
    auto& button = ChildOf<QPushButton>(form, u"Command4"_s);
    QCOMPARE(button.text(), u"一覧..."_s);
    button.click();
    QCOMPARE(opened, 1);
}

void TstTimersWindow::EverythingHasANameForScreenReaders() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    for (const QWidget* widget : bench.Form().findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus &&
            widget->parent() != &bench.Table() && qobject_cast<const QLineEdit*>(widget) == nullptr) {
            QAccessibleInterface* accessible =
                QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
            QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
        }
    }
}

void TstTimersWindow::ASetClockIsFollowed() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.time.SetNow(bench.time.Now().addSecs(3600));
    bench.desk->TimeJumped();
    QCOMPARE(bench.store.kept.timers[0].endsAt, bench.time.Now().toMSecsSinceEpoch() + 4 * kMinute);
    bench.time.Advance(4 * kMinute - 1);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(1);
    QVERIFY(bench.IsNoticeOpen());
}

void TstTimersWindow::ASoundEndsWithTheDesk() {
    TimersBench bench;
    bench.desk->Show();
    bench.Press<TimersForm>("Command10");
    QCOMPARE(bench.sounds, QStringList{u"TKW00.wav"_s});
    bench.desk.reset();
    QCOMPARE(bench.sounds.last(), u"stop"_s);
}

QTEST_MAIN(TstTimersWindow)
#include "tst_timers_window.moc"
