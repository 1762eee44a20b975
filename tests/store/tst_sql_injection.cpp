// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "days/anniversary_model.h"
#include "days/day_rule.h"
#include "store/day_database.h"
#include "store/day_store.h"
#include "store/day_transaction.h"
#include "store/sql_error.h"
#include "support/random_count.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

namespace {

constexpr quint32 kSeed = 0x7DA7;
constexpr int kUsualNames = 100'000;
constexpr int kMutationsPerName = 5;  // one mutated statement for every five names
constexpr std::size_t kMostRows = 12;
const QString kEverything = u"SELECT * FROM Kinenbi WHERE Year <> 5 OR Year = 5"_s;

/// The pieces of a hostile name.
const QStringList kPieces{u"\""_s,
                          u"\""_s,
                          u"\"\""_s,
                          u" OR "_s,
                          u" AND "_s,
                          u"Name="_s,
                          u"Name"_s,
                          u"Year"_s,
                          u"Week=\""_s,
                          u"=\""_s,
                          u"\" WHERE "_s,
                          u"\" OR Name=\""_s,
                          u"\" OR 1=1 OR Name=\""_s,
                          u"\" AND Year=0 OR Year=0 AND Name=\""_s,
                          u"\", Year=\""_s,
                          u"\" WHERE Year=0 OR Name=\""_s,
                          u"\",0,0,0,0)"_s,
                          u"\",0,1,2,0"_s,
                          u" BETWEEN 0 AND 9"_s,
                          u"Day=0"_s,
                          u" (Day=0)"_s,
                          u"("_s,
                          u")"_s,
                          u","_s,
                          u"="_s,
                          u"<>"_s,
                          u"*"_s,
                          u"."_s,
                          u"0"_s,
                          u"-1"_s,
                          u"99999999999"_s,
                          u"#1/1/2000#"_s,
                          u"#"_s,
                          u";"_s,
                          u"--"_s,
                          u"/*"_s,
                          u"*/"_s,
                          u"'"_s,
                          u"'' OR ''='"_s,
                          u"`"_s,
                          u"["_s,
                          u"?1"_s,
                          u":a"_s,
                          u"%"_s,
                          u"\\"_s,
                          u"\\\""_s,
                          u" "_s,
                          u"\t"_s,
                          u"\r\n"_s,
                          u"n1"_s,
                          u"n2"_s,
                          u"DROP TABLE Kinenbi"_s,
                          u"DELETE * FROM Kinenbi WHERE Year=0"_s,
                          u"記念日"_s,
                          u"＂"_s,
                          u"”"_s,
                          u"\U00020B9F"_s,
                          QString(QChar(0xD842)),
                          QString(QChar(0xDF9F)),
                          QString(QChar(0xFEFF)),
                          QString(QChar(0xFFFE)),
                          QString(QChar(u'\0'))};

class Dice {
public:
    explicit Dice(quint32 seed) : m_generator(seed) {}

    /// 0 to `end` - 1.
    int Below(qsizetype end) { return static_cast<int>(m_generator.bounded(static_cast<int>(end))); }

    QString Name() {
        QString name;
        for (int left = Below(6); left > 0; --left) {
            name += Below(4) == 0 ? QString(QChar(static_cast<char16_t>(Below(0x180))))
                                  : kPieces[Below(kPieces.size())];
        }
        return name;
    }

    days::Anniversary Row() {
        return {Below(2) == 0 ? u"n%1"_s.arg(Below(4)) : Name(), Below(3) - 1, Below(2), Below(3),
                Below(2) * 22};
    }

    /// `text` with a few characters removed, doubled, swapped or replaced by pieces; sometimes it keeps its
    /// words, and only numbers and spaces change.
    QString Mutated(QString text) {
        if (Below(5) == 0) {
            return text.replace(u' ', u"\r\n "_s)
                .replace(QString::number(Below(4)), QString::number(Below(4)));
        }
        for (int left = 1 + Below(3); left > 0 && !text.isEmpty(); --left) {
            const int at = Below(text.size());
            const int length = 1 + Below(std::min<qsizetype>(6, text.size() - at));
            const QString cut = text.mid(at, length);
            switch (Below(4)) {
                case 0:
                    text.remove(at, length);
                    break;
                case 1:
                    text.insert(at, cut);
                    break;
                case 2:
                    text.remove(at, length).insert(Below(text.size() + 1), cut);
                    break;
                default:
                    text.insert(at, kPieces[Below(kPieces.size())]);
            }
        }
        return text;
    }

private:
    QRandomGenerator m_generator;
};

bool IsHostile(const QString& name) {
    return name.contains(u'"') || name.contains(QChar(u'\0'));
}

/// The number of rows that `Execute` changed, or nullopt if it refused the statement.
std::optional<int> Executed(DayDatabase& database, const QString& sql) {
    try {
        return database.Execute(sql);
    } catch (const SqlError&) {
        return std::nullopt;
    }
}

/// Whether the database accepts `sql` as a query.
bool IsAnswered(DayDatabase& database, const QString& sql) {
    try {
        database.RunQuery(sql);
        return true;
    } catch (const SqlError&) {
        return false;
    }
}

/// All rows of the database, table by table.
struct Contents {
    days::Anniversaries kinenbi;
    QStringList others[4];

