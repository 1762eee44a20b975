// SPDX-License-Identifier: GPL-3.0-or-later
#include <QElapsedTimer>
#include <QTest>

#include "store/killed_life.h"
#include "support/files.h"
#include "support/random_count.h"
#include "sync/day_file.h"
#include "sync/sync_place.h"

using namespace tickwell;
using namespace tickwell::sync;
using namespace Qt::StringLiterals;

namespace {

/// As the program opens it at its start: after a kill SQLite completes or undoes the transaction.
BookRows InTheBook(const SyncComputer& computer) {
    store::DayDatabase database(computer.Where().book);
    return ReadBookRows(database).rows;
}

/// What the state says that is in the book.
BookRows Remembered(const SyncComputer& computer) {
    QStringList damaged;
    const auto state = OpenState(computer.Where().state, damaged);
    return damaged.isEmpty() ? RowsOf(ReadState(*state).state) : BookRows();
}

}  // namespace

/// A program that is killed while it merges.
class TstKilledRound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AfterAKillBookAndStateAgree();
};

/// The other computer deletes some rows and adds others; this one is killed again and again while it merges
/// that. Whenever the book has changed, the state has too: nothing that was merged looks like a change of the
/// user, who does nothing here.
void TstKilledRound::AfterAKillBookAndStateAgree() {
    const QTemporaryDir folder;
    SyncComputer study(folder.path(), u"study"_s);
    SyncComputer laptop(folder.path(), u"laptop"_s);
    study.Merge();
    laptop.Merge();
    study.Add("first");
    study.Merge();
    // A life ends before, in or after its merge, about as often, on a slow machine too.
    QElapsedTimer timer;
    timer.start();
    laptop.Merge();
    const int longest = static_cast<int>(timer.nsecsElapsed() / 1000 * 3);
    int stored = 0;
    int unchanged = 0;
    const int lives = RandomCount(30);
    for (int life = 0; life < lives; ++life) {
        const QByteArray number = QByteArray::number(life);
        for (int i = 0; i < 20; ++i) {
            study.Add("come " + number + ' ' + QByteArray::number(i));
        }
        study.Raw(
            R"(DELETE FROM "Kinenbi" WHERE "id" IN (SELECT "id" FROM "Kinenbi" ORDER BY random() LIMIT 15))");
        study.Merge();
        const BookRows before = InTheBook(laptop);
        store::LastOf(longest, [&laptop](int) { laptop.Merge(); });
        const BookRows after = InTheBook(laptop);
        QCOMPARE(Remembered(laptop), after);
        ++(after == before ? unchanged : stored);
        const ReadDayFileResult file = ReadDayFile(ReadAll(laptop.OwnFile()));
        QCOMPARE(file.fault, DayFileFault::None);
        if (life % 3 == 0) {
            laptop.Merge();
            QCOMPARE(laptop.AllRows(), study.AllRows());
        }
    }
    qInfo("%d of %d lives had stored the merge", stored, lives);
    QVERIFY(stored > 0 && unchanged > 0);
}

QTEST_GUILESS_MAIN(TstKilledRound)
#include "tst_killed_round.moc"
