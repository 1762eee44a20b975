// SPDX-License-Identifier: GPL-3.0-or-later
#include <csignal>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/bus/notice_bus.h"
#include "platform/bus/notice_call.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 30'000;  // ms; only a failing test waits this long
constexpr int kAtOnce = 500;       // ms; a call that waits for an answer takes a second
const QString kName = u"org.freedesktop.Notifications"_s;
const QString kPath = u"/org/freedesktop/Notifications"_s;
const QByteArray kNobody = "^nobody shows notices: ";

/// A notification service, in this process.
class Service : public QDBusVirtualObject {
public:
    explicit Service(QDBusConnection bus) : m_bus(std::move(bus)) {}
    ~Service() override { Stop(); }

    bool Start() { return m_bus.registerVirtualObject(kPath, this) && m_bus.registerService(kName); }
    void Stop() {
        m_bus.unregisterService(kName);
        m_bus.unregisterObject(kPath);
    }
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override {
        calls.append(call);
        if (hanging.contains(call.member())) {
            return true;
        }
        QVariantList values;
        if (call.member() == u"GetCapabilities") {
            values = {abilities};
        } else if (call.member() == u"Notify") {
            values = {++last};
        }
        return connection.send(refuses ? call.createErrorReply(QDBusError::Failed, u"no"_s)
                                       : call.createReply(values));
    }
    void Send(const QString& signal, const QVariantList& arguments) const {
        QDBusMessage message = QDBusMessage::createSignal(kPath, kName, signal);
        message.setArguments(arguments);
        m_bus.send(message);
    }
    /// The calls of a method.
    QList<QDBusMessage> Of(const QString& method) const {
        QList<QDBusMessage> found;
        std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                     [&](const QDBusMessage& call) { return call.member() == method; });
        return found;
    }

    QStringList abilities{u"actions"_s, u"body"_s};
    QStringList hanging;  // methods that are not answered
    bool refuses = false;
    uint last = 40;
    QList<QDBusMessage> calls;

private:
    QDBusConnection m_bus;
};

/// Notices of the program, with what became of them.
struct Bench {
    NoticeBus bus;
    QStringList events;  // outcomes and actions, with the notices' texts

    qint32 Show(const QString& summary, const QString& body = {}) {
        const DesktopNotice notice{
            .summary = summary,
            .body = body,
            .actions = {{u"default"_s, u"開く"_s}},
            .category = u"x-test"_s,
            .onAction = [this, summary](const QString& key) { events.append(summary + u' ' + key); }};
        return bus.Show(notice, [this, summary](DesktopNotices::Outcome outcome) {
            const QStringList outcomes{u"shown"_s, u"not shown"_s, u"unknown"_s};
            events.append(summary + u' ' + outcomes.at(static_cast<int>(outcome)));
        });
    }
    bool WaitFor(const QStringList& expected) {
        if (QTest::qWaitFor([&] { return events == expected; }, kPatience)) {
            return true;
        }
        qWarning() << events << "instead of" << expected;
        return false;
    }
};

}  // namespace

/// Notices on a real session bus.
class TstNoticeBus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void WhatIsSent_data();
    void WhatIsSent();
    void ItsActionsAreHeard();
    void ASecondServiceMayGiveTheSameNumbers();
    void AClosedNoticeIsClosed();
    void ANoticeClosedWhileItIsSentIsClosed();
    void AForgottenNoticeStays();
    void NobodyIsThere();
    void AServiceThatRefuses();
    void AServiceThatHangsIsNotWaitedFor();
    void ANoticeWithoutAnAnswerMayBeShown();
    void OutcomesComeInTheOrderOfTheNotices();
    void LookingFindsTheService();
    void ABusThatHangsIsNotWaitedFor();

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QDBusConnection m_other{QString()};  // that of the service
    QDBusConnection m_third{QString()};  // that of another one
};