    bool operator==(const Contents&) const = default;
};

Contents ContentsOf(DayDatabase& database) {
    Contents contents{days::AnniversariesIn(database.RunQuery(kEverything)), {}};
    int table = 0;
    for (const QString& name : {u"Holiday"_s, u"Halfday"_s, u"Usuallyday"_s}) {
        for (const ResultRow& row :
             database.RunQuery(u"SELECT * FROM "_s + name + u" WHERE Date <= #12/31/9999#")) {
            contents.others[table].append(days::DateLiteral(row.Date(u"Date")));
        }
        ++table;
    }
    for (const ResultRow& row :
         database.RunQuery(u"SELECT * FROM Syukuzitu WHERE Month > -1 OR Month <= -1"_s)) {
        contents.others[table].append(row.Text(u"Name") +
                                      QString::number(row.Integer(u"Month") * 100 + row.Integer(u"Day")));
    }
    return contents;
}

/// The number of tables whose rows differ.
int Differences(const Contents& a, const Contents& b) {
    int differences = a.kinenbi == b.kinenbi ? 0 : 1;
    for (int i = 0; i < 4; ++i) {
        differences += a.others[i] == b.others[i] ? 0 : 1;
    }
    return differences;
}

qsizetype RowsOf(const Contents& contents) {
    qsizetype rows = static_cast<qsizetype>(contents.kinenbi.size());
    for (const QStringList& other : contents.others) {
        rows += other.size();
    }
    return rows;
}

/// A valid statement, to be mutated.
QString Valid(Dice& dice) {
    const days::Anniversary row{u"n%1"_s.arg(dice.Below(4)), 0, dice.Below(2), 2, 0};
    switch (dice.Below(8)) {
        case 0:
            return days::InsertText(row);
        case 1:
            return days::UpdateText(row, {u"n5"_s, 1998, 1, 1, 0});
        case 2:
            return days::DeleteText(row);
        case 3:
            return u"DELETE Holiday.Date FROM Holiday WHERE Date BETWEEN #10/1/1998# AND #10/31/1998#"_s;
        case 4:
            return u"INSERT INTO Halfday  VALUES (#10/3/1998#)"_s;
        case 5:
            return u"DELETE Usuallyday.Date FROM Usuallyday WHERE Date <= #10/31/1998#"_s;
        case 6:
            return days::AnniversaryQuery(1998, 10, 3, 17);
        default:
            return u"SELECT * FROM Kinenbi WHERE Year <> 0 AND Name=\"n1\""_s;
    }
}

}  // namespace

/// Names and statements that try to inject SQL. Everything runs in one transaction that is never committed,
/// because the test is about the changed rows and not about the disk.
class TstSqlInjection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NamesAreNeverSql();
    void MutatedStatementsAreRefusedOrAreOneStatement();

private:
    void TryName(DayDatabase& database, Dice& dice);
    void TryMutation(DayDatabase& database, Dice& dice);

    days::Anniversaries m_rows;  // the expected rows of the table
    int m_refused = 0;
};

