// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFileInfo>
#include <QTest>

#include "media/command_error.h"
#include "media/device_bench.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

void Row(const char* name, const QString& command, qint32 error) {
    QTest::newRow(name) << command << error;
}

void WordRows() {
    Row("nothing", u""_s, 267);
    Row("blanks alone", u" \t  "_s, 267);
    Row("unknown first word", u"eject CDP"_s, 261);
    Row("first word in quotes", u"\"play\" CDP"_s, 261);
    Row("open alone", u"open"_s, 292);
    Row("play alone", u"play "_s, 292);
    Row("status alone", u"status"_s, 292);
    Row("quote at the name", u"play \"CDP"_s, 294);
    Row("quote at the end", u"play CDP \""_s, 294);
    Row("alias not open", u"play Timer"_s, 263);
    Row("alias not open, and more wrong", u"play Timer from x"_s, 263);
    Row("all", u"close all"_s, 263);
    Row("empty name", u"play \"\""_s, 263);
    Row("unknown device", u"open tape alias T"_s, 263);
    Row("empty device", u"open \"\""_s, 263);
    Row("name that ends in a point", u"open tape."_s, 263);
    Row("unknown extension", u"open music.mp3 alias T"_s, 281);
    Row("wave that is not there", u"open none.wav alias T"_s, 275);
    Row("wave that is none", u"open BAD alias T"_s, 296);
    Row("alias in use", u"open cdaudio alias CDP"_s, 289);
    Row("alias in use, other case", u"open none.wav alias cdp"_s, 289);
    Row("second CD", u"open cdaudio alias CD2"_s, 291);
    Row("second CD without alias", u"open CDAudio"_s, 291);
    Row("alias without a name", u"open cdaudio alias"_s, 269);
    Row("alias with an empty name", u"open cdaudio alias \"\""_s, 269);
    Row("alias twice", u"open cdaudio alias a alias b"_s, 295);
    Row("file name of two words", u"open my sound.wav alias T"_s, 259);
}

void PlayRows() {
    Row("unknown word of play", u"play CDP loudly"_s, 259);
    Row("number without its word", u"play CDP 1000"_s, 259);
    Row("from without a number", u"play CDP from"_s, 270);
    Row("from without a number, and to", u"play CDP from to 5"_s, 270);
    Row("from a word", u"play CDP from start"_s, 270);
    Row("from below nothing", u"play CDP from -5"_s, 270);
    Row("from a fraction", u"play CDP from 1.5"_s, 270);
    Row("from full-width digits", u"play CDP from １"_s, 270);
    Row("from a colon", u"play CDP from :"_s, 270);
    Row("from minutes and seconds", u"play CDP from 0:10"_s, 270);
    Row("from an empty text", u"play CDP from \"\""_s, 270);
    Row("to without a number", u"play CDP from 5 to"_s, 270);
    Row("from twice", u"play CDP from 1 from 2"_s, 295);
    Row("to twice", u"play CDP to 1 to 2"_s, 295);
    Row("wait twice", u"play CDP wait wait"_s, 295);
    Row("from behind the end", u"play CDP from 300001"_s, 282);
    Row("to behind the end", u"play CDP to 300007"_s, 282);
    Row("from behind to", u"play CDP from 2000 to 1000"_s, 282);
    Row("from far outside", u"play CDP from 99999999999999999999999"_s, 282);
    Row("stop with a word", u"stop CDP now"_s, 259);
    Row("pause with a word", u"pause CDP now"_s, 259);
    Row("close with a word", u"close CDP now"_s, 259);
    Row("stop that waits twice", u"stop CDP wait wait"_s, 295);
    Row("resume", u"resume CDP"_s, 274);
    Row("resume with a word", u"resume CDP now"_s, 259);
}

