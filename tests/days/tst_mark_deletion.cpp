// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/calendar_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

/// Deleting the marks of a month, or all marks up to its end.
class TstMarkDeletion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Deleting_data();
    void Deleting();
    void DeletingBeyondTheLastMonthIsReportedAfterwards();
    void AnAnswerThatComesTooLateDeletesNothing();
    void ADeletionDuringACompactionIsRefused();
    void AFailedDeletionIsReportedAndDeletesNothing();
};

void TstMarkDeletion::Deleting_data() {
    QTest::addColumn<MessageAnswer>("answer");
    QTest::addColumn<QStringList>("left");
    const QString september = u"Holiday 1998-09-30"_s;
    const QString october1 = u"Holiday 1998-10-01"_s;
    const QString november = u"Holiday 1998-11-01"_s;
    const QString october31 = u"Halfday 1998-10-31"_s;
    const QString longAgo = u"Halfday 1926-01-01"_s;
    const QString later = u"Usuallyday 1999-10-04"_s;
    const QString yearBefore = u"Usuallyday 1997-12-31"_s;
    QTest::newRow("all up to the month's end") << MessageAnswer::Yes << QStringList{november, later};
    QTest::newRow("only the month") << MessageAnswer::No
                                    << QStringList{september, november, longAgo, later, yearBefore};
    QTest::newRow("nothing") << MessageAnswer::Cancel
                             << QStringList{september, october1, november,  october31,
                                            longAgo,   later,    yearBefore};
}

void TstMarkDeletion::Deleting() {
    QFETCH(MessageAnswer, answer);
    CalendarBench bench;
    bench.store.Raw(
        "INSERT INTO Holiday(Date) VALUES ('1998-09-30'),('1998-10-01'),('1998-11-01');"
        "INSERT INTO Halfday(Date) VALUES ('1998-10-31'),('1926-01-01');"
        "INSERT INTO Usuallyday(Date) VALUES ('1999-10-04'),('1997-12-31')");
    bench.calendar.Load();
    bench.ClickDays({20});
    int answered = 0;
    bench.calendar.WhenAnswered([&] { ++answered; });
    bench.calendar.DeleteMarks();
    QCOMPARE(
        bench.boxes.Choices(),
        (QList<Message>{{MessageIcon::Exclamation, u"ﾃﾞｰﾀ削除"_s, u"今月までのデーターも削除しますか？"_s}}));
    QVERIFY(bench.calendar.IsWaiting());
    QCOMPARE(bench.Marks().size(), 7);
    bench.boxes.Pick(answer);
    QVERIFY(!bench.calendar.IsWaiting());
    QCOMPARE(answered, 1);
    QTEST(bench.Marks(), "left");
    QCOMPARE(bench.Day(1).color, answer == MessageAnswer::Cancel ? DayColor::Red : DayColor::Black);
    QCOMPARE(bench.PressedInGrid(), QList<int>{3});  // built again, even after Cancel: only today is pressed
    QCOMPARE(bench.calendar.SelectedDate(), QDate(1998, 10, 20));
}

void TstMarkDeletion::DeletingBeyondTheLastMonthIsReportedAfterwards() {
    CalendarBench bench(QDate(2100, 12, 5));
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('2100-12-10'),('2101-01-10')");
    bench.calendar.Load();
    bench.calendar.GoBy(1);
    bench.boxes.Close();
    bench.calendar.DeleteMarks();
    bench.boxes.Pick(MessageAnswer::No);
    QCOMPARE(bench.Marks(), QStringList{u"Holiday 2100-12-10"_s});
    QCOMPARE(bench.boxes.Shown().size(), 2);
    QCOMPARE(bench.boxes.Shown().constLast().text, u"これ以後の年は表示できません。"_s);
}

void TstMarkDeletion::AnAnswerThatComesTooLateDeletesNothing() {
    CalendarBench bench;
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('1998-10-15')");
    {
        MonthCalendar gone({.dayDatabase = bench.dayDatabase,
                            .holidays = bench.holidays,
                            .further = bench.further,
                            .list = bench.list,
                            .clock = bench.time,
                            .boxes = bench.boxes,
                            .handlers = bench.handlers});
        gone.Load();
        gone.DeleteMarks();
    }
    bench.boxes.Pick(MessageAnswer::Yes);
    QCOMPARE(bench.Marks().size(), 1);
    bench.calendar.Load();
    bench.calendar.DeleteMarks();
    bench.dayDatabase.Close();  // as at the end of the program
    bench.boxes.Pick(MessageAnswer::Cancel);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstMarkDeletion::ADeletionDuringACompactionIsRefused() {
    CalendarBench bench;
    bench.calendar.Load();
    bench.calendar.DeleteMarks();
    bench.dayDatabase.Close();
    bench.boxes.Pick(MessageAnswer::Yes);
    QVERIFY(!bench.calendar.IsWaiting());
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Shown().constFirst().text.contains(u"データベースの最適化中です。"_s));
}

void TstMarkDeletion::AFailedDeletionIsReportedAndDeletesNothing() {
    CalendarBench bench;
    bench.store.Raw(
        "INSERT INTO Holiday(Date) VALUES ('1998-10-15'); INSERT INTO Usuallyday(Date) VALUES "
        "('1998-10-04')");
    bench.calendar.Load();
    bench.store.Raw("ALTER TABLE Usuallyday RENAME TO Gone");
    bench.calendar.DeleteMarks();
    bench.boxes.Pick(MessageAnswer::Yes);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().title, u"Tickwell"_s);
    bench.store.Raw("ALTER TABLE Gone RENAME TO Usuallyday");
    QCOMPARE(bench.Marks(), (QStringList{u"Holiday 1998-10-15"_s, u"Usuallyday 1998-10-04"_s}));
}

QTEST_GUILESS_MAIN(TstMarkDeletion)
#include "tst_mark_deletion.moc"
