// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMap>
#include <QSet>
#include <QTest>
#include <QTimeZone>
#include <memory>
#include <random>

#include "timing/alarm_list_bench.h"
#include "timing/wall.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSessions = 100;
constexpr int kSteps = 200;
constexpr int kAlarms = 8;
constexpr qint64 kMostBack = 20 * kHour;  // a session's clock is never further behind its latest time

/// An alarm clock with a dial, watched minute by minute: it knows what it shows, and on which days it has
/// rung.
struct ExpectedAlarm {
    KeptAlarm set{};
    bool isOn = true;
    QDate skipped{};
    QSet<QDate> rung{};
    qint64 since = 0;              ///< ms since 1970 in UTC: nothing until then counts
    std::optional<qint64> toTell;  ///< the last ring that nobody has told yet
};

class Session {
public:
    Session(unsigned seed, const QTimeZone& zone, const Wall& wall) : m_random(seed), m_wall(wall) {
        m_bench.zone = zone;
        // Within some days before a change of London's clocks.
        m_now =
            QDateTime(seed % 4 < 2 ? QDate(2026, 3, 24) : QDate(2026, 10, 20), QTime(0, 0), QTimeZone::utc())
                .toMSecsSinceEpoch() +
            Up(86'400) * 1000LL;
        m_latest = m_now;
        ShowTime();
        for (int day = -3; day < 120; ++day) {
            if (Up(5) == 1) {
                m_bench.off.insert(Shown(m_now).date().addDays(day));
            }
        }
        Restart();
        for (int i = 0; i < kAlarms; ++i) {
            const KeptAlarm alarm = AnyAlarm();
            m_expected[m_list->Add(alarm)] = {.set = alarm, .since = m_now, .toTell = std::nullopt};
        }
        m_ids = m_expected.keys();
    }

    int Calls() const { return m_calls; }

    /// Returns what is wrong; empty if nothing is.
    QString Step() {
        const qint64 id = m_ids[Up(kAlarms) - 1];
        ExpectedAlarm& alarm = m_expected[id];
        switch (Up(14)) {
            case 1:
                alarm.set = AnyAlarm();
                alarm = {.set = alarm.set, .since = m_now, .toTell = std::nullopt};
                m_list->Change(id, alarm.set);
                break;
            case 2:
                alarm.isOn = !alarm.isOn;
                alarm.skipped = QDate();
                alarm.since = std::max(alarm.since, m_now);
                m_list->SetOn(id, alarm.isOn);
                break;
            case 3:
                Skip(id, alarm);
                break;
            case 4:
                Pass(Up(3000) * kMinute);
                Restart();
                break;
            case 5:
                m_now = std::max(m_now - Up(600) * kMinute, m_latest - kMostBack);
                ShowTime();
                m_list->FollowClock();
                break;
            case 6:  // the clock is put forward
            case 7:  // or the machine sleeps
                Pass(Up(2000) * kMinute);
                m_list->FollowClock();
                break;
            default:
                Pass(Up(20'000'000));
                break;
        }
        return Tell();
    }

private:
    qint32 Up(qint32 most) { return std::uniform_int_distribution<qint32>(1, most)(m_random); }

    KeptAlarm AnyAlarm() {
        KeptAlarm alarm =
            AlarmAt(Up(3) == 1 ? Up(3) - 1 : Up(24) - 1, Up(60) - 1, static_cast<AlarmDays>(Up(4) - 1));
        alarm.weekdays = Up(127);
        alarm.once = Shown(m_now).date().addDays(Up(4));
        alarm.silentOnDaysOff = Up(2) == 1;
        return alarm;
    }

    /// What a clock on the wall shows, as if it were UTC.
    QDateTime Shown(qint64 utc) const {
        const QDateTime local = QDateTime::fromMSecsSinceEpoch(utc, m_bench.zone);
        return QDateTime(local.date(), local.time(), QTimeZone::utc());
    }

    void ShowTime() { m_bench.time.now = QDateTime::fromMSecsSinceEpoch(m_now); }

    void Restart() {
        m_bench.time.since = 40'000;
        m_list = std::make_unique<AlarmList>(m_bench.time, m_bench.store, m_bench.Local());
        m_list->Load();
    }

    static bool IsSetOn(const KeptAlarm& alarm, QDate day) {
        switch (alarm.days) {
            case AlarmDays::Every:
                return true;
            case AlarmDays::Workdays:
                return day.dayOfWeek() != 6 && day.dayOfWeek() != 7;
            case AlarmDays::Chosen:
                return (alarm.weekdays & (1 << (day.dayOfWeek() - 1))) != 0;
            case AlarmDays::Once:
                break;
        }
        return day == alarm.once;
    }

    /// The day on which an alarm rings at this minute, if the dial reaches its time or jumps over it then;
    /// null if it does not, or showed that time an hour ago already.
    QDate Reached(const KeptAlarm& alarm, qint64 minute) const {
        const qint64 shown = m_wall.Shown(minute);
        const qint64 wanted = shown / kWallDay * kWallDay + alarm.time.msecsSinceStartOfDay();
        const bool isReached = wanted == shown || (m_wall.Shown(minute - kMinute) < wanted && wanted < shown);
        if (!isReached || m_wall.Shown(minute - 60 * kMinute) == shown) {
            return {};
        }
        const QDate day = QDateTime::fromMSecsSinceEpoch(shown, QTimeZone::utc()).date();
        return IsSetOn(alarm, day) ? day : QDate();
    }

    void Skip(qint64 id, ExpectedAlarm& alarm) {
        m_list->SkipNext(id, true);
        if (!alarm.isOn) {
            return;
        }
        alarm.skipped = QDate();
        for (qint64 minute = m_now / kMinute * kMinute + kMinute; minute < m_now + 12 * kDay;
             minute += kMinute) {
            const QDate day = Reached(alarm.set, minute);
            if (day.isValid() && minute > alarm.since && !alarm.rung.contains(day) &&
                !(alarm.set.silentOnDaysOff && m_bench.off.contains(day))) {
                alarm.skipped = day;
                return;
            }
        }
        // Nothing within that time: it is not watched for longer.
        m_list->SkipNext(id, false);
    }

    void Pass(qint64 milliseconds) {
        for (qint64 minute = m_now / kMinute * kMinute + kMinute; minute <= m_now + milliseconds;
             minute += kMinute) {
            for (ExpectedAlarm& alarm : m_expected) {
                const QDate day = Reached(alarm.set, minute);
                if (!alarm.isOn || !day.isValid() || minute <= alarm.since || alarm.rung.contains(day)) {
                    continue;
                }
                alarm.rung.insert(day);
                if (day != alarm.skipped && !(alarm.set.silentOnDaysOff && m_bench.off.contains(day))) {
                    alarm.toTell = minute;
                }
            }
        }
        m_now += milliseconds;
        m_latest = std::max(m_latest, m_now);
        m_bench.time.since += milliseconds;
        ShowTime();
    }

    QString Tell() {
        for (const AlarmCall& call : m_list->TakeDue().calls) {
            ExpectedAlarm& alarm = m_expected[call.id];
            ++m_calls;
            if (alarm.toTell != call.at) {
                return u"alarm %1 (%2) at %3 instead of %4"_s.arg(call.id).arg(
                    alarm.set.time.toString(), Shown(call.at).toString(Qt::ISODate),
                    alarm.toTell ? Shown(*alarm.toTell).toString(Qt::ISODate) : u"never"_s);
            }
            alarm.toTell.reset();
            if (call.ago != m_now - call.at || call.rings != (call.ago <= 10 * kMinute)) {
                return u"alarm %1 after %2 ms"_s.arg(call.id).arg(call.ago);
            }
        }
        for (auto alarm = m_expected.cbegin(); alarm != m_expected.cend(); ++alarm) {
            if (alarm->toTell) {
                return u"alarm %1 was not told at %2"_s.arg(alarm.key())
                    .arg(Shown(*alarm->toTell).toString(Qt::ISODate));
            }
        }
        const std::optional<qint64> until = m_list->UntilDue();
        return until && *until <= 0 ? u"something is still due"_s : QString();
    }

    std::mt19937 m_random;
    const Wall& m_wall;
    AlarmBench m_bench;
    qint64 m_now = 0;  // ms since 1970 in UTC
    qint64 m_latest = 0;
    std::unique_ptr<AlarmList> m_list;
    QMap<qint64, ExpectedAlarm> m_expected;
    QList<qint64> m_ids;
    int m_calls = 0;
};

}  // namespace

/// Random sessions of eight alarms with suspends, restarts, set clocks and changes of daylight saving.
class TstAlarmSessions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachRingIsToldExactlyOnce();
};

void TstAlarmSessions::EachRingIsToldExactlyOnce() {
    const QTimeZone london("Europe/London");
    const QTimeZone tokyo("Asia/Tokyo");
    const Wall inLondon(london);
    const Wall inTokyo(tokyo);
    int calls = 0;
    for (unsigned seed = 1; seed <= kSessions; ++seed) {
        Session session(seed, seed % 2 == 0 ? london : tokyo, seed % 2 == 0 ? inLondon : inTokyo);
        for (int step = 0; step < kSteps; ++step) {
            const QString fault = session.Step();
            QVERIFY2(fault.isEmpty(), qPrintable(u"seed %1, step %2: %3"_s.arg(seed).arg(step).arg(fault)));
        }
        calls += session.Calls();
    }
    qInfo("%d sessions, %d rings", kSessions, calls);
    QVERIFY(calls > 10 * kSessions);
}

QTEST_GUILESS_MAIN(TstAlarmSessions)
#include "tst_alarm_sessions.moc"
