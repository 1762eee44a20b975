// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/settings_io.h"
#include "support/fake_settings_store.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

struct Flag {
    const char* section;
    const char* key;
    bool& (*field)(FurtherSettings&);
};

constexpr std::array kFlags{
    Flag{"Calendar", "HolidaysByLaw", [](FurtherSettings& s) -> bool& { return s.calendar.holidaysByLaw; }},
    Flag{"Calendar", "ErasByDate", [](FurtherSettings& s) -> bool& { return s.calendar.eras.byDate; }},
    Flag{"Calendar", "OldDate", [](FurtherSettings& s) -> bool& { return s.calendar.announcesOldDate; }},
    Flag{"Calendar", "Seasons", [](FurtherSettings& s) -> bool& { return s.calendar.announcesSeasons; }},
    Flag{"Calendar", "OldJapaneseOldDate",
         [](FurtherSettings& s) -> bool& { return s.calendar.usesOldDateInOldJapanese; }},
    Flag{"Corrections", "WeekdayAnniversaries",
         [](FurtherSettings& s) -> bool& { return s.corrections.weekdayAnniversaries; }},
    Flag{"Corrections", "EditorTakesDate",
         [](FurtherSettings& s) -> bool& { return s.corrections.editorTakesDate; }},
    Flag{"Corrections", "DateTurnsAtMidnight",
         [](FurtherSettings& s) -> bool& { return s.corrections.dateTurnsAtMidnight; }},
    Flag{"Corrections", "LongUsage", [](FurtherSettings& s) -> bool& { return s.corrections.longUsage; }},
    Flag{"Corrections", "SearchAcrossMonths",
         [](FurtherSettings& s) -> bool& { return s.corrections.searchAcrossMonths; }},
    Flag{"Corrections", "LapIntervals",
         [](FurtherSettings& s) -> bool& { return s.corrections.lapIntervals; }},
    Flag{"Corrections", "ShowsToday", [](FurtherSettings& s) -> bool& { return s.corrections.showsToday; }},
    Flag{"Corrections", "KeepsMarksOnClose",
         [](FurtherSettings& s) -> bool& { return s.corrections.keepsMarksOnClose; }},
    Flag{"Corrections", "SavesImmediately",
         [](FurtherSettings& s) -> bool& { return s.corrections.savesImmediately; }},
};

FurtherSettings Loaded(const SettingsStore& store) {
    FurtherSettings further;
    LoadFurtherSettings(store, further);
    return further;
}

/// What saving writes after the 27 keys of AppSettings.
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

/// The keys of today's calendar and of the corrections.
class TstFurtherSettings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachFlagHasItsKey_data();
    void EachFlagHasItsKey();
    void AComingEraHasItsKey();
    void WhatIsUnderTheDaysHasItsKey();
    void ABadEraIsNamed();
};

void TstFurtherSettings::EachFlagHasItsKey_data() {
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < kFlags.size(); ++i) {
        QTest::newRow(kFlags.at(i).key) << static_cast<int>(i);
    }
}

void TstFurtherSettings::EachFlagHasItsKey() {
    QFETCH(const int, index);
    const Flag& flag = kFlags.at(static_cast<std::size_t>(index));
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

void TstFurtherSettings::WhatIsUnderTheDaysHasItsKey() {
    FurtherSettings expected;
    expected.calendar.underDays = 2;
    QCOMPARE(WrittenFurther(expected), QStringList{u"Calendar/UnderDays=2"_s});
    FakeSettingsStore store;
    store.Put(u"Calendar"_s, u"UnderDays"_s, u"2"_s);
    QCOMPARE(Loaded(store), expected);
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
