// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <cstring>

#include "platform/bus/session_bus_look.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kAddress = "DBUS_SESSION_BUS_ADDRESS";
constexpr int kPatience = 30'000;  // ms; only a failing test waits this long

/// A socket that accepts connections and never answers, as if the bus were stopped.
class SilentBus {
public:
    explicit SilentBus(const QByteArray& path) : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
        m_listens = bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                    listen(m_socket, 5) == 0;
    }
    ~SilentBus() { close(m_socket); }
    Q_DISABLE_COPY_MOVE(SilentBus)

    bool Listens() const { return m_listens; }

private:
    int m_socket;
    bool m_listens = false;
};

}  // namespace

/// Whether Qt is allowed to use the session bus.
class TstSessionBusLook : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AMissingBusIsLeftToQt();
    void AnAnsweringBusIsLeftToQt();
    void QtIsKeptFromAHangingBus();

private:
    QTemporaryDir m_folder;
};

void TstSessionBusLook::AMissingBusIsLeftToQt() {
    const QByteArray address = "unix:path=" + m_folder.filePath(u"missing"_s).toUtf8();
    qputenv(kAddress, address);
    SessionBusLook look;
    QCOMPARE(qgetenv(kAddress), address);
    look.Finish();
    QCOMPARE(qgetenv(kAddress), address);
}

void TstSessionBusLook::AnAnsweringBusIsLeftToQt() {
    const QString address = u"unix:path="_s + m_folder.filePath(u"bus"_s);
    QProcess bus;
    bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s,
                                 u"--address="_s + address});
    QVERIFY(bus.waitForReadyRead(kPatience));
    qputenv(kAddress, address.toUtf8());
    SessionBusLook look;
    QCOMPARE(qgetenv(kAddress), address.toUtf8());
    bus.kill();
    QVERIFY(bus.waitForFinished(kPatience));
}

void TstSessionBusLook::QtIsKeptFromAHangingBus() {
    const QByteArray path = m_folder.filePath(u"silent"_s).toUtf8();
    const SilentBus bus(path);
    QVERIFY(bus.Listens());
    const QByteArray address = "unix:path=" + path;
    qputenv(kAddress, address);
    QTest::ignoreMessage(
        QtWarningMsg,
        "The session bus does not answer: no screen reader and no tray icon over it in this run");
    SessionBusLook look;
    QCOMPARE(qgetenv(kAddress), "disabled:");
    look.Finish();
    QCOMPARE(qgetenv(kAddress), address);  // programs that are started still get the address
    QVERIFY(!QDBusConnection::sessionBus().isConnected());
}

QTEST_GUILESS_MAIN(TstSessionBusLook)
#include "tst_session_bus_look.moc"
