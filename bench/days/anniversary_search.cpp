// SPDX-License-Identifier: GPL-3.0-or-later
// anniversary_search [ROWS]: the cost of the anniversary book's windows with ROWS anniversaries (default: one
// million). For each action: its total time, the longest time that the event loop was blocked (in CPU time,
// so that a busy machine makes no difference), and the memory afterwards. The search is compared with the
// same work without a window; searches in a range use searchAcrossMonths. Runs without a screen.

#include <sqlite3.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include "book/deletion_window.h"
#include "book/search_window.h"
#include "core/errors.h"
#include "days/announced_names.h"
#include "days/day_list_model.h"
#include "days/row_table.h"
#include "days/table_holidays.h"
#include "platform/desktop/qt_message_boxes.h"
#include "platform/time/qt_timers.h"
#include "platform/time/system_clock.h"
#include "store/sqlite_handle.h"
#include "support/child.h"
#include "support/fake_help_viewer.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr int kRows = 1'000'000;
constexpr int kSteps = 1000;           // steps of the scroll bar
constexpr double kMilliseconds = 1e6;  // nanoseconds per millisecond
constexpr double kMegabyte = 1e3;      // kB per MB

class NoChanges : public DayChanges {
public:
    void RaiseRefresh() override {}
};

/// CPU time used by this thread, in milliseconds.
double Worked() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / kMilliseconds;
}

/// The value of the line starting with `name` in a file of /proc/self, in MB.
double Memory(const char* file, const QByteArray& name) {
    QFile status(QString::fromLatin1(file));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name)) {
            return line.simplified().split(' ').value(1).toDouble() / kMegabyte;
        }
    }
    return 0;
}

/// Runs `deed`, then processes events until `isDone`; prints the cost.
void Measure(const char* name, const std::function<void()>& deed, const std::function<bool()>& isDone) {
    QElapsedTimer timer;
    timer.start();
    double begun = Worked();
    deed();
    QCoreApplication::processEvents();
    double longest = Worked() - begun;
    while (!isDone()) {
        begun = Worked();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longest = std::max(longest, Worked() - begun);
    }
    std::printf(
        "%-28s %8.1f ms, without an answer for %6.1f ms at most, %5.1f MB PSS, %5.1f MB RSS at most\n", name,
        static_cast<double>(timer.nsecsElapsed()) / kMilliseconds, longest,
        Memory("/proc/self/smaps_rollup", "Pss:"), Memory("/proc/self/status", "VmHWM:"));
}

