// SPDX-License-Identifier: GPL-3.0-or-later
// What a frame of each wipe costs, against a frame of the same line at rest: painted into a picture in
// memory, so that only our own work is measured. Prints a table; nothing fails by the clock.

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>
#include <vector>

#include "display/line_look.h"
#include "display/moving_word.h"
#include "platform/virtual_time.h"

namespace {

using namespace tickwell;
using namespace Qt::StringLiterals;

constexpr QSize kLine(167, 20);
constexpr int kFrameInterval = 20;  // ms
constexpr int kRounds = 31;         // medians of so many
constexpr int kFrames = 400;

/// Microseconds that one painting of `word` takes as it stands, of many in a row.
double PaintTime(MovingWord& word, QImage& picture) {
    QElapsedTimer clock;
    clock.start();
    for (int frame = 0; frame < kFrames; ++frame) {
        word.render(&picture);
    }
    return static_cast<double>(clock.nsecsElapsed()) / 1000.0 / kFrames;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Measure(const char* name, qint32 kind) {
    VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)));
    FramePacer pacer(time, time);
    MovingWord word({time, time, pacer}, nullptr);
    word.setFixedSize(kLine);
    word.setFont(FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
    word.SetWipeKind(kind);
    word.SetFrameInterval(kFrameInterval);
    QImage picture(kLine, QImage::Format_RGB32);
    std::vector<double> resting;
    std::vector<double> wiping;
    for (int round = 0; round < kRounds; ++round) {  // in turn, so that a slow moment meets both
        word.SetText(u"平成38年11月20日(金曜日)"_s);
        resting.push_back(PaintTime(word, picture));
        word.SetStepSize(std::max(1, Wipe{kind, 0}.Length(kLine) / 2));
        word.ShowText(u"勤労感謝の日"_s);
        time.Advance(kFrameInterval);  // half the way: both texts are drawn
        wiping.push_back(PaintTime(word, picture));
    }
    std::printf("%-16s %8.2f us a frame %8.2f us at rest   ratio %.2f\n", name, Median(wiping),
                Median(resting), Median(wiping) / Median(resting));
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    InstallFontSubstitutes();
    const std::array<std::pair<const char*, qint32>, 4> kinds{{{"left to right", kWipeLeftToRight},
                                                               {"right to left", kWipeRightToLeft},
                                                               {"top to bottom", kWipeTopToBottom},
                                                               {"bottom to top", kWipeBottomToTop}}};
    for (const auto& [name, kind] : kinds) {
        Measure(name, kind);
    }
    return 0;
}
