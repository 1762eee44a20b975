// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/day_sync.h"

#include <QCoreApplication>
#include <QDir>
#include <utility>

#include "app/log.h"
#include "core/errors.h"
#include "platform/files/file_replacement.h"
#include "platform/files/unfinished_files.h"
#include "store/day_files.h"
#include "store/large_cache.h"
#include "sync/report_text.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSoon = 2000;  // ms; several changes are merged at once, and the first frame is shown before
constexpr int kBusyRetry = 5000;            // ms, while days are marked or the day database is in use
constexpr int kRegularly = 600'000;         // ms
constexpr std::size_t kStoredAtOnce = 500;  // rows stored without a thread
constexpr std::chrono::seconds kPatienceWithFiles{1};
constexpr std::chrono::seconds kPatienceWithTheBook{20};

}  // namespace

/// The result of planning, or why there is none.
struct DaySync::Planned {
    std::shared_ptr<sync::Round> round;
    QString error;
};

/// The result of storing: whether it was stored, or why not.
struct DaySync::Stored {
    bool isStored = false;
    QString error;
};

DaySync::DaySync(DaySyncParts parts)
    : m_parts(std::move(parts)),
      m_soon(m_parts.timers.Create(kSoon, [this] { Begin(); })),
      m_regular(m_parts.timers.Create(kRegularly, [this] { Request(); })),
      m_jobs(kPatienceWithFiles) {
    m_regular->Start();
    Follow();
}

DaySync::~DaySync() {
    m_self.reset();
    if (m_lent == nullptr) {
        return;
    }
    if (m_jobs.Wait(kPatienceWithTheBook)) {
        m_parts.dayDatabase = std::move(*m_lent);
    } else {
        qCWarning(AppLog, "the disk does not respond: the day database remains closed");
    }
}

void DaySync::Follow() {
    if (m_used == m_parts.settings) {
        return;
    }
    m_used = m_parts.settings;
    m_place = {.folder = m_used.folder,
               .computer = m_used.computer,
               .book = store::FindDayFiles(m_parts.folder).live,
               .state = m_parts.folder.PathOf(QString(sync::kStateFile))};
    m_mergedFiles.clear();
    Request();
}

void DaySync::Request() {
    m_isWanted = true;
    if (!m_isBusy && !m_soon->IsRunning()) {
        Later(kSoon);
    }
}

void DaySync::LookAtBook() {
    try {
        if (m_parts.dayDatabase.TryOpen() && m_parts.dayDatabase.Mark() != m_mergedMark) {
            Request();
        }
    } catch (const RunTimeError& error) {
        qCWarning(AppLog).noquote() << "the day database cannot be read:" << error.Detail();
    }
}

QString DaySync::StatusText() const {
    return sync::ReportText(m_report);
}

/// Runs `job` on the thread and passes its result to `then` in the event loop, unless this was destroyed.
template <typename Job, typename Then>
void DaySync::OnThread(Job job, Then then) {
    m_jobs.Do([job = std::move(job), then = std::move(then), self = std::weak_ptr(m_self)] {
        auto result = std::make_shared<decltype(job())>(job());
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [self, then, result] {
                const auto owner = self.lock();
                if (owner == nullptr) {
                    return;
                }
                try {
                    then(*result);
                } catch (const RunTimeError& error) {
                    (*owner)->Fail(error.Reason());
                }
            },
            Qt::QueuedConnection);
    });
}

void DaySync::Later(int milliseconds) {
    m_soon->SetInterval(milliseconds);
    m_soon->Start();
}

bool DaySync::MayMerge() {
    return !m_parts.isMarking() && m_parts.dayDatabase.TryOpen() && !m_parts.dayDatabase.IsInTransaction();
}

void DaySync::Begin() {
    m_soon->Stop();
    if (!MayMerge()) {
        return Later(kBusyRetry);
    }
    m_isWanted = false;
    try {
        m_mark = m_parts.dayDatabase.Mark();
    } catch (const RunTimeError& error) {
        return Fail(error.Reason());
    }
    m_isBusy = true;
    const QByteArray unchanged = m_mark == m_mergedMark ? m_mergedFiles : QByteArray();
    OnThread(
        [place = m_place, now = m_parts.clock.Now(), unchanged]() -> Planned {
            try {
                return {std::make_shared<sync::Round>(sync::PlanRound(place, now, unchanged)), {}};
            } catch (const RunTimeError& error) {
                return {nullptr, error.Reason()};
            }
        },
        [this](const Planned& planned) { PlanIsMade(planned); });
}

