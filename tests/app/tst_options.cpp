// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QTest>

#include "app/options.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// The command line.
class TstOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingIsFine();
    void TheFolderIsTaken();
    void TheDiscIsTaken_data();
    void TheDiscIsTaken();
    void TheMenuOptionIsTaken();
    void HelpAndVersionAreAnswered();
    void MistakesAreNamed_data();
    void MistakesAreNamed();
    void VirtualTimeIsTaken();
};

void TstOptions::NothingIsFine() {
    const Options options = OptionsOf({u"tickwell"_s});
    QCOMPARE(options.folder, QString());
    QCOMPARE(options.answer, QString());
    QCOMPARE(options.error, QString());
    QVERIFY(!options.virtualTime);
}

void TstOptions::TheFolderIsTaken() {
    QCOMPARE(OptionsOf({u"tickwell"_s, u"--folder"_s, u"/a b/c"_s}).folder, u"/a b/c"_s);
    QCOMPARE(OptionsOf({u"tickwell"_s, u"--folder=rel"_s}).folder, u"rel"_s);
}

void TstOptions::TheDiscIsTaken_data() {
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("environment");
    QTest::addColumn<QString>("disc");
    const QString here = QDir::currentPath();
    QTest::newRow("none") << u""_s << u""_s << u""_s;
    QTest::newRow("argument") << u"--disc=/a b.cue"_s << u""_s << u"/a b.cue"_s;
    QTest::newRow("environment") << u""_s << u"/dev/sr1"_s << u"/dev/sr1"_s;
    QTest::newRow("the argument first") << u"--disc=/a.cue"_s << u"/dev/sr1"_s << u"/a.cue"_s;
    QTest::newRow("an argument from here") << u"--disc=a.cue"_s << u""_s << here + u"/a.cue"_s;
    QTest::newRow("an environment from here") << u""_s << u"discs/a.nrg"_s << here + u"/discs/a.nrg"_s;
}

void TstOptions::TheDiscIsTaken() {
    QFETCH(QString, argument);
    QFETCH(QString, environment);
    QVERIFY(qputenv("TICKWELL_CD", environment.toUtf8()));
    const QStringList arguments = argument.isEmpty() ? QStringList() : QStringList{argument};
    const QString disc = OptionsOf(QStringList{u"tickwell"_s} + arguments).disc;
    QVERIFY(qunsetenv("TICKWELL_CD"));
    QTEST(disc, "disc");
}

void TstOptions::TheMenuOptionIsTaken() {
    QVERIFY(OptionsOf({u"tickwell"_s}).request == Request::ComeForward);
    QVERIFY(OptionsOf({u"tickwell"_s, u"--menu"_s}).request == Request::Menu);
}

void TstOptions::HelpAndVersionAreAnswered() {
    QCOMPARE(OptionsOf({u"tickwell"_s, u"--version"_s}).answer, u"Tickwell 2.0.0\n"_s);
    const QString help = OptionsOf({u"tickwell"_s, u"--help"_s}).answer;
    QVERIFY(help.contains(u"--folder <dir>"_s));
    QVERIFY(!help.contains(u"virtual"_s));  // it is for developers only
}

void TstOptions::MistakesAreNamed_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << QStringList{u"--loud"_s} << u"loud"_s;
    QTest::newRow("a word") << QStringList{u"now"_s} << u"now"_s;
    QTest::newRow("folder without a name") << QStringList{u"--folder"_s} << u"folder"_s;
    QTest::newRow("virtual time without its parts")
        << QStringList{u"--virtual-time=3"_s} << u"--virtual-time"_s;
    QTest::newRow("virtual time on standard output")
        << QStringList{u"--virtual-time=0,1,1998-10-03T00:00:00,0"_s} << u"--virtual-time"_s;
    QTest::newRow("virtual time without a time")
        << QStringList{u"--virtual-time=3,4,now,0"_s} << u"--virtual-time"_s;
}

void TstOptions::MistakesAreNamed() {
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const Options options = OptionsOf(QStringList{u"tickwell"_s} + arguments);
    QVERIFY2(options.error.contains(named), qPrintable(options.error));
}

void TstOptions::VirtualTimeIsTaken() {
    const auto option =
        OptionsOf({u"tickwell"_s, u"--virtual-time=5,6,1998-10-03T23:59:57,-12"_s}).virtualTime;
    QVERIFY(option.has_value());
    QCOMPARE(option->readFrom, 5);
    QCOMPARE(option->writeTo, 6);
    QCOMPARE(option->wall, QDateTime(QDate(1998, 10, 3), QTime(23, 59, 57)));
    QCOMPARE(option->tick, -12);
}

QTEST_GUILESS_MAIN(TstOptions)
#include "tst_options.moc"
