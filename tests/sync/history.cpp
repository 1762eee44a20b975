// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/history.h"

#include <algorithm>

#include "sync/day_file.h"

namespace tickwell::sync {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kDay = 86'400'000;
constexpr int kShared = 3;
constexpr int kOwned = 2;
constexpr quint32 kMostEqual = 3;

QByteArray RowNamed(const QByteArray& name) {
    return "Kinenbi\t" + name + "\t0\t5\t5\t0";
}

bool IsKind(const QByteArray& row, char kind) {
    return row.at(8) == kind;
}

}  // namespace

History::History(unsigned seed) : m_seed(seed), m_random(seed) {
    for (std::size_t i = 0; i < m_computers.size(); ++i) {
        m_computers.at(i).replica = i + 1;
        m_computers.at(i).book[RowNamed("delivered")] = 1;
    }
}

std::map<QString, int>& History::Happenings() {
    static std::map<QString, int> happenings;
    return happenings;
}

int History::UpTo(int most) {
    return std::uniform_int_distribution<int>(0, most)(m_random);
}

QString History::NameOf(std::size_t which) {
    return u"pc%1.tickwell-days"_s.arg(which);
}

BookRows History::RowsIn(const Book& book) {
    BookRows rows;
    for (const auto& [row, count] : book) {
        rows.push_back({row, count});
    }
    return rows;
}

void History::Fail(const QString& what) {
    if (m_fault.isEmpty()) {
        m_fault = u"seed %1: %2"_s.arg(m_seed).arg(what);
    }
}

QString History::Run() {
    for (int steps = 30 + UpTo(30); steps > 0 && m_fault.isEmpty(); --steps) {
        Step();
        m_time += UpTo(5) * 1000;
    }
    Settle();
    return m_fault;
}

void History::Step() {
    const auto which = static_cast<std::size_t>(UpTo(2));
    switch (UpTo(11)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return Change(which);
        case 4:
        case 5:
            return Merge(which, Kill::Never);
        case 6:
            return Merge(which, UpTo(1) == 0 ? Kill::BeforeTheTransaction : Kill::BeforeTheFile);
        case 7:
        case 8:
            return Carry();
        case 9:
            return Damage();
        case 10:
            return SetClock();
        default:
            if (UpTo(3) == 0) {
                Settle();
            }
    }
}

void History::Change(std::size_t which) {
    Computer& computer = m_computers.at(which);
    const int kind = UpTo(2);
    if (kind == 0) {
        return ChangeUnique(computer);
    }
    const QByteArray row = kind == 1
                               ? RowNamed("o" + QByteArray::number(which) + QByteArray::number(UpTo(kOwned)))
                               : RowNamed("s" + QByteArray::number(UpTo(kShared)));
    const quint32 count = static_cast<quint32>(UpTo(kMostEqual));
    ++Happenings()[count < computer.book[row] ? u"fewer"_s : u"more"_s];
    computer.book[row] = count;
    if (count == 0) {
        computer.book.erase(row);
    }
    if (kind == 2) {
        computer.touched.insert(row);
    }
}

/// Adds, deletes or edits.
void History::ChangeUnique(Computer& computer) {
    std::vector<QByteArray> own;
    for (const auto& [row, count] : computer.book) {
        if (IsKind(row, 'u')) {
            own.push_back(row);
        }
    }
    const int deed = own.empty() ? 0 : UpTo(2);
    if (deed != 0) {
        const QByteArray& gone = own.at(static_cast<std::size_t>(UpTo(static_cast<int>(own.size()) - 1)));
        computer.book.erase(gone);
        m_there.erase(gone);
    }
    if (deed != 1) {
        const QByteArray come = RowNamed("u" + QByteArray::number(++m_unique));
        computer.book[come] = 1;
        m_there.insert(come);
    }
    ++Happenings()[deed == 0 ? u"added"_s : deed == 1 ? u"deleted"_s : u"edited"_s];
}

void History::Merge(std::size_t which, Kill kill) {
    Computer& computer = m_computers.at(which);
    ReplicaState merged =
        Compared(RowsIn(computer.book), computer.state, computer.replica, m_time + computer.offset);
    for (const auto& [name, bytes] : computer.folder) {
        const ReadDayFileResult read = ReadDayFile(bytes);
        if (read.fault == DayFileFault::None) {
            merged = Merged(merged, read.file.state);
        } else {
            ++Happenings()[u"refused"_s];
        }
    }
    if (kill == Kill::BeforeTheTransaction) {
        ++Happenings()[u"killed before the transaction"_s];
        return;
    }
    for (const RowChange& change : ToApply(merged, RowsIn(computer.book))) {
        if (IsKind(change.row, 'o') && change.row.at(9) == QByteArray::number(which).at(0)) {
            Fail(u"a row was changed that only its owner changes"_s);
        }
        if (change.after == 0) {
            computer.book.erase(change.row);
        } else {
            computer.book[change.row] = change.after;
        }
    }
    computer.state = merged;
    if (kill == Kill::BeforeTheFile) {
        ++Happenings()[u"killed before the file"_s];
        return;
    }
    computer.folder[NameOf(which)] = WriteDayFile({computer.replica, NameOf(which), merged});
    m_old.emplace_back(NameOf(which), computer.folder[NameOf(which)]);
}

