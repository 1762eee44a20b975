// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <future>
#include <vector>

#include "core/sliced_work.h"
#include "days/anniversary.h"
#include "store/day_database.h"

namespace tickwell::exchange {

/// Stores anniversaries in one transaction: all, or none if it is cancelled or fails. Many are written on a
/// thread, because that may wait for the disk; the database is closed until that is done.
class RowImport : public SlicedWork {
public:
    /// `database` outlives the work.
    RowImport(store::DayDatabase& database, std::vector<days::Anniversary> rows);

    /// Rolls back what is not stored yet, and waits for that.
    ~RowImport() override;

    bool Step() override;
    double Part() const override;

private:
    bool Write(store::DayDatabase& database);
    bool End(bool isStored);

    store::DayDatabase& m_database;
    std::vector<days::Anniversary> m_rows;
    std::atomic<std::size_t> m_written = 0;
    store::DayDatabase m_lent;  // open while the thread writes
    std::future<bool> m_writing;
};

}  // namespace tickwell::exchange
