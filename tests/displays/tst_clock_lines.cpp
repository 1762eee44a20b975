// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QTest>

#include "core/settings_io.h"
#include "days/table_holidays.h"
#include "displays/clock_lines.h"
#include "platform/time/virtual_time.h"
#include "store/day_store.h"
#include "store/sql_error.h"
#include "support/fake_settings_store.h"
#include "support/fake_text_line.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

/// The clock on 3 October 1998, a Saturday, two seconds before midnight, with a day database of its own.
struct Bench {
    AppSettings settings;
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(23, 59, 58))};
    store::DayStore store;
    store::DayDatabase database{store.Path()};
    FakeTextLine upper;
    FakeTextLine lower;
    days::TableHolidays holidays{database};
    FurtherSettings further;
    ClockLines lines{{.settings = settings,
                      .clock = time,
                      .announcements = {.dayDatabase = database, .holidays = holidays, .further = further}},
                     {.upper = upper, .lower = lower}};

    Bench() { LoadSettings(FakeSettingsStore(), settings); }

    void Add(const QByteArray& values) const {
        store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES " + values);
    }
    /// One tick of Dz_Timer1.
    void Tick() {
        lines.LookUp();
        lines.TimeTick();
    }
    /// The changes of the upper line in this many rotations.
    QStringList Turns(int count) {
        upper.TakeRecord();
        for (int turn = 0; turn < count; ++turn) {
            lines.RotateTick();
        }
        return upper.TakeRecord();
    }
};

constexpr auto kSaturday = u"平成10年10月3日(土曜日)";
constexpr auto kSunday = u"平成10年10月4日(日曜日)";

QString Shown(QStringView text) {
    return u"show "_s + text;
}
QString Set(QStringView text) {
    return u"set "_s + text;
}

}  // namespace

/// Date and time on the two lines.
class TstClockLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingTheClockWipesBothLinesIn();
    void TheTimeIsSetOnceASecondThoughTheTimerRunsFiveTimes();
    void WithoutNamesTheDateIsSetWithoutAWipe();
    void DateAndNamesTakeTurnsWithAWipe();
    void AHolidayWithoutAnniversariesTakesTurnsToo();
    void TheFirstTickAlwaysLooksUp();
    void TheLookUpLeavesTheUpperLineAlone();
    void AfterMidnightTheFirstTurnIsTheFirstName();
    void AfterMidnightWithoutNamesTheNewDateIsSet();
    void SwitchingAwayAndBackKeepsTheTurn();
    void AChangeOfTheDayIsSeenAfterTheRefreshFlag();
    void AChangedStyleIsSeenOnlyAfterTheRefreshFlag();
    void ANameAddedWithoutTheFlagIsSeenTheNextDay();
    void TheRefreshFlagIsForOneLookUp();
    void AFailingLookUpIsNotRepeated();
    void AFailingLookUpDoesNotAnnounceYesterday();
    void TheDateDoesNotWaitForTheDatabase_data();
    void TheDateDoesNotWaitForTheDatabase();
    void TheNextSecondIsDue_data();
    void TheNextSecondIsDue();
    void TheNextMinuteIsDueToLinesOutOfSight();
    void ASecondThatWasMissedIsDueAtOnce();
    void TheNamesAreRetriedAfterFiveSeconds();
};

void TstClockLines::ChoosingTheClockWipesBothLinesIn() {
    Bench bench;
    bench.lines.Show();
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"show 平成10年10月3日(土曜日)"_s});
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 午後11時59分58秒"_s});
}

void TstClockLines::TheTimeIsSetOnceASecondThoughTheTimerRunsFiveTimes() {
    Bench bench;
    for (int tick = 0; tick < 10; ++tick) {
        bench.Tick();
        bench.time.Advance(200);
    }
    QCOMPARE(bench.lower.TakeRecord(), (QStringList{u"set 午後11時59分58秒"_s, u"set 午後11時59分59秒"_s}));
}

void TstClockLines::WithoutNamesTheDateIsSetWithoutAWipe() {
    Bench bench;
    bench.Tick();
    QCOMPARE(bench.Turns(2), (QStringList{Set(kSaturday), Set(kSaturday)}));
}

