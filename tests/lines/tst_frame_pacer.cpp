// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/frame_pacer.h"
#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::lines;

namespace {

/// Counts how often it was painted.
class PaintCounter : public QWidget {
public:
    int Painted() const { return m_painted; }

protected:
    void paintEvent(QPaintEvent* event) override {
        ++m_painted;
        part = event->region();
    }

public:
    QRegion part;  ///< what was painted last

private:
    int m_painted = 0;
};

/// A widget on the screen, painted for the first time, and a pacer that has been idle for a second.
struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FramePacer pacer{time, time};
    PaintCounter widget;
    int atStart = 0;

    void Start() {
        widget.setAttribute(Qt::WA_OpaquePaintEvent);
        widget.setFixedSize(100, 50);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QCoreApplication::processEvents();
        time.Advance(1000);
        atStart = widget.Painted();
    }
    int Painted() const { return widget.Painted() - atStart; }
};

}  // namespace

/// Limits repaints to sixty a second.
class TstFramePacer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AChangeAfterAPauseIsPaintedAtOnceWithoutATimer();
    void AChangeThatComesTooEarlyWaitsForItsFrame();
    void AThousandChangesASecondArePaintedAtMostSixtyTimes();
    void AForgottenWidgetIsLeftAlone();
    void PartsOfOneFrameArePaintedTogetherAndNothingElse();
    void OutOfSightNothingIsPaintedAndBackAllThatChanged();
};

void TstFramePacer::AChangeAfterAPauseIsPaintedAtOnceWithoutATimer() {
    Bench bench;
    bench.Start();
    bench.pacer.Request(bench.widget);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    QTRY_COMPARE(bench.Painted(), 1);
}

void TstFramePacer::AChangeThatComesTooEarlyWaitsForItsFrame() {
    Bench bench;
    bench.Start();
    bench.pacer.Request(bench.widget);
    QTRY_COMPARE(bench.Painted(), 1);
    bench.time.Advance(5);
    bench.pacer.Request(bench.widget);
    bench.pacer.Request(bench.widget);
    QCoreApplication::processEvents();
    QCOMPARE(bench.Painted(), 1);
    QCOMPARE(bench.time.UntilNext(), std::optional<qint64>(12));  // 17 ms after the last paint
    bench.time.Advance(12);
    QTRY_COMPARE(bench.Painted(), 2);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstFramePacer::AThousandChangesASecondArePaintedAtMostSixtyTimes() {
    Bench bench;
    bench.Start();
    for (int ms = 0; ms < 1000; ++ms) {
        bench.time.Advance(1);
        bench.pacer.Request(bench.widget);
        QCoreApplication::processEvents();
    }
    QVERIFY2(bench.Painted() <= 60 && bench.Painted() >= 50, qPrintable(QString::number(bench.Painted())));
}

void TstFramePacer::AForgottenWidgetIsLeftAlone() {
    platform::VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)));
    FramePacer pacer(time, time);
    auto widget = std::make_unique<PaintCounter>();
    pacer.Request(*widget);
    pacer.Request(*widget);  // waits for its frame
    pacer.Forget(*widget);
    widget.reset();
    time.Advance(100);  // a request that was kept would access the deleted widget
    QCOMPARE(time.UntilNext(), std::nullopt);
}

void TstFramePacer::PartsOfOneFrameArePaintedTogetherAndNothingElse() {
    Bench bench;
    bench.Start();
    bench.pacer.Request(bench.widget, QRect(0, 0, 10, 50));
    QTRY_COMPARE(bench.Painted(), 1);
    QCOMPARE(bench.widget.part, QRegion(0, 0, 10, 50));
    bench.pacer.Request(bench.widget, QRect(10, 0, 10, 50));
    bench.pacer.Request(bench.widget, QRect(20, 0, 10, 50));
    bench.time.Advance(17);
    QTRY_COMPARE(bench.Painted(), 2);
    QCOMPARE(bench.widget.part, QRegion(10, 0, 20, 50));
}

void TstFramePacer::OutOfSightNothingIsPaintedAndBackAllThatChanged() {
    Bench bench;
    bench.Start();
    bench.pacer.SetSeen(false);
    QVERIFY(bench.pacer.UntilFrame() >= 60'000);
    bench.pacer.Request(bench.widget, QRect(0, 0, 10, 50));
    bench.time.Advance(1000);
    bench.pacer.Request(bench.widget, QRect(90, 0, 10, 50));
    bench.time.Advance(1000);
    QCoreApplication::processEvents();
    QCOMPARE(bench.Painted(), 0);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.pacer.SetSeen(true);
    QCOMPARE(bench.pacer.UntilFrame(), 17);
    QTRY_COMPARE(bench.Painted(), 1);
    QCOMPARE(bench.widget.part, QRegion(0, 0, 10, 50) + QRegion(90, 0, 10, 50));
}

QTEST_MAIN(TstFramePacer)
#include "tst_frame_pacer.moc"
