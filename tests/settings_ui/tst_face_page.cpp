// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

/// The settings page for the main window's appearance and position.
class TstFacePage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void AtFirstAllIsAsBefore();
    void SliderAndNumberAreOneOpacity();
    void AnOpacityOutOfRangeIsKept();
    void ItSaysWhetherWindowsAreTranslucent();
    void LongTextsHaveTwoWays();
    void TheWindowStaysOnScreen();
    void OnlyTheTextsAreShown();
    void AnUnknownOutlineIsKept();
    void ClicksGoThrough();
    void WithoutATrayItAsks();
    void AnAnswerAfterTheDialogIsIgnored();
    void TheWindowHidesUnderFullScreenWindows();
    void TheWindowIsInTheSwitcher();
    void TheOtherWindowsStayOnTop();
};

void TstFacePage::AtFirstAllIsAsBefore() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Child<QSlider>(u"Slider2"_s).value(), 100);
    QCOMPARE(bench.Child<QSpinBox>(u"UpDown2"_s).text(), u"100 %"_s);
    QVERIFY(!bench.Button(u"Check17"_s).isChecked());
    QVERIFY(!bench.Button(u"Option11(1)"_s).isEnabled());
    QVERIFY(!bench.Button(u"Check18"_s).isChecked());
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstFacePage::SliderAndNumberAreOneOpacity() {
    SettingsBench bench;
    bench.Open();
    auto& slider = bench.Child<QSlider>(u"Slider2"_s);
    auto& number = bench.Child<QSpinBox>(u"UpDown2"_s);
    slider.setValue(35);
    QCOMPARE(number.value(), 35);
    number.setValue(80);
    QCOMPARE(slider.value(), 80);
    slider.setValue(1);
    QCOMPARE(slider.value(), 20);
    QCOMPARE(bench.main.further.face.opacity, 100);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.face.opacity, 20);
    QVERIFY(qAbs(bench.main.form->windowOpacity() - 0.2) < 0.01);
}

void TstFacePage::AnOpacityOutOfRangeIsKept() {
    SettingsBench bench;
    bench.main.store.Put(u"Face"_s, u"Opacity"_s, u"7"_s);
    bench.Open();
    QCOMPARE(bench.Child<QSlider>(u"Slider2"_s).value(), 20);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.face.opacity, 7);
}

void TstFacePage::ItSaysWhetherWindowsAreTranslucent() {
    SettingsBench bench;
    bench.operations.isComposited = [] { return true; };
    bench.Open();
    QVERIFY(bench.form->findChild<QLabel*>(u"Label10"_s) == nullptr);
    bench.operations.isComposited = [] { return false; };
    bench.Open();
    QCOMPARE(bench.Child<QLabel>(u"Label10"_s).text(),
             u"このデスクトップでは、今は窓が透けません（コンポジターが動いていません）。"_s);
}

void TstFacePage::LongTextsHaveTwoWays() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Check17"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.face.longText, 1);
    bench.Click(u"Option11(2)"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.face.longText, 2);
    bench.Open();
    QVERIFY(bench.Button(u"Check17"_s).isChecked());
    QVERIFY(bench.Button(u"Option11(2)"_s).isChecked());
    bench.Click(u"Check17"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.face.longText, 0);
    bench.Click(u"Check17"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.face.longText, 2);  // the previous choice
}

void TstFacePage::TheWindowStaysOnScreen() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Check18"_s);
    bench.Click(u"Command1"_s);
    FurtherSettings expected;
    expected.face.staysOnScreen = true;
    QCOMPARE(bench.main.further, expected);
}

