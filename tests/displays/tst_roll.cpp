// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/roll.h"
#include "lines/line_look.h"
#include "shell/main_window_bench.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kNone = -1;

/// A roll whose changes of display are only recorded.
struct Bench : LinesBench {
    RollSettings settings{.use = true, .kinds = {0, 1, 4, 5}, .interval = 10};
    QList<qint32> shown;
    Roll roll{displays, settings, power, handlers, time, [this](qint32 number) { Show(number); }};

    void Show(qint32 number) {
        shown.append(number);
        roll.FunctionChanged(number);
    }
};

}  // namespace

/// The displays that take turns.
class TstRoll : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void EachDisplayHasItsNext_data();
    void EachDisplayHasItsNext();
    void TheIntervalIsHeldWithinItsRange_data();
    void TheIntervalIsHeldWithinItsRange();
    void EveryIntervalShowsTheNext();
    void OnMainsTheBatteryIsSkipped();
    void TheMainsAreReadAtEachTick();
    void ALateReadingOfTheMainsRollsOnArrival();
    void ADisplayOutsideTheRollStaysWithoutWakeUps();
    void ItGoesOnWhenTheUserReturns();
    void ADisplayChosenByHandStaysForAFullInterval();
    void SwitchedOffItDoesNothing();
    void TheMainWindowRolls();
    void TheMainWindowRollsOnlyWhenItIsOn();
    void AnAppliedSettingTakesEffectAtOnce();
};

void TstRoll::EachDisplayHasItsNext_data() {
    QTest::addColumn<bool>("use");
    QTest::addColumn<QList<qint32>>("kinds");
    QTest::addColumn<qint32>("current");
    QTest::addColumn<Mains>("mains");
    QTest::addColumn<qint32>("next");
    const QList<qint32> all{0, 1, 4, 5};
    QTest::newRow("clock") << true << all << 0 << Mains::Off << 1;
    QTest::newRow("usage") << true << all << 1 << Mains::Off << 4;
    QTest::newRow("battery") << true << all << 4 << Mains::Off << 5;
    QTest::newRow("from the last to the first") << true << all << 5 << Mains::Off << 0;
    QTest::newRow("battery skipped on mains") << true << all << 1 << Mains::On << 5;
    QTest::newRow("battery left on mains") << true << all << 4 << Mains::On << 5;
    QTest::newRow("battery while the mains are unknown") << true << all << 1 << Mains::Unknown << 4;
    QTest::newRow("those not chosen are skipped") << true << QList<qint32>{0, 5} << 0 << Mains::Off << 5;
    QTest::newRow("in any order") << true << QList<qint32>{5, 1, 0} << 0 << Mains::Off << 1;
    QTest::newRow("named twice") << true << QList<qint32>{0, 0, 1, 1} << 1 << Mains::Off << 0;
    QTest::newRow("off") << false << all << 0 << Mains::Off << kNone;
    QTest::newRow("none chosen") << true << QList<qint32>() << 0 << Mains::Off << kNone;
    QTest::newRow("the only one") << true << QList<qint32>{1} << 1 << Mains::Off << kNone;
    QTest::newRow("not chosen itself") << true << QList<qint32>{0, 5} << 1 << Mains::Off << kNone;
    QTest::newRow("only the battery left, on mains")
        << true << QList<qint32>{0, 4} << 0 << Mains::On << kNone;
    QTest::newRow("stopwatch") << true << all << 2 << Mains::Off << kNone;
    QTest::newRow("timer") << true << all << 3 << Mains::Off << kNone;
    QTest::newRow("CD") << true << all << 6 << Mains::Off << kNone;
    QTest::newRow("a stopwatch in the list") << true << QList<qint32>{0, 2} << 2 << Mains::Off << kNone;
    QTest::newRow("stopwatch and timer in the list")
        << true << QList<qint32>{0, 2, 3} << 0 << Mains::Off << kNone;
    QTest::newRow("no function") << true << QList<qint32>{0, 99} << 99 << Mains::Off << kNone;
}

void TstRoll::EachDisplayHasItsNext() {
    QFETCH(bool, use);
    QFETCH(QList<qint32>, kinds);
    QFETCH(qint32, current);
    QFETCH(Mains, mains);
    QFETCH(qint32, next);
    const LinesBench bench;
    QCOMPARE(NextInRoll(bench.displays, {use, kinds, 10}, current, mains).value_or(kNone), next);
}

void TstRoll::TheIntervalIsHeldWithinItsRange_data() {
    QTest::addColumn<qint32>("stored");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("shortest") << 1 << 1000;
    QTest::newRow("first") << 10 << 10'000;
    QTest::newRow("longest") << 3600 << 3'600'000;
    QTest::newRow("below") << 0 << 1000;
    QTest::newRow("far below") << std::numeric_limits<qint32>::min() << 1000;
    QTest::newRow("above") << std::numeric_limits<qint32>::max() << 3'600'000;
}

void TstRoll::TheIntervalIsHeldWithinItsRange() {
    QFETCH(qint32, stored);
    QFETCH(int, milliseconds);
    QCOMPARE(RollIntervalOf({true, {}, stored}), milliseconds);
}

