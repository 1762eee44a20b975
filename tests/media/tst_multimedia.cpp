// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "media/multimedia.h"
#include "support/fake_command_strings.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    FakeCommandStrings devices;
    FakeMessageBoxes boxes;
    MediaState state;
    Multimedia media{devices, boxes, state};
    int notReady = 0;

    Bench() {
        media.SetNotReady([this] { ++notReady; });
        devices.texts.insert(276, u"ディスクなし"_s);
    }
    void Fail(const QString& command, qint32 error = 276) { devices.results.insert(command, {error, {}}); }
    void Answer(const QString& command, const QString& reply) { devices.results.insert(command, {0, reply}); }
};

}  // namespace

/// The functions that send commands, and how they report results.
class TstMultimedia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CommandTexts_data();
    void CommandTexts();
    void ASuccessLeavesItsReply();
    void AReplyEndsAtItsNulOrTheEndOfTheBuffer();
    void AnEmptyCommandIsOnlyRemembered();
    void AFailureIsRememberedThenShownThenSwitchesThePlayerOff();
    void AFailureThatIsNotShownSwitchesThePlayerOffAsWell();
    void AFailureOfTheNoticeSwitchesThePlayerOffOnPurpose();
    void AnErrorWithoutATextIsUnknown();
    void AnErrorTextEndsAtItsNulOrTheEndOfTheBuffer();
    void OneBoxAtATime();
    void ABoxMayOfferToSilenceTheNotice();
    void FailedQueries();
    void RepliesThatAreNoNumbers();
    void PlayingOneTrackAlone();
    void PlayingFromATrackToTheEndOfAll();
    void PlayingATrackGoesOnAfterFailedQueries();
    void AnEndBeyondAllMillisecondsIsAnOverflow();
};

void TstMultimedia::CommandTexts_data() {
    using Call = std::function<void(Multimedia&)>;
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& text, const Call& call) {
        QTest::newRow(name) << call << text;
    };
    row("open", u"open cdaudio alias CDP"_s, [](auto& m) { m.MciOpen(u"cdaudio"_s, u"CDP"_s, false); });
    row("play", u"play Timer"_s, [](auto& m) { m.MciPlay(u"Timer"_s, false, {}, {}, false); });
    row("play from", u"play CDP from 5"_s, [](auto& m) { m.MciPlay(u"CDP"_s, false, u"5"_s, {}, false); });
    row("play only to", u"play CDP to 9"_s, [](auto& m) { m.MciPlay(u"CDP"_s, false, {}, u"9"_s, false); });
    row("play all of it", u"play CDP from 5 to 9 wait"_s,
        [](auto& m) { m.MciPlay(u"CDP"_s, true, u"5"_s, u"9"_s, false); });
    row("play and wait", u"play CDP wait"_s, [](auto& m) { m.MciPlay(u"CDP"_s, true, {}, {}, false); });
    row("play simply", u"play CDP"_s, [](auto& m) { m.MciPlaySimple(u"CDP"_s, false); });
    row("stop", u"stop CDP"_s, [](auto& m) { m.MciStop(u"CDP"_s, false); });
    row("pause", u"pause CDP"_s, [](auto& m) { m.MciPause(u"CDP"_s, false); });
    row("close", u"close CDP"_s, [](auto& m) { m.MciClose(u"CDP"_s, false); });
    row("track position", u"status CDP position track 12"_s,
        [](auto& m) { m.MciTrackPosition(u"CDP"_s, 12, false); });
    row("track count", u"status CDP number of tracks"_s, [](auto& m) { m.MciTrackCount(u"CDP"_s, false); });
    row("length", u"status CDP length"_s, [](auto& m) { m.MciLength(u"CDP"_s, false); });
    row("any", u"set CDP time format milliseconds"_s,
        [](auto& m) { m.MciSend(u"set CDP time format milliseconds"_s, false); });
}

void TstMultimedia::CommandTexts() {
    QFETCH(std::function<void(Multimedia&)>, call);
    Bench bench;
    call(bench.media);
    QTEST(bench.devices.sent.value(0), "text");
    QCOMPARE(bench.devices.sent.size(), 1);
}

