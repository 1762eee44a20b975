// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/daily_backup.h"
#include "platform/time/virtual_time.h"
#include "support/fake_message_boxes.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::app;

namespace {

constexpr qint64 kSecond = 1000;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;
constexpr qint64 kDay = 24 * kHour;

/// The daily backup on a machine whose time the test controls, from 2026-11-22 09:00:00 on.
struct Bench {
    platform::VirtualTime time{QDateTime(QDate(2026, 11, 22), QTime(9, 0))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    BackupSettings settings{.daily = true};
    bool canBegin = true;
    bool answers = true;
    QString fault;
    QStringList taken;  ///< "day at the time when it was taken"
    std::function<void(const QString&)> done;
    std::unique_ptr<DailyBackup> program;

    explicit Bench(bool daily = true) { settings.daily = daily; }

    void Start() {
        program.reset();
        program = std::make_unique<DailyBackup>(DailyBackupParts{
            .clock = time,
            .timers = time,
            .jumps = time,
            .handlers = handlers,
            .boxes = boxes,
            .settings = settings,
            .canBegin = [this] { return canBegin; },
            .take =
                [this](QDate day, std::function<void(const QString&)> whenDone) {
                    taken.append(day.toString(u"MM-dd 'at' "_s) + time.Now().toString(u"MM-dd HH:mm:ss"_s));
                    done = std::move(whenDone);
                    if (answers) {
                        done(fault);
                    }
                }});
    }
};

}  // namespace

/// When the daily backup is taken.
class TstDailyBackup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NoTimerRunsByDefault();
    void TwoMinutesAfterTheStart();
    void TwoMinutesAfterEachMidnight();
    void OneTimerSleepsUntilThen();
    void ChosenWhileTheProgramRuns();
    void NoLongerChosen();
    void AfterSleepOverMidnight();
    void AClockThatIsSetForward();
    void AClockThatIsSetAgainAndAgain();
    void AnotherZoneWithAnotherDay();
    void ADatabaseInUseIsWaitedFor();
    void TheUserIsToldAfterThreeFailures();
    void OneFailureIsNotTold();
    void AnEndAfterTheProgramHasGone();
    void AnEndOnTheNextDay();
};

void TstDailyBackup::NoTimerRunsByDefault() {
    Bench bench(false);
    bench.Start();
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.program->Follow();
    bench.time.SetNow(QDateTime(QDate(2026, 11, 25), QTime(9, 0)));
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.time.Advance(3 * kDay);
    QCOMPARE(bench.taken, QStringList());
}

void TstDailyBackup::TwoMinutesAfterTheStart() {
    Bench bench;
    bench.Start();
    bench.time.Advance(2 * kMinute - 1);
    QCOMPARE(bench.taken, QStringList());
    bench.time.Advance(1);
    QCOMPARE(bench.taken, QStringList(u"11-22 at 11-22 09:02:00"_s));
    bench.time.Advance(14 * kHour);
    QCOMPARE(bench.taken.size(), 1);
    bench.Start();  // the second start of the day; whether a backup is due is known by the folder
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.taken.size(), 2);
}

void TstDailyBackup::TwoMinutesAfterEachMidnight() {
    Bench bench;
    bench.Start();
    bench.time.Advance(3 * kDay);
    QCOMPARE(bench.taken, (QStringList{u"11-22 at 11-22 09:02:00"_s, u"11-23 at 11-23 00:02:00"_s,
                                       u"11-24 at 11-24 00:02:00"_s, u"11-25 at 11-25 00:02:00"_s}));
}

void TstDailyBackup::OneTimerSleepsUntilThen() {
    Bench bench;
    bench.Start();
    QCOMPARE(bench.time.UntilNext(), 2 * kMinute);
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.time.UntilNext(), 15 * kHour);  // from 9:02 to 0:02
}

void TstDailyBackup::ChosenWhileTheProgramRuns() {
    Bench bench(false);
    bench.Start();
    bench.time.Advance(5 * kHour);
    bench.settings.daily = true;
    bench.program->Follow();
    bench.time.Advance(kMinute);
    bench.program->Follow();  // other settings were changed; this does not start the delay again
    bench.time.Advance(kMinute);
    QCOMPARE(bench.taken, QStringList(u"11-22 at 11-22 14:02:00"_s));
}

