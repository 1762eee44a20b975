// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/round.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <algorithm>
#include <set>
#include <utility>

#include "store/day_transaction.h"
#include "store/raw_rows.h"
#include "sync/computer_name.h"
#include "sync/folder_files.h"
#include "sync/log.h"

namespace tickwell::sync {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSameName = u"同じ名前の別のコンピューターのファイルです。名前を変えてください。";
constexpr auto kTooManyFiles = u"ファイルが多すぎます（%1個まで）。";

/// Which file this is: another one has another text, even if it was given the number of a deleted one.
QString IdentityOf(const QString& path) {
    struct statx state {};
    const int result =
        statx(AT_FDCWD, QFile::encodeName(path).constData(), 0, STATX_INO | STATX_BTIME, &state);
    return result == 0
               ? u"%1 %2.%3"_s.arg(state.stx_ino).arg(state.stx_btime.tv_sec).arg(state.stx_btime.tv_nsec)
               : QString();
}

/// Whether the user can change the row: the program only reads the holidays, which a new book brings along.
bool IsUsers(const QByteArray& row) {
    return !row.startsWith("Syukuzitu\t");
}

/// Whether the book is a new file without any of the rows that are known: the old one was lost or put aside,
/// and its rows were not deleted by anybody.
bool IsAnother(const KeptState& kept, const QString& identity, const BookRows& book) {
    if (kept.bookFile.isEmpty() || kept.bookFile == identity) {
        return false;
    }
    return std::none_of(book.begin(), book.end(), [&kept](const BookRow& each) {
        const Element copy{each.row, 1, {}, true};
        const auto known = std::lower_bound(kept.state.begin(), kept.state.end(), copy, ComesBefore);
        return IsUsers(each.row) && known != kept.state.end() && known->row == each.row;
    });
}

/// One merge: reads, and collects the result.
class Planner {
public:
    Planner(const Place& place, QDateTime now, store::SqliteConnection& state)
        : m_place(place),
          m_now(std::move(now)),
          m_kept(ReadState(state)),
          m_ownName(DayFileName(ComputerName(place.computer))) {
        m_replicas.insert(m_kept.replica);
    }

    /// Compares the book with the state.
    void ReadBook() {
        store::DayDatabase database = store::DayDatabase::OpenToRead(m_place.book);
        m_book = ReadBookRows(database);
        const QString identity = IdentityOf(m_place.book);
        const bool isAnother = IsAnother(m_kept, identity, m_book.rows);
        if (isAnother) {
            qCWarning(SyncLog,
                      "the day database is a new file: its rows are merged, and none counts as deleted");
        }
        m_round.kept.bookFile = identity == m_kept.bookFile ? QString() : identity;
        m_merged = Compared(m_book.rows, m_kept.state, m_kept.replica, m_now.toMSecsSinceEpoch(), isAnother);
    }

    /// So that the limit of the number of files never concerns this computer's own.
    void OwnFirst(QStringList& names) const {
        if (names.removeOne(m_ownName)) {
            names.prepend(m_ownName);
        }
    }

    void Take(const QString& name) {
        FolderFile file = ReadFolderFile(QDir(m_place.folder).filePath(name));
        if (file.why.isEmpty()) {
            ReplicaState merged = Merged(m_merged, file.result.file.state);
            if (merged.size() <= kMostElements) {
                m_merged = std::move(merged);
                m_replicas.insert(file.result.file.replica);
            } else {
                file.why = ReasonOf(DayFileFault::TooMany);
            }
        }
        if (name == m_ownName) {
            TakeOwn(file);
        }
        if (!file.why.isEmpty()) {
            Leave(name, file.why);
        }
    }

    void Leave(const QString& name, const QString& why) {
        m_round.report.left.append({name, why});
        qCWarning(SyncLog).noquote() << "left alone:" << name << why;
    }

