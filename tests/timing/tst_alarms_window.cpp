// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QTest>

#include "timing/alarms_window_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// The window of the alarms.
class TstAlarmsWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingRunsWithoutAnAlarm();
    void EverythingThatIsSetIsStored();
    void OnlyTheChoiceThatCountsCanBeChanged();
    void AnAlarmIsChanged();
    void AnAlarmIsSwitchedOffAndRemoved();
    void TheNextOneIsSkipped();
    void ADayOffIsSkipped();
    void AnAlarmThatNeverRingsIsRefused();
    void WhatIsBeingSetStaysWhileAnotherRings();
    void FiftyAlarms();
    void EverythingHasANameForScreenReaders();
    void ItOpensFromTheTimersWindow();
};

void TstAlarmsWindow::NothingRunsWithoutAnAlarm() {
    AlarmWindowBench bench;
    QVERIFY(!bench.time.UntilNext());
    bench.desk->Show();
    QCOMPARE(bench.Form().windowTitle(), u"アラーム一覧"_s);
    QCOMPARE(bench.Table().rowCount(), 0);
    for (const char* name : {"Command2", "Command3"}) {
        QVERIFY2(!bench.Button(name).isEnabled(), name);
    }
    QVERIFY(!bench.Box("Check3").isEnabled() && !bench.Box("Check4").isEnabled());
    bench.Form().close();
    QVERIFY(!bench.time.UntilNext());
    QCOMPARE(bench.store.writes, 0);
}

void TstAlarmsWindow::EverythingThatIsSetIsStored() {
    AlarmWindowBench bench;
    bench.desk->Show();
    bench.SetName(u"ごみ"_s);
    bench.SetTime(6, 45);
    bench.ChooseDays(2);
    bench.Box("Check1(0)").click();
    bench.Box("Check1(4)").click();
    bench.Box("Check2").click();
    bench.The<AlarmsForm, QComboBox>("Combo1").setCurrentIndex(1);
    bench.SetNumber("UpDown6", 90);
    bench.SetNumber("UpDown7", 15);
    bench.Press<AlarmsForm>("Command1");
    bench.ChooseDays(3);
    bench.SetNumber("UpDown4", 12);
    bench.SetNumber("UpDown5", 24);
    bench.Press<AlarmsForm>("Command1");
    QCOMPARE(bench.store.kept.size(), 2);
    const qint64 now = bench.time.Now().toMSecsSinceEpoch();
    const KeptAlarm expected{.id = 1,
                             .name = u"ごみ"_s,
                             .time = QTime(6, 45),
                             .days = AlarmDays::Chosen,
                             .weekdays = 17,
                             .silentOnDaysOff = true,
                             .sound = u"TKW01.wav"_s,
                             .ringSeconds = 90,
                             .snoozeMinutes = 15,
                             .handled = now};
    QCOMPARE(bench.store.kept[0], expected);
    QCOMPARE(bench.store.kept[1].days, AlarmDays::Once);
    QCOMPARE(bench.store.kept[1].once, QDate(1998, 12, 24));
    QCOMPARE(bench.Row(0)[2], u"月・金（休みの日を除く）"_s);
    QCOMPARE(bench.Row(1)[3], u"12/24(木) 6:45"_s);
}

void TstAlarmsWindow::OnlyTheChoiceThatCountsCanBeChanged() {
    AlarmWindowBench bench;
    bench.desk->Show();
    for (const int days : {2, 3, 1, 0}) {
        bench.ChooseDays(days);
        QCOMPARE(bench.Box("Check1(6)").isEnabled(), days == 2);
        for (const char* name : {"UpDown3", "UpDown4", "UpDown5"}) {
            QCOMPARE(bench.Number(name).isEnabled(), days == 3);
        }
    }
    QCOMPARE(bench.Number("UpDown3").value(), 1998);  // tomorrow
    QCOMPARE(bench.Number("UpDown4").value(), 11);
    QCOMPARE(bench.Number("UpDown5").value(), 16);
    QCOMPARE(bench.Number("UpDown3").minimum(), 1998);
    QCOMPARE(bench.Number("UpDown3").maximum(), 1999);
}

