// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "help/help_file.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

namespace {

QString ReasonFor(const QString& path) {
    try {
        ReadHelpFile(path);
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
    return QString();
}

const QString kUnreadable = u"Help.hlp を読み込めません。"_s;
const QString kWrongForm = u"Help.hlp はヘルプの形式ではありません。"_s;

}  // namespace

/// Reading the help file, or another file of that name.
class TstHelpFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TextIsRead();
    void FilesThatAreNoTextAreRefused_data();
    void FilesThatAreNoTextAreRefused();
    void TextThatWouldTakeLongToShowIsRefused_data();
    void TextThatWouldTakeLongToShowIsRefused();
    void UnreadableFilesAreRefused();
    void APipeDoesNotBlockTheProgram();
    void AFileWithoutTheRightToReadIsRefused();
};

void TstHelpFile::TextIsRead() {
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"Help.hlp"_s), "<h1>ヘルプ</h1>\n");
    QCOMPARE(ReadHelpFile(dir.filePath(u"Help.hlp"_s)), u"<h1>ヘルプ</h1>\n"_s);
}

void TstHelpFile::FilesThatAreNoTextAreRefused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << kUnreadable;
    QTest::newRow("a compiled help file") << QByteArray("?_\x03\x00\x10\x00\x00\x00", 8) << kWrongForm;
    QTest::newRow("another encoding") << QByteArray("\x83\x77\x83\x8b\x83\x76") << kWrongForm;
    QTest::newRow("truncated within a character") << QByteArray("a\xe3\x81") << kWrongForm;
    QTest::newRow("too large")
        << QByteArray("<br>").repeated(512 * 256) + '\n'
        << kUnreadable +
               u"\r\nファイルが大きすぎます（512 KiBまで）。\r\n元の Help.hlp に置き換えてください。";
}

void TstHelpFile::FilesThatAreNoTextAreRefused() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"Help.hlp"_s), bytes);
    QCOMPARE(ReasonFor(dir.filePath(u"Help.hlp"_s)), reason);
}

void TstHelpFile::TextThatWouldTakeLongToShowIsRefused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isShown");
    const auto repeated = [](const char* text, int count) { return QByteArray(text).repeated(count); };
    const auto row = [](const char* name, const QByteArray& bytes, bool isShown) {
        QTest::newRow(name) << bytes << isShown;
    };
    row("tables in tables", repeated("<table><tr><td>", 4), true);
    row("one table deeper", repeated("<table><tr><td>", 5), false);
    row("sixty deep, with ends",
        repeated("<TABLE border=1><tr><td>", 60) + repeated("</td></tr></table>", 60), false);
    row("many tables, one after the other", repeated("<table><tr><td>a</td></tr></table>", 100), true);
    row("ends in a comment do not count", repeated("<table><!-- </table> --><tr><td>", 5), false);
    row("ends in a style sheet do not count", repeated("<table><style></table></style><tr><td>", 5), false);
    row("ends in a quotation do not count", repeated("<table><p title='</table>'><tr><td>", 5), false);
    row("ends of something else do not count", repeated("<table></div></b><tr><td>", 5), false);
    row("tags in a comment do not count", "<!-- " + repeated("<table>", 60) + " -->a", true);
    row("deep", repeated("<div>", 32) + "a", true);
    row("a level deeper", repeated("<div>", 33) + "a", false);
    row("deep and shallow again", repeated("<b><i>a</i></b>", 1000), true);
    row("elements without an end", repeated("<p>a<br>b<li>c<hr>d<img>", 500), true);
    row("elements that end at once", repeated("<a name='x'/>a", 500), true);
    row("an end that ends two", repeated("<b><i>a</b>", 500), true);
    row("a large table",
        "<table>" +
            repeated("<tr>"
                     "<td>a<td>b<td>c<td>d<th>e",
                     1000) +
            "</table>",
        true);
    row("one row more",
        "<table>" +
            repeated("<tr>"
                     "<td>a<td>b<td>c<td>d<th>e",
                     1001) +
            "</table>",
        false);
    row("one wide row and many short ones", "<table><tr>" + repeated("<td>", 300) + repeated("<tr>", 300),
        false);
    row("wide cells", "<table>" + repeated("<tr><td ColSpan = \"100\">", 50) + "</table>", true);
    row("a cell that is too wide", "<table><tr><td colspan=101>a</table>", false);
    row("a cell whose width is hidden", "<table><tr><td colspan='&#49;00000'>a</table>", false);
    row("many tags", repeated("<br>", 20'000), true);
    row("a tag more", repeated("<br>", 20'001), false);
    row("a long word", repeated("a", 10'000) + ' ' + repeated("a", 10'000), true);
    row("a letter more", repeated("a", 5000) + "<b></b>" + repeated("a", 5001), false);
    row("a long text without blanks", QString(50'000, QChar(u'あ')).toUtf8(), true);
    row("a tag that never ends", "<b " + repeated("x", 20'000), true);
    row("a tag within a tag", "<p \" > <b> \" >", false);
}

void TstHelpFile::TextThatWouldTakeLongToShowIsRefused() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isShown);
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"Help.hlp"_s), bytes);
    QCOMPARE(
        ReasonFor(dir.filePath(u"Help.hlp"_s)),
        isShown
            ? QString()
            : u"Help.hlp は構造が複雑すぎるため、表示できません。\r\n元の Help.hlp に置き換えてください。"_s);
}

void TstHelpFile::UnreadableFilesAreRefused() {
    const QTemporaryDir dir;
    QCOMPARE(ReasonFor(dir.filePath(u"Help.hlp"_s)), kUnreadable);
    QVERIFY(QDir(dir.path()).mkdir(u"Help.hlp"_s));
    QCOMPARE(ReasonFor(dir.filePath(u"Help.hlp"_s)), kUnreadable);
}

void TstHelpFile::APipeDoesNotBlockTheProgram() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"Help.hlp"_s);
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    QCOMPARE(ReasonFor(path), kUnreadable);
}

void TstHelpFile::AFileWithoutTheRightToReadIsRefused() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"Help.hlp"_s);
    WriteAll(path, "<h1>a</h1>");
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    const int code = InChild([&] { return BecomeNobody() && ReasonFor(path) == kUnreadable ? 0 : 1; });
    QCOMPARE(code, 0);
}

QTEST_GUILESS_MAIN(TstHelpFile)
#include "tst_help_file.moc"
