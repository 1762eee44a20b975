// SPDX-License-Identifier: GPL-3.0-or-later
#include <csignal>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusReply>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "platform/bus/player_bus.h"
#include "remote/bus_types.h"
#include "remote/player_interface.h"
#include "remote/refusal.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 30'000;  // ms; only a failing test waits this long
constexpr int kRetry = 100;        // ms
constexpr int kAtOnce = 500;       // ms; a call that waits for the bus takes a second or more
const auto kName = QString::fromLatin1(remote::kPlayerService);
const auto kPath = QString::fromLatin1(remote::kPlayerPath);
const auto kPlayer = QString::fromLatin1(remote::kPlayerInterface);
const auto kProperties = QString::fromLatin1(remote::kPropertiesInterface);

QVariant TrackId() {
    return QVariant::fromValue(remote::ObjectPath{u"/track/7"_s});
}

/// Echoes its calls; has one property, and refuses to "Stop".
QVariantList Echo(const remote::PlayerCall& call) {
    if (call.member == u"Stop") {
        throw remote::RefusedCall(remote::Refusal::NotPossible, u"No."_s);
    }
    if (call.member == u"Get") {
        return {QVariant::fromValue(remote::BoxedValue{QVariantMap{{u"mpris:trackid"_s, TrackId()}}})};
    }
    if (call.member == u"GetAll") {
        return {QVariantMap{{u"Metadata"_s, QVariantMap{{u"mpris:trackid"_s, TrackId()}}},
                            {u"Position"_s, 5LL},
                            {u"SupportedUriSchemes"_s, QStringList()}}};
    }
    QStringList words{call.interface, call.member};
    for (const QVariant& argument : call.arguments) {
        if (argument.metaType() == QMetaType::fromType<remote::ObjectPath>()) {
            words.append(u"path "_s + argument.value<remote::ObjectPath>().path);
        } else if (argument.metaType() == QMetaType::fromType<remote::BoxedValue>()) {
            const QVariant value = argument.value<remote::BoxedValue>().value;
            words.append(u"boxed "_s + QLatin1StringView(value.typeName()) + u' ' + value.toString());
        } else {
            words.append(QLatin1StringView(argument.typeName()) + u' ' + argument.toString());
        }
    }
    return {words.join(u", "_s)};
}

/// The signals that another program receives.
class Listener : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void Hear(const QDBusMessage& signal) { heard.append(signal); }

public:
    QList<QDBusMessage> heard;
};

}  // namespace

/// The CD player on a real session bus.
class TstPlayerBus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void CallsArePassedOnWithTheirTypes_data();
    void CallsArePassedOnWithTheirTypes();
    void PropertiesHaveTheirTypes();
    void ARefusalIsAnError();
    void TheInterfacesAreShown();
    void OtherPlacesAreUnknown_data();
    void OtherPlacesAreUnknown();
    void NewsAreTold();
    void WithdrawnItIsGoneAndSilent();
    void ABusThatHangsIsNotWaitedFor();
    void ABusThatIsLostIsNotWaitedFor();

private:
    bool IsOnTheBus() const { return m_other.interface()->isServiceRegistered(kName); }
    void Offer(PlayerBus& player) const;
    QDBusMessage Call(const QString& path, const QString& interface, const QString& method,
                      const QVariantList& arguments = {}) const;

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QDBusConnection m_other{QString()};  // the connection of another program
};

void TstPlayerBus::initTestCase() {
    const QString address = u"unix:path="_s + m_folder.filePath(u"bus"_s);
    m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s,
                                      u"--address="_s + address});
    QVERIFY(m_daemon.waitForReadyRead(kPatience));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    m_other = QDBusConnection::connectToBus(address, u"other"_s);
    QVERIFY(m_other.isConnected());
}

void TstPlayerBus::cleanupTestCase() {
    QDBusConnection::disconnectFromBus(u"other"_s);
    if (m_daemon.state() != QProcess::NotRunning) {
        m_daemon.kill();
        QVERIFY(m_daemon.waitForFinished(kPatience));
    }
}

void TstPlayerBus::Offer(PlayerBus& player) const {
    player.Offer(&Echo);
    QVERIFY(QTest::qWaitFor([this] { return IsOnTheBus(); }, kPatience));
}

