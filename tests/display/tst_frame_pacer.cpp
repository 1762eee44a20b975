// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "display/frame_pacer.h"
#include "platform/virtual_time.h"

using namespace tickwell;

namespace {

/// Counts how often it was painted.
class PaintCounter : public QWidget {
public:
    int Painted() const { return m_painted; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++m_painted; }

private:
    int m_painted = 0;
};

QDateTime Start() {
    return QDateTime(QDate(1998, 10, 3), QTime(12, 0));
}

}  // namespace

/// Paints, at most sixty a second.
class TstFramePacer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AChangeAfterAPauseIsPaintedAtOnceWithoutATimer();
    void AChangeThatComesTooEarlyWaitsForItsFrame();
    void AThousandChangesASecondArePaintedAtMostSixtyTimes();
    void AForgottenWidgetIsLeftAlone();
};

void TstFramePacer::AChangeAfterAPauseIsPaintedAtOnceWithoutATimer() {
    VirtualTime time(Start());
    FramePacer pacer(time, time);
    PaintCounter widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCoreApplication::processEvents();
    const int before = widget.Painted();
    time.Advance(1000);
    pacer.Request(widget);
    QCOMPARE(time.UntilNext(), std::nullopt);
    QTRY_COMPARE(widget.Painted(), before + 1);
}

void TstFramePacer::AChangeThatComesTooEarlyWaitsForItsFrame() {
    VirtualTime time(Start());
    FramePacer pacer(time, time);
    PaintCounter widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    time.Advance(1000);
    pacer.Request(widget);
    QCoreApplication::processEvents();
    const int before = widget.Painted();
    time.Advance(5);
    pacer.Request(widget);
    pacer.Request(widget);
    QCoreApplication::processEvents();
    QCOMPARE(widget.Painted(), before);
    QCOMPARE(time.UntilNext(), std::optional<qint64>(12));  // 17 ms after the last paint
    time.Advance(12);
    QTRY_COMPARE(widget.Painted(), before + 1);
    QCOMPARE(time.UntilNext(), std::nullopt);
}

void TstFramePacer::AThousandChangesASecondArePaintedAtMostSixtyTimes() {
    VirtualTime time(Start());
    FramePacer pacer(time, time);
    PaintCounter widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCoreApplication::processEvents();
    const int before = widget.Painted();
    for (int ms = 0; ms < 1000; ++ms) {
        time.Advance(1);
        pacer.Request(widget);
        QCoreApplication::processEvents();
    }
    const int painted = widget.Painted() - before;
    QVERIFY2(painted <= 60 && painted >= 50, qPrintable(QString::number(painted)));
}

void TstFramePacer::AForgottenWidgetIsLeftAlone() {
    VirtualTime time(Start());
    FramePacer pacer(time, time);
    auto widget = std::make_unique<PaintCounter>();
    pacer.Request(*widget);
    pacer.Forget(*widget);
    widget.reset();
    time.Advance(100);  // would touch freed memory
    QCOMPARE(time.UntilNext(), std::nullopt);
}

QTEST_MAIN(TstFramePacer)
#include "tst_frame_pacer.moc"
