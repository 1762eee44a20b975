// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColorDialog>
#include <QLineEdit>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"
#include "shell/main_window_accessible.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// The settings dialog with the main window.
class TstSettingsWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ItHasFivePages();
    void ItsControlsAreNamed_data();
    void ItsControlsAreNamed();
    void EveryControlSaysWhatItIs();
    void OptionsShowWhatIsStored_data();
    void OptionsShowWhatIsStored();
    void OptionsWriteTheirTextsOnTheLines_data();
    void OptionsWriteTheirTextsOnTheLines();
    void TheLanguageSaysWhatTheYearStylesAreCalled();
    void WhatNoControlShowsSurvives();
    void EverySettingSurvivesOkCloseAndRestart();
    void ApplyReachesTheMainWindowsLines();
    void CancelDropsTheCopy_data();
    void CancelDropsTheCopy();
    void CancelAfterApplyKeepsWhatWasApplied();
    void OkAppliesRefreshesAndCloses();
    void ApplyReadsTheDateLineAtOnce();
    void AFunctionThatTheRollChangedIsNotBroughtBack();
    void ApplyDoesNotEndARunningCountdown();
    void ApplyDoesNotLoseALapList();
    void NothingIsStoredBeforeTheMainWindowCloses();
    void AnErrorIsReportedAndTheDialogStays();
    void ItBlocksTheOtherWindowsAndNothingComesAboveIt_data();
    void ItBlocksTheOtherWindowsAndNothingComesAboveIt();
    void ItsKeysAreThoseOfADialog();
    void TheTabKeyFollowsTheScreen();
    void TabGoesToTheChosenOption_data();
    void TabGoesToTheChosenOption();
    void ArrowsChooseOptions();
    void TheHelpOpensAtTheSettings();
};

void TstSettingsWindow::initTestCase() {
    InstallFontSubstitutes();
    InstallMainWindowAccessibility();
}

void TstSettingsWindow::ItHasFivePages() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.form->windowTitle(), u"環境設定"_s);
    const auto& tabs = bench.Child<QTabWidget>(u"TabStrip1"_s);
    QStringList pages;
    for (int i = 0; i < tabs.count(); ++i) {
        pages.append(tabs.tabText(i) + u' ' + tabs.widget(i)->objectName());
    }
    QCOMPARE(pages, (QStringList{u"文字表示 Picture1"_s, u"時計 Picture3"_s, u"ロール Picture2"_s,
                                 u"時報 Picture4"_s, u"データベース Picture5"_s}));
}

void TstSettingsWindow::ItsControlsAreNamed_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    const QList<std::pair<QString, QString>> rows{
        {u"Command1"_s, u"OK"_s},
        {u"Command2"_s, u"キャンセル"_s},
        {u"Command3"_s, u"適用"_s},
        {u"Command4"_s, u"データベースの最適化＞＞"_s},
        {u"Command5"_s, u"背景色＞＞"_s},
        {u"Command6"_s, u"上段文字＞＞"_s},
        {u"Command7"_s, u"下段文字＞＞"_s},
        {u"Command8"_s, u"ヘルプ"_s},
        {u"Option1(0)"_s, u"ロール機能を使用しない"_s},
        {u"Option1(1)"_s, u"ロール機能を使用する"_s},
        {u"Option2(0)"_s, u"左から右"_s},
        {u"Option2(3)"_s, u"下から上"_s},
        {u"Option3(0)"_s, u"日本語"_s},
        {u"Option3(1)"_s, u"英語"_s},
        {u"Option3(2)"_s, u"古代日本"_s},
        {u"Option5(0)"_s, u"標準表示"_s},
        {u"Option5(1)"_s, u"簡略表示"_s},
        {u"Option6(0)"_s, u"12時間制"_s},
        {u"Option6(1)"_s, u"24時間制"_s},
        {u"Option7(0)"_s, u"30分おき"_s},
        {u"Option7(1)"_s, u"1時間おき"_s},
        {u"Option7(2)"_s, u"利用しない"_s},
        {u"Check1"_s, u"デジタル時計"_s},
        {u"Check2"_s, u"Windows時計"_s},
        {u"Check3"_s, u"バッテリー監視（AC電源時は無効）"_s},
        {u"Check4"_s, u"メモリー監視"_s},
        {u"Autostart"_s, u"ログイン時に起動する"_s},
    };
    for (const auto& [name, caption] : rows) {
        QTest::newRow(qPrintable(name)) << name << caption;
    }
}

