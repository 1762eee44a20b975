// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <csignal>

#include "platform/files/file_replacement.h"
#include "platform/files/unfinished_files.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

unsigned ModeOf(const QString& path) {
    struct stat state {};
    return stat(QFile::encodeName(path).constData(), &state) == 0 ? state.st_mode & 07777U : 0;
}

QStringList Listing(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

}  // namespace

/// Files that are replaced completely, and what is left if the process is killed in the meantime.
class TstFileReplacement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void AFileIsMadeAndReplaced();
    void OnlyTheOwnerHasAccessWhateverTheMaskAndTheOldMode();
    void ALinkStaysALink();
    void ADeadLinkIsReplaced();
    void OnlyRegularFilesAreReplaced_data();
    void OnlyRegularFilesAreReplaced();
    void AReadOnlyFileStays();
    void AFullDiskKeepsTheOldFile();
    void AMissingFolderIsAnError();
    void ALeftoverIsRemoved();
    void FilesNamedByTheUserStay_data();
    void FilesNamedByTheUserStay();
    void AnotherUsersFileStays();
    void NothingIsRemovedDuringAnotherReplacement();
    void ALeftoverFolderIsRemovedWithItsFiles();
    void AFolderWithAnythingElseStaysComplete();

private:
    QString Path() const { return m_dir->filePath(u"TKW2.ini"_s); }
    QString Leftover() const { return m_dir->filePath(u".TKW2.ini.unfinished-aBcD9z"_s); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TstFileReplacement::init() {
    m_dir = std::make_unique<QTemporaryDir>();
}

void TstFileReplacement::AFileIsMadeAndReplaced() {
    for (const QByteArray& bytes :
         {"first"_ba, "second, longer"_ba, QByteArray(), QByteArray(100'000, 'x')}) {
        QCOMPARE(ReplaceFile(Path(), bytes), QString());
        QCOMPARE(ReadAll(Path()), bytes);
        QCOMPARE(Listing(m_dir->path()), QStringList{u"TKW2.ini"_s});
    }
}

void TstFileReplacement::OnlyTheOwnerHasAccessWhateverTheMaskAndTheOldMode() {
    const mode_t before = umask(0);
    const auto restored = qScopeGuard([before] { umask(before); });
    QCOMPARE(ReplaceFile(Path(), "new"), QString());
    QCOMPARE(ModeOf(Path()), 0600U);
    QCOMPARE(chmod(QFile::encodeName(Path()).constData(), 0666), 0);
    QCOMPARE(ReplaceFile(Path(), "again"), QString());
    QCOMPARE(ModeOf(Path()), 0600U);
}

void TstFileReplacement::ALinkStaysALink() {
    QVERIFY(QDir(m_dir->path()).mkdir(u"real"_s));
    WriteAll(m_dir->filePath(u"real/file"_s), "old");
    QVERIFY(QFile::link(u"real/file"_s, Path()));
    QCOMPARE(ReplaceFile(Path(), "new"), QString());
    QVERIFY(QFileInfo(Path()).isSymLink());
    QCOMPARE(ReadAll(m_dir->filePath(u"real/file"_s)), "new"_ba);
    QCOMPARE(Listing(m_dir->filePath(u"real"_s)), QStringList{u"file"_s});
}

void TstFileReplacement::ADeadLinkIsReplaced() {
    QVERIFY(QFile::link(u"nowhere/file"_s, Path()));
    QCOMPARE(ReplaceFile(Path(), "new"), QString());
    QCOMPARE(ReadAll(Path()), "new"_ba);
}

void TstFileReplacement::OnlyRegularFilesAreReplaced_data() {
    QTest::addColumn<unsigned>("kind");
    QTest::newRow("folder") << unsigned{S_IFDIR};
    QTest::newRow("pipe") << unsigned{S_IFIFO};
}

void TstFileReplacement::OnlyRegularFilesAreReplaced() {
    QFETCH(unsigned, kind);
    const QByteArray name = QFile::encodeName(m_dir->filePath(u"other"_s));
    QCOMPARE(kind == S_IFDIR ? mkdir(name.constData(), 0700) : mkfifo(name.constData(), 0600), 0);
    for (const bool isLinked : {false, true}) {
        QVERIFY(!isLinked || QFile::link(u"other"_s, Path()));
        QVERIFY(!ReplaceFile(isLinked ? Path() : m_dir->filePath(u"other"_s), "new").isEmpty());
        struct stat state {};
        QCOMPARE(stat(name.constData(), &state), 0);
        QCOMPARE(state.st_mode & S_IFMT, kind);
    }
    QCOMPARE(Listing(m_dir->path()), (QStringList{u"other"_s, u"TKW2.ini"_s}));
}

void TstFileReplacement::AReadOnlyFileStays() {
    WriteAll(Path(), "old");
    QCOMPARE(chmod(QFile::encodeName(m_dir->path()).constData(), 0777), 0);
    QCOMPARE(chmod(QFile::encodeName(Path()).constData(), 0444), 0);
    QCOMPARE(InChild([&] { return BecomeNobody() && !ReplaceFile(Path(), "new").isEmpty() ? 0 : 1; }), 0);
    QCOMPARE(ReadAll(Path()), "old"_ba);
}

void TstFileReplacement::AFullDiskKeepsTheOldFile() {
    WriteAll(Path(), "old");
    QCOMPARE(InChild([&] {
                 std::signal(SIGXFSZ, SIG_IGN);
                 const rlimit limit{40, 40};
                 return setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
                                !ReplaceFile(Path(), QByteArray(41, 'x')).isEmpty()
                            ? 0
                            : 1;
             }),
             0);
    QCOMPARE(ReadAll(Path()), "old"_ba);
    QCOMPARE(Listing(m_dir->path()), QStringList{u"TKW2.ini"_s});
}

void TstFileReplacement::AMissingFolderIsAnError() {
    QVERIFY(!ReplaceFile(m_dir->filePath(u"none/file"_s), "new").isEmpty());
}

void TstFileReplacement::ALeftoverIsRemoved() {
    WriteAll(Path(), "mine");
    WriteAll(Leftover(), "half");
    RemoveUnfinished(Path());
    QCOMPARE(Listing(m_dir->path()), QStringList{u"TKW2.ini"_s});
    QCOMPARE(ReadAll(Path()), "mine"_ba);
    // The name used by this test matches the names in actual use.
    QTemporaryFile real(UnfinishedTemplate(Path()));
    QVERIFY(real.open());
    QVERIFY(QFile::exists(real.fileName()));
    RemoveUnfinished(Path());
    QVERIFY(!QFile::exists(real.fileName()));
}

void TstFileReplacement::FilesNamedByTheUserStay_data() {
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"TKW2.ini", "TKW2.ini.backup", "TKW2.ini.unfinished-aBcD9z", ".TKW2.ini.aBcD9z",
          ".TKW2.ini.unfinished-", ".TKW2.ini.unfinished-aBcD9", ".TKW2.ini.unfinished-aBcD9zz",
          ".TKW2.ini.unfinished-aB.D9z", ".Other.ini.unfinished-aBcD9z"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void TstFileReplacement::FilesNamedByTheUserStay() {
    QFETCH(QString, name);
    WriteAll(m_dir->filePath(name), "mine");
    RemoveUnfinished(Path());
    QCOMPARE(ReadAll(m_dir->filePath(name)), "mine"_ba);
}

void TstFileReplacement::AnotherUsersFileStays() {
    if (geteuid() != 0) {
        QSKIP("only root can give a file away");
    }
    WriteAll(Leftover(), "half");
    QCOMPARE(chown(QFile::encodeName(Leftover()).constData(), 65534, 65534), 0);
    RemoveUnfinished(Path());
    QVERIFY(QFile::exists(Leftover()));
}

void TstFileReplacement::NothingIsRemovedDuringAnotherReplacement() {
    WriteAll(Leftover(), "half");
    {
        const UnfinishedFilesInUse inUse(m_dir->path());
        const UnfinishedFilesInUse alsoInUse(m_dir->path());
        RemoveUnfinished(Path());
        QVERIFY(QFile::exists(Leftover()));
    }
    RemoveUnfinished(Path());
    QVERIFY(!QFile::exists(Leftover()));
}

void TstFileReplacement::ALeftoverFolderIsRemovedWithItsFiles() {
    QVERIFY(QDir().mkdir(Leftover()));
    WriteAll(Leftover() + u"/Help.hlp", "help");
    WriteAll(Leftover() + u"/.Help.hlp.unfinished-ABCDEF", "he");
    RemoveUnfinished(Path(), {u"Help.hlp"_s});
    QCOMPARE(Listing(m_dir->path()), QStringList());
}

void TstFileReplacement::AFolderWithAnythingElseStaysComplete() {
    QVERIFY(QDir().mkpath(Leftover() + u"/folder"));
    WriteAll(Leftover() + u"/Help.hlp", "help");
    RemoveUnfinished(Path(), {u"Help.hlp"_s});
    QCOMPARE(Listing(Leftover()), (QStringList{u"folder"_s, u"Help.hlp"_s}));
}

QTEST_GUILESS_MAIN(TstFileReplacement)
#include "tst_file_replacement.moc"
