// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/daily_backup.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "app/log.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDelay = 120'000;  // ms
constexpr int kTries = 3;

}  // namespace

/// A backup may end after the object has gone.
struct DailyBackup::Listener {
    DailyBackup& owner;
};

DailyBackup::DailyBackup(DailyBackupParts parts)
    : m_parts(std::move(parts)),
      m_timer(m_parts.timers.CreateExact(kDelay,
                                         [this] { m_parts.handlers.RunTick(*m_timer, [this] { Tick(); }); })),
      m_listener(std::make_shared<Listener>(Listener{*this})) {
    m_parts.jumps.Listen([this] { LookAgain(); });
    Follow();
}

DailyBackup::~DailyBackup() {
    m_parts.jumps.Listen(nullptr);
}

void DailyBackup::Follow() {
    if (!m_parts.settings.daily) {
        m_timer->Stop();
    } else if (!m_timer->IsRunning() && !m_isTaking) {
        SleepFor(kDelay);
    }
}

void DailyBackup::SleepFor(qint64 milliseconds) {
    m_sleep = milliseconds;
    m_timer->SetInterval(static_cast<int>(std::min<qint64>(milliseconds, std::numeric_limits<int>::max())));
    m_timer->Start();
}

/// Counted from the beginning of the day, which summer time can move away from midnight.
void DailyBackup::SleepUntilNextDay() {
    const QDateTime now = m_parts.clock.Now();
    SleepFor(std::max<qint64>(0, now.msecsTo(now.date().addDays(1).startOfDay())) + kDelay);
}

/// A delay that has begun is not started again: the clock could be set more often than that.
void DailyBackup::LookAgain() {
    if (!m_timer->IsRunning() || m_sleep <= kDelay) {
        return;
    }
    if (m_settled == m_parts.clock.Now().date()) {
        SleepUntilNextDay();
    } else {
        SleepFor(kDelay);
    }
}

void DailyBackup::Tick() {
    m_timer->Stop();
    const QDate day = m_parts.clock.Now().date();
    if (m_settled == day) {
        SleepUntilNextDay();
        return;
    }
    if (!m_parts.canBegin()) {
        SleepFor(kDelay);
        return;
    }
    m_isTaking = true;
    m_parts.take(day, [this, day, listener = std::weak_ptr(m_listener)](const QString& fault) {
        if (listener.lock()) {
            Finish(day, fault);
        }
    });
}

void DailyBackup::Finish(QDate day, const QString& fault) {
    m_isTaking = false;
    m_failures = fault.isEmpty() ? 0 : m_failures + 1;
    if (!fault.isEmpty()) {
        qCWarning(AppLog).noquote() << "no backup was taken:" << fault.simplified();
    }
    const bool isSettled = m_failures == 0 || m_failures == kTries;
    if (isSettled) {
        m_settled = day;
        m_failures = 0;
    }
    if (m_parts.settings.daily) {
        // It may be another day by now.
        if (m_settled == m_parts.clock.Now().date()) {
            SleepUntilNextDay();
        } else {
            SleepFor(kDelay);
        }
    }
    if (isSettled && !fault.isEmpty()) {
        m_parts.boxes.Show(
            nullptr,
            {MessageIcon::Exclamation, u"控えを取る"_s,
             u"今日の控えを取れませんでした。今までの控えはそのまま残っています。\r\n\r\n"_s + fault},
            [] {});
    }
}

}  // namespace tickwell::app
