// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/table_text.h"

#include <QStringEncoder>
#include <QTest>

#include "core/errors.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::exchange;

namespace {

/// The entries as "name|days|state", or "!" and the reason why the file is refused.
QStringList Read(const QByteArray& file) {
    const std::atomic<bool> isGivenUp = false;
    QStringList texts;
    try {
        for (const Entry& entry : ReadTable(file, isGivenUp).entries) {
            texts.append(entry.row.name + u'|' + WhenOf(entry) + u'|' + StateText(entry));
        }
    } catch (const RunTimeError& error) {
        texts.append(u'!' + error.Reason());
    }
    return texts;
}

}  // namespace

/// Tables of anniversaries.
class TstTableText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RowsAreWritten();
    void RowsOnNoDayAreLeftOut();
    void FilesAreRead_data();
    void FilesAreRead();
    void EveryEncodingIsRead();
    void FilesAreRefused_data();
    void FilesAreRefused();
    void NamesAreOneShortLine_data();
    void NamesAreOneShortLine();
};

void TstTableText::RowsAreWritten() {
    QCOMPARE(TableHead(), "\xEF\xBB\xBF" + u"記念日,年,月,日,第何週,曜日\r\n"_s.toUtf8());
    const auto line = [](const days::Anniversary& row) { return QString::fromUtf8(TableLine(row)); };
    QCOMPARE(line({u"誕生日"_s, 0, 6, 10, 0}), u"誕生日,,6,10,,\r\n"_s);
    QCOMPARE(line({u"毎月"_s, 0, 0, 10, 0}), u"毎月,,,10,,\r\n"_s);
    QCOMPARE(line({u"一日"_s, 2026, 6, 10, 0}), u"一日,2026,6,10,,\r\n"_s);
    QCOMPARE(line({u"曜日"_s, 0, 6, 0, 22}), u"曜日,,6,,2,月\r\n"_s);
    QCOMPARE(line({u"a,\"b\""_s, 0, 0, 1, 0}), u"\"a,\"\"b\"\"\",,,1,,\r\n"_s);
    QCOMPARE(line({u" "_s, 0, 0, 1, 0}), u"\" \",,,1,,\r\n"_s);
}

void TstTableText::RowsOnNoDayAreLeftOut() {
    QByteArray table;
    QVERIFY(!AddTableLine({u"a"_s, 0, 2, 30, 0}, table));
    QCOMPARE(table, ""_ba);
    QVERIFY(AddTableLine({u"a"_s, 0, 2, 29, 0}, table));
    QCOMPARE(table, "a,,2,29,,\r\n"_ba);
}

void TstTableText::FilesAreRead_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("entries");
    const auto row = [](const char* name, const QString& file, const QStringList& entries) {
        QTest::newRow(name) << file << entries;
    };
    row("nothing", u""_s, {});
    row("with a head", u"記念日,年,月,日,第何週,曜日\r\n誕生日,,6,10,,\r\n"_s,
        {u"誕生日|毎年 6月10日|新しい"_s});
    row("without a head", u"誕生日,,6,10,,\n"_s, {u"誕生日|毎年 6月10日|新しい"_s});
    row("fewer columns", u"誕生日,2026,6,10"_s, {u"誕生日|2026年6月10日|新しい"_s});
    row("weekdays", u"a,,,,2,月\nb,,5,,2,日曜\nc,,,,5,土曜日\n"_s,
        {u"a|毎月 第2月曜|新しい"_s, u"b|毎年 5月 第2日曜|新しい"_s, u"c|毎月 第5土曜|新しい"_s});
    row("毎", u"a,毎,毎,10,,\n"_s, {u"a|毎月 10日|新しい"_s});
    row("full-width digits and blanks", u"a,, ６ , １０ ,,\n"_s, {u"a|毎年 6月10日|新しい"_s});
    row("quotes", u"\"a,\"\"b\"\"\",,6,\"10\",,\n"_s, {u"a,\"b\"|毎年 6月10日|新しい"_s});
    row("a line break in quotes", u"\"a\r\nb\",,6,10,,\nc,,6,11,,\n"_s,
        {u"a b|毎年 6月10日|新しい"_s, u"c|毎年 6月11日|新しい"_s});
    row("empty lines", u"\n\na,,6,10,,\n\n"_s, {u"a|毎年 6月10日|新しい"_s});
    row("year", u"a,10000,6,10,,\nb,x,6,10,,\n"_s,
        {u"a|1行目|取り込めません：年が正しくない行"_s, u"b|2行目|取り込めません：年が正しくない行"_s});
    row("month", u"a,,13,10,,"_s, {u"a|1行目|取り込めません：月が正しくない行"_s});
    row("month 0", u"a,,0,10,,"_s, {u"a|1行目|取り込めません：月が正しくない行"_s});
    row("day", u"a,,6,32,,"_s, {u"a|1行目|取り込めません：日が正しくない行"_s});
    row("week without weekday", u"a,,6,,2,"_s, {u"a|1行目|取り込めません：第何週と曜日が正しくない行"_s});
    row("weekday without week", u"a,,6,,,月"_s, {u"a|1行目|取り込めません：第何週と曜日が正しくない行"_s});
    row("week 6", u"a,,6,,6,月"_s, {u"a|1行目|取り込めません：第何週と曜日が正しくない行"_s});
    row("another weekday", u"a,,6,,2,月火"_s, {u"a|1行目|取り込めません：第何週と曜日が正しくない行"_s});
    row("no day", u"a,,6,,,"_s, {u"a|1行目|取り込めません：どの日にも当たらない行"_s});
    row("30 February", u"a,,2,30,,"_s, {u"a|1行目|取り込めません：どの日にも当たらない行"_s});
    row("too many columns", u"a,,6,10,,,x"_s, {u"a|1行目|取り込めません：列が多すぎる行"_s});
    row("lines inside quotes count", u"\"a\nb\",,6,10,,\nc,,13,1,,\n"_s,
        {u"a b|毎年 6月10日|新しい"_s, u"c|3行目|取り込めません：月が正しくない行"_s});
}

