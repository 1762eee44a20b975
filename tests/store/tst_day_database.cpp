// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/anniversary_texts.h"
#include "store/day_store.h"
#include "store/day_transaction.h"
#include "store/sql_error.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

const QString kEverything = u"SELECT * FROM Kinenbi WHERE Year <> 5"_s;

/// The rows of a result as one text: "a 0 10 3 0; b …".
QString Shown(const ResultSet& rows) {
    QStringList shown;
    for (const ResultRow& row : rows) {
        shown.append(u"%1 %2 %3 %4 %5"_s.arg(row.Text(u"Name"))
                         .arg(row.Integer(u"Year"))
                         .arg(row.Integer(u"Month"))
                         .arg(row.Integer(u"Day"))
                         .arg(row.Integer(u"Week")));
    }
    return shown.join(u"; ");
}

QString Dates(const ResultSet& rows) {
    QStringList dates;
    for (const ResultRow& row : rows) {
        dates.append(row.Date(u"Date").toString(Qt::ISODate));
    }
    return dates.join(u' ');
}

}  // namespace

/// The day database and its SQL dialect.
class TstDayDatabase : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void KeepsTheOrderOfStoring();
    void ComparesDatesAsDates();
    void StoresQuotedNumbersAsNumbers();
    void TakesNamesThatAreColumns();
    void ComparesNamesCharacterByCharacter();
    void ChangesEveryEqualRow();
    void AResultIsASnapshot();
    void AResultReportsAMissingColumn();
    void RefusesTheWrongKindOfStatement();
    void RollsATransactionBack();
    void CommitsATransactionAtOnce();
    void HasOneTransactionAtATime();
    void WorksInARelativeFolder();
    void ReturnsAnInvalidDateForATextThatIsNone();
    void RefusesValuesFromElsewhere();
    void ConfiguresSQLite();
};

void TstDayDatabase::KeepsTheOrderOfStoring() {
    const DayStore store;
    DayDatabase database(store.Path());
    database.Execute(days::Insert(u"z"_s, 0, 0, 3, 0));
    database.Execute(days::Insert(u"y"_s, 0, 0, 0, 17));
    database.Execute(days::Insert(u"x"_s, 0, 10, 3, 0));
    database.Execute(days::Insert(u"w"_s, 1998, 10, 3, 0));
    database.Execute(days::Insert(u"v"_s, 0, 0, 3, 17));
    const QDate day(1998, 10, 3);
    QCOMPARE(days::AnniversariesOf(database, day), u"z y x w v"_s);
    // An updated row keeps its position.
    QCOMPARE(database.Execute(
                 u"UPDATE Kinenbi SET Name=\"a\", Year=\"0\", Month=\"0\", Day=\"0\", Week=\"17\" WHERE "
                 "Name=\"x\" AND Year=0 AND Month=10 AND Day=3 AND Week=0"_s),
             1);
    QCOMPARE(days::AnniversariesOf(database, day), u"z y a w v"_s);
    // A row that is deleted and added again is last.
    QCOMPARE(database.Execute(
                 u"DELETE * FROM Kinenbi  WHERE Name=\"z\" AND Year=0 AND Month=0 AND Day=3 AND Week=0"_s),
             1);
    database.Execute(days::Insert(u"z"_s, 0, 0, 3, 0));
    QCOMPARE(days::AnniversariesOf(database, day), u"y a w v z"_s);
    QCOMPARE(days::Names(database.RunQuery(kEverything)), u"y a w v z"_s);
}

