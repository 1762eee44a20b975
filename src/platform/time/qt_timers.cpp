// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/time/qt_timers.h"

#include <QTimer>
#include <algorithm>

namespace tickwell::platform {

namespace {

class QtTimer : public Timer {
public:
    QtTimer(int milliseconds, Qt::TimerType type, std::function<void()> onTick)
        : m_onTick(std::move(onTick)) {
        m_timer.setTimerType(type);
        SetIntervalOf(milliseconds);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { m_onTick(); });
    }

    void SetInterval(int milliseconds) override { SetIntervalOf(milliseconds); }
    void Start() override { m_timer.start(); }
    void Stop() override { m_timer.stop(); }
    bool IsRunning() const override { return m_timer.isActive(); }

private:
    // With interval 0 the timer would keep a core busy, and with a negative one it would never fire.
    void SetIntervalOf(int milliseconds) { m_timer.setInterval(std::max(1, milliseconds)); }

    std::function<void()> m_onTick;
    QTimer m_timer;
};

}  // namespace

std::unique_ptr<Timer> QtTimers::Create(int milliseconds, std::function<void()> onTick) {
    return std::make_unique<QtTimer>(milliseconds, Qt::CoarseTimer, std::move(onTick));
}

std::unique_ptr<Timer> QtTimers::CreateExact(int milliseconds, std::function<void()> onTick) {
    return std::make_unique<QtTimer>(milliseconds, Qt::PreciseTimer, std::move(onTick));
}

}  // namespace tickwell::platform
