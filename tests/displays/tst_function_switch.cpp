// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QTest>
#include <QWidget>
#include <algorithm>

#include "displays/battery_display.h"
#include "displays/clock_display.h"
#include "displays/displays_bench.h"
#include "displays/function_switch.h"
#include "displays/memory_display.h"
#include "displays/usage_display.h"
#include "media/cd_player_display.h"
#include "timing/timing_displays.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

class FakeMarks : public FunctionMarks {
public:
    void CheckFunction(qint32 number) override { checked = number; }
    void EnableOperation(bool enabled) override { operation = enabled; }

    qint32 checked = -1;
    bool operation = false;
};

struct Bench : LinesBench {
    FakeMarks marks;
    FunctionSwitch functions{settings, {.upper = upper, .lower = lower}, marks, displays};

    QString Running() const {
        return QString(The<ClockDisplay>().TimeTimer().IsRunning() ? u"Dz_Timer1 "_s : QString()) +
               (The<ClockDisplay>().DateTimer().IsRunning() ? u"Dz_Timer2 "_s : QString()) +
               (The<UsageDisplay>().UsageTimer().IsRunning() ? u"Win_Timer"_s : QString()) +
               (The<timing::StopwatchDisplay>().Timer1().IsRunning() ? u"Timer1"_s : QString()) +
               (The<BatteryDisplay>().BatTimer().IsRunning() ? u"BatTimer"_s : QString()) +
               (The<MemoryDisplay>().MemoryTimer().IsRunning() ? u"MemoryTimer"_s : QString()) +
               (The<media::CdPlayerDisplay>().CDTimer2().IsRunning() ? u"CDTimer2"_s : QString());
    }
    static bool IsTimerFormShown() {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.begin(), windows.end(), [](const QWidget* each) {
            return each->objectName() == u"TimerForm" && each->isVisible();
        });
    }
};

}  // namespace

/// What changes with the display function.
class TstFunctionSwitch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachFunctionHasItsTextsTimersAndMarks_data();
    void EachFunctionHasItsTextsTimersAndMarks();
    void TheTimersOfThePreviousFunctionStop();
    void TheStopwatchShowsItsReadingAtOnce();
    void TheCountdownIsShownWithItsWindow();
    void AnotherFunctionHidesTheCountdown();
    void TheBatteryIsReadAtOnce();
    void AReadingThatComesTooLateIsDropped();
    void AnUnknownFunctionStopsEverythingAndLeavesTheLines_data();
    void AnUnknownFunctionStopsEverythingAndLeavesTheLines();
};

void TstFunctionSwitch::EachFunctionHasItsTextsTimersAndMarks_data() {
    QTest::addColumn<qint32>("number");
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("running");
    QTest::addColumn<bool>("operation");
    QTest::newRow("clock") << 0 << u"show 平成10年11月15日(日曜日)"_s << u"Dz_Timer1 Dz_Timer2 "_s << false;
    QTest::newRow("usage") << 1 << u"show Windows使用時間"_s << u"Win_Timer"_s << false;
    QTest::newRow("stopwatch") << 2 << u"show ストップウォッチ"_s << u"Timer1"_s << true;
    QTest::newRow("timer") << 3 << u"show タイマー"_s << QString() << true;
    QTest::newRow("battery") << 4 << u"show バッテリー残量"_s << u"BatTimer"_s << false;
    QTest::newRow("memory, whose item stays enabled though it has no window")
        << 5 << u"show メモリー使用率"_s << u"MemoryTimer"_s << true;
    QTest::newRow("CD player, without a disc")
        << 6 << u"show オーディオCDの準備ができていません"_s << u"CDTimer2"_s << true;
}

