// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "help/text_size.h"

using namespace tickwell;
using namespace tickwell::help;

/// The steps of the help text size.
class TstTextSize : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItBeginsAtTheDesktopsSize();
    void EachStepIsLargerThanTheOneBefore();
    void ItStaysAtTheEnds();
    void ResettingReturnsToTheDesktopsSize();
};

void TstTextSize::ItBeginsAtTheDesktopsSize() {
    QCOMPARE(TextSize().Percent(), 100);
}

void TstTextSize::EachStepIsLargerThanTheOneBefore() {
    TextSize size;
    while (!size.IsSmallest()) {
        const int before = size.Percent();
        size.Shrink();
        QVERIFY(size.Percent() < before);
    }
    QCOMPARE(size.Percent(), 50);
    while (!size.IsLargest()) {
        const int before = size.Percent();
        size.Grow();
        QVERIFY(size.Percent() > before);
    }
    QCOMPARE(size.Percent(), 300);
}

void TstTextSize::ItStaysAtTheEnds() {
    TextSize size;
    for (int i = 0; i < 100; ++i) {
        size.Grow();
    }
    QCOMPARE(size.Percent(), 300);
    for (int i = 0; i < 100; ++i) {
        size.Shrink();
    }
    QCOMPARE(size.Percent(), 50);
}

void TstTextSize::ResettingReturnsToTheDesktopsSize() {
    TextSize size;
    size.Grow();
    size.Grow();
    size.Reset();
    QCOMPARE(size.Percent(), 100);
}

QTEST_GUILESS_MAIN(TstTextSize)
#include "tst_text_size.moc"
