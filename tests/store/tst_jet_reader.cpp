// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <numeric>

#include "store/jet/jet_error.h"
#include "store/jet/jet_file.h"
#include "store/jet/jet_text.h"
#include "store/jet_samples.h"

using namespace tickwell;
using namespace tickwell::store;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kPage3 = 2048;
constexpr qsizetype kPage4 = 4096;

QByteArrayList Lines(const QByteArray& tsv) {
    QByteArrayList lines = tsv.split('\n');
    lines.removeLast();  // the empty one after the last line end
    return lines;
}

QByteArray Joined(const QByteArrayList& lines) {
    return lines.join('\n') + '\n';
}

/// `tsv` with more lines inserted after the last one of `table`.
QByteArray WithRows(const QByteArray& tsv, const QByteArray& table, const QByteArrayList& more) {
    QByteArrayList lines = Lines(tsv);
    const QByteArray start = table + '\t';
    qsizetype at = lines.size();
    while (at > 0 && !lines.at(at - 1).startsWith(start)) {
        --at;
    }
    for (const QByteArray& line : more) {
        lines.insert(at++, start + line);
    }
    return Joined(lines);
}

/// The result of many(count) in make_jet3.py.
QByteArray ManyAnniversaries(int count) {
    QByteArray tsv;
    for (int i = 0; i < count; ++i) {
        const bool byWeek = i % 7 == 0;
        const int year = i % 3 == 0 ? 1900 + i % 200 : 0;
        const int month = i % 5 == 0 && i % 3 != 0 ? 0 : 1 + i % 12;
        tsv += u"Kinenbi\t記念日その%1\t%2\t%3\t%4\t%5\n"_s.arg(i)
                   .arg(year)
                   .arg(month)
                   .arg(byWeek ? 0 : 1 + i % 28)
                   .arg(byWeek ? (1 + i % 5) * 10 + 1 + i / 5 % 7 : 0)
                   .toUtf8();
    }
    return tsv;
}

/// `tsv` after changes: of every three anniversaries the first is deleted, and the second gets a name that no
/// longer fits in its place.
QByteArray AfterDeletions(const QByteArray& tsv) {
    QByteArrayList lines;
    int index = 0;
    for (const QByteArray& line : Lines(tsv)) {
        if (!line.startsWith("Kinenbi\t")) {
            lines.append(line);
        } else if (index++ % 3 != 0) {
            QByteArrayList fields = line.split('\t');
            if (index % 3 == 2) {
                fields[1] = (u"更新された長い名前その%1"_s.arg(index - 1) + QString(60, u'＿')).toUtf8();
            }
            lines.append(fields.join('\t'));
        }
    }
    return Joined(lines);
}

/// A second implementation of RC4, to verify that of the reader.
QByteArray Rc4(const QByteArray& key, QByteArray data) {
    QList<int> state(256);
    std::iota(state.begin(), state.end(), 0);
    for (int i = 0, j = 0; i < 256; ++i) {
        j = (j + state.at(i) + static_cast<quint8>(key.at(i % key.size()))) % 256;
        state.swapItemsAt(i, j);
    }
    int i = 0;
    int j = 0;
    for (char& byte : data) {
        i = (i + 1) % 256;
        j = (j + state.at(i)) % 256;
        state.swapItemsAt(i, j);
        byte = static_cast<char>(byte ^ state.at((state.at(i) + state.at(j)) % 256));
    }
    return data;
}

/// `file` with encrypted pages. The header is stored XORed with a fixed mask, and its key field is zero in an
/// unencrypted file, so XORing the stored bytes with `key` sets the field.
QByteArray Encrypted(QByteArray file, quint32 key, qsizetype pageSize) {
    const auto littleEndian = [](quint32 value) {
        const quint32 swapped = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&swapped), sizeof(swapped));
    };
    for (qsizetype i = 0; i < 4; ++i) {
        file[0x3E + i] = static_cast<char>(file.at(0x3E + i) ^ littleEndian(key).at(i));
    }
    for (qsizetype page = 1; page < file.size() / pageSize; ++page) {
        const QByteArray pageKey = littleEndian(key ^ static_cast<quint32>(page));
        file.replace(page * pageSize, pageSize, Rc4(pageKey, file.mid(page * pageSize, pageSize)));
    }
    return file;
}