void TstAlarmsWindow::AnAlarmIsChanged() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 7, 0);
    bench.AddAlarm(u"薬"_s, 8, 0);
    bench.Table().selectRow(0);
    QCOMPARE((bench.The<AlarmsForm, QLineEdit>("Text1").text()), u"起床"_s);
    QCOMPARE(bench.Number("UpDown1").value(), 7);
    QCOMPARE(bench.Number("UpDown2").value(), 0);
    bench.SetTime(6, 30);
    bench.Press<AlarmsForm>("Command2");
    QCOMPARE(bench.Row(0).mid(0, 4), (QStringList{u"起床"_s, u"6:30"_s, u"毎日"_s, u"明日 6:30"_s}));
    QCOMPARE(bench.Row(1)[1], u"8:00"_s);
    QCOMPARE(bench.store.kept[0].time, QTime(6, 30));
    bench.time.Advance(9 * kHour + 24 * kMinute + 53'000);
    QVERIFY(bench.IsNoticeOpen());
}

void TstAlarmsWindow::AnAlarmIsSwitchedOffAndRemoved() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 7, 0);
    bench.AddAlarm(u"薬"_s, 8, 0);
    QVERIFY(bench.Box("Check3").isChecked());
    bench.Box("Check3").click();
    QVERIFY(!bench.store.kept[1].isOn);
    QCOMPARE(bench.Row(1).mid(3), (QStringList{u"なし"_s, u"切"_s}));
    QVERIFY(!bench.Box("Check4").isEnabled());
    bench.Table().selectRow(0);
    bench.Press<AlarmsForm>("Command3");
    QCOMPARE(bench.Table().rowCount(), 1);
    QCOMPARE(bench.store.kept.size(), 1);
    QCOMPARE((bench.The<AlarmsForm, QLineEdit>("Text1").text()), u"薬"_s);
    QVERIFY(!bench.Box("Check3").isChecked());
    bench.Form().close();
    QVERIFY(!bench.time.UntilNext());
    bench.desk->Show();
    bench.Box("Check3").click();
    bench.time.Advance(10 * kHour + 54 * kMinute + 53'000);
    QCOMPARE(bench.Lines(), QStringList(u"「薬」の時刻です（8:00）"_s));
}

void TstAlarmsWindow::TheNextOneIsSkipped() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 7, 0);
    bench.Box("Check4").click();
    QVERIFY(bench.Box("Check4").isChecked());
    QCOMPARE(bench.Row(0).mid(3), (QStringList{u"11/17(火) 7:00"_s, u"入（1回休み）"_s}));
    QCOMPARE(bench.store.kept[0].skipped, QDate(1998, 11, 16));
    bench.time.Advance(12 * kHour);
    QVERIFY(!bench.IsNoticeOpen());
    QVERIFY(!bench.Box("Check4").isChecked());
    QCOMPARE(bench.Row(0).mid(3), (QStringList{u"明日 7:00"_s, u"入"_s}));
    bench.time.Advance(22 * kHour);
    QVERIFY(bench.IsNoticeOpen());
}

void TstAlarmsWindow::ADayOffIsSkipped() {
    AlarmWindowBench bench;
    bench.off.insert(QDate(1998, 11, 16));
    bench.desk->Show();
    bench.Box("Check2").click();
    bench.AddAlarm(u"仕事"_s, 7, 0);
    QCOMPARE(bench.Row(0)[3], u"11/17(火) 7:00"_s);
    bench.time.Advance(12 * kHour);
    QVERIFY(!bench.IsNoticeOpen());
    bench.time.Advance(22 * kHour);
    QCOMPARE(bench.Lines(), QStringList(u"「仕事」の時刻です（7:00）"_s));
}

