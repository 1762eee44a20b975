// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMap>
#include <QRandomGenerator>
#include <QTest>
#include <algorithm>

#include "store/backup_days.h"

using namespace Qt::StringLiterals;
using namespace tickwell::store;

namespace {

/// The days of a text like "11-22 11-21", in 2026.
QList<QDate> Days(const QString& text) {
    QList<QDate> days;
    for (const QString& day : text.split(u' ', Qt::SkipEmptyParts)) {
        days.append(QDate::fromString(u"2026-"_s + day, Qt::ISODate));
    }
    return days;
}

/// A second model: which of `days` are kept, decided week by week.
QList<QDate> KeptByAnotherModel(const QList<QDate>& days, QDate made) {
    QList<QDate> past;
    QList<QDate> kept;
    for (const QDate day : days) {
        (day > made ? kept : past).append(day);
    }
    std::sort(past.begin(), past.end());
    kept += past.last(std::min<qsizetype>(past.size(), 7));
    QMap<qint64, QDate> newestOfWeek;  // by the number of the week since the Monday 1970-01-05
    for (const QDate day : past) {
        newestOfWeek[(day.toJulianDay() - QDate(1970, 1, 5).toJulianDay()) / 7] = day;
    }
    const QList<QDate> weekly = newestOfWeek.values();
    for (const QDate day : weekly.last(std::min<qsizetype>(weekly.size(), 8))) {
        if (!kept.contains(day)) {
            kept.append(day);
        }
    }
    std::sort(kept.begin(), kept.end());
    return kept;
}

}  // namespace

/// The names of backups, and which of them are kept.
class TstBackupDays : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheNameHoldsTheDay();
    void OtherNamesAreNoBackups_data();
    void OtherNamesAreNoBackups();
    void SevenDaysAndEightWeeksAreKept_data();
    void SevenDaysAndEightWeeksAreKept();
    void AYearOfDailyBackups();
    void AnyDaysAsAnotherModelSays();
};

void TstBackupDays::TheNameHoldsTheDay() {
    QCOMPARE(BackupName(QDate(2026, 11, 22)), u"DayDate-2026-11-22.mdb"_s);
    QCOMPARE(DayOfBackup(u"DayDate-2026-11-22.mdb"_s), QDate(2026, 11, 22));
    QCOMPARE(DayOfBackup(u"DayDate-2024-02-29.mdb"_s), QDate(2024, 2, 29));
}

void TstBackupDays::OtherNamesAreNoBackups_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"DayDate.mdb", "DayDate-2026-02-29.mdb", "DayDate-2026-11-22.mdb-journal",
                             ".DayDate-2026-11-22.mdb", "DayDate-2026-11-2.mdb", "daydate-2026-11-22.mdb", "",
                             "DayDate-2026-11-22 (1).mdb", "DayDate-.mdb", "DayDate-mdb"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void TstBackupDays::OtherNamesAreNoBackups() {
    QFETCH(QString, name);
    QCOMPARE(DayOfBackup(name), std::nullopt);
}

// 2026-11-22 is a Sunday.
void TstBackupDays::SevenDaysAndEightWeeksAreKept_data() {
    QTest::addColumn<QString>("days");
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("surplus");
    const auto row = [](const char* name, const char* days, const char* made, const char* surplus) {
        QTest::newRow(name) << QString::fromLatin1(days) << QString::fromLatin1(made)
                            << QString::fromLatin1(surplus);
    };
    row("the first", "11-22", "11-22", "");
    row("seven", "11-22 11-21 11-20 11-19 11-18 11-17 11-16", "11-22", "");
    row("the eighth is the newest of its week", "11-22 11-21 11-20 11-19 11-18 11-17 11-16 11-15", "11-22",
        "");
    row("the ninth goes", "11-22 11-21 11-20 11-19 11-18 11-17 11-16 11-15 11-14", "11-22", "11-14");
    row("the eighth in the same week goes", "11-23 11-22 11-21 11-20 11-19 11-18 11-17 11-16", "11-23",
        "11-16");
    row("eight weeks", "11-22 11-15 11-08 11-01 10-25 10-18 10-11 10-04", "11-22", "");
    row("the ninth week goes", "11-22 11-15 11-08 11-01 10-25 10-18 10-11 10-04 09-27", "11-22", "09-27");
    row("weeks without one do not count", "11-22 09-20 08-16 07-12 06-07 05-03 04-05 03-01 01-25", "11-22",
        "01-25");
    row("future ones neither count nor go", "12-31 12-30 12-29 12-28 12-27 12-26 12-25 12-24 11-22 11-21",
        "11-22", "");
    row("in any order", "11-14 11-22 11-16 11-21 11-15 11-20 11-18 11-19 11-17", "11-22", "11-14");
}

void TstBackupDays::SevenDaysAndEightWeeksAreKept() {
    QFETCH(QString, days);
    QFETCH(QString, made);
    QFETCH(QString, surplus);
    QCOMPARE(SurplusBackups(Days(days), Days(made).first()), Days(surplus));
}

void TstBackupDays::AYearOfDailyBackups() {
    QList<QDate> days;
    for (QDate day(2026, 1, 1); day < QDate(2027, 1, 1); day = day.addDays(1)) {
        days.append(day);
        const QList<QDate> surplus = SurplusBackups(days, day);
        QVERIFY(!surplus.contains(day));
        for (const QDate old : surplus) {
            days.removeOne(old);
        }
        for (int i = 0; i < 7 && i < day.dayOfYear(); ++i) {
            QVERIFY(days.contains(day.addDays(-i)));
        }
        // For six weeks back there is always one that is at most a week older.
        const QDate old = day.addDays(-42);
        QVERIFY(old < QDate(2026, 1, 8) || std::any_of(days.begin(), days.end(), [old](QDate each) {
                    return each <= old && each.daysTo(old) <= 7;
                }));
    }
    QVERIFY(days.size() <= 7 + 8);
}

void TstBackupDays::AnyDaysAsAnotherModelSays() {
    QRandomGenerator random(20261122);
    for (int round = 0; round < 2000; ++round) {
        QList<QDate> days;
        const QDate made = QDate(2026, 11, 22).addDays(random.bounded(14));
        const int span = random.bounded(1, 150);
        for (int i = random.bounded(40); i > 0; --i) {
            const QDate day = made.addDays(3 - random.bounded(span));
            if (!days.contains(day)) {
                days.append(day);
            }
        }
        if (!days.contains(made)) {
            days.append(made);
        }
        QList<QDate> kept = days;
        for (const QDate day : SurplusBackups(days, made)) {
            kept.removeOne(day);
        }
        std::sort(kept.begin(), kept.end());
        QCOMPARE(kept, KeptByAnotherModel(days, made));
    }
}

QTEST_GUILESS_MAIN(TstBackupDays)
#include "tst_backup_days.moc"
