// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary tables of anniversaries: each is refused with a reason, or each of its lines is; a row that is
// offered falls on a day and means the same when it is written again.

#include "core/errors.h"
#include "exchange/row_rule.h"
#include "exchange/table_text.h"
#include "fuzz/fuzz_check.h"

using namespace tickwell;

namespace {

std::optional<exchange::Offer> OfferOf(const QByteArray& file) {
    const std::atomic<bool> isGivenUp = false;
    try {
        return exchange::ReadTable(file, isGivenUp);
    } catch (const RunTimeError& error) {
        Require(!error.Reason().isEmpty(), "a refusal has a reason");
        return std::nullopt;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray file = InputBytes(data, size);
    const std::optional<exchange::Offer> offer = OfferOf(file);
    if (!offer) {
        return 0;
    }
    Require(static_cast<qsizetype>(offer->entries.size()) <= file.count('\n') + 1, "an entry has a line");
    QByteArray table = exchange::TableHead();
    std::vector<days::Anniversary> rows;
    for (const exchange::Entry& entry : offer->entries) {
        Require(entry.row.name.toUcs4().size() <= exchange::kLongestName, "names are short");
        if (entry.state == exchange::EntryState::Refused) {
            Require(!entry.reason.isEmpty(), "a refusal has a reason");
            continue;
        }
        rows.push_back(entry.row);
        Require(exchange::AddTableLine(entry.row, table), "a row falls on a day");
    }
    const std::optional<exchange::Offer> again = OfferOf(table);
    Require(again && again->entries.size() == rows.size(), "a written table is read");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Require(again->entries[i].row == rows[i], "rows come back exactly");
    }
    return 0;
}
