// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColorDialog>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFrame = 17;  // ms

/// Counts the paint events of a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int painted = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        painted += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

/// The number of pixels of a line whose colour is not its background.
int Inked(lines::MovingWord& line) {
    const QImage picture = line.grab().toImage();
    const QRgb background = lines::ColorFromNumber(line.BackColor()).rgb();
    int inked = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            inked += picture.pixel(x, y) == background ? 0 : 1;
        }
    }
    return inked;
}

}  // namespace

/// The live sample of the first page, and the pickers for its colours and fonts.
class TstSettingsSample : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TheSampleShowsTheTwoTexts();
    void TheSampleWipesInEveryThreeSeconds();
    void TheSampleWipesInOverABlankLine();
    void TheSliderGoesFromSlowestToFastest();
    void ASlowWipeIsNotCutOff();
    void TheSampleLooksLikeTheMainWindow();
    void TheSampleChangesWithinOneFrameOfTheSlider_data();
    void TheSampleChangesWithinOneFrameOfTheSlider();
    void ARunningWipeTakesTheNewSpeed();
    void OnlyVisibleOptionsRefreshTheSample();
    void APickedColourIsShownInTheSample();
    void ACancelledPickerChangesNothing();
    void APickedFontIsShownOnlyInItsLine();
    void ALargeFontIsShownInItsRealSize();
};

void TstSettingsSample::initTestCase() {
    lines::InstallFontSubstitutes();
}

void TstSettingsSample::TheSampleShowsTheTwoTexts() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Sample(1).Text(), u"上段の文字サンプル"_s);
    QCOMPARE(bench.Sample(2).Text(), u"下段の文字サンプル"_s);
    QVERIFY(bench.Sample(1).IsWiping());
    QCOMPARE(bench.Sample(1).parentWidget()->objectName(), u"Pic"_s);
    QCOMPARE(bench.Sample(2).parentWidget()->objectName(), u"Pic2"_s);
}

void TstSettingsSample::TheSampleWipesInEveryThreeSeconds() {
    SettingsBench bench;
    bench.Open();
    bench.main.time.Advance(2'999);
    QVERIFY(!bench.Sample(1).IsWiping());
    bench.main.time.Advance(1);
    QVERIFY(bench.Sample(1).IsWiping() && bench.Sample(2).IsWiping());
    QCOMPARE(bench.Sample(1).Text(), u"上段の文字サンプル"_s);
    bench.main.time.Advance(2'900);
    QVERIFY(!bench.Sample(1).IsWiping());
    bench.main.time.Advance(100);
    QVERIFY(bench.Sample(2).IsWiping());
}

/// A text wiping over itself would show no motion.
void TstSettingsSample::TheSampleWipesInOverABlankLine() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"0"_s);
    bench.main.store.Put(u"SetUp"_s, u"Op_Speed"_s, u"30"_s);
    bench.Open();
    bench.main.time.Advance(2'900);
    for (const int line : {1, 2}) {
        QVERIFY(!bench.Sample(line).IsWiping());
    }
    const int whole = Inked(bench.Sample(1));
    QVERIFY(whole > 100);
    bench.main.time.Advance(100);
    QCOMPARE(Inked(bench.Sample(1)), 0);
    QCOMPARE(Inked(bench.Sample(2)), 0);
    bench.main.time.Advance(2'900);
    QCOMPARE(Inked(bench.Sample(1)), whole);
}

void TstSettingsSample::TheSliderGoesFromSlowestToFastest() {
    SettingsBench bench;
    bench.Open();
    auto& slider = bench.Child<QSlider>(u"Slider1"_s);
    QTest::keyClick(&slider, Qt::Key_Home);
    QCOMPARE(slider.value(), 1);
    QTest::keyClick(&slider, Qt::Key_End);
    QCOMPARE(slider.value(), 34);
    QTest::keyClick(&slider, Qt::Key_PageDown);
    QCOMPARE(slider.value(), 29);
    QTest::keyClick(&slider, Qt::Key_Left);
    QCOMPARE(slider.value(), 28);
}

void TstSettingsSample::ASlowWipeIsNotCutOff() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"0"_s);
    bench.main.store.Put(u"SetUp"_s, u"Op_Speed"_s, u"1"_s);
    bench.Open();
    const int steps = bench.Sample(1).width();  // one pixel each
    QVERIFY(steps * 68 > 6'000);
    bench.main.time.Advance(qint64{steps - 2} * 68);
    QVERIFY(bench.Sample(1).IsWiping());
    bench.main.time.Advance(qint64{3} * 68);
    QVERIFY(!bench.Sample(1).IsWiping());
}

void TstSettingsSample::TheSampleLooksLikeTheMainWindow() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"1"_s);
    bench.main.store.Put(u"SetUp"_s, u"Op_Speed"_s, u"30"_s);
    bench.main.store.Put(u"SetUp"_s, u"B_Italic"_s, u"True"_s);
    bench.main.store.Put(u"SetUp"_s, u"BackColor"_s, u"8388608"_s);
    bench.Open();
    for (const auto& [sample, line] :
         {std::pair<lines::MovingWord*, lines::MovingWord*>{&bench.Sample(1), &bench.main.Upper()},
          {&bench.Sample(2), &bench.main.Lower()}}) {
        QCOMPARE(sample->font(), line->font());
        QCOMPARE(sample->ForeColor(), line->ForeColor());
        QCOMPARE(sample->BackColor(), line->BackColor());
        QCOMPARE(sample->WipeKind(), line->WipeKind());
        QCOMPARE(sample->FrameInterval(), line->FrameInterval());
        QCOMPARE(sample->StepSize(), line->StepSize());
    }
    QCOMPARE(bench.Child<QWidget>(u"Pic"_s).palette().color(QPalette::Window), QColor(0, 0, 128));
    QCOMPARE(bench.Child<QWidget>(u"Pic2"_s).palette().color(QPalette::Window), QColor(0, 0, 128));
}

