// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/settings_io.h"
#include "support/fake_settings_store.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

AppSettings Loaded(const SettingsStore& store) {
    AppSettings settings;
    LoadSettings(store, settings);
    return settings;
}

}  // namespace

/// Loading and saving the settings record.
class TstSettings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFirstStartHasTheDefaults();
    void LoadingWritesNothing();
    void KeysAreReadInTheirOrder();
    void GeometryIsReadWidthFirst();
    void AllKeysAreWrittenInTheirOrder();
    void TheRollIntervalIsReadAndNeverWritten();
    void ValuesComeBackAsTheyWereSaved();
    void AFontTheMachineDoesNotHaveIsWrittenBack();
    void NumbersOutsideTheKnownOnesLoad();
    void BadValuesAreNamed_data();
    void BadValuesAreNamed();
    void BadGeometryIsNamed_data();
    void BadGeometryIsNamed();
    void LoadingStopsAtTheFirstBadValue();
    void AStoredWidthOfTwips2505Point6Is2506();
    void KeysLiveInTheirSection();
    void AnEmptyTextIsAText();
    void AFirstStartDoesNotRollAndReportsAMissingDrive();
    void FurtherSettingsAtTheirDefaultsAreNotWritten();
    void ChangedFurtherSettingsAreWrittenAfterTheOtherKeys();
    void FurtherKeysInTheFileAreWrittenEvenWithDefaults();
    void TheNoticeIsWrittenByItself();
    void FurtherSettingsComeBackAsTheyWereSaved_data();
    void FurtherSettingsComeBackAsTheyWereSaved();
    void BadFurtherValuesAreNamed_data();
    void BadFurtherValuesAreNamed();
};

namespace {

FurtherSettings LoadedFurther(const SettingsStore& store) {
    FurtherSettings further;
    LoadFurtherSettings(store, further);
    return further;
}

QString WrittenBehindTheOthers(const FakeSettingsStore& store) {
    QStringList written;
    for (const auto& [section, key] : store.Written().mid(27)) {
        written.append(section + u'/' + key + u'=' + store.Values().value({section, key}));
    }
    return written.join(u' ');
}

}  // namespace

void TstSettings::AFirstStartHasTheDefaults() {
    const FakeSettingsStore store;
    AppSettings settings = Loaded(store);
    WindowGeometry geometry;
    LoadWindowGeometry(store, settings, geometry);
    QCOMPARE(geometry, (WindowGeometry{.width = 2505, .top = 0, .left = 0}));
    const LineStyle upper{.fontName = u"ＭＳ Ｐゴシック"_s, .fontSize = 10, .color = 16777215};
    const LineStyle lower{.fontName = u"ＭＳ Ｐゴシック"_s, .fontSize = 10, .color = 65280};
    QCOMPARE(settings.upper, upper);
    QCOMPARE(settings.lower, lower);
    QCOMPARE(settings.backColor, 0);
    QCOMPARE(settings.chimeMode, 0);
    QCOMPARE(settings.chimeSound, u"鳩時計の音"_s);
    QCOMPARE(settings.function, 0);
    QCOMPARE(settings.wipeSpeed, 25);
    QCOMPARE(settings.wipeKind, 2);
    QCOMPARE(settings.language, 0);
    QCOMPARE(settings.yearStyle, 0);
    QCOMPARE(settings.displayMode, 0);
    QCOMPARE(settings.hourStyle, 0);
    QCOMPARE(settings.rollInterval, 10);
}

void TstSettings::LoadingWritesNothing() {
    const FakeSettingsStore store;
    AppSettings settings = Loaded(store);
    WindowGeometry geometry;
    LoadWindowGeometry(store, settings, geometry);
    QVERIFY(store.Written().isEmpty());
    QVERIFY(store.Values().isEmpty());
}

void TstSettings::KeysAreReadInTheirOrder() {
    const FakeSettingsStore store;
    Loaded(store);
    QStringList asked;
    for (const auto& [section, key] : store.Asked()) {
        asked.append(section + u'/' + key);
    }
    const QString expected =
        u"SetUp/Clock_Int SetUp/Clock_File SetUp/Function SetUp/Op_Speed SetUp/Op_Waip SetUp/BackColor "
        u"SetUp/A_Font "
        "SetUp/B_Font SetUp/A_Color SetUp/B_Color SetUp/A_Size SetUp/B_Size SetUp/A_Bold SetUp/B_Bold "
        "SetUp/A_Italic "
        "SetUp/B_Italic SetUp/A_Strikethru SetUp/B_Strikethru SetUp/A_UnderLine SetUp/B_UnderLine "
        "Digital/Language "
        "Digital/TypeYear Digital/DisMode Digital/TypeHour"_s;
    QCOMPARE(asked.join(u' '), expected);
}

