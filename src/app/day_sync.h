// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "core/ports/clock.h"
#include "core/ports/folder_watch.h"
#include "core/ports/timer.h"
#include "core/program_folder.h"
#include "core/sync_settings.h"
#include "platform/processes/slow_jobs.h"
#include "store/day_database.h"
#include "sync/round.h"

namespace tickwell::app {

/// What the merge works with; all outlive it.
struct DaySyncParts {
    store::DayDatabase& dayDatabase;
    ProgramFolder folder;
    const Clock& clock;
    TimerSource& timers;
    const SyncSettings& settings;
    std::unique_ptr<FolderWatch> watch;   ///< null if folders cannot be watched
    std::function<bool()> isMarking;      ///< whether days are being marked, whose marks are not stored yet
    std::function<void()> daysChanged;    ///< called after a merge has changed the day database
    std::function<void()> statusChanged;  ///< called whenever StatusText may have changed
};

/// Merges the day database with the files of other computers: soon after its creation, after a change of the
/// folder or the day database, and every ten minutes. Files are read and written on a thread, because they
/// may be on a network, and so is the day database if very many rows change; it is closed for all others
/// meanwhile, as during a compaction. Created only while the settings say so.
class DaySync {
public:
    explicit DaySync(DaySyncParts parts);

    /// Waits until a merge that is being stored is complete, but not for files on a network.
    ~DaySync();
    Q_DISABLE_COPY_MOVE(DaySync)

    /// The settings may have changed.
    void Follow();

    /// Merges soon.
    void Request();

    /// Merges soon if the rows may have changed since the last merge.
    void LookAtBook();

    /// What the last merge did, in a few lines.
    QString StatusText() const;

private:
    struct Planned;
    struct Stored;

    template <typename Job, typename Then>
    void OnThread(Job job, Then then);
    void Begin();
    bool MayMerge();
    void PlanIsMade(const Planned& planned);
    void Store(const std::shared_ptr<sync::Round>& round);
    void StoreOnThread(const std::shared_ptr<sync::Round>& round);
    void IsStored(const std::shared_ptr<sync::Round>& round, const Stored& stored);
    void WriteFile(const std::shared_ptr<sync::Round>& round);
    void End(sync::Report report);
    void Fail(const QString& reason);
    void WatchFolder();
    void Later(int milliseconds);

    DaySyncParts m_parts;
    SyncSettings m_used;
    sync::Place m_place;
    std::unique_ptr<Timer> m_soon;     // runs while a merge is requested
    std::unique_ptr<Timer> m_regular;  // always runs: a network does not report changes
    bool m_isBusy = false;
    bool m_isWanted = false;         // again after the current merge
    store::ChangeMark m_mark;        // of the book when the current merge began
    store::ChangeMark m_mergedMark;  // of the book after the last complete merge
    QByteArray m_mergedFiles;        // the files that it has read; empty if there was none
    QString m_watched;               // the folder
    sync::Report m_report;
    std::shared_ptr<store::DayDatabase> m_lent;                           // while the thread stores
    std::shared_ptr<DaySync*> m_self = std::make_shared<DaySync*>(this);  // the thread holds it weakly
    platform::SlowJobs
        m_jobs;  // last, because its thread uses the other members while the destructor waits for it
};

}  // namespace tickwell::app
