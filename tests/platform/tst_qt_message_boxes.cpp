// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include "platform/boxes_on_screen.h"
#include "platform/desktop/qt_message_boxes.h"
#include "support/child.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// Message boxes on the desktop.
class TstQtMessageBoxes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ATextIsNeverMarkup();
    void ClosingIsReported();
    void ASecondPressIsIgnored();
    void TheAnswerIsReported_data();
    void TheAnswerIsReported();
    void AnActionIsReported_data();
    void AnActionIsReported();
    void ClosingReportsTheCheckBox_data();
    void ClosingReportsTheCheckBox();
    void AWaitCanBeCancelled_data();
    void AWaitCanBeCancelled();
    void EndingAWaitClosesItsBoxSilently();
    void AWaitBelongsToItsWindowAndDoesNotBlockIt();
    void ABoxBelongsToTheWindowThatAsks();
    void ABoxWithoutAWindowBlocksNothing_data();
    void ABoxWithoutAWindowBlocksNothing();
    void ABoxDestroyedWithItsWindowIsCancelled();
};

void TstQtMessageBoxes::ATextIsNeverMarkup() {
    QtMessageBoxes boxes;
    boxes.Ask(nullptr, kQuestion, [](bool) {});
    QVERIFY(BoxOnScreen() != nullptr);
    QCOMPARE(BoxOnScreen()->windowTitle(), u"印刷"_s);
    QCOMPARE(BoxOnScreen()->text(), u"<b>一</b>\n二"_s);
    QCOMPARE(BoxOnScreen()->textFormat(), Qt::PlainText);
    QCOMPARE(BoxOnScreen()->icon(), QMessageBox::Question);
    BoxOnScreen()->close();
}

