// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "display/main_menu.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// The menu of the main window.
class TstMainMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItemsStandInTheirOrder();
    void OneFunctionIsMarkedAtATime();
    void ChoosingAnItemNamesIt();
    void ChoosingTheMarkedItemAgainStillNamesIt();
    void AnErrorOfAnItemIsReported();
};

void TstMainMenu::ItemsStandInTheirOrder() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    const MainMenu menu(
        handlers, [](const MenuItem&) {}, nullptr);
    QStringList items;
    for (const QAction* action : menu.actions()) {
        items.append(action->isSeparator() ? u"-"_s : action->text());
    }
    QCOMPARE(items,
             (QStringList{u"操作ｳｨﾝﾄﾞｳの表示"_s, u"-"_s, u"ﾃﾞｼﾞﾀﾙ時計"_s, u"Windows時計"_s, u"ｽﾄｯﾌﾟｳｫｯﾁ"_s,
                          u"ﾀｲﾏｰ"_s, u"ﾊﾞｯﾃﾘｰ監視"_s, u"ﾒﾓﾘｰ監視"_s, u"CDﾌﾟﾚｰﾔｰ"_s, u"-"_s, u"終了"_s}));
}

void TstMainMenu::OneFunctionIsMarkedAtATime() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    MainMenu menu(
        handlers, [](const MenuItem&) {}, nullptr);
    const auto marked = [&] {
        QStringList names;
        for (const QAction* action : menu.actions()) {
            if (action->isChecked()) {
                names.append(action->objectName());
            }
        }
        return names;
    };
    menu.CheckFunction(0);
    QCOMPARE(marked(), QStringList{u"Menu3"_s});
    menu.CheckFunction(6);
    QCOMPARE(marked(), QStringList{u"Menu9"_s});
    menu.CheckFunction(99);
    QCOMPARE(marked(), QStringList());
}

void TstMainMenu::ChoosingAnItemNamesIt() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    QStringList chosen;
    MainMenu menu(
        handlers, [&](const MenuItem& item) { chosen.append(item.name.toString()); }, nullptr);
    menu.findChild<QAction*>(u"Menu4"_s)->trigger();
    menu.findChild<QAction*>(u"Menu20"_s)->trigger();
    QCOMPARE(chosen, (QStringList{u"Menu4"_s, u"Menu20"_s}));
}

void TstMainMenu::ChoosingTheMarkedItemAgainStillNamesIt() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    int chosen = 0;
    MainMenu menu(
        handlers,
        [&](const MenuItem& item) {
            ++chosen;
            menu.CheckFunction(item.function);
        },
        nullptr);
    auto* clock = menu.findChild<QAction*>(u"Menu3"_s);
    clock->trigger();
    clock->trigger();
    QCOMPARE(chosen, 2);
    QVERIFY(clock->isChecked());
}

void TstMainMenu::AnErrorOfAnItemIsReported() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    MainMenu menu(
        handlers, [](const MenuItem&) { throw RunTimeError(u"だめです。"_s); }, nullptr);
    menu.findChild<QAction*>(u"Menu20"_s)->trigger();
    QCOMPARE(boxes.Shown().size(), 1);
}

QTEST_MAIN(TstMainMenu)
#include "tst_main_menu.moc"
