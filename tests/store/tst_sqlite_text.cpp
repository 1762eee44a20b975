// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "store/sqlite_text.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::store;

/// The conversion of texts for SQLite and back.
class TstSqliteText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void KeepsEveryCharacter_data();
    void KeepsEveryCharacter();
    void KeepsEveryCodePoint();
    void ReplacesInvalidUtf8_data();
    void ReplacesInvalidUtf8();
};

void TstSqliteText::KeepsEveryCharacter_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QString() << QByteArray();
    QTest::newRow("ASCII") << u"Name"_s << QByteArray("Name");
    QTest::newRow("kanji") << u"日"_s << QByteArray("\xE6\x97\xA5");
    QTest::newRow("surrogate pair") << u"\U00020B9F"_s << QByteArray("\xF0\xA0\xAE\x9F");
    QTest::newRow("byte order mark first") << QString(QChar(0xFEFF)) + u'a'
                                           << QByteArray(
                                                  "\xEF\xBB\xBF"
                                                  "a");
    QTest::newRow("noncharacter") << QString(QChar(0xFFFE)) << QByteArray("\xEF\xBF\xBE");
    QTest::newRow("high half alone") << QString(QChar(0xD842)) + u'a'
                                     << QByteArray(
                                            "\xED\xA1\x82"
                                            "a");
    QTest::newRow("low half alone") << u'a' + QString(QChar(0xDF9F)) << QByteArray("a\xED\xBE\x9F");
    QTest::newRow("halves the wrong way round")
        << QString(QChar(0xDF9F)) + QChar(0xD842) << QByteArray("\xED\xBE\x9F\xED\xA1\x82");
    QTest::newRow("a half beside a pair")
        << QString(QChar(0xD842)) + u"\U00020B9F" << QByteArray("\xED\xA1\x82\xF0\xA0\xAE\x9F");
}

void TstSqliteText::KeepsEveryCharacter() {
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(ToSqliteText(text), bytes);
    QCOMPARE(FromSqliteText(bytes), text);
}

void TstSqliteText::KeepsEveryCodePoint() {
    for (char32_t code = 1; code <= QChar::LastValidCodePoint; ++code) {
        const QString text =
            code < 0x10000 ? QString(QChar(static_cast<char16_t>(code))) : QString::fromUcs4(&code, 1);
        if (FromSqliteText(ToSqliteText(text)) != text) {
            QFAIL(qPrintable(u"U+%1 was lost"_s.arg(static_cast<quint32>(code), 4, 16)));
        }
    }
}

void TstSqliteText::ReplacesInvalidUtf8_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("a continuation byte first") << QByteArray("a\x80z") << u"a\uFFFDz"_s;
    QTest::newRow("truncated at the end") << QByteArray("a\xE6\x97") << u"a\uFFFD\uFFFD"_s;
    QTest::newRow("truncated in the middle") << QByteArray("\xE6\x97z") << u"\uFFFD\uFFFDz"_s;
    QTest::newRow("overlong") << QByteArray("\xC0\x80") << u"\uFFFD\uFFFD"_s;
    QTest::newRow("overlong, three bytes") << QByteArray("\xE0\x80\x80") << u"\uFFFD\uFFFD\uFFFD"_s;
    QTest::newRow("beyond the last code point")
        << QByteArray("\xF4\x90\x80\x80") << u"\uFFFD\uFFFD\uFFFD\uFFFD"_s;
    QTest::newRow("no lead byte at all") << QByteArray("\xFF") << u"\uFFFD"_s;
}

void TstSqliteText::ReplacesInvalidUtf8() {
    QFETCH(QByteArray, bytes);
    QTEST(FromSqliteText(bytes), "text");
}

QTEST_GUILESS_MAIN(TstSqliteText)
#include "tst_sqlite_text.moc"
