// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_list.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "core/errors.h"
#include "timing/log.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

// ms
constexpr qint64 kSnoozeMinute = 60'000;
constexpr qint64 kAlarmClockMoved = 1000;  // a time server moves a clock by less at a time
// A clock that was set back by more showed a wrong date: its days come again, and their alarms with them.
constexpr qint64 kLongestSetBack = 86'400'000;

bool IsOffOrLogged(const std::function<bool(QDate day)>& isOff, QDate day) {
    try {
        return isOff(day);
    } catch (const RunTimeError& error) {
        // An alarm too many is noticed, and one too few is not.
        qCWarning(TimingLog).noquote() << "whether a day is off is unknown:" << error.Detail();
        return false;
    }
}

}  // namespace

AlarmList::AlarmList(const Clock& clock, AlarmStore& store, LocalDays local)
    : m_clock(clock),
      m_store(store),
      m_local{.offset = local.offset,
              .isOff = [isOff = std::move(local.isOff)](QDate day) { return IsOffOrLogged(isOff, day); }},
      m_everyDay{.offset = std::move(local.offset), .isOff = [](QDate) { return false; }} {}

void AlarmList::Load() {
    m_rows.clear();
    for (const KeptAlarm& alarm : m_store.LoadAlarms()) {
        m_rows.push_back(Taken(alarm));
    }
}

AlarmList::Row AlarmList::Taken(const KeptAlarm& kept) const {
    Row row{.kept = kept};
    row.kept.handled = HandledUntil(kept);
    if (kept.againAt != 0) {
        const qint64 until = std::min(kept.againAt - AlarmNow(), kLongestSnooze * kSnoozeMinute);
        row.againAt = m_clock.SinceBoot() + until;
    }
    return row;
}

qint64 AlarmList::HandledUntil(const KeptAlarm& kept) const {
    const qint64 now = AlarmNow();
    return kept.handled > now + kLongestSetBack ? now : kept.handled;
}

const AlarmList::Row* AlarmList::Find(qint64 id) const {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [id](const Row& row) { return row.kept.id == id; });
    return found == m_rows.end() ? nullptr : &*found;
}

AlarmList::Row* AlarmList::ToChange(qint64 id) {
    const Row* row = Find(id);
    return row == nullptr ? nullptr : &m_rows[static_cast<std::size_t>(row - m_rows.data())];
}

std::optional<Ring> AlarmList::NextFromNow(const KeptAlarm& kept) const {
    return NextRingOf(kept, std::max(kept.handled, AlarmNow()), m_local);
}

std::optional<Ring> AlarmList::NextOf(const Row& row) const {
    return row.kept.isOn ? NextFromNow(row.kept) : std::nullopt;
}

bool AlarmList::IsNextSkipped(const Row& row) const {
    const KeptAlarm& kept = row.kept;
    return kept.isOn && kept.skipped.isValid() &&
           LocalMoment(kept.skipped, kept.time, m_local.offset) > AlarmNow();
}

void AlarmList::StoreAlarms(const QList<KeptAlarm>& changed) {
    QList<KeptAlarm> alarms = changed;
    m_store.SaveAlarms(alarms);
}

/// Stores an alarm that does not ring again, then shows it.
void AlarmList::Update(const KeptAlarm& kept) {
    StoreAlarms({kept});
    if (Row* row = ToChange(kept.id)) {
        row->kept = kept;
    }
}

KeptAlarm AlarmList::AsSet(const KeptAlarm& alarm, qint64 id) const {
    KeptAlarm set = alarm;
    set.id = id;
    set.weekdays = alarm.days == AlarmDays::Chosen ? alarm.weekdays : 0;
    set.once = alarm.days == AlarmDays::Once ? alarm.once : QDate();
    set.skipped = QDate();
    set.isOn = true;
    set.handled = AlarmNow();
    set.againAt = 0;
    return set;
}

qint64 AlarmList::Add(const KeptAlarm& alarm) {
    if (m_rows.size() >= static_cast<std::size_t>(kMostAlarms)) {
        throw RunTimeError(
            u"アラームは%1個までです。使わないアラームを削除してください。"_s.arg(kMostAlarms));
    }
    QList<KeptAlarm> added{AsSet(alarm, 0)};
    m_store.SaveAlarms(added);
    m_rows.push_back({.kept = added.front()});
    return added.front().id;
}

void AlarmList::Change(qint64 id, const KeptAlarm& alarm) {
    if (Find(id) != nullptr) {
        Update(AsSet(alarm, id));
    }
}

void AlarmList::SetOn(qint64 id, bool isOn) {
    if (const Row* row = Find(id)) {
        KeptAlarm kept = row->kept;
        kept.isOn = isOn;
        kept.skipped = QDate();
        kept.againAt = 0;
        kept.handled = std::max(kept.handled, AlarmNow());
        Update(kept);
    }
}

void AlarmList::SkipNext(qint64 id, bool skips) {
    const Row* row = Find(id);
    if (row == nullptr || !row->kept.isOn) {
        return;
    }
    KeptAlarm kept = row->kept;
    kept.skipped = QDate();
    if (const std::optional<Ring> next = NextFromNow(kept); skips && next) {
        kept.skipped = next->day;
    }
    Update(kept);
}

