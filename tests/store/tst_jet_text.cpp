// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCryptographicHash>
#include <QTest>
#include <limits>

#include "store/jet/jet_error.h"
#include "store/jet/jet_text.h"
#include "store/jet/jet_values.h"
#include "store/jet_samples.h"

using namespace tickwell;
using namespace tickwell::store;
using namespace Qt::StringLiterals;

namespace {

template <typename Number>
QByteArray BytesOf(Number value) {
    const Number swapped = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char*>(&swapped), sizeof(swapped));
}

/// The reason of the JetError that `body` throws; empty if it throws none.
template <typename Body>
QString ReasonOf(Body body) {
    try {
        body();
        return QString();
    } catch (const JetError& error) {
        return error.Reason();
    }
}

}  // namespace

/// Single values of a Jet file: texts, numbers, dates.
class TstJetText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryPairOfShiftJisBytesDecodesAsByMicrosoft();
    void ACodePageDecodes_data();
    void ACodePageDecodes();
    void AnUnknownCodePageIsRefused();
    void AColumnsOwnCodePageIsUsed();
    void Jet4TextDecodes_data();
    void Jet4TextDecodes();
    void HalfACharacterIsDamage();
    void NumbersOfEveryTypeAreRead_data();
    void NumbersOfEveryTypeAreRead();
    void ANumberThatIsNoIntegerIsRefused_data();
    void ANumberThatIsNoIntegerIsRefused();
    void DaysAreDates_data();
    void DaysAreDates();
    void ADayOutsideTheCalendarIsDamage_data();
    void ADayOutsideTheCalendarIsDamage();
    void AReadPastTheEndIsDamage();
};

// The digest of the lines "8140 3000\n" to "FC4B 9ED1\n" for all pairs of bytes that decode to one character,
// computed with another implementation of Microsoft's table: Python's cp932 codec.
void TstJetText::EveryPairOfShiftJisBytesDecodesAsByMicrosoft() {
    const CodePage shiftJis(932);
    QByteArray lines;
    int count = 0;
    for (int pair = 0; pair <= 0xFFFF; ++pair) {
        const QByteArray bytes = QByteArray(1, static_cast<char>(pair >> 8)) + static_cast<char>(pair & 0xFF);
        const QString text = shiftJis.Decode(bytes);
        if (text.size() == 1 && text != QChar(QChar::ReplacementCharacter)) {
            ++count;
            lines += u"%1 %2\n"_s.arg(pair, 4, 16, QChar(u'0'))
                         .arg(text.at(0).unicode(), 4, 16, QChar(u'0'))
                         .toUtf8()
                         .toUpper();
        }
    }
    QCOMPARE(count, 9604);
    QCOMPARE(QCryptographicHash::hash(lines, QCryptographicHash::Sha256).toHex(),
             "b9c1091f5925d61391623f8a77e4c66c3f7c98375f9439700c5a8119686976cf"_ba);
}

void TstJetText::ACodePageDecodes_data() {
    QTest::addColumn<int>("codePage");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 932 << ""_ba << u""_s;
    QTest::newRow("backslash and tilde stay") << 932 << R"(\~)"_ba << uR"(\~)"_s;
    QTest::newRow("kanji with a backslash as second byte") << 932 << "\x95\x5C\x8E\xA6"_ba << u"表示"_s;
    QTest::newRow("half-width kana") << 932 << "\xC8\xBA"_ba << u"ﾈｺ"_s;
    QTest::newRow("wave dash and minus as Windows has them") << 932 << "\x81\x60\x81\x7C"_ba << u"～－"_s;
    QTest::newRow("NEC and IBM characters") << 932 << "\x87\x40\xEE\xE0\xED\x95"_ba << u"①髙﨑"_s;
    QTest::newRow("a private character") << 932 << "\xF0\x40"_ba << u"\uE000"_s;
    QTest::newRow("single bytes that only Windows knows")
        << 932 << "\x80\xA0\xFD\xFE\xFF"_ba << u"\u0080\uF8F0\uF8F1\uF8F2\uF8F3"_s;
    QTest::newRow("a lead byte at the end") << 932 << "A\x95"_ba << u"A\uFFFD"_s;
    QTest::newRow("a lead byte without a valid trail byte") << 932 << "\x95\x20Z"_ba << u"\uFFFD Z"_s;
    QTest::newRow("a NUL inside") << 932 << QByteArray("a\0b", 3) << u"a\0b"_s;
    QTest::newRow("western") << 1252 << "caf\xE9 \x92\x80"_ba << u"café ’€"_s;
    QTest::newRow("western, bytes without a character") << 1252 << "\x81\x9D"_ba << u"\u0081\u009D"_s;
    QTest::newRow("cyrillic") << 1251 << "\xC4\xE0"_ba << u"Да"_s;
    QTest::newRow("korean") << 949 << "\xB0\xA1"_ba << u"가"_s;
}