void TstFacePage::OnlyTheTextsAreShown() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(!bench.Button(u"Check19"_s).isChecked());
    QVERIFY(bench.Button(u"Option12(1)"_s).isChecked());
    QVERIFY(!bench.Button(u"Option12(2)"_s).isEnabled());
    bench.Click(u"Check19"_s);
    QVERIFY(bench.Button(u"Option12(2)"_s).isEnabled());
    bench.Click(u"Option12(2)"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
    bench.Click(u"Command1"_s);
    FurtherSettings expected;
    expected.face.transparent = true;
    expected.face.outline = 2;
    QCOMPARE(bench.main.further, expected);
    bench.Open();
    QVERIFY(bench.Button(u"Check19"_s).isChecked());
    QVERIFY(bench.Button(u"Option12(2)"_s).isChecked());
    QCOMPARE(bench.Button(u"Option12(2)"_s).accessibleName(), u"文字の縁取り 太い"_s);
}

void TstFacePage::AnUnknownOutlineIsKept() {
    SettingsBench bench;
    bench.main.store.Put(u"Face"_s, u"Outline"_s, u"9"_s);
    bench.Open();
    QCOMPARE(bench.Selected(u"Option12"_s), -1);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.face.outline, 9);
}

void TstFacePage::ClicksGoThrough() {
    SettingsBench bench;
    bench.main.tray.SetThere(true);
    bench.Open();
    QVERIFY(!bench.Button(u"Check20"_s).isChecked());
    bench.Click(u"Check20"_s);
    QVERIFY(!bench.main.boxes.IsAsking());
    QCOMPARE(bench.main.passing, QList<bool>());
    bench.Click(u"Command3"_s);
    FurtherSettings expected;
    expected.face.clickThrough = true;
    QCOMPARE(bench.main.further, expected);
    QCOMPARE(bench.main.passing, QList<bool>{true});
    bench.Click(u"Check20"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
    QCOMPARE(bench.main.passing, (QList<bool>{true, false}));
}

void TstFacePage::WithoutATrayItAsks() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Check20"_s);
    QVERIFY(bench.main.boxes.IsAsking());
    const Message asked = bench.main.boxes.Asked().constLast();
    QCOMPARE(asked.icon, MessageIcon::Question);
    QCOMPARE(asked.title, u"クリックを下の窓に通す"_s);
    QVERIFY(asked.text.contains(u"tickwell --menu"_s));
    QVERIFY(asked.text.contains(u"「クリックを受ける」"_s));
    bench.main.boxes.Answer(false);
    QVERIFY(!bench.Button(u"Check20"_s).isChecked());
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
    bench.Click(u"Check20"_s);
    bench.main.boxes.Answer(true);
    QVERIFY(bench.Button(u"Check20"_s).isChecked());
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.further.face.clickThrough);
    QVERIFY(bench.main.further.face.clickThroughWithoutIcon);
    QCOMPARE(bench.main.passing, QList<bool>{true});
}

void TstFacePage::AnAnswerAfterTheDialogIsIgnored() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Check20"_s);
    bench.form.reset();
    bench.main.boxes.Answer(true);
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstFacePage::TheWindowHidesUnderFullScreenWindows() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Button(u"Check26"_s).text(), u"全画面の窓があるときは隠れる"_s);
    bench.Click(u"Check26"_s);
    bench.Click(u"Command1"_s);
    FurtherSettings expected;
    expected.face.hidesUnderFullScreen = true;
    QCOMPARE(bench.main.further, expected);
    QVERIFY(bench.main.fullScreen.IsWatched());
}

void TstFacePage::TheWindowIsInTheSwitcher() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Button(u"Check27"_s).text(), u"ウィンドウの切り替えに出す"_s);
    bench.Click(u"Check27"_s);
    bench.Click(u"Command1"_s);
    FurtherSettings expected;
    expected.face.inWindowSwitcher = true;
    QCOMPARE(bench.main.further, expected);
    QCOMPARE(bench.main.form->windowType(), Qt::Window);
}

void TstFacePage::TheOtherWindowsStayOnTop() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Button(u"Check28"_s).text(), u"道具の窓も手前に保つ"_s);
    bench.Click(u"Check28"_s);
    bench.Click(u"Command1"_s);
    FurtherSettings expected;
    expected.face.toolsStayOnTop = true;
    QCOMPARE(bench.main.further, expected);
}

QTEST_MAIN(TstFacePage)
#include "tst_face_page.moc"
