// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QTest>

#include "lines/line_look.h"
#include "shell/main_window_accessible.h"
#include "shell/main_window_bench.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

/// The main window as a whole, without a window manager.
class TstMainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void AFirstStartLooksAsItShould();
    void TheFunctionStartsAfterElevenSeconds();
    void AFunctionChosenDuringTheDelayStartsAgainAtItsEnd();
    void TodaysNamesTakeTurnsEveryTenSeconds();
    void ARaisedRefreshFlagIsSeen();
    void AFailedLookUpIsReportedOnceAndTheTimeGoesOn();
    void TheStoredFunctionComesBack();
    void AnUnknownFunctionLeavesTheLinesAlone();
    void TheLinesTakeTheirStyles();
    void AFastWipeIsPassedOnUnchecked();
    void ABadWidthKeepsTheWindowFromOpening();
    void ASpeedThatOverflowsKeepsTheWindowFromOpening();
    void ClosingSavesAllAndEnds();
    void AFailedSaveIsReportedAndTheWindowStillCloses();
    void NothingIsWrittenBeforeTheClose();
    void ANegativeWidthOpensAndIsWrittenBack();
    void LargeFontsMakeTheWindowHigher();
    void TheMenuOpensByKeyboard_data();
    void TheMenuOpensByKeyboard();
    void AScreenReaderFindsWindowLinesAndOpenMenu();
};

void TstMainWindow::initTestCase() {
    lines::InstallFontSubstitutes();
    InstallMainWindowAccessibility();
}

void TstMainWindow::AFirstStartLooksAsItShould() {
    MainWindowBench bench;
    bench.Start();
    QCOMPARE(bench.form->geometry(), QRect(0, 0, 167, 40));
    QCOMPARE(bench.Upper().ForeColor(), 16777215);
    QCOMPARE(bench.Lower().ForeColor(), 65280);
    QCOMPARE(bench.Upper().BackColor(), 0);
    QCOMPARE(bench.Lower().BackColor(), 0);
    QCOMPARE(bench.Upper().Text(), u"Tickwell Ver.2"_s);
    QCOMPARE(bench.Lower().Text(), QString());
    QVERIFY(!bench.Upper().IsWiping());
    const Qt::WindowFlags flags = bench.form->windowFlags();
    QVERIFY(flags.testFlag(Qt::FramelessWindowHint) && flags.testFlag(Qt::WindowStaysOnTopHint));
}

void TstMainWindow::TheFunctionStartsAfterElevenSeconds() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(10'999);
    QCOMPARE(bench.Upper().Text(), u"Tickwell Ver.2"_s);
    bench.time.Advance(1);
    QCOMPARE(bench.Upper().Text(), u"平成10年11月15日(日曜日)"_s);
    QCOMPARE(bench.Lower().Text(), u"午後9時05分18秒"_s);
    QVERIFY(bench.Upper().IsWiping());
    bench.time.Advance(60'000);
    QCOMPARE(bench.Lower().Text(), u"午後9時06分18秒"_s);
}

void TstMainWindow::AFunctionChosenDuringTheDelayStartsAgainAtItsEnd() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(5000);
    bench.form->ChangeFunction(1);
    QCOMPARE(bench.Upper().Text(), u"Windows使用時間"_s);
    bench.time.Advance(5000);
    QVERIFY(!bench.Upper().IsWiping());
    bench.time.Advance(1000);
    QVERIFY(bench.Upper().IsWiping());
    QCOMPARE(bench.form->GetFuncNumber(), 1);
}

