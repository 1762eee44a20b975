// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSysInfo>
#include <QTest>

#include "sync/computer_name.h"
#include "sync/report_text.h"
#include "sync/round.h"

using namespace tickwell::sync;
using namespace Qt::StringLiterals;

/// What the user reads about merges, and the names of computers.
class TstReportText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void BeforeTheFirstMerge();
    void AfterAMerge();
    void FilesThatWereLeftAlone();
    void ALongNameIsCut();
    void AComputerHasANameInAnyCase();
    void TheFileIsNamedAfterTheComputer_data();
    void TheFileIsNamedAfterTheComputer();
};

void TstReportText::BeforeTheFirstMerge() {
    QCOMPARE(ReportText({}), u"まだ合わせていません。"_s);
    Report report;
    report.problem = u"フォルダーがありません。"_s;
    QCOMPARE(ReportText(report), u"まだ合わせていません。\nフォルダーがありません。"_s);
}

void TstReportText::AfterAMerge() {
    Report report;
    report.when = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 59));
    report.computers = 3;
    QCOMPARE(ReportText(report), u"最後に合わせた時刻：2026/01/02 03:04（コンピューター3台）"_s);
    report.skipped = 2;
    QCOMPARE(ReportText(report),
             u"最後に合わせた時刻：2026/01/02 03:04（コンピューター3台）\n"
             u"このコンピューターだけに残した行：2件"_s);
}

void TstReportText::FilesThatWereLeftAlone() {
    Report report;
    for (const auto& name : {u"a"_s, u"b"_s, u"c"_s}) {
        report.left.append({name, u"理由。"_s});
    }
    const QString three =
        u"まだ合わせていません。\nそのままにしたファイル：a（理由。）\n"
        u"そのままにしたファイル：b（理由。）\nそのままにしたファイル：c（理由。）"_s;
    QCOMPARE(ReportText(report), three);
    report.left.append({u"d"_s, u"理由。"_s});
    report.left.append({u"e"_s, u"理由。"_s});
    QCOMPARE(ReportText(report), three + u"\nほかに2個のファイルをそのままにしました。"_s);
}

void TstReportText::ALongNameIsCut() {
    Report report;
    report.left.append({QString(41, u'x'), u"理由。"_s});
    QVERIFY(ReportText(report).endsWith(u"：" + QString(40, u'x') + u"…（理由。）"_s));
}

void TstReportText::AComputerHasANameInAnyCase() {
    QCOMPARE(ComputerName(u" 書斎 "_s), u"書斎"_s);
    QCOMPARE(ComputerName(u"a\nb"_s), u"a b"_s);
    QCOMPARE(ComputerName(QString(50, u'a')), QString(40, u'a'));
    const QString host = QSysInfo::machineHostName().left(40);
    QCOMPARE(ComputerName(u"  "_s), host.isEmpty() ? u"computer"_s : host);
}

void TstReportText::TheFileIsNamedAfterTheComputer_data() {
    QTest::addColumn<QString>("computer");
    QTest::addColumn<QString>("file");
    QTest::newRow("usual") << u"study"_s << u"study.tickwell-days"_s;
    QTest::newRow("Japanese") << u"書斎 2"_s << u"書斎 2.tickwell-days"_s;
    QTest::newRow("a path") << u"../a\\b"_s << u"_._a_b.tickwell-days"_s;
    QTest::newRow("refused elsewhere") << u"a:*?\"<>|~b"_s << u"a________b.tickwell-days"_s;
    QTest::newRow("hidden") << u".a"_s << u"_a.tickwell-days"_s;
    QTest::newRow("beyond the first plane") << u"𠮷"_s << u"__.tickwell-days"_s;
}

void TstReportText::TheFileIsNamedAfterTheComputer() {
    QFETCH(const QString, computer);
    QFETCH(const QString, file);
    QCOMPARE(DayFileName(computer), file);
}

QTEST_APPLESS_MAIN(TstReportText)
#include "tst_report_text.moc"
