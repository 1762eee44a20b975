// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "app/single_instance.h"
#include "core/errors.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// One running program a folder.
class TstSingleInstance : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void TheFirstIsTheFirst();
    void OtherFoldersHaveTheirOwn();
    void TheSocketIsTheUsersAlone();
    void OtherWordsAreNoCall();
    void WithoutAFirstNobodyAnswers();
    void AFolderThatTakesNoFileIsAnError();
    void AKilledFirstLeavesNoTrace();

private:
    QTemporaryDir m_runtime;
};

void TstSingleInstance::init() {
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toUtf8());
}

void TstSingleInstance::TheFirstIsTheFirst() {
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    // The lock knows processes: the second start is one of its own.
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

void TstSingleInstance::TheSocketIsTheUsersAlone() {
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    QVERIFY(first.Acquire());
    const QFileInfoList sockets = QDir(m_runtime.path()).entryInfoList(QDir::System);
    QCOMPARE(sockets.size(), 1);
    QCOMPARE(sockets.constFirst().permissions() &
                 (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
}

void TstSingleInstance::OtherWordsAreNoCall() {
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
    QCOMPARE(calls.at(0).constFirst().toBool(), false);
    QCOMPARE(calls.at(1).constFirst().toBool(), true);
}

void TstSingleInstance::WithoutAFirstNobodyAnswers() {
    const QTemporaryDir folder;
    const SingleInstance second(folder.path());
    QVERIFY(!second.CallFirst(false));
}

void TstSingleInstance::AFolderThatTakesNoFileIsAnError() {
    SingleInstance instance(u"/proc"_s);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, instance.Acquire());
}

void TstSingleInstance::AKilledFirstLeavesNoTrace() {
    const QTemporaryDir folder;
    // Ends without a word, as a killed process does: lock file and socket stay behind.
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
