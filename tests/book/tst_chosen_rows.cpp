// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>

#include "book/anniversary_edit.h"
#include "book/whole_work.h"
#include "days/anniversary_model.h"
#include "days/day_list.h"
#include "store/day_store.h"
#include "store/day_transaction.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

constexpr quint32 kSeed = 0xC0DE;
constexpr int kDeeds = 10'000;
constexpr std::size_t kRows = 20;
constexpr Corrections kCorrected{.weekdayAnniversaries = true};

/// Week codes that no calendar has, as other programs or typed weekdays can leave them.
constexpr std::array kDamaged{1,   2,   5,    7,          8,  9,  10,  18,  19,  20,
                              28,  29,  30,   40,         48, 50, 58,  59,  60,  61,
                              63,  70,  75,   77,         78, 90, 99,  100, 131, 132,
                              313, 575, 1357, 2147483647, -1, -5, -11, -13, -31, -2147483647 - 1};

class Dice {
public:
    int Below(int end) { return m_generator.bounded(end); }
    bool Once(int times) { return Below(times) == 0; }
    template <typename Values>
    auto OneOf(const Values& values) {
        return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
    }

    int Week() {
        const int valid = 10 * (1 + Below(5)) + 1 + Below(7);
        return Once(3) ? OneOf(kDamaged) : valid;
    }

    /// An anniversary that is mostly defined by week; the name is always the same.
    days::Anniversary Row() {
        days::Anniversary row{u"例会"_s, 0, 0, 0, 0};
        row.year = Once(4) ? OneOf(std::array{1998, 1999, 5, -1, 99999}) : 0;
        row.month = Once(2) ? OneOf(std::array{1, 9, 10, 11, 13, -2}) : 0;
        row.week = Once(5) ? 0 : Week();
        row.day = row.week == 0 || Once(6) ? OneOf(std::array{0, 3, 10, 31, 40, -4}) : 0;
        return row;
    }

    QDate Day() { return QDate(1998, 9, 1).addDays(Below(120)); }

private:
    QRandomGenerator m_generator{kSeed};
};

int Exchanged(int code) {
    return 10 * (code % 10) + code / 10;
}

/// The week code: 10 * week + weekday. Sunday is 1; weeks are counted in sevens from the 1st.
int CodeOf(QDate day) {
    int week = 1;
    for (QDate before = day.addDays(-7); before.month() == day.month(); before = before.addDays(-7)) {
        ++week;
    }
    return 10 * week + (day.dayOfWeek() == Qt::Sunday ? 1 : day.dayOfWeek() + 1);
}

days::Anniversaries OfDay(const days::Anniversaries& all, QDate day) {
    const int code = CodeOf(day);
    return days::Those(all, [&](const days::Anniversary& row) {
        return (row.day == day.day() || row.week == code) && (row.month == 0 || row.month == day.month()) &&
               (row.year == 0 || row.year == day.year());
    });
}

/// What a search for everything lists, in order: the rows of one year, of every year and of every month.
days::Anniversaries OfSearch(const days::Anniversaries& all) {
    days::Anniversaries listed = days::Those(all, [](const auto& row) { return row.year != 0; });
    for (const bool ofEveryMonth : {false, true}) {
        for (const days::Anniversary& row : all) {
            if ((row.month == 0) == ofEveryMonth && (ofEveryMonth || row.year == 0)) {
                listed.push_back(row);
            }
        }
    }
    return listed;
}

/// The same twenty rows in a database and in a vector, with each change applied to both.
class Twins {
public:
    Twins() { Refill(); }

    /// Lists the rows of a day, or all rows; returns false if there are none.
    bool List(bool ofDay) {
        const QDate day = m_dice.Day();
        m_list.ListDay(m_database, day, true);
        if (!ofDay) {
            SearchFinds finds = FindAnniversaries(m_database, {});
            m_list.ListFound(std::move(finds.rows), finds.searched);
        }
        m_listed = ofDay ? OfDay(m_rows, day) : OfSearch(m_rows);
        return !m_listed.empty();
    }

