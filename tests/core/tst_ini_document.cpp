// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "core/ini_document.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// The settings file as bytes: unchanged parts are preserved exactly.
class TstIniDocument : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ValuesAreFound_data();
    void ValuesAreFound();
    void AbsentKeysGiveNothing_data();
    void AbsentKeysGiveNothing();
    void SettingChangesOnlyOneLine_data();
    void SettingChangesOnlyOneLine();
    void ATruncatedLineEndIsCompleted();
    void TextsSurviveTheirEscapes_data();
    void TextsSurviveTheirEscapes();
    void HandWrittenBackslashesAreTakenAsMeant();
    void RandomBytesSurviveUntouched();
    void RandomTextsSurviveInRandomBytes();
};

void TstIniDocument::ValuesAreFound_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("plain") << "[SetUp]\nKey=1\n"_ba
                           << "1"_ba;
    QTest::newRow("no line end at the end") << "[SetUp]\nKey=1"_ba
                                            << "1"_ba;
    QTest::newRow("CR LF line ends") << "[SetUp]\r\nKey=1\r\n"_ba
                                     << "1"_ba;
    QTest::newRow("blanks around the equals sign") << "  [ SetUp ]\n  Key = 1  \n"_ba
                                                   << "1"_ba;
    QTest::newRow("empty value") << "[SetUp]\nKey=\n"_ba
                                 << ""_ba;
    QTest::newRow("commas and semicolons are part of the value") << "[SetUp]\nKey=a,b;c # d\n"_ba
                                                                 << "a,b;c # d"_ba;
    QTest::newRow("so is an at sign") << "[SetUp]\nKey=@Invalid()\n"_ba
                                      << "@Invalid()"_ba;
    QTest::newRow("so is an equals sign") << "[SetUp]\nKey=a=b\n"_ba
                                          << "a=b"_ba;
    QTest::newRow("among comments and damage")
        << "rubbish\n[Other]\nKey=2\n# Key=3\n[SetUp]\n;Key=4\n=\nKey=1\n"_ba
        << "1"_ba;
    QTest::newRow("the first of two counts") << "[SetUp]\nKey=1\nKey=2\n"_ba
                                             << "1"_ba;
    QTest::newRow("a section in two pieces") << "[SetUp]\nA=0\n[Other]\n[SetUp]\nKey=1\n"_ba
                                             << "1"_ba;
    QTest::newRow("after a byte order mark") << "\xEF\xBB\xBF[SetUp]\nKey=1\n"_ba
                                             << "1"_ba;
    QTest::newRow("bytes that are no UTF-8") << "[SetUp]\nKey=\xFF\xFE\n"_ba
                                             << "\xFF\xFE"_ba;
}

void TstIniDocument::ValuesAreFound() {
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, value);
    const IniDocument document(file);
    QCOMPARE(document.Value(u"SetUp"_s, u"Key"_s), std::optional(value));
    QCOMPARE(document.Bytes(), file);
}

void TstIniDocument::AbsentKeysGiveNothing_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("empty file") << ""_ba;
    QTest::newRow("other section") << "[Digital]\nKey=1\n"_ba;
    QTest::newRow("no section") << "Key=1\n"_ba;
    QTest::newRow("comment") << "[SetUp]\n#Key=1\n;Key=1\n"_ba;
    QTest::newRow("other case") << "[SetUp]\nkey=1\n"_ba;
    QTest::newRow("no equals sign") << "[SetUp]\nKey\n"_ba;
    QTest::newRow("longer key") << "[SetUp]\nKey2=1\n"_ba;
    QTest::newRow("heading without end") << "[SetUp\nKey=1\n"_ba;
}

void TstIniDocument::AbsentKeysGiveNothing() {
    QFETCH(QByteArray, file);
    QCOMPARE(IniDocument(file).Value(u"SetUp"_s, u"Key"_s), std::nullopt);
}

void TstIniDocument::SettingChangesOnlyOneLine_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("empty file") << ""_ba
                                << "[SetUp]\nKey=new\n"_ba;
    QTest::newRow("in place") << "# mine\n[SetUp]\nA=1\nKey=old\nB=2\n"_ba
                              << "# mine\n[SetUp]\nA=1\nKey=new\nB=2\n"_ba;
    QTest::newRow("after the section's last key") << "[SetUp]\nA=1\n\n[Other]\nKey=x\n"_ba
                                                  << "[SetUp]\nA=1\nKey=new\n\n[Other]\nKey=x\n"_ba;
    QTest::newRow("section missing") << "[Other]\nKey=x\n"_ba
                                     << "[Other]\nKey=x\n[SetUp]\nKey=new\n"_ba;
    QTest::newRow("no line end at the end") << "[SetUp]\nA=1"_ba
                                            << "[SetUp]\nA=1\nKey=new\n"_ba;
    QTest::newRow("CR LF line ends") << "[SetUp]\r\nA=1\r\n"_ba
                                     << "[SetUp]\r\nA=1\r\nKey=new\r\n"_ba;
    QTest::newRow("an equal value keeps its formatting") << "[SetUp]\nKey  =  new\n"_ba
                                                         << "[SetUp]\nKey  =  new\n"_ba;
    QTest::newRow("only the first of two") << "[SetUp]\nKey=1\nKey=2\n"_ba
                                           << "[SetUp]\nKey=new\nKey=2\n"_ba;
    QTest::newRow("empty section") << "[SetUp]\n[Other]\n"_ba
                                   << "[SetUp]\nKey=new\n[Other]\n"_ba;
    QTest::newRow("damaged bytes around") << "\xFF\0\n[SetUp]\nZ\xFE\n"_ba
                                          << "\xFF\0\n[SetUp]\nZ\xFE\nKey=new\n"_ba;
}

