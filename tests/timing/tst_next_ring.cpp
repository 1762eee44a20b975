// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSet>
#include <QTest>
#include <QTimeZone>
#include <random>

#include "timing/next_ring.h"
#include "timing/wall.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr int kAlarms = 10'000;

LocalDays DaysOf(const QTimeZone& zone, const QSet<QDate>& off = {}) {
    return {.offset =
                [zone](qint64 utc) {
                    return zone.offsetFromUtc(QDateTime::fromMSecsSinceEpoch(utc, QTimeZone::utc()));
                },
            .isOff = [off](QDate day) { return off.contains(day); }};
}

/// An independent model: watches a clock on the wall minute by minute. The minute of the alarm is reached
/// when the clock shows it, or has jumped over it. Each day counts once.
class WatchedClock {
public:
    WatchedClock(const KeptAlarm& alarm, const Wall& wall, const QSet<QDate>& off)
        : m_alarm(alarm), m_wall(wall), m_off(off) {}

    /// The first ring after `after` within `days` days.
    std::optional<qint64> After(qint64 after, int days) const {
        // It starts two days early, so that it knows what was rung on the day of `after`.
        qint64 minute = (after / kWallMinute - qint64{2} * 1440) * kWallMinute;
        qint64 before = m_wall.Shown(minute);
        const qint64 ofDay = m_alarm.time.msecsSinceStartOfDay();
        QSet<qint64> rung;
        for (qint64 end = after + days * 1440 * kWallMinute; minute <= end; minute += kWallMinute) {
            const qint64 shown = m_wall.Shown(minute);
            const qint64 wanted = shown / kWallDay * kWallDay + ofDay;  // no zone here skips a midnight
            const bool isReached = wanted == shown || (before < wanted && wanted < shown);
            before = shown;
            if (!isReached || rung.contains(wanted)) {
                continue;
            }
            rung.insert(wanted);
            if (minute > after && IsWanted(QDateTime::fromMSecsSinceEpoch(wanted, QTimeZone::utc()).date())) {
                return minute;
            }
        }
        return std::nullopt;
    }

private:
    bool IsWanted(QDate day) const {
        const QString letter = QString(u"月火水木金土日"_s[day.dayOfWeek() - 1]);
        QString letters = u"月火水木金土日"_s;
        if (m_alarm.days == AlarmDays::Workdays) {
            letters = u"月火水木金"_s;
        } else if (m_alarm.days == AlarmDays::Chosen) {
            letters.clear();
            for (int i = 0; i < 7; ++i) {
                letters += (m_alarm.weekdays & (1 << i)) != 0 ? QString(u"月火水木金土日"_s[i]) : QString();
            }
        } else if (m_alarm.days == AlarmDays::Once && day != m_alarm.once) {
            return false;
        }
        return letters.contains(letter) && !(m_alarm.silentOnDaysOff && m_off.contains(day));
    }

    KeptAlarm m_alarm;
    const Wall& m_wall;
    QSet<QDate> m_off;
};

}  // namespace

/// When an alarm rings next.
class TstNextRing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RandomAlarmsAsOnAWatchedClock_data();
    void RandomAlarmsAsOnAWatchedClock();
    void ASkippedHourRingsAtItsEnd();
    void ARepeatedHourRingsOnce();
    void AMidnightThatIsSkipped();
    void DaysOff();
    void AnAlarmThatNeverRings();
    void OnceIsOver();
    void AnErrorOfTheDaysIsTheCallers();
};

void TstNextRing::RandomAlarmsAsOnAWatchedClock_data() {
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("Tokyo") << QByteArray("Asia/Tokyo");
    QTest::newRow("London") << QByteArray("Europe/London");
}

void TstNextRing::RandomAlarmsAsOnAWatchedClock() {
    QFETCH(QByteArray, zone);
    const QTimeZone place(zone);
    const Wall wall(place);
    std::mt19937 random(20261123);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    int rings = 0;
    int atChanges = 0;
    for (int i = 0; i < kAlarms; ++i) {
        // Half of the moments are within a week before a change of London's clocks.
        const bool isNearChange = upTo(1) == 0;
        const QDate change = upTo(1) == 0 ? QDate(2026, 3, 29) : QDate(2026, 10, 25);
        const QDate day = isNearChange ? change.addDays(-upTo(6)) : QDate(2026, 1, 1).addDays(upTo(364));
        const qint64 after =
            QDateTime(day, QTime(0, 0), QTimeZone::utc()).toMSecsSinceEpoch() + upTo(86'399'999);
        KeptAlarm alarm{.time = QTime(isNearChange ? upTo(3) : upTo(23), upTo(59)),
                        .days = static_cast<AlarmDays>(upTo(3)),
                        .weekdays = upTo(127),
                        .once = day.addDays(upTo(12) - 2),
                        .silentOnDaysOff = upTo(1) == 0};
        QSet<QDate> off;
        for (int count = upTo(8); count > 0; --count) {
            off.insert(day.addDays(upTo(9)));
        }
        const std::optional<qint64> next = NextRing(alarm, after, DaysOf(place, off));
        constexpr int kWatched = 20;  // days
        const std::optional<qint64> expected = WatchedClock(alarm, wall, off).After(after, kWatched);
        const bool isLater = next && *next > after + kWatched * 1440 * kWallMinute;
        if (expected ? next != expected : next && !isLater) {
            const auto text = [](std::optional<qint64> at) {
                return at ? QDateTime::fromMSecsSinceEpoch(*at, QTimeZone::utc()).toString(Qt::ISODateWithMs)
                          : u"never"_s;
            };
            QFAIL(qPrintable(u"alarm %1 at %2 after %3: %4 instead of %5"_s.arg(i).arg(
                alarm.time.toString(), text(after), text(next), text(expected))));
        }
        rings += expected ? 1 : 0;
        if (expected &&
            place.offsetFromUtc(QDateTime::fromMSecsSinceEpoch(*expected - 7'200'000, QTimeZone::utc())) !=
                place.offsetFromUtc(
                    QDateTime::fromMSecsSinceEpoch(*expected + 7'200'000, QTimeZone::utc()))) {
            ++atChanges;
        }
    }
    qInfo("%d of %d alarms ring within the watched time, %d of them near a change of the clocks", rings,
          kAlarms, atChanges);
    QVERIFY(rings > kAlarms / 2);
    QVERIFY(zone == "Asia/Tokyo" || atChanges > 100);
}

