// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <cmath>

#include "days/day_shade.h"

using namespace tickwell;
using namespace tickwell::days;

namespace {

constexpr double kReadable = 3;  // the contrast from which a coloured number is legible

double Part(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
    return 0.2126 * Part(color.redF()) + 0.7152 * Part(color.greenF()) + 0.0722 * Part(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one) + 0.05;
    const double b = Luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

}  // namespace

class TstDayShade : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Shades_data();
    void Shades();
    void OnLightButtonsTheColoursAreTheirOwn();
};

void TstDayShade::Shades_data() {
    QTest::addColumn<QColor>("button");
    QTest::newRow("white") << QColor(255, 255, 255);
    QTest::newRow("light") << QColor(239, 239, 239);
    QTest::newRow("dark") << QColor(53, 53, 53);
    QTest::newRow("pressed dark") << QColor(40, 40, 40);
    QTest::newRow("black") << QColor(0, 0, 0);
}

void TstDayShade::Shades() {
    QFETCH(QColor, button);
    const QPalette palette(button);
    for (const DayColor color : {DayColor::Black, DayColor::Red, DayColor::Blue}) {
        const double contrast = Contrast(ShadeOf(color, palette), button);
        QVERIFY2(contrast >= kReadable, qPrintable(QString::number(contrast)));
    }
    const QColor red = ShadeOf(DayColor::Red, palette);
    const QColor blue = ShadeOf(DayColor::Blue, palette);
    QVERIFY(red.red() > red.blue() + 60 && blue.blue() > blue.red() + 60);
}

void TstDayShade::OnLightButtonsTheColoursAreTheirOwn() {
    const QPalette palette(QColor(239, 239, 239));
    QCOMPARE(ShadeOf(DayColor::Red, palette), QColor(255, 0, 0));
    QCOMPARE(ShadeOf(DayColor::Blue, palette), QColor(0, 0, 255));
    QCOMPARE(ShadeOf(DayColor::Black, palette), palette.color(QPalette::ButtonText));
}

QTEST_GUILESS_MAIN(TstDayShade)
#include "tst_day_shade.moc"
