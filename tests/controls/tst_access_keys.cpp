// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/access_keys.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTabWidget>
#include <QTest>

using namespace tickwell::controls;
using namespace Qt::StringLiterals;

namespace {

QString SpokenName(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

}  // namespace

/// Access keys appended to captions.
class TstAccessKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AWordHasItsUsualLetter();
    void ALetterIsUsedOnce();
    void AWrittenKeyIsKept();
    void EnterAndEscNeedNone();
    void PagesShareTheLettersOfTheirWindow();
    void ALabelLeadsToItsField();
    void MenusHaveTheirOwn();
    void TheyCanBeRemoved();
    void AChangedCaptionKeepsItsKey();
    void ScreenReadersSayTheCaption();
    void WindowsOfAWindowAreLeftOut();
    void MoreControlsThanLetters();
    void TheLetterChoosesTheControl();
};

void TstAccessKeys::AWordHasItsUsualLetter() {
    QWidget window;
    QPushButton help(u"ヘルプ"_s, &window);
    QPushButton start(u"スタート"_s, &window);
    QCheckBox other(u"指定時間が来たら繰り返す"_s, &window);
    ShowAccessKeys(window, true);
    QCOMPARE(help.text(), u"ヘルプ(&H)"_s);
    QCOMPARE(start.text(), u"スタート(&S)"_s);
    QCOMPARE(other.text(), u"指定時間が来たら繰り返す(&A)"_s);
    ShowAccessKeys(window, true);
    QCOMPARE(help.text(), u"ヘルプ(&H)"_s);
}

void TstAccessKeys::ALetterIsUsedOnce() {
    QWidget window;
    QCheckBox first(u"初め"_s, &window);  // would get A if 追加 did not have it
    QPushButton add(u"追加"_s, &window);
    QPushButton all(u"全選"_s, &window);  // would also get A
    ShowAccessKeys(window, true);
    QCOMPARE(add.text(), u"追加(&A)"_s);
    QCOMPARE(first.text(), u"初め(&B)"_s);
    QCOMPARE(all.text(), u"全選(&C)"_s);
}

void TstAccessKeys::AWrittenKeyIsKept() {
    QWidget window;
    QPushButton start(u"スタート"_s, &window);
    QPushButton system(u"ｼｽﾃﾑ情報(&S)..."_s, &window);
    ShowAccessKeys(window, true);
    QCOMPARE(system.text(), u"ｼｽﾃﾑ情報(&S)..."_s);
    QCOMPARE(start.text(), u"スタート(&A)"_s);
    ShowAccessKeys(window, false);
    QCOMPARE(system.text(), u"ｼｽﾃﾑ情報(&S)..."_s);
}

void TstAccessKeys::EnterAndEscNeedNone() {
    for (const QString& caption : {u"OK"_s, u"キャンセル"_s, u"ｷｬﾝｾﾙ"_s, u"確認"_s, u"<<"_s, QString()}) {
        QWidget window;
        const QPushButton button(caption, &window);
        ShowAccessKeys(window, true);
        QCOMPARE(button.text(), caption);
    }
}

void TstAccessKeys::PagesShareTheLettersOfTheirWindow() {
    QWidget window;
    const QPushButton help(u"ヘルプ"_s, &window);
    QTabWidget pages(&window);
    auto* first = new QWidget;
    auto* second = new QWidget;
    pages.addTab(first, u"一"_s);
    pages.addTab(second, u"二"_s);
    const auto* one = new QRadioButton(u"左"_s, first);
    const auto* two = new QRadioButton(u"右"_s, second);
    const auto* too = new QPushButton(u"ヘルプ"_s, second);
    ShowAccessKeys(window, true);
    QCOMPARE(help.text(), u"ヘルプ(&H)"_s);
    QCOMPARE(one->text(), u"左(&A)"_s);
    QCOMPARE(two->text(), u"右(&A)"_s);  // the two pages are never visible together
    QCOMPARE(too->text(), u"ヘルプ(&B)"_s);
    QCOMPARE(pages.tabText(0), u"一"_s);  // tabs have no access key: Ctrl+Tab switches pages
}

