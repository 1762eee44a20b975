// SPDX-License-Identifier: GPL-3.0-or-later
#include <QScreen>

#include "days/calendar_window_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

/// The list of anniversaries beside the month, and the windows of the book that it opens.
class TstCalendarPanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ThePanel();
    void ThePanelMovesAWindowAtTheEdgeBackOntoTheScreen();
    void TheListFollows();
    void EditingTheSelectedRow();
    void CorrectedTheSelectedRowIsTheStoredOne();
    void EditingWithoutASelectionTakesTheRowBefore();
    void ARowChosenInOneWindowIsNotChosenInTheNext();
    void WithoutTheBookItsButtonsAreDisabled();
    void AListThatOutlivesTheWindowDoesNotNotifyIt();
    void AddingDeletingSearching();
};

void TstCalendarPanel::ThePanel() {
    CalendarWindowBench bench;
    bench.Open();
    QTRY_VERIFY(bench.form->width() > 0);
    const int closed = bench.form->width();
    bench.Click(u"Command6"_s);
    QCOMPARE(bench.Find(u"Command6"_s).text(), u"←閉"_s);
    QCOMPARE(bench.Find(u"Command6"_s).accessibleName(), u"記念日の一覧を閉じる"_s);
    QVERIFY(bench.Find<QTableView>(u"ListView1"_s).isVisible());
    QTRY_VERIFY(bench.form->width() > closed);
    const int open = bench.form->width();
    QVERIFY(qAbs(open - closed * 8805.0 / 2715.0) <= 4);
    QVERIFY(closed >= 181 && open >= 587);
    bench.Click(u"Command6"_s);
    QCOMPARE(bench.Find(u"Command6"_s).text(), u"開→"_s);
    QTRY_COMPARE(bench.form->width(), closed);
    QVERIFY(!bench.Find<QTableView>(u"ListView1"_s).isVisible());
}

void TstCalendarPanel::ThePanelMovesAWindowAtTheEdgeBackOntoTheScreen() {
    CalendarWindowBench bench;
    bench.Open();
    const QRect room = bench.form->screen()->availableGeometry();
    bench.form->move(room.right() + 1 - bench.form->frameGeometry().width(), room.top() + 20);

    bench.Click(u"Command6"_s);
    QTRY_COMPARE(bench.form->frameGeometry().right(), room.right());
    QCOMPARE(bench.form->frameGeometry().top(), room.top() + 20);
    QVERIFY(bench.form->frameGeometry().left() >= room.left());
}

