// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "shell/full_screen_hiding.h"
#include "support/fake_full_screen_watch.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace tickwell::shell;

namespace {

struct Bench {
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakeFullScreenWatch watch;
    bool isInUse = false;
    int updates = 0;
    FullScreenHiding hiding{watch,
                            handlers,
                            {.id = [] { return quintptr{7}; },
                             .isInUse = [this] { return isInUse; },
                             .update = [this] { ++updates; }}};
};

}  // namespace

/// When the main window hides itself.
class TstFullScreenHiding : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByDefaultNothingIsWatched();
    void ItHidesAndComesBack();
    void SwitchedOffItComesBack();
    void InUseItStays();
    void InUseItComesBackNevertheless();
    void WhatTheUserAskedForStays();
    void TheNextFullScreenWindowHidesIt();
    void AWishWithoutAFullScreenWindowIsForgotten();
    void AtItsEndNothingIsWatched();
};

void TstFullScreenHiding::ByDefaultNothingIsWatched() {
    Bench bench;
    bench.hiding.Use(false);
    bench.watch.Change(true);
    bench.hiding.Look();
    bench.hiding.Insist();
    QVERIFY(!bench.watch.IsWatched());
    QVERIFY(!bench.hiding.IsHidden());
    QCOMPARE(bench.updates, 0);
    QCOMPARE(bench.watch.asked, quintptr{0});
}

void TstFullScreenHiding::ItHidesAndComesBack() {
    Bench bench;
    bench.hiding.Use(true);
    QVERIFY(!bench.hiding.IsHidden());
    for (int round = 1; round <= 2; ++round) {
        bench.watch.Change(true);
        bench.watch.Change(true);
        QVERIFY(bench.hiding.IsHidden());
        QCOMPARE(bench.updates, 2 * round - 1);
        bench.watch.Change(false);
        bench.watch.Change(false);
        QVERIFY(!bench.hiding.IsHidden());
        QCOMPARE(bench.updates, 2 * round);
    }
    QCOMPARE(bench.watch.asked, quintptr{7});
}

void TstFullScreenHiding::SwitchedOffItComesBack() {
    Bench bench;
    bench.hiding.Use(true);
    bench.watch.Change(true);
    bench.hiding.Use(true);  // a change of other settings calls this again
    QVERIFY(bench.hiding.IsHidden());
    bench.hiding.Use(false);
    QVERIFY(!bench.hiding.IsHidden());
    QCOMPARE(bench.updates, 2);
    QVERIFY(!bench.watch.IsWatched());
}

void TstFullScreenHiding::InUseItStays() {
    Bench bench;
    bench.hiding.Use(true);
    bench.isInUse = true;
    bench.watch.Change(true);
    QVERIFY(!bench.hiding.IsHidden());
    bench.isInUse = false;
    bench.hiding.Look();
    QVERIFY(bench.hiding.IsHidden());
}

void TstFullScreenHiding::InUseItComesBackNevertheless() {
    Bench bench;
    bench.hiding.Use(true);
    bench.watch.Change(true);
    bench.isInUse = true;
    bench.watch.Change(false);
    QVERIFY(!bench.hiding.IsHidden());
}

void TstFullScreenHiding::WhatTheUserAskedForStays() {
    Bench bench;
    bench.hiding.Use(true);
    bench.watch.Change(true);
    bench.hiding.Insist();
    QVERIFY(!bench.hiding.IsHidden());
    QCOMPARE(bench.updates, 1);  // the caller shows the window
    bench.watch.Change(true);
    bench.hiding.Look();
    QVERIFY(!bench.hiding.IsHidden());
}

void TstFullScreenHiding::TheNextFullScreenWindowHidesIt() {
    Bench bench;
    bench.hiding.Use(true);
    bench.watch.Change(true);
    bench.hiding.Insist();
    bench.watch.Change(false);
    QVERIFY(!bench.hiding.IsHidden());
    bench.watch.Change(true);
    QVERIFY(bench.hiding.IsHidden());
}

void TstFullScreenHiding::AWishWithoutAFullScreenWindowIsForgotten() {
    Bench bench;
    bench.hiding.Use(true);
    bench.hiding.Insist();
    bench.watch.Change(true);
    QVERIFY(bench.hiding.IsHidden());
}

void TstFullScreenHiding::AtItsEndNothingIsWatched() {
    FakeFullScreenWatch watch;
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    {
        FullScreenHiding hiding(
            watch, handlers,
            {.id = [] { return quintptr{7}; }, .isInUse = [] { return false; }, .update = [] {}});
        hiding.Use(true);
        QVERIFY(watch.IsWatched());
    }
    QVERIFY(!watch.IsWatched());
}

QTEST_GUILESS_MAIN(TstFullScreenHiding)
#include "tst_full_screen_hiding.moc"