void TstAccessKeys::ALabelLeadsToItsField() {
    QWidget window;
    QLineEdit name(&window);
    QLabel label(u"記念日名"_s, &window);
    const QLabel plain(u"説明"_s, &window);
    label.setBuddy(&name);
    ShowAccessKeys(window, true);
    QCOMPARE(label.text(), u"記念日名(&N)"_s);
    QCOMPARE(plain.text(), u"説明"_s);
    QCOMPARE(SpokenName(name), u"記念日名"_s);
}

void TstAccessKeys::MenusHaveTheirOwn() {
    QWidget window;
    const QPushButton help(u"ヘルプ"_s, &window);
    QMenuBar bar(&window);
    QMenu* view = bar.addMenu(u"表示形式"_s);
    const QAction* standard = view->addAction(u"標準"_s);
    view->addSeparator();
    const QAction* item = view->addAction(u"ヘルプ"_s);
    ShowAccessKeys(window, true);
    QCOMPARE(view->menuAction()->text(), u"表示形式(&V)"_s);
    QCOMPARE(item->text(), u"ヘルプ(&H)"_s);
    QCOMPARE(standard->text(), u"標準(&A)"_s);
    ShowAccessKeys(window, false);
    QCOMPARE(view->menuAction()->text(), u"表示形式"_s);
    QCOMPARE(standard->text(), u"標準"_s);
}

void TstAccessKeys::TheyCanBeRemoved() {
    QWidget window;
    QPushButton help(u"ヘルプ"_s, &window);
    QPushButton named(u"全選"_s, &window);
    named.setAccessibleName(u"全選択"_s);
    ShowAccessKeys(window, true);
    ShowAccessKeys(window, false);
    QCOMPARE(help.text(), u"ヘルプ"_s);
    QCOMPARE(help.accessibleName(), QString());
    QCOMPARE(named.text(), u"全選"_s);
    QCOMPARE(named.accessibleName(), u"全選択"_s);
    ShowAccessKeys(window, false);
    QCOMPARE(help.text(), u"ヘルプ"_s);
}

void TstAccessKeys::AChangedCaptionKeepsItsKey() {
    QWidget window;
    QPushButton start(u"スタート"_s, &window);
    SetCaption(start, u"ストップ"_s);
    QCOMPARE(start.text(), u"ストップ"_s);
    ShowAccessKeys(window, true);
    SetCaption(start, u"スタート"_s);
    QCOMPARE(start.text(), u"スタート(&S)"_s);
    QCOMPARE(SpokenName(start), u"スタート"_s);
    ShowAccessKeys(window, false);
    QCOMPARE(start.text(), u"スタート"_s);
}

void TstAccessKeys::ScreenReadersSayTheCaption() {
    QWidget window;
    QPushButton help(u"ヘルプ"_s, &window);
    QPushButton named(u"全選"_s, &window);
    named.setAccessibleName(u"全選択"_s);
    ShowAccessKeys(window, true);
    QCOMPARE(SpokenName(help), u"ヘルプ"_s);
    QCOMPARE(SpokenName(named), u"全選択"_s);
    QCOMPARE(QAccessible::queryAccessibleInterface(&help)->text(QAccessible::Accelerator), u"Alt+H"_s);
}

void TstAccessKeys::WindowsOfAWindowAreLeftOut() {
    QWidget window;
    QDialog dialog(&window);
    const QPushButton help(u"ヘルプ"_s, &dialog);
    ShowAccessKeys(window, true);
    QCOMPARE(help.text(), u"ヘルプ"_s);
}

void TstAccessKeys::MoreControlsThanLetters() {
    QWidget window;
    for (int i = 0; i < 40; ++i) {
        new QCheckBox(u"項目"_s, &window);
    }
    ShowAccessKeys(window, true);
    QSet<QString> captions;
    for (const QCheckBox* box : window.findChildren<QCheckBox*>()) {
        captions.insert(box->text());
    }
    QCOMPARE(captions.size(), 37);  // 26 letters, 10 digits, and the caption without a key
    QVERIFY(captions.contains(u"項目"_s) && captions.contains(u"項目(&0)"_s));
}

void TstAccessKeys::TheLetterChoosesTheControl() {
    QWidget window;
    QCheckBox box(u"毎年の記念日"_s, &window);
    QLineEdit focused(&window);
    ShowAccessKeys(window, true);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&focused, Qt::Key_A, Qt::AltModifier);
    QTRY_VERIFY(box.isChecked());  // an animated click keeps the button down for a moment
}

QTEST_MAIN(TstAccessKeys)
#include "tst_access_keys.moc"
