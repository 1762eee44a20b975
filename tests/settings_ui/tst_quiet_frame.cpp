// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTime>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

/// The settings dialog at page お知らせ.
struct QuietBench : SettingsBench {
    /// The main window reads the stored settings when it starts; later ones stay.
    QuietBench() {
        main.Start();
        main.time.Advance(shell::kStartUp);
    }
    void OpenPage() {
        Open();
        Child<QTabWidget>(u"TabStrip1"_s).setCurrentWidget(&Child<QWidget>(u"Picture10"_s));
    }
    /// Fields 1 to 4: hour and minute of the beginning, of the end.
    QSpinBox& Field(int number) const { return Child<QSpinBox>(u"UpDown6%1"_s.arg(number)); }
    QTime From() const { return {Field(1).value(), Field(2).value()}; }
    QTime To() const { return {Field(3).value(), Field(4).value()}; }
    QSlider& Slider() const { return Child<QSlider>(u"Slider60"_s); }
    QSpinBox& Percent() const { return Child<QSpinBox>(u"UpDown60"_s); }
    /// Which controls are enabled: the fields of the times, chime, timer.
    QString Enabled() const {
        const auto mark = [](const QWidget& control) { return control.isEnabled() ? u'+' : u'-'; };
        QString marks;
        for (int number = 1; number <= 4; ++number) {
            marks += mark(Field(number));
        }
        return marks + mark(Button(u"Check61"_s)) + mark(Button(u"Check62"_s));
    }
};

}  // namespace

/// The settings of quiet hours and volume.
class TstQuietFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void AtFirstItIsOff();
    void CaptionsAndNames();
    void TimesAreEnabledWithTheHours();
    void WhatIsSilencedIsEnabledWithEitherReason();
    void EveryChoiceIsApplied();
    void TheStoredTimesAreShown();
    void TimesOutOfRangeStayUntilTheyAreTouched();
    void SliderAndNumberAreOne();
    void AVolumeOutOfRangeStaysUntilItIsTouched();
    void TheVolumeIsHeardBeforeItIsApplied();
    void AnUnknownSoundCannotBeHeard();
};

