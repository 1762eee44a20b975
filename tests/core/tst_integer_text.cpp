// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "core/integer_text.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Converting typed and stored texts to numbers and flags.
class TstIntegerText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void IntegersAreRead_data();
    void IntegersAreRead();
    void OtherTextsAreATypeMismatch_data();
    void OtherTextsAreATypeMismatch();
    void NumbersOutOfRangeOverflow_data();
    void NumbersOutOfRangeOverflow();
    void ShortIntegersEndAt16Bits();
    void FlagsAreRead_data();
    void FlagsAreRead();
    void FlagsAreWrittenAsWords();
};

void TstIntegerText::IntegersAreRead_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("value");
    QTest::newRow("plain") << u"42"_s << 42;
    QTest::newRow("zero") << u"0"_s << 0;
    QTest::newRow("leading zeros") << u"007"_s << 7;
    QTest::newRow("minus") << u"-5"_s << -5;
    QTest::newRow("plus") << u"+5"_s << 5;
    QTest::newRow("blanks around") << u"  10 "_s << 10;
    QTest::newRow("full-width blanks around") << u"　10　"_s << 10;
    QTest::newRow("tabs around") << u"\t10\t"_s << 10;
    QTest::newRow("full-width digits") << u"１０"_s << 10;
    QTest::newRow("mixed widths") << u"1０2"_s << 102;
    QTest::newRow("fraction up") << u"2505.6"_s << 2506;
    QTest::newRow("fraction down") << u"2505.4"_s << 2505;
    QTest::newRow("half to even, down") << u"10.5"_s << 10;
    QTest::newRow("half to even, up") << u"11.5"_s << 12;
    QTest::newRow("a little over half") << u"10.5000001"_s << 11;
    QTest::newRow("a little under half") << u"11.4999999"_s << 11;
    QTest::newRow("negative half to even") << u"-10.5"_s << -10;
    QTest::newRow("negative half up") << u"-11.5"_s << -12;
    QTest::newRow("the highest") << u"2147483647"_s << 2147483647;
    QTest::newRow("the lowest") << u"-2147483648"_s << std::numeric_limits<qint32>::min();
    QTest::newRow("the lowest with a half") << u"-2147483648.5"_s << std::numeric_limits<qint32>::min();
    QTest::newRow("many zeros before") << QString(100, u'0') + u"3"_s << 3;
}

void TstIntegerText::IntegersAreRead() {
    QFETCH(QString, text);
    QFETCH(qint32, value);
    QCOMPARE(IntegerOf(text), value);
}

void TstIntegerText::OtherTextsAreATypeMismatch_data() {
    QTest::addColumn<QString>("text");
    for (const QString& text :
         {u""_s,     u"   "_s,  u"10月"_s, u"十"_s, u"1,000"_s, u"1 0"_s,    u"--5"_s,
          u"- 5"_s,  u"5-"_s,   u"."_s,    u"5."_s, u".5"_s,    u"1.2.3"_s,  u"1e3"_s,
          u"0x10"_s, u"&h10"_s, u"True"_s, u"٣"_s,  u"1\0"_s,   u"１．５"_s, u"－５"_s}) {
        QTest::newRow(qPrintable(u'"' + text + u'"')) << text;
    }
}

void TstIntegerText::OtherTextsAreATypeMismatch() {
    QFETCH(QString, text);
    QVERIFY_THROWS_EXCEPTION(TypeMismatchError, IntegerOf(text));
}

void TstIntegerText::NumbersOutOfRangeOverflow_data() {
    QTest::addColumn<QString>("text");
    for (const QString& text : {u"2147483648"_s, u"-2147483649"_s, u"2147483647.5"_s, u"4294967295"_s,
                                u"99999999999999999999999999"_s, u"-99999999999999999999999999"_s}) {
        QTest::newRow(qPrintable(text)) << text;
    }
}

void TstIntegerText::NumbersOutOfRangeOverflow() {
    QFETCH(QString, text);
    QVERIFY_THROWS_EXCEPTION(OverflowError, IntegerOf(text));
}

void TstIntegerText::ShortIntegersEndAt16Bits() {
    QCOMPARE(ShortIntegerOf(u"32767"), qint16{32767});
    QCOMPARE(ShortIntegerOf(u"-32768"), qint16{-32768});
    QVERIFY_THROWS_EXCEPTION(OverflowError, ShortIntegerOf(u"32768"));
    QVERIFY_THROWS_EXCEPTION(OverflowError, ShortIntegerOf(u"-32769"));
}

void TstIntegerText::FlagsAreRead_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("flag");
    QTest::newRow("True") << u"True"_s << true;
    QTest::newRow("False") << u"False"_s << false;
    QTest::newRow("true in small letters") << u"true"_s << true;
    QTest::newRow("FALSE in capitals") << u"FALSE"_s << false;
    QTest::newRow("blanks around") << u" True "_s << true;
    QTest::newRow("all bits set") << u"-1"_s << true;
    QTest::newRow("1") << u"1"_s << true;
    QTest::newRow("0") << u"0"_s << false;
    QTest::newRow("a fraction is not zero") << u"0.2"_s << true;
    QTest::newRow("a small fraction is not zero") << u"0.0001"_s << true;
    QTest::newRow("0.0 is zero") << u"0.0"_s << false;
}

void TstIntegerText::FlagsAreRead() {
    QFETCH(QString, text);
    QFETCH(bool, flag);
    QCOMPARE(FlagOf(text), flag);
    for (const QString& bad : {u""_s, u"yes"_s, u"Truee"_s, u"真"_s}) {
        QVERIFY_THROWS_EXCEPTION(TypeMismatchError, FlagOf(bad));
    }
}

void TstIntegerText::FlagsAreWrittenAsWords() {
    QCOMPARE(FlagText(true), u"True"_s);
    QCOMPARE(FlagText(false), u"False"_s);
}

QTEST_GUILESS_MAIN(TstIntegerText)
#include "tst_integer_text.moc"