void TstSettingsWindow::ItsControlsAreNamed() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Button(name).text(), caption);
}

void TstSettingsWindow::EveryControlSaysWhatItIs() {
    SettingsBench bench;
    bench.Open();
    for (const QAbstractButton* button :
         bench.form->findChildren<QAbstractButton*>(QRegularExpression(u"^[A-Z]"_s))) {
        QVERIFY2(!button->text().isEmpty() || !button->accessibleName().isEmpty(),
                 qPrintable(button->objectName()));
    }
    for (const char* name : {"Slider1", "Combo1", "UpDown1"}) {
        QVERIFY2(!bench.Child<QWidget>(QLatin1StringView(name)).accessibleName().isEmpty(), name);
    }
    QVERIFY(bench.form->findChild<QLineEdit*>(u"Text1"_s) != nullptr);
}

void TstSettingsWindow::OptionsShowWhatIsStored_data() {
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

void TstSettingsWindow::OptionsShowWhatIsStored() {
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

void TstSettingsWindow::OptionsWriteTheirTextsOnTheLines_data() {
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

void TstSettingsWindow::OptionsWriteTheirTextsOnTheLines() {
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

void TstSettingsWindow::TheLanguageSaysWhatTheYearStylesAreCalled() {
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

void TstSettingsWindow::WhatNoControlShowsSurvives() {
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

void TstSettingsWindow::EverySettingSurvivesOkCloseAndRestart() {
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
    auto* picker = bench.form->findChild<QDialog*>(u"StylePicker"_s);
    picker->findChild<QAbstractButton*>(u"Bold"_s)->click();
    picker->accept();
    bench.Click(u"Command5"_s);
    auto* colours = bench.form->findChild<QColorDialog*>();
    colours->setCurrentColor(QColor(0, 0, 128));
    colours->accept();
    bench.Click(u"Command1"_s);
    bench.main.form->close();

    SettingsBench again;
    for (const auto& [address, value] : bench.main.store.Values().asKeyValueRange()) {
        again.main.store.Put(address.first, address.second, value);
    }
    again.Open();
    QCOMPARE(again.main.settings, bench.main.settings);
    QCOMPARE(again.main.further, (FurtherSettings{{true, {0, 1, 5}, 3600}, true}));
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

void TstSettingsWindow::ApplyReachesTheMainWindowsLines() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option2(0)"_s);
    bench.Child<QSlider>(u"Slider1"_s).setValue(10);
    bench.Click(u"Command7"_s);
    auto* picker = bench.form->findChild<QDialog*>(u"StylePicker"_s);
    picker->findChild<QSpinBox*>(u"Size"_s)->setValue(20);
    picker->findChild<QAbstractButton*>(u"UnderLine"_s)->click();
    picker->accept();
    const int height = bench.main.form->height();
    QCOMPARE(bench.main.Lower().FrameInterval(), 20);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.Upper().WipeKind(), 0);
    QCOMPARE(bench.main.Lower().FrameInterval(), 50);  // 70 - 2 * 10
    QCOMPARE(bench.main.Upper().StepSize(), 2);        // 10 * 10 / 100 + 1
    QCOMPARE(bench.main.Lower().StepSize(), 3);
    QVERIFY(bench.main.Lower().font().underline() && !bench.main.Upper().font().underline());
    QVERIFY(bench.main.form->height() > height);
    QVERIFY(bench.form->isVisible());
}

void TstSettingsWindow::CancelDropsTheCopy_data() {
    QTest::addColumn<QString>("way");
    QTest::newRow("button") << u"Command2"_s;
    QTest::newRow("Esc") << u"Esc"_s;
    QTest::newRow("title bar") << u"close"_s;
}

void TstSettingsWindow::CancelDropsTheCopy() {
    QFETCH(QString, way);
    SettingsBench bench;
    bench.Open();
    const AppSettings before = bench.main.settings;
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Option1(1)"_s);
    bench.Child<QSlider>(u"Slider1"_s).setValue(1);
    if (way == u"Esc") {
        QTest::keyClick(bench.form.get(), Qt::Key_Escape);
    } else if (way == u"close") {
        bench.form->close();
    } else {
        bench.Click(way);
    }
    QVERIFY(!bench.form->isVisible());
    QCOMPARE(bench.main.settings, before);
    QCOMPARE(bench.main.further, FurtherSettings());
    QVERIFY(!bench.asked.contains(u"apply"_s));
}

void TstSettingsWindow::CancelAfterApplyKeepsWhatWasApplied() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command3"_s);
    bench.Click(u"Option3(2)"_s);
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.main.settings.language, 1);
    QCOMPARE(bench.main.Upper().Text(), u"November 15,1998 Sunday"_s);
}

void TstSettingsWindow::OkAppliesRefreshesAndCloses() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.asked, (QStringList{u"hold 1"_s, u"apply"_s, u"refresh 1"_s, u"hold 0"_s}));
    QVERIFY(!bench.form->isVisible());
}

void TstSettingsWindow::ApplyReadsTheDateLineAtOnce() {
    SettingsBench bench;
    bench.main.dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('七五三',0,11,15,0)");
    bench.Open();
    bench.main.time.Advance(10'000);
    QCOMPARE(bench.main.Upper().Text(), u"七五三"_s);
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.Upper().Text(), u"November 15,1998 Sunday"_s);
    bench.main.time.Advance(10'000);
    QCOMPARE(bench.main.Upper().Text(), u"七五三"_s);
    bench.main.time.Advance(10'000);
    QCOMPARE(bench.main.Upper().Text(), u"November 15,1998 Sunday"_s);
}

void TstSettingsWindow::AFunctionThatTheRollChangedIsNotBroughtBack() {
    SettingsBench bench;
    bench.main.store.Put(u"Roll"_s, u"Use"_s, u"True"_s);
    bench.Open();
    bench.main.time.Advance(10'000);
    QCOMPARE(bench.main.settings.function, 1);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.settings.function, 1);
    QCOMPARE(bench.main.Upper().Text(), u"Windows使用時間"_s);
}

void TstSettingsWindow::ApplyDoesNotEndARunningCountdown() {
    SettingsBench bench;
    bench.main.countdown.CountdownDuration = 60'000;
    bench.main.store.Put(u"SetUp"_s, u"Function"_s, u"3"_s);
    bench.Open();
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"TimerForm") {
            window->findChild<QPushButton*>(u"Command1"_s)->click();
        }
    }
    QVERIFY(bench.main.countdown.CountdownRunning);
    const qint32 start = bench.main.countdown.CountdownStart;
    bench.main.time.Advance(1'000);
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.countdown.CountdownRunning);
    QCOMPARE(bench.main.countdown.CountdownStart, start);
    QCOMPARE(bench.main.Lower().Text(), u"0:01'00\"000"_s);
    bench.main.time.Advance(1'000);
    QVERIFY(bench.main.Lower().Text().startsWith(u"0:00'58\"0"));  // updated once per frame
    QCOMPARE(bench.main.settings.function, 3);
}

void TstSettingsWindow::ApplyDoesNotLoseALapList() {
    SettingsBench bench;
    bench.main.stopwatch = {300'000, 0, true, 2, u"Lapse1 0:00'01\"000\r\nLapse2 0:00'02\"000"_s};
    bench.main.store.Put(u"SetUp"_s, u"Function"_s, u"2"_s);
    bench.Open();
    bench.main.time.Advance(1'000);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.stopwatch.StopwatchRunning);
    QCOMPARE(bench.main.stopwatch.StopwatchLapCount, 2);
    QCOMPARE(bench.main.stopwatch.StopwatchLapText, u"Lapse1 0:00'01\"000\r\nLapse2 0:00'02\"000"_s);
    QCOMPARE(bench.main.Lower().Text(), u"0:00'19\"000"_s);
}

void TstSettingsWindow::NothingIsStoredBeforeTheMainWindowCloses() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.store.Written().isEmpty());
}

void TstSettingsWindow::AnErrorIsReportedAndTheDialogStays() {
    SettingsBench bench;
    bench.operations.apply = [] { throw RunTimeError(u"だめです。"_s); };
    bench.Open();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.boxes.Shown().size(), 1);
    QVERIFY(bench.form->isVisible());
}