void StatusRows() {
    Row("set alone", u"set CDP"_s, 259);
    Row("set of another thing", u"set CDP door open"_s, 259);
    Row("set of half a thing", u"set CDP time ms"_s, 259);
    Row("other time format", u"set CDP time format bytes"_s, 293);
    Row("no time format", u"set CDP time format"_s, 293);
    Row("time format twice", u"set CDP time format ms time format msf"_s, 295);
    Row("status of nothing", u"status CDP"_s, 273);
    Row("status that waits for nothing", u"status CDP wait"_s, 273);
    Row("status of an unknown thing", u"status CDP weight"_s, 259);
    Row("status of half a thing", u"status CDP number of"_s, 259);
    Row("status of two things", u"status CDP mode length"_s, 259);
    Row("status twice", u"status CDP length length"_s, 295);
    Row("track of a thing without", u"status CDP mode track 1"_s, 259);
    Row("track before the thing", u"status CDP track 1 length"_s, 259);
    Row("track without a number", u"status CDP length track"_s, 270);
    Row("track with a word", u"status CDP length track one"_s, 270);
    Row("track with a colon", u"status CDP length track 1:0"_s, 270);
    Row("track twice", u"status CDP length track 1 track 2"_s, 295);
    Row("track 0", u"status CDP position track 0"_s, 282);
    Row("track behind the last", u"status CDP position track 4"_s, 282);
    Row("length of one behind the last", u"status CDP length track 4"_s, 282);
    Row("track far outside", u"status CDP length track 99999999999"_s, 282);
    Row("wave: other time format", u"set W time format msf"_s, 290);
    Row("wave: no time format", u"set W time format"_s, 290);
    Row("wave: from behind the end", u"play W from 101"_s, 282);
    Row("wave: from far outside", u"play W from 99999999999999999999999"_s, 282);
    Row("wave: from behind to", u"play W from 50 to 40"_s, 282);
    Row("wave: minutes and seconds", u"play W from 0:01"_s, 270);
    Row("wave: second track", u"status W length track 2"_s, 282);
    Row("wave: current track 0", u"status W position track 0"_s, 282);
}

}  // namespace

/// Refused commands and error texts.
class TstCommandDevices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Refusals_data();
    void Refusals();
    void TheNumberWithoutATextIsTheDriversOwn();
    void OtherNumbersHaveNoText();
    void AWordMayBeWrittenInAnyCase();
    void BlanksAndTabsPartWords();
    void ANameMayBeInQuotes();
    void AQuotedWordIsNoKeyword();
    void ACommandEndsAtItsNul();
    void WithoutAliasTheNameIsTheAlias();
    void AClosedAliasMayBeOpenedAgain();
    void ABareNameIsInTheProgramsFolder();
    void TwoWavesMayBeOpen();
    void AReplyMayFillItsBuffer();
};

void TstCommandDevices::Refusals_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<qint32>("error");
    WordRows();
    PlayRows();
    StatusRows();
}

void TstCommandDevices::Refusals() {
    QFETCH(QString, command);
    QFETCH(qint32, error);
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(u"open \"%1\" alias W"_s.arg(bench.PutWave(100))), u""_s);
    const QString bad = bench.folder.filePath(u"bad.wav"_s);
    WriteAll(bad, "RIFF");
    const CommandResult expected{error, {}};
    QCOMPARE(bench.Send(command.replace(u"BAD"_s, u"\"%1\""_s.arg(bad))), expected);
    QVERIFY(!bench.devices.ErrorText(error)->isEmpty());
    QVERIFY(bench.drive.TakeRecord().isEmpty());
    QVERIFY(bench.sound.Devices().isEmpty());
}

void TstCommandDevices::TheNumberWithoutATextIsTheDriversOwn() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    bench.drive.TakeOut(CdStatus::Failed);
    for (const QString& command : {u"play CDP"_s, u"status CDP mode"_s, u"status CDP media present"_s}) {
        QCOMPARE(bench.Send(command).error, 278);
    }
    QCOMPARE(bench.devices.ErrorText(278), std::nullopt);
}

void TstCommandDevices::OtherNumbersHaveNoText() {
    const DeviceBench bench;
    for (const qint32 number : {-1, 0, 1, 258, 260, 321}) {
        QCOMPARE(bench.devices.ErrorText(number), std::nullopt);
    }
}

void TstCommandDevices::AWordMayBeWrittenInAnyCase() {
    DeviceBench bench;
    bench.drive.PutIn(ThreeTracks());
    QCOMPARE(bench.Reply(u"OPEN CDAudio ALIAS cdp"_s), u""_s);
    QCOMPARE(bench.Reply(u"Set CDP Time FORMAT MilliSeconds"_s), u""_s);
    QCOMPARE(bench.Reply(u"STATUS Cdp NUMBER Of TRACKS"_s), u"3"_s);
}

