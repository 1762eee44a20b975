// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFileInfo>
#include <QTest>

#include "store/compaction_case.h"
#include "store/compaction_report.h"
#include "store/day_files.h"
#include "store/day_recovery.h"
#include "store/jet_folder.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

/// A day database in its own folder, such as that of a sync program, and a link to it in the program's
/// folder, which is the current one.
struct LinkedCase {
    CompactionCase bench{false};
    QTemporaryDir folder;
    QString real;

    explicit LinkedCase(const QString& name = u"DayDate.mdb"_s) : real(folder.filePath(name)) {
        if (!QFile::rename(bench.store.Path(), real) || !QFile::link(real, bench.store.Path())) {
            qFatal("cannot link %s", qPrintable(real));
        }
    }

    QStringList Names() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    bool IsLink() const { return QFileInfo(bench.store.Path()).symLinkTarget() == real; }
};

}  // namespace

/// A day database that is a symbolic link to a file elsewhere.
class TstDayLinks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheTargetOfTheLinkIsCompacted();
    void FilesBesideATargetOfAnotherNameAreLeftAlone();
    void LinksAreFollowedToTheEnd();
    void ACircularLinkIsAnError();
    void TheNextStartTidiesUpBesideTheTarget();
    void AProgramWithTheTargetOpenPreventsCompaction();
    void AJetFileThatTheLinkNamesIsImported();
};

void TstDayLinks::TheTargetOfTheLinkIsCompacted() {
    LinkedCase linked;
    const QStringList rows = linked.bench.store.Rows();
    const qint64 before = QFileInfo(linked.real).size();
    linked.bench.handle = DayDatabase(u"DayDate.mdb"_s);
    QCOMPARE(linked.bench.Fault(), QString());
    const qint64 after = QFileInfo(linked.real).size();
    QVERIFY(after < before / 2);
    QCOMPARE(linked.bench.boxes.Shown(),
             QList<Message>{CompactionDone(static_cast<qint32>(before), static_cast<qint32>(after))});
    QVERIFY(linked.IsLink());
    QCOMPARE(linked.bench.store.Names(), QStringList{u"DayDate.mdb"_s});
    QCOMPARE(linked.Names(), NamesAtRest());
    QCOMPARE(linked.bench.store.Rows(), rows);
}

void TstDayLinks::FilesBesideATargetOfAnotherNameAreLeftAlone() {
    LinkedCase linked(u"CopyDate.mdb"_s);
    const QStringList rows = linked.bench.store.Rows();
    SetBytes(linked.folder.filePath(u"BUDate.mdb"_s), "of another one");
    QCOMPARE(linked.bench.Fault(), QString());
    QCOMPARE(linked.bench.boxes.Shown().constLast().icon, MessageIcon::Information);
    QVERIFY(linked.IsLink());
    QCOMPARE(linked.Names(), QStringList({u"BUDate.mdb"_s, u"CopyDate.lock"_s, u"CopyDate.mdb"_s}));
    QCOMPARE(BytesOf(linked.folder.filePath(u"BUDate.mdb"_s)), "of another one"_ba);
    QCOMPARE(linked.bench.store.Rows(), rows);
}

void TstDayLinks::LinksAreFollowedToTheEnd() {
    LinkedCase linked;
    QVERIFY(QFile::remove(u"DayDate.mdb"_s));
    QVERIFY(QFile::link(linked.real, u"second"_s));
    QVERIFY(QFile::link(u"second"_s, u"DayDate.mdb"_s));
    QCOMPARE(FollowLinks(u"DayDate.mdb"_s), linked.real);
    QCOMPARE(linked.bench.Fault(), QString());
    QVERIFY(QFileInfo(u"DayDate.mdb"_s).isSymLink() && QFileInfo(u"second"_s).isSymLink());
    QCOMPARE(linked.Names(), NamesAtRest());
    QVERIFY(QFile::remove(linked.real));
    QCOMPARE(FollowLinks(u"DayDate.mdb"_s), linked.real);
    QCOMPARE(FollowLinks(u"elsewhere/DayDate.mdb"_s), u"elsewhere/DayDate.mdb"_s);
}

void TstDayLinks::ACircularLinkIsAnError() {
    LinkedCase linked;
    QVERIFY(QFile::remove(linked.real));
    QVERIFY(QFile::link(linked.bench.store.Path(), linked.real));
    QVERIFY(!OpeningFault(u"DayDate.mdb"_s).isEmpty());
    RecoverDayDatabase(Here());
    QVERIFY(linked.IsLink());
}

void TstDayLinks::TheNextStartTidiesUpBesideTheTarget() {
    LinkedCase linked;
    const QStringList rows = linked.bench.store.Rows();
    for (const QString& name : {u"CopyDate.mdb"_s, u"BUDate.mdb"_s}) {
        SetBytes(linked.folder.filePath(name), BytesOf(linked.real));
    }
    QVERIFY(QFile::rename(linked.real, linked.folder.filePath(u"away"_s)));
    RecoverDayDatabase(Here());  // a file that was moved away may return, with newer rows than the copies
    QCOMPARE(linked.Names(), QStringList({u"BUDate.mdb"_s, u"CopyDate.mdb"_s, u"away"_s}));
    QVERIFY(QFile::rename(linked.folder.filePath(u"away"_s), linked.real));
    RecoverDayDatabase(Here());
    QCOMPARE(linked.Names(), NamesAtRest());
    QVERIFY(linked.IsLink());
    QCOMPARE(linked.bench.store.Rows(), rows);
}

void TstDayLinks::AProgramWithTheTargetOpenPreventsCompaction() {
    LinkedCase linked;
    const SharedFileLock other(linked.real);
    QCOMPARE(linked.bench.Fault(), QString());
    QCOMPARE(linked.bench.boxes.Shown(), QList<Message>{CompactionFailed()});
}

void TstDayLinks::AJetFileThatTheLinkNamesIsImported() {
    LinkedCase linked;
    SetBytes(linked.real, FullJet4());
    const auto summary = ImportJetFile(u"DayDate.mdb"_s);
    QVERIFY(summary.has_value());
    QCOMPARE(summary->keptAs, linked.folder.filePath(u"DayDate.jet.mdb"_s));
    QVERIFY(linked.IsLink());
    QVERIFY(IsWholeDatabase(linked.real));
    QCOMPARE(BytesOf(summary->keptAs), FullJet4());
}

QTEST_GUILESS_MAIN(TstDayLinks)
#include "tst_day_links.moc"
