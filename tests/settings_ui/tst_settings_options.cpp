// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColorDialog>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

/// How the controls show the stored settings, and which settings result from using them.
class TstSettingsOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void OptionsShowWhatIsStored_data();
    void OptionsShowWhatIsStored();
    void OptionsWriteTheirTextsOnTheLines_data();
    void OptionsWriteTheirTextsOnTheLines();
    void TheLanguageSaysWhatTheYearStylesAreCalled();
    void WhatNoControlShowsSurvives();
    void EverySettingSurvivesOkCloseAndRestart();
};

void TstSettingsOptions::initTestCase() {
    lines::InstallFontSubstitutes();
}

void TstSettingsOptions::OptionsShowWhatIsStored_data() {
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("array");
    QTest::addColumn<qint32>("indexes");
    QTest::newRow("wipe") << u"SetUp"_s << u"Op_Waip"_s << u"Option2"_s << 4;
    QTest::newRow("language") << u"Digital"_s << u"Language"_s << u"Option3"_s << 3;
    QTest::newRow("year style") << u"Digital"_s << u"TypeYear"_s << u"Option4"_s << 2;
    QTest::newRow("display mode") << u"Digital"_s << u"DisMode"_s << u"Option5"_s << 2;
    QTest::newRow("hour style") << u"Digital"_s << u"TypeHour"_s << u"Option6"_s << 2;
    QTest::newRow("chime") << u"SetUp"_s << u"Clock_Int"_s << u"Option7"_s << 3;
}

void TstSettingsOptions::OptionsShowWhatIsStored() {
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, array);
    QFETCH(qint32, indexes);
    for (qint32 stored = -1; stored <= indexes; ++stored) {
        SettingsBench bench;
        bench.main.store.Put(section, key, QString::number(stored));
        bench.Open();
        QCOMPARE(bench.Selected(array), stored < indexes ? stored : -1);
        bench.Click(array + u"(0)");
        QCOMPARE(bench.Selected(array), 0);
    }
}

void TstSettingsOptions::OptionsWriteTheirTextsOnTheLines_data() {
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("lower");
    const QString date = u"平成10年11月15日(日曜日)"_s;
    QTest::newRow("nothing") << QStringList() << date << u"午後9時05分18秒"_s;
    QTest::newRow("24 hours") << QStringList{u"Option6(1)"_s} << date << u"21時05分18秒"_s;
    QTest::newRow("12 hours again") << QStringList{u"Option6(1)"_s, u"Option6(0)"_s} << date
                                    << u"午後9時05分18秒"_s;
    QTest::newRow("simple") << QStringList{u"Option5(1)"_s} << u"平10/11/15(日)"_s << u"午後9:05:18"_s;
    QTest::newRow("western year") << QStringList{u"Option4(1)"_s} << u"1998年11月15日(日曜日)"_s
                                  << u"午後9時05分18秒"_s;
    QTest::newRow("English") << QStringList{u"Option3(1)"_s} << u"November 15,1998 Sunday"_s
                             << u"PM9:05:18"_s;
    QTest::newRow("English, month a number, short")
        << QStringList{u"Option3(1)"_s, u"Option4(1)"_s, u"Option5(1)"_s, u"Option6(1)"_s}
        << u"11/15/1998 Sun."_s << u"21:05:18"_s;
    QTest::newRow("old Japan") << QStringList{u"Option3(2)"_s} << u"寅年 霜月 十五日"_s << u"亥の一刻"_s;
    QTest::newRow("Japanese again") << QStringList{u"Option3(2)"_s, u"Option3(0)"_s} << date
                                    << u"午後9時05分18秒"_s;
}

void TstSettingsOptions::OptionsWriteTheirTextsOnTheLines() {
    QFETCH(QStringList, clicks);
    QFETCH(QString, upper);
    QFETCH(QString, lower);
    SettingsBench bench;
    bench.Open();
    for (const QString& click : clicks) {
        bench.Click(click);
    }
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.Upper().Text(), upper);
    QCOMPARE(bench.main.Lower().Text(), lower);
    QVERIFY(bench.main.Upper().IsWiping());
}

void TstSettingsOptions::TheLanguageSaysWhatTheYearStylesAreCalled() {
    SettingsBench bench;
    bench.main.store.Put(u"Digital"_s, u"Language"_s, u"2"_s);
    bench.Open();
    const auto looks = [&]() -> QString {
        const auto& frame = bench.Child<QGroupBox>(u"Frame6"_s);
        bool enabled = frame.isEnabled();
        for (const QString& name :
             {u"Frame7"_s, u"Frame8"_s, u"Option4(0)"_s, u"Option4(1)"_s, u"Option5(0)"_s, u"Option6(1)"_s}) {
            if (bench.Child<QWidget>(name).isEnabled() != enabled) {
                return u"mixed: "_s + name;
            }
        }
        return u"%1 %2 %3 %4"_s.arg(frame.title(), bench.Button(u"Option4(0)"_s).text(),
                                    bench.Button(u"Option4(1)"_s).text(), enabled ? u"on"_s : u"off"_s);
    };
    QCOMPARE(looks(), u"年号 平成 西暦 off"_s);
    bench.Click(u"Option3(1)"_s);
    QCOMPARE(looks(), u"月名 英語 数字 on"_s);
    bench.Click(u"Option3(2)"_s);
    QCOMPARE(looks(), u"月名 英語 数字 off"_s);
    bench.Click(u"Option3(0)"_s);
    QCOMPARE(looks(), u"年号 平成 西暦 on"_s);
}

