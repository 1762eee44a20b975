// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/clock_bench.h"
#include "support/further_flags.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

constexpr int kMostLate = 200;  // ms

using Change = std::pair<qint64, QStringList>;

FurtherSettings TurningAtMidnight() {
    FurtherSettings further;
    further.corrections.dateTurnsAtMidnight = true;
    return further;
}

/// A way in which the clock reaches another day.
struct Coming {
    const char* name;
    void (*happen)(ClockBench& bench);
    QString date;
    QString firstName;
};

const QString kSunday = u"平成10年10月4日(日曜日)"_s;

QList<Coming> AllComings() {
    return {
        {"midnight", [](ClockBench& bench) { bench.time.Advance(kToMidnight - 1000); }, kSunday,
         u"first of 4"_s},
        {"the clock is set forward",
         [](ClockBench& bench) { bench.time.SetNow(QDateTime(QDate(1998, 10, 4), QTime(12, 0, 0, 300))); },
         kSunday, u"first of 4"_s},
        {"the clock is set back",
         [](ClockBench& bench) { bench.time.SetNow(QDateTime(QDate(1998, 10, 2), QTime(22, 0))); },
         u"平成10年10月2日(金曜日)"_s, u"first of 2"_s},
        {"a resume", [](ClockBench& bench) { bench.time.Suspend(8 * 3'600'000); }, kSunday, u"first of 4"_s},
    };
}

void AddComings() {
    QTest::addColumn<int>("index");
    const QList<Coming> all = AllComings();
    for (qsizetype i = 0; i < all.size(); ++i) {
        QTest::newRow(all[i].name) << static_cast<int>(i);
    }
}

}  // namespace

/// When the upper line shows the new date.
class TstNewDate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheNewDateIsShownAtOnceForTenSeconds_data();
    void TheNewDateIsShownAtOnceForTenSeconds();
    void ByDefaultItWaitsForItsTurn_data();
    void ByDefaultItWaitsForItsTurn();
    void OnlyItsSwitchShowsTheDateAtMidnight_data();
    void OnlyItsSwitchShowsTheDateAtMidnight();
    void ARefreshDoesNotShowTheDate();
    void ADateThatWasJustChosenIsNotWipedInTwice_data();
    void ADateThatWasJustChosenIsNotWipedInTwice();
    void AClockChosenJustBeforeMidnightTurnsToo();
    void TheDateIsShownThoughTheNamesCannotBeRead();
    void AClockSetBackAfterAMidnightWithoutTheSwitchTurns();
    void TheSwitchCausesNoOtherTicks_data();
    void TheSwitchCausesNoOtherTicks();
};

void TstNewDate::TheNewDateIsShownAtOnceForTenSeconds_data() {
    AddComings();
}

void TstNewDate::TheNewDateIsShownAtOnceForTenSeconds() {
    QFETCH(const int, index);
    const Coming coming = AllComings().at(index);
    ClockBench bench(TurningAtMidnight());
    bench.Begin();
    coming.happen(bench);
    const auto [late, shown] = bench.NextChange();
    QVERIFY2(late <= kMostLate, qPrintable(QString::number(late)));
    QCOMPARE(shown, QStringList{u"show "_s + coming.date});
    QCOMPARE(bench.NextChange(), Change(kTurn, {u"show "_s + coming.firstName}));
}

void TstNewDate::ByDefaultItWaitsForItsTurn_data() {
    AddComings();
}

void TstNewDate::ByDefaultItWaitsForItsTurn() {
    QFETCH(const int, index);
    const Coming coming = AllComings().at(index);
    ClockBench bench;
    bench.Begin();
    coming.happen(bench);
    bench.time.Advance(kMostLate);
    QCOMPARE(bench.upper.TakeRecord(), QStringList());
    const qint64 until = kTurn - 1000 - kMostLate - (index == 0 ? kToMidnight - 1000 : 0);
    QCOMPARE(bench.NextChange(), Change(until, {u"show "_s + coming.firstName}));
}

void TstNewDate::OnlyItsSwitchShowsTheDateAtMidnight_data() {
    AddRowOfEachFlag();
}

