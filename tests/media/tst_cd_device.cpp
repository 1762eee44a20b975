// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_device.h"
#include "media/cd_lines_bench.h"
#include "support/fake_command_strings.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

/// Only the device; the test answers its commands.
struct Bench {
    FakeCommandStrings devices;
    FakeMessageBoxes boxes;
    MediaState state;
    Multimedia media{devices, boxes, state};
    bool tellsNoDrive = true;
    int stored = 0;  // number of times the setting was stored
    QString named;
    CdDevice device{media, {.isWanted = tellsNoDrive, .silenced = [this] { ++stored; }, .named = named}};

    explicit Bench(const QString& disc = {}) : named(disc) {
        devices.texts = {{263, u"開かれていません"_s}, {266, u"ドライブなし"_s}, {293, u"形式"_s}};
    }
    void TakeDriveAway() {
        devices.results.insert(u"open cdaudio alias CDP"_s, {266, {}});
        devices.results.insert(u"set CDP time format milliseconds"_s, {263, {}});
    }
};

}  // namespace

/// The CD drive at program start and end.
class TstCdDevice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItIsOpenedWithTimesInMilliseconds();
    void WithoutADriveOnlyTheTimeFormatIsReported();
    void ADiscThatIsNotThereIsNamedBelow();
    void TheNoticeCanBeSwitchedOff();
    void TheNoticeClosedWithoutATickComesAgain();
    void ASwitchedOffNoticeStaysAway();
    void ARefusedFormatIsReportedEvenThen();
    void RetriesAreSilent();
    void ClosingStopsFirstAndIsSilent();
    void WithoutADriveTheStartGoesOn();
    void ClosingTouchesNoLine();
};

void TstCdDevice::ItIsOpenedWithTimesInMilliseconds() {
    Bench bench;
    bench.device.OpenAtStart();
    QCOMPARE(bench.devices.sent,
             (QStringList{u"open cdaudio alias CDP"_s, u"set CDP time format milliseconds"_s}));
    QVERIFY(bench.device.IsOpen());
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCdDevice::WithoutADriveOnlyTheTimeFormatIsReported() {
    Bench bench;
    bench.TakeDriveAway();
    bench.device.OpenAtStart();
    const Message expected{MessageIcon::Critical, u"マルチメディアエラー"_s, u"開かれていません"_s};
    QCOMPARE(bench.boxes.Shown(), QList{expected});
    QCOMPARE(bench.boxes.Offered(), QStringList{u"次回から表示しない"_s});
    QVERIFY(!bench.device.IsOpen());
}

void TstCdDevice::ADiscThatIsNotThereIsNamedBelow() {
    Bench bench(u"/nope.cue"_s);
    bench.TakeDriveAway();
    bench.device.OpenAtStart();
    const QString text = bench.boxes.Shown().constFirst().text;
    QVERIFY2(text.startsWith(u"開かれていません\r\n\r\n指定されたディスク：/nope.cue\r\n"_s),
             qPrintable(text));
    QVERIFY2(text.contains(u"--disc"_s) && text.contains(u"TICKWELL_CD"_s), qPrintable(text));
    QCOMPARE(bench.state.MciReply, u"開かれていません"_s);
}

void TstCdDevice::TheNoticeCanBeSwitchedOff() {
    Bench bench;
    bench.TakeDriveAway();
    bench.device.OpenAtStart();
    QCOMPARE(bench.stored, 0);
    bench.boxes.Close(true);
    QVERIFY(!bench.tellsNoDrive);
    QCOMPARE(bench.stored, 1);
}

void TstCdDevice::TheNoticeClosedWithoutATickComesAgain() {
    Bench bench;
    bench.TakeDriveAway();
    bench.device.OpenAtStart();
    bench.boxes.Close(false);
    QVERIFY(bench.tellsNoDrive);
    QCOMPARE(bench.stored, 0);
}

void TstCdDevice::ASwitchedOffNoticeStaysAway() {
    Bench bench;
    bench.TakeDriveAway();
    bench.tellsNoDrive = false;
    bench.device.OpenAtStart();
    QCOMPARE(bench.devices.sent.size(), 2);
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.state.MediaError, 263);
}

void TstCdDevice::ARefusedFormatIsReportedEvenThen() {
    Bench bench;
    bench.tellsNoDrive = false;
    bench.devices.results.insert(u"set CDP time format milliseconds"_s, {293, {}});
    bench.device.OpenAtStart();
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Offered().isEmpty());
    QVERIFY(bench.device.IsOpen());
}

void TstCdDevice::RetriesAreSilent() {
    Bench bench;
    bench.TakeDriveAway();
    QVERIFY(!bench.device.OpenAgain());
    QCOMPARE(bench.devices.sent, QStringList{u"open cdaudio alias CDP"_s});
    bench.devices.results.clear();
    QVERIFY(bench.device.OpenAgain());
    QCOMPARE(bench.devices.sent.last(), u"set CDP time format milliseconds"_s);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCdDevice::ClosingStopsFirstAndIsSilent() {
    Bench bench;
    bench.devices.results.insert(u"stop CDP"_s, {263, {}});
    bench.devices.results.insert(u"close CDP"_s, {263, {}});
    bench.device.OpenAtStart();
    bench.devices.sent.clear();
    bench.device.Close();
    QCOMPARE(bench.devices.sent, (QStringList{u"stop CDP"_s, u"close CDP"_s}));
    QVERIFY(bench.boxes.Shown().isEmpty());
    QVERIFY(!bench.device.IsOpen());
}

void TstCdDevice::WithoutADriveTheStartGoesOn() {
    CdBench bench;
    bench.drive.exists = false;
    bench.media.OpenAtStart();  // no window exists yet
    QCOMPARE(bench.State(), kCdNotReady);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.player.Controls().buttons, CdButtons{});
    QVERIFY(!bench.player.Controls().menus);
    bench.time.Advance(60'000);
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstCdDevice::ClosingTouchesNoLine() {
    CdLinesBench bench;
    bench.StartShown(ThreeTracks());
    bench.player.Command1_Click(kCdPlay);
    bench.TakeAll();
    bench.drive.TakeOut();  // makes both commands fail
    bench.media.Close();
    QVERIFY(bench.upper.TakeRecord().isEmpty());
    QVERIFY(bench.lower.TakeRecord().isEmpty());
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.drive.PutIn(ThreeTracks());
    bench.drive.Tell();
    QVERIFY(bench.lower.TakeRecord().isEmpty());
}

QTEST_GUILESS_MAIN(TstCdDevice)
#include "tst_cd_device.moc"
