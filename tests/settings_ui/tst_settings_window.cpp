// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLineEdit>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/settings_bench.h"
#include "shell/main_window_accessible.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

/// The settings dialog as a window: its pages, the names of its controls, and its keys.
class TstSettingsWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ItHasTenPages();
    void ItsControlsAreNamed_data();
    void ItsControlsAreNamed();
    void EveryControlSaysWhatItIs();
    void ItBlocksTheOtherWindowsAndNothingComesAboveIt_data();
    void ItBlocksTheOtherWindowsAndNothingComesAboveIt();
    void ItsKeysAreThoseOfADialog();
    void TheTabKeyFollowsTheScreen();
    void TabGoesToTheChosenOption_data();
    void TabGoesToTheChosenOption();
    void ArrowsChooseOptions();
    void TheHelpOpensAtTheSettings();
};

void TstSettingsWindow::initTestCase() {
    lines::InstallFontSubstitutes();
    shell::InstallMainWindowAccessibility();
}

void TstSettingsWindow::ItHasTenPages() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.form->windowTitle(), u"環境設定"_s);
    const auto& tabs = bench.Child<QTabWidget>(u"TabStrip1"_s);
    QStringList pages;
    for (int i = 0; i < tabs.count(); ++i) {
        pages.append(tabs.tabText(i) + u' ' + tabs.widget(i)->objectName());
    }
    QCOMPARE(pages, (QStringList{u"文字表示 Picture1"_s, u"時計 Picture3"_s, u"ロール Picture2"_s,
                                 u"時報 Picture4"_s, u"データベース Picture5"_s, u"暦 Picture6"_s,
                                 u"動作 Picture7"_s, u"窓 Picture8"_s, u"連携 Picture9"_s,
                                 u"お知らせ Picture10"_s}));
}

void TstSettingsWindow::ItsControlsAreNamed_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    const QList<std::pair<QString, QString>> rows{
        {u"Command1"_s, u"OK"_s},
        {u"Command2"_s, u"キャンセル"_s},
        {u"Command3"_s, u"適用"_s},
        {u"Command4"_s, u"データベースの最適化＞＞"_s},
        {u"Command5"_s, u"背景色＞＞"_s},
        {u"Command6"_s, u"上段文字＞＞"_s},
        {u"Command7"_s, u"下段文字＞＞"_s},
        {u"Command8"_s, u"ヘルプ"_s},
        {u"Option1(0)"_s, u"ロール機能を使用しない"_s},
        {u"Option1(1)"_s, u"ロール機能を使用する"_s},
        {u"Option2(0)"_s, u"左から右"_s},
        {u"Option2(3)"_s, u"下から上"_s},
        {u"Option3(0)"_s, u"日本語"_s},
        {u"Option3(1)"_s, u"英語"_s},
        {u"Option3(2)"_s, u"古代日本"_s},
        {u"Option5(0)"_s, u"標準表示"_s},
        {u"Option5(1)"_s, u"簡略表示"_s},
        {u"Option6(0)"_s, u"12時間制"_s},
        {u"Option6(1)"_s, u"24時間制"_s},
        {u"Option7(0)"_s, u"30分おき"_s},
        {u"Option7(1)"_s, u"1時間おき"_s},
        {u"Option7(2)"_s, u"利用しない"_s},
        {u"Check1"_s, u"デジタル時計"_s},
        {u"Check2"_s, u"Windows時計"_s},
        {u"Check3"_s, u"バッテリー監視（AC電源時は無効）"_s},
        {u"Check4"_s, u"メモリー監視"_s},
        {u"Autostart"_s, u"ログイン時に起動する"_s},
    };
    for (const auto& [name, caption] : rows) {
        QTest::newRow(qPrintable(name)) << name << caption;
    }
}

void TstSettingsWindow::ItsControlsAreNamed() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Button(name).text(), caption);
}

void TstSettingsWindow::EveryControlSaysWhatItIs() {
    SettingsBench bench;
    bench.Open();
    for (const QAbstractButton* button :
         bench.form->findChildren<QAbstractButton*>(QRegularExpression(u"^[A-Z]"_s))) {
        QVERIFY2(!button->text().isEmpty() || !button->accessibleName().isEmpty(),
                 qPrintable(button->objectName()));
    }
    for (const char* name : {"Slider1", "Combo1", "UpDown1"}) {
        QVERIFY2(!bench.Child<QWidget>(QLatin1StringView(name)).accessibleName().isEmpty(), name);
    }
    bench.Child<QLineEdit>(u"Text1"_s);  // fails if it does not exist
}

