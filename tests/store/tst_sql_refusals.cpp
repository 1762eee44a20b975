// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "store/sql_compiler.h"
#include "store/sql_error.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

QString Brackets(int depth) {
    return u"SELECT * FROM Kinenbi WHERE "_s + QString(depth, u'(') + u"Day=1" + QString(depth, u')');
}

void AddStatement(const char* name, const QString& sql) {
    QTest::newRow(name) << sql;
}

void AddCondition(const char* name, const QString& condition) {
    AddStatement(name, u"SELECT * FROM Kinenbi WHERE "_s + condition);
}

void AddDate(const char* name, const QString& literal) {
    AddStatement(name, u"SELECT * FROM Holiday WHERE Date="_s + literal);
}

void AddStatements() {
    AddStatement("nothing", QString());
    AddStatement("blanks", u"  \r\n"_s);
    AddStatement("another statement", u"DROP TABLE Kinenbi"_s);
    AddStatement("a pragma", u"PRAGMA writable_schema=1"_s);
    AddStatement("a statement cut short", u"SELECT * FROM"_s);
    AddStatement("query without a condition", u"SELECT * FROM Kinenbi"_s);
    AddStatement("erase without a condition", u"DELETE * FROM Kinenbi"_s);
    AddStatement("change without a condition", u"UPDATE Kinenbi SET Year=1"_s);
    AddStatement("condition without a comparison", u"SELECT * FROM Kinenbi WHERE"_s);
    AddStatement("semicolon at the end", u"SELECT * FROM Kinenbi WHERE Day=1;"_s);
    AddStatement("second statement",
                 u"DELETE * FROM Kinenbi WHERE Day=1; DELETE * FROM Kinenbi WHERE Day=2"_s);
    AddStatement("second statement without a semicolon",
                 u"DELETE * FROM Kinenbi WHERE Day=1 DELETE * FROM Kinenbi WHERE Day=2"_s);
    AddStatement("ORDER BY", u"SELECT * FROM Kinenbi WHERE Day=1 ORDER BY Name"_s);
    AddStatement("comment", u"SELECT * FROM Kinenbi WHERE Day=1 -- all"_s);
    AddStatement("comment in the middle", u"SELECT * /* all */ FROM Kinenbi WHERE Day=1"_s);
    AddStatement("unknown table", u"SELECT * FROM sqlite_schema WHERE Day=1"_s);
    AddStatement("unknown column", u"SELECT Kinenbi.id FROM Kinenbi WHERE Day=1"_s);
    AddStatement("column without its table", u"SELECT Name FROM Kinenbi WHERE Day=1"_s);
    AddStatement("column of another table", u"SELECT Syukuzitu.Name FROM Kinenbi WHERE Day=1"_s);
    AddStatement("erased column of another table",
                 u"DELETE Halfday.Date FROM Holiday WHERE Date <= #1/1/2000#"_s);
    AddStatement("erased column unknown", u"DELETE Holiday.Name FROM Holiday WHERE Date <= #1/1/2000#"_s);
    AddStatement("star and columns", u"SELECT *,Kinenbi.Name FROM Kinenbi WHERE Day=1"_s);
    AddStatement("two tables", u"SELECT * FROM Kinenbi,Holiday WHERE Day=1"_s);
    AddStatement("table in quotes", u"SELECT * FROM \"Kinenbi\" WHERE Day=1"_s);
    AddStatement("full-width letters", u"ＳＥＬＥＣＴ * FROM Kinenbi WHERE Day=1"_s);
    AddStatement("full-width blank", u"SELECT *　FROM Kinenbi WHERE Day=1"_s);
    AddStatement("kelvin sign for K", u"SELECT * FROM \u212Ainenbi WHERE Day=1"_s);
}