QByteArray Patched(QByteArray file, qsizetype at, char byte) {
    file[at] = byte;
    return file;
}

/// The offset, in an unencrypted file, of a number in the catalogue: the value of `column` in the row of
/// `table`.
qsizetype PlaceInCatalogue(const QByteArray& file, QStringView table, QStringView column) {
    const JetPages pages(file);
    const JetTable catalogue(pages, 2);
    const JetText text(pages);
    qsizetype place = -1;
    catalogue.ForEachRow([&](const JetRow& row) {
        const auto name = row.Field(*catalogue.Find(u"Name"));
        const auto field = row.Field(*catalogue.Find(column));
        if (name && field && text.Decode(*name) == table) {
            place = field->Bytes().data() - pages.Page(1).Bytes().data() + pages.Layout().pageSize;
        }
    });
    return place;
}

/// The offsets of the pages with rows of the table whose definition begins on page `table`.
QList<qsizetype> DataPages(const QByteArray& file, qsizetype pageSize, quint32 table) {
    QList<qsizetype> places;
    for (qsizetype at = pageSize; at < file.size(); at += pageSize) {
        if (file.at(at) == 1 && qFromLittleEndian<quint32>(file.constData() + at + 4) == table) {
            places.append(at);
        }
    }
    return places;
}

}  // namespace

/// Complete Jet files: the rows that are read, and the files that are refused.
class TstJetReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnIntactFileGivesItsRows_data();
    void AnIntactFileGivesItsRows();
    void RowsWithoutADateAreCounted();
    void EveryLengthOfRowIsRead();
    void AJumpTableIsReadWhetherOrNotItCountsItself_data();
    void AJumpTableIsReadWhetherOrNotItCountsItself();
    void AnUnusableFileIsRefusedWithItsReason_data();
    void AnUnusableFileIsRefusedWithItsReason();
    void TheUpperBitsOfAnIdAreNotPartOfThePage_data();
    void TheUpperBitsOfAnIdAreNotPartOfThePage();
    void SystemTablesAndHiddenTablesAreNotRead_data();
    void SystemTablesAndHiddenTablesAreNotRead();
    void PagesOfOtherOwnersInTheMapAreSkipped();
};

