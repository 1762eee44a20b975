// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/content_lines.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

/// The wanted lines as "NUMBER NAME PARAMETERS=VALUE", or the reason why the file is refused.
QStringList Lines(const QByteArray& file, const QByteArrayList& wanted = {"A", "B", "FN"}) {
    ContentLines lines(file, [&wanted](const QByteArray& name) { return wanted.contains(name); });
    QStringList found;
    try {
        while (const auto line = lines.Next()) {
            found.append(QString::number(line->number) + u' ' + QString::fromUtf8(line->name) + u' ' +
                         QString::fromUtf8(line->parameters) + u'=' + QString::fromUtf8(line->value));
        }
    } catch (const ContentLineError& error) {
        found.append(u'!' + error.Reason());
    }
    return found;
}

}  // namespace

/// The lines of iCalendar and vCard files.
class TstContentLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void LinesAreSplit_data();
    void LinesAreSplit();
    void UnwantedLinesAreSkippedWhateverTheyContain();
    void LongLinesAreRefused();
    void ParametersAreFound_data();
    void ParametersAreFound();
    void EscapesAreResolved_data();
    void EscapesAreResolved();
    void LinesAreFolded_data();
    void LinesAreFolded();
};

void TstContentLines::LinesAreSplit_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("nothing") << ""_ba << QStringList();
    QTest::newRow("two lines") << "A:1\r\nB:2\r\n"_ba << QStringList{u"1 A =1"_s, u"2 B =2"_s};
    QTest::newRow("without carriage returns") << "A:1\nB:2"_ba << QStringList{u"1 A =1"_s, u"2 B =2"_s};
    QTest::newRow("empty lines") << "\r\n\r\nA:1\r\n\r\n"_ba << QStringList{u"3 A =1"_s};
    QTest::newRow("small letters") << "a:1"_ba << QStringList{u"1 A =1"_s};
    QTest::newRow("folded") << "A:1\r\n 2\r\n\t3\r\nB:4"_ba << QStringList{u"1 A =123"_s, u"4 B =4"_s};
    QTest::newRow("folded inside a character") << "A:\xE3\r\n \x81\x82\r\n"_ba << QStringList{u"1 A =あ"_s};
    QTest::newRow("folded inside the name") << "A;X=\r\n 1:2"_ba << QStringList{u"1 A ;X=1=2"_s};
    QTest::newRow("parameters") << "A;X=1;Y=2:3:4"_ba << QStringList{u"1 A ;X=1;Y=2=3:4"_s};
    QTest::newRow("a colon in quotes") << R"(A;X="a:b;c":3)"_ba << QStringList{uR"(1 A ;X="a:b;c"=3)"_s};
    QTest::newRow("no colon") << "A\r\nB:2"_ba << QStringList{u"1 A ="_s, u"2 B =2"_s};
    QTest::newRow("a group") << "item1.FN:x"_ba << QStringList{u"1 FN =x"_s};
    QTest::newRow("a byte order mark") << "\xEF\xBB\xBF"
                                          "A:1"_ba
                                       << QStringList{u"1 A =1"_s};
    QTest::newRow("no UTF-8") << "A:1\nB:\x93\xFA\nA:2"_ba
                              << QStringList{u"1 A =1"_s, u"!2行目がUTF-8ではありません。"_s};
}

void TstContentLines::LinesAreSplit() {
    QFETCH(QByteArray, file);
    QTEST(Lines(file), "lines");
}

void TstContentLines::UnwantedLinesAreSkippedWhateverTheyContain() {
    const QByteArray picture =
        "C:QUJD\r\n " + QByteArray(50'000, 'x') + "\r\n " + QByteArray(50'000, 'y') + "\r\n \x93\xFA\r\n";
    QCOMPARE(Lines("A:1\r\n" + picture + "B:2\r\n"), (QStringList{u"1 A =1"_s, u"6 B =2"_s}));
}

void TstContentLines::LongLinesAreRefused() {
    const QString refused = u"!2行目が長すぎます（64 KiBまで）。"_s;
    QCOMPARE(Lines("A:1\r\nA:" + QByteArray(65534, 'x') + "\r\n").size(), 2);
    QCOMPARE(Lines("A:1\r\nA:" + QByteArray(65535, 'x') + "\r\n"), (QStringList{u"1 A =1"_s, refused}));
    QCOMPARE(Lines("A:1\r\nC:" + QByteArray(65535, 'x') + "\r\n"), (QStringList{u"1 A =1"_s, refused}));
    QCOMPARE(Lines("A:1\r\nA:" + QByteArray(40'000, 'x') + "\r\n " + QByteArray(25'600, 'x')),
             (QStringList{u"1 A =1"_s, refused}));
}

void TstContentLines::ParametersAreFound_data() {
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("none") << ""_ba
                          << ""_ba;
    QTest::newRow("one") << ";VALUE=date"_ba
                         << "DATE"_ba;
    QTest::newRow("the second") << R"(;X="VALUE=a;b";value=text)"_ba
                                << "TEXT"_ba;
    QTest::newRow("quoted") << R"(;VALUE="date")"_ba
                            << "DATE"_ba;
    QTest::newRow("a longer name") << ";VALUES=date"_ba
                                   << ""_ba;
}

void TstContentLines::ParametersAreFound() {
    QFETCH(QByteArray, parameters);
    QTEST(ParameterOf({.number = 1, .name = "A", .parameters = parameters, .value = {}}, "VALUE"), "value");
}

void TstContentLines::EscapesAreResolved_data() {
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << "abc"_ba << u"abc"_s;
    QTest::newRow("all") << R"(a\, b\; c\\d)"_ba << u"a, b; c\\d"_s;
    QTest::newRow("line breaks") << R"(a\nb\Nc)"_ba << u"a\nb\nc"_s;
    QTest::newRow("an escaped backslash before n") << R"(a\\n)"_ba << u"a\\n"_s;
    QTest::newRow("unknown") << R"(a\:b)"_ba << u"a:b"_s;
    QTest::newRow("at the end") << R"(a\)"_ba << u"a\\"_s;
}

void TstContentLines::EscapesAreResolved() {
    QFETCH(QByteArray, value);
    QFETCH(QString, text);
    QCOMPARE(UnescapedText(value), text);
    QCOMPARE(UnescapedText(EscapedText(text)), text);
}

void TstContentLines::LinesAreFolded_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("folded");
    QTest::newRow("75 bytes") << QByteArray(75, 'a') << QByteArray(75, 'a') + "\r\n";
    QTest::newRow("76 bytes") << QByteArray(76, 'a') << QByteArray(75, 'a') + "\r\n a\r\n";
    QTest::newRow("the blank counts")
        << QByteArray(150, 'a') << QByteArray(75, 'a') + "\r\n " + QByteArray(74, 'a') + "\r\n a\r\n";
    QTest::newRow("not inside a character")
        << QByteArray(74, 'a') + "\xE3\x81\x82" << QByteArray(74, 'a') + "\r\n \xE3\x81\x82\r\n";
}

void TstContentLines::LinesAreFolded() {
    QFETCH(QByteArray, line);
    QTEST(FoldedLine(line), "folded");
}

QTEST_GUILESS_MAIN(TstContentLines)
#include "tst_content_lines.moc"