void TstSettingsWindow::ItBlocksTheOtherWindowsAndNothingComesAboveIt_data() {
    QTest::addColumn<QString>("button");
    QTest::newRow("OK") << u"Command1"_s;
    QTest::newRow("cancel") << u"Command2"_s;
    QTest::newRow("Esc") << QString();
}

void TstSettingsWindow::ItBlocksTheOtherWindowsAndNothingComesAboveIt() {
    QFETCH(QString, button);
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.form->windowModality(), Qt::ApplicationModal);
    QVERIFY(QApplication::activeModalWidget() == bench.form.get());
    bench.form->move(bench.main.form->geometry().bottomRight() + QPoint(100, 100));
    bench.main.time.Advance(60'000);
    QVERIFY(bench.main.stack.raised.isEmpty());
    if (button.isEmpty()) {
        QTest::keyClick(bench.form.get(), Qt::Key_Escape);
    } else {
        bench.Click(button);
    }
    bench.main.time.Advance(2'000);
    QCOMPARE(bench.main.stack.raised.size(), 1);
}

void TstSettingsWindow::ItsKeysAreThoseOfADialog() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(bench.Child<QPushButton>(u"Command1"_s).isDefault());
    const auto& tabs = bench.Child<QTabWidget>(u"TabStrip1"_s);
    QVERIFY(tabs.hasFocus() || bench.form->focusWidget() == tabs.tabBar());
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Right);
    QCOMPARE(tabs.currentIndex(), 1);
    QTest::keyClick(bench.form.get(), Qt::Key_Return);
    QVERIFY(!bench.form->isVisible());
    QVERIFY(bench.asked.contains(u"apply"_s));
}