QDBusMessage TstPlayerBus::Call(const QString& path, const QString& interface, const QString& method,
                                const QVariantList& arguments) const {
    QDBusMessage call = QDBusMessage::createMethodCall(kName, path, interface, method);
    call.setArguments(arguments);
    QDBusPendingCall pending = m_other.asyncCall(call);
    const bool isOver = QTest::qWaitFor([&] { return pending.isFinished(); }, kPatience);
    return isOver ? pending.reply() : QDBusMessage();
}

void TstPlayerBus::CallsArePassedOnWithTheirTypes_data() {
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("echo");
    QTest::newRow("no argument") << kPlayer << u"Next"_s << QVariantList() << QString(kPlayer + u", Next");
    QTest::newRow("no interface") << QString() << u"Next"_s << QVariantList() << u", Next"_s;
    QTest::newRow("a time") << kPlayer << u"Seek"_s << QVariantList{5'000'000LL}
                            << QString(kPlayer + u", Seek, qlonglong 5000000");
    QTest::newRow("a path") << kPlayer << u"SetPosition"_s
                            << QVariantList{QVariant::fromValue(QDBusObjectPath(u"/a/b"_s)), -1LL}
                            << QString(kPlayer + u", SetPosition, path /a/b, qlonglong -1");
    QTest::newRow("a value") << kProperties << u"Set"_s
                             << QVariantList{kPlayer, u"Rate"_s,
                                             QVariant::fromValue(QDBusVariant(QVariant(2.5)))}
                             << QString(kProperties + u", Set, QString " + kPlayer +
                                        u", QString Rate, boxed double 2.5");
}

void TstPlayerBus::CallsArePassedOnWithTheirTypes() {
    QFETCH(const QString, interface);
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    PlayerBus player;
    Offer(player);
    QTEST(Call(kPath, interface, method, arguments).arguments().value(0).toString(), "echo");
}

void TstPlayerBus::PropertiesHaveTheirTypes() {
    PlayerBus player;
    Offer(player);
    const QDBusMessage one = Call(kPath, kProperties, u"Get"_s, {kPlayer, u"Metadata"_s});
    QCOMPARE(one.signature(), u"v"_s);
    const auto metadata =
        qdbus_cast<QVariantMap>(one.arguments().constFirst().value<QDBusVariant>().variant());
    QCOMPARE(metadata.value(u"mpris:trackid"_s).value<QDBusObjectPath>().path(), u"/track/7"_s);
    const QDBusMessage all = Call(kPath, kProperties, u"GetAll"_s, {kPlayer});
    QCOMPARE(all.signature(), u"a{sv}"_s);
    const auto properties = qdbus_cast<QVariantMap>(all.arguments().constFirst());
    QCOMPARE(properties.value(u"Position"_s), QVariant(5LL));
    QCOMPARE(properties.value(u"SupportedUriSchemes"_s), QVariant(QStringList()));
}

void TstPlayerBus::ARefusalIsAnError() {
    PlayerBus player;
    Offer(player);
    const QDBusMessage reply = Call(kPath, kPlayer, u"Stop"_s);
    QCOMPARE(reply.errorName(), u"org.freedesktop.DBus.Error.NotSupported"_s);
    QCOMPARE(reply.errorMessage(), u"No."_s);
}

void TstPlayerBus::TheInterfacesAreShown() {
    PlayerBus player;
    Offer(player);
    const QString shown = Call(kPath, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s)
                              .arguments()
                              .value(0)
                              .toString();
    for (const char* interface :
         {remote::kApplicationInterface, remote::kPlayerInterface, remote::kPropertiesInterface}) {
        const QString start = u"<interface name=\"%1\">"_s.arg(QLatin1StringView(interface));
        QVERIFY2(shown.count(start) == 1, qPrintable(shown));
    }
}

void TstPlayerBus::OtherPlacesAreUnknown_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("error");
    QTest::newRow("another path") << QString(kPath + u"/x") << kPlayer << u"UnknownObject"_s;
    QTest::newRow("another interface") << kPath << u"a.b"_s << u"UnknownInterface"_s;
}

