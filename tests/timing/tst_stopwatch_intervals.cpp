// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include "lines/line_look.h"
#include "support/child.h"
#include "support/further_flags.h"
#include "timing/timing_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct Bench : public TimingBench {
    explicit Bench(bool withIntervals = false) { further.corrections.lapIntervals = withIntervals; }

    StopForm& Form() const { return The<StopForm>(); }
    QPlainTextEdit& List() const { return The<StopForm, QPlainTextEdit>("Text1"); }
    /// Takes laps of all lengths, more than fit into the visible list.
    void TakeLaps() {
        Press<StopForm>("Command1");
        for (int lap = 0; lap < 20; ++lap) {
            time.Suspend(lap == 10 ? 10 * 3'600'000 : 61'234);
            Press<StopForm>("Command2");
        }
        QCoreApplication::processEvents();
    }
    bool IsAllVisible() const { return List().horizontalScrollBar()->maximum() == 0; }
};

}  // namespace

/// The intervals of laps in the stopwatch window.
class TstStopwatchIntervals : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TheListIsWideEnough();
    void OnlyItsSwitchWidensTheList_data();
    void OnlyItsSwitchWidensTheList();
    void TheWindowIsPlacedWithItsWidth_data();
    void TheWindowIsPlacedWithItsWidth();
    void AnOpenWindowGrowsAndStaysOnTheScreen();
    void AWindowThatNeedNotGrowStaysWhereItIs();
    void TheListIsWideAsLongAsItHasIntervals();
    void TheReportHasThemAsAColumn();

private:
    int m_plainWidth = 0;  // of the list without intervals
};

void TstStopwatchIntervals::initTestCase() {
    lines::InstallFontSubstitutes();
    Bench bench;
    bench.tools.ShowStopForm();
    m_plainWidth = bench.List().minimumWidth();
}

void TstStopwatchIntervals::TheListIsWideEnough() {
    Bench bench(true);
    bench.tools.ShowStopForm();
    bench.TakeLaps();
    QVERIFY(bench.List().toPlainText().contains(u"Lapse11  10:10'12\"340  (+10:00'00\"000)"_s));
    QVERIFY(bench.List().verticalScrollBar()->isVisible());
    QVERIFY(bench.IsAllVisible());
}

void TstStopwatchIntervals::OnlyItsSwitchWidensTheList_data() {
    AddRowOfEachFlag();
}

void TstStopwatchIntervals::OnlyItsSwitchWidensTheList() {
    QFETCH(FurtherSettings, further);
    Bench bench;
    bench.further = further;
    bench.tools.ShowStopForm();
    const bool isWide = QTest::currentDataTag() == QByteArray("LapIntervals");
    QCOMPARE(bench.List().minimumWidth() > m_plainWidth, isWide);
    QVERIFY(isWide || bench.List().minimumWidth() == m_plainWidth);
}

void TstStopwatchIntervals::TheWindowIsPlacedWithItsWidth_data() {
    QTest::addColumn<bool>("isFirst");
    QTest::newRow("opened for the first time") << true;
    QTest::newRow("opened again") << false;
}

void TstStopwatchIntervals::TheWindowIsPlacedWithItsWidth() {
    QFETCH(const bool, isFirst);
    Bench bench(isFirst);
    bench.tools.ShowStopForm();
    if (!isFirst) {
        const int before = bench.Form().width();
        QCOMPARE(bench.placedWidth, before);
        QVERIFY(bench.Form().close());
        bench.further.corrections.lapIntervals = true;
        bench.tools.ShowStopForm();
        QVERIFY(bench.Form().width() > before);
    }
    QCOMPARE(bench.placedWidth, bench.Form().width());
    QVERIFY(bench.List().minimumWidth() > m_plainWidth);
}

void TstStopwatchIntervals::AnOpenWindowGrowsAndStaysOnTheScreen() {
    Bench bench;
    bench.tools.ShowStopForm();
    const QRect room = bench.Form().screen()->availableGeometry();
    bench.Form().move(room.right() + 1 - bench.Form().width(), room.top() + 50);
    const int before = bench.Form().width();
    bench.further.corrections.lapIntervals = true;
    bench.TakeLaps();
    QVERIFY(bench.Form().width() > before);
    QVERIFY(bench.IsAllVisible());
    QCOMPARE(bench.Form().frameGeometry().right(), room.right());
    QCOMPARE(bench.Form().frameGeometry().top(), room.top() + 50);
}

/// The user may have moved the window partly off the screen; only growing moves it back.
void TstStopwatchIntervals::AWindowThatNeedNotGrowStaysWhereItIs() {
    Bench bench(true);
    bench.tools.ShowStopForm();
    const QRect room = bench.Form().screen()->availableGeometry();
    bench.Form().move(room.right() - 50, room.top());
    bench.TakeLaps();
    QCOMPARE(bench.Form().x(), room.right() - 50);
}

void TstStopwatchIntervals::TheListIsWideAsLongAsItHasIntervals() {
    Bench bench(true);
    bench.tools.ShowStopForm();
    bench.TakeLaps();
    QVERIFY(bench.Form().close());
    bench.further.corrections.lapIntervals = false;
    bench.tools.ShowStopForm();
    QCoreApplication::processEvents();
    QVERIFY(bench.IsAllVisible());
    QVERIFY(bench.List().minimumWidth() > m_plainWidth);
    bench.Press<StopForm>("Command1");
    bench.Press<StopForm>("Command2");  // resets
    QVERIFY(bench.Form().close());
    bench.tools.ShowStopForm();
    QCOMPARE(bench.List().minimumWidth(), m_plainWidth);
}

void TstStopwatchIntervals::TheReportHasThemAsAColumn() {
    Bench bench(true);
    bench.tools.ShowStopForm();
    bench.TakeLaps();
    bench.Press<StopForm>("Command3");
    bench.boxes.Answer(true);
    QCOMPARE(bench.printer.jobs.first().lines.mid(6, 3),
             (QStringList{u"<<ラップ/経歴一覧表>>"_s, u"Lapse1  0:01'01\"234\t(+0:01'01\"234)"_s,
                          u"Lapse2  0:02'02\"468\t(+0:01'01\"234)"_s}));
}

QTEST_MAIN(TstStopwatchIntervals)
#include "tst_stopwatch_intervals.moc"
