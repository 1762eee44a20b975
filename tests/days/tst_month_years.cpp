// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "days/month_grid.h"
#include "days/month_model.h"
#include "days/table_holidays.h"
#include "store/day_store.h"
#include "store/day_transaction.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

constexpr quint32 kSeed = 0xCA1E;
constexpr int kRandomTables = 8;
constexpr int kMonths = (2100 - 1926 + 1) * 12;

int Mismatch(const ModelCells& expected, const MonthGrid& grid) {
    for (int cell = 7; cell < 49; ++cell) {
        const ModelCell& wanted = expected.at(static_cast<std::size_t>(cell - 7));
        const MonthCell& found = grid.At(cell);
        if (wanted.caption != found.caption || wanted.color != static_cast<int>(found.color) ||
            wanted.tip != found.toolTip || wanted.isVisible != found.isVisible || found.isPressed) {
            return cell;
        }
    }
    return -1;
}

/// Holidays on any possible day, some of them twice, some on days that no month has, and marks in all years.
ModelTables RandomTables(QRandomGenerator& random) {
    ModelTables tables;
    const int holidays = random.bounded(1, 150);
    for (int i = 0; i < holidays; ++i) {
        const int day = random.bounded(12) == 0 ? random.bounded(-3, 60) : random.bounded(1, 32);
        tables.holidays.append({u"祝日%1"_s.arg(i), random.bounded(1, 13), day});
    }
    for (auto* marks : {&tables.red, &tables.blue, &tables.black}) {
        const int dates = random.bounded(4'000);
        for (int i = 0; i < dates; ++i) {
            const int year = random.bounded(1926, 2101);
            const int month = random.bounded(1, 13);
            marks->insert({year, month, random.bounded(1, DaysInMonth(year, month) + 1)});
        }
    }
    return tables;
}

QString MarkText(const QString& table, const ModelDate& date) {
    return u"INSERT INTO %1  VALUES (#%2/%3/%4#)"_s.arg(table).arg(date.month).arg(date.day).arg(date.year);
}

void Store(store::DayDatabase& database, const ModelTables& tables) {
    store::DayTransaction transaction(database);
    const std::array marks{std::pair(u"Holiday"_s, &tables.red), std::pair(u"Halfday"_s, &tables.blue),
                           std::pair(u"Usuallyday"_s, &tables.black)};
    for (const auto& [table, dates] : marks) {
        for (const ModelDate& date : *dates) {
            database.Execute(MarkText(table, date));
        }
    }
    transaction.Commit();
}

/// Uses SQLite directly, because the program never writes national holidays.
void StoreHolidays(const store::DayStore& store, const ModelTables& tables) {
    QString sql = u"BEGIN; DELETE FROM Syukuzitu;"_s;
    for (const ModelHoliday& holiday : tables.holidays) {
        sql += u"INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('%1',%2,%3);"_s.arg(holiday.name)
                   .arg(holiday.month)
                   .arg(holiday.day);
    }
    store.Raw((sql + u"COMMIT;").toUtf8());
}

ModelTables Shipped() {
    return {{{u"元日"_s, 1, 1},
             {u"建国記念の日"_s, 2, 11},
             {u"天皇誕生日"_s, 2, 23},
             {u"昭和の日"_s, 4, 29},
             {u"憲法記念日"_s, 5, 3},
             {u"みどりの日"_s, 5, 4},
             {u"こどもの日"_s, 5, 5},
             {u"山の日"_s, 8, 11},
             {u"文化の日"_s, 11, 3},
             {u"勤労感謝の日"_s, 11, 23}},
            {},
            {},
            {}};
}

}  // namespace

/// Every month that the calendar can show, compared with one that the test computes itself.
class TstMonthYears : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheShippedHolidays();
    void NoHolidays();
    void RandomTables_data();
    void RandomTables();
    void MarksThatAreNoDatesFallOnNoDay();

private:
    void Compare(const store::DayStore& store, const ModelTables& tables);
};

void TstMonthYears::Compare(const store::DayStore& store, const ModelTables& tables) {
    store::DayDatabase database(store.Path());
    MonthGrid grid;  // only one grid, as in the window: a month must not affect the next one
    int months = 0;
    for (int year = 1926; year <= 2100; ++year) {
        for (int month = 1; month <= 12; ++month, ++months) {
            const MonthShape shape = ShapeOf(QDate(year, month, 17));
            FillGrid(grid, shape, ReadMonth(database, TableHolidays(database), shape), QDate(2200, 1, 1));
            QCOMPARE(grid.heading, ModelHeading(year, month));
            const int cell = Mismatch(ModelMonth(tables, year, month), grid);
            QVERIFY2(cell < 0, qPrintable(u"%1 %2, cell %3"_s.arg(year).arg(month).arg(cell)));
        }
    }
    QCOMPARE(months, kMonths);
}

void TstMonthYears::TheShippedHolidays() {
    const store::DayStore store;
    Compare(store, Shipped());
}

void TstMonthYears::NoHolidays() {
    const store::DayStore store;
    store.Raw("DELETE FROM Syukuzitu");
    Compare(store, {});
}

void TstMonthYears::RandomTables_data() {
    QTest::addColumn<quint32>("seed");
    for (quint32 i = 0; i < kRandomTables; ++i) {
        QTest::addRow("seed %u", kSeed + i) << kSeed + i;
    }
}

void TstMonthYears::RandomTables() {
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const ModelTables tables = ::RandomTables(random);
    const store::DayStore store;
    StoreHolidays(store, tables);
    {
        store::DayDatabase database(store.Path());
        Store(database, tables);
    }
    Compare(store, tables);
}

/// Compared as texts, some of these marks are between the first and the last day of a month.
void TstMonthYears::MarksThatAreNoDatesFallOnNoDay() {
    ModelTables tables = Shipped();
    tables.red.insert({1998, 2, 2});
    tables.blue.insert({1998, 2, 3});
    tables.black.insert({1998, 2, 8});
    const store::DayStore store;
    {
        store::DayDatabase database(store.Path());
        Store(database, tables);
    }
    for (const QByteArray& table : {"Holiday"_ba, "Halfday"_ba, "Usuallyday"_ba}) {
        store.Raw(
            "INSERT INTO " + table +
            "(Date) VALUES ('1998-02-30'), ('x'), ('1998-02-1'), ('1998-02-10 00:00'), ('1998-02-1x'), ('')");
    }
    Compare(store, tables);
}

QTEST_GUILESS_MAIN(TstMonthYears)
#include "tst_month_years.moc"