/// The sync tool brings a computer's file to another one, perhaps an old version of it.
void History::Carry() {
    if (m_old.empty()) {
        return;
    }
    const bool isOld = UpTo(3) == 0;
    const auto last = static_cast<int>(m_old.size()) - 1;
    const auto& [name, bytes] = m_old.at(static_cast<std::size_t>(isOld ? UpTo(last) : last));
    m_computers.at(static_cast<std::size_t>(UpTo(2))).folder[name] = bytes;
    ++Happenings()[isOld ? u"carried an old file"_s : u"carried"_s];
}

/// A file is lost, doubled, cut off, or has a wrong byte.
void History::Damage() {
    Folder& folder = m_computers.at(static_cast<std::size_t>(UpTo(2))).folder;
    if (folder.empty()) {
        return;
    }
    auto file = std::next(folder.begin(), UpTo(static_cast<int>(folder.size()) - 1));
    QByteArray bytes = file->second;
    switch (UpTo(4)) {
        case 0:
            folder.erase(file);
            ++Happenings()[u"lost"_s];
            return;
        case 1:
            folder[u"conflict %1"_s.arg(UpTo(3)) + kDayFileSuffix] = bytes;
            ++Happenings()[u"doubled as a conflict copy"_s];
            return;
        case 2:
            bytes += bytes;
            ++Happenings()[u"doubled in itself"_s];
            break;
        case 3:
            bytes.truncate(UpTo(static_cast<int>(bytes.size())));
            ++Happenings()[u"truncated"_s];
            break;
        default:
            if (!bytes.isEmpty()) {
                char& byte = bytes.data()[UpTo(static_cast<int>(bytes.size()) - 1)];
                byte = static_cast<char>(byte ^ (1 << UpTo(7)));
            }
            ++Happenings()[u"changed"_s];
    }
    file->second = bytes;
}

void History::SetClock() {
    constexpr std::array kOffsets{qint64{0}, kDay, -kDay, qint64{1500}};
    m_computers.at(static_cast<std::size_t>(UpTo(2))).offset = kOffsets.at(static_cast<std::size_t>(UpTo(3)));
    ++Happenings()[u"clock"_s];
}

/// Every computer sees what all others have written, until nothing new is left.
void History::Settle() {
    std::array<Book, 3> before;
    for (std::size_t i = 0; i < before.size(); ++i) {
        before.at(i) = m_computers.at(i).book;
    }
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < m_computers.size(); ++i) {
            Merge(i, Kill::Never);
        }
        for (std::size_t from = 0; from < m_computers.size(); ++from) {
            for (Computer& to : m_computers) {
                to.folder[NameOf(from)] = m_computers.at(from).folder[NameOf(from)];
            }
        }
    }
    ++Happenings()[u"settled"_s];
    CheckSettled(before);
}

void History::CheckSettled(const std::array<Book, 3>& before) {
    const Book& book = m_computers.front().book;
    for (const Computer& computer : m_computers) {
        if (computer.book != book || computer.state != m_computers.front().state) {
            return Fail(u"the computers differ"_s);
        }
    }
    const auto countIn = [](const Book& rows, const QByteArray& row) {
        const auto found = rows.find(row);
        return found == rows.end() ? 0U : found->second;
    };
    std::set<QByteArray> unique;
    for (const auto& [row, count] : book) {
        if (IsKind(row, 'u')) {
            unique.insert(row);
        }
        if (IsKind(row, 'u') && count != 1) {
            Fail(u"a row has multiplied"_s);
        }
    }
    if (unique != m_there) {
        Fail(u"a row was lost, or came back"_s);
    }
    if (countIn(book, RowNamed("delivered")) != 1) {
        Fail(u"a delivered row was lost or has multiplied"_s);
    }
    for (std::size_t owner = 0; owner < before.size(); ++owner) {
        for (int i = 0; i <= kOwned; ++i) {
            const QByteArray row = RowNamed("o" + QByteArray::number(owner) + QByteArray::number(i));
            if (countIn(book, row) != countIn(before.at(owner), row)) {
                Fail(u"the owner of a row was not heard"_s);
            }
        }
    }
    for (int i = 0; i <= kShared; ++i) {
        const QByteArray row = RowNamed("s" + QByteArray::number(i));
        int touching = 0;
        quint32 expected = countIn(m_settled, row);
        for (std::size_t which = 0; which < before.size(); ++which) {
            if (m_computers.at(which).touched.erase(row) > 0) {
                ++touching;
                expected = countIn(before.at(which), row);
            }
        }
        if (touching <= 1 && countIn(book, row) != expected) {
            Fail(u"a change that was the only one was not heard"_s);
        }
        ++Happenings()[touching > 1 ? u"changed by several"_s : u"changed by one at most"_s];
        m_settled[row] = countIn(book, row);
    }
}

}  // namespace tickwell::sync
