// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <functional>

#include "core/errors.h"
#include "days/day_rule.h"
#include "store/day_database.h"
#include "store/shared_file_lock.h"
#include "store/store_faults.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

using Spoil = std::function<void(const DayStore&)>;

namespace {

constexpr quint32 kSeed = 0xFA17;
constexpr int kPage = 4096;
constexpr int kSpoiltFiles = 400;

Spoil Bytes(const QByteArray& bytes) {
    return [bytes](const DayStore& store) { SetBytes(store.Path(), bytes); };
}

Spoil Sql(const QByteArray& sql) {
    return [sql](const DayStore& store) { store.Raw(sql); };
}

/// The same tables and rows in another encoding.
Spoil InEncoding(const QByteArray& encoding) {
    return [encoding](const DayStore& store) {
        const QString other = store.Path() + u".other";
        SetBytes(other, QByteArray());
        const QByteArray schema =
            store.Raw("SELECT sql || ';' FROM sqlite_schema WHERE sql IS NOT NULL").join(QString()).toUtf8();
        RawConnection(other).Run("PRAGMA encoding = '" + encoding + "'; PRAGMA application_id = 1414223666;" +
                                 schema + "INSERT INTO Holiday(\"Date\") VALUES ('1998-10-03')");
        SetBytes(store.Path(), BytesOf(other));
        QFile::remove(other);
    };
}

void AddRow(const char* name, const Spoil& spoil, const QString& reason) {
    QTest::newRow(name) << spoil << reason;
}

/// Files that are no SQLite database at all.
void AddOtherFiles() {
    const QString otherForm = u"データベースの形式が違います。"_s;
    AddRow("empty", Bytes(QByteArray()), otherForm);
    AddRow("one byte", Bytes("S"), otherForm);
    AddRow("first bytes alone", Bytes(QByteArray("SQLite format 3\0", 16)), otherForm);
    AddRow("a text", Bytes(QByteArray("This is a text. ").repeated(1000)), otherForm);
    AddRow("another kind of database",
           Bytes(QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(20'000, '\0')), otherForm);
    AddRow("zeros", Bytes(QByteArray(40'000, '\0')), otherForm);
}

QString MissingTable(const char* table) {
    return u"データベースに表 %1 がありません。"_s.arg(QLatin1StringView(table));
}

QString OtherTableForm(const char* table) {
    return u"データベースの表 %1 の形が違います。"_s.arg(QLatin1StringView(table));
}

/// Databases with other tables or columns.
void AddOtherTables() {
    AddRow("without a table", Sql("DROP TABLE Kinenbi"), MissingTable("Kinenbi"));
    AddRow("without the last table", Sql("DROP TABLE Usuallyday"), MissingTable("Usuallyday"));
    AddRow("table of another name", Sql("ALTER TABLE Halfday RENAME TO Half"), MissingTable("Halfday"));
    AddRow("without a column", Sql("ALTER TABLE Syukuzitu DROP COLUMN \"Day\""), OtherTableForm("Syukuzitu"));
    AddRow("one column too many", Sql("ALTER TABLE Holiday ADD COLUMN \"Note\" TEXT"),
           OtherTableForm("Holiday"));
    AddRow("column of another name", Sql("ALTER TABLE Kinenbi RENAME COLUMN \"Week\" TO \"Wk\""),
           OtherTableForm("Kinenbi"));
    AddRow(
        "columns in another order",
        Sql("DROP TABLE Syukuzitu; CREATE TABLE Syukuzitu(\"id\" INTEGER PRIMARY KEY, \"Month\" INTEGER NOT "
            "NULL, "
            "\"Name\" TEXT NOT NULL, \"Day\" INTEGER NOT NULL) STRICT"),
        OtherTableForm("Syukuzitu"));
    AddRow(
        "column of another type",
        Sql("DROP TABLE Holiday; CREATE TABLE Holiday(\"id\" INTEGER PRIMARY KEY, \"Date\" INTEGER NOT NULL) "
            "STRICT"),
        OtherTableForm("Holiday"));
    AddRow("column that may be NULL",
           Sql("DROP TABLE Holiday; CREATE TABLE Holiday(\"id\" INTEGER PRIMARY KEY, \"Date\" TEXT) STRICT"),
           OtherTableForm("Holiday"));
    AddRow("without an id", Sql("DROP TABLE Holiday; CREATE TABLE Holiday(\"Date\" TEXT NOT NULL) STRICT"),
           OtherTableForm("Holiday"));
    AddRow("id that is no key",
           Sql("DROP TABLE Holiday; CREATE TABLE Holiday(\"id\" INTEGER, \"Date\" TEXT NOT NULL) STRICT"),
           OtherTableForm("Holiday"));
    AddRow(
        "not strict",
        Sql("DROP TABLE Holiday; CREATE TABLE Holiday(\"id\" INTEGER PRIMARY KEY, \"Date\" TEXT NOT NULL)"),
        OtherTableForm("Holiday"));
    AddRow("view in place of a table",
           Sql("DROP TABLE Holiday; CREATE VIEW Holiday AS SELECT id, \"Date\" FROM Halfday"),
           OtherTableForm("Holiday"));
}

}  // namespace

/// Any problem of the file is reported when it is opened, and the file is unchanged.
class TstStoreOpening : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RefusesAtOpening_data();
    void RefusesAtOpening();
    void RefusesAMissingFile();
    void RefusesAFolder();
    void WaitsForAnotherProgramThatEndsSoon();
    void AcceptsACopyWithoutItsMark();
    void LogsAMarkThatIsNoDate_data();
    void LogsAMarkThatIsNoDate();
    void LogsNothingOfDates();
    void RefusesEveryTruncation();
    void RefusesEveryZeroedPage();
    void NeverCrashesOnDamage();
};

void TstStoreOpening::RefusesAtOpening_data() {
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<QString>("reason");
    AddOtherFiles();
    AddOtherTables();
    AddRow("newer", Sql("PRAGMA user_version = 2"), u"新しい版のプログラムで作られたデータベースです。"_s);
    AddRow("of another program", Sql("PRAGMA application_id = 1"), u"ほかのプログラムのデータベースです。"_s);
    for (const char* encoding : {"UTF-16le", "UTF-16be"}) {
        AddRow(encoding, InEncoding(encoding), u"データベースの文字コードが違います。"_s);
    }
    AddRow("wrong type of value",
           Sql("PRAGMA writable_schema = 1;"
               "UPDATE sqlite_schema SET sql = replace(sql, ' STRICT', '') WHERE name = 'Holiday';"
               "PRAGMA writable_schema = RESET; INSERT INTO Holiday(\"Date\") VALUES (x'00');"
               "PRAGMA writable_schema = 1;"
               "UPDATE sqlite_schema SET sql = sql || ' STRICT' WHERE name = 'Holiday'"),
           u"データベースが壊れています。"_s);
}

void TstStoreOpening::RefusesAtOpening() {
    QFETCH(Spoil, spoil);
    QFETCH(QString, reason);
    const DayStore store;
    spoil(store);
    const QByteArray before = BytesOf(store.Path());
    const QString fault = OpeningFault(store.Path());
    QVERIFY2(fault.startsWith(Told(store.Path(), reason.chopped(1))), qPrintable(fault));
    QCOMPARE(BytesOf(store.Path()), before);
    QCOMPARE(QDir(store.Folder()).entryList(QDir::Files), QStringList({u"DayDate.lock"_s, u"DayDate.mdb"_s}));
}

void TstStoreOpening::RefusesAMissingFile() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"DayDate.mdb"_s);
    QCOMPARE(OpeningFault(path), Told(path, u"データベースのファイルがありません。"_s));
    QVERIFY(QFile::link(folder.filePath(u"nowhere"_s), path));
    QCOMPARE(OpeningFault(path), Told(path, u"データベースのファイルがありません。"_s));
    QVERIFY(!QFile::exists(folder.filePath(u"nowhere"_s)));
    for (const QString& name : {u":memory:"_s, u"file:DayDate.mdb?mode=memory"_s, QString()}) {
        QVERIFY(!OpeningFault(name).isEmpty());
    }
}

void TstStoreOpening::RefusesAFolder() {
    const QTemporaryDir folder;
    QVERIFY(!OpeningFault(folder.path()).isEmpty());
    const QString queue = folder.filePath(u"DayDate.mdb"_s);
    QCOMPARE(mkfifo(qPrintable(queue), 0600), 0);
    QVERIFY(!OpeningFault(queue).isEmpty());
}

void TstStoreOpening::WaitsForAnotherProgramThatEndsSoon() {
    const DayStore store;
    auto exclusive = std::make_unique<SharedFileLock>(store.Path());
    exclusive->TakeExclusive();
    int tries = 0;
    const SharedFileLock shared(store.Path(), [&] {
        if (++tries == 3) {
            exclusive.reset();
        }
        return true;
    });
    QCOMPARE(tries, 3);
    const SharedFileLock::Wait patiently = SharedFileLock::Patiently();
    QVERIFY(patiently() && patiently());
}

void TstStoreOpening::AcceptsACopyWithoutItsMark() {
    const DayStore store;
    store.Raw("PRAGMA application_id = 0; PRAGMA user_version = 0");
    QCOMPARE(OpeningFault(store.Path()), QString());
}

void TstStoreOpening::LogsAMarkThatIsNoDate_data() {
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("a day that February does not have") << "Holiday"_ba
                                                       << "1998-02-30"_ba;
    QTest::newRow("a letter") << "Halfday"_ba
                              << "x"_ba;
    QTest::newRow("without zeros") << "Usuallyday"_ba
                                   << "1998-2-1"_ba;
    QTest::newRow("with a time") << "Holiday"_ba
                                 << "1998-02-01 00:00"_ba;
    QTest::newRow("nothing") << "Halfday"_ba
                             << ""_ba;
}

void TstStoreOpening::LogsAMarkThatIsNoDate() {
    QFETCH(QByteArray, table);
    QFETCH(QByteArray, value);
    const DayStore store;
    store.Raw("INSERT INTO " + table + "(id,Date) VALUES (7,'1998-02-28'), (8,'" + value + "')");
    const QByteArray told = "Day database: row 8 of table " + table + " holds no date and falls on no day.";
    QTest::ignoreMessage(QtWarningMsg, told.constData());
    const DayDatabase opened(store.Path());
}

void TstStoreOpening::LogsNothingOfDates() {
    const DayStore store;
    store.Raw("INSERT INTO Holiday(Date) VALUES ('1926-01-01'), ('2000-02-29'), ('2100-12-31')");
    QTest::failOnWarning(QRegularExpression(u"Day database"_s));
    const DayDatabase opened(store.Path());
}

void TstStoreOpening::RefusesEveryTruncation() {
    const DayStore store;
    Fill(store, 500);
    const QByteArray whole = BytesOf(store.Path());
    for (qsizetype size = 0; size < whole.size(); size += kPage / 4) {
        SetBytes(store.Path(), whole.first(size));
        QVERIFY2(!OpeningFault(store.Path()).isEmpty(), qPrintable(QString::number(size)));
    }
    SetBytes(store.Path(), whole);
    QCOMPARE(OpeningFault(store.Path()), QString());
}

void TstStoreOpening::RefusesEveryZeroedPage() {
    const DayStore store;
    Fill(store, 500);
    const QByteArray whole = BytesOf(store.Path());
    for (qsizetype at = 0; at < whole.size(); at += kPage) {
        QByteArray spoilt = whole;
        SetBytes(store.Path(), spoilt.replace(at, kPage, QByteArray(kPage, '\0')));
        QVERIFY2(!OpeningFault(store.Path()).isEmpty(), qPrintable(QString::number(at / kPage + 1)));
    }
}

void TstStoreOpening::NeverCrashesOnDamage() {
    qInfo("seed %u", kSeed);
    const DayStore store;
    Fill(store, 500);
    const QByteArray whole = BytesOf(store.Path());
    QRandomGenerator random(kSeed);
    int opened = 0;
    for (int i = 0; i < kSpoiltFiles; ++i) {
        QByteArray spoilt = whole;
        for (int left = random.bounded(1, 20); left > 0; --left) {
            spoilt[random.bounded(static_cast<int>(whole.size()))] = static_cast<char>(random.bounded(256));
        }
        SetBytes(store.Path(), spoilt);
        QFile::remove(store.Path() + u"-journal");
        try {
            DayDatabase database(store.Path());
            ++opened;
            database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s);
            database.RunQuery(days::AnniversaryQuery(1998, 10, 3, 17));
            database.Execute(u"INSERT INTO Kinenbi VALUES (\"a\",0,10,3,0)"_s);
        } catch (const RunTimeError& error) {
            QVERIFY(!error.Reason().isEmpty());
        }
    }
    QVERIFY(opened < kSpoiltFiles);
}

QTEST_GUILESS_MAIN(TstStoreOpening)
#include "tst_store_opening.moc"