void TstSettingsOptions::WhatNoControlShowsSurvives() {
    for (const QString& speed : {u"-400"_s, u"0"_s, u"35"_s, u"1000"_s}) {
        SettingsBench bench;
        const auto put = [&](const QString& section, const QString& key, const QString& value) {
            bench.main.store.Put(section, key, value);
        };
        put(u"SetUp"_s, u"Op_Speed"_s, speed);
        put(u"SetUp"_s, u"Op_Waip"_s, u"9"_s);
        put(u"SetUp"_s, u"Clock_Int"_s, u"-3"_s);
        put(u"SetUp"_s, u"Clock_File"_s, u"機械時計［高い音］"_s);  // different brackets
        put(u"SetUp"_s, u"Function"_s, u"1"_s);
        put(u"SetUp"_s, u"A_Font"_s, u"No Such Font"_s);
        put(u"SetUp"_s, u"BackColor"_s, u"-2147483633"_s);
        put(u"Digital"_s, u"Language"_s, u"7"_s);
        put(u"Digital"_s, u"TypeYear"_s, u"5"_s);
        put(u"Digital"_s, u"DisMode"_s, u"2"_s);
        put(u"Digital"_s, u"TypeHour"_s, u"-1"_s);
        put(u"Roll"_s, u"Kinds"_s, u"5,99,2"_s);
        put(u"Roll"_s, u"Interval"_s, u"5000"_s);
        bench.Open();
        const AppSettings before = bench.main.settings;
        const FurtherSettings furtherBefore = bench.main.further;
        for (const char* array : {"Option2", "Option3", "Option4", "Option5", "Option6", "Option7"}) {
            QCOMPARE(bench.Selected(QLatin1StringView(array)), -1);
        }
        QCOMPARE(bench.Child<QComboBox>(u"Combo1"_s).currentText(), u"機械時計［高い音］"_s);
        bench.Click(u"Command1"_s);
        QCOMPARE(bench.main.settings, before);
        QCOMPARE(bench.main.further, furtherBefore);
    }
}

void TstSettingsOptions::EverySettingSurvivesOkCloseAndRestart() {
    SettingsBench bench;
    bench.Open();
    for (const QString& click : {u"Option2(3)"_s, u"Option3(1)"_s, u"Option4(1)"_s, u"Option5(1)"_s,
                                 u"Option6(1)"_s, u"Option7(2)"_s, u"Option1(1)"_s, u"Check3"_s}) {
        bench.Click(click);
    }
    bench.Child<QSlider>(u"Slider1"_s).setValue(34);
    bench.Child<QSpinBox>(u"UpDown1"_s).setValue(3600);
    auto& sounds = bench.Child<QComboBox>(u"Combo1"_s);
    sounds.setCurrentIndex(4);
    Q_EMIT sounds.activated(4);
    bench.Click(u"Command6"_s);
    QDialog& picker = bench.StylePicker();
    ChildOf<QAbstractButton>(picker, u"Bold"_s).click();
    picker.accept();
    bench.Click(u"Command5"_s);
    QColorDialog& colours = bench.ColourPicker();
    colours.setCurrentColor(QColor(0, 0, 128));
    colours.accept();
    bench.Click(u"Command1"_s);
    bench.main.form->close();

    SettingsBench again;
    for (const auto& [address, value] : bench.main.store.Values().asKeyValueRange()) {
        again.main.store.Put(address.first, address.second, value);
    }
    again.Open();
    QCOMPARE(again.main.settings, bench.main.settings);
    QCOMPARE(again.main.further, (FurtherSettings{.roll = {.use = true, .kinds = {0, 1, 5}, .interval = 3600},
                                                  .tellsNoCdDrive = true}));
    QVERIFY(again.main.settings.upper.bold && !again.main.settings.lower.bold);
    QCOMPARE(again.main.settings.upper.fontName, u"ＭＳ Ｐゴシック"_s);
    QCOMPARE(again.main.settings.backColor, 8388608);
    QCOMPARE(again.Selected(u"Option2"_s), 3);
    QCOMPARE(again.Selected(u"Option3"_s), 1);
    QCOMPARE(again.Selected(u"Option4"_s), 1);
    QCOMPARE(again.Selected(u"Option5"_s), 1);
    QCOMPARE(again.Selected(u"Option6"_s), 1);
    QCOMPARE(again.Selected(u"Option7"_s), 2);
    QCOMPARE(again.Selected(u"Option1"_s), 1);
    QVERIFY(!again.Button(u"Check3"_s).isChecked() && again.Button(u"Check4"_s).isChecked());
    QCOMPARE(again.Child<QSlider>(u"Slider1"_s).value(), 34);
    QCOMPARE(again.Child<QSpinBox>(u"UpDown1"_s).value(), 3600);
    QCOMPARE(again.Child<QComboBox>(u"Combo1"_s).currentText(), u"人の掛け声"_s);
    QCOMPARE(again.main.Upper().Text(), u"11/15/1998 Sun."_s);
}

QTEST_MAIN(TstSettingsOptions)
#include "tst_settings_options.moc"
