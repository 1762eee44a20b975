// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/qt_event_wait.h"

#include <QEventLoop>
#include <QTimer>

namespace tickwell::platform {

namespace {

constexpr int kPause = 50;  // ms between two calls of `done`

}  // namespace

void QtEventWait::Until(const std::function<bool()>& done) {
    if (done()) {
        return;
    }
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (done()) {
            loop.quit();
        }
    });
    timer.start(kPause);
    loop.exec();  // also ends when the program quits
}

}  // namespace tickwell::platform