    /// Changes one row to new values, as the editor does.
    void Edit() {
        const days::Anniversary to = NewRow();
        const int row = m_dice.Below(static_cast<int>(m_listed.size()));
        m_list.ChooseRow(row);
        DoWhole(*EditOf(m_database, *m_list.ChosenRow(), {.entered = to, .isRenamed = false}, kCorrected));
        const days::Anniversary chosen = m_listed.at(static_cast<std::size_t>(row));
        Count(chosen);
        for (days::Anniversary& each : m_rows) {
            each = each == chosen ? to : each;
        }
    }

    /// Deletes some rows, as the deletion window does.
    void Delete() {
        std::vector<bool> isTicked(m_listed.size());
        const int ticks = 1 + m_dice.Below(3);
        days::Anniversaries chosen;
        for (int i = 0; i < ticks; ++i) {
            const auto row = static_cast<std::size_t>(m_dice.Below(static_cast<int>(m_listed.size())));
            isTicked[row] = true;
            chosen.push_back(m_listed[row]);
            Count(chosen.back());
        }
        DeleteTicked(m_database, m_list.Rows(), isTicked, kCorrected);
        m_rows = days::Those(m_rows, [&](const days::Anniversary& row) {
            return std::find(chosen.begin(), chosen.end(), row) == chosen.end();
        });
    }

    void Refill() {
        if (m_rows.size() == kRows) {
            return;
        }
        store::DayTransaction transaction(m_database);
        while (m_rows.size() < kRows) {
            m_rows.push_back(NewRow());
            m_database.Execute(days::InsertText(m_rows.back()));
        }
        transaction.Commit();
    }

    bool AreEqual() {
        return days::AnniversariesIn(m_database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 6"_s)) ==
               m_rows;
    }
    days::Anniversaries Listed() const {
        days::Anniversaries stored;
        for (const days::DayListRow& row : AllOf(m_list.Rows())) {
            stored.push_back(row.stored);
        }
        return stored;
    }
    const days::Anniversaries& ExpectedList() const { return m_listed; }
    bool Once(int times) { return m_dice.Once(times); }

    /// The number of chosen rows that had an equal one, a negative code, or another row with the same code
    /// swapped.
    struct Counts {
        int equal = 0;
        int negative = 0;
        int exchanged = 0;
    };
    const Counts& Counted() const { return m_counts; }

private:
    /// Often equal to an existing row, or to one with its digits swapped.
    days::Anniversary NewRow() {
        if (m_rows.empty() || !m_dice.Once(3)) {
            return m_dice.Row();
        }
        days::Anniversary row = m_dice.OneOf(m_rows);
        if (m_dice.Once(2) && row.week > 0 && row.week < 100) {
            row.week = Exchanged(row.week);
        }
        return row;
    }

    void Count(const days::Anniversary& chosen) {
        days::Anniversary other = chosen;
        other.week = chosen.week > 0 && chosen.week < 100 ? Exchanged(chosen.week) : 0;
        m_counts.equal += std::count(m_rows.begin(), m_rows.end(), chosen) > 1 ? 1 : 0;
        m_counts.negative += chosen.week < 0 ? 1 : 0;
        m_counts.exchanged += other != chosen && std::count(m_rows.begin(), m_rows.end(), other) > 0 ? 1 : 0;
    }

    Dice m_dice;
    store::DayStore m_store;
    store::DayDatabase m_database{m_store.Path()};
    days::DayList m_list;
    days::Anniversaries m_rows;
    days::Anniversaries m_listed;
    Counts m_counts;
};

}  // namespace

/// With weekdayAnniversaries, edits and deletions change exactly the chosen rows and those equal to them.
class TstChosenRows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TenThousandRandomStepsChangeOnlyTheChosenRows();
    void ALongListIsDeletedByItsStoredValues();
    void ARowChangedByAnotherProgramStays();
    void ARowThatNoStatementCanNameIsChangedByItsKey();
};

