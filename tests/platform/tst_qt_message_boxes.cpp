// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "platform/qt_message_boxes.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

const Message kQuestion{MessageIcon::Question, u"印刷"_s, u"<b>一</b>\r\n二"_s};

/// The box that stands open, or null.
QMessageBox* OpenBox() {
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
};

void TstQtMessageBoxes::ATextIsNeverMarkup() {
    QtMessageBoxes boxes;
    boxes.Ask(kQuestion, [](bool) {});
    QVERIFY(OpenBox() != nullptr);
    QCOMPARE(OpenBox()->windowTitle(), u"印刷"_s);
    QCOMPARE(OpenBox()->text(), u"<b>一</b>\n二"_s);
    QCOMPARE(OpenBox()->textFormat(), Qt::PlainText);
    QCOMPARE(OpenBox()->icon(), QMessageBox::Question);
    OpenBox()->close();
}

void TstQtMessageBoxes::ClosingIsTold() {
    QtMessageBoxes boxes;
    int closed = 0;
    boxes.Show({MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー"_s}, [&closed] { ++closed; });
    QVERIFY(OpenBox() != nullptr);
    QCOMPARE(OpenBox()->standardButtons(), QMessageBox::Ok);
    QTest::keyClick(OpenBox(), Qt::Key_Return);
    QCOMPARE(closed, 1);
    QVERIFY(OpenBox() == nullptr);
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
    QMessageBox* box = OpenBox();
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
    QMessageBox* box = OpenBox();
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

QTEST_MAIN(TstQtMessageBoxes)
#include "tst_qt_message_boxes.moc"