void TstPlayerBus::OtherPlacesAreUnknown() {
    QFETCH(const QString, path);
    QFETCH(const QString, interface);
    PlayerBus player;
    Offer(player);
    QTEST(Call(path, interface, u"Play"_s).errorName().section(u'.', -1), "error");
}

void TstPlayerBus::NewsAreTold() {
    Listener listener;
    QVERIFY(m_other.connect(kName, kPath, kProperties, u"PropertiesChanged"_s, &listener,
                            SLOT(Hear(QDBusMessage))));
    QVERIFY(m_other.connect(kName, kPath, kPlayer, u"Seeked"_s, &listener, SLOT(Hear(QDBusMessage))));
    PlayerBus player;
    player.TellJump(1);  // not offered yet
    Offer(player);
    player.TellChanged(
        {{u"PlaybackStatus"_s, u"Playing"_s}, {u"Metadata"_s, QVariantMap{{u"mpris:trackid"_s, TrackId()}}}});
    player.TellJump(61'234'000);
    QTRY_COMPARE_WITH_TIMEOUT(listener.heard.size(), 2, kPatience);
    QCOMPARE(listener.heard[0].signature(), u"sa{sv}as"_s);
    QCOMPARE(listener.heard[0].arguments().at(0), QVariant(kPlayer));
    const auto changed = qdbus_cast<QVariantMap>(listener.heard[0].arguments().at(1));
    QCOMPARE(changed.value(u"PlaybackStatus"_s), QVariant(u"Playing"_s));
    const auto metadata = qdbus_cast<QVariantMap>(changed.value(u"Metadata"_s));
    QCOMPARE(metadata.value(u"mpris:trackid"_s).value<QDBusObjectPath>().path(), u"/track/7"_s);
    QCOMPARE(listener.heard[1].arguments(), QVariantList{61'234'000LL});
}

void TstPlayerBus::WithdrawnItIsGoneAndSilent() {
    Listener listener;
    QVERIFY(m_other.connect(QString(), kPath, kPlayer, u"Seeked"_s, &listener, SLOT(Hear(QDBusMessage))));
    PlayerBus player;
    Offer(player);
    player.TellJump(1);
    player.Withdraw();
    player.TellJump(2);
    QVERIFY(QTest::qWaitFor([this] { return !IsOnTheBus(); }, kPatience));
    QTRY_COMPARE_WITH_TIMEOUT(listener.heard.size(), 1, kPatience);
    player.Offer(&Echo);
    player.Withdraw();  // before the name was acquired
    Offer(player);
    QCOMPARE(Call(kPath, kPlayer, u"Next"_s).type(), QDBusMessage::ReplyMessage);
}

void TstPlayerBus::ABusThatHangsIsNotWaitedFor() {
    PlayerBus player(kRetry);
    Offer(player);
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP), 0);
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 1000; ++i) {
        player.TellJump(i);
    }
    player.Withdraw();
    player.Offer(&Echo);
    QVERIFY2(time.elapsed() < kAtOnce, qPrintable(QString::number(time.elapsed())));
    while (time.elapsed() < MessageBus::kPatience + 2 * kRetry) {  // until the first attempt has failed
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, kRetry);
    }
    QCOMPARE(kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT), 0);
    QVERIFY(QTest::qWaitFor([this] { return IsOnTheBus(); }, kPatience));
}

void TstPlayerBus::ABusThatIsLostIsNotWaitedFor() {
    PlayerBus player(kRetry);
    Offer(player);
    m_daemon.kill();
    QVERIFY(m_daemon.waitForFinished(kPatience));
    QVERIFY(QTest::qWaitFor([] { return !QDBusConnection::sessionBus().isConnected(); }, kPatience));
    QElapsedTimer time;
    time.start();
    player.TellChanged({{u"PlaybackStatus"_s, u"Stopped"_s}});
    player.TellJump(1);
    player.Withdraw();
    QTest::ignoreMessage(QtWarningMsg, "There is no session bus: media keys do not reach the CD player");
    player.Offer(&Echo);
    QVERIFY2(time.elapsed() < kAtOnce, qPrintable(QString::number(time.elapsed())));
}

QTEST_GUILESS_MAIN(TstPlayerBus)
#include "tst_player_bus.moc"