void TstQuietFrame::AtFirstItIsOff() {
    QuietBench bench;
    bench.OpenPage();
    QVERIFY(!bench.Button(u"Check60"_s).isChecked());
    QVERIFY(bench.Button(u"Check61"_s).isChecked());
    QVERIFY(!bench.Button(u"Check62"_s).isChecked());
    QVERIFY(!bench.Button(u"Check63"_s).isChecked());
    QCOMPARE(bench.From(), QTime(22, 0));
    QCOMPARE(bench.To(), QTime(7, 0));
    QCOMPARE(bench.Percent().value(), 100);
    QCOMPARE(bench.Enabled(), u"------"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstQuietFrame::CaptionsAndNames() {
    QuietBench bench;
    bench.OpenPage();
    QCOMPARE(bench.Button(u"Check60"_s).text(), u"静かな時間を決める"_s);
    QCOMPARE(bench.Button(u"Check61"_s).text(), u"時報を鳴らさない"_s);
    QCOMPARE(bench.Button(u"Check62"_s).text(), u"タイマーの音を鳴らさない（窓は出します）"_s);
    QCOMPARE(bench.Button(u"Check63"_s).text(), u"デスクトップの「おやすみモード」でも同じにする"_s);
    QCOMPARE(bench.Button(u"Listen60"_s).text(), u"聞く"_s);
    QCOMPARE(bench.Child<QLabel>(u"Label62"_s).text(), u"時報とタイマーの音量"_s);
    QCOMPARE(bench.Child<QLabel>(u"Label62"_s).buddy(), &bench.Slider());
    for (const QWidget* control :
         {static_cast<const QWidget*>(&bench.Field(1)), static_cast<const QWidget*>(&bench.Field(2)),
          static_cast<const QWidget*>(&bench.Field(3)), static_cast<const QWidget*>(&bench.Field(4)),
          static_cast<const QWidget*>(&bench.Slider()), static_cast<const QWidget*>(&bench.Percent())}) {
        QVERIFY(!control->accessibleName().isEmpty());
    }
}

void TstQuietFrame::TimesAreEnabledWithTheHours() {
    QuietBench bench;
    bench.OpenPage();
    bench.Click(u"Check60"_s);
    QCOMPARE(bench.Enabled(), u"++++++"_s);
    bench.Click(u"Check60"_s);
    QCOMPARE(bench.Enabled(), u"------"_s);
}

void TstQuietFrame::WhatIsSilencedIsEnabledWithEitherReason() {
    QuietBench bench;
    bench.OpenPage();
    bench.Click(u"Check63"_s);
    QCOMPARE(bench.Enabled(), u"----++"_s);
    bench.Click(u"Check60"_s);
    bench.Click(u"Check63"_s);
    QCOMPARE(bench.Enabled(), u"++++++"_s);
}

void TstQuietFrame::EveryChoiceIsApplied() {
    QuietBench bench;
    bench.OpenPage();
    for (const QString& box : {u"Check60"_s, u"Check61"_s, u"Check62"_s, u"Check63"_s}) {
        bench.Click(box);
    }
    const QList<int> times{0, 1, 23, 59};
    for (int number = 1; number <= 4; ++number) {
        bench.Field(number).setValue(times.at(number - 1));
    }
    bench.Percent().setValue(35);
    QCOMPARE(bench.main.further, FurtherSettings());  // a draft
    bench.Click(u"Command3"_s);
    FurtherSettings expected;
    expected.quiet = {.hasHours = true,
                      .from = 1,
                      .to = 1439,
                      .silencesChime = false,
                      .silencesTimer = true,
                      .followsDesktop = true,
                      .volume = 35};
    QCOMPARE(bench.main.further, expected);
}

void TstQuietFrame::TheStoredTimesAreShown() {
    QuietBench bench;
    bench.main.further.quiet = {.hasHours = true, .from = 75, .to = 600, .volume = 0};
    bench.OpenPage();
    QCOMPARE(bench.From(), QTime(1, 15));
    QCOMPARE(bench.To(), QTime(10, 0));
    QCOMPARE(bench.Slider().value(), 0);
    QCOMPARE(bench.Enabled(), u"++++++"_s);
}

void TstQuietFrame::TimesOutOfRangeStayUntilTheyAreTouched() {
    QuietBench bench;
    bench.main.further.quiet = {.hasHours = true, .from = -1, .to = 5000};
    const FurtherSettings stored = bench.main.further;
    bench.OpenPage();
    QCOMPARE(bench.From(), QTime(0, 0));
    QCOMPARE(bench.To(), QTime(23, 59));
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further, stored);
    bench.Field(4).stepUp();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.quiet.to, 23 * 60);  // minutes wrap
    QCOMPARE(bench.main.further.quiet.from, -1);
}

void TstQuietFrame::SliderAndNumberAreOne() {
    QuietBench bench;
    bench.OpenPage();
    bench.Slider().setValue(40);
    QCOMPARE(bench.Percent().value(), 40);
    bench.Percent().setValue(60);
    QCOMPARE(bench.Slider().value(), 60);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.quiet.volume, 60);
}

void TstQuietFrame::AVolumeOutOfRangeStaysUntilItIsTouched() {
    QuietBench bench;
    bench.main.further.quiet.volume = 250;
    bench.OpenPage();
    QCOMPARE(bench.Percent().value(), 100);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further.quiet.volume, 250);
}

void TstQuietFrame::TheVolumeIsHeardBeforeItIsApplied() {
    QuietBench bench;
    bench.OpenPage();
    bench.Slider().setValue(20);
    bench.Click(u"Listen60"_s);
    QCOMPARE(bench.asked.constLast(), u"listen 鳩時計の音 at 20"_s);
    bench.Click(u"Listen"_s);  // the button beside the sounds
    QCOMPARE(bench.asked.constLast(), u"listen 鳩時計の音 at 20"_s);
    QCOMPARE(bench.main.further.quiet.volume, 100);
}

void TstQuietFrame::AnUnknownSoundCannotBeHeard() {
    QuietBench bench;
    bench.main.settings.chimeSound = u"鳩時計の音 "_s;
    bench.OpenPage();
    QVERIFY(!bench.Button(u"Listen60"_s).isEnabled());
}

QTEST_MAIN(TstQuietFrame)
#include "tst_quiet_frame.moc"