void AddConditions() {
    AddCondition("the hidden id", u"id=1"_s);
    AddCondition("column of another table in a condition", u"Date=#1/1/2000#"_s);
    AddCondition("table before a column in a condition", u"Kinenbi.Day=1"_s);
    AddCondition("literal on the left", u"1=1"_s);
    AddCondition("text on the left", u"\"1\"=\"1\""_s);
    AddCondition("column on the right", u"Day=Week"_s);
    AddCondition("no operator", u"Day 1"_s);
    AddCondition("unknown operator", u"Day == 1"_s);
    AddCondition("operator in two pieces", u"Day < = 1"_s);
    AddCondition("operator the other way round", u"Day => 1"_s);
    AddCondition("not equal as in C", u"Day != 1"_s);
    AddCondition("LIKE", u"Name LIKE \"a\""_s);
    AddCondition("NOT", u"NOT Day=1"_s);
    AddCondition("IS NULL", u"Name IS NULL"_s);
    AddCondition("a function", u"Day=abs(1)"_s);
    AddCondition("arithmetic", u"Day=1+1"_s);
    AddCondition("AND without a right side", u"Day=1 AND"_s);
    AddCondition("OR without a left side", u"OR Day=1"_s);
    AddCondition("bracket left open", u"(Day=1"_s);
    AddCondition("bracket never opened", u"Day=1)"_s);
    AddCondition("empty brackets", u"()"_s);
    QTest::newRow("thirty-three brackets") << Brackets(33);
    QTest::newRow("a hundred thousand brackets") << Brackets(100'000);
    AddCondition("BETWEEN without AND", u"Day BETWEEN 1"_s);
    AddCondition("BETWEEN with OR", u"Day BETWEEN 1 OR 2"_s);
}

void AddLiterals() {
    AddCondition("number for a text", u"Name=1"_s);
    AddCondition("text for a number", u"Day=\"1\""_s);
    AddCondition("date for a number", u"Day=#1/1/2000#"_s);
    AddCondition("text in a BETWEEN of numbers", u"Day BETWEEN \"1\" AND 2"_s);
    AddCondition("text with another operator", u"Name<>\"a\""_s);
    AddCondition("text in order", u"Name>=\"a\""_s);
    AddCondition("text BETWEEN", u"Name BETWEEN \"a\" AND \"b\""_s);
    AddCondition("text twice", u"Name=\"a\" OR Name=\"b\""_s);
    AddCondition("text twice, apart", u"(Name=\"a\" AND Day=1) OR (Day=2 AND Name=\"a\")"_s);
    AddCondition("text left open", u"Name=\"a"_s);
    AddCondition("two texts that touch", u"Name=\"a\"\"b\""_s);
    AddCondition("text in single quotes", u"Name='a'"_s);
    AddCondition("NUL in a text", u"Name=\"a"_s + QChar(u'\0') + u"b\"");
    AddCondition("NUL after the end", u"Day=1"_s + QChar(u'\0'));
    AddCondition("number too large", u"Year=2147483648"_s);
    AddCondition("number too small", u"Year=-2147483649"_s);
    AddCondition("number far too large", u"Year=99999999999999999999999999"_s);
    AddCondition("minus alone", u"Year=-"_s);
    AddCondition("minus apart", u"Year=- 1"_s);
    AddCondition("plus", u"Year=+1"_s);
    AddCondition("fraction", u"Year=1.5"_s);
    AddCondition("hexadecimal", u"Year=0x10"_s);
    AddCondition("full-width digit", u"Year=１"_s);
}

void AddDates() {
    AddDate("text for a date", u"\"2000-01-01\""_s);
    AddDate("number for a date", u"20000101"_s);
    AddDate("day that is none", u"#2/30/2000#"_s);
    AddDate("leap day of a year without one", u"#2/29/1900#"_s);
    AddDate("month 13", u"#13/1/2000#"_s);
    AddDate("month 0", u"#0/1/2000#"_s);
    AddDate("day 0", u"#1/0/2000#"_s);
    AddDate("year of three digits", u"#1/1/200#"_s);
    AddDate("year of five digits", u"#1/1/02000#"_s);
    AddDate("year before 100", u"#1/1/0099#"_s);
    AddDate("three digits of a month", u"#001/1/2000#"_s);
    AddDate("two parts", u"#1/2000#"_s);
    AddDate("four parts", u"#1/1/1/2000#"_s);
    AddDate("empty part", u"#1//2000#"_s);
    AddDate("empty date", u"##"_s);
    AddDate("blank in a date", u"#1/ 1/2000#"_s);
    AddDate("date left open", u"#1/1/2000"_s);
    AddDate("time of day", u"#1/1/2000 12:00#"_s);
}

void AddStoredValues() {
    AddStatement("more values than columns", u"INSERT INTO Holiday VALUES (#1/1/2000#,#1/2/2000#)"_s);
    AddStatement("fewer values than columns", u"INSERT INTO Kinenbi VALUES (\"a\",1,2,3)"_s);
    AddStatement("column twice in an insert",
                 u"INSERT INTO Kinenbi(Name,Name,Month,Day,Week) VALUES (\"a\",\"b\",1,2,3)"_s);
    AddStatement("no value", u"INSERT INTO Holiday VALUES ()"_s);
    AddStatement("insert of a query",
                 u"INSERT INTO Holiday SELECT * FROM Halfday WHERE Date <= #1/1/2000#"_s);
    AddStatement("two rows", u"INSERT INTO Holiday VALUES (#1/1/2000#),(#1/2/2000#)"_s);
    AddStatement("NULL", u"INSERT INTO Holiday VALUES (NULL)"_s);
    AddStatement("text into a date", u"INSERT INTO Holiday VALUES (\"2000-01-01\")"_s);
    AddStatement("number into a text", u"INSERT INTO Syukuzitu VALUES (1,2,3)"_s);
    AddStatement("word into a number", u"INSERT INTO Syukuzitu VALUES (\"a\",\"b\",3)"_s);
    AddStatement("empty text into a number", u"INSERT INTO Syukuzitu VALUES (\"a\",\"\",3)"_s);
    AddStatement("minus into a number", u"INSERT INTO Syukuzitu VALUES (\"a\",\"-\",3)"_s);
    AddStatement("blank before a quoted number", u"INSERT INTO Syukuzitu VALUES (\"a\",\" 1\",3)"_s);
    AddStatement("plus before a quoted number", u"INSERT INTO Syukuzitu VALUES (\"a\",\"+1\",3)"_s);
    AddStatement("quoted fraction", u"INSERT INTO Syukuzitu VALUES (\"a\",\"1.0\",3)"_s);
    AddStatement("quoted full-width digit", u"INSERT INTO Syukuzitu VALUES (\"a\",\"１\",3)"_s);
    AddStatement("quoted number too large", u"INSERT INTO Syukuzitu VALUES (\"a\",\"2147483648\",3)"_s);
    AddStatement("column set twice", u"UPDATE Kinenbi SET Year=1, Year=2 WHERE Day=1"_s);
    AddStatement("column set twice, other case", u"UPDATE Kinenbi SET Year=1, YEAR=2 WHERE Day=1"_s);
    AddStatement("unknown column set", u"UPDATE Kinenbi SET id=1 WHERE Day=1"_s);
    AddStatement("set to a column", u"UPDATE Kinenbi SET Year=Month WHERE Day=1"_s);
    AddStatement("set to a number in a text column", u"UPDATE Kinenbi SET Name=1 WHERE Day=1"_s);
    AddStatement("set without an equals sign", u"UPDATE Kinenbi SET Year 1 WHERE Day=1"_s);
    AddStatement("nothing set", u"UPDATE Kinenbi SET WHERE Day=1"_s);
    AddStatement("comma without a next", u"UPDATE Kinenbi SET Year=1, WHERE Day=1"_s);
}

}  // namespace

