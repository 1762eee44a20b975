// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColorDialog>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/style_picker.h"
#include "support/child.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    LineStyle stored{
        .fontName = u"ＭＳ Ｐゴシック"_s, .fontSize = 10, .color = 65280, .italic = true, .underline = true};

    template <typename Control>
    static Control& Child(const StylePicker& picker, const char* name) {
        return ChildOf<Control>(picker, QLatin1StringView(name));
    }
};

}  // namespace

/// The picker for a line's font and colour.
class TstStylePicker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void ItShowsWhatIsStored();
    void APlainOkChangesNothing();
    void EachControlChangesItsField();
    void TheColourIsPickedInThePlatformsOrder();
    void ACancelledColourIsNotTaken();
    void TheSampleFollows();
};

void TstStylePicker::ItShowsWhatIsStored() {
    Bench bench;
    const StylePicker picker(bench.handlers, u"上段文字"_s, bench.stored, 0, nullptr);
    QCOMPARE(picker.windowTitle(), u"上段文字"_s);
    QCOMPARE(Bench::Child<QSpinBox>(picker, "Size").value(), 10);
    QVERIFY(!Bench::Child<QCheckBox>(picker, "Bold").isChecked());
    QVERIFY(Bench::Child<QCheckBox>(picker, "Italic").isChecked());
    QVERIFY(!Bench::Child<QCheckBox>(picker, "Strikethru").isChecked());
    QVERIFY(Bench::Child<QCheckBox>(picker, "UnderLine").isChecked());
    QCOMPARE(Bench::Child<QPushButton>(picker, "Color").text(), u"#00FF00"_s);
}

void TstStylePicker::APlainOkChangesNothing() {
    Bench bench;
    for (const QString& name : {u"ＭＳ Ｐゴシック"_s, u"No Such Font"_s, u"Courier"_s, QString()}) {
        for (const qint16 size : {qint16{10}, qint16{-5}, qint16{1500}}) {
            bench.stored.fontName = name;
            bench.stored.fontSize = size;
            StylePicker picker(bench.handlers, u"x"_s, bench.stored, 0, nullptr);
            Bench::Child<QPushButton>(picker, "Command1").click();
            QCOMPARE(picker.result(), static_cast<int>(QDialog::Accepted));
            QCOMPARE(picker.Picked(), bench.stored);
        }
    }
}

void TstStylePicker::EachControlChangesItsField() {
    Bench bench;
    const StylePicker picker(bench.handlers, u"x"_s, bench.stored, 0, nullptr);
    LineStyle expected = bench.stored;
    Bench::Child<QSpinBox>(picker, "Size").setValue(24);
    expected.fontSize = 24;
    QCOMPARE(picker.Picked(), expected);
    for (const auto& [name, field] : {std::pair{"Bold", &LineStyle::bold},
                                      {"Italic", &LineStyle::italic},
                                      {"Strikethru", &LineStyle::strikethrough},
                                      {"UnderLine", &LineStyle::underline}}) {
        Bench::Child<QCheckBox>(picker, name).click();
        expected.*field = !(expected.*field);
        QCOMPARE(picker.Picked(), expected);
    }
    auto& families = Bench::Child<QFontComboBox>(picker, "Family");
    QVERIFY(families.count() > 1);
    families.setCurrentIndex(families.currentIndex() == 0 ? 1 : 0);
    expected.fontName = families.currentText();
    QCOMPARE(picker.Picked(), expected);
}

void TstStylePicker::TheColourIsPickedInThePlatformsOrder() {
    Bench bench;
    const StylePicker picker(bench.handlers, u"x"_s, bench.stored, 0, nullptr);
    Bench::Child<QPushButton>(picker, "Color").click();
    auto& colours = ChildOf<QColorDialog>(picker);
    QCOMPARE(colours.currentColor(), QColor(0, 255, 0));
    colours.setCurrentColor(QColor(1, 2, 3));
    colours.accept();
    QCOMPARE(picker.Picked().color, 1 + 2 * 256 + 3 * 65536);
    QCOMPARE(Bench::Child<QPushButton>(picker, "Color").text(), u"#010203"_s);
}

void TstStylePicker::ACancelledColourIsNotTaken() {
    Bench bench;
    const StylePicker picker(bench.handlers, u"x"_s, bench.stored, 0, nullptr);
    Bench::Child<QPushButton>(picker, "Color").click();
    auto& colours = ChildOf<QColorDialog>(picker);
    colours.setCurrentColor(QColor(1, 2, 3));
    colours.reject();
    QCOMPARE(picker.Picked(), bench.stored);
}

void TstStylePicker::TheSampleFollows() {
    Bench bench;
    const StylePicker picker(bench.handlers, u"x"_s, bench.stored, 255, nullptr);
    const auto& sample = Bench::Child<QLabel>(picker, "Sample");
    QCOMPARE(sample.palette().color(QPalette::Window), QColor(255, 0, 0));
    QCOMPARE(sample.palette().color(QPalette::WindowText), QColor(0, 255, 0));
    Bench::Child<QCheckBox>(picker, "Bold").click();
    QVERIFY(sample.font().bold() && sample.font().italic() && sample.font().underline());
}

QTEST_MAIN(TstStylePicker)
#include "tst_style_picker.moc"
