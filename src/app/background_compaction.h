// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// What a compaction works with; all but `folder` outlive it.
struct BackgroundCompactionParts {
    store::DayDatabase& dayDatabase;  ///< closed while a compaction runs
    ProgramFolder folder;
    MessageBoxes& boxes;
    Handlers& handlers;
};

/// Compacts the day database on a worker thread: with a million rows that takes seconds, during which the
/// windows stay responsive.
class BackgroundCompaction {
public:
    using MakeDisk = std::function<std::unique_ptr<store::StoreDisk>(std::stop_token stop)>;

    /// `makeDisk`: called on the thread that calls Start; the disk is used on the worker thread.
    explicit BackgroundCompaction(BackgroundCompactionParts parts, MakeDisk makeDisk = RealDisk);

    /// Stops a running compaction, which keeps the old file, and waits for it. If the disk does not respond
    /// for ten seconds, abandons the thread; the next start of the program cleans up.
    ~BackgroundCompaction();
    BackgroundCompaction(const BackgroundCompaction&) = delete;
    BackgroundCompaction& operator=(const BackgroundCompaction&) = delete;

    /// Starts a compaction and returns. When it ends, reopens the database, notifies the user and calls
    /// `done`, in the event loop of the calling thread. If one is already running, only replaces `owner` and
    /// `done`. The message box belongs to `owner` while that exists. Throws RunTimeError if a compaction
    /// cannot start.
    void Start(const QObject* owner, std::function<void()> done);

private:
    struct Listener;

    static std::unique_ptr<store::StoreDisk> RealDisk(std::stop_token stop);
    void Finish(store::CompactionEnd end);

    BackgroundCompactionParts m_parts;
    MakeDisk m_makeDisk;
    std::function<void()> m_done;
    QPointer<const QObject> m_owner;       // of the message box
    std::shared_ptr<Listener> m_listener;  // exists while a compaction runs
    std::stop_source m_stop;
    platform::SlowJobs
        m_jobs;  // last, because its thread uses the other members while the destructor waits for it
};

}  // namespace tickwell::app
