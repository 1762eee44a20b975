// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColorDialog>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/option_array.h"
#include "settings_ui/settings_bench.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
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
int Inked(MovingWord& line) {
    const QImage picture = line.grab().toImage();
    const QRgb background = ColorOf(line.BackColor()).rgb();
    int inked = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            inked += picture.pixel(x, y) == background ? 0 : 1;
        }
    }
    return inked;
}

QDialog* StylePickerOf(const SettingsBench& bench) {
    return bench.form->findChild<QDialog*>(u"StylePicker"_s);
}

}  // namespace

/// The pages of the settings while the user works with them.
class TstSettingsPages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TheSampleShowsTheTwoTexts();
    void TheSampleComesInAgainEveryThreeSeconds();
    void TheSampleComesInOverABlankLine();
    void TheSliderGoesFromSlowestToFastest();
    void AChosenOptionTurnsTheOthersOff();
    void ASlowWipeIsLetComeToItsEnd();
    void TheSampleIsAsTheMainWindow();
    void TheSampleChangesWithinOneFrameOfTheSlider_data();
    void TheSampleChangesWithinOneFrameOfTheSlider();
    void AWipeThatRunsTakesTheNewSpeed();
    void OnlyWhatIsSeenOfItRefreshesTheSample();
    void AColourThatIsPickedIsSeenInTheSample();
    void ACancelledPickerChangesNothing();
    void AFontThatIsPickedIsSeenInItsLineAlone();
    void ALargeFontIsShownInItsRealSize();
    void TheRollIsOffAtFirst();
    void TheRollsControlsFillTheCopy();
    void ChoosingASoundChangesNothingElse();
    void ASoundIsListenedTo();
    void OnlySoundsCanBeListenedTo();
    void TheNoticeIsOfferedOnceItWasSilenced();
    void WithoutItsOperationAButtonIsDisabled();
    void TheLoginsBoxShowsWhatHoldsNow();
    void TheLoginIsChangedByOkAndApplyAlone_data();
    void TheLoginIsChangedByOkAndApplyAlone();
    void ALoginThatWasLeftAloneIsNotWritten();
    void ALoginThatCannotBeChangedIsToldAndAllElseIsDone();
};

void TstSettingsPages::initTestCase() {
    InstallFontSubstitutes();
}

void TstSettingsPages::TheSampleShowsTheTwoTexts() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Sample(1).Text(), u"上段の文字サンプル"_s);
    QCOMPARE(bench.Sample(2).Text(), u"下段の文字サンプル"_s);
    QVERIFY(bench.Sample(1).IsWiping());
    QCOMPARE(bench.Sample(1).parentWidget()->objectName(), u"Pic"_s);
    QCOMPARE(bench.Sample(2).parentWidget()->objectName(), u"Pic2"_s);
}