void TstMultimedia::ASuccessLeavesItsReply() {
    Bench bench;
    bench.state.MediaError = 276;
    bench.Answer(u"status CDP mode"_s, u"stopped"_s);
    QCOMPARE(bench.media.MciSend(u"status CDP mode"_s, true), 0);
    QCOMPARE(bench.state.MciReply, u"stopped"_s);
    QCOMPARE(bench.state.MediaError, 0);
    QCOMPARE(bench.devices.longestReply, 512);
    QCOMPARE(bench.notReady, 0);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstMultimedia::AReplyEndsAtItsNulOrTheEndOfTheBuffer() {
    Bench bench;
    bench.Answer(u"a"_s, u"12"_s + QChar(0) + u"34"_s);
    bench.Answer(u"b"_s, QString(600, u'x'));
    bench.media.MciSend(u"a"_s, false);
    QCOMPARE(bench.state.MciReply, u"12"_s);
    bench.media.MciSend(u"b"_s, false);
    QCOMPARE(bench.state.MciReply.size(), 512);
}

void TstMultimedia::AnEmptyCommandIsOnlyRemembered() {
    Bench bench;
    QCOMPARE(bench.media.MciSend(u""_s, true), -1);
    QCOMPARE(bench.state.MciReply, u"内部エラー　コマンド文字列が指定されていません"_s);
    QCOMPARE(bench.state.MediaError, -1);
    QVERIFY(bench.devices.sent.isEmpty());
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.notReady, 0);
}

void TstMultimedia::AFailureIsRememberedThenShownThenSwitchesThePlayerOff() {
    Bench bench;
    bench.Fail(u"play CDP"_s);
    QString atThatMoment;
    bench.media.SetNotReady([&] {
        atThatMoment = u"%1 %2 %3"_s.arg(bench.state.MediaError)
                           .arg(bench.state.MciReply)
                           .arg(bench.boxes.Shown().size());
    });
    bench.media.MciPlaySimple(u"CDP"_s, true);
    QCOMPARE(atThatMoment, u"276 ディスクなし 1"_s);
    const Message expected{MessageIcon::Critical, u"マルチメディアエラー"_s, u"ディスクなし"_s};
    QCOMPARE(bench.boxes.Shown(), QList{expected});
}

void TstMultimedia::AFailureThatIsNotShownSwitchesThePlayerOffAsWell() {
    Bench bench;
    bench.Fail(u"play CDP"_s);
    bench.media.MciPlaySimple(u"CDP"_s, false);
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.notReady, 1);
    QCOMPARE(bench.state.MediaError, 276);
}

void TstMultimedia::AFailureOfTheNoticeSwitchesThePlayerOffOnPurpose() {
    Bench bench;
    bench.Fail(u"play Timer"_s);
    bench.media.MciPlay(u"Timer"_s, false, {}, {}, true);
    QCOMPARE(bench.notReady, 1);
}

void TstMultimedia::AnErrorWithoutATextIsUnknown() {
    Bench bench;
    bench.Fail(u"play CDP"_s, 278);
    bench.media.MciPlaySimple(u"CDP"_s, true);
    QCOMPARE(bench.state.MciReply, u"意味不明なエラーが発生しました"_s);
    QCOMPARE(bench.boxes.Shown().value(0).text, u"意味不明なエラーが発生しました"_s);
    QCOMPARE(bench.state.MediaError, 278);
}

void TstMultimedia::AnErrorTextEndsAtItsNulOrTheEndOfTheBuffer() {
    Bench bench;
    bench.devices.texts.insert(1, u"短い"_s + QChar(0) + u"残り"_s);
    bench.devices.texts.insert(2, QString(300, u'長'));
    bench.Fail(u"a"_s, 1);
    bench.Fail(u"b"_s, 2);
    bench.media.MciSend(u"a"_s, false);
    QCOMPARE(bench.state.MciReply, u"短い"_s);
    bench.media.MciSend(u"b"_s, false);
    QCOMPARE(bench.state.MciReply.size(), 256);
}

void TstMultimedia::OneBoxAtATime() {
    Bench bench;
    bench.Fail(u"stop CDP"_s);
    bench.media.MciStop(u"CDP"_s, true);
    bench.media.MciStop(u"CDP"_s, true);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.notReady, 2);
    bench.boxes.Close();
    bench.media.MciStop(u"CDP"_s, true);
    QCOMPARE(bench.boxes.Shown().size(), 2);
}

