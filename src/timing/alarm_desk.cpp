// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_desk.h"

#include <algorithm>

#include "timing/alarm_texts.h"

namespace tickwell::timing {

namespace {

// ms
constexpr int kAlarmTick = 1;
constexpr int kMenuWait = 250;              // how often an open menu is checked again
constexpr qint64 kLongestWait = 3'600'000;  // in case the system does not tell that it has slept

}  // namespace

AlarmDesk::AlarmDesk(const AlarmDeskParts& parts)
    : m_parts(parts),
      m_list(parts.clock, parts.store, parts.local),
      m_panel(m_list, parts.clock),
      m_sound(m_parts.sounds, parts.clock, parts.timers, parts.handlers),
      m_timer(parts.timers.CreateExact(kAlarmTick,
                                       [this] { m_parts.handlers.RunTick(*m_timer, [this] { Tick(); }); })) {}

AlarmDesk::~AlarmDesk() {
    m_parts.sounds.stop();  // of the notice, or one that the user listens to
}

void AlarmDesk::Load() {
    if (!m_isLoaded && m_parts.isStored()) {
        m_list.Load();
        m_isLoaded = true;
        Follow(kAlarmTick);
    }
}

void AlarmDesk::Show() {
    Load();
    m_isLoaded = true;  // without a file there is nothing to load later
    if (!m_form) {
        m_form = std::make_unique<AlarmsForm>(AlarmsWindowParts{.panel = m_panel,
                                                                .sounds = m_parts.sounds,
                                                                .clock = m_parts.clock,
                                                                .timers = m_parts.timers,
                                                                .handlers = m_parts.handlers,
                                                                .help = m_parts.help,
                                                                .changed = [this] { Follow(kAlarmTick); }},
                                              nullptr);
    }
    if (!m_form->isVisible()) {
        m_form->MakeRoom();
    }
    Place(*m_form);
    m_form->BringUp();
}

/// An open window stays where the user moved it.
void AlarmDesk::Place(QWidget& window) const {
    if (!window.isVisible()) {
        m_parts.place(window);
    }
}

/// Sleeps until something is due, but no less than `soonest` ms.
void AlarmDesk::Follow(int soonest) {
    const std::optional<qint64> untilDue = m_list.UntilDue();
    if (!untilDue) {
        return m_timer->Stop();
    }
    m_timer->SetInterval(static_cast<int>(std::clamp<qint64>(*untilDue, soonest, kLongestWait)));
    m_timer->Start();
}

void AlarmDesk::TimeJumped() {
    if (!m_isLoaded) {
        return;
    }
    const QString failure = m_list.FollowClock();
    if (!failure.isEmpty()) {
        m_parts.handlers.Tell(failure);
    }
    Follow(kAlarmTick);
    if (m_form && m_form->isVisible()) {
        m_form->RefreshForm();
    }
}

void AlarmDesk::Tick() {
    if (m_parts.isMenuOpen()) {
        return Follow(kMenuWait);
    }
    const DueAlarms due = m_list.TakeDue();
    Follow(kAlarmTick);
    if (!due.calls.isEmpty()) {
        Tell(due.calls);
    }
    if (!due.failure.isEmpty()) {
        m_parts.handlers.Tell(due.failure);
    }
}

void AlarmDesk::Tell(const QList<AlarmCall>& calls) {
    if (m_form && m_form->isVisible()) {
        m_form->RefreshForm();
    }
    if (!m_notice) {
        m_notice = std::make_unique<AlarmNotice>(AlarmNoticeParts{.handlers = m_parts.handlers,
                                                                  .timers = m_parts.timers,
                                                                  .snooze =
                                                                      [this](const QList<qint64>& ids) {
                                                                          m_list.Snooze(ids);
                                                                          Follow(kAlarmTick);
                                                                      },
                                                                  .closed = [this] { m_sound.Stop(); }},
                                                 nullptr);
    }
    const QDate today = m_parts.clock.Now().date();
    QList<AlarmLine> lines;
    for (const AlarmCall& call : calls) {
        lines.append({.id = call.id,
                      .text = CallText(call, QDateTime::fromMSecsSinceEpoch(call.at), today),
                      .snoozeMinutes = call.rings ? call.snoozeMinutes : 0});
    }
    Place(*m_notice);
    m_notice->Tell(lines);
    const auto heard =
        std::find_if(calls.rbegin(), calls.rend(), [](const AlarmCall& call) { return call.rings; });
    if (heard != calls.rend() && !m_parts.isSilent()) {
        m_sound.Ring(heard->sound, heard->ringSeconds);
    }
}

}  // namespace tickwell::timing
