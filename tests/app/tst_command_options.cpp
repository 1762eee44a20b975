// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/options.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// The options that send a command to the running program.
class TstCommandOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CommandsAreTaken_data();
    void CommandsAreTaken();
    void MistakesAreNamed_data();
    void MistakesAreNamed();
    void OtherOptionsSendNothing();
};

void TstCommandOptions::CommandsAreTaken_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("values");
    const auto row = [](const QStringList& arguments, const QString& method, const QVariantList& values) {
        QTest::newRow(qPrintable(arguments.join(u' '))) << arguments << method << values;
    };
    row({u"--show"_s, u"memory"_s}, u"Show"_s, {u"memory"_s});
    row({u"--show=5"_s}, u"Show"_s, {u"5"_s});
    row({u"--stopwatch"_s, u"lap"_s}, u"Stopwatch"_s, {u"lap"_s});
    row({u"--timer"_s, u"5m30s"_s}, u"Timer"_s, {330'000, u""_s});
    row({u"--timer"_s, u"5m30s"_s, u"茹で 卵"_s}, u"Timer"_s, {330'000, u"茹で 卵"_s});
    row({u"--folder"_s, u"/x"_s, u"--timer=1h"_s, u"egg"_s}, u"Timer"_s, {3'600'000, u"egg"_s});
    row({u"--timer"_s, u"1s"_s, u"--"_s, u"--menu"_s}, u"Timer"_s, {1000, u"--menu"_s});
}

void TstCommandOptions::CommandsAreTaken() {
    QFETCH(const QStringList, arguments);
    const Options options = OptionsOf(QStringList{u"tickwell"_s} + arguments);
    QCOMPARE(options.error, QString());
    QVERIFY(options.command && options.sendsCommand && options.needsNoWindow);
    QTEST(options.command->method, "method");
    QTEST(options.command->arguments, "values");
}

void TstCommandOptions::MistakesAreNamed_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    const auto row = [](const QStringList& arguments, const QString& named) {
        QTest::newRow(qPrintable(arguments.join(u' '))) << arguments << named;
    };
    row({u"--show"_s}, u"show"_s);
    row({u"--show"_s, u"7"_s}, u"memory (5), cd (6)"_s);
    row({u"--show"_s, u"clock"_s, u"now"_s}, u"unexpected argument: now"_s);
    row({u"--stopwatch"_s, u"pause"_s}, u"start, stop, lap, reset, read"_s);
    row({u"--timer"_s}, u"timer"_s);
    row({u"--timer"_s, u"5"_s}, u"\"5\" is not a time such as 5m30s"_s);
    row({u"--timer"_s, u"24h"_s}, u"1 second to 23 hours 59 minutes 59 seconds"_s);
    row({u"--timer"_s, u"5s"_s, u"a"_s, u"b"_s}, u"unexpected argument: b"_s);
    row({u"--timer"_s, u"5s"_s, u"a\nb"_s}, u"at most 200 characters without control characters"_s);
    row({u"--timer"_s, u"5s"_s, QString(201, u'x')}, u"at most 200 characters"_s);
    row({u"--show"_s, u"clock"_s, u"--menu"_s}, u"--menu cannot be combined with --show"_s);
    row({u"--show"_s, u"clock"_s, u"--timer"_s, u"5s"_s}, u"--show cannot be combined with --timer"_s);
    row({u"--today"_s, u"--stopwatch"_s, u"read"_s}, u"--today cannot be combined with --stopwatch"_s);
}

void TstCommandOptions::MistakesAreNamed() {
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, named);
    const Options options = OptionsOf(QStringList{u"tickwell"_s} + arguments);
    QVERIFY2(options.error.contains(named), qPrintable(options.error));
    QVERIFY(!options.command);
    if (arguments.size() > 1) {
        QVERIFY(options.needsNoWindow);  // the error goes to standard error, which needs no display
    }
}

void TstCommandOptions::OtherOptionsSendNothing() {
    for (const QString& argument : {u"--menu"_s, u"--today"_s, u"--folder=/x"_s}) {
        const Options options = OptionsOf({u"tickwell"_s, argument});
        QVERIFY(!options.command && !options.sendsCommand);
    }
}

QTEST_GUILESS_MAIN(TstCommandOptions)
#include "tst_command_options.moc"