void TstIniDocument::SettingChangesOnlyOneLine() {
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    IniDocument document(before);
    document.SetValue(u"SetUp"_s, u"Key"_s, u"new"_s);
    QCOMPARE(document.Bytes(), after);
    QCOMPARE(document.Value(u"SetUp"_s, u"Key"_s), std::optional("new"_ba));
}

/// Found by the fuzzer: the carriage return became part of the value.
void TstIniDocument::ATruncatedLineEndIsCompleted() {
    IniDocument document("[SetUp]\r\nA=1\r");
    document.SetValue(u"SetUp"_s, u"B"_s, u"2"_s);
    QCOMPARE(document.Bytes(), "[SetUp]\r\nA=1\r\nB=2\r\n"_ba);
    QCOMPARE(IniDocument(document.Bytes()).Value(u"SetUp"_s, u"A"_s), "1"_ba);
}

void TstIniDocument::TextsSurviveTheirEscapes_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("plain") << u"abc"_s << "abc"_ba;
    QTest::newRow("full-width letters and an inner blank")
        << u"ＭＳ Ｐゴシック"_s << u"ＭＳ Ｐゴシック"_s.toUtf8();
    QTest::newRow("outer blanks") << u" a b "_s << "\\sa b\\s"_ba;
    QTest::newRow("one blank") << u" "_s << "\\s"_ba;
    QTest::newRow("outer tabs") << u"\ta\t"_s << "\\ta\\t"_ba;
    QTest::newRow("line breaks") << u"a\r\nb"_s << "a\\r\\nb"_ba;
    QTest::newRow("backslash") << u"C:\\new"_s << "C:\\\\new"_ba;
    QTest::newRow("NUL") << u"a\0b"_s << "a\\0b"_ba;
    QTest::newRow("half-width kana") << u"ﾃﾞｼﾞﾀﾙ"_s << u"ﾃﾞｼﾞﾀﾙ"_s.toUtf8();
    QTest::newRow("empty") << u""_s << ""_ba;
}

void TstIniDocument::TextsSurviveTheirEscapes() {
    QFETCH(QString, text);
    QFETCH(QByteArray, stored);
    QCOMPARE(EscapedValue(text), stored);
    QCOMPARE(UnescapedValue(stored), text.toUtf8());
}

void TstIniDocument::HandWrittenBackslashesAreTakenAsMeant() {
    QCOMPARE(UnescapedValue("D:\\Fonts\\x"_ba), "D:\\Fonts\\x"_ba);
    QCOMPARE(UnescapedValue("end\\"_ba), "end\\"_ba);
}

void TstIniDocument::RandomBytesSurviveUntouched() {
    QRandomGenerator random(20261120);
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes(random.bounded(200), Qt::Uninitialized);
        for (char& byte : bytes) {
            byte = static_cast<char>(random.bounded(256));
        }
        QCOMPARE(IniDocument(bytes).Bytes(), bytes);
    }
}

void TstIniDocument::RandomTextsSurviveInRandomBytes() {
    QRandomGenerator random(19981003);
    const QByteArray alphabet = "[]=#;\\ \t\r\nSetUpKey01\xE3\x81\x82";
    for (int round = 0; round < 5000; ++round) {
        QByteArray bytes;
        for (int i = random.bounded(60); i > 0; --i) {
            bytes += alphabet[random.bounded(alphabet.size())];
        }
        QString text;
        for (int i = random.bounded(6); i > 0; --i) {
            text += QStringLiteral(" \t\r\n\\=[あsn0")[random.bounded(11)];
        }
        IniDocument document(bytes);
        document.SetValue(u"SetUp"_s, u"Key"_s, text);
        QCOMPARE(IniDocument(document.Bytes()).Value(u"SetUp"_s, u"Key"_s), std::optional(text.toUtf8()));
    }
}

QTEST_GUILESS_MAIN(TstIniDocument)
#include "tst_ini_document.moc"