void DaySync::PlanIsMade(const Planned& planned) {
    if (planned.round == nullptr) {
        return Fail(planned.error);
    }
    if (planned.round->isNothingNew) {
        m_report.when = m_parts.clock.Now();
        return End(m_report);
    }
    if (!planned.round->report.problem.isEmpty()) {
        return Fail(planned.round->report.problem);
    }
    WatchFolder();
    Store(planned.round);
}

/// While the files were read, the user may have begun to mark days or have changed rows.
void DaySync::Store(const std::shared_ptr<sync::Round>& round) {
    try {
        if (!MayMerge() || m_parts.dayDatabase.Mark() != m_mark) {
            m_isBusy = false;
            m_isWanted = true;
            return Later(kBusyRetry);
        }
        if (round->book.IsEmpty() || round->book.Count() + round->kept.elements.size() > kStoredAtOnce) {
            return StoreOnThread(round);
        }
        IsStored(round, {sync::StoreRound(m_parts.dayDatabase, m_place, *round, m_mark), {}});
    } catch (const RunTimeError& error) {
        IsStored(round, {false, error.Reason()});
    }
}

void DaySync::StoreOnThread(const std::shared_ptr<sync::Round>& round) {
    if (!round->book.IsEmpty()) {
        m_lent = std::make_shared<store::DayDatabase>(std::move(m_parts.dayDatabase));
    }
    OnThread(
        [place = m_place, round, lent = m_lent, mark = m_mark]() -> Stored {
            try {
                if (lent == nullptr) {
                    sync::StoreStateOnly(place, *round);
                    return {true, {}};
                }
                const store::LargeCache cache(*lent);
                return {sync::StoreRound(*lent, place, *round, mark), {}};
            } catch (const RunTimeError& error) {
                return {false, error.Reason()};
            }
        },
        [this, round](const Stored& stored) {
            if (const auto lent = std::exchange(m_lent, nullptr)) {
                m_parts.dayDatabase = std::move(*lent);
            }
            IsStored(round, stored);
        });
}

void DaySync::IsStored(const std::shared_ptr<sync::Round>& round, const Stored& stored) {
    if (!stored.error.isEmpty()) {
        return Fail(stored.error);
    }
    if (!stored.isStored) {
        m_isBusy = false;
        m_isWanted = true;
        return Later(kBusyRetry);
    }
    if (round->book.IsEmpty()) {
        m_mergedMark = m_mark;
    } else {
        m_mergedMark = m_parts.dayDatabase.Mark();
        m_parts.daysChanged();
    }
    m_mergedFiles = round->files;
    WriteFile(round);
}

void DaySync::WriteFile(const std::shared_ptr<sync::Round>& round) {
    if (round->ownPath.isEmpty()) {
        return End(round->report);
    }
    OnThread(
        [round] {
            platform::RemoveUnfinished(round->ownPath);
            return platform::ReplaceFile(round->ownPath, round->ownFile);
        },
        [this, round](const QString& reason) {
            if (reason.isEmpty()) {
                return End(round->report);
            }
            m_mergedFiles.clear();  // to be written again
            sync::Report report = round->report;
            report.problem =
                u"%1 に書くことができません。%2"_s.arg(QDir::toNativeSeparators(round->ownPath), reason);
            End(report);
        });
}

void DaySync::Fail(const QString& reason) {
    qCWarning(AppLog).noquote() << "the days are not merged:" << reason;
    sync::Report report = m_report;
    report.problem = reason.simplified();
    m_mergedFiles.clear();
    End(report);
}

void DaySync::End(sync::Report report) {
    m_report = std::move(report);
    m_isBusy = false;
    if (m_isWanted && !m_soon->IsRunning()) {
        Later(kSoon);
    }
    m_parts.statusChanged();
}

/// After the files were read: for a folder on a network that does not respond, this call would hang.
void DaySync::WatchFolder() {
    const bool isSame = m_watched == m_place.folder && m_parts.watch && m_parts.watch->IsWatching();
    if (m_parts.watch && !isSame) {
        m_watched = m_place.folder;
        m_parts.watch->Watch(m_watched, [this] { Request(); });
    }
}

}  // namespace tickwell::app
