// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include "platform/qt_message_boxes.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

const Message kQuestion{MessageIcon::Question, u"印刷"_s, u"<b>一</b>\r\n二"_s};

/// The box that stands open, or null.
QMessageBox* BoxOnScreen() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* box = qobject_cast<QMessageBox*>(widget);
        if (box != nullptr && box->isVisible()) {
            return box;
        }
    }
    return nullptr;
}

}  // namespace

/// Boxes on the desktop.
class TstQtMessageBoxes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ATextIsNeverMarkup();
    void ClosingIsTold();
    void TheAnswerIsTold_data();
    void TheAnswerIsTold();
    void ACheckBoxIsToldWithTheClosing_data();
    void ACheckBoxIsToldWithTheClosing();
    void AWaitCanBeCancelled_data();
    void AWaitCanBeCancelled();
    void AWaitEndsWithItsBoxWithoutACall();
};

void TstQtMessageBoxes::ATextIsNeverMarkup() {
    QtMessageBoxes boxes;
    boxes.Ask(kQuestion, [](bool) {});
    QVERIFY(BoxOnScreen() != nullptr);
    QCOMPARE(BoxOnScreen()->windowTitle(), u"印刷"_s);
    QCOMPARE(BoxOnScreen()->text(), u"<b>一</b>\n二"_s);
    QCOMPARE(BoxOnScreen()->textFormat(), Qt::PlainText);
    QCOMPARE(BoxOnScreen()->icon(), QMessageBox::Question);
    BoxOnScreen()->close();
}

void TstQtMessageBoxes::ClosingIsTold() {
    QtMessageBoxes boxes;
    int closed = 0;
    boxes.Show({MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー"_s}, [&closed] { ++closed; });
    QVERIFY(BoxOnScreen() != nullptr);
    QCOMPARE(BoxOnScreen()->standardButtons(), QMessageBox::Ok);
    QTest::keyClick(BoxOnScreen(), Qt::Key_Return);
    QCOMPARE(closed, 1);
    QVERIFY(BoxOnScreen() == nullptr);
}

void TstQtMessageBoxes::TheAnswerIsTold_data() {
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("ok");
    QTest::newRow("OK") << u"ok"_s << true;
    QTest::newRow("Enter") << u"enter"_s << true;
    QTest::newRow("Cancel") << u"cancel"_s << false;
    QTest::newRow("Esc") << u"escape"_s << false;
    QTest::newRow("its frame") << u"close"_s << false;
}

void TstQtMessageBoxes::TheAnswerIsTold() {
    QFETCH(QString, way);
    QtMessageBoxes boxes;
    QList<bool> answers;
    boxes.Ask(kQuestion, [&answers](bool ok) { answers.append(ok); });
    QMessageBox* box = BoxOnScreen();
    QVERIFY(box != nullptr);
    QVERIFY(answers.isEmpty());  // it does not wait
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

void TstQtMessageBoxes::ACheckBoxIsToldWithTheClosing_data() {
    QTest::addColumn<bool>("isTicked");
    QTest::newRow("ticked") << true;
    QTest::newRow("left alone") << false;
}

void TstQtMessageBoxes::ACheckBoxIsToldWithTheClosing() {
    QFETCH(bool, isTicked);
    QtMessageBoxes boxes;
    QList<bool> answers;
    boxes.ShowWithChoice({MessageIcon::Critical, u"Tickwell"_s, u"一"_s}, u"次回から表示しない"_s,
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
    QTest::newRow("its frame") << u"close"_s;
}

void TstQtMessageBoxes::AWaitCanBeCancelled() {
    QFETCH(QString, way);
    QtMessageBoxes boxes;
    int cancelled = 0;
    std::unique_ptr<OpenBox> wait = boxes.ShowWaiting(kQuestion, [&] {
        ++cancelled;
        wait.reset();  // from within the box's own signal
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

void TstQtMessageBoxes::AWaitEndsWithItsBoxWithoutACall() {
    QtMessageBoxes boxes;
    int cancelled = 0;
    std::unique_ptr<OpenBox> wait = boxes.ShowWaiting(kQuestion, [&] { ++cancelled; });
    const QPointer<QMessageBox> box = BoxOnScreen();
    QVERIFY(box != nullptr);
    wait.reset();
    QVERIFY(BoxOnScreen() == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(box == nullptr);
    QCOMPARE(cancelled, 0);
}

QTEST_MAIN(TstQtMessageBoxes)
#include "tst_qt_message_boxes.moc"