void TstNoticeBus::initTestCase() {
    const QString address = u"unix:path="_s + m_folder.filePath(u"bus"_s);
    // A bus of its own kind: it must not start the notification service of the machine.
    QFile file(m_folder.filePath(u"bus.conf"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    QVERIFY(file.write("<busconfig><type>session</type><listen>" + address.toUtf8() +
                       "</listen><policy context='default'><allow send_destination='*'/>"
                       "<allow receive_sender='*'/><allow own='*'/></policy></busconfig>") > 0);
    file.close();
    m_daemon.start(u"dbus-daemon"_s, {u"--config-file="_s + file.fileName(), u"--nofork"_s, u"--nopidfile"_s,
                                      u"--print-address"_s});
    QVERIFY(m_daemon.waitForReadyRead(kPatience));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    m_other = QDBusConnection::connectToBus(address, u"other"_s);
    m_third = QDBusConnection::connectToBus(address, u"third"_s);
    QVERIFY(m_other.isConnected() && m_third.isConnected());
}

void TstNoticeBus::cleanupTestCase() {
    QDBusConnection::disconnectFromBus(u"other"_s);
    QDBusConnection::disconnectFromBus(u"third"_s);
    m_daemon.kill();
    QVERIFY(m_daemon.waitForFinished(kPatience));
}

void TstNoticeBus::WhatIsSent_data() {
    QTest::addColumn<QStringList>("abilities");
    QTest::addColumn<QString>("body");
    QTest::addColumn<QStringList>("actions");
    const QStringList actions{u"default"_s, u"開く"_s};
    QTest::newRow("plain") << QStringList{u"actions"_s, u"body"_s} << u"<i>&\"\nb"_s << actions;
    QTest::newRow("markup") << QStringList{u"actions"_s, u"body"_s, u"body-markup"_s}
                            << u"&lt;i&gt;&amp;&quot;\nb"_s << actions;
    QTest::newRow("nothing") << QStringList() << u"<i>&\"\nb"_s << QStringList();
}

void TstNoticeBus::WhatIsSent() {
    QFETCH(const QStringList, abilities);
    Service service(m_other);
    service.abilities = abilities;
    QVERIFY(service.Start());
    Bench bench;
    QVERIFY(bench.Show(u"<b>&\"一"_s, u"<i>&\"\nb"_s) > 0);
    QVERIFY(bench.WaitFor({u"<b>&\"一 shown"_s}));
    QCOMPARE(service.calls.size(), 2);
    const QDBusMessage sent = service.calls.at(1);
    QCOMPARE(sent.signature(), u"susssasa{sv}i"_s);
    const QVariantList arguments = sent.arguments();
    QCOMPARE(arguments.mid(0, 4), (QVariantList{u"Tickwell"_s, 0U, u"tickwell"_s, u"<b>&\"一"_s}));
    QTEST(arguments.at(4).toString(), "body");
    QTEST(arguments.at(5).toStringList(), "actions");
    const auto hints = qdbus_cast<QVariantMap>(arguments.at(6));
    QCOMPARE(hints.value(u"desktop-entry"_s), QVariant(u"tickwell"_s));
    QCOMPARE(hints.value(u"category"_s), QVariant(u"x-test"_s));
    QCOMPARE(hints.value(u"suppress-sound"_s), QVariant(true));
    QCOMPARE(hints.value(u"urgency"_s), QVariant::fromValue(uchar{1}));
    QCOMPARE(hints.size(), 4);
    QCOMPARE(arguments.at(7), QVariant(-1));
    const DesktopNotice urgentOne{
        .summary = u"s"_s, .body = {}, .actions = {}, .category = {}, .isUrgent = true, .isSilent = false};
    const QVariantList urgent = NotifyArguments(urgentOne, {});
    QCOMPARE(urgent.at(6).toMap(), (QVariantMap{{u"desktop-entry"_s, u"tickwell"_s},
                                                {u"urgency"_s, QVariant::fromValue(uchar{2})},
                                                {u"suppress-sound"_s, false}}));
}

void TstNoticeBus::ItsActionsAreHeard() {
    Service service(m_other);
    QVERIFY(service.Start());
    Bench bench;
    bench.Show(u"a"_s);
    bench.Show(u"b"_s);
    QVERIFY(bench.WaitFor({u"a shown"_s, u"b shown"_s}));
    service.Send(u"ActionInvoked"_s, {42U, u"default"_s});
    service.Send(u"ActionInvoked"_s, {7U, u"default"_s});  // that of another program
    service.Send(u"ActionInvoked"_s, {41U, u"x"_s});
    service.Send(u"NotificationClosed"_s, {41U, 2U});
    service.Send(u"ActionInvoked"_s, {41U, u"late"_s});
    service.Send(u"ActionInvoked"_s, {42U, u"last"_s});
    QVERIFY(bench.WaitFor({u"a shown"_s, u"b shown"_s, u"b default"_s, u"a x"_s, u"b last"_s}));
}

void TstNoticeBus::ASecondServiceMayGiveTheSameNumbers() {
    Bench bench;
    {
        Service first(m_other);
        QVERIFY(first.Start());
        bench.Show(u"a"_s);
        QVERIFY(bench.WaitFor({u"a shown"_s}));
    }
    Service second(m_third);
    QVERIFY(second.Start());
    second.Send(u"ActionInvoked"_s, {41U, u"not a"_s});
    bench.Show(u"b"_s);
    QVERIFY(bench.WaitFor({u"a shown"_s, u"b shown"_s}));
    second.Send(u"ActionInvoked"_s, {41U, u"default"_s});
    QVERIFY(bench.WaitFor({u"a shown"_s, u"b shown"_s, u"b default"_s}));
}

void TstNoticeBus::AClosedNoticeIsClosed() {
    Service service(m_other);
    QVERIFY(service.Start());
    Bench bench;
    const qint32 number = bench.Show(u"a"_s);
    QVERIFY(bench.WaitFor({u"a shown"_s}));
    bench.bus.Close(number);
    bench.bus.Close(number);
    bench.bus.Close(0);
    service.Send(u"ActionInvoked"_s, {41U, u"default"_s});
    bench.Show(u"b"_s);
    QVERIFY(bench.WaitFor({u"a shown"_s, u"b shown"_s}));
    const QList<QDBusMessage> closed = service.Of(u"CloseNotification"_s);
    QCOMPARE(closed.size(), 1);
    QCOMPARE(closed[0].arguments(), QVariantList{41U});
}

void TstNoticeBus::ANoticeClosedWhileItIsSentIsClosed() {
    Service service(m_other);
    QVERIFY(service.Start());
    Bench bench;
    bench.bus.Close(bench.Show(u"a"_s));  // before it was sent
    const qint32 number = bench.Show(u"b"_s);
    QVERIFY(QTest::qWaitFor([&] { return service.Of(u"Notify"_s).size() == 1; }, kPatience));
    bench.bus.Close(number);  // before the answer was read
    QVERIFY(QTest::qWaitFor([&] { return service.Of(u"CloseNotification"_s).size() == 1; }, kPatience));
    QCOMPARE(service.Of(u"CloseNotification"_s).constFirst().arguments(), QVariantList{41U});
    QCOMPARE(service.Of(u"Notify"_s).constFirst().arguments().at(3), QVariant(u"b"_s));
    bench.Show(u"c"_s);
    QVERIFY(bench.WaitFor({u"c shown"_s}));
}

void TstNoticeBus::AForgottenNoticeStays() {
    Service service(m_other);
    QVERIFY(service.Start());
    Bench bench;
    bench.bus.Forget(bench.Show(u"a"_s));
    const qint32 number = bench.Show(u"b"_s);
    QVERIFY(bench.WaitFor({u"b shown"_s}));
    bench.bus.Forget(number);
    service.Send(u"ActionInvoked"_s, {service.last, u"default"_s});
    bench.Show(u"c"_s);
    QVERIFY(bench.WaitFor({u"b shown"_s, u"c shown"_s}));
    QVERIFY(service.Of(u"CloseNotification"_s).isEmpty());
}

void TstNoticeBus::NobodyIsThere() {
    Bench bench;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(kNobody)));
    bench.Show(u"a"_s);
    QVERIFY(bench.WaitFor({u"a not shown"_s}));
    bench.Show(u"b"_s);  // the log tells it once
    QVERIFY(bench.WaitFor({u"a not shown"_s, u"b not shown"_s}));
    Service service(m_other);
    QVERIFY(service.Start());
    bench.Show(u"c"_s);
    QVERIFY(bench.WaitFor({u"a not shown"_s, u"b not shown"_s, u"c shown"_s}));
    service.Stop();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(kNobody)));
    bench.Show(u"d"_s);
    QVERIFY(bench.WaitFor({u"a not shown"_s, u"b not shown"_s, u"c shown"_s, u"d not shown"_s}));
}

