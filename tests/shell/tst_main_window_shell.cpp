// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDialog>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include "shell/main_window_bench.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

/// The main window on the desktop: its menu, the notification area, and keeping above other windows.
class TstMainWindowShell : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItemsWithoutAWindowAreDisabled();
    void ItemsOpenTheirWindows();
    void TheToolsOfTheFolderAreShownAndStarted();
    void AToolThatFailsIsReported();
    void ItIsRaisedEveryTwoSeconds();
    void ItIsNotRaisedDuringTheStartUpDelay();
    void ItIsNotRaisedWhileTheSettingsAreOpen();
    void TheSettingsDoNotEndTheStartUpDelay();
    void ItIsNotRaisedWhileItsMenuIsOpen();
    void ItIsNotRaisedAboveTheProgramsOtherWindows();
    void ItIsNotRaisedInTheNotificationArea();
    void AnIconifiedWindowIsRestoredByTheNextCheck();
    void ItStaysIconifiedWhileItsMenuIsOpen();
    void AWindowIgnoredByTheWindowManagerIsShownAgainOnce();
    void AWindowOnTheScreenIsNotHiddenDuringStartUp();
    void ASecondStartBringsAnIconifiedWindowBack();
    void ASecondStartBringsItToTheUsersWorkspace();
    void ItDeclaresItselfEachTimeItIsShown();
    void WithoutANotificationAreaItsItemIsDisabled();
    void TheNotificationAreaTakesItAndGivesItBack();
    void TheAreasMenuHasItsCommands();
    void ASecondStartTakesItOutOfTheArea();
    void TheMenuOpensForTheKeyboard();
    void ClosingSavesTheSettingsThenRemovesTheIconThenEnds();
    void ItClosesFromTheNotificationArea();
};

void TstMainWindowShell::ItemsWithoutAWindowAreDisabled() {
    MainWindowBench bench;
    bench.Start();
    for (const char* item : {"Menu1", "Menu17", "Menu21", "menu22", "Menu93"}) {
        QVERIFY2(!bench.Item(item).isEnabled(), item);
    }
}

void TstMainWindowShell::ItemsOpenTheirWindows() {
    MainWindowBench bench;
    QStringList opened;
    bench.windows = {.calendar = [&] { opened.append(u"calendar"_s); },
                     .settings = [&] { opened.append(u"settings"_s); },
                     .help = [&] { opened.append(u"help"_s); },
                     .about = [&] { opened.append(u"about"_s); }};
    bench.openCdPlayer = [&] { opened.append(u"cd"_s); };
    bench.Start();
    for (const char* item : {"Menu1", "Menu17", "Menu21", "menu22", "Menu93"}) {
        bench.Item(item).trigger();
    }
    bench.form->ChangeFunction(kFunctionCd);
    bench.Item("Menu0").trigger();
    QCOMPARE(opened, (QStringList{u"calendar"_s, u"settings"_s, u"help"_s, u"about"_s, u"help"_s, u"cd"_s}));
}

void TstMainWindowShell::TheToolsOfTheFolderAreShownAndStarted() {
    const QTemporaryDir folder;
    WriteAll(folder.filePath(u"KT04.exe"_s), "");
    MainWindowBench bench;
    bench.folder = folder.path();
    bench.Start();
    QVERIFY(bench.Item("Menu10").isVisible());
    QVERIFY(bench.Item("MenuTool(4)").isVisible());
    QVERIFY(!bench.Item("MenuTool(5)").isVisible());
    bench.Item("MenuTool(4)").trigger();
    QCOMPARE(bench.starter.started, (QList<FakeProgramStarter::Started>{
                                        {folder.filePath(u"KT04.exe"_s), {u"VeskOnly"_s}, folder.path()}}));
}

void TstMainWindowShell::AToolThatFailsIsReported() {
    MainWindowBench bench;
    bench.starter.starts = false;
    bench.Start();
    bench.Item("MenuTool(1)").trigger();
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().icon, MessageIcon::Critical);
}

void TstMainWindowShell::ItIsRaisedEveryTwoSeconds() {
    MainWindowBench bench;
    bench.Start();
    const QRect before = bench.form->geometry();
    bench.time.Advance(kStartUp + 1999);
    QVERIFY(bench.stack.raised.isEmpty());
    bench.time.Advance(1);
    QCOMPARE(bench.stack.raised, QList<quintptr>{bench.form->winId()});
    bench.time.Advance(8000);
    QCOMPARE(bench.stack.raised.size(), 5);
    QCOMPARE(bench.form->geometry(), before);
}

void TstMainWindowShell::ItIsNotRaisedDuringTheStartUpDelay() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    QVERIFY(bench.stack.raised.isEmpty());
}

