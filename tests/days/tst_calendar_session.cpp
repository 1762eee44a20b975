// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "days/calendar_bench.h"
#include "days/month_model.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

constexpr quint32 kSeed = 0x5E55;
constexpr int kSteps = 10'000;

constexpr int kRed = 255;
constexpr int kBlue = 255 * 65536;

/// The expected state of the calendar and its database.
class Model {
public:
    ModelTables tables;
    ModelDate today;
    ModelDate selected;
    int mode = 0;
    int told = 0;  // number of messages about the first and the last year
    QString heading;
    ModelCells cells;

    void Open() {
        mode = 0;
        GoToToday();
    }

    void GoToToday() {
        selected = today;
        m_year = today.year;
        m_month = today.month;
        Build();
    }

    void GoBy(int months) {
        const int count = m_year * 12 + m_month - 1 + months;
        m_year = count / 12;
        m_month = count % 12 + 1;
        Build();
    }

    void Build() {
        if (m_year < 1926 || m_year > 2100) {
            ++told;
            return;
        }
        const auto before = cells;
        cells = ModelMonth(tables, m_year, m_month);
        heading = ModelHeading(m_year, m_month);
        for (std::size_t cell = 0; cell < cells.size(); ++cell) {
            ModelCell& each = cells.at(cell);
            const bool isToday =
                m_year == today.year && m_month == today.month && each.caption == QString::number(today.day);
            each.isPressed = each.isVisible ? isToday : before.at(cell).isPressed;
        }
    }

    /// Returns false if the day of the clicked cell does not exist in the month reached with the arrows.
    bool Click(int cell) {
        ModelCell& clicked = cells.at(static_cast<std::size_t>(cell - 7));
        if (mode != 0) {
            const int marking = mode == 1 ? kRed : kBlue;
            clicked.color = clicked.color == marking ? 0 : marking;
            clicked.isPressed = clicked.color != 0;
            return true;
        }
        for (ModelCell& each : cells) {
            each.isPressed = false;
        }
        clicked.isPressed = true;
        const int day = clicked.caption.toInt();
        if (day > DaysInMonth(m_year, m_month)) {
            return false;
        }
        selected = {m_year, m_month, day};
        return true;
    }

    void ChooseMode(int chosen) {
        mode = chosen;
        for (ModelCell& each : cells) {
            each.isPressed = (mode == 1 && each.color == kRed) || (mode == 2 && each.color == kBlue);
        }
        if (mode == 0) {
            StoreMonth(tables, cells, m_year, m_month);
        }
    }

    void Delete(MessageAnswer answer) {
        const ModelDate last{m_year, m_month, DaysInMonth(m_year, m_month)};
        if (answer == MessageAnswer::Yes) {
            EraseMarks(tables, {}, last);
        } else if (answer == MessageAnswer::No) {
            EraseMarks(tables, {m_year, m_month, 1}, last);
        }
        Build();
    }

private:
    int m_year = 0;
    int m_month = 0;
};

class Session {
public:
    explicit Session(quint32 seed) : m_random(seed) {
        m_bench.store.Raw("DELETE FROM Syukuzitu");
        for (int i = 0; i < 60; ++i) {
            const ModelHoliday holiday{u"祝日%1"_s.arg(i), From(1, 12), From(1, 31)};
            m_model.tables.holidays.append(holiday);
            m_bench.store.Raw(u"INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('%1',%2,%3)"_s.arg(holiday.name)
                                  .arg(holiday.month)
                                  .arg(holiday.day)
                                  .toUtf8());
        }
        Open();
    }

    void Step() {
        const int dice = From(0, 99);
        if (m_model.mode != 0) {
            dice < 80 ? Click() : dice < 99 ? ChooseMode() : Open();
        } else if (dice < 35) {
            Go();
        } else if (dice < 60) {
            Click();
        } else if (dice < 85) {
            ChooseMode();
        } else if (dice < 90) {
            Delete();
        } else if (dice < 94) {
            GoToToday();
        } else if (dice < 97) {
            m_bench.calendar.TogglePanel();
        } else {
            Open();
        }
        CloseBoxes();
    }

    /// A description of the first difference; empty if there is none.
    QString Difference() const {
        const MonthGrid& grid = m_bench.calendar.Grid();
        for (int cell = 7; cell < 49; ++cell) {
            const ModelCell& wanted = m_model.cells.at(static_cast<std::size_t>(cell - 7));
            const MonthCell& found = grid.At(cell);
            if (wanted.caption != found.caption || wanted.color != static_cast<int>(found.color) ||
                wanted.tip != found.toolTip || wanted.isVisible != found.isVisible ||
                wanted.isPressed != found.isPressed) {
                return u"cell %1"_s.arg(cell);
            }
        }
        const QDate selected = m_bench.calendar.SelectedDate();
        const bool sameDay = m_model.selected == ModelDate{selected.year(), selected.month(), selected.day()};
        return grid.heading != m_model.heading ? u"heading "_s + grid.heading
               : !sameDay                      ? u"selected "_s + selected.toString(Qt::ISODate)
               : m_bench.boxes.Shown().size() != m_model.told ? u"messages"_s
                                                              : QString();
    }

