// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <cmath>
#include <limits>

#include "core/errors.h"
#include "core/integers.h"

using namespace tickwell;

namespace {

constexpr qint32 kHighest = std::numeric_limits<qint32>::max();
constexpr qint32 kLowest = std::numeric_limits<qint32>::min();

}  // namespace

/// Checked arithmetic and the program's rounding.
class TstIntegers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void SumsInsideTheRangeHold();
    void SumsOutsideTheRangeThrow();
    void RoundsHalvesToEven_data();
    void RoundsHalvesToEven();
    void RoundsLikeTheFloatingPointUnit();
    void FloorModStaysInRange();
    void TicksSinceCountsAcrossTheTurn();
};

void TstIntegers::SumsInsideTheRangeHold() {
    QCOMPARE(CheckedAdd(kHighest - 1, 1), kHighest);
    QCOMPARE(CheckedAdd(kLowest, kHighest), -1);
    QCOMPARE(CheckedSub(kLowest + 1, 1), kLowest);
    QCOMPARE(CheckedSub(-1, kLowest), kHighest);
}

void TstIntegers::SumsOutsideTheRangeThrow() {
    QVERIFY_THROWS_EXCEPTION(OverflowError, CheckedAdd(kHighest, 1));
    QVERIFY_THROWS_EXCEPTION(OverflowError, CheckedAdd(kLowest, -1));
    QVERIFY_THROWS_EXCEPTION(OverflowError, CheckedSub(0, kLowest));
    QVERIFY_THROWS_EXCEPTION(OverflowError, CheckedSub(kLowest, 1));
    QVERIFY_THROWS_EXCEPTION(OverflowError, Checked32(qint64{kHighest} + 1));
}

void TstIntegers::RoundsHalvesToEven_data() {
    QTest::addColumn<qint64>("numerator");
    QTest::addColumn<qint64>("denominator");
    QTest::addColumn<qint64>("rounded");
    const auto row = [](const char* name, qint64 numerator, qint64 denominator, qint64 rounded) {
        QTest::newRow(name) << numerator << denominator << rounded;
    };
    row("half down to 0", 1, 2, 0);
    row("half up to 2", 3, 2, 2);
    row("half down to 2", 5, 2, 2);
    row("minus half", -1, 2, 0);
    row("minus one and a half", -3, 2, -2);
    row("minus two and a half", -5, 2, -2);
    row("a third", 1, 3, 0);
    row("two thirds", 2, 3, 1);
    row("minus two thirds", -2, 3, -1);
    row("no fraction", 6, 3, 2);
}

void TstIntegers::RoundsHalvesToEven() {
    QFETCH(qint64, numerator);
    QFETCH(qint64, denominator);
    QFETCH(qint64, rounded);
    QCOMPARE(RoundHalfEven(numerator, denominator), rounded);
}

void TstIntegers::RoundsLikeTheFloatingPointUnit() {
    for (qint64 numerator = -3000; numerator <= 3000; ++numerator) {
        for (const qint64 denominator : {1, 2, 4, 8, 16}) {  // exact in binary, so that halves are exact
            const double exact = static_cast<double>(numerator) / static_cast<double>(denominator);
            QCOMPARE(RoundHalfEven(numerator, denominator), static_cast<qint64>(std::nearbyint(exact)));
        }
    }
}

void TstIntegers::FloorModStaysInRange() {
    for (qint64 a = -50; a <= 50; ++a) {
        QCOMPARE(FloorMod(a, 7), ((a % 7) + 7) % 7);
    }
}

void TstIntegers::TicksSinceCountsAcrossTheTurn() {
    QCOMPARE(TicksSince(100, 350), 250U);
    QCOMPARE(TicksSince(kHighest, kLowest), 1U);
    QCOMPARE(TicksSince(-1, 0), 1U);
}

QTEST_GUILESS_MAIN(TstIntegers)
#include "tst_integers.moc"
