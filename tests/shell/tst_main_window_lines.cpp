// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "core/clock_text.h"
#include "shell/main_window_accessible.h"
#include "shell/main_window_bench.h"
#include "support/discs.h"
#include "support/window.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

/// The main window with this function, which has just started, and with the windows of stopwatch and timer
/// open.
struct Bench : public MainWindowBench {
    explicit Bench(int function, int language = 0) {
        store.Put(u"SetUp"_s, u"Function"_s, QString::number(function));
        store.Put(u"Digital"_s, u"Language"_s, QString::number(language));
        time.SetNow(QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7, 350)));
        Start();
        time.Advance(kStartUp);
        Item("Menu5").trigger();
        Item("Menu0").trigger();
        Item("Menu6").trigger();
        form->ChangeFunction(function);
        time.Advance(3000);
    }

    template <typename Control>
    static Control& The(const char* window, const char* name) {
        return ChildOf<Control>(WindowNamed(QLatin1StringView(window)), QLatin1StringView(name));
    }
    static void Press(const char* window, const char* button) { The<QPushButton>(window, button).click(); }
    static void SetSeconds(int seconds) { The<QSpinBox>("TimerForm", "UpDown3").setValue(seconds); }

    QStringList Lines() const { return {Upper().Text(), Lower().Text()}; }
};

}  // namespace

/// What the main window's lines show when the windows of other functions write to them, and when the CD
/// player's position changes.
class TstMainWindowLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void AnIdleStopwatchShowsItsReadingAtTheNextTick();
    void AStoppedStopwatchShowsItsReadingAgain();
    void TheLinesOfTheShownFunctionComeBack_data();
    void TheLinesOfTheShownFunctionComeBack();
    void TheClockShowsItsTimeWithinASecond_data();
    void TheClockShowsItsTimeWithinASecond();
    void TheLastTextOfSeveralStaysTwoSeconds();
    void ALineThatChangedMeanwhileStays();
    void AnotherFunctionKeepsItsLines();
    void ALapOfTheShownStopwatchStays();
    void ThePlayersReadingIsShownWithin500Milliseconds();
    void APausedPlayersReadingBlinksOnceASecond();
};

void TstMainWindowLines::initTestCase() {
    InstallMainWindowAccessibility();
}

void TstMainWindowLines::AnIdleStopwatchShowsItsReadingAtTheNextTick() {
    Bench bench(2);
    bench.SetSeconds(33);
    QCOMPARE(bench.Lines(), (QStringList{u"ストップウォッチ"_s, u"0:00'33\"000"_s}));
    bench.time.Advance(1);
    QCOMPARE(bench.Lines(), (QStringList{u"ストップウォッチ"_s, u"0:00'00\"000"_s}));
    bench.SetSeconds(34);
    const QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&bench.Lower());
    QCOMPARE(line->text(QAccessible::Name), u"0:00'00\"000"_s);
    QCOMPARE(bench.Lower().Text(), u"0:00'00\"000"_s);  // a screen reader gets the shown text
}

/// Stopping the stopwatch stops its timer.
void TstMainWindowLines::AStoppedStopwatchShowsItsReadingAgain() {
    Bench bench(2);
    bench.Press("StopForm", "Command1");
    bench.time.Advance(1234);
    bench.Press("StopForm", "Command1");
    bench.SetSeconds(33);
    QCOMPARE(bench.Lower().Text(), u"0:00'33\"000"_s);
    bench.time.Advance(2000);
    QCOMPARE(bench.Lower().Text(), u"0:00'01\"234"_s);
}

void TstMainWindowLines::TheLinesOfTheShownFunctionComeBack_data() {
    QTest::addColumn<int>("function");
    QTest::addColumn<QString>("window");
    QTest::addColumn<QStringList>("lines");
    const QStringList timer{u"タイマー"_s, u"0:00'15\"000"_s};
    const QStringList stopwatch{u"ストップウォッチ"_s, u"0:00'00\"000"_s};
    QTest::newRow("usage time") << 1 << u"TimerForm"_s << timer;
    QTest::newRow("stopwatch") << 2 << u"TimerForm"_s << timer;
    QTest::newRow("timer") << 3 << u"StopForm"_s << stopwatch;
    QTest::newRow("battery") << 4 << u"TimerForm"_s << timer;
    QTest::newRow("memory") << 5 << u"TimerForm"_s << timer;
    QTest::newRow("memory, reset of the stopwatch") << 5 << u"StopForm"_s << stopwatch;
    QTest::newRow("CD player") << 6 << u"TimerForm"_s << timer;
}

