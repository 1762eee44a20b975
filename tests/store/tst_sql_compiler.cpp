// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "days/day_rule.h"
#include "store/sql_compiler.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

/// The values as one text: plain numbers and quoted texts, separated by spaces.
QString Shown(const std::vector<BoundValue>& values) {
    QStringList shown;
    for (const BoundValue& value : values) {
        const auto* number = std::get_if<qint32>(&value);
        shown.append(number != nullptr ? QString::number(*number) : u'\'' + std::get<QString>(value) + u'\'');
    }
    return shown.join(u' ');
}

constexpr const char* kAllOfKinenbi = R"(SELECT "Name","Year","Month","Day","Week" FROM "Kinenbi" WHERE )";
constexpr const char* kById = R"( ORDER BY "id")";

QByteArray SelectKinenbi(const char* where) {
    return QByteArray(kAllOfKinenbi) + where + kById;
}

QString Brackets(int depth) {
    return u"SELECT * FROM Kinenbi WHERE "_s + QString(depth, u'(') + u"Day=1" + QString(depth, u')');
}

void AddStatement(const char* name, const QString& sql, const QByteArray& text, const QString& values) {
    QTest::newRow(name) << sql << text << values;
}

void AddDayQueries() {
    const QByteArray day = SelectKinenbi(
        R"(("Day" = ?1 OR "Week" = ?2) AND ("Month" = ?3 OR "Month" = ?4) AND ("Year" = ?5 OR "Year" = ?6))");
    AddStatement("a day's anniversaries", days::AnniversaryQuery(1998, 10, 3, 17), day,
                 u"3 17 0 10 0 1998"_s);
    AddStatement("another day's, code the other way round", days::AnniversaryQuery(2026, 1, 31, 75), day,
                 u"31 75 0 1 0 2026"_s);
    const QByteArray holiday =
        R"(SELECT "Name","Month","Day" FROM "Syukuzitu" WHERE "Month" = ?1 AND "Day" = ?2 ORDER BY "id")";
    AddStatement("a day's holidays", days::HolidayQuery(1, 1), holiday, u"1 1"_s);
    AddStatement("another day's holidays", days::HolidayQuery(11, 23), holiday, u"11 23"_s);
    const QByteArray month =
        R"(SELECT "Name","Month","Day" FROM "Syukuzitu" WHERE "Month" = ?1 ORDER BY "id")";
    AddStatement("a month's holidays", days::MonthHolidayQuery(5), month, u"5"_s);
    AddStatement("another month's holidays", days::MonthHolidayQuery(12), month, u"12"_s);
}

void AddMarkStatements() {
    const QDate first(1998, 10, 1);
    const QDate last(1998, 10, 31);
    const QString october = u"'1998-10-01' '1998-10-31'"_s;
    const QString leap = u"'2000-02-01' '2000-02-29'"_s;
    const std::array marks{std::pair{days::DayMark::Holiday, u"Holiday"_s},
                           std::pair{days::DayMark::Halfday, u"Halfday"_s},
                           std::pair{days::DayMark::Usuallyday, u"Usuallyday"_s}};
    for (const auto& [mark, table] : marks) {
        const QByteArray quoted = '"' + table.toLatin1() + '"';
        const auto row = [&table = table](const char* what, const QString& sql, const QByteArray& text,
                                          const QString& values) {
            QTest::newRow(qPrintable(table + u' ' + QLatin1StringView(what))) << sql << text << values;
        };
        const QByteArray range = R"( WHERE "Date" BETWEEN ?1 AND ?2)";
        row("marks of a month", days::MarkedDatesQuery(mark, first, last),
            "SELECT \"Date\" FROM " + quoted + range + kById, october);
        row("marks of a February", days::MarkedDatesQuery(mark, QDate(2000, 2, 1), QDate(2000, 2, 29)),
            "SELECT \"Date\" FROM " + quoted + range + kById, leap);
        const QString erase = u"DELETE "_s + table + u".Date FROM " + table + u" WHERE Date ";
        row("erase a month", erase + u"BETWEEN #10/1/1998# AND #10/31/1998#", "DELETE FROM " + quoted + range,
            october);
        row("erase a February", erase + u"BETWEEN #2/1/2000# AND #2/29/2000#",
            "DELETE FROM " + quoted + range, leap);
        row("erase up to a day", erase + u"<= #10/31/1998#",
            "DELETE FROM " + quoted + R"( WHERE "Date" <= ?1)", u"'1998-10-31'"_s);
        row("erase up to another day", erase + u"<= #2/1/0100#",
            "DELETE FROM " + quoted + R"( WHERE "Date" <= ?1)", u"'0100-02-01'"_s);
        const QByteArray insert = "INSERT INTO " + quoted + R"x(("Date") VALUES (?1))x";
        row("store a date", u"INSERT INTO "_s + table + u"  VALUES (#10/3/1998#)", insert, u"'1998-10-03'"_s);
        row("store another date", u"INSERT INTO "_s + table + u"  VALUES (#12/31/9999#)", insert,
            u"'9999-12-31'"_s);
    }
}

