// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/cd_texts.h"
#include "support/fake_command_strings.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

/// A disc of three tracks, 1:40, 2:00 and 1:20, simulated only by replies to commands.
struct Bench {
    FakeCommandStrings devices;
    FakeMessageBoxes boxes;
    MediaState mediaState;
    Multimedia media{devices, boxes, mediaState};
    CdPlayerState state{.CdTrackCount = 3, .CdLength = 300'000};
    CdTexts texts{state, media};
    int notReady = 0;

    Bench() {
        media.SetNotReady([this] { ++notReady; });
        Answer(u"status CDP length"_s, 300'000);
        Answer(u"status CDP position track 1"_s, 0);
        Answer(u"status CDP position track 2"_s, 100'000);
        Answer(u"status CDP position track 3"_s, 220'000);
    }
    void Answer(const QString& command, int number) {
        devices.results.insert(command, {0, QString::number(number)});
    }
    void Fail(const QString& command) { devices.results.insert(command, {276, {}}); }
    void PlayAt(int track, int position) {
        Answer(u"status CDP current track"_s, track);
        Answer(u"status CDP position"_s, position);
    }
};

}  // namespace

/// The texts of the two lines.
class TstCdTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void StatusInEachFormat_data();
    void StatusInEachFormat();
    void TheStatusSendsItsQueriesInOrder_data();
    void TheStatusSendsItsQueriesInOrder();
    void AStatusThatFailsIsNoText_data();
    void AStatusThatFailsIsNoText();
    void TheTrackFollowsTheDevice();
    void Selection_data();
    void Selection();
    void TheLengthIsReadEachTimeAndStaysInMilliseconds();
    void ASelectionThatFailsIsNoText_data();
    void ASelectionThatFailsIsNoText();
    void TrackCount();
};

void TstCdTexts::StatusInEachFormat_data() {
    QTest::addColumn<int>("track");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("start, into") << 1 << 0 << 0 << u"[ 1 ]    0:00"_s;
    QTest::newRow("start, left in track") << 1 << 0 << 1 << u"[ 1 ]    - 1:40"_s;
    QTest::newRow("start, left on disc") << 1 << 0 << 2 << u"[ -2 ]    - 5:00"_s;
    QTest::newRow("track 2, into") << 2 << 165'000 << 0 << u"[ 2 ]    1:05"_s;
    QTest::newRow("track 2, left in track") << 2 << 165'000 << 1 << u"[ 2 ]    - 0:55"_s;
    QTest::newRow("track 2, left on disc") << 2 << 165'000 << 2 << u"[ -1 ]    - 2:15"_s;
    QTest::newRow("last, into") << 3 << 220'000 << 0 << u"[ 3 ]    0:00"_s;
    QTest::newRow("last, left in track") << 3 << 220'000 << 1 << u"[ 3 ]    - 1:20"_s;
    QTest::newRow("last, zero left on purpose") << 3 << 200'000 << 2 << u"[ -0 ]    - 1:40"_s;
    QTest::newRow("half a second rounds down to even") << 1 << 500 << 0 << u"[ 1 ]    0:00"_s;
    QTest::newRow("half a second rounds up to even") << 1 << 1500 << 0 << u"[ 1 ]    0:02"_s;
}

void TstCdTexts::StatusInEachFormat() {
    QFETCH(int, track);
    QFETCH(int, position);
    QFETCH(int, format);
    QFETCH(QString, text);
    Bench bench;
    bench.PlayAt(track, position);
    bench.state.CdDisplayFormat = format;
    QCOMPARE(bench.texts.StatusText(), std::optional(text));
}

void TstCdTexts::TheStatusSendsItsQueriesInOrder_data() {
    QTest::addColumn<int>("track");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("last");
    QTest::newRow("into") << 2 << 0 << u"status CDP position track 2"_s;
    QTest::newRow("left in track") << 2 << 1 << u"status CDP position track 3"_s;
    QTest::newRow("left in the last track") << 3 << 1 << u""_s;
    QTest::newRow("left on disc") << 2 << 2 << u"status CDP length"_s;
}

void TstCdTexts::TheStatusSendsItsQueriesInOrder() {
    QFETCH(int, track);
    QFETCH(int, format);
    QFETCH(QString, last);
    Bench bench;
    bench.PlayAt(track, 250'000);
    bench.state.CdDisplayFormat = format;
    QVERIFY(bench.texts.StatusText());
    QStringList expected{u"status CDP current track"_s, u"status CDP position"_s};
    if (!last.isEmpty()) {
        expected.append(last);
    }
    QCOMPARE(bench.devices.sent, expected);
}

void TstCdTexts::AStatusThatFailsIsNoText_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("format");
    QTest::newRow("current track") << u"status CDP current track"_s << 0;
    QTest::newRow("position") << u"status CDP position"_s << 0;
    QTest::newRow("start of the track") << u"status CDP position track 1"_s << 0;
    QTest::newRow("start of the next") << u"status CDP position track 2"_s << 1;
    QTest::newRow("length") << u"status CDP length"_s << 2;
}

void TstCdTexts::AStatusThatFailsIsNoText() {
    QFETCH(QString, command);
    QFETCH(int, format);
    Bench bench;
    bench.PlayAt(1, 5000);
    bench.state.CdDisplayFormat = format;
    QVERIFY(bench.texts.StatusText());
    bench.Fail(command);
    QCOMPARE(bench.texts.StatusText(), std::nullopt);
    QCOMPARE(bench.notReady, 1);
    QCOMPARE(bench.devices.sent.last(), command);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCdTexts::TheTrackFollowsTheDevice() {
    Bench bench;
    bench.state.CdTrack = 1;
    bench.PlayAt(3, 220'000);
    QVERIFY(bench.texts.StatusText());
    QCOMPARE(bench.state.CdTrack, 3);
}

void TstCdTexts::Selection_data() {
    QTest::addColumn<int>("track");
    QTest::addColumn<QString>("text");
    QTest::newRow("the whole disc") << 0 << u"[ Total ]    5:00"_s;
    QTest::newRow("first") << 1 << u"[ 1 ]    1:40"_s;
    QTest::newRow("second") << 2 << u"[ 2 ]    2:00"_s;
    QTest::newRow("last") << 3 << u"[ 3 ]    1:20"_s;
}

void TstCdTexts::Selection() {
    QFETCH(int, track);
    QFETCH(QString, text);
    Bench bench;
    bench.state.CdTrack = track;
    QCOMPARE(bench.texts.SelectionText(), std::optional(text));
}

void TstCdTexts::TheLengthIsReadEachTimeAndStaysInMilliseconds() {
    Bench bench;
    bench.texts.SelectionText();
    bench.Answer(u"status CDP length"_s, 185'000);
    QCOMPARE(bench.texts.SelectionText(), std::optional(u"[ Total ]    3:05"_s));
    QCOMPARE(bench.state.CdLength, 185'000);
}

void TstCdTexts::ASelectionThatFailsIsNoText_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("track");
    QTest::newRow("length of the disc") << u"status CDP length"_s << 0;
    QTest::newRow("start of the track") << u"status CDP position track 2"_s << 2;
    QTest::newRow("start of the next") << u"status CDP position track 3"_s << 2;
    QTest::newRow("end of the last") << u"status CDP length"_s << 3;
}

void TstCdTexts::ASelectionThatFailsIsNoText() {
    QFETCH(QString, command);
    QFETCH(int, track);
    Bench bench;
    bench.state.CdTrack = track;
    bench.Fail(command);
    QCOMPARE(bench.texts.SelectionText(), std::nullopt);
    QCOMPARE(bench.notReady, 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCdTexts::TrackCount() {
    const Bench bench;
    QCOMPARE(bench.texts.TrackCountText(), u"全トラック数 3"_s);
}

QTEST_GUILESS_MAIN(TstCdTexts)
#include "tst_cd_texts.moc"