void TstTableText::FilesAreRead() {
    QFETCH(QString, file);
    QTEST(Read(file.toUtf8()), "entries");
}

void TstTableText::EveryEncodingIsRead() {
    const QString text = u"記念日,年,月,日,第何週,曜日\r\n表示ソ,,6,10,,\r\n"_s;
    const QStringList expected{u"表示ソ|毎年 6月10日|新しい"_s};
    QStringEncoder shiftJis("Shift_JIS");
    QCOMPARE(Read(text.toUtf8()), expected);
    QCOMPARE(Read("\xEF\xBB\xBF" + text.toUtf8()), expected);
    QCOMPARE(Read(shiftJis(text)), expected);
}

void TstTableText::FilesAreRefused_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("an open quote") << "a,,6,10,,\n\"b,,6,10,,\n"_ba << u"!2行目の「\"」が閉じていません。"_s;
    QTest::newRow("a long field") << "a,,6,10,,\n" + QByteArray(70'000, 'a') << u"!2行目が長すぎます。"_s;
    QTest::newRow("very many columns") << QByteArray(1'000'000, ',') << u"!1行目が長すぎます。"_s;
    QTest::newRow("no known encoding") << "a,,6,10,,\n\xFF\xFF,,6,10,,\n"_ba
                                       << u"!2行目の文字を読めません。UTF-8かShift_JISで保存してください。"_s;
}

void TstTableText::FilesAreRefused() {
    QFETCH(QByteArray, file);
    QTEST(Read(file).constLast(), "reason");
}

void TstTableText::NamesAreOneShortLine_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("isCut");
    const QString star = QString::fromUcs4(U"\U0001F31F");
    QTest::newRow("255") << QString(255, u'あ') << QString(255, u'あ') << false;
    QTest::newRow("256") << QString(256, u'あ') << QString(255, u'あ') << true;
    QTest::newRow("255 stars") << star.repeated(255) << star.repeated(255) << false;
    QTest::newRow("256 stars") << star.repeated(256) << star.repeated(255) << true;
    QTest::newRow("line breaks") << u"a\r\nb\nc\td"_s << u"a b c d"_s << false;
    QTest::newRow("quotes") << u"a\"b"_s << u"a\"b"_s << false;
}

void TstTableText::NamesAreOneShortLine() {
    QFETCH(QString, name);
    QFETCH(bool, isCut);
    const Entry entry = EntryOf(name, {});
    QTEST(entry.row.name, "stored");
    QCOMPARE(entry.isCut, isCut);
}

QTEST_GUILESS_MAIN(TstTableText)
#include "tst_table_text.moc"