void AddBookStatements() {
    const QByteArray insert =
        R"x(INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES (?1,?2,?3,?4,?5))x";
    AddStatement("add an anniversary",
                 u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"新しい記念日\",0,10,3,0)"_s,
                 insert, u"'新しい記念日' 0 10 3 0"_s);
    AddStatement("add one with a name that is a column and a negative year",
                 u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"Day\",-5,0,0,22)"_s, insert,
                 u"'Day' -5 0 0 22"_s);
    AddStatement("add one without a name",
                 u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"\",0,0,0,0)"_s, insert,
                 u"'' 0 0 0 0"_s);
    const QByteArray update =
        R"(UPDATE "Kinenbi" SET "Name" = ?1, "Year" = ?2, "Month" = ?3, "Day" = ?4, "Week" = ?5 WHERE )"
        R"("Name" = ?6 COLLATE BINARY AND "Year" = ?7 AND "Month" = ?8 AND "Day" = ?9 AND "Week" = ?10)";
    AddStatement("change an anniversary",
                 u"UPDATE Kinenbi SET Name=\"b\", Year=\"1998\", Month=\"10\", Day=\"3\", Week=\"0\" "
                 "WHERE Name=\"a\" AND Year=0 AND Month=10 AND Day=3 AND Week=0"_s,
                 update, u"'b' 1998 10 3 0 'a' 0 10 3 0"_s);
    AddStatement("change one to names of columns and negative numbers",
                 u"UPDATE Kinenbi SET Name=\"Name\", Year=\"-1\", Month=\"0\", Day=\"0\", Week=\"57\" "
                 "WHERE Name=\"Week\" AND Year=-1 AND Month=0 AND Day=0 AND Week=31"_s,
                 update, u"'Name' -1 0 0 57 'Week' -1 0 0 31"_s);
    const QByteArray erase = R"(DELETE FROM "Kinenbi" WHERE "Name" = ?1 COLLATE BINARY AND "Year" = ?2 AND )"
                             R"("Month" = ?3 AND "Day" = ?4 AND "Week" = ?5)";
    AddStatement("erase an anniversary",
                 u"DELETE * FROM Kinenbi  WHERE Name=\"Name\" AND Year=0 AND Month=10 AND Day=3 AND Week=0"_s,
                 erase, u"'Name' 0 10 3 0"_s);
    AddStatement(
        "erase another anniversary",
        u"DELETE * FROM Kinenbi  WHERE Name=\"母の日 #1/1/2000#\" AND Year=1998 AND Month=0 AND Day=0 AND Week=21"_s,
        erase, u"'母の日 #1/1/2000#' 1998 0 0 21"_s);
}