void AlarmList::Remove(qint64 id) {
    if (Find(id) != nullptr) {
        m_store.RemoveAlarm(id);
        std::erase_if(m_rows, [id](const Row& row) { return row.kept.id == id; });
    }
}

void AlarmList::Snooze(const QList<qint64>& ids) {
    QList<KeptAlarm> changed;
    for (const qint64 id : ids) {
        if (const Row* row = Find(id)) {
            changed.append(row->kept);
            changed.back().againAt = AlarmNow() + kSnoozeMinute * row->kept.snoozeMinutes;
        }
    }
    if (changed.isEmpty()) {
        return;
    }
    StoreAlarms(changed);
    for (const KeptAlarm& kept : changed) {
        *ToChange(kept.id) = {.kept = kept,
                              .againAt = m_clock.SinceBoot() + kSnoozeMinute * kept.snoozeMinutes};
    }
}

/// The next time after what was handled, whether it rings then or is silent.
std::optional<Ring> AlarmList::NextTimeOfDay(const KeptAlarm& kept) const {
    KeptAlarm everyDay = kept;
    everyDay.skipped = QDate();
    return NextRingOf(everyDay, kept.handled, m_everyDay);
}

/// Marks all times up to now as handled; returns the last of them at which the alarm was to ring.
std::optional<Ring> AlarmList::Passed(KeptAlarm& kept) const {
    const qint64 now = AlarmNow();
    std::vector<Ring> times;
    for (auto time = NextTimeOfDay(kept); time && time->at <= now; time = NextTimeOfDay(kept)) {
        kept.handled = time->at;
        times.push_back(*time);
    }
    const auto last = std::find_if(times.rbegin(), times.rend(), [this, &kept](const Ring& time) {
        return time.day != kept.skipped && !(kept.silentOnDaysOff && m_local.isOff(time.day));
    });
    if (std::any_of(times.begin(), times.end(),
                    [&kept](const Ring& time) { return time.day == kept.skipped; })) {
        kept.skipped = QDate();
    }
    return last == times.rend() ? std::nullopt : std::optional(*last);
}

std::optional<AlarmCall> AlarmList::CallOf(Row& row) const {
    KeptAlarm& kept = row.kept;
    AlarmCall call{.id = kept.id,
                   .name = kept.name,
                   .at = kept.handled,
                   .ago = m_clock.SinceBoot() - row.againAt,
                   .sound = kept.sound,
                   .ringSeconds = kept.ringSeconds,
                   .snoozeMinutes = kept.snoozeMinutes};
    const bool isAgain = kept.againAt != 0 && call.ago >= 0;
    if (isAgain) {
        kept.againAt = 0;
    }
    if (const std::optional<Ring> passed = kept.isOn ? Passed(kept) : std::nullopt) {
        call.at = passed->at;
        call.ago = AlarmNow() - passed->at;
    } else if (!isAgain) {
        return std::nullopt;
    }
    call.rings = call.ago <= kTooLate;
    return call;
}

DueAlarms AlarmList::TakeDue() {
    DueAlarms due;
    QList<KeptAlarm> changed;
    for (Row& row : m_rows) {
        const KeptAlarm before = row.kept;
        if (const std::optional<AlarmCall> call = CallOf(row)) {
            due.calls.append(*call);
        }
        if (row.kept != before) {
            changed.append(row.kept);
        }
    }
    std::stable_sort(due.calls.begin(), due.calls.end(),
                     [](const AlarmCall& a, const AlarmCall& b) { return a.ago > b.ago; });
    if (!changed.isEmpty()) {
        try {
            StoreAlarms(changed);
        } catch (const RunTimeError& error) {
            // They are told all the same, and not again by this run of the program.
            qCWarning(TimingLog).noquote() << "the ring of an alarm was not stored:" << error.Detail();
            due.failure = error.Reason();
        }
    }
    return due;
}

std::optional<qint64> AlarmList::UntilDue() const {
    std::optional<qint64> next;
    const auto consider = [&next](qint64 until) { next = next ? std::min(*next, until) : until; };
    for (const Row& row : m_rows) {
        const KeptAlarm& kept = row.kept;
        if (const auto time = kept.isOn ? NextTimeOfDay(kept) : std::nullopt) {
            consider(time->at - AlarmNow());
        }
        if (kept.againAt != 0) {
            consider(row.againAt - m_clock.SinceBoot());
        }
    }
    return next;
}

QString AlarmList::FollowClock() {
    QList<KeptAlarm> changed;
    for (Row& row : m_rows) {
        const KeptAlarm before = row.kept;
        row.kept.handled = HandledUntil(row.kept);
        const qint64 again = AlarmNow() + (row.againAt - m_clock.SinceBoot());
        if (row.kept.againAt != 0 && std::abs(again - row.kept.againAt) >= kAlarmClockMoved) {
            row.kept.againAt = again;
        }
        if (row.kept != before) {
            changed.append(row.kept);
        }
    }
    if (changed.isEmpty()) {
        return {};
    }
    try {
        StoreAlarms(changed);
    } catch (const RunTimeError& error) {
        qCWarning(TimingLog).noquote() << "the times of alarms were not stored:" << error.Detail();
        return error.Reason();
    }
    return {};
}

}  // namespace tickwell::timing