void TstCommandDevices::BlanksAndTabsPartWords() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(u"  status\tCDP   number of\ttracks  "_s), u"3"_s);
    QCOMPARE(bench.Reply(u"status　CDP number of tracks"_s), u"error 261"_s);
}

void TstCommandDevices::ANameMayBeInQuotes() {
    DeviceBench bench;
    WriteAll(bench.folder.filePath(u"my sound.wav"_s), WaveBytes({.rate = 1000, .data = Samples16(7)}));
    QCOMPARE(bench.Reply(u"open \"%1\" alias \"the notice\""_s.arg(bench.folder.filePath(u"my sound.wav"_s))),
             u""_s);
    QCOMPARE(bench.Reply(u"status \"the notice\" length"_s), u"7"_s);
    QCOMPARE(bench.Reply(u"status \"the notice\"length"_s), u"7"_s);
    QCOMPARE(bench.Reply(u"status the notice length"_s), u"error 263"_s);
}

void TstCommandDevices::AQuotedWordIsNoKeyword() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(u"play CDP \"wait\""_s), u"error 259"_s);
    QCOMPARE(bench.Reply(u"status \"CDP\" \"mode\""_s), u"error 259"_s);
}

void TstCommandDevices::ACommandEndsAtItsNul() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(u"status CDP mode"_s + QChar(0) + u" rubbish"_s), u"stopped"_s);
    QCOMPARE(bench.Reply(QString(QChar(0)) + u"status CDP mode"_s), u"error 267"_s);
}

void TstCommandDevices::WithoutAliasTheNameIsTheAlias() {
    DeviceBench bench;
    QCOMPARE(bench.Reply(u"open cdaudio"_s), u""_s);
    QCOMPARE(bench.Reply(u"status cdaudio mode"_s), u"not ready"_s);
}

void TstCommandDevices::AClosedAliasMayBeOpenedAgain() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.Reply(u"close CDP"_s), u""_s);
    QCOMPARE(bench.drive.TakeRecord(), QStringList{u"stop"_s});
    QCOMPARE(bench.Reply(u"status CDP mode"_s), u"error 263"_s);
    QCOMPARE(bench.Reply(u"open cdaudio alias CDP"_s), u""_s);
    QCOMPARE(bench.Reply(u"status CDP length"_s), u"05:00:00"_s);  // the time format was reset
}

void TstCommandDevices::ABareNameIsInTheProgramsFolder() {
    DeviceBench bench;
    const QString path = bench.PutWave(100);
    QVERIFY(QFileInfo(path).path() != QDir::currentPath());
    QCOMPARE(bench.Reply(u"open sound.wav alias A"_s), u""_s);
    QCOMPARE(bench.Reply(u"open none.wav alias B"_s), u"error 275"_s);
}

void TstCommandDevices::TwoWavesMayBeOpen() {
    DeviceBench bench;
    const QString path = bench.PutWave(100);
    QCOMPARE(bench.Reply(u"open \"%1\" alias A"_s.arg(path)), u""_s);
    QCOMPARE(bench.Reply(u"open \"%1\" alias B"_s.arg(path)), u""_s);
    QCOMPARE(bench.Reply(u"play A from 10"_s), u""_s);
    QCOMPARE(bench.Reply(u"play B"_s), u""_s);
    QCOMPARE(bench.sound.OpenDevices(), 2);
    QCOMPARE(bench.Reply(u"close A"_s), u""_s);
    QCOMPARE(bench.sound.OpenDevices(), 1);
    QCOMPARE(bench.Reply(u"status B mode"_s), u"playing"_s);
}

void TstCommandDevices::AReplyMayFillItsBuffer() {
    DeviceBench bench;
    bench.PutDisc(ThreeTracks());
    QCOMPARE(bench.devices.Send(u"status CDP length"_s, 6), (CommandResult{0, u"300000"_s}));
    QCOMPARE(bench.devices.Send(u"status CDP length"_s, 5), (CommandResult{268, {}}));
    QVERIFY(!bench.devices.ErrorText(268)->isEmpty());
}

QTEST_GUILESS_MAIN(TstCommandDevices)
#include "tst_command_devices.moc"