void TstJetReader::AnIntactFileGivesItsRows_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("rows");
    const QByteArray all = JetSample(u"expected.tsv"_s);
    const QByteArray jet3 = JetSample(u"expected_jet3.tsv"_s);
    const auto sample = [](const char* name) { return JetSample(QString::fromUtf8(name) + u".mdb"); };

    for (const char* name : {"jet4_full", "jet4_full_int16", "jet4_full_2003", "jet4_full_double"}) {
        QTest::newRow(name) << sample(name) << all;
    }
    for (const char* name : {"jet3_full", "jet3_full_int16", "jet3_full_single", "jet3_encrypted",
                             "jet3_reference_maps", "jet3_wide"}) {
        QTest::newRow(name) << sample(name) << jet3;
    }
    QTest::newRow("jet4_empty") << sample("jet4_empty") << QByteArray();
    QTest::newRow("jet3_empty") << sample("jet3_empty") << QByteArray();
    QTest::newRow("Jet 4 with encrypted pages") << Encrypted(sample("jet4_full"), 0x9ABCDEF1, kPage4) << all;
    QTest::newRow("Jet 3 with encrypted pages") << Encrypted(sample("jet3_full"), 0x00000100, kPage3) << jet3;

    QByteArray cut = all;
    QTest::newRow("other case, order and columns, one more table")
        << sample("jet4_extra")
        << cut.replace(u"長"_s.repeated(255).toUtf8(), u"長"_s.repeated(100).toUtf8());
    QTest::newRow("NULL and times of day, Jet 4")
        << sample("jet4_nulls")
        << WithRows(WithRows(all, "Kinenbi",
                             {"\t0\t1\t1\t0", "年なし\t0\t2\t3\t0", "全部なし\t0\t0\t0\t0", "\t0\t1\t2\t0"}),
                    "Holiday", {"1998-10-20", "1998-10-21", "0100-01-01", "9999-12-31"});
    QTest::newRow("NULL and times of day, Jet 3")
        << sample("jet3_nulls")
        << WithRows(WithRows(jet3, "Kinenbi",
                             {"\t0\t1\t2\t0", "年なし\t0\t0\t0\t0", "\t0\t0\t0\t0", "\t0\t1\t3\t0"}),
                    "Holiday", {"1998-07-24", "1899-12-29", "1899-12-30", "0100-01-01", "9999-12-31"});
    QTest::newRow("deleted and moved rows") << sample("jet4_deleted") << AfterDeletions(all);

    const qsizetype holidays = jet3.indexOf("Syukuzitu");
    QTest::newRow("20 000 anniversaries, Jet 3")
        << sample("jet3_20000") << ManyAnniversaries(20000) + jet3.mid(holidays);
    QTest::newRow("20 000 anniversaries, Jet 4")
        << sample("jet4_20000")
        << ManyAnniversaries(20000) + jet3.mid(holidays, jet3.indexOf("Holiday\t") - holidays);
    QTest::newRow("code page 1252")
        << sample("jet3_cp1252")
        << "Kinenbi\tcafé\t0\t1\t2\t0\nKinenbi\tÜnï’s\t0\t1\t3\t0\nSyukuzitu\tx\t1\t1\n" +
               jet3.mid(jet3.indexOf("Holiday\t"));
}

void TstJetReader::AnIntactFileGivesItsRows() {
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, rows);
    const DayRows read = RowsOf(file);
    QCOMPARE(Lines(AsTsv(read) + '\n'), Lines(rows + '\n'));
    for (const DayTableRows& table : read) {
        QCOMPARE(table.unreadableNames, 0);
    }
}

void TstJetReader::RowsWithoutADateAreCounted() {
    for (const auto& [name, count] : {std::pair(u"jet4_nulls.mdb"_s, 1), std::pair(u"jet4_full.mdb"_s, 0)}) {
        int withoutDate = 0;
        for (const DayTableRows& table : RowsOf(JetSample(name))) {
            withoutDate += table.withoutDate;
        }
        QCOMPARE(withoutDate, count);
    }
}

// Each row has two texts, the first of 255 bytes and the second of 0 to 255 bytes. The rows are 273 to 533
// bytes long and include all possible ends of a jump table.
void TstJetReader::EveryLengthOfRowIsRead() {
    const DayRows rows = RowsOf(JetSample(u"jet3_lengths.mdb"_s));
    QCOMPARE(rows.at(0).rows.size(), 256);
    for (int i = 0; i < 256; ++i) {
        const QList<DayValue> expected{QString(i, u'x'), i, 1, 2, 0};
        QVERIFY2(rows.at(0).rows.at(i) == expected, qPrintable(QString::number(i)));
    }
}

// Rows with one text each. A row consists of: the number of columns, the text, the offsets of its end and its
// start, the jump table, the number of variable fields, the null mask. 0xFF is an unused jump.
void TstJetReader::AJumpTableIsReadWhetherOrNotItCountsItself_data() {
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("jumps");
    QTest::newRow("255 bytes, no jump") << 250 << ""_ba;
    QTest::newRow("256 bytes, no jump") << 251 << ""_ba;
    QTest::newRow("256 bytes, one jump") << 250 << "\xFF"_ba;
    QTest::newRow("257 bytes, no jump") << 252 << ""_ba;
    QTest::newRow("257 bytes, one jump") << 251 << "\xFF"_ba;
    QTest::newRow("300 bytes, one jump") << 294 << "\1"_ba;
    QTest::newRow("512 bytes, one jump") << 506 << "\1"_ba;
    QTest::newRow("513 bytes, two jumps") << 506 << "\xFF\1"_ba;
    QTest::newRow("600 bytes, two jumps") << 593 << "\1\1"_ba;
}

