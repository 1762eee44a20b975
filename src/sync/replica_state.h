// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <vector>

#include "sync/hybrid_stamp.h"

namespace tickwell::sync {

/// What is known of one copy of a row: whether it is there, and since which change. A row is its table and
/// its values (see EncodeRow); equal rows are told apart by their number, so the book may contain a row
/// twice. Two computers on which the same row was added have the same copy 1 of it, not two copies.
struct Element {
    QByteArray row;
    quint32 copy = 1;  ///< 1 to kMostCopies
    HybridStamp stamp;
    bool isPresent = false;

    bool operator==(const Element&) const = default;
};

inline constexpr quint32 kMostCopies = 1'000'000;

/// The last-writer-wins set of all rows that ever were in a book, ascending by row and copy, each once.
using ReplicaState = std::vector<Element>;

/// A row of a book and how often the book contains it, at least once.
struct BookRow {
    QByteArray row;
    quint32 count = 1;

    bool operator==(const BookRow&) const = default;
};

/// All rows of a book, ascending, each once.
using BookRows = std::vector<BookRow>;

/// Whether `a` comes before `b` in a ReplicaState.
bool ComesBefore(const Element& a, const Element& b);

/// The maximum of both for each element: commutative, associative and idempotent. Of two elements with the
/// same stamp, which only a damaged or copied replica can produce, the one that is present wins.
ReplicaState Merged(const ReplicaState& a, const ReplicaState& b);

/// The elements of `from` that merging has to change in `to`: Merged(to, Beyond(from, to)) is
/// Merged(to, from).
ReplicaState Beyond(const ReplicaState& from, const ReplicaState& to);

/// What somebody has changed in the book since it was as `state` says, as elements with `stamp`, which is
/// greater than all stamps of `state`. `isAnother`: the book is another file than the one that `state` was
/// compared with, so that a missing row was not deleted by anybody.
ReplicaState ChangesOf(const BookRows& book, const ReplicaState& state, const HybridStamp& stamp,
                       bool isAnother = false);

/// `state` and what has been changed in the book since then, found out by the computer `replica` when its
/// wall clock was at `now`, ms since 1970 UTC.
ReplicaState Compared(const BookRows& book, const ReplicaState& state, quint64 replica, qint64 now,
                      bool isAnother = false);

/// The rows that are present.
BookRows RowsOf(const ReplicaState& state);

/// A row that the book contains too rarely or too often.
struct RowChange {
    QByteArray row;
    quint32 before = 0;
    quint32 after = 0;
    HybridStamp stamp;  ///< of the latest of its changes

    bool operator==(const RowChange&) const = default;
};

/// What has to be changed in `book` so that it contains the rows of `state`, in the order of the stamps.
std::vector<RowChange> ToApply(const ReplicaState& state, const BookRows& book);

}  // namespace tickwell::sync
