// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/disc/cd_title.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

/// Percent-encodes every byte, as the helper may.
QByteArray Encoded(const QByteArray& bytes) {
    QByteArray text;
    for (const char each : bytes) {
        text += '%' + QByteArray(1, each).toHex().toUpper();
    }
    return text;
}

}  // namespace

/// Titles written by the helper, and how they are shown.
class TstCdTitle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TitlesAreDecoded_data();
    void TitlesAreDecoded();
    void OnlyEncodedTextsAreTitles_data();
    void OnlyEncodedTextsAreTitles();
    void ALongTitleIsCut();
};

void TstCdTitle::TitlesAreDecoded_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("title");
    const auto row = [](const char* name, const QByteArray& bytes, const QString& title) {
        QTest::newRow(name) << bytes << title;
    };
    row("ASCII", "Clair de lune", u"Clair de lune"_s);
    row("UTF-8", u"月の光"_s.toUtf8(), u"月の光"_s);
    row("Shift_JIS", "\x8c\x8e\x82\xcc\x8c\xf5", u"月の光"_s);
    row("Shift_JIS with a backslash inside", "\x83\x5c\x95\x5c", u"ソ表"_s);
    row("half-width kana in Shift_JIS", "\xb1\xb2\xb3", u"ｱｲｳ"_s);
    row("neither", "\xff\xfe\xfd", {});
    row("half a character of Shift_JIS", "\x8c\x8e\x82", {});
    row("a pair that is none", "\xed\xa0\x80x\xff", {});
    row("beyond the BMP", u"𠮷野"_s.toUtf8(), u"𠮷野"_s);
    row("markup", "<b>&amp;</b>", u"<b>&amp;</b>"_s);
    row("a full-width blank inside", u"月　光"_s.toUtf8(), u"月　光"_s);
    row("blanks around", " x \xe3\x80\x80", u"x"_s);
    row("only blanks", "  ", {});
    row("controls", "a\nb\tc\x1b[31m\x07", u"a b c [31m"_s);
    row("controls of Latin-1",
        "a\xc2\x85"
        "b\xc2\x9b"
        "c",
        u"a b c"_s);
    row("NUL", QByteArray("a\0b", 3), u"a b"_s);
    row("ends of lines and paragraphs", u"a\u2028b\u2029c"_s.toUtf8(), u"a b c"_s);
    row("characters that turn the text", u"a\u202Ebc\u2066d\u200Fe\u061C"_s.toUtf8(), u"abcde"_s);
    row("characters that cannot be seen", u"\uFEFFa\u200B\u00ADb\uE000"_s.toUtf8(), u"ab"_s);
    row("nothing visible", u"\u202E\u2066"_s.toUtf8(), {});
}

void TstCdTitle::TitlesAreDecoded() {
    QFETCH(const QByteArray, bytes);
    const QByteArray text = Encoded(bytes);
    QVERIFY(IsEncodedTitle(text));
    QTEST(TitleFrom(text), "title");
}

void TstCdTitle::OnlyEncodedTextsAreTitles_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isTitle");
    QTest::newRow("letters") << QByteArray("aZ09") << true;
    QTest::newRow("bytes") << QByteArray("%E6%9C%88x") << true;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("a blank") << QByteArray("a b") << false;
    QTest::newRow("a sign") << QByteArray("a-b") << false;
    QTest::newRow("a byte of UTF-8") << QByteArray("\xe6") << false;
    QTest::newRow("half a byte") << QByteArray("%E") << false;
    QTest::newRow("no byte") << QByteArray("x%") << false;
    QTest::newRow("not hexadecimal") << QByteArray("%G0") << false;
    QTest::newRow("small letters") << QByteArray("%e6") << false;
    QTest::newRow("the longest") << QByteArray("%41").repeated(800) << true;
    QTest::newRow("longer") << QByteArray("%41").repeated(801) << false;
}

void TstCdTitle::OnlyEncodedTextsAreTitles() {
    QFETCH(const QByteArray, text);
    QTEST(IsEncodedTitle(text), "isTitle");
}

void TstCdTitle::ALongTitleIsCut() {
    QCOMPARE(TitleFrom(Encoded(QByteArray(800, 'x'))), QString(200, u'x'));
    QCOMPARE(TitleFrom(Encoded(u"𠮷"_s.repeated(200).toUtf8())), u"𠮷"_s.repeated(200));
    QCOMPARE(TitleFrom(Encoded(u"\u202Ex"_s.repeated(200).toUtf8())), QString(200, u'x'));
}

QTEST_GUILESS_MAIN(TstCdTitle)
#include "tst_cd_title.moc"