void TstMainWindow::TodaysNamesTakeTurnsEveryTenSeconds() {
    MainWindowBench bench;
    bench.dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('七五三',0,11,15,0)");
    bench.Start();
    bench.time.Advance(11'000);
    QCOMPARE(bench.Upper().Text(), u"平成10年11月15日(日曜日)"_s);
    bench.time.Advance(10'000);
    QCOMPARE(bench.Upper().Text(), u"七五三"_s);
    QVERIFY(bench.Upper().IsWiping());
    bench.time.Advance(10'000);
    QCOMPARE(bench.Upper().Text(), u"平成10年11月15日(日曜日)"_s);
}

void TstMainWindow::ARaisedRefreshFlagIsSeen() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(21'000);
    QCOMPARE(bench.Upper().Text(), u"平成10年11月15日(日曜日)"_s);
    QCOMPARE(
        bench.dayDatabase.Execute(
            u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"新しい\",\"0\",\"11\",\"15\",\"0\")"_s),
        1);
    bench.form->RaiseRefresh();
    bench.time.Advance(10'000);
    QCOMPARE(bench.Upper().Text(), u"新しい"_s);
}

void TstMainWindow::AFailedLookUpIsReportedOnceAndTheTimeGoesOn() {
    MainWindowBench bench;
    bench.Start();
    bench.dayStore.Raw("ALTER TABLE Kinenbi RENAME TO Gone");
    bench.time.Advance(60'000);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().title, u"Tickwell"_s);
    QCOMPARE(bench.Lower().Text(), u"午後9時06分07秒"_s);
}

void TstMainWindow::TheStoredFunctionComesBack() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Function"_s, u"1"_s);
    bench.Start();
    bench.time.Advance(11'000);
    QCOMPARE(bench.Upper().Text(), u"Windows使用時間"_s);
    QCOMPARE(bench.Lower().Text(), u"05分18秒"_s);
}

void TstMainWindow::AnUnknownFunctionLeavesTheLinesAlone() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Function"_s, u"99"_s);
    bench.Start();
    bench.time.Advance(60'000);
    QCOMPARE(bench.Upper().Text(), u"Tickwell Ver.2"_s);
    QCOMPARE(bench.Lower().Text(), QString());
    QCOMPARE(bench.time.UntilNext(), 1000);  // the timer that keeps the window on top
    bench.form->close();
    QCOMPARE(bench.store.Values().value({u"SetUp"_s, u"Function"_s}), u"99"_s);
}

void TstMainWindow::TheLinesTakeTheirStyles() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"A_Size"_s, u"20"_s);
    bench.store.Put(u"SetUp"_s, u"A_Bold"_s, u"True"_s);
    bench.store.Put(u"SetUp"_s, u"B_UnderLine"_s, u"True"_s);
    bench.store.Put(u"SetUp"_s, u"B_Color"_s, u"255"_s);
    bench.store.Put(u"SetUp"_s, u"BackColor"_s, u"16711680"_s);
    bench.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"1"_s);
    bench.Start();
    QVERIFY(bench.Upper().font().bold() && !bench.Lower().font().bold());
    QVERIFY(!bench.Upper().font().underline() && bench.Lower().font().underline());
    QCOMPARE(bench.Lower().ForeColor(), 255);
    QCOMPARE(bench.Upper().BackColor(), 16711680);
    QCOMPARE(bench.Upper().WipeKind(), 1);
    QCOMPARE(bench.Lower().WipeKind(), 1);
    QCOMPARE(bench.Upper().FrameInterval(), 20);
    QCOMPARE(bench.Upper().StepSize(), 6);  // 20 * 25 / 100 + 1
    QCOMPARE(bench.Lower().StepSize(), 4);  // 3.5, rounded half to even
}

void TstMainWindow::AFastWipeIsPassedOnUnchecked() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Op_Speed"_s, u"36"_s);
    bench.Start();
    QCOMPARE(bench.Upper().FrameInterval(), -2);
    QCOMPARE(bench.Lower().FrameInterval(), -2);
}

void TstMainWindow::ABadWidthKeepsTheWindowFromOpening() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Win_Width"_s, u"wide"_s);
    QVERIFY_THROWS_EXCEPTION(SettingsError, bench.Start());
    QVERIFY(!bench.form->isVisible());
}

void TstMainWindow::ASpeedThatOverflowsKeepsTheWindowFromOpening() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Op_Speed"_s, u"-2147483648"_s);
    QVERIFY_THROWS_EXCEPTION(OverflowError, bench.Start());
}

