// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/line_look.h"
#include "shell/main_window_bench.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

constexpr int kKeepTop = 2000;  // ms

/// The main window after start-up, with one option of page 窓 switched on.
struct DesktopBench : MainWindowBench {
    explicit DesktopBench(const QString& key) {
        store.Put(u"Face"_s, key, u"True"_s);
        tray.SetThere(true);
        Start();
        time.Advance(kStartUp);
        form->move(30, 40);
    }
    bool IsShown() const { return form->isVisible(); }
};

struct HidingBench : DesktopBench {
    HidingBench() : DesktopBench(u"HidesUnderFullScreen"_s) {}
};

}  // namespace

/// The main window among other windows: full-screen windows and the window switcher, as chosen in the
/// settings.
class TstMainWindowDesktop : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void ByDefaultFullScreenWindowsDoNotMatter();
    void ItHidesUnderAFullScreenWindowAndComesBack();
    void HiddenItIsNotKeptOnTop();
    void ASecondStartBringsItUntilTheWindowIsGone_data();
    void ASecondStartBringsItUntilTheWindowIsGone();
    void WithAnOpenMenuItStays();
    void WithOpenSettingsItStays();
    void WhileItIsDraggedItStays();
    void TheNotificationAreaGivesItBack();
    void InTheNotificationAreaItStaysHidden();
    void SwitchedOffItComesBackAtOnce();
    void HiddenItKeepsItsPlaceInTheFile();
    void ByDefaultItIsNotInTheSwitcher();
    void ItIsInTheSwitcherFromTheStart();
    void TheSwitcherIsChosenAtOnce();
    void TheSwitcherIsChosenWhileItIsHidden();
};

void TstMainWindowDesktop::ByDefaultFullScreenWindowsDoNotMatter() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    QVERIFY(!bench.fullScreen.IsWatched());
    bench.fullScreen.Change(true);
    bench.form->ApplySettings();
    bench.form->ComeForward();
    QVERIFY(bench.form->isVisible());
    QCOMPARE(bench.fullScreen.asked, quintptr{0});
}

void TstMainWindowDesktop::ItHidesUnderAFullScreenWindowAndComesBack() {
    HidingBench bench;
    for (int round = 0; round < 2; ++round) {
        bench.fullScreen.Change(true);
        QVERIFY(!bench.IsShown());
        QCOMPARE(bench.fullScreen.asked, bench.form->winId());
        const auto declared = bench.stack.declared.size();
        bench.fullScreen.Change(false);
        QVERIFY(bench.IsShown());
        QCOMPARE(bench.form->pos(), QPoint(30, 40));
        QCOMPARE(bench.stack.declared.size(), declared + 1);
    }
}