void TstSettingsPages::TheSampleComesInAgainEveryThreeSeconds() {
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
void TstSettingsPages::TheSampleComesInOverABlankLine() {
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

void TstSettingsPages::TheSliderGoesFromSlowestToFastest() {
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

void TstSettingsPages::ASlowWipeIsLetComeToItsEnd() {
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

void TstSettingsPages::TheSampleIsAsTheMainWindow() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"1"_s);
    bench.main.store.Put(u"SetUp"_s, u"Op_Speed"_s, u"30"_s);
    bench.main.store.Put(u"SetUp"_s, u"B_Italic"_s, u"True"_s);
    bench.main.store.Put(u"SetUp"_s, u"BackColor"_s, u"8388608"_s);
    bench.Open();
    for (const auto& [sample, line] :
         {std::pair<MovingWord*, MovingWord*>{&bench.Sample(1), &bench.main.Upper()},
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

void TstSettingsPages::TheSampleChangesWithinOneFrameOfTheSlider_data() {
    QTest::addColumn<int>("speed");
    QTest::addColumn<qint32>("interval");
    QTest::addColumn<qint32>("step");
    QTest::newRow("slowest") << 1 << 68 << 1;
    QTest::newRow("slow") << 10 << 50 << 2;
    QTest::newRow("fast") << 30 << 10 << 4;
    QTest::newRow("fastest") << 34 << 2 << 4;
}

void TstSettingsPages::TheSampleChangesWithinOneFrameOfTheSlider() {
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

void TstSettingsPages::AWipeThatRunsTakesTheNewSpeed() {
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

void TstSettingsPages::OnlyWhatIsSeenOfItRefreshesTheSample() {
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

void TstSettingsPages::AColourThatIsPickedIsSeenInTheSample() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command5"_s);
    auto* colours = bench.form->findChild<QColorDialog*>();
    QVERIFY(colours->isVisible());
    QVERIFY(colours->isModal());
    QCOMPARE(colours->windowTitle(), u"背景色"_s);
    QCOMPARE(colours->currentColor(), QColor(0, 0, 0));
    colours->setCurrentColor(QColor(255, 128, 1));
    colours->accept();
    QCOMPARE(bench.Sample(1).BackColor(), 255 + 128 * 256 + 65536);
    QCOMPARE(bench.Child<QWidget>(u"Pic2"_s).palette().color(QPalette::Window), QColor(255, 128, 1));
    QCOMPARE(bench.main.settings.backColor, 0);
}

void TstSettingsPages::ACancelledPickerChangesNothing() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command5"_s);
    auto* colours = bench.form->findChild<QColorDialog*>();
    colours->setCurrentColor(QColor(255, 128, 1));
    colours->reject();
    bench.Click(u"Command6"_s);
    StylePickerOf(bench)->findChild<QAbstractButton*>(u"Bold"_s)->click();
    StylePickerOf(bench)->reject();
    const AppSettings before = bench.main.settings;
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.settings, before);
    QVERIFY(!bench.Sample(1).font().bold());
}

void TstSettingsPages::AFontThatIsPickedIsSeenInItsLineAlone() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command7"_s);
    QVERIFY(StylePickerOf(bench)->isVisible());
    QCOMPARE(StylePickerOf(bench)->windowTitle(), u"下段文字"_s);
    StylePickerOf(bench)->findChild<QAbstractButton*>(u"Strikethru"_s)->click();
    StylePickerOf(bench)->accept();
    QVERIFY(bench.Sample(2).font().strikeOut() && !bench.Sample(1).font().strikeOut());
    bench.Click(u"Command3"_s);
    QVERIFY(bench.main.settings.lower.strikethrough && !bench.main.settings.upper.strikethrough);
    QCOMPARE(bench.main.settings.lower.fontName, u"ＭＳ Ｐゴシック"_s);
}

void TstSettingsPages::ALargeFontIsShownInItsRealSize() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"A_Size"_s, u"48"_s);
    bench.Open();
    QCOMPARE(bench.Sample(1).font().pointSize(), 48);
    QCOMPARE(bench.Sample(1).height(), bench.Sample(1).TextHeight());
    QVERIFY(bench.Sample(1).height() > bench.Child<QWidget>(u"Pic"_s).height());
    QCOMPARE(bench.Sample(1).y(), 0);  // cut off at the bottom
}

void TstSettingsPages::TheRollIsOffAtFirst() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Selected(u"Option1"_s), 0);
    for (const char* name : {"Check1", "Check2", "Check3", "Check4", "UpDown1", "Text1"}) {
        QVERIFY2(!bench.Child<QWidget>(QLatin1StringView(name)).isEnabled(), name);
    }
    for (const char* name : {"Check1", "Check2", "Check3", "Check4"}) {
        QVERIFY2(bench.Button(QLatin1StringView(name)).isChecked(), name);
    }
    QCOMPARE(bench.Child<QSpinBox>(u"UpDown1"_s).value(), 10);
    QCOMPARE(bench.Child<QSpinBox>(u"UpDown1"_s).minimum(), 1);
    QCOMPARE(bench.Child<QSpinBox>(u"UpDown1"_s).maximum(), 3600);
}

void TstSettingsPages::TheRollsControlsFillTheCopy() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option1(1)"_s);
    QVERIFY(bench.Button(u"Check1"_s).isEnabled());
    bench.Click(u"Check1"_s);  // clock
    bench.Click(u"Check4"_s);  // memory
    bench.Child<QSpinBox>(u"UpDown1"_s).stepUp();
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.roll, (RollSettings{true, {1, 4}, 11}));
    bench.Click(u"Option1(0)"_s);
    bench.Click(u"Check1"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.main.further.roll, (RollSettings{false, {1, 4}, 11}));  // a disabled box ignores clicks
    QCOMPARE(bench.main.settings.rollInterval, 10);
}

void TstSettingsPages::ChoosingASoundChangesNothingElse() {
    SettingsBench bench;
    bench.Open();
    auto& sounds = bench.Child<QComboBox>(u"Combo1"_s);
    QStringList names;
    for (int i = 0; i < sounds.count(); ++i) {
        names.append(sounds.itemText(i));
    }
    QCOMPARE(names, (QStringList{u"鳩時計の音"_s, u"赤ちゃん"_s, u"機械時計[高い音]"_s, u"機械時計[低い音]"_s,
                                 u"人の掛け声"_s}));
    AppSettings expected = bench.main.settings;
    QTest::keyClick(&sounds, Qt::Key_Down);
    QCOMPARE(bench.asked, QStringList{u"hold 1"_s});
    bench.Click(u"Command3"_s);
    expected.chimeSound = u"赤ちゃん"_s;
    QCOMPARE(bench.main.settings, expected);
}

void TstSettingsPages::ASoundIsListenedTo() {
    SettingsBench bench;
    bench.Open();
    QTest::keyClick(&bench.Child<QComboBox>(u"Combo1"_s), Qt::Key_End);
    bench.Click(u"Listen"_s);
    QCOMPARE(bench.asked.constLast(), u"listen 人の掛け声"_s);
    QCOMPARE(bench.main.settings.chimeSound, u"鳩時計の音"_s);
}

