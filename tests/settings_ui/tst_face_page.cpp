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

/// The settings' page of the main window's look and place.
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
    QCOMPARE(bench.main.further.face.longText, 2);  // as chosen before
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

QTEST_MAIN(TstFacePage)
#include "tst_face_page.moc"
