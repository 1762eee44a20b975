// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "media/command_error.h"
#include "media/disc_map.h"
#include "support/discs.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

/// The number of the error that an action throws; 0 if none.
template <typename Action>
qint32 ErrorOf(Action action) {
    try {
        action();
        return 0;
    } catch (const CommandError& error) {
        return error.Number();
    }
}

}  // namespace

/// Times and tracks of a disc.
class TstDiscMap : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TracksAreFoundBySector();
    void TimesCountFromTheFirstTrack();
    void EverySectorComesBackAsItself();
    void PositionsInEachFormat_data();
    void PositionsInEachFormat();
    void SectorsOfEachFormat_data();
    void SectorsOfEachFormat();
    void TheSumsOfThePlayerAreExact();
    void ADiscOfDataHasNoAudio();
};

void TstDiscMap::TracksAreFoundBySector() {
    const DiscMap disc(OddTracks());
    const auto at = [&](qint64 sector) { return disc.TrackAt(sector * kFramesPerSector); };
    QCOMPARE(at(0), 1);
    QCOMPARE(at(32), 1);
    QCOMPARE(at(10'000), 1);
    QCOMPARE(disc.TrackAt(10'001 * kFramesPerSector - 1), 1);
    QCOMPARE(at(10'001), 2);
    QCOMPARE(at(20'012), 3);
    QCOMPARE(at(30'001), 3);
    QCOMPARE(at(99'999), 3);
}

void TstDiscMap::TimesCountFromTheFirstTrack() {
    const DiscMap disc(OddTracks());
    QCOMPARE(disc.PositionText(32 * kFramesPerSector, TimeFormat::Milliseconds), u"0"_s);
    QCOMPARE(disc.PositionText(0, TimeFormat::Milliseconds), u"0"_s);
    QCOMPARE(disc.PositionText(10'001 * kFramesPerSector, TimeFormat::Milliseconds), u"132920"_s);
    QCOMPARE(disc.SectorOf(u"0"_s, TimeFormat::Milliseconds), 32);
}

void TstDiscMap::EverySectorComesBackAsItself() {
    const DiscMap disc(OddTracks());
    for (qint32 sector = disc.FirstSector(); sector <= disc.LeadOut(); ++sector) {
        const qint64 frame = sector * kFramesPerSector;
        QCOMPARE(disc.SectorOf(disc.PositionText(frame, TimeFormat::Milliseconds), TimeFormat::Milliseconds),
                 sector);
        QCOMPARE(disc.SectorOf(disc.PositionText(frame, TimeFormat::Msf), TimeFormat::Msf), sector);
        QCOMPARE(disc.SectorOf(disc.PositionText(frame, TimeFormat::Tmsf), TimeFormat::Tmsf), sector);
    }
}

void TstDiscMap::PositionsInEachFormat_data() {
    QTest::addColumn<qint64>("frame");
    QTest::addColumn<QString>("milliseconds");
    QTest::addColumn<QString>("msf");
    QTest::addColumn<QString>("tmsf");
    QTest::newRow("start") << qint64{0} << u"0"_s << u"00:00:00"_s << u"01:00:00:00"_s;
    QTest::newRow("the frame before 1 ms") << qint64{44} << u"0"_s << u"00:00:00"_s << u"01:00:00:00"_s;
    QTest::newRow("the frame of 1 ms") << qint64{45} << u"1"_s << u"00:00:00"_s << u"01:00:00:00"_s;
    QTest::newRow("1 s") << qint64{44'100} << u"1000"_s << u"00:01:00"_s << u"01:00:01:00"_s;
    QTest::newRow("the last sector of track 1")
        << 7499 * kFramesPerSector << u"99986"_s << u"01:39:74"_s << u"01:01:39:74"_s;
    QTest::newRow("track 2") << 7500 * kFramesPerSector << u"100000"_s << u"01:40:00"_s << u"02:00:00:00"_s;
    QTest::newRow("end") << 22'500 * kFramesPerSector << u"300000"_s << u"05:00:00"_s << u"03:01:20:00"_s;
}

void TstDiscMap::PositionsInEachFormat() {
    QFETCH(qint64, frame);
    const DiscMap disc(ThreeTracks());
    QTEST(disc.PositionText(frame, TimeFormat::Milliseconds), "milliseconds");
    QTEST(disc.PositionText(frame, TimeFormat::Msf), "msf");
    QTEST(disc.PositionText(frame, TimeFormat::Tmsf), "tmsf");
}

void TstDiscMap::SectorsOfEachFormat_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("format");
    QTest::addColumn<qint32>("sector");
    QTest::addColumn<qint32>("error");
    const auto row = [](const char* name, const QString& text, TimeFormat format, qint32 sector,
                        qint32 error) {
        QTest::newRow(name) << text << static_cast<int>(format) << sector << error;
    };
    row("ms, nearest below", u"6"_s, TimeFormat::Milliseconds, 0, 0);
    row("ms, nearest above", u"7"_s, TimeFormat::Milliseconds, 1, 0);
    row("ms, the end", u"300000"_s, TimeFormat::Milliseconds, 22'500, 0);
    row("ms, leading zeros", u"0001000"_s, TimeFormat::Milliseconds, 75, 0);
    row("ms, after the end", u"300001"_s, TimeFormat::Milliseconds, 0, 282);
    row("ms with a colon", u"1:0"_s, TimeFormat::Milliseconds, 0, 270);
    row("msf", u"1:40:01"_s, TimeFormat::Msf, 7501, 0);
    row("msf, only minutes", u"2"_s, TimeFormat::Msf, 9000, 0);
    row("msf, minutes and seconds", u"2:10"_s, TimeFormat::Msf, 9750, 0);
    row("msf, the end", u"5:0:0"_s, TimeFormat::Msf, 22'500, 0);
    row("msf, after the end", u"5:0:1"_s, TimeFormat::Msf, 0, 282);
    row("msf, four parts", u"1:0:0:0"_s, TimeFormat::Msf, 0, 270);
    row("msf, an empty part", u"1::0"_s, TimeFormat::Msf, 0, 270);
    row("msf, far outside", u"99999999999999999999:0:0"_s, TimeFormat::Msf, 0, 282);
    row("tmsf, only the track", u"2"_s, TimeFormat::Tmsf, 7500, 0);
    row("tmsf", u"3:0:1:2"_s, TimeFormat::Tmsf, 16'577, 0);
    row("tmsf, track 0", u"0"_s, TimeFormat::Tmsf, 0, 282);
    row("tmsf, track 4", u"4"_s, TimeFormat::Tmsf, 0, 282);
    row("tmsf, track far outside", u"4294967297"_s, TimeFormat::Tmsf, 0, 282);
    row("tmsf, after the end", u"3:1:20:1"_s, TimeFormat::Tmsf, 0, 282);
    row("tmsf, five parts", u"1:0:0:0:0"_s, TimeFormat::Tmsf, 0, 270);
    row("tmsf, empty last part", u"1:"_s, TimeFormat::Tmsf, 0, 270);
}

void TstDiscMap::SectorsOfEachFormat() {
    QFETCH(QString, text);
    QFETCH(int, format);
    const DiscMap disc(ThreeTracks());
    qint32 sector = 0;
    QTEST(ErrorOf([&] { sector = disc.SectorOf(text, static_cast<TimeFormat>(format)); }), "error");
    QTEST(sector, "sector");
}

void TstDiscMap::TheSumsOfThePlayerAreExact() {
    const DiscMap disc(OddTracks());
    for (qint32 track = 1; track <= 3; ++track) {
        const auto ms = [&](qint32 sector) {
            return disc.PositionText(sector * kFramesPerSector, TimeFormat::Milliseconds).toInt();
        };
        const int length =
            disc.LengthText(disc.StartOf(track), disc.EndOf(track), TimeFormat::Milliseconds).toInt();
        // The start plus the length of a track is read back as the start of the next track.
        const QString end = QString::number(ms(disc.StartOf(track)) + length);
        QCOMPARE(disc.SectorOf(end, TimeFormat::Milliseconds), disc.EndOf(track));
    }
    QCOMPARE(disc.LengthText(disc.FirstSector(), disc.LeadOut(), TimeFormat::Milliseconds),
             disc.PositionText(disc.LeadOut() * kFramesPerSector, TimeFormat::Milliseconds));
}

void TstDiscMap::ADiscOfDataHasNoAudio() {
    QVERIFY(DiscMap(ThreeTracks()).HasAudio());
    QVERIFY(DiscMap(MixedDisc()).HasAudio());
    QVERIFY(!DiscMap(DataDisc()).HasAudio());
    QVERIFY(!DiscMap(CdContents()).HasAudio());
}

QTEST_GUILESS_MAIN(TstDiscMap)
#include "tst_disc_map.moc"
