// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QMap>
#include <QTest>

#include "store/day_database.h"
#include "store/day_recovery.h"
#include "store/loose_store.h"
#include "store/neighbour.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

/// The state of one of the files.
enum class Kind { None, Sound, Cut, Empty };

const QString kLive = u"DayDate.mdb"_s;
const QString kCopy = u"CopyDate.mdb"_s;
const QString kTarget = u"BUDate.mdb"_s;
const QByteArray kJournalMark = "\xd9\xd5\x05\xf9";

/// An undamaged database with a row that contains `name`, which shows where its bytes end up.
QByteArray SoundBytes(const QString& name) {
    const DayStore store;
    Fill(store, 500);
    store.Raw("UPDATE Kinenbi SET \"Name\" = '" + name.toUtf8() + "'");
    return BytesOf(store.Path());
}

QByteArray BytesFor(const QString& name, Kind kind) {
    const QByteArray sound = SoundBytes(name);
    return kind == Kind::Sound ? sound : kind == Kind::Cut ? sound.chopped(5000) : QByteArray();
}

}  // namespace

/// How the program's start handles files that a compaction left behind.
class TstDayRecovery : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void PutsTheBestSoundFileInPlace_data();
    void PutsTheBestSoundFileInPlace();
    void ADeadLinkIsLeftAlone();
    void RemovesJournalsToo();
    void AStaleJournalDoesNotGetIntoTheCopy();
    void ACopyWithAJournalIsNotSound();
    void LeavesFilesOfARunningCompactionAlone();
    void DoesNothingIfNothingIsLeft();
    void NamesTheCopies();

private:
    QMap<QString, QByteArray> Contents() const;

    std::unique_ptr<LooseStore> m_store;  // its folder is the current one, initially without a database
};

void TstDayRecovery::init() {
    m_store = std::make_unique<LooseStore>(1);
    QVERIFY(QFile::remove(kLive));
}

/// The files in the folder except the lock file.
QMap<QString, QByteArray> TstDayRecovery::Contents() const {
    QMap<QString, QByteArray> contents;
    for (const QString& name : m_store->Names()) {
        if (name != "DayDate.lock"_L1) {
            contents.insert(name, BytesOf(name));
        }
    }
    return contents;
}

void TstDayRecovery::PutsTheBestSoundFileInPlace_data() {
    QTest::addColumn<QList<int>>("kinds");
    QTest::addColumn<QString>("winner");  // empty: nothing changes
    const auto row = [](const char* name, Kind live, Kind copy, Kind target, const QString& winner) {
        QTest::newRow(name) << QList<int>{static_cast<int>(live), static_cast<int>(copy),
                                          static_cast<int>(target)}
                            << winner;
    };
    row("sound live file alone", Kind::Sound, Kind::None, Kind::None, kLive);
    row("sound live file, sound copy", Kind::Sound, Kind::Sound, Kind::None, kLive);
    row("sound live file, cut copy", Kind::Sound, Kind::Cut, Kind::None, kLive);
    row("sound live file, all sound", Kind::Sound, Kind::Sound, Kind::Sound, kLive);
    row("sound live file, empty target", Kind::Sound, Kind::Sound, Kind::Empty, kLive);
    row("sound live file, target alone", Kind::Sound, Kind::None, Kind::Sound, kLive);
    row("missing live file, sound copy", Kind::None, Kind::Sound, Kind::None, kCopy);
    row("missing live file, sound copy and target", Kind::None, Kind::Sound, Kind::Sound, kCopy);
    row("missing live file, sound copy, cut target", Kind::None, Kind::Sound, Kind::Cut, kCopy);
    row("missing live file, cut copy, sound target", Kind::None, Kind::Cut, Kind::Sound, kTarget);
    row("missing live file, empty copy, sound target", Kind::None, Kind::Empty, Kind::Sound, kTarget);
    row("missing live file, sound target", Kind::None, Kind::None, Kind::Sound, kTarget);
    row("missing live file, nothing sound", Kind::None, Kind::Cut, Kind::Empty, QString());
    row("missing live file, nothing", Kind::None, Kind::None, Kind::None, QString());
    row("cut live file, sound copy", Kind::Cut, Kind::Sound, Kind::None, QString());
    row("cut live file, sound target", Kind::Cut, Kind::None, Kind::Sound, QString());
    row("empty live file, all others sound", Kind::Empty, Kind::Sound, Kind::Sound, QString());
}

void TstDayRecovery::PutsTheBestSoundFileInPlace() {
    QFETCH(QList<int>, kinds);
    QFETCH(QString, winner);
    const QStringList names{kLive, kCopy, kTarget};
    for (qsizetype i = 0; i < names.size(); ++i) {
        const auto kind = static_cast<Kind>(kinds[i]);
        if (kind != Kind::None) {
            SetBytes(names[i], BytesFor(names[i], kind));
        }
    }
    const auto before = Contents();
    RecoverDayDatabase(Here());
    if (winner.isEmpty()) {
        QCOMPARE(Contents(), before);
        QVERIFY(!OpeningFault(kLive).isEmpty());
        return;
    }
    QCOMPARE(Contents(), (QMap<QString, QByteArray>{{kLive, before[winner]}}));
    QCOMPARE(OpeningFault(kLive), QString());
    QCOMPARE(m_store->Raw("SELECT DISTINCT \"Name\" FROM Kinenbi"), QStringList(winner));
}

