// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/background_compaction.h"

#include <QCoreApplication>
#include <utility>

#include "core/errors.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds kPatienceAtTheEnd{10};

}  // namespace

/// Receives the result of the worker thread. Only the main thread accesses it; the worker only passes on a
/// weak reference.
struct BackgroundCompaction::Listener {
    BackgroundCompaction& owner;
};

BackgroundCompaction::BackgroundCompaction(BackgroundCompactionParts parts, MakeDisk makeDisk)
    : m_parts(std::move(parts)), m_makeDisk(std::move(makeDisk)), m_jobs(kPatienceAtTheEnd) {}

BackgroundCompaction::~BackgroundCompaction() {
    m_stop.request_stop();
}

std::unique_ptr<store::StoreDisk> BackgroundCompaction::RealDisk(std::stop_token stop) {
    return std::make_unique<store::PosixStoreDisk>(std::move(stop));
}

void BackgroundCompaction::Start(const QObject* owner, std::function<void()> done) {
    if (m_listener == nullptr) {
        if (!m_parts.dayDatabase.IsOpen()) {  // in use, for instance by a deletion
            throw RunTimeError(u"データベースは使用中です。終わってからもう一度実行してください。"_s);
        }
        store::BeginCompaction(m_parts.dayDatabase, m_parts.folder);
        m_listener = std::make_shared<Listener>(Listener{*this});
        const std::shared_ptr<store::StoreDisk> disk = m_makeDisk(m_stop.get_token());
        m_jobs.Do([disk, folder = m_parts.folder, listener = std::weak_ptr(m_listener)] {
            const auto end = std::make_shared<store::CompactionEnd>(store::CompactDayFile(folder, *disk));
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
    m_owner = owner;
    m_done = std::move(done);
}

void BackgroundCompaction::Finish(store::CompactionEnd end) {
    m_listener.reset();
    m_parts.handlers.Run(
        [&] { store::EndCompaction(m_parts.dayDatabase, std::move(end), m_parts.boxes, m_owner); }, m_owner);
    if (const auto done = std::exchange(m_done, nullptr)) {
        done();
    }
}

}  // namespace tickwell::app
