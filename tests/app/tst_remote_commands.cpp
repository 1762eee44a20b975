// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/remote_commands.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;
using platform::CommandAnswer;

namespace {

CommandAnswer Refused(const QString& name, const QString& text) {
    return {.kind = CommandAnswer::Kind::Refused, .value = {}, .errorName = name, .errorText = text};
}

}  // namespace

/// What a command prints and returns to the shell.
class TstRemoteCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnAnswerIsPrinted();
    void NobodyIsThree();
    void ARefusalIsOneSentence_data();
    void ARefusalIsOneSentence();
    void WrongOptionsAreTwo();
};

void TstRemoteCommands::AnAnswerIsPrinted() {
    CommandAnswer answer{
        .kind = CommandAnswer::Kind::Done, .value = 61'234, .errorName = {}, .errorText = {}};
    CommandOutcome outcome = OutcomeOf(answer, true);
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.output, u"61234"_s);
    QCOMPARE(outcome.error, QString());
    answer.value = {};
    outcome = OutcomeOf(answer, true);
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.output, QString());
}

void TstRemoteCommands::NobodyIsThree() {
    for (const bool inJapanese : {true, false}) {
        const CommandOutcome outcome = OutcomeOf({}, inJapanese);
        QCOMPARE(outcome.exitCode, 3);
        QCOMPARE(outcome.output, QString());
        QCOMPARE(outcome.error,
                 inJapanese
                     ? u"操作を受ける時計が動いていません（環境設定の「連携」で受けるようにできます）。"_s
                     : u"no running clock accepts commands (page 連携 of its settings)"_s);
    }
}

void TstRemoteCommands::ARefusalIsOneSentence_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("japanese");
    QTest::newRow("ours") << u"local.tickwell.tickwell.Error.StopwatchIsStopped"_s << u"?"_s
                          << u"The stopwatch is stopped; start, reset and read are possible."_s
                          << u"ストップウォッチは止まっています。start、reset、read ができます。"_s;
    QTest::newRow("no answer") << u"org.freedesktop.DBus.Error.NoReply"_s << u"Method call timed out"_s
                               << u"The clock does not answer."_s << u"時計が応答しません。"_s;
    QTest::newRow("another") << u"a.b"_s << u"some\nlines"_s << u"some lines"_s << u"some lines"_s;
    QTest::newRow("without a text") << u"a.b"_s << u""_s << u"a.b"_s << u"a.b"_s;
}

void TstRemoteCommands::ARefusalIsOneSentence() {
    QFETCH(const QString, name);
    QFETCH(const QString, text);
    QTEST(OutcomeOf(Refused(name, text), false).error, "english");
    QTEST(OutcomeOf(Refused(name, text), true).error, "japanese");
    QCOMPARE(OutcomeOf(Refused(name, text), true).exitCode, 1);
}

void TstRemoteCommands::WrongOptionsAreTwo() {
    QCOMPARE(RunRemoteCommand(OptionsOf({u"tickwell"_s, u"--timer"_s, u"x"_s})), 2);
}

QTEST_GUILESS_MAIN(TstRemoteCommands)
#include "tst_remote_commands.moc"
