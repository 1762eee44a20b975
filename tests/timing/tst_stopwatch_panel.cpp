// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "support/further_flags.h"
#include "timing/hand_time.h"
#include "timing/journal.h"
#include "timing/stopwatch_panel.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    HandTime time;
    Journal journal;
    JournalLine upper{journal, u"upper"_s};
    JournalLine lower{journal, u"lower"_s};
    JournalFunctions functions{journal};
    std::unique_ptr<Timer> Timer1 = time.Create(1, [] {});
    StopwatchState state;
    Stopwatch stopwatch{state, time};
    FurtherSettings further;
    StopwatchPanel panel{{.stopwatch = stopwatch,
                          .lines = {.upper = upper, .lower = lower},
                          .functions = functions,
                          .readingTimer = *Timer1,
                          .further = further}};

    Bench() {
        time.since = 307'000;
        functions.shown = kFunctionStopwatch;
        panel.Load();
    }
    /// 1 and 2 press the buttons; a dot advances time by 1000 ms.
    void Play(QStringView script) {
        for (const QChar step : script) {
            if (step == u'1') {
                panel.StartOrStop();
            } else if (step == u'2') {
                panel.LapOrReset();
            } else {
                time.since += 1000;
            }
        }
    }
    Journal Take() { return std::exchange(journal, {}); }
};

}  // namespace

/// The list and the buttons of the stopwatch window.
class TstStopwatchPanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheCaptionsSayWhatTheButtonsWillDo();
    void TheListAndTheLines_data();
    void TheListAndTheLines();
    void StartingUnderAnotherFunctionSwitchesToTheStopwatch();
    void StoppingUnderAnotherFunctionWritesTheLine();
    void TheTimerRunsWithTheStopwatch();
    void TheListOutlivesTheClosedWindow();
    void TheKeptListIsCopiedOnlyAtClosing();
    void ResetEmptiesTheKeptListToo();
    void ALapThatOverflowsDoesNotCount();
    void AfterAStopThatOverflowsItCanBeReset();
    void OnlyAReplacedListHasAnotherNumber();
    void OnlyItsSwitchWritesIntervals_data();
    void OnlyItsSwitchWritesIntervals();
    void AListWithIntervals_data();
    void AListWithIntervals();
    void TheSwitchTakesEffectAtTheLap();
    void IntervalsOutliveTheClosedWindow();
};

void TstStopwatchPanel::TheCaptionsSayWhatTheButtonsWillDo() {
    Bench bench;
    QCOMPARE(bench.panel.Captions().startOrStop, u"スタート");
    QCOMPARE(bench.panel.Captions().lapOrReset, u"リセット");
    bench.Play(u"1");
    QCOMPARE(bench.panel.Captions().startOrStop, u"ストップ");
    QCOMPARE(bench.panel.Captions().lapOrReset, u"ラップ");
    bench.Play(u"1");
    QCOMPARE(bench.panel.Captions().startOrStop, u"スタート");
    QCOMPARE(bench.panel.Captions().lapOrReset, u"リセット");
}

void TstStopwatchPanel::TheListAndTheLines_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QStringList>("lines");  // written by the last step
    QTest::newRow("a start writes nothing") << u"1"_s << u""_s << QStringList();
    QTest::newRow("a list that starts with a stop begins with an empty line, on purpose")
        << u"1.1"_s << u"\r\n【Stop】 0:00'01\"000"_s << QStringList{u"lower set 0:00'01\"000"_s};
    QTest::newRow("the second reading continues the first")
        << u"1.1.1.1"_s << u"\r\n【Stop】 0:00'01\"000\r\n【Stop】 0:00'02\"000"_s
        << QStringList{u"lower set 0:00'02\"000"_s};
    QTest::newRow("the first lap replaces the list")
        << u"1.11.2"_s << u"Lapse1  0:00'02\"000"_s << QStringList{u"upper show Lapse1  0:00'02\"000"_s};
    QTest::newRow("the second lap is appended, and wipes nothing")
        << u"1.2.2"_s << u"Lapse1  0:00'01\"000\r\nLapse2  0:00'02\"000"_s
        << QStringList{u"upper set Lapse2  0:00'02\"000"_s};
    QTest::newRow("the third lap is counted from the start")
        << u"1.2.2.2"_s << u"Lapse1  0:00'01\"000\r\nLapse2  0:00'02\"000\r\nLapse3  0:00'03\"000"_s
        << QStringList{u"upper set Lapse3  0:00'03\"000"_s};
    QTest::newRow("a stop after laps") << u"1.2.1"_s << u"Lapse1  0:00'01\"000\r\n【Stop】 0:00'02\"000"_s
                                       << QStringList{u"lower set 0:00'02\"000"_s};
    QTest::newRow("a reset empties the list")
        << u"1.2.12"_s << u""_s
        << QStringList{u"upper show ストップウォッチ"_s, u"lower show 0:00'00\"000"_s};
    QTest::newRow("the first lap after a reset replaces the stop before it")
        << u"1.2.121.1.1.2"_s << u"Lapse1  0:00'02\"000"_s
        << QStringList{u"upper show Lapse1  0:00'02\"000"_s};
}