void TstSettings::GeometryIsReadWidthFirst() {
    const FakeSettingsStore store;
    AppSettings settings;
    WindowGeometry geometry;
    LoadWindowGeometry(store, settings, geometry);
    const QList<FakeSettingsStore::Address> expected{{u"SetUp"_s, u"Win_Width"_s},
                                                     {u"SetUp"_s, u"Win_Top"_s},
                                                     {u"SetUp"_s, u"Win_Left"_s},
                                                     {u"Wape"_s, u"Time"_s}};
    QCOMPARE(store.Asked(), expected);
}

void TstSettings::AllKeysAreWrittenInTheirOrder() {
    FakeSettingsStore store;
    SaveSettings(store, Loaded(store), {}, {2505, 0, 0});
    QStringList written;
    for (const auto& [section, key] : store.Written()) {
        written.append(section + u'/' + key);
    }
    const QString expected =
        u"SetUp/Op_Speed SetUp/Op_Waip SetUp/BackColor SetUp/A_Font SetUp/B_Font SetUp/A_Color SetUp/B_Color "
        u"SetUp/A_Size "
        "SetUp/B_Size SetUp/A_Bold SetUp/B_Bold SetUp/A_Italic SetUp/B_Italic SetUp/A_Strikethru "
        "SetUp/B_Strikethru "
        "SetUp/A_UnderLine SetUp/B_UnderLine SetUp/Win_Width SetUp/Win_Top SetUp/Win_Left SetUp/Function "
        "SetUp/Clock_File "
        "SetUp/Clock_Int Digital/Language Digital/TypeYear Digital/DisMode Digital/TypeHour"_s;
    QCOMPARE(written.join(u' '), expected);
    QCOMPARE(written.size(), 27);
    QCOMPARE(store.Commits(), 1);
    QCOMPARE(store.Values().value({u"SetUp"_s, u"A_Bold"_s}), u"False"_s);
    QCOMPARE(store.Values().value({u"SetUp"_s, u"A_Color"_s}), u"16777215"_s);
}

void TstSettings::TheRollIntervalIsReadAndNeverWritten() {
    FakeSettingsStore store;
    store.Put(u"Wape"_s, u"Time"_s, u"77"_s);
    AppSettings settings = Loaded(store);
    WindowGeometry geometry;
    LoadWindowGeometry(store, settings, geometry);
    QCOMPARE(settings.rollInterval, 77);
    settings.rollInterval = 5;
    SaveSettings(store, settings, {}, geometry);
    QCOMPARE(store.Values().value({u"Wape"_s, u"Time"_s}), u"77"_s);
    QVERIFY(!store.Written().contains({u"Wape"_s, u"Time"_s}));
}

void TstSettings::ValuesComeBackAsTheyWereSaved() {
    AppSettings settings;
    settings.chimeMode = 2;
    settings.chimeSound = u"人の掛け声"_s;
    settings.function = 5;
    settings.wipeSpeed = -400;
    settings.wipeKind = 9;
    settings.backColor = -2147483633;
    settings.upper = {.fontName = u"Gothic, Bold; \"x\""_s,
                      .fontSize = -3,
                      .color = 255,
                      .bold = true,
                      .strikethrough = true};
    settings.lower = {
        .fontName = u""_s, .fontSize = 32767, .color = 16711680, .italic = true, .underline = true};
    settings.language = 7;
    settings.yearStyle = 1;
    settings.displayMode = 2;
    settings.hourStyle = 3;
    FakeSettingsStore store;
    SaveSettings(store, settings, {}, {-15, 2147483647, -2147483647});
    AppSettings again = Loaded(store);
    WindowGeometry geometry;
    LoadWindowGeometry(store, again, geometry);
    again.rollInterval = 0;
    QCOMPARE(again, settings);
    QCOMPARE(geometry, (WindowGeometry{.width = -15, .top = 2147483647, .left = -2147483647}));
}

void TstSettings::AFontTheMachineDoesNotHaveIsWrittenBack() {
    FakeSettingsStore store;
    store.Put(u"SetUp"_s, u"A_Font"_s, u"No Such Font"_s);
    SaveSettings(store, Loaded(store), {}, {});
    QCOMPARE(store.Values().value({u"SetUp"_s, u"A_Font"_s}), u"No Such Font"_s);
    QCOMPARE(store.Values().value({u"SetUp"_s, u"B_Font"_s}), u"ＭＳ Ｐゴシック"_s);
}

