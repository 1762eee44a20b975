// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/day_notices.h"

#include <utility>

#include "app/log.h"
#include "days/day_notice_text.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAfterStart = 1000;  // ms; finding the session bus would delay the first frame
constexpr qint64 kRetry = 60'000;  // ms

const QString& ToldSection() {
    static const QString section = u"Notices"_s;
    return section;
}

const QString& ToldKey() {
    static const QString key = u"Told"_s;
    return key;
}

}  // namespace

DayNotices::DayNotices(DayNoticesParts parts)
    : m_parts(std::move(parts)),
      m_timer(
          m_parts.handlers, m_parts.timers, kAfterStart, [this] { Tick(); }, [this] { return UntilDue(); }) {
    m_parts.jumps.Listen([this] { LookAgain(); });
    if (Settings().tellsDays) {
        m_timer.Start();
    }
}

DayNotices::~DayNotices() {
    m_parts.jumps.Listen(nullptr);
    for (const qint32 number : std::as_const(m_shown)) {
        m_parts.notices.Forget(number);
    }
}

void DayNotices::Follow() {
    if (!Settings().tellsDays) {
        m_timer.Stop();
        return;
    }
    if (!m_timer.IsRunning()) {
        m_timer.Start();
    }
    LookAgain();
}

void DayNotices::LookAgain() {
    m_looked = {};
    m_timer.TickNow();
}

void DayNotices::Tick() {
    const QDateTime now = m_parts.clock.Now();
    if (m_looked != now.date() && days::IsTimeOfNotices(Settings(), now)) {
        Look(now);
    }
}

qint64 DayNotices::UntilDue() const {
    const QDateTime now = m_parts.clock.Now();
    const bool isUnsettled = m_looked != now.date() && days::IsTimeOfNotices(Settings(), now);
    return isUnsettled ? kRetry : days::UntilNextNotices(Settings(), now);
}

void DayNotices::Look(const QDateTime& now) {
    if (!m_parts.announcements.dayDatabase.TryOpen()) {
        return;
    }
    m_looked = now.date();  // even if the query fails
    try {
        const auto namesOf = [this](QDate day) { return days::NamesToTell(m_parts.announcements, day); };
        for (const days::DueNotice& due : days::DueNotices(Settings(), now, namesOf, Told())) {
            if (!m_awaited.contains(due.which)) {
                Tell(due);
            }
        }
    } catch (const RunTimeError& error) {
        qCWarning(AppLog).noquote() << "no notices today:" << error.Detail();
    }
}

void DayNotices::Tell(const days::DueNotice& due) {
    const days::NoticeText text = days::DayNoticeText(due.which, due.names, Settings().counts);
    const QString open = u"カレンダーを開く"_s;
    m_awaited.append(due.which);
    m_shown.append(m_parts.notices.Show(
        {.summary = text.summary,
         .body = text.body,
         .actions = {{u"default"_s, open}, {u"calendar"_s, open}},
         .category = u"x-tickwell.day"_s,
         .onAction = [this, day = due.which.day](const QString&) { m_parts.openCalendar(day); }},
        [this, which = due.which](DesktopNotices::Outcome outcome) { Finish(which, outcome); }));
}

void DayNotices::Finish(const days::DayNotice& which, DesktopNotices::Outcome outcome) {
    m_awaited.removeAll(which);
    if (outcome == DesktopNotices::Outcome::NotShown) {
        m_looked = {};
        return;
    }
    Told().Add(which);
    Store();
}

days::ToldNotices& DayNotices::Told() {
    if (!m_told) {
        m_told.emplace();
        try {
            m_told.emplace(m_parts.store.Get(ToldSection(), ToldKey()).value_or(QString()));
        } catch (const RunTimeError& error) {
            qCWarning(AppLog).noquote() << "what was told is not known:" << error.Detail();
        }
    }
    return *m_told;
}

/// If it cannot be stored, it is remembered until the program ends.
void DayNotices::Store() {
    try {
        m_parts.store.Set(ToldSection(), ToldKey(), Told().Text());
        m_parts.store.Commit();
    } catch (const RunTimeError& error) {
        qCWarning(AppLog).noquote() << "what was told is not stored:" << error.Detail();
    }
}

}  // namespace tickwell::app