void TstQtMessageBoxes::ASecondPressIsIgnored() {
    QtMessageBoxes boxes;
    int closed = 0;
    boxes.Show(nullptr, {MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー"_s}, [&closed] { ++closed; });
    const QPointer<QMessageBox> box = BoxOnScreen();
    QAbstractButton* ok = box->button(QMessageBox::Ok);
    ok->click();
    QVERIFY(box != nullptr);  // until the event loop continues
    ok->click();
    QCOMPARE(closed, 1);
}

void TstQtMessageBoxes::ClosingIsReported() {
    QtMessageBoxes boxes;
    int closed = 0;
    boxes.Show(nullptr, {MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー"_s}, [&closed] { ++closed; });
    QVERIFY(BoxOnScreen() != nullptr);
    QCOMPARE(BoxOnScreen()->standardButtons(), QMessageBox::Ok);
    QTest::keyClick(BoxOnScreen(), Qt::Key_Return);
    QCOMPARE(closed, 1);
    QVERIFY(BoxOnScreen() == nullptr);
}

void TstQtMessageBoxes::TheAnswerIsReported_data() {
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("ok");
    QTest::newRow("OK") << u"ok"_s << true;
    QTest::newRow("Enter") << u"enter"_s << true;
    QTest::newRow("Cancel") << u"cancel"_s << false;
    QTest::newRow("Esc") << u"escape"_s << false;
    QTest::newRow("the title bar") << u"close"_s << false;
}

void TstQtMessageBoxes::TheAnswerIsReported() {
    QFETCH(QString, way);
    QtMessageBoxes boxes;
    QList<bool> answers;
    boxes.Ask(nullptr, kQuestion, [&answers](bool ok) { answers.append(ok); });
    QMessageBox* box = BoxOnScreen();
    QVERIFY(box != nullptr);
    QVERIFY(answers.isEmpty());  // the function does not wait for the answer
    if (way == u"ok") {
        box->button(QMessageBox::Ok)->click();
    } else if (way == u"cancel") {
        box->button(QMessageBox::Cancel)->click();
    } else if (way == u"close") {
        box->close();
    } else {
        QTest::keyClick(box, way == u"enter" ? Qt::Key_Return : Qt::Key_Escape);
    }
    QFETCH(bool, ok);
    QCOMPARE(answers, QList<bool>{ok});
}

void TstQtMessageBoxes::AnActionIsReported_data() {
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("isChosen");
    QTest::newRow("the action") << u"action"_s << true;
    QTest::newRow("OK") << u"ok"_s << false;
    QTest::newRow("Enter") << u"enter"_s << false;
    QTest::newRow("Esc") << u"escape"_s << false;
    QTest::newRow("the title bar") << u"close"_s << false;
}

void TstQtMessageBoxes::AnActionIsReported() {
    QFETCH(QString, way);
    QFETCH(bool, isChosen);
    QtMessageBoxes boxes;
    QList<bool> answers;
    boxes.Ask(nullptr, {MessageIcon::Critical, u"Tickwell"_s, u"一"_s, u"保存..."_s},
              [&answers](bool chosen) { answers.append(chosen); });
    QMessageBox* box = BoxOnScreen();
    QVERIFY(box != nullptr && box->buttons().size() == 2);
    QAbstractButton* ok = box->button(QMessageBox::Ok);
    QAbstractButton* action = box->buttons().at(box->buttons().at(0) == ok ? 1 : 0);
    QCOMPARE(action->text(), u"保存..."_s);
    if (way == u"action") {
        action->click();
    } else if (way == u"ok") {
        ok->click();
    } else if (way == u"enter") {
        QTest::keyClick(box, Qt::Key_Return);
    } else if (way == u"escape") {
        QTest::keyClick(box, Qt::Key_Escape);
    } else {
        box->close();
    }
    QCOMPARE(answers, QList<bool>{isChosen});
    QVERIFY(BoxOnScreen() == nullptr);
}

void TstQtMessageBoxes::ClosingReportsTheCheckBox_data() {
    QTest::addColumn<bool>("isTicked");
    QTest::newRow("ticked") << true;
    QTest::newRow("left alone") << false;
}

void TstQtMessageBoxes::ClosingReportsTheCheckBox() {
    QFETCH(bool, isTicked);
    QtMessageBoxes boxes;
    QList<bool> answers;
    boxes.ShowWithChoice(nullptr, {MessageIcon::Critical, u"Tickwell"_s, u"一"_s}, u"次回から表示しない"_s,
                         [&answers](bool ticked) { answers.append(ticked); });
    QMessageBox* box = BoxOnScreen();
    QVERIFY(box != nullptr);
    QCOMPARE(box->checkBox()->text(), u"次回から表示しない"_s);
    QVERIFY(!box->checkBox()->isChecked());
    if (isTicked) {
        box->checkBox()->click();
    }
    QVERIFY(answers.isEmpty());
    box->button(QMessageBox::Ok)->click();
    QCOMPARE(answers, QList<bool>{isTicked});
}

void TstQtMessageBoxes::AWaitCanBeCancelled_data() {
    QTest::addColumn<QString>("way");
    QTest::newRow("button") << u"button"_s;
    QTest::newRow("Enter") << u"enter"_s;
    QTest::newRow("Esc") << u"escape"_s;
    QTest::newRow("the title bar") << u"close"_s;
}

void TstQtMessageBoxes::AWaitCanBeCancelled() {
    QFETCH(QString, way);
    QtMessageBoxes boxes;
    int cancelled = 0;
    std::unique_ptr<OpenBox> wait = boxes.ShowWaiting(nullptr, kQuestion, [&] {
        ++cancelled;
        wait.reset();  // while the box emits its signal
    });
    const QPointer<QMessageBox> box = BoxOnScreen();
    QVERIFY(box != nullptr);
    QCOMPARE(box->text(), u"<b>一</b>\n二"_s);
    QCOMPARE(box->buttons().size(), 1);
    QCOMPARE(box->buttons().first()->text(), u"中止"_s);
    if (way == u"button") {
        box->buttons().first()->click();
    } else if (way == u"close") {
        box->close();
    } else {
        QTest::keyClick(box, way == u"enter" ? Qt::Key_Return : Qt::Key_Escape);
    }
    QCOMPARE(cancelled, 1);
    QVERIFY(BoxOnScreen() == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(box == nullptr);
}

void TstQtMessageBoxes::EndingAWaitClosesItsBoxSilently() {
    QtMessageBoxes boxes;
    int cancelled = 0;
    std::unique_ptr<OpenBox> wait = boxes.ShowWaiting(nullptr, kQuestion, [&] { ++cancelled; });
    const QPointer<QMessageBox> box = BoxOnScreen();
    QVERIFY(box != nullptr);
    const QAccessible::Id spoken = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(box));
    wait.reset();
    QVERIFY(BoxOnScreen() == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(box == nullptr);
    QCOMPARE(cancelled, 0);
    // Otherwise a screen reader could take another box for this one.
    QVERIFY(QAccessible::accessibleInterface(spoken) == nullptr);
}

void TstQtMessageBoxes::AWaitBelongsToItsWindowAndDoesNotBlockIt() {
    QtMessageBoxes boxes;
    auto window = std::make_unique<Counter>();
    int cancelled = 0;
    const std::unique_ptr<OpenBox> wait = boxes.ShowWaiting(window.get(), kQuestion, [&] { ++cancelled; });
    const QMessageBox* box = BoxOnScreen();
    QVERIFY(box != nullptr);
    QVERIFY(box->parentWidget() == window.get());
    QVERIFY((box->frameGeometry().center() - window->frameGeometry().center()).manhattanLength() <= 2);
    QVERIFY(window->IsUsable());
    window.reset();
    QVERIFY(BoxOnScreen() == nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(cancelled, 1);
}

void TstQtMessageBoxes::ABoxBelongsToTheWindowThatAsks() {
    QtMessageBoxes boxes;
    Counter window;
    Counter other;
    QMenu menu(&window);
    for (const QObject* owner :
         {static_cast<const QObject*>(&window), static_cast<const QObject*>(&window.Button()),
          static_cast<const QObject*>(&menu)}) {
        boxes.Ask(owner, kQuestion, [](bool) {});
        QMessageBox* box = BoxOnScreen();
        QVERIFY(box != nullptr);
        QVERIFY(box->parentWidget() == &window);
        QVERIFY((box->frameGeometry().center() - window.frameGeometry().center()).manhattanLength() <= 2);
        QVERIFY(box->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(!window.IsUsable());
        QVERIFY(other.IsUsable());
        Click(*box->button(QMessageBox::Ok));
        QVERIFY(BoxOnScreen() == nullptr);
        QVERIFY(window.IsUsable());
    }
}

void TstQtMessageBoxes::ABoxWithoutAWindowBlocksNothing_data() {
    QTest::addColumn<bool>("hasHiddenOwner");
    QTest::newRow("no owner") << false;
    QTest::newRow("its window is hidden") << true;
}

void TstQtMessageBoxes::ABoxWithoutAWindowBlocksNothing() {
    QFETCH(bool, hasHiddenOwner);
    QtMessageBoxes boxes;
    Counter window;
    QWidget hidden;
    boxes.Ask(hasHiddenOwner ? &hidden : nullptr, kQuestion, [](bool) {});
    QVERIFY(BoxOnScreen() != nullptr);
    QVERIFY(BoxOnScreen()->parentWidget() == nullptr);
    QVERIFY(window.IsUsable());
    BoxOnScreen()->close();
}

void TstQtMessageBoxes::ABoxDestroyedWithItsWindowIsCancelled() {
    QtMessageBoxes boxes;
    auto window = std::make_unique<Counter>();
    QStringList answers;
    boxes.Show(window.get(), kQuestion, [&answers] { answers.append(u"closed"_s); });
    boxes.Ask(window.get(), kQuestion, [&answers](bool ok) { answers.append(ok ? u"OK"_s : u"not OK"_s); });
    boxes.Choose(window.get(), kQuestion, [&answers](MessageAnswer answer) {
        answers.append(answer == MessageAnswer::Cancel ? u"cancelled"_s : u"chosen"_s);
    });
    boxes.ShowWithChoice(window.get(), kQuestion, u"一"_s, [&answers](bool isTicked) {
        answers.append(isTicked ? u"ticked"_s : u"not ticked"_s);
    });
    ChildOf<QCheckBox>(*BoxOnScreen()->parentWidget()).setChecked(true);
    window.reset();
    QVERIFY(BoxOnScreen() == nullptr);
    QVERIFY(answers.isEmpty());  // the window is being destroyed
    QCoreApplication::processEvents();
    answers.sort();
    QCOMPARE(answers, (QStringList{u"cancelled"_s, u"closed"_s, u"not OK"_s, u"not ticked"_s}));
    QCoreApplication::processEvents();
    QCOMPARE(answers.size(), 4);
}

QTEST_MAIN(TstQtMessageBoxes)
#include "tst_qt_message_boxes.moc"
