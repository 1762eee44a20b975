// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/deletion_window.h"

#include <QSignalSpy>
#include <QTest>

#include "book/book_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

/// Stores anniversaries named by one letter each, on the selected day, and lists them.
void Fill(BookBench& bench, const QString& letters) {
    for (const QChar letter : letters) {
        bench.Add({QString(letter), 0, 10, 3, 0});
    }
    bench.ListSelectedDay();
}

QString Stored(BookBench& bench) {
    QString letters;
    for (const days::Anniversary& row : bench.Stored()) {
        letters += row.name;
    }
    return letters;
}

void ClickRow(const BookBench& bench, int row) {
    auto& list = bench.The<QListView>(u"List1"_s);
    const QRect place = list.visualRect(list.model()->index(row, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place.center());
}

/// The count, with "*" if the deletion button is enabled.
QString State(const BookBench& bench) {
    return bench.The<QLabel>(u"Label2"_s).text() + (bench.IsEnabled(u"Command1"_s) ? u" *" : u"");
}

}  // namespace

/// The deletion window.
class TstDeletionWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OpensWithTheListAndNothingTicked();
    void AnEmptyListCannotBeDeletedFrom();
    void ClicksTickAndUntick();
    void TicksAllAndNone();
    void DeletesWhatIsTicked();
    void DeletesByKeyboardAlone();
    void WorksOnWhatASearchFound();
    void EqualEntriesAreDeletedTogether();
    void AWeekOfTwoDifferentDigitsSilentlyStays();
    void AFailureIsReportedAndEarlierRowsStayDeleted();
    void DeletesALongListInSlices();
    void ALongDeletionThatIsStoppedDeletesNothing();
    void ClosingWithoutDeleting_data();
    void ClosingWithoutDeleting();
    void GoesFromTopToBottomWithTab();
    void TickingAllCountsOnce();
};

void TstDeletionWindow::OpensWithTheListAndNothingTicked() {
    BookBench bench;
    Fill(bench, u"abc"_s);
    bench.OpenDeletion();
    QCOMPARE(bench.Window()->windowTitle(), u"記念日の削除"_s);
    QCOMPARE(bench.The<QLabel>(u"Label1"_s).text(), u"記念日を削除します"_s);
    auto* model = bench.The<QListView>(u"List1"_s).model();
    QCOMPARE(model->rowCount(), 3);
    QCOMPARE(model->index(2, 0).data().toString(), u"c"_s);
    QCOMPARE(State(bench), u"現在 0項目"_s);
    QCOMPARE(bench.Focus(), u"List1"_s);
    QCOMPARE(bench.Window()->windowModality(), Qt::WindowModal);
}

void TstDeletionWindow::AnEmptyListCannotBeDeletedFrom() {
    BookBench bench;
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    QCOMPARE(State(bench), u"現在 0項目"_s);
    bench.Press(Qt::Key_Return);
    QVERIFY(bench.Window() != nullptr);
}

void TstDeletionWindow::ClicksTickAndUntick() {
    BookBench bench;
    Fill(bench, u"abc"_s);
    bench.OpenDeletion();
    ClickRow(bench, 0);
    QCOMPARE(State(bench), u"現在 1項目 *"_s);
    ClickRow(bench, 2);
    QCOMPARE(State(bench), u"現在 2項目 *"_s);
    ClickRow(bench, 0);
    QCOMPARE(State(bench), u"現在 1項目 *"_s);
    ClickRow(bench, 2);
    QCOMPARE(State(bench), u"現在 0項目"_s);
}

void TstDeletionWindow::TicksAllAndNone() {
    BookBench bench;
    Fill(bench, u"abc"_s);
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    QCOMPARE(State(bench), u"現在 3項目 *"_s);
    ClickRow(bench, 1);
    QCOMPARE(State(bench), u"現在 2項目 *"_s);
    bench.Click(u"Command4"_s);
    QCOMPARE(State(bench), u"現在 0項目"_s);
}

