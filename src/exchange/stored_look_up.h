// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <unordered_set>
#include <vector>

#include "exchange/entry.h"
#include "store/row_search.h"

namespace tickwell::exchange {

/// Finds out which new entries are stored already, in slices: a row with the same five values exists, or
/// stands earlier in the same file.
class StoredLookUp {
public:
    /// Both outlive this object; only it changes the entries in the meantime.
    StoredLookUp(store::DayDatabase& database, std::vector<Entry>& entries);

    /// True once all states are known. Throws RunTimeError.
    bool Step();

    /// Progress, 0 to 1.
    double Part() const { return m_search ? m_search->Part() : 0; }

private:
    struct Hash {
        std::size_t operator()(const store::RowDigest& digest) const {
            return static_cast<std::size_t>(digest.first);
        }
    };
    using Digests = std::unordered_set<store::RowDigest, Hash>;

    void Mark();

    store::DayDatabase& m_database;
    std::vector<Entry>& m_entries;
    Digests m_offered;
    Digests m_stored;
    std::optional<store::ChangeMark> m_mark;
    std::optional<store::RowSearch> m_search;
};

}  // namespace tickwell::exchange