void TstStopwatchPanel::TheListAndTheLines() {
    QFETCH(QString, script);
    Bench bench;
    bench.Play(QStringView(script).chopped(1));
    bench.Take();
    bench.Play(QStringView(script).last(1));
    QTEST(bench.panel.List(), "list");
    QTEST(bench.Take(), "lines");
}

void TstStopwatchPanel::StartingUnderAnotherFunctionSwitchesToTheStopwatch() {
    Bench bench;
    bench.functions.shown = kFunctionClock;
    bench.Play(u"1");
    QCOMPARE(bench.Take(), Journal{u"function 2"_s});
    QVERIFY(bench.Timer1->IsRunning());
}

void TstStopwatchPanel::StoppingUnderAnotherFunctionWritesTheLine() {
    Bench bench;
    bench.Play(u"1.");
    bench.functions.shown = kFunctionClock;
    bench.Take();
    bench.Play(u"2.12");
    QCOMPARE(bench.Take(), (Journal{u"upper show Lapse1  0:00'01\"000"_s, u"lower set 0:00'02\"000"_s,
                                    u"upper show ストップウォッチ"_s, u"lower show 0:00'00\"000"_s}));
}

void TstStopwatchPanel::TheTimerRunsWithTheStopwatch() {
    Bench bench;
    bench.Play(u"1");
    QVERIFY(bench.Timer1->IsRunning());
    bench.Play(u"2");
    QVERIFY(bench.Timer1->IsRunning());
    bench.panel.Unload();
    QVERIFY(bench.Timer1->IsRunning());
    bench.Play(u"1");
    QVERIFY(!bench.Timer1->IsRunning());
}

void TstStopwatchPanel::TheListOutlivesTheClosedWindow() {
    Bench bench;
    bench.Play(u"1.2.2");
    bench.panel.Unload();
    bench.time.since += 60'000;
    bench.panel.Load();
    QCOMPARE(bench.panel.List(), u"Lapse1  0:00'01\"000\r\nLapse2  0:00'02\"000"_s);
    QCOMPARE(bench.panel.Captions().startOrStop, u"ストップ");
    QCOMPARE(bench.panel.Captions().lapOrReset, u"ラップ");
    bench.Play(u"2");
    QCOMPARE(bench.panel.List(), u"Lapse1  0:00'01\"000\r\nLapse2  0:00'02\"000\r\nLapse3  0:01'02\"000"_s);
}

void TstStopwatchPanel::TheKeptListIsCopiedOnlyAtClosing() {
    Bench bench;
    bench.Play(u"1.1");
    QCOMPARE(bench.state.StopwatchLapText, QString());
    bench.panel.Unload();
    QCOMPARE(bench.state.StopwatchLapText, u"\r\n【Stop】 0:00'01\"000"_s);
}

void TstStopwatchPanel::ResetEmptiesTheKeptListToo() {
    Bench bench;
    bench.Play(u"1.1");
    bench.panel.Unload();
    bench.panel.Load();
    bench.Play(u"2");
    QCOMPARE(bench.panel.List(), QString());
    QCOMPARE(bench.state.StopwatchLapText, QString());
    QCOMPARE(bench.upper.Text(), u"ストップウォッチ"_s);
    QCOMPARE(bench.lower.Text(), u"0:00'00\"000"_s);
}

void TstStopwatchPanel::ALapThatOverflowsDoesNotCount() {
    Bench bench;
    bench.time.since = (qint64{1} << 31) - 2000;
    bench.Play(u"1.2");
    const QString list = bench.panel.List();
    bench.Take();
    bench.time.since += 5000;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.panel.LapOrReset());
    QVERIFY(bench.state.StopwatchRunning);
    QVERIFY(bench.Timer1->IsRunning());
    QCOMPARE(bench.state.StopwatchLapCount, 1);
    QCOMPARE(bench.panel.List(), list);
    QVERIFY(bench.Take().isEmpty());
}