void TstClockLines::DateAndNamesTakeTurnsWithAWipe() {
    Bench bench;
    bench.Add("('一つ目',0,10,3,0),('二つ目',0,0,3,0)");
    bench.store.Raw("INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('祝日',10,3)");
    bench.Tick();
    QCOMPARE(bench.Turns(5), (QStringList{Shown(u"一つ目"), Shown(u"二つ目"), Shown(u"祝日"),
                                          Shown(kSaturday), Shown(u"一つ目")}));
}

void TstClockLines::AHolidayWithoutAnniversariesTakesTurnsToo() {
    Bench bench;
    bench.store.Raw("INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('祝日',10,3)");
    bench.Tick();
    QCOMPARE(bench.Turns(3), (QStringList{Shown(u"祝日"), Shown(kSaturday), Shown(u"祝日")}));
}

void TstClockLines::TheFirstTickAlwaysLooksUp() {
    Bench bench;
    bench.Add("('今日',0,10,3,0)");
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Shown(u"今日")});
}

void TstClockLines::TheLookUpLeavesTheUpperLineAlone() {
    Bench bench;
    bench.Add("('今日',0,10,3,0)");
    bench.lines.Show();
    bench.upper.TakeRecord();
    bench.Tick();
    bench.time.Advance(2000);  // midnight
    bench.Tick();
    QVERIFY(bench.upper.TakeRecord().isEmpty());
}

void TstClockLines::AfterMidnightTheFirstTurnIsTheFirstName() {
    Bench bench;
    bench.Add("('昨日',0,10,3,0),('今日',0,10,4,0)");
    bench.Tick();
    bench.Turns(1);
    bench.time.Advance(2000);
    bench.Tick();
    QCOMPARE(bench.Turns(2), (QStringList{Shown(u"今日"), Shown(kSunday)}));
    QCOMPARE(bench.lower.Text(), u"午前0時00分00秒"_s);
}

void TstClockLines::AfterMidnightWithoutNamesTheNewDateIsSet() {
    Bench bench;
    bench.Add("('昨日',0,10,3,0)");
    bench.Tick();
    bench.time.Advance(2000);
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Set(kSunday)});
}

void TstClockLines::SwitchingAwayAndBackKeepsTheTurn() {
    Bench bench;
    bench.Add("('一つ目',0,10,3,0),('二つ目',0,10,3,0)");
    bench.Tick();
    bench.Turns(1);
    bench.lines.Show();  // another function was shown in the meantime
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Shown(u"二つ目")});
}

void TstClockLines::AChangeOfTheDayIsSeenAfterTheRefreshFlag() {
    Bench bench;
    bench.Tick();
    bench.Add("('今日',0,10,3,0)");
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Set(kSaturday)});
    bench.lines.RaiseRefresh();
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Shown(u"今日")});
}

void TstClockLines::AChangedStyleIsSeenOnlyAfterTheRefreshFlag() {
    Bench bench;
    bench.Tick();
    bench.settings.language = 1;
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Set(kSaturday)});
    bench.lines.RaiseRefresh();
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Set(u"October 3,1998 Saturday")});
}

void TstClockLines::ANameAddedWithoutTheFlagIsSeenTheNextDay() {
    Bench bench;
    bench.Tick();
    bench.Add("('毎日',0,0,3,0),('毎日',0,0,4,0)");
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Set(kSaturday)});
    bench.time.Advance(2000);
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Shown(u"毎日")});
}

void TstClockLines::TheRefreshFlagIsForOneLookUp() {
    Bench bench;
    bench.Add("('一つ目',0,10,3,0),('二つ目',0,10,3,0)");
    bench.Tick();
    bench.lines.RaiseRefresh();
    QCOMPARE(bench.lines.UntilDue(true), 0);
    bench.Tick();
    QCOMPARE(bench.lines.UntilDue(true), 1000);
    QCOMPARE(bench.Turns(1), QStringList{Shown(u"一つ目")});
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Shown(u"二つ目")});  // a look-up would have restarted the rotation
}

void TstClockLines::AFailingLookUpIsNotRepeated() {
    Bench bench;
    bench.store.Raw("ALTER TABLE Kinenbi RENAME TO Gone");
    QVERIFY_THROWS_EXCEPTION(store::SqlError, bench.lines.LookUp());
    bench.lines.LookUp();  // the day counts as looked up
    QCOMPARE(bench.Turns(1), QStringList{Set(kSaturday)});
}

