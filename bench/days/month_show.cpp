// SPDX-License-Identifier: GPL-3.0-or-later
// month_show [FOLDER]: the time to show another month, with 10 000 marks and 1 000 national holidays and with
// none: of the database queries, of the grid, and of the complete click including painting. Set
// QT_QPA_PLATFORM=offscreen if there is no display. FOLDER is the folder for the files; the default is the
// temporary folder.

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "core/errors.h"
#include "days/calendar_window.h"
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

template <typename Deed>
Taken Measure(Deed deed) {
    std::vector<double> taken;
    for (int i = 0; i < kTimes; ++i) {
        QElapsedTimer timer;
        timer.start();
        deed();
        taken.push_back(static_cast<double>(timer.nsecsElapsed()) / kMilliseconds);
    }
    std::sort(taken.begin(), taken.end());
    return {taken[kTimes / 2], taken[kTimes - 1 - kTimes / 100]};
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

struct Figures {
    Taken ask;
    Taken fill;
    Taken show;
};

Figures MeasureCalendar(const QString& path) {
    store::DayDatabase database{path};
    days::DayList list;
    const platform::VirtualTime time(QDateTime(QDate(2026, 11, 20), QTime(9, 0)));
    platform::QtMessageBoxes boxes;
    Handlers handlers(boxes);
    NoHelp help;
    platform::QtTimers timers;
    const days::TableHolidays holidays(database);
    const FurtherSettings further;
    days::Form5 window({.dayDatabase = database,
                        .holidays = holidays,
                        .further = further,
                        .list = list,
                        .clock = time,
                        .boxes = boxes,
                        .handlers = handlers,
                        .help = help,
                        .book = {},
                        .timers = timers},
                       nullptr);
    window.Form_Load();
    window.show();
    QImage picture(window.size(), QImage::Format_RGB32);

    QDate month(2026, 11, 1);
    days::MonthRows rows;
    days::MonthGrid grid;
    const Taken ask = Measure([&] {
        month = month.addMonths(1);
        rows = days::ReadMonth(database, holidays, days::ShapeOf(month));
    });
    const Taken fill = Measure([&] { days::FillGrid(grid, days::ShapeOf(month), rows, month); });
    auto& next = ChildOf<QPushButton>(window, u"Command2"_s);
    const Taken show = Measure([&] {
        next.click();
        QCoreApplication::sendPostedEvents();
        window.render(&picture);
    });
    return {ask, fill, show};
}

QString Copied(const QTemporaryDir& folder, const QString& name) {
    QString path = folder.filePath(name);
    if (!QFile::copy(QStringLiteral(TICKWELL_PRISTINE_DATABASE), path)) {
        throw RunTimeError(path);
    }
    return path;
}

void Print(const char* what, const Taken& full, const Taken& empty) {
    std::printf("%-24s %7.3f ms, slowest of 100 %7.3f ms; nothing stored %7.3f ms, ratio %5.2f\n", what,
                full.median, full.worst, empty.median, full.median / empty.median);
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    try {
        const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
        const QTemporaryDir files(folder.filePath(u"month_show-XXXXXX"_s));
        const QString full = Copied(files, u"full.mdb"_s);
        FillHolidays(full);
        store::DayDatabase database(full);
        FillMarks(database);
        database.Close();
        const Figures filled = MeasureCalendar(full);
        const Figures empty = MeasureCalendar(Copied(files, u"empty.mdb"_s));
        Print("asking the database", filled.ask, empty.ask);
        Print("filling the grid", filled.fill, empty.fill);
        Print("the click and its paint", filled.show, empty.show);
        std::printf("of a frame of a screen:  %7.2f\n", filled.show.median / kFrame);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "month_show: %s\n", error.what());
        return 1;
    }
    return 0;
}
