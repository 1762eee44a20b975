// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "help/help_history.h"

using namespace tickwell;
using namespace tickwell::help;

/// Going back and forward.
class TstHelpHistory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AtFirstThereIsNoHistory();
    void EachJumpCanBeUndone();
    void GoingBackReturnsToWhereTheReaderHadScrolled();
    void AJumpClearsTheForwardHistory();
    void AJumpToTheSamePlaceIsIgnored();
};

void TstHelpHistory::AtFirstThereIsNoHistory() {
    HelpHistory history;
    QVERIFY(!history.CanGoBack());
    QVERIFY(!history.CanGoForward());
    QCOMPARE(history.Back(7), 7);
    QCOMPARE(history.Forward(7), 7);
    QVERIFY(!history.CanGoBack());
    QVERIFY(!history.CanGoForward());
}

void TstHelpHistory::EachJumpCanBeUndone() {
    HelpHistory history;
    history.Jump(0, 100);
    history.Jump(100, 200);
    QCOMPARE(history.Back(200), 100);
    QCOMPARE(history.Back(100), 0);
    QVERIFY(!history.CanGoBack());
    QCOMPARE(history.Forward(0), 100);
    QCOMPARE(history.Forward(100), 200);
    QVERIFY(!history.CanGoForward());
}

void TstHelpHistory::GoingBackReturnsToWhereTheReaderHadScrolled() {
    HelpHistory history;
    history.Jump(0, 100);
    history.Jump(130, 200);
    QCOMPARE(history.Back(250), 130);
    QCOMPARE(history.Forward(140), 250);
    QCOMPARE(history.Back(250), 140);
}

void TstHelpHistory::AJumpClearsTheForwardHistory() {
    HelpHistory history;
    history.Jump(0, 100);
    QCOMPARE(history.Back(100), 0);
    history.Jump(0, 300);
    QVERIFY(!history.CanGoForward());
    QCOMPARE(history.Back(300), 0);
}

void TstHelpHistory::AJumpToTheSamePlaceIsIgnored() {
    HelpHistory history;
    history.Jump(0, 100);
    QCOMPARE(history.Back(100), 0);
    history.Jump(0, 0);
    QVERIFY(!history.CanGoBack());
    QVERIFY(history.CanGoForward());
}

QTEST_GUILESS_MAIN(TstHelpHistory)
#include "tst_help_history.moc"
