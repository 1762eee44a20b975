// SPDX-License-Identifier: GPL-3.0-or-later
// month_show [FOLDER]: the time to show another month, with 10 000 marks and 1 000 national holidays and with
// none, and with days off by law instead of by the database's table, alternately: of the database queries, of
// the grid, and of the complete click including painting. Set QT_QPA_PLATFORM=offscreen if there is no
// display. FOLDER is the folder for the files; the default is the temporary folder.

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "core/errors.h"
#include "days/calendar_window.h"
#include "days/law_holidays.h"
#include "days/table_holidays.h"
#include "platform/desktop/qt_message_boxes.h"
#include "platform/time/qt_timers.h"
#include "platform/time/virtual_time.h"
#include "store/day_transaction.h"
#include "store/sqlite_connection.h"
#include "support/child.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr quint32 kSeed = 0xBE7D;
constexpr int kMarks = 10'000;
constexpr int kHolidays = 1'000;
constexpr int kTimes = 300;
constexpr double kMilliseconds = 1e6;   // nanoseconds per millisecond
constexpr double kFrame = 1000.0 / 60;  // ms

struct Taken {
    double median;
    double worst;  // the 99th percentile
};

/// Nanoseconds of each of the repetitions.
using Times = std::vector<qint64>;

template <typename Deed>
void Measure(Times& times, Deed deed) {
    QElapsedTimer timer;
    timer.start();
    deed();
    times.push_back(timer.nsecsElapsed());
}

Taken Summary(Times times) {
    std::sort(times.begin(), times.end());
    const auto milliseconds = [&](std::size_t place) {
        return static_cast<double>(times.at(place)) / kMilliseconds;
    };
    return {milliseconds(times.size() / 2), milliseconds(times.size() - 1 - times.size() / 100)};
}

class NoHelp : public HelpViewer {
public:
    void ShowTopic(int /*topic*/) override {}
};

/// Two thirds of the marks are within the measured years, the others before and after.
void FillMarks(store::DayDatabase& database) {
    QRandomGenerator random(kSeed);
    store::DayTransaction transaction(database);
    for (int i = 0; i < kMarks; ++i) {
        const QDate date = QDate(2026, 1, 1).addDays(random.bounded(-10'000, 10'000));
        const QStringView table =
            days::TableOf(days::kDayMarks.at(random.bounded(static_cast<quint32>(days::kDayMarks.size()))));
        database.Execute(u"INSERT INTO "_s + table + u"  VALUES (" + days::DateLiteral(date) + u')');
    }
    transaction.Commit();
}

void FillHolidays(const QString& path) {
    QRandomGenerator random(kSeed + 1);
    store::SqliteConnection connection(path);
    connection.Run("BEGIN");
    for (int i = 0; i < kHolidays; ++i) {
        connection.Run(u"INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('祝日%1',%2,%3)"_s.arg(i)
                           .arg(random.bounded(1, 13))
                           .arg(random.bounded(1, 32))
                           .toUtf8());
    }
    connection.Run("COMMIT");
}

/// A calendar on its own database, and the times of what it did.
class Calendar {
public:
    enum class Source { Table, Law };

    Calendar(const QString& path, Source source)
        : m_database(path),
          m_list(ProgramFolder(QFileInfo(path).path())),
          m_holidays(source == Source::Law ? static_cast<const days::HolidaySource&>(m_law) : m_table),
          m_window({.dayDatabase = m_database,
                    .holidays = m_holidays,
                    .further = m_further,
                    .list = m_dayList,
                    .clock = m_time,
                    .boxes = m_boxes,
                    .handlers = m_handlers,
                    .help = m_help,
                    .book = {},
                    .timers = m_timers},
                   nullptr) {
        m_window.Form_Load();
        m_window.show();
        m_picture = QImage(m_window.size(), QImage::Format_RGB32);
    }

    void ShowNextMonth() {
        m_month = m_month.addMonths(1);
        const days::MonthShape shape = days::ShapeOf(m_month);
        days::MonthRows rows;
        Measure(ask, [&] { rows = days::ReadMonth(m_database, m_holidays, shape); });
        Measure(fill, [&] { days::FillGrid(m_grid, shape, rows, m_month); });
        Measure(show, [&] {
            m_next.click();
            QCoreApplication::sendPostedEvents();
            m_window.render(&m_picture);
        });
    }

    Times ask;
    Times fill;
    Times show;

private:
    store::DayDatabase m_database;
    days::HolidayListFile m_list;
    days::TableHolidays m_table{m_database};
    days::LawHolidays m_law{m_list};
    const days::HolidaySource& m_holidays;
    days::DayList m_dayList;
    platform::VirtualTime m_time{QDateTime(QDate(2026, 11, 20), QTime(9, 0))};
    platform::QtMessageBoxes m_boxes;
    Handlers m_handlers{m_boxes};
    NoHelp m_help;
    platform::QtTimers m_timers;
    FurtherSettings m_further;
    days::Form5 m_window;
    QPushButton& m_next{ChildOf<QPushButton>(m_window, u"Command2"_s)};
    QImage m_picture;
    QDate m_month{2026, 11, 1};
    days::MonthGrid m_grid;
};

QString Copied(const QTemporaryDir& folder, const QString& name) {
    QString path = folder.filePath(name);
    if (!QFile::copy(QStringLiteral(TICKWELL_PRISTINE_DATABASE), path)) {
        throw RunTimeError(path);
    }
    return path;
}

void Print(const char* what, const Times& one, const Times& other) {
    const Taken taken = Summary(one);
    const Taken base = Summary(other);
    std::printf("%-24s %7.3f ms, slowest of 100 %7.3f ms; the other %7.3f ms, ratio %5.2f\n", what,
                taken.median, taken.worst, base.median, taken.median / base.median);
}

/// The months alternate, so that other load on the machine slows both.
void Compare(const char* what, Calendar& one, Calendar& other) {
    for (int i = 0; i < kTimes; ++i) {
        one.ShowNextMonth();
        other.ShowNextMonth();
    }
    std::printf("%s\n", what);
    Print("  queries", one.ask, other.ask);
    Print("  filling the grid", one.fill, other.fill);
    Print("  the click and its paint", one.show, other.show);
    std::printf("  of a frame of a screen   %7.2f\n", Summary(one.show).median / kFrame);
}

void CompareRows(const QTemporaryDir& files) {
    const QString path = Copied(files, u"full.mdb"_s);
    FillHolidays(path);
    store::DayDatabase database(path);
    FillMarks(database);
    database.Close();
    Calendar full(path, Calendar::Source::Table);
    Calendar empty(Copied(files, u"empty.mdb"_s), Calendar::Source::Table);
    Compare("10 000 marks and 1 000 holidays; the other: nothing stored", full, empty);
}

void CompareSources(const QTemporaryDir& files) {
    if (!QFile::copy(QStringLiteral(TICKWELL_HOLIDAY_LIST), files.filePath(u"Syukujitsu.csv"_s))) {
        throw RunTimeError(files.path());
    }
    Calendar law(Copied(files, u"law.mdb"_s), Calendar::Source::Law);
    Calendar table(Copied(files, u"table.mdb"_s), Calendar::Source::Table);
    Compare("days off by law and official list; the other: by the database's table", law, table);
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    try {
        const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
        const QTemporaryDir files(folder.filePath(u"month_show-XXXXXX"_s));
        CompareRows(files);
        CompareSources(files);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "month_show: %s\n", error.what());
        return 1;
    }
    return 0;
}
