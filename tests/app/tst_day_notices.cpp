// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>

#include "app/day_notices_bench.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

const QDate kSunday(2026, 11, 22);
const QDate kMonday(2026, 11, 23);
constexpr qint64 kMinute = 60'000;  // ms
constexpr qint64 kHour = 60 * kMinute;

const QString kToday = u"今日 11月23日(月)は「集金」です"_s;
const QString kTomorrow = u"明日 11月23日(月)は「集金」です"_s;

/// Monday has one name.
struct Bench : DayNoticesBench {
    explicit Bench(const QList<qint32>& daysAhead = {0, 1}) {
        further.notices.daysAhead = daysAhead;
        AddEvery("集金", 11, 23);
    }
};

}  // namespace

/// The notices of days while the program runs.
class TstDayNotices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OffNothingIsDone();
    void TheyComeAtTheirTime();
    void ALateStartTellsAtOnce();
    void NothingIsToldTwice();
    void ASuspendOverTheTimeIsMadeUpFor();
    void WhatWasMissedForADayIsNotMadeUpFor();
    void WithoutAServiceItTriesUntilMidnight();
    void ASlowServiceGetsOneNotice();
    void ANoticeThatMayBeShownIsTold();
    void TheActionsOpenTheCalendar();
    void TheSettingsAreFollowed();
    void ADatabaseThatIsClosedIsAwaited();
    void ARowThatCannotBeReadIsLogged();
    void AStoreThatIsFullIsLogged();
    void WhatIsStoredMayBeDamaged();
    void TheNamesAreThoseOfTheClock();
    void FourHundredMidnights();
};

void TstDayNotices::OffNothingIsDone() {
    Bench bench;
    bench.further.notices.tellsDays = false;
    bench.Start();
    QVERIFY(!bench.time.UntilNext());
    bench.PassTo(kMonday, QTime(12, 0));
    bench.time.Suspend(kHour);
    bench.program->Follow();
    QVERIFY(!bench.time.UntilNext());
    QCOMPARE(bench.notices.shown, 0);
    QCOMPARE(bench.notices.looks, 0);
    QVERIFY(bench.store.Written().isEmpty());
    QVERIFY(bench.store.Asked().isEmpty());
}

void TstDayNotices::TheyComeAtTheirTime() {
    Bench bench;
    bench.Start();
    bench.PassTo(kSunday, QTime(8, 59, 59, 999));
    QCOMPARE(bench.notices.shown, 0);
    bench.time.Advance(1);
    QCOMPARE(bench.notices.Take(), QStringList{kTomorrow});
    QCOMPARE(bench.Stored(), u"2026-11-23/1"_s);
    bench.PassTo(kMonday, QTime(8, 59, 59, 999));
    QCOMPARE(bench.notices.Take(), QStringList());
    bench.time.Advance(1);
    QCOMPARE(bench.notices.Take(), QStringList{kToday});
    QCOMPARE(bench.Stored(), u"2026-11-23/1,2026-11-23/0"_s);
    const DesktopNotice& notice = bench.notices.open.last();
    QVERIFY(notice.isSilent && !notice.isUrgent);
    QCOMPARE(notice.category, u"x-tickwell.day"_s);
    QCOMPARE(notice.body, QString());
}

void TstDayNotices::ALateStartTellsAtOnce() {
    Bench bench;
    bench.time.SetNow(QDateTime(kMonday, QTime(23, 30)));
    bench.Start();
    QCOMPARE(bench.notices.Take(), QStringList{kToday});
    bench.time.Advance(kHour);
    QCOMPARE(bench.notices.Take(), QStringList());
}

void TstDayNotices::NothingIsToldTwice() {
    Bench bench;
    bench.Start();
    bench.PassTo(kSunday, QTime(9, 0));
    QCOMPARE(bench.notices.Take(), QStringList{kTomorrow});
    bench.Start();  // once more
    bench.time.Suspend(kHour);
    bench.time.SetNow(QDateTime(kSunday, QTime(8, 30)));  // back
    bench.PassTo(kSunday, QTime(12, 0));
    bench.time.SetNow(QDateTime(kMonday, QTime(9, 0)));
    QCOMPARE(bench.notices.Take(), QStringList{kToday});
    bench.time.SetNow(QDateTime(kSunday.addDays(-30), QTime(9, 0)));
    bench.time.SetNow(QDateTime(kSunday, QTime(9, 0)));
    bench.Start();
    bench.PassTo(kMonday, QTime(23, 59));
    QCOMPARE(bench.notices.Take(), QStringList());
}

void TstDayNotices::ASuspendOverTheTimeIsMadeUpFor() {
    Bench bench;
    bench.Start();
    bench.time.Suspend(5 * kHour);  // to 13:00
    QCOMPARE(bench.notices.Take(), QStringList{kTomorrow});
    bench.time.Suspend(15 * kHour);  // to 4:00
    QCOMPARE(bench.notices.Take(), QStringList());
    bench.PassTo(kMonday, QTime(9, 0));
    QCOMPARE(bench.notices.Take(), QStringList{kToday});
}