void TstCalendarPanel::TheListFollows() {
    CalendarWindowBench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('誕生日',0,10,20,0),('第3火曜',0,0,0,33)");
    bench.Open();
    const QAbstractItemModel& rows = *bench.Find<QTableView>(u"ListView1"_s).model();
    QCOMPARE(bench.Find<QLabel>(u"Label2"_s).text(), u"1998年10月3日の記念日"_s);
    bench.Click(u"Command6"_s);
    QCOMPARE(rows.rowCount(), 0);
    bench.ClickDay(20);
    QCOMPARE(rows.rowCount(), 2);
    QCOMPARE(rows.index(0, 0).data().toString(), u"誕生日"_s);
    QVERIFY(!rows.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    QCOMPARE(rows.index(1, 4).data().toString(), u"第3週火"_s);
    QCOMPARE(bench.Find<QLabel>(u"Label2"_s).text(), u"1998年10月20日の記念日"_s);
    QCOMPARE(bench.Find<QLabel>(u"Label3"_s).text(), u"ﾃﾞｰﾀ件数 2件"_s);
    QVERIFY(!bench.Find<QTableView>(u"ListView1"_s).selectionModel()->hasSelection());
}

void TstCalendarPanel::EditingTheSelectedRow() {
    CalendarWindowBench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('一',0,10,3,0),('二',0,10,3,0)");
    bench.Open();
    bench.Click(u"Command6"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    view.setCurrentIndex(view.model()->index(1, 0));
    bench.Click(u"Command9"_s);
    QCOMPARE(bench.asked, QStringList{u"edit 1998-10-03 row 2"_s});
    QVERIFY(bench.isAbove);
    bench.store.Raw("DELETE FROM Kinenbi WHERE Name = '一'");
    QCOMPARE(view.model()->rowCount(), 2);
    bench.closed();
    QCOMPARE(view.model()->rowCount(), 1);
    QVERIFY(!view.selectionModel()->hasSelection());
}

void TstCalendarPanel::CorrectedTheSelectedRowIsTheStoredOne() {
    CalendarWindowBench bench(QDate(1998, 10, 19));  // the third Monday
    bench.further.corrections.weekdayAnniversaries = true;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES "
        "('例会',0,0,0,23),('例会',0,0,0,32),('二',0,10,19,-5)");
    bench.Open();
    bench.Click(u"Command6"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    QCOMPARE(view.model()->rowCount(), 2);
    for (const auto& [row, stored] :
         {std::pair{0, Anniversary{u"例会"_s, 0, 0, 0, 32}}, {1, Anniversary{u"二"_s, 0, 10, 19, -5}}}) {
        view.setCurrentIndex(view.model()->index(row, 0));
        bench.Click(u"Command9"_s);
        QCOMPARE(bench.asked.constLast(), u"edit 1998-10-19 row %1"_s.arg(row + 1));
        QVERIFY(TargetOf(*bench.list.ChosenRow(), bench.further.corrections) == stored);
    }
}

void TstCalendarPanel::EditingWithoutASelectionTakesTheRowBefore() {
    CalendarWindowBench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('一',0,10,3,0)");
    bench.Open();
    bench.Click(u"Command6"_s);
    bench.Click(u"Command9"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    view.setCurrentIndex(view.model()->index(0, 0));
    bench.Click(u"Command9"_s);
    bench.closed();
    bench.Click(u"Command9"_s);
    bench.Click(u"Command11"_s);
    bench.Click(u"Command9"_s);
    QCOMPARE(bench.asked,
             (QStringList{u"edit 1998-10-03 row 0"_s, u"edit 1998-10-03 row 1"_s, u"edit 1998-10-03 row 1"_s,
                          u"edit 1998-10-03 row 0"_s, u"edit 1998-10-03 row 0"_s}));
}

void TstCalendarPanel::ARowChosenInOneWindowIsNotChosenInTheNext() {
    CalendarWindowBench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('一',0,10,3,0)");
    bench.Open();
    bench.Click(u"Command6"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    view.setCurrentIndex(view.model()->index(0, 0));
    bench.Click(u"Command9"_s);
    bench.Open();
    bench.Click(u"Command6"_s);
    bench.Click(u"Command9"_s);
    QCOMPARE(bench.asked, (QStringList{u"edit 1998-10-03 row 1"_s, u"edit 1998-10-03 row 0"_s}));
}

void TstCalendarPanel::WithoutTheBookItsButtonsAreDisabled() {
    CalendarWindowBench bench;
    bench.book = {};
    bench.Open();
    const QStringList off{u"Command9"_s, u"Command10"_s, u"Command11"_s, u"Command12"_s};
    QCOMPARE(bench.Disabled(), off);
    bench.ClickMode(1);
    bench.ClickMode(0);
    QCOMPARE(bench.Disabled(), off);
}

void TstCalendarPanel::AListThatOutlivesTheWindowDoesNotNotifyIt() {
    CalendarWindowBench bench;
    bench.Open();
    bench.form.reset();
    bench.list.ListFound(QList<DayListRow>{{u"見つけた"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()}}, 7);
    QCOMPARE(bench.list.Rows().Count(), 1);
}

void TstCalendarPanel::AddingDeletingSearching() {
    CalendarWindowBench bench;
    bench.Open();
    bench.Click(u"Command6"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    const auto add = [&] {
        bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('新',0,10,3,0)");
    };
    bench.Click(u"Command11"_s);
    add();
    bench.closed();
    QCOMPARE(view.model()->rowCount(), 1);
    bench.Click(u"Command10"_s);
    add();
    bench.closed();
    QCOMPARE(view.model()->rowCount(), 2);
    bench.Click(u"Command12"_s);
    bench.list.ListFound(QList<DayListRow>{{u"見つけた"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()}}, 7);
    QCOMPARE(view.model()->rowCount(), 1);
    QCOMPARE(bench.asked, (QStringList{u"edit 1998-10-03 row 0"_s, u"remove"_s, u"search"_s}));
}

QTEST_MAIN(TstCalendarPanel)
#include "tst_calendar_panel.moc"
