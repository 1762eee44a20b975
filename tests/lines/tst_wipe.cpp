// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRegion>
#include <QTest>

#include "lines/wipe.h"

using namespace tickwell;
using namespace tickwell::lines;

/// The position of a wipe's edge, frame by frame.
class TstWipe : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ThePartsAreWhereTheyShouldBe_data();
    void ThePartsAreWhereTheyShouldBe();
    void TheWholeWayInFrames_data();
    void TheWholeWayInFrames();
    void BothPartsMakeTheLineAtEveryPosition();
    void AnUnknownKindIsOverAtOnce();
    void AStepBelowOneCountsAsOne();
    void AStepLargerThanTheLineArrives();
    void ALineThatShrinksMeanwhileArrives();
};

void TstWipe::ThePartsAreWhereTheyShouldBe_data() {
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QRect>("newPart");
    QTest::addColumn<QRect>("oldPart");
    // A line of 100 x 20 with the edge advanced by 12 pixels.
    QTest::newRow("left to right") << 0 << QRect(0, 0, 12, 20) << QRect(12, 0, 88, 20);
    QTest::newRow("right to left") << 1 << QRect(88, 0, 12, 20) << QRect(0, 0, 88, 20);
    QTest::newRow("top to bottom") << 2 << QRect(0, 0, 100, 12) << QRect(0, 12, 100, 8);
    QTest::newRow("bottom to top") << 3 << QRect(0, 8, 100, 12) << QRect(0, 0, 100, 8);
    QTest::newRow("unknown") << 9 << QRect(0, 0, 100, 20) << QRect();
}

void TstWipe::ThePartsAreWhereTheyShouldBe() {
    QFETCH(qint32, kind);
    QFETCH(QRect, newPart);
    QFETCH(QRect, oldPart);
    const Wipe wipe{kind, 12};
    QCOMPARE(wipe.NewPart(QSize(100, 20)), newPart);
    QCOMPARE(wipe.OldPart(QSize(100, 20)), oldPart);
}

void TstWipe::TheWholeWayInFrames_data() {
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("frames");
    // ceil(length / step): the edge moves 100 pixels across or 20 down.
    QTest::newRow("across by 4") << 0 << 4 << 25;
    QTest::newRow("across by 3") << 1 << 3 << 34;
    QTest::newRow("down by 4") << 2 << 4 << 5;
    QTest::newRow("up by 7") << 3 << 7 << 3;
}

void TstWipe::TheWholeWayInFrames() {
    QFETCH(qint32, kind);
    QFETCH(int, step);
    QFETCH(int, frames);
    Wipe wipe{kind, 0};
    int count = 1;
    while (wipe.Advance(step, QSize(100, 20))) {
        ++count;
    }
    QCOMPARE(count, frames);
    QCOMPARE(wipe.NewPart(QSize(100, 20)), QRect(0, 0, 100, 20));
    QVERIFY(wipe.OldPart(QSize(100, 20)).isEmpty());
}

void TstWipe::BothPartsMakeTheLineAtEveryPosition() {
    const QSize line(37, 11);
    for (qint32 kind = 0; kind < 4; ++kind) {
        for (int position = 0; position <= 40; ++position) {
            const Wipe wipe{kind, position};
            const QRegion together = QRegion(wipe.NewPart(line)) + wipe.OldPart(line);
            QCOMPARE(together, QRegion(QRect(QPoint(0, 0), line)));
            QVERIFY(!wipe.NewPart(line).intersects(wipe.OldPart(line)));
        }
    }
}

void TstWipe::AnUnknownKindIsOverAtOnce() {
    Wipe wipe{4, 0};
    QCOMPARE(wipe.Length(QSize(100, 20)), 0);
    QVERIFY(!wipe.Advance(4, QSize(100, 20)));
}

void TstWipe::AStepBelowOneCountsAsOne() {
    for (const int step : {0, -5}) {
        Wipe wipe{2, 0};
        QVERIFY(wipe.Advance(step, QSize(100, 20)));
        QCOMPARE(wipe.position, 1);
    }
}

void TstWipe::AStepLargerThanTheLineArrives() {
    Wipe wipe{2, 19};
    QVERIFY(!wipe.Advance(2147483647, QSize(100, 20)));
    QCOMPARE(wipe.position, 20);
}

void TstWipe::ALineThatShrinksMeanwhileArrives() {
    Wipe wipe{0, 90};
    QVERIFY(!wipe.Advance(4, QSize(50, 20)));
    QCOMPARE(wipe.NewPart(QSize(50, 20)), QRect(0, 0, 50, 20));
}

QTEST_GUILESS_MAIN(TstWipe)
#include "tst_wipe.moc"
