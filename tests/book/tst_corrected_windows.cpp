// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QListView>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "book/anniversary_book.h"
#include "book/dialog_bench.h"
#include "days/calendar_window_bench.h"
#include "support/fake_day_changes.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

/// The calendar with the real windows of the book. Today is the third Monday of October 1998, the 19th.
struct Bench : days::CalendarWindowBench {
    FakeDayChanges changes;
    std::unique_ptr<DialogBench> dialogs;

    explicit Bench(const Corrections& corrections) : CalendarWindowBench(QDate(1998, 10, 19)) {
        further.corrections = corrections;
        const AnniversaryBook windows({.dayDatabase = dayDatabase,
                                       .further = further,
                                       .list = list,
                                       .changes = changes,
                                       .clock = time,
                                       .boxes = boxes,
                                       .handlers = handlers,
                                       .help = help,
                                       .timers = time});
        book.edit = [windows](QDate date, QWidget* above, days::BookWindows::Closed whenClosed) {
            windows.OpenEditor(date, above, std::move(whenClosed));
        };
        book.remove = [windows](QWidget* above, days::BookWindows::Closed whenClosed) {
            windows.OpenDeletion(above, std::move(whenClosed));
        };
        book.search = [windows](QWidget* above) { windows.OpenSearch(above); };
        Open();
        dialogs = std::make_unique<DialogBench>(*form);
        Click(u"Command6"_s);
    }

    void Add(const QByteArray& rows) {
        store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES " + rows);
        ClickDay(19);
    }
    QStringList Stored() const {
        return store.Raw("SELECT Name,Year,Month,Day,Week FROM Kinenbi ORDER BY id");
    }

    /// The names in the list, with their weeks.
    QStringList Listed() const {
        const QAbstractItemModel& rows = *Find<QTableView>(u"ListView1"_s).model();
        QStringList listed;
        for (int row = 0; row < rows.rowCount(); ++row) {
            listed.append(rows.index(row, 0).data().toString() + u' ' + rows.index(row, 4).data().toString());
        }
        return listed;
    }
    void EditRow(int row) {
        auto& view = Find<QTableView>(u"ListView1"_s);
        view.setCurrentIndex(view.model()->index(row, 0));
        Click(u"Command9"_s);
        dialogs->Activate();
    }
    /// The date in the editor.
    QString Date() const {
        const auto& ordinal = dialogs->The<QComboBox>(u"Combo2"_s);
        const auto& weekday = dialogs->The<QComboBox>(u"Combo1"_s);
        return QStringList{dialogs->Text(u"Text2"_s), dialogs->Text(u"Text3"_s), dialogs->Text(u"Text4"_s),
                           ordinal.currentText(), weekday.currentText()}
            .join(u' ');
    }
    void Rename(const QString& name) {
        dialogs->Type(u"Text1"_s, name);
        dialogs->Click(u"Command1"_s);
    }
    void DeleteRow(int row) {
        Click(u"Command10"_s);
        dialogs->Activate();
        auto& names = dialogs->The<QListView>(u"List1"_s);
        QTest::mouseClick(names.viewport(), Qt::LeftButton, {},
                          names.visualRect(names.model()->index(row, 0)).center());
        dialogs->Click(u"Command1"_s);
    }
    void SearchAll() {
        Click(u"Command12"_s);
        dialogs->Activate();
        dialogs->Click(u"Command1"_s);
    }
    /// Searches from 20 November 1998 to 10 February 1999.
    void SearchWinter() {
        Click(u"Command12"_s);
        dialogs->Activate();
        dialogs->Click(u"Option2(0)"_s);
        for (const auto& [field, text] : {std::pair{u"Text3"_s, u"11"_s},
                                          {u"Text4"_s, u"20"_s},
                                          {u"Text5"_s, u"1999"_s},
                                          {u"Text6"_s, u"2"_s},
                                          {u"Text7"_s, u"10"_s}}) {
            dialogs->Type(field, text);
        }
        dialogs->Click(u"Command1"_s);
    }
};

}  // namespace

/// The corrections in the windows of the calendar and the book.
class TstCorrectedWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EditsTheThirdMonday();
    void DeletesTheThirdMonday();
    void EditsAndDeletesWhatASearchFound();
    void ARowWhoseTextCannotBeReadIsEditedAndDeleted();
    void WithoutTheCorrectionTheThirdMondayStays();
    void TheEditorTakesTheDateOfTheRow();
    void TheTargetStaysTheSameIfOnlyTheDateIsTaken();
    void FindsAcrossMonths();
    void WithoutTheCorrectionNothingIsFoundInTheFirstAndLastMonth();
};

