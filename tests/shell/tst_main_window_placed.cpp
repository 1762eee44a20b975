// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMouseEvent>
#include <QTest>
#include <QWindow>

#include "shell/main_window_bench.h"

using namespace tickwell;
using namespace tickwell::shell;

/// A compositor that decides the position of the window, or gives it another height.
class TstMainWindowPlaced : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheWindowStaysWhereTheCompositorPlacesIt();
    void OtherwiseItIsMovedBack();
    void TheEdgeIsFoundWithoutThePosition();
    void AWindowThatTheCompositorDoesNotMoveIsDraggedHere();
    void TheLinesFillAGreaterHeight();
};

namespace {

constexpr QPoint kElsewhere(300, 310);
constexpr QPoint kMiddle(60, 20);

void Send(Form1& form, QEvent::Type type, QPoint local, QPoint global) {
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type, local, global, isMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&form, &event);
}

}  // namespace

void TstMainWindowPlaced::TheWindowStaysWhereTheCompositorPlacesIt() {
    MainWindowBench bench;
    bench.isPlacedByCompositor = true;
    bench.Start();
    bench.form->move(kElsewhere);
    QCoreApplication::processEvents();
    QCOMPARE(bench.form->pos(), kElsewhere);
}

void TstMainWindowPlaced::OtherwiseItIsMovedBack() {
    MainWindowBench bench;
    bench.Start();
    const QPoint stored = bench.form->pos();
    bench.form->move(kElsewhere);
    QCoreApplication::processEvents();
    QCOMPARE(bench.form->pos(), stored);
}

/// sway does not report the window's position, so Qt takes the requested one for the real one.
void TstMainWindowPlaced::TheEdgeIsFoundWithoutThePosition() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    const QSize size = bench.form->size();
    const QPoint pointer = bench.form->pos() + QPoint(1000, 500);
    Send(*bench.form, QEvent::MouseButtonPress, kMiddle, pointer);
    Send(*bench.form, QEvent::MouseMove, kMiddle + QPoint(40, 30), pointer + QPoint(40, 30));
    QCOMPARE(bench.form->size(), size);
    QCOMPARE(bench.form->pos(), pointer - kMiddle + QPoint(40, 30));
}

void TstMainWindowPlaced::AWindowThatTheCompositorDoesNotMoveIsDraggedHere() {
    MainWindowBench bench;
    bench.isPlacedByCompositor = true;
    bench.Start();
    bench.time.Advance(kStartUp);
    const QPoint before = bench.form->pos();
    Send(*bench.form, QEvent::MouseButtonPress, kMiddle, before + kMiddle);
    Send(*bench.form, QEvent::MouseMove, kMiddle, before + kMiddle + QPoint(50, 0));
    Send(*bench.form, QEvent::MouseMove, kMiddle, before + kMiddle + QPoint(90, 10));
    QCOMPARE(bench.form->pos(), before + QPoint(90, 10));
}

void TstMainWindowPlaced::TheLinesFillAGreaterHeight() {
    MainWindowBench bench;
    bench.Start();
    const int wanted = bench.form->height();
    bench.form->windowHandle()->resize(167, wanted + 10);
    QCoreApplication::processEvents();
    QCOMPARE(bench.form->height(), wanted + 10);
    QCOMPARE(bench.Upper().geometry().top(), 0);
    QCOMPARE(bench.Lower().geometry().top(), bench.Upper().geometry().bottom() + 1);
    QCOMPARE(bench.Lower().geometry().bottom(), wanted + 9);
}

QTEST_MAIN(TstMainWindowPlaced)
#include "tst_main_window_placed.moc"
