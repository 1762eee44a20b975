// SPDX-License-Identifier: GPL-3.0-or-later
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <chrono>
#include <thread>

#include "days/marked_october.h"
#include "store/day_database.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

constexpr quint32 kSeed = 0xD1E;
constexpr int kKills = 200;
constexpr int kLongestLife = 25'000;   // microseconds
constexpr int kKillsPerEarlyKill = 4;  // one of them is killed without waiting for the first output
constexpr int kStartTimeout = 30'000;  // ms

/// What a writer printed before it was killed: the number of lines, the last number, and the year of the last
/// complete month.
struct Told {
    int count = 0;
    int lastNumber = 0;
    int lastYear = 0;
};

/// Parses the output, complete lines only.
Told ToldIn(const QByteArray& output, Told told) {
    for (qsizetype at = 0, end = 0; (end = output.indexOf('\n', at)) >= 0; at = end + 1) {
        const int number = output.mid(at, end - at).toInt();
        ++told.count;
        (number > 0 ? told.lastNumber : told.lastYear) = std::abs(number);
    }
    return told;
}

/// Starts a writer with these arguments, kills it `life` after its start or after its first output, and
/// returns its output.
QByteArray Killed(const QStringList& arguments, bool waits, std::chrono::microseconds life) {
    QProcess writer;
    writer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    writer.start(QStringLiteral(TICKWELL_DAY_WRITER), arguments);
    if (!writer.waitForStarted(kStartTimeout) || (waits && !writer.waitForReadyRead(kStartTimeout))) {
        qWarning("the writer said nothing");
    }
    std::this_thread::sleep_for(life);  // the random moment is what is tested
    writer.kill();
    writer.waitForFinished(kStartTimeout);
    return writer.exitStatus() == QProcess::CrashExit ? writer.readAllStandardOutput() : QByteArray();
}

/// The stored marks after the calendar has stored the October with this number.
QStringList OctoberMarks(int number) {
    QStringList marks;
    for (int day = 1; day <= 31; ++day) {
        const QDate date(1998, 10, day);
        const DayColor color = OctoberColor(number, day);
        const bool isOwn = (date.dayOfWeek() == Qt::Sunday && color == DayColor::Red) ||
                           (date.dayOfWeek() == Qt::Saturday && color == DayColor::Blue);
        if (!isOwn) {
            marks.append(date.toString(Qt::ISODate) + u' ' + QString::number(static_cast<qint32>(color)));
        }
    }
    return marks;
}

QStringList StoredMarks(const store::DayStore& store) {
    return store.Raw(
        "SELECT \"Date\" || ' 255' FROM Holiday UNION ALL SELECT \"Date\" || ' 16711680' FROM Halfday "
        "UNION ALL SELECT \"Date\" || ' 0' FROM Usuallyday ORDER BY 1");
}

}  // namespace

/// A writer is killed at random moments, repeatedly and on the same file. Everything that it reported as
/// stored must be there.
class TstKilledWriter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ReportedRowsAreStored();
    void AMonthOfMarksIsEntirelyOldOrNew();

private:
    void CheckStore(const store::DayStore& store, const Told& told);
};

void TstKilledWriter::CheckStore(const store::DayStore& store, const Told& told) {
    const QStringList found = store.Raw(
        "PRAGMA quick_check; SELECT count(*), coalesce(max(\"Year\"), 0), count(DISTINCT \"Year\"), "
        "count(*) FILTER (WHERE \"Year\" > 0 AND \"Name\" = '記念日' || \"Year\") FROM Kinenbi;"
        "SELECT count(*), count(DISTINCT \"Date\"), count(DISTINCT substr(\"Date\", 1, 4)), "
        "max(substr(\"Date\", 1, 4)) "
        "FROM Holiday");
    QCOMPARE(found.size(), 3);
    QCOMPARE(found[0], u"ok"_s);
    // Numbers 1 to the last one, each once; at most one more is stored than was reported.
    const int last = found[1].section(u'|', 1, 1).toInt();
    QVERIFY2(last == told.lastNumber || last == told.lastNumber + 1, qPrintable(found[1]));
    QCOMPARE(found[1], u"%1|%1|%1|%1"_s.arg(last));
    // The marked days are always one complete month: the last one reported, or a later one.
    if (told.lastYear > 0) {
        const int year = found[2].section(u'|', 3, 3).toInt();
        QCOMPARE(found[2], u"31|31|1|%1"_s.arg(year));
        QVERIFY2(year >= told.lastYear && year <= 1000 + told.lastNumber, qPrintable(found[2]));
    }
}

void TstKilledWriter::ReportedRowsAreStored() {
    qInfo("seed %u", kSeed);
    const store::DayStore store;
    QRandomGenerator random(kSeed);
    Told told;
    for (int i = 0; i < kKills; ++i) {
        // The last row may be stored but not reported.
        told.lastNumber = store.Raw("SELECT count(*) FROM Kinenbi")[0].toInt();
        const int next = told.lastNumber + 1;
        told = ToldIn(Killed({store.Path(), QString::number(next)}, i % kKillsPerEarlyKill != 0,
                             std::chrono::microseconds(random.bounded(kLongestLife))),
                      told);
        CheckStore(store, told);
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"at kill %1"_s.arg(i)));
        }
        const store::DayDatabase opens(store.Path());
    }
    qInfo("%d rows and months were stored", told.count);
    QVERIFY(told.count > kKills / 2);  // three of four writers were given time for output
}

void TstKilledWriter::AMonthOfMarksIsEntirelyOldOrNew() {
    qInfo("seed %u", kSeed);
    const store::DayStore store;
    QRandomGenerator random(kSeed);
    int number = 0;  // the version of the stored month; 0: none yet
    int months = 0;
    int unsaid = 0;
    for (int i = 0; i < kKills; ++i) {
        const QStringList arguments{store.Path(), QString::number(number + 1), u"calendar"_s};
        const QByteArray output = Killed(arguments, i % kKillsPerEarlyKill != 0,
                                         std::chrono::microseconds(random.bounded(kLongestLife)));
        const Told told = ToldIn(output, {0, number, 0});
        months += told.count;
        number = told.lastNumber;
        const QStringList found = StoredMarks(store);
        if (found == OctoberMarks(number + 1)) {
            ++number;
            ++unsaid;
        } else if (number > 0 || !found.isEmpty()) {
            QCOMPARE(found, OctoberMarks(number));
        }
    }
    qInfo("%d months were stored, %d of them unsaid", months, unsaid);
    QVERIFY(months > kKills / 2);
}

QTEST_GUILESS_MAIN(TstKilledWriter)
#include "tst_killed_writer.moc"
