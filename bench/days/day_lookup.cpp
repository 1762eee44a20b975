// SPDX-License-Identifier: GPL-3.0-or-later
// day_lookup [FOLDER]: the costs of the day database: the queries for a day with and without the two indexes,
// for three sizes; an insert; storing the marks of a month in one transaction and one by one. FOLDER selects
// the disk for the files; the default is the temporary folder.

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "core/errors.h"
#include "days/day_rule.h"
#include "store/day_database.h"
#include "store/day_transaction.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr quint32 kSeed = 0xBE7C;
constexpr double kMicroseconds = 1000;  // nanoseconds per microsecond

/// The median duration of `times` runs, in microseconds.
template <typename Deed>
double Median(int times, Deed deed) {
    std::vector<double> taken;
    for (int i = 0; i < times; ++i) {
        QElapsedTimer timer;
        timer.start();
        deed();
        taken.push_back(static_cast<double>(timer.nsecsElapsed()) / kMicroseconds);
    }
    std::nth_element(taken.begin(), taken.begin() + times / 2, taken.end());
    return taken[static_cast<std::size_t>(times / 2)];
}

/// Two thirds of the anniversaries are by day, the others by week; most of them are of every year, in one
/// month.
QString RandomInsert(QRandomGenerator& random) {
    const bool byDay = random.bounded(3) != 0;
    const int day = byDay ? random.bounded(1, 32) : 0;
    const int week = byDay ? 0 : 10 * random.bounded(1, 6) + random.bounded(1, 8);
    const int month = random.bounded(10) == 0 ? 0 : random.bounded(1, 13);
    const int year = random.bounded(4) == 0 ? random.bounded(1926, 2101) : 0;
    return u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (\"記念日%1\",%2,%3,%4,%5)"_s
        .arg(random.bounded(1000))
        .arg(year)
        .arg(month)
        .arg(day)
        .arg(week);
}

void Fill(store::DayDatabase& database, int rows) {
    QRandomGenerator random(kSeed);
    store::DayTransaction transaction(database);
    for (int i = 0; i < rows; ++i) {
        database.Execute(RandomInsert(random));
    }
    transaction.Commit();
}

struct LookUp {
    double microseconds;
    double rows;  // average per query
};

LookUp MeasureLookUp(store::DayDatabase& database, int times) {
    QRandomGenerator random(kSeed + 1);
    int found = 0;
    const double median = Median(times, [&] {
        const QDate date = QDate(2026, 1, 1).addDays(random.bounded(365));
        found +=
            database
                .RunQuery(days::AnniversaryQuery(date.year(), date.month(), date.day(), days::WeekCode(date)))
                .Count();
    });
    return {median, static_cast<double>(found) / times};
}

void CompareIndexes(const QString& path, int rows) {
    store::DayDatabase database(path);
    Fill(database, rows);
    const LookUp indexed = MeasureLookUp(database, 100);
    store::SqliteConnection(path).Run("DROP INDEX KinenbiByDay");
    store::SqliteConnection(path).Run("DROP INDEX KinenbiByWeek");
    const LookUp scanned = MeasureLookUp(database, rows > 100'000 ? 10 : 100);
    std::printf("look-up, %7d rows, %6.1f found: %9.1f us with the indexes, %9.1f us without, ratio %6.1f\n",
                rows, indexed.rows, indexed.microseconds, scanned.microseconds,
                scanned.microseconds / indexed.microseconds);
}

void StoreMonth(store::DayDatabase& database) {
    const QDate first(2026, 10, 1);
    const QDate last(2026, 10, 31);
    for (const QString& table : {u"Holiday"_s, u"Halfday"_s, u"Usuallyday"_s}) {
        database.Execute(u"DELETE %1.Date FROM %1 WHERE Date BETWEEN %2 AND %3"_s.arg(
            table, days::DateLiteral(first), days::DateLiteral(last)));
    }
    for (QDate date = first; date <= last; date = date.addDays(1)) {
        database.Execute(u"INSERT INTO Holiday  VALUES ("_s + days::DateLiteral(date) + u')');
    }
}

void MeasureWriting(const QString& path) {
    store::DayDatabase database(path);
    Fill(database, 1000);
    QRandomGenerator random(kSeed + 2);
    const double insert = Median(200, [&] { database.Execute(RandomInsert(random)); });
    const double apart = Median(20, [&] { StoreMonth(database); });
    const double together = Median(20, [&] {
        store::DayTransaction transaction(database);
        StoreMonth(database);
        transaction.Commit();
    });
    std::printf("insert: %.1f us\n", insert);
    std::printf("a month's marks: %.1f us at once, %.1f us one by one, ratio %.1f\n", together, apart,
                apart / together);
}

QString Copied(const QTemporaryDir& folder, const QString& name) {
    QString path = folder.filePath(name);
    if (!QFile::copy(QStringLiteral(TICKWELL_PRISTINE_DATABASE), path)) {
        throw RunTimeError(path);
    }
    return path;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
        const QTemporaryDir files(folder.filePath(u"day_lookup-XXXXXX"_s));
        for (const int rows : {100, 100'000, 1'000'000}) {
            CompareIndexes(Copied(files, u"rows%1.mdb"_s.arg(rows)), rows);
        }
        MeasureWriting(Copied(files, u"writing.mdb"_s));
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "day_lookup: %s\n", error.what());
        return 1;
    }
    return 0;
}
