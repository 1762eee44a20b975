// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QTest>

#include "core/holiday_law.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

QString KindText(HolidayKind kind) {
    switch (kind) {
        case HolidayKind::Holiday:
            return u"holiday"_s;
        case HolidayKind::OneDay:
            return u"one-day"_s;
        case HolidayKind::Substitute:
            return u"substitute"_s;
        case HolidayKind::Between:
            return u"between"_s;
    }
    Q_UNREACHABLE();
}

/// The name of the day off, e.g. "振替休日"; empty if the day is not off.
QString NameOn(QDate date) {
    for (const Holiday& holiday : HolidaysByLaw(date.year())) {
        if (holiday.date == date) {
            return holiday.name;
        }
    }
    return {};
}

}  // namespace

/// The days off by law, year by year.
class TstHolidayLaw : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachYearIsAsTheModelSays();
    void DaysThatWereDecidedOtherwise_data();
    void DaysThatWereDecidedOtherwise();
    void OutsideItsYearsThereIsNoLaw();
};

void TstHolidayLaw::EachYearIsAsTheModelSays() {
    QFile table(QStringLiteral(TICKWELL_HOLIDAY_TABLE));
    QVERIFY(table.open(QIODevice::ReadOnly));
    const QStringList expected = QString::fromUtf8(table.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(expected.size(), 2427);
    QStringList actual;
    for (int year = kFirstLawYear; year <= kLastLawYear; ++year) {
        for (const Holiday& holiday : HolidaysByLaw(year)) {
            actual.append(holiday.date.toString(Qt::ISODate) + u'\t' + holiday.name + u'\t' +
                          KindText(holiday.kind));
        }
    }
    QCOMPARE(actual, expected);
}

void TstHolidayLaw::DaysThatWereDecidedOtherwise_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("name");
    const auto row = [](int year, int month, int day, const QString& name) {
        QTest::addRow("%d-%d-%d", year, month, day) << QDate(year, month, day) << name;
    };
    row(1973, 2, 12, {});  // before the first substitute, in April
    row(1973, 4, 30, u"振替休日"_s);
    row(1986, 5, 4, {});  // a Sunday
    row(1987, 5, 4, u"振替休日"_s);
    row(1988, 5, 4, u"国民の休日"_s);
    row(2019, 4, 30, u"国民の休日"_s);
    row(2019, 5, 2, u"国民の休日"_s);
    row(2019, 12, 23, {});
    row(2032, 9, 21, u"国民の休日"_s);
    for (const int year : {2008, 2009, 2014, 2015, 2020, 2025, 2026}) {
        row(year, 5, 6, u"振替休日"_s);
    }
    for (const int year : {2009, 2015, 2026}) {
        row(year, 9, 22, u"国民の休日"_s);
    }
}

void TstHolidayLaw::DaysThatWereDecidedOtherwise() {
    QFETCH(const QDate, date);
    QFETCH(const QString, name);
    QCOMPARE(NameOn(date), name);
}

void TstHolidayLaw::OutsideItsYearsThereIsNoLaw() {
    QVERIFY(HolidaysByLaw(kFirstLawYear - 1).isEmpty());
    QCOMPARE(HolidaysByLaw(1948).size(), 3);
    QCOMPARE(HolidaysByLaw(2026).size(), 18);
    QVERIFY(HolidaysByLaw(kLastLawYear + 1).isEmpty());
}

QTEST_GUILESS_MAIN(TstHolidayLaw)
#include "tst_holiday_law.moc"