void TstDeletionWindow::DeletesWhatIsTicked() {
    BookBench bench;
    Fill(bench, u"abcd"_s);
    bench.OpenDeletion();
    ClickRow(bench, 0);
    ClickRow(bench, 3);
    bench.Click(u"Command1"_s);
    QCOMPARE(Stored(bench), u"bc"_s);
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(bench.closed, 1);
    QCOMPARE(bench.changes.raised, 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(bench.list.Rows().Kept().size(), 4);  // only the calendar updates the list
}

void TstDeletionWindow::DeletesByKeyboardAlone() {
    BookBench bench;
    Fill(bench, u"abc"_s);
    bench.OpenDeletion();
    bench.Press(Qt::Key_Down);
    bench.Press(Qt::Key_Space);
    QCOMPARE(State(bench), u"現在 1項目 *"_s);
    bench.Press(Qt::Key_Return);
    QCOMPARE(bench.Stored().size(), std::size_t{2});
    QVERIFY(bench.Window() == nullptr);
}

void TstDeletionWindow::WorksOnWhatASearchFound() {
    BookBench bench;
    Fill(bench, u"a"_s);
    bench.Add({u"June"_s, 0, 6, 15, 0});
    bench.list.ListFound(QList<days::DayListRow>{{u"June"_s, u"毎"_s, u"6"_s, u"15"_s, QString()}}, 2);
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(Stored(bench), u"a"_s);
}

void TstDeletionWindow::EqualEntriesAreDeletedTogether() {
    BookBench bench;
    Fill(bench, u"aa"_s);
    bench.OpenDeletion();
    ClickRow(bench, 1);
    bench.Click(u"Command1"_s);
    QCOMPARE(Stored(bench), QString());
}

void TstDeletionWindow::AWeekOfTwoDifferentDigitsSilentlyStays() {
    BookBench bench;
    bench.Add({u"Saturday"_s, 0, 0, 0, 17});
    bench.ListSelectedDay();
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(Stored(bench), u"Saturday"_s);
    QVERIFY(bench.Window() == nullptr);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstDeletionWindow::AFailureIsReportedAndEarlierRowsStayDeleted() {
    BookBench bench;
    Fill(bench, u"abc"_s);
    QList<days::DayListRow> rows = bench.list.Rows().Kept();
    rows[1].name = u"x\"y"_s;
    bench.list.ListFound(rows, 3);
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(Stored(bench), u"ab"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().icon, MessageIcon::Critical);
    QVERIFY(bench.Window()->isVisible());
    QCOMPARE(State(bench), u"現在 3項目 *"_s);
    QCOMPARE(bench.changes.raised, 1);
    bench.Press(Qt::Key_Escape);
    QCOMPARE(bench.closed, 1);
}

void TstDeletionWindow::DeletesALongListInSlices() {
    BookBench bench;
    bench.AddMany();
    bench.ListMany();
    bench.OpenDeletion();
    QCOMPARE(bench.The<QListView>(u"List1"_s).model()->index(69'999, 0).data().toString(), u"n70000"_s);
    bench.Click(u"Command3"_s);
    QCOMPARE(State(bench), u"現在 70000項目 *"_s);
    ClickRow(bench, 0);
    bench.Click(u"Command1"_s);
    QVERIFY(!bench.IsEnabled(u"List1"_s));
    QVERIFY(!bench.IsEnabled(u"Command1"_s));
    QTRY_VERIFY_WITH_TIMEOUT((bench.time.Advance(10), bench.Window() == nullptr), 120'000);
    QCOMPARE(Stored(bench), u"n1"_s);
    QCOMPARE(bench.changes.raised, 1);
}

void TstDeletionWindow::ALongDeletionThatIsStoppedDeletesNothing() {
    BookBench bench;
    bench.AddMany();
    bench.ListMany();
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    bench.Click(u"Command1"_s);
    while (bench.database.IsOpen()) {
        bench.time.Advance(1);
    }
    bench.Press(Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT((bench.time.Advance(10), bench.IsEnabled(u"Command1"_s)), 120'000);
    QVERIFY(!bench.database.IsInTransaction());
    QCOMPARE(bench.Count(), u"70000"_s);
    QCOMPARE(State(bench), u"現在 70000項目 *"_s);
    QCOMPARE(bench.changes.raised, 1);
    bench.Press(Qt::Key_Escape);
    QVERIFY(bench.Window() == nullptr);
}

void TstDeletionWindow::ClosingWithoutDeleting_data() {
    QTest::addColumn<QString>("how");

    QTest::newRow("button") << u"button"_s;
    QTest::newRow("Esc") << u"Esc"_s;
    QTest::newRow("title bar") << u"title bar"_s;
}

void TstDeletionWindow::ClosingWithoutDeleting() {
    QFETCH(QString, how);
    BookBench bench;
    Fill(bench, u"abc"_s);
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    if (how == u"button"_s) {
        bench.Click(u"Command2"_s);
    } else if (how == u"Esc"_s) {
        bench.Press(Qt::Key_Escape);
    } else {
        bench.Window()->close();
    }
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(Stored(bench), u"abc"_s);
    QCOMPARE(bench.closed, 1);
    QCOMPARE(bench.changes.raised, 0);
}

void TstDeletionWindow::GoesFromTopToBottomWithTab() {
    BookBench bench;
    Fill(bench, u"abc"_s);
    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    bench.The<QListView>(u"List1"_s).setFocus();
    QCOMPARE(bench.TabOrder(),
             QStringList({u"List1"_s, u"Command3"_s, u"Command4"_s, u"Command1"_s, u"Command2"_s}));
}

void TstDeletionWindow::TickingAllCountsOnce() {
    BookBench bench;
    QList<days::DayListRow> rows;
    for (int i = 0; i < 1000; ++i) {
        rows.append({u"n%1"_s.arg(i), u"毎"_s, u"6"_s, u"15"_s, QString()});
    }
    bench.list.ListFound(rows, 1000);
    bench.OpenDeletion();
    const QSignalSpy changes(bench.The<QListView>(u"List1"_s).selectionModel(),
                             &QItemSelectionModel::selectionChanged);
    bench.Click(u"Command3"_s);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(State(bench), u"現在 1000項目 *"_s);
}

QTEST_MAIN(TstDeletionWindow)
#include "tst_deletion_window.moc"
