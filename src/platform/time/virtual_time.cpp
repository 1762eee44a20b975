// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/time/virtual_time.h"

#include <algorithm>
#include <utility>

namespace tickwell::platform {

class VirtualTimer : public Timer {
public:
    VirtualTimer(VirtualTime& time, int milliseconds, std::function<void()> onTick)
        : m_time(time), m_interval(std::max(1, milliseconds)), m_onTick(std::move(onTick)) {}
    ~VirtualTimer() override { StopNow(); }
    Q_DISABLE_COPY_MOVE(VirtualTimer)

    void SetInterval(int milliseconds) override {
        m_interval = std::max(1, milliseconds);
        m_due = m_time.m_elapsed + m_interval;
    }
    void Start() override {
        StopNow();
        m_due = m_time.m_elapsed + m_interval;
        m_time.m_running.push_back(this);
    }
    void Stop() override { StopNow(); }
    bool IsRunning() const override {
        return std::find(m_time.m_running.begin(), m_time.m_running.end(), this) != m_time.m_running.end();
    }

    qint64 Due() const { return m_due; }
    void Deliver() {
        m_due += m_interval;
        const auto onTick = m_onTick;  // the tick may destroy this timer
        onTick();
    }

private:
    void StopNow() { std::erase(m_time.m_running, this); }

    VirtualTime& m_time;
    int m_interval;
    std::function<void()> m_onTick;
    qint64 m_due = 0;
};

VirtualTime::VirtualTime(const QDateTime& now, qint64 sinceBoot)
    : m_now(now.toMSecsSinceEpoch()), m_sinceBoot(sinceBoot) {}

std::unique_ptr<Timer> VirtualTime::Create(int milliseconds, std::function<void()> onTick) {
    return std::make_unique<VirtualTimer>(*this, milliseconds, std::move(onTick));
}

std::unique_ptr<Timer> VirtualTime::CreateExact(int milliseconds, std::function<void()> onTick) {
    return Create(milliseconds, std::move(onTick));
}

void VirtualTime::SetNow(const QDateTime& now) {
    m_now = now.toMSecsSinceEpoch();
    TellOfJump();
}

bool VirtualTime::SetZone(const QByteArray& zone) {
    const bool isSet = qputenv("TZ", zone);
    TellOfJump();
    return isSet;
}

void VirtualTime::TellOfJump() const {
    if (m_onJump) {
        m_onJump();
    }
}

VirtualTimer* VirtualTime::Next() const {
    const auto next =
        std::min_element(m_running.begin(), m_running.end(),
                         [](const VirtualTimer* a, const VirtualTimer* b) { return a->Due() < b->Due(); });
    return next == m_running.end() ? nullptr : *next;
}

std::optional<qint64> VirtualTime::UntilNext() const {
    const VirtualTimer* next = Next();
    return next == nullptr ? std::nullopt : std::optional(next->Due() - m_elapsed);
}

void VirtualTime::Suspend(qint64 milliseconds) {
    m_now += milliseconds;
    m_sinceBoot += milliseconds;
    TellOfJump();
}

void VirtualTime::Pass(qint64 milliseconds) {
    m_now += milliseconds;
    m_sinceBoot += milliseconds;
    m_elapsed += milliseconds;
}

std::optional<qint64> VirtualTime::Step(qint64 milliseconds) {
    const auto wait = UntilNext();
    if (!wait || *wait > milliseconds) {
        Pass(milliseconds);
        return std::nullopt;
    }
    Pass(*wait);
    Next()->Deliver();
    return milliseconds - *wait;
}

void VirtualTime::Advance(qint64 milliseconds) {
    std::optional<qint64> left = milliseconds;
    while (left) {
        left = Step(*left);
    }
}

}  // namespace tickwell::platform
