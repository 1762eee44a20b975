// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_change.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "book/anniversary_statements.h"
#include "core/errors.h"
#include "store/day_transaction.h"
#include "store/large_cache.h"
#include "store/sql_quoting.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

constexpr int kReadAtOnce = 2000;            // rows per slice: about 10 ms
constexpr std::size_t kWrittenAtOnce = 500;  // rows written without a thread

// The three phases take about equally long.
constexpr double kPhases = 3;

constexpr QStringView kTable = u"Kinenbi";

store::RowDigest DigestOfRow(const days::Anniversary& row) {
    return store::DigestOf({row.name, row.year, row.month, row.day, row.week});
}

RunTimeError ChangedElsewhere() {
    return RunTimeError(
        u"ほかのプログラムが変更した記念日は、そのまま残しました。一覧を表示し直してください。"_s);
}

}  // namespace

AnniversaryChange::AnniversaryChange(store::DayDatabase& database, days::ListedRows rows,
                                     std::vector<bool> isMeant, Change change, const Corrections& corrections)
    : m_database(database),
      m_rows(std::move(rows)),
      m_isMeant(std::move(isMeant)),
      m_change(std::move(change)),
      m_corrections(corrections) {
    Begin();
}

AnniversaryChange::~AnniversaryChange() {
    if (m_writing.valid()) {
        GiveUp();
        m_writing.wait();
        m_database = std::move(m_lent);
    }
}

void AnniversaryChange::Begin() {
    m_phase = Phase::Reading;
    m_unread = m_rows.Count();
    m_targets = {};
    m_targetCount = 0;
    m_target.clear();
    m_keys.clear();
    m_search.reset();
    m_written = 0;
    m_error = nullptr;
}

bool AnniversaryChange::Step() {
    if (m_writing.valid()) {
        return EndWriting();
    }
    if (IsGivenUp()) {
        return true;
    }
    const store::ChangeMark mark = m_database.Mark();
    if (std::exchange(m_mark, mark) != mark) {
        Begin();
    }
    if (m_phase == Phase::Reading && Read()) {
        m_phase = Phase::Sorting;
    }
    if (m_phase == Phase::Sorting && m_targets.Sort()) {
        BeginSearch();
    }
    return m_phase == Phase::Searching && Search() && Write();
}

double AnniversaryChange::Part() const {
    const auto part = [](double done, double all) { return all > 0 ? done / all : 1; };
    switch (m_phase) {
        case Phase::Reading:
            return part(m_rows.Count() - m_unread, m_rows.Count()) / kPhases;
        case Phase::Sorting:
            return 1 / kPhases;
        case Phase::Searching:
            return (1 + m_search->Part()) / kPhases;
        case Phase::Writing:
            return (2 + part(static_cast<double>(m_written), static_cast<double>(m_keys.size()))) / kPhases;
    }
    Q_UNREACHABLE();
}

/// True once all rows are read or one could not be parsed.
bool AnniversaryChange::Read() {
    const int last = std::max(0, m_unread - kReadAtOnce);
    for (; m_unread > last; --m_unread) {
        if (!m_isMeant.at(static_cast<std::size_t>(m_unread - 1))) {
            continue;
        }
        try {
            ReadRow(m_unread - 1);
        } catch (const RunTimeError&) {
            m_error = std::current_exception();
            return true;
        }
    }
    return m_unread == 0;
}

void AnniversaryChange::ReadRow(int row) {
    const std::optional<days::DayListRow> read = m_rows.Read(row);
    if (read && !read->itself) {
        AddTarget(*read);
    } else if (read && m_database.ReadRow(kTable, *read->itself)) {
        m_keys.push_back(read->itself->key);
    } else {
        m_error = std::make_exception_ptr(ChangedElsewhere());
    }
}

void AnniversaryChange::AddTarget(const days::DayListRow& row) {
    const days::Anniversary target = TargetOf(row, m_corrections);
    const QString select = SelectSql(target);
    if (!store::IsQuotable(target.name)) {
        store::CompileSql(select);  // throws the reason
    }
    m_target = m_targetCount == 0 ? select : QString();
    ++m_targetCount;
    m_targets.Add(DigestOfRow(target));
}

void AnniversaryChange::BeginSearch() {
    m_phase = Phase::Searching;
    if (!m_target.isEmpty()) {
        m_search.emplace(m_target);
        return;
    }
    m_search.emplace(kTable, [this](const store::RowDigest& digest) { return m_targets.Contains(digest); });
}

bool AnniversaryChange::Search() {
    if (!m_targets.IsEmpty() && !m_search->Step(m_database)) {
        return false;
    }
    const store::FoundRows found = m_search->Take();
    const bool isSorted = m_keys.empty();  // the results are sorted
    m_keys.reserve(m_keys.size() + static_cast<std::size_t>(found.size()));
    for (const store::FoundRow& row : found) {
        m_keys.push_back(row.key);
    }
    if (!isSorted) {
        std::sort(m_keys.begin(), m_keys.end());
        m_keys.erase(std::unique(m_keys.begin(), m_keys.end()), m_keys.end());
    }
    m_targets = {};
    return true;
}

bool AnniversaryChange::Write() {
    m_phase = Phase::Writing;
    if (m_keys.size() <= kWrittenAtOnce) {
        return End(m_keys.empty() ? Outcome::Stored : WriteAll(m_database));
    }
    m_lent = std::move(m_database);
    m_writing = std::async(std::launch::async, [this] {
        const store::LargeCache cache(m_lent);
        return WriteAll(m_lent);
    });
    return false;
}

/// Nothing has been locked so far: another program may have written since the last check.
AnniversaryChange::Outcome AnniversaryChange::WriteAll(store::DayDatabase& database) {
    store::DayTransaction transaction(database);
    if (database.Mark() != m_mark) {
        return Outcome::Outdated;
    }
    for (const qint64 key : m_keys) {
        if (IsGivenUp()) {
            return Outcome::GivenUp;
        }
        m_change(database, key);
        ++m_written;
    }
    transaction.Commit();
    return Outcome::Stored;
}

bool AnniversaryChange::EndWriting() {
    if (m_writing.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return false;
    }
    m_database = std::move(m_lent);
    return End(m_writing.get());
}

bool AnniversaryChange::End(Outcome outcome) {
    if (outcome == Outcome::Outdated) {
        Begin();
        return false;
    }
    if (outcome == Outcome::Stored) {
        IsDoneAllTheSame();
        if (m_error) {
            std::rethrow_exception(m_error);
        }
    }
    return true;
}

}  // namespace tickwell::book
