// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "book/anniversary_book.h"
#include "book/dialog_bench.h"
#include "days/anniversary_model.h"
#include "platform/time/virtual_time.h"
#include "store/day_store.h"
#include "support/fake_day_changes.h"
#include "support/fake_help_viewer.h"
#include "support/fake_message_boxes.h"

namespace tickwell::book {

/// An anniversary book, with an empty widget in place of the calendar window. Today is 15 November 1998, and
/// the selected day is 3 October 1998.
struct BookBench : DialogBench {
    store::DayStore store;
    store::DayDatabase database{store.Path()};
    FurtherSettings further;
    days::DayList list;
    FakeDayChanges changes;
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakeHelpViewer help;
    AnniversaryBook book{{.dayDatabase = database,
                          .further = further,
                          .list = list,
                          .changes = changes,
                          .clock = time,
                          .boxes = boxes,
                          .handlers = handlers,
                          .help = help,
                          .timers = time}};
    QDate selected{1998, 10, 3};
    QWidget calendar;  // declared last, because it deletes the dialogs, which use the others
    int closed = 0;

    BookBench() : DialogBench(calendar) { calendar.show(); }

    void Add(const days::Anniversary& row) { database.Execute(days::InsertText(row)); }
    days::Anniversaries Stored() {
        return days::AnniversariesIn(
            database.RunQuery(QStringLiteral("SELECT * FROM Kinenbi WHERE Year <> 5")));
    }
    void ListSelectedDay() { list.ListDay(database, selected, true); }

    void OpenEditor() {
        book.OpenEditor(selected, &calendar, [this] { ++closed; });
        Activate();
    }
    void OpenDeletion() {
        book.OpenDeletion(&calendar, [this] { ++closed; });
        Activate();
    }
    void OpenSearch() {
        book.OpenSearch(&calendar);
        Activate();
    }
    /// Stores 70 000 anniversaries "n1", "n2" .. of every year: too many for one slice.
    void AddMany() const {
        store.Raw(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 70000)"
            "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'n' || i,0,1 + i % 12,1 + i % 28,0 FROM n");
    }
    /// Lists all anniversaries by a search.
    void ListMany() {
        OpenSearch();
        Click(QStringLiteral("Command1"));
        time.Advance(10'000);
    }
    QString Count() const { return store.Raw("SELECT count(*) FROM Kinenbi").constFirst(); }
};

}  // namespace tickwell::book
