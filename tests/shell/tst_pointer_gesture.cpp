// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "shell/pointer_gesture.h"

using namespace tickwell;
using namespace tickwell::shell;

namespace {

constexpr QRect kWindow(100, 200, 167, 40);

}  // namespace

/// Click, drag and the edge that changes the width.
class TstPointerGesture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PressAndReleaseIsAClick();
    void SmallMovesStillClick();
    void AMoveDragsTheWindowAlong();
    void ADragThatComesBackIsNoClick();
    void TheRightEdgeChangesTheWidth();
    void TheWindowStaysWideEnoughToBeDragged();
    void MovesWithoutAPressAreIgnored();
    void AReleaseWithoutAPressIsNoClick();
    void TheEdgeIsTheLastSixPixels();
};

void TstPointerGesture::PressAndReleaseIsAClick() {
    PointerGesture gesture(10);
    gesture.Press({120, 210}, kWindow);
    QVERIFY(gesture.Release());
}

void TstPointerGesture::SmallMovesStillClick() {
    PointerGesture gesture(10);
    gesture.Press({120, 210}, kWindow);
    QCOMPARE(gesture.Move({124, 215}), std::nullopt);
    QVERIFY(gesture.Release());
}

void TstPointerGesture::AMoveDragsTheWindowAlong() {
    PointerGesture gesture(10);
    gesture.Press({120, 210}, kWindow);
    QCOMPARE(gesture.Move({140, 205}), std::optional(QRect(120, 195, 167, 40)));
    QCOMPARE(gesture.Move({121, 210}), std::optional(QRect(101, 200, 167, 40)));
    QVERIFY(!gesture.Release());
}

void TstPointerGesture::ADragThatComesBackIsNoClick() {
    PointerGesture gesture(10);
    gesture.Press({120, 210}, kWindow);
    gesture.Move({160, 210});
    QCOMPARE(gesture.Move({120, 210}), std::optional(kWindow));
    QVERIFY(!gesture.Release());
}

void TstPointerGesture::TheRightEdgeChangesTheWidth() {
    PointerGesture gesture(10);
    gesture.Press({265, 210}, kWindow);
    QCOMPARE(gesture.Move({305, 260}), std::optional(QRect(100, 200, 207, 40)));
    QVERIFY(!gesture.Release());
}

void TstPointerGesture::TheWindowStaysWideEnoughToBeDragged() {
    PointerGesture gesture(10);
    gesture.Press({265, 210}, kWindow);
    QCOMPARE(gesture.Move({-500, 210}), std::optional(QRect(100, 200, 45, 40)));
}

void TstPointerGesture::MovesWithoutAPressAreIgnored() {
    PointerGesture gesture(10);
    QCOMPARE(gesture.Move({500, 500}), std::nullopt);
}

void TstPointerGesture::AReleaseWithoutAPressIsNoClick() {
    PointerGesture gesture(10);
    QVERIFY(!gesture.Release());
    gesture.Press({120, 210}, kWindow);
    QVERIFY(gesture.Release());
    QVERIFY(!gesture.Release());
}

void TstPointerGesture::TheEdgeIsTheLastSixPixels() {
    QVERIFY(!PointerGesture::IsAtEdge({160, 10}, kWindow.size()));
    QVERIFY(PointerGesture::IsAtEdge({161, 10}, kWindow.size()));
    QVERIFY(PointerGesture::IsAtEdge({166, 10}, kWindow.size()));
}

QTEST_GUILESS_MAIN(TstPointerGesture)
#include "tst_pointer_gesture.moc"
