// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDialog>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <vector>

#include "app/window_placing.h"

using namespace tickwell;
using namespace tickwell::app;

/// Where windows open relative to the main window.
class TstWindowPlacing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItOpensNearTheMainWindow_data();
    void ItOpensNearTheMainWindow();
    void ItIsOnTheScreenFromEverywhere();
    void NoWindowCoversAnother();
    void HiddenWindowsAndMenusTakeNoPlace();
    void ItStaysOnTopIfTold();
    void AWindowThatIsOnTopOfItselfStaysThere();
    void ItStaysOnTopOfAnOpenerThatItCovers();
    void AnExemptWindowIsTransientForTheModalWindow();
};

void TstWindowPlacing::ItOpensNearTheMainWindow_data() {
    QTest::addColumn<QRect>("opener");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QList<QRect>>("taken");
    QTest::addColumn<QPoint>("corner");
    // A screen of 1000 x 800, and 8 pixels between windows.
    const QList<QRect> none;
    const QRect upperLeft(0, 0, 167, 40);
    QTest::newRow("upper left: below") << upperLeft << QSize(300, 200) << none << QPoint(0, 48);
    QTest::newRow("in the middle: below")
        << QRect(400, 300, 167, 40) << QSize(300, 200) << none << QPoint(400, 348);
    QTest::newRow("at the right edge: moved in")
        << QRect(900, 0, 100, 40) << QSize(300, 200) << none << QPoint(700, 48);
    QTest::newRow("at the bottom: above")
        << QRect(0, 700, 167, 40) << QSize(300, 200) << none << QPoint(0, 492);
    QTest::newRow("high, from the middle: to the right")
        << QRect(100, 300, 167, 40) << QSize(300, 600) << none << QPoint(275, 200);
    QTest::newRow("high, from the right: to the left")
        << QRect(800, 300, 167, 40) << QSize(300, 600) << none << QPoint(492, 200);
    QTest::newRow("larger than the screen: at its corner")
        << QRect(100, 300, 167, 40) << QSize(1500, 1500) << none << QPoint(0, 0);
    QTest::newRow("opener outside the screen")
        << QRect(-5000, -5000, 167, 40) << QSize(300, 200) << none << QPoint(0, 0);
    const QRect below(0, 48, 300, 200);
    QTest::newRow("below is taken: to its right")
        << upperLeft << QSize(200, 100) << QList<QRect>{below} << QPoint(308, 0);
    QTest::newRow("the right is taken too: below both")
        << upperLeft << QSize(200, 100) << QList<QRect>{below, {308, 0, 692, 800}} << QPoint(0, 256);
    QTest::newRow("below and above are taken: a gap between")
        << QRect(400, 300, 167, 40) << QSize(167, 100)
        << QList<QRect>{{0, 348, 1000, 452}, {0, 0, 392, 348}, {392, 0, 608, 184}} << QPoint(400, 192);
    QTest::newRow("all is taken: beside the opener still")
        << upperLeft << QSize(200, 100) << QList<QRect>{{0, 0, 1000, 800}} << QPoint(0, 48);
    QTest::newRow("all but the opener is taken: still not over the opener")
        << QRect(400, 300, 400, 300) << QSize(200, 100)
        << QList<QRect>{{0, 0, 1000, 300}, {0, 300, 400, 300}, {800, 300, 200, 300}, {0, 600, 1000, 200}}
        << QPoint(400, 608);
    QTest::newRow("no room for two: not exactly over the other")
        << upperLeft << QSize(900, 700) << QList<QRect>{{0, 48, 900, 700}} << QPoint(100, 100);
}

void TstWindowPlacing::ItOpensNearTheMainWindow() {
    QFETCH(QRect, opener);
    QFETCH(QSize, size);
    QFETCH(QList<QRect>, taken);
    QTEST(PlaceNear(size, opener, QRect(0, 0, 1000, 800), taken), "corner");
}