void TstNextRing::ASkippedHourRingsAtItsEnd() {
    const LocalDays london = DaysOf(QTimeZone("Europe/London"));
    const KeptAlarm alarm{.time = QTime(1, 30)};  // 29 March 2026: the clocks go from 1:00 to 2:00
    QCOMPARE(NextRing(alarm, Utc(u"2026-03-28T12:00:00"_s), london), Utc(u"2026-03-29T01:00:00"_s));
    QCOMPARE(NextRing(alarm, Utc(u"2026-03-29T01:00:00"_s), london), Utc(u"2026-03-30T00:30:00"_s));
}

void TstNextRing::ARepeatedHourRingsOnce() {
    const LocalDays london = DaysOf(QTimeZone("Europe/London"));
    const KeptAlarm alarm{.time = QTime(1, 30)};  // 25 October 2026: the clocks go from 2:00 back to 1:00
    QCOMPARE(NextRing(alarm, Utc(u"2026-10-24T12:00:00"_s), london), Utc(u"2026-10-25T00:30:00"_s));
    QCOMPARE(NextRing(alarm, Utc(u"2026-10-25T00:30:00"_s), london), Utc(u"2026-10-26T01:30:00"_s));
}

void TstNextRing::AMidnightThatIsSkipped() {
    // In Cairo 24 April 2026 begins at 1:00.
    const LocalDays cairo{
        .offset = [](qint64 utc) { return utc < Utc(u"2026-04-23T22:00:00"_s) ? 7200 : 10'800; },
        .isOff = [](QDate) { return false; }};
    const KeptAlarm alarm{.time = QTime(0, 0), .days = AlarmDays::Once, .once = QDate(2026, 4, 24)};
    QCOMPARE(NextRing(alarm, Utc(u"2026-04-20T00:00:00"_s), cairo), Utc(u"2026-04-23T22:00:00"_s));
}

void TstNextRing::DaysOff() {
    const QTimeZone tokyo("Asia/Tokyo");
    // Friday 20 to Monday 23 November 2026, which is a holiday; Tuesday is the user's own.
    const LocalDays local = DaysOf(tokyo, {QDate(2026, 11, 23), QDate(2026, 11, 24)});
    KeptAlarm alarm{.time = QTime(7, 0), .days = AlarmDays::Workdays, .silentOnDaysOff = true};
    QCOMPARE(NextRing(alarm, Utc(u"2026-11-19T22:00:00"_s), local), Utc(u"2026-11-24T22:00:00"_s));
    alarm.silentOnDaysOff = false;
    QCOMPARE(NextRing(alarm, Utc(u"2026-11-19T22:00:00"_s), local), Utc(u"2026-11-22T22:00:00"_s));
}

void TstNextRing::AnAlarmThatNeverRings() {
    const LocalDays local{.offset = [](qint64) { return 32'400; }, .isOff = [](QDate) { return true; }};
    const qint64 now = Utc(u"2026-11-19T22:00:00"_s);
    QVERIFY(!NextRing({.time = QTime(7, 0), .silentOnDaysOff = true}, now, local));
    QVERIFY(!NextRing({.time = QTime(7, 0), .days = AlarmDays::Chosen, .weekdays = 0}, now, local));
}

void TstNextRing::OnceIsOver() {
    const LocalDays local{.offset = [](qint64) { return 32'400; }, .isOff = [](QDate) { return false; }};
    const KeptAlarm alarm{.time = QTime(7, 0), .days = AlarmDays::Once, .once = QDate(2026, 11, 24)};
    const qint64 ring = Utc(u"2026-11-23T22:00:00"_s);
    QCOMPARE(NextRing(alarm, ring - 1, local), ring);
    QVERIFY(!NextRing(alarm, ring, local));
}

void TstNextRing::AnErrorOfTheDaysIsTheCallers() {
    const LocalDays local{.offset = [](qint64) { return 0; }, .isOff = [](QDate) -> bool { throw 1; }};
    QVERIFY_THROWS_EXCEPTION(int, NextRing({.time = QTime(7, 0), .silentOnDaysOff = true}, 0, local));
    QVERIFY(NextRing({.time = QTime(7, 0)}, 0, local));
}

QTEST_GUILESS_MAIN(TstNextRing)
#include "tst_next_ring.moc"