void TstRoll::EveryIntervalShowsTheNext() {
    Bench bench;
    bench.Show(0);
    bench.time.Advance(9'999);
    QCOMPARE(bench.shown, QList<qint32>{0});
    bench.time.Advance(1);
    QCOMPARE(bench.shown, (QList<qint32>{0, 1}));
    bench.time.Advance(40'000);
    QCOMPARE(bench.shown, (QList<qint32>{0, 1, 4, 5, 0, 1}));
}

void TstRoll::OnMainsTheBatteryIsSkipped() {
    Bench bench;
    bench.power.SetReading({Mains::On, std::nullopt, std::nullopt});
    bench.Show(0);
    bench.time.Advance(40'000);
    QCOMPARE(bench.shown, (QList<qint32>{0, 1, 5, 0, 1}));
}

void TstRoll::TheMainsAreReadAtEachTick() {
    Bench bench;
    bench.settings.kinds = {0, 4};
    bench.power.SetReading({Mains::On, std::nullopt, std::nullopt});
    bench.Show(0);
    bench.time.Advance(30'000);
    QCOMPARE(bench.shown, QList<qint32>{0});
    bench.power.SetReading({Mains::Off, 80, std::nullopt});
    bench.time.Advance(10'000);
    QCOMPARE(bench.shown, (QList<qint32>{0, 4}));
}

void TstRoll::ALateReadingOfTheMainsRollsOnArrival() {
    Bench bench;
    bench.power.isSlow = true;
    bench.Show(0);
    bench.time.Advance(10'000);
    QCOMPARE(bench.shown, QList<qint32>{0});
    QVERIFY(bench.power.Answer());
    QCOMPARE(bench.shown, (QList<qint32>{0, 1}));
    bench.time.Advance(10'000);
    bench.Show(5);  // by the user, before the reply
    QVERIFY(!bench.power.Answer());
    QCOMPARE(bench.shown, (QList<qint32>{0, 1, 5}));
}

void TstRoll::ADisplayOutsideTheRollStaysWithoutWakeUps() {
    for (const qint32 number : {2, 3, 6, 99}) {
        Bench bench;
        bench.Show(number);
        QVERIFY(!bench.time.UntilNext());
        bench.time.Advance(100'000);
        QCOMPARE(bench.shown, QList<qint32>{number});
    }
}

void TstRoll::ItGoesOnWhenTheUserReturns() {
    Bench bench;
    bench.Show(0);
    bench.time.Advance(10'000);
    bench.Show(2);
    bench.time.Advance(60'000);
    bench.Show(5);
    bench.time.Advance(10'000);
    QCOMPARE(bench.shown, (QList<qint32>{0, 1, 2, 5, 0}));
}

void TstRoll::ADisplayChosenByHandStaysForAFullInterval() {
    Bench bench;
    bench.Show(0);
    bench.time.Advance(9'000);
    bench.Show(4);
    bench.time.Advance(9'999);
    QCOMPARE(bench.shown, (QList<qint32>{0, 4}));
    bench.time.Advance(1);
    QCOMPARE(bench.shown, (QList<qint32>{0, 4, 5}));
}

void TstRoll::SwitchedOffItDoesNothing() {
    Bench bench;
    bench.Show(0);
    bench.settings.use = false;
    bench.roll.FunctionChanged(0);
    bench.time.Advance(100'000);
    QCOMPARE(bench.shown, QList<qint32>{0});
}

void TstRoll::TheMainWindowRolls() {
    shell::MainWindowBench bench;
    bench.store.Put(u"Roll"_s, u"Use"_s, u"True"_s);
    bench.store.Put(u"Roll"_s, u"Kinds"_s, u"0,1,5"_s);
    bench.store.Put(u"Roll"_s, u"Interval"_s, u"3"_s);
    bench.Start();
    bench.time.Advance(11'000);
    QCOMPARE(bench.Upper().Text(), u"平成10年11月15日(日曜日)"_s);
    bench.time.Advance(3'000);
    QCOMPARE(bench.Upper().Text(), u"Windows使用時間"_s);
    QVERIFY(bench.Item("Menu4").isChecked());
    bench.time.Advance(3'000);
    QCOMPARE(bench.Upper().Text(), u"メモリー使用率"_s);
    bench.time.Advance(3'000);
    QCOMPARE(bench.Lower().Text(), u"午後9時05分27秒"_s);
    QCOMPARE(bench.settings.function, 0);
}

void TstRoll::TheMainWindowRollsOnlyWhenItIsOn() {
    shell::MainWindowBench bench;
    bench.Start();
    bench.time.Advance(300'000);
    QCOMPARE(bench.settings.function, 0);
}

void TstRoll::AnAppliedSettingTakesEffectAtOnce() {
    shell::MainWindowBench bench;
    bench.Start();
    bench.time.Advance(11'000);
    bench.further.roll = {true, {0, 5}, 1};
    bench.form->ApplySettings();
    bench.time.Advance(1'000);
    QCOMPARE(bench.settings.function, 5);
    bench.further.roll.use = false;
    bench.form->ApplySettings();
    bench.time.Advance(100'000);
    QCOMPARE(bench.settings.function, 5);
}

QTEST_MAIN(TstRoll)
#include "tst_roll.moc"