void TstDayDatabase::ComparesDatesAsDates() {
    const DayStore store;
    DayDatabase database(store.Path());
    for (const QDate date : {QDate(1998, 10, 31), QDate(1998, 2, 1), QDate(1998, 9, 30), QDate(1998, 10, 1),
                             QDate(1998, 11, 1), QDate(100, 1, 1), QDate(9999, 12, 31)}) {
        QCOMPARE(database.Execute(u"INSERT INTO Holiday  VALUES ("_s + days::DateLiteral(date) + u')'), 1);
    }
    const auto marked = [&database](QDate first, QDate last) {
        return Dates(database.RunQuery(days::MarkedDatesQuery(days::DayMark::Holiday, first, last)));
    };
    QCOMPARE(marked(QDate(1998, 10, 1), QDate(1998, 10, 31)), u"1998-10-31 1998-10-01"_s);
    QCOMPARE(marked(QDate(1998, 10, 31), QDate(1998, 10, 1)), QString());  // reversed ends
    QCOMPARE(marked(QDate(1998, 10, 1), QDate(1998, 10, 1)), u"1998-10-01"_s);
    QCOMPARE(Dates(database.RunQuery(u"SELECT Holiday.Date FROM Holiday WHERE Date <> #10/1/1998#"_s)),
             u"1998-10-31 1998-02-01 1998-09-30 1998-11-01 0100-01-01 9999-12-31"_s);
    QCOMPARE(database.Execute(u"DELETE Holiday.Date FROM Holiday WHERE Date <= #10/31/1998#"_s), 5);
    QCOMPARE(store.Raw("SELECT \"Date\" FROM Holiday ORDER BY id"),
             QStringList({u"1998-11-01"_s, u"9999-12-31"_s}));
}

void TstDayDatabase::StoresQuotedNumbersAsNumbers() {
    const DayStore store;
    DayDatabase database(store.Path());
    database.Execute(days::Insert(u"a"_s, 0, 10, 3, 0));
    QCOMPARE(database.Execute(
                 u"UPDATE Kinenbi SET Name=\"b\", Year=\"1998\", Month=\"-5\", Day=\"007\", Week=\"0\" WHERE "
                 "Name=\"a\" AND Year=0 AND Month=10 AND Day=3 AND Week=0"_s),
             1);
    QCOMPARE(store.Raw("SELECT typeof(\"Year\"), \"Year\", \"Month\", \"Day\" FROM Kinenbi"),
             QStringList(u"integer|1998|-5|7"_s));
    QCOMPARE(Shown(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year=1998"_s)), u"b 1998 -5 7 0"_s);
}

void TstDayDatabase::TakesNamesThatAreColumns() {
    const DayStore store;
    DayDatabase database(store.Path());
    for (const char* name :
         {"Name", "Year", "Month", "Day", "Week", "Date", "id", "NULL", "rowid", "", "a'b", "%", "?1"}) {
        database.Execute(days::Insert(QString::fromLatin1(name), 0, 1, 2, 0));
    }
    QCOMPARE(days::Names(database.RunQuery(kEverything)),
             u"Name Year Month Day Week Date id NULL rowid  a'b % ?1"_s);
    QCOMPARE(days::Names(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Name=\"Name\""_s)), u"Name"_s);
    QCOMPARE(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Name=\"\""_s).Count(), 1);
    QCOMPARE(database.Execute(u"UPDATE Kinenbi SET Name=\"Week\" WHERE Name=\"Year\""_s), 1);
    QCOMPARE(database.Execute(u"DELETE * FROM Kinenbi  WHERE Name=\"Name\" AND Year=0"_s), 1);
    QCOMPARE(days::Names(database.RunQuery(kEverything)),
             u"Week Month Day Week Date id NULL rowid  a'b % ?1"_s);
}

void TstDayDatabase::ComparesNamesCharacterByCharacter() {
    const DayStore store;
    DayDatabase database(store.Path());
    const QStringList names{u"A"_s,
                            u"a"_s,
                            u"Ａ"_s,
                            u"か"_s,
                            u"カ"_s,
                            u"ｶ"_s,
                            u"が"_s,
                            u"か\u3099"_s,
                            u"a "_s,
                            u"é"_s,
                            u"e\u0301"_s,
                            u"\U00020B9F"_s,
                            QString(QChar(0xD842)),
                            QString(QChar(0xDF9F)),
                            QString(QChar(0xFEFF)) + u'a',
                            QString(QChar(0xFFFD)),
                            QString(QChar(0xFFFE))};
    for (const QString& name : names) {
        database.Execute(days::Insert(name, 0, 1, 2, 0));
    }
    for (const QString& name : names) {
        const ResultSet found = database.RunQuery(u"SELECT * FROM Kinenbi WHERE Name=\""_s + name + u'"');
        QCOMPARE(found.Count(), 1);
        QCOMPARE(found.Row(0).Text(u"Name"), name);
    }
}

