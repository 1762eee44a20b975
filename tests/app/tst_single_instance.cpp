// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <QDir>
#include <QLocalSocket>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "app/single_instance.h"
#include "core/errors.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

sockaddr_un AddressOf(const QByteArray& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(static_cast<char*>(address.sun_path), path.constData(),
                static_cast<std::size_t>(path.size()));
    return address;
}

/// Connects and sends a word without Qt, which a child process that runs as another user cannot use.
bool Say(const QByteArray& path, const char* word) {
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = AddressOf(path);
    const auto size = static_cast<ssize_t>(std::strlen(word));
    return connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
           write(descriptor, word, std::strlen(word)) == size;
}

}  // namespace

/// One running program per folder.
class TstSingleInstance : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void TheFirstIsTheFirst();
    void OtherFoldersHaveTheirOwn();
    void OnlyTheUserHasAccessToTheSocket();
    void UnknownWordsAreIgnored();
    void AnEndlessWordIsIgnored();
    void SilentConnectionsDoNotBlockOthers();
    void AnotherUsersWordIsIgnored();
    void NothingIsSentToAnotherUser();
    void WithoutAFirstInstanceNobodyAnswers();
    void TheReasonForNoAnswerIsNamed_data();
    void TheReasonForNoAnswerIsNamed();
    void ARelativeRuntimeFolderIsIgnored();
    void AFolderWithoutWriteAccessIsAnError();
    void AKilledFirstDoesNotBlockTheNextStart();

private:
    /// The only existing socket.
    QString Socket() const {
        const QFileInfoList sockets = QDir(m_runtime.path()).entryInfoList(QDir::System);
        return sockets.size() == 1 ? sockets.constFirst().filePath() : QString();
    }

    QTemporaryDir m_runtime;
};

void TstSingleInstance::init() {
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toUtf8());
}

void TstSingleInstance::TheFirstIsTheFirst() {
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    // The lock is held per process, so the second start is a child process.
    QCOMPARE(InChild([&] { return SingleInstance(folder.path()).Acquire() ? 1 : 0; }), 0);
}

void TstSingleInstance::OtherFoldersHaveTheirOwn() {
    const QTemporaryDir one;
    const QTemporaryDir two;
    SingleInstance first(one.path());
    SingleInstance second(two.path());
    QVERIFY(first.Acquire());
    QVERIFY(second.Acquire());
    QCOMPARE(QDir(m_runtime.path()).entryInfoList(QDir::System).size(), 2);
}

