// SPDX-License-Identifier: GPL-3.0-or-later
// The cost of refreshing the settings' sample, compared with painting one of its lines. The slider refreshes
// it at every step, so many refreshes must fit into a frame. Prints a table; never fails because of times.

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "lines/line_look.h"
#include "platform/time/virtual_time.h"
#include "settings_ui/sample_frame.h"
#include "support/child.h"
#include "support/fake_message_boxes.h"

namespace {

using namespace tickwell;
using namespace Qt::StringLiterals;

constexpr int kRounds = 31;  // the results are medians over these rounds
constexpr int kTimes = 200;
constexpr double kFrame = 1000.0 / 60;  // ms

/// Microseconds per call, averaged over kTimes calls.
double TimeOf(const std::function<void(int)>& call) {
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < kTimes; ++i) {
        call(i);
    }
    return static_cast<double>(clock.nsecsElapsed()) / 1000.0 / kTimes;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

AppSettings FirstSettings() {
    AppSettings settings;
    settings.wipeKind = 2;
    settings.wipeSpeed = 25;
    settings.upper = {.fontName = u"ＭＳ Ｐゴシック"_s, .fontSize = 10, .color = 0xFFFFFF};
    settings.lower = {.fontName = u"ＭＳ Ｐゴシック"_s, .fontSize = 10, .color = 0x00FF00};
    return settings;
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    lines::InstallFontSubstitutes();
    platform::VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)));
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    settings_ui::SampleFrame sample(time, time, handlers, nullptr);
    sample.show();
    sample.Refresh(FirstSettings());
    auto& line = ChildOf<lines::MovingWord>(sample, u"MovingWord1"_s);
    QImage picture(line.size(), QImage::Format_RGB32);
    std::vector<double> slider;
    std::vector<double> styles;
    std::vector<double> paints;
    for (int round = 0; round < kRounds; ++round) {  // alternating, so that temporary load affects all
        AppSettings settings = FirstSettings();
        slider.push_back(TimeOf([&](int i) {
            settings.wipeSpeed = 1 + i % 34;
            sample.Refresh(settings);
        }));
        styles.push_back(TimeOf([&](int i) {
            settings.upper.fontSize = static_cast<qint16>(8 + i % 40);
            settings.backColor = i;
            sample.Refresh(settings);
        }));
        time.Advance(2000);  // the wipe has ended
        paints.push_back(TimeOf([&](int /*i*/) { line.render(&picture); }));
    }
    const auto print = [&](const char* name, double microseconds) {
        std::printf("%-22s %8.2f us   ratio %6.2f   %.3f %% of a frame\n", name, microseconds,
                    microseconds / Median(paints), microseconds / 10.0 / kFrame);
    };
    print("a line painted", Median(paints));
    print("slider moved", Median(slider));
    print("font, colour changed", Median(styles));
    return 0;
}