void AddSearchBases() {
    AddStatement("search: one-day rows", u"SELECT * FROM Kinenbi WHERE Year <> 0"_s,
                 SelectKinenbi(R"("Year" <> ?1)"), u"0"_s);
    AddStatement("search: one-day rows of a name", u"SELECT * FROM Kinenbi WHERE Year <> 0 AND Name=\"a\""_s,
                 SelectKinenbi(R"("Year" <> ?1 AND "Name" = ?2 COLLATE BINARY)"), u"0 'a'"_s);
    AddStatement("search: every-year rows", u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0"_s,
                 SelectKinenbi(R"("Year" = ?1 AND "Month" <> ?2)"), u"0 0"_s);
    AddStatement("search: every-year rows of a name",
                 u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0 AND Name=\"Year = 0\""_s,
                 SelectKinenbi(R"("Year" = ?1 AND "Month" <> ?2 AND "Name" = ?3 COLLATE BINARY)"),
                 u"0 0 'Year = 0'"_s);
    AddStatement("search: every-month rows", u"SELECT * FROM Kinenbi WHERE Month = 0"_s,
                 SelectKinenbi(R"("Month" = ?1)"), u"0"_s);
    AddStatement("search: every-month rows of a name",
                 u"SELECT * FROM Kinenbi WHERE Month = 0 AND Name=\"\""_s,
                 SelectKinenbi(R"("Month" = ?1 AND "Name" = ?2 COLLATE BINARY)"), u"0 ''"_s);
    AddStatement("search: nothing", u"SELECT * FROM Kinenbi WHERE Year = 5"_s,
                 SelectKinenbi(R"("Year" = ?1)"), u"5"_s);
    AddStatement("search: everything", u"SELECT * FROM Kinenbi WHERE Year <> 5"_s,
                 SelectKinenbi(R"("Year" <> ?1)"), u"5"_s);
}

