// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_list.h"

#include <algorithm>
#include <cstdlib>

#include "core/errors.h"
#include "timing/log.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

// ms. A clock that a time server adjusts moves by less at a time; it is followed when it has moved this far.
constexpr qint64 kClockMoved = 1000;

void StopTimer(KeptTimer& timer, TimerPhase phase) {
    timer.phase = phase;
    timer.stage = 0;
    timer.endsAt = 0;
    timer.remaining = 0;
}

}  // namespace

void TimerList::Load() {
    const KeptTimers kept = m_store.Load();
    m_rows.clear();
    for (const KeptTimer& timer : kept.timers) {
        Take(timer);
    }
    m_presets = kept.presets;
}

/// A clock that was set back while the program did not run cannot make a timer longer than it was set.
qint64 TimerList::BootTimeOf(qint64 utc, qint64 longest) const {
    return m_clock.SinceBoot() + std::min(utc - UtcNow(), longest);
}

void TimerList::Take(const KeptTimer& kept) {
    Row row{.kept = kept};
    if (kept.phase == TimerPhase::Running) {
        row.endsAt = BootTimeOf(kept.endsAt, kept.plan.LengthOf(kept.stage));
    }
    if (kept.againAt != 0) {
        row.againAt = BootTimeOf(kept.againAt, kLongestTimer);
    }
    m_rows.push_back(row);
}

const TimerList::Row* TimerList::Find(qint64 id) const {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [id](const Row& row) { return row.kept.id == id; });
    return found == m_rows.end() ? nullptr : &*found;
}

TimerList::Row* TimerList::Change(qint64 id) {
    const Row* row = Find(id);
    return row == nullptr ? nullptr : &m_rows[static_cast<std::size_t>(row - m_rows.data())];
}

qint64 TimerList::Remaining(const Row& row) const {
    switch (row.kept.phase) {
        case TimerPhase::Idle:
            return row.kept.plan.milliseconds;
        case TimerPhase::Running:
            return std::max<qint64>(0, row.endsAt - m_clock.SinceBoot());
        case TimerPhase::Paused:
            return row.kept.remaining;
        case TimerPhase::Ended:
            break;
    }
    return 0;
}

bool TimerList::IsFree(const Row& row) {
    return row.kept.phase == TimerPhase::Idle || row.kept.phase == TimerPhase::Ended;
}

qint64 TimerList::Add(const TimerPlan& plan) {
    if (m_rows.size() >= static_cast<std::size_t>(kMostTimers)) {
        throw RunTimeError(
            u"タイマーは%1個までです。使わないタイマーを削除してください。"_s.arg(kMostTimers));
    }
    QList<KeptTimer> added{{.id = 0, .plan = plan}};
    m_store.Save(added);
    Take(added.front());
    return added.front().id;
}

void TimerList::Store(const QList<KeptTimer>& changed) {
    QList<KeptTimer> timers = changed;
    m_store.Save(timers);
}

void TimerList::Start(qint64 id) {
    Row* row = Change(id);
    if (row == nullptr || row->kept.phase == TimerPhase::Running) {
        return;
    }
    KeptTimer kept = row->kept;
    if (kept.phase != TimerPhase::Paused) {
        StopTimer(kept, TimerPhase::Idle);
        kept.remaining = kept.plan.milliseconds;
    }
    const qint64 remaining = std::exchange(kept.remaining, 0);
    kept.phase = TimerPhase::Running;
    kept.endsAt = UtcNow() + remaining;
    kept.againAt = 0;
    const qint64 endsAt = m_clock.SinceBoot() + remaining;
    Store({kept});
    *row = {.kept = kept, .endsAt = endsAt};
}

void TimerList::Pause(qint64 id) {
    Row* row = Change(id);
    if (row == nullptr || row->kept.phase != TimerPhase::Running) {
        return;
    }
    const qint64 remaining = Remaining(*row);
    if (remaining == 0) {
        return;  // its end is about to be told
    }
    KeptTimer kept = row->kept;
    kept.phase = TimerPhase::Paused;
    kept.endsAt = 0;
    kept.remaining = remaining;
    Store({kept});
    row->kept = kept;
}

void TimerList::Reset(qint64 id) {
    Row* row = Change(id);
    if (row == nullptr) {
        return;
    }
    KeptTimer kept = row->kept;
    StopTimer(kept, TimerPhase::Idle);
    kept.againAt = 0;
    Store({kept});
    row->kept = kept;
}

void TimerList::Remove(qint64 id) {
    if (Find(id) != nullptr) {
        m_store.Remove(id);
        std::erase_if(m_rows, [id](const Row& row) { return row.kept.id == id; });
    }
}

