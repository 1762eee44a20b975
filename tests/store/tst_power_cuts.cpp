// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTest>

#include "core/errors.h"
#include "store/day_database.h"
#include "store/day_transaction.h"
#include "store/power_cut.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

constexpr int kRandomChoices = 4;

QStringList RowsOf(const QString& path) {
    return RawConnection(path).Run(
        "SELECT 'Kinenbi', * FROM Kinenbi UNION ALL SELECT 'Holiday', id, \"Date\", '', '', '', '' FROM "
        "Holiday");
}

/// The changes that the program stores: each is one statement, or one transaction of several.
QList<QStringList> Changes() {
    const QString longName(5000, u'長');  // more than a page
    return {{u"INSERT INTO Kinenbi VALUES (\"一つ目\",0,10,3,0)"_s},
            {u"INSERT INTO Holiday VALUES (#10/3/1998#)"_s},
            {u"INSERT INTO Kinenbi VALUES (\"%1\",1998,10,4,0)"_s.arg(longName)},
            {u"UPDATE Kinenbi SET Month=11 WHERE Year=0"_s},
            {u"INSERT INTO Holiday VALUES (#10/4/1998#)"_s, u"DELETE * FROM Holiday WHERE Date=#10/3/1998#"_s,
             u"INSERT INTO Holiday VALUES (#10/5/1998#)"_s},
            {u"DELETE * FROM Kinenbi WHERE Year=1998"_s},
            {u"INSERT INTO Kinenbi VALUES (\"最後\",0,10,5,0)"_s}};
}

void Store(DayDatabase& database, const QStringList& statements) {
    if (statements.size() == 1) {
        database.Execute(statements.constFirst());
        return;
    }
    DayTransaction transaction(database);
    for (const QString& sql : statements) {
        database.Execute(sql);
    }
    transaction.Commit();
}

/// The disk operations of the program, and the rows that are stored at each mark.
struct Record {
    DiskState before;
    std::vector<DiskStep> steps;
    QList<QStringList> rows;
};

Record Recorded() {
    const DayStore store;
    Fill(store, 60);
    Record record;
    record.before.insert(QFileInfo(store.Path()).canonicalFilePath(), BytesOf(store.Path()));
    RecordedDisk disk;
    {
        DayDatabase database(store.Path());
        record.rows.append(RowsOf(store.Path()));
        for (const QStringList& statements : Changes()) {
            Store(database, statements);
            record.rows.append(RowsOf(store.Path()));
            disk.Mark(static_cast<int>(record.rows.size()) - 1);
        }
    }
    record.steps = disk.Steps();
    return record;
}

QByteArray Fingerprint(const DiskState& state, int mark) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (auto file = state.begin(); file != state.end(); ++file) {
        hash.addData(QByteArray(file.key().toUtf8() + QByteArray::number(file->size())));
        hash.addData(*file);
    }
    return hash.result() + QByteArray::number(mark);
}

/// The rows after the program's next start.
QStringList RowsAfterRestart(const DiskState& state) {
    // In memory if possible, because thousands of restarts sync their files.
    const QString memory = u"/dev/shm"_s;
    const QTemporaryDir folder((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                               u"/tickwell-XXXXXX");
    QString path;
    for (auto file = state.begin(); file != state.end(); ++file) {
        const QString name = QFileInfo(file.key()).fileName();
        SetBytes(folder.filePath(name), *file);
        path = name.endsWith(u".mdb") ? folder.filePath(name) : path;
    }
    const QString fault = OpeningFault(path);
    return fault.isEmpty() ? RowsOf(path) : QStringList(fault);
}

}  // namespace

/// After a power failure all reported changes are stored; any other one is stored completely or not at all.
class TstPowerCuts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ReportedChangesSurvive_data();
    void ReportedChangesSurvive();
    void TheModelLosesUnsyncedChanges();
};

void TstPowerCuts::ReportedChangesSurvive_data() {
    QTest::addColumn<DiskOrder>("order");
    QTest::newRow("on a disk that keeps the order") << DiskOrder::Kept;
    QTest::newRow("on one that does not") << DiskOrder::Loose;
}

void TstPowerCuts::ReportedChangesSurvive() {
    QFETCH(DiskOrder, order);
    const Record record = Recorded();
    QSet<QByteArray> seen;
    int lost = 0;
    int broken = 0;
    const auto see = [&](const DiskState& state, int mark) {
        const QByteArray print = Fingerprint(state, mark);
        if (seen.contains(print)) {
            return;
        }
        seen.insert(print);
        const QStringList rows = RowsAfterRestart(state);
        const bool isNext = mark + 1 < record.rows.size() && rows == record.rows[mark + 1];
        if (rows != record.rows[mark] && !isNext) {
            ++(record.rows.contains(rows) ? lost : broken);
        }
    };
    ForEachPowerCut(record.before, record.steps, order, kRandomChoices, see);
    qInfo("%d states, %d steps", static_cast<int>(seen.size()), static_cast<int>(record.steps.size()));
    QVERIFY(seen.size() > 100);
    QCOMPARE(broken, 0);
    QCOMPARE(lost, 0);
}

// The control experiment: if the syncs are removed from the record, rows are lost and files are damaged.
void TstPowerCuts::TheModelLosesUnsyncedChanges() {
    Record record = Recorded();
    std::erase_if(record.steps, [](const DiskStep& step) { return step.kind == DiskStep::Kind::Sync; });
    for (DiskStep& step : record.steps) {
        step.isFolder = false;
    }
    bool isLost = false;
    bool isBroken = false;
    int left = 200;
    ForEachPowerCut(record.before, record.steps, DiskOrder::Loose, 0, [&](const DiskState& state, int mark) {
        if (mark > 0 && left-- > 0) {
            const QStringList rows = RowsAfterRestart(state);
            isLost = isLost || (record.rows.contains(rows) && record.rows.indexOf(rows) < mark);
            isBroken = isBroken || !record.rows.contains(rows);
        }
    });
    QVERIFY(isLost);
    QVERIFY(isBroken);
}

QTEST_GUILESS_MAIN(TstPowerCuts)
#include "tst_power_cuts.moc"