void TstCorrectedWindows::EditsTheThirdMonday() {
    Bench bench({.weekdayAnniversaries = true});
    bench.Add("('例会',0,0,0,32),('例会',0,0,0,23)");
    QCOMPARE(bench.Listed(), QStringList{u"例会 第3週月"_s});
    bench.EditRow(0);
    QCOMPARE(bench.Date(), u"1998 10 19 第3 月曜日"_s);
    bench.Rename(u"party"_s);
    QVERIFY(bench.dialogs->Window() == nullptr);
    QCOMPARE(bench.Stored(), QStringList({u"party|0|0|0|32"_s, u"例会|0|0|0|23"_s}));
    QCOMPARE(bench.Listed(), QStringList{u"party 第3週月"_s});
    QCOMPARE(bench.changes.raised, 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstCorrectedWindows::DeletesTheThirdMonday() {
    Bench bench({.weekdayAnniversaries = true});
    bench.Add("('例会',0,0,0,32),('例会',0,0,0,23),('例会',0,0,0,32),('other',0,0,0,32)");
    bench.DeleteRow(0);
    QVERIFY(bench.dialogs->Window() == nullptr);
    QCOMPARE(bench.Stored(), QStringList({u"例会|0|0|0|23"_s, u"other|0|0|0|32"_s}));
    QCOMPARE(bench.Listed(), QStringList{u"other 第3週月"_s});
    QCOMPARE(bench.changes.raised, 1);
}

void TstCorrectedWindows::EditsAndDeletesWhatASearchFound() {
    Bench bench({.weekdayAnniversaries = true});
    bench.Add("('a',1999,0,0,13),('a',0,3,0,31),('a',0,0,0,13)");
    bench.SearchAll();
    QCOMPARE(bench.Listed(), QStringList({u"a 第1週火"_s, u"a 第3週日"_s, u"a 第1週火"_s, u"a 第1週火"_s}));
    bench.EditRow(2);  // the first row again; it is listed as one of every month and of every year
    bench.Rename(u"b"_s);
    QCOMPARE(bench.Stored(), QStringList({u"b|0|0|0|32"_s, u"a|0|3|0|31"_s, u"a|0|0|0|13"_s}));
    bench.SearchAll();
    bench.DeleteRow(0);
    QCOMPARE(bench.Stored(), QStringList({u"b|0|0|0|32"_s, u"a|0|0|0|13"_s}));
}

void TstCorrectedWindows::ARowWhoseTextCannotBeReadIsEditedAndDeleted() {
    Bench bench({.weekdayAnniversaries = true});
    bench.Add("('a',0,10,19,-17),('b',0,10,19,-17)");
    QCOMPARE(bench.Listed(), QStringList({u"a 第-週土"_s, u"b 第-週土"_s}));
    bench.EditRow(0);
    bench.dialogs->Click(u"Check2"_s);
    bench.Rename(u"c"_s);
    QCOMPARE(bench.Stored(), QStringList({u"c|0|10|19|0"_s, u"b|0|10|19|-17"_s}));
    bench.DeleteRow(1);
    QCOMPARE(bench.Stored(), QStringList{u"c|0|10|19|0"_s});
}

void TstCorrectedWindows::WithoutTheCorrectionTheThirdMondayStays() {
    Bench bench({.editorTakesDate = true, .searchAcrossMonths = true});
    bench.Add("('例会',0,0,0,32),('例会',0,0,0,23)");
    bench.DeleteRow(0);
    QCOMPARE(bench.Stored(), QStringList{u"例会|0|0|0|32"_s});
    bench.EditRow(0);
    bench.Rename(u"party"_s);
    QCOMPARE(bench.Stored(), QStringList{u"例会|0|0|0|32"_s});
}

void TstCorrectedWindows::TheEditorTakesTheDateOfTheRow() {
    Bench bench({.weekdayAnniversaries = true, .editorTakesDate = true});
    bench.Add("('day',2001,6,15,0),('week',0,9,0,57)");
    bench.SearchAll();
    bench.EditRow(0);
    QCOMPARE(bench.Date(), u"2001 6 15 第3 月曜日"_s);
    bench.Rename(u"d"_s);
    bench.SearchAll();
    bench.EditRow(1);
    QCOMPARE(bench.Date(), u"1998 9 19 第5 土曜日"_s);
    bench.Rename(u"w"_s);
    QCOMPARE(bench.Stored(), QStringList({u"d|2001|6|15|0"_s, u"w|0|9|0|57"_s}));
}

void TstCorrectedWindows::TheTargetStaysTheSameIfOnlyTheDateIsTaken() {
    Bench bench({.editorTakesDate = true});
    bench.Add("('a',0,9,0,32),('a',0,9,0,23)");
    bench.SearchAll();
    bench.EditRow(0);
    QCOMPARE(bench.Date(), u"1998 9 19 第3 月曜日"_s);
    bench.Rename(u"b"_s);
    QCOMPARE(bench.Stored(), QStringList({u"a|0|9|0|32"_s, u"b|0|9|0|32"_s}));
}

void TstCorrectedWindows::FindsAcrossMonths() {
    Bench bench({.searchAcrossMonths = true});
    bench.Add(
        "('out',0,11,19,0),('in',0,11,20,0),('Monday',0,2,0,12),('second',0,2,0,22),('day',1998,12,1,0)");
    bench.SearchWinter();
    QCOMPARE(bench.Listed(), QStringList({u"in "_s, u"Monday 第1週月"_s, u"second 第2週月"_s}));
}

void TstCorrectedWindows::WithoutTheCorrectionNothingIsFoundInTheFirstAndLastMonth() {
    Bench bench({.weekdayAnniversaries = true, .editorTakesDate = true});
    bench.Add("('out',0,11,19,0),('in',0,11,20,0),('Monday',0,2,0,12),('day',1998,12,1,0)");
    bench.SearchWinter();
    QCOMPARE(bench.Listed(), QStringList());
}

QTEST_MAIN(TstCorrectedWindows)
#include "tst_corrected_windows.moc"