void TimerList::TellAgain(const QList<qint64>& ids, qint64 milliseconds) {
    QList<KeptTimer> changed;
    for (const qint64 id : ids) {
        if (const Row* row = Find(id)) {
            changed.append(row->kept);
            changed.back().againAt = UtcNow() + milliseconds;
        }
    }
    if (changed.isEmpty()) {
        return;
    }
    Store(changed);
    for (const KeptTimer& kept : changed) {
        Row* row = Change(kept.id);
        row->kept = kept;
        row->againAt = m_clock.SinceBoot() + milliseconds;
    }
}

void TimerList::AddPreset(const TimerPlan& plan) {
    m_presets.append({.id = m_store.AddPreset(plan), .plan = plan});
}

void TimerList::RemovePreset(qint64 preset) {
    m_store.RemovePreset(preset);
    m_presets.removeIf([preset](const TimerPreset& known) { return known.id == preset; });
}

/// If the row's time has passed, moves the row on to the state of now.
std::optional<TimerEnd> TimerList::PassedEnd(Row& row) const {
    KeptTimer& kept = row.kept;
    const qint64 since = m_clock.SinceBoot() - row.endsAt;
    if (kept.phase != TimerPhase::Running || since < 0) {
        return std::nullopt;
    }
    TimerEnd end{.id = kept.id, .name = kept.plan.NameOf(kept.stage), .ago = since, .sound = kept.plan.sound};
    if (!kept.plan.IsChain()) {
        StopTimer(kept, TimerPhase::Ended);
        return end;
    }
    // Whole rounds of the chain first: it may have run for weeks.
    const qint64 round = qint64{kept.plan.milliseconds} + kept.plan.nextMilliseconds;
    row.endsAt += since / round * round;
    do {
        end.name = kept.plan.NameOf(kept.stage);
        end.ago = m_clock.SinceBoot() - row.endsAt;
        kept.stage = 1 - kept.stage;
        row.endsAt += kept.plan.LengthOf(kept.stage);
    } while (row.endsAt <= m_clock.SinceBoot());
    kept.endsAt = UtcNow() + (row.endsAt - m_clock.SinceBoot());
    return end;
}

DueTimers TimerList::TakeDue() {
    DueTimers due;
    QList<KeptTimer> changed;
    for (Row& row : m_rows) {
        std::optional<TimerEnd> end = PassedEnd(row);
        const qint64 sinceAgain = m_clock.SinceBoot() - row.againAt;
        if (row.kept.againAt != 0 && sinceAgain >= 0) {
            row.kept.againAt = 0;
            if (!end) {
                end = {.id = row.kept.id,
                       .name = row.kept.plan.NameOf(0),
                       .ago = sinceAgain,
                       .sound = row.kept.plan.sound};
            }
        }
        if (end) {
            due.ends.append(*end);
            changed.append(row.kept);
        }
    }
    std::stable_sort(due.ends.begin(), due.ends.end(),
                     [](const TimerEnd& a, const TimerEnd& b) { return a.ago > b.ago; });
    if (!changed.isEmpty()) {
        try {
            Store(changed);
        } catch (const RunTimeError& error) {
            // They are told all the same, and not again by this run of the program.
            qCWarning(TimingLog).noquote() << "the end of a timer was not stored:" << error.Detail();
            due.failure = error.Reason();
        }
    }
    return due;
}

std::optional<qint64> TimerList::UntilDue() const {
    std::optional<qint64> next;
    const auto consider = [&next](qint64 at) { next = next ? std::min(*next, at) : at; };
    for (const Row& row : m_rows) {
        if (row.kept.phase == TimerPhase::Running) {
            consider(row.endsAt);
        }
        if (row.kept.againAt != 0) {
            consider(row.againAt);
        }
    }
    return next ? std::optional(*next - m_clock.SinceBoot()) : std::nullopt;
}

QString TimerList::FollowClock() {
    QList<KeptTimer> changed;
    const auto follow = [this](qint64 utc, qint64 boot) {
        const qint64 now = UtcNow() + (boot - m_clock.SinceBoot());
        return std::abs(now - utc) >= kClockMoved ? now : utc;
    };
    for (const Row& row : m_rows) {
        KeptTimer kept = row.kept;
        if (kept.phase == TimerPhase::Running) {
            kept.endsAt = follow(kept.endsAt, row.endsAt);
        }
        if (kept.againAt != 0) {
            kept.againAt = follow(kept.againAt, row.againAt);
        }
        if (kept != row.kept) {
            changed.append(kept);
        }
    }
    if (changed.isEmpty()) {
        return {};
    }
    try {
        Store(changed);
    } catch (const RunTimeError& error) {
        qCWarning(TimingLog).noquote() << "the ends of timers were not stored:" << error.Detail();
        return error.Reason();
    }
    for (const KeptTimer& kept : changed) {
        Change(kept.id)->kept = kept;
    }
    return {};
}

}  // namespace tickwell::timing
