// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "support/random_count.h"
#include "sync/random_states.h"

using namespace tickwell;
using namespace tickwell::sync;

namespace {

const QByteArray kRow = "Holiday\t2026-05-05";
const QByteArray kOther = "Holiday\t2026-05-06";

Element There(quint32 copy, qint64 at, const QByteArray& row = kRow) {
    return {row, copy, {at, 0, 1}, true};
}

Element Gone(quint32 copy, qint64 at, const QByteArray& row = kRow) {
    return {row, copy, {at, 0, 1}, false};
}

/// The maximum for each element, by brute force.
ReplicaState MergedByModel(const ReplicaState& a, const ReplicaState& b) {
    using Key = std::pair<QByteArray, quint32>;
    using Value = std::tuple<qint64, quint32, quint64, bool>;
    std::map<Key, Value> all;
    for (const ReplicaState* each : {&a, &b}) {
        for (const Element& e : *each) {
            const Value value{e.stamp.milliseconds, e.stamp.counter, e.stamp.replica, e.isPresent};
            Value& best = all.try_emplace({e.row, e.copy}, value).first->second;
            best = std::max(best, value);
        }
    }
    ReplicaState merged;
    for (const auto& [key, value] : all) {
        const auto& [milliseconds, counter, replica, isPresent] = value;
        merged.push_back({key.first, key.second, {milliseconds, counter, replica}, isPresent});
    }
    return merged;
}

}  // namespace

/// The set of all rows that ever were in a book.
class TstReplicaState : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AMergeIsTheMaximumOfEachElement();
    void AMergeDependsOnNeitherOrderNorRepetition();
    void WhatIsBeyondAStateCompletesIt();
    void OfEqualStampsTheRowThatIsThereWins();
    void TheRowsAreThoseThatArePresent();
    void AddedRowsTakeTheLowestFreeCopies();
    void DeletedRowsGiveUpTheHighestCopies();
    void InAnotherBookNothingCountsAsDeleted();
    void WhatTheBookLacksOrHasTooOftenIsApplied();
    void ApplyingAndComparingFindsNoChange();
};

void TstReplicaState::AMergeIsTheMaximumOfEachElement() {
    std::mt19937 random(1);
    for (int i = RandomCount(20'000); i > 0; --i) {
        const ReplicaState a = RandomState(random);
        const ReplicaState b = RandomState(random);
        QCOMPARE(Merged(a, b), MergedByModel(a, b));
    }
}

void TstReplicaState::AMergeDependsOnNeitherOrderNorRepetition() {
    std::mt19937 random(2);
    for (int i = RandomCount(20'000); i > 0; --i) {
        const ReplicaState a = RandomState(random);
        const ReplicaState b = RandomState(random);
        const ReplicaState c = RandomState(random);
        QCOMPARE(Merged(a, b), Merged(b, a));
        QCOMPARE(Merged(Merged(a, b), c), Merged(a, Merged(b, c)));
        QCOMPARE(Merged(a, a), a);
        QCOMPARE(Merged(Merged(a, b), b), Merged(a, b));
        QCOMPARE(Merged(a, {}), a);
    }
}

void TstReplicaState::WhatIsBeyondAStateCompletesIt() {
    std::mt19937 random(3);
    for (int i = RandomCount(20'000); i > 0; --i) {
        const ReplicaState from = RandomState(random);
        const ReplicaState to = RandomState(random);
        const ReplicaState news = Beyond(from, to);
        QCOMPARE(Merged(to, news), Merged(to, from));
        QVERIFY(Beyond(from, Merged(to, from)).empty());
        for (const Element& each : news) {
            QVERIFY(std::find(to.begin(), to.end(), each) == to.end());
        }
    }
}

void TstReplicaState::OfEqualStampsTheRowThatIsThereWins() {
    QCOMPARE(Merged({There(1, 5)}, {Gone(1, 5)}), ReplicaState{There(1, 5)});
    QCOMPARE(Merged({Gone(1, 5)}, {There(1, 5)}), ReplicaState{There(1, 5)});
}

void TstReplicaState::TheRowsAreThoseThatArePresent() {
    const BookRows rows = RowsOf({There(1, 1), Gone(2, 1), There(3, 1), Gone(1, 1, kOther)});
    QCOMPARE(rows, (BookRows{{kRow, 2}}));
}

void TstReplicaState::AddedRowsTakeTheLowestFreeCopies() {
    const HybridStamp now{9, 0, 2};
    QCOMPARE(ChangesOf({{kRow, 1}}, {}, now), (ReplicaState{{kRow, 1, now, true}}));
    // Copies 2 and 3 are there, 1 is gone: of four copies, 1 and 4 are new.
    QCOMPARE(ChangesOf({{kRow, 4}}, {Gone(1, 1), There(2, 1), There(3, 1)}, now),
             (ReplicaState{{kRow, 1, now, true}, {kRow, 4, now, true}}));
    QVERIFY(ChangesOf({{kRow, 2}}, {There(1, 1), There(2, 1)}, now).empty());
}

void TstReplicaState::DeletedRowsGiveUpTheHighestCopies() {
    const HybridStamp now{9, 0, 2};
    QCOMPARE(ChangesOf({{kRow, 1}}, {There(1, 1), There(2, 1), Gone(3, 1), There(4, 1)}, now),
             (ReplicaState{{kRow, 2, now, false}, {kRow, 4, now, false}}));
    QCOMPARE(ChangesOf({{kOther, 1}}, {There(1, 1)}, now),
             (ReplicaState{{kRow, 1, now, false}, {kOther, 1, now, true}}));
}

void TstReplicaState::InAnotherBookNothingCountsAsDeleted() {
    const HybridStamp now{9, 0, 2};
    QCOMPARE(ChangesOf({{kOther, 1}}, {There(1, 1), There(2, 1)}, now, true),
             (ReplicaState{{kOther, 1, now, true}}));
}

void TstReplicaState::WhatTheBookLacksOrHasTooOftenIsApplied() {
    const ReplicaState state{There(1, 7), There(2, 3), There(1, 2, kOther)};
    QCOMPARE(ToApply(state, {{kRow, 3}}),
             (std::vector<RowChange>{{kOther, 0, 1, {2, 0, 1}}, {kRow, 3, 2, {7, 0, 1}}}));
    QVERIFY(ToApply(state, {{kRow, 2}, {kOther, 1}}).empty());
}

void TstReplicaState::ApplyingAndComparingFindsNoChange() {
    std::mt19937 random(4);
    for (int i = RandomCount(20'000); i > 0; --i) {
        const ReplicaState state = RandomState(random);
        const BookRows before = RowsOf(RandomState(random));
        std::map<QByteArray, quint32> book;
        for (const BookRow& row : before) {
            book[row.row] = row.count;
        }
        for (const RowChange& change : ToApply(state, before)) {
            QCOMPARE(book[change.row], change.before);
            book[change.row] = change.after;
        }
        BookRows after;
        for (const auto& [row, count] : book) {
            if (count > 0) {
                after.push_back({row, count});
            }
        }
        QCOMPARE(after, RowsOf(state));
        QVERIFY(ChangesOf(after, state, {9, 0, 1}).empty());
    }
}

QTEST_APPLESS_MAIN(TstReplicaState)
#include "tst_replica_state.moc"
