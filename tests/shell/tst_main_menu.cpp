// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/displays_bench.h"
#include "shell/main_menu.h"
#include "support/child.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

struct Bench : displays::LinesBench {
    QList<std::pair<MenuCommand, qint32>> chosen;
    MainMenu menu{displays, handlers,
                  [this](MenuCommand command, qint32 number) {
                      chosen.append({command, number});
                  },
                  nullptr};
};

/// "name caption" of each item, "name -" of a separator.
QStringList Items(const QMenu& menu) {
    QStringList items;
    for (const QAction* action : menu.actions()) {
        items.append(action->objectName() + u' ' + (action->isSeparator() ? u"-"_s : action->text()));
    }
    return items;
}

QStringList Shown(const QMenu& menu) {
    QStringList captions;
    for (const QAction* action : menu.actions()) {
        if (action->isVisible()) {
            captions.append(action->text());
        }
    }
    return captions;
}

}  // namespace

/// The menus of the main window and of its icon in the notification area.
class TstMainMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItemsAreInOrder();
    void TheTrayMenuHasItsItems();
    void TheToolsAreInOrder();
    void MissingToolsAreHidden();
    void WithoutAnyToolTheSubmenuIsHidden();
    void OneFunctionIsMarkedAtATime();
    void ChoosingAnItemReportsItsCommand();
    void ChoosingTheMarkedItemAgainStillReportsIt();
    void AnErrorOfAnItemIsReported();
};

void TstMainMenu::ItemsAreInOrder() {
    const Bench bench;
    QCOMPARE(bench.menu.objectName(), u"Menu"_s);
    QCOMPARE(
        Items(bench.menu),
        (QStringList{u"Menu0 操作ｳｨﾝﾄﾞｳの表示"_s, u"Menu1 カレンダー"_s, u"Menu61 -"_s, u"Menu3 ﾃﾞｼﾞﾀﾙ時計"_s,
                     u"Menu4 Windows時計"_s, u"Menu5 ｽﾄｯﾌﾟｳｫｯﾁ"_s, u"Menu6 ﾀｲﾏｰ"_s, u"Menu7 ﾊﾞｯﾃﾘｰ監視"_s,
                     u"Menu8 ﾒﾓﾘｰ監視"_s, u"Menu9 CDﾌﾟﾚｰﾔｰ"_s, u"Menu66 -"_s, u"Menu10 ツール"_s,
                     u"Menu17 環境設定"_s, u"Menu18 -"_s, u"Menu19 ﾀｽｸﾊﾞｰ格納"_s, u"Menu21 ﾍﾙﾌﾟ"_s,
                     u"menu22 バージョン情報"_s, u"Menu20 終了"_s}));
}

void TstMainMenu::TheTrayMenuHasItsItems() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    const ItemMenu menu(
        u"Menu90", kTrayMenuItems, handlers, [](MenuCommand, qint32) {}, nullptr);
    QCOMPARE(menu.objectName(), u"Menu90"_s);
    QCOMPARE(Items(menu), (QStringList{u"Menu91 ﾀｽｸﾄﾚｲから取り出す"_s, u"Menu92 -"_s, u"Menu93 ﾍﾙﾌﾟ"_s,
                                       u"Menu94 終了"_s}));
}

void TstMainMenu::TheToolsAreInOrder() {
    const Bench bench;
    const QMenu* tools = bench.menu.Item(MenuCommand::Tools)->menu();
    QCOMPARE(
        Items(*tools),
        (QStringList{u"MenuTool(1) 電卓"_s, u"MenuTool(2) システムツール"_s, u"MenuTool(3) アルゴリズム"_s,
                     u"MenuTool(4) 伝言板"_s, u"MenuTool(5) 健康管理"_s, u"MenuTool(6) 視力検査"_s,
                     u"MenuTool(7) 連打速度"_s, u"MenuTool(8) タイプ速度"_s, u"MenuTool(9) マウスクリック"_s,
                     u"MenuTool(10) ミニゲーム1"_s, u"MenuTool(11) ミニゲーム2"_s,
                     u"MenuTool(12) ミニゲーム3"_s, u"MenuTool(13) ミニゲーム4"_s}));
}

void TstMainMenu::MissingToolsAreHidden() {
    Bench bench;
    bench.menu.ShowTools({1, 6, 13});
    QVERIFY(bench.menu.Item(MenuCommand::Tools)->isVisible());
    QCOMPARE(Shown(*bench.menu.Item(MenuCommand::Tools)->menu()),
             (QStringList{u"電卓"_s, u"視力検査"_s, u"ミニゲーム4"_s}));
}

void TstMainMenu::WithoutAnyToolTheSubmenuIsHidden() {
    Bench bench;
    bench.menu.ShowTools({1});
    bench.menu.ShowTools({});
    QVERIFY(!bench.menu.Item(MenuCommand::Tools)->isVisible());
    QCOMPARE(Shown(*bench.menu.Item(MenuCommand::Tools)->menu()), QStringList());
}

void TstMainMenu::OneFunctionIsMarkedAtATime() {
    Bench bench;
    const auto marked = [&] {
        QStringList names;
        for (const QAction* action : bench.menu.actions()) {
            if (action->isChecked()) {
                names.append(action->objectName());
            }
        }
        return names;
    };
    bench.menu.CheckFunction(0);
    QCOMPARE(marked(), QStringList{u"Menu3"_s});
    bench.menu.CheckFunction(6);
    QCOMPARE(marked(), QStringList{u"Menu9"_s});
    bench.menu.CheckFunction(99);
    QCOMPARE(marked(), QStringList());
}

void TstMainMenu::ChoosingAnItemReportsItsCommand() {
    Bench bench;
    ChildOf<QAction>(bench.menu, u"Menu4"_s).trigger();
    ChildOf<QAction>(bench.menu, u"MenuTool(6)"_s).trigger();
    ChildOf<QAction>(bench.menu, u"Menu20"_s).trigger();
    QCOMPARE(bench.chosen,
             (QList<std::pair<MenuCommand, qint32>>{
                 {MenuCommand::ChangeFunction, 1}, {MenuCommand::StartTool, 6}, {MenuCommand::Quit, -1}}));
}

void TstMainMenu::ChoosingTheMarkedItemAgainStillReportsIt() {
    displays::LinesBench bench;
    int chosen = 0;
    MainMenu menu(
        bench.displays, bench.handlers,
        [&](MenuCommand, qint32 function) {
            ++chosen;
            menu.CheckFunction(function);
        },
        nullptr);
    auto& clock = ChildOf<QAction>(menu, u"Menu3"_s);
    clock.trigger();
    clock.trigger();
    QCOMPARE(chosen, 2);
    QVERIFY(clock.isChecked());
}

void TstMainMenu::AnErrorOfAnItemIsReported() {
    displays::LinesBench bench;
    MainMenu menu(
        bench.displays, bench.handlers, [](MenuCommand, qint32) { throw RunTimeError(u"だめです。"_s); },
        nullptr);
    ChildOf<QAction>(menu, u"Menu20"_s).trigger();
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

QTEST_MAIN(TstMainMenu)
#include "tst_main_menu.moc"