void TstStopwatchPanel::AfterAStopThatOverflowsItCanBeReset() {
    Bench bench;
    bench.time.since = (qint64{1} << 31) - 2000;
    bench.Play(u"1.2");
    const QString list = bench.panel.List();
    bench.Take();
    bench.time.since += 5000;
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.panel.StartOrStop());
    QVERIFY(!bench.Timer1->IsRunning());
    QCOMPARE(bench.panel.Captions().lapOrReset, u"リセット");
    QCOMPARE(bench.panel.List(), list);
    QVERIFY(bench.Take().isEmpty());
    bench.Play(u"2");
    QCOMPARE(bench.panel.List(), QString());
    QCOMPARE(bench.Take(), (Journal{u"upper show ストップウォッチ"_s, u"lower show 0:00'00\"000"_s}));
}

void TstStopwatchPanel::OnlyAReplacedListHasAnotherNumber() {
    Bench bench;
    QList<int> numbers;
    for (const QStringView step : {u"", u"1", u".1", u"1.2", u".2", u".1", u"2"}) {
        bench.Play(step);
        numbers.append(bench.panel.ListNumber());
    }
    // start, stop, first lap, second lap, stop, reset
    QCOMPARE(numbers[1], numbers[0]);
    QCOMPARE(numbers[2], numbers[1]);
    QVERIFY(numbers[3] != numbers[2]);
    QCOMPARE(numbers[4], numbers[3]);
    QCOMPARE(numbers[5], numbers[4]);
    QVERIFY(numbers[6] != numbers[5]);
    bench.panel.Load();
    QVERIFY(bench.panel.ListNumber() != numbers[6]);
}

void TstStopwatchPanel::OnlyItsSwitchWritesIntervals_data() {
    AddRowOfEachFlag();
}

void TstStopwatchPanel::OnlyItsSwitchWritesIntervals() {
    QFETCH(FurtherSettings, further);
    Bench bench;
    bench.further = further;
    bench.Play(u"1.2..2.1");
    const bool writes = QTest::currentDataTag() == QByteArray("LapIntervals");
    QCOMPARE(bench.panel.List(),
             writes ? u"Lapse1  0:00'01\"000  (+0:00'01\"000)\r\nLapse2  0:00'03\"000  (+0:00'02\"000)\r\n"
                      "【Stop】 0:00'04\"000"_s
                    : u"Lapse1  0:00'01\"000\r\nLapse2  0:00'03\"000\r\n【Stop】 0:00'04\"000"_s);
    QCOMPARE(bench.Take().mid(0, 2),  // the lower line has no interval
             (Journal{u"upper show Lapse1  0:00'01\"000"_s, u"upper set Lapse2  0:00'03\"000"_s}));
}

void TstStopwatchPanel::AListWithIntervals_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("list");
    QTest::newRow("the first lap replaces a stop, and counts its time")
        << u"1.1...1.2"_s << u"Lapse1  0:00'02\"000  (+0:00'02\"000)"_s;
    QTest::newRow("a pause does not count")
        << u"1.2.1....1.2"_s
        << u"Lapse1  0:00'01\"000  (+0:00'01\"000)\r\n【Stop】 0:00'02\"000\r\n"
           "Lapse2  0:00'03\"000  (+0:00'02\"000)"_s;
    QTest::newRow("a cleared list starts afresh")
        << u"1.2.12.1..2"_s << u"Lapse1  0:00'02\"000  (+0:00'02\"000)"_s;
}

void TstStopwatchPanel::AListWithIntervals() {
    QFETCH(const QString, script);
    Bench bench;
    bench.further.corrections.lapIntervals = true;
    bench.Play(script);
    QTEST(bench.panel.List(), "list");
}

void TstStopwatchPanel::TheSwitchTakesEffectAtTheLap() {
    Bench bench;
    bench.Play(u"1.2");
    bench.further.corrections.lapIntervals = true;
    bench.Play(u"...2");
    bench.further.corrections.lapIntervals = false;
    bench.Play(u".2");
    QCOMPARE(bench.panel.List(),
             u"Lapse1  0:00'01\"000\r\nLapse2  0:00'04\"000  (+0:00'03\"000)\r\nLapse3  0:00'05\"000"_s);
}

void TstStopwatchPanel::IntervalsOutliveTheClosedWindow() {
    Bench bench;
    bench.further.corrections.lapIntervals = true;
    bench.Play(u"1.2");
    bench.panel.Unload();
    bench.further.corrections.lapIntervals = false;
    bench.time.since += 65'200;
    bench.panel.Load();
    bench.further.corrections.lapIntervals = true;
    bench.Play(u"2");
    QCOMPARE(bench.panel.List(),
             u"Lapse1  0:00'01\"000  (+0:00'01\"000)\r\nLapse2  0:01'06\"200  (+0:01'05\"200)"_s);
}

QTEST_GUILESS_MAIN(TstStopwatchPanel)
#include "tst_stopwatch_panel.moc"
