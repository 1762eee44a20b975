// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <csignal>

#include "platform/bus/command_bus.h"
#include "platform/bus/command_call.h"
#include "remote/interface.h"
#include "remote/refusal.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 30'000;  // ms; only a failing test waits this long
constexpr int kRetry = 100;        // ms
constexpr int kAtOnce = 500;       // ms; a call that waits for the bus takes a second or more
const auto kName = QString::fromLatin1(remote::kService);

/// Echoes its method and arguments, and refuses to "Fail".
QVariantList Echo(const QString& method, const QVariantList& arguments) {
    if (method == u"Fail") {
        throw remote::RefusedCall(remote::Refusal::TimerIsRunning);
    }
    if (method == u"Nothing") {
        return {};
    }
    QStringList words{method};
    for (const QVariant& argument : arguments) {
        words.append(QString::fromLatin1(argument.typeName()) + u' ' + argument.toString());
    }
    return {words.join(u", "_s)};
}

/// The reply to a call from another process; made on a thread, because the call blocks.
CommandAnswer AnswerTo(const QString& method, const QVariantList& arguments = {}) {
    CommandAnswer answer;
    const std::unique_ptr<QThread> caller(QThread::create([&] { answer = CallCommand(method, arguments); }));
    caller->start();
    const bool isOver = QTest::qWaitFor([&] { return caller->isFinished(); }, kPatience);
    return isOver ? answer : CommandAnswer{};
}

}  // namespace

/// Commands over a real session bus.
class TstCommandBus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void NobodyIsThereAtFirst();
    void CallsAreAnswered_data();
    void CallsAreAnswered();
    void ARefusalIsAnError();
    void TheInterfaceIsShown();
    void NonsenseIsAnswered_data();
    void NonsenseIsAnswered();
    void WithdrawnItIsGone();
    void TheNextProgramGetsTheName();
    void ABusThatHangsIsNotWaitedFor();
    void ABusThatIsLostIsNotWaitedFor();

private:
    bool IsOnTheBus() const { return m_other.interface()->isServiceRegistered(kName); }
    void Offer(CommandBus& commands) const;

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QDBusConnection m_other{QString()};  // the connection of another program
};

void TstCommandBus::initTestCase() {
    const QString address = u"unix:path="_s + m_folder.filePath(u"bus"_s);
    m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s,
                                      u"--address="_s + address});
    QVERIFY(m_daemon.waitForReadyRead(kPatience));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    m_other = QDBusConnection::connectToBus(address, u"other"_s);
    QVERIFY(m_other.isConnected());
}

void TstCommandBus::cleanupTestCase() {
    QDBusConnection::disconnectFromBus(u"other"_s);
    if (m_daemon.state() != QProcess::NotRunning) {
        m_daemon.kill();
        QVERIFY(m_daemon.waitForFinished(kPatience));
    }
}

void TstCommandBus::Offer(CommandBus& commands) const {
    commands.Offer(&Echo);
    QVERIFY(QTest::qWaitFor([this] { return IsOnTheBus(); }, kPatience));
}

void TstCommandBus::NobodyIsThereAtFirst() {
    const CommandBus commands;
    QVERIFY(!IsOnTheBus());
    QCOMPARE(AnswerTo(u"Today"_s).kind, CommandAnswer::Kind::Nobody);
    QVERIFY(!IsOnTheBus());  // the call has not started the service
}

void TstCommandBus::CallsAreAnswered_data() {
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("no argument") << u"Today"_s << QVariantList() << QVariant(u"Today"_s);
    QTest::newRow("two") << u"Timer"_s << QVariantList{-5, u"卵"_s}
                         << QVariant(u"Timer, int -5, QString 卵"_s);
    QTest::newRow("no value") << u"Nothing"_s << QVariantList() << QVariant();
}

void TstCommandBus::CallsAreAnswered() {
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    CommandBus commands;
    Offer(commands);
    const CommandAnswer answer = AnswerTo(method, arguments);
    QCOMPARE(answer.kind, CommandAnswer::Kind::Done);
    QTEST(answer.value, "value");
}

void TstCommandBus::ARefusalIsAnError() {
    CommandBus commands;
    Offer(commands);
    const CommandAnswer answer = AnswerTo(u"Fail"_s);
    QCOMPARE(answer.kind, CommandAnswer::Kind::Refused);
    QCOMPARE(answer.errorName, u"local.tickwell.tickwell.Error.TimerIsRunning"_s);
    QCOMPARE(answer.errorText, remote::RefusedCall(remote::Refusal::TimerIsRunning).Text());
}

void TstCommandBus::TheInterfaceIsShown() {
    CommandBus commands;
    Offer(commands);
    const QDBusMessage ask = QDBusMessage::createMethodCall(
        kName, QString::fromLatin1(remote::kPath), u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s);
    QDBusPendingCall pending = m_other.asyncCall(ask);
    QVERIFY(QTest::qWaitFor([&] { return pending.isFinished(); }, kPatience));
    const QString shown = QDBusReply<QString>(pending).value();
    for (const char* method : {"Show", "Stopwatch", "Timer", "Today", "ComeForward"}) {
        QVERIFY2(shown.contains(u"<method name=\"%1\">"_s.arg(QLatin1StringView(method))), method);
    }
}

