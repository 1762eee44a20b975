// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "shell/screen_place.h"

using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

const NamedScreen kLeft{u"DP-1"_s, {0, 0, 1280, 1024}};
const NamedScreen kRight{u"HDMI-1"_s, {1280, 100, 800, 600}};  // hangs 100 pixels lower
constexpr QSize kWindow{167, 40};

}  // namespace

/// Where the main window belongs on the connected screens.
class TstScreenPlace : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void APlaceIsRelativeToItsScreen_data();
    void APlaceIsRelativeToItsScreen();
    void APositionIsInside_data();
    void APositionIsInside();
    void ItReturnsWithItsScreen_data();
    void ItReturnsWithItsScreen();
    void AWindowLargerThanTheScreenKeepsItsCorner();
    void WithoutAScreenItStays();
};

void TstScreenPlace::APlaceIsRelativeToItsScreen_data() {
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QString>("screen");
    QTest::addColumn<QPoint>("offset");
    QTest::newRow("on the left one") << QPoint(10, 20) << u"DP-1"_s << QPoint(10, 20);
    QTest::newRow("on the right one") << QPoint(1500, 150) << u"HDMI-1"_s << QPoint(220, 50);
    QTest::newRow("mostly on the left one") << QPoint(1280 - 100, 200) << u"DP-1"_s << QPoint(1180, 200);
    QTest::newRow("mostly on the right one") << QPoint(1280 - 60, 200) << u"HDMI-1"_s << QPoint(-60, 100);
    QTest::newRow("on neither") << QPoint(3000, 0) << QString() << QPoint();
}

void TstScreenPlace::APlaceIsRelativeToItsScreen() {
    QFETCH(const QPoint, position);
    QFETCH(const QString, screen);
    QFETCH(const QPoint, offset);
    QCOMPARE(PlaceOf(QRect(position, kWindow), {kLeft, kRight}), (ScreenPlace{screen, offset}));
}

void TstScreenPlace::APositionIsInside_data() {
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QPoint>("inside");
    QTest::newRow("inside") << QPoint(500, 500) << QPoint(500, 500);
    QTest::newRow("in the last corner") << QPoint(1280 - 167, 1024 - 40) << QPoint(1280 - 167, 1024 - 40);
    QTest::newRow("a pixel below") << QPoint(0, 1024 - 39) << QPoint(0, 1024 - 40);
    QTest::newRow("to the left") << QPoint(-500, 300) << QPoint(0, 300);
    QTest::newRow("above") << QPoint(30, -41) << QPoint(30, 0);
    QTest::newRow("across both") << QPoint(1200, 300) << QPoint(1200, 300);
    QTest::newRow("across both, above the right one") << QPoint(1200, 80) << QPoint(1113, 80);
    QTest::newRow("to the right of both") << QPoint(2500, 650) << QPoint(2080 - 167, 650);
    QTest::newRow("below the right one") << QPoint(1900, 690) << QPoint(1900, 660);
}

void TstScreenPlace::APositionIsInside() {
    QFETCH(const QPoint, position);
    QFETCH(const QPoint, inside);
    QCOMPARE(PositionInside(QRect(position, kWindow), {}, {kLeft, kRight}), inside);
}

void TstScreenPlace::ItReturnsWithItsScreen_data() {
    QTest::addColumn<ScreenPlace>("place");
    QTest::addColumn<QPoint>("position");
    QTest::newRow("to its place") << ScreenPlace{u"HDMI-1"_s, {220, 50}} << QPoint(1500, 150);
    QTest::newRow("the screen is smaller now")
        << ScreenPlace{u"HDMI-1"_s, {1000, 50}} << QPoint(2080 - 167, 150);
    QTest::newRow("another screen") << ScreenPlace{u"DP-2"_s, {220, 50}} << QPoint(5, 6);
}

void TstScreenPlace::ItReturnsWithItsScreen() {
    QFETCH(const ScreenPlace, place);
    QFETCH(const QPoint, position);
    QCOMPARE(PositionInside(QRect(QPoint(5, 6), kWindow), place, {kLeft, kRight}), position);
}

void TstScreenPlace::AWindowLargerThanTheScreenKeepsItsCorner() {
    QCOMPARE(PositionInside(QRect(-50, 900, 2000, 300), {}, {kLeft}), QPoint(0, 724));
    QCOMPARE(PositionInside(QRect(50, 50, 2000, 3000), {}, {kLeft}), QPoint(0, 0));
}

void TstScreenPlace::WithoutAScreenItStays() {
    QCOMPARE(PositionInside(QRect(QPoint(5000, 6), kWindow), {u"DP-1"_s, {1, 1}}, {}), QPoint(5000, 6));
}

QTEST_GUILESS_MAIN(TstScreenPlace)
#include "tst_screen_place.moc"