void TstNoticeBus::AServiceThatRefuses() {
    Service service(m_other);
    service.refuses = true;
    QVERIFY(service.Start());
    Bench bench;
    QTest::ignoreMessage(QtWarningMsg, "nobody shows notices: no");
    bench.Show(u"a"_s);
    QVERIFY(bench.WaitFor({u"a not shown"_s}));
}

void TstNoticeBus::AServiceThatHangsIsNotWaitedFor() {
    Service service(m_other);
    service.hanging = {u"GetCapabilities"_s};
    QVERIFY(service.Start());
    Bench bench;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(kNobody)));
    QElapsedTimer time;
    time.start();
    bench.Show(u"a"_s);
    QVERIFY2(time.elapsed() < kAtOnce, qPrintable(QString::number(time.elapsed())));
    QVERIFY(bench.WaitFor({u"a not shown"_s}));
    QVERIFY2(time.elapsed() >= 900, qPrintable(QString::number(time.elapsed())));  // it had a second
    QVERIFY(service.Of(u"Notify"_s).isEmpty());
}

void TstNoticeBus::ANoticeWithoutAnAnswerMayBeShown() {
    Service service(m_other);
    service.hanging = {u"Notify"_s};
    QVERIFY(service.Start());
    Bench bench;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^a notice was not shown: "_s));
    bench.Show(u"a"_s);
    QVERIFY(bench.WaitFor({u"a unknown"_s}));
    QCOMPARE(service.Of(u"Notify"_s).size(), 1);
}