void TstDayDatabase::ChangesEveryEqualRow() {
    const DayStore store;
    DayDatabase database(store.Path());
    for (const char* name : {"a", "b", "a", "a"}) {
        database.Execute(days::Insert(QString::fromLatin1(name), 0, 1, 2, 0));
    }
    QCOMPARE(database.Execute(u"UPDATE Kinenbi SET Day=\"3\" WHERE Name=\"a\" AND Day=2"_s), 3);
    QCOMPARE(Shown(database.RunQuery(kEverything)), u"a 0 1 3 0; b 0 1 2 0; a 0 1 3 0; a 0 1 3 0"_s);
    QCOMPARE(database.Execute(
                 u"DELETE * FROM Kinenbi  WHERE Name=\"a\" AND Year=0 AND Month=1 AND Day=3 AND Week=0"_s),
             3);
    QCOMPARE(database.Execute(
                 u"DELETE * FROM Kinenbi  WHERE Name=\"a\" AND Year=0 AND Month=1 AND Day=3 AND Week=0"_s),
             0);
    QCOMPARE(database.Execute(u"UPDATE Kinenbi SET Day=4 WHERE Week=31"_s), 0);
}

void TstDayDatabase::AResultIsASnapshot() {
    const DayStore store;
    DayDatabase database(store.Path());
    database.Execute(days::Insert(u"a"_s, 0, 1, 2, 0));
    const ResultSet before = database.RunQuery(kEverything);
    database.Execute(days::Insert(u"b"_s, 0, 1, 2, 0));
    database.Execute(u"DELETE * FROM Kinenbi WHERE Name=\"a\""_s);
    QCOMPARE(days::Names(before), u"a"_s);
    QCOMPARE(days::Names(database.RunQuery(kEverything)), u"b"_s);
    // Nothing stays locked: another program can get an exclusive lock.
    RawConnection(store.Path()).Run("BEGIN EXCLUSIVE; COMMIT; VACUUM");
}

void TstDayDatabase::AResultReportsAMissingColumn() {
    const DayStore store;
    DayDatabase database(store.Path());
    const ResultSet rows =
        database.RunQuery(u"SELECT Syukuzitu.Name,Syukuzitu.Day FROM Syukuzitu WHERE Month=1"_s);
    QCOMPARE(rows.Count(), 1);
    QCOMPARE(rows.Row(0).Text(u"NAME"), u"元日"_s);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, rows.Row(0).Integer(u"Month"));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, rows.Row(0).Integer(u"Name"));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, rows.Row(0).Text(u"Day"));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, rows.Row(0).Date(u"Date"));
}

void TstDayDatabase::RefusesTheWrongKindOfStatement() {
    const DayStore store;
    DayDatabase database(store.Path());
    QVERIFY_THROWS_EXCEPTION(SqlError, database.Execute(kEverything));
    QVERIFY_THROWS_EXCEPTION(SqlError, database.RunQuery(days::Insert(u"a"_s, 0, 1, 2, 0)));
    QVERIFY_THROWS_EXCEPTION(SqlError, database.RunQuery(u"DELETE * FROM Kinenbi WHERE Day=2"_s));
    QVERIFY_THROWS_EXCEPTION(SqlError,
                             database.Execute(u"INSERT INTO Kinenbi(Name,Year) VALUES (\"a\",0)"_s));
    QCOMPARE(database.RunQuery(kEverything).Count(), 0);
}

void TstDayDatabase::RollsATransactionBack() {
    const DayStore store;
    DayDatabase database(store.Path());
    database.Execute(days::Insert(u"a"_s, 0, 1, 2, 0));
    {
        const DayTransaction transaction(database);
        database.Execute(u"DELETE * FROM Kinenbi WHERE Day=2"_s);
        database.Execute(days::Insert(u"b"_s, 0, 1, 2, 0));
        QCOMPARE(days::Names(database.RunQuery(kEverything)), u"b"_s);
    }
    QCOMPARE(days::Names(database.RunQuery(kEverything)), u"a"_s);
    QCOMPARE(store.Raw("SELECT \"Name\" FROM Kinenbi"), QStringList(u"a"_s));
}

