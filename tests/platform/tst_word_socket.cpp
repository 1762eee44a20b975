// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <future>
#include <vector>

#include "platform/processes/word_socket.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 30s;  // only a failing test waits this long

/// The number of descriptors that a started program would inherit.
int InheritedDescriptors() {
    int count = 0;
    for (const QString& name :
         QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)) {
        const int flags = fcntl(name.toInt(), F_GETFD);
        count += flags >= 0 && (flags & FD_CLOEXEC) == 0 ? 1 : 0;
    }
    return count;
}

}  // namespace

/// A short word from another process.
class TstWordSocket : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void AWordIsReceivedOnceAndItsSenderReleased();
    void NoMoreThanTheMaximumLengthIsRead();
    void AConnectionWithoutAWordIsIgnored();
    void OnlyTheUserHasAccessWhateverTheMask();
    void TheSocketIsRemovedWithItsListener();
    void ALeftoverSocketIsReplaced();
    void AnythingElseInItsPlaceStays_data();
    void AnythingElseInItsPlaceStays();
    void ANameThatIsTooLongIsRefused();
    void WithoutAListenerThereIsNoAnswer();
    void ASilentListenerIsWaitedForOnlyBriefly();
    void StartedProgramsDoNotInheritTheSocket();
    void WithoutFreeDescriptorsConnectionsAreClosed();

private:
    QString Path() const { return m_folder->filePath(u"socket"_s); }
    void Say(const QByteArray& word);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::vector<QByteArray> m_heard;
    std::unique_ptr<WordSocket> m_socket;
};

void TstWordSocket::init() {
    m_socket.reset();
    m_heard.clear();
    m_folder = std::make_unique<QTemporaryDir>();
    m_socket = std::make_unique<WordSocket>([this](const QByteArray& word) { m_heard.push_back(word); });
}

/// Sends a word from another thread while this one handles the socket.
void TstWordSocket::Say(const QByteArray& word) {
    auto said = std::async(std::launch::async, [this, word] { return SayWord(Path(), word, kPatience); });
    QTRY_COMPARE(said.wait_for(0s), std::future_status::ready);
    QVERIFY(said.get());
}

void TstWordSocket::AWordIsReceivedOnceAndItsSenderReleased() {
    QVERIFY(m_socket->Listen(Path()));
    Say("menu\n");
    QCOMPARE(m_heard, std::vector<QByteArray>{"menu\n"});
    Say("forward\n");
    QCOMPARE(m_heard, (std::vector<QByteArray>{"menu\n", "forward\n"}));
}

void TstWordSocket::NoMoreThanTheMaximumLengthIsRead() {
    QVERIFY(m_socket->Listen(Path()));
    Say(QByteArray(1000, 'm'));
    QCOMPARE(m_heard, std::vector<QByteArray>{QByteArray(WordSocket::kLongestWord, 'm')});
}

void TstWordSocket::AConnectionWithoutAWordIsIgnored() {
    QVERIFY(m_socket->Listen(Path()));
    {
        QLocalSocket silent;
        silent.connectToServer(Path());
        QVERIFY(silent.waitForConnected());
        QCoreApplication::processEvents();
    }
    Say("next\n");
    QCOMPARE(m_heard, std::vector<QByteArray>{"next\n"});
}