void TstJetReader::AJumpTableIsReadWhetherOrNotItCountsItself() {
    QFETCH(int, length);
    QFETCH(QByteArray, jumps);
    const QByteArray text(length, 'x');
    const QByteArray row =
        "\1"_ba + text + static_cast<char>((1 + length) % 256) + "\1"_ba + jumps + "\1"_ba + "\1"_ba;
    JetColumn column;
    column.type = JetType::Text;
    const auto field = JetRow(ByteView(row), kJet3Layout).Field(column);
    QVERIFY(field.has_value());
    QCOMPARE(field->Bytes().toByteArray(), text);
}

void TstJetReader::AnUnusableFileIsRefusedWithItsReason_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    const auto sample = [](const char* name) { return JetSample(QString::fromUtf8(name) + u".mdb"); };
    const QByteArray jet3 = sample("jet3_full");
    const QByteArray jet4 = sample("jet4_full");

    QTest::newRow("no table, Jet 3") << sample("jet3_notable") << u"表「Usuallyday」がありません。"_s;
    QTest::newRow("no table, Jet 4") << sample("jet4_notable") << u"表「Usuallyday」がありません。"_s;
    QTest::newRow("no column") << sample("jet4_missingcol") << u"表「Kinenbi」に列「Week」がありません。"_s;
    // The first definition after the catalogue's is Kinenbi's, whose first column is Name.
    QTest::newRow("a name that is no text")
        << Patched(jet3, 3 * kPage3 + 43, 12) << u"表「Kinenbi」の列「Name」の型は読み込めません。"_s;
    QTest::newRow("a year that is a text")
        << Patched(jet3, 3 * kPage3 + 43 + 18, 10) << u"表「Kinenbi」の列「Year」の型は読み込めません。"_s;
    QTest::newRow("more rows claimed than there are")
        << sample("jet3_wrong_count") << u"表「Holiday」の行数が合いません（11 行のはずが 10 行）。"_s;
    QTest::newRow("fewer rows claimed than there are")
        << Patched(jet3, 3 * kPage3 + 12, 38)
        << u"表「Kinenbi」の行数が合いません（38 行のはずが 39 行）。"_s;
    QTest::newRow("unknown code page") << Patched(jet3, 0x3C, static_cast<char>(jet3.at(0x3C) ^ 2))
                                       << u"対応していない文字コード 934 のデータベースです。"_s;
    QTest::newRow("a later version") << Patched(jet4, 0x14, 2) << u"対応していない版のデータベースです。"_s;
    QTest::newRow("a text file") << sample("not_a_database") << u"Jet形式のデータベースではありません。"_s;
    QTest::newRow("an empty file") << sample("zero_length") << u"Jet形式のデータベースではありません。"_s;
    QTest::newRow("more than 64 MB") << jet4 + QByteArray(qsizetype{64} * 1024 * 1024, '\0')
                                     << u"データベースが大きすぎます。"_s;

    const auto damage = [](const char16_t* where) {
        return u"データベースが壊れています（%1）。"_s.arg(QStringView(where));
    };
    QTest::newRow("truncated, Jet 3") << sample("jet3_truncated") << damage(u"途中で切れたファイル");
    QTest::newRow("truncated, Jet 4") << sample("jet4_truncated") << damage(u"途中で切れたファイル");
    QTest::newRow("only the name of the format") << jet4.first(0x14) << damage(u"範囲外の参照");
    QTest::newRow("an empty catalogue page") << sample("jet4_zeropage2") << damage(u"ページ 2 の種類");
    QTest::newRow("a map of pages outside the file, Jet 3")
        << sample("jet3_damaged_a") << damage(u"使用ページの表");
    QTest::newRow("a map of pages outside the file, Jet 4")
        << sample("jet4_damaged_a") << damage(u"使用ページの表");
    QTest::newRow("a definition that is continued by itself")
        << Patched(jet3, 3 * kPage3 + 4, 3) << damage(u"表の定義");
    QTest::newRow("more columns than the format has")
        << Patched(jet3, 3 * kPage3 + 26, 1) << damage(u"表の列数");
    // Page 28 contains pointers to moved rows. The first byte of the second one, for row 4, is patched.
    const QByteArray moved = sample("jet4_deleted");
    const qsizetype pointer = 28 * kPage4 + 0xF51;
    QTest::newRow("two pointers to one row") << Patched(moved, pointer, 0x2A) << damage(u"移動した行");
    QTest::newRow("a pointer into another table") << Patched(moved, pointer + 1, 30) << damage(u"移動した行");
    QTest::newRow("a pointer to itself") << Patched(moved, pointer, 4) << damage(u"移動した行");
}

