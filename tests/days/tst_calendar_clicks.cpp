// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/calendar_window_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

/// Days, months and marks in the calendar window, chosen with the mouse.
class TstCalendarClicks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ClickingADay();
    void ClickingTodayKeepsItPressed();
    void AnArrowGoesOnWhileItIsHeld_data();
    void AnArrowGoesOnWhileItIsHeld();
    void Navigation_data();
    void Navigation();
    void ALimitIsReported();
    void NothingReactsWhileABoxIsOpen();
    void MarkingByMouse();
    void ChoosingTheCurrentModeDoesNothing();
    void ActionsAreDisabledWhileMarking();
    void AFailedClickShowsTheCurrentState();
    void TheDeletionAsksFirst();
};

void TstCalendarClicks::ClickingADay() {
    CalendarWindowBench bench;
    bench.Open();
    bench.ClickDay(20);
    QCOMPARE(bench.PressedDays(), QList<int>{20});
    bench.ClickDay(31);
    QCOMPARE(bench.PressedDays(), QList<int>{31});
}

void TstCalendarClicks::ClickingTodayKeepsItPressed() {
    CalendarWindowBench bench;
    bench.Open();
    bench.ClickDay(3);
    QCOMPARE(bench.PressedDays(), QList<int>{3});
    bench.ClickDay(3);
    QCOMPARE(bench.PressedDays(), QList<int>{3});
}

void TstCalendarClicks::AnArrowGoesOnWhileItIsHeld_data() {
    QTest::addColumn<QString>("arrow");
    QTest::addColumn<QString>("heading");  // after two steps
    QTest::newRow("month back") << u"Command1"_s << u"1998年（平成10年）8月"_s;
    QTest::newRow("month on") << u"Command2"_s << u"1998年（平成10年）12月"_s;
    QTest::newRow("year back") << u"Command4"_s << u"1996年（平成8年）10月"_s;
    QTest::newRow("year on") << u"Command5"_s << u"2000年（平成12年）10月"_s;
}

void TstCalendarClicks::AnArrowGoesOnWhileItIsHeld() {
    QFETCH(QString, arrow);
    QFETCH(QString, heading);
    CalendarWindowBench bench;
    bench.Open();
    bench.Find(arrow).setAutoRepeatDelay(1);
    bench.Find(arrow).setAutoRepeatInterval(1);
    QStringList seen;
    connect(&bench.Find(arrow), &QPushButton::clicked, this, [&] { seen.append(bench.Heading()); });
    QTest::mousePress(&bench.Find(arrow), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(seen.size() >= 2, 30'000);
    QTest::mouseRelease(&bench.Find(arrow), Qt::LeftButton);
    QCOMPARE(seen.at(1), heading);
}

void TstCalendarClicks::Navigation_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("heading");
    QTest::newRow("month before") << u"Command1"_s << u"1998年（平成10年）9月"_s;
    QTest::newRow("next month") << u"Command2"_s << u"1998年（平成10年）11月"_s;
    QTest::newRow("year before") << u"Command4"_s << u"1997年（平成9年）10月"_s;
    QTest::newRow("next year") << u"Command5"_s << u"1999年（平成11年）10月"_s;
    QTest::newRow("today") << u"Command3"_s << u"1998年（平成10年）10月"_s;
}

void TstCalendarClicks::Navigation() {
    QFETCH(QString, button);
    CalendarWindowBench bench;
    bench.Open();
    bench.Click(button);
    QTEST(bench.Heading(), "heading");
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.Heading(), u"1998年（平成10年）10月"_s);
}

void TstCalendarClicks::ALimitIsReported() {
    CalendarWindowBench bench(QDate(2100, 12, 5));
    bench.Open();
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.Heading(), u"2100年（平成112年）12月"_s);
    bench.boxes.Close();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Heading(), u"2100年（平成112年）12月"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Heading(), u"2100年（平成112年）11月"_s);
}

