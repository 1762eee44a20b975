// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/clock_bench.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

const QString kDate = u"平成10年10月4日(日曜日)"_s;

FurtherSettings With(const QString& zone, const QString& name) {
    FurtherSettings further;
    further.face.showsZone = true;
    further.face.zone = zone;
    further.face.zoneName = name;
    return further;
}

FurtherSettings WithLondon() {
    return With(u"Europe/London"_s, u"ロンドン"_s);
}

/// Shows the clock, by default from 12:00 on 4 October 1998, when it is 4:00 in London.
void BeginAtNoon(ClockBench& bench, QTime time = QTime(12, 0)) {
    bench.time.SetNow(QDateTime(QDate(1998, 10, 4), time));
    bench.clock.Show();
    bench.upper.TakeRecord();
}

/// What the upper line shows during `count` turns of the rotation.
QStringList Turns(ClockBench& bench, int count) {
    bench.time.Advance(count * kTurn);
    return bench.upper.TakeRecord();
}

}  // namespace

/// The time in another zone on the upper line.
class TstZoneLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItsTurnIsBehindTheNames();
    void WithoutNamesItTakesTurnsWithTheDate();
    void WithoutAZoneNothingChanges_data();
    void WithoutAZoneNothingChanges();
    void TheMinuteTurnsWhileItIsShown_data();
    void TheMinuteTurnsWhileItIsShown();
    void TheDateIsNotReplacedByTheMinute();
    void AChoiceIsSeenAtTheNextTurn();
    void ItIsGoneAtTheNextTurn();
    void ItCausesNoOtherTicks();
};

void TstZoneLine::ItsTurnIsBehindTheNames() {
    ClockBench bench(WithLondon());
    BeginAtNoon(bench);
    QCOMPARE(Turns(bench, 5),
             (QStringList{u"show first of 4"_s, u"show second of 4"_s, u"show ロンドン 4:00"_s,
                          u"show "_s + kDate, u"show first of 4"_s}));
}

void TstZoneLine::WithoutNamesItTakesTurnsWithTheDate() {
    ClockBench bench(WithLondon());
    bench.store.Raw("DELETE FROM Kinenbi");
    BeginAtNoon(bench);
    QCOMPARE(Turns(bench, 3),
             (QStringList{u"show ロンドン 4:00"_s, u"show "_s + kDate, u"show ロンドン 4:00"_s}));
}

void TstZoneLine::WithoutAZoneNothingChanges_data() {
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<QString>("zone");
    QTest::newRow("off") << false << u"Europe/London"_s;
    QTest::newRow("none chosen") << true << u""_s;
    QTest::newRow("an unknown one") << true << u"Europe/Lodnon"_s;
}

void TstZoneLine::WithoutAZoneNothingChanges() {
    QFETCH(const bool, isOn);
    QFETCH(const QString, zone);
    FurtherSettings further = With(zone, u"ロンドン"_s);
    further.face.showsZone = isOn;
    ClockBench bench(further);
    bench.store.Raw("DELETE FROM Kinenbi");
    BeginAtNoon(bench);
    QCOMPARE(Turns(bench, 2), (QStringList{u"set "_s + kDate, u"set "_s + kDate}));
}

void TstZoneLine::TheMinuteTurnsWhileItIsShown_data() {
    QTest::addColumn<qint32>("language");
    QTest::newRow("with seconds below") << kLanguageJapanese;
    QTest::newRow("without seconds below") << kLanguageOldJapanese;
}

/// The zone's turn begins at 12:59:55 and lasts until 13:00:05.
void TstZoneLine::TheMinuteTurnsWhileItIsShown() {
    QFETCH(const qint32, language);
    ClockBench bench(WithLondon(), language);
    BeginAtNoon(bench, QTime(12, 59, 25));
    QCOMPARE(Turns(bench, 3).constLast(), u"show ロンドン 4:59"_s);
    bench.time.Advance(4'999);
    QCOMPARE(bench.upper.TakeRecord(), QStringList());
    bench.time.Advance(201);
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"set ロンドン 5:00"_s});
    bench.time.Advance(4'000);
    QCOMPARE(bench.upper.TakeRecord(), QStringList());
}

void TstZoneLine::TheDateIsNotReplacedByTheMinute() {
    ClockBench bench(WithLondon());
    BeginAtNoon(bench, QTime(12, 59, 15));
    Turns(bench, 4);
    QCOMPARE(bench.upper.Text(), kDate);
    bench.time.Advance(9'000);  // past the hour
    QCOMPARE(bench.upper.TakeRecord(), QStringList());
}

void TstZoneLine::AChoiceIsSeenAtTheNextTurn() {
    ClockBench bench;
    bench.store.Raw("DELETE FROM Kinenbi");
    BeginAtNoon(bench);
    QCOMPARE(Turns(bench, 1), QStringList{u"set "_s + kDate});
    bench.further = With(u"Asia/Kathmandu"_s, u""_s);
    bench.clock.Refresh();
    QCOMPARE(Turns(bench, 1), QStringList{u"show Kathmandu 8:45"_s});
}

void TstZoneLine::ItIsGoneAtTheNextTurn() {
    ClockBench bench(WithLondon());
    BeginAtNoon(bench);
    Turns(bench, 3);
    QCOMPARE(bench.upper.Text(), u"ロンドン 4:00"_s);
    bench.further.face.showsZone = false;
    QCOMPARE(Turns(bench, 3), (QStringList{u"show "_s + kDate, u"show first of 4"_s, u"show second of 4"_s}));
}

void TstZoneLine::ItCausesNoOtherTicks() {
    for (const qint32 language : {kLanguageJapanese, kLanguageOldJapanese}) {
        ClockBench plain({}, language);
        ClockBench bench(WithLondon(), language);
        plain.clock.Show();
        bench.clock.Show();
        for (int passed = 0; passed < 70'000; passed += 50) {
            for (const bool isSeen : {true, false}) {
                QCOMPARE(bench.clock.UntilDue(isSeen), plain.clock.UntilDue(isSeen));
            }
            plain.time.Advance(50);
            bench.time.Advance(50);
        }
    }
}

QTEST_GUILESS_MAIN(TstZoneLine)
#include "tst_zone_line.moc"