void TstSettingsPages::OnlySoundsCanBeListenedTo() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Clock_File"_s, u"鳩時計の音 "_s);
    bench.Open();
    QVERIFY(!bench.Button(u"Listen"_s).isEnabled());
    QTest::keyClick(&bench.Child<QComboBox>(u"Combo1"_s), Qt::Key_Home);
    QVERIFY(bench.Button(u"Listen"_s).isEnabled());
}

void TstSettingsPages::TheNoticeIsOfferedOnceItWasSilenced() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(bench.Button(u"NoCdDrive"_s).isHidden() ||
            bench.Button(u"NoCdDrive"_s).parentWidget()->isHidden());
    bench.form.reset();
    bench.main.further.tellsNoCdDrive = false;
    bench.Open();
    QVERIFY(!bench.Button(u"NoCdDrive"_s).parentWidget()->isHidden());
    QVERIFY(!bench.Button(u"NoCdDrive"_s).isChecked());
    bench.Click(u"NoCdDrive"_s);
    QVERIFY(!bench.main.further.tellsNoCdDrive);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.main.further.tellsNoCdDrive);
}

void TstSettingsPages::WithoutItsOperationAButtonIsDisabled() {
    SettingsBench bench;
    bench.operations.listen = nullptr;
    bench.operations.compact = nullptr;
    bench.Open();
    QVERIFY(!bench.Button(u"Listen"_s).isEnabled());
    QVERIFY(!bench.Button(u"Command4"_s).isEnabled());
}

void TstSettingsPages::TheLoginsBoxShowsWhatHoldsNow() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(!bench.Button(u"Autostart"_s).isChecked());
    bench.form.reset();
    bench.autostart.isOn = true;  // set in the desktop's own settings
    bench.Open();
    QVERIFY(bench.Button(u"Autostart"_s).isChecked());
    QVERIFY(bench.autostart.set.isEmpty());
}

void TstSettingsPages::TheLoginIsChangedByOkAndApplyAlone_data() {
    QTest::addColumn<bool>("before");
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QList<bool>>("set");
    const QString box = u"Autostart"_s;
    const QString ok = u"Command1"_s;
    const QString cancel = u"Command2"_s;
    const QString apply = u"Command3"_s;
    QTest::newRow("ticked, OK") << false << QStringList{box, ok} << QList<bool>{true};
    QTest::newRow("cleared, OK") << true << QStringList{box, ok} << QList<bool>{false};
    QTest::newRow("ticked, applied, OK") << false << QStringList{box, apply, ok} << QList<bool>{true};
    QTest::newRow("ticked, applied, cleared, OK")
        << false << QStringList{box, apply, box, ok} << QList<bool>{true, false};
    QTest::newRow("ticked, cancelled") << false << QStringList{box, cancel} << QList<bool>{};
    QTest::newRow("ticked and cleared again, OK") << false << QStringList{box, box, ok} << QList<bool>{};
}

void TstSettingsPages::TheLoginIsChangedByOkAndApplyAlone() {
    QFETCH(bool, before);
    QFETCH(QStringList, clicks);
    QFETCH(QList<bool>, set);
    SettingsBench bench;
    bench.autostart.isOn = before;
    bench.Open();
    for (const QString& click : clicks) {
        bench.Click(click);
    }
    QCOMPARE(bench.autostart.set, set);
}

void TstSettingsPages::ALoginThatWasLeftAloneIsNotWritten() {
    SettingsBench bench;
    bench.Open();
    bench.autostart.isOn = true;  // changed elsewhere meanwhile
    bench.Click(u"Option2(1)"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.autostart.set.isEmpty() && bench.autostart.isOn);
}

void TstSettingsPages::ALoginThatCannotBeChangedIsToldAndAllElseIsDone() {
    SettingsBench bench;
    bench.autostart.refuses = true;
    bench.Open();
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Autostart"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.boxes.Shown().size(), 1);
    QVERIFY(bench.main.boxes.Shown().constFirst().text.contains(u"書き込めません。"_s));
    QVERIFY(bench.form->isVisible());
    QCOMPARE(bench.main.settings.language, 1);
    QCOMPARE(bench.main.Upper().Text(), u"November 15,1998 Sunday"_s);
}

void TstSettingsPages::AChosenOptionTurnsTheOthersOff() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    QWidget page;
    QList<qint32> chosen;
    OptionArray options(u"Option"_s, kWipeOptions, &page, handlers,
                        [&](qint32 index) { chosen.append(index); });
    options.Select(kWipeLeftToRight);
    for (QAbstractButton* button : options.Buttons()) {
        button->click();
        for (const QAbstractButton* each : options.Buttons()) {
            QCOMPARE(each->isChecked(), each == button);
        }
    }
    QCOMPARE(chosen.size(), options.Buttons().size());
}

QTEST_MAIN(TstSettingsPages)
#include "tst_settings_pages.moc"