void TstMultimedia::ABoxMayOfferToSilenceTheNotice() {
    Bench bench;
    bench.Fail(u"stop CDP"_s);
    QList<bool> answers;
    const FailureChoice choice{u"もう出さない"_s, [&](bool isTicked) { answers.append(isTicked); }};
    QCOMPARE(bench.media.MciSend(u"stop CDP"_s, choice), 276);
    QCOMPARE(bench.boxes.Offered(), QStringList{u"もう出さない"_s});
    QCOMPARE(bench.notReady, 1);
    QCOMPARE(bench.media.MciSend(u"stop CDP"_s, choice), 276);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    bench.boxes.Close(true);
    QCOMPARE(answers, QList{true});
    QCOMPARE(bench.media.MciSend(u"play CDP"_s, choice), 0);
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstMultimedia::FailedQueries() {
    Bench bench;
    bench.Fail(u"status CDP position track 1"_s);
    bench.Fail(u"status CDP number of tracks"_s);
    bench.Fail(u"status CDP length"_s);
    QCOMPARE(bench.media.MciTrackPosition(u"CDP"_s, 1, false), u""_s);
    QCOMPARE(bench.media.MciTrackCount(u"CDP"_s, false), 0);
    QCOMPARE(bench.media.MciLength(u"CDP"_s, false), u"0"_s);
    QCOMPARE(bench.state.MediaError, 276);
}

void TstMultimedia::RepliesThatAreNoNumbers() {
    QCOMPARE(NumberInReply(u"300000"_s), 300000);
    QCOMPARE(NumberInReply(u""_s), 0);
    QCOMPARE(NumberInReply(u"05:00:00"_s), 0);
    QCOMPARE(NumberInReply(u"99999999999"_s), 0);
}

void TstMultimedia::PlayingOneTrackAlone() {
    Bench bench;
    bench.Answer(u"status CDP position track 2"_s, u"100000"_s);
    bench.Answer(u"status CDP length track 2"_s, u"120000"_s);
    bench.media.MciPlayTrack(u"CDP"_s, 2, true, false);
    QCOMPARE(bench.devices.sent,
             (QStringList{u"status CDP position track 2"_s, u"status CDP length track 2"_s,
                          u"play CDP from 100000 to 220000"_s}));
    QCOMPARE(bench.state.MciEndPosition, 220000);
}

void TstMultimedia::PlayingFromATrackToTheEndOfAll() {
    Bench bench;
    bench.Answer(u"status CDP position track 2"_s, u"100000"_s);
    bench.Answer(u"status CDP length"_s, u"300000"_s);
    bench.media.MciPlayTrack(u"CDP"_s, 2, false, false);
    QCOMPARE(bench.devices.sent, (QStringList{u"status CDP position track 2"_s, u"status CDP length"_s,
                                              u"play CDP from 100000"_s}));
    QCOMPARE(bench.state.MciEndPosition, 300000);
}

void TstMultimedia::PlayingATrackGoesOnAfterFailedQueries() {
    Bench bench;
    bench.Fail(u"status CDP position track 2"_s);
    bench.Fail(u"status CDP length"_s);
    bench.Fail(u"status CDP length track 2"_s);
    bench.media.MciPlayTrack(u"CDP"_s, 2, false, false);
    QCOMPARE(bench.devices.sent.last(), u"play CDP"_s);
    QCOMPARE(bench.state.MciEndPosition, 0);
    bench.media.MciPlayTrack(u"CDP"_s, 2, true, false);
    QCOMPARE(bench.devices.sent.last(), u"play CDP to 0"_s);
}

void TstMultimedia::AnEndBeyondAllMillisecondsIsAnOverflow() {
    Bench bench;
    bench.Answer(u"status CDP position track 2"_s, u"2147483647"_s);
    bench.Answer(u"status CDP length track 2"_s, u"1"_s);
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.media.MciPlayTrack(u"CDP"_s, 2, true, false));
}

QTEST_GUILESS_MAIN(TstMultimedia)
#include "tst_multimedia.moc"