void TstJetText::ACodePageDecodes() {
    QFETCH(int, codePage);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(CodePage(static_cast<quint16>(codePage)).Decode(bytes), text);
}

void TstJetText::AnUnknownCodePageIsRefused() {
    QVERIFY(!CodePage::IsKnown(9999));
    QVERIFY(CodePage::IsKnown(932));
    QCOMPARE(ReasonOf([] { const CodePage unknown(9999); }),
             u"対応していない文字コード 9999 のデータベースです。"_s);
}

void TstJetText::AColumnsOwnCodePageIsUsed() {
    const JetPages pages(JetSample(u"jet3_empty.mdb"_s));  // code page 932
    const ByteView bytes(QByteArrayView("\xC8"));
    QCOMPARE(JetText(pages).Decode(bytes), u"ﾈ"_s);
    QCOMPARE(JetText(pages, 1252).Decode(bytes), u"È"_s);
    QCOMPARE(JetText(pages, 9999).Decode(bytes), u"ﾈ"_s);
}

void TstJetText::Jet4TextDecodes_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << ""_ba << u""_s;
    QTest::newRow("two bytes a character") << QByteArray("\xE5\x65\x41\0", 4) << u"日A"_s;
    QTest::newRow("a surrogate pair") << "\x3C\xD8\x82\xDF"_ba << u"🎂"_s;
    QTest::newRow("the first half of a pair without the second")
        << QByteArray("\x3C\xD8\x41\0", 4) << u"\uFFFDA"_s;
    QTest::newRow("the second half of a pair without the first")
        << QByteArray("\x41\0\x82\xDF", 4) << u"A\uFFFD"_s;
    QTest::newRow("the first half at the end") << "\x3C\xD8"_ba << u"\uFFFD"_s;
    QTest::newRow("compressed") << "\xFF\xFE"
                                   "abc"_ba
                                << u"abc"_s;
    QTest::newRow("compressed, of the upper Latin half") << "\xFF\xFE\xE9"_ba << u"é"_s;
    QTest::newRow("compressed, nothing") << "\xFF\xFE"_ba << u""_s;
    QTest::newRow("compressed, then two bytes") << QByteArray(
                                                       "\xFF\xFE"
                                                       "a\0\xE5\x65",
                                                       6)
                                                << u"a日"_s;
    QTest::newRow("compressed, off and on again") << QByteArray(
                                                         "\xFF\xFE"
                                                         "a\0\xE5\x65\0b",
                                                         8)
                                                  << u"a日b"_s;
}

void TstJetText::Jet4TextDecodes() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(JetText(JetPages(JetSample(u"jet4_empty.mdb"_s))).Decode(ByteView(bytes)), text);
}

void TstJetText::HalfACharacterIsDamage() {
    const JetText text(JetPages(JetSample(u"jet4_empty.mdb"_s)));
    const QByteArray uneven = "\xE5\x65\x41"_ba;
    const QByteArray unevenBehindCompressed(
        "\xFF\xFE"
        "a\0\xE5",
        5);
    QVERIFY_THROWS_EXCEPTION(JetDamageError, text.Decode(ByteView(uneven)));
    QVERIFY_THROWS_EXCEPTION(JetDamageError, text.Decode(ByteView(unevenBehindCompressed)));
}

void TstJetText::NumbersOfEveryTypeAreRead_data() {
    QTest::addColumn<JetType>("type");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qint32>("number");
    QTest::newRow("byte") << JetType::Byte << "\xFF"_ba << 255;
    QTest::newRow("16 bits") << JetType::Int16 << BytesOf<qint16>(-32768) << -32768;
    QTest::newRow("32 bits") << JetType::Int32 << BytesOf<qint32>(-2147483647 - 1) << -2147483647 - 1;
    QTest::newRow("single") << JetType::Single << BytesOf(1998.0F) << 1998;
    QTest::newRow("double") << JetType::Double << BytesOf(2147483647.0) << 2147483647;
    QTest::newRow("negative double") << JetType::Double << BytesOf(-2147483648.0) << -2147483647 - 1;
}

