// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/replica_state.h"

#include <algorithm>
#include <span>
#include <tuple>

namespace tickwell::sync {

namespace {

using Elements = std::span<const Element>;

/// Whether `a` replaces `b`, the same element.
bool Wins(const Element& a, const Element& b) {
    return std::tie(a.stamp, a.isPresent) > std::tie(b.stamp, b.isPresent);
}

/// The elements of the first row of `rest`, which become no longer part of `rest`.
Elements TakeRow(Elements& rest) {
    const QByteArray& row = rest.front().row;
    const auto end =
        std::find_if(rest.begin(), rest.end(), [&row](const Element& each) { return each.row != row; });
    const auto count = static_cast<std::size_t>(end - rest.begin());
    const Elements first = rest.first(count);
    rest = rest.subspan(count);
    return first;
}

quint32 PresentIn(Elements row) {
    return static_cast<quint32>(
        std::count_if(row.begin(), row.end(), [](const Element& each) { return each.isPresent; }));
}

/// Appends the copies with the lowest numbers that are not present yet.
void Add(ReplicaState& changes, const QByteArray& row, Elements known, quint32 missing,
         const HybridStamp& stamp) {
    auto next = known.begin();
    for (quint32 copy = 1; missing > 0 && copy <= kMostCopies; ++copy) {
        while (next != known.end() && next->copy < copy) {
            ++next;
        }
        if (next == known.end() || next->copy != copy || !next->isPresent) {
            changes.push_back({row, copy, stamp, true});
            --missing;
        }
    }
}

/// Appends the present copies with the highest numbers as gone.
void Remove(ReplicaState& changes, Elements known, quint32 surplus, const HybridStamp& stamp) {
    const auto first = static_cast<std::ptrdiff_t>(changes.size());
    for (auto each = known.rbegin(); surplus > 0 && each != known.rend(); ++each) {
        if (each->isPresent) {
            changes.push_back({each->row, each->copy, stamp, false});
            --surplus;
        }
    }
    std::reverse(changes.begin() + first, changes.end());
}

/// Calls `each(row, elements, count)` for each row of the state or the book, ascending.
template <typename Each>
void ForEachRow(const ReplicaState& state, const BookRows& book, Each each) {
    Elements rest(state);
    auto inBook = book.begin();
    while (!rest.empty() || inBook != book.end()) {
        if (rest.empty() || (inBook != book.end() && inBook->row < rest.front().row)) {
            each(inBook->row, Elements(), inBook->count);
            ++inBook;
            continue;
        }
        const Elements known = TakeRow(rest);
        const QByteArray& row = known.front().row;
        const bool isInBook = inBook != book.end() && inBook->row == row;
        each(row, known, isInBook ? inBook->count : 0);
        if (isInBook) {
            ++inBook;
        }
    }
}

}  // namespace

bool ComesBefore(const Element& a, const Element& b) {
    return std::tie(a.row, a.copy) < std::tie(b.row, b.copy);
}

ReplicaState Merged(const ReplicaState& a, const ReplicaState& b) {
    ReplicaState merged;
    merged.reserve(std::max(a.size(), b.size()));
    auto left = a.begin();
    auto right = b.begin();
    while (left != a.end() && right != b.end()) {
        if (ComesBefore(*left, *right)) {
            merged.push_back(*left++);
        } else if (ComesBefore(*right, *left)) {
            merged.push_back(*right++);
        } else {
            merged.push_back(Wins(*right, *left) ? *right : *left);
            ++left;
            ++right;
        }
    }
    merged.insert(merged.end(), left, a.end());
    merged.insert(merged.end(), right, b.end());
    return merged;
}

ReplicaState Beyond(const ReplicaState& from, const ReplicaState& to) {
    ReplicaState news;
    auto known = to.begin();
    for (const Element& each : from) {
        while (known != to.end() && ComesBefore(*known, each)) {
            ++known;
        }
        const bool isKnown = known != to.end() && !ComesBefore(each, *known);
        if (!isKnown || Wins(each, *known)) {
            news.push_back(each);
        }
    }
    return news;
}

ReplicaState ChangesOf(const BookRows& book, const ReplicaState& state, const HybridStamp& stamp,
                       bool isAnother) {
    ReplicaState changes;
    ForEachRow(state, book, [&](const QByteArray& row, Elements known, quint32 count) {
        const quint32 present = PresentIn(known);
        if (count > present) {
            Add(changes, row, known, count - present, stamp);
        } else if (count < present && !isAnother) {
            Remove(changes, known, present - count, stamp);
        }
    });
    return changes;
}

ReplicaState Compared(const BookRows& book, const ReplicaState& state, quint64 replica, qint64 now,
                      bool isAnother) {
    HybridClock clock(replica);
    for (const Element& each : state) {
        clock.Observe(each.stamp);
    }
    return Merged(state, ChangesOf(book, state, clock.Next(now), isAnother));
}

BookRows RowsOf(const ReplicaState& state) {
    BookRows rows;
    ForEachRow(state, {}, [&rows](const QByteArray& row, Elements known, quint32) {
        if (const quint32 count = PresentIn(known); count > 0) {
            rows.push_back({row, count});
        }
    });
    return rows;
}

std::vector<RowChange> ToApply(const ReplicaState& state, const BookRows& book) {
    std::vector<RowChange> changes;
    ForEachRow(state, book, [&changes](const QByteArray& row, Elements known, quint32 count) {
        const quint32 present = PresentIn(known);
        if (present != count) {
            RowChange change{row, count, present, {}};
            for (const Element& each : known) {
                change.stamp = std::max(change.stamp, each.stamp);
            }
            changes.push_back(std::move(change));
        }
    });
    std::stable_sort(changes.begin(), changes.end(),
                     [](const RowChange& a, const RowChange& b) { return a.stamp < b.stamp; });
    return changes;
}

}  // namespace tickwell::sync
