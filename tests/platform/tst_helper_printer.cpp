// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "platform/print/helper_printer.h"
#include "platform/time/virtual_time.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

const QString kDied = u"印刷プログラムが途中で終了したため、印刷できませんでした。"_s;
constexpr int kLimit = 60'000;  // ms of real time for another process

const PrintJob kJob{u"ストップウォッチ"_s, {u"一行目"_s, QString(), u"三行目"_s}};

/// A printer whose helper is a script. Time advances only when the test says so.
struct Bench {
    explicit Bench(const QByteArray& script) {
        WriteAll(Path(), "#!/bin/sh\ncd '" + dir.path().toUtf8() + "'\n" + script + '\n');
        QFile::setPermissions(Path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    ~Bench() {
        if (printer) {
            printer->Cancel();  // otherwise a sleeping helper would outlive a failed test
        }
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    QString Path() const { return dir.filePath(u"helper"_s); }
    QByteArray Read(const QString& name) const { return ReadAll(dir.filePath(name)); }

    void Print() {
        printer->Print(kJob, [this](const PrintNews& told) { news.append(told); });
    }

    /// Lets the printer poll its helpers until it has reported this many times, not counting Delayed.
    bool WaitForNews(qsizetype count) {
        return QTest::qWaitFor(
            [&] {
                time.Advance(50);
                news.removeAll({PrintStage::Delayed, {}});
                return news.size() >= count;
            },
            kLimit);
    }

    /// Lets the printer poll until it has no helper left.
    bool WaitForRest() {
        return QTest::qWaitFor(
            [&] {
                time.Advance(1000);
                news.removeAll({PrintStage::Delayed, {}});
                return !time.UntilNext();
            },
            kLimit);
    }

    QTemporaryDir dir;
    VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 0};
    RealTimerSource realTime{time};
    std::unique_ptr<HelperPrinter> printer = std::make_unique<HelperPrinter>(realTime, Path());
    QList<PrintNews> news;
};

}  // namespace

/// Printing through a helper program.
class TstHelperPrinter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheHelperGetsTitleAndLines();
    void AFileIsNamedToTheHelper();
    void AnswersAreReported_data();
    void AnswersAreReported();
    void AMissingHelperIsReportedLater();
    void ASilentHelperIsReportedOnceAfterASecond();
    void CancelEndsTheHelperAndItsReports();
    void CancelLeavesAcceptedDocuments();
    void EachDocumentHasItsReports();
    void ADocumentOutlivesThePrinter();
};

void TstHelperPrinter::TheHelperGetsTitleAndLines() {
    Bench bench("cat >lines; printf %s \"$*\" >title; printf 'accepted\\tQ\\t\\n'");
    bench.Print();
    QVERIFY(bench.WaitForNews(1));
    QCOMPARE(bench.Read(u"title"_s), kJob.title.toUtf8());
    QCOMPARE(bench.Read(u"lines"_s), u"一行目\n\n三行目"_s.toUtf8());
}

void TstHelperPrinter::AFileIsNamedToTheHelper() {
    Bench bench("printf '%s|' \"$@\" >arguments; cat >lines; printf 'accepted\\t\\t\\n'");
    PrintJob job = kJob;
    job.file = u"/tmp/a folder/ラップ.pdf"_s;
    bench.printer->Print(job, [&bench](const PrintNews& told) { bench.news.append(told); });
    QVERIFY(bench.WaitForNews(1));
    QCOMPARE(bench.Read(u"arguments"_s), u"--pdf|/tmp/a folder/ラップ.pdf|ストップウォッチ|"_s.toUtf8());
    QCOMPARE(bench.Read(u"lines"_s), u"一行目\n\n三行目"_s.toUtf8());
    QCOMPARE(bench.news.first().stage, PrintStage::Accepted);
}

void TstHelperPrinter::AnswersAreReported_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QList<PrintNews>>("news");
    const PrintNews accepted{PrintStage::Accepted, {}};
    const PrintNews refused{PrintStage::Failed, u"プリンター「Q」に印刷できませんでした。\r\n理由：紙切れ"_s};
    const PrintNews aborted{PrintStage::Failed, u"プリンター「Q」が印刷を中止しました。"_s};
    const PrintNews died{PrintStage::Failed, kDied};
    QTest::newRow("accepted") << "printf 'accepted\\tQ\\t\\n'"_ba << QList{accepted};
    QTest::newRow("refused") << "printf 'refused\\tQ\\t紙切れ\\n'; exit 2"_ba << QList{refused};
    QTest::newRow("given up later") << "printf 'accepted\\tQ\\t\\naborted\\tQ\\t\\n'; exit 2"_ba
                                    << QList{accepted, aborted};
    QTest::newRow("in pieces") << "printf 'acce'; sleep 0.1; printf 'pted\\tQ\\t\\n'"_ba << QList{accepted};
    QTest::newRow("a failure is the last answer")
        << "printf 'refused\\tQ\\t紙切れ\\naccepted\\tQ\\t\\n'"_ba << QList{refused};
    QTest::newRow("died") << "kill -SEGV $$"_ba << QList{died};
    QTest::newRow("silent end") << "exit 0"_ba << QList{died};
    QTest::newRow("half a line") << "printf 'accepted\\tQ'"_ba << QList{died};
    QTest::newRow("a line without end") << "exec tr '\\0' x </dev/zero"_ba << QList{died};
}

