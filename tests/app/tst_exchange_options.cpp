// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QTest>

#include "app/options.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::app;

namespace {

Options With(const QStringList& arguments) {
    return OptionsOf(QStringList{u"tickwell"_s} + arguments);
}

}  // namespace

/// The options that write anniversaries to a file and read them.
class TstExchangeOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FilesAreTaken();
    void MistakesAreNamed_data();
    void MistakesAreNamed();
};

void TstExchangeOptions::FilesAreTaken() {
    const Options out = With({u"--export"_s, u"a b.ics"_s});
    QCOMPARE(out.exportsTo, QDir::current().absoluteFilePath(u"a b.ics"_s));
    QVERIFY(out.exchanges && out.needsNoWindow && out.error.isEmpty() && out.importsFrom.isEmpty());
    const Options in = With({u"--import=/a.csv"_s, u"--folder"_s, u"/f"_s});
    QCOMPARE(in.importsFrom, u"/a.csv"_s);
    QVERIFY(in.exchanges && in.needsNoWindow && in.error.isEmpty() && !in.isDryRun && in.exportsTo.isEmpty());
    QVERIFY(With({u"--import"_s, u"a"_s, u"--dry-run"_s}).isDryRun);
    const Options none = With({});
    QVERIFY(!none.exchanges && !none.needsNoWindow);
}

void TstExchangeOptions::MistakesAreNamed_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("dry run alone") << QStringList{u"--dry-run"_s} << u"--dry-run needs --import"_s;
    QTest::newRow("dry export") << QStringList{u"--export"_s, u"a"_s, u"--dry-run"_s}
                                << u"--dry-run needs --import"_s;
    QTest::newRow("both") << QStringList{u"--export"_s, u"a"_s, u"--import"_s, u"b"_s}
                          << u"--export cannot be combined with --import"_s;
    QTest::newRow("with days") << QStringList{u"--import"_s, u"a"_s, u"--today"_s}
                               << u"--today cannot be combined with --import"_s;
    QTest::newRow("an empty name") << QStringList{u"--import="_s} << u"--export and --import take a file"_s;
    QTest::newRow("two files") << QStringList{u"--import"_s, u"a"_s, u"b"_s} << u"unexpected argument: b"_s;
}

void TstExchangeOptions::MistakesAreNamed() {
    QFETCH(QStringList, arguments);
    QTEST(With(arguments).error, "error");
}

QTEST_GUILESS_MAIN(TstExchangeOptions)
#include "tst_exchange_options.moc"
