// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/files/file_lock.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tickwell::platform::FileLock::Outcome)

namespace {

/// The outcome when another process tries to take the lock.
FileLock::Outcome TakenElsewhere(const QString& path) {
    return static_cast<FileLock::Outcome>(InChild([&] { return static_cast<int>(FileLock(path).Take()); }));
}

}  // namespace

/// Only one process holds the lock, and it is free again however that process ends.
class TstFileLock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void OneHoldsItAtATime();
    void ItMayBeTakenTwiceByItsHolder();
    void ItsFileIsRemovedWithItsHolder();
    void OnlyTheHolderRemovesTheFile();
    void AKilledHolderLeavesItFree();
    void AnExistingFileDoesNotHoldTheLock();
    void WithoutItsFileTheLockIsImpossible_data();
    void WithoutItsFileTheLockIsImpossible();

private:
    QString Path() const { return m_folder->filePath(u"lock"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TstFileLock::OneHoldsItAtATime() {
    {
        FileLock lock(Path());
        QCOMPARE(lock.Take(), FileLock::Outcome::Taken);
        QCOMPARE(TakenElsewhere(Path()), FileLock::Outcome::HeldElsewhere);
    }
    QCOMPARE(TakenElsewhere(Path()), FileLock::Outcome::Taken);
}

void TstFileLock::ItMayBeTakenTwiceByItsHolder() {
    FileLock lock(Path());
    QCOMPARE(lock.Take(), FileLock::Outcome::Taken);
    QCOMPARE(lock.Take(), FileLock::Outcome::Taken);
}

void TstFileLock::ItsFileIsRemovedWithItsHolder() {
    {
        FileLock lock(Path());
        QCOMPARE(lock.Take(), FileLock::Outcome::Taken);
        QVERIFY(QFile::exists(Path()));
    }
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void TstFileLock::OnlyTheHolderRemovesTheFile() {
    FileLock lock(Path());
    QCOMPARE(lock.Take(), FileLock::Outcome::Taken);
    QCOMPARE(TakenElsewhere(Path()), FileLock::Outcome::HeldElsewhere);
    QVERIFY(QFile::exists(Path()));
    QCOMPARE(TakenElsewhere(Path()), FileLock::Outcome::HeldElsewhere);
}

void TstFileLock::AKilledHolderLeavesItFree() {
    QCOMPARE(InChild([&] {
                 auto* lock = new FileLock(Path());  // never destroyed, as in a killed process
                 return static_cast<int>(lock->Take());
             }),
             static_cast<int>(FileLock::Outcome::Taken));
    QVERIFY(QFile::exists(Path()));
    FileLock next(Path());
    QCOMPARE(next.Take(), FileLock::Outcome::Taken);
}

void TstFileLock::AnExistingFileDoesNotHoldTheLock() {
    WriteAll(Path(), "12345\nother\n");
    FileLock lock(Path());
    QCOMPARE(lock.Take(), FileLock::Outcome::Taken);
}

void TstFileLock::WithoutItsFileTheLockIsImpossible_data() {
    QTest::addColumn<QString>("path");
    QTest::newRow("no such folder") << u"/proc/no-such-folder/lock"_s;
    QTest::newRow("a folder that takes no files") << u"/proc/lock"_s;
    QTest::newRow("a folder in its place") << u"/proc"_s;
}

void TstFileLock::WithoutItsFileTheLockIsImpossible() {
    QFETCH(QString, path);
    FileLock lock(path);
    QCOMPARE(lock.Take(), FileLock::Outcome::Impossible);
}

QTEST_GUILESS_MAIN(TstFileLock)
#include "tst_file_lock.moc"