void TstHelperPrinter::AnswersAreReported() {
    QFETCH(QByteArray, script);
    QFETCH(QList<PrintNews>, news);
    Bench bench(script);
    bench.Print();
    QVERIFY(bench.news.isEmpty());
    QVERIFY(bench.WaitForNews(news.size()));
    QVERIFY(bench.WaitForRest());
    QCOMPARE(bench.news, news);
}

void TstHelperPrinter::AMissingHelperIsReportedLater() {
    Bench bench("");
    QVERIFY(QFile::remove(bench.Path()));
    bench.Print();
    QVERIFY(bench.news.isEmpty());
    bench.time.Advance(50);
    QCOMPARE(bench.news,
             (QList<PrintNews>{
                 {PrintStage::Failed, u"印刷プログラムを起動できませんでした。\r\n"_s + bench.Path()}}));
}

void TstHelperPrinter::ASilentHelperIsReportedOnceAfterASecond() {
    Bench bench("exec sleep 1000");
    bench.Print();
    bench.time.Advance(950);
    QVERIFY(bench.news.isEmpty());
    bench.time.Advance(50);
    QCOMPARE(bench.news, (QList<PrintNews>{{PrintStage::Delayed, {}}}));
    bench.time.Advance(100'000);
    QCOMPARE(bench.news.size(), 1);
    bench.printer->Cancel();
}

void TstHelperPrinter::CancelEndsTheHelperAndItsReports() {
    Bench bench("echo $$ >pid; mv pid started; exec sleep 1000");
    bench.Print();
    QVERIFY(QTest::qWaitFor([&] { return !bench.Read(u"started"_s).isEmpty(); }, kLimit));
    const auto process = QByteArray("/proc/" + bench.Read(u"started"_s).trimmed());
    QVERIFY(QFile::exists(QString::fromUtf8(process)));
    bench.printer->Cancel();
    QVERIFY(bench.WaitForRest());
    QVERIFY(!QFile::exists(QString::fromUtf8(process)));
    QVERIFY(bench.news.isEmpty());
}

void TstHelperPrinter::CancelLeavesAcceptedDocuments() {
    Bench bench(
        "printf 'accepted\\tQ\\t\\n'; while [ ! -e go ]; do sleep 0.05; done; printf 'aborted\\tQ\\t\\n'");
    bench.Print();
    QVERIFY(bench.WaitForNews(1));
    bench.printer->Cancel();
    WriteAll(bench.dir.filePath(u"go"_s), QByteArray());
    QVERIFY(bench.WaitForNews(2));
    QCOMPARE(bench.news.last().stage, PrintStage::Failed);
}

void TstHelperPrinter::EachDocumentHasItsReports() {
    Bench bench(
        "printf 'accepted\\tQ\\t\\n'; while [ ! -e go ]; do sleep 0.05; done; printf "
        "\"aborted\\tQ\\t$1\\n\"");
    QStringList told;
    for (const QString& title : {u"一"_s, u"二"_s}) {
        bench.printer->Print({title, {}}, [&told, title](const PrintNews& news) {
            if (news.stage != PrintStage::Delayed) {
                told.append(title + (news.stage == PrintStage::Accepted ? u"+"_s : news.reason.right(1)));
            }
        });
        const auto count = told.size() + 1;
        QVERIFY(QTest::qWaitFor(
            [&] {
                bench.time.Advance(50);
                return told.size() == count;
            },
            kLimit));
    }
    QCOMPARE(told, (QStringList{u"一+"_s, u"二+"_s}));
    WriteAll(bench.dir.filePath(u"go"_s), QByteArray());
    QVERIFY(bench.WaitForRest());
    told.sort();
    QCOMPARE(told, (QStringList{u"一+"_s, u"一一"_s, u"二+"_s, u"二二"_s}));
}

void TstHelperPrinter::ADocumentOutlivesThePrinter() {
    Bench bench("while [ ! -e go ]; do sleep 0.05; done; cat >half; mv half lines");
    bench.Print();
    bench.printer.reset();
    WriteAll(bench.dir.filePath(u"go"_s), QByteArray());
    QVERIFY(
        QTest::qWaitFor([&] { return bench.Read(u"lines"_s) == u"一行目\n\n三行目"_s.toUtf8(); }, kLimit));
    QVERIFY(bench.news.isEmpty());
}

QTEST_GUILESS_MAIN(TstHelperPrinter)
#include "tst_helper_printer.moc"