/// Each kind makes up one third of the rows; three of seven rows are by week.
void Fill(const QString& path, int rows) {
    const QByteArray sql =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        QByteArray::number(rows) +
        ") INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT '記念日' || i,"
        "CASE i % 3 WHEN 0 THEN 1926 + i % 175 ELSE 0 END,CASE i % 3 WHEN 1 THEN 0 ELSE 1 + i % 12 END,"
        "CASE i % 7 % 3 WHEN 0 THEN 0 ELSE 1 + i % 31 END,"
        "CASE i % 7 % 3 WHEN 0 THEN 10 * (1 + i % 5) + 1 + i % 7 ELSE 0 END FROM n";
    sqlite3* opened = nullptr;
    const int result = sqlite3_open(QFile::encodeName(path).constData(), &opened);
    const store::SqliteHandle handle(opened);
    if (result != SQLITE_OK ||
        sqlite3_exec(opened, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw RunTimeError(QString::fromUtf8(sqlite3_errmsg(opened)));
    }
}

/// The anniversary book, and a list like the calendar's.
struct Bench {
    store::DayDatabase database;
    days::TableHolidays holidays{database};
    FurtherSettings further;
    days::DayList list;
    NoChanges changes;
    platform::SystemClock clock;
    platform::QtTimers timers;
    platform::QtMessageBoxes boxes;
    Handlers handlers{boxes};
    FakeHelpViewer help;
    book::BookParts parts{.dayDatabase = database,
                          .further = further,
                          .list = list,
                          .changes = changes,
                          .clock = clock,
                          .boxes = boxes,
                          .handlers = handlers,
                          .help = help,
                          .timers = timers};
    days::DayListModel model{QVariant(), days::DayListModel::Columns::All, nullptr};
    days::RowTable view;

    explicit Bench(const QString& path) : database(path) {
        view.setModel(&model);
        view.resize(400, 400);
        view.show();
        list.WhenChanged([this] { model.SetRows(list.Rows()); });
    }

    void Click(QDialog& window, const QString& button) const {
        ChildOf<QAbstractButton>(window, button).click();
    }
};

void MeasureSearch(Bench& bench) {
    Measure(
        "its work alone",
        [&] {
            book::AnniversarySearch search(bench.database, {});
            while (!search.Step()) {
            }
        },
        [] { return true; });
    book::Form9 window(bench.parts, nullptr);
    window.show();
    QCoreApplication::processEvents();  // the first paint
    Measure(
        "search for all", [&] { bench.Click(window, u"Command1"_s); }, [&] { return !window.isVisible(); });
    std::printf("%d rows found\n", bench.list.Rows().Count());
}

/// Searches for the anniversaries of every year that fall on the days from `first` to `last`.
void MeasureRange(Bench& bench, const char* name, QDate first, QDate last) {
    bench.further.corrections.searchAcrossMonths = true;
    book::Form9 window(bench.parts, nullptr);
    window.show();
    for (const QString& button : {u"Check1"_s, u"Check3"_s, u"Option2(0)"_s}) {  // every year, by date
        bench.Click(window, button);
    }
    int text = 2;  // Text2 to Text4 are the start, Text5 to Text7 the end
    for (const QDate date : {first, last}) {
        for (const int part : {date.year(), date.month(), date.day()}) {
            ChildOf<QLineEdit>(window, u"Text%1"_s.arg(text++)).setText(QString::number(part));
        }
    }
    QCoreApplication::processEvents();  // the first paint
    Measure(
        name, [&] { bench.Click(window, u"Command1"_s); }, [&] { return !window.isVisible(); });
    std::printf("%d rows found\n", bench.list.Rows().Count());
    bench.further.corrections.searchAcrossMonths = false;
}

void MeasureList(Bench& bench) {
    QScrollBar* bar = bench.view.verticalScrollBar();
    int step = 0;
    Measure(
        "scrolling, 1000 steps",
        [&] {
            for (; step < kSteps; ++step) {
                bar->setValue(static_cast<int>(qint64{bar->maximum()} * step / kSteps));
            }
        },
        [] { return true; });
    Measure(
        "typing a name in the list", [&] { bench.view.keyboardSearch(u"no such name"_s); },
        [] { return true; });
    Measure(
        "the list of a day", [&] { bench.list.ListDay(bench.database, QDate(2026, 11, 20), true); },
        [&] {
            if (bench.list.IsListing()) {
                bench.list.GoOn();
            }
            return !bench.list.IsListing();
        });
    Measure(
        "the names of a day",
        [&] {
            days::AnnouncedNames(
                {.dayDatabase = bench.database, .holidays = bench.holidays, .further = bench.further},
                QDate(2026, 11, 20));
        },
        [] { return true; });
}

void MeasureDeletion(Bench& bench) {
    std::unique_ptr<book::Form10> window;
    Measure(
        "opening the deletion window",
        [&] {
            window = std::make_unique<book::Form10>(bench.parts, nullptr);
            window->show();
        },
        [] { return true; });
    Measure(
        "ticking all", [&] { bench.Click(*window, u"Command3"_s); }, [] { return true; });
    Measure(
        "deleting all", [&] { bench.Click(*window, u"Command1"_s); }, [&] { return !window->isVisible(); });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    try {
        const QTemporaryDir files;
        const QString path = files.filePath(u"DayDate.mdb"_s);
        if (!QFile::copy(QStringLiteral(TICKWELL_PRISTINE_DATABASE), path)) {
            throw RunTimeError(path);
        }
        Fill(path, argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : kRows);
        Bench bench(path);
        MeasureSearch(bench);
        MeasureList(bench);
        MeasureRange(bench, "search in a day", QDate(2026, 12, 20), QDate(2026, 12, 20));
        MeasureRange(bench, "search across months", QDate(2026, 11, 20), QDate(2027, 2, 10));
        MeasureRange(bench, "search from a day on", QDate(2026, 11, 20), QDate(9999, 12, 31));
        MeasureSearch(bench);
        MeasureDeletion(bench);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "anniversary_search: %s\n", error.what());
        return 1;
    }
    return 0;
}
