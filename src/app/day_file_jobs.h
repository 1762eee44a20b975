// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>
#include <stop_token>

#include "core/handlers.h"
#include "core/ports/message_boxes.h"
#include "core/program_folder.h"
#include "platform/processes/slow_jobs.h"
#include "store/compaction.h"

namespace tickwell::app {

/// What the jobs work with; all but `folder` outlive them.
struct DayFileJobsParts {
    store::DayDatabase& dayDatabase;  ///< closed while its file is replaced
    ProgramFolder folder;
    MessageBoxes& boxes;
    Handlers& handlers;
};

/// Long work on the program's files, one job after the other on a worker thread: with a million rows it takes
/// seconds, during which the windows stay responsive.
class DayFileJobs {
public:
    using MakeDisk = std::function<std::unique_ptr<store::StoreDisk>(std::stop_token stop)>;

    /// A replacement of the day database; runs on the worker thread and ends by opening the database.
    using Replacement =
        std::function<store::CompactionEnd(const ProgramFolder& folder, store::StoreDisk& disk)>;

    /// `makeDisk`: called on the thread that calls the functions below; the disk is used on the worker
    /// thread.
    explicit DayFileJobs(DayFileJobsParts parts, MakeDisk makeDisk = RealDisk);

    /// Stops the jobs, which keep the old files, and waits for them. If the disk does not respond for ten
    /// seconds, abandons the thread; the next start of the program cleans up.
    ~DayFileJobs();
    DayFileJobs(const DayFileJobs&) = delete;
    DayFileJobs& operator=(const DayFileJobs&) = delete;

    /// Starts a compaction and returns. When it ends, reopens the database, notifies the user and calls
    /// `done`, in the event loop of the calling thread. If one is already running, only replaces `owner` and
    /// `done`. The message box belongs to `owner` while that exists. Throws RunTimeError if a compaction
    /// cannot start.
    void Compact(const QObject* owner, std::function<void()> done);

    /// The same with another replacement, but throws also if one is already running.
    void Replace(const QObject* owner, Replacement replacement, std::function<void()> done);

    /// Runs `work` on the worker thread and then `done` in the event loop of the calling thread, with the
    /// reason of the RunTimeError that `work` has thrown, or an empty text. `work` owns what it uses and
    /// leaves the day database open; `done` is not called if this object is destroyed first.
    void Do(std::function<void(const ProgramFolder& folder, store::StoreDisk& disk)> work,
            std::function<void(const QString& fault)> done);

private:
    struct Listener;

    static std::unique_ptr<store::StoreDisk> RealDisk(std::stop_token stop);
    void Begin(const QObject* owner, Replacement replacement, std::function<void()> done);
    void Finish(store::CompactionEnd end);

    DayFileJobsParts m_parts;
    MakeDisk m_makeDisk;
    std::function<void()> m_done;
    QPointer<const QObject> m_owner;  // of the message box
    bool m_isReplacing = false;       // the database is closed
    bool m_isCompacting = false;
    std::shared_ptr<Listener> m_listener;  // destroyed with this object
    std::stop_source m_stop;
    platform::SlowJobs
        m_jobs;  // last, because its thread uses the other members while the destructor waits for it
};

}  // namespace tickwell::app