void TstNoticeBus::OutcomesComeInTheOrderOfTheNotices() {
    Service service(m_other);
    service.hanging = {u"Notify"_s};
    QVERIFY(service.Start());
    Bench bench;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^a notice was not shown: "_s));
    bench.Show(u"a"_s);
    QVERIFY(QTest::qWaitFor([&] { return service.Of(u"Notify"_s).size() == 1; }, kPatience));
    service.hanging.clear();
    bench.Show(u"b"_s);
    bench.Show(u"c"_s);
    QVERIFY(bench.WaitFor({u"a unknown"_s, u"b shown"_s, u"c shown"_s}));
}

void TstNoticeBus::LookingFindsTheService() {
    NoticeBus bus;
    QList<bool> found;
    const auto look = [&] { bus.Look([&found](bool isThere) { found.append(isThere); }); };
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(kNobody)));
    look();
    look();  // while the first one is not answered
    QTRY_COMPARE_WITH_TIMEOUT(found, (QList<bool>{false, false}), kPatience);
    Service service(m_other);
    QVERIFY(service.Start());
    look();
    QTRY_COMPARE_WITH_TIMEOUT(found, (QList<bool>{false, false, true}), kPatience);
    QCOMPARE(service.calls.size(), 1);
}

void TstNoticeBus::ABusThatHangsIsNotWaitedFor() {
    Service service(m_other);
    QVERIFY(service.Start());
    Bench bench;
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP), 0);
    QElapsedTimer time;
    time.start();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(kNobody)));
    bench.Show(u"a"_s);
    QVERIFY2(time.elapsed() < kAtOnce, qPrintable(QString::number(time.elapsed())));
    const bool isAnswered = bench.WaitFor({u"a not shown"_s});
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT), 0);
    QVERIFY(isAnswered);
    bench.Show(u"b"_s);
    QVERIFY(bench.WaitFor({u"a not shown"_s, u"b shown"_s}));
}

QTEST_GUILESS_MAIN(TstNoticeBus)
#include "tst_notice_bus.moc"
