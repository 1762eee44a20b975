// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "platform/files/file_replacement.h"
#include "platform/files/inotify_folder_watch.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// Changes of a real folder.
class TstInotifyFolderWatch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void AFileThatIsWrittenIsReported();
    void AFileThatIsRewrittenInPlaceIsReported();
    void AFileThatIsReplacedIsReported();
    void AFileThatIsRemovedIsReported();
    void AnotherFolderReplacesTheFirst();
    void AFolderThatDoesNotExistIsNotWatched();
    void AFolderThatDisappearsIsNoLongerWatched();
    void TheListenerMayWatchAnotherFolder();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    int m_changes = 0;
};

void TstInotifyFolderWatch::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_changes = 0;
}

void TstInotifyFolderWatch::AFileThatIsWrittenIsReported() {
    InotifyFolderWatch watch;
    QVERIFY(!watch.IsWatching());
    QVERIFY(watch.Watch(m_folder->path(), [this] { ++m_changes; }));
    QVERIFY(watch.IsWatching());
    QCOMPARE(m_changes, 0);
    WriteAll(m_folder->filePath(u"a"_s), "a");
    QTRY_VERIFY(m_changes > 0);
}

void TstInotifyFolderWatch::AFileThatIsRewrittenInPlaceIsReported() {
    WriteAll(m_folder->filePath(u"a"_s), "a");
    InotifyFolderWatch watch;
    QVERIFY(watch.Watch(m_folder->path(), [this] { ++m_changes; }));
    QFile file(m_folder->filePath(u"a"_s));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.write("b"), 1);
    file.close();
    QTRY_VERIFY(m_changes > 0);
}

void TstInotifyFolderWatch::AFileThatIsReplacedIsReported() {
    InotifyFolderWatch watch;
    QVERIFY(watch.Watch(m_folder->path(), [this] { ++m_changes; }));
    QVERIFY(ReplaceFile(m_folder->filePath(u"a"_s), "a").isEmpty());
    QTRY_VERIFY(m_changes > 0);
}

void TstInotifyFolderWatch::AFileThatIsRemovedIsReported() {
    WriteAll(m_folder->filePath(u"a"_s), "a");
    InotifyFolderWatch watch;
    QVERIFY(watch.Watch(m_folder->path(), [this] { ++m_changes; }));
    QVERIFY(QFile::remove(m_folder->filePath(u"a"_s)));
    QTRY_VERIFY(m_changes > 0);
}

void TstInotifyFolderWatch::AnotherFolderReplacesTheFirst() {
    const QTemporaryDir other;
    int others = 0;
    InotifyFolderWatch watch;
    QVERIFY(watch.Watch(m_folder->path(), [this] { ++m_changes; }));
    QVERIFY(watch.Watch(other.path(), [&others] { ++others; }));
    WriteAll(m_folder->filePath(u"a"_s), "a");
    WriteAll(other.filePath(u"a"_s), "a");
    QTRY_VERIFY(others > 0);
    QCOMPARE(m_changes, 0);
}

void TstInotifyFolderWatch::AFolderThatDoesNotExistIsNotWatched() {
    InotifyFolderWatch watch;
    QVERIFY(!watch.Watch(u"/nonexistent/folder"_s, [] {}));
    QVERIFY(!watch.IsWatching());
    WriteAll(m_folder->filePath(u"file"_s), "a");
    QVERIFY(!watch.Watch(m_folder->filePath(u"file"_s), [] {}));
}

void TstInotifyFolderWatch::AFolderThatDisappearsIsNoLongerWatched() {
    InotifyFolderWatch watch;
    QVERIFY(watch.Watch(m_folder->path(), [this] { ++m_changes; }));
    QVERIFY(m_folder->remove());
    QTRY_VERIFY(!watch.IsWatching());
    QVERIFY(m_changes > 0);
}

void TstInotifyFolderWatch::TheListenerMayWatchAnotherFolder() {
    const QTemporaryDir other;
    int others = 0;
    InotifyFolderWatch watch;
    QVERIFY(watch.Watch(m_folder->path(), [&] { watch.Watch(other.path(), [&others] { ++others; }); }));
    WriteAll(m_folder->filePath(u"a"_s), "a");
    QTRY_VERIFY([&] {
        WriteAll(other.filePath(u"a"_s), "a");
        QCoreApplication::processEvents();
        return others > 0;
    }());
}

QTEST_GUILESS_MAIN(TstInotifyFolderWatch)
#include "tst_inotify_folder_watch.moc"