void TstAlarmsWindow::AnAlarmThatNeverRingsIsRefused() {
    AlarmWindowBench bench;
    bench.desk->Show();
    bench.ChooseDays(2);
    bench.Press<AlarmsForm>("Command1");
    QVERIFY(bench.boxes.Shown().last().text.contains(u"アラームを鳴らす曜日を選んでください。"));
    bench.boxes.Close();
    bench.ChooseDays(3);
    bench.SetNumber("UpDown4", 11);
    bench.SetNumber("UpDown5", 31);
    bench.Press<AlarmsForm>("Command1");
    QVERIFY(bench.boxes.Shown().last().text.contains(u"アラームを鳴らす日付が正しくありません。"));
    bench.boxes.Close();
    bench.SetNumber("UpDown5", 14);
    bench.Press<AlarmsForm>("Command1");
    QVERIFY(bench.boxes.Shown().last().text.contains(u"アラームを鳴らす日時が過ぎています。"));
    QCOMPARE(bench.Table().rowCount(), 0);
    QVERIFY(bench.store.kept.isEmpty());
}

void TstAlarmsWindow::WhatIsBeingSetStaysWhileAnotherRings() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.SetName(u"書きかけ"_s);
    bench.time.Advance(10 * kMinute);
    QVERIFY(bench.IsNoticeOpen());
    QCOMPARE((bench.The<AlarmsForm, QLineEdit>("Text1").text()), u"書きかけ"_s);
}

void TstAlarmsWindow::FiftyAlarms() {
    AlarmWindowBench bench;
    bench.desk->Show();
    for (int i = 0; i < 50; ++i) {
        QVERIFY(bench.Button("Command1").isEnabled());
        bench.AddAlarm(u"a"_s, 7, i);
    }
    QCOMPARE(bench.Table().rowCount(), 50);
    QVERIFY(!bench.Button("Command1").isEnabled());
    bench.Press<AlarmsForm>("Command3");
    QVERIFY(bench.Button("Command1").isEnabled());
}

void TstAlarmsWindow::EverythingHasANameForScreenReaders() {
    AlarmWindowBench bench;
    bench.AddAlarm(u"起床"_s, 21, 10);
    bench.time.Advance(10 * kMinute);
    for (const QWidget* window :
         {static_cast<QWidget*>(&bench.Form()), static_cast<QWidget*>(&bench.The<AlarmNotice>())}) {
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            const bool isPart = widget->parent() == &bench.Table() ||
                                qobject_cast<const QAbstractSpinBox*>(widget->parent()) != nullptr;
            if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus && !isPart) {
                QAccessibleInterface* accessible =
                    QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
                QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
            }
        }
    }
    const QStringList names{u"時刻（時）"_s,
                            u"分"_s,
                            u"一度だけ鳴らす日（年）"_s,
                            u"月"_s,
                            u"日"_s,
                            u"鳴らす時間（秒）"_s,
                            u"もう一度鳴らすまで（分）"_s};
    for (int i = 0; i < names.size(); ++i) {
        QAccessibleInterface* number =
            QAccessible::queryAccessibleInterface(&bench.Number(qPrintable(u"UpDown%1"_s.arg(i + 1))));
        QCOMPARE(number->text(QAccessible::Name), names[i]);
        QVERIFY(!number->relations(QAccessible::Label).isEmpty());
    }
}

void TstAlarmsWindow::ItOpensFromTheTimersWindow() {
    int opened = 0;
    AlarmWindowBench bench;
    Countdown countdown(bench.countdown, bench.time);
    TimerPanel panel(countdown, {.upper = bench.upper, .lower = bench.lower}, bench.tools.TimerTimer());
    TimerForm form({.panel = panel,
                    .handlers = bench.handlers,
                    .help = bench.help,
                    .openAlarms = [&opened] { ++opened; }},
                   nullptr);
    auto& button = ChildOf<QPushButton>(form, u"Command5"_s);
    QCOMPARE(button.text(), u"アラーム..."_s);
    button.click();
    QCOMPARE(opened, 1);
}

QTEST_MAIN(TstAlarmsWindow)
#include "tst_alarms_window.moc"
