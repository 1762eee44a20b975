// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "print_helper/spool.h"

using namespace tickwell;
using namespace tickwell::print_helper;
using namespace Qt::StringLiterals;

namespace {

/// A queue that records its calls and fails at one step.
class FakeSpool : public Spool {
public:
    explicit FakeSpool(QString failing) : m_failing(std::move(failing)) {}

    Failure CreateJob(const std::string& title) override {
        return Step(u"create"_s, QString::fromStdString(title));
    }
    Failure StartDocument() override { return Step(u"start"_s); }
    Failure Write(std::string_view bytes) override {
        return Step(u"write"_s, QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())));
    }
    Failure FinishDocument() override { return Step(u"finish"_s); }
    void CancelJob() override { steps.append(u"cancel"_s); }

    QStringList steps;

private:
    Failure Step(const QString& name, const QString& what = {}) {
        steps.append(what.isEmpty() ? name : name + u' ' + what);
        return name == m_failing ? Failure({"refused", "Q", name.toStdString()}) : std::nullopt;
    }

    QString m_failing;
};

}  // namespace

/// Submitting a document to the queue.
class TstSpool : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFailingStepLeavesNoJob_data();
    void AFailingStepLeavesNoJob();
    void AnAnswerIsOneLine();
};

void TstSpool::AFailingStepLeavesNoJob_data() {
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("steps");
    const QString create = u"create 題"_s;
    const QString write = u"write %PDF"_s;
    QTest::newRow("none") << QString() << QStringList{create, u"start"_s, write, u"finish"_s};
    QTest::newRow("job") << u"create"_s << QStringList{create};
    QTest::newRow("document") << u"start"_s << QStringList{create, u"start"_s, u"cancel"_s};
    QTest::newRow("bytes") << u"write"_s << QStringList{create, u"start"_s, write, u"cancel"_s};
    QTest::newRow("end") << u"finish"_s << QStringList{create, u"start"_s, write, u"finish"_s, u"cancel"_s};
}

void TstSpool::AFailingStepLeavesNoJob() {
    QFETCH(QString, failing);
    QFETCH(QStringList, steps);
    FakeSpool spool(failing);
    const Failure failure = Submit(spool, u"題"_s.toStdString(), "%PDF");
    QCOMPARE(spool.steps, steps);
    QCOMPARE(failure.has_value(), !failing.isEmpty());
    QCOMPARE(QString::fromStdString(failure ? failure->reason : ""), failing);
}

void TstSpool::AnAnswerIsOneLine() {
    QCOMPARE(QByteArray::fromStdString(AnswerLine({"refused", "Q\t1", "紙が\nない\r\x7F。"})),
             "refused\tQ 1\t紙が ない  。\n"_ba);
}

QTEST_GUILESS_MAIN(TstSpool)
#include "tst_spool.moc"