void TstFunctionSwitch::EachFunctionHasItsTextsTimersAndMarks() {
    QFETCH(qint32, number);
    QFETCH(QString, upper);
    QFETCH(QString, running);
    QFETCH(bool, operation);
    Bench bench;
    bench.functions.ChangeFunction(number == 0 ? 1 : 0);  // from another one, whose timers must stop
    bench.upper.TakeRecord();
    bench.lower.TakeRecord();
    bench.functions.ChangeFunction(number);
    QCOMPARE(bench.settings.function, number);
    QCOMPARE(bench.upper.TakeRecord(), QStringList{upper});
    QCOMPARE(bench.Running(), running);
    QCOMPARE(bench.marks.checked, number);
    QCOMPARE(bench.marks.operation, operation);
}

void TstFunctionSwitch::TheTimersOfThePreviousFunctionStop() {
    const QStringList running{
        u"Dz_Timer1 Dz_Timer2 "_s, u"Win_Timer"_s, u"Timer1"_s, QString(), u"BatTimer"_s,
        u"MemoryTimer"_s,          u"CDTimer2"_s};
    for (qint32 from = 0; from < running.size(); ++from) {
        for (const qint32 to : {0, 1, 2, 3, 4, 5, 6, 7, -1}) {
            Bench bench;
            bench.functions.ChangeFunction(from);
            QCOMPARE(bench.Running(), running.at(from));
            bench.functions.ChangeFunction(to);
            QCOMPARE(bench.Running(), running.value(to));
        }
    }
}

void TstFunctionSwitch::TheStopwatchShowsItsReadingAtOnce() {
    Bench bench;
    bench.functions.ChangeFunction(2);
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 0:00'00\"000"_s});
}

void TstFunctionSwitch::TheCountdownIsShownWithItsWindow() {
    Bench bench;
    bench.functions.ChangeFunction(3);
    QVERIFY(bench.countdown.TimerShownOnMain);
    QVERIFY(Bench::IsTimerFormShown());
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 0:00'15\"000"_s});
}

void TstFunctionSwitch::AnotherFunctionHidesTheCountdown() {
    Bench bench;
    for (const qint32 other : {0, 1, 2, 4, 5, 6, 99}) {
        bench.functions.ChangeFunction(3);
        bench.functions.ChangeFunction(other);
        QVERIFY(!bench.countdown.TimerShownOnMain);
    }
}

void TstFunctionSwitch::TheBatteryIsReadAtOnce() {
    Bench bench;
    bench.power.SetReading({Mains::Off, 80, std::nullopt});
    bench.functions.ChangeFunction(4);
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 80％残っています"_s});
}

void TstFunctionSwitch::AReadingThatComesTooLateIsDropped() {
    Bench bench;
    bench.power.isSlow = true;
    bench.functions.ChangeFunction(4);
    bench.functions.ChangeFunction(5);
    bench.lower.TakeRecord();
    QVERIFY(!bench.power.Answer());
    QCOMPARE(bench.lower.TakeRecord(), QStringList());
}

void TstFunctionSwitch::AnUnknownFunctionStopsEverythingAndLeavesTheLines_data() {
    QTest::addColumn<qint32>("number");
    for (const qint32 number :
         {7, 99, -1, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()}) {
        QTest::addRow("%d", number) << number;
    }
}

void TstFunctionSwitch::AnUnknownFunctionStopsEverythingAndLeavesTheLines() {
    QFETCH(qint32, number);
    Bench bench;
    bench.functions.ChangeFunction(0);
    bench.upper.TakeRecord();
    bench.lower.TakeRecord();
    bench.functions.ChangeFunction(number);
    QCOMPARE(bench.settings.function, number);  // stored nevertheless
    QVERIFY(bench.upper.TakeRecord().isEmpty());
    QVERIFY(bench.lower.TakeRecord().isEmpty());
    QCOMPARE(bench.Running(), QString());
    QCOMPARE(bench.marks.checked, number);
    QVERIFY(bench.marks.operation);
}

QTEST_MAIN(TstFunctionSwitch)
#include "tst_function_switch.moc"
