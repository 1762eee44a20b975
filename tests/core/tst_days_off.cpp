// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <random>

#include "core/days_off.h"
#include "core/holiday_list_bench.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

QMap<QDate, QString> TableOf(int year) {
    QFile table(QStringLiteral(TICKWELL_HOLIDAY_TABLE));
    QMap<QDate, QString> days;
    if (table.open(QIODevice::ReadOnly)) {
        for (const QString& line : QString::fromUtf8(table.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList fields = line.split(u'\t');
            const QDate date = QDate::fromString(fields.value(0), Qt::ISODate);
            if (date.year() == year) {
                days.insert(date, fields.value(1));
            }
        }
    }
    return days;
}

/// Whether a damaged list was refused, or still has all days, or each of its differences is reported.
bool IsHarmless(const QByteArray& damaged, const HolidayList& original) {
    const auto list = Accepted(damaged);
    return !list || list->days == original.days || !DifferencesFromLaw(*list).isEmpty() ||
           list->LastYear() != original.LastYear() || list->FirstYear() != original.FirstYear();
}

/// The distance between damaged bytes: about five hundred of them, in the long test every byte.
qsizetype StepIn(const QByteArray& bytes) {
    constexpr qsizetype kPlaces = 500;
    return qEnvironmentVariableIsSet("TICKWELL_EVERY_BYTE") ? 1
                                                            : std::max<qsizetype>(1, bytes.size() / kPlaces);
}

}  // namespace

/// The days off of a year by law and list.
class TstDaysOff : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheOfficialListIsTheLaw();
    void WithoutAListTheLawHolds();
    void AListWinsInItsYears();
    void DifferencesAreReported_data();
    void DifferencesAreReported();
    void AListCutAnywhereIsRefusedOrShorter();
    void TheOfficialListCutAnywhereIsRefusedOrShorter();
    void EachDamagedByteIsRefusedOrReported();
};

void TstDaysOff::TheOfficialListIsTheLaw() {
    const auto list = Accepted(OfficialList());
    QVERIFY(list);
    QCOMPARE(DifferencesFromLaw(*list), QStringList());
    for (int year = 1955; year <= 2027; ++year) {
        QMap<QDate, QString> expected = TableOf(year);
        if (year == 2019) {
            expected[QDate(2019, 10, 14)] = u"体育の日（スポーツの日）"_s;
        }
        QCOMPARE(DaysOffOfYear(year, &*list), expected);
    }
}

void TstDaysOff::WithoutAListTheLawHolds() {
    QCOMPARE(DaysOffOfYear(2026, nullptr), TableOf(2026));
    const auto list = Accepted(OfficialList());
    QVERIFY(list);
    QCOMPARE(DaysOffOfYear(1954, &*list), TableOf(1954));
    QCOMPARE(DaysOffOfYear(2028, &*list), TableOf(2028));
    QVERIFY(DaysOffOfYear(2101, &*list).isEmpty());
}

void TstDaysOff::AListWinsInItsYears() {
    const auto list =
        Accepted(ShortList().replace("1955/3/21,春分の日", "1955/3/22,臨時の日\n1955/6/1,休日"));
    QVERIFY(list);
    const auto days = DaysOffOfYear(1955, &*list);
    QCOMPARE(days.size(), 10);
    QVERIFY(!days.contains(QDate(1955, 3, 21)));
    QCOMPARE(days.value(QDate(1955, 3, 22)), u"臨時の日"_s);
    QCOMPARE(days.value(QDate(1955, 6, 1)), u"休日"_s);  // the law has no name for it
}

void TstDaysOff::DifferencesAreReported_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("differences");
    QTest::newRow("none") << QByteArray("1955/3/21,春分の日") << QStringList();
    QTest::newRow("only a day off") << QByteArray("1955/3/21,休日") << QStringList();
    QTest::newRow("another name")
        << QByteArray("1955/3/21,春の日")
        << QStringList{u"1955年3月21日：法律では「春分の日」、データでは「春の日」です。"_s};
    QTest::newRow("another day") << QByteArray("1955/3/20,春分の日")
                                 << QStringList{u"1955年3月20日：データの「春分の日」は法律にありません。"_s,
                                                u"1955年3月21日：「春分の日」がデータにありません。"_s};
}

void TstDaysOff::DifferencesAreReported() {
    QFETCH(const QByteArray, line);
    QFETCH(const QStringList, differences);
    const auto list = Accepted(ShortList().replace("1955/3/21,春分の日", line));
    QVERIFY(list);
    QCOMPARE(DifferencesFromLaw(*list), differences);
}

void TstDaysOff::AListCutAnywhereIsRefusedOrShorter() {
    const QByteArray bytes = ShortList();
    const auto original = Accepted(bytes);
    QVERIFY(original);
    int accepted = 0;
    for (qsizetype size = 0; size < bytes.size(); ++size) {
        const QByteArray cut = bytes.first(size);
        QVERIFY2(IsHarmless(cut, *original), qPrintable(RefusalOf(cut)));
        accepted += Accepted(cut) ? 1 : 0;
    }
    // A list is accepted if it ends after any of the six characters of 勤労感謝の日, the last day of each of
    // the two years, or after the line feed that ends 1955.
    QCOMPARE(accepted, 13);
}

void TstDaysOff::TheOfficialListCutAnywhereIsRefusedOrShorter() {
    const QByteArray bytes = OfficialList();
    const auto original = Accepted(bytes);
    QVERIFY(original);
    for (qsizetype size = 0; size < bytes.size(); size += StepIn(bytes)) {
        QVERIFY2(IsHarmless(bytes.first(size), *original), qPrintable(QString::number(size)));
    }
}

void TstDaysOff::EachDamagedByteIsRefusedOrReported() {
    std::mt19937 random(20260506);
    for (const QByteArray& bytes : {ShortList(), OfficialList()}) {
        const auto original = Accepted(bytes);
        QVERIFY(original);
        for (qsizetype at = bytes.indexOf("1955"); at < bytes.size(); at += StepIn(bytes)) {
            QByteArray damaged = bytes;
            damaged[at] = static_cast<char>(random());
            QVERIFY2(IsHarmless(damaged, *original), qPrintable(QString::number(at)));
        }
    }
}

QTEST_GUILESS_MAIN(TstDaysOff)
#include "tst_days_off.moc"
