// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "help/folded_text.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

using Spans = QList<TextSpan>;

/// Text search in the help: which differences it ignores.
class TstFoldedText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TermsAreFound_data();
    void TermsAreFound();
};

void TstFoldedText::TermsAreFound_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("term");
    QTest::addColumn<Spans>("spans");
    const auto row = [](const char* name, const QString& text, const QString& term, const Spans& spans) {
        QTest::newRow(name) << text << term << spans;
    };
    row("plain", u"時計と時報"_s, u"時"_s, {{0, 1}, {3, 1}});
    row("nowhere", u"時計"_s, u"報"_s, {});
    row("in an empty text", QString(), u"報"_s, {});
    row("empty term", u"時計"_s, QString(), {});
    row("term of blanks", u"a b"_s, u" 　"_s, {});
    row("blanks around the term", u"a b c"_s, u" b　"_s, {{2, 1}});
    row("blank inside the term", u"Page Up"_s, u"page　up"_s, {{0, 7}});
    row("case", u"TKW2.ini tkw2.INI"_s, u"Tkw2.Ini"_s, {{0, 8}, {9, 8}});
    row("full-width letters", u"ＣＤを聴く"_s, u"cd"_s, {{0, 2}});
    row("half-width kana found by full-width", u"「ﾀｲﾏｰ」"_s, u"タイマー"_s, {{1, 4}});
    row("full-width kana found by half-width", u"「タイマー」"_s, u"ﾀｲﾏｰ"_s, {{1, 4}});
    row("voiced kana are two characters when half-width", u"ﾃﾞｼﾞﾀﾙ時計"_s, u"デジタル時計"_s, {{0, 8}});
    row("semi-voiced as well", u"ﾍﾙﾌﾟ"_s, u"プ"_s, {{2, 2}});
    row("the mark belongs to its kana", u"ﾃﾞ"_s, u"テ"_s, {});
    row("the position is right after folded kana", u"ﾊﾞｯﾃﾘｰとCD"_s, u"cd"_s, {{7, 2}});
    row("a character that folds to several", u"㍻10年"_s, u"平成10"_s, {{0, 3}});
    row("a hit in part of it covers the character", u"㍻10年"_s, u"成"_s, {{0, 1}});
    row("hits do not overlap", u"ああああ"_s, u"ああ"_s, {{0, 2}, {2, 2}});
    row("hiragana is not katakana", u"タイマー"_s, u"たいまー"_s, {});
    row("outside the basic plane", u"a𠮷b"_s, u"𠮷"_s, {{1, 2}});
    row("a mark without its kana at the beginning", u"ﾞa"_s, u"a"_s, {{1, 1}});
}

void TstFoldedText::TermsAreFound() {
    QFETCH(QString, text);
    QFETCH(QString, term);
    QFETCH(Spans, spans);
    QVERIFY(FoldedText(text).Find(term) == spans);
}

QTEST_GUILESS_MAIN(TstFoldedText)
#include "tst_folded_text.moc"