void TstNewDate::OnlyItsSwitchShowsTheDateAtMidnight() {
    QFETCH(FurtherSettings, further);
    ClockBench bench(further);
    bench.Begin();
    bench.time.Advance(kToMidnight - 1000 + kMostLate);
    const bool shows = QTest::currentDataTag() == QByteArray("DateTurnsAtMidnight");
    QCOMPARE(bench.upper.TakeRecord(), shows ? QStringList{u"show "_s + kSunday} : QStringList());
}

void TstNewDate::ARefreshDoesNotShowTheDate() {
    ClockBench bench(TurningAtMidnight());
    bench.time.SetNow(QDateTime(QDate(1998, 10, 3), QTime(9, 0)));
    bench.Begin();
    bench.settings.language = kLanguageEnglish;
    bench.clock.Refresh();
    QCOMPARE(bench.NextChange(), Change(kTurn - 1000, {u"show first of 3"_s}));
}

void TstNewDate::ADateThatWasJustChosenIsNotWipedInTwice_data() {
    QTest::addColumn<bool>("isFirst");
    QTest::newRow("the first time") << true;
    QTest::newRow("after another function was shown over midnight") << false;
}

void TstNewDate::ADateThatWasJustChosenIsNotWipedInTwice() {
    QFETCH(const bool, isFirst);
    ClockBench bench(TurningAtMidnight());
    if (!isFirst) {
        bench.Begin();
        bench.clock.Hide();
        bench.time.Advance(kToMidnight);
        QCOMPARE(bench.upper.TakeRecord(), QStringList());
    }
    bench.clock.Show();
    bench.time.Advance(1000);
    const QString date = isFirst ? u"平成10年10月3日(土曜日)"_s : kSunday;
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"show "_s + date});
}

void TstNewDate::AClockChosenJustBeforeMidnightTurnsToo() {
    ClockBench bench(TurningAtMidnight());
    bench.time.Advance(kToMidnight - 100);
    bench.clock.Show();
    bench.time.Advance(100 + kMostLate);
    QCOMPARE(bench.upper.TakeRecord(),
             (QStringList{u"show 平成10年10月3日(土曜日)"_s, u"show "_s + kSunday}));
}

void TstNewDate::TheDateIsShownThoughTheNamesCannotBeRead() {
    ClockBench bench(TurningAtMidnight());
    bench.Begin();
    bench.store.Raw("ALTER TABLE Kinenbi RENAME TO Gone");
    bench.time.Advance(kToMidnight - 1000);
    const auto [late, shown] = bench.NextChange();
    QVERIFY(late <= kMostLate);
    QCOMPARE(shown, QStringList{u"show "_s + kSunday});
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.NextChange(), Change(kTurn, {u"set "_s + kSunday}));
}

void TstNewDate::AClockSetBackAfterAMidnightWithoutTheSwitchTurns() {
    ClockBench bench;
    bench.Begin();
    bench.time.Advance(kToMidnight);
    bench.further = TurningAtMidnight();
    bench.time.SetNow(QDateTime(QDate(1998, 10, 3), QTime(22, 0)));
    bench.time.Advance(kMostLate);
    QCOMPARE(bench.upper.TakeRecord(), QStringList{u"show 平成10年10月3日(土曜日)"_s});
}

void TstNewDate::TheSwitchCausesNoOtherTicks_data() {
    QTest::addColumn<qint32>("language");
    QTest::newRow("with seconds") << kLanguageJapanese;
    QTest::newRow("without seconds") << kLanguageOldJapanese;
}

void TstNewDate::TheSwitchCausesNoOtherTicks() {
    QFETCH(const qint32, language);
    ClockBench plain({}, language);
    ClockBench turning(TurningAtMidnight(), language);
    plain.clock.Show();
    turning.clock.Show();
    for (int passed = 0; passed < 70'000; passed += 50) {
        for (const bool isSeen : {true, false}) {
            QCOMPARE(turning.clock.UntilDue(isSeen), plain.clock.UntilDue(isSeen));
        }
        plain.time.Advance(50);
        turning.time.Advance(50);
    }
}

QTEST_GUILESS_MAIN(TstNewDate)
#include "tst_new_date.moc"
