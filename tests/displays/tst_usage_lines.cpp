// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/usage_lines.h"
#include "platform/time/virtual_time.h"
#include "support/fake_text_line.h"
#include "support/further_flags.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    AppSettings settings;
    FurtherSettings further;
    platform::VirtualTime time;
    FakeTextLine upper;
    FakeTextLine lower;
    UsageLines lines{{.settings = settings, .further = further, .clock = time},
                     {.upper = upper, .lower = lower}};

    explicit Bench(qint64 tick) : time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)), tick) {}
};

constexpr qint64 kSignChange = qint64{1} << 31;
constexpr qint64 kTurn = qint64{1} << 32;

void AddMomentsOfTheCounter() {
    QTest::addColumn<qint64>("from");
    QTest::newRow("after the start") << qint64{0};
    QTest::newRow("the counter changes its sign") << kSignChange - 2500;
    QTest::newRow("the counter is negative") << kSignChange + 1'000'000;
    QTest::newRow("the counter turns over") << kTurn - 2500;
}

}  // namespace

/// The time since the system started.
class TstUsageLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingItWipesTheReadingIn();
    void TheLineChangesOnceASecondThoughTheTimerRunsFourTimes();
    void TheLineIsNeverLate();
    void TheReadingTurnsNegativeAfterTwentyFourDays();
    void TheNextChangeOfTheTextIsDue_data();
    void TheNextChangeOfTheTextIsDue();
    void AChangeThatWasMissedIsDueAtOnce();
    void OnlyItsSwitchMakesTheReadingLong_data();
    void OnlyItsSwitchMakesTheReadingLong();
    void TheLongReadingGoesOn_data();
    void TheLongReadingGoesOn();
    void TheNextChangeOfTheLongReadingIsDue_data();
    void TheNextChangeOfTheLongReadingIsDue();
    void ASuspendCounts_data();
    void ASuspendCounts();
    void TheSwitchTakesEffectAtTheNextTick();
};

void TstUsageLines::ChoosingItWipesTheReadingIn() {
    Bench bench(307'000);
    bench.lines.Show();
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 05分07秒"_s});
    bench.lines.Tick();
    QVERIFY(bench.lower.TakeRecord().isEmpty());  // the wipe continues
}

void TstUsageLines::TheLineChangesOnceASecondThoughTheTimerRunsFourTimes() {
    Bench bench(307'000);
    for (int tick = 0; tick < 8; ++tick) {
        bench.lines.Tick();
        bench.time.Advance(250);
    }
    QCOMPARE(bench.lower.TakeRecord(),
             (QStringList{u"set 05分07秒"_s, u"set 05分08秒"_s, u"set 05分09秒"_s}));
}

void TstUsageLines::TheLineIsNeverLate() {
    Bench bench(0);
    for (int ms = 0; ms < 5000; ++ms) {
        bench.lines.Tick();
        const QString shown = bench.lower.Text();
        bench.lines.Show();  // always shows the current text
        QCOMPARE(shown, bench.lower.Text());
        bench.time.Advance(1);
    }
}

void TstUsageLines::TheReadingTurnsNegativeAfterTwentyFourDays() {
    Bench bench(2147483647);
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"596時間31分24秒"_s);
    bench.time.Advance(1);
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"-31分-24秒"_s);
}

void TstUsageLines::TheNextChangeOfTheTextIsDue_data() {
    AddMomentsOfTheCounter();
}

void TstUsageLines::TheNextChangeOfTheTextIsDue() {
    QFETCH(qint64, from);
    Bench bench(from);
    for (int ms = 0; ms < 5000; ++ms) {
        bench.lines.Tick();
        const QString shown = bench.lower.Text();
        Bench later(from + ms + bench.lines.UntilDue() - 1);
        later.lines.Show();
        QCOMPARE(later.lower.Text(), shown);
        later.time.Advance(1);
        later.lines.Show();
        QVERIFY(later.lower.Text() != shown);
        bench.time.Advance(1);
    }
}