void TstClockLines::AFailingLookUpDoesNotAnnounceYesterday() {
    Bench bench;
    bench.Add("('昨日',0,10,3,0)");
    bench.Tick();
    bench.store.Raw("ALTER TABLE Kinenbi RENAME TO Gone");
    bench.time.Advance(2000);
    QVERIFY_THROWS_EXCEPTION(store::SqlError, bench.lines.LookUp());
    QCOMPARE(bench.Turns(1), QStringList{Set(kSunday)});
}

void TstClockLines::TheDateDoesNotWaitForTheDatabase_data() {
    QTest::addColumn<bool>("isCompacted");
    QTest::newRow("while it is compacted") << true;
    QTest::newRow("while its file cannot be opened") << false;
}

void TstClockLines::TheDateDoesNotWaitForTheDatabase() {
    QFETCH(bool, isCompacted);
    Bench bench;
    bench.Add("('昨日',0,10,3,0),('今日',0,10,4,0)");
    bench.Tick();
    const QString elsewhere = bench.store.Path() + u".elsewhere";
    bench.database = isCompacted ? store::DayDatabase() : store::DayDatabase::OpenLater(bench.store.Path());
    QVERIFY(QFile::rename(bench.store.Path(), elsewhere));
    bench.time.Advance(2000);  // midnight
    bench.Tick();
    QCOMPARE(bench.Turns(2), (QStringList{Set(kSunday), Set(kSunday)}));
    QVERIFY(QFile::rename(elsewhere, bench.store.Path()));
    if (isCompacted) {
        bench.database = store::DayDatabase(bench.store.Path());
    }
    bench.time.Advance(4999);
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Set(kSunday)});
    bench.time.Advance(1);
    bench.Tick();
    QCOMPARE(bench.Turns(1), QStringList{Shown(u"今日")});
}

void TstClockLines::TheNextSecondIsDue_data() {
    QTest::addColumn<qint32>("language");
    QTest::addColumn<QTime>("now");
    QTest::addColumn<qint64>("due");
    QTest::newRow("on the second") << 0 << QTime(21, 5, 7, 0) << qint64{1000};
    QTest::newRow("within it") << 0 << QTime(21, 5, 7, 350) << qint64{650};
    QTest::newRow("just before the next") << 1 << QTime(21, 5, 7, 999) << qint64{1};
    QTest::newRow("just before midnight") << 0 << QTime(23, 59, 59, 999) << qint64{1};
    QTest::newRow("without seconds") << 2 << QTime(21, 5, 7, 350) << qint64{52'650};
    QTest::newRow("without seconds, just before the next minute") << 2 << QTime(21, 5, 59, 999) << qint64{1};
    QTest::newRow("without any text") << 9 << QTime(21, 5, 0) << qint64{60'000};
}

void TstClockLines::TheNextSecondIsDue() {
    QFETCH(qint32, language);
    QFETCH(QTime, now);
    Bench bench;
    bench.settings.language = language;
    bench.time.SetNow(QDateTime(QDate(1998, 10, 3), now));
    bench.Tick();
    QTEST(bench.lines.UntilDue(true), "due");
}

void TstClockLines::TheNextMinuteIsDueToLinesOutOfSight() {
    Bench bench;
    bench.Tick();
    QCOMPARE(bench.lines.UntilDue(false), qint64{2000});  // to midnight
}

void TstClockLines::ASecondThatWasMissedIsDueAtOnce() {
    Bench bench;
    bench.Tick();
    bench.time.Advance(1000);
    QCOMPARE(bench.lines.UntilDue(true), qint64{1});
    QCOMPARE(bench.lines.UntilDue(false), qint64{1000});
}

void TstClockLines::TheNamesAreRetriedAfterFiveSeconds() {
    Bench bench;
    bench.settings.language = 2;  // without seconds
    bench.time.SetNow(QDateTime(QDate(1998, 10, 3), QTime(21, 5, 7)));
    bench.Tick();
    bench.database.Close();
    bench.lines.RaiseRefresh();
    QCOMPARE(bench.lines.UntilDue(true), qint64{0});
    bench.Tick();
    QCOMPARE(bench.lines.UntilDue(true), qint64{5000});
    bench.time.Advance(3000);
    QCOMPARE(bench.lines.UntilDue(false), qint64{2000});
}

QTEST_GUILESS_MAIN(TstClockLines)
#include "tst_clock_lines.moc"