void TstWindowPlacing::ItIsOnTheScreenFromEverywhere() {
    const QRect screen(1920, 24, 1366, 744);  // the second of two, with a panel
    for (int x = 1500; x < 3500; x += 37) {
        for (int y = -100; y < 900; y += 41) {
            const QRect opener(x, y, 167, 40);
            const QRect window(PlaceNear({400, 300}, opener, screen, {}), QSize(400, 300));
            QVERIFY2(screen.contains(window), qPrintable(QString::number(x) + u' ' + QString::number(y)));
            QVERIFY(!window.intersects(opener) || !screen.contains(opener));
        }
    }
}

void TstWindowPlacing::NoWindowCoversAnother() {
    QWidget opener(nullptr, Qt::FramelessWindowHint);
    opener.setGeometry(100, 100, 167, 40);
    opener.show();
    std::vector<std::unique_ptr<QWidget>> windows;
    QList<QRect> frames{opener.geometry()};
    const QRect screen = opener.screen()->availableGeometry();
    for (const QSize size :
         {QSize(185, 278), QSize(250, 150), QSize(260, 160), QSize(220, 90), QSize(185, 278)}) {
        windows.push_back(std::make_unique<QWidget>());
        windows.back()->resize(size);
        PlaceNear(*windows.back(), opener, OnTop::IfNeeded);
        windows.back()->show();
        const QRect frame(windows.back()->pos(), size + QSize(12, 38));  // including borders and title bar
        QVERIFY(screen.contains(frame));
        QVERIFY(std::none_of(frames.begin(), frames.end(),
                             [&](const QRect& each) { return each.intersects(frame); }));
        frames.append(windows.back()->frameGeometry());
    }
}

void TstWindowPlacing::HiddenWindowsAndMenusTakeNoPlace() {
    QWidget opener(nullptr, Qt::FramelessWindowHint);
    opener.setGeometry(100, 100, 167, 40);
    opener.show();
    QWidget hidden;
    QWidget minimised;
    QMenu menu;
    menu.addAction(QStringLiteral("item"));
    for (QWidget* each : {&hidden, &minimised, static_cast<QWidget*>(&menu)}) {
        each->setGeometry(100, 148, 300, 200);
    }
    minimised.showMinimized();
    menu.popup({100, 148});
    QWidget window;
    window.resize(200, 100);
    PlaceNear(window, opener, OnTop::IfNeeded);
    QCOMPARE(window.pos(), QPoint(100, 148));
    menu.close();
}

void TstWindowPlacing::ItStaysOnTopIfTold() {
    QWidget opener;
    opener.setGeometry(50, 60, 167, 40);
    QWidget window;
    PlaceNear(window, opener, OnTop::Always);
    QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(!window.isVisible());
    PlaceNear(window, opener, OnTop::IfNeeded);
    QVERIFY(!window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

void TstWindowPlacing::AWindowThatIsOnTopOfItselfStaysThere() {
    QWidget opener;
    opener.setGeometry(50, 60, 167, 40);
    QWidget notice(nullptr, Qt::WindowStaysOnTopHint);
    for (const OnTop onTop : {OnTop::IfNeeded, OnTop::Always, OnTop::IfNeeded}) {
        PlaceNear(notice, opener, onTop);
        QVERIFY(notice.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
}

void TstWindowPlacing::ItStaysOnTopOfAnOpenerThatItCovers() {
    QWidget opener;
    const QRect screen = opener.screen()->availableGeometry();
    opener.setGeometry(QRect({}, QSize(167, 40)).translated(screen.center()));
    QWidget window;
    window.resize(screen.size() - QSize(20, 50));  // with its frame as large as the screen
    PlaceNear(window, opener, OnTop::IfNeeded);
    QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

void TstWindowPlacing::AnExemptWindowIsTransientForTheModalWindow() {
    QWidget window;
    LetThroughModal(window);  // without a modal window it has no parent
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
