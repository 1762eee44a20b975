// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDialog>
#include <QTest>
#include <QWindow>

#include "app/window_placing.h"

using namespace tickwell;

/// Where windows open beside the main one.
class TstWindowPlacing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItStandsNear_data();
    void ItStandsNear();
    void ItIsOnTheScreenFromEverywhere();
    void ItStaysAboveOthers();
    void WhatIsLetThroughBelongsToTheModalWindow();
};

void TstWindowPlacing::ItStandsNear_data() {
    QTest::addColumn<QRect>("opener");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("corner");
    // A screen of 1000 x 800; 32 pixels are kept for the title, 8 between the windows.
    QTest::newRow("upper left: below") << QRect(0, 0, 167, 40) << QSize(300, 200) << QPoint(0, 80);
    QTest::newRow("in the middle: below") << QRect(400, 300, 167, 40) << QSize(300, 200) << QPoint(400, 380);
    QTest::newRow("at the right edge: moved in")
        << QRect(900, 0, 100, 40) << QSize(300, 200) << QPoint(699, 80);
    QTest::newRow("at the bottom: above") << QRect(0, 700, 167, 40) << QSize(300, 200) << QPoint(0, 492);
    QTest::newRow("high, from the middle: to the right")
        << QRect(100, 300, 167, 40) << QSize(300, 600) << QPoint(275, 199);
    QTest::newRow("high, from the right: to the left")
        << QRect(800, 300, 167, 40) << QSize(300, 600) << QPoint(492, 199);
    QTest::newRow("larger than the screen: at its corner")
        << QRect(100, 300, 167, 40) << QSize(1500, 1500) << QPoint(0, 32);
    QTest::newRow("opener outside the screen")
        << QRect(-5000, -5000, 167, 40) << QSize(300, 200) << QPoint(0, 32);
}

void TstWindowPlacing::ItStandsNear() {
    QFETCH(QRect, opener);
    QFETCH(QSize, size);
    QTEST(PlaceNear(size, opener, QRect(0, 0, 1000, 800)), "corner");
}

void TstWindowPlacing::ItIsOnTheScreenFromEverywhere() {
    const QRect screen(1920, 24, 1366, 744);  // the second of two, with a panel
    for (int x = 1500; x < 3500; x += 37) {
        for (int y = -100; y < 900; y += 41) {
            const QRect opener(x, y, 167, 40);
            const QRect window(PlaceNear({400, 300}, opener, screen), QSize(400, 300));
            const QRect framed = window.adjusted(0, -32, 0, 0);
            QVERIFY2(screen.contains(framed), qPrintable(QString::number(x) + u' ' + QString::number(y)));
            QVERIFY(!framed.intersects(opener) || !screen.contains(opener));
        }
    }
}

void TstWindowPlacing::ItStaysAboveOthers() {
    QWidget opener;
    opener.setGeometry(50, 60, 167, 40);
    QWidget window;
    PlaceNear(window, opener);
    QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(!window.isVisible());
}

void TstWindowPlacing::WhatIsLetThroughBelongsToTheModalWindow() {
    QWidget window;
    LetThroughModal(window);  // without a modal window it stands alone
    QVERIFY(window.windowHandle() == nullptr || window.windowHandle()->transientParent() == nullptr);
    QDialog modal;
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    LetThroughModal(modal);
    QVERIFY(modal.windowHandle()->transientParent() == nullptr);
    LetThroughModal(window);
    QVERIFY(window.windowHandle()->transientParent() == modal.windowHandle());
}

QTEST_MAIN(TstWindowPlacing)
#include "tst_window_placing.moc"