void TstSettingsWindow::TheTabKeyFollowsTheScreen() {
    SettingsBench bench;
    bench.Open();
    QStringList visited;
    while (visited.size() < 20 && !visited.contains(u"Command8"_s)) {
        QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
        visited.append(bench.form->focusWidget()->objectName());
    }
    const QString expected =
        u"Option2(2) Slider1 Command6 Command7 Command5 Autostart Command1 "
        "Command2 Command3 Command8"_s;
    QCOMPARE(visited.join(u' '), expected);
}

void TstSettingsWindow::TabGoesToTheChosenOption_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("click");
    QTest::addColumn<QStringList>("reached");
    const QStringList all{u"Option2(0)"_s, u"Option2(1)"_s, u"Option2(2)"_s, u"Option2(3)"_s};
    QTest::newRow("the first") << u"0"_s << QString() << QStringList{u"Option2(0)"_s};
    QTest::newRow("the last") << u"3"_s << QString() << QStringList{u"Option2(3)"_s};
    QTest::newRow("chosen without the keyboard") << u"3"_s << u"Option2(1)"_s << QStringList{u"Option2(1)"_s};
    QTest::newRow("none is chosen") << u"9"_s << QString() << all;
    QTest::newRow("chosen where none was") << u"9"_s << u"Option2(1)"_s << QStringList{u"Option2(1)"_s};
}

void TstSettingsWindow::TabGoesToTheChosenOption() {
    QFETCH(QString, stored);
    QFETCH(QString, click);
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, stored);
    bench.Open();
    if (!click.isEmpty()) {
        bench.Click(click);
    }
    QStringList reached;
    for (QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
         bench.form->focusWidget()->objectName().startsWith(u"Option2") && reached.size() < 9;
         QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab)) {
        reached.append(bench.form->focusWidget()->objectName());
    }
    QTEST(reached, "reached");
}

void TstSettingsWindow::ArrowsChooseOptions() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"1"_s);
    bench.Open();
    QApplication::setActiveWindow(bench.form.get());
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Down);
    QCOMPARE(bench.Selected(u"Option2"_s), 2);
    QCOMPARE(bench.form->focusWidget()->objectName(), u"Option2(2)"_s);
    QCOMPARE(bench.Sample(1).WipeKind(), 2);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
    QCOMPARE(bench.form->focusWidget()->objectName(), u"Slider1"_s);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Backtab);
    QCOMPARE(bench.form->focusWidget()->objectName(), u"Option2(2)"_s);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Up);
    QCOMPARE(bench.Selected(u"Option2"_s), 1);
}

void TstSettingsWindow::TheHelpOpensAtTheSettings() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command8"_s);
    QCOMPARE(bench.help.topics, QList<int>{41});
}

QTEST_MAIN(TstSettingsWindow)
#include "tst_settings_window.moc"