void TstMainWindowDesktop::HiddenItIsNotKeptOnTop() {
    HidingBench bench;
    bench.fullScreen.Change(true);
    bench.stack.raised.clear();
    bench.stack.isLost = true;
    bench.time.Advance(60'000);
    QVERIFY(bench.stack.raised.isEmpty());
    QVERIFY(!bench.IsShown());
    bench.stack.isLost = false;
    bench.fullScreen.Change(false);
    bench.time.Advance(kKeepTop);
    QCOMPARE(bench.stack.raised.size(), 1);
}

void TstMainWindowDesktop::ASecondStartBringsItUntilTheWindowIsGone_data() {
    QTest::addColumn<bool>("withMenu");
    QTest::newRow("alone") << false;
    QTest::newRow("with its menu") << true;
}

void TstMainWindowDesktop::ASecondStartBringsItUntilTheWindowIsGone() {
    QFETCH(const bool, withMenu);
    HidingBench bench;
    bench.fullScreen.Change(true);
    if (withMenu) {
        bench.form->ComeForwardWithMenu();
        QCOMPARE(bench.form->VisibleMenus().size(), 1);
        bench.form->VisibleMenus().constFirst()->close();
        QCoreApplication::processEvents();
    } else {
        bench.form->ComeForward();
    }
    QVERIFY(bench.IsShown());
    QCOMPARE(bench.form->pos(), QPoint(30, 40));
    bench.fullScreen.Change(true);
    QVERIFY(bench.IsShown());
    bench.stack.raised.clear();
    bench.time.Advance(kKeepTop);
    QCOMPARE(bench.stack.raised.size(), 1);
    bench.fullScreen.Change(false);
    QVERIFY(bench.IsShown());
    bench.fullScreen.Change(true);
    QVERIFY(!bench.IsShown());
}

void TstMainWindowDesktop::WithAnOpenMenuItStays() {
    HidingBench bench;
    QTest::keyClick(bench.form.get(), Qt::Key_Space);
    bench.fullScreen.Change(true);
    QVERIFY(bench.IsShown());
    bench.form->VisibleMenus().constFirst()->close();
    QTRY_VERIFY(!bench.IsShown());
}

void TstMainWindowDesktop::WithOpenSettingsItStays() {
    HidingBench bench;
    bench.form->HoldKeepTop(true);
    bench.fullScreen.Change(true);
    QVERIFY(bench.IsShown());
    bench.form->HoldKeepTop(false);
    QVERIFY(!bench.IsShown());
}

void TstMainWindowDesktop::WhileItIsDraggedItStays() {
    HidingBench bench;
    QTest::mousePress(bench.form.get(), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseMove(bench.form.get(), QPoint(60, 60));
    bench.fullScreen.Change(true);
    QVERIFY(bench.IsShown());
    QTest::mouseRelease(bench.form.get(), Qt::LeftButton, {}, QPoint(60, 60));
    QVERIFY(!bench.IsShown());
}

void TstMainWindowDesktop::TheNotificationAreaGivesItBack() {
    HidingBench bench;
    bench.Item("Menu19").trigger();
    bench.fullScreen.Change(true);
    bench.tray.Click();
    QVERIFY(bench.IsShown());
    bench.fullScreen.Change(true);
    QVERIFY(bench.IsShown());
}

void TstMainWindowDesktop::InTheNotificationAreaItStaysHidden() {
    HidingBench bench;
    bench.Item("Menu19").trigger();
    bench.fullScreen.Change(true);
    bench.fullScreen.Change(false);
    QVERIFY(!bench.IsShown());
    QVERIFY(bench.tray.HasIcon());
}

void TstMainWindowDesktop::SwitchedOffItComesBackAtOnce() {
    HidingBench bench;
    bench.fullScreen.Change(true);
    bench.further.face.hidesUnderFullScreen = false;
    bench.form->ApplySettings();
    QVERIFY(bench.IsShown());
    QVERIFY(!bench.fullScreen.IsWatched());
}

void TstMainWindowDesktop::HiddenItKeepsItsPlaceInTheFile() {
    HidingBench bench;
    bench.fullScreen.Change(true);
    bench.form->SaveAll();
    QCOMPARE(bench.store.Get(u"SetUp"_s, u"Win_Left"_s).value_or(QString()), u"450"_s);
    QCOMPARE(bench.store.Get(u"SetUp"_s, u"Win_Top"_s).value_or(QString()), u"600"_s);
}

void TstMainWindowDesktop::ByDefaultItIsNotInTheSwitcher() {
    MainWindowBench bench;
    bench.Start();
    QCOMPARE(bench.form->windowType(), Qt::Tool);
    QVERIFY(!bench.stack.isInSwitcher);
}

void TstMainWindowDesktop::ItIsInTheSwitcherFromTheStart() {
    DesktopBench bench(u"InWindowSwitcher"_s);
    QCOMPARE(bench.form->windowFlags(), Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    QVERIFY(bench.stack.isInSwitcher);
    QCOMPARE(bench.stack.declared.size(), 1);
    QVERIFY(bench.form->testAttribute(Qt::WA_ShowWithoutActivating));
}

void TstMainWindowDesktop::TheSwitcherIsChosenAtOnce() {
    DesktopBench bench(u"StaysOnScreen"_s);
    for (const bool isIn : {true, false}) {
        bench.further.face.inWindowSwitcher = isIn;
        bench.form->ApplySettings();
        QVERIFY(bench.IsShown());
        QCOMPARE(bench.form->pos(), QPoint(30, 40));
        QCOMPARE(bench.form->windowType(), isIn ? Qt::Window : Qt::Tool);
        QCOMPARE(bench.stack.isInSwitcher, isIn);
        QCOMPARE(bench.stack.declared.constLast(), bench.form->winId());
    }
}

void TstMainWindowDesktop::TheSwitcherIsChosenWhileItIsHidden() {
    HidingBench bench;
    bench.fullScreen.Change(true);
    bench.further.face.inWindowSwitcher = true;
    bench.form->ApplySettings();
    QVERIFY(!bench.IsShown());
    bench.fullScreen.Change(false);
    QVERIFY(bench.IsShown());
    QCOMPARE(bench.form->pos(), QPoint(30, 40));
    QVERIFY(bench.stack.isInSwitcher);
}

QTEST_MAIN(TstMainWindowDesktop)
#include "tst_main_window_desktop.moc"
