// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/file.h>
#include <sys/resource.h>

#include <fcntl.h>
#include <QScopeGuard>
#include <QTest>
#include <cerrno>
#include <csignal>

#include "store/jet_folder.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::store;
using namespace Qt::StringLiterals;

namespace {

/// The real disk, except that step number `step` fails with the errno that `trouble` returns.
class TroubledDisk : public PosixStoreDisk {
public:
    TroubledDisk(int step, std::function<int()> trouble) : m_left(step), m_trouble(std::move(trouble)) {}

    void Create(const QString& path, unsigned mode, const QByteArray& bytes) override {
        Step(path, [&] { PosixStoreDisk::Create(path, mode, bytes); });
    }
    void Link(const QString& from, const QString& to) override {
        Step(to, [&] { PosixStoreDisk::Link(from, to); });
    }
    void Rename(const QString& from, const QString& to) override {
        Step(to, [&] { PosixStoreDisk::Rename(from, to); });
    }
    void Sync(const QString& path) override {
        Step(path, [&] { PosixStoreDisk::Sync(path); });
    }
    void Remove(const QString& path) override {
        Step(path, [&] { PosixStoreDisk::Remove(path); });
    }

private:
    void Step(const QString& path, const std::function<void()>& real) {
        if (--m_left == 0) {
            throw DiskError(path, m_trouble());
        }
        real();
    }

    int m_left;
    std::function<int()> m_trouble;  // returns an errno
};

/// A file system without hard links, with or without space for a copy.
class DiskWithoutLinks : public PosixStoreDisk {
public:
    explicit DiskWithoutLinks(bool hasRoom) : m_hasRoom(hasRoom) {}

    void Create(const QString& path, unsigned mode, const QByteArray& bytes) override {
        if (!bytes.isEmpty() && !m_hasRoom) {
            throw DiskError(path, ENOSPC);
        }
        PosixStoreDisk::Create(path, mode, bytes);
    }
    void Link(const QString& /*from*/, const QString& to) override { throw DiskError(to, EPERM); }

private:
    bool m_hasRoom;
};

}  // namespace

/// The import with a failing disk, an interrupted program, or missing permissions.
class TstJetImportFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFailingStepLeavesTheFolderUnchanged_data();
    void AFailingStepLeavesTheFolderUnchanged();
    void AfterACrashTheNextStartImports_data();
    void AfterACrashTheNextStartImports();
    void WithoutLinksTheOriginalIsCopied();
    void AReadOnlyOriginalBecomesAWritableDatabase();
    void AReadOnlyFolderKeepsTheOriginal();
    void AFullDiskKeepsTheOriginal();
    void ARunningImportIsNotDisturbed();
};

void TstJetImportFaults::AFailingStepLeavesTheFolderUnchanged_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("isFatal");
    QTest::newRow("removing leftovers of an earlier attempt") << 1 << true;
    QTest::newRow("making the new file") << 2 << true;
    QTest::newRow("syncing the new file") << 3 << true;
    QTest::newRow("linking the original, then it is copied") << 4 << false;
    QTest::newRow("syncing the folder") << 5 << true;
    QTest::newRow("renaming") << 6 << true;
    QTest::newRow("syncing the folder once more, then it is done") << 7 << false;
    QTest::newRow("there is no eighth step") << 8 << false;
}

void TstJetImportFaults::AFailingStepLeavesTheFolderUnchanged() {
    QFETCH(int, step);
    QFETCH(bool, isFatal);
    const JetFolder folder(FullJet4());
    const Contents before = folder.All();
    int failures = 0;
    TroubledDisk disk(step, [&] {
        ++failures;
        return EIO;
    });
    const QString error = ImportError(folder.DayDate(), disk);
    QCOMPARE(failures, step == 8 ? 0 : 1);
    if (isFatal) {
        QCOMPARE(error, QString(folder.DayDate() + u"\r\n" + qt_error_string(EIO)));
        QCOMPARE(folder.All(), before);
    } else {
        QCOMPARE(error, QString());
        QCOMPARE(folder.All().keys(), QStringList({u"DayDate.jet.mdb"_s, u"DayDate.mdb"_s}));
        QCOMPARE(ReadAll(folder.Path(u"DayDate.jet.mdb"_s)), FullJet4());
        QVERIFY(IsWholeDatabase(folder.DayDate()));
    }
}

void TstJetImportFaults::AfterACrashTheNextStartImports_data() {
    QTest::addColumn<int>("step");
    for (int step = 1; step <= 7; ++step) {
        QTest::addRow("at step %d", step) << step;
    }
}

