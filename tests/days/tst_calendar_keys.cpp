// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/calendar_window_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

/// The calendar window, operated with the keyboard.
class TstCalendarKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ArrowKeys_data();
    void ArrowKeys();
    void PageKeys_data();
    void PageKeys();
    void EnterAndSpaceClick();
    void EscapeCloses();
    void PagingByKeyKeepsTheFocusInTheGrid();
    void Tab_data();
    void Tab();
};

void TstCalendarKeys::ArrowKeys_data() {
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("day");
    const int left = Qt::Key_Left;
    const int right = Qt::Key_Right;
    const int up = Qt::Key_Up;
    const int down = Qt::Key_Down;
    QTest::newRow("right") << QList<int>{right} << 4;
    QTest::newRow("left") << QList<int>{left} << 2;
    QTest::newRow("down") << QList<int>{down} << 10;
    QTest::newRow("up at the top") << QList<int>{up} << 3;
    QTest::newRow("left of the first") << QList<int>{left, left, left} << 1;
    QTest::newRow("to the next row and back") << QList<int>{right, right, left} << 4;
    QTest::newRow("down to the last row") << QList<int>{down, down, down, down, down} << 31;
    QTest::newRow("right of the last") << QList<int>{down, down, down, down, right} << 31;
    QTest::newRow("down and up") << QList<int>{down, down, up} << 10;
}

void TstCalendarKeys::ArrowKeys() {
    QFETCH(QList<int>, keys);
    QFETCH(int, day);
    CalendarWindowBench bench;
    bench.Open();
    for (const int key : keys) {
        bench.Key(static_cast<Qt::Key>(key));
    }
    QCOMPARE(bench.Focused(), bench.Cell(day).objectName());
    QCOMPARE(bench.PressedDays(), QList<int>{3});  // moving the focus selects nothing
}

void TstCalendarKeys::PageKeys_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QString>("heading");
    QTest::newRow("up") << Qt::Key_PageUp << false << u"1998年（平成10年）9月"_s;
    QTest::newRow("down") << Qt::Key_PageDown << false << u"1998年（平成10年）11月"_s;
    QTest::newRow("shift up") << Qt::Key_PageUp << true << u"1997年（平成9年）10月"_s;
    QTest::newRow("shift down") << Qt::Key_PageDown << true << u"1999年（平成11年）10月"_s;
}

void TstCalendarKeys::PageKeys() {
    QFETCH(Qt::Key, key);
    QFETCH(bool, shift);
    CalendarWindowBench bench;
    bench.Open();
    bench.Key(key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    QTEST(bench.Heading(), "heading");
}

void TstCalendarKeys::EnterAndSpaceClick() {
    CalendarWindowBench bench;
    bench.Open();
    bench.Key(Qt::Key_Right);
    bench.Key(Qt::Key_Return);
    QCOMPARE(bench.PressedDays(), QList<int>{4});
    bench.Key(Qt::Key_Right);
    bench.Key(Qt::Key_Space);
    QCOMPARE(bench.PressedDays(), QList<int>{5});
    bench.Find(u"Command2"_s).setFocus();
    bench.Key(Qt::Key_Enter);
    QCOMPARE(bench.Heading(), u"1998年（平成10年）11月"_s);
    bench.Click(u"Command6"_s);
    bench.Find<QTableView>(u"ListView1"_s).setFocus();
    bench.Key(Qt::Key_Return);  // clicks no other control
    QCOMPARE(bench.Heading(), u"1998年（平成10年）11月"_s);
    QVERIFY(bench.form->isVisible());
}

void TstCalendarKeys::EscapeCloses() {
    CalendarWindowBench bench;
    bench.Open();
    bench.Key(Qt::Key_Escape);
    QVERIFY(!bench.form->isVisible());
}

void TstCalendarKeys::PagingByKeyKeepsTheFocusInTheGrid() {
    CalendarWindowBench bench(QDate(1999, 1, 31));
    bench.Open();
    bench.Key(Qt::Key_PageDown);
    QCOMPARE(bench.Focused(), bench.Cell(28).objectName());
    for (int month = 0; month < 30; ++month) {
        bench.Key(Qt::Key_PageDown);
        QCOMPARE(bench.Focused(), bench.Cell(28).objectName());
        QVERIFY(bench.Cell(28).isVisible());
    }
}

void TstCalendarKeys::Tab_data() {
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<QStringList>("order");
    const QStringList month{u"Check1(13)"_s, u"Option1(0)"_s, u"Command7(2)"_s, u"Command16"_s,
                            u"Command6"_s};
    const QStringList panel{u"ListView1"_s, u"Command11"_s, u"Command9"_s, u"Command10"_s, u"Command12"_s};
    const QStringList ways{u"Command4"_s, u"Command1"_s, u"Command3"_s, u"Command2"_s, u"Command5"_s};
    QTest::newRow("the hidden panel is skipped") << false << month + ways + month.mid(0, 1);
    QTest::newRow("panel open") << true << month + panel + ways + month.mid(0, 1);
}

void TstCalendarKeys::Tab() {
    QFETCH(bool, isOpen);
    QFETCH(QStringList, order);
    CalendarWindowBench bench;
    bench.Open();
    if (isOpen) {
        bench.Click(u"Command6"_s);
        bench.Cell(3).setFocus();
    }
    bench.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(bench.form.get()));
    QStringList found{bench.Focused()};
    while (found.size() < order.size()) {
        bench.Key(Qt::Key_Tab);
        found.append(bench.Focused());
    }
    QCOMPARE(found, order);
}

QTEST_MAIN(TstCalendarKeys)
#include "tst_calendar_keys.moc"