/// Each step ends with a commit, which waits for the disk unless the file is in memory.
void TstChosenRows::initTestCase() {
    if (QFileInfo(u"/dev/shm"_s).isWritable()) {
        qputenv("TMPDIR", "/dev/shm");
    }
}

void TstChosenRows::TenThousandRandomStepsChangeOnlyTheChosenRows() {
    qInfo("seed %u", kSeed);
    Twins twins;
    QVERIFY(twins.AreEqual());
    int edits = 0;
    for (int deed = 0; deed < kDeeds;) {
        if (!twins.List(twins.Once(2))) {
            continue;
        }
        QVERIFY2(twins.Listed() == twins.ExpectedList(), qPrintable(QString::number(deed)));
        const bool isEdit = !twins.Once(3);
        isEdit ? twins.Edit() : twins.Delete();
        edits += isEdit ? 1 : 0;
        QVERIFY2(twins.AreEqual(), qPrintable(QString::number(deed)));
        twins.Refill();
        ++deed;
    }
    QVERIFY(edits > kDeeds / 2 && edits < kDeeds * 3 / 4);
    const Twins::Counts& counts = twins.Counted();
    QVERIFY2(counts.equal > 1000, qPrintable(QString::number(counts.equal)));
    QVERIFY2(counts.negative > 200, qPrintable(QString::number(counts.negative)));
    QVERIFY2(counts.exchanged > 500, qPrintable(QString::number(counts.exchanged)));
}

void TstChosenRows::ALongListIsDeletedByItsStoredValues() {
    const store::DayStore store;
    store.Raw(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000)"
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'a',0,0,0,i - 100 FROM n");
    store::DayDatabase database(store.Path());
    const days::ListedRows rows = FindAnniversaries(database, {}).rows;
    QCOMPARE(rows.Count(), 3000);
    QVERIFY(rows.Kept().isEmpty());
    std::vector<bool> isTicked(3000, true);
    for (const std::size_t row : {0U, 113U, 131U, 2999U}) {  // the codes -99, 14, 32 and 2900
        isTicked[row] = false;
    }
    DeleteTicked(database, rows, isTicked, kCorrected);
    QCOMPARE(store.Raw("SELECT Week FROM Kinenbi ORDER BY id"),
             QStringList({u"-99"_s, u"14"_s, u"32"_s, u"2900"_s}));
}

void TstChosenRows::ARowChangedByAnotherProgramStays() {
    const store::DayStore store;
    store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('a',0,0,0,32),('a',0,0,0,23)");
    store::DayDatabase database(store.Path());
    const days::ListedRows rows = FindAnniversaries(database, {}).rows;
    store.Raw("UPDATE Kinenbi SET Month = 1 WHERE Week = 32");
    DeleteTicked(database, rows, {true, false}, kCorrected);
    QCOMPARE(store.Raw("SELECT Month,Week FROM Kinenbi ORDER BY id"), QStringList({u"1|32"_s, u"0|23"_s}));
}

void TstChosenRows::ARowThatNoStatementCanNameIsChangedByItsKey() {
    const store::DayStore store;
    store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('x\"y',0,0,0,32),('x\"y',0,0,0,32)");
    store::DayDatabase database(store.Path());
    const days::ListedRows rows = FindAnniversaries(database, {}).rows;
    const days::Anniversary to{u"x\"y"_s, 0, 0, 0, 42};
    DoWhole(*EditOf(database, *rows.Read(1), {.entered = to, .isRenamed = false}, kCorrected));
    QCOMPARE(store.Raw("SELECT Week FROM Kinenbi ORDER BY id"), QStringList({u"32"_s, u"42"_s}));
    DeleteTicked(database, rows, {true, false}, kCorrected);
    QCOMPARE(store.Raw("SELECT Week FROM Kinenbi ORDER BY id"), QStringList{u"42"_s});
}

QTEST_GUILESS_MAIN(TstChosenRows)
#include "tst_chosen_rows.moc"
