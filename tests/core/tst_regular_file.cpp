// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <cstring>

#include "core/regular_file.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tickwell::FileProblem)

namespace {

constexpr qint64 kMost = 4096;

QByteArray Native(const QString& path) {
    return QFile::encodeName(path);
}

/// Creates a file of this kind at `path`.
bool Make(const QString& kind, const QString& path) {
    if (kind == u"folder") {
        return QDir().mkdir(path);
    }
    if (kind == u"pipe") {
        return mkfifo(Native(path).constData(), 0600) == 0;
    }
    if (kind == u"socket") {
        const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const auto closed = qScopeGuard([descriptor] { close(descriptor); });
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(static_cast<char*>(address.sun_path), Native(path).constData(),
                     sizeof(address.sun_path) - 1);
        return bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    }
    return QFile::link(kind, path);
}

}  // namespace

/// Reading files that another user may have created.
class TstRegularFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFileIsReadWhole_data();
    void AFileIsReadWhole();
    void ALinkIsFollowed();
    void AFileThatClaimsNoSizeIsReadToItsEnd();
    void NonRegularFilesAreNotOpened_data();
    void NonRegularFilesAreNotOpened();
    void AFileIsTooLargeByOneByte();
    void ASparseFileIsNotRead();
    void AbsentAndUnreadableFilesAreDistinguished_data();
    void AbsentAndUnreadableFilesAreDistinguished();
    void WithoutTheRightToReadItIsAnError();
};

void TstRegularFile::AFileIsReadWhole_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << "a"_ba;
    QTest::newRow("with NUL") << QByteArray("a\0b", 3);
    QTest::newRow("as large as is allowed") << QByteArray(kMost, 'x');
}

void TstRegularFile::AFileIsReadWhole() {
    QFETCH(QByteArray, bytes);
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"file"_s), bytes);
    const FileContents file = ReadRegularFile(dir.filePath(u"file"_s), kMost);
    QCOMPARE(file.problem, FileProblem::None);
    QCOMPARE(file.bytes, bytes);
    QCOMPARE(file.reason, QString());
}

void TstRegularFile::ALinkIsFollowed() {
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"file"_s), "text");
    QVERIFY(QFile::link(u"file"_s, dir.filePath(u"link"_s)));
    QCOMPARE(ReadRegularFile(dir.filePath(u"link"_s), kMost).bytes, "text"_ba);
}

void TstRegularFile::AFileThatClaimsNoSizeIsReadToItsEnd() {
    struct stat state {};
    QCOMPARE(stat("/proc/self/status", &state), 0);
    QCOMPARE(state.st_size, 0);
    QVERIFY(ReadRegularFile(u"/proc/self/status"_s, 1 << 20).bytes.contains("\nVmRSS:"));
    QCOMPARE(ReadRegularFile(u"/proc/self/status"_s, 10).problem, FileProblem::TooLarge);
}

void TstRegularFile::NonRegularFilesAreNotOpened_data() {
    QTest::addColumn<QString>("kind");
    QTest::newRow("a folder") << u"folder"_s;
    QTest::newRow("a pipe, which would block") << u"pipe"_s;
    QTest::newRow("a socket") << u"socket"_s;
    QTest::newRow("a device that never ends") << u"/dev/zero"_s;
    QTest::newRow("a device that is full") << u"/dev/full"_s;
    QTest::newRow("a device that holds nothing") << u"/dev/null"_s;
    QTest::newRow("a terminal") << u"/dev/ptmx"_s;
}

void TstRegularFile::NonRegularFilesAreNotOpened() {
    QFETCH(QString, kind);
    const QTemporaryDir dir;
    QVERIFY(Make(kind, dir.filePath(u"file"_s)));
    const FileContents file = ReadRegularFile(dir.filePath(u"file"_s), kMost);
    QCOMPARE(file.problem, FileProblem::NotRegular);
    QCOMPARE(file.reason, u"通常のファイルではありません。"_s);
    QVERIFY(file.bytes.isEmpty());
}

void TstRegularFile::AFileIsTooLargeByOneByte() {
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"file"_s), QByteArray(kMost + 1, 'x'));
    const FileContents file = ReadRegularFile(dir.filePath(u"file"_s), kMost);
    QCOMPARE(file.problem, FileProblem::TooLarge);
    QCOMPARE(file.reason, u"ファイルが大きすぎます（4 KiBまで）。"_s);
    QVERIFY(file.bytes.isEmpty());
}

/// Larger than memory: it must be refused by its size alone.
void TstRegularFile::ASparseFileIsNotRead() {
    const QTemporaryDir dir;
    QFile sparse(dir.filePath(u"file"_s));
    QVERIFY(sparse.open(QIODevice::WriteOnly) && sparse.resize(qint64{1} << 40));
    QCOMPARE(ReadRegularFile(dir.filePath(u"file"_s), kMost).problem, FileProblem::TooLarge);
}

void TstRegularFile::AbsentAndUnreadableFilesAreDistinguished_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<FileProblem>("problem");
    QTest::newRow("nothing there") << u"none"_s << FileProblem::Absent;
    QTest::newRow("no folder either") << u"none/none"_s << FileProblem::Absent;
    QTest::newRow("a dead link") << u"dead"_s << FileProblem::Absent;
    QTest::newRow("a file instead of a folder") << u"file/none"_s << FileProblem::Unreadable;
    QTest::newRow("a link to itself") << u"circle"_s << FileProblem::Unreadable;
}

void TstRegularFile::AbsentAndUnreadableFilesAreDistinguished() {
    QFETCH(QString, name);
    QFETCH(FileProblem, problem);
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"file"_s), "text");
    QVERIFY(QFile::link(u"nowhere"_s, dir.filePath(u"dead"_s)));
    QVERIFY(QFile::link(u"circle"_s, dir.filePath(u"circle"_s)));
    QCOMPARE(ReadRegularFile(dir.filePath(name), kMost).problem, problem);
}

void TstRegularFile::WithoutTheRightToReadItIsAnError() {
    const QTemporaryDir dir;
    QCOMPARE(chmod(Native(dir.path()).constData(), 0755), 0);
    WriteAll(dir.filePath(u"file"_s), "text");
    QCOMPARE(chmod(Native(dir.filePath(u"file"_s)).constData(), 0200), 0);
    QCOMPARE(InChild([&] {
                 return BecomeNobody() && ReadRegularFile(dir.filePath(u"file"_s), kMost).problem ==
                                              FileProblem::Unreadable
                            ? 0
                            : 1;
             }),
             0);
}

QTEST_GUILESS_MAIN(TstRegularFile)
#include "tst_regular_file.moc"
