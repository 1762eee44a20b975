// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/line_look.h"
#include "shell/main_window_bench.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

/// The main window after its start-up, at 100, 100.
struct KeysBench : MainWindowBench {
    int helps = 0;

    explicit KeysBench(bool movesWindow) {
        windows.windowHelp = [this] { ++helps; };
        store.Put(u"Keyboard"_s, u"MovesWindow"_s, movesWindow ? u"True"_s : u"False"_s);
        store.Put(u"SetUp"_s, u"Win_Left"_s, u"1500"_s);
        store.Put(u"SetUp"_s, u"Win_Top"_s, u"1500"_s);
        Start();
        time.Advance(kStartUp);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(form.get(), key, modifiers);
    }
    QMenu& OpenMenu() const {
        Press(Qt::Key_Space);
        return *form->VisibleMenus().constFirst();
    }
};

}  // namespace

/// The main window's keys other than those that open its menu.
class TstWindowKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void ByDefaultTheyDoNothing();
    void ArrowsMoveAndTheMoveIsStored();
    void WithCtrlTheyChangeTheWidth();
    void EscReturnsTheFocus();
    void EscInTheMenuReturnsTheFocus();
    void AChosenItemKeepsTheFocus();
    void AClosedSubmenuKeepsTheFocus();
    void AFocusThatCameWithTheMenuOpenIsNoticed();
    void TheSettingsSwitchThem();
    void F1OpensTheHelp();
    void TheMenuHasAccessKeysOnlyIfChosen();
};

void TstWindowKeys::ByDefaultTheyDoNothing() {
    const KeysBench bench(false);
    const QRect before = bench.form->geometry();
    QCOMPARE(before.topLeft(), QPoint(100, 100));
    bench.Press(Qt::Key_Left);
    bench.Press(Qt::Key_Right, Qt::ControlModifier);
    bench.Press(Qt::Key_Escape);
    QTest::keyClick(&bench.OpenMenu(), Qt::Key_Escape);
    QVERIFY(bench.form->VisibleMenus().isEmpty());
    QCOMPARE(bench.form->geometry(), before);
    QCOMPARE(bench.focus.returns, 0);
    QCOMPARE(bench.focus.followed, quintptr{0});
}

void TstWindowKeys::ArrowsMoveAndTheMoveIsStored() {
    KeysBench bench(true);
    bench.Press(Qt::Key_Right);
    bench.Press(Qt::Key_Down);
    bench.Press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(bench.form->pos(), QPoint(108, 109));
    bench.Press(Qt::Key_Left);
    bench.Press(Qt::Key_Up);
    QCOMPARE(bench.form->pos(), QPoint(100, 101));
    bench.form->close();
    QCOMPARE(bench.store.Values().value({u"SetUp"_s, u"Win_Left"_s}), u"1500"_s);
    QCOMPARE(bench.store.Values().value({u"SetUp"_s, u"Win_Top"_s}), u"1515"_s);
}

void TstWindowKeys::WithCtrlTheyChangeTheWidth() {
    KeysBench bench(true);
    QCOMPARE(bench.form->width(), 167);
    bench.Press(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(bench.form->width(), 175);
    bench.Press(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(bench.form->width(), 174);
    QCOMPARE(bench.Upper().width(), 174);
    for (int i = 0; i < 20; ++i) {
        bench.Press(Qt::Key_Left, Qt::ControlModifier);
    }
    QCOMPARE(bench.form->width(), 45);
    QCOMPARE(bench.form->pos(), QPoint(100, 100));
    bench.form->close();
    QCOMPARE(bench.store.Values().value({u"SetUp"_s, u"Win_Width"_s}), u"675"_s);
}

void TstWindowKeys::EscReturnsTheFocus() {
    const KeysBench bench(true);
    QCOMPARE(bench.focus.followed, quintptr{bench.form->winId()});
    bench.Press(Qt::Key_Escape);
    QCOMPARE(bench.focus.returns, 1);
    QVERIFY(bench.form->isVisible());
}

void TstWindowKeys::EscInTheMenuReturnsTheFocus() {
    const KeysBench bench(true);
    QMenu& menu = bench.OpenMenu();
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Escape);
    QVERIFY(bench.form->VisibleMenus().isEmpty());
    QCOMPARE(bench.focus.returns, 1);
}

void TstWindowKeys::AChosenItemKeepsTheFocus() {
    const KeysBench bench(true);
    QMenu& menu = bench.OpenMenu();
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    QVERIFY(bench.form->VisibleMenus().isEmpty());
    bench.OpenMenu().close();  // as if the user had clicked elsewhere
    QCOMPARE(bench.focus.returns, 0);
}

void TstWindowKeys::AClosedSubmenuKeepsTheFocus() {
    KeysBench bench(true);
    QMenu& menu = bench.OpenMenu();
    QMenu* tools = bench.Item("Menu10").menu();
    tools->addAction(u"a tool"_s);  // an empty menu is not shown
    bench.Item("Menu10").setVisible(true);
    menu.setActiveAction(&bench.Item("Menu10"));
    tools->popup(QPoint(200, 200));
    QVERIFY(tools->isVisible());
    QTest::keyClick(tools, Qt::Key_Escape);
    QVERIFY(!tools->isVisible());
    menu.close();
    QCOMPARE(bench.focus.returns, 0);
}

/// As when the menu is opened by a command and the window manager is slow to give the window the focus.
void TstWindowKeys::AFocusThatCameWithTheMenuOpenIsNoticed() {
    const KeysBench bench(false);
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QMenu& menu = bench.OpenMenu();
    bench.form->windowHandle()->requestActivate();
    QTRY_COMPARE(QGuiApplication::focusWindow(), bench.form->windowHandle());
    QVERIFY(!bench.form->isActiveWindow());
    menu.close();
    QTRY_VERIFY(bench.form->isActiveWindow());
}

void TstWindowKeys::TheSettingsSwitchThem() {
    KeysBench bench(false);
    bench.further.keyboard.movesWindow = true;
    bench.form->ApplySettings();
    QVERIFY(bench.focus.followed != 0);
    bench.Press(Qt::Key_Right);
    QCOMPARE(bench.form->x(), 108);
    bench.further.keyboard.movesWindow = false;
    bench.form->ApplySettings();
    QCOMPARE(bench.focus.followed, quintptr{0});
    bench.Press(Qt::Key_Right);
    QCOMPARE(bench.form->x(), 108);
}

void TstWindowKeys::F1OpensTheHelp() {
    const KeysBench bench(false);
    bench.Press(Qt::Key_F1, Qt::ShiftModifier);
    QCOMPARE(bench.helps, 0);
    bench.Press(Qt::Key_F1);
    QCOMPARE(bench.helps, 1);
}

void TstWindowKeys::TheMenuHasAccessKeysOnlyIfChosen() {
    KeysBench bench(false);
    bench.OpenMenu().close();
    QCOMPARE(bench.Item("Menu1").text(), u"カレンダー"_s);
    bench.further.keyboard.showsAccessKeys = true;
    bench.OpenMenu().close();
    QCOMPARE(bench.Item("Menu1").text(), u"カレンダー(&C)"_s);
    QCOMPARE(bench.Item("Menu20").text(), u"終了(&X)"_s);
    bench.further.keyboard.showsAccessKeys = false;
    bench.OpenMenu().close();
    QCOMPARE(bench.Item("Menu1").text(), u"カレンダー"_s);
}

QTEST_MAIN(TstWindowKeys)
#include "tst_window_keys.moc"