void AddSearchRanges() {
    AddStatement(
        "search: one-day rows of a range",
        u"SELECT * FROM Kinenbi WHERE Year <> 0 AND ( ( Year=1998 AND Month=10 AND ( Day=0 OR Day >=3 ) AND "
        u"( Week=0 OR "
        "Week >= 17 ) ) OR ( Year=1998 AND Month > 10 ) ) AND ( ( Year=1999 AND Month < 2 ) OR ( Year=1999 "
        "AND Month=2 "
        "AND Day <=4 AND Week <= 15 ) )"_s,
        SelectKinenbi(
            R"("Year" <> ?1 AND (("Year" = ?2 AND "Month" = ?3 AND ("Day" = ?4 OR "Day" >= ?5) AND )"
            R"(("Week" = ?6 OR "Week" >= ?7)) OR ("Year" = ?8 AND "Month" > ?9)) AND )"
            R"((("Year" = ?10 AND "Month" < ?11) OR ("Year" = ?12 AND "Month" = ?13 AND "Day" <= ?14 AND )"
            R"("Week" <= ?15)))"),
        u"0 1998 10 0 3 0 17 1998 10 1999 2 1999 2 4 15"_s);
    AddStatement(
        "search: one-day rows of one year and of a name",
        u"SELECT * FROM Kinenbi WHERE Year <> 0 AND Name=\"a\" AND ( ( Year=1998 AND Month=1 AND ( Day=0 OR "
        u"Day >=1 ) "
        "AND ( Week=0 OR Week >= 15 ) ) OR ( Year=1998 AND Month > 1 ) ) AND ( ( Year=1998 AND Month < 12 ) "
        "OR ( "
        "Year=1998 AND Month=12 AND Day <=31 AND Week <= 55 ) ) AND Year BETWEEN 1999 AND 1997"_s,
        SelectKinenbi(
            R"("Year" <> ?1 AND "Name" = ?2 COLLATE BINARY AND (("Year" = ?3 AND "Month" = ?4 AND )"
            R"(("Day" = ?5 OR "Day" >= ?6) AND ("Week" = ?7 OR "Week" >= ?8)) OR ("Year" = ?9 AND )"
            R"("Month" > ?10)) AND (("Year" = ?11 AND "Month" < ?12) OR ("Year" = ?13 AND "Month" = ?14 AND )"
            R"("Day" <= ?15 AND "Week" <= ?16)) AND "Year" BETWEEN ?17 AND ?18)"),
        u"0 'a' 1998 1 0 1 0 15 1998 1 1998 12 1998 12 31 55 1999 1997"_s);
    const QByteArray everyYear = SelectKinenbi(
        R"("Year" = ?1 AND "Month" <> ?2 AND (("Month" > ?3 AND "Month" < ?4) OR ("Month" = ?5 AND )"
        R"(("Day" = ?6 OR "Day" >= ?7) AND ("Week" = ?8 OR "Week" >= ?9) AND ("Month" = ?10 AND "Day" <= ?11 AND )"
        R"("Week" <= ?12))))");
    const QString everyYearText =
        u"SELECT * FROM Kinenbi WHERE Year = 0 AND Month <> 0 AND ( ( Month > %1 AND Month < %2 ) OR ( ( "
        u"Month=%1 AND "
        "( Day=0 OR Day >= %3 )  AND ( Week=0 OR Week >= %4 ) AND ( Month=%2 AND Day <= %5 AND Week <= %6 ) ) ) )"_s;
    AddStatement("search: every-year rows of a range",
                 everyYearText.arg(3).arg(9).arg(5).arg(14).arg(20).arg(33), everyYear,
                 u"0 0 3 9 3 0 5 0 14 9 20 33"_s);
    AddStatement("search: every-year rows of a month",
                 everyYearText.arg(10).arg(10).arg(1).arg(15).arg(31).arg(57), everyYear,
                 u"0 0 10 10 10 0 1 0 15 10 31 57"_s);
    const QByteArray everyMonth = SelectKinenbi(
        R"("Month" = ?1 AND (("Day" = ?2 OR "Day" >= ?3) AND ("Week" = ?4 OR "Week" >= ?5)) AND )"
        R"(("Day" <= ?6 AND "Week" <= ?7))");
    const QString everyMonthText =
        u"SELECT * FROM Kinenbi WHERE Month = 0 AND ( ( Day=0 OR Day >= %1 ) AND ( Week=0 OR Week >= %2 ) ) "
        u"AND ( Day "
        "<= %3 AND Week <= %4 )"_s;
    AddStatement("search: every-month rows of a range", everyMonthText.arg(5).arg(14).arg(20).arg(33),
                 everyMonth, u"0 0 5 0 14 20 33"_s);
    AddStatement("search: every-month rows of another range", everyMonthText.arg(1).arg(11).arg(31).arg(57),
                 everyMonth, u"0 0 1 0 11 31 57"_s);
}