    Round Result() {
        if (m_merged.size() > kMostElements) {
            m_round.kept = {};
            m_round.report.problem = u"記念日と印が多すぎます（%1行まで）。"_s.arg(kMostElements);
            return std::move(m_round);
        }
        m_round.kept.elements = Beyond(m_merged, m_kept.state);
        m_round.book = ChangesTo(m_merged, m_book);
        PlanOwnFile();
        m_round.report.when = m_now;
        m_round.report.computers = static_cast<qsizetype>(m_replicas.size());
        m_round.report.skipped = m_book.skipped;
        return std::move(m_round);
    }

private:
    /// Whether the file with this computer's name is its own, and if so what it contains.
    void TakeOwn(FolderFile& file) {
        const bool isDamaged = file.result.fault == DayFileFault::Damaged;
        if (file.why.isEmpty()) {
            m_isOwnNameFree = file.result.file.replica == m_kept.replica;
            file.why = m_isOwnNameFree ? QString() : QString::fromUtf16(kSameName);
        } else {
            const auto writer = WriterOf(file.bytes);
            m_isOwnNameFree =
                isDamaged && (writer ? *writer == m_kept.replica : m_kept.writtenAs == m_ownName);
            if (m_isOwnNameFree) {  // it is written again
                qCWarning(SyncLog).noquote() << "this computer's file was damaged:" << m_ownName;
                file.why.clear();
            }
        }
        m_ownBytes = std::move(file.bytes);
    }

    void PlanOwnFile() {
        if (!m_isOwnNameFree) {
            return;
        }
        QByteArray bytes =
            WriteDayFile({m_kept.replica, ComputerName(m_place.computer), std::move(m_merged)});
        if (bytes.size() > kLargestDayFile) {
            Leave(m_ownName, u"記念日と印が多すぎて書くことができません。"_s);
        } else if (bytes != m_ownBytes) {
            m_round.ownPath = QDir(m_place.folder).filePath(m_ownName);
            m_round.ownFile = std::move(bytes);
            m_round.kept.writtenAs = m_kept.writtenAs == m_ownName ? QString() : m_ownName;
        }
    }

    const Place& m_place;
    QDateTime m_now;
    KeptState m_kept;
    QString m_ownName;
    sync::ReadBook m_book;
    ReplicaState m_merged;
    std::set<quint64> m_replicas;
    bool m_isOwnNameFree = true;
    QByteArray m_ownBytes;
    Round m_round;
};

}  // namespace

Round PlanRound(const Place& place, const QDateTime& now, const QByteArray& unchanged) {
    Round round;
    auto names = DayFilesIn(place.folder, round.report.problem);
    if (!names) {
        return round;
    }
    QByteArray files = FingerprintOf(place.folder, *names);
    if (!unchanged.isEmpty() && files == unchanged) {
        round.isNothingNew = true;
        return round;
    }
    QStringList damaged;
    const auto state = OpenState(place.state, damaged);
    Planner planner(place, now, *state);
    for (const QString& name : std::as_const(damaged)) {
        planner.Leave(name, u"前回の状態が壊れていたので、名前を変えて残しました。"_s);
    }
    planner.ReadBook();
    planner.OwnFirst(*names);
    for (qsizetype i = 0; i < names->size(); ++i) {
        if (i < kMostDayFiles) {
            planner.Take(names->at(i));
        } else {
            planner.Leave(names->at(i), QString::fromUtf16(kTooManyFiles).arg(kMostDayFiles));
        }
    }
    round = planner.Result();
    round.files = files.isEmpty() ? QByteArray("none") : std::move(files);
    return round;
}

bool StoreRound(store::DayDatabase& database, const Place& place, const Round& round,
                const store::ChangeMark& mark) {
    const store::AttachedFile attached(database, place.state);
    store::DayTransaction transaction(database);
    if (database.Mark() != mark) {
        return false;
    }
    ApplyChanges(database, round.book);
    WriteState(attached.Connection(), store::AttachedFile::kSchema, round.kept);
    transaction.Commit();
    return true;
}

void StoreStateOnly(const Place& place, const Round& round) {
    QStringList damaged;
    const auto state = OpenState(place.state, damaged);
    StoreState(*state, round.kept);
}

}  // namespace tickwell::sync
