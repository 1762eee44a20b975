// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_book.h"

#include <QPushButton>
#include <QTest>

#include "book/book_bench.h"
#include "core/errors.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

/// Opening the windows of the anniversary book.
class TstAnniversaryBook : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ARowThatIsGoneOpensNothingAndReportsNothing();
    void ARowThatCannotBeReadOpensNothing();
    void AFailureAfterClosingIsReported();
    void ADestroyedCalendarIsNotNotified();
    void ADayIsAddedListedEditedFoundAndDeleted();
    void ALongSearchCanBeStopped_data();
    void ALongSearchCanBeStopped();
    void ALongSearchThatFailsIsReportedOnce();
    void EditsAllEqualRowsOfALargeTable();
};

void TstAnniversaryBook::ARowThatIsGoneOpensNothingAndReportsNothing() {
    BookBench bench;
    bench.list.ListFound(QList<days::DayListRow>{{u"a"_s, {}, {}, {}, {}}, {u"b"_s, {}, {}, {}, {}}}, 2);
    bench.list.ChooseRow(1);
    bench.ListSelectedDay();
    bench.OpenEditor();
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(bench.closed, 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstAnniversaryBook::ARowThatCannotBeReadOpensNothing() {
    BookBench bench;
    bench.Add({u"a"_s, 0, 10, 3, -17});  // listed as "第-週土"
    bench.ListSelectedDay();
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(bench.closed, 1);
}

void TstAnniversaryBook::AFailureAfterClosingIsReported() {
    BookBench bench;
    bench.book.OpenDeletion(&bench.calendar, [] { throw RunTimeError(u"一覧を作れません。"_s); });
    bench.Press(Qt::Key_Escape);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Shown().constFirst().text.endsWith(u"一覧を作れません。"));
    QCOMPARE(bench.boxes.Owners(), QList<const QObject*>{&bench.calendar});
}

void TstAnniversaryBook::ADestroyedCalendarIsNotNotified() {
    BookBench bench;
    auto calendar = std::make_unique<QWidget>();
    bench.book.OpenEditor(bench.selected, calendar.get(), [&bench] { ++bench.closed; });
    ChildOf<QDialog>(*calendar);  // fails the test if there is none
    calendar.reset();
    QCOMPARE(bench.closed, 0);
}

void TstAnniversaryBook::ADayIsAddedListedEditedFoundAndDeleted() {
    BookBench bench;
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"party"_s);
    bench.Press(Qt::Key_Return);
    bench.ListSelectedDay();
    QVERIFY((bench.list.Rows().Kept() ==
             QList<days::DayListRow>{{u"party"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}}));

    bench.OpenSearch();
    bench.Press(Qt::Key_Return);
    QCOMPARE(bench.list.Rows().Kept().size(), 1);
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"feast"_s);
    bench.Click(u"Command1"_s);
    bench.ListSelectedDay();
    QCOMPARE(bench.list.Rows().Kept().constFirst().name, u"feast"_s);

    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    bench.Click(u"Command1"_s);
    bench.ListSelectedDay();
    QVERIFY(bench.list.Rows().Kept().isEmpty());
    QVERIFY(bench.Stored().empty());
    QCOMPARE(bench.changes.raised, 3);
}

void TstAnniversaryBook::ALongSearchCanBeStopped_data() {
    QTest::addColumn<QString>("how");

    QTest::newRow("Esc") << u"Esc"_s;
    QTest::newRow("title bar") << u"title bar"_s;
}

void TstAnniversaryBook::ALongSearchCanBeStopped() {
    QFETCH(QString, how);
    BookBench bench;
    bench.AddMany();
    bench.OpenSearch();
    bench.Click(u"Command1"_s);
    bench.time.Advance(2);
    if (how == u"Esc"_s) {
        bench.Press(Qt::Key_Escape);
    } else {
        bench.Window()->close();
    }
    bench.time.Advance(10'000);
    QVERIFY(bench.Window()->isVisible());
    QVERIFY(bench.IsEnabled(u"Command1"_s));
    QCOMPARE(bench.list.Heading(), u"記念日"_s);
    bench.Press(Qt::Key_Escape);
    QVERIFY(bench.Window() == nullptr);
}

void TstAnniversaryBook::ALongSearchThatFailsIsReportedOnce() {
    BookBench bench;
    bench.AddMany();
    bench.OpenSearch();
    bench.Click(u"Command1"_s);
    bench.database.Close();
    bench.time.Advance(10'000);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.Window()->isVisible());
    QVERIFY(bench.IsEnabled(u"Command1"_s));
    QCOMPARE(bench.list.Heading(), u"記念日"_s);
}

void TstAnniversaryBook::EditsAllEqualRowsOfALargeTable() {
    BookBench bench;
    bench.AddMany();
    bench.store.Raw("UPDATE Kinenbi SET Name = 'a', Month = 10, Day = 3 WHERE id > 1000");
    bench.list.ListFound(QList<days::DayListRow>{{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}}, 1);
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"b"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Window() != nullptr);
    QTRY_VERIFY_WITH_TIMEOUT((bench.time.Advance(10), bench.Window() == nullptr), 120'000);
    QCOMPARE(bench.store.Raw("SELECT Name,count(*) FROM Kinenbi WHERE id > 1000 GROUP BY Name"),
             QStringList{u"b|69000"_s});
    QCOMPARE(bench.changes.raised, 1);
}

QTEST_MAIN(TstAnniversaryBook)
#include "tst_anniversary_book.moc"