/// Statements outside the day database's SQL subset.
class TstSqlRefusals : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Refuses_data();
    void Refuses();
    void TheErrorContainsTheText();
};

void TstSqlRefusals::Refuses_data() {
    QTest::addColumn<QString>("sql");
    AddStatements();
    AddConditions();
    AddLiterals();
    AddDates();
    AddStoredValues();
}

void TstSqlRefusals::Refuses() {
    QFETCH(QString, sql);
    QVERIFY_THROWS_EXCEPTION(SqlError, CompileSql(sql));
}

void TstSqlRefusals::TheErrorContainsTheText() {
    const QString sql = u"SELECT * FROM Kinenbi WHERE Name=\"a\"\"b\""_s;
    try {
        CompileSql(sql);
        QFAIL("the statement was taken");
    } catch (const SqlError& error) {
        QCOMPARE(error.Sql(), sql);
        QCOMPARE(error.SqliteCode(), 0);
        QCOMPARE(error.Reason(), u"SQL文の書き方が正しくありません。"_s);
        QCOMPARE(error.Detail(),
                 u"SQL文の書き方が正しくありません。 (SQLite code 0, statement: "_s + sql + u')');
    }
}

QTEST_GUILESS_MAIN(TstSqlRefusals)
#include "tst_sql_refusals.moc"