void TstDayNotices::WhatWasMissedForADayIsNotMadeUpFor() {
    Bench bench({1});
    bench.Start();
    bench.time.Suspend(28 * kHour);  // to Monday noon: 明日 would not be true any more
    QCOMPARE(bench.notices.Take(), QStringList());
}

void TstDayNotices::WithoutAServiceItTriesUntilMidnight() {
    Bench bench({1});
    bench.notices.outcome = DesktopNotices::Outcome::NotShown;
    bench.Start();
    bench.PassTo(kSunday, QTime(9, 0));
    QCOMPARE(bench.notices.shown, 1);
    bench.time.Advance(kHour);
    QCOMPARE(bench.notices.shown, 61);  // every minute
    QCOMPARE(bench.Stored(), u"nothing"_s);
    bench.notices.outcome = DesktopNotices::Outcome::Shown;
    bench.time.Advance(kMinute);
    QCOMPARE(bench.notices.Take(), QStringList{kTomorrow});
    bench.notices.outcome = DesktopNotices::Outcome::NotShown;
    bench.PassTo(kSunday, QTime(23, 59));
    QCOMPARE(bench.notices.shown, 62);
}

void TstDayNotices::ASlowServiceGetsOneNotice() {
    Bench bench({1});
    bench.notices.isSlow = true;
    bench.Start();
    bench.PassTo(kSunday, QTime(9, 0));
    bench.time.Suspend(1);
    bench.program->Follow();
    QCOMPARE(bench.notices.shown, 1);
    QCOMPARE(bench.Stored(), u"nothing"_s);
    bench.notices.Answer();
    QCOMPARE(bench.Stored(), u"2026-11-23/1"_s);
    bench.time.Suspend(1);
    QCOMPARE(bench.notices.shown, 1);
    bench.time.SetNow(QDateTime(kSunday.addYears(1), QTime(9, 0)));
    QCOMPARE(bench.notices.shown, 2);
    bench.program.reset();  // the answer comes too late
    bench.notices.Answer();
    QCOMPARE(bench.Stored(), u"2026-11-23/1"_s);
}

void TstDayNotices::ANoticeThatMayBeShownIsTold() {
    Bench bench({1});
    bench.notices.outcome = DesktopNotices::Outcome::Unknown;
    bench.Start();
    bench.PassTo(kSunday, QTime(23, 0));
    QCOMPARE(bench.notices.shown, 1);
    QCOMPARE(bench.Stored(), u"2026-11-23/1"_s);
}

void TstDayNotices::TheActionsOpenTheCalendar() {
    Bench bench({1});
    bench.Start();
    bench.PassTo(kSunday, QTime(9, 0));
    const QList<DesktopNotice::Action>& actions = bench.notices.open.last().actions;
    QCOMPARE(actions.size(), 2);
    for (const DesktopNotice::Action& action : actions) {
        QCOMPARE(action.caption, u"カレンダーを開く"_s);
        bench.notices.Choose(qPrintable(action.key));
    }
    QCOMPARE(actions.constFirst().key, u"default"_s);
    QCOMPARE(bench.opened, (QList<QDate>{kMonday, kMonday}));
    bench.program.reset();
    QVERIFY(bench.notices.open.isEmpty());
}

void TstDayNotices::TheSettingsAreFollowed() {
    Bench bench({1});
    bench.further.notices.tellsDays = false;
    bench.time.SetNow(QDateTime(kSunday, QTime(12, 0)));
    bench.Start();
    bench.further.notices.tellsDays = true;
    bench.further.notices.time = 13 * 60;
    bench.program->Follow();
    QCOMPARE(bench.notices.Take(), QStringList());
    bench.PassTo(kSunday, QTime(12, 30));
    bench.further.notices.time = 12 * 60 + 31;
    bench.program->Follow();
    bench.time.Advance(kMinute);
    QCOMPARE(bench.notices.Take(), QStringList{kTomorrow});
    bench.further.notices.daysAhead = {0, 1};
    bench.PassTo(kMonday, QTime(10, 0));
    bench.further.notices.tellsDays = false;
    bench.program->Follow();
    bench.PassTo(kMonday, QTime(20, 0));
    QCOMPARE(bench.notices.Take(), QStringList());
    QVERIFY(!bench.time.UntilNext());
    bench.further.notices.tellsDays = true;
    bench.program->Follow();
    QCOMPARE(bench.notices.Take(), QStringList{kToday});
}

