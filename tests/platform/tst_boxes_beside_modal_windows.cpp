// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>

#include "platform/boxes_on_screen.h"
#include "platform/desktop/qt_message_boxes.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// Message boxes that are open while an application-modal window opens.
class TstBoxesBesideModalWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnApplicationModalWindowLeavesOpenBoxesUsable();
    void ABoxThatIsBlockedNoLongerIsShownAgainOnce();
    void AWaitCanBeCancelledBesideAnApplicationModalWindow();
    void AWaitShownAgainStillBelongsToItsWindow();
    void OfTwoBoxesOfAWindowTheLaterOneIsAnsweredFirst();
};

void TstBoxesBesideModalWindows::AnApplicationModalWindowLeavesOpenBoxesUsable() {
    QtMessageBoxes boxes;
    Counter window;
    Counter other;
    QStringList answers;
    boxes.Show(nullptr, {MessageIcon::Critical, u"alone"_s, u"一"_s},
               [&answers] { answers.append(u"alone"_s); });
    boxes.Show(&window, {MessageIcon::Critical, u"owned"_s, u"一"_s},
               [&answers] { answers.append(u"owned"_s); });
    BoxOnScreen(u"alone"_s)->move(400, 300);
    const QPoint place = BoxOnScreen(u"alone"_s)->pos();

    Counter modal;
    modal.hide();
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    QCoreApplication::processEvents();
    QVERIFY(modal.IsUsable());
    QVERIFY(!other.IsUsable());
    QCOMPARE(BoxOnScreen(u"alone"_s)->pos(), place);
    Click(*BoxOnScreen(u"alone"_s)->button(QMessageBox::Ok));
    QCOMPARE(answers, QStringList{u"alone"_s});
    QVERIFY(modal.IsUsable());

    modal.hide();
    QVERIFY(other.IsUsable());
    QVERIFY(!window.IsUsable());  // its box is still open
    Click(*BoxOnScreen(u"owned"_s)->button(QMessageBox::Ok));
    QCOMPARE(answers.size(), 2);
    QVERIFY(window.IsUsable());
}

void TstBoxesBesideModalWindows::ABoxThatIsBlockedNoLongerIsShownAgainOnce() {
    QtMessageBoxes boxes;
    int closed = 0;
    Counter window;
    Counter modal;
    Counter brief;
    for (QWidget* each : {static_cast<QWidget*>(&modal), static_cast<QWidget*>(&brief)}) {
        each->hide();
        each->setWindowModality(Qt::ApplicationModal);
    }
    modal.show();
    boxes.Show(&window, {MessageIcon::Critical, u"box"_s, u"一"_s}, [&closed] { ++closed; });
    brief.show();
    brief.hide();
    Shows shows;
    BoxOnScreen()->installEventFilter(&shows);
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents();
    }
    QVERIFY2(shows.count <= 1, qPrintable(QString::number(shows.count)));
    Click(*BoxOnScreen()->button(QMessageBox::Ok));
    QCOMPARE(closed, 1);
    QVERIFY(modal.IsUsable());
}

void TstBoxesBesideModalWindows::AWaitCanBeCancelledBesideAnApplicationModalWindow() {
    QtMessageBoxes boxes;
    Counter window;
    int cancelled = 0;
    const std::unique_ptr<OpenBox> wait = boxes.ShowWaiting(&window, kQuestion, [&] { ++cancelled; });
    BoxOnScreen()->move(400, 300);
    const QPoint place = BoxOnScreen()->pos();
    Counter modal;
    modal.hide();
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    QCoreApplication::processEvents();
    Shows shows;
    BoxOnScreen()->installEventFilter(&shows);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(shows.count, 0);  // not again and again
    QCOMPARE(BoxOnScreen()->pos(), place);
    QVERIFY(modal.IsUsable());
    modal.hide();
    QVERIFY(window.IsUsable());
    modal.show();
    QCoreApplication::processEvents();
    Click(*BoxOnScreen()->buttons().first());
    QCOMPARE(cancelled, 1);
    QVERIFY(modal.IsUsable());
}

void TstBoxesBesideModalWindows::AWaitShownAgainStillBelongsToItsWindow() {
    QtMessageBoxes boxes;
    auto window = std::make_unique<Counter>();
    int cancelled = 0;
    const std::unique_ptr<OpenBox> wait = boxes.ShowWaiting(window.get(), kQuestion, [&] { ++cancelled; });
    Counter modal;
    modal.hide();
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    QCoreApplication::processEvents();
    QVERIFY(BoxOnScreen() != nullptr);
    window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QVERIFY(BoxOnScreen() == nullptr);
    QCOMPARE(cancelled, 1);
}

void TstBoxesBesideModalWindows::OfTwoBoxesOfAWindowTheLaterOneIsAnsweredFirst() {
    QtMessageBoxes boxes;
    Counter window;
    QStringList answers;
    for (const QString& title : {u"first"_s, u"second"_s}) {
        boxes.Show(&window, {MessageIcon::Critical, title, u"一"_s},
                   [&answers, title] { answers.append(title); });
    }
    Counter modal;
    modal.hide();
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    QCoreApplication::processEvents();
    Click(*BoxOnScreen(u"first"_s)->button(QMessageBox::Ok));
    QVERIFY(answers.isEmpty());
    Click(*BoxOnScreen(u"second"_s)->button(QMessageBox::Ok));
    Click(*BoxOnScreen(u"first"_s)->button(QMessageBox::Ok));
    QCOMPARE(answers, (QStringList{u"second"_s, u"first"_s}));
}

QTEST_MAIN(TstBoxesBesideModalWindows)
#include "tst_boxes_beside_modal_windows.moc"
