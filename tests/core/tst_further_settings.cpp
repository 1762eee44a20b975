// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/settings_io.h"
#include "support/fake_settings_store.h"
#include "support/further_flags.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

FurtherSettings Loaded(const SettingsStore& store) {
    FurtherSettings further;
    LoadFurtherSettings(store, further);
    return further;
}

/// The keys that saving writes in addition to the 27 of AppSettings, as "section/key=value".
QStringList WrittenFurther(const FurtherSettings& further) {
    FakeSettingsStore store;
    SaveSettings(store, {}, further, {});
    QStringList written;
    for (const auto& [section, key] : store.Written().mid(27)) {
        written.append(section + u'/' + key + u'=' + store.Values().value({section, key}));
    }
    return written;
}

}  // namespace

/// The keys of the calendar of present-day Japan and of the corrections.
class TstFurtherSettings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachFlagHasItsKey_data();
    void EachFlagHasItsKey();
    void AComingEraHasItsKey();
    void TheRowUnderEachDayHasItsKey();
    void TheFaceHasItsKeys();
    void QuietHoursAndVolumeHaveTheirKeys();
    void NoticesHaveTheirKeys();
    void ABadEraIsNamed();
};

void TstFurtherSettings::EachFlagHasItsKey_data() {
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < kFurtherFlags.size(); ++i) {
        QTest::newRow(kFurtherFlags.at(i).key) << static_cast<int>(i);
    }
}

void TstFurtherSettings::EachFlagHasItsKey() {
    QFETCH(const int, index);
    const FurtherFlag& flag = kFurtherFlags.at(static_cast<std::size_t>(index));
    FurtherSettings expected;
    QVERIFY(!flag.field(expected));
    flag.field(expected) = true;
    const QString section = QString::fromLatin1(flag.section);
    const QString key = QString::fromLatin1(flag.key);
    QCOMPARE(WrittenFurther(expected), QStringList{section + u'/' + key + u"=True"});
    FakeSettingsStore store;
    store.Put(section, key, u"True"_s);
    QCOMPARE(Loaded(store), expected);
}

void TstFurtherSettings::AComingEraHasItsKey() {
    FurtherSettings expected;
    expected.calendar.eras.next = Era{u"光文"_s, u"光"_s, QDate(2040, 5, 1)};
    QCOMPARE(WrittenFurther(expected), QStringList{u"Calendar/NextEra=光文,光,2040-05-01"_s});
    FakeSettingsStore store;
    store.Put(u"Calendar"_s, u"NextEra"_s, u"光文,光,2040-05-01"_s);
    QCOMPARE(Loaded(store), expected);
    store.Put(u"Calendar"_s, u"NextEra"_s, u""_s);
    QCOMPARE(Loaded(store), FurtherSettings());
}

void TstFurtherSettings::TheRowUnderEachDayHasItsKey() {
    FurtherSettings expected;
    expected.calendar.underDays = 2;
    QCOMPARE(WrittenFurther(expected), QStringList{u"Calendar/UnderDays=2"_s});
    FakeSettingsStore store;
    store.Put(u"Calendar"_s, u"UnderDays"_s, u"2"_s);
    QCOMPARE(Loaded(store), expected);
}

