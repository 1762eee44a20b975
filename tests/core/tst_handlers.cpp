// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRegularExpression>
#include <QTest>

#include "core/handlers.h"
#include "core/integers.h"
#include "platform/time/virtual_time.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// How errors in handlers, timers and slots are reported.
class TstHandlers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnErrorEndsTheHandlerAndIsReportedOnce();
    void ASecondErrorWhileTheBoxIsOpenIsDropped();
    void AFailingTimerIsSwitchedOffBeforeItsReport();
    void AHealthyTimerGoesOn();
    void AnErrorInAConnectedSlotIsReported();
    void TheReportBelongsToTheWindowOfTheHandler();
    void WhenQuietWaitsForTheOpenBox();
    void ReportsGivenToTellAreNeverDropped();
    void AReportCanOfferARemedy_data();
    void AReportCanOfferARemedy();
    void AQueuedReportKeepsItsRemedy();
};

void TstHandlers::AnErrorEndsTheHandlerAndIsReportedOnce() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    bool wentOn = false;
    QVERIFY(!handlers.Run([&] {
        CheckedAdd(2147483647, 1);
        wentOn = true;
    }));
    QVERIFY(!wentOn);
    QCOMPARE(boxes.Shown().size(), 1);
    QCOMPARE(boxes.Shown().constFirst(),
             (Message{MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー\r\nオーバーフローしました。"_s}));
    QVERIFY(handlers.Run([] {}));
    QCOMPARE(boxes.Shown().size(), 1);
}

void TstHandlers::ASecondErrorWhileTheBoxIsOpenIsDropped() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    const auto fail = [] { throw RunTimeError(u"だめです。"_s); };
    handlers.Run(fail);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"not shown, .*だめです。"_s));
    handlers.Run(fail);
    QCOMPARE(boxes.Shown().size(), 1);
    boxes.Close();
    handlers.Run(fail);
    QCOMPARE(boxes.Shown().size(), 2);
}

void TstHandlers::AFailingTimerIsSwitchedOffBeforeItsReport() {
    platform::VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(0, 0)));
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    int ticks = 0;
    const auto timer = handlers.MakeTimer(time, 1, [&] {
        ++ticks;
        throw RunTimeError(u"だめです。"_s);
    });
    timer->Start();
    time.Advance(1000);
    QCOMPARE(ticks, 1);
    QVERIFY(!timer->IsRunning());
    QCOMPARE(boxes.Shown().size(), 1);
}

void TstHandlers::AHealthyTimerGoesOn() {
    platform::VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(0, 0)));
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    int ticks = 0;
    const auto timer = handlers.MakeTimer(time, 200, [&] { ++ticks; });
    timer->Start();
    time.Advance(1000);
    QCOMPARE(ticks, 5);
    QVERIFY(boxes.Shown().isEmpty());
}

void TstHandlers::AnErrorInAConnectedSlotIsReported() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    QObject sender;
    handlers.Connect(&sender, &QObject::objectNameChanged, &sender,
                     [] { throw RunTimeError(u"だめです。"_s); });
    sender.setObjectName(u"x"_s);
    QCOMPARE(boxes.Shown().size(), 1);
}

void TstHandlers::TheReportBelongsToTheWindowOfTheHandler() {
    platform::VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(0, 0)));
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    const auto fail = [] { throw RunTimeError(u"だめです。"_s); };
    QObject sender;
    QObject window;
    handlers.Connect(&sender, &QObject::objectNameChanged, &window, fail);
    sender.setObjectName(u"another"_s);
    boxes.Close();
    handlers.Run(fail, &window);
    boxes.Close();
    handlers.Run(fail);
    boxes.Close();
    const auto timer = handlers.MakeTimer(time, 1, fail);
    timer->Start();
    time.Advance(1);
    QCOMPARE(boxes.Owners(), (QList<const QObject*>{&window, &window, nullptr, nullptr}));
}

void TstHandlers::WhenQuietWaitsForTheOpenBox() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    int calls = 0;
    handlers.WhenQuiet([&] { ++calls; });
    QCOMPARE(calls, 1);
    handlers.Run([] { throw RunTimeError(u"だめです。"_s); });
    handlers.WhenQuiet([&] { ++calls; });
    QCOMPARE(calls, 1);
    boxes.Close();
    QCOMPARE(calls, 2);
}

void TstHandlers::ReportsGivenToTellAreNeverDropped() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    bool isQuiet = false;
    for (const QString& reason : {u"一"_s, u"二"_s, u"三"_s}) {
        handlers.Tell(reason);
    }
    handlers.WhenQuiet([&] { isQuiet = true; });
    QStringList told;
    while (boxes.IsOpen()) {
        QVERIFY(!isQuiet);
        QCOMPARE(boxes.Shown().size(), told.size() + 1);  // one at a time
        QCOMPARE(boxes.Shown().last().icon, MessageIcon::Critical);
        told.append(boxes.Shown().last().text);
        boxes.Close();
    }
    QCOMPARE(told, (QStringList{u"実行時エラー\r\n一"_s, u"実行時エラー\r\n二"_s, u"実行時エラー\r\n三"_s}));
    QVERIFY(isQuiet);
}

void TstHandlers::AReportCanOfferARemedy_data() {
    QTest::addColumn<bool>("isChosen");
    QTest::newRow("OK") << false;
    QTest::newRow("the remedy") << true;
}

void TstHandlers::AReportCanOfferARemedy() {
    QFETCH(const bool, isChosen);
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    int chosen = 0;
    handlers.Tell(u"だめです。"_s, nullptr, {.caption = u"直す"_s, .chosen = [&chosen] { ++chosen; }});
    QVERIFY(boxes.Shown().isEmpty());
    QCOMPARE(
        boxes.Asked(),
        (QList<Message>{{MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー\r\nだめです。"_s, u"直す"_s}}));
    bool isQuiet = false;
    handlers.WhenQuiet([&isQuiet] { isQuiet = true; });
    QVERIFY(!isQuiet);  // like any report
    boxes.Answer(isChosen);
    QCOMPARE(chosen, isChosen ? 1 : 0);
    QVERIFY(isQuiet);
}

void TstHandlers::AQueuedReportKeepsItsRemedy() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    bool isChosen = false;
    handlers.Tell(u"一"_s);
    handlers.Tell(u"二"_s, nullptr, {.caption = u"直す"_s, .chosen = [&isChosen] { isChosen = true; }});
    QVERIFY(boxes.Asked().isEmpty());
    boxes.Close();
    QCOMPARE(boxes.Asked().size(), 1);
    boxes.Answer(true);
    QVERIFY(isChosen);
}

QTEST_GUILESS_MAIN(TstHandlers)
#include "tst_handlers.moc"
