// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/battery_lines.h"
#include "support/fake_power.h"
#include "support/fake_text_line.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

const PowerReading kOnMains{Mains::On, std::nullopt, std::nullopt};
const PowerReading kUnknown{};

PowerReading OnBattery(int percent, std::optional<qint64> seconds) {
    return {Mains::Off, percent, seconds};
}

struct Bench {
    FakePower power;
    FakeTextLine upper;
    FakeTextLine lower;
    BatteryLines lines{power, {.upper = upper, .lower = lower}};

    /// The changes of the lower line after a reading.
    QStringList After(const PowerReading& reading) {
        power.SetReading(reading);
        lines.Refresh();
        return lower.TakeRecord();
    }
};

}  // namespace

/// The battery on the lower line.
class TstBatteryLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OnMainsTheLineIsWipedInOnce();
    void OnBatteryChargeAndTimeTakeTurns();
    void TheChargeIsShownIfTheTimeLeftIsUnknown();
    void OnlyReadingsOnBatteryAlternate();
    void AnUnknownSourceIsWipedInAtEveryReading();
    void ABatteryWithoutAChargeIsUnknown();
    void ASlowReadingIsShownWhenItArrives();
    void AReadingThatComesAfterAnotherFunctionIsDropped();
    void TimesLeftRead_data();
    void TimesLeftRead();
};

void TstBatteryLines::OnMainsTheLineIsWipedInOnce() {
    Bench bench;
    QCOMPARE(bench.After(kOnMains), QStringList{u"show AC電源を使用中です"_s});
    QCOMPARE(bench.After(kOnMains), QStringList());
    bench.lower.SetText(u"ほかの文字"_s);
    bench.lower.TakeRecord();
    QCOMPARE(bench.After(kOnMains), QStringList{u"show AC電源を使用中です"_s});
    QVERIFY(bench.upper.TakeRecord().isEmpty());
}

void TstBatteryLines::OnBatteryChargeAndTimeTakeTurns() {
    Bench bench;
    QCOMPARE(bench.After(OnBattery(80, 5400)), QStringList{u"show 80％残っています"_s});
    QCOMPARE(bench.After(OnBattery(79, 5340)), QStringList{u"show あと 1時間29分です"_s});
    QCOMPARE(bench.After(OnBattery(78, 5280)), QStringList{u"show 78％残っています"_s});
}

void TstBatteryLines::TheChargeIsShownIfTheTimeLeftIsUnknown() {
    Bench bench;
    QCOMPARE(bench.After(OnBattery(80, std::nullopt)), QStringList{u"show 80％残っています"_s});
    QCOMPARE(bench.After(OnBattery(80, std::nullopt)), QStringList{u"show 80％残っています"_s});
    QCOMPARE(bench.After(OnBattery(80, 60)), QStringList{u"show 80％残っています"_s});
    QCOMPARE(bench.After(OnBattery(80, 0)), QStringList{u"show 80％残っています"_s});
}

void TstBatteryLines::OnlyReadingsOnBatteryAlternate() {
    Bench bench;
    bench.After(OnBattery(80, 5400));
    bench.After(kOnMains);
    bench.After(kUnknown);
    QCOMPARE(bench.After(OnBattery(80, 5400)), QStringList{u"show あと 1時間30分です"_s});
}

void TstBatteryLines::AnUnknownSourceIsWipedInAtEveryReading() {
    Bench bench;
    QCOMPARE(bench.After(kUnknown), QStringList{u"show 電源が不明です"_s});
    QCOMPARE(bench.After(kUnknown), QStringList{u"show 電源が不明です"_s});
}

void TstBatteryLines::ABatteryWithoutAChargeIsUnknown() {
    Bench bench;
    QCOMPARE(bench.After({Mains::Off, std::nullopt, 60}), QStringList{u"show 電源が不明です"_s});
}

void TstBatteryLines::ASlowReadingIsShownWhenItArrives() {
    Bench bench;
    QCOMPARE(bench.After(OnBattery(80, 5400)), QStringList{u"show 80％残っています"_s});
    bench.power.isSlow = true;
    QCOMPARE(bench.After(OnBattery(79, 5400)), QStringList());  // the last text stays in the meantime
    QVERIFY(bench.power.Answer());
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show あと 1時間30分です"_s});
}

void TstBatteryLines::AReadingThatComesAfterAnotherFunctionIsDropped() {
    Bench bench;
    bench.power.isSlow = true;
    bench.After(kOnMains);
    bench.lines.Hide();
    QVERIFY(!bench.power.Answer());
    QCOMPARE(bench.lower.TakeRecord(), QStringList());
}

void TstBatteryLines::TimesLeftRead_data() {
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("an hour and a half") << qint64{5400} << u"あと 1時間30分です"_s;
    QTest::newRow("minutes are padded, hours are not") << qint64{300} << u"あと 0時間05分です"_s;
    QTest::newRow("seconds are dropped") << qint64{59} << u"あと 0時間00分です"_s;
    QTest::newRow("more than a day") << qint64{100'000} << u"あと 27時間46分です"_s;
}

void TstBatteryLines::TimesLeftRead() {
    QFETCH(qint64, seconds);
    QFETCH(QString, text);
    QCOMPARE(TimeLeftText(seconds), text);
}

QTEST_GUILESS_MAIN(TstBatteryLines)
#include "tst_battery_lines.moc"
