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
#include "platform/slow_jobs.h"
#include "store/compaction.h"

namespace tickwell {

/// What a compaction works with; all but `folder` outlive it.
struct BackgroundCompactionParts {
    std::unique_ptr<DayDatabase>& dayDatabase;  ///< null while it runs
    QString folder;                             ///< the program's, absolute
    MessageBoxes& boxes;
    Handlers& handlers;
};

/// Compacts the day database on a thread of its own: with a million rows that takes seconds, in which the
/// windows go on.
class BackgroundCompaction {
public:
    using MakeDisk = std::function<std::unique_ptr<CompactionDisk>(std::stop_token stop)>;

    /// `makeDisk`: called on the thread that starts a compaction; the disk is used on the other one.
    explicit BackgroundCompaction(BackgroundCompactionParts parts, MakeDisk makeDisk = RealDisk);

    /// Stops the compaction if one runs, and waits for it; the old file then stands. If the disk hangs for
    /// ten seconds, the thread is left to itself, and the next start tidies up.
    ~BackgroundCompaction();
    BackgroundCompaction(const BackgroundCompaction&) = delete;
    BackgroundCompaction& operator=(const BackgroundCompaction&) = delete;

    /// Begins and returns. At the end, in this thread's event loop, the database is handed over, the user
    /// told, and `done` called. While one runs, another is not begun, and the later `done` replaces the
    /// earlier. The box that tells the user belongs to `owner` as long as that exists. Throws RunTimeError if
    /// it cannot begin.
    void Start(const QObject* owner, std::function<void()> done);

private:
    struct Listener;

    static std::unique_ptr<CompactionDisk> RealDisk(std::stop_token stop);
    void Finish(CompactionEnd end);

    BackgroundCompactionParts m_parts;
    MakeDisk m_makeDisk;
    std::function<void()> m_done;
    QPointer<const QObject> m_owner;       // of the box
    std::shared_ptr<Listener> m_listener;  // exists while a compaction runs
    std::stop_source m_stop;
    SlowJobs m_jobs;  // last: what its thread uses is still there while it is waited for
};

}  // namespace tickwell
