// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "core/saved_file.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    QString Path(const QString& name = u"laps.csv"_s) const { return dir.filePath(name); }
    QStringList Names() const {
        return QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir dir;
};

}  // namespace

/// Files are written whole or not at all.
class TstSavedFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFileIsWritten();
    void AnOldOneIsReplaced();
    void AMissingFolderIsARefusal();
    void AFolderIsNotReplaced();
    void APipeIsNotReplaced();
    void AWriteProtectedFolderStaysAsItIs();
    void AFullDiskLeavesTheOldFile_data();
    void AFullDiskLeavesTheOldFile();
};

void TstSavedFile::AFileIsWritten() {
    const Bench bench;
    QCOMPARE(SaveFile(bench.Path(), "one\r\n"), QString());
    QCOMPARE(ReadAll(bench.Path()), "one\r\n"_ba);
    QCOMPARE(bench.Names(), QStringList{u"laps.csv"_s});
}

void TstSavedFile::AnOldOneIsReplaced() {
    const Bench bench;
    WriteAll(bench.Path(), "a much longer old one");
    QCOMPARE(SaveFile(bench.Path(), "new"), QString());
    QCOMPARE(ReadAll(bench.Path()), "new"_ba);
}

void TstSavedFile::AMissingFolderIsARefusal() {
    const Bench bench;
    QVERIFY(!SaveFile(bench.Path(u"none/laps.csv"_s), "one").isEmpty());
    QVERIFY(bench.Names().isEmpty());
}

void TstSavedFile::AFolderIsNotReplaced() {
    const Bench bench;
    QVERIFY(QDir(bench.dir.path()).mkdir(u"folder"_s));
    QCOMPARE(SaveFile(bench.Path(u"folder"_s), "one"), u"通常のファイルではありません。"_s);
    QCOMPARE(bench.Names(), QStringList{u"folder"_s});
}

void TstSavedFile::APipeIsNotReplaced() {
    const Bench bench;
    QCOMPARE(mkfifo(QFile::encodeName(bench.Path()).constData(), 0600), 0);
    QCOMPARE(SaveFile(bench.Path(), "one"), u"通常のファイルではありません。"_s);
    struct stat found {};
    QCOMPARE(stat(QFile::encodeName(bench.Path()).constData(), &found), 0);
    QVERIFY(S_ISFIFO(found.st_mode));
}

void TstSavedFile::AWriteProtectedFolderStaysAsItIs() {
    const Bench bench;
    WriteAll(bench.Path(), "old");
    QVERIFY(QFile::setPermissions(bench.dir.path(),
                                  QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    const int code =
        InChild([&] { return BecomeNobody() && !SaveFile(bench.Path(), "new").isEmpty() ? 0 : 1; });
    QVERIFY(QFile::setPermissions(bench.dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(code, 0);
    QCOMPARE(ReadAll(bench.Path()), "old"_ba);
    QCOMPARE(bench.Names(), QStringList{u"laps.csv"_s});
}

void TstSavedFile::AFullDiskLeavesTheOldFile_data() {
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("room");
    QTest::newRow("no room at all") << 100 << 0;
    QTest::newRow("half the room for a small file") << 100 << 50;
    QTest::newRow("room for all but the last byte") << 100'000 << 99'999;
    QTest::newRow("far too large") << 100'000 << 1000;
}

void TstSavedFile::AFullDiskLeavesTheOldFile() {
    QFETCH(const int, size);
    QFETCH(const int, room);
    const Bench bench;
    WriteAll(bench.Path(), "old");
    const QByteArray large(size, 'x');
    const int code = InChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);  // makes the write fail as on a full disk
        const rlimit most{static_cast<rlim_t>(room), static_cast<rlim_t>(room)};
        return setrlimit(RLIMIT_FSIZE, &most) == 0 && !SaveFile(bench.Path(), large).isEmpty() ? 0 : 1;
    });
    QCOMPARE(code, 0);
    QCOMPARE(ReadAll(bench.Path()), "old"_ba);
    QCOMPARE(bench.Names(), QStringList{u"laps.csv"_s});
}

QTEST_GUILESS_MAIN(TstSavedFile)
#include "tst_saved_file.moc"
