// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>
#include <array>

#include "core/quiet_rule.h"
#include "platform/time/virtual_time.h"
#include "support/fake_do_not_disturb.h"

using namespace tickwell;

namespace {

constexpr int kDay = 1440;  // minutes

QuietSettings Hours(int from, int to) {
    return {.hasHours = true, .from = from, .to = to};
}

/// The quiet minutes of a day: walks from the first one to the one where it ends, around midnight if need be.
std::array<bool, kDay> QuietMinutes(int from, int to) {
    std::array<bool, kDay> quiet{};
    int minute = from;
    do {
        quiet.at(static_cast<std::size_t>(minute)) = true;
        minute = minute == kDay - 1 ? 0 : minute + 1;
    } while (minute != to);
    return quiet;
}

QTime MinuteOfDay(int minute, int second = 0, int ms = 0) {
    return {minute / 60, minute % 60, second, ms};
}

struct Bench {
    explicit Bench(QTime now) : time(QDateTime(QDate(2026, 11, 20), now)) {}

    platform::VirtualTime time;
    QuietSettings settings;
    FakeDoNotDisturb desktop;
    QuietRule rule{settings, time, desktop};
};

}  // namespace

/// When sounds are left out.
class TstQuietRule : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByDefaultNothingIsQuiet();
    void TheNightIsQuietFromItsFirstInstantToItsLast();
    void EveryMinuteOfRandomRanges();
    void EqualTimesAreTheWholeDay();
    void StoredTimesOutOfRangeAreClamped();
    void WithoutHoursNoTimeIsQuiet();
    void EachReasonSilencesWhatIsChosen_data();
    void EachReasonSilencesWhatIsChosen();
    void TheDesktopIsWatchedOnlyIfItCounts();
};

void TstQuietRule::ByDefaultNothingIsQuiet() {
    Bench bench(QTime(23, 0));
    bench.desktop.isWatched = true;
    bench.desktop.mode = true;
    QVERIFY(!bench.rule.SilencesChime());
    QVERIFY(!bench.rule.SilencesTimer());
}

void TstQuietRule::TheNightIsQuietFromItsFirstInstantToItsLast() {
    const QuietSettings night = Hours(22 * 60, 7 * 60);
    QVERIFY(!IsQuietHour(night, QTime(21, 59, 59, 999)));
    QVERIFY(IsQuietHour(night, QTime(22, 0, 0)));
    QVERIFY(IsQuietHour(night, QTime(23, 59, 59, 999)));
    QVERIFY(IsQuietHour(night, QTime(0, 0, 0)));
    QVERIFY(IsQuietHour(night, QTime(6, 59, 59, 999)));
    QVERIFY(!IsQuietHour(night, QTime(7, 0, 0)));
    QVERIFY(!IsQuietHour(night, QTime(12, 0, 0)));
}

void TstQuietRule::EveryMinuteOfRandomRanges() {
    QRandomGenerator random(20'261'123);
    for (int round = 0; round < 500; ++round) {
        // Some ranges of one minute, some that end or begin at midnight
        const int from = round % 10 == 0 ? 0 : random.bounded(kDay);
        const int to = round % 10 == 1 ? 0 : round % 10 == 2 ? (from + 1) % kDay : random.bounded(kDay);
        const auto expected = QuietMinutes(from, to);
        for (int minute = 0; minute < kDay; ++minute) {
            const bool isQuiet = expected.at(static_cast<std::size_t>(minute));
            if (IsQuietHour(Hours(from, to), MinuteOfDay(minute)) != isQuiet ||
                IsQuietHour(Hours(from, to), MinuteOfDay(minute, 59, 999)) != isQuiet) {
                QFAIL(qPrintable(QStringLiteral("%1 to %2: minute %3").arg(from).arg(to).arg(minute)));
            }
        }
    }
}

void TstQuietRule::EqualTimesAreTheWholeDay() {
    for (const int both : {0, 1, 720, kDay - 1}) {
        for (int minute = 0; minute < kDay; ++minute) {
            QVERIFY(IsQuietHour(Hours(both, both), MinuteOfDay(minute)));
        }
    }
}

void TstQuietRule::StoredTimesOutOfRangeAreClamped() {
    QVERIFY(IsQuietHour(Hours(-5, 60), QTime(0, 0)));
    QVERIFY(!IsQuietHour(Hours(-5, 60), QTime(23, 59)));
    QVERIFY(IsQuietHour(Hours(60, 99'999), QTime(23, 58)));
    QVERIFY(!IsQuietHour(Hours(60, 99'999), QTime(23, 59)));
    QVERIFY(!IsQuietHour(Hours(60, 99'999), QTime(0, 59)));
}

void TstQuietRule::WithoutHoursNoTimeIsQuiet() {
    QuietSettings none = Hours(0, 0);
    none.hasHours = false;
    QVERIFY(!IsQuietHour(none, QTime(12, 0)));
}

void TstQuietRule::EachReasonSilencesWhatIsChosen_data() {
    QTest::addColumn<bool>("hasHours");
    QTest::addColumn<bool>("follows");
    QTest::addColumn<int>("mode");  // -1: not told
    QTest::addColumn<int>("hour");
    QTest::addColumn<bool>("isQuiet");
    QTest::newRow("night") << true << false << -1 << 23 << true;
    QTest::newRow("day") << true << false << -1 << 12 << false;
    QTest::newRow("night, without hours") << false << false << -1 << 23 << false;
    QTest::newRow("the desktop, not followed") << false << false << 1 << 12 << false;
    QTest::newRow("the desktop") << false << true << 1 << 12 << true;
    QTest::newRow("the desktop is off") << false << true << 0 << 12 << false;
    QTest::newRow("the desktop does not tell") << false << true << -1 << 12 << false;
    QTest::newRow("night, the desktop is off") << true << true << 0 << 23 << true;
    QTest::newRow("day, the desktop is on") << true << true << 1 << 12 << true;
}

void TstQuietRule::EachReasonSilencesWhatIsChosen() {
    QFETCH(const bool, hasHours);
    QFETCH(const bool, follows);
    QFETCH(const int, mode);
    QFETCH(const int, hour);
    QFETCH(const bool, isQuiet);
    for (const bool chime : {false, true}) {
        for (const bool timer : {false, true}) {
            Bench bench(QTime(hour, 0));
            bench.settings = {.hasHours = hasHours,
                              .silencesChime = chime,
                              .silencesTimer = timer,
                              .followsDesktop = follows};
            bench.desktop.isWatched = true;
            bench.desktop.mode = mode < 0 ? std::nullopt : std::optional(mode == 1);
            QCOMPARE(bench.rule.SilencesChime(), isQuiet && chime);
            QCOMPARE(bench.rule.SilencesTimer(), isQuiet && timer);
        }
    }
}

void TstQuietRule::TheDesktopIsWatchedOnlyIfItCounts() {
    Bench bench(QTime(12, 0));
    bench.rule.Follow();
    QVERIFY(!bench.desktop.isWatched);
    bench.settings.followsDesktop = true;
    bench.rule.Follow();
    QVERIFY(bench.desktop.isWatched);
    bench.settings.followsDesktop = false;
    bench.rule.Follow();
    QVERIFY(!bench.desktop.isWatched);
}

QTEST_GUILESS_MAIN(TstQuietRule)
#include "tst_quiet_rule.moc"