void TstDayRecovery::ADeadLinkIsLeftAlone() {
    QVERIFY(QFile::link(u"/no/such/file"_s, kLive));
    SetBytes(kCopy, SoundBytes(kCopy));
    RecoverDayDatabase(Here());
    QVERIFY(QFile::symLinkTarget(kLive) == "/no/such/file"_L1);
    QVERIFY(QFile::exists(kCopy));
}

void TstDayRecovery::RemovesJournalsToo() {
    for (const QString& name : {u"BUDate.mdb-journal"_s, u"BUDate.mdb-wal"_s, u"BUDate.mdb-shm"_s,
                                u"CopyDate.mdb-journal"_s, u"CopyDate.mdb-wal"_s, u"CopyDate.mdb-shm"_s}) {
        SetBytes(kLive, SoundBytes(kLive));
        SetBytes(name, "x");
        RecoverDayDatabase(Here());
        QCOMPARE(m_store->Names(), NamesAtRest());
    }
}

void TstDayRecovery::AStaleJournalDoesNotGetIntoTheCopy() {
    SetBytes(kLive, SoundBytes(u"stale"_s));
    QByteArray journal;
    {
        RawConnection stranger(kLive);
        stranger.Run("PRAGMA cache_size = 1; BEGIN; UPDATE Kinenbi SET Name = 'lost'");
        journal = BytesOf(u"DayDate.mdb-journal"_s);
    }
    QVERIFY(QFile::remove(kLive));
    QVERIFY(journal.startsWith(kJournalMark));  // a journal that SQLite would roll back
    SetBytes(u"DayDate.mdb-journal"_s, journal);
    const QByteArray sound = SoundBytes(kCopy);
    SetBytes(kCopy, sound);
    RecoverDayDatabase(Here());
    QCOMPARE(Contents(), (QMap<QString, QByteArray>{{kLive, sound}}));
}

void TstDayRecovery::ACopyWithAJournalIsNotSound() {
    SetBytes(kLive, SoundBytes(kCopy));
    {
        RawConnection stranger(kLive);
        stranger.Run("PRAGMA cache_size = 1; BEGIN; UPDATE Kinenbi SET \"Name\" = 'half done'");
        const QByteArray halfDone = BytesOf(kLive);
        const QByteArray journal = BytesOf(u"DayDate.mdb-journal"_s);
        SetBytes(kCopy, halfDone);
        SetBytes(u"CopyDate.mdb-journal"_s, journal);
    }
    QVERIFY(QFile::remove(kLive));
    const auto before = Contents();
    RecoverDayDatabase(Here());
    QCOMPARE(Contents(), before);
    SetBytes(kTarget, SoundBytes(kTarget));
    RecoverDayDatabase(Here());
    QCOMPARE(m_store->Raw("SELECT DISTINCT \"Name\" FROM Kinenbi"), QStringList(kTarget));
}

// A compacting program holds the exclusive lock, any other a shared one.
void TstDayRecovery::LeavesFilesOfARunningCompactionAlone() {
    SetBytes(kLive, SoundBytes(kLive));
    std::unique_ptr<SqliteConnection> other;
    Neighbour neighbour(
        [&] {
            other = std::make_unique<SqliteConnection>(kLive);
            other->TakeExclusive();
        },
        [&] { other.reset(); });
    SetBytes(kCopy, SoundBytes(kCopy));
    neighbour.DoFirst();
    RecoverDayDatabase(Here());
    QVERIFY(QFile::exists(kCopy));
    QVERIFY(QFile::rename(kLive, u"away"_s));
    RecoverDayDatabase(Here());
    QVERIFY(QFile::exists(kCopy));
    QVERIFY(!QFile::exists(kLive));
    neighbour.DoSecond();
    RecoverDayDatabase(Here());
    QCOMPARE(m_store->Raw("SELECT DISTINCT \"Name\" FROM Kinenbi"), QStringList(kCopy));
}

void TstDayRecovery::DoesNothingIfNothingIsLeft() {
    SetBytes(kLive, "this is no database");
    RecoverDayDatabase(Here());
    QCOMPARE(Contents(), (QMap<QString, QByteArray>{{kLive, "this is no database"}}));
}

void TstDayRecovery::NamesTheCopies() {
    QCOMPARE(WithNamedCopies(Here(), u"DayDate.mdb"_s), u"DayDate.mdb"_s);
    SetBytes(kTarget, "x");
    QCOMPARE(WithNamedCopies(Here(), u"DayDate.mdb"_s),
             u"DayDate.mdb\r\nデータベースの控えが残っています：BUDate.mdb"_s);
    SetBytes(kCopy, "x");
    QCOMPARE(WithNamedCopies(Here(), u"DayDate.mdb"_s),
             u"DayDate.mdb\r\nデータベースの控えが残っています：CopyDate.mdb、BUDate.mdb"_s);
}

QTEST_GUILESS_MAIN(TstDayRecovery)
#include "tst_day_recovery.moc"