void TstMainWindowShell::ItIsNotRaisedWhileTheSettingsAreOpen() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    bench.form->HoldKeepTop(true);
    bench.time.Advance(60'000);
    QVERIFY(bench.stack.raised.isEmpty());
    bench.form->HoldKeepTop(false);
    bench.time.Advance(2000);
    QCOMPARE(bench.stack.raised.size(), 1);
}

void TstMainWindowShell::TheSettingsDoNotEndTheStartUpDelay() {
    MainWindowBench bench;
    bench.Start();
    bench.form->HoldKeepTop(true);
    bench.form->HoldKeepTop(false);
    bench.time.Advance(kStartUp);
    QVERIFY(bench.stack.raised.isEmpty());
}

void TstMainWindowShell::ItIsNotRaisedWhileItsMenuIsOpen() {
    MainWindowBench bench;
    bench.Start();
    QTest::keyClick(bench.form.get(), Qt::Key_Space);
    bench.time.Advance(kStartUp + 10'000);
    QVERIFY(bench.stack.raised.isEmpty());
    bench.form->VisibleMenus().constFirst()->close();
    bench.time.Advance(2000);
    QCOMPARE(bench.stack.raised.size(), 1);
}

void TstMainWindowShell::ItIsNotRaisedAboveTheProgramsOtherWindows() {
    MainWindowBench bench;
    bench.Start();
    QDialog dialog;
    dialog.setGeometry(bench.form->geometry().translated(10, 10));
    dialog.show();
    bench.time.Advance(kStartUp + 10'000);
    QVERIFY(bench.stack.raised.isEmpty());
    dialog.move(bench.form->geometry().bottomRight() + QPoint(50, 50));
    bench.time.Advance(2000);
    QCOMPARE(bench.stack.raised.size(), 1);
}

void TstMainWindowShell::ItIsNotRaisedInTheNotificationArea() {
    MainWindowBench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.time.Advance(5000);
    bench.Item("Menu19").trigger();
    bench.time.Advance(60'000);
    QVERIFY(bench.stack.raised.isEmpty());
    QVERIFY(!bench.form->isVisible());
    bench.Item("Menu91").trigger();
    bench.time.Advance(2000);
    QCOMPARE(bench.stack.raised.size(), 1);
}

void TstMainWindowShell::AnIconifiedWindowIsRestoredByTheNextCheck() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    const QRect before = bench.form->geometry();
    bench.form->setWindowState(Qt::WindowMinimized);
    bench.time.Advance(1999);
    QVERIFY(bench.form->isMinimized());
    const auto declared = bench.stack.declared.size();
    bench.time.Advance(1);
    QVERIFY(!bench.form->isMinimized());
    QVERIFY(bench.form->isVisible());
    QVERIFY(bench.stack.declared.size() > declared);
    QCOMPARE(bench.stack.raised, QList<quintptr>{bench.form->winId()});
    QCOMPARE(bench.form->geometry(), before);
    QVERIFY(bench.stack.brought.isEmpty());  // it does not follow the user to another workspace
}

void TstMainWindowShell::ItStaysIconifiedWhileItsMenuIsOpen() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(kStartUp);
    QTest::keyClick(bench.form.get(), Qt::Key_Space);
    bench.form->setWindowState(Qt::WindowMinimized);
    bench.time.Advance(10'000);
    QVERIFY(bench.form->isMinimized());
    QCOMPARE(bench.form->VisibleMenus().size(), 1);
    bench.form->VisibleMenus().constFirst()->close();
    bench.time.Advance(2000);
    QVERIFY(!bench.form->isMinimized());
}

void TstMainWindowShell::AWindowIgnoredByTheWindowManagerIsShownAgainOnce() {
    MainWindowBench bench;
    bench.stack.isLost = true;
    bench.Start();
    bench.time.Advance(2999);
    QCOMPARE(bench.stack.declared.size(), 1);
    bench.time.Advance(1);
    const auto shownAgain = bench.stack.declared.size();
    QVERIFY(shownAgain > 1);
    bench.stack.isLost = false;
    bench.time.Advance(60'000);
    QCOMPARE(bench.stack.declared.size(), shownAgain);
    QVERIFY(bench.form->isVisible());
}

void TstMainWindowShell::AWindowOnTheScreenIsNotHiddenDuringStartUp() {
    MainWindowBench bench;
    bench.Start();
    QVERIFY(!bench.form->windowHandle()->isExposed());  // Qt was not notified; hiding it could lose a click
    bench.time.Advance(kStartUp);
    QCOMPARE(bench.stack.declared.size(), 1);
}

void TstMainWindowShell::ASecondStartBringsAnIconifiedWindowBack() {
    MainWindowBench bench;
    bench.Start();
    bench.form->setWindowState(Qt::WindowMinimized);
    bench.form->ComeForward();  // works even during the start-up delay
    QVERIFY(!bench.form->isMinimized());
    QVERIFY(bench.form->isVisible());
    QCOMPARE(bench.stack.raised, QList<quintptr>{bench.form->winId()});
}

void TstMainWindowShell::ASecondStartBringsItToTheUsersWorkspace() {
    MainWindowBench bench;
    bench.Start();
    bench.form->ComeForward();
    QCOMPARE(bench.stack.brought, QList<quintptr>{bench.form->winId()});
}

void TstMainWindowShell::ItDeclaresItselfEachTimeItIsShown() {
    MainWindowBench bench;
    bench.tray.SetThere(true);
    bench.Start();
    QCOMPARE(bench.stack.declared, QList<quintptr>{bench.form->winId()});
    QVERIFY(bench.stack.askedFor.isEmpty());  // only once it is shown
    QTRY_COMPARE(bench.stack.askedFor, QList<quintptr>{bench.form->winId()});
    bench.Item("Menu19").trigger();
    bench.Item("Menu91").trigger();
    QCOMPARE(bench.stack.declared.size(), 2);
    QTRY_COMPARE(bench.stack.askedFor.size(), 2);
}

void TstMainWindowShell::WithoutANotificationAreaItsItemIsDisabled() {
    MainWindowBench bench;
    bench.Start();
    for (const bool isThere : {false, true, false}) {
        bench.tray.SetThere(isThere);
        QTest::keyClick(bench.form.get(), Qt::Key_Space);
        QCOMPARE(bench.Item("Menu19").isEnabled(), isThere);
        bench.tray.SetThere(!isThere);  // while the menu is open
        QCOMPARE(bench.Item("Menu19").isEnabled(), !isThere);
        bench.form->VisibleMenus().constFirst()->close();
    }
}

void TstMainWindowShell::TheNotificationAreaTakesItAndGivesItBack() {
    MainWindowBench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.time.Advance(3000);
    bench.form->move(30, 40);
    QTRY_COMPARE(bench.form->pos(), QPoint(30, 40));
    bench.Item("Menu19").trigger();
    QVERIFY(!bench.form->isVisible());
    QCOMPARE(bench.tray.Tip(), u"Tickwell Ver.2"_s);
    bench.tray.Click();
    QVERIFY(bench.form->isVisible());
    QVERIFY(!bench.tray.HasIcon());
    QTRY_COMPARE(bench.form->pos(), QPoint(30, 40));
}

void TstMainWindowShell::TheAreasMenuHasItsCommands() {
    MainWindowBench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.Item("Menu19").trigger();
    QCOMPARE(bench.tray.Menu()->objectName(), u"Menu90"_s);
    ChildOf<QAction>(*bench.tray.Menu(), u"Menu94"_s).trigger();
    QCOMPARE(bench.closed, 1);
}

void TstMainWindowShell::ASecondStartTakesItOutOfTheArea() {
    MainWindowBench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.Item("Menu19").trigger();
    bench.form->ComeForward();
    QVERIFY(bench.form->isVisible());
    QVERIFY(!bench.tray.HasIcon());
}

void TstMainWindowShell::TheMenuOpensForTheKeyboard() {
    MainWindowBench bench;
    bench.Start();
    bench.form->ComeForwardWithMenu();
    QCOMPARE(bench.form->VisibleMenus().size(), 1);
    const QMenu* menu = bench.form->VisibleMenus().constFirst();
    QVERIFY(menu->activeAction() != nullptr && menu->activeAction()->isEnabled());
    bench.form->VisibleMenus().constFirst()->close();
}

void TstMainWindowShell::ClosingSavesTheSettingsThenRemovesTheIconThenEnds() {
    MainWindowBench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.Item("Menu19").trigger();
    QStringList steps;
    bench.tray.onHide = [&] {
        steps.append(bench.store.Written().isEmpty() ? u"icon before settings"_s : u"icon after settings"_s);
        steps.append(bench.closed == 0 ? u"rest to come"_s : u"rest done"_s);
    };
    bench.form->close();
    QCOMPARE(steps, (QStringList{u"icon after settings"_s, u"rest to come"_s}));
    QCOMPARE(bench.closed, 1);
}

void TstMainWindowShell::ItClosesFromTheNotificationArea() {
    MainWindowBench bench;
    bench.tray.SetThere(true);
    bench.Start();
    bench.Item("Menu19").trigger();
    ChildOf<QAction>(*bench.tray.Menu(), u"Menu94"_s).trigger();
    QCOMPARE(bench.store.Written().size(), 27);
    QVERIFY(!bench.tray.HasIcon());
    QVERIFY(!bench.form->isVisible());
}

QTEST_MAIN(TstMainWindowShell)
#include "tst_main_window_shell.moc"