void TstWordSocket::OnlyTheUserHasAccessWhateverTheMask() {
    const mode_t before = umask(0);
    const bool listens = m_socket->Listen(Path());
    umask(before);
    QVERIFY(listens);
    struct stat status {};
    QCOMPARE(stat(QFile::encodeName(Path()).constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, 0600U);
}

void TstWordSocket::TheSocketIsRemovedWithItsListener() {
    QVERIFY(m_socket->Listen(Path()));
    QVERIFY(QFile::exists(Path()));
    m_socket.reset();
    QVERIFY(!QFile::exists(Path()));
}

void TstWordSocket::ALeftoverSocketIsReplaced() {
    QCOMPARE(SocketPlaceOf(Path()), SocketPlace::Free);
    const int left = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(static_cast<char*>(address.sun_path), qPrintable(Path()), sizeof(address.sun_path) - 1);
    QCOMPARE(bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    close(left);
    QCOMPARE(SocketPlaceOf(Path()), SocketPlace::OwnSocket);
    QVERIFY(m_socket->Listen(Path()));
    Say("menu\n");
    QCOMPARE(m_heard, std::vector<QByteArray>{"menu\n"});
}

void TstWordSocket::AnythingElseInItsPlaceStays_data() {
    QTest::addColumn<QString>("kind");
    QTest::newRow("file") << u"file"_s;
    QTest::newRow("folder") << u"folder"_s;
    QTest::newRow("dead link") << u"link"_s;
}

void TstWordSocket::AnythingElseInItsPlaceStays() {
    QFETCH(QString, kind);
    if (kind == u"file") {
        WriteAll(Path(), "mine");
    } else if (kind == u"folder") {
        QVERIFY(QDir().mkdir(Path()));
    } else {
        QVERIFY(QFile::link(u"nowhere"_s, Path()));
    }
    QCOMPARE(SocketPlaceOf(Path()), SocketPlace::Taken);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^cannot listen at "_s + Path() + u": .*in use"));
    QVERIFY(!m_socket->Listen(Path()));
    m_socket.reset();
    const QFileInfo there(Path());
    QVERIFY(kind == u"link"     ? there.isSymLink()
            : kind == u"folder" ? there.isDir()
                                : ReadAll(Path()) == "mine");
}

void TstWordSocket::ANameThatIsTooLongIsRefused() {
    const QString path = m_folder->filePath(QString(200, u'n'));
    QVERIFY(!m_socket->Listen(path));
    QVERIFY(!SayWord(path, "menu\n", kPatience));
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void TstWordSocket::WithoutAListenerThereIsNoAnswer() {
    QVERIFY(!SayWord(Path(), "menu\n", kPatience));
}

void TstWordSocket::ASilentListenerIsWaitedForOnlyBriefly() {
    QVERIFY(m_socket->Listen(Path()));
    QVERIFY(!SayWord(Path(), "menu\n", 1ms));  // no event loop is running
}

void TstWordSocket::StartedProgramsDoNotInheritTheSocket() {
    const int before = InheritedDescriptors();
    QVERIFY(m_socket->Listen(Path()));
    QLocalSocket guest;
    guest.connectToServer(Path());
    QVERIFY(guest.waitForConnected());
    QCoreApplication::processEvents();
    QCOMPARE(InheritedDescriptors(), before);
}

void TstWordSocket::WithoutFreeDescriptorsConnectionsAreClosed() {
    QVERIFY(m_socket->Listen(Path()));
    const int guest = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto closed = qScopeGuard([guest] { close(guest); });
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(Path());
    std::memcpy(static_cast<char*>(address.sun_path), name.constData(),
                static_cast<std::size_t>(name.size()));
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit few{64, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &few), 0);
    std::vector<int> taken;
    const auto restored = qScopeGuard([before, &taken] {
        setrlimit(RLIMIT_NOFILE, &before);
        for (const int descriptor : taken) {
            close(descriptor);
        }
    });
    for (int copy = dup(guest); copy >= 0; copy = dup(guest)) {
        taken.push_back(copy);
    }
    QCOMPARE(::connect(guest, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    const auto wasLetGo = [guest] {
        char byte = 0;
        const ssize_t count = recv(guest, &byte, 1, MSG_DONTWAIT);
        return count == 0 || (count < 0 && errno == ECONNRESET);
    };
    QVERIFY(!wasLetGo());
    QTRY_VERIFY(wasLetGo());
}

QTEST_GUILESS_MAIN(TstWordSocket)
#include "tst_word_socket.moc"
