// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "store/day_database.h"
#include "store/day_store.h"
#include "store/jet_folder.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::store;
using namespace Qt::StringLiterals;

/// The import of a Jet file into the program's folder.
class TstJetImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AJetFileBecomesADayDatabase_data();
    void AJetFileBecomesADayDatabase();
    void TheNewFileIsLikeADeliveredOne();
    void AnyOtherFileIsLeftAlone_data();
    void AnyOtherFileIsLeftAlone();
    void ARefusedFileIsLeftAlone_data();
    void ARefusedFileIsLeftAlone();
    void AnEarlierOriginalIsNotOverwritten();
    void TheBoxSaysWhatWasImported_data();
    void TheBoxSaysWhatWasImported();
};

void TstJetImport::AJetFileBecomesADayDatabase_data() {
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Jet 4") << u"jet4_full.mdb"_s << u"expected.tsv"_s;
    QTest::newRow("Jet 3") << u"jet3_full.mdb"_s << u"expected_jet3.tsv"_s;
}

void TstJetImport::AJetFileBecomesADayDatabase() {
    QFETCH(QString, sample);
    QFETCH(QString, expected);
    const QByteArray original = JetSample(sample);
    const JetFolder folder(original);
    QVERIFY(QFile::setPermissions(folder.DayDate(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    const auto permissions = QFile::permissions(folder.DayDate());

    const auto summary = ImportJetFile(folder.DayDate());
    QVERIFY(summary.has_value());
    QCOMPARE(summary->rows, QList<qsizetype>({sample.startsWith(u"jet3") ? 39 : 42, 16, 10, 3, 3}));
    QCOMPARE(summary->withoutDate, 0);
    QCOMPARE(summary->unreadableNames, 0);
    QCOMPARE(summary->keptAs, u"DayDate.jet.mdb"_s);

    QCOMPARE(folder.All().keys(), QStringList({u"DayDate.jet.mdb"_s, u"DayDate.mdb"_s}));
    QCOMPARE(ReadAll(folder.Path(summary->keptAs)), original);
    QCOMPARE(QFile::permissions(folder.DayDate()), permissions);
    QVERIFY(DayDatabase(folder.DayDate()).IsOpen());
    QCOMPARE(StoredTsv(folder.DayDate()), JetSample(expected));
    QVERIFY(!ImportJetFile(folder.DayDate()).has_value());
}

void TstJetImport::TheNewFileIsLikeADeliveredOne() {
    const JetFolder folder(FullJet4());
    QVERIFY(ImportJetFile(folder.DayDate()).has_value());
    RawConnection imported(folder.DayDate());
    const DayStore delivered;
    for (const QByteArray& sql :
         {"SELECT type, name, sql FROM sqlite_schema ORDER BY rowid"_ba, "PRAGMA application_id"_ba,
          "PRAGMA user_version"_ba, "PRAGMA page_size"_ba, "PRAGMA encoding"_ba, "PRAGMA journal_mode"_ba}) {
        QVERIFY(!imported.Run(sql).isEmpty());
        QCOMPARE(imported.Run(sql), delivered.Raw(sql));
    }
    QCOMPARE(imported.Run("PRAGMA integrity_check"), QStringList(u"ok"_s));
}

void TstJetImport::AnyOtherFileIsLeftAlone_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("our own format") << ReadAll(DayStore().Path());
    QTest::newRow("a text") << JetSample(u"not_a_database.mdb"_s);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("half a name") << FullJet4().first(12);
}

void TstJetImport::AnyOtherFileIsLeftAlone() {
    QFETCH(QByteArray, file);
    const JetFolder folder(file);
    const Contents before = folder.All();
    QVERIFY(!ImportJetFile(folder.DayDate()).has_value());
    QCOMPARE(folder.All(), before);
    QVERIFY(!ImportJetFile(folder.Path(u"absent.mdb"_s)).has_value());
    QCOMPARE(folder.All(), before);
}

void TstJetImport::ARefusedFileIsLeftAlone_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    QByteArray ace = FullJet4();
    QTest::newRow("a file of the format after Jet")
        << ace.replace("Standard Jet DB", "Standard ACE DB")
        << u"Access 2007以降の形式（ACE）のデータベースは読み込めません。"_s;
    for (const auto& name : {u"jet3_damaged_a"_s, u"jet3_notable"_s, u"jet3_truncated"_s,
                             u"jet3_wrong_count"_s, u"jet4_damaged_a"_s, u"jet4_missingcol"_s,
                             u"jet4_notable"_s, u"jet4_truncated"_s, u"jet4_zeropage2"_s}) {
        const QByteArray file = JetSample(name + u".mdb");
        QTest::newRow(qPrintable(name)) << file << Refusal(file);
    }
}

void TstJetImport::ARefusedFileIsLeftAlone() {
    QFETCH(QByteArray, file);
    QFETCH(QString, reason);
    const JetFolder folder(file);
    const Contents before = folder.All();
    QVERIFY(!reason.isEmpty());
    QCOMPARE(ImportError(folder.DayDate()), QString(folder.DayDate() + u"\r\n" + reason));
    QCOMPARE(folder.All(), before);
}

void TstJetImport::AnEarlierOriginalIsNotOverwritten() {
    const JetFolder folder(FullJet4());
    const Contents others{{u"DayDate.jet.mdb"_s, "another one"}, {u"DayDate.jet.2.mdb"_s, "and another"}};
    for (const QString& name : others.keys()) {
        folder.Put(name, others.value(name));
    }
    QCOMPARE(ImportJetFile(folder.DayDate())->keptAs, u"DayDate.jet.3.mdb"_s);
    QCOMPARE(ReadAll(folder.Path(u"DayDate.jet.3.mdb"_s)), FullJet4());

    folder.Put(u"DayDate.mdb"_s, FullJet4());  // the same file again
    QCOMPARE(ImportJetFile(folder.DayDate())->keptAs, u"DayDate.jet.3.mdb"_s);
    for (const QString& name : others.keys()) {
        QCOMPARE(ReadAll(folder.Path(name)), others.value(name));
    }
    QCOMPARE(folder.All().size(), 4);
    QVERIFY(IsWholeDatabase(folder.DayDate()));
}

void TstJetImport::TheBoxSaysWhatWasImported_data() {
    QTest::addColumn<JetImportSummary>("summary");
    QTest::addColumn<QString>("text");
    const QString start = u"以前の形式（Jet）のデータベースを読み込みました。\r\n"_s;
    const QString end = u"元のファイルは DayDate.jet.mdb として残してあります。"_s;
    JetImportSummary summary{{42, 16, 10, 3, 2}, 0, 0, u"DayDate.jet.mdb"_s};
    const QString counts = u"記念日 42件、祝日 16件、休日 10件、半日 3件、平日 2件\r\n"_s;
    QTest::newRow("all of it") << summary << QString(start + counts + end);
    summary.withoutDate = 4;
    const QString withoutDate = u"日付のない行 4件は読み込みませんでした。\r\n"_s;
    QTest::newRow("rows left out") << summary << QString(start + counts + withoutDate + end);
    summary.unreadableNames = 5;
    QTest::newRow("characters replaced as well")
        << summary
        << QString(start + counts + withoutDate +
                   u"読めない文字のある名前 5件では、その文字を「\uFFFD」に置き換えました。\r\n" + end);
}

void TstJetImport::TheBoxSaysWhatWasImported() {
    QFETCH(JetImportSummary, summary);
    QFETCH(QString, text);
    QCOMPARE(JetImportText(summary), text);
}

QTEST_GUILESS_MAIN(TstJetImport)
#include "tst_jet_import.moc"