void TstUsageLines::AChangeThatWasMissedIsDueAtOnce() {
    Bench bench(307'000);
    bench.lines.Tick();
    bench.time.Advance(700);
    QCOMPARE(bench.lines.UntilDue(), qint64{1});
}

void TstUsageLines::OnlyItsSwitchMakesTheReadingLong_data() {
    AddRowOfEachFlag();
}

void TstUsageLines::OnlyItsSwitchMakesTheReadingLong() {
    QFETCH(FurtherSettings, further);
    Bench bench(kSignChange);
    bench.further = further;
    bench.lines.Show();
    const bool isLong = QTest::currentDataTag() == QByteArray("LongUsage");
    QCOMPARE(bench.lower.Text(), isLong ? u"596時間31分24秒"_s : u"-31分-24秒"_s);
}

void TstUsageLines::TheLongReadingGoesOn_data() {
    QTest::addColumn<qint64>("from");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("the sign change") << kSignChange - 648
                                     << QStringList{u"set 596時間31分23秒"_s, u"set 596時間31分24秒"_s,
                                                    u"set 596時間31分25秒"_s};
    QTest::newRow("the turn") << kTurn - 1296
                              << QStringList{u"set 1193時間02分46秒"_s, u"set 1193時間02分47秒"_s,
                                             u"set 1193時間02分48秒"_s};
}

void TstUsageLines::TheLongReadingGoesOn() {
    QFETCH(qint64, from);
    Bench bench(from);
    bench.further.corrections.longUsage = true;
    for (int tick = 0; tick < 10; ++tick) {
        bench.lines.Tick();
        bench.time.Advance(250);
    }
    QTEST(bench.lower.TakeRecord(), "texts");
}

void TstUsageLines::TheNextChangeOfTheLongReadingIsDue_data() {
    AddMomentsOfTheCounter();
}

/// The text changes at half seconds, which are rounded to even.
void TstUsageLines::TheNextChangeOfTheLongReadingIsDue() {
    QFETCH(qint64, from);
    Bench bench(from);
    bench.further.corrections.longUsage = true;
    const auto secondAt = [](qint64 ms) {
        const qint64 rest = ms % 1000;
        const bool isUp = rest > 500 || (rest == 500 && ms / 1000 % 2 == 1);
        return ms / 1000 + (isUp ? 1 : 0);
    };
    for (qint64 now = from; now < from + 5000; ++now) {
        bench.lines.Tick();
        const qint64 due = bench.lines.UntilDue();
        QCOMPARE(secondAt(now + due - 1), secondAt(now));
        QVERIFY(secondAt(now + due) != secondAt(now));
        bench.time.Advance(1);
    }
}

void TstUsageLines::ASuspendCounts_data() {
    QTest::addColumn<bool>("isLong");
    QTest::addColumn<QString>("text");
    QTest::newRow("by default") << false << u"-02分-47秒"_s;
    QTest::newRow("long") << true << u"623時間00分00秒"_s;
}

/// Awake for 23 hours, then suspended for 25 days: both counts include the suspended time.
void TstUsageLines::ASuspendCounts() {
    QFETCH(bool, isLong);
    Bench bench(23 * 3'600'000LL);
    bench.further.corrections.longUsage = isLong;
    bench.lines.Tick();
    bench.time.Suspend(25 * 86'400'000LL);
    bench.lines.Tick();
    QTEST(bench.lower.Text(), "text");
}

void TstUsageLines::TheSwitchTakesEffectAtTheNextTick() {
    Bench bench(kTurn);
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"00分00秒"_s);
    bench.further.corrections.longUsage = true;
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"1193時間02分47秒"_s);
    bench.further.corrections.longUsage = false;
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"00分00秒"_s);
}

QTEST_GUILESS_MAIN(TstUsageLines)
#include "tst_usage_lines.moc"
