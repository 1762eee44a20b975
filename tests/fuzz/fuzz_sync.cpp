// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary files of other computers: each is refused with a reason, or means exactly one state, which is
// written with the same bytes, and which merges in any order. The last line of an input is replaced by a
// correct one, so that the fuzzer gets past the checksum; the input is read as it is as well.

#include <QCryptographicHash>

#include "fuzz/fuzz_check.h"
#include "sync/day_file.h"
#include "sync/day_row.h"

using namespace tickwell;
using namespace tickwell::sync;

namespace {

/// `bytes` with an end as the writer would have written it.
QByteArray WithEnd(const QByteArray& bytes) {
    QByteArray before = bytes;
    if (!before.endsWith('\n')) {
        before += '\n';
    }
    constexpr int kHeadLines = 3;
    const qsizetype lines = std::max(qsizetype{0}, before.count('\n') - kHeadLines);
    return before + "end\t" + QByteArray::number(lines) + '\t' +
           QCryptographicHash::hash(before, QCryptographicHash::Sha256).toHex() + '\n';
}

void RequireValid(const ReplicaState& state) {
    for (std::size_t i = 0; i < state.size(); ++i) {
        const Element& each = state[i];
        Require(i == 0 || ComesBefore(state[i - 1], each), "elements ascend");
        Require(each.copy >= 1 && each.copy <= kMostCopies, "a copy has a number");
        Require(each.stamp.milliseconds >= 0 && each.stamp.milliseconds <= kLastMoment, "a stamp has a time");
        Require(each.stamp.counter <= kMostCounter, "a stamp can be outrun");
        const auto row = DecodeRow(each.row);
        Require(row.has_value() && EncodeRow(*row) == each.row, "a row has one text");
    }
}

/// Merges the state with a part of it that is older and turned round.
void RequireMerges(const ReplicaState& state) {
    ReplicaState other;
    for (std::size_t i = 0; i < state.size(); i += 2) {
        Element older = state[i];
        older.isPresent = !older.isPresent;
        older.stamp.replica /= 2;
        other.push_back(older);
    }
    const ReplicaState merged = Merged(state, other);
    Require(merged == Merged(other, state), "a merge does not depend on the order");
    Require(Merged(merged, state) == merged, "nor on repetition");
    Require(Merged(other, Beyond(merged, other)) == merged, "what is beyond completes");
    const BookRows rows = RowsOf(merged);
    Require(ToApply(merged, rows).empty(), "a merged book needs nothing");
    Require(ChangesOf(rows, merged, {kLastMoment, kMostCounter, 1}).empty(), "nor has it changes");
    const ReplicaState emptied = Compared({}, merged, 1, 0);
    Require(RowsOf(emptied).empty() && Merged(merged, emptied) == emptied,
            "a deletion is later than what it saw");
}

void RequireKept(const QByteArray& bytes) {
    const ReadDayFileResult read = ReadDayFile(bytes);
    if (read.fault != DayFileFault::None) {
        Require(!ReasonOf(read.fault).isEmpty(), "a refusal has a reason");
        Require(read.file.state.empty(), "a refused file has no rows");
        return;
    }
    RequireValid(read.file.state);
    Require(WriteDayFile(read.file) == bytes, "a file has one text");
    Require(WriterOf(bytes) == read.file.replica, "the writer is known");
    Require(ReadDayFile(bytes.chopped(1)).fault != DayFileFault::None, "a cut file is refused");
    RequireMerges(read.file.state);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = InputBytes(data, size);
    RequireKept(bytes);
    RequireKept(WithEnd(bytes));
    WriterOf(bytes);
    return 0;
}
