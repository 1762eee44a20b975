// SPDX-License-Identifier: GPL-3.0-or-later
// anniversary_search: what the windows of the anniversary book cost with 100 000 anniversaries: a search in
// its window until its finds can be seen in a list, against its bare queries; scrolling through that list;
// opening the deletion window on it and ticking all. Runs without a screen.

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "book/anniversary_search.h"
#include "book/anniversary_statements.h"
#include "book/deletion_window.h"
#include "book/search_window.h"
#include "core/errors.h"
#include "days/day_list_model.h"
#include "platform/qt_message_boxes.h"
#include "platform/system_clock.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr quint32 kSeed = 0x5C401;
constexpr int kRows = 100'000;
constexpr int kTimes = 11;
constexpr int kSteps = 1000;           // of the scroll bar
constexpr double kMilliseconds = 1e6;  // nanoseconds in one

class NoChanges : public DayChanges {
public:
    void RaiseRefresh() override {}
};

/// Shows a window and lets it paint; without that, asking for a picture later does nothing.
void Expose(QWidget& window) {
    window.show();
    QCoreApplication::processEvents();
    window.repaint();
}

template <typename Deed>
double Once(Deed deed) {
    QElapsedTimer timer;
    timer.start();
    deed();
    return static_cast<double>(timer.nsecsElapsed()) / kMilliseconds;
}

double Median(std::vector<double> taken) {
    std::nth_element(taken.begin(), taken.begin() + kTimes / 2, taken.end());
    return taken[kTimes / 2];
}

/// A third of each kind, one of three by week.
Anniversary RandomRow(QRandomGenerator& random) {
    Anniversary row{u"記念日%1"_s.arg(random.bounded(1000)), 0, 0, 0, 0};
    const int kind = random.bounded(3);
    row.year = kind == 0 ? random.bounded(1926, 2101) : 0;
    row.month = kind == 2 ? 0 : random.bounded(1, 13);
    if (random.bounded(3) == 0) {
        row.week = 10 * random.bounded(1, 6) + random.bounded(1, 8);
    } else {
        row.day = random.bounded(1, 32);
    }
    return row;
}

void Fill(DayDatabase& database) {
    QRandomGenerator random(kSeed);
    DayTransaction transaction(database);
    for (int i = 0; i < kRows; ++i) {
        database.Execute(InsertStatement(RandomRow(random)));
    }
    transaction.Commit();
}

/// The book, and a list as the calendar's is.
struct Bench {
    std::unique_ptr<DayDatabase> database;
    DayList list;
    NoChanges changes;
    SystemClock clock;
    QtMessageBoxes boxes;
    Handlers handlers{boxes};
    BookParts parts{database, list, changes, clock, boxes, handlers};
    DayListModel model{QVariant(), nullptr};
    QTreeView view;

    explicit Bench(const QString& path) : database(OpenDayDatabase(path)) {
        Fill(*database);
        view.setModel(&model);
        view.setRootIsDecorated(false);
        view.setUniformRowHeights(true);
        view.resize(400, 400);
        Expose(view);
        list.WhenChanged([this] { model.SetRows(list.Rows()); });
    }
};

void BareQueries(DayDatabase& database) {
    for (const QString& text : SearchTexts({})) {
        database.RunQuery(text);
    }
    database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s);
}

void MeasureSearch(Bench& bench) {
    std::vector<double> bare;
    std::vector<double> whole;
    for (int i = 0; i < kTimes; ++i) {
        bare.push_back(Once([&] { BareQueries(*bench.database); }));
        bench.list.ListFound({}, 0);
        Form9 window(bench.parts, nullptr);
        Expose(window);
        whole.push_back(Once([&] {
            window.findChild<QPushButton*>(u"Command1"_s)->click();
            bench.view.repaint();
        }));
    }
    std::printf("search, %d rows, all found: %.1f ms until shown, %.1f ms for the bare queries, ratio %.2f\n",
                kRows, Median(whole), Median(bare), Median(whole) / Median(bare));
}

void MeasureScrolling(Bench& bench) {
    QScrollBar* bar = bench.view.verticalScrollBar();
    std::vector<double> taken;
    taken.reserve(kSteps);
    for (int i = 0; i < kSteps; ++i) {
        taken.push_back(Once([&] {
            bar->setValue(static_cast<int>(qint64{bar->maximum()} * i / kSteps));
            bench.view.repaint();
        }));
    }
    std::sort(taken.begin(), taken.end());
    std::printf("scrolling through %lld rows: %.2f ms a step, %.2f ms at most\n",
                static_cast<long long>(bench.list.Rows().size()), taken[kSteps / 2], taken.back());
}

void MeasureDeletionWindow(Bench& bench) {
    std::vector<double> opening;
    std::vector<double> ticking;
    for (int i = 0; i < kTimes; ++i) {
        std::unique_ptr<Form10> window;
        opening.push_back(Once([&] {
            window = std::make_unique<Form10>(bench.parts, nullptr);
            Expose(*window);
        }));
        ticking.push_back(Once([&] {
            window->findChild<QPushButton*>(u"Command3"_s)->click();
            window->repaint();
        }));
    }
    std::printf("deletion window: %.1f ms to open, %.1f ms to tick all\n", Median(opening), Median(ticking));
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
        Bench bench(path);
        MeasureSearch(bench);
        MeasureScrolling(bench);
        MeasureDeletionWindow(bench);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "anniversary_search: %s\n", error.what());
        return 1;
    }
    return 0;
}
