// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarms_panel.h"

#include <algorithm>
#include <utility>

#include "core/errors.h"
#include "core/kept_timer.h"
#include "timing/alarm_texts.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstHour = 7;
constexpr int kFirstRing = 60;   // s
constexpr int kFirstSnooze = 5;  // min

}  // namespace

/// Of an alarm that rings once.
bool AlarmsPanel::IsPast(const KeptAlarm& alarm) const {
    return LocalMoment(alarm.once, alarm.time, m_list.Local().offset) <= m_clock.Now().toMSecsSinceEpoch();
}

QString AlarmsPanel::StateOf(const AlarmList::Row& row) const {
    QString state = row.kept.isOn ? u"入"_s : u"切"_s;
    if (row.kept.isOn && row.kept.days == AlarmDays::Once && IsPast(row.kept)) {
        state = u"終了"_s;
    }
    if (m_list.IsNextSkipped(row)) {
        state += u"（1回休み）"_s;
    }
    if (row.kept.againAt != 0) {
        state += u"（もう一度 "_s +
                 m_clock.Now().addMSecs(row.againAt - m_clock.SinceBoot()).toString(u"H:mm"_s) + u"）";
    }
    return state;
}

ShownRow AlarmsPanel::Shown(const AlarmList::Row& row) const {
    const QDate today = m_clock.Now().date();
    const std::optional<Ring> next = m_list.NextOf(row);
    return {.id = row.kept.id,
            .texts = {row.kept.name, row.kept.time.toString(u"H:mm"_s), AlarmDaysText(row.kept, today),
                      next ? RingText(QDateTime::fromMSecsSinceEpoch(next->at), today) : u"なし"_s,
                      StateOf(row)}};
}

QList<ShownRow> AlarmsPanel::Rows() const {
    QList<ShownRow> rows;
    for (const AlarmList::Row& row : m_list.Rows()) {
        rows.append(Shown(row));
    }
    return rows;
}

AlarmActions AlarmsPanel::ActionsOf(qint64 id) const {
    const AlarmList::Row* row = m_list.Find(id);
    if (row == nullptr) {
        return {};
    }
    const bool isSkipped = m_list.IsNextSkipped(*row);
    return {.exists = true,
            .isOn = row->kept.isOn,
            .isSkipped = isSkipped,
            .canSkip = isSkipped || m_list.NextOf(*row).has_value()};
}

KeptAlarm AlarmsPanel::FirstEntry() const {
    return {.time = QTime(kFirstHour, 0),
            .once = m_clock.Now().date().addDays(1),
            .ringSeconds = kFirstRing,
            .snoozeMinutes = kFirstSnooze};
}

KeptAlarm AlarmsPanel::Entry(qint64 id) const {
    const AlarmList::Row* row = m_list.Find(id);
    if (row == nullptr) {
        return FirstEntry();
    }
    KeptAlarm entry = row->kept;
    if (!entry.once.isValid()) {
        entry.once = FirstEntry().once;
    }
    return entry;
}

KeptAlarm AlarmsPanel::CheckedAlarm(KeptAlarm alarm) const {
    if (alarm.days == AlarmDays::Chosen && alarm.weekdays == 0) {
        throw RunTimeError(u"アラームを鳴らす曜日を選んでください。"_s);
    }
    if (alarm.days == AlarmDays::Once && !alarm.once.isValid()) {
        throw RunTimeError(u"アラームを鳴らす日付が正しくありません。"_s);
    }
    if (alarm.days == AlarmDays::Once && IsPast(alarm)) {
        throw RunTimeError(
            u"アラームを鳴らす日時が過ぎています。\r\nこれからの日付と時刻を指定してください。"_s);
    }
    if (alarm.days == AlarmDays::Once && alarm.silentOnDaysOff && m_list.Local().isOff(alarm.once)) {
        throw RunTimeError(
            u"アラームを鳴らす日が休みの日です。\r\n「休みの日は鳴らさない」の印を外してください。"_s);
    }
    alarm.name = alarm.name.simplified().left(kLongestTimerName);
    for (int number = 1; alarm.name.isEmpty(); ++number) {
        const QString name = u"アラーム"_s + QString::number(number);
        const auto& rows = m_list.Rows();
        if (std::none_of(rows.begin(), rows.end(),
                         [&name](const AlarmList::Row& row) { return row.kept.name == name; })) {
            alarm.name = name;
        }
    }
    return alarm;
}

qint64 AlarmsPanel::Add(const KeptAlarm& alarm) {
    return m_list.Add(CheckedAlarm(alarm));
}

void AlarmsPanel::Change(qint64 id, const KeptAlarm& alarm) {
    m_list.Change(id, CheckedAlarm(alarm));
}

}  // namespace tickwell::timing