void TstSettingsSample::TheSampleChangesWithinOneFrameOfTheSlider_data() {
    QTest::addColumn<int>("speed");
    QTest::addColumn<qint32>("interval");
    QTest::addColumn<qint32>("step");
    QTest::newRow("slowest") << 1 << 68 << 1;
    QTest::newRow("slow") << 10 << 50 << 2;
    QTest::newRow("fast") << 30 << 10 << 4;
    QTest::newRow("fastest") << 34 << 2 << 4;
}

void TstSettingsSample::TheSampleChangesWithinOneFrameOfTheSlider() {
    QFETCH(int, speed);
    QFETCH(qint32, interval);
    QFETCH(qint32, step);
    SettingsBench bench;
    bench.Open();
    QVERIFY(QTest::qWaitForWindowExposed(bench.form.get()));
    bench.main.time.Advance(2'000);
    QCoreApplication::processEvents();
    QVERIFY(!bench.Sample(1).IsWiping());
    PaintCounter paints(bench.Sample(1));
    bench.Child<QSlider>(u"Slider1"_s).setValue(speed);
    QVERIFY(bench.Sample(1).IsWiping() && bench.Sample(2).IsWiping());
    bench.main.time.Advance(kFrame);
    QTRY_VERIFY(paints.painted > 0);
    for (const int line : {1, 2}) {
        QCOMPARE(bench.Sample(line).FrameInterval(), interval);
        QCOMPARE(bench.Sample(line).StepSize(), step);
    }
}

void TstSettingsSample::ARunningWipeTakesTheNewSpeed() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"0"_s);
    bench.main.store.Put(u"SetUp"_s, u"Op_Speed"_s, u"1"_s);
    bench.Open();
    bench.main.time.Advance(1'000);
    const int steps = bench.Sample(1).width() / 4 + 1;
    bench.Child<QSlider>(u"Slider1"_s).setValue(34);  // 2 ms per frame of 4 pixels
    QVERIFY(bench.Sample(1).IsWiping());
    bench.main.time.Advance(qint64{steps} * 2);
    QVERIFY(!bench.Sample(1).IsWiping());
}

void TstSettingsSample::OnlyVisibleOptionsRefreshTheSample() {
    SettingsBench bench;
    bench.Open();
    bench.main.time.Advance(2'000);
    for (const QString& click :
         {u"Option4(1)"_s, u"Option5(1)"_s, u"Option6(1)"_s, u"Option7(1)"_s, u"Option3(1)"_s}) {
        bench.Click(click);
        QVERIFY2(!bench.Sample(1).IsWiping(), qPrintable(click));
    }
    bench.Click(u"Option2(1)"_s);
    QVERIFY(bench.Sample(1).IsWiping());
    QCOMPARE(bench.Sample(1).WipeKind(), 1);
}

void TstSettingsSample::APickedColourIsShownInTheSample() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command5"_s);
    QColorDialog& colours = bench.ColourPicker();
    QVERIFY(colours.isVisible());
    QVERIFY(colours.isModal());
    QCOMPARE(colours.windowTitle(), u"背景色"_s);
    QCOMPARE(colours.currentColor(), QColor(0, 0, 0));
    colours.setCurrentColor(QColor(255, 128, 1));
    colours.accept();
    QCOMPARE(bench.Sample(1).BackColor(), 255 + 128 * 256 + 65536);
    QCOMPARE(bench.Child<QWidget>(u"Pic2"_s).palette().color(QPalette::Window), QColor(255, 128, 1));
    QCOMPARE(bench.main.settings.backColor, 0);
}

void TstSettingsSample::ACancelledPickerChangesNothing() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command5"_s);
    QColorDialog& colours = bench.ColourPicker();
    colours.setCurrentColor(QColor(255, 128, 1));
    colours.reject();
    bench.Click(u"Command6"_s);
    ChildOf<QAbstractButton>(bench.StylePicker(), u"Bold"_s).click();
    bench.StylePicker().reject();
    const AppSettings before = bench.main.settings;
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.settings, before);
    QVERIFY(!bench.Sample(1).font().bold());
}

void TstSettingsSample::APickedFontIsShownOnlyInItsLine() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command7"_s);
    QVERIFY(bench.StylePicker().isVisible());
    QCOMPARE(bench.StylePicker().windowTitle(), u"下段文字"_s);
    ChildOf<QAbstractButton>(bench.StylePicker(), u"Strikethru"_s).click();
    bench.StylePicker().accept();
    QVERIFY(bench.Sample(2).font().strikeOut() && !bench.Sample(1).font().strikeOut());
    bench.Click(u"Command3"_s);
    QVERIFY(bench.main.settings.lower.strikethrough && !bench.main.settings.upper.strikethrough);
    QCOMPARE(bench.main.settings.lower.fontName, u"ＭＳ Ｐゴシック"_s);
}

void TstSettingsSample::ALargeFontIsShownInItsRealSize() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"A_Size"_s, u"48"_s);
    bench.Open();
    QCOMPARE(bench.Sample(1).font().pointSize(), 48);
    QCOMPARE(bench.Sample(1).height(), bench.Sample(1).TextHeight());
    QVERIFY(bench.Sample(1).height() > bench.Child<QWidget>(u"Pic"_s).height());
    QCOMPARE(bench.Sample(1).y(), 0);  // cut off at the bottom
}

QTEST_MAIN(TstSettingsSample)
#include "tst_settings_sample.moc"
