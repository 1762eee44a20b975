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
#include "core/sliced_work.h"
#include "days/listed_rows.h"
#include "store/row_search.h"

namespace tickwell {

/// Changes or deletes anniversaries: of each row of the day list that is meant, all stored rows equal to what
/// the list says of it, which may be none or other ones (WeekOfListText). A row that no statement can name is
/// changed itself. All of it is stored at once in the end.
///
/// The rows are gone through from the last to the first. One that cannot be read back ends that: those after
/// it are changed, those before it are not, and its RunTimeError is thrown in the end. Rows that another
/// program has changed meanwhile are left as they are, and the last slice throws a RunTimeError that says so.
///
/// Rows are looked for in slices. More than a few are then written on a thread of their own, since the disk
/// may be waited for at any of them; the database counts as closed until that is done.
class AnniversaryChange : public SlicedWork {
public:
    /// Changes the row of Kinenbi with that key; called on any thread.
    using Change = std::function<void(DayDatabase& database, qint64 key)>;

    /// `isMeant`: one for each of `rows`. `database` outlives the work.
    AnniversaryChange(std::unique_ptr<DayDatabase>& database, ListedRows rows, std::vector<bool> isMeant,
                      Change change);

    /// Takes back what is not stored yet, and waits for that.
    ~AnniversaryChange() override;

    bool Step() override;
    double Part() const override;

private:
    enum class Phase { Reading, Sorting, Searching, Writing };
    enum class Outcome { Stored, GivenUp, Outdated };

    void Begin();
    bool Read();
    void ReadRow(int row);
    void AddTarget(const DayListRow& row);
    void BeginSearch();
    bool Search();
    bool Write();
    Outcome WriteAll(DayDatabase& database);
    bool EndWriting();
    bool End(Outcome outcome);

    std::unique_ptr<DayDatabase>& m_database;
    ListedRows m_rows;
    std::vector<bool> m_isMeant;
    Change m_change;
    Phase m_phase = Phase::Reading;
    std::optional<ChangeMark> m_mark;
    int m_unread = 0;     // rows of the list still to be read
    DigestSet m_targets;  // of the stored rows to be changed
    int m_targetCount = 0;
    QString m_target;            // a statement that selects them, if there is one target
    std::vector<qint64> m_keys;  // of the stored rows to be changed
    std::optional<RowSearch> m_search;
    std::atomic<std::size_t> m_written = 0;
    std::unique_ptr<DayDatabase> m_lent;  // while the thread writes
    std::future<Outcome> m_writing;
    std::exception_ptr m_error;  // thrown once the rest is stored
};

}  // namespace tickwell
