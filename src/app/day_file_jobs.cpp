// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/day_file_jobs.h"

#include <QCoreApplication>
#include <utility>

#include "core/errors.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds kPatienceAtTheEnd{10};

}  // namespace

/// Receives the results of the worker thread. Only the main thread accesses it; the worker only passes on a
/// weak reference.
struct DayFileJobs::Listener {
    DayFileJobs& owner;
};

DayFileJobs::DayFileJobs(DayFileJobsParts parts, MakeDisk makeDisk)
    : m_parts(std::move(parts)),
      m_makeDisk(std::move(makeDisk)),
      m_listener(std::make_shared<Listener>(Listener{*this})),
      m_jobs(kPatienceAtTheEnd) {}

DayFileJobs::~DayFileJobs() {
    m_listener.reset();
    m_stop.request_stop();
}

std::unique_ptr<store::StoreDisk> DayFileJobs::RealDisk(std::stop_token stop) {
    return std::make_unique<store::PosixStoreDisk>(std::move(stop));
}

void DayFileJobs::Compact(const QObject* owner, std::function<void()> done) {
    if (m_isCompacting) {
        m_owner = owner;
        m_done = std::move(done);
        return;
    }
    Begin(owner, store::CompactDayFile, std::move(done));
    m_isCompacting = true;
}

void DayFileJobs::Replace(const QObject* owner, Replacement replacement, std::function<void()> done) {
    Begin(owner, std::move(replacement), std::move(done));
}

void DayFileJobs::Begin(const QObject* owner, Replacement replacement, std::function<void()> done) {
    if (m_isReplacing || !m_parts.dayDatabase.IsOpen()) {  // in use, for instance by a deletion
        throw RunTimeError(u"データベースは使用中です。終わってからもう一度実行してください。"_s);
    }
    store::BeginCompaction(m_parts.dayDatabase, m_parts.folder);
    m_isReplacing = true;
    m_owner = owner;
    m_done = std::move(done);
    const std::shared_ptr<store::StoreDisk> disk = m_makeDisk(m_stop.get_token());
    m_jobs.Do([disk, replacement = std::move(replacement), folder = m_parts.folder,
               listener = std::weak_ptr(m_listener)] {
        const auto end = std::make_shared<store::CompactionEnd>(replacement(folder, *disk));
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [listener, end] {
                if (const auto stillThere = listener.lock()) {
                    stillThere->owner.Finish(std::move(*end));
                }
            },
            Qt::QueuedConnection);
    });
}

void DayFileJobs::Finish(store::CompactionEnd end) {
    m_isReplacing = false;
    m_isCompacting = false;
    m_parts.handlers.Run(
        [&] { store::EndCompaction(m_parts.dayDatabase, std::move(end), m_parts.boxes, m_owner); }, m_owner);
    if (const auto done = std::exchange(m_done, nullptr)) {
        done();
    }
}

void DayFileJobs::Do(std::function<void(const ProgramFolder& folder, store::StoreDisk& disk)> work,
                     std::function<void(const QString& fault)> done) {
    const std::shared_ptr<store::StoreDisk> disk = m_makeDisk(m_stop.get_token());
    m_jobs.Do([disk, work = std::move(work), done = std::move(done), folder = m_parts.folder,
               listener = std::weak_ptr(m_listener)] {
        QString fault;
        try {
            work(folder, *disk);
        } catch (const RunTimeError& error) {
            fault = error.Reason();
        }
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [listener, done, fault] {
                if (listener.lock()) {
                    done(fault);
                }
            },
            Qt::QueuedConnection);
    });
}

}  // namespace tickwell::app
