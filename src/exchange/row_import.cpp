// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/row_import.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "store/day_transaction.h"
#include "store/large_cache.h"

namespace tickwell::exchange {

namespace {

constexpr std::size_t kWrittenAtOnce = 500;  // rows written without a thread

}  // namespace

RowImport::RowImport(store::DayDatabase& database, std::vector<days::Anniversary> rows)
    : m_database(database), m_rows(std::move(rows)) {}

RowImport::~RowImport() {
    if (m_writing.valid()) {
        GiveUp();
        m_writing.wait();
        m_database = std::move(m_lent);
    }
}

bool RowImport::Step() {
    if (!m_writing.valid()) {
        if (IsGivenUp()) {
            return true;
        }
        if (m_rows.size() <= kWrittenAtOnce) {
            return End(Write(m_database));
        }
        m_database.Mark();  // opens it if that was deferred, and throws if it is in use
        m_lent = std::move(m_database);
        m_writing = std::async(std::launch::async, [this] {
            const store::LargeCache cache(m_lent);
            return Write(m_lent);
        });
        return false;
    }
    if (m_writing.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return false;
    }
    m_database = std::move(m_lent);
    return End(m_writing.get());
}

/// False if it was cancelled.
bool RowImport::Write(store::DayDatabase& database) {
    store::DayTransaction transaction(database);
    for (const days::Anniversary& row : m_rows) {
        if (IsGivenUp()) {
            return false;
        }
        database.InsertRow(u"Kinenbi", {{u"Name", row.name},
                                        {u"Year", row.year},
                                        {u"Month", row.month},
                                        {u"Day", row.day},
                                        {u"Week", row.week}});
        ++m_written;
    }
    transaction.Commit();
    return true;
}

bool RowImport::End(bool isStored) {
    if (isStored) {
        IsDoneAllTheSame();
    }
    return true;
}

double RowImport::Part() const {
    return static_cast<double>(m_written) / static_cast<double>(std::max<std::size_t>(1, m_rows.size()));
}

}  // namespace tickwell::exchange