void TstSettings::NumbersOutsideTheKnownOnesLoad() {
    FakeSettingsStore store;
    store.Put(u"SetUp"_s, u"Function"_s, u"99"_s);
    store.Put(u"SetUp"_s, u"Op_Speed"_s, u"-400"_s);
    store.Put(u"SetUp"_s, u"Op_Waip"_s, u"9"_s);
    store.Put(u"Digital"_s, u"Language"_s, u"7"_s);
    const AppSettings settings = Loaded(store);
    QCOMPARE(settings.function, 99);
    QCOMPARE(settings.wipeSpeed, -400);
    QCOMPARE(settings.wipeKind, 9);
    QCOMPARE(settings.language, 7);
}

void TstSettings::BadValuesAreNamed_data() {
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::newRow("word for a number") << u"SetUp"_s << u"Function"_s << u"clock"_s;
    QTest::newRow("present but empty") << u"SetUp"_s << u"Op_Speed"_s << u""_s;
    QTest::newRow("colour over 32 bits") << u"SetUp"_s << u"A_Color"_s << u"4294967295"_s;
    QTest::newRow("size over 16 bits") << u"SetUp"_s << u"A_Size"_s << u"32768"_s;
    QTest::newRow("size of the lower line") << u"SetUp"_s << u"B_Size"_s << u"-32769"_s;
    QTest::newRow("no flag") << u"SetUp"_s << u"B_UnderLine"_s << u"yes"_s;
    QTest::newRow("the last key") << u"Digital"_s << u"TypeHour"_s << u"12h"_s;
}

void TstSettings::BadValuesAreNamed() {
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, value);
    FakeSettingsStore store;
    store.Put(section, key, value);
    try {
        Loaded(store);
        QFAIL("the value was taken");
    } catch (const SettingsError& error) {
        QVERIFY2(error.Reason().startsWith(u'[' + section + u"] " + key + u'=' + value), error.what());
    }
}

void TstSettings::BadGeometryIsNamed_data() {
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::newRow("width") << u"SetUp"_s << u"Win_Width"_s;
    QTest::newRow("top") << u"SetUp"_s << u"Win_Top"_s;
    QTest::newRow("left") << u"SetUp"_s << u"Win_Left"_s;
    QTest::newRow("roll interval") << u"Wape"_s << u"Time"_s;
}

void TstSettings::BadGeometryIsNamed() {
    QFETCH(QString, section);
    QFETCH(QString, key);
    FakeSettingsStore store;
    store.Put(section, key, u"wide"_s);
    AppSettings settings;
    WindowGeometry geometry;
    Loaded(store);  // loading the settings ignores these keys
    try {
        LoadWindowGeometry(store, settings, geometry);
        QFAIL("the value was taken");
    } catch (const SettingsError& error) {
        QVERIFY2(error.Reason().startsWith(u'[' + section + u"] " + key + u"=wide"), error.what());
    }
}

void TstSettings::LoadingStopsAtTheFirstBadValue() {
    FakeSettingsStore store;
    store.Put(u"Digital"_s, u"Language"_s, u"x"_s);
    store.Put(u"SetUp"_s, u"Op_Waip"_s, u"y"_s);
    try {
        Loaded(store);
        QFAIL("the value was taken");
    } catch (const SettingsError& error) {
        QVERIFY(error.Reason().contains(u"Op_Waip"_s));
        QCOMPARE(store.Asked().constLast(), FakeSettingsStore::Address(u"SetUp"_s, u"Op_Waip"_s));
    }
}

void TstSettings::AStoredWidthOfTwips2505Point6Is2506() {
    FakeSettingsStore store;
    store.Put(u"SetUp"_s, u"Win_Width"_s, u"2505.6"_s);
    AppSettings settings = Loaded(store);
    WindowGeometry geometry;
    LoadWindowGeometry(store, settings, geometry);
    QCOMPARE(geometry.width, 2506);
    SaveSettings(store, settings, {}, geometry);
    QCOMPARE(store.Values().value({u"SetUp"_s, u"Win_Width"_s}), u"2506"_s);
}

void TstSettings::KeysLiveInTheirSection() {
    FakeSettingsStore store;
    store.Put(u"SetUp"_s, u"Language"_s, u"2"_s);
    QCOMPARE(Loaded(store).language, 0);
}

void TstSettings::AnEmptyTextIsAText() {
    FakeSettingsStore store;
    store.Put(u"SetUp"_s, u"Clock_File"_s, u""_s);
    QCOMPARE(Loaded(store).chimeSound, QString());
}

