// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/usage_lines.h"
#include "platform/time/virtual_time.h"
#include "support/fake_text_line.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    AppSettings settings;
    platform::VirtualTime time;
    FakeTextLine upper;
    FakeTextLine lower;
    UsageLines lines{settings, time, {.upper = upper, .lower = lower}};

    explicit Bench(qint64 tick) : time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)), tick) {}
};

}  // namespace

/// The time since the system started.
class TstUsageLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingItWipesTheReadingIn();
    void TheLineChangesOnceASecondThoughTheTimerRunsFourTimes();
    void TheSecondTurnsWhereItsTextTurns();
    void TheReadingTurnsNegativeAfterTwentyFourDays();
    void TheNextChangeIsDueWhereTheTextTurns_data();
    void TheNextChangeIsDueWhereTheTextTurns();
    void AChangeThatWasMissedIsDueAtOnce();
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

void TstUsageLines::TheSecondTurnsWhereItsTextTurns() {
    Bench bench(0);
    for (int ms = 0; ms < 5000; ++ms) {
        bench.lines.Tick();
        const QString shown = bench.lower.Text();
        bench.lines.Show();  // what the text is at this very moment
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

void TstUsageLines::TheNextChangeIsDueWhereTheTextTurns_data() {
    QTest::addColumn<qint64>("from");
    QTest::newRow("after the start") << qint64{0};
    QTest::newRow("the counter changes its sign") << (qint64{1} << 31) - 2500;
    QTest::newRow("the counter is negative") << (qint64{1} << 31) + 1'000'000;
    QTest::newRow("the counter turns over") << (qint64{1} << 32) - 2500;
}

void TstUsageLines::TheNextChangeIsDueWhereTheTextTurns() {
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

QTEST_GUILESS_MAIN(TstUsageLines)
#include "tst_usage_lines.moc"
