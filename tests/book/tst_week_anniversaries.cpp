// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "book/anniversary_deletion.h"
#include "book/anniversary_statements.h"
#include "book/editor_fields.h"
#include "book/whole_work.h"
#include "days/anniversary_model.h"
#include "days/day_list.h"
#include "days/day_rule.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

constexpr int kWeeks = 5;
constexpr int kWeekdays = 7;

int Exchanged(int code) {
    return 10 * (code % 10) + code / 10;
}

/// A book of anniversaries defined by week, changed in the same way as by its windows.
struct Book {
    store::DayStore store;
    store::DayDatabase database{store.Path()};
    days::DayList list;

    void Add(const QString& name, int code) {
        EditorFields fields = FieldsToAdd(DayOf(code));
        fields.name = name;
        ChooseKind(fields, AnniversaryKind::EveryMonth);
        fields.byWeek = true;
        database.Execute(InsertSql(AnniversaryOf(fields)));
    }

    /// Edits the only row of `code`'s day: changes its name, and keeps the editor's proposal for the rest.
    void Edit(int code, const QString& name) {
        list.ListDay(database, DayOf(code), true);
        const days::Anniversary old = AnniversaryOf(list.Rows().Kept().constFirst());
        EditorFields fields = FieldsToEdit(old, DayOf(code));
        fields.name = name;
        database.Execute(UpdateSql(old, AnniversaryOf(fields)));
    }

    void Delete(int code) {
        list.ListDay(database, DayOf(code), true);
        DeleteTicked(database, list.Rows().Kept(), {true});
    }

    days::Anniversaries All() {
        return days::AnniversariesIn(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s));
    }

    /// A day with this code; in 2000 there is one for every code.
    static QDate DayOf(int code) {
        for (QDate day(2000, 1, 1); day.year() == 2000; day = day.addDays(1)) {
            if (days::WeekCode(day) == code) {
                return day;
            }
        }
        return {};
    }
};

days::Anniversary Meeting(const QString& name, int code) {
    return {name, 0, 0, 0, code};
}

void AddCodes(bool swapped) {
    QTest::addColumn<int>("code");
    for (int week = 1; week <= kWeeks; ++week) {
        for (int weekday = 1; weekday <= kWeekdays; ++weekday) {
            const int code = 10 * week + weekday;
            if (!swapped || (weekday <= kWeeks && week != weekday)) {
                QTest::addRow("%d", code) << code;
            }
        }
    }
}

}  // namespace

/// Anniversaries of the n-th weekday, from the editor to the list and back. Parsing a list row swaps the two
/// digits of its code.
class TstWeekAnniversaries : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachIsStoredAndListedOnItsDay_data() { AddCodes(false); }
    void EachIsStoredAndListedOnItsDay();
    void OnlyCodesWithEqualDigitsAreChanged_data() { AddCodes(false); }
    void OnlyCodesWithEqualDigitsAreChanged();
    void OnlyCodesWithEqualDigitsAreDeleted_data() { AddCodes(false); }
    void OnlyCodesWithEqualDigitsAreDeleted();
    void TheRowWithSwappedDigitsIsChangedInstead_data() { AddCodes(true); }
    void TheRowWithSwappedDigitsIsChangedInstead();
    void TheRowWithSwappedDigitsIsDeletedInstead_data() { AddCodes(true); }
    void TheRowWithSwappedDigitsIsDeletedInstead();
};

void TstWeekAnniversaries::EachIsStoredAndListedOnItsDay() {
    QFETCH(int, code);
    Book book;
    book.Add(u"例会"_s, code);
    QVERIFY(book.All() == days::Anniversaries({Meeting(u"例会"_s, code)}));
    book.list.ListDay(book.database, Book::DayOf(code), true);
    const QString weekday = u"日月火水木金土"_s.mid(code % 10 - 1, 1);
    const QList<days::DayListRow> expected{
        {u"例会"_s, u"毎"_s, u"毎"_s, QString(), u"第%1週%2"_s.arg(code / 10).arg(weekday)}};
    QVERIFY(book.list.Rows().Kept() == expected);
}

void TstWeekAnniversaries::OnlyCodesWithEqualDigitsAreChanged() {
    QFETCH(int, code);
    Book book;
    book.Add(u"例会"_s, code);
    book.Edit(code, u"総会"_s);
    const QString name = code / 10 == code % 10 ? u"総会"_s : u"例会"_s;
    QVERIFY(book.All() == days::Anniversaries({Meeting(name, code)}));
}

void TstWeekAnniversaries::OnlyCodesWithEqualDigitsAreDeleted() {
    QFETCH(int, code);
    Book book;
    book.Add(u"例会"_s, code);
    book.Delete(code);
    QCOMPARE(book.All().empty(), code / 10 == code % 10);
}

void TstWeekAnniversaries::TheRowWithSwappedDigitsIsChangedInstead() {
    QFETCH(int, code);
    Book book;
    book.Add(u"例会"_s, code);
    book.Add(u"例会"_s, Exchanged(code));
    book.Edit(code, u"総会"_s);
    QVERIFY(book.All() == days::Anniversaries({Meeting(u"例会"_s, code), Meeting(u"総会"_s, code)}));
}

void TstWeekAnniversaries::TheRowWithSwappedDigitsIsDeletedInstead() {
    QFETCH(int, code);
    Book book;
    book.Add(u"例会"_s, code);
    book.Add(u"例会"_s, Exchanged(code));
    book.Delete(code);
    QVERIFY(book.All() == days::Anniversaries({Meeting(u"例会"_s, code)}));
}

QTEST_GUILESS_MAIN(TstWeekAnniversaries)
#include "tst_week_anniversaries.moc"
