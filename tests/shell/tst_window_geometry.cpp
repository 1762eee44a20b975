// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "shell/window_geometry.h"

using namespace tickwell;
using namespace tickwell::shell;

/// The conversion of twips, and the layout of the lines.
class TstWindowGeometry : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TwipsBecomePixels_data();
    void TwipsBecomePixels();
    void AWindowLeftAloneKeepsItsTwips();
    void AMovedWindowIsMeasuredAgain();
    void AnIntermediatePositionIsPutBackAndNotStored();
    void AWindowManagerThatInsistsWins();
    void AnOffscreenPlaceStaysOffscreen();
    void NumbersTooLargeForTheWindowSystemAreLimitedAndKept();
    void LinesShareTheWindow_data();
    void LinesShareTheWindow();
    void LinesFillAGreaterWindow();
    void AWindowOnNoScreenIsBroughtBack();
};

void TstWindowGeometry::TwipsBecomePixels_data() {
    QTest::addColumn<qint32>("twips");
    QTest::addColumn<int>("pixels");
    QTest::newRow("the first window") << 2505 << 167;
    QTest::newRow("2506 too") << 2506 << 167;
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("negative") << -150 << -10;
    QTest::newRow("the highest") << 2147483647 << 143165576;
}

void TstWindowGeometry::TwipsBecomePixels() {
    QFETCH(qint32, twips);
    QFETCH(int, pixels);
    QCOMPARE(PixelsOf(twips), pixels);
}

void TstWindowGeometry::AWindowLeftAloneKeepsItsTwips() {
    GeometryKeeper keeper;
    keeper.Set({.width = 2506, .top = 7, .left = -8});
    keeper.Resized(keeper.Width());
    keeper.Moved(keeper.Position());
    QCOMPARE(keeper.Geometry(), (WindowGeometry{.width = 2506, .top = 7, .left = -8}));
}

void TstWindowGeometry::AMovedWindowIsMeasuredAgain() {
    GeometryKeeper keeper;
    keeper.Set({.width = 2506, .top = 7, .left = 8});
    keeper.Settle();
    QVERIFY(!keeper.Moved({20, keeper.Position().y()}));
    QCOMPARE(keeper.Geometry(), (WindowGeometry{.width = 2506, .top = 7, .left = 300}));
    keeper.Resized(200);
    QCOMPARE(keeper.Geometry(), (WindowGeometry{.width = 3000, .top = 7, .left = 300}));
}

void TstWindowGeometry::AnIntermediatePositionIsPutBackAndNotStored() {
    GeometryKeeper keeper;
    keeper.Set({.width = 2505, .top = 1500, .left = 1500});
    QVERIFY(!keeper.Moved({100, 100}));
    QVERIFY(keeper.Moved({0, 0}));
    QVERIFY(!keeper.Moved({100, 100}));
    QCOMPARE(keeper.Geometry(), (WindowGeometry{.width = 2505, .top = 1500, .left = 1500}));
}

void TstWindowGeometry::AWindowManagerThatInsistsWins() {
    GeometryKeeper keeper;
    keeper.Set({.width = 2505, .top = 0, .left = 0});
    int putBack = 0;
    while (keeper.Moved({0, 25})) {  // the window manager moves it below a panel
        ++putBack;
    }
    QCOMPARE(putBack, 5);
    QCOMPARE(keeper.Geometry(), (WindowGeometry{.width = 2505, .top = 375, .left = 0}));
}

void TstWindowGeometry::AnOffscreenPlaceStaysOffscreen() {
    GeometryKeeper keeper;
    keeper.Set({.width = 2505, .top = -75000, .left = 60000});
    QCOMPARE(keeper.Position(), QPoint(4000, -5000));
}

void TstWindowGeometry::NumbersTooLargeForTheWindowSystemAreLimitedAndKept() {
    GeometryKeeper keeper;
    const WindowGeometry wild{.width = -30, .top = 2147483647, .left = -2147483647};
    keeper.Set(wild);
    QCOMPARE(keeper.Width(), 1);
    QCOMPARE(keeper.Position(), QPoint(-32000, 32000));
    keeper.Resized(1);
    keeper.Moved({-32000, 32000});
    QCOMPARE(keeper.Geometry(), wild);
    keeper.Set({.width = 0, .top = 0, .left = 0});
    QCOMPARE(keeper.Width(), 1);
}

void TstWindowGeometry::LinesShareTheWindow_data() {
    QTest::addColumn<int>("upperText");
    QTest::addColumn<int>("lowerText");
    QTest::addColumn<QRect>("upper");
    QTest::addColumn<QRect>("lower");
    QTest::addColumn<int>("height");
    QTest::newRow("ten points: never below 600 twips")
        << 14 << 14 << QRect(0, 0, 167, 20) << QRect(0, 20, 167, 20) << 40;
    QTest::newRow("large texts make it higher")
        << 40 << 20 << QRect(0, 0, 167, 44) << QRect(0, 44, 167, 24) << 68;
    QTest::newRow("small texts share what is spare")
        << 6 << 10 << QRect(0, 0, 167, 18) << QRect(0, 18, 167, 22) << 40;
    QTest::newRow("texts higher than all screens are cut off")
        << 60000 << 60000 << QRect(0, 0, 167, 32000) << QRect(0, 32000, 167, 0) << 32000;
}

void TstWindowGeometry::LinesShareTheWindow() {
    QFETCH(int, upperText);
    QFETCH(int, lowerText);
    QFETCH(QRect, upper);
    QFETCH(QRect, lower);
    QFETCH(int, height);
    const LineLayout layout = LayoutOf(167, upperText, lowerText);
    QCOMPARE(layout.upper, upper);
    QCOMPARE(layout.lower, lower);
    QCOMPARE(layout.height, height);
}

void TstWindowGeometry::LinesFillAGreaterWindow() {
    const LineLayout greater = LayoutOf(167, 16, 16, 51);  // the lines need 20 pixels each
    QCOMPARE(greater.upper, QRect(0, 0, 167, 25));
    QCOMPARE(greater.lower, QRect(0, 25, 167, 26));
    QCOMPARE(greater.height, 51);
    QCOMPARE(LayoutOf(167, 16, 16, 30).height, 40);
}

void TstWindowGeometry::AWindowOnNoScreenIsBroughtBack() {
    const QRect left(0, 0, 1920, 1080);
    const QRect right(1920, 0, 1920, 1080);
    const QRect seen(3800, 1000, 167, 40);
    QCOMPARE(BroughtBack(seen, {left, right}, left), seen);  // one visible corner is enough
    QCOMPARE(BroughtBack(seen, {left}, left), QRect(0, 0, 167, 40));
    QCOMPARE(BroughtBack({-500, 3, 167, 40}, {left, right}, right), QRect(1920, 0, 167, 40));
}

QTEST_GUILESS_MAIN(TstWindowGeometry)
#include "tst_window_geometry.moc"
