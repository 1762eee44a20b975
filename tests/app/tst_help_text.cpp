// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRegularExpression>
#include <QTest>

#include "app/option_table.h"
#include "app/options.h"

using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

constexpr int kTerminalWidth = 80;

/// Columns of a terminal: kana, kanji and full-width signs take two.
int WidthOf(const QString& line) {
    int width = 0;
    for (const QChar each : line) {
        width += each.unicode() >= 0x2E80 ? 2 : 1;
    }
    return width;
}

}  // namespace

/// What --help prints, in two languages.
class TstHelpText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void ItNamesTheProgramAndItsOptions_data();
    void ItNamesTheProgramAndItsOptions();
    void ItFitsATerminal_data();
    void ItFitsATerminal();
    void ItsLanguageIsTheUsers_data();
    void ItsLanguageIsTheUsers();
};

void TstHelpText::cleanup() {
    for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        qunsetenv(variable);
    }
}

void TstHelpText::ItNamesTheProgramAndItsOptions_data() {
    QTest::addColumn<bool>("inJapanese");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("English") << false << u"Usage: tickwell [options]\nA clock that stays on the desktop.\n"_s;
    QTest::newRow("Japanese") << true
                              << u"使い方: tickwell [オプション]\nいつも画面の手前にある小さな時計\n"_s;
}

void TstHelpText::ItNamesTheProgramAndItsOptions() {
    QFETCH(bool, inJapanese);
    QFETCH(QString, beginning);
    const QString text = HelpText(inJapanese);
    QVERIFY(text.startsWith(beginning));
    QVERIFY(text.endsWith(u'\n'));
    for (const QString& option : {u"--folder <dir>"_s, u"--disc <file>"_s, u"--menu"_s, u"--today"_s,
                                  u"--days <from> <to>"_s, u"-h, --help"_s, u"-v, --version"_s}) {
        QVERIFY2(text.contains(u"\n  " + option + u"  "), qPrintable(option));
    }
    QCOMPARE(text.count(QRegularExpression(u"^  -"_s, QRegularExpression::MultilineOption)), 7);
}

void TstHelpText::ItFitsATerminal_data() {
    QTest::addColumn<bool>("inJapanese");
    QTest::newRow("English") << false;
    QTest::newRow("Japanese") << true;
}

void TstHelpText::ItFitsATerminal() {
    QFETCH(bool, inJapanese);
    for (const QString& line : HelpText(inJapanese).split(u'\n')) {
        QVERIFY2(WidthOf(line) <= kTerminalWidth, qPrintable(line));
        QVERIFY2(!line.endsWith(u' '), qPrintable(line));
    }
}

void TstHelpText::ItsLanguageIsTheUsers_data() {
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<QByteArray>("all");
    QTest::addColumn<QByteArray>("messages");
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<bool>("isJapanese");
    QTest::newRow("nothing") << ""_ba
                             << ""_ba
                             << ""_ba
                             << ""_ba << false;
    QTest::newRow("Japanese") << ""_ba
                              << ""_ba
                              << ""_ba
                              << "ja_JP.UTF-8"_ba << true;
    QTest::newRow("in another encoding") << ""_ba
                                         << ""_ba
                                         << ""_ba
                                         << "ja_JP.eucJP"_ba << true;
    QTest::newRow("without a country") << ""_ba
                                       << ""_ba
                                       << ""_ba
                                       << "ja"_ba << true;
    QTest::newRow("English") << ""_ba
                             << ""_ba
                             << ""_ba
                             << "en_US.UTF-8"_ba << false;
    QTest::newRow("a language that begins alike") << ""_ba
                                                  << ""_ba
                                                  << ""_ba
                                                  << "jam_JM"_ba << false;
    QTest::newRow("messages alone") << ""_ba
                                    << ""_ba
                                    << "ja_JP.UTF-8"_ba
                                    << "de_DE.UTF-8"_ba << true;
    QTest::newRow("all but messages") << ""_ba
                                      << ""_ba
                                      << "en_US.UTF-8"_ba
                                      << "ja_JP.UTF-8"_ba << false;
    QTest::newRow("everything") << ""_ba
                                << "ja_JP.UTF-8"_ba
                                << "en_US.UTF-8"_ba
                                << "C"_ba << true;
    QTest::newRow("nothing at all") << ""_ba
                                    << "C"_ba
                                    << "ja_JP.UTF-8"_ba
                                    << "ja_JP.UTF-8"_ba << false;
    QTest::newRow("the preferred one") << "ja:en"_ba
                                       << ""_ba
                                       << ""_ba
                                       << "en_US.UTF-8"_ba << true;
    QTest::newRow("the second choice") << "en:ja"_ba
                                       << ""_ba
                                       << ""_ba
                                       << "ja_JP.UTF-8"_ba << false;
    QTest::newRow("none to prefer") << "ja"_ba
                                    << "C"_ba
                                    << ""_ba
                                    << "ja_JP.UTF-8"_ba << false;
    QTest::newRow("none, by its other name") << "ja"_ba
                                             << ""_ba
                                             << ""_ba
                                             << "POSIX"_ba << false;
}

void TstHelpText::ItsLanguageIsTheUsers() {
    QFETCH(QByteArray, language);
    QFETCH(QByteArray, all);
    QFETCH(QByteArray, messages);
    QFETCH(QByteArray, lang);
    QFETCH(bool, isJapanese);
    QVERIFY(qputenv("LANGUAGE", language) && qputenv("LC_ALL", all));
    QVERIFY(qputenv("LC_MESSAGES", messages) && qputenv("LANG", lang));
    QCOMPARE(WantsJapanese(), isJapanese);
    QCOMPARE(OptionsOf({u"tickwell"_s, u"--help"_s}).answer, HelpText(isJapanese));
}

QTEST_GUILESS_MAIN(TstHelpText)
#include "tst_help_text.moc"
