// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/disc/cd_stretch.h"

using namespace tickwell;
using namespace tickwell::platform;

namespace {

const media::CdContents kTones{{{0, true}, {321, true}, {548, true}}, 931};
const media::CdContents kDataFirst{{{0, false}, {450, true}, {650, true}}, 900};
const media::CdContents kDataBetween{{{0, true}, {100, false}, {200, true}}, 300};
const media::CdContents kDataLast{{{0, true}, {100, false}}, 200};
const media::CdContents kLateStart{{{33, true}}, 90};

constexpr qint64 Frames(qint64 sectors) {
    return sectors * media::kFramesPerSector;
}

}  // namespace

/// The audio of a range of a disc, and positions while it is played.
class TstCdStretch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RangesHaveTheirRuns_data();
    void RangesHaveTheirRuns();
    void PositionsJumpOverData_data();
    void PositionsJumpOverData();
};

void TstCdStretch::RangesHaveTheirRuns_data() {
    QTest::addColumn<media::CdContents>("contents");
    QTest::addColumn<qint64>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<CdRun>>("runs");
    const auto row = [](const char* name, const media::CdContents& contents, qint64 from, int to,
                        const QList<CdRun>& runs) { QTest::newRow(name) << contents << from << to << runs; };
    row("tracks side by side are one", kTones, 0, 931, {{0, Frames(931)}});
    row("from inside a sector", kTones, Frames(321) + 7, 548, {{Frames(321) + 7, Frames(548)}});
    row("data first", kDataFirst, 0, 900, {{Frames(450), Frames(900)}});
    row("data between", kDataBetween, Frames(50), 250,
        {{Frames(50), Frames(100)}, {Frames(200), Frames(250)}});
    row("data last", kDataLast, 0, 200, {{0, Frames(100)}});
    row("only data", kDataLast, Frames(120), 200, {});
    row("sound before the first track", kLateStart, 0, 90, {{0, Frames(90)}});
    row("nothing", kTones, Frames(100), 100, {});
    row("from after to", kTones, Frames(200), 100, {});
}

void TstCdStretch::RangesHaveTheirRuns() {
    QFETCH(media::CdContents, contents);
    QFETCH(qint64, from);
    QFETCH(int, to);
    QFETCH(QList<CdRun>, runs);
    const CdStretch stretch(contents, from, to);
    QVERIFY(stretch.Runs() == runs);
    QCOMPARE(stretch.End(), Frames(to));
}

void TstCdStretch::PositionsJumpOverData_data() {
    QTest::addColumn<qint64>("sounded");
    QTest::addColumn<qint64>("position");
    QTest::newRow("at the start") << qint64{0} << Frames(50) + 3;
    QTest::newRow("in the first run") << qint64{10} << Frames(50) + 13;
    QTest::newRow("at its last frame") << Frames(50) - 4 << Frames(100) - 1;
    QTest::newRow("when it is over") << Frames(50) - 3 << Frames(200);
    QTest::newRow("in the second one") << Frames(50) << Frames(200) + 3;
    QTest::newRow("at the end") << Frames(100) - 3 << Frames(250);
}

void TstCdStretch::PositionsJumpOverData() {
    QFETCH(qint64, sounded);
    QFETCH(qint64, position);
    QCOMPARE(CdStretch(kDataBetween, Frames(50) + 3, 250).PositionAfter(sounded), position);
}

QTEST_GUILESS_MAIN(TstCdStretch)
#include "tst_cd_stretch.moc"
