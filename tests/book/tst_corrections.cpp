// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "book/anniversary_edit.h"
#include "book/anniversary_statements.h"
#include "book/editor_fields.h"
#include "book/whole_work.h"
#include "days/announced_bench.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

const QDate kSelected(1998, 10, 13);  // the second Tuesday

/// What the corrections may change in the book, for one anniversary on the third Monday of September.
struct Effects {
    QStringList statements;  // those that change or delete the anniversary
    QStringList stored;      // the rows after the editor renamed it
    QString editorDate;
    QStringList searches;  // the statements of a search across months
    bool isAnnouncedOnItsDay = false;
};

QString StatementOf(const days::DayListRow& row, const Corrections& corrections) {
    return SelectSql(TargetOf(row, corrections)) + u'\n' + DeleteSql(TargetOf(row, corrections)) + u'\n' +
           UpdateSql(TargetOf(row, corrections), {u"b"_s, 1998, 10, 3, 0});
}

SearchConditions AcrossMonths(const Corrections& corrections) {
    SearchConditions conditions;
    conditions.dates = SearchRange{QDate(1998, 9, 30), QDate(1998, 10, 1)};
    conditions.acrossMonths = corrections.searchAcrossMonths;
    return conditions;
}

Effects EffectsOf(const Corrections& corrections) {
    const store::DayStore store;
    store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('a',0,9,0,32),('a',0,9,0,23)");
    store::DayDatabase database(store.Path());
    const days::DayListRow row = *FindAnniversaries(database, {}).rows.Read(0);
    Effects effects;
    effects.statements = StatementOf(row, corrections).split(u'\n');
    EditorFields fields = FieldsToEdit(row, kSelected, corrections);
    effects.editorDate =
        QStringList{fields.year, fields.month, fields.day, fields.ordinal, fields.weekday}.join(u' ');
    fields.name = u"b"_s;
    DoWhole(*EditOf(database, row, {.entered = AnniversaryOf(fields), .isRenamed = true}, corrections));
    effects.stored = store.Raw("SELECT Name,Month,Week FROM Kinenbi ORDER BY id");
    const auto texts = SearchTexts(AcrossMonths(corrections));
    effects.searches = QStringList(texts.begin(), texts.end());
    store.Raw("UPDATE Kinenbi SET Name = 'own', Month = 9, Week = 32 WHERE id = 1");
    effects.isAnnouncedOnItsDay =
        days::AnnouncedNames(database, QDate(1998, 9, 21), corrections).contains(u"own"_s);
    return effects;
}

/// The effects without any correction. The statements are spelled out, so that none can change unnoticed.
Effects Uncorrected() {
    return {{u"SELECT * FROM Kinenbi WHERE Name=\"a\" AND Year=0 AND Month=9 AND Day=0 AND Week=23"_s,
             u"DELETE * FROM Kinenbi  WHERE Name=\"a\" AND Year=0 AND Month=9 AND Day=0 AND Week=23"_s,
             u"UPDATE Kinenbi SET Name=\"b\", Year=\"1998\", Month=\"10\", Day=\"3\", Week=\"0\""
             u" WHERE Name=\"a\" AND Year=0 AND Month=9 AND Day=0 AND Week=23"_s},
            {u"a|9|32"_s, u"b|10|23"_s},
            u"1998 10 13 第2 火曜日"_s,
            {u"SELECT * FROM Kinenbi WHERE Year <> 0"
             u" AND ( ( Year=1998 AND Month=9 AND ( Day=0 OR Day >=30 ) AND ( Week=0 OR Week >= 54 ) )"
             u" OR ( Year=1998 AND Month > 9 ) )"
             u" AND ( ( Year=1998 AND Month < 10 )"
             u" OR ( Year=1998 AND Month=10 AND Day <=1 AND Week <= 15 ) )"
             u" AND Year BETWEEN 1999 AND 1997"_s,
             u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0"
             u" AND ( ( Month > 9 AND Month < 10 )"
             u" OR ( ( Month=9 AND ( Day=0 OR Day >= 30 )  AND ( Week=0 OR Week >= 54 )"
             u" AND ( Month=10 AND Day <= 1 AND Week <= 15 ) ) ) )"_s,
             u"SELECT * FROM Kinenbi WHERE Month = 0"
             u" AND ( ( Day=0 OR Day >= 30 ) AND ( Week=0 OR Week >= 54 ) )"
             u" AND ( Day <= 1 AND Week <= 15 )"_s},
            false};
}

void Compare(const Effects& actual, const Effects& expected) {
    QCOMPARE(actual.statements, expected.statements);
    QCOMPARE(actual.stored, expected.stored);
    QCOMPARE(actual.editorDate, expected.editorDate);
    QCOMPARE(actual.searches, expected.searches);
    QCOMPARE(actual.isAnnouncedOnItsDay, expected.isAnnouncedOnItsDay);
}

}  // namespace

/// Each correction changes what it names and nothing else.
class TstCorrections : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WithoutCorrectionsNothingChanges();
    void WeekdayAnniversariesChangeTheChosenRow();
    void EditorTakesDateChangesTheEditor();
    void SearchAcrossMonthsChangesOneQuery();
    void TheOthersChangeNothing();
};

void TstCorrections::WithoutCorrectionsNothingChanges() {
    Compare(EffectsOf({}), Uncorrected());
}

void TstCorrections::WeekdayAnniversariesChangeTheChosenRow() {
    Effects expected = Uncorrected();
    for (QString& statement : expected.statements) {
        statement.replace(u"Week=23"_s, u"Week=32"_s);
    }
    expected.stored = QStringList{u"b|10|23"_s, u"a|9|23"_s};
    expected.isAnnouncedOnItsDay = true;
    Compare(EffectsOf({.weekdayAnniversaries = true}), expected);
}

void TstCorrections::EditorTakesDateChangesTheEditor() {
    Effects expected = Uncorrected();
    expected.editorDate = u"1998 9 13 第3 月曜日"_s;
    expected.stored = QStringList{u"a|9|32"_s, u"b|9|32"_s};
    Compare(EffectsOf({.editorTakesDate = true}), expected);
}

void TstCorrections::SearchAcrossMonthsChangesOneQuery() {
    Effects expected = Uncorrected();
    expected.searches[1] =
        u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0"
        u" AND ( ( Month=9 AND ( Day BETWEEN 30 AND 30 OR Week BETWEEN 54 AND 54 ) )"
        u" OR ( Month=10 AND ( Day BETWEEN 1 AND 1 OR Week BETWEEN 15 AND 15 ) ) )"_s;
    Compare(EffectsOf({.searchAcrossMonths = true}), expected);
}

void TstCorrections::TheOthersChangeNothing() {
    Compare(EffectsOf({.dateTurnsAtMidnight = true,
                       .longUsage = true,
                       .lapIntervals = true,
                       .showsToday = true,
                       .keepsMarksOnClose = true,
                       .savesImmediately = true}),
            Uncorrected());
}

QTEST_GUILESS_MAIN(TstCorrections)
#include "tst_corrections.moc"