void TstJetImportFaults::AfterACrashTheNextStartImports() {
    QFETCH(int, step);
    constexpr int kCrashed = 86;
    const JetFolder folder(FullJet4());
    const int code = InChild([&] {
        TroubledDisk disk(step, [] {
            _exit(kCrashed);
            return 0;
        });
        return ImportError(folder.DayDate(), disk).isEmpty() ? 0 : 1;
    });
    QCOMPARE(code, kCrashed);
    if (step < 7) {
        QCOMPARE(ReadAll(folder.DayDate()), FullJet4());
        QCOMPARE(ImportJetFile(folder.DayDate())->keptAs, u"DayDate.jet.mdb"_s);
    }
    QCOMPARE(folder.All().keys(), QStringList({u"DayDate.jet.mdb"_s, u"DayDate.mdb"_s}));
    QCOMPARE(ReadAll(folder.Path(u"DayDate.jet.mdb"_s)), FullJet4());
    QVERIFY(IsWholeDatabase(folder.DayDate()));
}

void TstJetImportFaults::WithoutLinksTheOriginalIsCopied() {
    const JetFolder folder(FullJet4());
    const Contents before = folder.All();
    DiskWithoutLinks full(false);
    QCOMPARE(ImportError(folder.DayDate(), full),
             QString(folder.DayDate() + u"\r\n" + qt_error_string(ENOSPC)));
    QCOMPARE(folder.All(), before);

    DiskWithoutLinks roomy(true);
    QCOMPARE(ImportJetFile(folder.DayDate(), roomy)->keptAs, u"DayDate.jet.mdb"_s);
    QCOMPARE(ReadAll(folder.Path(u"DayDate.jet.mdb"_s)), FullJet4());
    QVERIFY(IsWholeDatabase(folder.DayDate()));
}

// A file from a CD. Users other than its owner cannot even create a hard link to it.
void TstJetImportFaults::AReadOnlyOriginalBecomesAWritableDatabase() {
    const JetFolder folder(FullJet4());
    QVERIFY(QFile::setPermissions(folder.DayDate(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    folder.SetMode(0777);
    QCOMPARE(InChild([&] { return BecomeNobody() && ImportError(folder.DayDate()).isEmpty() ? 0 : 1; }), 0);
    QVERIFY((QFile::permissions(folder.DayDate()) & QFile::WriteOwner) != 0);
    QCOMPARE(ReadAll(folder.Path(u"DayDate.jet.mdb"_s)), FullJet4());
    QVERIFY(IsWholeDatabase(folder.DayDate()));
}

void TstJetImportFaults::AReadOnlyFolderKeepsTheOriginal() {
    const JetFolder folder(FullJet4());
    const Contents before = folder.All();
    folder.SetMode(0555);
    const auto tidy = qScopeGuard([&] { folder.SetMode(0755); });
    const QString expected = folder.DayDate() + u"\r\n" + qt_error_string(EACCES);
    QCOMPARE(InChild([&] { return BecomeNobody() && ImportError(folder.DayDate()) == expected ? 0 : 1; }), 0);
    QCOMPARE(folder.All(), before);
}

void TstJetImportFaults::AFullDiskKeepsTheOriginal() {
    const JetFolder folder(JetSample(u"jet4_20000.mdb"_s));
    const Contents before = folder.All();
    for (const rlim_t room : {0U, 1000U, 4096U, 40960U, 400000U}) {
        const int code = InChild([&] {
            const rlimit limit{room, room};
            if (signal(SIGXFSZ, SIG_IGN) == SIG_ERR || setrlimit(RLIMIT_FSIZE, &limit) != 0) {
                return 2;
            }
            return ImportError(folder.DayDate()).startsWith(folder.DayDate() + u"\r\nデータベースエラー") ? 0
                                                                                                          : 1;
        });
        QCOMPARE(code, 0);
        QCOMPARE(folder.All(), before);
    }
}

void TstJetImportFaults::ARunningImportIsNotDisturbed() {
    const JetFolder folder(FullJet4());
    folder.Put(u"DayDate.mdb.import"_s, "half done");
    const Contents before = folder.All();
    const int file = open(QFile::encodeName(folder.DayDate()).constData(), O_RDONLY | O_CLOEXEC);
    QVERIFY(file >= 0);
    const auto closed = qScopeGuard([&] { close(file); });
    QCOMPARE(flock(file, LOCK_EX), 0);
    QCOMPARE(ImportError(folder.DayDate()),
             QString(folder.DayDate() + u"\r\nほかのプログラムがデータベースを変換しています。"));
    QCOMPARE(folder.All(), before);
    QCOMPARE(flock(file, LOCK_UN), 0);
    QCOMPARE(ImportError(folder.DayDate()), QString());
    QCOMPARE(folder.All().keys(), QStringList({u"DayDate.jet.mdb"_s, u"DayDate.mdb"_s}));
}

QTEST_GUILESS_MAIN(TstJetImportFaults)
#include "tst_jet_import_faults.moc"