void TstSettingsWindow::ItBlocksTheOtherWindowsAndNothingComesAboveIt_data() {
    QTest::addColumn<QString>("button");
    QTest::newRow("OK") << u"Command1"_s;
    QTest::newRow("cancel") << u"Command2"_s;
    QTest::newRow("Esc") << QString();
}

void TstSettingsWindow::ItBlocksTheOtherWindowsAndNothingComesAboveIt() {
    QFETCH(QString, button);
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.form->windowModality(), Qt::ApplicationModal);
    QVERIFY(QApplication::activeModalWidget() == bench.form.get());
    bench.form->move(bench.main.form->geometry().bottomRight() + QPoint(100, 100));
    bench.main.time.Advance(60'000);
    QVERIFY(bench.main.stack.raised.isEmpty());
    if (button.isEmpty()) {
        QTest::keyClick(bench.form.get(), Qt::Key_Escape);
    } else {
        bench.Click(button);
    }
    bench.main.time.Advance(2'000);
    QCOMPARE(bench.main.stack.raised.size(), 1);
}

void TstSettingsWindow::ItsKeysAreThoseOfADialog() {
    SettingsBench bench;
    bench.Open();
    QVERIFY(bench.Child<QPushButton>(u"Command1"_s).isDefault());
    const auto& tabs = bench.Child<QTabWidget>(u"TabStrip1"_s);
    QVERIFY(tabs.hasFocus() || bench.form->focusWidget() == tabs.tabBar());
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Right);
    QCOMPARE(tabs.currentIndex(), 1);
    QTest::keyClick(bench.form.get(), Qt::Key_Return);
    QVERIFY(!bench.form->isVisible());
    QVERIFY(bench.asked.contains(u"apply"_s));
}

void TstSettingsWindow::TheTabKeyFollowsTheScreen() {
    SettingsBench bench;
    bench.Open();
    QStringList visited;
    while (visited.size() < 20 && !visited.contains(u"Command8"_s)) {
        QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
        visited.append(bench.form->focusWidget()->objectName());
    }
    const QString expected =
        u"Option2(2) Slider1 Command6 Command7 Command5 Autostart Command1 "
        "Command2 Command3 Command8"_s;
    QCOMPARE(visited.join(u' '), expected);
}

void TstSettingsWindow::TabGoesToTheChosenOption_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("click");
    QTest::addColumn<QStringList>("reached");
    const QStringList all{u"Option2(0)"_s, u"Option2(1)"_s, u"Option2(2)"_s, u"Option2(3)"_s};
    QTest::newRow("the first") << u"0"_s << QString() << QStringList{u"Option2(0)"_s};
    QTest::newRow("the last") << u"3"_s << QString() << QStringList{u"Option2(3)"_s};
    QTest::newRow("chosen without the keyboard") << u"3"_s << u"Option2(1)"_s << QStringList{u"Option2(1)"_s};
    QTest::newRow("none is chosen") << u"9"_s << QString() << all;
    QTest::newRow("chosen after none was") << u"9"_s << u"Option2(1)"_s << QStringList{u"Option2(1)"_s};
}

void TstSettingsWindow::TabGoesToTheChosenOption() {
    QFETCH(QString, stored);
    QFETCH(QString, click);
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, stored);
    bench.Open();
    if (!click.isEmpty()) {
        bench.Click(click);
    }
    QStringList reached;
    for (QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
         bench.form->focusWidget()->objectName().startsWith(u"Option2") && reached.size() < 9;
         QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab)) {
        reached.append(bench.form->focusWidget()->objectName());
    }
    QTEST(reached, "reached");
}

void TstSettingsWindow::ArrowsChooseOptions() {
    SettingsBench bench;
    bench.main.store.Put(u"SetUp"_s, u"Op_Waip"_s, u"1"_s);
    bench.Open();
    bench.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(bench.form.get()));
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Down);
    QCOMPARE(bench.Selected(u"Option2"_s), 2);
    QCOMPARE(bench.form->focusWidget()->objectName(), u"Option2(2)"_s);
    QCOMPARE(bench.Sample(1).WipeKind(), 2);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Tab);
    QCOMPARE(bench.form->focusWidget()->objectName(), u"Slider1"_s);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Backtab);
    QCOMPARE(bench.form->focusWidget()->objectName(), u"Option2(2)"_s);
    QTest::keyClick(bench.form->focusWidget(), Qt::Key_Up);
    QCOMPARE(bench.Selected(u"Option2"_s), 1);
}

void TstSettingsWindow::TheHelpOpensAtTheSettings() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command8"_s);
    QCOMPARE(bench.help.topics, QList<int>{41});
}

QTEST_MAIN(TstSettingsWindow)
#include "tst_settings_window.moc"