void TstMainWindowLines::TheLinesOfTheShownFunctionComeBack() {
    QFETCH(int, function);
    QFETCH(QString, window);
    Bench bench(function);
    const QStringList before = bench.Lines();
    bench.Press(window.toLatin1().constData(), "Command2");
    QTEST(bench.Lines(), "lines");
    bench.time.Advance(1999);
    QCOMPARE(bench.Upper().Text() == before.first(), false);
    bench.time.Advance(1);
    QCOMPARE(bench.Upper().Text(), before.first());
    bench.time.Advance(1000);
    if (function == 1) {
        QCOMPARE(bench.Lower().Text(), u"05分24秒"_s);
    } else {
        QCOMPARE(bench.Lower().Text(), before.last());
    }
}

void TstMainWindowLines::TheClockShowsItsTimeWithinASecond_data() {
    QTest::addColumn<int>("language");
    QTest::newRow("Japanese") << 0;
    QTest::newRow("English") << 1;
    QTest::newRow("old style, which has no seconds") << 2;
}

void TstMainWindowLines::TheClockShowsItsTimeWithinASecond() {
    QFETCH(int, language);
    Bench bench(0, language);
    bench.time.Advance(10'000);
    const QString date = DateText(QDate(1998, 11, 15), language, 0, 0);
    bench.Press("TimerForm", "Command2");
    QCOMPARE(bench.Lines(), (QStringList{u"タイマー"_s, u"0:00'15\"000"_s}));
    bench.time.Advance(1000);
    QCOMPARE(bench.Lower().Text(), ClockText(bench.time.Now().time(), language, 0, 0));
    bench.time.Advance(9000);
    QCOMPARE(bench.Upper().Text(), date);
}

void TstMainWindowLines::TheLastTextOfSeveralStaysTwoSeconds() {
    Bench bench(5);
    bench.Press("TimerForm", "Command2");
    bench.time.Advance(1500);
    bench.Press("StopForm", "Command2");
    QCOMPARE(bench.Upper().Text(), u"ストップウォッチ"_s);
    bench.time.Advance(1999);
    QCOMPARE(bench.Upper().Text(), u"ストップウォッチ"_s);
    bench.time.Advance(1);
    QCOMPARE(bench.Upper().Text(), u"メモリー使用率"_s);
    bench.time.Advance(60'000);
    QCOMPARE(bench.Upper().Text(), u"メモリー使用率"_s);
}

void TstMainWindowLines::ALineThatChangedMeanwhileStays() {
    Bench bench(6);
    bench.Press("TimerForm", "Command2");
    bench.time.Advance(1000);
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    QCOMPARE(bench.Lines(), (QStringList{u"全トラック数 3"_s, u"[ Total ]    5:00"_s}));
    bench.time.Advance(1000);
    QCOMPARE(bench.Lines(), (QStringList{u"全トラック数 3"_s, u"[ Total ]    5:00"_s}));
}

void TstMainWindowLines::AnotherFunctionKeepsItsLines() {
    Bench bench(5);
    bench.Press("TimerForm", "Command2");
    bench.form->ChangeFunction(3);
    bench.time.Advance(2000);
    QCOMPARE(bench.Lines(), (QStringList{u"タイマー"_s, u"0:00'15\"000"_s}));
}

void TstMainWindowLines::ALapOfTheShownStopwatchStays() {
    Bench bench(2);
    bench.Press("StopForm", "Command1");
    bench.time.Advance(1000);
    bench.Press("StopForm", "Command2");
    bench.time.Advance(60'000);
    QCOMPARE(bench.Upper().Text(), u"Lapse1  0:00'01\"000"_s);
    bench.Press("TimerForm", "Command2");
    QCOMPARE(bench.Upper().Text(), u"タイマー"_s);
    bench.time.Advance(2000);
    QCOMPARE(bench.Upper().Text(), u"Lapse1  0:00'01\"000"_s);
}

void TstMainWindowLines::ThePlayersReadingIsShownWithin500Milliseconds() {
    Bench bench(6);
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    bench.media->Player().Command1_Click(2);
    bench.time.Advance(1000);
    bench.drive.SetMilliseconds(61'000);
    bench.time.Advance(499);
    QCOMPARE(bench.Lower().Text(), u"[ 1 ]    0:00"_s);
    bench.time.Advance(1);
    QCOMPARE(bench.Lower().Text(), u"[ 1 ]    1:01"_s);
}

void TstMainWindowLines::APausedPlayersReadingBlinksOnceASecond() {
    Bench bench(6);
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    bench.media->Player().Command1_Click(2);
    bench.time.Advance(1000);
    bench.media->Player().Command1_Click(3);
    for (int half = 0; half < 6; ++half) {
        bench.time.Advance(500);
        QCOMPARE(bench.Lower().Text().isEmpty(), half % 2 == 0);
    }
}

QTEST_MAIN(TstMainWindowLines)
#include "tst_main_window_lines.moc"
