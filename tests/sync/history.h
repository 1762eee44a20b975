// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>
#include <map>
#include <random>
#include <set>
#include <vector>

#include "sync/replica_state.h"

namespace tickwell::sync {

/// A random history of three computers whose users change their books while a sync tool carries the files
/// about, late, twice, cut off or not at all, clocks are set wrong by a day, and programs are killed. Three
/// kinds of rows have a result that is known without any stamp:
/// - each "unique" row is added once; at the end it is there unless somebody has deleted it;
/// - an "owned" row is changed by one computer only, which therefore always decides;
/// - a "shared" row is decided by a computer that alone has changed it since all were equal.
class History {
public:
    explicit History(unsigned seed);

    /// Runs it to its end, at which all files have been seen by all. Returns an empty text, or what went
    /// wrong.
    QString Run();

    /// What has happened in all histories of the process, so that a test sees that nothing was left out.
    static std::map<QString, int>& Happenings();

private:
    using Book = std::map<QByteArray, quint32>;
    using Folder = std::map<QString, QByteArray>;

    struct Computer {
        quint64 replica = 0;
        Book book;
        ReplicaState state;
        Folder folder;                 // as its sync tool shows it
        qint64 offset = 0;             // of its clock, ms
        std::set<QByteArray> touched;  // shared rows changed since all were equal
    };

    enum class Kill { Never, BeforeTheTransaction, BeforeTheFile };

    int UpTo(int most);
    void Step();
    void Change(std::size_t which);
    void ChangeUnique(Computer& computer);
    void Merge(std::size_t which, Kill kill);
    void Carry();
    void Damage();
    void SetClock();
    void Settle();
    void CheckSettled(const std::array<Book, 3>& before);
    void Fail(const QString& what);
    static QString NameOf(std::size_t which);
    static BookRows RowsIn(const Book& book);

    unsigned m_seed;
    std::mt19937 m_random;
    std::array<Computer, 3> m_computers;
    qint64 m_time = 1'764'000'000'000;
    int m_unique = 0;
    std::set<QByteArray> m_there;                       // unique rows that nobody has deleted
    Book m_settled;                                     // shared rows when all were equal
    std::vector<std::pair<QString, QByteArray>> m_old;  // earlier contents of files
    QString m_fault;
};

}  // namespace tickwell::sync
