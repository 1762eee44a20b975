// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <vector>

#include "book/digest_set.h"
#include "core/settings.h"
#include "core/sliced_work.h"
#include "days/listed_rows.h"
#include "store/row_search.h"

namespace tickwell::book {

/// Changes or deletes anniversaries: for each selected row of the day list, all stored rows equal to the
/// parsed list row, which may be none, or rows other than the one shown (see WeekOfListText); with the
/// correction weekdayAnniversaries, all rows equal to the one shown (see TargetOf). A row that no statement
/// can select is changed by its key. All changes are stored in one transaction at the end.
///
/// The rows are processed from last to first. A row that cannot be parsed ends the processing: the rows after
/// it in the list are changed, those before it are not, and its RunTimeError is thrown at the end. Rows that
/// another program has changed in the meantime are left unchanged, which the last slice reports with a
/// RunTimeError.
///
/// The stored rows are searched in slices. More than a few are then written in a separate thread, because
/// each write may wait for the disk; the database is closed until that is done.
class AnniversaryChange : public SlicedWork {
public:
    /// Changes the row of Kinenbi with that key; called in any thread.
    using Change = std::function<void(store::DayDatabase& database, qint64 key)>;

    /// `isMeant`: whether each of `rows` is selected. `database` outlives the work.
    AnniversaryChange(store::DayDatabase& database, days::ListedRows rows, std::vector<bool> isMeant,
                      Change change, const Corrections& corrections);

    /// Rolls back what is not stored yet, and waits for that.
    ~AnniversaryChange() override;

    bool Step() override;
    double Part() const override;

private:
    enum class Phase { Reading, Sorting, Searching, Writing };
    enum class Outcome { Stored, GivenUp, Outdated };

    void Begin();
    bool Read();
    void ReadRow(int row);
    void AddTarget(const days::DayListRow& row);
    void BeginSearch();
    bool Search();
    bool Write();
    Outcome WriteAll(store::DayDatabase& database);
    bool EndWriting();
    bool End(Outcome outcome);

    store::DayDatabase& m_database;
    days::ListedRows m_rows;
    std::vector<bool> m_isMeant;
    Change m_change;
    Corrections m_corrections;
    Phase m_phase = Phase::Reading;
    std::optional<store::ChangeMark> m_mark;
    int m_unread = 0;     // rows of the list not read yet
    DigestSet m_targets;  // digests of the stored rows to change
    int m_targetCount = 0;
    QString m_target;            // the statement that selects them, if there is only one target
    std::vector<qint64> m_keys;  // of the stored rows to change
    std::optional<store::RowSearch> m_search;
    std::atomic<std::size_t> m_written = 0;
    store::DayDatabase m_lent;  // open while the thread writes
    std::future<Outcome> m_writing;
    std::exception_ptr m_error;  // thrown after the other rows are stored
};

}  // namespace tickwell::book