void TstDailyBackup::NoLongerChosen() {
    Bench bench;
    bench.Start();
    bench.settings.daily = false;
    bench.program->Follow();
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    bench.time.Advance(2 * kDay);
    QCOMPARE(bench.taken, QStringList());
    bench.answers = false;
    bench.settings.daily = true;
    bench.program->Follow();
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.taken.size(), 1);
    bench.settings.daily = false;
    bench.program->Follow();
    bench.done(QString());  // a backup that was running then
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstDailyBackup::AfterSleepOverMidnight() {
    Bench bench;
    bench.Start();
    bench.time.Advance(2 * kMinute);
    bench.time.Suspend(20 * kHour);  // until 05:02
    bench.time.Advance(2 * kMinute - 1);
    QCOMPARE(bench.taken.size(), 1);
    bench.time.Advance(1);
    QCOMPARE(bench.taken.at(1), u"11-23 at 11-23 05:04:00"_s);
    bench.time.Suspend(kHour);  // the same day
    bench.time.Advance(kHour);
    QCOMPARE(bench.taken.size(), 2);
    bench.time.Advance(kDay);
    QCOMPARE(bench.taken.at(2), u"11-24 at 11-24 00:02:00"_s);
}

void TstDailyBackup::AClockThatIsSetForward() {
    Bench bench;
    bench.Start();
    bench.time.Advance(2 * kMinute);
    bench.time.SetNow(QDateTime(QDate(2026, 11, 22), QTime(23, 59)));
    bench.time.Advance(3 * kMinute);
    QCOMPARE(bench.taken.at(1), u"11-23 at 11-23 00:02:00"_s);
}

void TstDailyBackup::AClockThatIsSetAgainAndAgain() {
    Bench bench;
    bench.Start();
    for (int i = 0; i < 10; ++i) {
        bench.time.Advance(kMinute);
        bench.time.SetNow(bench.time.Now().addSecs(1));
    }
    QCOMPARE(bench.taken.size(), 1);
}

void TstDailyBackup::AnotherZoneWithAnotherDay() {
    Bench bench;
    bench.Start();
    bench.time.Advance(2 * kMinute);
    QVERIFY(bench.time.SetZone("Pacific/Kiritimati"));  // 14:02 there
    bench.time.Advance(10 * kHour);
    QCOMPARE(bench.taken.at(1), u"11-23 at 11-23 00:02:00"_s);
    QVERIFY(bench.time.SetZone("Asia/Tokyo"));
}

void TstDailyBackup::ADatabaseInUseIsWaitedFor() {
    Bench bench;
    bench.canBegin = false;
    bench.Start();
    bench.time.Advance(5 * kMinute);
    QCOMPARE(bench.taken, QStringList());
    bench.canBegin = true;
    bench.time.Advance(kMinute);
    QCOMPARE(bench.taken, QStringList(u"11-22 at 11-22 09:06:00"_s));
}

void TstDailyBackup::TheUserIsToldAfterThreeFailures() {
    Bench bench;
    bench.fault = u"Backup\r\nディスクの空き容量が足りません。"_s;
    bench.Start();
    bench.time.Advance(2 * kMinute);
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.boxes.Shown().size(), 0);
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.boxes.Shown(),
             (QList<Message>{{MessageIcon::Exclamation, u"控えを取る"_s,
                              u"今日の控えを取れませんでした。今までの控えはそのまま残っています。\r\n\r\n"
                              u"Backup\r\nディスクの空き容量が足りません。"_s}}));
    bench.boxes.Close();
    bench.time.Advance(10 * kHour);
    QCOMPARE(bench.taken.size(), 3);  // nothing more on this day
    bench.fault.clear();
    bench.time.Advance(5 * kHour);
    QCOMPARE(bench.taken.at(3), u"11-23 at 11-23 00:02:00"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstDailyBackup::OneFailureIsNotTold() {
    Bench bench;
    bench.fault = u"使用中"_s;
    bench.Start();
    bench.time.Advance(4 * kMinute);
    bench.fault.clear();
    bench.time.Advance(10 * kMinute);
    QCOMPARE(bench.taken.size(), 3);
    QCOMPARE(bench.boxes.Shown().size(), 0);
    bench.fault = u"使用中"_s;  // the failures of the day before do not count
    bench.time.Advance(kDay - 14 * kMinute - 9 * kHour + 2 * kMinute);
    QCOMPARE(bench.taken.size(), 4);
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.boxes.Shown().size(), 0);
}

void TstDailyBackup::AnEndAfterTheProgramHasGone() {
    Bench bench;
    bench.answers = false;
    bench.Start();
    bench.time.Advance(2 * kMinute);
    bench.program.reset();
    bench.done(u"fault"_s);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
    QCOMPARE(bench.boxes.Shown().size(), 0);
}

void TstDailyBackup::AnEndOnTheNextDay() {
    Bench bench;
    bench.time.SetNow(QDateTime(QDate(2026, 11, 22), QTime(23, 57, 30)));
    bench.answers = false;
    bench.Start();
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.time.UntilNext(), std::nullopt);  // while a backup is taken
    bench.time.Advance(kMinute);
    bench.answers = true;
    bench.done(QString());
    bench.time.Advance(2 * kMinute);
    QCOMPARE(bench.taken.at(1), u"11-23 at 11-23 00:02:30"_s);
}

QTEST_GUILESS_MAIN(TstDailyBackup)
#include "tst_daily_backup.moc"