void TstCalendarClicks::NothingReactsWhileABoxIsOpen() {
    CalendarWindowBench bench(QDate(2100, 12, 5));
    bench.Open();
    bench.Click(u"Command2"_s);
    bench.Click(u"Command2"_s);
    bench.Click(u"Command7(2)"_s);
    bench.ClickDay(20);
    bench.ClickMode(1);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Choices().isEmpty());
    QCOMPARE(bench.PressedDays(), QList<int>{5});
    QVERIFY(bench.Find<QRadioButton>(u"Option1(0)"_s).isChecked());
    bench.boxes.Close();
    bench.ClickDay(20);
    QCOMPARE(bench.PressedDays(), QList<int>{20});
}

void TstCalendarClicks::MarkingByMouse() {
    CalendarWindowBench bench;
    bench.Open();
    bench.ClickMode(1);
    QCOMPARE(bench.PressedDays(), (QList<int>{4, 11, 18, 25}));
    bench.ClickDay(5);
    bench.ClickDay(11);
    QCOMPARE(bench.PressedDays(), (QList<int>{4, 5, 18, 25}));
    bench.ClickMode(2);
    QCOMPARE(bench.PressedDays(), (QList<int>{3, 10, 17, 24, 31}));
    bench.ClickDay(6);
    bench.ClickMode(0);
    QCOMPARE(bench.PressedDays(), QList<int>());
    QCOMPARE(bench.Marks(),
             (QStringList{u"Holiday 1998-10-05"_s, u"Halfday 1998-10-06"_s, u"Usuallyday 1998-10-11"_s}));
}

void TstCalendarClicks::ChoosingTheCurrentModeDoesNothing() {
    CalendarWindowBench bench(QDate(1998, 11, 15));
    bench.Open();
    bench.ClickMode(0);
    QVERIFY(bench.Marks().isEmpty());
    bench.ClickMode(1);
    bench.ClickDay(5);
    bench.ClickMode(1);
    QCOMPARE(bench.PressedDays(), (QList<int>{1, 3, 5, 8, 15, 22, 23, 29}));
}

void TstCalendarClicks::ActionsAreDisabledWhileMarking() {
    CalendarWindowBench bench;
    bench.Open();
    QCOMPARE(bench.Disabled(), QStringList());
    QStringList off = kCalendarButtons;
    off.removeOne(u"Command16"_s);
    for (const int mode : {1, 2}) {
        bench.ClickMode(mode);
        QCOMPARE(bench.Disabled(), off);
        QVERIFY(bench.Find<QTableView>(u"ListView1"_s).isEnabled());
        QVERIFY(bench.Find<QRadioButton>(u"Option1(0)"_s).isEnabled());
        bench.Key(Qt::Key_PageDown);
        QCOMPARE(bench.Heading(), u"1998年（平成10年）10月"_s);
    }
    bench.ClickMode(0);
    QCOMPARE(bench.Disabled(), QStringList());
}

void TstCalendarClicks::AFailedClickShowsTheCurrentState() {
    CalendarWindowBench bench(QDate(2100, 12, 5));
    bench.Open();
    bench.Click(u"Command2"_s);
    bench.boxes.Close();
    bench.Click(u"Command2"_s);
    bench.boxes.Close();
    bench.ClickDay(30);  // of February 2101
    QCOMPARE(bench.boxes.Shown().constLast().title, u"Tickwell"_s);
    QCOMPARE(bench.PressedDays(), QList<int>{30});
    bench.boxes.Close();
    bench.dayDatabase.Close();
    bench.Click(u"Command1"_s);
    QVERIFY(bench.boxes.IsOpen());
    QCOMPARE(bench.Heading(), u"2100年（平成112年）12月"_s);
}

void TstCalendarClicks::TheDeletionAsksFirst() {
    CalendarWindowBench bench;
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('1998-10-05')");
    bench.Open();
    bench.ClickDay(20);
    bench.Click(u"Command7(2)"_s);
    QVERIFY(bench.boxes.IsChoosing());
    QVERIFY(bench.Cell(5).accessibleName().endsWith(u"休日"_s));
    bench.boxes.Pick(MessageAnswer::Yes);
    QVERIFY(!bench.Cell(5).accessibleName().endsWith(u"休日"_s));
    QCOMPARE(bench.PressedDays(), QList<int>{3});
}

QTEST_MAIN(TstCalendarClicks)
#include "tst_calendar_clicks.moc"