/// Inserts, updates, searches and deletes rows with random names, and does the same to a list.
void TstSqlInjection::TryName(DayDatabase& database, Dice& dice) {
    const days::Anniversary added = dice.Row();
    const bool isRefused = IsHostile(added.name);
    m_refused += isRefused ? 1 : 0;
    QCOMPARE(Executed(database, days::InsertText(added)), isRefused ? std::nullopt : std::optional(1));
    if (!isRefused) {
        m_rows.push_back(added);
    }
    const days::Anniversary from = dice.Below(2) == 0 && !m_rows.empty()
                                       ? m_rows[std::size_t(dice.Below(qsizetype(m_rows.size())))]
                                       : dice.Row();
    const days::Anniversary to = dice.Row();
    const auto equals = [&from](const days::Anniversary& row) { return row == from; };
    const int count = static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(), equals));
    const auto expected = IsHostile(from.name) ? std::nullopt : std::optional(count);
    QCOMPARE(Executed(database, days::UpdateText(from, to)), IsHostile(to.name) ? std::nullopt : expected);
    if (expected && !IsHostile(to.name)) {
        std::replace_if(m_rows.begin(), m_rows.end(), equals, to);
    }
    const days::Anniversary sought = dice.Row();
    const QString search = u"SELECT * FROM Kinenbi WHERE Month = 0 AND Name=\""_s + sought.name + u'"';
    if (IsHostile(sought.name)) {
        QVERIFY_THROWS_EXCEPTION(SqlError, database.RunQuery(search));
    } else {
        QCOMPARE(days::AnniversariesIn(database.RunQuery(search)),
                 days::Those(m_rows, [&sought](const days::Anniversary& row) {
                     return row.month == 0 && row.name == sought.name;
                 }));
    }
    if (IsHostile(sought.name) || m_rows.size() > kMostRows) {
        const days::Anniversary gone = m_rows.size() > kMostRows ? m_rows.front() : sought;
        const auto erased = Executed(database, days::DeleteText(gone));
        QCOMPARE(erased.has_value(), !IsHostile(gone.name));
        m_rows = erased
                     ? days::Those(m_rows, [&gone](const days::Anniversary& row) { return !(row == gone); })
                     : m_rows;
    }
    QCOMPARE(days::AnniversariesIn(database.RunQuery(kEverything)), m_rows);
}

void TstSqlInjection::NamesAreNeverSql() {
    const int names = RandomCount(kUsualNames);
    qInfo("seed %u, %d names", kSeed, names);
    const DayStore store;
    DayDatabase database(store.Path());
    const DayTransaction transaction(database);
    Dice dice(kSeed);
    m_rows.clear();
    for (int i = 0; i < names; ++i) {
        TryName(database, dice);
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"at name %1"_s.arg(i)));
        }
    }
    QVERIFY(m_refused > names / 10);
    QVERIFY(m_refused < names - names / 10);
}

void TstSqlInjection::TryMutation(DayDatabase& database, Dice& dice) {
    const QString sql = dice.Mutated(Valid(dice));
    const Contents before = ContentsOf(database);
    const DayTransaction transaction(database);
    const bool isAnswered = IsAnswered(database, sql);
    QVERIFY2(Differences(before, ContentsOf(database)) == 0, qPrintable(sql));
    std::optional<int> changed = Executed(database, sql);
    const Contents after = ContentsOf(database);
    QVERIFY2(!(isAnswered && changed), qPrintable(sql));
    m_refused += isAnswered || changed ? 0 : 1;
    // The statement concerned one table only: rows were added, deleted or changed, exactly as many as
    // reported.
    const int differences = Differences(before, after);
    const qsizetype grown = RowsOf(after) - RowsOf(before);
    const QString word = sql.simplified().left(6).toUpper();
    QVERIFY2(differences <= (changed.value_or(0) > 0 ? 1 : 0), qPrintable(sql));
    if (!changed) {
        return;
    }
    if (word == u"INSERT") {
        QVERIFY2(*changed == 1 && grown == 1, qPrintable(sql));
    } else if (word == u"DELETE") {
        QVERIFY2(grown == -*changed, qPrintable(sql));
    } else {
        QVERIFY2(word == u"UPDATE" && grown == 0, qPrintable(sql));
    }
}

void TstSqlInjection::MutatedStatementsAreRefusedOrAreOneStatement() {
    const int count = RandomCount(kUsualNames) / kMutationsPerName;
    qInfo("seed %u, %d statements", kSeed, count);
    const DayStore store;
    store.Raw(
        "INSERT INTO Kinenbi(\"Name\",\"Year\",\"Month\",\"Day\",\"Week\") VALUES "
        "('n0',0,0,2,0),('n1',0,1,2,0),"
        "('n1',0,1,2,0),('n2',1998,10,3,0),('n3',0,0,0,22);"
        "INSERT INTO Holiday(\"Date\") VALUES ('1998-10-03'),('1998-11-03');"
        "INSERT INTO Halfday(\"Date\") VALUES ('1998-10-04');"
        "INSERT INTO Usuallyday(\"Date\") VALUES ('1998-10-31'),('1999-01-01')");
    DayDatabase database(store.Path());
    Dice dice(kSeed + 1);
    m_refused = 0;
    for (int i = 0; i < count; ++i) {
        TryMutation(database, dice);
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"at statement %1"_s.arg(i)));
        }
    }
    qInfo("%d refused", m_refused);
    QVERIFY(m_refused > count / 2);
    QVERIFY(m_refused < count - count / 20);
}

QTEST_GUILESS_MAIN(TstSqlInjection)
#include "tst_sql_injection.moc"