void AddFreedoms() {
    AddStatement("any case, any blanks", u"\tselect\r\n*  FROM  kinenbi\nwhere YEAR<>  -0"_s,
                 SelectKinenbi(R"("Year" <> ?1)"), u"0"_s);
    AddStatement(
        "no blanks where none are needed", u"SELECT*FROM Kinenbi WHERE(Year>=1)AND Name=\"a\"AND Day<2"_s,
        SelectKinenbi(R"("Year" >= ?1 AND "Name" = ?2 COLLATE BINARY AND "Day" < ?3)"), u"1 'a' 2"_s);
    AddStatement("AND before OR", u"SELECT * FROM Kinenbi WHERE Day=1 OR Day=2 AND Month=3 OR Day=4"_s,
                 SelectKinenbi(R"("Day" = ?1 OR ("Day" = ?2 AND "Month" = ?3) OR "Day" = ?4)"), u"1 2 3 4"_s);
    AddStatement("erase without naming columns", u"DELETE FROM Halfday WHERE Date = #1/2/2000#"_s,
                 R"(DELETE FROM "Halfday" WHERE "Date" = ?1)", u"'2000-01-02'"_s);
    AddStatement("insert by position", u"INSERT INTO Kinenbi VALUES (\"a\",\"1\",2,\"-3\",\"0004\")"_s,
                 R"x(INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES (?1,?2,?3,?4,?5))x",
                 u"'a' 1 2 -3 4"_s);
    AddStatement(
        "insert in another order", u"INSERT INTO Syukuzitu (Day , Name,Month) VALUES ( 3,\"文化の日\",11 )"_s,
        R"x(INSERT INTO "Syukuzitu"("Day","Name","Month") VALUES (?1,?2,?3))x", u"3 '文化の日' 11"_s);
    AddStatement("one column alone", u"SELECT Kinenbi.Week FROM Kinenbi WHERE Week BETWEEN 11 AND 57"_s,
                 R"(SELECT "Week" FROM "Kinenbi" WHERE "Week" BETWEEN ?1 AND ?2 ORDER BY "id")", u"11 57"_s);
    AddStatement("the widest numbers", u"SELECT * FROM Kinenbi WHERE Year=-2147483648 OR Year=2147483647"_s,
                 SelectKinenbi(R"("Year" = ?1 OR "Year" = ?2)"), u"-2147483648 2147483647"_s);
    AddStatement("a date with leading zeros", u"SELECT * FROM Holiday WHERE Date > #01/02/0100#"_s,
                 R"(SELECT "Date" FROM "Holiday" WHERE "Date" > ?1 ORDER BY "id")", u"'0100-01-02'"_s);
    AddStatement("thirty-two brackets", Brackets(32), SelectKinenbi(R"("Day" = ?1)"), u"1"_s);
    AddStatement("brackets side by side",
                 u"SELECT * FROM Kinenbi WHERE "_s + u"(Day=1) OR "_s.repeated(40) + u"Day=1",
                 SelectKinenbi([] {
                     QByteArrayList parts;
                     for (int i = 1; i <= 41; ++i) {
                         parts.append("\"Day\" = ?" + QByteArray::number(i));
                     }
                     return parts.join(" OR ");
                 }()),
                 u"1 "_s.repeated(41).trimmed());
}

}  // namespace

/// The compiler: from a text to a statement with bound values.
class TstSqlCompiler : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Compiles_data();
    void Compiles();
    void NamesTheColumnsOfAResult();
};

void TstSqlCompiler::Compiles_data() {
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("values");
    AddDayQueries();
    AddMarkStatements();
    AddBookStatements();
    AddSearchBases();
    AddSearchRanges();
    AddFreedoms();
}

void TstSqlCompiler::Compiles() {
    QFETCH(QString, sql);
    const CompiledSql compiled = CompileSql(sql);
    QTEST(compiled.text, "text");
    QTEST(Shown(compiled.values), "values");
    QCOMPARE(compiled.isQuery, compiled.text.startsWith("SELECT"));
}

void TstSqlCompiler::NamesTheColumnsOfAResult() {
    const CompiledSql compiled = CompileSql(u"SELECT Kinenbi.WEEK,kinenbi.Name FROM Kinenbi WHERE Day=1"_s);
    QCOMPARE(compiled.columns.size(), 2U);
    QCOMPARE(compiled.columns[0].name, u"Week");
    QVERIFY(compiled.columns[0].type == ColumnType::Integer);
    QCOMPARE(compiled.columns[1].name, u"Name");
    QVERIFY(compiled.columns[1].type == ColumnType::Text);
    const CompiledSql all = CompileSql(u"SELECT * FROM Usuallyday WHERE Date >= #1/1/2000#"_s);
    QCOMPARE(all.columns.size(), 1U);
    QVERIFY(all.columns[0].type == ColumnType::Date);
    QVERIFY(CompileSql(u"DELETE * FROM Kinenbi WHERE Day=1"_s).columns.empty());
}

QTEST_GUILESS_MAIN(TstSqlCompiler)
#include "tst_sql_compiler.moc"