void TstSettings::AFirstStartDoesNotRollAndReportsAMissingDrive() {
    const FakeSettingsStore store;
    const FurtherSettings further = LoadedFurther(store);
    QCOMPARE(further.roll.use, false);
    QCOMPARE(further.roll.kinds, (QList<qint32>{0, 1, 4, 5}));
    QCOMPARE(further.roll.interval, 10);
    QCOMPARE(further.tellsNoCdDrive, true);
    QCOMPARE(further, FurtherSettings());
}

void TstSettings::FurtherSettingsAtTheirDefaultsAreNotWritten() {
    FakeSettingsStore store;
    SaveSettings(store, Loaded(store), {}, {});
    QCOMPARE(store.Written().size(), 27);
}

void TstSettings::ChangedFurtherSettingsAreWrittenAfterTheOtherKeys() {
    FakeSettingsStore store;
    SaveSettings(store, Loaded(store), {{true, {0, 5}, 3}, false}, {});
    QCOMPARE(WrittenBehindTheOthers(store),
             u"Roll/Use=True Roll/Kinds=0,5 Roll/Interval=3 Notice/NoCdDrive=False"_s);
    QCOMPARE(store.Commits(), 1);
}

void TstSettings::FurtherKeysInTheFileAreWrittenEvenWithDefaults() {
    FakeSettingsStore store;
    store.Put(u"Roll"_s, u"Interval"_s, u"60"_s);
    store.Put(u"Notice"_s, u"NoCdDrive"_s, u"False"_s);
    SaveSettings(store, Loaded(store), {}, {});
    QCOMPARE(WrittenBehindTheOthers(store), u"Roll/Interval=10 Notice/NoCdDrive=True"_s);
}

void TstSettings::TheNoticeIsWrittenByItself() {
    for (const bool tells : {false, true}) {
        FakeSettingsStore store;
        FurtherSettings further;
        further.tellsNoCdDrive = tells;
        SaveNotice(store, further);
        QCOMPARE(store.Written().size(), 1);
        QCOMPARE(store.Commits(), 1);
        QCOMPARE(store.Get(u"Notice"_s, u"NoCdDrive"_s), tells ? u"True"_s : u"False"_s);
    }
}

void TstSettings::FurtherSettingsComeBackAsTheyWereSaved_data() {
    QTest::addColumn<bool>("use");
    QTest::addColumn<QList<qint32>>("kinds");
    QTest::addColumn<qint32>("interval");
    QTest::addColumn<bool>("tells");
    QTest::newRow("on, all") << true << QList<qint32>{0, 1, 4, 5} << 10 << true;
    QTest::newRow("two, quickly") << true << QList<qint32>{1, 4} << 1 << false;
    QTest::newRow("none is chosen") << false << QList<qint32>() << 3600 << true;
    QTest::newRow("numbers that mean nothing") << true << QList<qint32>{5, 99, -1, 5} << -7 << false;
}

void TstSettings::FurtherSettingsComeBackAsTheyWereSaved() {
    QFETCH(bool, use);
    QFETCH(QList<qint32>, kinds);
    QFETCH(qint32, interval);
    QFETCH(bool, tells);
    const FurtherSettings saved{.roll = {.use = use, .kinds = kinds, .interval = interval},
                                .tellsNoCdDrive = tells};
    FakeSettingsStore store;
    SaveSettings(store, Loaded(store), saved, {});
    QCOMPARE(LoadedFurther(store), saved);
}

void TstSettings::BadFurtherValuesAreNamed_data() {
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::newRow("no flag") << u"Roll"_s << u"Use"_s << u"on"_s;
    QTest::newRow("a word among numbers") << u"Roll"_s << u"Kinds"_s << u"0,clock"_s;
    QTest::newRow("blanks between commas") << u"Roll"_s << u"Kinds"_s << u"0, ,1"_s;
    QTest::newRow("no number") << u"Roll"_s << u"Interval"_s << u""_s;
    QTest::newRow("notice") << u"Notice"_s << u"NoCdDrive"_s << u"never"_s;
}

void TstSettings::BadFurtherValuesAreNamed() {
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, value);
    FakeSettingsStore store;
    store.Put(section, key, value);
    try {
        LoadedFurther(store);
        QFAIL("the value was taken");
    } catch (const SettingsError& error) {
        QVERIFY2(error.Reason().startsWith(u'[' + section + u"] " + key + u'=' + value), error.what());
    }
}

QTEST_GUILESS_MAIN(TstSettings)
#include "tst_settings.moc"
