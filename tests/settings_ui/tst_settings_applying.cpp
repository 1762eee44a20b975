// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"
#include "support/window.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

/// Which settings the main window uses after Apply, OK and Cancel.
class TstSettingsApplying : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
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
};

void TstSettingsApplying::initTestCase() {
    lines::InstallFontSubstitutes();
}

void TstSettingsApplying::ApplyReachesTheMainWindowsLines() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option2(0)"_s);
    bench.Child<QSlider>(u"Slider1"_s).setValue(10);
    bench.Click(u"Command7"_s);
    QDialog& picker = bench.StylePicker();
    ChildOf<QSpinBox>(picker, u"Size"_s).setValue(20);
    ChildOf<QAbstractButton>(picker, u"UnderLine"_s).click();
    picker.accept();
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

void TstSettingsApplying::CancelDropsTheCopy_data() {
    QTest::addColumn<QString>("way");
    QTest::newRow("button") << u"Command2"_s;
    QTest::newRow("Esc") << u"Esc"_s;
    QTest::newRow("title bar") << u"close"_s;
}

void TstSettingsApplying::CancelDropsTheCopy() {
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

void TstSettingsApplying::CancelAfterApplyKeepsWhatWasApplied() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command3"_s);
    bench.Click(u"Option3(2)"_s);
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.main.settings.language, 1);
    QCOMPARE(bench.main.Upper().Text(), u"November 15,1998 Sunday"_s);
}

void TstSettingsApplying::OkAppliesRefreshesAndCloses() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.asked, (QStringList{u"hold 1"_s, u"apply"_s, u"refresh 1"_s, u"hold 0"_s}));
    QVERIFY(!bench.form->isVisible());
}

void TstSettingsApplying::ApplyReadsTheDateLineAtOnce() {
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

void TstSettingsApplying::AFunctionThatTheRollChangedIsNotBroughtBack() {
    SettingsBench bench;
    bench.main.store.Put(u"Roll"_s, u"Use"_s, u"True"_s);
    bench.Open();
    bench.main.time.Advance(10'000);
    QCOMPARE(bench.main.settings.function, 1);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.settings.function, 1);
    QCOMPARE(bench.main.Upper().Text(), u"Windows使用時間"_s);
}

void TstSettingsApplying::ApplyDoesNotEndARunningCountdown() {
    SettingsBench bench;
    bench.main.countdown.CountdownDuration = 60'000;
    bench.main.store.Put(u"SetUp"_s, u"Function"_s, u"3"_s);
    bench.Open();
    ChildOf<QPushButton>(WindowNamed(u"TimerForm"_s), u"Command1"_s).click();
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

void TstSettingsApplying::ApplyDoesNotLoseALapList() {
    SettingsBench bench;
    bench.main.stopwatch = {.StopwatchStart = 300'000,
                            .StopwatchRunning = true,
                            .StopwatchLapCount = 2,
                            .StopwatchLapText = u"Lapse1 0:00'01\"000\r\nLapse2 0:00'02\"000"_s};
    bench.main.store.Put(u"SetUp"_s, u"Function"_s, u"2"_s);
    bench.Open();
    bench.main.time.Advance(1'000);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.stopwatch.StopwatchRunning);
    QCOMPARE(bench.main.stopwatch.StopwatchLapCount, 2);
    QCOMPARE(bench.main.stopwatch.StopwatchLapText, u"Lapse1 0:00'01\"000\r\nLapse2 0:00'02\"000"_s);
    QCOMPARE(bench.main.Lower().Text(), u"0:00'19\"000"_s);
}

void TstSettingsApplying::NothingIsStoredBeforeTheMainWindowCloses() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.store.Written().isEmpty());
}

void TstSettingsApplying::AnErrorIsReportedAndTheDialogStays() {
    SettingsBench bench;
    bench.operations.apply = [] { throw RunTimeError(u"だめです。"_s); };
    bench.Open();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.boxes.Shown().size(), 1);
    QVERIFY(bench.form->isVisible());
}

QTEST_MAIN(TstSettingsApplying)
#include "tst_settings_applying.moc"
