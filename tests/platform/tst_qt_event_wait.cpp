// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <QTimer>

#include "platform/disc/qt_event_wait.h"

using namespace tickwell;
using namespace tickwell::platform;

/// Waiting in an event loop.
class TstQtEventWait : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AConditionThatHoldsIsNotWaitedFor();
    void EventsRunMeanwhile();
    void WaitsMayBeNested();
    void TheEndOfTheProgramEndsTheWait();
};

void TstQtEventWait::AConditionThatHoldsIsNotWaitedFor() {
    int asked = 0;
    QtEventWait().Until([&] { return ++asked == 1; });
    QCOMPARE(asked, 1);
}

void TstQtEventWait::EventsRunMeanwhile() {
    bool hasTicked = false;
    QTimer::singleShot(0, [&] { hasTicked = true; });
    QtEventWait().Until([&] { return hasTicked; });
    QVERIFY(hasTicked);
}

void TstQtEventWait::WaitsMayBeNested() {
    QStringList order;
    bool inner = false;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] { inner = true; });
        QtEventWait().Until([&] { return inner; });
        order.append(QStringLiteral("inner"));
    });
    QtEventWait().Until([&] { return inner; });
    order.append(QStringLiteral("outer"));
    QCOMPARE(order, (QStringList{QStringLiteral("inner"), QStringLiteral("outer")}));
}

void TstQtEventWait::TheEndOfTheProgramEndsTheWait() {
    QTimer::singleShot(0, [] { QCoreApplication::quit(); });
    bool isOver = false;
    // Runs inside exec(), as every wait of the program does; quit() needs a running loop.
    QTimer::singleShot(0, [&] {
        QtEventWait().Until([] { return false; });
        isOver = true;
    });
    QCoreApplication::exec();
    QVERIFY(isOver);
}

QTEST_GUILESS_MAIN(TstQtEventWait)
#include "tst_qt_event_wait.moc"