void TstDayDatabase::CommitsATransactionAtOnce() {
    const DayStore store;
    DayDatabase database(store.Path());
    DayTransaction transaction(database);
    for (int day = 1; day <= 31; ++day) {
        database.Execute(u"INSERT INTO Halfday  VALUES ("_s + days::DateLiteral(QDate(1998, 10, day)) + u')');
    }
    QCOMPARE(store.Raw("SELECT count(*) FROM Halfday"), QStringList(u"0"_s));
    transaction.Commit();
    QCOMPARE(store.Raw("SELECT count(*) FROM Halfday"), QStringList(u"31"_s));
}

void TstDayDatabase::HasOneTransactionAtATime() {
    const DayStore store;
    DayDatabase database(store.Path());
    DayTransaction outer(database);
    database.Execute(days::Insert(u"a"_s, 0, 1, 2, 0));
    QVERIFY_THROWS_EXCEPTION(SqlError, DayTransaction{database});
    outer.Commit();
    QCOMPARE(days::Names(database.RunQuery(kEverything)), u"a"_s);
}

void TstDayDatabase::WorksInARelativeFolder() {
    const DayStore store;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(store.Folder()));
    DayDatabase database(u"DayDate.mdb"_s);
    QVERIFY(QDir::setCurrent(before));
    database.Execute(days::Insert(u"a"_s, 0, 1, 2, 0));
    QCOMPARE(store.Raw("SELECT \"Name\" FROM Kinenbi"), QStringList(u"a"_s));
    QVERIFY(QFile::exists(store.Folder() + u"/DayDate.lock"_s));
}

void TstDayDatabase::ReturnsAnInvalidDateForATextThatIsNone() {
    const DayStore store;
    store.Raw(
        "INSERT INTO Holiday(\"Date\") VALUES ('10/3/1998'), ('1998-02-30'), ('1998-10-03'), ('1998-10-3')");
    DayDatabase database(store.Path());
    QList<QDate> dates;
    for (const ResultRow& row : database.RunQuery(u"SELECT * FROM Holiday WHERE Date <> #1/1/2000#"_s)) {
        dates.append(row.Date(u"Date"));
    }
    QCOMPARE(dates, (QList<QDate>{QDate(), QDate(), QDate(1998, 10, 3), QDate()}));
}

void TstDayDatabase::RefusesValuesFromElsewhere() {
    const DayStore store;
    store.Raw("INSERT INTO Syukuzitu(\"Name\",\"Month\",\"Day\") VALUES ('a',6,4294967297)");
    DayDatabase database(store.Path());
    QVERIFY_THROWS_EXCEPTION(SqlError, database.RunQuery(days::MonthHolidayQuery(6)));
    QCOMPARE(database.Execute(u"DELETE * FROM Syukuzitu WHERE Month=6"_s), 1);
}

void TstDayDatabase::ConfiguresSQLite() {
    const DayStore store;
    store.Raw("PRAGMA journal_mode=WAL");
    SqliteConnection connection(store.Path());
    QCOMPARE(connection.FirstValue("PRAGMA journal_mode"), u"delete"_s);
    QCOMPARE(connection.FirstValue("PRAGMA synchronous"), u"3"_s);
    QCOMPARE(connection.FirstValue("PRAGMA busy_timeout"), u"2000"_s);
    QVERIFY_THROWS_EXCEPTION(SqlError, connection.Run("DELETE FROM Syukuzitu WHERE \"Nam\" = \"Nam\""));
    QVERIFY_THROWS_EXCEPTION(SqlError, connection.Run("DELETE FROM sqlite_schema"));
    // Triggers that another program put into the file do not run.
    store.Raw("CREATE TRIGGER t AFTER INSERT ON Kinenbi BEGIN DELETE FROM Syukuzitu; END");
    DayDatabase database(store.Path());
    database.Execute(days::Insert(u"a"_s, 0, 1, 2, 0));
    QCOMPARE(store.Raw("SELECT count(*) FROM Syukuzitu"), QStringList(u"10"_s));
}

QTEST_GUILESS_MAIN(TstDayDatabase)
#include "tst_day_database.moc"
