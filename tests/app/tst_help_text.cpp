// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRegularExpression>
#include <QTest>

#include "app/option_table.h"
#include "app/options.h"

using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

constexpr int kTerminalWidth = 80;

/// The variables that choose the language of messages.
struct Locale {
    QByteArray language{};
    QByteArray all{};
    QByteArray messages{};
    QByteArray lang{};
};

/// The width in terminal columns: kana, kanji and full-width signs take two.
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
    for (const QString& option :
         {u"--folder <dir>"_s, u"--disc <file>"_s, u"--menu"_s, u"--open <window>"_s, u"--today"_s,
          u"--days <from> <to>"_s, u"--export <file>"_s, u"--import <file>"_s, u"--dry-run"_s,
          u"--show <what>"_s, u"--stopwatch <what>"_s, u"--timer <time>"_s, u"-h, --help"_s,
          u"-v, --version"_s}) {
        QVERIFY2(text.contains(u"\n  " + option + u"  "), qPrintable(option));
    }
    QCOMPARE(text.count(QRegularExpression(u"^  -"_s, QRegularExpression::MultilineOption)), 14);
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
    QTest::addColumn<Locale>("locale");
    QTest::addColumn<bool>("isJapanese");
    const auto row = [](const char* name, const Locale& locale, bool isJapanese) {
        QTest::newRow(name) << locale << isJapanese;
    };
    row("nothing", {}, false);
    row("Japanese", {.lang = "ja_JP.UTF-8"}, true);
    row("in another encoding", {.lang = "ja_JP.eucJP"}, true);
    row("without a country", {.lang = "ja"}, true);
    row("English", {.lang = "en_US.UTF-8"}, false);
    row("a language that begins alike", {.lang = "jam_JM"}, false);
    row("only messages", {.messages = "ja_JP.UTF-8", .lang = "de_DE.UTF-8"}, true);
    row("all but messages", {.messages = "en_US.UTF-8", .lang = "ja_JP.UTF-8"}, false);
    row("everything", {.all = "ja_JP.UTF-8", .messages = "en_US.UTF-8", .lang = "C"}, true);
    row("nothing at all", {.all = "C", .messages = "ja_JP.UTF-8", .lang = "ja_JP.UTF-8"}, false);
    row("the preferred one", {.language = "ja:en", .lang = "en_US.UTF-8"}, true);
    row("the second choice", {.language = "en:ja", .lang = "ja_JP.UTF-8"}, false);
    row("none to prefer", {.language = "ja", .all = "C", .lang = "ja_JP.UTF-8"}, false);
    row("none, by its other name", {.language = "ja", .lang = "POSIX"}, false);
}

void TstHelpText::ItsLanguageIsTheUsers() {
    QFETCH(Locale, locale);
    QFETCH(bool, isJapanese);
    QVERIFY(qputenv("LANGUAGE", locale.language) && qputenv("LC_ALL", locale.all));
    QVERIFY(qputenv("LC_MESSAGES", locale.messages) && qputenv("LANG", locale.lang));
    QCOMPARE(WantsJapanese(), isJapanese);
    QCOMPARE(OptionsOf({u"tickwell"_s, u"--help"_s}).answer, HelpText(isJapanese));
}

QTEST_GUILESS_MAIN(TstHelpText)
#include "tst_help_text.moc"
