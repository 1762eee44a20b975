// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/roll.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/display_function.h"

namespace tickwell {

namespace {

constexpr std::array kRollOrder{kFunctionClock, kFunctionUsage, kFunctionBattery, kFunctionMemory};

constexpr qint32 kShortest = 1;  // s
constexpr qint32 kLongest = 3600;

}  // namespace

std::optional<qint32> NextInRoll(const RollSettings& roll, qint32 current, Mains mains) {
    std::array<qint32, kRollOrder.size()> order = kRollOrder;
    const auto* const at = std::find(kRollOrder.begin(), kRollOrder.end(), current);
    if (!roll.use || at == kRollOrder.end() || !roll.kinds.contains(current)) {
        return std::nullopt;
    }
    std::rotate(order.begin(), order.begin() + (at - kRollOrder.begin()), order.end());
    const auto shown = [&](qint32 kind) {
        return roll.kinds.contains(kind) && (kind != kFunctionBattery || mains != Mains::On);
    };
    const auto* const next = std::find_if(order.begin() + 1, order.end(), shown);
    return next == order.end() ? std::nullopt : std::optional(*next);
}

int RollIntervalOf(const RollSettings& roll) {
    return std::clamp(roll.interval, kShortest, kLongest) * 1000;
}

Roll::Roll(const RollSettings& settings, const Power& power, Handlers& handlers, TimerSource& timers,
           std::function<void(qint32 number)> change)
    : m_settings(settings),
      m_power(power),
      m_handlers(handlers),
      m_change(std::move(change)),
      m_timer(handlers.MakeTimer(timers, RollIntervalOf(settings), [this] { Tick(); })) {}

void Roll::FunctionChanged(qint32 number) {
    m_current = number;
    m_question.reset();
    m_timer->Stop();
    // The mains may come and go meanwhile: whether the battery has its turn is asked at each tick.
    if (NextInRoll(m_settings, number, Mains::Unknown)) {
        m_timer->SetInterval(RollIntervalOf(m_settings));
        m_timer->Start();
    }
}

void Roll::Tick() {
    m_question = m_power.Ask([this](const PowerReading& reading) {
        m_handlers.RunTick(*m_timer, [this, mains = reading.mains] { ShowNext(mains); });
    });
}

void Roll::ShowNext(Mains mains) {
    if (const auto next = NextInRoll(m_settings, m_current, mains)) {
        m_change(*next);
    }
}

}  // namespace tickwell
