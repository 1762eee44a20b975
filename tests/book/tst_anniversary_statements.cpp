// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_statements.h"

#include <QTest>

#include "days/anniversary_model.h"
#include "store/day_database.h"
#include "store/day_store.h"
#include "store/sql_error.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

const days::Anniversary kBirthday{u"誕生日"_s, 0, 10, 3, 0};
const days::Anniversary kMeeting{u"例会"_s, 0, 0, 0, 22};

days::Anniversaries AllOf(store::DayDatabase& database) {
    return days::AnniversariesIn(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s));
}

}  // namespace

/// The statements that write to the anniversary book.
class TstAnniversaryStatements : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AddsWithOnlyTheNameInQuotes();
    void ChangesWithAllNewValuesInQuotes();
    void DeletesWithTwoBlanksBeforeWhere();
    void WritesNumbersPlainly();
    void StoresWhatItSays();
    void ChangesAllEqualRowsTogether();
    void DeletesAllEqualRowsTogether();
    void ChangesNothingIfNoRowIsEqual();
    void AQuoteInTheNameIsRefused_data();
    void AQuoteInTheNameIsRefused();
};

void TstAnniversaryStatements::AddsWithOnlyTheNameInQuotes() {
    QCOMPARE(InsertSql(kBirthday),
             uR"(INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ("誕生日",0,10,3,0))"_s);
    QCOMPARE(InsertSql({}), uR"(INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ("",0,0,0,0))"_s);
}

void TstAnniversaryStatements::ChangesWithAllNewValuesInQuotes() {
    QCOMPARE(UpdateSql(kBirthday, {u"x 'y' "_s, 1998, 12, 31, 0}),
             uR"(UPDATE Kinenbi SET Name="x 'y' ", Year="1998", Month="12", Day="31", Week="0" )"
             uR"(WHERE Name="誕生日" AND Year=0 AND Month=10 AND Day=3 AND Week=0)"_s);
}

void TstAnniversaryStatements::DeletesWithTwoBlanksBeforeWhere() {
    QCOMPARE(DeleteSql(kMeeting),
             uR"(DELETE * FROM Kinenbi  WHERE Name="例会" AND Year=0 AND Month=0 AND Day=0 AND Week=22)"_s);
}

void TstAnniversaryStatements::WritesNumbersPlainly() {
    const days::Anniversary row{u"a"_s, -1, 1000000, 99, 57};
    QVERIFY(InsertSql(row).endsWith(uR"(("a",-1,1000000,99,57))"));
    QVERIFY(DeleteSql(row).endsWith(u"Year=-1 AND Month=1000000 AND Day=99 AND Week=57"));
}

void TstAnniversaryStatements::StoresWhatItSays() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    const days::Anniversary odd{u" 毎 ' % ;-- "_s, -1, 13, 99, 75};
    QCOMPARE(database.Execute(InsertSql(kBirthday)), 1);
    QCOMPARE(database.Execute(InsertSql(odd)), 1);
    QVERIFY(AllOf(database) == days::Anniversaries({kBirthday, odd}));
    QCOMPARE(database.Execute(UpdateSql(odd, kMeeting)), 1);
    QVERIFY(AllOf(database) == days::Anniversaries({kBirthday, kMeeting}));
    QCOMPARE(database.Execute(DeleteSql(kBirthday)), 1);
    QVERIFY(AllOf(database) == days::Anniversaries({kMeeting}));
}

void TstAnniversaryStatements::ChangesAllEqualRowsTogether() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    for (const days::Anniversary& row : {kBirthday, kMeeting, kBirthday}) {
        database.Execute(InsertSql(row));
    }
    QCOMPARE(database.Execute(UpdateSql(kBirthday, kMeeting)), 2);
    QVERIFY(AllOf(database) == days::Anniversaries({kMeeting, kMeeting, kMeeting}));
}

void TstAnniversaryStatements::DeletesAllEqualRowsTogether() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    for (const days::Anniversary& row : {kBirthday, kMeeting, kBirthday}) {
        database.Execute(InsertSql(row));
    }
    QCOMPARE(database.Execute(DeleteSql(kBirthday)), 2);
    QVERIFY(AllOf(database) == days::Anniversaries({kMeeting}));
}

void TstAnniversaryStatements::ChangesNothingIfNoRowIsEqual() {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(InsertSql(kBirthday));
    days::Anniversary other = kBirthday;
    other.day = 4;
    QCOMPARE(database.Execute(UpdateSql(other, kMeeting)), 0);
    QCOMPARE(database.Execute(DeleteSql(other)), 0);
    QVERIFY(AllOf(database) == days::Anniversaries({kBirthday}));
}

void TstAnniversaryStatements::AQuoteInTheNameIsRefused_data() {
    QTest::addColumn<QString>("name");

    QTest::newRow("alone") << u"\""_s;
    QTest::newRow("inside") << u"a\"b"_s;
    QTest::newRow("two") << u"\"a\""_s;
    QTest::newRow("a condition that always holds") << u"x\" OR \"1\"=\"1"_s;
    QTest::newRow("another statement") << u"\",0,0,0,0);DELETE * FROM Kinenbi WHERE Year <> 5 --"_s;
}

void TstAnniversaryStatements::AQuoteInTheNameIsRefused() {
    QFETCH(QString, name);
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(InsertSql(kBirthday));
    const days::Anniversary row{name, 0, 10, 3, 0};
    for (const QString& sql :
         {InsertSql(row), UpdateSql(kBirthday, row), UpdateSql(row, kBirthday), DeleteSql(row)}) {
        QVERIFY_THROWS_EXCEPTION(store::SqlError, database.Execute(sql));
    }
    QVERIFY(AllOf(database) == days::Anniversaries({kBirthday}));
}

QTEST_GUILESS_MAIN(TstAnniversaryStatements)
#include "tst_anniversary_statements.moc"