void TstDayNotices::ADatabaseThatIsClosedIsAwaited() {
    Bench bench({1});
    bench.Start();
    QVERIFY(QFile::rename(bench.dayStore.Path(), bench.dayStore.Path() + u".away"));
    bench.dayDatabase = store::DayDatabase::OpenLater(bench.dayStore.Path());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^the day database is still closed: "_s));
    bench.PassTo(kSunday, QTime(9, 5));
    QCOMPARE(bench.notices.shown, 0);
    QVERIFY(QFile::rename(bench.dayStore.Path() + u".away", bench.dayStore.Path()));
    bench.time.Advance(kMinute);
    QCOMPARE(bench.notices.Take(), QStringList{kTomorrow});
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstDayNotices::ARowThatCannotBeReadIsLogged() {
    Bench bench({1});
    bench.dayStore.Raw("DROP TABLE Kinenbi");
    bench.Start();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^no notices today: "_s));
    bench.PassTo(kSunday, QTime(12, 0));
    QCOMPARE(bench.notices.shown, 0);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstDayNotices::AStoreThatIsFullIsLogged() {
    Bench bench({1});
    bench.store.SetFull(true);
    bench.Start();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^what was told is not stored: "_s));
    bench.PassTo(kSunday, QTime(9, 0));
    bench.time.Suspend(kHour);
    QCOMPARE(bench.notices.Take(), QStringList{kTomorrow});
    QCOMPARE(bench.Stored(), u"nothing"_s);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstDayNotices::WhatIsStoredMayBeDamaged() {
    Bench bench({1});
    bench.store.Put(u"Notices"_s, u"Told"_s, u"2026-11-23/x,,2026-11-23/1"_s);
    bench.Start();
    bench.PassTo(kSunday, QTime(12, 0));
    QCOMPARE(bench.notices.Take(), QStringList());
}

void TstDayNotices::TheNamesAreThoseOfTheClock() {
    Bench bench({0});
    bench.dayStore.Raw("DELETE FROM Kinenbi");
    bench.dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('第三月曜',0,11,0,32)");
    bench.dayStore.Raw("INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('表の祝日',11,10)");
    const auto toldOn = [&bench](QDate day) {
        bench.time.SetNow(QDateTime(day, QTime(9, 0)));
        return bench.notices.Take();
    };
    bench.Start();
    // The clock announces the third Monday on the second Tuesday, unless that was corrected.
    QCOMPARE(toldOn({2026, 11, 10}), QStringList{u"今日 11月10日(火)は「第三月曜」「表の祝日」です"_s});
    QCOMPARE(toldOn({2026, 11, 16}), QStringList());
    bench.further.corrections.weekdayAnniversaries = true;
    bench.further.calendar.holidaysByLaw = true;
    QCOMPARE(toldOn({2027, 11, 15}), QStringList{u"今日 11月15日(月)は「第三月曜」です"_s});
    QCOMPARE(toldOn({2027, 11, 10}), QStringList());
    QCOMPARE(toldOn({2027, 3, 22}), QStringList{u"今日 3月22日(月)は「振替休日」です"_s});
    // The old calendar has a date for every day, so it is no name of a day; its seasons are.
    bench.further.calendar.announcesOldDate = true;
    QCOMPARE(toldOn({2027, 11, 16}), QStringList());
    bench.further.calendar.announcesSeasons = true;
    QCOMPARE(toldOn({2027, 11, 22}), QStringList{u"今日 11月22日(月)は「小雪」です"_s});
}

void TstDayNotices::FourHundredMidnights() {
    Bench bench({0, 1, 3, 7});
    for (int day = 1; day <= 31; ++day) {
        bench.AddEvery("毎日", 0, day);
    }
    bench.Start();
    QMap<QString, int> told;
    for (int midnight = 1; midnight <= 400; ++midnight) {
        bench.PassTo(QDateTime(kSunday.addDays(midnight), QTime(0, 0)));
        if (midnight % 3 == 0) {
            bench.Start();
        }
        const QStringList summaries = bench.notices.Take();
        QCOMPARE(summaries.size(), 4);
        const QDate today = kSunday.addDays(midnight - 1);
        for (const int ahead : {0, 1, 3, 7}) {
            const QDate day = today.addDays(ahead);
            const QString begin = (ahead == 0   ? u"今日 "_s
                                   : ahead == 1 ? u"明日 "_s
                                                : QString::number(ahead) + u"日後 ") +
                                  QString::number(day.month()) + u'月' + QString::number(day.day()) + u"日(";
            const auto isIt = [&begin](const QString& summary) { return summary.startsWith(begin); };
            QCOMPARE(std::count_if(summaries.begin(), summaries.end(), isIt), 1);
            ++told[day.toString(Qt::ISODate) + u'/' + QString::number(ahead)];
        }
    }
    QCOMPARE(told.size(), 1600);
    QCOMPARE(bench.notices.shown, 1600);
    QCOMPARE(bench.store.Commits(), 1600);
}

QTEST_MAIN(TstDayNotices)
#include "tst_day_notices.moc"
