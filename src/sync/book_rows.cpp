// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/book_rows.h"

#include <algorithm>
#include <utility>

#include "store/raw_rows.h"
#include "sync/day_row.h"

namespace tickwell::sync {

namespace {

using FoundBookRow = std::pair<QByteArray, StoredRow>;

/// Rows beyond the most copies that a state can hold are left alone.
ReadBook Grouped(const std::vector<FoundBookRow>& found, int skipped) {
    ReadBook book;
    book.skipped = skipped;
    for (const auto& [row, stored] : found) {
        if (book.rows.empty() || book.rows.back().row != row) {
            book.rows.push_back({row, 0});
            book.stored.emplace_back();
        }
        if (book.rows.back().count == kMostCopies) {
            ++book.skipped;
            continue;
        }
        ++book.rows.back().count;
        book.stored.back().push_back(stored);
    }
    return book;
}

}  // namespace

ReadBook ReadBookRows(store::DayDatabase& database) {
    std::vector<FoundBookRow> found;
    int skipped = 0;
    const store::RawRows rows(database);
    for (const store::SchemaTable& table : store::SchemaTables()) {
        DayRow row{&table, {}};
        rows.ForEach(table, [&](qint64 key, const std::vector<QByteArrayView>& values) {
            row.values.clear();
            for (const QByteArrayView value : values) {
                row.values.push_back(value.toByteArray());
            }
            if (auto text = EncodeRow(row)) {
                found.emplace_back(*std::move(text), StoredRow{&table, key});
            } else {
                ++skipped;
            }
        });
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const FoundBookRow& a, const FoundBookRow& b) { return a.first < b.first; });
    return Grouped(found, skipped);
}

BookChanges ChangesTo(const ReplicaState& state, const ReadBook& book) {
    BookChanges changes;
    for (const RowChange& change : ToApply(state, book.rows)) {
        if (change.after > change.before) {
            changes.come.insert(changes.come.end(), change.after - change.before, change.row);
            continue;
        }
        const auto found =
            std::lower_bound(book.rows.begin(), book.rows.end(), change.row,
                             [](const BookRow& row, const QByteArray& text) { return row.row < text; });
        const auto& stored = book.stored.at(static_cast<std::size_t>(found - book.rows.begin()));
        changes.gone.insert(changes.gone.end(), stored.begin() + change.after, stored.end());
    }
    return changes;
}

void ApplyChanges(store::DayDatabase& database, const BookChanges& changes) {
    for (const StoredRow& row : changes.gone) {
        database.DeleteRow(row.table->name, row.key);
    }
    const store::RawRows rows(database);
    for (const QByteArray& text : changes.come) {
        const auto row = DecodeRow(text);
        Q_ASSERT(row);
        rows.Insert(*row->table, row->values);
    }
}

}  // namespace tickwell::sync
