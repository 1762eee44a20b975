// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/calendar_widths.h"

using namespace tickwell;
using namespace tickwell::days;

class TstCalendarWidths : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Widths_data();
    void Widths();
};

void TstCalendarWidths::Widths_data() {
    QTest::addColumn<int>("closedNeed");
    QTest::addColumn<int>("openNeed");
    QTest::addColumn<int>("dpi");
    QTest::addColumn<int>("closed");
    QTest::addColumn<int>("open");
    QTest::newRow("96 dpi") << 0 << 0 << 96 << 181 << 587;
    QTest::newRow("120 dpi") << 0 << 0 << 120 << 226 << 734;
    QTest::newRow("144 dpi") << 0 << 0 << 144 << 272 << 881;
    QTest::newRow("192 dpi") << 0 << 0 << 192 << 362 << 1174;
    QTest::newRow("240 dpi") << 0 << 0 << 240 << 453 << 1468;
    QTest::newRow("less is needed") << 100 << 300 << 96 << 181 << 587;
    QTest::newRow("the month needs twice as much") << 362 << 500 << 96 << 362 << 1174;
    QTest::newRow("the list needs twice as much") << 181 << 1174 << 96 << 362 << 1174;
    QTest::newRow("both need more, one of them most") << 200 << 1174 << 96 << 362 << 1174;
}

void TstCalendarWidths::Widths() {
    QFETCH(int, closedNeed);
    QFETCH(int, openNeed);
    QFETCH(int, dpi);
    const CalendarWidths widths = CalendarWidthsFor(closedNeed, openNeed, dpi);
    QTEST(widths.closed, "closed");
    QTEST(widths.open, "open");
    QVERIFY(widths.closed >= closedNeed && widths.open >= openNeed);
}

QTEST_GUILESS_MAIN(TstCalendarWidths)
#include "tst_calendar_widths.moc"
