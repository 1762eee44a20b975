// SPDX-License-Identifier: GPL-3.0-or-later
// compaction [FOLDER]: the duration of the day database's compaction, for two sizes, with 95 % of the rows
// deleted and with none, compared with a plain copy of the same file. FOLDER selects the disk for the files;
// the default is the temporary folder.

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "core/errors.h"
#include "store/compaction.h"
#include "store/day_files.h"
#include "support/fake_message_boxes.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr int kTimes = 7;
constexpr double kMilliseconds = 1e6;  // nanoseconds per millisecond

/// Records the durations of the two large steps.
class TimedDisk : public store::PosixStoreDisk {
public:
    void Copy(const store::SqliteConnection& from, const QString& to) override {
        m_copied = Timed([&] { store::PosixStoreDisk::Copy(from, to); });
    }
    void Compact(store::SqliteConnection& from, const QString& to) override {
        m_compacted = Timed([&] { store::PosixStoreDisk::Compact(from, to); });
    }

    double Copied() const { return m_copied; }
    double Compacted() const { return m_compacted; }

    /// The duration of a call in milliseconds.
    template <typename Deed>
    static double Timed(Deed deed) {
        QElapsedTimer timer;
        timer.start();
        deed();
        return static_cast<double>(timer.nsecsElapsed()) / kMilliseconds;
    }

private:
    double m_copied = 0;
    double m_compacted = 0;
};

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void MakeFile(int rows, int ofTwentyKept) {
    QFile::remove(store::kLiveFile);
    if (!QFile::copy(QStringLiteral(TICKWELL_PRISTINE_DATABASE), store::kLiveFile)) {
        throw RunTimeError(store::kLiveFile);
    }
    store::SqliteConnection file(store::kLiveFile);
    file.Run("BEGIN");
    file.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
             QByteArray::number(rows) +
             ") INSERT INTO Kinenbi(\"Name\",\"Year\",\"Month\",\"Day\",\"Week\") "
             "SELECT '記念日' || i, 0, i % 13, i % 31 + 1, 0 FROM n");
    file.Run("DELETE FROM Kinenbi WHERE id % 20 >= " + QByteArray::number(ofTwentyKept));
    file.Run("COMMIT");
}

void Measure(int rows, int ofTwentyKept) {
    std::vector<double> whole;
    std::vector<double> copied;
    std::vector<double> compacted;
    qint64 before = 0;
    for (int i = 0; i < kTimes; ++i) {
        MakeFile(rows, ofTwentyKept);
        before = QFileInfo(store::kLiveFile).size();
        store::DayDatabase handle(store::kLiveFile);
        FakeMessageBoxes boxes;
        TimedDisk disk;
        whole.push_back(TimedDisk::Timed(
            [&] { store::CompactDayDatabase(handle, ProgramFolder(QDir::currentPath()), boxes, disk); }));
        if (boxes.Shown().constFirst().icon != MessageIcon::Information) {
            throw RunTimeError(boxes.Shown().constFirst().text);
        }
        copied.push_back(disk.Copied());
        compacted.push_back(disk.Compacted());
    }
    std::printf(
        "%6d rows, %3d %% kept, %5lld to %5lld KB: %7.1f ms, of which the copy %6.1f and the compacting "
        "%6.1f, "
        "ratio to the copy %5.1f\n",
        rows, ofTwentyKept * 5, before / 1024, QFileInfo(store::kLiveFile).size() / 1024, Median(whole),
        Median(copied), Median(compacted), Median(whole) / Median(copied));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
        const QTemporaryDir files(folder.filePath(u"compaction-XXXXXX"_s));
        if (!QDir::setCurrent(files.path())) {
            throw RunTimeError(files.path());
        }
        for (const int rows : {20'000, 100'000}) {
            Measure(rows, 1);
            Measure(rows, 20);
        }
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "compaction: %s\n", error.what());
        return 1;
    }
    return 0;
}