void TstMainWindow::ClosingSavesAllAndEnds() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(3000);
    bench.form->resize(200, bench.form->height());
    bench.form->move(30, 40);
    QTRY_COMPARE(bench.form->pos(), QPoint(30, 40));
    bench.form->ChangeFunction(1);
    bench.form->close();
    QCOMPARE(bench.closed, 1);
    QCOMPARE(bench.store.Written().size(), 27);
    const auto stored = [&](const QString& key) { return bench.store.Values().value({u"SetUp"_s, key}); };
    QCOMPARE(stored(u"Win_Width"_s), u"3000"_s);
    QCOMPARE(stored(u"Win_Left"_s), u"450"_s);
    QCOMPARE(stored(u"Win_Top"_s), u"600"_s);
    QCOMPARE(stored(u"Function"_s), u"1"_s);
}

void TstMainWindow::AFailedSaveIsReportedAndTheWindowStillCloses() {
    MainWindowBench bench;
    bench.Start();
    bench.store.SetFull(true);
    bench.form->close();
    QCOMPARE(bench.closed, 1);
    QVERIFY(!bench.form->isVisible());
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Shown().constFirst().text.contains(u"空き容量がありません。"_s));
}

void TstMainWindow::NothingIsWrittenBeforeTheClose() {
    MainWindowBench bench;
    bench.Start();
    bench.time.Advance(100'000);
    bench.form->ChangeFunction(1);
    bench.form->move(30, 40);
    QVERIFY(bench.store.Written().isEmpty());
}

void TstMainWindow::ANegativeWidthOpensAndIsWrittenBack() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"Win_Width"_s, u"-30"_s);
    bench.store.Put(u"SetUp"_s, u"Win_Left"_s, u"1000000000"_s);
    bench.Start();
    QCOMPARE(bench.form->width(), 1);
    bench.form->close();
    QCOMPARE(bench.store.Values().value({u"SetUp"_s, u"Win_Width"_s}), u"-30"_s);
    QCOMPARE(bench.store.Values().value({u"SetUp"_s, u"Win_Left"_s}), u"1000000000"_s);
}

void TstMainWindow::LargeFontsMakeTheWindowHigher() {
    MainWindowBench bench;
    bench.store.Put(u"SetUp"_s, u"B_Size"_s, u"48"_s);
    bench.Start();
    QVERIFY(bench.form->height() > 60);
    QVERIFY(bench.Lower().height() >= bench.Lower().TextHeight());
    QCOMPARE(bench.Lower().geometry().bottom(), bench.form->rect().bottom());
}

void TstMainWindow::TheMenuOpensByKeyboard_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("space") << Qt::Key_Space;
    QTest::newRow("F10") << Qt::Key_F10;
}

void TstMainWindow::TheMenuOpensByKeyboard() {
    QFETCH(Qt::Key, key);
    MainWindowBench bench;
    bench.Start();
    QVERIFY(bench.form->VisibleMenus().isEmpty());
    QTest::keyClick(bench.form.get(), key);
    QCOMPARE(bench.form->VisibleMenus().size(), 1);
    bench.form->VisibleMenus().constFirst()->close();
}

void TstMainWindow::AScreenReaderFindsWindowLinesAndOpenMenu() {
    MainWindowBench bench;
    bench.Start();
    QAccessibleInterface* window = QAccessible::queryAccessibleInterface(bench.form.get());
    QCOMPARE(window->role(), QAccessible::Window);
    QCOMPARE(window->childCount(), 2);
    QCOMPARE(window->child(0)->text(QAccessible::Name), u"Tickwell Ver.2"_s);
    QTest::keyClick(bench.form.get(), Qt::Key_Space);
    QCOMPARE(window->childCount(), 3);
    QCOMPARE(window->child(2)->role(), QAccessible::PopupMenu);
    QCOMPARE(window->indexOfChild(window->child(2)), 2);
    QCOMPARE(window->indexOfChild(window->child(1)), 1);
}

QTEST_MAIN(TstMainWindow)
#include "tst_main_window.moc"