void TstFurtherSettings::TheFaceHasItsKeys() {
    FurtherSettings expected;
    expected.face = {.opacity = 35,
                     .longText = 2,
                     .staysOnScreen = true,
                     .screen = u"DP-2"_s,
                     .screenLeft = -7,
                     .screenTop = 300,
                     .showsZone = true,
                     .zone = u"Europe/London"_s,
                     .zoneName = u"ロンドン"_s,
                     .hidesUnderFullScreen = true,
                     .inWindowSwitcher = true,
                     .toolsStayOnTop = true,
                     .transparent = true,
                     .outline = 2,
                     .clickThrough = true,
                     .clickThroughWithoutIcon = true};
    QStringList written{u"Face/Opacity=35"_s,
                        u"Face/LongText=2"_s,
                        u"Face/StaysOnScreen=True"_s,
                        u"Face/Screen=DP-2"_s,
                        u"Face/ScreenLeft=-7"_s,
                        u"Face/ScreenTop=300"_s,
                        u"Face/ShowsZone=True"_s,
                        u"Face/Zone=Europe/London"_s,
                        u"Face/ZoneName=ロンドン"_s,
                        u"Face/HidesUnderFullScreen=True"_s,
                        u"Face/InWindowSwitcher=True"_s,
                        u"Face/ToolsStayOnTop=True"_s,
                        u"Face/Transparent=True"_s,
                        u"Face/Outline=2"_s,
                        u"Face/ClickThrough=True"_s,
                        u"Face/ClickThroughWithoutIcon=True"_s};
    QStringList found = WrittenFurther(expected);
    written.sort();
    found.sort();
    QCOMPARE(found, written);
    FakeSettingsStore store;
    for (const QString& line : written) {
        store.Put(u"Face"_s, line.mid(5, line.indexOf(u'=') - 5), line.section(u'=', 1));
    }
    QCOMPARE(Loaded(store), expected);
}

void TstFurtherSettings::QuietHoursAndVolumeHaveTheirKeys() {
    FurtherSettings expected;
    expected.quiet.from = 61;
    expected.quiet.to = 1439;
    expected.quiet.silencesChime = false;
    expected.quiet.volume = 35;
    QCOMPARE(WrittenFurther(expected), (QStringList{u"Quiet/From=61"_s, u"Quiet/To=1439"_s,
                                                    u"Quiet/Chime=False"_s, u"Quiet/Volume=35"_s}));
    FakeSettingsStore store;
    store.Put(u"Quiet"_s, u"From"_s, u"61"_s);
    store.Put(u"Quiet"_s, u"To"_s, u"1439"_s);
    store.Put(u"Quiet"_s, u"Chime"_s, u"False"_s);
    store.Put(u"Quiet"_s, u"Volume"_s, u"35"_s);
    QCOMPARE(Loaded(store), expected);
    const QuietSettings stored = Loaded(FakeSettingsStore()).quiet;  // ten in the evening to seven
    QCOMPARE(stored.from, 1320);
    QCOMPARE(stored.to, 420);
    QVERIFY(stored.silencesChime);
    QCOMPARE(stored.volume, 100);
}

void TstFurtherSettings::NoticesHaveTheirKeys() {
    FurtherSettings expected;
    expected.notices = {
        .tellsDays = true, .daysAhead = {1, 7}, .time = 1320, .counts = true, .tellsCountdown = true};
    QStringList written{u"Notices/Countdown=True"_s, u"Notices/Counts=True"_s, u"Notices/Days=True"_s,
                        u"Notices/DaysAhead=1,7"_s, u"Notices/Time=1320"_s};
    QStringList found = WrittenFurther(expected);
    found.sort();
    QCOMPARE(found, written);
    FakeSettingsStore store;
    for (const QString& line : written) {
        store.Put(u"Notices"_s, line.section(u'=', 0, 0).section(u'/', 1), line.section(u'=', 1));
    }
    QCOMPARE(Loaded(store), expected);
    store.Put(u"Notices"_s, u"DaysAhead"_s, u""_s);
    QCOMPARE(Loaded(store).notices.daysAhead, QList<qint32>());
    QCOMPARE(Loaded(FakeSettingsStore()).notices.daysAhead, QList<qint32>{0});
    QCOMPARE(Loaded(FakeSettingsStore()).notices.time, 540);
}

void TstFurtherSettings::ABadEraIsNamed() {
    FakeSettingsStore store;
    store.Put(u"Calendar"_s, u"NextEra"_s, u"光文,光,2018-05-01"_s);
    try {
        Loaded(store);
        QFAIL("the era was accepted");
    } catch (const SettingsError& error) {
        QCOMPARE(error.Reason(),
                 u"[Calendar] NextEra=光文,光,2018-05-01\r\n"
                 u"2018年5月1日は、令和の最初の日（2019年5月1日）より後ではありません。"_s);
    }
}

QTEST_GUILESS_MAIN(TstFurtherSettings)
#include "tst_further_settings.moc"