    QString DifferenceInTheDatabase() const {
        const std::array marks{std::pair("Holiday", &m_model.tables.red),
                               std::pair("Halfday", &m_model.tables.blue),
                               std::pair("Usuallyday", &m_model.tables.black)};
        for (const auto& [table, dates] : marks) {
            QStringList expected;
            for (const ModelDate& date : *dates) {
                expected.append(QDate(date.year, date.month, date.day).toString(Qt::ISODate));
            }
            if (m_bench.store.Raw(QByteArray("SELECT \"Date\" FROM ") + table + " ORDER BY 1") != expected) {
                return QString::fromLatin1(table);
            }
        }
        return QString();
    }

    std::size_t StoredMarks() const {
        return m_model.tables.red.size() + m_model.tables.blue.size() + m_model.tables.black.size();
    }
    int Told() const { return m_model.told; }
    int Errors() const { return m_errors; }
    bool HasWritten() { return std::exchange(m_hasWritten, false); }

private:
    int From(int first, int last) { return m_random.bounded(first, last + 1); }

    /// Mostly the same years, so that months are revisited; sometimes near the limits.
    void Open() {
        const int year = From(0, 9) == 0 ? 2100 : From(0, 8) == 0 ? 1926 : 1998;
        const int month = year == 2100 ? From(11, 12) : year == 1926 ? From(1, 2) : From(1, 12);
        const QDate today(year, month, From(1, DaysInMonth(year, month)));
        m_bench.time.SetNow(QDateTime(today, QTime(9, 0)));
        m_model.today = {today.year(), today.month(), today.day()};
        m_bench.calendar.Load();
        m_model.Open();
    }

    void GoToToday() {
        m_bench.calendar.GoToToday();
        m_model.GoToToday();
    }

    /// Clicks an arrow once or several times.
    void Go() {
        const std::array steps{-1, 1, -12, 12};
        const int months = steps.at(static_cast<std::size_t>(From(0, 3)));
        for (int clicks = From(0, 2) == 0 ? From(2, 5) : 1; clicks > 0; --clicks) {
            m_bench.calendar.GoBy(months);
            m_model.GoBy(months);
            CloseBoxes();
        }
    }

    void CloseBoxes() {
        if (m_bench.boxes.IsOpen()) {
            m_bench.boxes.Close();
        }
    }

    void Click() {
        int cell = From(0, 48);
        while (!m_bench.calendar.Grid().At(cell).isVisible) {
            cell = From(0, 48);
        }
        bool failed = false;
        try {
            m_bench.calendar.ClickCell(cell);
        } catch (const TypeMismatchError&) {
            failed = true;
            ++m_errors;
        }
        if (cell >= 7) {
            QCOMPARE(failed, !m_model.Click(cell));
        }
    }

    /// Chooses a random mode; from a marking mode usually Normal, which stores the marks.
    void ChooseMode() {
        const int mode = m_model.mode != 0 && From(0, 1) == 0 ? 0 : From(0, 2);
        m_bench.calendar.ChooseMode(static_cast<CalendarMode>(mode));
        m_model.ChooseMode(mode);
        m_hasWritten = m_hasWritten || mode == 0;
    }

    void Delete() {
        const auto answer = From(0, 3) == 0   ? MessageAnswer::Yes
                            : From(0, 1) == 0 ? MessageAnswer::No
                                              : MessageAnswer::Cancel;
        m_bench.calendar.DeleteMarks();
        m_bench.boxes.Pick(answer);
        m_model.Delete(answer);
        m_hasWritten = true;
    }

    QRandomGenerator m_random;
    CalendarBench m_bench;
    Model m_model;
    int m_errors = 0;
    bool m_hasWritten = false;
};

}  // namespace

/// Ten thousand steps over months, modes, marks and deletions, each compared with a model.
class TstCalendarSession : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void GridAndDatabaseFollowTheModel();
};

void TstCalendarSession::GridAndDatabaseFollowTheModel() {
    qInfo("seed %u", kSeed);
    Session session(kSeed);
    std::size_t mostMarks = 0;
    int writes = 0;
    for (int step = 0; step < kSteps; ++step) {
        session.Step();
        QString difference = session.Difference();
        if (difference.isEmpty() && session.HasWritten()) {
            ++writes;
            difference = session.DifferenceInTheDatabase();
        }
        QVERIFY2(difference.isEmpty(), qPrintable(u"step %1: %2"_s.arg(step).arg(difference)));
        mostMarks = std::max(mostMarks, session.StoredMarks());
    }
    qInfo("%d writes, at most %zu marks, %d messages, %d errors", writes, mostMarks, session.Told(),
          session.Errors());
    QVERIFY(writes > kSteps / 20 && mostMarks > 500 && session.Told() > 50 && session.Errors() > 0);
}

QTEST_GUILESS_MAIN(TstCalendarSession)
#include "tst_calendar_session.moc"
