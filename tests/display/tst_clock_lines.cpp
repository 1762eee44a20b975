// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/settings_io.h"
#include "display/clock_lines.h"
#include "platform/virtual_time.h"
#include "support/fake_settings_store.h"
#include "support/fake_text_line.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    AppSettings settings;
    VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(23, 59, 58))};
    FakeTextLine upper;
    FakeTextLine lower;
    ClockLines lines{settings, time, {upper, lower}};

    Bench() { LoadSettings(FakeSettingsStore(), settings); }
};

}  // namespace

/// Date and time on the two lines.
class TstClockLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingTheClockWipesBothLinesIn();
    void TheTimeIsSetOnceASecondThoughTheTimerRunsFiveTimes();
    void TheFirstTickAlwaysLooks();
    void MidnightChangesTheDateTextAndTheNextDateTickShowsIt();
    void AChangedStyleIsSeenOnlyAfterTheRefreshFlag();
    void TheDateIsSetWithoutAWipe();
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
        bench.lines.TimeTick();
        bench.time.Advance(200);
    }
    QCOMPARE(bench.lower.TakeRecord(), (QStringList{u"set 午後11時59分58秒"_s, u"set 午後11時59分59秒"_s}));
    QVERIFY(bench.upper.TakeRecord().isEmpty());  // the look-up leaves the upper line alone
}

void TstClockLines::TheFirstTickAlwaysLooks() {
    Bench bench;
    bench.lines.TimeTick();
    bench.lines.DateTick();
    QCOMPARE(bench.upper.Text(), u"平成10年10月3日(土曜日)"_s);
}

void TstClockLines::MidnightChangesTheDateTextAndTheNextDateTickShowsIt() {
    Bench bench;
    bench.lines.TimeTick();
    bench.lines.DateTick();
    bench.time.Advance(2000);
    bench.lines.TimeTick();
    QCOMPARE(bench.upper.Text(), u"平成10年10月3日(土曜日)"_s);
    bench.lines.DateTick();
    QCOMPARE(bench.upper.Text(), u"平成10年10月4日(日曜日)"_s);
    QCOMPARE(bench.lower.Text(), u"午前0時00分00秒"_s);
}

void TstClockLines::AChangedStyleIsSeenOnlyAfterTheRefreshFlag() {
    Bench bench;
    bench.lines.TimeTick();
    bench.settings.language = 1;
    bench.lines.TimeTick();
    bench.lines.DateTick();
    QCOMPARE(bench.upper.Text(), u"平成10年10月3日(土曜日)"_s);
    bench.lines.RaiseRefresh();
    bench.lines.TimeTick();
    bench.lines.DateTick();
    QCOMPARE(bench.upper.Text(), u"October 3,1998 Saturday"_s);
}

void TstClockLines::TheDateIsSetWithoutAWipe() {
    Bench bench;
    bench.lines.TimeTick();
    bench.lines.DateTick();
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"set 平成10年10月3日(土曜日)"_s});
}

QTEST_GUILESS_MAIN(TstClockLines)
#include "tst_clock_lines.moc"