void TstJetReader::AnUnusableFileIsRefusedWithItsReason() {
    QFETCH(QByteArray, file);
    QFETCH(QString, reason);
    QCOMPARE(Refusal(file), reason);
}

void TstJetReader::TheUpperBitsOfAnIdAreNotPartOfThePage_data() {
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QString>("rows");
    QTest::newRow("Jet 3") << u"jet3_full.mdb"_s << u"expected_jet3.tsv"_s;
    QTest::newRow("Jet 4") << u"jet4_full.mdb"_s << u"expected.tsv"_s;
}

void TstJetReader::TheUpperBitsOfAnIdAreNotPartOfThePage() {
    QFETCH(QString, sample);
    QFETCH(QString, rows);
    const QByteArray file = JetSample(sample);
    const qsizetype id = PlaceInCatalogue(file, u"Kinenbi", u"Id");
    QVERIFY(id > 0);
    QCOMPARE(AsTsv(RowsOf(Patched(file, id + 3, '\x0F'))), JetSample(rows));
    QCOMPARE(AsTsv(RowsOf(Patched(file, id + 3, '\x80'))), JetSample(rows));
}

void TstJetReader::SystemTablesAndHiddenTablesAreNotRead_data() {
    QTest::addColumn<int>("byte");
    QTest::addColumn<char>("flag");
    QTest::newRow("of the system") << 3 << '\x80';
    QTest::newRow("hidden") << 0 << '\x02';
}

void TstJetReader::SystemTablesAndHiddenTablesAreNotRead() {
    QFETCH(int, byte);
    QFETCH(char, flag);
    for (const QString& sample : {u"jet3_full.mdb"_s, u"jet4_full.mdb"_s}) {
        const QByteArray file = JetSample(sample);
        const qsizetype flags = PlaceInCatalogue(file, u"Holiday", u"Flags");
        QVERIFY(flags > 0);
        QCOMPARE(Refusal(Patched(file, flags + byte, flag)), u"表「Holiday」がありません。"_s);
        QCOMPARE(Refusal(Patched(file, flags, '\x08')), QString());  // other flags have no effect
    }
}

// The map of a table also contains pages with long texts, which are not owned by any table.
void TstJetReader::PagesOfOtherOwnersInTheMapAreSkipped() {
    const QByteArray file = JetSample(u"jet3_full.mdb"_s);
    const QList<qsizetype> pages = DataPages(file, kPage3, 3);
    QVERIFY(!pages.isEmpty());
    QByteArray other = file;
    for (const qsizetype at : pages) {
        other.replace(at + 4, 4, "LVAL");
    }
    QCOMPARE(Refusal(other), u"表「Kinenbi」の行数が合いません（39 行のはずが 0 行）。"_s);
}

QTEST_GUILESS_MAIN(TstJetReader)
#include "tst_jet_reader.moc"