void TstJetText::NumbersOfEveryTypeAreRead() {
    QFETCH(JetType, type);
    QFETCH(QByteArray, bytes);
    QFETCH(qint32, number);
    QVERIFY(IsNumber(type));
    QCOMPARE(JetInteger(type, ByteView(bytes)), number);
}

void TstJetText::ANumberThatIsNoIntegerIsRefused_data() {
    QTest::addColumn<JetType>("type");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a fraction") << JetType::Double << BytesOf(0.5);
    QTest::newRow("a single fraction") << JetType::Single << BytesOf(-1.25F);
    QTest::newRow("one too much") << JetType::Double << BytesOf(2147483648.0);
    QTest::newRow("one too little") << JetType::Double << BytesOf(-2147483649.0);
    QTest::newRow("infinity") << JetType::Single << BytesOf(std::numeric_limits<float>::infinity());
    QTest::newRow("no number") << JetType::Double << BytesOf(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("a date") << JetType::Date << BytesOf(1.0);
    QTest::newRow("a text") << JetType::Text << "1"_ba;
}

void TstJetText::ANumberThatIsNoIntegerIsRefused() {
    QFETCH(JetType, type);
    QFETCH(QByteArray, bytes);
    QCOMPARE(ReasonOf([&] { JetInteger(type, ByteView(bytes)); }), u"整数でない値があります。"_s);
}

void TstJetText::DaysAreDates_data() {
    QTest::addColumn<double>("days");
    QTest::addColumn<QDate>("date");
    QTest::newRow("day 0") << 0.0 << QDate(1899, 12, 30);
    QTest::newRow("minus zero") << -0.0 << QDate(1899, 12, 30);
    QTest::newRow("a time of day on day 0") << 0.99 << QDate(1899, 12, 30);
    QTest::newRow("the same, written with a minus") << -0.99 << QDate(1899, 12, 30);
    QTest::newRow("six o'clock before day 0") << -1.25 << QDate(1899, 12, 29);
    QTest::newRow("a leap day") << 36585.5 << QDate(2000, 2, 29);
    QTest::newRow("the first day") << -657434.0 << QDate(100, 1, 1);
    QTest::newRow("the evening of the first day") << -657434.9 << QDate(100, 1, 1);
    QTest::newRow("the evening of the last day") << 2958465.9 << QDate(9999, 12, 31);
}

void TstJetText::DaysAreDates() {
    QFETCH(double, days);
    QFETCH(QDate, date);
    const QByteArray bytes = BytesOf(days);
    QCOMPARE(JetDate(ByteView(bytes)), date);
}

void TstJetText::ADayOutsideTheCalendarIsDamage_data() {
    QTest::addColumn<double>("days");
    QTest::newRow("before the first") << -657435.0;
    QTest::newRow("after the last") << 2958466.0;
    QTest::newRow("far away") << 1e300;
    QTest::newRow("infinity") << -std::numeric_limits<double>::infinity();
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
}

void TstJetText::ADayOutsideTheCalendarIsDamage() {
    QFETCH(double, days);
    const QByteArray bytes = BytesOf(days);
    QVERIFY_THROWS_EXCEPTION(JetDamageError, JetDate(ByteView(bytes)));
}

void TstJetText::AReadPastTheEndIsDamage() {
    constexpr qsizetype kFar = std::numeric_limits<qsizetype>::max();
    const ByteView view(QByteArrayView("12345678"));
    QCOMPARE(view.U32(4), 0x38373635U);
    QCOMPARE(view.Slice(8, 0).Size(), 0);
    for (const qsizetype at : {qsizetype{-1}, qsizetype{5}, qsizetype{8}, kFar}) {
        QVERIFY_THROWS_EXCEPTION(JetDamageError, view.U32(at));
    }
    QVERIFY_THROWS_EXCEPTION(JetDamageError, view.Slice(1, 8));
    QVERIFY_THROWS_EXCEPTION(JetDamageError, view.Slice(1, kFar));
    QVERIFY_THROWS_EXCEPTION(JetDamageError, view.Slice(9, 0));
    QVERIFY_THROWS_EXCEPTION(JetDamageError, view.Slice(0, -1));
    QVERIFY_THROWS_EXCEPTION(JetDamageError, ByteView().U8(0));
}

QTEST_GUILESS_MAIN(TstJetText)
#include "tst_jet_text.moc"
