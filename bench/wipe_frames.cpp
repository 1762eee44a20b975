// SPDX-License-Identifier: GPL-3.0-or-later
// The cost of each frame of a wipe, compared with painting the complete line at rest, and the number of
// paints per wipe. Paints into a window without a screen, so that only the program's own work is measured.
// Prints a table; never fails because of times.

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>
#include <vector>

#include "lines/line_look.h"
#include "lines/moving_word.h"
#include "platform/time/virtual_time.h"

namespace {

using namespace tickwell;
using namespace Qt::StringLiterals;

constexpr QSize kLine(167, 20);
constexpr int kFrameInterval = 20;  // ms
constexpr int kStep = 4;            // pixels per frame
constexpr int kRounds = 200;

/// A line that records the microseconds of each of its paints.
class TimedWord : public lines::MovingWord {
public:
    using lines::MovingWord::MovingWord;
    std::vector<double> paints;

protected:
    void paintEvent(QPaintEvent* event) override {
        QElapsedTimer clock;
        clock.start();
        lines::MovingWord::paintEvent(event);
        paints.push_back(static_cast<double>(clock.nsecsElapsed()) / 1000.0);
    }
};

/// The quantile `share` (0 to 1) of the values.
double Quantile(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(static_cast<double>(values.size() - 1) * share)];
}

void Measure(const char* name, qint32 kind) {
    platform::VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)));
    lines::FramePacer pacer(time, time);
    TimedWord word({time, time, pacer}, nullptr);
    word.setFixedSize(kLine);
    word.setFont(lines::FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
    word.SetWipeKind(kind);
    word.SetFrameInterval(kFrameInterval);
    word.SetStepSize(kStep);
    word.show();
    std::vector<double> resting;
    std::vector<double> wiping;
    int frames = 0;
    for (int round = 0; round < kRounds; ++round) {  // alternating, so that temporary load affects both
        word.SetText(u"平成38年11月20日(金曜日)"_s);
        for (int frame = 0; frame < 10; ++frame) {
            time.Advance(kFrameInterval);
            word.update();
            QCoreApplication::processEvents();
        }
        resting.insert(resting.end(), word.paints.begin(), word.paints.end());
        word.paints.clear();
        word.ShowText(u"勤労感謝の日(金曜日)の翌日"_s);
        while (word.IsWiping()) {
            ++frames;
            time.Advance(kFrameInterval);
            QCoreApplication::processEvents();
        }
        wiping.insert(wiping.end(), word.paints.begin(), word.paints.end());
        word.paints.clear();
    }
    const double rest = Quantile(resting, 0.5);
    std::printf(
        "%-14s %6.1f us a frame (nine of ten below %.1f), %6.1f us at rest   ratio %.2f   %.2f paints a "
        "frame\n",
        name, Quantile(wiping, 0.5), Quantile(wiping, 0.9), rest, Quantile(wiping, 0.5) / rest,
        static_cast<double>(wiping.size()) / frames);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    lines::InstallFontSubstitutes();
    const std::array<std::pair<const char*, qint32>, 4> kinds{{{"left to right", lines::kWipeLeftToRight},
                                                               {"right to left", lines::kWipeRightToLeft},
                                                               {"top to bottom", lines::kWipeTopToBottom},
                                                               {"bottom to top", lines::kWipeBottomToTop}}};
    for (const auto& [name, kind] : kinds) {
        Measure(name, kind);
    }
    return 0;
}