void TstCommandBus::NonsenseIsAnswered_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("error");  // empty: the call succeeds
    const auto path = QString::fromLatin1(remote::kPath);
    const auto interface = QString::fromLatin1(remote::kInterface);
    const QString properties = u"org.freedesktop.DBus.Properties"_s;
    QTest::newRow("no interface") << path << u""_s << u"Today"_s << QVariantList() << u""_s;
    const auto row = [&](const char* name, const QString& place, const QString& itsInterface,
                         const QString& itsMethod, const QVariantList& arguments) {
        QTest::newRow(name) << place << itsInterface << itsMethod << arguments
                            << u"org.freedesktop.DBus.Error.UnknownInterface"_s;
    };
    QTest::newRow("another path") << QString(path + u"/x") << interface << u"Today"_s << QVariantList()
                                  << u"org.freedesktop.DBus.Error.UnknownObject"_s;
    QTest::newRow("a large text") << path << interface << u"Nothing"_s
                                  << QVariantList{QString(1'000'000, u'x')} << u""_s;
    row("another interface", path, u"a.b"_s, u"Today"_s, {});
    row("the root", u"/"_s, interface, u"Today"_s, {});
    row("a property", path, properties, u"Get"_s, {interface, u"X"_s});
    row("setting one", path, properties, u"Set"_s,
        {interface, u"X"_s, QVariant::fromValue(QDBusVariant(QVariant(1)))});
    row("all properties", path, properties, u"GetAll"_s, {interface});
}

void TstCommandBus::NonsenseIsAnswered() {
    QFETCH(const QString, path);
    QFETCH(const QString, interface);
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    CommandBus commands;
    Offer(commands);
    QDBusMessage call = QDBusMessage::createMethodCall(kName, path, interface, method);
    call.setArguments(arguments);
    QDBusPendingCall pending = m_other.asyncCall(call);
    QVERIFY(QTest::qWaitFor([&] { return pending.isFinished(); }, kPatience));
    QTEST(pending.isError() ? pending.error().name() : QString(), "error");
    QCOMPARE(AnswerTo(u"Today"_s).kind, CommandAnswer::Kind::Done);
}

void TstCommandBus::WithdrawnItIsGone() {
    CommandBus commands;
    Offer(commands);
    commands.Withdraw();
    QVERIFY(QTest::qWaitFor([this] { return !IsOnTheBus(); }, kPatience));
    QCOMPARE(AnswerTo(u"Today"_s).kind, CommandAnswer::Kind::Nobody);
    commands.Offer(&Echo);
    commands.Withdraw();  // before the name was acquired
    Offer(commands);
    QCOMPARE(AnswerTo(u"Today"_s).kind, CommandAnswer::Kind::Done);
}

void TstCommandBus::TheNextProgramGetsTheName() {
    QVERIFY(m_other.interface()->registerService(kName).isValid());
    CommandBus commands;
    commands.Offer(&Echo);
    const auto asks = [this] {
        return m_other.interface()
                   ->callWithArgumentList(QDBus::Block, u"ListQueuedOwners"_s, {kName})
                   .arguments()
                   .value(0)
                   .toStringList()
                   .size() == 2;
    };
    QVERIFY(QTest::qWaitFor(asks, kPatience));
    QCOMPARE(m_other.interface()->serviceOwner(kName).value(), m_other.baseService());
    QVERIFY(m_other.interface()->unregisterService(kName).isValid());
    QTRY_COMPARE_WITH_TIMEOUT(m_other.interface()->serviceOwner(kName).value(),
                              QDBusConnection::sessionBus().baseService(), kPatience);
}

void TstCommandBus::ABusThatHangsIsNotWaitedFor() {
    QVERIFY(QTest::qWaitFor([this] { return !IsOnTheBus(); }, kPatience));
    CommandBus commands(kRetry);
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP), 0);
    QElapsedTimer time;
    time.start();
    commands.Offer(&Echo);
    commands.Withdraw();
    commands.Offer(&Echo);
    QVERIFY2(time.elapsed() < kAtOnce, qPrintable(QString::number(time.elapsed())));
    int turns = 0;  // iterations of the event loop during the first attempt
    while (time.elapsed() < MessageBus::kPatience + 2 * kRetry) {
        QElapsedTimer turn;
        turn.start();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, kRetry);
        QVERIFY(turn.elapsed() < kAtOnce + MessageBus::kPatience);
        ++turns;
    }
    QVERIFY(turns > 0);
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT), 0);
    QVERIFY(QTest::qWaitFor([this] { return IsOnTheBus(); }, kPatience));
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP), 0);
    time.restart();
    commands.Withdraw();
    QVERIFY2(time.elapsed() < kAtOnce, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT), 0);
    QVERIFY(QTest::qWaitFor([this] { return !IsOnTheBus(); }, kPatience));
}

void TstCommandBus::ABusThatIsLostIsNotWaitedFor() {
    CommandBus commands(kRetry);
    Offer(commands);
    m_daemon.kill();
    QVERIFY(m_daemon.waitForFinished(kPatience));
    QVERIFY(QTest::qWaitFor([] { return !QDBusConnection::sessionBus().isConnected(); }, kPatience));
    QElapsedTimer time;
    time.start();
    commands.Withdraw();
    QTest::ignoreMessage(QtWarningMsg, "There is no session bus: other programs cannot send commands");
    commands.Offer(&Echo);
    QVERIFY2(time.elapsed() < kAtOnce, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(AnswerTo(u"Today"_s).kind, CommandAnswer::Kind::Nobody);
}

QTEST_GUILESS_MAIN(TstCommandBus)
#include "tst_command_bus.moc"