void TstSingleInstance::OnlyTheUserHasAccessToTheSocket() {
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    const QFileInfoList sockets = QDir(m_runtime.path()).entryInfoList(QDir::System);
    QCOMPARE(sockets.size(), 1);
    QCOMPARE(sockets.constFirst().permissions() &
                 (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
}

void TstSingleInstance::UnknownWordsAreIgnored() {
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    const QSignalSpy calls(&first, &SingleInstance::Called);
    const QString path = QDir(m_runtime.path()).entryInfoList(QDir::System).constFirst().filePath();
    for (const auto& [word, expected] :
         {std::pair("forwards\n"_ba, 0), std::pair("\n"_ba, 0), std::pair("forward\n"_ba, 1),
          std::pair("menus\n"_ba, 1), std::pair("menu\n"_ba, 2)}) {
        QLocalSocket socket;
        socket.connectToServer(path);
        QVERIFY(socket.waitForConnected());
        socket.write(word);
        QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
        QCOMPARE(calls.size(), expected);
    }
    QCOMPARE(calls.at(0).constFirst().value<Request>(), Request::ComeForward);
    QCOMPARE(calls.at(1).constFirst().value<Request>(), Request::Menu);
}

void TstSingleInstance::AnEndlessWordIsIgnored() {
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    const QSignalSpy calls(&first, &SingleInstance::Called);
    for (const QByteArray& word :
         {QByteArray(1'000'000, 'x'), "forward\n"_ba.repeated(100'000), "forward\nmenu\n"_ba}) {
        QLocalSocket socket;
        socket.connectToServer(Socket());
        QVERIFY(socket.waitForConnected());
        socket.write(word);
        QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    }
    QCOMPARE(calls.size(), 0);
}

void TstSingleInstance::SilentConnectionsDoNotBlockOthers() {
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    const QSignalSpy calls(&first, &SingleInstance::Called);
    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 100; ++i) {
        silent.push_back(std::make_unique<QLocalSocket>());
        silent.back()->connectToServer(Socket());
        QVERIFY(silent.back()->waitForConnected());
        QCoreApplication::processEvents();
    }
    const auto held = [&silent] {
        return std::count_if(silent.begin(), silent.end(), [](const auto& socket) {
            return socket->state() == QLocalSocket::ConnectedState;
        });
    };
    QTRY_VERIFY(held() <= 8);
    QLocalSocket caller;
    caller.connectToServer(Socket());
    QVERIFY(caller.waitForConnected());
    caller.write("menu\n");
    QTRY_COMPARE(calls.size(), 1);
}

void TstSingleInstance::AnotherUsersWordIsIgnored() {
    if (geteuid() != 0) {
        QSKIP("only root can become another user");
    }
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    const QSignalSpy calls(&first, &SingleInstance::Called);
    const QByteArray path = QFile::encodeName(Socket());
    // Grants access to everybody, so that only the check of the user id can refuse.
    QCOMPARE(chmod(path.constData(), 0777), 0);
    QCOMPARE(chmod(QFile::encodeName(m_runtime.path()).constData(), 0777), 0);
    QCOMPARE(InChild([&path] { return BecomeNobody() && Say(path, "menu\n") ? 0 : 1; }), 0);
    QLocalSocket own;  // connects second: once it is answered, the first connection has been handled
    own.connectToServer(Socket());
    QVERIFY(own.waitForConnected());
    own.write("forward\n");
    QTRY_COMPARE(calls.size(), 1);
    QCOMPARE(calls.at(0).constFirst().value<Request>(), Request::ComeForward);
}

void TstSingleInstance::NothingIsSentToAnotherUser() {
    if (geteuid() != 0) {
        QSKIP("only root can become another user");
    }
    const QTemporaryDir folder;
    QString path;
    {
        SingleInstance first(folder.path());
        QVERIFY(first.Acquire());
        path = Socket();
    }
    QCOMPARE(chmod(QFile::encodeName(m_runtime.path()).constData(), 0777), 0);
    // Another user listens under the socket name of the first start.
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto closed = qScopeGuard([listener] { close(listener); });
    const uid_t self = geteuid();
    QCOMPARE(seteuid(65534), 0);
    const sockaddr_un address = AddressOf(QFile::encodeName(path));
    const bool listens = bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
                         listen(listener, 5) == 0;
    QCOMPARE(seteuid(self), 0);
    QVERIFY(listens);
    QVERIFY(!SingleInstance(folder.path()).CallFirst(Request::Menu));
    const int heard = accept(listener, nullptr, nullptr);
    QVERIFY(heard >= 0);
    char byte = 0;
    QCOMPARE(read(heard, &byte, 1), 0);  // end of file: the listener's user was checked, and nothing was sent
    close(heard);
    unlink(QFile::encodeName(path).constData());
}

void TstSingleInstance::WithoutAFirstInstanceNobodyAnswers() {
    const QTemporaryDir folder;
    const SingleInstance second(folder.path());
    QVERIFY(!second.CallFirst(Request::ComeForward));
}

void TstSingleInstance::TheReasonForNoAnswerIsNamed_data() {
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("words");
    QTest::newRow("a folder") << u"folder"_s << u"別のものがあります。それを移動または削除し、"_s;
    QTest::newRow("a file") << u"file"_s << u"別のものがあります。それを移動または削除し、"_s;
    QTest::newRow("nothing") << QString() << u"ソケットがありません。"_s;
    QTest::newRow("a socket without a listener") << u"socket"_s << u"しばらく待っても応答がないときは、"_s;
}

void TstSingleInstance::TheReasonForNoAnswerIsNamed() {
    QFETCH(QString, obstacle);
    QFETCH(QString, words);
    const QTemporaryDir folder;
    QString path;
    {
        SingleInstance first(folder.path());
        QVERIFY(first.Acquire());
        path = Socket();
    }
    int left = -1;
    const auto closed = qScopeGuard([&left] { close(left); });
    if (obstacle == u"folder") {
        QVERIFY(QDir().mkdir(path));
    } else if (obstacle == u"file") {
        WriteAll(path, "mine");
    } else if (obstacle == u"socket") {
        left = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const sockaddr_un address = AddressOf(QFile::encodeName(path));
        QCOMPARE(bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    }
    const SingleInstance second(folder.path());
    QVERIFY(!second.CallFirst(Request::ComeForward));
    const QString reason = second.WhyNoAnswer();
    QVERIFY2(reason.startsWith(u"すでに起動していますが、応答がありません。\r\n"_s + path + u"\r\n") &&
                 reason.contains(words) && reason.endsWith(u"もう一度起動してください。"),
             qPrintable(reason));
    QVERIFY(obstacle == u"folder" ? QDir().rmdir(path) : obstacle.isEmpty() || QFile::remove(path));
}

void TstSingleInstance::ARelativeRuntimeFolderIsIgnored() {
    const QTemporaryDir folder;
    const QTemporaryDir elsewhere;
    const QByteArray before = qgetenv("TMPDIR");
    const auto restored = qScopeGuard([&before] { qputenv("TMPDIR", before); });
    qputenv("TMPDIR", m_runtime.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", "run");
    const QString current = QDir::currentPath();
    QVERIFY(QDir::setCurrent(elsewhere.path()) && QDir().mkdir(u"run"_s));
    SingleInstance first(folder.path());
    const bool isFirst = first.Acquire();
    QVERIFY(QDir::setCurrent(current));
    QVERIFY(isFirst && !Socket().isEmpty());
    QVERIFY(QDir(elsewhere.filePath(u"run"_s)).isEmpty());
}

void TstSingleInstance::AFolderWithoutWriteAccessIsAnError() {
    SingleInstance instance(u"/proc"_s);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, instance.Acquire());
}

void TstSingleInstance::AKilledFirstDoesNotBlockTheNextStart() {
    const QTemporaryDir folder;
    // Exits without cleaning up, like a killed process: lock file and socket are left behind.
    QCOMPARE(InChild([&] {
                 auto* first = new SingleInstance(folder.path());
                 return first->Acquire() ? 0 : 1;
             }),
             0);
    QVERIFY(!QDir(folder.path()).isEmpty(QDir::Files | QDir::Hidden));
    SingleInstance next(folder.path());
    QVERIFY(next.Acquire());
}

QTEST_GUILESS_MAIN(TstSingleInstance)
#include "tst_single_instance.moc"
